// The sleep function: the time dialog, the menu entry with its question, and what
// happens at the chosen minute. The fake clock runs the minutes; the doubles of the
// process and of the energy service record the end and the switch-off.
#include "support/Fenster.h"
#include "support/Katalog.h"
#include "support/Modal.h"
#include "support/Testumgebung.h"

#include "platform/Dienste.h"
#include "playback/Schlafmodus.h"
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
        FensterStarten(w, {.zeilen = Baender({"Abba"}), .zuruecksetzen = false, .zeigen = true});
        Attrappen::leeren();
    }

    static QDateTime jetzt() { return D().uhr().jetzt(); }
    static QString hhmm(const QDateTime& t) { return t.time().toString("hh:mm"); }
    // Milliseconds from now to the first moment of the minute of t.
    static qint64 bisZurMinute(const QDateTime& t)
    {
        return jetzt().msecsTo(QDateTime(t.date(), QTime(t.time().hour(), t.time().minute())));
    }

    // Answers the question, then types the time into the dialog (an empty time: Exit).
    void armieren(const QString& antwort, const QString& zeit)
    {
        Attrappen::dialoge().antwortenMsg.enqueue(antwort);
        ModalBedienen([zeit](QDialog* d) {
            auto* f = qobject_cast<frmUhrzeit*>(d);
            QVERIFY(f);
            if (!zeit.isEmpty()) {
                f->Text1[0]->setText(zeit.section(':', 0, 0));
                f->Text1[1]->setText(zeit.section(':', 1, 1));
            }
            QVERIFY(Klicken(f, zeit.isEmpty() ? "cmdExit" : "cmdOK"));
        });
        w->mnuSleep->trigger();
        QVERIFY(ModalBedient());
    }

    void istAus()
    {
        QVERIFY(!w->mnuSleep->isChecked());
        QVERIFY(!w->TimerSleep->isEnabled());
        QVERIFY(!w->schlafmodus().SleepHerunterfahren);
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
        // Single digits get their leading zero; 24 and 60 are let through; above them
        // the hint comes and the window stays.
        const struct { const char *stunden, *minuten, *hinweis, *zeit; } faelle[] = {
            {"7", "5", nullptr, "07:05"}, {"24", "60", nullptr, "24:60"},
            {"25", "0", "Stunden 00-24", "00:00"}, {"12", "61", "Minuten 00-60", "00:00"}};
        for (const auto& fall : faelle) {
            Attrappen::dialoge().leeren();
            SleepZeit = "12:34";
            frmUhrzeit f;
            f.Form_Load();
            // It opens on the current time, and its caption keeps the time running.
            QCOMPARE(f.Text1[0]->text() + ":" + f.Text1[1]->text(), hhmm(jetzt()));
            Attrappen::uhr().vorruecken(1000);
            QCOMPARE(f.windowTitle(), jetzt().time().toString("hh:mm:ss"));
            f.Text1[0]->setText(fall.stunden);
            f.Text1[1]->setText(fall.minuten);
            f.cmdOK->click();
            QCOMPARE(SleepZeit, QString(fall.zeit));
            QCOMPARE(f.result(), fall.hinweis ? 0 : int(QDialog::Accepted));
            QCOMPARE(Attrappen::dialoge().meldungsTexte(), fall.hinweis ? QStringList{fall.hinweis} : QStringList());
        }
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
        QTest::keyClicks(f.Text1[0], "x08");
        QCOMPARE(f.Text1[0]->text(), QString("08"));
        QVERIFY(f.Text1[1]->hasFocus());
        // Leaving the minutes with 75 brings the hint and the field back.
        f.Text1[1]->clear();
        QTest::keyClicks(f.Text1[1], "75");
        QCOMPARE(Attrappen::dialoge().meldungsTexte(), QStringList{"Minuten 00-60"});
        QVERIFY(f.Text1[1]->hasFocus());
        f.Text1[1]->clear();
        QTest::keyClicks(f.Text1[1], "15");
        QTest::keyClick(f.cmdOK, Qt::Key_Space);
        QCOMPARE(SleepZeit, QString("08:15"));
        QCOMPARE(Attrappen::dialoge().meldungen().size(), 1);
    }

    void exitAbbruchUndZweiterKlickLassenSleepAus()
    {
        starten();
        w->schlafmodus().SleepHerunterfahren = true;
        // "Exit", and a box closed without an answer, ask nothing more.
        for (const char* antwort : {"Exit", ""}) {
            Attrappen::dialoge().antwortenMsg.enqueue(antwort);
            w->mnuSleep->trigger();
            istAus();
        }
        QCOMPARE(Attrappen::dialoge().meldungen().size(), 2);
        QCOMPARE(Attrappen::dialoge().meldungen().first().standard, 2);
        // A cancelled time disarms everything.
        armieren("Nein", {});
        istAus();
        // A second click disarms without a question.
        armieren("Nein", hhmm(jetzt().addSecs(60)));
        Attrappen::dialoge().leeren();
        w->mnuSleep->trigger();
        istAus();
        QVERIFY(Attrappen::dialoge().aufrufe.isEmpty());
        // "Ja" without the right to switch off: the hint, and nothing armed.
        Attrappen::energie().darf = false;
        Attrappen::dialoge().antwortenMsg.enqueue("Ja");
        w->mnuSleep->trigger();
        QCOMPARE(Attrappen::dialoge().meldungsTexte().value(1),
                 QString("Für das Herunterfahren des PC's werden Admin-Rechte benötigt!"));
        istAus();
    }

    void zurMinuteEndetDasProgrammOderDerPc()
    {
        // "Nein" ends the program at the minute, one before now being tomorrow's; "Ja"
        // switches off once and waits for the end, and where that is refused, a hint that
        // closes by itself and the program ends all the same.
        const struct { const char* antwort; int sekunden; bool gelingt; } faelle[] = {
            {"Nein", 150, true}, {"Nein", -60, true}, {"Ja", 90, true}, {"Ja", 90, false}};
        for (const auto& fall : faelle) {
            starten();
            const bool ja = QString(fall.antwort) == "Ja";
            Attrappen::energie().gelingt = fall.gelingt;
            const QDateTime ziel = jetzt().addSecs(fall.sekunden);
            armieren(fall.antwort, hhmm(ziel));
            QCOMPARE(w->schlafmodus().SleepHerunterfahren, ja);
            QCOMPARE(w->staBar->PanelText(6), "Sleep " + hhmm(ziel));
            Attrappen::uhr().vorruecken(bisZurMinute(fall.sekunden < 0 ? ziel.addDays(1) : ziel) - 1);
            QVERIFY(Attrappen::prozess().beendet.isEmpty());
            Attrappen::dialoge().leeren();
            Attrappen::uhr().vorruecken(30000);
            QCOMPARE(Attrappen::energie().ausgeschaltet, ja ? 1 : 0);
            QCOMPARE(Attrappen::prozess().beendet, ja && fall.gelingt ? QList<int>() : QList<int>{0});
            QCOMPARE(w->isVisible(), ja && fall.gelingt);
            if (fall.gelingt)
                continue;
            QCOMPARE(Attrappen::dialoge().meldungsTexte(),
                     QStringList{"Der PC konnte nicht heruntergefahren werden.\nRillenkammer wird beendet."});
            QVERIFY(Attrappen::dialoge().meldungen().first().sekunden >= 2);
        }
    }
};

RK_TEST_MAIN(TestSleep)
#include "tst_sleep.moc"
