// Entering, saving and deleting Carriers through the record view.
#include "support/Katalog.h"
#include "support/Testumgebung.h"

#include "catalogue/Datenbank.h"
#include "catalogue/Datensteuerung.h"
#include "catalogue/FlexGrid.h"
#include "catalogue/Recordset.h"
#include "shell/Ausgabebox.h"
#include "shell/Einstellungen.h"
#include "shell/Steuerelemente.h"

#include <QCheckBox>
#include <QComboBox>
#include <QLabel>
#include <QTextEdit>

#include <sqlite3.h>

#include <memory>

class TestBearbeiten : public QObject {
    Q_OBJECT

    std::unique_ptr<Ausgabebox> w;
    QString katalog;

    void starten(const QList<Zeilenwerte>& zeilen)
    {
        w.reset();
        Testumgebung::zuruecksetzen();
        Attrappen::dialoge().leeren();
        katalog = KatalogAnlegen(Testordner("bearbeiten") + "B.db", zeilen);
        Speichern("ArchivPfad", katalog);
        w = std::make_unique<Ausgabebox>();
        w->Form_Load();
        w->show();
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
        w->MenuNeuEingabe_Click();
        QVERIFY(rs()->EditPending());
        QCOMPARE(w->TextBand->text(), QString());
        // Not in the table before it is saved.
        QCOMPARE(w->MSFlexGrid1->Rows(), 3);
        w->txtEbook->setText("/e/Heft.pdf°");
        w->MenuSpeichern_Click();
        QCOMPARE(w->MSFlexGrid1->Rows(), 4);
        QCOMPARE(KatalogSpalte(katalog, "Band").last(), QString(" "));
        QCOMPARE(KatalogSpalte(katalog, "LPTitel").last(), QString(" "));
        QCOMPARE(KatalogSpalte(katalog, "Musikpfad").last(), QString(" "));
        QCOMPARE(KatalogSpalte(katalog, "eBook").last(), QString("/e/Heft.pdf°"));
        // The rating stays truly empty.
        QCOMPARE(KatalogSpalte(katalog, "Bewertung").last(), QString());
        QVERIFY(!KatalogSpalte(katalog, "Songs").last().isEmpty());
        // The search by blank band and title lands on it: it sorts first.
        QCOMPARE(w->MSFlexGrid1->Row(), 1);
        QCOMPARE(rs()->AbsolutePosition(), 0);
        QCOMPARE(w->TextBand->text(), QString(" "));
    }

    void bandOhneBlanksUndDerSelbeTontraegerWieder()
    {
        starten(Baender({"Abba", "Bach", "Cream"}));
        w->MenuNeuEingabe_Click();
        w->TextBand->setText("  Deep Purple  ");
        w->TextLPTitel->setText(" Machine Head");
        w->MenuSpeichern_Click();
        QCOMPARE(w->TextBand->text(), QString("Deep Purple"));
        QCOMPARE(w->TextLPTitel->text(), QString("Machine Head"));
        QCOMPARE(w->MSFlexGrid1->Row(), 4);
        QCOMPARE(w->MSFlexGrid1->TextMatrix(4, w->SpalteSuchen("Band")), QString("Deep Purple"));
        QVERIFY(KatalogSpalte(katalog, "Band").contains("Deep Purple"));
        // A save of a changed record finds it again after the table was re-read.
        w->MSFlexGrid1->setRow(2);
        w->TextInfo->setText("Erstpressung");
        w->MenuSpeichern_Click();
        QCOMPARE(w->MSFlexGrid1->Row(), 2);
        QCOMPARE(w->TextBand->text(), QString("Bach"));
        QCOMPARE(KatalogSpalte(katalog, "Info")[1], QString("Erstpressung"));
    }

    void neuerEintragKommtBeimWechselInDieTabelle()
    {
        starten(Baender({"Abba", "Bach"}));
        w->MenuNeuEingabe_Click();
        QCOMPARE(w->focusWidget(), static_cast<QWidget*>(w->TextBand));
        QCOMPARE(w->TextSongs->currentCharFormat().fontPointSize(), 12.0);
        w->TextBand->setText("Zappa");
        QCOMPARE(KatalogSpalte(katalog, "Band").size(), 2);
        w->MSFlexGrid1->setRow(2);
        QCOMPARE(KatalogSpalte(katalog, "Band"), (QStringList{"Abba", "Bach", "Zappa"}));
        QCOMPARE(w->MSFlexGrid1->Rows(), 4);
        QCOMPARE(w->TextBand->text(), QString("Bach"));
    }

    void loeschenEinesBereichs()
    {
        starten(Baender({"A", "B", "C", "D", "E", "F", "G", "H"}));
        const QString cover = Testordner("cover") + "C - Titel 3.png";
        DateiSchreiben(cover, "png");
        // "Nein" and no answer delete nothing.
        markieren(2, 6);
        Attrappen::dialoge().antwortenMsg << "Nein";
        w->MenuEintragLoeschen_Click();
        w->MenuEintragLoeschen_Click();
        QCOMPARE(KatalogSpalte(katalog, "Band").size(), 8);
        markieren(2, 6);
        Attrappen::dialoge().antwortenMsg << "Ja";
        w->cboBildpfad->setEditable(true);
        w->cboBildpfad->setEditText(cover);
        w->MenuEintragLoeschen_Click();
        QCOMPARE(KatalogSpalte(katalog, "Band"), (QStringList{"A", "G", "H"}));
        QCOMPARE(w->MSFlexGrid1->Rows(), 4);
        QCOMPARE(w->Bez[13]->text(), QString());
        QCOMPARE(Attrappen::papierkorb().verschoben, QStringList{cover});
    }

    void letzteZeileEinesFiltersBleibtUndDanachKommtDieGanzeTabelle()
    {
        starten(Baender({"Abba", "Bach", "Brahms", "Cream", "Doors"}));
        w->chkTabelle->setChecked(true);
        w->ButtonAlpabeth_MouseUp(2); // C: one row
        QCOMPARE(w->MSFlexGrid1->Rows(), 2);
        markieren(1, 1);
        Attrappen::dialoge().antwortenMsg << "Ja";
        w->MenuEintragLoeschen_Click();
        const auto m = Attrappen::dialoge().meldungen();
        QCOMPARE(m.last().text, QString("Der letzte Datensatz darf nicht gelöscht werden."));
        QCOMPARE(m.last().titel, QString("Sicherheithinweis"));
        QCOMPARE(KatalogSpalte(katalog, "Band").size(), 5);
        QCOMPARE(w->MSFlexGrid1->Rows(), 6); // the whole table again

        w->ButtonAlpabeth_MouseUp(1); // B: two rows
        QCOMPARE(w->MSFlexGrid1->Rows(), 3);
        markieren(1, 1);
        Attrappen::dialoge().antwortenMsg << "Ja";
        w->MenuEintragLoeschen_Click();
        QCOMPARE(KatalogSpalte(katalog, "Band"), (QStringList{"Abba", "Brahms", "Cream", "Doors"}));
        QCOMPARE(w->MSFlexGrid1->Rows(), 5);
        QCOMPARE(w->lblTabellenName->text(), QString("alle"));
    }

    void schreibgeschuetzterKatalogVerliertNichts()
    {
        starten(Baender({"Abba", "Bach"}));
        sqlite3* db = w->Data1->database()->handle();
        sqlite3_exec(db, "PRAGMA query_only = 1", nullptr, nullptr, nullptr);
        w->TextBand->setText("Getippt");
        w->MenuSpeichern_Click();
        auto m = Attrappen::dialoge().meldungen();
        QCOMPARE(m.size(), 1);
        QVERIFY2(m[0].text.contains("schreibgeschützt"), qPrintable(m[0].text));
        QCOMPARE(w->TextBand->text(), QString("Getippt"));
        QCOMPARE(KatalogSpalte(katalog, "Band"), (QStringList{"Abba", "Bach"}));
        // A move cannot leave the record either; the text stays on screen.
        w->MSFlexGrid1->setRow(2);
        QCOMPARE(w->TextBand->text(), QString("Getippt"));
        QCOMPARE(rs()->AbsolutePosition(), 0);
        QCOMPARE(w->MSFlexGrid1->Row(), 1);
        // Closing asks; "Nein" keeps the window and the text.
        Attrappen::dialoge().antwortenMsg << "" << "Nein";
        QVERIFY(!w->close());
        QCOMPARE(w->TextBand->text(), QString("Getippt"));
        // Writable again: the save stores it.
        sqlite3_exec(db, "PRAGMA query_only = 0", nullptr, nullptr, nullptr);
        w->MenuSpeichern_Click();
        QCOMPARE(KatalogSpalte(katalog, "Band"), (QStringList{"Getippt", "Bach"}));
    }
};

RK_TEST_MAIN(TestBearbeiten)
#include "tst_bearbeiten.moc"
