// The small rules every part follows: numbers and truth values read from texts, the
// ending of a file name, and that a hostile setting cannot make a number that the
// program then feeds into a window size or a wait.
#include "support/Fenster.h"
#include "support/Katalog.h"
#include "support/Testumgebung.h"

#include "shell/Ausgabebox.h"
#include "shell/Einstellungen.h"
#include "shell/Grundregeln.h"
#include "shell/Steuerelemente.h"

#include <cmath>
#include <limits>

class TestGrundregeln : public QObject {
    Q_OBJECT
private slots:
    void val_data()
    {
        QTest::addColumn<QString>("text");
        QTest::addColumn<double>("wert");
        QTest::newRow("leer") << "" << 0.0;
        QTest::newRow("vorn Blanks, hinten Text") << "  12 Sek." << 12.0;
        QTest::newRow("Tab vorn") << "\t7" << 7.0;
        QTest::newRow("Bruch") << "3.7" << 3.7;
        QTest::newRow("nur Bruch") << ".5" << 0.5;
        QTest::newRow("minus") << "-2" << -2.0;
        QTest::newRow("plus") << "+5" << 5.0;
        QTest::newRow("Blanks in der Zahl") << "1 2 3" << 123.0;
        QTest::newRow("Komma endet") << "1,5" << 1.0;
        QTest::newRow("zweiter Punkt endet") << "1.2.3" << 1.2;
        QTest::newRow("Exponent") << "1e3" << 1000.0;
        QTest::newRow("Exponent D") << "2D2" << 200.0;
        QTest::newRow("Exponent ohne Ziffern") << "4e" << 4.0;
        QTest::newRow("negativer Exponent") << "25E-1" << 2.5;
        QTest::newRow("hex") << "&H1F" << 31.0;
        QTest::newRow("oktal") << "&O17" << 15.0;
        QTest::newRow("hex ohne Ziffern") << "&H" << 0.0;
        QTest::newRow("Wort") << "abc" << 0.0;
        QTest::newRow("nur Vorzeichen") << "-" << 0.0;
        QTest::newRow("zu groß") << "1e999" << std::numeric_limits<double>::infinity();
    }
    void val()
    {
        QFETCH(QString, text);
        QFETCH(double, wert);
        QCOMPARE(Val(text), wert);
    }

    void zahlenUndWahrheiten()
    {
        QCOMPARE(GanzeZahl("3 Songs"), 3);
        QCOMPARE(GanzeZahl("3.9"), 3);
        QCOMPARE(GanzeZahl("-2.5"), -2);
        QCOMPARE(GanzeZahl(""), 0);
        // No whole number holds these: the reading overflows and gives 0.
        QCOMPARE(GanzeZahl("99999999999"), 0);
        QCOMPARE(GanzeZahl("1e999"), 0);
        QCOMPARE(GanzeZahl("&HFFFF"), -1);

        QCOMPARE(Zahl(" 12 "), std::optional<double>(12));
        QCOMPARE(Zahl("1,5"), std::optional<double>(1.5));
        QCOMPARE(Zahl("1.5"), std::optional<double>(1.5));
        QCOMPARE(Zahl("-300"), std::optional<double>(-300));
        for (const char* keine : {"", "12a", "1.2.3", "nan", "inf", "-inf", "1e999"})
            QVERIFY2(!Zahl(keine), keine);

        QCOMPARE(Wahrheit("True"), std::optional<bool>(true));
        QCOMPARE(Wahrheit("false"), std::optional<bool>(false));
        QCOMPARE(Wahrheit("Wahr"), std::optional<bool>(true));
        QCOMPARE(Wahrheit(" -1 "), std::optional<bool>(true));
        QCOMPARE(Wahrheit("0"), std::optional<bool>(false));
        QVERIFY(!Wahrheit("ja"));
        QVERIFY(!Wahrheit("nan"));
        QCOMPARE(WahrheitText(true), QString("True"));

        QCOMPARE(EndungVier("Lied.MP3"), QString(".mp3"));
        QCOMPARE(EndungVier("Bild.jpeg"), QString("jpeg"));
        QCOMPARE(EndungVier("ab"), QString("ab"));
    }

    // Settings a user or another program left behind that are no numbers a window can take.
    void feindlicheEinstellungen()
    {
        std::unique_ptr<Ausgabebox> w;
        FensterStarten(w, {.zeilen = Baender({"Abba"}),
                           .einstellungen = {{"AusgabeboxLeft", "nan"},
                                             {"AusgabeboxTop", "-inf"},
                                             {"AusgabeboxWidth", "inf"},
                                             {"AusgabeboxHeight", "1e999"},
                                             {"ProgSchriftSize", "nan"},
                                             {"StandardFontsize", "inf"}}});
        QVERIFY(!w->LadenFehlgeschlagen);
        // The design size stands where the settings give no usable number.
        QVERIFY(w->width() > 100 && w->width() < 100000);
        QVERIFY(w->height() > 100 && w->height() < 100000);
        QVERIFY(std::isfinite(w->TextBand->font().pointSizeF()));
    }
};

RK_TEST_MAIN(TestGrundregeln)
#include "tst_grundregeln.moc"
