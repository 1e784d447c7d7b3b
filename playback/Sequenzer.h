#pragma once
// The sequencer: the tick of Timer1 finds the end of a track, chooses the next one,
// passes over excluded Carriers, waits and starts it; the six mode boxes keep themselves
// in legal combinations; Timer2 writes the running title into the minimised caption.
#include "shell/Teilbereich.h"

#include <QString>

class Sequenzer : public Teilbereich {
public:
    using Teilbereich::Teilbereich;
    void verbinden() override;

    void Timer1_Timer();
    void Timer2_Timer();
    void chkAlleTracks_Click();
    void chkMarkTracks_Click();
    void chkShuffle_Click();
    void chkTracksAnspielen_Click();
    void mnuPauseZwischenTracks_Click();
    void mnuLaufschrift_Click();
    // The text of one phase of the running title; the mini player reads the playing row
    // of a playlist, the caption of the main window the selected one.
    QString LaufschriftText(int phase, bool spielendeZeile = false) const;

private:
    // The running Track is over: by the clock on path one and in sampling, else by the
    // play state of the control that has it.
    bool TrackZuEnde(bool mitAnspielen) const;
    // The next item; false when the list ended and the transport was stopped.
    bool NaechsterTrack();
    bool ZufallsTrack();
    bool PlaylistZeileWaehlen();
    void ListenEndeStoppen();

    bool m_timer1Laeuft = false;
    bool m_timer2Laeuft = false;
    int m_laufschriftPhase = 0;
};
