#include "platform/Dateikopie.h"

#include <QFile>
#include <QSaveFile>

bool DateiKopieren(const QString& quelle, const QString& ziel, const std::function<bool()>& weiter)
{
    // Pieces of 4 MB: a stop waits for at most one of them.
    constexpr qint64 Stueck = qint64(4) << 20;
    QFile ein(quelle);
    if (!ein.open(QIODevice::ReadOnly))
        return false;
    // QSaveFile writes beside the target and renames at commit; cancelled or destroyed
    // without a commit it removes what it wrote.
    QSaveFile aus(ziel);
    if (!aus.open(QIODevice::WriteOnly))
        return false;
    QByteArray puffer;
    while (!ein.atEnd()) {
        puffer = ein.read(Stueck);
        if (puffer.isEmpty() && ein.error() != QFileDevice::NoError)
            return false;
        if (aus.write(puffer) != puffer.size())
            return false;
        if (!ein.atEnd() && weiter && !weiter())
            return false;
    }
    if (!aus.commit())
        return false;
    QFile::setPermissions(ziel, ein.permissions());
    return true;
}
