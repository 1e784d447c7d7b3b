#include "shell/Anwendung.h"

#include "shell/Ausgabebox.h"
#include "shell/EchteDialoge.h"

#include "platform/Medien.h"

#include <QApplication>
#include <QDir>
#include <QDirIterator>
#include <QFile>
#include <QFileInfo>
#include <QIcon>
#include <QLibraryInfo>
#include <QLocale>
#include <QTranslator>

void RessourcenAnmelden()
{
    Q_INIT_RESOURCE(rillenkammer);
}

int RessourcenKopieren(const QString& programmOrdner)
{
    const QString quelle = QStringLiteral(":/resources/programmordner/");
    int kopiert = 0;
    QDirIterator it(quelle, QDir::Files, QDirIterator::Subdirectories);
    while (it.hasNext()) {
        const QString datei = it.next();
        const QString ziel = programmOrdner + datei.mid(quelle.size());
        if (QFileInfo::exists(ziel))
            continue;
        QDir().mkpath(QFileInfo(ziel).path());
        if (!QFile::copy(datei, ziel))
            continue;
        // Files from the resources come read-only; the catalogue must be writable.
        QFile::setPermissions(ziel, QFile::ReadOwner | QFile::WriteOwner | QFile::ReadGroup
                                        | QFile::ReadOther);
        ++kopiert;
    }
    return kopiert;
}

int RillenkammerStarten(int argc, char* argv[])
{
    MedienBackendWaehlen();
    QApplication app(argc, argv);
    QApplication::setApplicationName(QStringLiteral("Rillenkammer"));
    QApplication::setDesktopFileName(QStringLiteral("rillenkammer"));
    RessourcenAnmelden();
    QApplication::setWindowIcon(QIcon(QStringLiteral(":/resources/desktop/rillenkammer.svg")));
    // Qt's own dialogs speak German like the rest of the program.
    QLocale::setDefault(QLocale(QLocale::German, QLocale::Germany));
    QTranslator qtTexte;
    if (qtTexte.load(QLocale(), QStringLiteral("qtbase"), QStringLiteral("_"),
                     QLibraryInfo::path(QLibraryInfo::TranslationsPath)))
        QApplication::installTranslator(&qtTexte);
    EchteDialogeAnmelden();
    auto* fenster = new Ausgabebox;
    fenster->Form_Load();
    fenster->show();
    return app.exec();
}
