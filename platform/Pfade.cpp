#include "platform/Pfade.h"

#include <QDir>
#include <QFileInfo>
#include <QStandardPaths>

static qsizetype letzterTrenner(const QString& pfad)
{
    return std::max(pfad.lastIndexOf(u'/'), pfad.lastIndexOf(u'\\'));
}

QString DateinameAusPfad(const QString& pfad) { return pfad.mid(letzterTrenner(pfad) + 1); }

QString OrdnerAusPfad(const QString& pfad) { return pfad.left(letzterTrenner(pfad) + 1); }

QString MitSchraegstrich(const QString& ordner)
{
    if (ordner.isEmpty() || ordner.endsWith(u'/'))
        return ordner;
    return ordner + u'/';
}

bool DateiVorhanden(const QString& pfad) { return !pfad.isEmpty() && QFileInfo(pfad).isFile(); }

bool OrdnerVorhanden(const QString& pfad) { return !pfad.isEmpty() && QFileInfo(pfad).isDir(); }

static QString xdgOrdner(const char* variable, const QString& ersatz)
{
    QString wert = qEnvironmentVariable(variable);
    if (wert.isEmpty() || !QDir::isAbsolutePath(wert))
        wert = QDir::homePath() + ersatz;
    return MitSchraegstrich(QDir::cleanPath(wert));
}

QString ProgrammOrdnerErmitteln()
{
    return xdgOrdner("XDG_DATA_HOME", QStringLiteral("/.local/share")) + QStringLiteral("Rillenkammer/");
}

QString EinstellungsOrdner()
{
    return xdgOrdner("XDG_CONFIG_HOME", QStringLiteral("/.config")) + QStringLiteral("Rillenkammer/");
}

QString LaufzeitOrdner()
{
    const QString wert = qEnvironmentVariable("XDG_RUNTIME_DIR");
    if (!wert.isEmpty() && QFileInfo(wert).isDir())
        return MitSchraegstrich(wert);
    return MitSchraegstrich(QDir::tempPath());
}
