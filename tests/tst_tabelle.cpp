// The table: sorting by a head, the letter buttons jumping and filtering, column widths,
// select all, and the Track list that follows the record.
#include "support/Fenster.h"
#include "support/Katalog.h"
#include "support/Testumgebung.h"

#include "catalogue/Datensteuerung.h"
#include "catalogue/FlexGrid.h"
#include "catalogue/Recordset.h"
#include "catalogue/Tabellenansicht.h"
#include "shell/Ausgabebox.h"
#include "shell/Einstellungen.h"
#include "shell/Globale.h"
#include "shell/Steuerelemente.h"

#include <QAction>
#include <QCheckBox>
#include <QHeaderView>
#include <QLabel>
#include <QPushButton>
#include <QTimer>

#include <memory>

class TestTabelle : public QObject {
    Q_OBJECT

    std::unique_ptr<Ausgabebox> w;

    void starten(const QList<Zeilenwerte>& zeilen)
    {
        FensterStarten(w, {.zeilen = zeilen, .zeigen = true});
    }

    QStringList spalte(const QString& kopf) const
    {
        QStringList werte;
        const int c = w->MSFlexGrid1->SpalteSuchen(kopf);
        for (int r = 1; r < w->MSFlexGrid1->Rows(); ++r)
            werte << w->MSFlexGrid1->TextMatrix(r, c);
        return werte;
    }

    void kopfKlicken(const QString& kopf)
    {
        QHeaderView* k = w->MSFlexGrid1->horizontalHeader();
        const int c = w->MSFlexGrid1->SpalteSuchen(kopf);
        const QPoint mitte(k->sectionViewportPosition(c) + k->sectionSize(c) / 2, k->height() / 2);
        QTest::mouseClick(k->viewport(), Qt::LeftButton, Qt::NoModifier, mitte);
    }

private slots:
    void cleanup() { w.reset(); }

    void kopfSortiertAufUndAb()
    {
        starten({Zeilenwerte{{"Band", "Bach"}, {"Stil", "Klassik"}}, Zeilenwerte{{"Band", "Abba"}, {"Stil", "Pop"}},
                 Zeilenwerte{{"Band", "Cream"}, {"Stil", "Blues"}}});
        QCOMPARE(spalte("Band"), (QStringList{"Abba", "Bach", "Cream"}));
        kopfKlicken("Band");
        QCOMPARE(w->Data1->RecordSource(), QString("select * from Schallplatten order by Band ASC"));
        kopfKlicken("Band");
        QCOMPARE(spalte("Band"), (QStringList{"Cream", "Bach", "Abba"}));
        // Another head follows the flag alone: up again.
        kopfKlicken("Stil");
        QCOMPARE(spalte("Stil"), (QStringList{"Blues", "Klassik", "Pop"}));
        kopfKlicken("Stil");
        QCOMPARE(spalte("Stil"), (QStringList{"Pop", "Klassik", "Blues"}));
        // Not saved: the next start shows what was saved last.
        QCOMPARE(Lesen("Data1RecordSource", "nie gespeichert"), QString("nie gespeichert"));
    }

    void buchstabenFilternMitDeutschenBegleitern()
    {
        starten(Baender({"Abba", "Ärzte", "Zappa", "Ölkanne", "Oasis", "Sade"}));
        QCOMPARE(Tabellenansicht::BuchstabenFilter(0, "Band"),
                 QString("select * from Schallplatten where Band like 'a*' or Band like 'ä*' order by Band, LPTitel"));
        QCOMPARE(Tabellenansicht::BuchstabenFilter(18, "Stil"),
                 QString("select * from Schallplatten where Stil like 's*' or Stil like 'ß*' order by Band, LPTitel"));
        QCOMPARE(Tabellenansicht::BuchstabenFilter(1, "Band"),
                 QString("select * from Schallplatten where Band like 'b*' order by Band, LPTitel"));
        QCOMPARE(Tabellenansicht::BuchstabenFilter(28, "Band"),
                 QString("select * from Schallplatten where Bewertung like '3' order by Band, LPTitel"));
        w->chkTabelle->click();
        QCOMPARE(Lesen("TopRow"), QString("1"));
        w->ButtonAlpabeth[0]->click();
        QCOMPARE(spalte("Band"), (QStringList{"Abba", "Ärzte"}));
        QCOMPARE(w->MSFlexGrid1->Row(), 0);
        QCOMPARE(w->lblTabellenName->text(), QString("alle"));
        w->ButtonAlpabeth[14]->click();
        QCOMPARE(spalte("Band"), (QStringList{"Oasis", "Ölkanne"}));
        // Clearing the box brings the whole table back, also when code clears it.
        w->chkTabelle->setChecked(false);
        QCOMPARE(Lesen("TopRow"), QString("0"));
        QCOMPARE(w->MSFlexGrid1->Rows(), 7);
    }

    void bewertungFiltertImmerUndSetztDenHaken()
    {
        starten({Zeilenwerte{{"Band", "Abba"}, {"Bewertung", "5"}}, Zeilenwerte{{"Band", "Bach"}, {"Bewertung", "3"}},
                 Zeilenwerte{{"Band", "Cream"}, {"Bewertung", "5"}}});
        QVERIFY(!w->chkTabelle->isChecked());
        Speichern("TopRow", "?");
        w->ButtonAlpabeth[30]->click(); // five stars
        QVERIFY(w->chkTabelle->isChecked());
        QCOMPARE(Lesen("TopRow"), QString("1"));
        QCOMPARE(spalte("Band"), (QStringList{"Abba", "Cream"}));
        w->ButtonAlpabeth[28]->click(); // three stars
        QVERIFY(w->chkTabelle->isChecked());
        QCOMPARE(spalte("Band"), QStringList{"Bach"});
    }

    void buchstabenSpringenOhneZuFiltern()
    {
        QList<Zeilenwerte> zeilen;
        for (int i = 0; i < 60; ++i)
            zeilen << Zeilenwerte{{"Band", QStringLiteral("A-Band %1").arg(i, 2, 10, QChar('0'))}};
        for (int i = 0; i < 60; ++i)
            zeilen << Zeilenwerte{{"Band", QStringLiteral("M-Band %1").arg(i, 2, 10, QChar('0'))}};
        // A first letter whose upper case is the letter counts, as the table shows it.
        zeilen << Zeilenwerte{{"Band", "Zappa"}} << Zeilenwerte{{"Band", "ıstanbul Express"}};
        starten(zeilen);
        FlexGrid* g = w->MSFlexGrid1;
        const int vorher = g->Row();
        w->ButtonAlpabeth[12]->click(); // M
        QCOMPARE(g->TopRow(), 62);
        QCOMPARE(g->Row(), vorher);
        QCOMPARE(g->Rows(), 123);
        w->ButtonAlpabeth[8]->click(); // I
        QCOMPARE(g->TopRow(), 61);
        QCOMPARE(g->TextMatrix(61, 0), QString("ıstanbul Express"));
        w->ButtonAlpabeth[12]->click();
        // No entry for the letter: nothing moves.
        w->ButtonAlpabeth[16]->click();
        QCOMPARE(g->TopRow(), 62);
        // The first entry in the last row: no scroll to it.
        w->ButtonAlpabeth[25]->click();
        QCOMPARE(g->TopRow(), 62);
        // The chosen column counts.
        w->mnuSpalte[0]->setChecked(false);
        w->mnuSpalte[1]->setChecked(true); // LPTitel: all blank
        w->ButtonAlpabeth[0]->click();
        QCOMPARE(g->TopRow(), 62);
    }

    void breitenAllesMarkierenUndOptimieren()
    {
        starten(Baender({"Abba", "Eine Band mit einem sehr, sehr langen Namen, der nicht in die Spalte passt"}));
        FlexGrid* g = w->MSFlexGrid1;
        Speichern("TabelleAnordnenCaption2", "Medium0");
        w->tabellenansicht().TabelleEinrichten();
        QCOMPARE(g->ColWidth(2), 0);
        w->mnuAllesMarkieren->trigger();
        QCOMPARE(g->Row(), 1);
        QCOMPARE(g->Col(), 0);
        QCOMPARE(g->RowSel(), 2);
        QCOMPARE(g->ColSel(), g->Cols() - 2); // the one hidden column is left out
        w->mnuTabelleAutosize->trigger();
        QVERIFY(g->ColWidth(0) > 3000);
        QVERIFY(g->ColWidth(0) <= 10000);
        QCOMPARE(g->ColWidth(2), 0); // hidden stays hidden
        QCOMPARE(Lesen("0Spaltenbreite"), QString::number(g->ColWidth(0)));
        QVERIFY(!AutosizeLaeuft);
        // The tip shows a text wider than its column.
        g->setColWidth(0, 500);
        QTest::mouseMove(g->viewport(), g->visualRect(g->model()->index(1, 0)).center());
        QCOMPARE(g->toolTip(), QString("Eine Band mit einem sehr, sehr langen Namen, der nicht in die Spalte passt"));
        g->setColWidth(0, 9000);
        QTest::mouseMove(g->viewport(), g->visualRect(g->model()->index(0, 0)).center());
        QCOMPARE(g->toolTip(), QString());
    }

    // Esc stops the walk over every cell; the widths stay as they were.
    void optimierenMitEscAbbrechen()
    {
        QList<Zeilenwerte> zeilen;
        for (int i = 0; i < 2500; ++i)
            zeilen << Zeilenwerte{{"Band", QStringLiteral("Eine Band mit dem langen Namen Nummer %1").arg(i)}};
        starten(zeilen);
        FlexGrid* g = w->MSFlexGrid1;
        g->setColWidth(0, 700);
        // Pressed where the focus happens to be, while the walk lets events run.
        QTimer::singleShot(0, this, [this] { QTest::keyClick(w->TextInfo, Qt::Key_Escape); });
        w->mnuTabelleAutosize->trigger();
        QCOMPARE(g->ColWidth(0), 700);
        QVERIFY(!Abbruch && !AutosizeLaeuft);
        w->mnuTabelleAutosize->trigger();
        QVERIFY(g->ColWidth(0) > 3000);
    }

    void trackListeFolgtDemMusikordner()
    {
        const QString musik = Testordner("musik/Abba");
        for (const char* datei : {"b - 2.mp3", "A - 5.ogg", "c.flac"})
            DateiSchreiben(musik + datei, "x");
        const QString leer = Testordner("musik/Leer");
        starten({Zeilenwerte{{"Band", "Abba"}, {"Musikpfad", musik}}, Zeilenwerte{{"Band", "Bach"}, {"Musikpfad", "x"}},
                 Zeilenwerte{{"Band", "Cream"}, {"Musikpfad", leer}}});
        QCOMPARE(w->filTrack->Path(), musik);
        QVERIFY(w->filTrack->isEnabled());
        QCOMPARE(w->filTrack->count(), 3);
        QCOMPARE(w->filTrack->List(0), QString("A - 5.ogg"));
        // The start has drawn a Track (the random double gives 0: the first after entry 0).
        QCOMPARE(TrackIndex, 1);
        QVERIFY(w->filTrack->Selected(1) && !w->filTrack->Selected(0));
        QCOMPARE(w->Bez[12]->text(), QString("Tracks && Movies 3"));
        QCOMPARE(TrackGespielt, (std::vector<int>{0, 0, 0}));
        w->MSFlexGrid1->setRow(2); // one character: the empty folder
        QCOMPARE(w->filTrack->Path(), Testumgebung::programmOrdner() + "Leer");
        QVERIFY(!w->filTrack->isEnabled());
        QCOMPARE(w->Bez[12]->text(), QString("Tracks && Movies "));
        w->MSFlexGrid1->setRow(3); // a folder without files
        QVERIFY(!w->filTrack->isEnabled());
        QCOMPARE(w->filTrack->count(), 0);
        TrackIndex = 2;
        w->MSFlexGrid1->setRow(1);
        QCOMPARE(TrackIndex, 0);
        QVERIFY(w->filTrack->Selected(0));
    }

    void escSetztAbbruch()
    {
        starten(Baender({"Abba"}));
        Abbruch = false;
        QTest::keyClick(w->MSFlexGrid1, Qt::Key_Escape);
        QVERIFY(Abbruch);
        Abbruch = false;
        w->MSFlexGrid1->setFocus();
        QCOMPARE(w->AktivesFeld, QString("MSFlexGrid1"));
    }
};

RK_TEST_MAIN(TestTabelle)
#include "tst_tabelle.moc"
