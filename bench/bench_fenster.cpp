// The main window on a catalogue of 100,000 Carriers: time to a window with its table,
// one record move by the arrow key, a letter filter, a sort by a head, and the memory.
// Prints its figures; it runs in a temporary home and touches nothing else.
//
//   bench_fenster [rows] [runs]
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
#include <QRandomGenerator>
#include <QTemporaryDir>
#include <QTest>

#include <sqlite3.h>

#include <algorithm>
#include <cstdio>
#include <vector>

namespace {

const char* const Woerter[] = {"Sonne",  "Mond",   "Straße", "Mädchen", "König",  "Blues",  "Nacht",
                               "Feuer",  "Wasser", "Über",   "Liebe",   "Zeit",   "Herz",   "Regen",
                               "Stadt",  "Traum",  "Öl",     "Rock",    "Grün",   "Schatten"};
const char* const Stile[] = {"Rock", "Pop", "Jazz", "Blues", "Klassik", "Folk", "Soul", "Punk", "Metal", "Elektro"};

QString wort(QRandomGenerator& z) { return QString::fromUtf8(Woerter[z.bounded(int(std::size(Woerter)))]); }

// German letters as the program's RTF writer escapes them.
QString rtfText(const QString& text)
{
    QString aus;
    for (const QChar c : text) {
        if (c.unicode() > 127)
            aus += QStringLiteral("\\'%1").arg(c.unicode(), 2, 16, QChar(u'0'));
        else
            aus += c;
    }
    return aus;
}

QString rtf(const QStringList& zeilen)
{
    QString text = QStringLiteral("{\\rtf1\\ansi\\ansicpg1252\\deff0{\\fonttbl{\\f0\\fnil Segoe UI;}}"
                                  "{\\colortbl ;\\red0\\green0\\blue0;}\\pard\\li50\\f0\\fs24 ");
    for (const QString& z : zeilen)
        text += rtfText(z) + QStringLiteral("\\par\n");
    return text + u'}';
}

void katalogAnlegen(const QString& pfad, const QString& musikWurzel, int zeilen)
{
    QFile::copy(QStringLiteral(":/resources/programmordner/Archiv_leer.db"), pfad);
    QFile::setPermissions(pfad, QFile::ReadOwner | QFile::WriteOwner);
    sqlite3* db = nullptr;
    sqlite3_open(pfad.toUtf8().constData(), &db);
    sqlite3_exec(db, "begin; delete from Schallplatten;", nullptr, nullptr, nullptr);
    sqlite3_stmt* st = nullptr;
    sqlite3_prepare_v2(db,
                       "insert into Schallplatten (Band, LPTitel, Medium, Stil, Info, Plattenfirma, BestellNr, "
                       "Preis, Datum, Songs, BildPfad, Musikpfad, SongText, eBook, Bewertung, InternetTab, "
                       "InfoTab, SonstigesTab) values (?,?,?,?,?,?,?,?,?,?,?,?,?,?,?,?,?,?)",
                       -1, &st, nullptr);
    QRandomGenerator z(4711);
    // Twelve files in each of a few hundred folders, shared by a sample of the rows.
    const int ordner = 300;
    for (int o = 0; o < ordner; ++o) {
        const QString d = musikWurzel + QStringLiteral("Album %1/").arg(o);
        QDir().mkpath(d);
        for (int t = 1; t <= 12; ++t)
            QFile(d + QStringLiteral("%1 %2 - %3.mp3").arg(t, 2, 10, QChar(u'0')).arg(wort(z)).arg(1 + t % 6))
                .open(QIODevice::WriteOnly);
    }
    for (int i = 0; i < zeilen; ++i) {
        QStringList songs;
        for (int s = 1; s <= 15; ++s)
            songs << QStringLiteral("%1. %2 %3 (%4:%5)").arg(s).arg(wort(z), wort(z)).arg(2 + z.bounded(5)).arg(
                z.bounded(60), 2, 10, QChar(u'0'));
        QStringList lyrics;
        if (i % 10 == 0)
            for (int l = 0; l < 40; ++l)
                lyrics << wort(z) + u' ' + wort(z) + u' ' + wort(z) + u' ' + wort(z);
        const QString werte[18] = {
            wort(z) + u' ' + wort(z),
            wort(z) + QStringLiteral(" der ") + wort(z),
            QStringLiteral("CD"),
            QString::fromUtf8(Stile[z.bounded(int(std::size(Stile)))]),
            QStringLiteral("Erstpressung"),
            wort(z) + QStringLiteral(" Records"),
            QStringLiteral("BN-%1").arg(i),
            QStringLiteral("%1,99").arg(5 + z.bounded(20)),
            QStringLiteral("%1.%2.19%3").arg(1 + z.bounded(28)).arg(1 + z.bounded(12)).arg(70 + z.bounded(30)),
            rtf(songs),
            QStringLiteral(" "),
            i % 20 == 0 ? musikWurzel + QStringLiteral("Album %1/").arg((i / 20) % ordner) : QStringLiteral(" "),
            lyrics.isEmpty() ? QStringLiteral(" ") : rtf(lyrics),
            QString(),
            QString::number(1 + z.bounded(6)),
            rtf({QStringLiteral("www.example.org")}),
            rtf({wort(z)}),
            QStringLiteral(" "),
        };
        for (int k = 0; k < 18; ++k) {
            const QByteArray b = werte[k].toUtf8();
            sqlite3_bind_text(st, k + 1, b.constData(), int(b.size()), SQLITE_TRANSIENT);
        }
        sqlite3_step(st);
        sqlite3_reset(st);
    }
    sqlite3_finalize(st);
    sqlite3_exec(db, "commit;", nullptr, nullptr, nullptr);
    sqlite3_close(db);
}

double median(std::vector<double> v)
{
    std::sort(v.begin(), v.end());
    return v.empty() ? 0 : v[v.size() / 2];
}
double quantil(std::vector<double> v, double q)
{
    std::sort(v.begin(), v.end());
    return v.empty() ? 0 : v[std::min(v.size() - 1, size_t(q * double(v.size())))];
}
double maximum(const std::vector<double>& v) { return v.empty() ? 0 : *std::max_element(v.begin(), v.end()); }

long residentKb()
{
    QFile f(QStringLiteral("/proc/self/status"));
    if (!f.open(QIODevice::ReadOnly))
        return -1;
    for (const QByteArray& zeile : f.readAll().split('\n'))
        if (zeile.startsWith("VmRSS:"))
            return zeile.mid(6).trimmed().split(' ').first().toLong();
    return -1;
}

void zeigen(const char* was, const std::vector<double>& ms)
{
    std::printf("%-42s median %8.2f ms   max %8.2f ms   (%zu runs)\n", was, median(ms), maximum(ms), ms.size());
}

} // namespace

int main(int argc, char** argv)
{
    const int zeilen = argc > 1 ? std::atoi(argv[1]) : 100000;
    const int laeufe = argc > 2 ? std::atoi(argv[2]) : 5;
    QTemporaryDir wurzel;
    for (const char* n : {"config", "data", "runtime", "musik"})
        QDir().mkpath(wurzel.path() + u'/' + QLatin1String(n));
    QFile::setPermissions(wurzel.path() + QStringLiteral("/runtime"),
                          QFile::ReadOwner | QFile::WriteOwner | QFile::ExeOwner);
    qputenv("XDG_CONFIG_HOME", (wurzel.path() + QStringLiteral("/config")).toUtf8());
    qputenv("XDG_DATA_HOME", (wurzel.path() + QStringLiteral("/data")).toUtf8());
    qputenv("XDG_RUNTIME_DIR", (wurzel.path() + QStringLiteral("/runtime")).toUtf8());
    if (qEnvironmentVariableIsEmpty("QT_QPA_PLATFORM"))
        qputenv("QT_QPA_PLATFORM", "offscreen");

    QApplication app(argc, argv);
    RessourcenAnmelden();
    EchteDialogeAnmelden();

    const QString katalog = wurzel.path() + QStringLiteral("/Sammlung.db");
    QElapsedTimer uhr;
    uhr.start();
    katalogAnlegen(katalog, wurzel.path() + QStringLiteral("/musik/"), zeilen);
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
