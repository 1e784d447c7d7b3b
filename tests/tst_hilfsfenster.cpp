// The tips and the about window of the help menu.
#include "support/Attrappen.h"
#include "support/Fenster.h"
#include "support/Katalog.h"
#include "support/Modal.h"
#include "support/Testumgebung.h"

#include "auxiliary/Tipbox.h"
#include "auxiliary/frmInfo.h"
#include "platform/Textdatei.h"
#include "shell/Ausgabebox.h"
#include "shell/Einstellungen.h"
#include "shell/Globale.h"
#include "shell/Steuerelemente.h"

#include <QAction>
#include <QCheckBox>
#include <QFile>
#include <QFrame>
#include <QLabel>
#include <QPushButton>

#include <memory>

class TestHilfsfenster : public QObject {
    Q_OBJECT

    void tips(const QByteArray& inhalt)
    {
        QFile::remove(ProgrammOrdner + "TipOfDay.ini");
        if (!inhalt.isNull())
            DateiSchreiben(ProgrammOrdner + "TipOfDay.ini", inhalt);
    }

private slots:
    void init() { TippsVomMenue = true; }

    void tipbox()
    {
        tips("Erster \xe4\r\nZweiter\r\nDritter\r\n");
        {
            Tipbox t;
            QCOMPARE(t.lblTipText->text(), QString("Erster ä")); // the first tip at each opening
            t.cmdNextTip->click();
            t.cmdNextTip->click();
            QCOMPARE(t.lblTipText->text(), QString("Dritter"));
            t.cmdNextTip->click();
            QCOMPARE(t.lblTipText->text(), QString("Erster ä"));
            t.chkLoadTipsAtStartup->click();
            QCOMPARE(Lesen("Show Tips at Startup"), QString("0"));
        }
        // Not from the menu, with tips switched off: nothing to show.
        TippsVomMenue = false;
        QVERIFY(!Tipbox().Geladen());
        TippsVomMenue = true;
        {
            tips("Nur einer\r\n");
            Tipbox t;
            t.cmdNextTip->click();
            QCOMPARE(t.lblTipText->text(), QString("Nur einer"));
            QVERIFY(!t.chkLoadTipsAtStartup->isChecked());
        }
        {
            tips({});
            Tipbox t;
            const QString meldung = t.lblTipText->text();
            QVERIFY(meldung.startsWith("Die Datei TipOfDay.ini wurde nicht gefunden?"));
            t.cmdNextTip->click();
            QCOMPARE(t.lblTipText->text(), meldung);
        }
        // The program's own tips: at least thirty, none empty.
        const QStringList eigene = TextdateiLesen(QStringLiteral(":/resources/programmordner/TipOfDay.ini"));
        QVERIFY(eigene.size() >= 30);
        QVERIFY(!eigene.contains(QString()));
    }

    // From the menu of the window: Ctrl+T opens the tips, "Info" the credits; both modal.
    void ueberDasMenue()
    {
        std::unique_ptr<Ausgabebox> w;
        FensterStarten(w, {.zeilen = Baender({"Abba"}), .zeigen = true});
        tips("Ein Tipp\r\n");
        TippsVomMenue = false;
        Speichern("Show Tips at Startup", "0");
        QString gezeigt;
        ModalBedienen([&](QDialog* d) {
            gezeigt = d->findChild<QLabel*>("lblTipText")->text();
            d->accept();
        });
        w->MenuTipOfDay->trigger();
        QCOMPARE(gezeigt, QString("Ein Tipp"));
        ModalBedienen([&](QDialog* d) {
            QCOMPARE(d->objectName(), QString("frmInfo"));
            d->accept();
        });
        w->MenuInfo->trigger();
        QVERIFY(ModalBedient());
    }

    void abspann()
    {
        QVERIFY(Abspannzeilen("R i l l e n k a m m e r", "0.1.0").contains("Versionsnummer: 0.1.0"));
        QCOMPARE(Abspannzeilen("x", "1").size(), 20);
        KlangAttrappe& klang = Attrappen::klang();
        klang.gespielt.clear();
        auto f = std::make_unique<frmInfo>();
        f->show();
        QCOMPARE(klang.gespielt, QStringList{ProgrammOrdner + "Blues.wav"});
        QLabel* blatt = f->Picture2;
        const int oben = blatt->y();
        Attrappen::uhr().vorruecken(500);
        QCOMPARE(blatt->y(), oben - 10); // one pixel each 50 ms
        // A click stops the credits, not the music.
        QTest::mouseClick(blatt, Qt::LeftButton, {}, QPoint(5, blatt->height() - 5));
        Attrappen::uhr().vorruecken(500);
        QCOMPARE(blatt->y(), oben - 10);
        QCOMPARE(klang.gespielt.size(), 1);
        // Once the sheet has left the pane it starts again from the top, with the music.
        f->Timer1->setEnabled(true);
        blatt->move(0, -blatt->height() - 1);
        Attrappen::uhr().vorruecken(50);
        QCOMPARE(blatt->y(), 0);
        QCOMPARE(klang.gespielt.size(), 2);
        // Esc closes only from the credits' panes; closing ends the music.
        f->BildNimb->setFocusPolicy(Qt::StrongFocus);
        f->BildNimb->setFocus();
        QTest::keyClick(f.get(), Qt::Key_Escape);
        QVERIFY(f->isVisible());
        f->Picture1->setFocus();
        QTest::keyClick(f->Picture1, Qt::Key_Escape);
        QVERIFY(!f->isVisible());
        f.reset();
        QCOMPARE(klang.gespielt.last(), ProgrammOrdner + " ");
    }
};

RK_TEST_MAIN(TestHilfsfenster)
#include "tst_hilfsfenster.moc"
