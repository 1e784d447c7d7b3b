#include "auxiliary/Lastanzeige.h"

#include "platform/Uhr.h"
#include "shell/Ausgabebox.h"
#include "shell/Steuerelemente.h"

Lastanzeige::Lastanzeige(Ausgabebox& box)
    : Teilbereich(box)
    , m_cpu([this] { return m_last.prozessor(); })
{
}

void Lastanzeige::verbinden()
{
    connect(box.Timer4, &Zeitgeber::Timer, this, [this] { Timer4_Timer(); });
}

void Lastanzeige::LastanzeigeStarten()
{
    m_cpu.setStackSize(10);
    box.Timer4->setEnabled(true);
}

void Lastanzeige::Timer4_Timer()
{
    box.staBar->setPanelText(4, QStringLiteral("CPU %1 %").arg(m_cpu.Value()));
    // A value that cannot be read leaves the panel as it was.
    if (const auto speicher = m_last.speicher())
        box.staBar->setPanelText(5, QStringLiteral("RAM %1 %").arg(*speicher));
}
