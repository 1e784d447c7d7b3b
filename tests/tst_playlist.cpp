// Playlists: new, load, take-over, removal and check marks with their file; files brought
// from Windows; the copy into a folder; playing the list in the modes of the sequencer,
// with the table following the song.
#include "support/Fenster.h"
#include "support/Katalog.h"
#include "support/Testumgebung.h"

#include "catalogue/Datensteuerung.h"
#include "catalogue/FlexGrid.h"
#include "collections/Playlisten.h"
#include "platform/Dateikopie.h"
#include "platform/Einheiten.h"
#include "platform/Pfade.h"
#include "platform/Textdatei.h"
#include "shell/Ausgabebox.h"
#include "shell/Einstellungen.h"
#include "shell/Globale.h"
#include "shell/Steuerelemente.h"

#include <QAction>
#include <QCheckBox>
#include <QDir>
#include <QKeyEvent>
#include <QMenu>
#include <QProgressBar>
#include <QTabBar>
#include <QTreeWidget>

#include <memory>

class TestPlaylist : public QObject {
    Q_OBJECT

    std::unique_ptr<Ausgabebox> w;
    QString musik; // the music folders of this test, with "/"

    // A folder of the given files, each 10 s long.
    QString ordner(const QString& name, const QStringList& dateien)
    {
        const QString d = musik + name + u'/';
        for (const QString& datei : dateien) {
            DateiSchreiben(d + datei, "Klang von " + datei.toUtf8());
            Attrappen::medien().laengen.insert(d + datei, 10.0);
        }
        return d;
    }

    // Abba and Beatles with two songs each, Cream without a folder.
    void starten()
    {
        static int lauf = 0;
        musik = Testordner(QStringLiteral("pl%1").arg(++lauf));
        const QString abba = ordner("Abba - Arrival", {"Dancing Queen - 5.mp3", "Money.mp3"});
        const QString beatles = ordner("Beatles - Help", {"Help - 4.mp3", "Yesterday.mp3"});
        // The walk to a song's Carrier finds it by a cell that holds the song: its song list.
        FensterStarten(w, {.zeilen = {Zeilenwerte{{"Band", "Abba"}, {"LPTitel", "Arrival"}, {"Musikpfad", abba},
                                                  {"Songs", "{\\rtf1 Dancing Queen\\par Money\\par}"}},
                                      Zeilenwerte{{"Band", "Beatles"}, {"LPTitel", "Help!"}, {"Musikpfad", beatles},
                                                  {"Songs", "{\\rtf1 Help\\par Yesterday\\par}"}},
                                      Zeilenwerte{{"Band", "Cream"}}},
                           .einstellungen = {{"WinMediaPlayer", "False"}}});
        w->MSFlexGrid1->setRow(3);
        PlaylistModus = false;
        TrackIndex = 0;
        Abbruch = false;
        StopGedrueckt = false;
        Attrappen::medien().befehle.clear();
    }

    Playlisten& pl() const { return w->playlisten(); }
    QTreeWidget* liste() const { return w->lvwPlaylist; }
    QString datei(const QString& name) const { return Testumgebung::programmOrdner() + "Playlist/" + name; }
    QString kopf() const { return liste()->headerItem()->text(0); }
    QString band() const { return w->TextBand->text(); }

    QStringList zeilen() const
    {
        QStringList z;
        for (int i = 0; i < liste()->topLevelItemCount(); ++i) {
            const QTreeWidgetItem* r = liste()->topLevelItem(i);
            z << r->text(2) + u'|' + r->text(1) + u'|' + r->text(0);
        }
        return z;
    }

    QStringList gespielt() const
    {
        QStringList namen;
        for (const QString& pfad : Attrappen::medien().gestartet())
            namen << DateinameAusPfad(pfad);
        return namen;
    }

    // Loads a playlist file through the dialog.
    void laden(const QString& pfad)
    {
        Attrappen::dialoge().antwortenDatei << pfad;
        w->mnuPlaylistLaden->trigger();
    }

    // A new playlist that takes the chosen Tracks of the Carriers in the rows, in order.
    void neuAus(const QString& name, const QList<QPair<int, QStringList>>& auswahl)
    {
        Attrappen::dialoge().antwortenInput << name;
        w->mnuPlaylistNeu->trigger();
        for (const auto& [zeile, tracks] : auswahl) {
            w->MSFlexGrid1->setRow(zeile);
            w->filTrack->clearSelection();
            for (int i = 0; i < w->filTrack->count(); ++i)
                w->filTrack->setSelected(i, tracks.contains(w->filTrack->List(i)));
            w->mnuPlaylistAufnehmen->trigger();
        }
    }

private slots:
    void init() { starten(); }
    void cleanup() { w.reset(); }

    void neuAufnehmenUndLaden()
    {
        // Without a name nothing is taken.
        w->mnuInPlaylistAufnehmen->trigger();
        QCOMPARE(Attrappen::dialoge().meldungen().last().titel, QString("Kein Playlist vorhanden"));
        neuAus("Abend", {{1, {"Money.mp3"}}, {2, {"Help - 4.mp3", "Yesterday.mp3"}}});
        QVERIFY(!liste()->isHidden() && w->tabTexte->isHidden() && w->mnuPlaylistAnzeigen->isChecked());
        QCOMPARE(kopf(), QString("Playlist - Abend (3)"));
        QCOMPARE(zeilen(), (QStringList{musik + "|Abba - Arrival/|Money.mp3", musik + "|Beatles - Help/|Help - 4.mp3",
                                        musik + "|Beatles - Help/|Yesterday.mp3"}));
        QCOMPARE(TextdateiLesen(datei("Abend.txt")),
                 (QStringList{musik + "Abba - Arrival/Money.mp3", musik + "Beatles - Help/Help - 4.mp3",
                              musik + "Beatles - Help/Yesterday.mp3"}));
        QVERIFY(PlaylistModus);
        QCOMPARE(TrackGespielt.size(), size_t(4));
        // The tab lists the folder beside the catalogue, which nothing makes; a click there
        // takes the name and loads from the program's folder, checked again.
        QVERIFY(w->filPlaylist->Path().startsWith(DatenbankOrdner + "Playlist"));
        QCOMPARE(w->filPlaylist->count(), 0);
        QVERIFY(QDir().mkpath(DatenbankOrdner + "Playlist"));
        DateiSchreiben(DatenbankOrdner + "Playlist/Abend.txt", "/anderswo/Nie.mp3\n");
        w->filPlaylist->Refresh();
        QCOMPARE(w->filPlaylist->List(0), QString("Abend.txt"));
        liste()->topLevelItem(0)->setCheckState(0, Qt::Unchecked);
        liste()->clear();
        w->filPlaylist->setCurrentRow(0);
        emit w->filPlaylist->itemClicked(w->filPlaylist->item(0));
        QCOMPARE(zeilen().size(), 3);
        QCOMPARE(liste()->topLevelItem(0)->checkState(0), Qt::Checked);
        // Taken twice: two rows each and two lines each; the load keeps a song that comes
        // back later, not one that stands directly behind itself.
        w->MSFlexGrid1->setRow(1);
        w->filTrack->clearSelection();
        w->filTrack->setSelected(1, true);
        w->mnuInPlaylistAufnehmen->trigger();
        w->mnuPlaylistAufnehmen->trigger();
        QCOMPARE(zeilen().size(), 5);
        QCOMPARE(TextdateiLesen(datei("Abend.txt")).size(), 5);
        laden(datei("Abend.txt"));
        QCOMPARE(kopf(), QString("Playlist - Abend (4)"));
        QCOMPARE(zeilen().last(), musik + "|Abba - Arrival/|Money.mp3");

        // A name that exists: "Nein" asks again, an empty name ends with nothing changed.
        Attrappen::dialoge().antwortenInput << "Abend" << "";
        Attrappen::dialoge().antwortenMsg << "Nein";
        w->mnuPlaylistNeu->trigger();
        QCOMPARE(zeilen().size(), 4);
        QCOMPARE(Attrappen::dialoge().meldungen().last().text,
                 QString("Diese Playlist existiert bereits, überschreiben?\n\nAbend\n"));
        // "Ja": the old file goes to the trash; the new list is empty until its first take.
        Attrappen::dialoge().antwortenInput << "Abend";
        Attrappen::dialoge().antwortenMsg << "Ja";
        w->mnuPlaylistNeu->trigger();
        QVERIFY(Attrappen::papierkorb().verschoben.contains(datei("Abend.txt")));
        QCOMPARE(kopf(), QString("Playlist - Abend (0)"));
    }

    void wiederholungenHakenUndEntfernen()
    {
        DateiSchreiben(datei("Liste.txt"), "/m/a/A.mp3\n/m/a/A.mp3\n/m/b/B.mp3\n\n/m/a/A.mp3\n");
        laden(datei("Liste.txt"));
        QCOMPARE(zeilen(), (QStringList{"/m/|a/|A.mp3", "/m/|b/|B.mp3", "/m/|a/|A.mp3"}));
        QCOMPARE(kopf(), QString("Playlist - Liste (3)"));
        w->mnuPlaylistHaken->trigger();
        QCOMPARE(liste()->topLevelItem(1)->checkState(0), Qt::Unchecked);
        w->mnuPlaylistHaken->trigger();
        QCOMPARE(liste()->topLevelItem(2)->checkState(0), Qt::Checked);
        // Removing: one question, "Nein" keeps the rows; otherwise the file follows at once.
        liste()->setCurrentItem(liste()->topLevelItem(0));
        liste()->topLevelItem(1)->setSelected(true);
        Attrappen::dialoge().antwortenMsg << "Nein";
        w->mnuPlaylistKill->trigger();
        QCOMPARE(zeilen().size(), 3);
        QCOMPARE(Attrappen::dialoge().meldungen().last().text, QString("Lied aus der Playlist entfernen?\n\nA.mp3"));
        w->mnuPlaylistKill->trigger();
        QCOMPARE(zeilen(), QStringList{"/m/|a/|A.mp3"});
        QCOMPARE(TextdateiLesen(datei("Liste.txt")), QStringList{"/m/a/A.mp3"});
        QCOMPARE(kopf(), QString("Playlist - Liste (1)"));
        // An empty file, and a name without ".txt" picked in another folder: the head drops
        // four characters all the same, and the list is saved among the playlists.
        const QString anderswo = Testordner("anderswo") + "Sommerliste";
        DateiSchreiben(anderswo, "");
        laden(anderswo);
        QCOMPARE(kopf(), QString("Playlist - Sommerl (0)"));
        // Shown and hidden by the menu and the tool button.
        w->mnuPlaylistAnzeigen->trigger();
        QVERIFY(liste()->isHidden() && !w->tabTexte->isHidden() && !w->mnuPlaylistAnzeigen->isChecked());
        QTest::mouseClick(w->cmdButton[14], Qt::LeftButton);
        QVERIFY(!liste()->isHidden() && w->tabTexte->isHidden());
        // A cancelled dialog changes nothing and says nothing.
        const qsizetype meldungen = Attrappen::dialoge().meldungen().size();
        w->mnuPlaylistLaden->trigger();
        QCOMPARE(pl().PlaylistName, QString("Sommerliste"));
        QCOMPARE(Attrappen::dialoge().meldungen().size(), meldungen);
    }

    // A file from Windows: CR LF, Windows-1252, backslashes, a line whose file is missing;
    // a line without any folder ends the reading with the error box.
    void dateiAusWindows()
    {
        const QString baer = ordner("Bär", {"Lied - 3.mp3"}).chopped(1);
        QByteArray inhalt = "C:\\Musik\\B\xe4nd\\Song.mp3\r\n";
        inhalt += baer.toLatin1() + "/Lied - 3.mp3\r\n";
        inhalt += musik.toLatin1() + "Abba - Arrival/Money.mp3\r\n";
        DateiSchreiben(datei("Windows.txt"), inhalt);
        laden(datei("Windows.txt"));
        QCOMPARE(zeilen(), (QStringList{"C:\\Musik\\|Bänd\\|Song.mp3", musik + "|Bär/|Lied - 3.mp3",
                                        musik + "|Abba - Arrival/|Money.mp3"}));
        // Played with "Alle": the row whose file is missing starts nothing and is passed over.
        w->chkAlleTracks->click();
        liste()->setCurrentItem(liste()->topLevelItem(0));
        TrackIndex = 1;
        w->imgStart->click();
        Attrappen::uhr().vorruecken(40000);
        QCOMPARE(Attrappen::medien().gestartet(), (QStringList{baer + "/Lied - 3.mp3", musik + "Abba - Arrival/Money.mp3"}));
        QCOMPARE(w->staBar->PanelText(2), QString("no play"));
        // Saved back as the platform writes text: UTF-8 and LF.
        pl().PlaylistSpeichern();
        QVERIFY(DateiLesen(datei("Windows.txt")).startsWith("C:\\Musik\\B\xc3\xa4nd\\Song.mp3\n"));

        w->imgStop->click();
        const int meldungen = Attrappen::dialoge().meldungen().size();
        DateiSchreiben(datei("Wort.txt"), "C:\\A\\Eins.mp3\r\nnur ein Wort\r\nC:\\A\\Zwei.mp3\r\n");
        laden(datei("Wort.txt"));
        QCOMPARE(zeilen(), (QStringList{"C:\\|A\\|Eins.mp3"}));
        QCOMPARE(Attrappen::dialoge().meldungen().size(), meldungen + 1);
        QCOMPARE(Attrappen::dialoge().meldungen().last().titel, QString("Ausgabebox_mnuPlaylistLaden_Click"));
        // The row that stayed plays without a fault.
        liste()->setCurrentItem(liste()->topLevelItem(0));
        w->imgStart->click();
        Attrappen::uhr().vorruecken(1000);
    }

    // "Alle" plays the checked rows in order; each start moves the table to the song's
    // Carrier and marks the song there; the index stays the playlist's.
    void alleSpieltInOrdnungUndTabelleFolgt()
    {
        neuAus("Mix", {{2, {"Help - 4.mp3"}}, {1, {"Dancing Queen - 5.mp3", "Money.mp3"}}, {2, {"Yesterday.mp3"}}});
        liste()->topLevelItem(2)->setCheckState(0, Qt::Unchecked);
        w->MSFlexGrid1->setRow(3);
        w->chkAlleTracks->click();
        liste()->setCurrentItem(liste()->topLevelItem(0));
        TrackIndex = 1;
        w->imgStart->click();
        const QStringList erwartet = {"Help - 4.mp3", "Dancing Queen - 5.mp3", "Yesterday.mp3"};
        const QStringList baender = {"Beatles", "Abba", "Beatles"};
        const int reihen[] = {1, 2, 4};
        for (int i = 0; i < 3; ++i) {
            if (i > 0)
                Attrappen::uhr().vorruecken(11500);
            QCOMPARE(gespielt(), erwartet.mid(0, i + 1));
            QCOMPARE(TrackIndex, reihen[i]);
            QCOMPARE(band(), baender[i]);
            QCOMPARE(w->MSFlexGrid1->Row(), baender[i] == u"Abba" ? 1 : 2);
            QCOMPARE(w->filTrack->selectedItems().size(), 1);
            QCOMPARE(w->filTrack->selectedItems().first()->text(), erwartet[i]);
            QCOMPARE(w->txtSuchen->palette().color(QPalette::Base), NummerFarbe(0xC0FFC0));
        }
        Attrappen::uhr().vorruecken(11500);
        QCOMPARE(gespielt().size(), 3);
        QCOMPARE(w->staBar->PanelText(2), QString("no play"));
        // A Carrier that is not in the table: the table stays, the field turns red.
        w->Data1->setRecordSource("select * from Schallplatten where Band <> 'Beatles' order by Band");
        w->Data1->Refresh();
        w->MSFlexGrid1->setRow(2);
        liste()->setCurrentItem(liste()->topLevelItem(0));
        TrackIndex = 1; // as the button's release sets it
        emit liste()->itemDoubleClicked(liste()->topLevelItem(0), 0);
        QCOMPARE(gespielt().last(), QString("Help - 4.mp3"));
        QCOMPARE(band(), QString("Cream"));
        QCOMPARE(w->txtSuchen->palette().color(QPalette::Base), NummerFarbe(0xC0C0FF));
        QCOMPARE(w->SuchZeile, 1);
    }

    // Random rows: the played marks belong to the rows and survive the table's moves.
    void zufaelligJedeZeileEinmal()
    {
        neuAus("Zufall", {{1, {"Dancing Queen - 5.mp3", "Money.mp3"}}, {2, {"Help - 4.mp3", "Yesterday.mp3"}}});
        w->chkAlleTracks->click();
        w->chkTracksZufaellig->click();
        liste()->setCurrentItem(liste()->topLevelItem(0));
        TrackIndex = 1;
        Attrappen::zufall().werte << 0.9 << 0.0 << 0.5 << 0.0;
        w->imgStart->click();
        Attrappen::uhr().vorruecken(60000);
        // Candidates int(3 * r + 1): 3; 1 is played, so the first free one; 2; 1 again.
        QCOMPARE(gespielt(), (QStringList{"Dancing Queen - 5.mp3", "Help - 4.mp3", "Money.mp3", "Yesterday.mp3"}));
        QCOMPARE(w->staBar->PanelText(2), QString("no play"));
    }

    void kopierenInOrdner()
    {
        neuAus("Kopie", {{1, {"Dancing Queen - 5.mp3", "Money.mp3"}}, {2, {"Help - 4.mp3", "Yesterday.mp3"}}});
        const QString ziel = Testordner("ziel");
        DateiSchreiben(ziel + "Money.mp3", "eigen");
        QFile::remove(musik + "Beatles - Help/Yesterday.mp3");
        liste()->topLevelItem(2)->setCheckState(0, Qt::Unchecked);
        int hoechst = 0;
        connect(w->ProgressBar1, &QProgressBar::valueChanged, this, [&](int wert) { hoechst = std::max(hoechst, wert); });
        Attrappen::dialoge().antwortenOrdner << ziel;
        w->mnuPlaylistKopieren->trigger();
        QCOMPARE(Attrappen::dialoge().meldungen().last().titel, QString("Lieder kopieren"));
        QCOMPARE(Attrappen::dialoge().meldungen().last().text,
                 QString("1 Lieder kopiert nach:\n") + ziel
                     + "\n\nBereits im Zielordner vorhanden: 1\nLieder nicht im Quellordner vorhanden: 1");
        QCOMPARE(hoechst, 1);
        QVERIFY(w->ProgressBar1->isHidden());
        QCOMPARE(DateiLesen(ziel + "Money.mp3"), QByteArray("eigen"));
        QCOMPARE(DateiLesen(ziel + "Dancing Queen - 5.mp3"), QByteArray("Klang von Dancing Queen - 5.mp3"));
        QVERIFY(!QFile::exists(ziel + "Help - 4.mp3"));

        // Esc stops the copy: what is in the target is whole, the rest is not begun.
        const QString ziel2 = Testordner("ziel2");
        liste()->topLevelItem(2)->setCheckState(0, Qt::Checked);
        connect(w->ProgressBar1, &QProgressBar::valueChanged, this, [&](int wert) {
            if (wert == 2)
                QCoreApplication::postEvent(w.get(), new QKeyEvent(QEvent::KeyPress, Qt::Key_Escape, Qt::NoModifier));
        });
        Attrappen::dialoge().antwortenOrdner << ziel2;
        w->mnuPlaylistKopieren->trigger();
        QCOMPARE(QDir(ziel2).entryList(QDir::Files | QDir::Hidden), QStringList{"Dancing Queen - 5.mp3"});
        QVERIFY(Attrappen::dialoge().meldungen().last().text.startsWith("1 Lieder kopiert nach:"));
        QVERIFY(!Abbruch);
    }

    // A file is whole in the target or not there, also when the copy stops midway.
    void dateiKopierenGanzOderGarNicht()
    {
        const QString ordner = Testordner("stuecke");
        QByteArray gross(9 << 20, 'x');
        DateiSchreiben(ordner + "gross.bin", gross);
        int gefragt = 0;
        QVERIFY(!DateiKopieren(ordner + "gross.bin", ordner + "ziel.bin", [&] { return ++gefragt < 2; }));
        QCOMPARE(gefragt, 2);
        QCOMPARE(QDir(ordner).entryList(QDir::Files | QDir::Hidden), QStringList{"gross.bin"});
        QVERIFY(DateiKopieren(ordner + "gross.bin", ordner + "ziel.bin", [] { return true; }));
        QCOMPARE(DateiLesen(ordner + "ziel.bin"), gross);
        QVERIFY(!DateiKopieren(ordner + "fehlt.bin", ordner + "ziel2.bin"));
    }

    // The list's own events: a click makes it the source, Enter starts, the right button
    // opens the playlist menu.
    void ereignisseDerListe()
    {
        neuAus("Klick", {{1, {"Dancing Queen - 5.mp3", "Money.mp3"}}});
        w->show();
        QVERIFY(QTest::qWaitForWindowExposed(w.get()));
        w->filTrack->setFocus();
        QTest::mouseClick(w->filTrack->viewport(), Qt::LeftButton, {}, w->filTrack->visualItemRect(w->filTrack->item(0)).center());
        QTRY_VERIFY(!PlaylistModus);
        const QRect zweite = liste()->visualItemRect(liste()->topLevelItem(1));
        QTest::mouseClick(liste()->viewport(), Qt::LeftButton, {}, zweite.center());
        QVERIFY(PlaylistModus);
        QCOMPARE(TrackIndex, 2);
        QTest::keyClick(liste(), Qt::Key_Return);
        QCOMPARE(gespielt(), QStringList{"Money.mp3"});
        QCOMPARE(band(), QString("Abba"));
        QTest::mousePress(liste()->viewport(), Qt::RightButton, {}, zweite.center());
        QTRY_VERIFY(w->mnuPlaylist->isVisible());
        w->mnuPlaylist->hide();
        // The random button while a row plays: a free checked row starts at once; when
        // every row has played the run ends.
        Attrappen::zufall().werte << 0.4 << 0.4 << 0.4;
        QTest::mouseClick(w->imgLiedzufall, Qt::LeftButton);
        QTest::mouseClick(w->imgLiedzufall, Qt::LeftButton);
        QCOMPARE(gespielt(), (QStringList{"Money.mp3", "Dancing Queen - 5.mp3", "Money.mp3"}));
        QTest::mouseClick(w->imgLiedzufall, Qt::LeftButton);
        QCOMPARE(gespielt().size(), 3);
        QCOMPARE(w->staBar->PanelText(2), QString("no play"));
    }
};

RK_TEST_MAIN(TestPlaylist)
#include "tst_playlist.moc"
