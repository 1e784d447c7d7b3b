// Figures of the catalogue layer on a catalogue of 100,000 carriers: opening, filters,
// sorting, the rows the table shows, and the memory it all takes. Prints; tests nothing.
#include "catalogue/Datenbank.h"
#include "catalogue/Datensteuerung.h"
#include "catalogue/Recordset.h"
#include "platform/Laufzeitfehler.h"
#include "shell/Anwendung.h"

#include <QApplication>
#include <QElapsedTimer>
#include <QFile>
#include <QRandomGenerator>
#include <QTemporaryDir>

#include <sqlite3.h>

#include <algorithm>
#include <cstdio>
#include <functional>
#include <vector>

namespace {

constexpr int k_zeilen = 100000;
constexpr int k_laeufe = 7;

const char* const k_woerter[]
    = {"Abend", "Ärger",    "Blau",    "Bär",       "Cream",  "Dunkel",  "Echo",  "Eis",
       "Feuer", "Fräulein", "Garten",  "Glück",     "Himmel", "Hölle",   "Insel", "Jäger",
       "Kälte", "König",    "Licht",   "Löwe",      "Mond",   "Mädchen", "Nacht", "Nebel",
       "Ober",  "Öl",       "Pfeffer", "Quelle",    "Regen",  "Rübe",    "Sonne", "Straße",
       "Schön", "Tanz",     "Traum",   "Über",      "Ufer",   "Vogel",   "Wald",  "Wüste",
       "Xylo",  "Yeti",     "Zeit",    "Zügel",     "the",    "of",      "Rock",  "Blues",
       "Sound", "Electric", "Band",    "Orchester", "Trio",   "Quartett"};
const char* const k_stile[]
    = {"Rock",     "Pop",          "Jazz",    "Blues",      "Klassik",
       "Schlager", "Liedermacher", "Punk",    "Metal",      "Folk",
       "Reggae",   "Soul",         "Funk",    "Elektronik", "Country",
       "Hörspiel", "Volksmusik",   "Chanson", "Krautrock",  "Neue Deutsche Welle"};
const char* const k_medien[] = {"LP", "CD", "MC", "Single", "MP3", "DVD"};

QRandomGenerator s_zufall(20261121);

QByteArray wort() { return k_woerter[s_zufall.bounded(int(std::size(k_woerter)))]; }

QByteArray woerter(int n)
{
    QByteArray t;
    for (int i = 0; i < n; ++i) {
        if (i)
            t += ' ';
        t += wort();
    }
    return t;
}

// RTF as the program's writer makes it: ANSI with \'xx escapes for the German letters.
QByteArray rtf(const QByteArray& utf8Zeilen)
{
    QByteArray aus = "{\\rtf1\\ansi\\ansicpg1252\\deff0{\\fonttbl{\\f0\\fnil\\fcharset0 Segoe UI;}}"
                     "\\viewkind4\\uc1\\pard\\li50\\f0\\fs20 ";
    const QString text = QString::fromUtf8(utf8Zeilen);
    for (const QChar c : text) {
        if (c == u'\n')
            aus += "\\par\r\n";
        else if (c.unicode() < 0x80)
            aus += char(c.unicode());
        else
            aus += "\\'" + QByteArray::number(c.unicode(), 16);
    }
    return aus + "\\par\r\n}\r\n";
}

QString katalogBauen(const QString& ordner)
{
    const QString pfad = ordner + QStringLiteral("/Gross.db");
    if (!QFile::copy(QStringLiteral(":/resources/programmordner/Archiv_leer.db"), pfad))
        qFatal("template catalogue missing");
    QFile::setPermissions(pfad, QFile::ReadOwner | QFile::WriteOwner);
    sqlite3* db = nullptr;
    sqlite3_open(QFile::encodeName(pfad).constData(), &db);
    sqlite3_exec(db, "PRAGMA synchronous = OFF; DELETE FROM Schallplatten; BEGIN", nullptr, nullptr,
                 nullptr);
    sqlite3_stmt* st = nullptr;
    sqlite3_prepare_v2(
        db,
        "INSERT INTO Schallplatten (Band, LPTitel, Medium, Stil, Info, Plattenfirma, "
        "BestellNr, Preis, Datum, Songs, BildPfad, Musikpfad, SongText, eBook, "
        "Bewertung, InternetTab, InfoTab, SonstigesTab) VALUES (?1, ?2, ?3, ?4, ?5, "
        "?6, ?7, ?8, ?9, ?10, ?11, ?12, ?13, ?14, ?15, ?16, ?17, ?18)",
        -1, &st, nullptr);
    for (int i = 0; i < k_zeilen; ++i) {
        QByteArray band = woerter(1 + int(s_zufall.bounded(3)));
        if (s_zufall.bounded(4) == 0)
            band = band.toLower();
        const QByteArray titel = woerter(1 + int(s_zufall.bounded(4)));
        QByteArray songs;
        for (int s = 1; s <= 15; ++s)
            songs += QByteArray::number(s) + ". " + woerter(1 + int(s_zufall.bounded(4))) + " ("
                + QByteArray::number(2 + s_zufall.bounded(5)) + ":"
                + QByteArray::number(10 + s_zufall.bounded(50)) + ")\n";
        QByteArray songText = " ";
        if (i % 10 == 0) {
            QByteArray lyrik;
            for (int z = 0; z < 40; ++z)
                lyrik += woerter(6) + "\n";
            songText = rtf(lyrik);
        }
        const QList<QByteArray> werte = {
            band,
            titel,
            k_medien[s_zufall.bounded(int(std::size(k_medien)))],
            k_stile[s_zufall.bounded(int(std::size(k_stile)))],
            s_zufall.bounded(3) == 0 ? woerter(3) : QByteArray(" "),
            woerter(1) + " Records",
            "BN-" + QByteArray::number(100000 + i),
            QByteArray::number(5 + s_zufall.bounded(30)) + ",99",
            QByteArray::number(1 + s_zufall.bounded(28)) + "."
                + QByteArray::number(1 + s_zufall.bounded(12)) + "."
                + QByteArray::number(1970 + s_zufall.bounded(55)),
            rtf(songs),
            band + " - " + titel + ".jpg",
            "/home/musik/" + band + "/" + titel + "/",
            songText,
            " ",
            QByteArray::number(1 + s_zufall.bounded(6)),
            rtf("https://example.org/" + QByteArray::number(i)),
            rtf(woerter(8)),
            " ",
        };
        for (int k = 0; k < werte.size(); ++k)
            sqlite3_bind_text(st, k + 1, werte[k].constData(), int(werte[k].size()),
                              SQLITE_TRANSIENT);
        sqlite3_step(st);
        sqlite3_reset(st);
    }
    sqlite3_finalize(st);
    sqlite3_exec(db, "COMMIT", nullptr, nullptr, nullptr);
    sqlite3_close(db);
    return pfad;
}

// A line of /proc/self/status in kB ("VmRSS", "RssAnon", "RssFile").
long statusKb(const QByteArray& name)
{
    QFile status(QStringLiteral("/proc/self/status"));
    if (!status.open(QIODevice::ReadOnly))
        return -1;
    for (const QByteArray& zeile : status.readAll().split('\n'))
        if (zeile.startsWith(name + ':'))
            return zeile.mid(name.size() + 1).trimmed().split(' ').first().toLong();
    return -1;
}

void speicher(const char* wann)
{
    std::printf("VmRSS %s: %ld kB (anonymous %ld kB, file %ld kB)\n", wann, statusKb("VmRSS"),
                statusKb("RssAnon"), statusKb("RssFile"));
}

void messen(const char* was, const std::function<void()>& schritt)
{
    std::vector<double> ms;
    for (int i = 0; i < k_laeufe; ++i) {
        QElapsedTimer uhr;
        uhr.start();
        schritt();
        ms.push_back(double(uhr.nsecsElapsed()) / 1.0e6);
    }
    std::sort(ms.begin(), ms.end());
    std::printf("%-58s median %8.2f ms   max %8.2f ms\n", was, ms[ms.size() / 2], ms.back());
    std::fflush(stdout);
}

} // namespace

int main(int argc, char** argv)
{
    if (qEnvironmentVariableIsEmpty("QT_QPA_PLATFORM"))
        qputenv("QT_QPA_PLATFORM", "offscreen");
    QApplication app(argc, argv);
    RessourcenAnmelden();
    // With a folder as argument the catalogue is made there and kept.
    QTemporaryDir temporaer;
    const QString ordner = argc > 1 ? QString::fromLocal8Bit(argv[1]) : temporaer.path();
    try {
        QElapsedTimer uhr;
        uhr.start();
        QFile::remove(ordner + QStringLiteral("/Gross.db"));
        const QString pfad = katalogBauen(ordner);
        std::printf("catalogue of %d rows built in %lld ms, %lld MB\n", k_zeilen, uhr.elapsed(),
                    QFile(pfad).size() / (1024 * 1024));
        speicher("before opening");

        const QString alle = QStringLiteral("select * from Schallplatten order by Band, LPTitel");
        messen("open + refresh (order by Band, LPTitel)", [&] {
            Datensteuerung data1;
            data1.setDatabaseName(pfad);
            data1.setRecordSource(alle);
            data1.Refresh();
            data1.recordset()->Value(0);
        });

        Datensteuerung data1;
        data1.setDatabaseName(pfad);
        data1.setRecordSource(alle);
        data1.Refresh();
        std::printf("records: %d\n", data1.recordset()->RecordCount());

        messen("refresh, database open (order by Band, LPTitel)", [&] {
            data1.setRecordSource(alle);
            data1.Refresh();
        });
        messen("letter filter Band like 'a*' or 'ä*'", [&] {
            data1.setRecordSource(
                QStringLiteral("select * from Schallplatten where Band like 'a*' or "
                               "Band like 'ä*' order by Band, LPTitel"));
            data1.Refresh();
        });
        std::printf("  rows of the filter: %d\n", data1.recordset()->RecordCount());
        messen("sort by a head (order by Stil DESC)", [&] {
            data1.setRecordSource(QStringLiteral("select * from Schallplatten order by Stil DESC"));
            data1.Refresh();
        });
        messen("song search Songs like '*\\?e4*' (Mädchen, Ärger, ...)", [&] {
            data1.setRecordSource(QStringLiteral("select * from Schallplatten where Songs like "
                                                 "'*\\?e4*' order by Band"));
            data1.Refresh();
        });
        std::printf("  rows of the search: %d\n", data1.recordset()->RecordCount());

        data1.setRecordSource(alle);
        data1.Refresh();
        Recordset* rs = data1.recordset();
        QRandomGenerator zufall(7);
        long zeichen = 0;
        messen("40 consecutive rows x 18 columns at a random place", [&] {
            const int oben = int(zufall.bounded(rs->RecordCount() - 40));
            for (int z = oben; z < oben + 40; ++z)
                for (int k = 0; k < 18; ++k)
                    zeichen += rs->Wert(z, k).toString().size();
        });
        messen("move the current record 40 times (Validate, Reposition)", [&] {
            const int oben = int(zufall.bounded(rs->RecordCount() - 40));
            for (int z = oben; z < oben + 40; ++z) {
                data1.setAbsolutePosition(z);
                rs->Value(QStringLiteral("Songs"));
                rs->Value(QStringLiteral("Bilder"));
            }
        });
        messen("Execute update of one row by Band and LPTitel", [&] {
            data1.database()->Execute(QStringLiteral(
                "update Schallplatten set Info = 'x' where Band = 'abend' and LPTitel = 'Zeit'"));
        });
        std::printf("(characters read: %ld)\n", zeichen);
        speicher("with the catalogue open");
    } catch (const Laufzeitfehler& f) {
        std::printf("error %d %s\n", f.Nummer, qPrintable(f.Beschreibung));
        return 1;
    }
    return 0;
}
