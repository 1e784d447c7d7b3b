// The rich text panes as a user formats them: the formatting row and the font menu on the
// pane that had the focus last, the search, the keys, the link command, and formatting that
// lasts through save, move and restart.
#include "support/Fenster.h"
#include "support/Katalog.h"
#include "support/Testumgebung.h"

#include "catalogue/FlexGrid.h"
#include "media/Rtf.h"
#include "media/Textfenster.h"
#include "platform/Einheiten.h"
#include "shell/Ausgabebox.h"
#include "shell/Einstellungen.h"
#include "shell/Globale.h"
#include "shell/Steuerelemente.h"

#include <QAction>
#include <QMenu>
#include <QMenuBar>
#include <QPushButton>
#include <QTabBar>
#include <QTextBlock>
#include <QTextEdit>
#include <QTextList>

#include <memory>

using namespace Qt::StringLiterals;

class TestTextfenster : public QObject {
    Q_OBJECT

    std::unique_ptr<Ausgabebox> w;
    QString katalog;

    void starten(const QString& songs)
    {
        katalog = FensterStarten(w, {.zeilen = {{{"Band", "Abba"}, {"Songs", songs}}, {{"Band", "Bach"}}},
                                     .zeigen = true});
        w->activateWindow();
        QVERIFY(QTest::qWaitForWindowActive(w.get()));
    }

    void fokus(QTextEdit* t)
    {
        t->setFocus(Qt::MouseFocusReason);
        QCoreApplication::processEvents();
        QCOMPARE(w->AktivesTextfeld, t->objectName());
    }

    static void markieren(QTextEdit* t, int von, int bis)
    {
        QTextCursor c(t->document());
        c.setPosition(von);
        c.setPosition(bis, QTextCursor::KeepAnchor);
        t->setTextCursor(c);
    }

    // Format of the character at a position.
    static QTextCharFormat zeichen(QTextEdit* t, int pos)
    {
        QTextCursor c(t->document());
        c.setPosition(pos + 1);
        return c.charFormat();
    }

    static bool fett(QTextEdit* t, int pos) { return zeichen(t, pos).fontWeight() >= QFont::DemiBold; }

    QString gespeichert() const { return KatalogSpalte(katalog, "Songs").value(0); }

private slots:
    void cleanup() { w.reset(); }

    void formatUeberstehtSpeichernUndNeustart()
    {
        starten(u"Waterloo\nSOS\nFernando"_s);
        QTextEdit* t = w->TextSongs;
        auto& d = Attrappen::dialoge();
        fokus(t);

        // Bold on a partly bold selection sets bold; on a wholly bold one it clears it.
        markieren(t, 0, 8);
        w->ButtonText[3]->click();
        markieren(t, 0, 12);
        w->ButtonText[3]->click();
        QVERIFY(fett(t, 0) && fett(t, 10));
        w->ButtonText[3]->click();
        QVERIFY(!fett(t, 0) && !fett(t, 10));
        w->ButtonText[3]->click();

        // Colour and font from their dialogs; a cancel is silent and changes nothing.
        markieren(t, 9, 12);
        d.antwortenFarbe << QColor(200, 0, 0);
        w->ButtonText[1]->click();
        QCOMPARE(zeichen(t, 9).foreground().color(), QColor(200, 0, 0));
        w->ButtonText[1]->click();
        QCOMPARE(d.aufrufe.last().farbe, QColor(200, 0, 0));
        d.antwortenSchrift << Schriftauswahl{QFont(u"Courier New"_s, 15), {}};
        markieren(t, 13, 21);
        w->ButtonText[0]->click();
        QCOMPARE(d.aufrufe.last().schrift.schrift.family(), u"Segoe UI"_s);
        QCOMPARE(zeichen(t, 14).fontPointSize(), 15.0);
        QVERIFY(d.meldungen().isEmpty());
        QCOMPARE(w->AktivesTextfeld, u"TextSongs"_s);

        // Raised text, then the standard font takes the offset back.
        markieren(t, 13, 16);
        w->mnuSchriftHochgestellt->trigger();
        QCOMPARE(RtfVersatz(zeichen(t, 13)), 30);
        w->ButtonText[2]->click();
        QCOMPARE(RtfVersatz(zeichen(t, 13)), 0);
        QCOMPARE(zeichen(t, 13).fontFamilies().toStringList().value(0), w->textfenster().StandardFontName);

        // Bullets for all; off for the first; then a mixed selection is refused untouched.
        markieren(t, 0, 21);
        w->ButtonText[11]->click();
        QVERIFY(t->document()->firstBlock().textList() && t->document()->lastBlock().textList());
        markieren(t, 2, 2);
        w->ButtonText[11]->click();
        QVERIFY(!t->document()->firstBlock().textList());
        markieren(t, 0, 21);
        const QString vorher = RtfSchreiben(t->document());
        w->ButtonText[11]->click();
        QCOMPARE(d.meldungen().size(), 1);
        QCOMPARE(d.meldungen()[0].text, u"Absätze mit und ohne Aufzählungspunkten wurden markiert, das geht nicht."_s);
        QCOMPARE(d.meldungen()[0].titel, u"Aufzählungsstil mit Punkten"_s);
        QCOMPARE(RtfSchreiben(t->document()), vorher);

        // Indents through their boxes, which offer the value given last.
        markieren(t, 0, 0);
        d.antwortenInput << u"400"_s;
        w->ButtonText[6]->click();
        QCOMPARE(d.aufrufe.last().eingabe.vorgabe, u"50"_s);
        QCOMPARE(d.aufrufe.last().eingabe.titel, u"Texteinzug links"_s);
        QCOMPARE(qRound(t->document()->firstBlock().blockFormat().leftMargin() * 15), 400);
        QCOMPARE(Lesen("SeitenrandLinks"), u"400"_s);
        w->ButtonText[9]->click(); // cancelled: nothing changes
        QCOMPARE(d.aufrufe.last().eingabe.vorgabe, u"100"_s);
        QCOMPARE(t->document()->firstBlock().blockFormat().rightMargin(), 0.0);
        w->mnuRandLinks->trigger();
        QCOMPARE(d.aufrufe.last().eingabe.vorgabe, u"400"_s);
        markieren(t, 20, 20);
        w->ButtonText[13]->click();
        QCOMPARE(t->document()->lastBlock().blockFormat().alignment(), Qt::AlignHCenter);

        // Stored as RTF: the save, a move there and back and a restart give it back unchanged.
        const QString rtf = RtfSchreiben(t->document());
        w->MenuSpeichern->trigger();
        QCOMPARE(gespeichert(), rtf);
        w->MSFlexGrid1->setRow(2);
        w->MSFlexGrid1->setRow(1);
        QCOMPARE(RtfSchreiben(t->document()), rtf);
        FensterStarten(w, {.katalog = katalog, .zuruecksetzen = false, .zeigen = true});
        t = w->TextSongs;
        QCOMPARE(RtfSchreiben(t->document()), rtf);
        QVERIFY(fett(t, 0) && !fett(t, 13));
        QCOMPARE(zeichen(t, 9).foreground().color(), QColor(200, 0, 0));
        QVERIFY(!t->document()->firstBlock().textList() && t->document()->lastBlock().textList());
        QCOMPARE(qRound(t->document()->firstBlock().blockFormat().leftMargin() * 15), 400);
    }

    // The row and the menu follow the pane that had the focus last, also while the menu
    // itself is open; elsewhere they do nothing.
    void fokusFuehrtMenueUndZeile()
    {
        starten(u"Waterloo"_s);
        QTextEdit* t = w->TextSongs;
        markieren(t, 0, 8);
        w->ButtonText[3]->click();
        QVERIFY(!fett(t, 0));
        QVERIFY(!w->mnuSchrift->isEnabled());

        fokus(t);
        QVERIFY(w->mnuSchrift->isEnabled());
        QCOMPARE(w->AktivesFeld, u"TextSongs"_s);
        QMenuBar* leiste = w->menuBar();
        QTest::mouseClick(leiste, Qt::LeftButton, {}, leiste->actionGeometry(w->mnuSchrift->menuAction()).center());
        QTRY_VERIFY(w->mnuSchrift->isVisible());
        QVERIFY(w->mnuSchrift->isEnabled());
        QCOMPARE(w->AktivesTextfeld, u"TextSongs"_s);
        QTest::mouseClick(w->mnuSchrift, Qt::LeftButton, {},
                          w->mnuSchrift->actionGeometry(w->mnuSchriftDurchstrichen).center());
        QTRY_VERIFY(!w->mnuSchrift->isVisible());
        QVERIFY(zeichen(t, 0).fontStrikeOut());
        QTRY_COMPARE(QApplication::focusWidget(), t);

        w->TextBand->setFocus(Qt::MouseFocusReason);
        QVERIFY(!w->mnuSchrift->isEnabled());
        QVERIFY(w->AktivesTextfeld.isEmpty());
        QCOMPARE(w->AktivesFeld, u"TextBand"_s);

        // With the caret in rtfInfo the search buttons do nothing.
        w->tabTexte->setCurrentIndex(2);
        fokus(w->rtfInfo);
        w->ButtonText[7]->click();
        w->ButtonText[8]->click();
        QVERIFY(Attrappen::dialoge().aufrufe.isEmpty());
    }

    void suchenUndWeitersuchen()
    {
        starten(u"Waterloo\nSOS\nwaterloo sunset"_s);
        QTextEdit* t = w->TextSongs;
        auto& d = Attrappen::dialoge();
        fokus(t);
        markieren(t, 0, 5);
        d.antwortenInput << u"WATERLOO"_s;
        w->ButtonText[7]->click();
        QCOMPARE(d.aufrufe.last().eingabe.vorgabe, u"Water"_s);
        QCOMPARE(d.aufrufe.last().eingabe.titel, u"Suchbox"_s);
        QCOMPARE(t->textCursor().selectionStart(), 0);
        QCOMPARE(t->textCursor().selectedText(), u"Waterloo"_s);
        w->ButtonText[8]->click();
        QCOMPARE(t->textCursor().selectionStart(), 13);
        w->ButtonText[8]->click();
        QCOMPARE(d.meldungen().last().text, u"Alles durchsucht, Suche beendet."_s);
        QCOMPARE(d.meldungen().last().titel, u"WATERLOO"_s);
        markieren(t, 3, 3);
        d.antwortenInput << u"Abba"_s;
        w->ButtonText[7]->click();
        QCOMPARE(d.aufrufe.at(d.aufrufe.size() - 2).eingabe.vorgabe, u"WATERLOO"_s);
        QCOMPARE(d.meldungen().last().text, u"Abba nicht gefunden"_s);
        QCOMPARE(d.meldungen().last().titel, u"Volltextsuche"_s);
        QCOMPARE(t->textCursor().position(), 3);
    }

    void tastenUndSongtext()
    {
        starten(u"   eins"_s);
        QTextEdit* t = w->TextSongs;
        fokus(t);
        t->moveCursor(QTextCursor::End);
        TasteText(t, u"'x'"_s);
        QTest::keyClick(t, Qt::Key_Return);
        TasteText(t, u"zwei"_s);
        QCOMPARE(t->toPlainText(), u"   einsx\n   zwei"_s);
        Abbruch = false;
        QTest::keyClick(t, Qt::Key_Escape);
        QVERIFY(Abbruch);
        Abbruch = false;

        w->mnuSongTextEinAus->trigger();
        QVERIFY(w->txtSongText->isVisible());
        QTRY_COMPARE(w->AktivesTextfeld, u"txtSongText"_s);
        QTest::keyClick(w->txtSongText, Qt::Key_Escape);
        QVERIFY(!w->txtSongText->isVisible() && !Abbruch);

        const int unten = t->geometry().bottom();
        w->cmdTextBig->click();
        QCOMPARE(t->y(), Px(690));
        QVERIFY(!w->Bez[3]->isVisible());
        w->cmdTextSmall->click();
        QCOMPARE(t->y(), Px(4290));
        QCOMPARE(t->geometry().bottom(), unten);
        QVERIFY(w->Bez[3]->isVisible());
    }

    // A link, a file, a mail address or any other text, each after its question.
    void markierterTextAlsLink()
    {
        starten(u"Post an rita@beispiel.example"_s);
        auto& d = Attrappen::dialoge();
        auto& shell = Attrappen::shell();
        shell.geoeffnet.clear();
        const auto ausfuehren = [&](Textfeld* feld, const QString& text) {
            feld->setFocus(Qt::MouseFocusReason);
            feld->setText(text);
            feld->selectAll();
            w->mnuWeblink->trigger();
            return d.aufrufe.last();
        };
        d.antwortenInput << u"https://beispiel.example/x"_s;
        QCOMPARE(ausfuehren(w->TextInfo, u"siehe https://beispiel.example"_s).eingabe.prompt,
                 u"Diesen Link ausführen?"_s);
        ausfuehren(w->TextInfo, u"www.beispiel.example"_s); // cancelled
        const QString datei = Testordner("link") + "Heft.pdf";
        DateiSchreiben(datei, "%PDF");
        ausfuehren(w->TextMusikpfad, datei);
        const auto fehlt = ausfuehren(w->TextMusikpfad, datei + "x").meldung;
        QCOMPARE(fehlt.text, datei + "x\nDatei nicht vorhanden oder Dateipfad ungültig!");
        QCOMPARE(fehlt.hintergrund, Farbe::WarnHintergrund);
        d.antwortenInput << u"www.Abba"_s;
        QCOMPARE(ausfuehren(w->TextBand, u"Abba"_s).eingabe.vorgabe, u"www.Abba"_s);
        // In a pane, its selection.
        w->TextSongs->setFocus(Qt::MouseFocusReason);
        markieren(w->TextSongs, 8, 29);
        d.antwortenInput << u"rita@beispiel.example"_s;
        w->mnuWeblink->trigger();
        QCOMPARE(d.aufrufe.last().eingabe.prompt, u"Eine eMail an diese Adresse senden?"_s);
        QCOMPARE(shell.geoeffnet, (QStringList{u"https://beispiel.example/x"_s, datei, u"www.Abba"_s,
                                                u"mailto:rita@beispiel.example"_s}));
    }

    void schriftenEinstellen()
    {
        starten(u"x"_s);
        auto& d = Attrappen::dialoge();
        Textfenster& tf = w->textfenster();
        QFont neu(u"Courier New"_s, 14);
        neu.setBold(true);
        d.antwortenSchrift << Schriftauswahl{neu, QColor(0, 0, 255)};
        w->mnuStandardschriftEinstellen->trigger();
        QCOMPARE(d.meldungen()[0].text, u"Standard-Schriftname: Segoe UI\nStandard-Schriftgröße: 12"_s);
        QCOMPARE(d.meldungen()[0].titel, u"Schriftart Standardschrift"_s);
        QCOMPARE(tf.StandardFontName, u"Courier New"_s);
        QCOMPARE(tf.StandardFontsize, 14.0);
        QVERIFY(tf.StandardFontBold && !tf.StandardFontItalic);
        QCOMPARE(tf.StandardColor, qint64(0xFF0000));
        w->mnuStandardschriftEinstellen->trigger(); // cancelled: all stays
        QCOMPARE(d.aufrufe.last().schrift.farbe, QColor(0, 0, 255));
        QCOMPARE(tf.StandardFontsize, 14.0);

        d.antwortenSchrift << Schriftauswahl{QFont(u"DejaVu Sans"_s, 10), {}};
        w->mnuProgSchrift->trigger();
        QCOMPARE(d.meldungen().last().text, u"Programm-Schriftname: Segoe UI\nProgramm-Schriftgröße: 12"_s);
        QCOMPARE(Lesen("ProgSchriftSize"), u"10"_s);
        QCOMPARE(w->TextInfo->font().pointSizeF(), 10.0);
        QCOMPARE(w->TextInfo->font().family(), w->TextBand->font().family());
        QCOMPARE(d.meldungen().size(), 3);
    }
};

RK_TEST_MAIN(TestTextfenster)
#include "tst_textfenster.moc"
