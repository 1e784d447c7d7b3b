#pragma once
// The time of day at which the sleep function acts: hours and minutes, with the current
// time in the caption.
#include "shell/Farbverlauf.h"
#include "shell/Steuerfeld.h"

#include <QString>

class QLabel;
class QPushButton;
class Textfeld;
class Zeitgeber;

// The chosen time as "hh:mm"; "00:00" means none (a cancelled dialog).
extern QString SleepZeit;

class frmUhrzeit : public VerlaufFenster {
    Q_OBJECT
public:
    explicit frmUhrzeit(QWidget* eltern = nullptr);

    // The current time in the caption and the fields, SleepZeit "00:00", the clock
    // running. Shows nothing, so that the window can be driven without its modal loop.
    void Form_Load();
    // Shows the window modally until it is closed.
    void Anzeigen();

    void Timer1_Timer();
    // Typing the second digit moves on to the next control.
    void Text1_Change(int index);
    // Hours from 0 to 24, minutes from 0 to 60; false (after a hint) for another value.
    bool Text1_Pruefen(int index);
    void cmdOK_Click();
    void cmdExit_Click();

    Steuerfeld<Textfeld, 2> Text1{"Text1"};
    Steuerfeld<QLabel, 2> Label1{"Label1"};
    QPushButton* cmdOK = nullptr;
    QPushButton* cmdExit = nullptr;
    Zeitgeber* Timer1 = nullptr;

protected:
    bool eventFilter(QObject* objekt, QEvent* ereignis) override;
};
