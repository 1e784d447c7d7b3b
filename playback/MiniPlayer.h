#pragma once
// The mini player's side of the main window: going over to it and back, its buttons,
// which end in the transport's commands, its two shapes and its running title.
#include "shell/Teilbereich.h"

class frmMiniPlayer;

class MiniPlayer : public Teilbereich {
public:
    using Teilbereich::Teilbereich;
    void verbinden() override;

    void imgMiniPlayer_Click();
    void imgVorBack_Click(int index);
    void Timer3_Timer();
    // The pictures of pause and loop at rest.
    void ABsonderzeichen();
    // Called by the transport: a stop ends the running title, a start may begin it, and
    // the wait between Tracks shows in the caption and in the pause pictures.
    void TransportGestoppt();
    void TitelStarten();
    void PauseZeigen(const QString& text);
    void PauseBeendet();
    void SonderfunktionenAus();
    // The window, made at its first use.
    frmMiniPlayer* fenster();
    bool Sichtbar() const;
    // The volume tool beside the program, with the place it is to open at when the mini
    // player calls it; a missing tool is named.
    void Lautsprecherregler(bool uebergabe);

private:
    void Drehen();
    void PlatzSpeichern();
    bool Schliessen();
    void Aktiviert();

    frmMiniPlayer* m_fenster = nullptr;
    bool m_timer3Laeuft = false;
    bool m_aktivierung = false;
};
