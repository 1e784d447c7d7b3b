// How fast the generator fills its target folder: [files] of [MB] each are copied the way
// a run copies a found song (in pieces, letting events run between them, to a temporary
// name that is renamed when whole) and appended to a song list; beside it the plain copy
// of the same files as the disk's own speed. Also the longest time between two turns of
// the event loop, which bounds how long the stop button waits. Prints; tests nothing.
#include "collections/frmCDgenerieren.h"
#include "platform/Dateikopie.h"
#include "platform/Textdatei.h"

#include <QCoreApplication>
#include <QDir>
#include <QElapsedTimer>
#include <QFile>
#include <QTemporaryDir>

#include <algorithm>
#include <cstdio>
#include <unistd.h>

int main(int argc, char** argv)
{
    QCoreApplication app(argc, argv);
    const int anzahl = argc > 1 ? std::max(1, atoi(argv[1])) : 500;
    const int mb = argc > 2 ? std::max(1, atoi(argv[2])) : 4;
    QTemporaryDir tmp(QDir::currentPath() + QStringLiteral("/bench_generator-XXXXXX"));
    const QString quelle = tmp.path() + QStringLiteral("/Quelle/");
    const QString ziel = tmp.path() + QStringLiteral("/Ziel/");
    const QString vergleich = tmp.path() + QStringLiteral("/Vergleich/");
    for (const QString& o : {quelle, ziel, vergleich})
        QDir().mkpath(o);
    QByteArray inhalt(qsizetype(mb) << 20, '\0');
    for (qsizetype i = 0; i < inhalt.size(); ++i)
        inhalt[i] = char((i * 2654435761u) >> 13);
    QStringList namen;
    for (int i = 0; i < anzahl; ++i) {
        const QString name = QStringLiteral("Lied %1 - %2.mp3").arg(i + 1).arg(1 + i % 6);
        QFile f(quelle + name);
        if (!f.open(QIODevice::WriteOnly) || f.write(inhalt) != inhalt.size()) {
            std::printf("cannot write the source files (disk full?)\n");
            return 1;
        }
        namen << name;
    }
    const double gesamtMb = double(anzahl) * mb;

    // The plain copy: what the disk gives, once into the cache and once each file on disk,
    // as the generator's copy makes sure of before it gives the file its name.
    QElapsedTimer uhr;
    uhr.start();
    for (const QString& n : std::as_const(namen))
        QFile::copy(quelle + n, vergleich + n);
    const double sPlain = uhr.nsecsElapsed() / 1e9;
    QDir(vergleich).removeRecursively();
    QDir().mkpath(vergleich);
    uhr.restart();
    for (const QString& n : std::as_const(namen)) {
        QFile::copy(quelle + n, vergleich + n);
        QFile f(vergleich + n);
        if (f.open(QIODevice::ReadWrite))
            ::fsync(f.handle());
    }
    const double sSync = uhr.nsecsElapsed() / 1e9;
    QDir(vergleich).removeRecursively();

    // The generator's copy.
    const QString liste = tmp.path() + QStringLiteral("/Liedliste.lst");
    QElapsedTimer luecke;
    qint64 groessteLuecke = 0;
    auto weiter = [&] {
        groessteLuecke = std::max(groessteLuecke, luecke.nsecsElapsed());
        QCoreApplication::processEvents();
        luecke.restart();
        return true;
    };
    uhr.restart();
    luecke.start();
    for (const QString& n : std::as_const(namen)) {
        if (!DateiKopieren(quelle + n, ziel + n, weiter)) {
            std::printf("copy failed: %s\n", qPrintable(n));
            return 1;
        }
        weiter();
        TextdateiAnhaengen(
            liste, {frmCDgenerieren::Eintrag(n, QStringLiteral("Band"), QStringLiteral("Platte"))});
    }
    const double sGen = uhr.nsecsElapsed() / 1e9;

    std::printf("%d files of %d MB (%.0f MB)\n", anzahl, mb, gesamtMb);
    std::printf("plain copy     : %7.1f files/s  %7.1f MB/s\n", anzahl / sPlain, gesamtMb / sPlain);
    std::printf("plain + fsync  : %7.1f files/s  %7.1f MB/s\n", anzahl / sSync, gesamtMb / sSync);
    std::printf("generator copy : %7.1f files/s  %7.1f MB/s\n", anzahl / sGen, gesamtMb / sGen);
    std::printf("longest time between two event turns: %.1f ms\n", groessteLuecke / 1e6);
    return 0;
}
