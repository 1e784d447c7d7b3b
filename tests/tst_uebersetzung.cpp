// Marked text to the translation and writing pages, and the translation window: the
// translate page with the two languages, voice and speed of reading aloud that last
// through a restart, the notices, and one probe of the real speech engine.
#include "support/Fenster.h"
#include "support/Modal.h"
#include "support/Testumgebung.h"

#include "media/Uebersetzung.h"
#include "media/frmTranslation.h"
#include "platform/Einheiten.h"
#include "platform/Sprachausgabe.h"
#include "shell/Ausgabebox.h"
#include "shell/Einstellungen.h"
#include "shell/Steuerelemente.h"

#include <QAction>
#include <QAudioDevice>
#include <QClipboard>
#include <QComboBox>
#include <QMediaDevices>
#include <QMenu>
#include <QPlainTextEdit>
#include <QPushButton>
#include <QTabBar>
#include <QTextEdit>
#include <QUrlQuery>

#include <memory>

using namespace Qt::StringLiterals;

namespace {

QString ablage() { return QGuiApplication::clipboard()->text(); }

void markieren(QTextEdit* t, int von, int bis)
{
    QTextCursor c(t->document());
    c.setPosition(von);
    c.setPosition(bis, QTextCursor::KeepAnchor);
    t->setTextCursor(c);
}

// Clicks into a box of the translation window and marks all of its text.
void allesMarkieren(QPlainTextEdit* kasten)
{
    QTest::mouseClick(kasten->viewport(), Qt::LeftButton);
    kasten->selectAll();
}

} // namespace

class TestUebersetzung : public QObject {
    Q_OBJECT

    std::unique_ptr<Ausgabebox> w;

    void starten()
    {
        FensterStarten(w, {.zeilen = {{{"Band", "Abba"},
                                       {"Songs", "Waterloo\nSOS"},
                                       {"InternetTab", "www.abba.example"},
                                       {"InfoTab", "Schwedische Gruppe"},
                                       {"SongText", "My my, at Waterloo"}}},
                           .zeigen = true});
        w->activateWindow();
        QVERIFY(QTest::qWaitForWindowActive(w.get()));
        Attrappen::leeren();
    }

    void fokus(QTextEdit* t)
    {
        t->setFocus(Qt::MouseFocusReason);
        QCoreApplication::processEvents();
        QCOMPARE(w->AktivesFeld, t->objectName());
    }

    // A translation window after its load, not shown modally.
    static std::unique_ptr<frmTranslation> fenster()
    {
        auto f = std::make_unique<frmTranslation>();
        f->Form_Load();
        return f;
    }

private slots:
    void init()
    {
        Testumgebung::zuruecksetzen();
        Attrappen::leeren();
    }
    void cleanup() { w.reset(); }

    void webseitenBekommenDenMarkiertenText()
    {
        starten();
        auto& shell = Attrappen::shell();

        // The selection of the song list; by the menu's key.
        fokus(w->TextSongs);
        markieren(w->TextSongs, 9, 12);
        QTest::keyClick(w.get(), Qt::Key_F9, Qt::ShiftModifier);
        QCOMPARE(shell.geoeffnet, QStringList{u"https://www.deepl.com/translate/"_s});
        QCOMPARE(ablage(), u"SOS"_s);

        // Without a selection the whole text, with its line break.
        markieren(w->TextSongs, 3, 3);
        w->mnuDeeplWrite->trigger();
        QCOMPARE(shell.geoeffnet.last(), u"https://www.deepl.com/write/"_s);
        QCOMPARE(ablage(), u"Waterloo\nSOS"_s);

        // The tool buttons do the same.
        w->tabTexte->setCurrentIndex(2);
        fokus(w->rtfInfo);
        markieren(w->rtfInfo, 0, 11);
        QTest::mouseClick(w->cmdButton[19], Qt::LeftButton);
        QCOMPARE(shell.geoeffnet.last(), u"https://www.deepl.com/translate/"_s);
        QCOMPARE(ablage(), u"Schwedische"_s);

        // The links and the lyrics open the page and hand over an empty text.
        w->tabTexte->setCurrentIndex(1);
        fokus(w->rtfLinks);
        w->rtfLinks->selectAll();
        w->mnuTranslation->trigger();
        QCOMPARE(shell.geoeffnet.size(), 4);
        QCOMPARE(ablage(), QString());
        QGuiApplication::clipboard()->setText(u"alt"_s);
        w->mnuSongTextEinAus->trigger();
        QCOMPARE(w->AktivesFeld, u"txtSongText"_s);
        w->txtSongText->selectAll();
        QTest::mouseClick(w->cmdButton[20], Qt::LeftButton);
        QCOMPARE(shell.geoeffnet.last(), u"https://www.deepl.com/write/"_s);
        QCOMPARE(ablage(), QString());
    }

    void fensterOeffnetDieUebersetzungsseite()
    {
        auto f = fenster();
        auto& shell = Attrappen::shell();
        QCOMPARE(f->windowTitle(), u"Textübersetzung mit Google"_s);
        // The list as the table has it; the source default is no row and shows all the same.
        QCOMPARE(f->cboVon->count(), 246);
        QCOMPARE(f->cboNach->itemText(0), u"AW - Aruba"_s);
        QCOMPARE(f->cboNach->itemText(245), u"ZW - Simbabwe"_s);
        QVERIFY(f->cboVon->findText(u"By - Weißrussland"_s) > f->cboVon->findText(u"BA - Bosnien und Herzegowina"_s));
        QCOMPARE(f->cboVon->findText(u"DE - Deutsch"_s), -1);
        QCOMPARE(f->cboVon->currentText(), u"DE - Deutsch"_s);
        QCOMPARE(f->cboNach->currentText(), u"EN - Englisch"_s);

        // Nothing comes back from the page: the translation box keeps what it had.
        f->txtQuelle->setPlainText(u"Grüß Gott & schöne Grüße\n#2 ?"_s);
        f->txtZiel->setPlainText(u"vorher"_s);
        f->cmdOK->click();
        QCOMPARE(shell.geoeffnet.size(), 1);
        const QUrl seite(shell.geoeffnet.first());
        QCOMPARE(seite.host(), u"translate.google.com"_s);
        const QUrlQuery frage(seite);
        QCOMPARE(frage.queryItemValue(u"sl"_s), u"de"_s);
        QCOMPARE(frage.queryItemValue(u"tl"_s), u"en"_s);
        QCOMPARE(frage.queryItemValue(u"text"_s, QUrl::FullyDecoded), u"Grüß Gott & schöne Grüße\n#2 ?"_s);
        QCOMPARE(f->txtZiel->toPlainText(), u"vorher"_s);

        // Equal codes, or no text, do nothing.
        f->cboNach->setCurrentText(u"DE - Deutschland"_s);
        f->cmdOK->click();
        f->cboNach->setCurrentText(u"FR - Frankreich"_s);
        f->txtQuelle->clear();
        f->cmdOK->click();
        QCOMPARE(shell.geoeffnet.size(), 1);
        QString ergebnis = u"bleibt"_s;
        QVERIFY(!frmTranslation::Uebersetzen(u"Haus"_s, u"FR"_s, u"FR"_s, ergebnis, 0, 3));
        QCOMPARE(ergebnis, u"bleibt"_s);

        // Clear empties both boxes.
        f->txtQuelle->setPlainText(u"a"_s);
        f->cmdButton[0]->click();
        QVERIFY(f->txtQuelle->toPlainText().isEmpty() && f->txtZiel->toPlainText().isEmpty());
    }

    void stimmeTempoUndFensterUeberstehenNeustart()
    {
        auto& d = Attrappen::dialoge();
        auto& sprache = Attrappen::sprachausgabe();
        {
            auto f = fenster();
            // No voice yet: reading aloud asks for one first, offering the engine's first.
            d.antwortenInput << u" Zweite Stimme "_s << u" -5 "_s;
            f->txtQuelle->setPlainText(u"Guten Tag"_s);
            allesMarkieren(f->txtQuelle);
            f->cmdButton[1]->click();
            QCOMPARE(d.aufrufe.size(), 2);
            QCOMPARE(d.aufrufe[0].eingabe.titel, u"Sprecherstimme"_s);
            QCOMPARE(d.aufrufe[0].eingabe.vorgabe, u"Erste Stimme"_s);
            QCOMPARE(d.aufrufe[1].eingabe.titel, u"Tempo"_s);
            QCOMPARE(d.aufrufe[1].eingabe.vorgabe, u"0"_s);
            QCOMPARE(Lesen(u"SprecherStimme"_s), u"Name=Zweite Stimme"_s);
            QCOMPARE(Lesen(u"SprecherTempo"_s), u"-5"_s);
            QCOMPARE(sprache.gesagt.size(), 1);
            QCOMPARE(sprache.gesagt[0].text, u"Guten Tag"_s);
            QCOMPARE(sprache.gesagt[0].stimme, u"Zweite Stimme"_s);
            QCOMPARE(sprache.gesagt[0].tempo, -0.5);

            f->cboVon->setCurrentText(u"FR - Frankreich"_s);
            f->cboNach->setCurrentText(u"IT - Italien"_s);
            f->move(Px(1500), Px(900));
            f->resize(Px(10500), Px(7500));
            f->cmdButton[3]->click();
        }
        QCOMPARE(Lesen(u"TranslationWindowState"_s), u"0"_s);
        QCOMPARE(Lesen(u"TranslationFromWidth"_s), u"10500"_s);
        QCOMPARE(Lesen(u"NachSprache"_s), u"IT - Italien"_s);

        EinstellungenSchliessen();
        d.leeren();
        auto f = fenster();
        QCOMPARE(f->cboVon->currentText(), u"FR - Frankreich"_s);
        QCOMPARE(f->cboNach->currentText(), u"IT - Italien"_s);
        QCOMPARE(f->size(), QSize(Px(10500), Px(7500)));
        QCOMPARE(f->pos(), QPoint(Px(1500), Px(900)));

        // The stored voice is offered; an empty answer keeps voice and speed.
        f->cmdButton[2]->click();
        QCOMPARE(d.aufrufe.size(), 1);
        QCOMPARE(d.aufrufe[0].eingabe.vorgabe, u"Zweite Stimme"_s);
        QCOMPARE(Lesen(u"SprecherStimme"_s), u"Name=Zweite Stimme"_s);

        // The box clicked last is read; a speed beyond 10 reads as the fastest.
        d.antwortenInput << u"Erste Stimme"_s << u"25"_s;
        f->cmdButton[2]->click();
        QCOMPARE(d.aufrufe[2].eingabe.vorgabe, u"-5"_s);
        f->txtQuelle->setPlainText(u"Quelle"_s);
        f->txtZiel->setPlainText(u"Ziel und mehr"_s);
        allesMarkieren(f->txtQuelle);
        QTextCursor c = f->txtZiel->textCursor();
        c.setPosition(0);
        c.setPosition(4, QTextCursor::KeepAnchor);
        f->txtZiel->setTextCursor(c);
        QTest::mouseClick(f->txtZiel->viewport(), Qt::LeftButton, {}, QPoint(1, 1));
        f->txtZiel->setTextCursor(c);
        f->cmdButton[1]->click();
        QCOMPARE(sprache.gesagt.last().text, u"Ziel"_s);
        QCOMPARE(sprache.gesagt.last().stimme, u"Erste Stimme"_s);
        QCOMPARE(sprache.gesagt.last().tempo, 1.0);
    }

    void vorlesenSagtWasFehlt()
    {
        auto& d = Attrappen::dialoge();
        auto& sprache = Attrappen::sprachausgabe();
        auto f = fenster();
        f->txtQuelle->setPlainText(u"nichts markiert"_s);

        // A cancelled voice question stops quietly.
        f->cmdButton[1]->click();
        QCOMPARE(d.aufrufe.size(), 1);
        QVERIFY(d.meldungen().isEmpty());

        Speichern(u"SprecherStimme"_s, u"Name=Erste Stimme"_s);
        f->cmdButton[1]->click();
        QCOMPARE(d.meldungen().size(), 1);
        QCOMPARE(d.meldungen()[0].text, u"Markieren Sie zuerst den Vorlesetext!"_s);
        QCOMPARE(d.meldungen()[0].titel, u"Text markieren"_s);

        // No engine: a clear notice, and no question for a voice.
        d.leeren();
        sprache.da = false;
        Speichern(u"SprecherStimme"_s, QString());
        allesMarkieren(f->txtQuelle);
        f->cmdButton[1]->click();
        QCOMPARE(d.aufrufe.size(), 1);
        QCOMPARE(d.meldungen()[0].titel, u"Sprachausgabe"_s);
        QVERIFY(d.meldungen()[0].text.contains(u"keine Sprachausgabe eingerichtet"_s));
        QVERIFY(d.meldungen()[0].text.contains(u"speech-dispatcher"_s));
        QVERIFY(sprache.gesagt.isEmpty());
    }

    void echteSprachausgabeSprichtUndWirdFertig()
    {
        // Build containers have neither sound nor a speech daemon that could finish.
        if (QMediaDevices::audioOutputs().isEmpty())
            QSKIP("Kein Audioausgang");
        std::unique_ptr<Sprachausgabe> echt = EchteSprachausgabeErzeugen();
        if (!echt->verfuegbar())
            QSKIP("Keine Sprachausgabe installiert");
        const QStringList stimmen = echt->stimmen();
        QVERIFY(!stimmen.isEmpty());
        QVERIFY(echt->sprechen(u"Hallo"_s, stimmen.first(), 0.3));
        QTRY_VERIFY_WITH_TIMEOUT(echt->spricht(), 5000);
        QTRY_VERIFY_WITH_TIMEOUT(!echt->spricht(), 20000);
    }
};

RK_TEST_MAIN(TestUebersetzung)
#include "tst_uebersetzung.moc"
