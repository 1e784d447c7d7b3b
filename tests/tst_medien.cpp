// The sound paths: lengths read from file headers, start and stop on path one, the
// media player control and its double, and one real file through the real engine.
#include "support/Testumgebung.h"

#include "platform/Medien.h"
#include "playback/modPlatten.h"

#include <QAudioOutput>
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

// A tone of the given seconds; sox writes WAV, FLAC and OGG, ffmpeg the rest.
bool Ton(const QString& pfad, double sekunden)
{
    if (pfad.endsWith(u".mp3"))
        return Werkzeug("ffmpeg", {"-v", "error", "-y", "-f", "lavfi", "-i",
                                   QStringLiteral("sine=frequency=440:duration=%1").arg(sekunden), "-ac",
                                   "1", "-b:a", "64k", pfad});
    return Werkzeug("sox", {"-n", "-r", "22050", "-c", "1", pfad, "synth", QString::number(sekunden), "sine",
                            "440"});
}

// Plays a file to its end with the bare engine, in a process of its own: where no backend
// or no sound output exists, Qt and GStreamer may abort, and only this process goes.
int EngineProbe(const char* pfad)
{
    MedienBackendWaehlen();
    int argc = 1;
    char name[] = "probe";
    char* argv[] = {name, nullptr};
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
        for (const char* endung : {"wav", "ogg", "flac", "mp3"}) {
            const QString pfad = m_ordner + QStringLiteral("Ton.") + QLatin1String(endung);
            QVERIFY2(Ton(pfad, 1.5), endung);
            const double l = BassTracklaenge(pfad);
            QVERIFY2(qAbs(l - 1.5) < 0.1, qPrintable(QStringLiteral("%1: %2").arg(endung).arg(l)));
        }
        // A video counts by its longest stream.
        const QString film = m_ordner + QStringLiteral("Film.mp4");
        QVERIFY(Werkzeug("ffmpeg", {"-v", "error", "-y", "-f", "lavfi", "-i", "testsrc=size=160x120:rate=10:duration=2",
                                    "-f", "lavfi", "-i", "sine=duration=2", "-pix_fmt", "yuv420p", "-shortest", film}));
        QVERIFY(qAbs(BassTracklaenge(film) - 2.0) < 0.15);
        // Blanks, umlauts and a colon in the path; the colon must not pass for a protocol.
        const QString umlaute = Testordner("medien/Lieder für Jürgen") + QStringLiteral("Über: die Brücke - 4.ogg");
        QVERIFY(Ton(umlaute, 1.0));
        QVERIFY(qAbs(BassTracklaenge(umlaute) - 1.0) < 0.1);
        // The measurement goes through the service, so the transport can be given lengths.
        QCOMPARE(Attrappen::medien().gemessen.last(), umlaute);
    }

    void nichtMessbar()
    {
        // Text that claims to be an MP3, a picture, an empty file, a folder, nothing at all:
        // each is -1.0, never 0.
        DateiSchreiben(m_ordner + "Text.mp3", QByteArray("Dies ist kein Lied, nur Text.\n").repeated(200));
        DateiSchreiben(m_ordner + "leer.ogg", QByteArray());
        QImage bild(64, 48, QImage::Format_RGB32);
        bild.fill(Qt::darkCyan);
        QVERIFY(bild.save(m_ordner + "Bild.png"));
        QVERIFY(bild.save(m_ordner + "Bild.jpg"));
        for (const char* name : {"Text.mp3", "leer.ogg", "Bild.png", "Bild.jpg", "fehlt.mp3", ""})
            QCOMPARE(BassTracklaenge(m_ordner + QLatin1String(name)), -1.0);
        QCOMPARE(BassTracklaenge(QString()), -1.0);

        QVERIFY(IstBilddatei(m_ordner + "Bild.png"));
        QVERIFY(IstBilddatei(m_ordner + "Bild.jpg"));
        DateiSchreiben(m_ordner + "Falsch.png", "kein Bild");
        QVERIFY(!IstBilddatei(m_ordner + "Falsch.png"));
        QVERIFY(!IstBilddatei(m_ordner + "Text.mp3"));
        QVERIFY(!IstBilddatei(m_ordner + "fehlt.png"));
    }

    void startenUndStoppen()
    {
        MedienAttrappe& m = Attrappen::medien();
        // Nothing that names no file reaches the engine.
        QVERIFY(!MciDateiAbspielen(m_ordner + "fehlt.mp3", "MyAlias"));
        QVERIFY(!MciDateiAbspielen(QString(), "MyAlias"));
        QVERIFY(!MciDateiAbspielen(m_ordner, "MyAlias"));
        QVERIFY(m.befehle.isEmpty());
        // Stopping with nothing open is harmless.
        MciStoppen("MyAlias");
        QVERIFY(m.offen.isEmpty());

        DateiSchreiben(m_ordner + "Eins - 3.mp3", "x");
        DateiSchreiben(m_ordner + "Zwei Lieder für dich.ogg", "x");
        m.befehle.clear();
        // Two starts in a row as the start command makes them: one player runs.
        MciStoppen("MyAlias");
        QVERIFY(MciDateiAbspielen(m_ordner + "Eins - 3.mp3", "MyAlias"));
        MciStoppen("MyAlias");
        QVERIFY(MciDateiAbspielen(m_ordner + "Zwei Lieder für dich.ogg", "MyAlias"));
        QCOMPARE(m.offen.size(), 1);
        QCOMPARE(m.offen.value("myalias"), m_ordner + "Zwei Lieder für dich.ogg");
        QCOMPARE(m.befehle, (QStringList{"stop MyAlias", "close MyAlias",
                                         "open " + m_ordner + "Eins - 3.mp3 alias MyAlias", "play MyAlias from 0",
                                         "stop MyAlias", "close MyAlias",
                                         "open " + m_ordner + "Zwei Lieder für dich.ogg alias MyAlias",
                                         "play MyAlias from 0"}));
        // Without the stop the alias is still open: the second file does not start.
        QVERIFY(!MciDateiAbspielen(m_ordner + "Eins - 3.mp3", "MyAlias"));
        QCOMPARE(m.gestartet(), (QStringList{m_ordner + "Eins - 3.mp3", m_ordner + "Zwei Lieder für dich.ogg"}));
        QCOMPARE(m.offen.size(), 1);
        MciStoppen("MyAlias");
        QVERIFY(m.offen.isEmpty());
    }

    void spielerAttrappeFolgtDerUhr()
    {
        // The control's double runs on the fake clock, so the transport's tests can let
        // a track play to its end in no time.
        QObject eltern;
        auto* s = static_cast<SpielerAttrappe*>(D().medien().neuerSpieler(&eltern));
        QCOMPARE(Attrappen::medien().spieler.size(), 1);
        QSignalSpy zustaende(s, &Medienspieler::PlayStateChange);
        s->dauer = 5.0;
        s->setURL(m_ordner + "Lied.mp3");
        QCOMPARE(s->playState(), int(Medienspieler::Gestoppt));
        QVERIFY(zustaende.isEmpty());
        DateiSchreiben(m_ordner + "Lied.mp3", "x");
        s->setURL(m_ordner + "Lied.mp3");
        QCOMPARE(s->playState(), int(Medienspieler::Spielt));
        Attrappen::uhr().vorruecken(2000);
        QCOMPARE(s->currentPosition(), 2.0);
        s->pause();
        Attrappen::uhr().vorruecken(10000);
        QCOMPARE(s->currentPosition(), 2.0);
        s->play();
        s->setCurrentPosition(4.0);
        Attrappen::uhr().vorruecken(1500);
        QCOMPARE(s->playState(), int(Medienspieler::Gestoppt));
        QCOMPARE(s->currentPosition(), 5.0);
        QCOMPARE(zustaende.size(), 4);
        QCOMPARE(zustaende.at(1).at(0).toInt(), int(Medienspieler::Angehalten));
        QCOMPARE(zustaende.last().at(0).toInt(), int(Medienspieler::Gestoppt));
        // A test can report any state, also one that did not change.
        s->zustandSetzen(Medienspieler::Gestoppt);
        QCOMPARE(zustaende.size(), 5);
        s->close();
        QCOMPARE(s->aufrufe, (QStringList{"URL " + m_ordner + "Lied.mp3", "URL " + m_ordner + "Lied.mp3", "pause", "play", "Position 4", "close"}));
        delete s;
        QVERIFY(Attrappen::medien().spieler.isEmpty());
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
        QCOMPARE(s->URL(), pfad);
        QTRY_VERIFY_WITH_TIMEOUT(s->duration() > 0.0 || s->playState() != Medienspieler::Spielt, 5000);
        if (s->playState() != Medienspieler::Spielt && zustaende.isEmpty())
            QSKIP("the engine could not play the file here");
        QCOMPARE(zustaende.first().at(0).toInt(), int(Medienspieler::Spielt));
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
        QVERIFY(s->currentPosition() >= 1.5);
        QTRY_COMPARE_WITH_TIMEOUT(s->playState(), int(Medienspieler::Gestoppt), 8000);
        QVERIFY2(uhr.elapsed() < 1600, qPrintable(QString::number(uhr.elapsed())));
        // Started again and closed: stopped, and the file is let go.
        s->setURL(pfad);
        QCOMPARE(s->playState(), int(Medienspieler::Spielt));
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
        zustaende.clear();
        s->setURL(m_ordner + "fehlt.mp3");
        QCOMPARE(s->playState(), int(Medienspieler::Gestoppt));
        QCOMPARE(zustaende.size(), 1);
        QCOMPARE(s->URL(), m_ordner + "fehlt.mp3");

        // Path one on the same engine: fire and forget, one device per alias.
        QVERIFY(echt->oeffnenUndSpielen(pfad, "MyAlias"));
        QVERIFY(!echt->oeffnenUndSpielen(pfad, "myalias"));
        echt->stoppenUndSchliessen("MyAlias");
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
