// The searches on a large catalogue, on the real main window with the catalogue of the
// benchmark cache (a copy, in a temporary home): F2 with "Alle" until the table shows the
// result, for a word that many Carriers hold and one that none holds, and the walk of the
// search field by Enter.
//
//   bench_suche [-n runs] [Carriers]
#include "support/Benchkatalog.h"

#include "catalogue/FlexGrid.h"
#include "collections/Suchbox.h"
#include "platform/Dialogdienst.h"
#include "platform/Dienste.h"
#include "shell/Anwendung.h"
#include "shell/Ausgabebox.h"
#include "shell/Einstellungen.h"
#include "shell/Steuerelemente.h"

#include <QAction>
#include <QApplication>
#include <QFile>
#include <QPushButton>
#include <QTimer>
#include <QtTest/QTest>

#include <cstdio>

int main(int argc, char** argv)
{
    int laeufe = 10;
    int tontraeger = 100000;
    for (int i = 1; i < argc; ++i) {
        if (QByteArray(argv[i]) == "-n" && i + 1 < argc)
            laeufe = std::max(1, std::atoi(argv[++i]));
        else if (std::atoi(argv[i]) > 0)
            tontraeger = std::atoi(argv[i]);
    }

    Benchumgebung umgebung;
    QApplication app(argc, argv);
    RessourcenAnmelden();
    const QString quelle = KatalogImCache(tontraeger);
    umgebung.Arbeitskatalog(quelle);

    Ausgabebox w;
    w.Form_Load();
    w.show();
    QCoreApplication::processEvents();

    // F2, the text typed, OK: the window answers from inside its own modal loop.
    auto suchen = [&](const QString& text) {
        QTimer::singleShot(0, [text] {
            auto* fenster = qobject_cast<Suchbox*>(QApplication::activeModalWidget());
            if (!fenster)
                return;
            fenster->txtSuchen->setText(text);
            fenster->ButtonOk->click();
        });
        return messen([&] { w.MenuSuchen->trigger(); });
    };
    std::vector<double> viele, keine, gehen;
    int zeilenViele = 0;
    for (int lauf = 0; lauf < laeufe; ++lauf) {
        viele.push_back(suchen(QStringLiteral("sonne")));
        zeilenViele = w.MSFlexGrid1->Rows() - 1;
        keine.push_back(suchen(QStringLiteral("zzqx")));
    }
    w.MenuAktualisieren->trigger();
    w.txtSuchen->setText(QStringLiteral("mond"));
    for (int lauf = 0; lauf < 5 * laeufe; ++lauf)
        gehen.push_back(messen([&] { QTest::keyClick(w.txtSuchen, Qt::Key_Return); }));

    std::printf("\n%d Carriers, ms (median / 99th percentile / maximum)\n", tontraeger);
    std::printf("%-44s %8.1f / %8.1f / %8.1f\n", qPrintable(QStringLiteral("F2 \"sonne\", all columns (%1 rows)").arg(zeilenViele)),
                median(viele), quantil(viele, 0.99), maximum(viele));
    std::printf("%-44s %8.1f / %8.1f / %8.1f\n", "F2 \"zzqx\", all columns (no row)", median(keine),
                quantil(keine, 0.99), maximum(keine));
    std::printf("%-44s %8.1f / %8.1f / %8.1f\n", "search field \"mond\", Enter to the next row", median(gehen),
                quantil(gehen, 0.99), maximum(gehen));
    return 0;
}
