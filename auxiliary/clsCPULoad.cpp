#include "auxiliary/clsCPULoad.h"

#include <algorithm>
#include <cmath>
#include <utility>

namespace {

// Whole numbers as the counters of the system round them: halves to the even number.
int gerundet(double wert) { return int(std::nearbyint(std::clamp(wert, -1e9, 1e9))); }

} // namespace

clsCPULoad::clsCPULoad(std::function<std::optional<double>()> quelle)
    : m_quelle(std::move(quelle))
    , m_stichproben(size_t(m_stackSize))
{
}

void clsCPULoad::setStackSize(int groesse)
{
    m_stackSize = std::max(1, groesse);
    m_stichproben.assign(size_t(m_stackSize), 0);
    m_anzahl = 0;
}

int clsCPULoad::Value()
{
    const std::optional<double> wert = m_quelle ? m_quelle() : std::nullopt;
    if (!wert)
        return m_mittel;
    StichprobeAufnehmen(gerundet(*wert));
    return m_mittel;
}

void clsCPULoad::StichprobeAufnehmen(int wert)
{
    if (m_anzahl > m_stackSize - 1) {
        m_summe += wert - m_stichproben.front();
        std::rotate(m_stichproben.begin(), m_stichproben.begin() + 1, m_stichproben.end());
        m_stichproben.back() = wert;
    } else {
        m_stichproben[size_t(m_anzahl)] = wert;
        m_summe += wert;
        ++m_anzahl;
    }
    m_mittel = gerundet(double(m_summe) / m_anzahl);
}
