// The main window as a user meets it: its controls and menus, the layout rules when it
// is resized, the wheel steps, the table's columns and the record stars.
#include "support/Fenster.h"
#include "support/Katalog.h"
#include "support/Testumgebung.h"

#include "catalogue/Datensatzansicht.h"
#include "catalogue/Datensteuerung.h"
#include "catalogue/FlexGrid.h"
#include "catalogue/Recordset.h"
#include "catalogue/Tabellenansicht.h"
#include "platform/Einheiten.h"
#include "shell/Ausgabebox.h"
#include "shell/Einstellungen.h"
#include "shell/Mausrad.h"
#include "shell/Steuerelemente.h"

#include <QAction>
#include <QCheckBox>
#include <QLabel>
#include <QListWidget>
#include <QMenu>
#include <QPushButton>
#include <QScrollBar>
#include <QSignalSpy>
#include <QTextEdit>

#include <memory>

class TestHauptfenster : public QObject {
    Q_OBJECT

    std::unique_ptr<Ausgabebox> w;

    void starten(const QList<Zeilenwerte>& zeilen)
    {
        FensterStarten(w, {.zeilen = zeilen});
    }

    // Resizes the inner area to the given twips.
    void innenGroesse(int breite, int hoehe)
    {
        const QSize rand = w->size() - w->Innen->size();
        w->resize(QSize(Px(breite), Px(hoehe)) + rand);
        QCoreApplication::processEvents();
        QCOMPARE(w->Innen->size(), QSize(Px(breite), Px(hoehe)));
    }

private slots:
    void cleanup() { w.reset(); }

    void groesseFolgtDenRegeln()
    {
        starten(Baender({"Abba"}));
        w->show();
        innenGroesse(18000, 12000);
        const auto twips = [](int px) { return Twips(px); };
        const int statusHoehe = twips(w->staBar->height());
        QVERIFY(std::abs(twips(w->MSFlexGrid1->geometry().bottom() + 1) - (12000 - statusHoehe)) <= 15);
        QVERIFY(std::abs(twips(w->MSFlexGrid1->geometry().right() + 1) - (18000 - 100)) <= 15);
        QVERIFY(std::abs(twips(w->filTrack->geometry().right() + 1) - (18000 - 100)) <= 15);
        QCOMPARE(w->txtSuchen->width(), w->filTrack->width());
        QCOMPARE(w->fraSternTrack->geometry().right(), w->filTrack->geometry().right());
        QVERIFY(!w->fraSternTrack->isHidden());
        QCOMPARE(w->cmdPlayAsso->geometry().right() + 1, w->Innen->width());
        QCOMPARE(w->lblGradiant->geometry().right() + 1, w->cmdPlayAsso->x());
        QVERIFY(std::abs(twips(w->txtSongText->geometry().right() + 1) - (18000 - 1700)) <= 15);
        QVERIFY(std::abs(twips(w->txtSongText->geometry().bottom() + 1) - (12000 - 620)) <= 15);

        // Narrow: the Track stars hide when the list is too narrow for them.
        innenGroesse(13500, 12000);
        QVERIFY(w->fraSternTrack->isHidden());
        // Very small: sizes that would be negative are left alone, no message.
        const QSize vorher = w->MSFlexGrid1->size();
        w->resize(60, 40);
        QCoreApplication::processEvents();
        QVERIFY(Attrappen::dialoge().meldungen().isEmpty());
        QVERIFY(w->MSFlexGrid1->width() <= vorher.width());
    }

    void mausradSchritte()
    {
        QList<Zeilenwerte> viele;
        for (int i = 0; i < 80; ++i)
            viele << Zeilenwerte{{"Band", QStringLiteral("Band %1").arg(i, 3, 10, QChar('0'))}};
        starten(viele);
        w->show();
        Mausrad& rad = Mausrad::instanz();
        rad.MausradEin(w.get());
        FlexGrid* g = w->MSFlexGrid1;
        g->setTopRow(1);
        Mausrad::Schritt(g, "flexgrid", true);
        QCOMPARE(g->TopRow(), 1); // no step above the first data row
        Mausrad::Schritt(g, "flexgrid", false);
        QCOMPARE(g->TopRow(), 2);
        const int vorher = g->Row();
        Mausrad::Schritt(g, "flexgrid", false);
        QCOMPARE(g->Row(), vorher); // the top row moves, not the selection

        // A wheel event on the grid's viewport goes through the hook.
        QWheelEvent rad1(QPointF(5, 5), QPointF(5, 5), QPoint(), QPoint(0, -120), Qt::NoButton, Qt::NoModifier,
                         Qt::NoScrollPhase, false);
        QCoreApplication::sendEvent(g->viewport(), &rad1);
        QCOMPARE(g->TopRow(), 4);

        // Text: 40 characters do not move the caret down; 120 do, by 50.
        w->TextInfo->setText(QString(40, 'x'));
        w->TextInfo->setCursorPosition(0);
        Mausrad::Schritt(w->TextInfo, "textbox", false);
        QCOMPARE(w->TextInfo->cursorPosition(), 0);
        w->TextInfo->setText(QString(120, 'x'));
        w->TextInfo->setCursorPosition(0);
        Mausrad::Schritt(w->TextInfo, "textbox", false);
        QCOMPARE(w->TextInfo->cursorPosition(), 50);
        w->TextSongs->setPlainText(QString(200, 'y'));
        Mausrad::Schritt(w->TextSongs, "richtext", false);
        QCOMPARE(w->TextSongs->textCursor().position(), 50);
        rad.MausradAus();
        QCOMPARE(rad.AnzahlEingehakt(), 0);
    }

    void spaltenNachDenEinstellungen()
    {
        FensterStarten(w, {.zeilen = Baender({"Abba"}),
                           .einstellungen = {{"TabelleAnordnenCaption0", "LPTitel1"},
                                             {"TabelleAnordnenCaption1", "Band1"},
                                             {"TabelleAnordnenCaption2", "Medium0"},
                                             {"0Spaltenbreite", "0"},
                                             {"1Spaltenbreite", "2000"}}});
        FlexGrid* g = w->MSFlexGrid1;
        QCOMPARE(g->TextMatrix(0, 0), QString("LPTitel"));
        QCOMPARE(g->TextMatrix(0, 1), QString("Band"));
        QCOMPARE(g->TextMatrix(1, 1), QString("Abba"));
        // A stored width of 0 for a visible column gives 1000.
        QCOMPARE(g->ColWidth(0), 1000);
        QCOMPARE(g->ColWidth(1), 2000);
        QCOMPARE(g->ColWidth(2), 0);
        QCOMPARE(w->MSFlexGrid1->SpalteSuchen("Bewertung"), 14);
        // The layout runs again at each move and stays the same.
        w->tabellenansicht().TabelleEinrichten();
        QCOMPARE(g->TextMatrix(0, 0), QString("LPTitel"));
        QCOMPARE(g->ColWidth(1), 2000);
    }

    void tabelleUndDatensatzFolgenEinander()
    {
        starten({Zeilenwerte{{"Band", "Abba"}, {"Bewertung", "3"}}, Zeilenwerte{{"Band", "Bach"}, {"Bewertung", "7"}},
                 Zeilenwerte{{"Band", "Cream"}, {"Bewertung", " "}}});
        FlexGrid* g = w->MSFlexGrid1;
        QCOMPARE(w->TextBand->text(), QString("Abba"));
        g->setRow(2);
        QCOMPARE(w->TextBand->text(), QString("Bach"));
        QCOMPARE(w->Data1->recordset()->AbsolutePosition(), 1);
        // An edit reaches the database at the next move.
        w->TextBand->setText("Bach & Söhne");
        g->setRow(3);
        QCOMPARE(w->TextBand->text(), QString("Cream"));
        QCOMPARE(KatalogSpalte(w->Data1->DatabaseName(), "Band"), (QStringList{"Abba", "Bach & Söhne", "Cream"}));
        QCOMPARE(w->staBar->PanelText(3), QString("Tonträger: 3"));
    }

    void sterneDesTontraegers()
    {
        starten({Zeilenwerte{{"Band", "Abba"}, {"Bewertung", "3"}}, Zeilenwerte{{"Band", "Bach"}, {"Bewertung", "7"}},
                 Zeilenwerte{{"Band", "Cream"}, {"Bewertung", " "}}});
        auto hell = [this] {
            int n = 0;
            for (Bildfeld* s : w->imgCDnote)
                n += s->Bild().toImage() == w->imgStern->Bild().toImage() ? 1 : 0;
            return n;
        };
        QCOMPARE(hell(), 3);
        w->MSFlexGrid1->setRow(2);
        QCOMPARE(hell(), 0); // "7" is no rating
        w->MSFlexGrid1->setRow(3);
        QCOMPARE(hell(), 0); // a blank neither
        QTest::mouseClick(w->imgCDnote[2], Qt::LeftButton);
        QCOMPARE(hell(), 3);
        QCOMPARE(w->txtBewertung->text(), QString("3"));
        w->MSFlexGrid1->setRow(1);
        QCOMPARE(KatalogSpalte(w->Data1->DatabaseName(), "Bewertung"), (QStringList{"3", "7", "3"}));
    }

    void reichtextZeigtFormatUndSchreibtZurueck()
    {
        starten({Zeilenwerte{{"Band", "Abba"},
                             {"Songs", "{\\rtf1\\ansi{\\fonttbl{\\f0 Arial;}}\\f0\\fs24 {\\b Fett} M\\'e4dchen\\par}"},
                             {"InfoTab", "nur Text"}},
                 Zeilenwerte{{"Band", "Bach"}}});
        QCOMPARE(w->TextSongs->toPlainText(), QString("Fett Mädchen"));
        QTextCursor c(w->TextSongs->document());
        c.setPosition(1);
        QVERIFY(c.charFormat().fontWeight() > QFont::Normal);
        c.setPosition(7);
        QCOMPARE(c.charFormat().fontWeight(), int(QFont::Normal));
        QCOMPARE(w->rtfInfo->toPlainText(), QString("nur Text"));
        // Moving without an edit writes nothing.
        w->MSFlexGrid1->setRow(2);
        w->MSFlexGrid1->setRow(1);
        QCOMPARE(KatalogSpalte(w->Data1->DatabaseName(), "InfoTab").first(), QString("nur Text"));
        // An edit is stored as RTF with the German letters escaped.
        QTextCursor ende(w->TextSongs->document());
        ende.movePosition(QTextCursor::End);
        ende.insertText(QStringLiteral(" Größe"));
        w->MSFlexGrid1->setRow(2);
        const QString songs = KatalogSpalte(w->Data1->DatabaseName(), "Songs").first();
        QVERIFY2(songs.startsWith("{\\rtf1\\ansi"), qPrintable(songs));
        QVERIFY2(songs.contains("M\\'e4dchen Gr\\'f6\\'dfe"), qPrintable(songs));
        QVERIFY2(songs.contains("\\b "), qPrintable(songs));
        w->MSFlexGrid1->setRow(1);
        QCOMPARE(w->TextSongs->toPlainText(), QString("Fett Mädchen Größe"));
    }

    void apostrophUndEnterWerdenGeschluckt()
    {
        starten(Baender({"Abba"}));
        w->show();
        w->TextBand->setFocus();
        w->TextBand->setText("AC");
        w->TextBand->setCursorPosition(1);
        TasteText(w->TextBand, "'/");
        QCOMPARE(w->TextBand->text(), QString("A/C"));
        QSignalSpy enter(w->TextPreis, &QLineEdit::returnPressed);
        QTest::keyClick(w->TextPreis, Qt::Key_Return);
        QCOMPARE(enter.count(), 0);
    }
};

RK_TEST_MAIN(TestHauptfenster)
#include "tst_hauptfenster.moc"
