// The main window on a catalogue of 100,000 Carriers: time to a window with its table,
// one record move by the arrow key, a letter filter, a sort by a head, and the memory.
// Prints its figures; it runs in a temporary home and touches nothing else.
//
//   bench_fenster [rows] [runs]
#include "support/Benchkatalog.h"

#include "catalogue/Datensteuerung.h"
#include "catalogue/FlexGrid.h"
#include "catalogue/Katalogdatei.h"
#include "catalogue/Tabellenansicht.h"
#include "shell/Anwendung.h"
#include "shell/Ausgabebox.h"
#include "shell/EchteDialoge.h"
#include "shell/Einstellungen.h"

#include <QApplication>
#include <QCheckBox>
#include <QDir>
#include <QElapsedTimer>
#include <QFile>
#include <QHeaderView>
#include <QTest>

#include <algorithm>
#include <cstdio>
#include <vector>

namespace {

void zeigen(const char* was, const std::vector<double>& ms)
{
    std::printf("%-42s median %8.2f ms   max %8.2f ms   (%zu runs)\n", was, median(ms), maximum(ms), ms.size());
}

} // namespace

int main(int argc, char** argv)
{
    const int zeilen = argc > 1 ? std::atoi(argv[1]) : 100000;
    const int laeufe = argc > 2 ? std::atoi(argv[2]) : 5;
    Benchumgebung wurzel;

    QApplication app(argc, argv);
    RessourcenAnmelden();
    EchteDialogeAnmelden();

    const QString katalog = wurzel.pfad() + QStringLiteral("/Sammlung.db");
    QElapsedTimer uhr;
    uhr.start();
    KatalogAnlegen(katalog, wurzel.pfad() + QStringLiteral("/musik/"), zeilen);
    std::printf("catalogue of %d Carriers made in %.1f s (%.0f MB)\n", zeilen, double(uhr.elapsed()) / 1000.0,
                double(QFileInfo(katalog).size()) / 1e6);
    Speichern(QStringLiteral("ArchivPfad"), katalog);

    std::vector<double> start, bewegung, filter, sortierung;
    long speicher = 0;
    for (int lauf = 0; lauf < laeufe; ++lauf) {
        uhr.restart();
        auto* w = new Ausgabebox;
        w->Form_Load();
        w->show();
        QCoreApplication::processEvents();
        start.push_back(double(uhr.nsecsElapsed()) / 1e6);
        if (w->MSFlexGrid1->Rows() != zeilen + 1)
            std::printf("unexpected: %d rows\n", w->MSFlexGrid1->Rows() - 1);

        FlexGrid* g = w->MSFlexGrid1;
        g->setFocus();
        g->setRow(1 + lauf * 1000);
        QCoreApplication::processEvents();
        for (int i = 0; i < 1000 / laeufe + (lauf == 0 ? 1000 % laeufe : 0); ++i) {
            uhr.restart();
            QTest::keyClick(g, Qt::Key_Down);
            QCoreApplication::processEvents();
            bewegung.push_back(double(uhr.nsecsElapsed()) / 1e6);
        }

        w->chkTabelle->setChecked(true);
        uhr.restart();
        w->tabellenansicht().ButtonAlpabeth_MouseUp(18); // S, with its sharp s
        QCoreApplication::processEvents();
        filter.push_back(double(uhr.nsecsElapsed()) / 1e6);
        w->chkTabelle->setChecked(false);
        w->katalogdatei().MenuAktualisieren_Click();

        QHeaderView* kopf = g->horizontalHeader();
        const int c = w->MSFlexGrid1->SpalteSuchen(QStringLiteral("Stil"));
        const QPoint mitte(kopf->sectionViewportPosition(c) + kopf->sectionSize(c) / 2, kopf->height() / 2);
        uhr.restart();
        QTest::mouseClick(kopf->viewport(), Qt::LeftButton, Qt::NoModifier, mitte);
        QCoreApplication::processEvents();
        sortierung.push_back(double(uhr.nsecsElapsed()) / 1e6);

        speicher = std::max(speicher, residentKb());
        w->hide();
        delete w;
        EinstellungenSchliessen();
    }

    zeigen("window ready with the table", start);
    std::printf("%-42s median %8.2f ms   p99 %8.2f ms   max %8.2f ms   (%zu moves)\n", "record move by the arrow key",
                median(bewegung), quantil(bewegung, 0.99), maximum(bewegung), bewegung.size());
    zeigen("letter filter", filter);
    zeigen("sort by a head", sortierung);
    std::printf("%-42s %8.1f MB\n", "resident memory", double(speicher) / 1024.0);
    return 0;
}
