// The printed table: fitting a cell to its column, the column fields from the grid's
// widths, the shortening as the table shows it, and a marked range printed to PDF.
#include "support/Attrappen.h"
#include "support/Druckattrappe.h"
#include "support/Fenster.h"
#include "support/Katalog.h"
#include "support/Testumgebung.h"

#include "catalogue/FlexGrid.h"
#include "outputs/Tabellendruck.h"
#include "shell/Ausgabebox.h"
#include "shell/Steuerelemente.h"

#include <QAction>

#include <memory>

namespace {

// One unit a character: the rules read plainly.
double zeichen(const QString& t) { return double(t.size()); }

} // namespace

class TestTabellendruck : public QObject {
    Q_OBJECT

private slots:
    void einpassen_data()
    {
        QTest::addColumn<QString>("text");
        QTest::addColumn<QString>("feld");
        QTest::addColumn<QString>("ergebnis");
        QTest::newRow("passt") << "abc" << "5" << "abc";
        QTest::newRow("zu lang") << "abcdef" << "5" << "abcde";
        QTest::newRow("Blanks hinten") << "ab   " << "5" << "ab";
        QTest::newRow("mittig") << "ab" << "^6" << "  ab  ";
        QTest::newRow("mittig ungerade") << "ab" << "^5" << "  ab  ";
        QTest::newRow("rechts") << "ab" << ">5" << "  ab ";
        QTest::newRow("rechts zu lang") << "abcdef" << ">5" << "abcd ";
        QTest::newRow("leer") << "" << "^2" << "  ";
    }
    void einpassen()
    {
        QFETCH(QString, text);
        QFETCH(QString, feld);
        QTEST(Tabellendruck::Einpassen(text, feld, zeichen), "ergebnis");
    }

    void spaltenUndKuerzen()
    {
        QCOMPARE(Tabellendruck::Feldbreite(">30"), 30);
        QCOMPARE(Tabellendruck::Feldbreite("20"), 20);
        QCOMPARE(Tabellendruck::Spaltenangabe({1000, 3000}, {1, 7}, 200), QString("50|>150"));
        QCOMPARE(Tabellendruck::Spaltenangabe({0, 2000, 2000}, {4, 1, 1}, 100), QString("^0|50|50"));
        auto breite = [](const QString& t) { return int(t.size()); };
        QCOMPARE(Tabellendruck::Gekuerzt("abcde", 5, breite), QString("abcde")); // fits exactly
        QCOMPARE(Tabellendruck::Gekuerzt("abcdefgh", 5, breite), QString("ab..."));
        QCOMPARE(Tabellendruck::Gekuerzt("a|b", 5, breite), QString("ab"));
        QCOMPARE(Tabellendruck::Gekuerzt("sehr lang", 0, breite), QString("sehr lang")); // zero width: skipped
    }

    // The marked rectangle to PDF: the heading, the head row and the rows in their columns.
    void alsPdf()
    {
        std::unique_ptr<Ausgabebox> w;
        FensterStarten(w, {.zeilen = {{{"Band", "Abba"}, {"LPTitel", "Gold|Best"}, {"Medium", "CD"}},
                                      {{"Band", "Bach"}, {"LPTitel", "Messe"}, {"Medium", "LP"}},
                                      {{"Band", "Cash"}, {"LPTitel", "Live"}, {"Medium", "MC"}}}});
        Attrappen::leeren();
        auto pdf = std::make_unique<PdfDruck>();
        PdfDruck* druck = pdf.get();
        druck->datei = Testordner("tabelle") + "tabelle.pdf";
        setzeDruckdialog(std::move(pdf));
        FlexGrid* g = w->MSFlexGrid1;
        g->setRow(1);
        g->setCol(g->SpalteSuchen("Band"));
        g->setRowSel(2);
        g->setColSel(g->SpalteSuchen("LPTitel"));
        w->mnuTabelleDrucken->trigger();
        QCOMPARE(druck->vorgabe, QPageLayout::Landscape);
        QVERIFY(Attrappen::dialoge().meldungsTexte().value(0).startsWith(
            "Der markierte Tabellenbereich wurde an den Drucker '"));
        const QStringList zeilen = PdfText(druck->datei).split(u'\n', Qt::SkipEmptyParts);
        QVERIFY2(zeilen.size() >= 4, qPrintable(zeilen.join("\n")));
        QVERIFY(zeilen[0].contains("Rillenkammer"));
        QVERIFY(zeilen[1].contains("Band") && zeilen[1].contains("LPTitel"));
        QVERIFY(zeilen[2].contains("Abba") && zeilen[2].contains("GoldBest"));
        QVERIFY(zeilen[3].contains("Bach") && zeilen[3].contains("Messe"));
        QVERIFY(!PdfText(druck->datei).contains("Cash") && !PdfText(druck->datei).contains("CD"));
        // The titles stand in one column, right of the bands.
        QCOMPARE(zeilen[2].indexOf("GoldBest"), zeilen[3].indexOf("Messe"));
        QVERIFY(zeilen[2].indexOf("GoldBest") > zeilen[2].indexOf("Abba") + 4);
        // A range longer than a sheet goes on on the next.
        QList<Zeilenwerte> viele;
        for (int i = 0; i < 90; ++i)
            viele << Zeilenwerte{{"Band", QStringLiteral("Band %1").arg(i, 2, 10, QChar(u'0'))}};
        FensterStarten(w, {.zeilen = viele});
        w->MSFlexGrid1->setRow(1);
        w->MSFlexGrid1->setRowSel(90);
        w->mnuTabelleDrucken->trigger();
        const QString lang = PdfText(druck->datei);
        QVERIFY(lang.count(u'\f') >= 2);
        QVERIFY(lang.contains("Band 00") && lang.contains("Band 89"));
        // A cancelled dialog prints nothing and says nothing.
        QFile::remove(druck->datei);
        druck->abbrechen = true;
        Attrappen::leeren();
        w->mnuTabelleDrucken->trigger();
        QVERIFY(!QFile::exists(druck->datei));
        QVERIFY(Attrappen::dialoge().meldungen().isEmpty());
    }
};

RK_TEST_MAIN(TestTabellendruck)
#include "tst_tabellendruck.moc"
