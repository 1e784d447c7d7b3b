// The sleep function: the time dialog, the menu entry with its question, and what
// happens at the chosen minute. The fake clock runs the minutes; the doubles of the
// process and of the energy service record the end and the switch-off.
#include "support/Katalog.h"
#include "support/Modal.h"
#include "support/Testumgebung.h"

#include "platform/Dienste.h"
#include "platform/Uhr.h"
#include "playback/frmUhrzeit.h"
#include "shell/Ausgabebox.h"
#include "shell/Einstellungen.h"
#include "shell/Globale.h"
#include "shell/Steuerelemente.h"

#include <QAction>
#include <QDialog>
#include <QPushButton>

#include <memory>

class TestSleep : public QObject {
    Q_OBJECT

    std::unique_ptr<Ausgabebox> w;

    void starten()
    {
        w.reset();
        Speichern("ArchivPfad", KatalogAnlegen(Testordner("sleep") + "S.db", Baender({"Abba"})));
        w = std::make_unique<Ausgabebox>();
        w->Form_Load();
        w->show();
        QVERIFY(QTest::qWaitForWindowExposed(w.get()));
        Attrappen::dialoge().leeren();
        Attrappen::prozess().beendet.clear();
        Attrappen::energie() = EnergieAttrappe();
    }

    static QDateTime jetzt() { return D().uhr().jetzt(); }
    static QString hhmm(const QDateTime& t) { return t.time().toString("hh:mm"); }
    // Milliseconds from now to the first moment of the minute of t.
    static qint64 bisZurMinute(const QDateTime& t)
    {
        const QDateTime minute(t.date(), QTime(t.time().hour(), t.time().minute()));
        return jetzt().msecsTo(minute);
    }

    // Answers the question, then types the time into the dialog (an empty time: Exit).
    void armieren(const QString& antwort, const QString& zeit)
    {
        Attrappen::dialoge().antwortenMsg.enqueue(antwort);
        ModalBedienen([zeit](QDialog* d) {
            auto* f = qobject_cast<frmUhrzeit*>(d);
            QVERIFY(f);
            if (zeit.isEmpty()) {
                QVERIFY(Klicken(f, "cmdExit"));
                return;
            }
            f->Text1[0]->setText(zeit.section(':', 0, 0));
            f->Text1[1]->setText(zeit.section(':', 1, 1));
            QVERIFY(Klicken(f, "cmdOK"));
        });
        w->mnuSleep->trigger();
        QVERIFY(ModalBedient());
    }

    void istAus()
    {
        QVERIFY(!w->mnuSleep->isChecked());
        QVERIFY(!w->TimerSleep->isEnabled());
        QVERIFY(!w->SleepHerunterfahren);
        QCOMPARE(w->staBar->PanelText(6), QString("Sleep Off"));
    }

private slots:
    void init()
    {
        Testumgebung::zuruecksetzen();
        Attrappen::dialoge().leeren();
        ProgrammOrdner = Testumgebung::programmOrdner();
    }
    void cleanup() { w.reset(); }

    void uhrzeitFenster()
    {
        SleepZeit = "12:34";
        frmUhrzeit f;
        f.Form_Load();
        const QString zeit = jetzt().time().toString("hh:mm:ss");
        QCOMPARE(f.windowTitle(), zeit);
        QCOMPARE(f.Text1[0]->text(), zeit.left(2));
        QCOMPARE(f.Text1[1]->text(), zeit.mid(3, 2));
        QCOMPARE(SleepZeit, QString("00:00"));
        // The caption keeps the time.
        Attrappen::uhr().vorruecken(1000);
        QCOMPARE(f.windowTitle(), jetzt().time().toString("hh:mm:ss"));

        // Single digits get their leading zero.
        f.Text1[0]->setText("7");
        f.Text1[1]->setText("5");
        f.cmdOK->click();
        QCOMPARE(SleepZeit, QString("07:05"));
        QCOMPARE(f.result(), int(QDialog::Accepted));

        // 24 and 60 are let through; above them the hint comes and the window stays.
        frmUhrzeit h;
        h.Form_Load();
        h.Text1[0]->setText("25");
        h.cmdOK->click();
        h.Text1[0]->setText("12");
        h.Text1[1]->setText("61");
        h.cmdOK->click();
        QCOMPARE(Attrappen::dialoge().meldungsTexte(), (QStringList{"Stunden 00-24", "Minuten 00-60"}));
        const Meldung m = Attrappen::dialoge().meldungen().first();
        QCOMPARE(m.typ, 3);
        QCOMPARE(m.titel, QString("Eingabehinweis"));
        QCOMPARE(h.result(), 0);
        QCOMPARE(SleepZeit, QString("00:00"));
        h.Text1[0]->setText("24");
        h.Text1[1]->setText("60");
        h.cmdOK->click();
        QCOMPARE(SleepZeit, QString("24:60"));
    }

    void tippenSpringtWeiterUndPrueft()
    {
        frmUhrzeit f;
        f.Form_Load();
        f.show();
        f.activateWindow();
        QVERIFY(QTest::qWaitForWindowActive(&f));
        f.Text1[0]->setFocus();
        f.Text1[0]->clear();
        // Only digits, and two of them move on to the minutes.
        QTest::keyClicks(f.Text1[0], "x0");
        QCOMPARE(f.Text1[0]->text(), QString("0"));
        QVERIFY(f.Text1[0]->hasFocus());
        QTest::keyClicks(f.Text1[0], "8");
        QVERIFY(f.Text1[1]->hasFocus());
        f.Text1[1]->clear();
        QTest::keyClicks(f.Text1[1], "75");
        // Leaving the minutes with 75 brings the hint and the field back.
        QCOMPARE(Attrappen::dialoge().meldungsTexte(), QStringList{"Minuten 00-60"});
        QVERIFY(f.Text1[1]->hasFocus());
        f.Text1[1]->clear();
        QTest::keyClicks(f.Text1[1], "15");
        QVERIFY(f.cmdOK->hasFocus());
        QTest::keyClick(f.cmdOK, Qt::Key_Space);
        QCOMPARE(SleepZeit, QString("08:15"));
        QCOMPARE(Attrappen::dialoge().meldungen().size(), 1);
    }

    void exitLaesstSleepAus()
    {
        starten();
        QVERIFY(w->mnuSleep->isEnabled());
        w->SleepHerunterfahren = true;
        Attrappen::dialoge().antwortenMsg.enqueue("Exit");
        w->mnuSleep->trigger();
        const Meldung frage = Attrappen::dialoge().meldungen().value(0);
        QCOMPARE(frage.text, QString("Soll der PC nach Aufruf der Sleep-Funktion \nheruntergefahren werden?"));
        QCOMPARE(frage.typ, 32);
        QCOMPARE(frage.standard, 2);
        QCOMPARE(frage.titel, QString("Sleep-Modus"));
        istAus();
        // A box closed without an answer is an Exit as well.
        w->mnuSleep->trigger();
        istAus();
        QCOMPARE(Attrappen::dialoge().meldungen().size(), 2);
    }

    void neinBeendetDasProgrammZurMinute()
    {
        starten();
        // A cancelled time disarms everything.
        armieren("Nein", {});
        istAus();
        // A second click disarms without a question.
        armieren("Nein", hhmm(jetzt().addSecs(60)));
        Attrappen::dialoge().leeren();
        w->mnuSleep->trigger();
        istAus();
        QVERIFY(Attrappen::dialoge().aufrufe.isEmpty());

        const QDateTime ziel = jetzt().addSecs(150);
        armieren("Nein", hhmm(ziel));
        QVERIFY(w->mnuSleep->isChecked());
        QVERIFY(w->TimerSleep->isEnabled());
        QCOMPARE(w->TimerSleep->interval(), 5000);
        QVERIFY(!w->SleepHerunterfahren);
        QCOMPARE(w->staBar->PanelText(6), "Sleep " + hhmm(ziel));
        Attrappen::uhr().vorruecken(bisZurMinute(ziel) - 1);
        QVERIFY(Attrappen::prozess().beendet.isEmpty());
        Attrappen::uhr().vorruecken(5000);
        QCOMPARE(Attrappen::prozess().beendet, QList<int>{0});
        QVERIFY(!w->isVisible());
        QCOMPARE(Attrappen::energie().ausgeschaltet, 0);
    }

    void zeitVorJetztKommtAmNaechstenTag()
    {
        starten();
        const QDateTime ziel = jetzt().addSecs(-60);
        armieren("Nein", hhmm(ziel));
        Attrappen::uhr().vorruecken(120000);
        QVERIFY(Attrappen::prozess().beendet.isEmpty());
        Attrappen::uhr().vorruecken(bisZurMinute(ziel.addDays(1)) + 5000);
        QCOMPARE(Attrappen::prozess().beendet, QList<int>{0});
    }

    void jaSchaltetAusWoEsDarf()
    {
        starten();
        // Without the right: the hint, and nothing armed.
        Attrappen::energie().darf = false;
        Attrappen::dialoge().antwortenMsg.enqueue("Ja");
        w->mnuSleep->trigger();
        const Meldung hinweis = Attrappen::dialoge().meldungen().value(1);
        QCOMPARE(hinweis.text, QString("Für das Herunterfahren des PC's werden Admin-Rechte benötigt!"));
        QCOMPARE(hinweis.typ, 4);
        QCOMPARE(hinweis.titel, QString("Benutzerhinweis"));
        istAus();

        // With it: asked once in that minute, and the program waits for the end.
        Attrappen::energie().darf = true;
        QDateTime ziel = jetzt().addSecs(90);
        armieren("Ja", hhmm(ziel));
        QVERIFY(w->SleepHerunterfahren);
        QCOMPARE(w->staBar->PanelText(6), "Sleep " + hhmm(ziel));
        Attrappen::uhr().vorruecken(bisZurMinute(ziel) - 1);
        QCOMPARE(Attrappen::energie().ausgeschaltet, 0);
        Attrappen::uhr().vorruecken(30000);
        QCOMPARE(Attrappen::energie().ausgeschaltet, 1);
        QVERIFY(Attrappen::prozess().beendet.isEmpty());

        // Refused: a hint that closes by itself, and the program ends all the same.
        w->mnuSleep->trigger();
        Attrappen::energie().gelingt = false;
        ziel = jetzt().addSecs(90);
        armieren("Ja", hhmm(ziel));
        Attrappen::dialoge().leeren();
        Attrappen::uhr().vorruecken(bisZurMinute(ziel) + 30000);
        QCOMPARE(Attrappen::energie().ausgeschaltet, 2);
        QCOMPARE(Attrappen::dialoge().meldungsTexte(),
                 QStringList{"Der PC konnte nicht heruntergefahren werden.\nRillenkammer wird beendet."});
        QVERIFY(Attrappen::dialoge().meldungen().first().sekunden >= 2);
        QCOMPARE(Attrappen::prozess().beendet, QList<int>{0});
    }
};

RK_TEST_MAIN(TestSleep)
#include "tst_sleep.moc"
