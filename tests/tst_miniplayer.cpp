// The mini player: going over from the main window and back, its place and its two
// shapes, its buttons without a Track, the volume tool and the end by its closing.
#include "support/Attrappen.h"
#include "support/Fenster.h"
#include "support/Katalog.h"
#include "support/Testumgebung.h"

#include "platform/Einheiten.h"
#include "platform/Uhr.h"
#include "playback/MiniPlayer.h"
#include "playback/frmMiniPlayer.h"
#include "shell/Ausgabebox.h"
#include "shell/Einstellungen.h"
#include "shell/Globale.h"
#include "shell/Steuerelemente.h"

#include <QApplication>
#include <QGuiApplication>
#include <QScreen>
#include <QToolButton>

#include <memory>

class TestMiniPlayer : public QObject {
    Q_OBJECT

    std::unique_ptr<Ausgabebox> w;

    frmMiniPlayer* mini() const { return w->miniPlayer().fenster(); }
    int formelOben() const
    {
        return Twips(QGuiApplication::primaryScreen()->availableGeometry().height())
            - frmMiniPlayer::HoeheWaagerecht - 550;
    }

private slots:
    void init()
    {
        FensterStarten(w, {.zeilen = Baender({"Abba"}), .zeigen = true});
        Attrappen::leeren();
    }
    void cleanup() { w.reset(); }

    void hinUndZurueck()
    {
        // Never stored, and stored as 0: the top comes from the screen's height.
        for (const char* oben : {"", "0"}) {
            Speichern("MiniPlayerTop", oben);
            w->imgMiniPlayer->click();
            QVERIFY(w->isHidden());
            QVERIFY(mini()->isVisible());
            QVERIFY(!w->Timer4->isEnabled());
            QCOMPARE(Twips(mini()->y()), Twips(Px(formelOben())));
            QCOMPARE(Twips(mini()->x()), Twips(Px(50)));
            QCOMPARE(Twips(mini()->height()), frmMiniPlayer::HoeheWaagerecht);
            QVERIFY(!Lesen("AusgabeboxWidth").isEmpty()); // the main window's place is kept
            mini()->imgVorBack[4]->click();
            QVERIFY(w->isVisible() && mini()->isHidden());
            QVERIFY(w->Timer4->isEnabled());
            QCOMPARE(Lesen("MiniPlayerHorizontalTop").toInt(), Twips(mini()->y()));
        }
        // Once placed, the window comes back where it was last, whatever MiniPlayerTop says.
        mini()->move(200, 210);
        mini()->imgVorBack[4]->click();
        Speichern("MiniPlayerTop", "3000");
        w->imgMiniPlayer->click();
        QApplication::setActiveWindow(mini());
        QCOMPARE(mini()->pos(), QPoint(200, 210));
    }

    void drehenUndKnoepfeOhneTrack()
    {
        w->imgMiniPlayer->click();
        frmMiniPlayer* f = mini();
        f->move(100, 120);
        f->imgVorBack[12]->click();
        QCOMPARE(Twips(f->height()), frmMiniPlayer::HoeheSenkrecht);
        QCOMPARE(Lesen("MiniPlayerHorizontalLeft").toInt(), Twips(100));
        QVERIFY(f->Senkrecht());
        f->move(300, 40);
        f->imgVorBack[12]->click();
        QCOMPARE(Twips(f->height()), frmMiniPlayer::HoeheWaagerecht);
        QCOMPARE(f->pos(), QPoint(100, 120)); // back at the lying shape's place
        QCOMPARE(Lesen("MiniPlayerVertikalTop").toInt(), Twips(40));
        // With nothing playing, pause and loop do nothing.
        QCOMPARE(w->staBar->PanelText(2), QString("no play"));
        f->imgVorBack[6]->click();
        f->imgVorBack[7]->click();
        QVERIFY(!f->imgVorBack[6]->isHidden() && f->imgVorBack[10]->isHidden());
        QVERIFY(!f->imgVorBack[7]->isHidden() && f->imgVorBack[8]->isHidden());
        // The volume tool is not there: named, nothing started.
        f->imgLautsprecherregler->click();
        QCOMPARE(Attrappen::dialoge().meldungsTexte(), QStringList{"Pegelsteller.exe nicht gefunden."});
        DateiSchreiben(ProgrammOrdner + "Pegelsteller", "#!/bin/sh\n");
        f->imgLautsprecherregler->click();
        QCOMPARE(Attrappen::shell().gestartet.size(), 1);
        QCOMPARE(GetSetting(AppNameVolume, Sektion, "MiniplayerTop").toInt(), qRound(Twips(f->y()) * 0.06667));
        QFile::remove(ProgrammOrdner + "Pegelsteller");
    }

    // Closing the mini player ends the program through the main window's unload.
    void schliessenBeendet()
    {
        w->imgMiniPlayer->click();
        mini()->move(70, 80);
        mini()->close();
        QCOMPARE(Attrappen::prozess().beendet, QList<int>{0});
        QCOMPARE(Lesen("MiniPlayerHorizontalLeft").toInt(), Twips(70));
        QCOMPARE(w->staBar->PanelText(2), QString("no play"));
    }
};

RK_TEST_MAIN(TestMiniPlayer)
#include "tst_miniplayer.moc"
