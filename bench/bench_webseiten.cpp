// The catalogue table as a web site on a large catalogue: "H&TML-Seiten erstellen" in the
// real window, from the menu entry until the last page is written, at 50 rows a page with
// all fifteen columns (rich text songs included).
//
//   bench_webseiten [-n runs] [Carriers]
#include "support/Benchkatalog.h"

#include "platform/Dialogdienst.h"
#include "platform/Dienste.h"
#include "shell/Anwendung.h"
#include "shell/Ausgabebox.h"
#include "shell/Einstellungen.h"
#include "shell/Globale.h"
#include "shell/Steuerelemente.h"

#include <QAction>
#include <QApplication>
#include <QDir>
#include <QFile>

#include <cstdio>

int main(int argc, char** argv)
{
    int laeufe = 3;
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
    D().setzeDialoge(std::make_unique<FesteAntwort>(QStringLiteral("Nein")));
    umgebung.Arbeitskatalog(KatalogImCache(tontraeger));

    Ausgabebox w;
    w.Form_Load();
    w.show();
    QCoreApplication::processEvents();
    std::vector<double> zeiten;
    qint64 bytes = 0;
    int dateien = 0;
    for (int lauf = 0; lauf < laeufe; ++lauf) {
        zeiten.push_back(messen([&] { w.mnuHtmlSeitenErstellen->trigger(); }));
        std::printf("run %d: %.0f ms\n", lauf + 1, zeiten.back());
        const QFileInfoList seiten = QDir(ProgrammOrdner + QStringLiteral("html")).entryInfoList({"*.html"});
        dateien = int(seiten.size());
        bytes = 0;
        for (const QFileInfo& f : seiten)
            bytes += f.size();
    }
    std::printf("\n%d Carriers, %d pages (%.0f MB), ms (median / maximum)\n", tontraeger, dateien,
                double(bytes) / 1e6);
    std::printf("%-44s %8.1f / %8.1f\n", "write the site (old pages to the trash first)", median(zeiten),
                maximum(zeiten));
    return 0;
}
