#pragma once
// The processor load as a moving mean over the last samples.
#include <functional>
#include <optional>
#include <vector>

class clsCPULoad {
public:
    // The source of one sample in percent; nothing when the counter cannot be read.
    explicit clsCPULoad(std::function<std::optional<double>()> quelle);

    int StackSize() const { return m_stackSize; }
    // Starts the history anew; the sum is kept, so the next mean still carries it.
    void setStackSize(int groesse);
    // Takes a sample and gives the mean; without a sample, the last mean.
    int Value();
    void StichprobeAufnehmen(int wert);

private:
    std::function<std::optional<double>()> m_quelle;
    int m_stackSize = 5;
    std::vector<int> m_stichproben; // after the size, which it is made from
    int m_anzahl = 0;
    long long m_summe = 0;
    int m_mittel = 0;
};
