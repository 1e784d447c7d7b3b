// The transport and the Track ratings: start on both sound paths, stop, pause, resume,
// steps, the A-B loop, the media window, and the rating in a file name.
#include "support/Fenster.h"
#include "support/Katalog.h"
#include "support/Testumgebung.h"

#include "catalogue/Datensatzansicht.h"
#include "catalogue/FlexGrid.h"
#include "platform/Einheiten.h"
#include "platform/Medien.h"
#include "playback/Abspieler.h"
#include "playback/Trackliste.h"
#include "playback/Trackname.h"
#include "playback/Zufallswahl.h"
#include "playback/frmWinMediaPlayer.h"
#include "shell/Ausgabebox.h"
#include "shell/Einstellungen.h"
#include "shell/Globale.h"
#include "shell/Steuerelemente.h"

#include <QAction>
#include <QCheckBox>
#include <QLabel>
#include <QPointer>
#include <QPushButton>
#include <QVideoWidget>

#include <memory>

class TestPlayer : public QObject {
    Q_OBJECT

    std::unique_ptr<Ausgabebox> w;
    QString musik;

    void starten(const QStringList& dateien, bool medienpfad, const QString& ordnerName = "Abba",
                 const QMap<QString, QString>& einstellungen = {})
    {
        w.reset();
        Attrappen::leeren();
        static int lauf = 0;
        musik = Testordner(QStringLiteral("musik%1/").arg(++lauf) + ordnerName);
        for (const QString& d : dateien)
            DateiSchreiben(musik + d, "x");
        QMap<QString, QString> vorher = einstellungen;
        vorher.insert("WinMediaPlayer", medienpfad ? "True" : "False");
        FensterStarten(w, {.zeilen = {Zeilenwerte{{"Band", "Abba"}, {"Musikpfad", musik}, {"Bewertung", "4"}},
                                      Zeilenwerte{{"Band", "Bach"}}},
                           .einstellungen = vorher});
        Abbruch = false;
        PlaylistModus = false;
    }

    SpielerAttrappe* mp1() const { return static_cast<SpielerAttrappe*>(w->MediaPlayer1Spieler); }
    QString panel() const { return w->staBar->PanelText(2); }
    int helleSterne(const Steuerfeld<Bildfeld, 6>& sterne) const
    {
        int n = 0;
        for (Bildfeld* s : sterne)
            n += s->Bild().toImage() == w->imgStern->Bild().toImage() ? 1 : 0;
        return n;
    }
    int eintrag(const QString& name) const
    {
        for (int i = 0; i < w->filTrack->count(); ++i)
            if (w->filTrack->List(i) == name)
                return i;
        return -1;
    }
    void spielen(int index)
    {
        TrackIndex = index;
        w->imgStart->click();
    }

private slots:
    void cleanup() { w.reset(); }

    void bewertungImDateinamen()
    {
        QCOMPARE(TrackMitBewertung("Song - 3.mp3", 5), QString("Song - 5.mp3"));
        QCOMPARE(TrackMitBewertung("Song.mp3", 1), QString("Song - 1.mp3"));
        QCOMPARE(TrackMitBewertung("Live - 1999.mp3", 2), QString("Live - 1999 - 2.mp3"));
        QCOMPARE(TrackMitBewertung("Song - 0.flac", 6), QString("Song - 6.flac"));
        QCOMPARE(TrackMitBewertung("ohne Punkt", 3), QString("ohne Punkt"));
        QCOMPARE(TrackMitBewertung("a.b - 2.tar.gz", 4), QString("a.b - 2.tar - 4.gz"));
        QCOMPARE(TrackBewertung("Song - 4.mp3"), 4);
        QCOMPARE(TrackBewertung("Song -x3.mp3"), 3); // only two places are read
        QCOMPARE(TrackBewertung("Song-3.mp3"), 0);
        QCOMPARE(TrackBewertung("Live - 1999.mp3"), 0);
        QCOMPARE(TrackBewertung("Intro - 4.jpeg"), 4);
        QCOMPARE(TrackBewertung("Side - 7.mp3"), 0);
        QCOMPARE(TrackBewertung("ohne"), 0);
    }

    // The Track stars show the first Track of each Carrier from the start on; a file that
    // is no sound or video keeps its name; a relative music path is no folder.
    void sterneFolgenDemTontraeger()
    {
        starten({"Erstes - 5.mp3", "Heft - 2.pdf"}, false);
        QCOMPARE(helleSterne(w->imgSongNote), TrackBewertung(w->filTrack->List(TrackIndex)));
        w->MSFlexGrid1->setRow(2);
        QCOMPARE(helleSterne(w->imgSongNote), 0);
        w->MSFlexGrid1->setRow(1);
        QCOMPARE(helleSterne(w->imgSongNote), 5);
        // A Track drawn at random shows its own stars.
        Speichern("ShuffleSongProCD", "2");
        w->SongZaehler = 1;
        Attrappen::zufall().werte << 0.9;
        w->zufallswahl().TontraegerZufaellig();
        QCOMPARE(TrackIndex, eintrag("Heft - 2.pdf"));
        QCOMPARE(helleSterne(w->imgSongNote), 2);
        TrackIndex = eintrag("Heft - 2.pdf");
        QTest::mouseClick(w->imgSongNote[3], Qt::LeftButton);
        QVERIFY(QFile::exists(musik + "Heft - 2.pdf"));
        QVERIFY(IstMedienname("a.MKV") && IstMedienname("b.wma") && !IstMedienname("c.jpg") && !IstMedienname("mp3"));

        // The field edited to a relative path, the list still showing the folder: a star
        // renames nothing, not even the file that the path names from the working folder.
        const QString vorher = QDir::currentPath();
        QDir::setCurrent(musik + "..");
        w->TextMusikpfad->setText("Abba/");
        TrackIndex = eintrag("Erstes - 5.mp3");
        QTest::mouseClick(w->imgSongNote[1], Qt::LeftButton);
        QVERIFY(QFile::exists(musik + "Erstes - 5.mp3"));
        w->datensatzansicht().TrackListeLaden();
        QDir::setCurrent(vorher);
        QVERIFY(!w->filTrack->isEnabled());
        QCOMPARE(w->filTrack->count(), 0);
    }

    void sterneBenennenDieDateiUm()
    {
        starten({"Live - 1999.mp3", "Side - 7.mp3", "Song - 3.mp3", "ohne"}, false);
        QCOMPARE(helleSterne(w->imgCDnote), 4);
        QCOMPARE(w->filTrack->List(0), QString("Live - 1999.mp3"));
        QCOMPARE(w->filTrack->List(1), QString("ohne")); // sorted without regard to case
        TrackIndex = 0;
        w->trackliste().BewertungTracks();
        QCOMPARE(helleSterne(w->imgSongNote), 0);
        QTest::mouseClick(w->imgSongNote[1], Qt::LeftButton);
        QVERIFY(QFile::exists(musik + "Live - 1999 - 2.mp3"));
        QVERIFY(!QFile::exists(musik + "Live - 1999.mp3"));
        QCOMPARE(w->filTrack->List(0), QString("Live - 1999 - 2.mp3"));
        QCOMPARE(helleSterne(w->imgSongNote), 2);

        TrackIndex = eintrag("Song - 3.mp3");
        QTest::mouseClick(w->imgSongNote[4], Qt::LeftButton);
        QVERIFY(QFile::exists(musik + "Song - 5.mp3"));
        QCOMPARE(helleSterne(w->imgSongNote), 5);

        // A digit above 6 leaves the Carrier's stars alone.
        for (Bildfeld* s : w->imgCDnote)
            s->setBild(w->imgSternGrau->Bild());
        TrackIndex = eintrag("Side - 7.mp3");
        w->trackliste().BewertungTracks();
        QCOMPARE(helleSterne(w->imgSongNote), 0);
        QCOMPARE(helleSterne(w->imgCDnote), 0);
        TrackIndex = eintrag("Song - 5.mp3");
        w->trackliste().BewertungTracks();
        QCOMPARE(helleSterne(w->imgCDnote), 4);

        // A name without a dot changes nothing.
        TrackIndex = eintrag("ohne");
        QTest::mouseClick(w->imgSongNote[2], Qt::LeftButton);
        QVERIFY(QFile::exists(musik + "ohne"));
        QCOMPARE(QDir(musik).entryList(QDir::Files).size(), 4);
    }

    void startUndStopAufDemErstenPfad()
    {
        starten({"A - 1.mp3", "B.ogg", "C.flac"}, false);
        MedienAttrappe& m = Attrappen::medien();
        m.laengen.insert(musik + "B.ogg", 185.0);
        const double vorher = Attrappen::uhr().sekundenSeitMitternacht();
        spielen(1);
        QCOMPARE(m.gestartet(), QStringList{musik + "B.ogg"});
        QCOMPARE(panel(), QString("playing:  ") + musik + "B.ogg");
        QCOMPARE(w->abspieler().LaufenderTrack, panel());
        QCOMPARE(w->Bez[12]->text(), QString("Tracks && Movies Nr.: 2"));
        QVERIFY(std::abs(w->abspieler().TrackEndeZeit - (vorher + 185.0)) < 0.5);
        QVERIFY(w->filTrack->Selected(1));
        QVERIFY(!w->filTrack->Selected(0));
        // A second start closes the first: one player runs.
        spielen(2);
        QCOMPARE(m.offen.size(), 1);
        QCOMPARE(m.offen.value("myalias"), musik + "C.flac");
        w->imgStop->click();
        QCOMPARE(panel(), QString("no play"));
        QVERIFY(m.offen.isEmpty());
        QVERIFY(mp1()->aufrufe.isEmpty()); // the media path was never asked
    }

    void markierteTracksOhneAuswahlStoppen()
    {
        starten({"A.mp3", "B.mp3", "C.mp3"}, false);
        w->chkMarkTracks->setChecked(true);
        w->filTrack->clearSelection();
        w->staBar->setPanelText(2, "playing:  alt");
        spielen(1);
        QCOMPARE(TrackIndex, 0);
        QCOMPARE(panel(), QString("no play"));
        QVERIFY(Attrappen::medien().gestartet().isEmpty());
        // With a selection further on, that one plays, and the sequencer's timer runs.
        w->filTrack->setSelected(2, true);
        spielen(1);
        QCOMPARE(TrackIndex, 2);
        QCOMPARE(Attrappen::medien().gestartet(), QStringList{musik + "C.mp3"});
        QVERIFY(w->Timer1->isEnabled());
    }

    void pauseImPfadSetztAbbruch()
    {
        starten({"Pause am Meer.mp3"}, true, "Pause");
        spielen(0);
        QVERIFY(panel().contains("Pause"));
        w->imgPause[0]->click();
        QVERIFY(Abbruch);
        QVERIFY(!w->abspieler().WmpPause);
        QVERIFY(!w->imgPause[0]->isHidden());
        Abbruch = false;
        w->imgStop->click();
        QVERIFY(Abbruch);
    }

    void medienpfadPauseStopUndWeiter()
    {
        starten({"A.mp3", "B.mp3"}, true);
        spielen(1);
        QCOMPARE(mp1()->URL(), musik + "B.mp3");
        QCOMPARE(mp1()->playState(), int(Medienspieler::Spielt));
        QVERIFY(w->abspieler().MediaPlayer1Sichtbar);
        QVERIFY(!w->cmdInfoTrack->isHidden());
        QCOMPARE(w->Bild1->height(), Px(3195));
        w->imgPause[0]->click();
        QCOMPARE(mp1()->playState(), int(Medienspieler::Angehalten));
        QVERIFY(w->imgPause[0]->isHidden());
        w->imgPause[1]->click();
        QCOMPARE(mp1()->playState(), int(Medienspieler::Spielt));
        Attrappen::uhr().vorruecken(42000);
        w->imgStop->click();
        QCOMPARE(w->abspieler().ResumePosition, 42);
        QCOMPARE(w->abspieler().ResumeIndex, 1);
        QCOMPARE(w->abspieler().ResumeOrdner, musik);
        QVERIFY(!w->abspieler().MediaPlayer1Sichtbar);
        QCOMPARE(w->Bild1->height(), Px(4150));
        // Resume starts the kept Track and goes to the kept place.
        TrackIndex = 0;
        w->imgResume->click();
        QCOMPARE(mp1()->URL(), musik + "B.mp3");
        QCOMPARE(mp1()->aufrufe.last(), QString("Position 42"));
        QVERIFY(std::abs(mp1()->currentPosition() - 42.0) < 0.5);
        // The control's stop state says so in the panel.
        mp1()->zustandSetzen(Medienspieler::Gestoppt);
        QCOMPARE(panel(), QString("no play"));
    }

    // The two boxes of the control run their handlers also for a value from the settings
    // or from code.
    void visualisierungUndVollbild()
    {
        starten({"A.mp3"}, true);
        QVERIFY(w->chkVisualisierung->isChecked());
        QCOMPARE(w->MediaPlayer1->height(), Px(4150));
        starten({"A.mp3"}, true, "Abba", {{"WinMediaPlayerVisualisierung", "0"}});
        QVERIFY(!w->chkVisualisierung->isChecked());
        QCOMPARE(w->MediaPlayer1->height(), Px(960));
        w->chkVisualisierung->setChecked(true);
        QCOMPARE(w->MediaPlayer1->height(), Px(4150));
        QCOMPARE(Lesen("WinMediaPlayerVisualisierung"), QString("1"));
        w->chkVollbild->setChecked(true);
        QVERIFY(w->MediaPlayer1->isFullScreen());
        w->chkVollbild->click();
        QVERIFY(!w->MediaPlayer1->isFullScreen());
    }

    void abSchleifeSpringtZurueck()
    {
        starten({"A.mp3"}, true);
        w->imgPosAB[0]->click(); // "no play": nothing
        QVERIFY(!w->abspieler().PosAGesetzt);
        spielen(0);
        Attrappen::uhr().vorruecken(10000);
        w->imgPosAB[0]->click();
        QVERIFY(w->abspieler().PosAGesetzt);
        QCOMPARE(w->abspieler().PosA, 10);
        QVERIFY(!w->imgPosAB[1]->isHidden());
        Attrappen::uhr().vorruecken(20000);
        w->imgPosAB[1]->click();
        QCOMPARE(w->abspieler().PosB, 30);
        QVERIFY(w->TimerPosAB->isEnabled());
        QVERIFY(!w->imgPosAB[2]->isHidden());
        // Past PosB the timer jumps back to PosA.
        Attrappen::uhr().vorruecken(1000);
        QVERIFY(mp1()->aufrufe.contains("Position 10"));
        QVERIFY(mp1()->currentPosition() < 12.0);
        w->imgPosAB[2]->click();
        QCOMPARE(w->abspieler().PosA, 0);
        QVERIFY(!w->TimerPosAB->isEnabled());
        QVERIFY(!w->imgPosAB[0]->isHidden());
    }

    void schritteMitUmlauf()
    {
        starten({"A.mp3", "B.mp3", "C.mp3"}, false);
        spielen(0);
        w->imgVorBack[0]->click();
        QCOMPARE(TrackIndex, 2);
        w->imgVorBack[1]->click();
        QCOMPARE(TrackIndex, 0);
        w->imgVorBack[1]->click();
        QCOMPARE(TrackIndex, 1);
        QCOMPARE(Attrappen::medien().gestartet().last(), musik + "B.mp3");
    }

    void videoUndBildImFenster()
    {
        starten({"clip.mp4", "foto.png", "lied.mp3"}, true);
        QImage(8, 8, QImage::Format_RGB32).save(musik + "foto.png");
        spielen(0);
        QVERIFY(w->abspieler().FensterMedium);
        QVERIFY(w->abspieler().WinMediaPlayer);
        QVERIFY(w->abspieler().WinMediaPlayer->isVisible());
        QCOMPARE(w->abspieler().WinMediaPlayer->URL(), musik + "clip.mp4");
        QVERIFY(mp1()->URL().isEmpty());
        spielen(1);
        QVERIFY(w->abspieler().WinMediaPlayer->zeigtBild());
        QCOMPARE(w->abspieler().WinMediaPlayer->playState(), int(Medienspieler::Spielt));
        Attrappen::uhr().vorruecken(6000);
        QCOMPARE(w->abspieler().WinMediaPlayer->playState(), int(Medienspieler::Gestoppt));
        // Audio after a video sounds from the main window; the window keeps standing.
        spielen(2);
        QVERIFY(!w->abspieler().FensterMedium);
        QCOMPARE(mp1()->URL(), musik + "lied.mp3");
        QVERIFY(w->abspieler().WinMediaPlayer->URL().isEmpty());
        // The window's own steps: back from the first goes to the last.
        TrackIndex = 0;
        w->abspieler().WinMediaPlayer->imgVorBack_Click(0);
        QCOMPARE(TrackIndex, 2);
        // Closing the window stops and keeps its place.
        w->abspieler().WinMediaPlayer->move(Px(300), Px(600));
        w->abspieler().WinMediaPlayer->close();
        QCOMPARE(panel(), QString("no play"));
        QVERIFY(StopGedrueckt);
        QCOMPARE(Lesen("WinMediaPlayerTop"), QString("600"));
    }

    // The window goes while the media window is open, a Track plays and the sequencer
    // runs: its parts, made after the controls, outlive what they wired.
    void schliessenWaehrendEsSpielt()
    {
        starten({"clip.mp4", "lied.mp3"}, true);
        w->chkAlleTracks->setChecked(true);
        spielen(0);
        QVERIFY(w->abspieler().WinMediaPlayer && w->abspieler().WinMediaPlayer->isVisible());
        w->mnuSleep->trigger();
        Attrappen::uhr().vorruecken(3000);
        QPointer<frmWinMediaPlayer> fenster = w->abspieler().WinMediaPlayer;
        w.reset();
        QVERIFY(!fenster || !fenster->isVisible());
    }

    void laengeMessenUndApostroph()
    {
        starten({"'Extern.mp3", "Lied.mp3"}, false);
        Attrappen::medien().laengen.insert(musik + "Lied.mp3", 185.0);
        TrackIndex = 1;
        w->mnuLiedLang->trigger();
        auto m = Attrappen::dialoge().meldungen();
        QCOMPARE(m.last().text, QString("Lied.mp3\n\n3:05 min"));
        QCOMPARE(m.last().titel, QString("Liedlänge messen"));
        QFile::remove(musik + "Lied.mp3");
        Attrappen::medien().laengen.clear();
        w->mnuLiedLang->trigger();
        QCOMPARE(Attrappen::dialoge().meldungen().last().text, QString("Lied.mp3\n\n0:-01 min"));
        // An apostrophe at the start hands the file to its own program.
        spielen(0);
        QCOMPARE(Attrappen::shell().geoeffnet, QStringList{musik + "'Extern.mp3"});
        QVERIFY(Attrappen::medien().gestartet().isEmpty());
        QCOMPARE(panel(), QString("no play"));
    }

};

RK_TEST_MAIN(TestPlayer)
#include "tst_player.moc"
