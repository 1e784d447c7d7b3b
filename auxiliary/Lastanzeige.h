#pragma once
// The load display of the status bar: processor and memory load, once a second.
#include "shell/Teilbereich.h"

#include "auxiliary/clsCPULoad.h"
#include "platform/Systemlast.h"

#include <QString>

class Lastanzeige : public Teilbereich {
public:
    explicit Lastanzeige(Ausgabebox& box);
    void verbinden() override;

    void LastanzeigeStarten();
    void Timer4_Timer();
    // The folder read instead of /proc, for tests.
    void setProcOrdner(const QString& ordner) { m_last = Systemlast(ordner); }
    clsCPULoad& last() { return m_cpu; }

private:
    Systemlast m_last;
    clsCPULoad m_cpu;
};
