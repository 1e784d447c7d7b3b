// The covers on a large catalogue: every Carrier has an external cover by the naming rule
// in the cover folder, so that each record move shows one and the strip holds them all.
// Times the arrow key through the table, with and without table mode, and the paging of
// the strip, in the real window.
//
//   bench_cover [-n moves] [--ohne] [Carriers]
//
// --ohne makes no cover files, for the same figures without covers.
#include "support/Benchkatalog.h"

#include "catalogue/Datensatzbearbeitung.h"
#include "catalogue/FlexGrid.h"
#include "media/Coververwaltung.h"
#include "shell/Anwendung.h"
#include "shell/Ausgabebox.h"
#include "shell/Einstellungen.h"
#include "shell/Steuerelemente.h"

#include <QApplication>
#include <QCheckBox>
#include <QDir>
#include <QFile>
#include <QImage>
#include <QListWidget>
#include <QPushButton>
#include <QTest>

#include <sqlite3.h>
#include <unistd.h>

#include <cstdio>

namespace {

// One cover file per Carrier, all hard links of one picture, and BildPfad naming it.
int CoverAnlegen(const QString& katalog, const QString& ordner)
{
    QDir().mkpath(ordner);
    const QString vorlage = ordner + QStringLiteral(".vorlage.jpg");
    QImage bild(600, 600, QImage::Format_RGB32);
    for (int y = 0; y < bild.height(); ++y)
        for (int x = 0; x < bild.width(); ++x)
            bild.setPixel(x, y, qRgb(x % 256, y % 256, (x * y) % 256));
    bild.save(vorlage, "JPEG", 70);
    sqlite3* db = nullptr;
    sqlite3_open(katalog.toUtf8().constData(), &db);
    sqlite3_exec(
        db,
        "update Schallplatten set BildPfad = 'D:\\Bilder\\' || Band || ' - ' || LPTitel || '.jpg°'",
        nullptr, nullptr, nullptr);
    sqlite3_stmt* st = nullptr;
    sqlite3_prepare_v2(db, "select Band, LPTitel from Schallplatten", -1, &st, nullptr);
    int n = 0;
    const QByteArray quelle = QFile::encodeName(vorlage);
    while (sqlite3_step(st) == SQLITE_ROW) {
        const QString name
            = QString::fromUtf8(reinterpret_cast<const char*>(sqlite3_column_text(st, 0)))
            + QStringLiteral(" - ")
            + QString::fromUtf8(reinterpret_cast<const char*>(sqlite3_column_text(st, 1)))
            + QStringLiteral(".jpg");
        if (!name.contains(u'/')
            && ::link(quelle.constData(), QFile::encodeName(ordner + name).constData()) == 0)
            ++n;
    }
    sqlite3_finalize(st);
    sqlite3_close(db);
    QFile::remove(vorlage);
    return n;
}

void bericht(const char* was, const std::vector<double>& v)
{
    std::printf("%-40s %8.1f / %8.1f ms\n", was, median(v), quantil(v, 0.99));
}

} // namespace

int main(int argc, char** argv)
{
    int zuege = 200;
    int zeilen = 100000;
    bool ohne = false;
    for (int i = 1; i < argc; ++i) {
        if (QByteArray(argv[i]) == "--ohne")
            ohne = true;
        else if (QByteArray(argv[i]) == "-n" && i + 1 < argc)
            zuege = std::max(1, std::atoi(argv[++i]));
        else if (std::atoi(argv[i]) > 0)
            zeilen = std::atoi(argv[i]);
    }
    Benchumgebung umgebung;
    QApplication app(argc, argv);
    RessourcenAnmelden();

    const QString arbeit = umgebung.pfad() + QStringLiteral("/Cover-%1.db").arg(zeilen);
    QFile::copy(KatalogImCache(zeilen), arbeit);
    QFile::setPermissions(arbeit, QFile::ReadOwner | QFile::WriteOwner);
    QElapsedTimer uhr;
    uhr.start();
    const int dateien
        = ohne ? 0 : CoverAnlegen(arbeit, umgebung.pfad() + QStringLiteral("/Bilder/"));
    std::printf("%d cover files made in %.1f s\n", dateien, double(uhr.elapsed()) / 1000.0);

    Speichern(QStringLiteral("ArchivPfad"), arbeit);
    Speichern(QStringLiteral("HäkchenBildpfad"), QStringLiteral("1"));
    Speichern(QStringLiteral("TopRow"), QStringLiteral("0"));
    // Tall enough for all 22 places of the strip.
    Speichern(QStringLiteral("AusgabeboxHeight"),
              qEnvironmentVariable("RK_HOEHE", QStringLiteral("24000")));
    auto* w = new Ausgabebox;
    const double start = messen([&] {
        w->Form_Load();
        w->show();
    });
    std::printf("%-40s %8.1f ms (%d covers in the strip)\n", "start until the rows show", start,
                int(w->lstCover->count()));
    QApplication::setActiveWindow(w);
    FlexGrid* g = w->MSFlexGrid1;
    g->setFocus();
    g->setRow(g->Rows() / 2);
    QCoreApplication::processEvents();

    for (bool tabelle : {false, true}) {
        w->chkTabelle->setChecked(tabelle);
        std::vector<double> v;
        for (int i = 0; i < zuege; ++i)
            v.push_back(messen([&] { QTest::keyClick(g, Qt::Key_Down); }));
        bericht(tabelle ? "arrow key, table mode (AZ)" : "arrow key", v);
    }
    std::vector<double> seiten;
    for (int i = 0; i < 40; ++i)
        seiten.push_back(messen([&] { w->cmdCoverDown->click(); }));
    bericht("strip page forwards (new covers)", seiten);
    seiten.clear();
    for (int i = 0; i < 40; ++i)
        seiten.push_back(messen([&] { w->cmdCoverUp->click(); }));
    bericht("strip page backwards (read before)", seiten);
    std::printf("%-40s %8d\n", "thumbnails per page", w->coververwaltung().CoverLetzterPlatz + 1);
    // Saves of the record in the middle: one that keeps its name, one that renames it (its
    // cover leaves the strip and comes back on the next).
    std::vector<double> speichern, umbenennen;
    for (int i = 0; i < 10; ++i) {
        w->TextInfo->setText(QStringLiteral("Info %1").arg(i));
        speichern.push_back(messen([&] { w->datensatzbearbeitung().MenuSpeichern_Click(); }));
        const QString titel = w->TextLPTitel->text();
        w->TextLPTitel->setText(titel + QStringLiteral(" x"));
        umbenennen.push_back(messen([&] { w->datensatzbearbeitung().MenuSpeichern_Click(); }));
        w->TextLPTitel->setText(titel);
        w->datensatzbearbeitung().MenuSpeichern_Click();
    }
    bericht("Ctrl+S, name kept", speichern);
    bericht("Ctrl+S, title changed", umbenennen);
    std::printf("%-40s %8d\n", "covers in the strip after", int(w->lstCover->count()));
    std::printf("%-40s %8.0f MB\n", "resident memory", double(residentKb()) / 1024.0);
    delete w;
    EinstellungenSchliessen();
    return 0;
}
