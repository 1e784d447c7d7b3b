#include "Benchkatalog.h"

#include "catalogue/Datenbank.h"
#include "catalogue/Recordset.h"
#include "shell/Einstellungen.h"

#include <QDir>
#include <QFile>
#include <QFileInfo>
#include <QRandomGenerator>
#include <QStringList>

#include <sqlite3.h>

#include <algorithm>
#include <cstdio>

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

} // namespace

void KatalogAnlegen(const QString& pfad, const QString& musikWurzel, int zeilen)
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


QString KatalogImCache(int zeilen)
{
    QString ordner = qEnvironmentVariable("RK_BENCH_CACHE");
    if (ordner.isEmpty()) {
        const QString cache = qEnvironmentVariable("XDG_CACHE_HOME");
        ordner = (QDir::isAbsolutePath(cache) ? cache : QDir::homePath() + QStringLiteral("/.cache"))
            + QStringLiteral("/rillenkammer-bench");
    }
    const QString pfad = ordner + QStringLiteral("/Sammlung-%1.db").arg(zeilen);
    if (QFileInfo::exists(pfad)) {
        // Opened once, a catalogue made by an older program gets the indexes the program
        // makes at a first opening, and the text index of a first search: each run's copy
        // then starts and searches as a user's does daily.
        auto db = Datenbank::oeffnen(pfad);
        Recordset tabelle(*db, QStringLiteral("select * from Schallplatten"));
        if (tabelle.TextindexFehlt()) {
            std::printf("building the text index of %s ...\n", qPrintable(pfad));
            std::fflush(stdout);
            tabelle.TextindexAnlegen({});
        }
        return pfad;
    }
    QDir().mkpath(ordner);
    // Made under another name first, so that a run stopped halfway leaves no catalogue.
    const QString entstehend = pfad + QStringLiteral(".entsteht");
    QFile::remove(entstehend);
    std::printf("making a catalogue of %d Carriers in %s ...\n", zeilen, qPrintable(ordner));
    std::fflush(stdout);
    KatalogAnlegen(entstehend, ordner + QStringLiteral("/musik-%1/").arg(zeilen), zeilen);
    QFile::rename(entstehend, pfad);
    return pfad;
}

Benchumgebung::Benchumgebung()
{
    for (const char* n : {"config", "data", "runtime"})
        QDir().mkpath(m_wurzel.path() + u'/' + QLatin1String(n));
    QFile::setPermissions(m_wurzel.path() + QStringLiteral("/runtime"),
                          QFile::ReadOwner | QFile::WriteOwner | QFile::ExeOwner);
    qputenv("XDG_CONFIG_HOME", (m_wurzel.path() + QStringLiteral("/config")).toUtf8());
    qputenv("XDG_DATA_HOME", (m_wurzel.path() + QStringLiteral("/data")).toUtf8());
    qputenv("XDG_RUNTIME_DIR", (m_wurzel.path() + QStringLiteral("/runtime")).toUtf8());
    if (qEnvironmentVariableIsEmpty("QT_QPA_PLATFORM"))
        qputenv("QT_QPA_PLATFORM", "offscreen");
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

QString Benchumgebung::Arbeitskatalog(const QString& quelle) const
{
    const QString arbeit = pfad() + QStringLiteral("/Arbeit.db");
    QFile::copy(quelle, arbeit);
    QFile::setPermissions(arbeit, QFile::ReadOwner | QFile::WriteOwner);
    Speichern(QStringLiteral("ArchivPfad"), arbeit);
    return arbeit;
}
