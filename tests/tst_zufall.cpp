// The random choice of a Carrier and a Track, its way past excluded styles and bands, and
// the exclusion test that the sequencer asks.
#include "support/Katalog.h"
#include "support/Testumgebung.h"

#include "catalogue/Datensteuerung.h"
#include "catalogue/FlexGrid.h"
#include "catalogue/Recordset.h"
#include "shell/Ausgabebox.h"
#include "shell/Einstellungen.h"
#include "shell/Globale.h"
#include "shell/Steuerelemente.h"

#include <QCheckBox>
#include <QListWidget>
#include <QTreeWidget>

#include <memory>

namespace {

const QString StilHinweis = QStringLiteral(
    "Diese Stilrichtung wurde im Menüpunkt 'Optionen/Stilrichtung ausschließen...' ausgeschlossen.\n"
    "Entfernen Sie dort das Häkchen, damit Sie diese Stilrichtung verwenden können.");
const QString BandHinweis = QStringLiteral(
    "Diese Band wurde im Menüpunkt 'Optionen/Band ausschließen...' ausgeschlossen.\n"
    "Entfernen Sie dort das Häkchen, damit Sie diese Stilrichtung verwenden können.");

// A music folder with the given number of Tracks.
QString musik(const QString& name, int tracks)
{
    const QString ordner = Testordner("zufall/musik/" + name);
    for (int i = 0; i < tracks; ++i)
        DateiSchreiben(ordner + QStringLiteral("Track %1.mp3").arg(i), "x");
    return ordner;
}

} // namespace

class TestZufall : public QObject {
    Q_OBJECT

    std::unique_ptr<Ausgabebox> w;

    void starten(const QList<Zeilenwerte>& zeilen)
    {
        w.reset();
        Speichern("ArchivPfad", KatalogAnlegen(Testordner("zufall") + QStringLiteral("Z%1.db").arg(++m_nr), zeilen));
        w = std::make_unique<Ausgabebox>();
        w->Form_Load();
        w->show();
        QVERIFY(QTest::qWaitForWindowExposed(w.get()));
        Attrappen::dialoge().leeren();
    }

    // Four Carriers in band order; styles chosen to test the comparison.
    void vierTontraeger(const QStringList& stile = {"Pop", "Klassik", "Blues-Rock", "rock"})
    {
        QList<Zeilenwerte> zeilen;
        const QStringList baender = {"Abba", "Bach", "Cream", "Doors"};
        for (int i = 0; i < 4; ++i)
            zeilen << Zeilenwerte{{"Band", baender[i]}, {"Stil", stile[i]}};
        starten(zeilen);
    }

    // Draws one choice with the given random numbers; returns how many it took.
    int ziehen(const QList<double>& werte)
    {
        auto& zufall = Attrappen::zufall();
        zufall.werte.clear();
        for (double r : werte)
            zufall.werte.enqueue(r);
        zufall.werte.enqueue(-1); // a marker: what is left shows how many were drawn
        w->TontraegerZufaellig();
        return int(werte.size()) + 1 - int(zufall.werte.size());
    }

    int position() const { return w->Data1->recordset()->AbsolutePosition(); }
    QString band() const { return w->TextBand->text(); }

    int m_nr = 0;

private slots:
    void init()
    {
        Testumgebung::zuruecksetzen();
        Attrappen::dialoge().leeren();
        Attrappen::zufall().werte.clear();
        PlaylistModus = false;
    }
    void cleanup()
    {
        w.reset();
        PlaylistModus = false;
        TrackGespielt.clear();
    }

    void ziehtJedeZeileOhneAusschluss()
    {
        vierTontraeger();
        QVERIFY(w->imgLiedzufall->isEnabled());
        // The whole part of RecordCount * r + 1: rows 1 to 4 of the table.
        QCOMPARE(ziehen({0.5}), 1);
        QCOMPARE(w->MSFlexGrid1->Row(), 3);
        QCOMPARE(band(), QString("Cream"));
        QCOMPARE(position(), 2);
        QCOMPARE(ziehen({0.9999999}), 1);
        QCOMPARE(band(), QString("Doors"));
        QCOMPARE(ziehen({0.0}), 1);
        QCOMPARE(band(), QString("Abba"));
        QCOMPARE(w->MSFlexGrid1->Row(), 1);
        QCOMPARE(w->SpalteStil, w->SpalteSuchen("Stil"));
        QVERIFY(Attrappen::dialoge().aufrufe.isEmpty());

        // The dice on the main window: a left click chooses, a right click does not.
        Attrappen::zufall().werte.clear();
        Attrappen::zufall().werte.enqueue(0.3);
        QTest::mouseClick(w->imgLiedzufall, Qt::RightButton);
        QCOMPARE(band(), QString("Abba"));
        QTest::mouseClick(w->imgLiedzufall, Qt::LeftButton);
        QCOMPARE(band(), QString("Bach"));
    }

    void ausgeschlosseneWerdenUebergangen()
    {
        vierTontraeger();
        // Containment in exact case: "Blues-Rock" is excluded, "rock" is not.
        w->lstAbspielausschluss->addItem("Rock");
        QCOMPARE(ziehen({0.5, 0.75}), 2);
        QCOMPARE(band(), QString("Doors"));
        // A part of a band's name excludes it as well.
        w->lstBandAusschluss->addItem("bb");
        QCOMPARE(ziehen({0.0, 0.5, 0.25}), 3);
        QCOMPARE(band(), QString("Bach"));
        QVERIFY(Attrappen::dialoge().aufrufe.isEmpty());

        // The sequencer's test looks at the current row, wherever the columns stand.
        Speichern("TabelleAnordnenCaption0", "Stil1");
        Speichern("TabelleAnordnenCaption3", "Band1");
        w->TabelleEinrichten();
        QCOMPARE(w->MSFlexGrid1->TextMatrix(0, 0), QString("Stil"));
        QVERIFY(!w->TontraegerAusgeschlossen());
        w->MSFlexGrid1->setRow(1);
        QVERIFY(w->TontraegerAusgeschlossen()); // Abba: band
        w->MSFlexGrid1->setRow(3);
        QVERIFY(w->TontraegerAusgeschlossen()); // Blues-Rock: style
        w->MSFlexGrid1->setRow(4);
        QVERIFY(!w->TontraegerAusgeschlossen());
        w->lstAbspielausschluss->addItem("");
        QVERIFY(w->TontraegerAusgeschlossen());
    }

    void alleAusgeschlossenGibtNachSovielenZuegenWieZeilenAuf()
    {
        vierTontraeger();
        // An empty line of the list occurs in every cell.
        w->lstAbspielausschluss->addItem("Gibt es nicht");
        w->lstAbspielausschluss->addItem("");
        QCOMPARE(ziehen({0.0, 0.25, 0.5, 0.75, 0.1}), 4);
        QCOMPARE(Attrappen::dialoge().meldungsTexte(), QStringList{StilHinweis});
        const Meldung m = Attrappen::dialoge().meldungen().first();
        QCOMPARE(m.typ, 3);
        QCOMPARE(m.standard, 0);
        QCOMPARE(m.titel, QString("Bedienungshinweis"));
        // The record stays on the last one drawn.
        QCOMPARE(band(), QString("Doors"));
        QCOMPARE(w->MSFlexGrid1->Row(), 4);

        // Bands: the same with the band notice.
        Attrappen::dialoge().leeren();
        w->lstAbspielausschluss->clear();
        for (const char* b : {"Abba", "Bach", "Cream", "Doors"})
            w->lstBandAusschluss->addItem(b);
        QCOMPARE(ziehen({0.3, 0.3, 0.3, 0.3}), 4);
        QCOMPARE(Attrappen::dialoge().meldungsTexte(), QStringList{BandHinweis});
        QCOMPARE(band(), QString("Bach"));

        // Each kind counts its own rejected draws, the same Carrier again included: one
        // style and four band rejections end with the band notice, and a Carrier that
        // would pass is not waited for.
        Attrappen::dialoge().leeren();
        w->lstAbspielausschluss->addItem("Pop");
        w->lstBandAusschluss->clear();
        w->lstBandAusschluss->addItem("Bach");
        QCOMPARE(ziehen({0.0, 0.3, 0.3, 0.3, 0.3, 0.6}), 5);
        QCOMPARE(Attrappen::dialoge().meldungsTexte(), QStringList{BandHinweis});
        QCOMPARE(band(), QString("Bach"));
    }

    void langeReiheVonAblehnungen()
    {
        // Enough rows that the choice reads the columns in one go after many rejections.
        QList<Zeilenwerte> zeilen;
        for (int i = 1; i <= 300; ++i)
            zeilen << Zeilenwerte{{"Band", QStringLiteral("Band %1").arg(i, 3, 10, QChar(u'0'))},
                                  {"Stil", i == 290 ? QStringLiteral("Pop") : QStringLiteral("Rock")}};
        starten(zeilen);
        w->lstAbspielausschluss->addItem("Rock");
        QList<double> werte(279, 0.0);
        werte << 289.5 / 300;
        QCOMPARE(ziehen(werte), 280);
        QCOMPARE(band(), QString("Band 290"));
        QVERIFY(Attrappen::dialoge().aufrufe.isEmpty());
        // All but that one drawn: the notice after 300 rejections, on the last drawn row.
        werte = QList<double>(299, 0.0);
        werte << 150.5 / 300 << 0.9;
        QCOMPARE(ziehen(werte), 300);
        QCOMPARE(Attrappen::dialoge().meldungsTexte(), QStringList{StilHinweis});
        QCOMPARE(band(), QString("Band 151"));
    }

    void einzigerDatensatzBleibtStehen()
    {
        starten({Zeilenwerte{{"Band", "Abba"}, {"Stil", "Pop"}}});
        QCOMPARE(ziehen({0.7}), 1);
        QCOMPARE(position(), 0);
        QCOMPARE(w->MSFlexGrid1->Row(), 1);
        QCOMPARE(band(), QString("Abba"));
        // Excluded: the notice comes at the first rejection.
        w->lstAbspielausschluss->addItem("Pop");
        QCOMPARE(ziehen({0.2, 0.4}), 1);
        QCOMPARE(Attrappen::dialoge().meldungsTexte(), QStringList{StilHinweis});
        QCOMPARE(position(), 0);

        // An empty recordset: nothing is drawn.
        w->Data1->setRecordSource("select * from Schallplatten where Band = 'niemand'");
        w->Data1->Refresh();
        Attrappen::dialoge().leeren();
        QCOMPARE(ziehen({0.5}), 0);
        QVERIFY(Attrappen::dialoge().aufrufe.isEmpty());
    }

    void trackNieEintragNull()
    {
        starten({Zeilenwerte{{"Band", "Abba"}, {"Musikpfad", musik("Abba", 4)}},
                 Zeilenwerte{{"Band", "Bach"}, {"Musikpfad", musik("Bach", 1)}},
                 Zeilenwerte{{"Band", "Cream"}, {"Musikpfad", Testordner("zufall/musik/leer")}}});
        QCOMPARE(ziehen({0.0, 0.0}), 2);
        QCOMPARE(w->filTrack->count(), 4);
        QCOMPARE(TrackIndex, 1);
        QVERIFY(w->filTrack->Selected(1));
        QVERIFY(!w->filTrack->Selected(0));
        // The whole part of (L - 1) * r + 1 lies from 1 to L - 1, also where a single
        // would round r up to 1.
        for (double r : {0.1, 0.34, 0.5, 0.66, 0.9, 0.99999999}) {
            QCOMPARE(ziehen({0.0, r}), 2);
            QCOMPARE(TrackIndex, int(3 * r + 1) > 3 ? 3 : int(3 * r + 1));
            QVERIFY(TrackIndex >= 1 && TrackIndex <= 3);
            QVERIFY(w->filTrack->Selected(TrackIndex));
            QVERIFY(!w->filTrack->Selected(0));
        }
        // One Track: the draw lies behind it, and nothing is selected.
        QCOMPARE(ziehen({0.4, 0.5}), 2);
        QCOMPARE(band(), QString("Bach"));
        QCOMPARE(w->filTrack->count(), 1);
        QCOMPARE(TrackIndex, 1);
        QVERIFY(!w->filTrack->Selected(0));
        // No Track: no second draw, the index stays where the record put it.
        QCOMPARE(ziehen({0.9, 0.5}), 1);
        QCOMPARE(band(), QString("Cream"));
        QCOMPARE(TrackIndex, 0);
    }

    void songsProTontraeger()
    {
        Speichern("ShuffleSongProCD", "3");
        starten({Zeilenwerte{{"Band", "Abba"}, {"Musikpfad", musik("Abba", 5)}},
                 Zeilenwerte{{"Band", "Bach"}, {"Musikpfad", musik("Bach", 5)}}});
        // The start took a new Carrier: two more Tracks of it, then the next Carrier.
        QCOMPARE(w->SongZaehler, 1);
        QCOMPARE(ziehen({0.5}), 1);
        QCOMPARE(TrackIndex, 3);
        QCOMPARE(ziehen({0.5}), 1);
        QCOMPARE(band(), QString("Abba"));
        QCOMPARE(w->SongZaehler, 3);
        QCOMPARE(ziehen({0.5, 0.0}), 2);
        QCOMPARE(band(), QString("Bach"));
        QCOMPARE(w->SongZaehler, 1);
        // Played marks are not kept here: the same Track can come twice.
        QCOMPARE(ziehen({0.0}), 1);
        QCOMPARE(ziehen({0.0}), 1);
        QCOMPARE(TrackIndex, 1);

        // 0, empty or no number: every call takes a new Carrier.
        for (const char* wert : {"0", "", "keine"}) {
            Speichern("ShuffleSongProCD", wert);
            QCOMPARE(ziehen({0.0, 0.0}), 2);
            QCOMPARE(band(), QString("Abba"));
            QCOMPARE(ziehen({0.5, 0.0}), 2);
            QCOMPARE(band(), QString("Bach"));
        }
    }

    void playlistZeilenNachHakenUndMarken()
    {
        vierTontraeger();
        for (int i = 1; i <= 4; ++i) {
            auto* zeile = new QTreeWidgetItem(w->lvwPlaylist, {QStringLiteral("Song %1.mp3").arg(i)});
            zeile->setCheckState(0, i == 2 ? Qt::Unchecked : Qt::Checked);
        }
        PlaylistModus = true;
        TrackGespielt.assign(5, 0);
        const int vorher = position();

        // Candidate int(3 * r + 1); an unchecked one sends the scan from row 1.
        QCOMPARE(ziehen({0.7}), 1);
        QCOMPARE(TrackIndex, 3);
        QCOMPARE(ziehen({0.4}), 1);
        QCOMPARE(TrackIndex, 1);
        QCOMPARE(ziehen({0.0}), 1); // row 1 played: the scan skips 1 to 3
        QCOMPARE(TrackIndex, 4);
        QCOMPARE(w->lvwPlaylist->currentItem(), w->lvwPlaylist->topLevelItem(3));
        QCOMPARE(TrackGespielt, (std::vector<int>{0, 1, 0, 1, 1}));
        QCOMPARE(position(), vorher); // the record is not touched

        // All checked rows played, no repeat: the marks are cleared and the run ends.
        const int gewartet = Attrappen::uhr().gewartet;
        QCOMPARE(ziehen({0.0}), 1);
        QCOMPARE(TrackIndex, 4);
        QCOMPARE(TrackGespielt, (std::vector<int>{0, 0, 0, 0, 0}));
        QCOMPARE(Attrappen::uhr().gewartet, gewartet + 1);
        // With repeat it starts over at row 1.
        TrackGespielt.assign(5, 1);
        w->chkRepeat->setChecked(true);
        QCOMPARE(ziehen({0.9}), 1);
        QCOMPARE(TrackIndex, 1);
        QCOMPARE(w->lvwPlaylist->currentItem(), w->lvwPlaylist->topLevelItem(0));
        // Marks shorter than the list (not yet made anew) are no reason to fail.
        TrackGespielt.clear();
        QCOMPARE(ziehen({0.9}), 1);
        QCOMPARE(TrackIndex, 1);
    }
};

RK_TEST_MAIN(TestZufall)
#include "tst_zufall.moc"
