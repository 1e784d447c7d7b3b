#pragma once
// The window of the media player path for video and pictures: the control fills it, a row
// of picture buttons at the foot steps through the Carrier's files, loops and stretches.
#include "shell/Farbverlauf.h"
#include "shell/Steuerfeld.h"

class Ausgabebox;
class Bildfeld;
class Bildknopf;
class Medienspieler;
class QVideoWidget;
class Zeitgeber;

class frmWinMediaPlayer : public VerlaufFenster {
    Q_OBJECT
public:
    // A child of the main window, whose player it drives.
    explicit frmWinMediaPlayer(Ausgabebox& box);
    ~frmWinMediaPlayer() override;

    // Reads the place from the settings and sets the loop pictures.
    void Form_Load();
    // Sets the file and starts it; a picture is shown instead of played.
    void setURL(const QString& pfad);
    QString URL() const;
    // Lets go of the file; the window stays.
    void MedienSchliessen();
    int playState() const;
    Medienspieler* spieler() const { return m_spieler; }
    bool zeigtBild() const;

    void imgVorBack_Click(int index);
    void ABsonderzeichen();
    void TimerPosAB_Timer();

    QVideoWidget* WindowsMediaPlayer1 = nullptr;
    Bildfeld* imgBild = nullptr; // pictures stand here in place of the video
    Steuerfeld<Bildknopf, 10> imgVorBack{"imgVorBack"};
    Zeitgeber* TimerPosAB = nullptr;
    int PosA = 0;
    int PosB = 0;
    bool PosAGesetzt = false;
    bool Vollbild = false;

protected:
    void resizeEvent(QResizeEvent* e) override;
    void closeEvent(QCloseEvent* e) override;
    void keyPressEvent(QKeyEvent* e) override;

private:
    void Form_Resize();
    Ausgabebox& m_box;
    Medienspieler* m_spieler = nullptr;
    bool m_bild = false;
};
