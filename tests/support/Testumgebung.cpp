#include "Testumgebung.h"

#include "shell/Anwendung.h"
#include "shell/Einstellungen.h"

#include <QDir>
#include <QFile>
#include <QTemporaryDir>

namespace {
QTemporaryDir* s_dir = nullptr;
}

Testumgebung::Testumgebung()
{
    s_dir = new QTemporaryDir(QDir::tempPath() + QStringLiteral("/rk-test-XXXXXX"));
    const QString w = s_dir->path();
    for (const char* n : {"home", "config", "data", "runtime", "cache"})
        QDir().mkpath(w + u'/' + QLatin1String(n));
    QFile::setPermissions(w + QStringLiteral("/runtime"),
                          QFile::ReadOwner | QFile::WriteOwner | QFile::ExeOwner);
    qputenv("HOME", (w + QStringLiteral("/home")).toUtf8());
    qputenv("XDG_CONFIG_HOME", (w + QStringLiteral("/config")).toUtf8());
    qputenv("XDG_DATA_HOME", (w + QStringLiteral("/data")).toUtf8());
    qputenv("XDG_RUNTIME_DIR", (w + QStringLiteral("/runtime")).toUtf8());
    qputenv("XDG_CACHE_HOME", (w + QStringLiteral("/cache")).toUtf8());
    if (qEnvironmentVariableIsEmpty("QT_QPA_PLATFORM"))
        qputenv("QT_QPA_PLATFORM", "offscreen");
    RessourcenAnmelden();
}

Testumgebung::~Testumgebung()
{
    EinstellungenSchliessen();
    delete s_dir;
    s_dir = nullptr;
}

QString Testumgebung::wurzel() { return s_dir->path() + u'/'; }

QString Testumgebung::programmOrdner() { return wurzel() + QStringLiteral("data/Rillenkammer/"); }

void Testumgebung::zuruecksetzen()
{
    EinstellungenSchliessen();
    for (const char* n : {"config", "data"}) {
        QDir d(wurzel() + QLatin1String(n));
        d.removeRecursively();
        QDir().mkpath(d.path());
    }
}

QString Testordner(const QString& name)
{
    const QString pfad = Testumgebung::wurzel() + name + u'/';
    QDir().mkpath(pfad);
    return pfad;
}

void DateiSchreiben(const QString& pfad, const QByteArray& inhalt)
{
    QDir().mkpath(QFileInfo(pfad).path());
    QFile f(pfad);
    if (f.open(QIODevice::WriteOnly))
        f.write(inhalt);
}

QByteArray DateiLesen(const QString& pfad)
{
    QFile f(pfad);
    return f.open(QIODevice::ReadOnly) ? f.readAll() : QByteArray();
}

void TasteText(QWidget* w, const QString& text)
{
    for (const QChar ch : text)
        QTest::sendKeyEvent(QTest::Click, w, Qt::Key_unknown, QString(ch), Qt::NoModifier);
}
