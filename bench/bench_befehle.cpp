// Every command of the table and the record form on catalogues of 10,000, 100,000 and
// 1,000,000 Carriers, sent to the real window as a user sends it (keys and clicks) and timed
// until the window has done its work. The catalogues are made once and kept in the
// benchmark cache; each size runs on a copy, in a temporary home.
//
//   bench_befehle [-n runs] [sizes ...]
#include "support/Benchkatalog.h"

#include "catalogue/FlexGrid.h"
#include "platform/Dialogdienst.h"
#include "platform/Dienste.h"
#include "shell/Anwendung.h"
#include "shell/Ausgabebox.h"
#include "shell/Einstellungen.h"

#include <QAction>
#include <QApplication>
#include <QCheckBox>
#include <QFile>
#include <QHeaderView>
#include <QPushButton>
#include <QTest>

#include <cstdio>
#include <map>
#include <vector>

namespace {

using Messungen = std::map<std::string, std::vector<double>>;

void kopfKlicken(FlexGrid* g, const QString& kopf)
{
    QHeaderView* k = g->horizontalHeader();
    const int c = g->SpalteSuchen(kopf);
    const QPoint mitte(k->sectionViewportPosition(c) + k->sectionSize(c) / 2, k->height() / 2);
    QTest::mouseClick(k->viewport(), Qt::LeftButton, Qt::NoModifier, mitte);
}

void zeileWaehlen(FlexGrid* g, int zeile)
{
    g->setRow(zeile);
    QCoreApplication::processEvents();
}

Messungen messenAuf(const QString& katalog, int laeufe)
{
    Messungen m;
    Speichern(QStringLiteral("ArchivPfad"), katalog);
    Ausgabebox* w = nullptr;
    for (int lauf = 0; lauf < std::max(1, laeufe / 2); ++lauf) {
        delete w;
        m["start until the rows show"].push_back(messen([&] {
            w = new Ausgabebox;
            w->Form_Load();
            w->show();
        }));
    }
    QApplication::setActiveWindow(w);
    FlexGrid* g = w->MSFlexGrid1;
    g->setFocus();
    m["resident memory (MB)"].push_back(double(residentKb()) / 1024.0);

    zeileWaehlen(g, g->Rows() / 2);
    for (int i = 0; i < 200; ++i)
        m["arrow key (record move)"].push_back(messen([&] { QTest::keyClick(g, Qt::Key_Down); }));

    for (int lauf = 0; lauf < laeufe; ++lauf) {
        m["letter jump to \"Z\""].push_back(messen([&] { w->ButtonAlpabeth[25]->click(); }));
        m["letter jump to \"M\""].push_back(messen([&] { w->ButtonAlpabeth[12]->click(); }));

        zeileWaehlen(g, g->Rows() - 2 - lauf);
        m["Ctrl+S near the end"].push_back(messen([&] { QTest::keyClick(w, Qt::Key_S, Qt::ControlModifier); }));
        zeileWaehlen(g, 2 + lauf);
        m["Ctrl+S near the start"].push_back(messen([&] { QTest::keyClick(w, Qt::Key_S, Qt::ControlModifier); }));

        m["sort by a head"].push_back(messen([&] { kopfKlicken(g, QStringLiteral("Stil")); }));
        m["\"Alle\" (whole table)"].push_back(messen([&] { w->cmdABC->click(); }));
        m["rating filter (5 stars)"].push_back(messen([&] { w->ButtonAlpabeth[30]->click(); }));
        m["letter filter \"S\" (AZ)"].push_back(messen([&] { w->ButtonAlpabeth[18]->click(); }));
        w->chkTabelle->click();
        m["\"Alle\" (whole table)"].push_back(messen([&] { w->cmdABC->click(); }));

        zeileWaehlen(g, g->Rows() - 2);
        m["delete a Carrier near the end"].push_back(messen([&] { w->MenuEintragLoeschen->trigger(); }));
    }
    delete w;
    EinstellungenSchliessen();
    return m;
}

} // namespace

int main(int argc, char** argv)
{
    int laeufe = 5;
    std::vector<int> groessen;
    for (int i = 1; i < argc; ++i) {
        if (QByteArray(argv[i]) == "-n" && i + 1 < argc)
            laeufe = std::max(1, std::atoi(argv[++i]));
        else if (std::atoi(argv[i]) > 0)
            groessen.push_back(std::atoi(argv[i]));
    }
    if (groessen.empty())
        groessen = {10000, 100000, 1000000};

    Benchumgebung umgebung;
    QApplication app(argc, argv);
    RessourcenAnmelden();
    D().setzeDialoge(std::make_unique<FesteAntwort>(QStringLiteral("Ja")));

    std::vector<Messungen> ergebnisse;
    for (int zeilen : groessen) {
        const QString quelle = KatalogImCache(zeilen);
        const QString arbeit = umgebung.pfad() + QStringLiteral("/Arbeit-%1.db").arg(zeilen);
        QFile::remove(arbeit);
        QFile::copy(quelle, arbeit);
        QFile::setPermissions(arbeit, QFile::ReadOwner | QFile::WriteOwner);
        ergebnisse.push_back(messenAuf(arbeit, laeufe));
        QFile::remove(arbeit);
    }

    std::printf("\n%-34s", "median / 99th percentile, ms");
    for (int zeilen : groessen)
        std::printf(" | %19d", zeilen);
    std::printf("\n");
    for (const auto& [was, werte] : ergebnisse.front()) {
        std::printf("%-34s", was.c_str());
        for (const Messungen& m : ergebnisse) {
            const auto it = m.find(was);
            if (it == m.end())
                std::printf(" | %19s", "-");
            else if (was.find("memory") != std::string::npos)
                std::printf(" | %19.0f", median(it->second));
            else
                std::printf(" | %8.1f / %8.1f", median(it->second), quantil(it->second, 0.99));
        }
        std::printf("\n");
    }
    return 0;
}
