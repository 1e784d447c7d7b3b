#include "platform/Systemlast.h"

#include <QFile>
#include <QList>

#include <cmath>

namespace {

QByteArray lesen(const QString& pfad)
{
    QFile datei(pfad);
    // The files of /proc report no size: read until the end, and at most what they hold.
    if (!datei.open(QIODevice::ReadOnly))
        return {};
    return datei.read(1 << 16);
}

} // namespace

std::optional<Prozessorzeiten> ProzessorzeitenLesen(const QByteArray& stat)
{
    for (const QByteArray& zeile : stat.split('\n')) {
        const QList<QByteArray> teile = zeile.simplified().split(' ');
        if (teile.value(0) != "cpu" || teile.size() < 5)
            continue;
        // user nice system idle iowait irq softirq steal; guest times are inside user.
        Prozessorzeiten z;
        for (qsizetype i = 1; i < teile.size() && i <= 8; ++i) {
            bool ok = false;
            const quint64 wert = teile[i].toULongLong(&ok);
            if (!ok)
                return std::nullopt;
            z.gesamt += wert;
            if (i != 4 && i != 5)
                z.belegt += wert;
        }
        return z;
    }
    return std::nullopt;
}

std::optional<int> SpeicherlastLesen(const QByteArray& meminfo)
{
    std::optional<double> gesamt, frei;
    for (const QByteArray& zeile : meminfo.split('\n')) {
        const QList<QByteArray> teile = zeile.simplified().split(' ');
        bool ok = false;
        const double wert = teile.value(1).toDouble(&ok);
        if (!ok)
            continue;
        if (teile[0] == "MemTotal:")
            gesamt = wert;
        else if (teile[0] == "MemAvailable:")
            frei = wert;
    }
    if (!gesamt || !frei || *gesamt <= 0 || *frei > *gesamt)
        return std::nullopt;
    return int(std::lround((*gesamt - *frei) * 100.0 / *gesamt));
}

Systemlast::Systemlast(const QString& procOrdner)
    : m_ordner(procOrdner.endsWith(u'/') ? procOrdner : procOrdner + u'/')
{
}

std::optional<double> Systemlast::prozessor()
{
    const auto jetzt = ProzessorzeitenLesen(lesen(m_ordner + QStringLiteral("stat")));
    if (!jetzt)
        return std::nullopt;
    const Prozessorzeiten vorher = m_vorher.value_or(Prozessorzeiten{});
    m_vorher = jetzt;
    if (jetzt->gesamt <= vorher.gesamt || jetzt->belegt < vorher.belegt)
        return std::nullopt;
    return double(jetzt->belegt - vorher.belegt) * 100.0 / double(jetzt->gesamt - vorher.gesamt);
}

std::optional<int> Systemlast::speicher() const
{
    return SpeicherlastLesen(lesen(m_ordner + QStringLiteral("meminfo")));
}
