#pragma once
// The machine's processor and memory load, read from the kernel's process file system.
// The folder is given so that tests read a made-up one.
#include <QByteArray>
#include <QString>

#include <optional>

// The busy and the total time of all processors from the "cpu" line of /proc/stat, in
// clock ticks since boot; nothing when the text has no such line.
struct Prozessorzeiten {
    quint64 belegt = 0;
    quint64 gesamt = 0;
};
std::optional<Prozessorzeiten> ProzessorzeitenLesen(const QByteArray& stat);
// The share of memory in use from /proc/meminfo, in percent, rounded; nothing when the
// text lacks MemTotal or MemAvailable.
std::optional<int> SpeicherlastLesen(const QByteArray& meminfo);

class Systemlast {
public:
    explicit Systemlast(const QString& procOrdner = QStringLiteral("/proc/"));
    // The processor load in percent since the last call (the first: since boot); nothing
    // when the file cannot be read or no time has passed.
    std::optional<double> prozessor();
    std::optional<int> speicher() const;

private:
    QString m_ordner;
    std::optional<Prozessorzeiten> m_vorher;
};
