#pragma once
// The sleep function: at a time of day the program ends, or the computer is switched
// off where the user may.
#include "shell/Teilbereich.h"

class Schlafmodus : public Teilbereich {
public:
    using Teilbereich::Teilbereich;
    void verbinden() override;

    void mnuSleep_Click();
    void TimerSleep_Timer();

    // At the sleep time the computer is switched off instead of only ending the program.
    bool SleepHerunterfahren = false;

private:
    // The computer is on its way down: the sleep timer asks no second time.
    bool m_ausschaltenLaeuft = false;
};
