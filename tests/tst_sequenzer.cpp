// Tracks follow each other: the sequencer's ticks on the fake clock, the pause between
// Tracks, random and repeated runs, exclusions, the mode boxes and the running title.
#include "support/Fenster.h"
#include "support/Katalog.h"
#include "support/Testumgebung.h"

#include "catalogue/FlexGrid.h"
#include "platform/Medien.h"
#include "playback/Abspieler.h"
#include "playback/MiniPlayer.h"
#include "playback/frmMiniPlayer.h"
#include "platform/Uhr.h"
#include "playback/Sequenzer.h"
#include "shell/Ausgabebox.h"
#include "shell/Einstellungen.h"
#include "shell/Globale.h"
#include "shell/Steuerelemente.h"

#include <QAction>
#include <QCheckBox>
#include <QToolButton>
#include <QListWidget>

#include <memory>

class TestSequenzer : public QObject {
    Q_OBJECT

    std::unique_ptr<Ausgabebox> w;
    QString wurzel;
    // What panel 2 showed, with the clock in ms.
    QList<QPair<qint64, QString>> panel;

    QString ordner(const QString& name, int tracks, double laenge = 10.0)
    {
        const QString d = wurzel + name + u'/';
        QDir().mkpath(d);
        for (int i = 0; i < tracks; ++i) {
            const QString datei = d + QStringLiteral("%1 Lied.mp3").arg(i + 1, 2, 10, QChar(u'0'));
            DateiSchreiben(datei, "x");
            Attrappen::medien().laengen.insert(datei, laenge);
        }
        return d;
    }

    void starten(const QList<Zeilenwerte>& zeilen)
    {
        FensterStarten(w, {.zeilen = zeilen, .einstellungen = {{"WinMediaPlayer", "False"}}});
        w->MSFlexGrid1->setRow(1);
        Abbruch = false;
        StopGedrueckt = false;
        PlaylistModus = false;
        panel.clear();
        connect(w->staBar, &Statusleiste::PanelGeaendert, this, [this](int nr, const QString& text) {
            if (nr == 2)
                panel << qMakePair(Attrappen::uhr().ms, text);
        });
        Attrappen::medien().befehle.clear();
    }

    QStringList gespielt() const
    {
        QStringList namen;
        for (const QString& pfad : Attrappen::medien().gestartet())
            namen << QFileInfo(pfad).fileName();
        return namen;
    }

    void spielen(int index)
    {
        TrackIndex = index;
        w->imgStart->click();
    }

private slots:
    void init()
    {
        static int lauf = 0;
        wurzel = Testordner(QStringLiteral("seq%1").arg(++lauf));
        Attrappen::medien().leeren();
        Attrappen::zufall().werte.clear();
    }
    void cleanup() { w.reset(); }

    void zehnTracksMitFuenfSekundenPause()
    {
        const QString musik = ordner("Abba", 10);
        starten({Zeilenwerte{{"Band", "Abba"}, {"Musikpfad", musik}}});
        Speichern("PauseZwischenTracks", "5");
        w->chkAlleTracks->click();
        const qint64 anfang = Attrappen::uhr().ms;
        spielen(0);
        QVERIFY(w->Timer1->isEnabled());
        Attrappen::uhr().vorruecken(10 * 16000);
        QCOMPARE(gespielt().size(), 10);
        QCOMPARE(gespielt().first(), QString("01 Lied.mp3"));
        QCOMPARE(gespielt().last(), QString("10 Lied.mp3"));
        QCOMPARE(panel.last().second, QString("no play"));
        // The first pause: 5 to 1, a second apart, then the next Track.
        int fuenf = -1;
        for (int i = 0; i < panel.size(); ++i)
            if (panel[i].second == u"5 Sek. Pause") {
                fuenf = i;
                break;
            }
        QVERIFY(fuenf > 0);
        for (int n = 0; n < 5; ++n) {
            QCOMPARE(panel[fuenf + n].second, QStringLiteral("%1 Sek. Pause").arg(5 - n));
            QCOMPARE(panel[fuenf + n].first - panel[fuenf].first, qint64(n) * 1000);
        }
        QVERIFY(panel[fuenf + 5].second.startsWith("playing:  ") && panel[fuenf + 5].second.endsWith("02 Lied.mp3"));
        // The end of a Track is found within a second of its length.
        QVERIFY(panel[fuenf].first - anfang >= 10000 && panel[fuenf].first - anfang <= 11100);
        QVERIFY(!w->Timer1->isEnabled());
    }

    void stopUndPauseBeendenDieWartezeit()
    {
        const QString musik = ordner("Abba", 3);
        starten({Zeilenwerte{{"Band", "Abba"}, {"Musikpfad", musik}}});
        Speichern("PauseZwischenTracks", "5");
        w->chkAlleTracks->click();
        // The pause command during the wait starts the next Track at once.
        bool einmal = true;
        connect(w->staBar, &Statusleiste::PanelGeaendert, this, [&](int nr, const QString& text) {
            if (nr == 2 && text == u"4 Sek. Pause" && einmal) {
                einmal = false;
                // The tick that waits is not entered a second time.
                w->sequenzer().Timer1_Timer();
                w->imgPause[1]->click();
            }
        });
        spielen(0);
        Attrappen::uhr().vorruecken(13000);
        QCOMPARE(gespielt(), (QStringList{"01 Lied.mp3", "02 Lied.mp3"}));
        QVERIFY(!w->imgPause[0]->isHidden());
        // A stop by the mouse during the wait stops for good.
        connect(w->staBar, &Statusleiste::PanelGeaendert, this, [&](int nr, const QString& text) {
            if (nr == 2 && text == u"3 Sek. Pause") {
                StopGedrueckt = true;
                w->imgStop->click();
            }
        });
        Attrappen::uhr().vorruecken(60000);
        QCOMPARE(gespielt().size(), 2);
        QCOMPARE(panel.last().second, QString("no play"));
    }

    // The mini player stands in for the window: the wait shows in its caption and pause
    // pictures, and its stop ends the wait for good.
    void miniPlayerStopBeendetDieWartezeit()
    {
        const QString musik = ordner("Abba", 3);
        starten({Zeilenwerte{{"Band", "Abba"}, {"Musikpfad", musik}}});
        Speichern("PauseZwischenTracks", "5");
        w->chkAlleTracks->click();
        spielen(0);
        w->imgMiniPlayer->click();
        frmMiniPlayer* mini = w->miniPlayer().fenster();
        // The title runs in its caption, letter by letter.
        QVERIFY(mini->Timer3->isEnabled());
        QStringList laufschrift;
        connect(mini, &QWidget::windowTitleChanged, this, [&](const QString& t) { laufschrift << t; });
        QString titel;
        bool bild10 = false;
        connect(w->staBar, &Statusleiste::PanelGeaendert, this, [&](int nr, const QString& text) {
            if (nr == 2 && text == u"3 Sek. Pause" && titel.isEmpty()) {
                titel = mini->windowTitle();
                bild10 = mini->imgVorBack[10]->isVisibleTo(mini) && !mini->imgVorBack[6]->isVisibleTo(mini);
                mini->imgVorBack[3]->click();
            }
        });
        Attrappen::uhr().vorruecken(60000);
        QCOMPARE(laufschrift.mid(0, 4), (QStringList{"A", "Ab", "Abb", "Abba"}));
        QCOMPARE(titel, QString(" 4 Sek. Pause")); // the caption was written before the panel's 3
        QVERIFY(bild10);
        QCOMPARE(gespielt(), QStringList{"01 Lied.mp3"});
        QCOMPARE(panel.last().second, QString("no play"));
        QCOMPARE(mini->windowTitle(), frmMiniPlayer::Titel);
        QVERIFY(!mini->Timer3->isEnabled());
    }

    void ausgeschlosseneStilrichtungLaeuftInEinemTickAnsEnde()
    {
        const QString musik = ordner("Rock", 4);
        starten({Zeilenwerte{{"Band", "Abba"}, {"Stil", "Hard Rock"}, {"Musikpfad", musik}}});
        w->lstAbspielausschluss->addItem("Rock");
        w->chkAlleTracks->click();
        spielen(0);
        Attrappen::uhr().vorruecken(12000);
        QCOMPARE(gespielt(), QStringList{"01 Lied.mp3"});
        QCOMPARE(TrackIndex, 3);
        QCOMPARE(panel.last().second, QString("no play"));
        // With repeat as well the sequencer gives up instead of choosing for ever.
        w->chkRepeat->click();
        w->chkRepeat->setChecked(true);
        spielen(0);
        Attrappen::uhr().vorruecken(12000);
        QCOMPARE(gespielt().size(), 2);
        QCOMPARE(panel.last().second, QString("no play"));
    }

    void wiederholungBeginntVonVorn()
    {
        const QString musik = ordner("Abba", 2);
        starten({Zeilenwerte{{"Band", "Abba"}, {"Musikpfad", musik}}});
        w->chkAlleTracks->click();
        w->chkRepeat->setChecked(true);
        spielen(1);
        Attrappen::uhr().vorruecken(23000);
        QCOMPARE(gespielt(), (QStringList{"02 Lied.mp3", "01 Lied.mp3", "02 Lied.mp3"}));
        for (const auto& p : panel)
            QVERIFY(p.second != u"no play");
    }

    void zufaelligSpieltEintragNullZuletzt()
    {
        const QString musik = ordner("Abba", 4);
        starten({Zeilenwerte{{"Band", "Abba"}, {"Musikpfad", musik}}});
        w->chkAlleTracks->click();
        w->chkTracksZufaellig->setChecked(true);
        spielen(1);
        // Candidates 2, 3, then 1 (played), so the scan takes entry 0.
        Attrappen::zufall().werte << 0.5 << 0.9 << 0.1;
        Attrappen::uhr().vorruecken(50000);
        QCOMPARE(gespielt(), (QStringList{"02 Lied.mp3", "03 Lied.mp3", "04 Lied.mp3", "01 Lied.mp3"}));
        QCOMPARE(panel.last().second, QString("no play"));
        QCOMPARE(TrackGespielt, (std::vector<int>{0, 0, 0, 0}));
    }

    void zufaelligMitEinemTrackSpieltNichts()
    {
        const QString musik = ordner("Abba", 1);
        starten({Zeilenwerte{{"Band", "Abba"}, {"Musikpfad", musik}}});
        w->chkAlleTracks->click();
        w->chkTracksZufaellig->setChecked(true);
        spielen(0);
        Attrappen::zufall().sonst = 0.3;
        Attrappen::uhr().vorruecken(11500);
        QCOMPARE(TrackIndex, 1); // behind the list
        QCOMPARE(gespielt(), QStringList{"01 Lied.mp3"});
        QCOMPARE(panel.last().second, QString("playing:  ") + musik);
    }

    void shuffleMitDreiSongsProTontraeger()
    {
        QList<Zeilenwerte> zeilen;
        for (const char* band : {"Abba", "Bach", "Cream"})
            zeilen << Zeilenwerte{{"Band", band}, {"Musikpfad", ordner(band, 5)}};
        starten(zeilen);
        Attrappen::dialoge().antwortenInput << "3";
        w->chkShuffle->click();
        QCOMPARE(Lesen("ShuffleSongProCD"), QString("3"));
        QVERIFY(!w->chkAlleTracks->isEnabled());
        QVERIFY(w->chkTracksAnspielen->isEnabled());
        spielen(0);
        // Rows drawn: Bach, then Cream; Tracks at random.
        Attrappen::zufall().werte << 0.5 << 0.2 << 0.4 << 0.6 << 0.9 << 0.3 << 0.7 << 0.8;
        Attrappen::zufall().sonst = 0.5;
        Attrappen::uhr().vorruecken(9 * 11000 - 500);
        QStringList ordnerFolge;
        for (const QString& pfad : Attrappen::medien().gestartet())
            ordnerFolge << QFileInfo(pfad).dir().dirName();
        // The Carrier of the first start counts as the first of its three.
        QCOMPARE(ordnerFolge.size(), 9);
        for (int gruppe = 0; gruppe < 3; ++gruppe) {
            QCOMPARE(ordnerFolge[gruppe * 3 + 1], ordnerFolge[gruppe * 3]);
            QCOMPARE(ordnerFolge[gruppe * 3 + 2], ordnerFolge[gruppe * 3]);
        }
        QCOMPARE(ordnerFolge.mid(0, 4), (QStringList{"Abba", "Abba", "Abba", "Bach"}));
        QVERIFY(ordnerFolge[6] != "Bach");
    }

    void anspielenSchneidetAb()
    {
        const QString musik = ordner("Abba", 3, 180.0);
        starten({Zeilenwerte{{"Band", "Abba"}, {"Musikpfad", musik}}});
        Speichern("PauseZwischenTracks", "4");
        w->chkAlleTracks->click();
        Attrappen::dialoge().antwortenInput << "1";
        w->chkTracksAnspielen->click();
        QVERIFY(!w->chkTracksAnspielen->isChecked());
        QCOMPARE(Attrappen::dialoge().meldungen().last().text, QString("Mindestanspielzeit ist 2 Sekunden"));
        Attrappen::dialoge().antwortenInput << "3";
        w->chkTracksAnspielen->click();
        QVERIFY(w->chkTracksAnspielen->isChecked());
        QCOMPARE(Lesen("TracksAnspielen"), QString("3"));
        QCOMPARE(Lesen("PauseZwischenTracks"), QString("0"));
        spielen(0);
        Attrappen::uhr().vorruecken(14000);
        QCOMPARE(gespielt().size(), 3);
        QCOMPARE(panel.last().second, QString("no play"));
    }

    void modusKaestenBleibenVertraeglich()
    {
        starten(Baender({"Abba"}));
        // At start: three enabled, three not, all clear.
        QVERIFY(w->chkAlleTracks->isEnabled() && w->chkShuffle->isEnabled() && w->chkMarkTracks->isEnabled());
        QVERIFY(!w->chkRepeat->isEnabled() && !w->chkTracksZufaellig->isEnabled()
                && !w->chkTracksAnspielen->isEnabled());
        w->chkAlleTracks->click();
        QVERIFY(w->chkRepeat->isEnabled() && w->chkTracksZufaellig->isEnabled());
        QVERIFY(!w->chkShuffle->isEnabled() && !w->chkMarkTracks->isEnabled());
        w->chkRepeat->setChecked(true);
        w->chkAlleTracks->click();
        QVERIFY(!w->chkRepeat->isChecked() && !w->chkRepeat->isEnabled());
        QVERIFY(w->chkMarkTracks->isEnabled());
        TrackIndex = 5;
        w->chkMarkTracks->click();
        QCOMPARE(TrackIndex, 0);
        QVERIFY(w->chkRepeat->isEnabled() && !w->chkAlleTracks->isEnabled());
        // Sampling beside marked Tracks asks for its seconds; clearing the marks clears it
        // through its own handler, which asks nothing when it is cleared.
        Attrappen::dialoge().antwortenInput << "5";
        w->chkTracksAnspielen->click();
        QCOMPARE(Lesen("TracksAnspielen"), QString("5"));
        Attrappen::dialoge().aufrufe.clear();
        w->Timer1->setEnabled(true);
        w->chkMarkTracks->click();
        QVERIFY(!w->Timer1->isEnabled());
        QVERIFY(w->chkAlleTracks->isEnabled());
        QVERIFY(!w->chkTracksAnspielen->isChecked() && !w->chkTracksAnspielen->isEnabled());
        QVERIFY(Attrappen::dialoge().aufrufe.isEmpty());
        // The wait between Tracks, with its question above 60 seconds.
        Attrappen::dialoge().antwortenInput << "90" << "75";
        Attrappen::dialoge().antwortenMsg << "Nein" << "Ja";
        w->mnuPauseZwischenTracks->trigger();
        QCOMPARE(Lesen("PauseZwischenTracks"), QString("75"));
        Attrappen::dialoge().antwortenInput << "60";
        w->mnuPauseZwischenTracks->trigger();
        QCOMPARE(Lesen("PauseZwischenTracks"), QString("60"));
        w->mnuLaufschrift->trigger();
        QCOMPARE(Lesen("Laufschrift"), QString("aus"));
    }

    void laufschriftImMinimiertenFenster()
    {
        const QString musik = ordner("Abba", 2, 300.0);
        starten({Zeilenwerte{{"Band", "Abba"}, {"LPTitel", "Gold"}, {"Musikpfad", musik}}});
        QStringList titel;
        connect(w.get(), &QWidget::windowTitleChanged, this, [&](const QString& t) { titel << t; });
        w->setWindowState(Qt::WindowMinimized);
        spielen(0);
        QVERIFY(w->Timer2->isEnabled());
        Attrappen::uhr().vorruecken(500);
        QVERIFY(titel.size() >= 8);
        QCOMPARE(titel.mid(0, 4), (QStringList{"A", "Ab", "Abb", "Abba"}));
        QVERIFY(titel.contains("bba"));
        Attrappen::uhr().vorruecken(3000);
        QVERIFY(titel.contains("Gold"));
        // Shown again: the caption comes back.
        w->setWindowState(Qt::WindowNoState);
        Attrappen::uhr().vorruecken(3000);
        QCOMPARE(w->windowTitle(), Ausgabebox::Titel);
    }
};

RK_TEST_MAIN(TestSequenzer)
#include "tst_sequenzer.moc"
