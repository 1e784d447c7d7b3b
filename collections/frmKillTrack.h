#pragma once
// The question of mnuTrackKill: all marked Tracks are deleted, into the trash, securely
// (overwritten with blanks, then removed) or normally; or nothing is.
#include "shell/Farbverlauf.h"
#include "shell/Steuerfeld.h"

class Ausgabebox;
class Bildknopf;
class QLabel;
class QPushButton;

class frmKillTrack : public VerlaufFenster {
    Q_OBJECT
public:
    // Over the main window, whose marked Tracks it deletes.
    explicit frmKillTrack(Ausgabebox& box);

    // 0 trash, 1 secure, 2 normal: the marked Tracks go, then the window closes; 3 closes.
    void cmdKill_Click(int index);
    // Opens the help page of the Extras menu.
    void imgHilfe_Click();

    // The deletion mode of DateiLoeschen for each button of the method.
    static constexpr int Loeschmodus[3] = {1, 2, 0};

    QLabel* lblFrage = nullptr;
    QLabel* lblMethode = nullptr;
    Steuerfeld<QPushButton, 4> cmdKill{"cmdKill"};
    Bildknopf* imgHilfe = nullptr;

private:
    Ausgabebox& m_box;
};
