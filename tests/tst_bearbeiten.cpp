// Entering, saving and deleting Carriers through the record view.
#include "support/Fenster.h"
#include "support/Katalog.h"
#include "support/Testumgebung.h"

#include "catalogue/Datenbank.h"
#include "catalogue/Datensatzbearbeitung.h"
#include "catalogue/Datensteuerung.h"
#include "catalogue/FlexGrid.h"
#include "catalogue/Recordset.h"
#include "catalogue/Tabellenansicht.h"
#include "shell/Ausgabebox.h"
#include "shell/Einstellungen.h"
#include "shell/Globale.h"
#include "shell/Steuerelemente.h"

#include <QCheckBox>
#include <QComboBox>
#include <QLabel>
#include <QPushButton>
#include <QScrollBar>
#include <QTabBar>
#include <QTextEdit>
#include <QTimer>

#include <sqlite3.h>

#include <memory>

using namespace Qt::StringLiterals;

class TestBearbeiten : public QObject {
    Q_OBJECT

    std::unique_ptr<Ausgabebox> w;
    QString katalog;

    void starten(const QList<Zeilenwerte>& zeilen)
    {
        katalog = FensterStarten(w, {.zeilen = zeilen, .zeigen = true});
    }

    Recordset* rs() const { return w->Data1->recordset(); }

    void markieren(int von, int bis)
    {
        w->MSFlexGrid1->setRow(von);
        w->MSFlexGrid1->setRowSel(bis);
    }

private slots:
    void cleanup() { w.reset(); }

    void leererTontraegerBekommtBlanksUndWirdGefunden()
    {
        starten(Baender({"Abba", "Bach"}));
        w->MenuNeuEingabe->trigger();
        QVERIFY(rs()->EditPending());
        // Not in the table before it is saved.
        QCOMPARE(w->MSFlexGrid1->Rows(), 3);
        w->txtEbook->setText("/e/Heft.pdf°");
        w->MenuSpeichern->trigger();
        QCOMPARE(w->MSFlexGrid1->Rows(), 4);
        for (const char* spalte : {"Band", "LPTitel", "Musikpfad"})
            QCOMPARE(KatalogSpalte(katalog, spalte).last(), QString(" "));
        QCOMPARE(KatalogSpalte(katalog, "eBook").last(), QString("/e/Heft.pdf°"));
        // The rating stays truly empty.
        QCOMPARE(KatalogSpalte(katalog, "Bewertung").last(), QString());
        // The search by blank band and title lands on it: it sorts first.
        QCOMPARE(w->MSFlexGrid1->Row(), 1);
        QCOMPARE(w->TextBand->text(), QString(" "));
    }

    void bandOhneBlanksUndDerSelbeTontraegerWieder()
    {
        starten(Baender({"Abba", "Bach", "Cream"}));
        w->MenuNeuEingabe->trigger();
        w->TextBand->setText("  Deep Purple  ");
        w->TextLPTitel->setText(" Machine Head");
        w->MenuSpeichern->trigger();
        QCOMPARE(w->TextLPTitel->text(), QString("Machine Head"));
        QCOMPARE(w->MSFlexGrid1->Row(), 4);
        QCOMPARE(KatalogSpalte(katalog, "Band").last(), QString("Deep Purple"));
        // A save of a changed record finds it again after the table was re-read.
        w->MSFlexGrid1->setRow(2);
        w->TextInfo->setText("Erstpressung");
        w->MenuSpeichern->trigger();
        QCOMPARE(w->MSFlexGrid1->Row(), 2);
        QCOMPARE(w->TextBand->text(), QString("Bach"));
        QCOMPARE(KatalogSpalte(katalog, "Info")[1], QString("Erstpressung"));
        // A new entry is stored when the user moves on in the table.
        w->MenuNeuEingabe->trigger();
        w->TextBand->setText("Zappa");
        w->MSFlexGrid1->setRow(1);
        QCOMPARE(KatalogSpalte(katalog, "Band").last(), QString("Zappa"));
        QCOMPARE(w->MSFlexGrid1->Rows(), 6);
        QCOMPARE(w->TextBand->text(), QString("Abba"));
    }

    void loeschenEinesBereichs()
    {
        starten(Baender({"A", "B", "C", "D", "E", "F", "G", "H"}));
        const QString cover = Testordner("cover") + "C - Titel 3.png";
        DateiSchreiben(cover, "png");
        // "Nein" and no answer delete nothing.
        markieren(2, 6);
        Attrappen::dialoge().antwortenMsg << "Nein";
        w->MenuEintragLoeschen->trigger();
        w->MenuEintragLoeschen->trigger();
        QCOMPARE(KatalogSpalte(katalog, "Band").size(), 8);
        // Esc while the marked Carriers go stops before the next one.
        markieren(2, 6);
        Attrappen::dialoge().antwortenMsg << "Ja";
        QTimer::singleShot(0, this, [this] { QTest::keyClick(w->MSFlexGrid1, Qt::Key_Escape); });
        w->MenuEintragLoeschen->trigger();
        QCOMPARE(KatalogSpalte(katalog, "Band").size(), 8);
        QVERIFY(!Abbruch);
        markieren(2, 6);
        Attrappen::dialoge().antwortenMsg << "Ja";
        w->cboBildpfad->setEditable(true);
        w->cboBildpfad->setEditText(cover);
        w->MenuEintragLoeschen->trigger();
        QCOMPARE(KatalogSpalte(katalog, "Band"), (QStringList{"A", "G", "H"}));
        QCOMPARE(w->MSFlexGrid1->Rows(), 4);
        QCOMPARE(Attrappen::papierkorb().verschoben, QStringList{cover});
        QVERIFY(Attrappen::klang().gespielt.contains(ProgrammOrdner + "Matsch.wav"));
    }

    // Marked from the bottom up, with Shift or with Ctrl: exactly the marked Carriers go.
    void genauDieMarkiertenGehen()
    {
        starten(Baender({"A", "B", "C", "D", "E", "F", "G", "H", "I", "J", "K", "L"}));
        FlexGrid* g = w->MSFlexGrid1;
        auto klick = [g](int zeile, Qt::KeyboardModifiers tasten) {
            const QModelIndex zelle = g->model()->index(zeile - 1, 0);
            g->scrollTo(zelle);
            QTest::mouseClick(g->viewport(), Qt::LeftButton, tasten, g->visualRect(zelle).center());
        };
        auto loeschen = [this] {
            Attrappen::dialoge().antwortenMsg << "Ja";
            w->MenuEintragLoeschen->trigger();
            return KatalogSpalte(katalog, "Band").join(u"");
        };
        klick(9, Qt::NoModifier);
        klick(6, Qt::ShiftModifier);
        QCOMPARE(loeschen(), u"ABCDEJKL"_s);
        klick(2, Qt::NoModifier);
        klick(5, Qt::ControlModifier);
        klick(7, Qt::ControlModifier);
        QCOMPARE(loeschen(), u"ACDJL"_s);
        markieren(4, 2);
        QCOMPARE(loeschen(), u"AL"_s);
        QCOMPARE(g->Rows(), 3);
    }

    // Visiting records changes nothing: a long one-line field keeps every character, and a
    // rich text pane shows its beginning, also on a tab opened for the first time.
    void besuchenAendertNichts()
    {
        QString lang;
        for (int i = 0; lang.size() < 100000; ++i)
            lang += QStringLiteral("Zeile %1\tmit Tab\r\n").arg(i);
        const QString rtf = "{\\rtf1\\ansi " + QString("Lied\\par ").repeated(300) + "}";
        starten({{{"Band", "Abba"}, {"Info", lang}, {"Songs", rtf}, {"InfoTab", rtf}}, {{"Band", "Bach"}}});
        QCOMPARE(w->TextInfo->text().size(), lang.size());
        QCoreApplication::processEvents();
        QCOMPARE(w->TextSongs->verticalScrollBar()->value(), 0);
        w->MSFlexGrid1->setRow(2);
        w->MSFlexGrid1->setRow(1);
        w->MSFlexGrid1->setRow(2);
        w->MenuSpeichern->trigger();
        QCOMPARE(KatalogSpalte(katalog, "Info").first(), lang);
        w->MSFlexGrid1->setRow(1);
        w->tabTexte->setCurrentIndex(2);
        QCoreApplication::processEvents();
        QVERIFY(w->rtfInfo->isVisible() && w->rtfInfo->verticalScrollBar()->maximum() > 0);
        QCOMPARE(w->rtfInfo->verticalScrollBar()->value(), 0);
    }

    // A record source that cannot be changed says so on a save and on a move; the save
    // leaves what was typed on screen.
    void nichtAenderbareQuelleSagtEs()
    {
        starten(Baender({"Abba", "Bach"}));
        w->Data1->setRecordSource("select Band, LPTitel from Schallplatten");
        w->Data1->Refresh();
        w->MenuSpeichern->trigger();
        QVERIFY(Attrappen::dialoge().meldungen().isEmpty());
        w->TextBand->setText("Getippt");
        w->MenuSpeichern->trigger();
        auto m = Attrappen::dialoge().meldungen();
        QCOMPARE(m.size(), 1);
        QVERIFY2(m[0].text.contains("Die Datensatzquelle kann nicht geändert werden"), qPrintable(m[0].text));
        QCOMPARE(w->TextBand->text(), u"Getippt"_s);
        w->MSFlexGrid1->setRow(2);
        QCOMPARE(Attrappen::dialoge().meldungen().size(), 2);
        QCOMPARE(KatalogSpalte(katalog, "Band"), (QStringList{"Abba", "Bach"}));
    }

    void letzteZeileEinesFiltersBleibtUndDanachKommtDieGanzeTabelle()
    {
        starten(Baender({"Abba", "Bach", "Brahms", "Cream", "Doors"}));
        w->chkTabelle->setChecked(true);
        // C has one row, which stays; B has two, of which one goes. After either the
        // whole table shows.
        for (const int buchstabe : {2, 1}) {
            w->ButtonAlpabeth[buchstabe]->click();
            QCOMPARE(w->MSFlexGrid1->Rows(), 4 - buchstabe);
            markieren(1, 1);
            Attrappen::dialoge().antwortenMsg << "Ja";
            w->MenuEintragLoeschen->trigger();
            QCOMPARE(w->lblTabellenName->text(), QString("alle"));
        }
        QCOMPARE(Attrappen::dialoge().meldungen().at(1).text, QString("Der letzte Datensatz darf nicht gelöscht werden."));
        QCOMPARE(KatalogSpalte(katalog, "Band"), (QStringList{"Abba", "Brahms", "Cream", "Doors"}));
        QCOMPARE(w->MSFlexGrid1->Rows(), 5);
    }

    void schreibgeschuetzterKatalogVerliertNichts()
    {
        starten(Baender({"Abba", "Bach"}));
        sqlite3* db = w->Data1->database()->handle();
        sqlite3_exec(db, "PRAGMA query_only = 1", nullptr, nullptr, nullptr);
        w->TextBand->setText("Getippt");
        w->MenuSpeichern->trigger();
        auto m = Attrappen::dialoge().meldungen();
        QCOMPARE(m.size(), 1);
        QVERIFY2(m[0].text.contains("schreibgeschützt"), qPrintable(m[0].text));
        QCOMPARE(KatalogSpalte(katalog, "Band"), (QStringList{"Abba", "Bach"}));
        // A move cannot leave the record either.
        w->MSFlexGrid1->setRow(2);
        QCOMPARE(rs()->AbsolutePosition(), 0);
        // Closing asks; "Nein" keeps the window and the text, which a save stores once
        // the catalogue is writable again.
        Attrappen::dialoge().antwortenMsg << "" << "Nein";
        QVERIFY(!w->close());
        sqlite3_exec(db, "PRAGMA query_only = 0", nullptr, nullptr, nullptr);
        w->MenuSpeichern->trigger();
        QCOMPARE(KatalogSpalte(katalog, "Band"), (QStringList{"Getippt", "Bach"}));
    }
};

RK_TEST_MAIN(TestBearbeiten)
#include "tst_bearbeiten.moc"
