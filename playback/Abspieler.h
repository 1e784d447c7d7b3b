#pragma once
// The transport of the main window: start, stop, pause, resume, step and loop, on the
// two sound paths, and the coupling of the media player control and the media window.
#include "shell/Teilbereich.h"

#include <QString>

class frmWinMediaPlayer;

class Abspieler : public Teilbereich {
public:
    using Teilbereich::Teilbereich;
    void verbinden() override;

    static const QString Alias; // the one device of sound path one

    void imgStart_Click();
    void imgStop_Click();
    void imgPause_Click();
    void imgResume_Click();
    void imgVorBack_Click(int index);
    void imgPosAB_Click();
    void TimerPosAB_Timer();
    void SonderfunktionenAus();
    void cmdPlayAsso_Click();
    void MiniPlayerVorBackStart();
    void MiniPlayerStop();
    void MiniPlayerPause() { imgPause_Click(); }
    void MiniPlayerPosAB() { imgPosAB_Click(); }
    void MiniPlayerResume() { imgResume_Click(); }
    // The media player control stands stopped (its play state 1).
    bool MedienpfadAngehalten() const;
    void MediaPlayer1_PlayStateChange(int zustand);
    void MediaPlayer1_MouseDown(Qt::MouseButton knopf);
    void chkVisualisierung_Click();
    void chkVollbild_Click();
    void mnuWinPlayerVerwenden_Click();
    // The media player control on the main window shows (on the covers' tab).
    void MediaPlayer1Zeigen(bool sichtbar);

    double TrackEndeZeit = 0;
    QString LaufenderTrack;
    bool FensterMedium = false;
    bool WmpPause = false;
    bool PosAGesetzt = false;
    int PosA = 0;
    int PosB = 0;
    int ResumePosition = 0;
    int ResumeIndex = 0;
    QString ResumeOrdner;
    bool MediaPlayer1Sichtbar = false;
    frmWinMediaPlayer* WinMediaPlayer = nullptr;

protected:
    bool eventFilter(QObject* objekt, QEvent* ereignis) override;

private:
    // Hands a file to the media player path: the control here, or the window for video
    // and pictures.
    void MediaPlayerPfad(const QString& pfad);
    // The window for video and pictures, made when first needed.
    frmWinMediaPlayer* WinMediaPlayerFenster();
    // Over the control while an audio file plays: cover, title and progress.
    void AudioanzeigeAktualisieren();
};
