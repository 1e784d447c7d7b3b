// The exclusion lists of styles and bands (their files, the two windows, the lists in
// force) and the random choice of a Carrier and a Track that passes over them.
#include "support/Fenster.h"
#include "support/Katalog.h"
#include "support/Modal.h"
#include "support/Testumgebung.h"

#include "catalogue/Datensteuerung.h"
#include "catalogue/FlexGrid.h"
#include "catalogue/Recordset.h"
#include "catalogue/Tabellenansicht.h"
#include "collections/Abspielausschluss.h"
#include "collections/Ausschlusslisten.h"
#include "collections/frmBandAusschlussliste.h"
#include "collections/frmStilausschlussliste.h"
#include "platform/Pfade.h"
#include "playback/Zufallswahl.h"
#include "shell/Ausgabebox.h"
#include "shell/Einstellungen.h"
#include "shell/Globale.h"
#include "shell/Steuerelemente.h"

#include <QAction>
#include <QCheckBox>
#include <QDialog>
#include <QDir>
#include <QFile>
#include <QListWidget>
#include <QPushButton>
#include <QTimer>
#include <QTreeWidget>

#include <memory>

namespace {

const QString ZweiterSatz =
    QStringLiteral("\nEntfernen Sie dort das Häkchen, damit Sie diese Stilrichtung verwenden können.");
const QString StilHinweis =
    "Diese Stilrichtung wurde im Menüpunkt 'Optionen/Stilrichtung ausschließen...' ausgeschlossen." + ZweiterSatz;
const QString BandHinweis = "Diese Band wurde im Menüpunkt 'Optionen/Band ausschließen...' ausgeschlossen." + ZweiterSatz;

QStringList eintraege(const QListWidget* liste, bool nurAngehakt = false)
{
    QStringList texte;
    for (int i = 0; i < liste->count(); ++i)
        if (!nurAngehakt || liste->item(i)->checkState() == Qt::Checked)
            texte << liste->item(i)->text();
    return texte;
}

void haken(QListWidget* liste, const QString& text, bool an = true)
{
    const QList<QListWidgetItem*> treffer = liste->findItems(text, Qt::MatchExactly);
    QVERIFY2(!treffer.isEmpty(), qPrintable(text));
    treffer.first()->setCheckState(an ? Qt::Checked : Qt::Unchecked);
}

QString pg(const QString& name) { return Testumgebung::programmOrdner() + name; }

} // namespace

class TestAusschluss : public QObject {
    Q_OBJECT

    std::unique_ptr<Ausgabebox> w;
    QString ordner; // DatenbankOrdner

    void starten(const QList<Zeilenwerte>& zeilen)
    {
        ordner = OrdnerAusPfad(FensterStarten(w, {.zeilen = zeilen, .zuruecksetzen = false, .zeigen = true}));
        Attrappen::dialoge().leeren();
    }

    // Abba/Pop, Bach/Klassik, Cream/Blues-Rock, Doors/rock, in this order.
    void vierTontraeger()
    {
        starten({Zeilenwerte{{"Band", "Abba"}, {"Stil", "Pop"}}, Zeilenwerte{{"Band", "Bach"}, {"Stil", "Klassik"}},
                 Zeilenwerte{{"Band", "Cream"}, {"Stil", "Blues-Rock"}}, Zeilenwerte{{"Band", "Doors"}, {"Stil", "rock"}}});
    }

    // One random choice with these numbers; returns how many it drew.
    int ziehen(const QList<double>& werte)
    {
        auto& zufall = Attrappen::zufall();
        zufall.werte.clear();
        for (double r : werte)
            zufall.werte.enqueue(r);
        zufall.werte.enqueue(-1); // what is left shows how many were drawn
        w->zufallswahl().TontraegerZufaellig();
        return int(werte.size()) + 1 - int(zufall.werte.size());
    }

    QString band() const { return w->TextBand->text(); }
    int position() const { return w->Data1->recordset()->AbsolutePosition(); }

private slots:
    void init()
    {
        Testumgebung::zuruecksetzen();
        Attrappen::dialoge().leeren();
        Attrappen::zufall().werte.clear();
        ProgrammOrdner = Testumgebung::programmOrdner();
        QDir().mkpath(ProgrammOrdner);
        PlaylistModus = false;
    }
    void cleanup()
    {
        w.reset();
        PlaylistModus = false;
        TrackGespielt.clear();
    }

    void dateienUndListenInKraft()
    {
        // Written as UTF-8 with LF, entries unchanged; nothing to keep is an empty file.
        const QString datei = pg("AusschlussAbspielliste.ini");
        QVERIFY(AusschlussListeSpeichern(datei, {"Kölsch", "", " Punk "}));
        QCOMPARE(DateiLesen(datei), QByteArray("K\xc3\xb6lsch\n\n Punk \n"));
        QVERIFY(AusschlussListeSpeichern(pg("leer.ini"), {}) && QFile::exists(pg("leer.ini")));

        // A file from Windows: single bytes, CR LF. The generator's file does not count.
        DateiSchreiben(datei, "K\xf6lsch\r\n\r\n");
        DateiSchreiben(pg("BandAusschlussAbspielliste.ini"), "Heino\n");
        DateiSchreiben(pg("Ausschlussliste.ini"), "Jazz\n");
        starten(Baender({"Abba"}));
        QCOMPARE(eintraege(w->lstAbspielausschluss), (QStringList{"Kölsch", ""}));
        QCOMPARE(eintraege(w->lstBandAusschluss), QStringList{"Heino"});
        // A deleted file leaves the list in force; an empty one empties it.
        QFile::remove(datei);
        w->abspielausschluss().AbspielausschlusslisteLaden();
        QCOMPARE(w->lstAbspielausschluss->count(), 2);
        DateiSchreiben(datei, "");
        w->abspielausschluss().AbspielausschlusslisteLaden();
        QCOMPARE(w->lstAbspielausschluss->count(), 0);
    }

    void stilfenster()
    {
        starten(Baender({"Abba"}));
        DateiSchreiben(ordner + "Stilrichtung.ini", "Rock\r\n\r\nJazz\r\nK\xf6lsch\r\nPop\r\n");
        DateiSchreiben(pg("AusschlussAbspielliste.ini"), "Pop\nRock\nGibt es nicht\n");
        Speichern("Ausschlussliste", "CD-Erstellen");
        ModalBedienen([](QDialog* d) {
            // The menu has chosen the list of random play.
            QCOMPARE(Lesen("Ausschlussliste"), QString("Abspielen"));
            auto* liste = d->findChild<QListWidget*>("lstStilrichtung");
            QCOMPARE(eintraege(liste), (QStringList{"Rock", "", "Jazz", "Kölsch", "Pop"}));
            QCOMPARE(eintraege(liste, true), (QStringList{"Rock", "Pop"}));
            haken(liste, "Kölsch");
            haken(liste, "Rock", false);
            QVERIFY(Klicken(d, "cmdOK"));
        });
        w->mnuStilrichtungAusschliessen->trigger();
        QVERIFY(ModalBedient());
        // In list order; the line without a style is gone. The list in force follows.
        QCOMPARE(DateiLesen(pg("AusschlussAbspielliste.ini")), QByteArray("K\xc3\xb6lsch\nPop\n"));
        QCOMPARE(eintraege(w->lstAbspielausschluss), (QStringList{"Kölsch", "Pop"}));

        // The generator's list; and any other use shows no marks and writes nothing.
        for (const char* verwendung : {"CD-Erstellen", "anders"}) {
            Speichern("Ausschlussliste", verwendung);
            frmStilausschlussliste f;
            f.Form_Load();
            QCOMPARE(eintraege(f.lstStilrichtung, true), QStringList());
            haken(f.lstStilrichtung, "");
            f.cmdOK->click();
        }
        QCOMPARE(DateiLesen(pg("Ausschlussliste.ini")), QByteArray("\n"));
        QCOMPARE(DateiLesen(pg("AusschlussAbspielliste.ini")), QByteArray("K\xc3\xb6lsch\nPop\n"));

        // A half-converted file: its one Windows line spoils none of the UTF-8 lines, so
        // the marks are read and kept.
        Speichern("Ausschlussliste", "Abspielen");
        DateiSchreiben(pg("AusschlussAbspielliste.ini"), "K\xc3\xb6lsch\r\nRock \x96 alt\r\n");
        {
            frmStilausschlussliste f;
            f.Form_Load();
            QCOMPARE(eintraege(f.lstStilrichtung, true), QStringList{"Kölsch"});
            // The legend's box cannot be cleared, by a click or by code.
            f.Check1->click();
            QVERIFY(f.Check1->isChecked());
            f.Check1->setChecked(false);
            QVERIFY(f.Check1->isChecked());
            f.cmdOK->click();
        }
        QCOMPARE(DateiLesen(pg("AusschlussAbspielliste.ini")), QByteArray("K\xc3\xb6lsch\n"));

        // A file that cannot be written: the error, and the window stays with its marks.
        QFile::remove(pg("AusschlussAbspielliste.ini"));
        QDir().mkpath(pg("AusschlussAbspielliste.ini"));
        frmStilausschlussliste f;
        f.Form_Load();
        haken(f.lstStilrichtung, "Jazz");
        f.cmdOK->click();
        QVERIFY(Attrappen::dialoge().meldungsTexte().value(0).startsWith("75 "));
        QCOMPARE(f.result(), 0);
        QCOMPARE(eintraege(f.lstStilrichtung, true), QStringList{"Jazz"});
    }

    void bandfensterNimmtDieTabelle()
    {
        DateiSchreiben(pg("BandAusschlussAbspielliste.ini"), "Abba\nCream\n");
        starten({Zeilenwerte{{"Band", "Abba"}, {"LPTitel", "3"}}, Zeilenwerte{{"Band", "Abba"}, {"LPTitel", "1"}},
                 Zeilenwerte{{"Band", "AC/DC"}, {"LPTitel", "2"}}, Zeilenwerte{{"Band", "Band"}, {"LPTitel", "4"}},
                 Zeilenwerte{{"Band", "Cream"}, {"LPTitel", "5"}}});
        Speichern("BandAusschlussliste", "Abspielen");
        // Each band once in table order; another order repeats a band at each change.
        const QStringList erwartet[] = {{"Abba", "AC/DC", "Band", "Cream"}, {"Abba", "AC/DC", "Abba", "Band", "Cream"}};
        for (const QStringList& baender : erwartet) {
            frmBandAusschlussliste f(*w);
            f.Form_Load();
            QCOMPARE(eintraege(f.lstBandliste), baender);
            w->Data1->setRecordSource("select * from Schallplatten order by LPTitel");
            w->Data1->Refresh();
        }

        // Saved on a filtered table: the bands the filter hides fall out of the list.
        w->Data1->setRecordSource(Tabellenansicht::BuchstabenFilter(0, "Band"));
        w->Data1->Refresh();
        ModalBedienen([](QDialog* d) {
            auto* liste = d->findChild<QListWidget*>("lstBandliste");
            QCOMPARE(eintraege(liste), (QStringList{"Abba", "AC/DC"}));
            QCOMPARE(eintraege(liste, true), QStringList{"Abba"});
            QVERIFY(Klicken(d, "cmdOK"));
        });
        w->mnuBandAusschliessen->trigger();
        QVERIFY(ModalBedient());
        QCOMPARE(DateiLesen(pg("BandAusschlussAbspielliste.ini")), QByteArray("Abba\n"));
        QCOMPARE(eintraege(w->lstBandAusschluss), QStringList{"Abba"});
        // Exit changes nothing.
        ModalBedienen([](QDialog* d) {
            haken(d->findChild<QListWidget*>("lstBandliste"), "AC/DC");
            QVERIFY(Klicken(d, "cmdExit"));
        });
        w->mnuBandAusschliessen->trigger();
        QCOMPARE(eintraege(w->lstBandAusschluss), QStringList{"Abba"});

        // Esc during the walk over a large table: the window stays closed, nothing is lost.
        QList<Zeilenwerte> viele;
        for (int i = 0; i < 2500; ++i)
            viele << Zeilenwerte{{"Band", QStringLiteral("Band %1").arg(i)}};
        starten(viele);
        Speichern("BandAusschlussliste", "Abspielen");
        QTimer::singleShot(0, this, [this] { QTest::keyClick(w->MSFlexGrid1, Qt::Key_Escape); });
        // A window that opened all the same is closed again, so that the test cannot hang.
        auto geoeffnet = std::make_shared<bool>(false);
        QTimer::singleShot(100, this, [geoeffnet] {
            if (auto* d = qobject_cast<QDialog*>(QApplication::activeModalWidget())) {
                *geoeffnet = true;
                d->reject();
            }
        });
        w->mnuBandAusschliessen->trigger();
        QVERIFY(!*geoeffnet);
        QVERIFY(!Abbruch);
        QCOMPARE(DateiLesen(pg("BandAusschlussAbspielliste.ini")), QByteArray("Abba\n"));
    }

    void zufallUebergehtAusgeschlossene()
    {
        vierTontraeger();
        // Rows 1 to 4: the whole part of RecordCount * r + 1.
        QCOMPARE(ziehen({0.5}), 1);
        QCOMPARE(w->MSFlexGrid1->Row(), 3);
        QCOMPARE(position(), 2);
        QCOMPARE(ziehen({0.9999999}), 1);
        QCOMPARE(band(), QString("Doors"));
        // Containment in exact case: "Blues-Rock" is excluded, "rock" is not; a part of a
        // band's name excludes it as well.
        w->lstAbspielausschluss->addItem("Rock");
        w->lstBandAusschluss->addItem("bb");
        QCOMPARE(ziehen({0.5, 0.0, 0.25}), 3);
        QCOMPARE(band(), QString("Bach"));
        QVERIFY(Attrappen::dialoge().aufrufe.isEmpty());
        // The dice does the same.
        Attrappen::zufall().werte = QQueue<double>({0.75});
        QTest::mouseClick(w->imgLiedzufall, Qt::LeftButton);
        QCOMPARE(band(), QString("Doors"));

        // The sequencer's test looks at the current row, wherever the columns stand.
        Speichern("TabelleAnordnenCaption0", "Stil1");
        Speichern("TabelleAnordnenCaption3", "Band1");
        w->tabellenansicht().TabelleEinrichten();
        for (int zeile = 1; zeile <= 4; ++zeile) {
            w->MSFlexGrid1->setRow(zeile);
            QCOMPARE(w->zufallswahl().TontraegerAusgeschlossen(), zeile == 1 || zeile == 3);
        }
        // An empty entry occurs in every cell.
        w->lstAbspielausschluss->addItem("");
        QVERIFY(w->zufallswahl().TontraegerAusgeschlossen());
    }

    void alleAusgeschlossenGibtAuf()
    {
        vierTontraeger();
        w->lstAbspielausschluss->addItem("");
        QCOMPARE(ziehen({0.0, 0.25, 0.5, 0.75, 0.1}), 4);
        QCOMPARE(Attrappen::dialoge().meldungsTexte(), QStringList{StilHinweis});
        QCOMPARE(band(), QString("Doors")); // the last one drawn

        // Each kind counts its own rejected draws, the same Carrier again included, and
        // a Carrier that would pass is not waited for.
        Attrappen::dialoge().leeren();
        w->lstAbspielausschluss->clear();
        w->lstAbspielausschluss->addItem("Pop");
        w->lstBandAusschluss->addItem("Bach");
        QCOMPARE(ziehen({0.0, 0.3, 0.3, 0.3, 0.3, 0.6}), 5);
        QCOMPARE(Attrappen::dialoge().meldungsTexte(), QStringList{BandHinweis});
        QCOMPARE(band(), QString("Bach"));

        // Many rows: after many rejections the catalogue names the rows that can be
        // excluded; same answers.
        QList<Zeilenwerte> zeilen;
        for (int i = 1; i <= 300; ++i)
            zeilen << Zeilenwerte{{"Band", QStringLiteral("Band %1").arg(i, 3, 10, QChar(u'0'))},
                                  {"Stil", i == 290 ? QStringLiteral("Pop") : QStringLiteral("Rock")}};
        starten(zeilen);
        w->lstAbspielausschluss->addItem("Rock");
        QList<double> werte(279, 0.0);
        QCOMPARE(ziehen(werte << 289.5 / 300), 280);
        QCOMPARE(band(), QString("Band 290"));
        werte = QList<double>(299, 0.0);
        QCOMPARE(ziehen(werte << 150.5 / 300 << 0.9), 300);
        QCOMPARE(Attrappen::dialoge().meldungsTexte(), QStringList{StilHinweis});
        QCOMPARE(band(), QString("Band 151"));
    }

    void einzigerDatensatzBleibtStehen()
    {
        starten({Zeilenwerte{{"Band", "Abba"}, {"Stil", "Pop"}}});
        QCOMPARE(ziehen({0.7}), 1);
        QCOMPARE(position(), 0);
        // Excluded: the notice at the first rejection.
        w->lstAbspielausschluss->addItem("Pop");
        QCOMPARE(ziehen({0.2, 0.4}), 1);
        QCOMPARE(Attrappen::dialoge().meldungsTexte(), QStringList{StilHinweis});
        QCOMPARE(position(), 0);
        // An empty recordset: nothing is drawn.
        w->Data1->setRecordSource("select * from Schallplatten where Band = 'niemand'");
        w->Data1->Refresh();
        QCOMPARE(ziehen({0.5}), 0);
    }

    void trackNieEintragNull()
    {
        const QString abba = Testordner("ausschluss/musik/Abba");
        for (int i = 0; i < 4; ++i)
            DateiSchreiben(abba + QStringLiteral("Track %1.mp3").arg(i), "x");
        Speichern("ShuffleSongProCD", "3");
        starten({Zeilenwerte{{"Band", "Abba"}, {"Musikpfad", abba}},
                 Zeilenwerte{{"Band", "Cream"}, {"Musikpfad", Testordner("ausschluss/musik/leer")}}});
        // More Tracks of the Carrier: the whole part of (L - 1) * r + 1, from 1 to L - 1,
        // also where a single would round r up to 1.
        for (const auto& [r, track] : {std::pair{0.0, 1}, {0.99999999, 3}}) {
            QCOMPARE(ziehen({r}), 1);
            QCOMPARE(band(), QString("Abba"));
            QCOMPARE(TrackIndex, track);
            QVERIFY(w->filTrack->Selected(track) && !w->filTrack->Selected(0));
        }
        // 0 songs per Carrier: each call a new Carrier. No Track: no second draw.
        Speichern("ShuffleSongProCD", "0");
        QCOMPARE(ziehen({0.9, 0.5}), 1);
        QCOMPARE(band(), QString("Cream"));
        QCOMPARE(TrackIndex, 0);
        QCOMPARE(ziehen({0.0, 0.5}), 2);
        QCOMPARE(band(), QString("Abba"));
        QCOMPARE(TrackIndex, 2);
    }

    void playlistZeilenNachHakenUndMarken()
    {
        vierTontraeger();
        for (int i = 1; i <= 4; ++i)
            (new QTreeWidgetItem(w->lvwPlaylist, {QString::number(i)}))
                ->setCheckState(0, i == 2 ? Qt::Unchecked : Qt::Checked);
        PlaylistModus = true;
        TrackGespielt.assign(5, 0);
        // Candidate int(3 * r + 1); an unchecked or played one sends the scan from row 1.
        for (const auto& [r, track] : {std::pair{0.7, 3}, {0.4, 1}, {0.0, 4}}) {
            QCOMPARE(ziehen({r}), 1);
            QCOMPARE(TrackIndex, track);
        }
        QCOMPARE(w->lvwPlaylist->currentItem(), w->lvwPlaylist->topLevelItem(3));
        QCOMPARE(band(), QString("Abba")); // the record is not touched
        // All played, no repeat: marks cleared, a wait, the run ends.
        const int gewartet = Attrappen::uhr().gewartet;
        QCOMPARE(ziehen({0.0}), 1);
        QCOMPARE(TrackGespielt, (std::vector<int>{0, 0, 0, 0, 0}));
        QCOMPARE(Attrappen::uhr().gewartet, gewartet + 1);
        // With repeat it starts over at row 1, also with marks not made anew.
        w->chkRepeat->setChecked(true);
        TrackGespielt.clear();
        QCOMPARE(ziehen({0.9}), 1);
        QCOMPARE(TrackIndex, 1);
    }
};

RK_TEST_MAIN(TestAusschluss)
#include "tst_ausschluss.moc"
