// The counts and small commands beside the tool bar: Tracks of the whole table, the cover
// name to the clipboard, and the music folder from the folder dialog.
#include "support/Attrappen.h"
#include "support/Fenster.h"
#include "support/Katalog.h"
#include "support/Testumgebung.h"

#include "catalogue/FlexGrid.h"
#include "shell/Ausgabebox.h"
#include "shell/Steuerelemente.h"

#include <QAction>
#include <QClipboard>
#include <QGuiApplication>
#include <QLabel>
#include <QListWidget>
#include <QPushButton>

#include <memory>

class TestWerkzeugleiste : public QObject {
    Q_OBJECT

    std::unique_ptr<Ausgabebox> w;

    QString ordner(const QString& name, int dateien)
    {
        const QString d = Testordner(name);
        for (int i = 0; i < dateien; ++i)
            DateiSchreiben(d + QStringLiteral("%1 Lied.mp3").arg(i), "x");
        return d;
    }

private slots:
    void cleanup() { w.reset(); }

    void tracksZaehlen()
    {
        const QString a = ordner("abba", 3), b = ordner("bach", 2);
        FensterStarten(w, {.zeilen = {{{"Band", "Abba"}, {"Musikpfad", a}},
                                      {{"Band", "Bach"}, {"Musikpfad", b}},
                                      {{"Band", "Cash"}}}});
        Attrappen::leeren();
        w->mnuAnzahlTracks->trigger();
        QCOMPARE(Attrappen::dialoge().meldungsTexte(), QStringList{"5 Tracks & Movies vorhanden."});
        QCOMPARE(w->MSFlexGrid1->Row(), 3); // the last row reached stays current
        QCOMPARE(w->TextBand->text(), QString("Cash"));
    }

    void coverNameUndMusikordner()
    {
        FensterStarten(w, {.zeilen = {{{"Band", QString(60, u'B')}, {"LPTitel", QString(60, u'T')}}}});
        Attrappen::leeren();
        w->cmdBandTitel->click();
        const QString name = QGuiApplication::clipboard()->text();
        QCOMPARE(name.size(), 99);
        QVERIFY(name.startsWith(QString(60, u'B') + " - T"));
        QCOMPARE(Attrappen::dialoge().meldungsTexte(), QStringList{name + "\r\n\r\nCover-Name in die Zwischenablage kopiert."});

        const QString musik = ordner("musik", 2);
        Attrappen::dialoge().antwortenOrdner << musik;
        w->imgMusikpfad->click();
        QCOMPARE(w->TextMusikpfad->text(), musik);
        QCOMPARE(w->filTrack->count(), 2);
        QCOMPARE(w->Bez[12]->text(), QString("Tracks && Movies 2"));
        // No folder chosen: nothing changes.
        w->imgMusikpfad->click();
        QCOMPARE(w->TextMusikpfad->text(), musik);
    }
};

RK_TEST_MAIN(TestWerkzeugleiste)
#include "tst_werkzeugleiste.moc"
