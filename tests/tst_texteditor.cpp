// The text viewer as a user works with it: loading and saving files, the toolbar, the
// margins and the settings it keeps; and the find-and-replace dialog with its globals.
#include "support/Fenster.h"
#include "support/Modal.h"
#include "support/Testumgebung.h"

#include "media/Rtf.h"
#include "media/Suchform.h"
#include "media/frmEditor.h"
#include "platform/Einheiten.h"
#include "shell/Ausgabebox.h"
#include "shell/Einstellungen.h"
#include "shell/Globale.h"
#include "shell/Steuerelemente.h"

#include <QAction>
#include <QCheckBox>
#include <QDir>
#include <QMenu>
#include <QPushButton>
#include <QPointer>
#include <QTextBlock>
#include <QTextCursor>
#include <QTextDocument>
#include <QTextEdit>

#include <memory>

using namespace Qt::StringLiterals;

namespace {

void markieren(QTextEdit* t, int von, int bis)
{
    QTextCursor c(t->document());
    c.setPosition(von);
    c.setPosition(bis, QTextCursor::KeepAnchor);
    t->setTextCursor(c);
}

bool fett(QTextEdit* t, int pos)
{
    QTextCursor c(t->document());
    c.setPosition(pos + 1);
    return c.charFormat().fontWeight() >= QFont::DemiBold;
}

// An RTF text as the program writes it: a bold word, then two bulleted paragraphs.
QByteArray formatierterText()
{
    QTextDocument d;
    QTextCursor c(&d);
    QTextCharFormat f;
    f.setFontWeight(QFont::Bold);
    c.insertText(u"Fett"_s, f);
    c.insertText(u" und mager, Grüße"_s, QTextCharFormat());
    c.insertBlock();
    c.insertText(u"Punkt eins"_s);
    QTextListFormat liste;
    liste.setStyle(QTextListFormat::ListDisc);
    liste.setIndent(1);
    c.createList(liste);
    c.insertBlock();
    c.insertText(u"Punkt zwei"_s);
    return RtfSchreiben(&d).toUtf8();
}

} // namespace

class TestTexteditor : public QObject {
    Q_OBJECT

    QPointer<frmEditor> f;
    QString ordner;

    void oeffnen()
    {
        f = new frmEditor;
        f->Form_Load();
    }

    void klick(int index) { f->ButtonCommand[index]->click(); }

    // Loads a file through the open dialog.
    void laden(const QString& pfad)
    {
        Attrappen::dialoge().antwortenDatei << pfad;
        klick(0);
    }

private slots:
    void init()
    {
        Testumgebung::zuruecksetzen();
        Attrappen::dialoge().leeren();
        ordner = Testordner(u"editor"_s);
        QDir(ordner).removeRecursively();
        QDir().mkpath(ordner);
    }
    void cleanup() { delete f; }

    void dateienLadenUndSpeichern()
    {
        auto& d = Attrappen::dialoge();
        const QString rtf = ordner + u"liste.rtf"_s;
        const QByteArray quelle = formatierterText();
        DateiSchreiben(rtf, quelle);
        oeffnen();

        laden(rtf);
        QCOMPARE(d.aufrufe.size(), 1);
        QCOMPARE(d.aufrufe[0].datei.filter,
                 u"RTF-Dateien (Rich Text Format) |*.rtf|Textdateien (*.txt) |*.txt|Alle Dateien (*.*) |*.*|"_s);
        QTextEdit* t = f->Text;
        QCOMPARE(t->toPlainText(), u"Fett und mager, Grüße\nPunkt eins\nPunkt zwei"_s);
        QVERIFY(fett(t, 0) && !fett(t, 6));
        QVERIFY(!t->document()->firstBlock().textList() && t->document()->lastBlock().textList());
        QCOMPARE(f->Dateiname, rtf);
        QVERIFY(f->Geaendert);

        // Saved back as it came.
        DateiSchreiben(rtf, "");
        klick(20);
        QCOMPARE(DateiLesen(rtf), quelle);
        QVERIFY(!f->Geaendert);
        QVERIFY(d.meldungen().isEmpty());

        // A .txt is plain text, also when it looks like RTF; Windows bytes and CR LF are read,
        // and it is written back as plain UTF-8 with LF.
        const QString txt = ordner + u"notiz.txt"_s;
        DateiSchreiben(txt, "{\\rtf1 kein \\b Format}\r\nZeile mit \xe4\r\n");
        laden(txt);
        QCOMPARE(t->toPlainText(), u"{\\rtf1 kein \\b Format}\nZeile mit ä\n"_s);
        klick(20);
        QCOMPARE(DateiLesen(txt), QByteArray("{\\rtf1 kein \\b Format}\nZeile mit \xc3\xa4\n"));

        // A cancelled dialog is silent and keeps the text; a missing file, a folder and a
        // file too big to hold end in the error box and keep it too.
        d.leeren();
        klick(0);
        QVERIFY(d.meldungen().isEmpty());
        const QString gross = ordner + u"gross.txt"_s;
        {
            QFile datei(gross);
            QVERIFY(datei.open(QIODevice::WriteOnly) && datei.resize(17 * 1024 * 1024));
        }
        for (const QString& pfad : {ordner + u"fehlt.rtf"_s, ordner, gross})
            laden(pfad);
        QCOMPARE(d.meldungsTexte(), (QStringList{u"53 Datei nicht gefunden"_s, u"75 Fehler beim Zugriff auf Pfad/Datei"_s,
                                                 u"7 Nicht genügend Speicher"_s}));
        QCOMPARE(d.meldungen()[0].titel, u"frmEditor_ButtonCommand_Click"_s);
        QCOMPARE(f->Dateiname, txt);
        QVERIFY(t->toPlainText().startsWith(u"{\\rtf1"_s));
    }

    void neuerTextWirdNichtGespeichert()
    {
        const QString rtf = ordner + u"alt.rtf"_s;
        DateiSchreiben(rtf, formatierterText());
        oeffnen();
        laden(rtf);
        klick(5);
        QVERIFY(f->Text->toPlainText().isEmpty() && f->Dateiname.isEmpty());
        // Typed and saved: nothing is written, neither to the file of before nor elsewhere.
        f->Text->insertPlainText(u"Neuer Text"_s);
        const QByteArray vorher = DateiLesen(rtf);
        klick(20);
        QCOMPARE(DateiLesen(rtf), vorher);
        QCOMPARE(QDir(ordner).entryList(QDir::Files), QStringList{u"alt.rtf"_s});
    }

    void raenderFragenUndBleiben()
    {
        auto& d = Attrappen::dialoge();
        oeffnen();
        f->Text->setPlainText(u"Erster\nZweiter"_s);
        markieren(f->Text, 0, 0);

        d.antwortenInput << u"300"_s;
        klick(16);
        QCOMPARE(d.aufrufe.last().eingabe.titel, u"Texteinzug links"_s);
        QCOMPARE(d.aufrufe.last().eingabe.vorgabe, u"100"_s);
        QCOMPARE(qRound(f->Text->document()->firstBlock().blockFormat().leftMargin() * TwipsProPixel), 300);
        QCOMPARE(Lesen(u"ViewerSeitenrandLinks"_s), u"300"_s);
        // The record panes keep their own margins.
        QCOMPARE(Lesen(u"SeitenrandLinks"_s, u"-"_s), u"-"_s);

        // Cancelled: nothing changes; the box offers the default, then the last answer.
        klick(17);
        QCOMPARE(d.aufrufe.last().eingabe.titel, u"Texteinzug rechts"_s);
        QCOMPARE(d.aufrufe.last().eingabe.vorgabe, u"150"_s);
        QCOMPARE(f->Text->document()->firstBlock().blockFormat().rightMargin(), 0.0);
        QCOMPARE(Lesen(u"ViewerSeitenrandRechts"_s, u"-"_s), u"-"_s);
        klick(16);
        QCOMPARE(d.aufrufe.last().eingabe.vorgabe, u"300"_s);
        QVERIFY(d.meldungen().isEmpty());
    }

    void suchenUndWeitersuchen()
    {
        auto& d = Attrappen::dialoge();
        oeffnen();
        f->Text->setPlainText(u"Alpha beta\nALPHA gamma"_s);
        f->Geaendert = false;

        d.antwortenInput << u"alpha"_s;
        klick(1);
        QCOMPARE(d.aufrufe.last().eingabe.titel, u"Suchbox"_s);
        QCOMPARE(f->Text->textCursor().selectionStart(), 0);
        QCOMPARE(f->Text->textCursor().selectedText(), u"Alpha"_s);
        klick(2);
        QCOMPARE(f->Text->textCursor().selectionStart(), 11);
        klick(2);
        QCOMPARE(d.meldungen().last().text, u"Alles durchsucht, Suche beendet."_s);
        QCOMPARE(d.meldungen().last().titel, u"alpha"_s);

        d.antwortenInput << u"zeta"_s;
        klick(1);
        QCOMPARE(d.meldungen().last().text, u"zeta nicht gefunden"_s);
        QCOMPARE(d.meldungen().last().titel, u"Volltextsuche"_s);
        QVERIFY(!f->Geaendert);
    }

    void formatierenUndGemischteAufzaehlung()
    {
        auto& d = Attrappen::dialoge();
        oeffnen();
        f->Text->setPlainText(u"Eins\nZwei\nDrei"_s);
        f->Geaendert = false;

        // Bullets on the first two, off again for the second.
        markieren(f->Text, 0, 6);
        klick(18);
        QVERIFY(f->Text->document()->findBlockByNumber(1).textList());
        QVERIFY(!f->Text->document()->lastBlock().textList());
        QVERIFY(f->Geaendert);
        markieren(f->Text, 6, 6);
        klick(18);
        QVERIFY(f->Text->document()->firstBlock().textList() && !f->Text->document()->findBlockByNumber(1).textList());

        // Mixed: refused with the message, nothing changes.
        klick(19);
        QCOMPARE(f->Text->textCursor().selectionStart(), 0);
        QCOMPARE(f->Text->textCursor().selectionEnd(), 14);
        const QString vorher = RtfSchreiben(f->Text->document());
        klick(18);
        QCOMPARE(d.meldungsTexte(), QStringList{u"Absätze mit und ohne Aufzählungspunkten wurden markiert, das geht nicht."_s});
        QCOMPARE(d.meldungen()[0].titel, u"Aufzählungsstil mit Punkten"_s);
        QCOMPARE(RtfSchreiben(f->Text->document()), vorher);
    }

    void einstellungenUeberstehenNeustart()
    {
        oeffnen();
        QCOMPARE(f->pos(), QPoint(Px(1455), Px(10)));
        QCOMPARE(f->height(), Px(6915));
        QCOMPARE(f->Text->font().family(), u"Verdana Ref"_s);
        QCOMPARE(f->Text->font().pointSizeF(), 13.0);
        QVERIFY(!f->Geaendert);

        // Esc in the text closes the window and keeps its place; the width is not kept.
        f->move(Px(3000), Px(1500));
        f->resize(f->width(), Px(5250));
        QTest::keyClick(f->Text, Qt::Key_Escape);
        QTRY_VERIFY(!f);
        QCOMPARE(Lesen(u"ViewerLeft"_s), u"3000"_s);
        QCOMPARE(Lesen(u"ViewerTop"_s), u"1500"_s);
        QCOMPARE(Lesen(u"ViewerHeight"_s), u"5250"_s);
        QCOMPARE(Lesen(u"ViewerWindowState"_s), u"0"_s);
        QCOMPARE(Lesen(u"ViewerWidth"_s, u"-"_s), u"-"_s);

        Speichern(u"S1FontName"_s, u"Courier New"_s);
        Speichern(u"S1FontSize"_s, u"9"_s);
        oeffnen();
        QCOMPARE(f->pos(), QPoint(Px(3000), Px(1500)));
        QCOMPARE(f->height(), Px(5250));
        QCOMPARE(f->Text->font().family(), u"Courier New"_s);
        QCOMPARE(f->Text->font().pointSizeF(), 9.0);

        // A maximised window keeps its state only, and opens maximised again.
        f->setWindowState(Qt::WindowMaximized);
        klick(21);
        QTRY_VERIFY(!f);
        QCOMPARE(Lesen(u"ViewerWindowState"_s), u"2"_s);
        QCOMPARE(Lesen(u"ViewerLeft"_s), u"3000"_s);
        oeffnen();
        QVERIFY(f->windowState() & Qt::WindowMaximized);
    }

    void suchformNimmtTexteUndGanzesWort()
    {
        SuchAbfrage = u"alt"_s;
        ErsetzenDurch = u"neu"_s;
        GanzesWort = false;
        ErsetzenModus = true;
        {
            Suchform s;
            s.Form_Load();
            QCOMPARE(s.lblLogo->text(), u"Suchen & Ersetzen"_s);
            QCOMPARE(s.Text_Suchen->selectedText() + s.Text_Ersetzen->selectedText(), u"altneu"_s);
            QVERIFY(s.Text_Ersetzen->isEnabled() && s.lblErsetzen->isEnabled() && s.Check_AllesErsetzen->isEnabled());
        }

        // Through the modal seam: whole word pads the text with one blank each side.
        ModalBedienen([](QDialog* dlg) {
            QCOMPARE(dlg->windowTitle(), u"Suchen und Ersetzen bei allen markierten Tracks"_s);
            dlg->findChild<Textfeld*>(u"Text_Suchen"_s)->setText(u"Live"_s);
            dlg->findChild<Textfeld*>(u"Text_Ersetzen"_s)->setText(u"Studio"_s);
            dlg->findChild<QCheckBox*>(u"Check_GanzesWort"_s)->setChecked(true);
            QVERIFY(!GanzesWort);
            QVERIFY(Klicken(dlg, u"Button_OK"_s));
        });
        Suchform::Anzeigen(nullptr, u"Suchen und Ersetzen bei allen markierten Tracks"_s);
        QVERIFY(ModalBedient());
        QCOMPARE(SuchAbfrage, u" Live "_s);
        QCOMPARE(ErsetzenDurch, u"Studio"_s);
        QVERIFY(GanzesWort);
        QVERIFY(!ErsetzenModus);

        // Out of replace mode the replacement stands greyed; without the box no blanks.
        Suchform s;
        s.Form_Load();
        QVERIFY(!s.Text_Ersetzen->isEnabled() && !s.lblErsetzen->isEnabled() && !s.Check_AllesErsetzen->isEnabled());
        s.Text_Suchen->setText(u"Live"_s);
        s.Button_OK->click();
        QCOMPARE(SuchAbfrage, u"Live"_s);
    }

    void suchformHakenUndExit()
    {
        AllesErsetzen = false;
        GrossKleinschreibung = false;
        SuchAbfrage = u"alt"_s;
        ErsetzenDurch = u"neu"_s;
        ErsetzenModus = true;
        {
            Suchform s;
            s.Form_Load();
            // The two boxes write their flag at once, by a click or set in code.
            s.Check_AllesErsetzen->click();
            QVERIFY(AllesErsetzen);
            s.Check_GrossKleinschreibung->setChecked(true);
            QVERIFY(GrossKleinschreibung);
            s.Check_AllesErsetzen->setChecked(false);
            QVERIFY(!AllesErsetzen);
            s.Text_Suchen->setText(u"anders"_s);
            s.Button_Exit->click();
        }
        QVERIFY(SuchAbfrage.isEmpty());
        QVERIFY(!ErsetzenModus);
        QCOMPARE(ErsetzenDurch, u"neu"_s);
        QVERIFY(GrossKleinschreibung);

        // Esc leaves as Exit does.
        SuchAbfrage = u"alt"_s;
        ErsetzenModus = true;
        ModalBedienen([](QDialog* dlg) { QTest::keyClick(dlg->findChild<Textfeld*>(u"Text_Suchen"_s), Qt::Key_Escape); });
        Suchform::Anzeigen(nullptr, {});
        QVERIFY(ModalBedient());
        QVERIFY(SuchAbfrage.isEmpty() && !ErsetzenModus);
    }
};

RK_TEST_MAIN(TestTexteditor)
#include "tst_texteditor.moc"
