// How long measuring the lengths of one folder of 12 tracks takes, the way the track
// list and the song commands do it: one file after the other, cold and warm. The files
// are made here with ffmpeg. Then the rate over a folder of ordinary MP3s of the common
// kinds, and an MP3 whose length must be counted. Prints; tests nothing.
#include "playback/modPlatten.h"

#include <QCoreApplication>
#include <QDir>
#include <QElapsedTimer>
#include <QFile>
#include <QProcess>
#include <QStandardPaths>
#include <QTemporaryDir>

#include <algorithm>
#include <cstdio>
#include <vector>

namespace {

bool Werkzeug(const QString& programm, const QStringList& argumente)
{
    QProcess p;
    p.start(programm, argumente);
    return p.waitForFinished(60000) && p.exitCode() == 0;
}

} // namespace

int main(int argc, char** argv)
{
    QCoreApplication app(argc, argv);
    if (QStandardPaths::findExecutable("ffmpeg").isEmpty()) {
        std::printf("ffmpeg is needed\n");
        return 1;
    }
    QTemporaryDir tmp;
    const QString ordner = tmp.path() + QStringLiteral("/Ordner mit Zwölf Liedern/");
    QDir().mkpath(ordner);
    // Three minutes each, as real tracks are: a header read must not depend on the length.
    const char* const endungen[] = {"mp3", "ogg", "flac", "wav"};
    QStringList dateien;
    for (int i = 0; i < 12; ++i) {
        const QString endung = QLatin1String(endungen[i % 4]);
        const QString pfad = ordner + QStringLiteral("%1 Lied Nummer %1 - %2.%3").arg(i + 1).arg(1 + i % 6).arg(endung);
        const QString ton = QStringLiteral("sine=frequency=%1:duration=180").arg(220 + 20 * i);
        if (!Werkzeug("ffmpeg", {"-v", "error", "-y", "-f", "lavfi", "-i", ton, "-ac", "2", "-ar", "44100", pfad})) {
            std::printf("could not make %s\n", qPrintable(pfad));
            return 1;
        }
        dateien << pfad;
    }
    std::vector<double> ms;
    for (int lauf = 0; lauf < 7; ++lauf) {
        QElapsedTimer uhr;
        uhr.start();
        double summe = 0;
        for (const QString& d : std::as_const(dateien))
            summe += BassTracklaenge(d);
        ms.push_back(uhr.nsecsElapsed() / 1e6);
        if (lauf == 0)
            std::printf("first run (cold): %.2f ms for 12 files, %.1f s of music\n", ms.back(), summe);
    }
    std::sort(ms.begin(), ms.end());
    std::printf("12 files of 3 min (mp3, ogg, flac, wav): median %.2f ms, max %.2f ms\n", ms[ms.size() / 2],
                ms.back());

    // A folder of 200 ordinary MP3s of four kinds, as encoders and taggers leave them: with
    // the header that tells the length, of varying rate with it, of constant rate without
    // it (older rippers), and with a cover picture in the ID3 tag. Then one of varying
    // rate without the header, which is counted frame by frame.
    const QString mp3Ordner = tmp.path() + QStringLiteral("/MP3/");
    QDir().mkpath(mp3Ordner);
    const QString cover = tmp.path() + QStringLiteral("/Cover.jpg");
    const QString ohneKopf = tmp.path() + QStringLiteral("/ohne Kopf.mp3");
    const QStringList ton = {"-v", "error", "-y", "-f", "lavfi", "-i", "sine=frequency=330:duration=180", "-ac", "2"};
    const QList<QPair<QString, QStringList>> arten = {
        {"CBR 192 kbit/s with Info header", ton + QStringList{"-c:a", "libmp3lame", "-b:a", "192k"}},
        {"VBR with Xing header", ton + QStringList{"-c:a", "libmp3lame", "-q:a", "2"}},
        {"CBR 128 kbit/s without header", ton + QStringList{"-c:a", "libmp3lame", "-b:a", "128k", "-write_xing", "0"}},
        {"CBR 320 kbit/s, 500x500 cover in the ID3 tag",
         ton + QStringList{"-i", cover, "-map", "0:a", "-map", "1", "-c:a", "libmp3lame", "-b:a", "320k", "-c:v", "copy",
                           "-id3v2_version", "3"}},
    };
    if (!Werkzeug("ffmpeg", {"-v", "error", "-y", "-f", "lavfi", "-i", "testsrc2=size=500x500", "-frames:v", "1",
                             "-q:v", "1", cover})
        || !Werkzeug("ffmpeg", {"-v", "error", "-y", "-f", "lavfi", "-i", "anoisesrc=d=90:a=0.5", "-f", "lavfi", "-i",
                                "anullsrc=d=90:r=44100:cl=mono", "-filter_complex", "[0][1]concat=n=2:v=0:a=1",
                                "-c:a", "libmp3lame", "-q:a", "2", "-write_xing", "0", ohneKopf})) {
        std::printf("could not make the MP3s\n");
        return 1;
    }
    QList<QStringList> nachArt(arten.size());
    QStringList mp3s;
    for (int a = 0; a < arten.size(); ++a) {
        const QString vorlage = tmp.path() + QStringLiteral("/Vorlage %1.mp3").arg(a);
        if (!Werkzeug("ffmpeg", arten[a].second + QStringList{vorlage})) {
            std::printf("could not make %s\n", qPrintable(arten[a].first));
            return 1;
        }
        for (int i = a; i < 200; i += int(arten.size())) {
            const QString pfad = mp3Ordner + QStringLiteral("%1 Titel - %2.mp3").arg(i, 3, 10, QChar(u'0')).arg(1 + i % 6);
            QFile::copy(vorlage, pfad);
            nachArt[a] << pfad;
            mp3s << pfad;
        }
    }
    // Files per second over the list, median and slowest of five runs.
    auto rate = [](const QStringList& liste) {
        std::vector<double> raten;
        for (int lauf = 0; lauf < 5; ++lauf) {
            QElapsedTimer uhr;
            uhr.start();
            for (const QString& d : liste)
                BassTracklaenge(d);
            raten.push_back(liste.size() / (uhr.nsecsElapsed() / 1e9));
        }
        std::sort(raten.begin(), raten.end());
        return std::pair{raten[raten.size() / 2], raten.front()};
    };
    mp3s.sort();
    const auto [median, langsamste] = rate(mp3s);
    std::printf("folder of 200 ordinary MP3s of 3 min, four kinds mixed: median %.0f files/s, slowest run %.0f files/s\n",
                median, langsamste);
    for (int a = 0; a < arten.size(); ++a)
        std::printf("  %s: median %.0f files/s\n", qPrintable(arten[a].first), rate(nachArt[a]).first);
    QElapsedTimer uhr;
    uhr.start();
    const double laenge = BassTracklaenge(ohneKopf);
    std::printf("MP3 of varying rate without length header, 3 min: %.1f s measured in %.1f ms\n", laenge,
                uhr.nsecsElapsed() / 1e6);
    return 0;
}
