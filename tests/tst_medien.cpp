// The sound paths: lengths read from file headers, start and stop on path one, and one
// real file through the real media player control and engine.
#include "support/Testumgebung.h"

#include "platform/Medien.h"
#include "playback/modPlatten.h"

#include <QAudioOutput>
#include <QDir>
#include <QElapsedTimer>
#include <QImage>
#include <QMediaPlayer>
#include <QProcess>
#include <QSignalSpy>
#include <QStandardPaths>
#include <QTimer>
#include <QUrl>

namespace {

// Runs a tool that makes test files; false when it is missing or fails.
bool Werkzeug(const QString& programm, const QStringList& argumente)
{
    if (QStandardPaths::findExecutable(programm).isEmpty())
        return false;
    QProcess p;
    p.start(programm, argumente);
    return p.waitForFinished(30000) && p.exitStatus() == QProcess::NormalExit && p.exitCode() == 0;
}

// A tone of the given seconds; sox writes WAV, FLAC and OGG, ffmpeg MP3.
bool Ton(const QString& pfad, double sekunden)
{
    const QString s = QString::number(sekunden);
    return pfad.endsWith(u".mp3") ? Werkzeug("ffmpeg", {"-v", "error", "-y", "-f", "lavfi", "-i", "sine=duration=" + s, pfad})
                                  : Werkzeug("sox", {"-n", "-r", "22050", pfad, "synth", s, "sine", "440"});
}

// The length a decoder finds: the samples ffmpeg decodes from the first sound stream.
double DekodierteLaenge(const QString& pfad)
{
    QProcess p;
    p.start("ffmpeg", {"-v", "quiet", "-i", pfad, "-map", "0:a:0", "-ac", "1", "-ar", "8000", "-f", "s16le", "-"});
    if (!p.waitForFinished(60000) || p.exitCode() != 0)
        return -1.0;
    return p.readAllStandardOutput().size() / 16000.0;
}

// Plays a file to its end with the bare engine, in a process of its own: where no backend
// or no sound output exists, Qt and GStreamer may abort, and only this process goes.
int EngineProbe(const char* pfad)
{
    MedienBackendWaehlen();
    int argc = 1;
    char name[] = "probe", *argv[] = {name, nullptr};
    QCoreApplication app(argc, argv);
    QMediaPlayer player;
    if (!player.isAvailable())
        return 3;
    QAudioOutput ausgabe;
    player.setAudioOutput(&ausgabe);
    QObject::connect(&player, &QMediaPlayer::mediaStatusChanged, &app, [&](QMediaPlayer::MediaStatus s) {
        if (s == QMediaPlayer::EndOfMedia)
            app.exit(0);
        else if (s == QMediaPlayer::InvalidMedia)
            app.exit(4);
    });
    QObject::connect(&player, &QMediaPlayer::errorOccurred, &app, [&] { app.exit(5); });
    QTimer::singleShot(15000, &app, [&] { app.exit(6); });
    player.setSource(QUrl::fromLocalFile(QString::fromLocal8Bit(pfad)));
    player.play();
    return app.exec();
}

} // namespace

class TestMedien : public QObject {
    Q_OBJECT

    QString m_ordner;

private slots:
    void initTestCase() { m_ordner = Testordner("medien"); }

    void init() { Attrappen::medien().leeren(); }

    void laengenDerFormate()
    {
        if (QStandardPaths::findExecutable("sox").isEmpty() || QStandardPaths::findExecutable("ffmpeg").isEmpty())
            QSKIP("sox or ffmpeg is missing");
        // Blanks, umlauts and a colon in one path; the colon must not pass for a protocol.
        const QString umlaute = Testordner("medien/Lieder für Jürgen") + QStringLiteral("Über: die Brücke - 4.ogg");
        for (const QString& pfad : {m_ordner + "Ton.wav", m_ordner + "Ton.ogg", m_ordner + "Ton.flac",
                                    m_ordner + "Ton.mp3", umlaute}) {
            QVERIFY2(Ton(pfad, 1.5), qPrintable(pfad));
            const double l = BassTracklaenge(pfad);
            QVERIFY2(qAbs(l - 1.5) < 0.1, qPrintable(QStringLiteral("%1: %2").arg(pfad).arg(l)));
        }
        // An MP3 of varying rate without a header that tells its length: noise, then
        // silence, so that a guess from the rate of its first frames falls far short.
        const QString vbr = m_ordner + "Ohne Kopf.mp3";
        QVERIFY(Werkzeug("ffmpeg", {"-v", "error", "-y", "-f", "lavfi", "-i", "anoisesrc=d=10:a=0.5", "-f", "lavfi",
                                    "-i", "anullsrc=d=10:r=44100:cl=mono", "-filter_complex", "[0][1]concat=n=2:v=0:a=1",
                                    "-c:a", "libmp3lame", "-q:a", "2", "-write_xing", "0", vbr}));
        const double vbrLaenge = BassTracklaenge(vbr);
        QVERIFY2(qAbs(vbrLaenge - 20.0) < 0.2, qPrintable(QString::number(vbrLaenge)));
        // The measurement goes through the service, so the transport can be given lengths.
        QCOMPARE(Attrappen::medien().gemessen.at(Attrappen::medien().gemessen.size() - 2), umlaute);

        // MP3s as they come, each against its decoded length: with and without the length
        // header, with a cover in a large ID3 tag and a short tag at the end, MPEG-2 at
        // 22 kHz, junk and a change of the sample rate between the frames, and a file cut
        // off in the middle of a frame.
        const QString quelle = m_ordner + "Quelle.wav", cover = m_ordner + "Cover.jpg";
        QVERIFY(Werkzeug("ffmpeg", {"-v", "error", "-y", "-f", "lavfi", "-i", "anoisesrc=d=8:a=0.5", "-f", "lavfi", "-i",
                                    "anullsrc=d=8:r=44100:cl=mono", "-f", "lavfi", "-i", "sine=duration=8",
                                    "-filter_complex", "[0][1][2]concat=n=3:v=0:a=1", "-ar", "44100", quelle}));
        QVERIFY(Werkzeug("ffmpeg", {"-v", "error", "-y", "-f", "lavfi", "-i", "testsrc2=size=400x400", "-frames:v", "1",
                                    "-q:v", "1", cover}));
        QVERIFY(QFileInfo(cover).size() > 16 * 1024);
        const QStringList ohneXing = {"-c:a", "libmp3lame", "-write_xing", "0"};
        const QList<QPair<QString, QStringList>> mp3s = {
            {"Xing.mp3", {"-i", quelle, "-c:a", "libmp3lame", "-q:a", "2"}},
            {"CBR.mp3", QStringList{"-i", quelle, "-b:a", "128k"} + ohneXing},
            {"Cover.mp3", QStringList{"-i", quelle, "-i", cover, "-map", "0", "-map", "1", "-c:v", "copy", "-id3v2_version",
                                      "3", "-write_id3v1", "1", "-q:a", "4"} + ohneXing},
            {"MPEG-2.mp3", QStringList{"-i", quelle, "-ar", "22050", "-ac", "1", "-q:a", "6"} + ohneXing},
            {"Teil A.mp3", QStringList{"-t", "10", "-i", quelle, "-q:a", "2", "-id3v2_version", "0"} + ohneXing},
            {"Teil B.mp3", QStringList{"-ss", "10", "-i", quelle, "-ar", "32000", "-q:a", "2", "-id3v2_version", "0"} + ohneXing}};
        for (const auto& [name, argumente] : mp3s)
            QVERIFY2(Werkzeug("ffmpeg", QStringList{"-v", "error", "-y"} + argumente + QStringList{m_ordner + name}),
                     qPrintable(name));
        QByteArray zufall(3000, '\0');
        for (int i = 0; i < zufall.size(); ++i)
            zufall[i] = char((i * 7919 + (i >> 3)) & 0xFF);
        DateiSchreiben(m_ordner + "Zwischenraum.mp3",
                       DateiLesen(m_ordner + "Teil A.mp3") + zufall + DateiLesen(m_ordner + "Teil B.mp3"));
        DateiSchreiben(m_ordner + "Abgeschnitten.mp3", DateiLesen(m_ordner + "Cover.mp3").chopped(5000));
        for (const char* name : {"Xing.mp3", "CBR.mp3", "Cover.mp3", "MPEG-2.mp3", "Zwischenraum.mp3", "Abgeschnitten.mp3"}) {
            const QString pfad = m_ordner + QLatin1String(name);
            const double gemessen = BassTracklaenge(pfad), dekodiert = DekodierteLaenge(pfad);
            // Within two frames: counting must not lose any on the way.
            QVERIFY2(dekodiert > 15.0 && qAbs(gemessen - dekodiert) < 0.053,
                     qPrintable(QStringLiteral("%1: %2 s, decoded %3 s").arg(name).arg(gemessen).arg(dekodiert)));
        }
        // The format behind a large ID3 tag is told from its own bytes, also where a tagger
        // put the tag before a FLAC.
        const QByteArray mitCover = DateiLesen(m_ordner + "Cover.mp3");
        const int tag = 10 + ((mitCover[6] << 21) | (mitCover[7] << 14) | (mitCover[8] << 7) | mitCover[9]);
        QVERIFY(tag > 16 * 1024);
        DateiSchreiben(m_ordner + "Mit Tag.flac", mitCover.left(tag) + DateiLesen(m_ordner + "Ton.flac"));
        QVERIFY(qAbs(BassTracklaenge(m_ordner + "Mit Tag.flac") - 1.5) < 0.1);
        // A video counts by its longest stream.
        const QString film = m_ordner + QStringLiteral("Film.mp4");
        QVERIFY(Werkzeug("ffmpeg", {"-v", "error", "-y", "-f", "lavfi", "-i", "testsrc=size=160x120:rate=10:duration=2",
                                    "-f", "lavfi", "-i", "sine=duration=2", "-pix_fmt", "yuv420p", "-shortest", film}));
        QVERIFY(qAbs(BassTracklaenge(film) - 2.0) < 0.15);
    }

    // One second of every format a collection holds plays to its end through the real
    // engine, and its measured length is right.
    void jedesFormatSpielt()
    {
        if (QStandardPaths::findExecutable("ffmpeg").isEmpty())
            QSKIP("ffmpeg is missing");
        const QStringList ton = {"-f", "lavfi", "-i", "sine=frequency=440:duration=1"};
        const QStringList bild = {"-f", "lavfi", "-i", "testsrc=size=160x120:rate=10:duration=1"};
        const QStringList h264 = {"-c:v", "libx264", "-pix_fmt", "yuv420p"};
        const QList<QPair<QString, QStringList>> formate = {
            {"Ton.wav", ton},
            {"Ton.mp3", ton},
            {"Ton.ogg", ton + QStringList{"-c:a", "libvorbis"}},
            {"Ton.opus", ton},
            {"Ton.flac", ton},
            {"Ton.m4a", ton + QStringList{"-c:a", "aac"}},
            {"Ton.aac", ton + QStringList{"-c:a", "aac"}},
            {"Ton.wma", ton + QStringList{"-c:a", "wmav2"}},
            {"Film.wmv", bild + ton + QStringList{"-c:v", "wmv2", "-c:a", "wmav2"}},
            {"Film.mkv", bild + ton + QStringList{"-c:v", "mpeg4", "-c:a", "libvorbis"}},
            {"Film.mp4", bild + ton + h264 + QStringList{"-c:a", "aac"}},
            {"Film.m2ts", bild + ton + QStringList{"-c:v", "mpeg2video", "-c:a", "mp2"}},
            // As cameras write it: H.264 and AC-3 in packets of 192 bytes.
            {"Kamera.m2ts", bild + ton + h264 + QStringList{"-c:a", "ac3"}}};
        for (const auto& [name, argumente] : formate) {
            const QString pfad = m_ordner + "Formate/" + name;
            QDir().mkpath(m_ordner + "Formate");
            QVERIFY2(Werkzeug("ffmpeg", QStringList{"-v", "error", "-y"} + argumente + QStringList{pfad}), qPrintable(name));
            QVERIFY2(qAbs(BassTracklaenge(pfad) - 1.0) < 0.2, qPrintable(name + ": " + QString::number(BassTracklaenge(pfad))));
            QProcess probe;
            probe.start(QCoreApplication::applicationFilePath(), {"--engine-probe", pfad});
            QVERIFY(probe.waitForFinished(30000));
            if (name == u"Ton.wav" && probe.exitCode() == 3)
                QSKIP("no media backend on this machine");
            QVERIFY2(probe.exitStatus() == QProcess::NormalExit && probe.exitCode() == 0,
                     qPrintable(name + ": " + QString::number(probe.exitCode())));
        }
    }

    void nichtMessbar()
    {
        // Text that claims to be an MP3, a picture, an empty file, a folder, nothing at all:
        // each is -1.0, never 0. Only the real picture passes for one.
        DateiSchreiben(m_ordner + "Text.mp3", QByteArray("Dies ist kein Lied, nur Text.\n").repeated(200));
        DateiSchreiben(m_ordner + "leer.ogg", QByteArray());
        DateiSchreiben(m_ordner + "Falsch.png", "kein Bild");
        QImage bild(64, 48, QImage::Format_RGB32);
        bild.fill(Qt::darkCyan);
        QVERIFY(bild.save(m_ordner + "Bild.jpg"));
        for (const char* name : {"Text.mp3", "leer.ogg", "Falsch.png", "Bild.jpg", "fehlt.mp3", ""}) {
            QCOMPARE(BassTracklaenge(m_ordner + QLatin1String(name)), -1.0);
            QCOMPARE(IstBilddatei(m_ordner + QLatin1String(name)), qstrcmp(name, "Bild.jpg") == 0);
        }
        QCOMPARE(BassTracklaenge(QString()), -1.0);
    }

    void startenUndStoppen()
    {
        MedienAttrappe& m = Attrappen::medien();
        // Nothing that names no file reaches the engine; stopping with nothing open is harmless.
        for (const QString& pfad : {m_ordner + "fehlt.mp3", QString(), m_ordner})
            QVERIFY(!MciDateiAbspielen(pfad, "MyAlias"));
        QVERIFY(m.befehle.isEmpty());
        MciStoppen("MyAlias");
        QVERIFY(m.offen.isEmpty());

        const QString eins = m_ordner + "Eins - 3.mp3", zwei = m_ordner + "Zwei Lieder für dich.ogg";
        DateiSchreiben(eins, "x");
        DateiSchreiben(zwei, "x");
        // Two starts in a row as the start command makes them: one player runs.
        for (const QString& pfad : {eins, zwei}) {
            MciStoppen("MyAlias");
            QVERIFY(MciDateiAbspielen(pfad, "MyAlias"));
        }
        QCOMPARE(m.offen, (QMap<QString, QString>{{"myalias", zwei}}));
        // Without the stop the alias is still open: the second file does not start.
        QVERIFY(!MciDateiAbspielen(eins, "MyAlias"));
        QCOMPARE(m.gestartet(), (QStringList{eins, zwei}));
    }

    void echteWiedergabe()
    {
        // One real file through the real engine. Where no media backend or no sound
        // output can be made, the test is skipped, never hung.
        const QString pfad = m_ordner + QStringLiteral("Echt für Sie.wav");
        if (!Ton(pfad, 1.0))
            QSKIP("sox is missing");
        QProcess probe;
        probe.start(QCoreApplication::applicationFilePath(), {"--engine-probe", pfad});
        if (!probe.waitForFinished(30000)) {
            probe.kill();
            probe.waitForFinished();
            QSKIP("the media engine hangs on this machine");
        }
        if (probe.exitStatus() != QProcess::NormalExit || probe.exitCode() != 0)
            QSKIP(qPrintable(QStringLiteral("no working media backend here (probe: %1)").arg(probe.exitCode())));
        std::unique_ptr<Medien> echt = EchteMedienErzeugen();
        QObject eltern;
        Medienspieler* s = echt->neuerSpieler(&eltern);
        QSignalSpy zustaende(s, &Medienspieler::PlayStateChange);
        s->setURL(pfad);
        QTRY_VERIFY_WITH_TIMEOUT(s->duration() > 0.0 || s->playState() != Medienspieler::Spielt, 5000);
        if (s->playState() != Medienspieler::Spielt && zustaende.isEmpty())
            QSKIP("the engine could not play the file here");
        QVERIFY(qAbs(s->duration() - 1.0) < 0.1);
        // It plays to its end by itself and says so.
        QTRY_COMPARE_WITH_TIMEOUT(s->playState(), int(Medienspieler::Gestoppt), 8000);
        QCOMPARE(zustaende.last().at(0).toInt(), int(Medienspieler::Gestoppt));
        QVERIFY(s->currentPosition() > 0.5);
        // A position set at once, while the file still loads, is taken when it has loaded:
        // two seconds from 1.5 on end in about half a second.
        const QString lang = m_ordner + QStringLiteral("Zwei Sekunden.ogg");
        QVERIFY(Ton(lang, 2.0));
        QElapsedTimer uhr;
        uhr.start();
        s->setURL(lang);
        s->setCurrentPosition(1.5);
        QTRY_COMPARE_WITH_TIMEOUT(s->playState(), int(Medienspieler::Gestoppt), 8000);
        QVERIFY2(uhr.elapsed() < 1600, qPrintable(QString::number(uhr.elapsed())));
        // Closed: stopped, and the file is let go.
        s->setURL(pfad);
        s->close();
        QCOMPARE(s->playState(), int(Medienspieler::Gestoppt));
        QVERIFY(s->URL().isEmpty());
        // A file that cannot be played ends in the stopped state, so that nobody waits
        // for its end in vain; a missing one does not even start.
        DateiSchreiben(m_ordner + "kaputt.mp3", QByteArray("kein Lied\n").repeated(50));
        s->setURL(m_ordner + "kaputt.mp3");
        QTRY_COMPARE_WITH_TIMEOUT(s->playState(), int(Medienspieler::Gestoppt), 5000);
        s->setURL(pfad);
        QCOMPARE(s->playState(), int(Medienspieler::Spielt));
        s->setURL(m_ordner + "fehlt.mp3");
        QCOMPARE(s->playState(), int(Medienspieler::Gestoppt));

        // Path one on the same engine: one device per alias, free again after the stop.
        QVERIFY(echt->oeffnenUndSpielen(pfad, "MyAlias"));
        QVERIFY(!echt->oeffnenUndSpielen(pfad, "myalias"));
        echt->stoppenUndSchliessen("MyAlias");
        QVERIFY(echt->oeffnenUndSpielen(pfad, "MyAlias"));
        QVERIFY(!echt->oeffnenUndSpielen(m_ordner + "fehlt.wav", "Anderer"));
        QTest::qWait(200);
        echt->stoppenUndSchliessen("MyAlias");
    }
};

int main(int argc, char** argv)
{
    if (argc == 3 && qstrcmp(argv[1], "--engine-probe") == 0)
        return EngineProbe(argv[2]);
    Testumgebung umgebung;
    QApplication app(argc, argv);
    Attrappen::installieren();
    TestMedien test;
    return QTest::qExec(&test, argc, argv);
}
#include "tst_medien.moc"
