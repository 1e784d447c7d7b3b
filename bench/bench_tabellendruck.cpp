// The table print on a large catalogue: 1,000 marked rows of every column printed to a
// PDF file through the real window's menu, until the file is written.
//
//   bench_tabellendruck [-n runs] [rows]
#include "support/Benchkatalog.h"

#include "catalogue/FlexGrid.h"
#include "platform/Dialogdienst.h"
#include "platform/Dienste.h"
#include "platform/Druckdialog.h"
#include "shell/Anwendung.h"
#include "shell/Ausgabebox.h"
#include "shell/Einstellungen.h"
#include "shell/Steuerelemente.h"

#include <QAction>
#include <QApplication>
#include <QFile>
#include <QFileInfo>
#include <QPrinter>

#include <cstdio>

namespace {

class InPdf : public Druckdialog {
public:
    QString datei;
    bool einrichten(QPrinter& drucker, QWidget*) override
    {
        drucker.setOutputFormat(QPrinter::PdfFormat);
        drucker.setOutputFileName(datei);
        return true;
    }
};

} // namespace

int main(int argc, char** argv)
{
    int laeufe = 3;
    int zeilen = 1000;
    for (int i = 1; i < argc; ++i) {
        if (QByteArray(argv[i]) == "-n" && i + 1 < argc)
            laeufe = std::max(1, std::atoi(argv[++i]));
        else if (std::atoi(argv[i]) > 0)
            zeilen = std::atoi(argv[i]);
    }
    Benchumgebung umgebung;
    QApplication app(argc, argv);
    RessourcenAnmelden();
    D().setzeDialoge(std::make_unique<FesteAntwort>());
    auto pdf = std::make_unique<InPdf>();
    pdf->datei = umgebung.pfad() + QStringLiteral("/tabelle.pdf");
    const QString datei = pdf->datei;
    setzeDruckdialog(std::move(pdf));
    umgebung.Arbeitskatalog(KatalogImCache(100000));

    Ausgabebox w;
    w.Form_Load();
    w.show();
    QCoreApplication::processEvents();
    FlexGrid* g = w.MSFlexGrid1;
    g->setRow(1);
    g->setCol(0);
    g->setRowSel(zeilen);
    g->setColSel(g->Cols() - 1);
    std::vector<double> zeiten;
    for (int lauf = 0; lauf < laeufe; ++lauf)
        zeiten.push_back(messen([&] { w.mnuTabelleDrucken->trigger(); }));
    std::printf("\n%d marked rows of %d columns, PDF of %.1f MB, ms (median / maximum)\n", zeilen, g->Cols(),
                double(QFileInfo(datei).size()) / 1e6);
    std::printf("%-44s %8.1f / %8.1f\n", "print the marked rows to PDF", median(zeiten), maximum(zeiten));
    return 0;
}
