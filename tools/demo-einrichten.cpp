// Installer step: sets up the demo collection for a first start. Copies the demo's music
// and covers into <ProgrammOrdner>Demo/, builds Demo/Demo.db from the template catalogue
// with the paths of this machine, links Demo/Playlist to the program's playlists, and
// leaves PfadErststart.txt pointing at it.
//
//   demo-einrichten ORDNER   installs into the given program folder
//   demo-einrichten          installs into $XDG_DATA_HOME/Rillenkammer/, but only when
//                            the user has no settings yet
//
// An installed demo is never touched again, and an existing PfadErststart.txt is kept.
#include "platform/Pfade.h"

#include <QCoreApplication>
#include <QDir>
#include <QDirIterator>
#include <QFile>
#include <QFileInfo>
#include <QHash>
#include <QJsonArray>
#include <QJsonDocument>
#include <QJsonObject>

#include <sqlite3.h>

#include <cstdio>

#include <unistd.h>

namespace {

const QString k_quelle = QStringLiteral(":/demo/");

void Melden(const QString& text) { std::fprintf(stderr, "demo-einrichten: %s\n", qPrintable(text)); }

// One character of RTF text: ASCII as it is, the rest as a Windows-1252 escape, and what
// that code page lacks as a Unicode escape.
QString RtfZeichen(QChar c)
{
    static const QHash<char16_t, int> cp1252 = {
        {u'€', 0x80}, {u'‚', 0x82}, {u'„', 0x84}, {u'…', 0x85}, {u'‘', 0x91}, {u'’', 0x92},
        {u'“', 0x93}, {u'”', 0x94}, {u'–', 0x96}, {u'—', 0x97}, {u'™', 0x99},
    };
    const char16_t u = c.unicode();
    if (u == u'\\' || u == u'{' || u == u'}')
        return QStringLiteral("\\") + c;
    if (u < 0x80)
        return QString(c);
    int byte = u >= 0xA0 && u <= 0xFF ? int(u) : cp1252.value(u, -1);
    if (byte >= 0)
        return QStringLiteral("\\'%1").arg(byte, 2, 16, QChar(u'0'));
    return QStringLiteral("\\u%1?").arg(qint16(u));
}

QString RtfText(const QString& text)
{
    QString aus;
    for (const QChar c : text)
        aus += RtfZeichen(c);
    return aus;
}

enum class Art { Liste, Liedtext, Links };

// The lines as the program's rich text panes write them. In lyrics the first line and
// each line after an empty one is a song's title, in bold, so the pane can find it.
QString Rtf(const QStringList& zeilen, Art art)
{
    QString rtf = QStringLiteral("{\\rtf1\\ansi\\ansicpg1252\\deff0{\\fonttbl{\\f0\\fnil Segoe UI;}}"
                                 "{\\colortbl ;\\red0\\green0\\blue0;\\red0\\green0\\blue255;}"
                                 "\\viewkind4\\uc1\\pard\\li50\\cf1\\f0\\fs24 ");
    bool titel = true;
    for (const QString& z : zeilen) {
        if (art == Art::Links)
            rtf += QStringLiteral("\\cf2\\ul ") + RtfText(z) + QStringLiteral("\\ulnone\\cf1");
        else if (art == Art::Liedtext && titel && !z.isEmpty())
            rtf += QStringLiteral("\\b ") + RtfText(z) + QStringLiteral("\\b0");
        else
            rtf += RtfText(z);
        rtf += QStringLiteral("\\par\n");
        titel = z.isEmpty();
    }
    return rtf + u'}';
}

// A rich text field from a list of lines in the catalogue file; none give one blank.
QString RtfFeld(const QJsonValue& wert, Art art)
{
    QStringList zeilen;
    for (const QJsonValue& v : wert.toArray())
        zeilen << v.toString();
    return zeilen.isEmpty() ? QStringLiteral(" ") : Rtf(zeilen, art);
}

// The blank rule of the catalogue: an empty field holds one blank.
QString Feld(const QString& wert) { return wert.trimmed().isEmpty() ? QStringLiteral(" ") : wert; }

bool DateienKopieren(const QString& demo)
{
    QDirIterator it(k_quelle, QDir::Files, QDirIterator::Subdirectories);
    while (it.hasNext()) {
        const QString datei = it.next();
        const QString relativ = datei.mid(k_quelle.size());
        if (relativ == u"Katalog.json" || relativ == u"Archiv_leer.db")
            continue;
        const QString ziel = demo + relativ;
        QDir().mkpath(QFileInfo(ziel).path());
        if (!QFileInfo::exists(ziel) && !QFile::copy(datei, ziel)) {
            Melden(QStringLiteral("kann %1 nicht anlegen").arg(ziel));
            return false;
        }
        // Copies of resources are read-only; a rating renames the file, so it must be writable.
        QFile::setPermissions(ziel, QFile::ReadOwner | QFile::WriteOwner | QFile::ReadGroup | QFile::ReadOther);
    }
    return true;
}

bool Ausfuehren(sqlite3* db, const char* sql)
{
    if (sqlite3_exec(db, sql, nullptr, nullptr, nullptr) == SQLITE_OK)
        return true;
    Melden(QString::fromUtf8(sqlite3_errmsg(db)));
    return false;
}

bool KatalogFuellen(const QString& pfad, const QString& demo)
{
    QFile json(k_quelle + QStringLiteral("Katalog.json"));
    if (!json.open(QIODevice::ReadOnly))
        return false;
    const QJsonArray traeger = QJsonDocument::fromJson(json.readAll()).array();
    if (traeger.isEmpty()) {
        Melden(QStringLiteral("Katalog.json ist leer oder fehlerhaft"));
        return false;
    }
    sqlite3* db = nullptr;
    if (sqlite3_open(QFile::encodeName(pfad).constData(), &db) != SQLITE_OK) {
        Melden(QString::fromUtf8(sqlite3_errmsg(db)));
        sqlite3_close(db);
        return false;
    }
    sqlite3_stmt* st = nullptr;
    bool ok = Ausfuehren(db, "begin; delete from Schallplatten;")
        && sqlite3_prepare_v2(db,
                              "insert into Schallplatten (Band, LPTitel, Medium, Stil, Info, Plattenfirma, "
                              "BestellNr, Preis, Datum, Songs, BildPfad, Musikpfad, SongText, eBook, Bewertung, "
                              "InternetTab, InfoTab, SonstigesTab, Bilder) "
                              "values (?,?,?,?,?,?,?,?,?,?,?,?,?,?,?,?,?,?,?)",
                              -1, &st, nullptr)
            == SQLITE_OK;
    for (const QJsonValue& v : traeger) {
        if (!ok)
            break;
        const QJsonObject t = v.toObject();
        const QString band = t.value(u"Band").toString();
        const QString titel = t.value(u"LPTitel").toString();
        // Cover naming rule: band, " - ", title, in Bilder beside the catalogue.
        const QString name = band + QStringLiteral(" - ") + titel;
        const QString cover = demo + QStringLiteral("Bilder/") + name + QStringLiteral(".png");
        QFile bild(cover);
        const QByteArray png = bild.open(QIODevice::ReadOnly) ? bild.readAll() : QByteArray();
        const QStringList werte = {
            Feld(band),
            Feld(titel),
            Feld(t.value(u"Medium").toString()),
            Feld(t.value(u"Stil").toString()),
            Feld(t.value(u"Info").toString()),
            Feld(t.value(u"Plattenfirma").toString()),
            Feld(t.value(u"BestellNr").toString()),
            Feld(t.value(u"Preis").toString()),
            Feld(t.value(u"Datum").toString()),
            RtfFeld(t.value(u"Songs"), Art::Liste),
            QFileInfo::exists(cover) ? cover + QStringLiteral("°") : QStringLiteral(" "),
            // The program joins folder and file name, so the folder ends with "/".
            demo + QStringLiteral("Musik/") + name + u'/',
            RtfFeld(t.value(u"SongText"), Art::Liedtext),
            QString(), // no attachments
            t.value(u"Bewertung").toString(),
            RtfFeld(t.value(u"InternetTab"), Art::Links),
            RtfFeld(t.value(u"InfoTab"), Art::Liste),
            RtfFeld(t.value(u"SonstigesTab"), Art::Liste),
        };
        sqlite3_reset(st);
        for (int i = 0; i < werte.size(); ++i) {
            const QByteArray utf8 = werte[i].toUtf8();
            sqlite3_bind_text(st, i + 1, utf8.constData(), int(utf8.size()), SQLITE_TRANSIENT);
        }
        if (png.isEmpty())
            sqlite3_bind_null(st, 19);
        else
            sqlite3_bind_blob(st, 19, png.constData(), int(png.size()), SQLITE_TRANSIENT);
        if (sqlite3_step(st) != SQLITE_DONE) {
            Melden(QString::fromUtf8(sqlite3_errmsg(db)));
            ok = false;
        }
    }
    sqlite3_finalize(st);
    ok = ok && Ausfuehren(db, "commit;");
    sqlite3_close(db);
    return ok;
}

// Returns the path of Demo.db, or an empty text on failure.
QString Einrichten(const QString& programmOrdner)
{
    const QString demo = programmOrdner + QStringLiteral("Demo/");
    const QString katalog = demo + QStringLiteral("Demo.db");
    if (!QFileInfo::exists(katalog)) {
        if (!QDir().mkpath(demo) || !DateienKopieren(demo))
            return {};
        // Built beside and renamed at the end, so that no half catalogue is ever left.
        const QString neu = demo + QStringLiteral("Demo.db.neu");
        QFile::remove(neu);
        if (!QFile::copy(k_quelle + QStringLiteral("Archiv_leer.db"), neu)) {
            Melden(QStringLiteral("kann %1 nicht anlegen").arg(neu));
            return {};
        }
        QFile::setPermissions(neu, QFile::ReadOwner | QFile::WriteOwner | QFile::ReadGroup | QFile::ReadOther);
        if (!KatalogFuellen(neu, demo) || !QFile::rename(neu, katalog)) {
            QFile::remove(neu);
            return {};
        }
        // The program lists the playlists of the folder beside the catalogue and writes
        // them into its own: beside the demo that folder is the program's.
        if (::symlink("../Playlist", QFile::encodeName(demo + QStringLiteral("Playlist")).constData()) != 0)
            Melden(QStringLiteral("kann %1Playlist nicht anlegen").arg(demo));
    }
    const QString hinweis = programmOrdner + QStringLiteral("PfadErststart.txt");
    if (!QFileInfo::exists(hinweis)) {
        QFile f(hinweis);
        if (!f.open(QIODevice::WriteOnly) || f.write(katalog.toUtf8() + '\n') < 0) {
            Melden(QStringLiteral("kann %1 nicht schreiben").arg(hinweis));
            return {};
        }
    }
    return katalog;
}

} // namespace

int main(int argc, char* argv[])
{
    QCoreApplication app(argc, argv);
    const QStringList argumente = app.arguments().mid(1);
    if (argumente.size() > 1 || (argumente.size() == 1 && argumente[0].startsWith(u'-'))) {
        std::fprintf(stderr, "usage: demo-einrichten [PROGRAMMORDNER]\n");
        return 2;
    }
    QString ordner;
    if (argumente.isEmpty()) {
        // A user who has settings has chosen a catalogue already and is left alone.
        const QString einstellungen = EinstellungsOrdner() + QStringLiteral("Rillenkammer.ini");
        if (QFileInfo::exists(einstellungen)) {
            std::printf("Einstellungen vorhanden, keine Demo-Sammlung eingerichtet.\n");
            return 0;
        }
        ordner = ProgrammOrdnerErmitteln();
    } else {
        ordner = MitSchraegstrich(QDir::cleanPath(QDir(argumente[0]).absolutePath()));
    }
    const QString katalog = Einrichten(ordner);
    if (katalog.isEmpty())
        return 1;
    std::printf("Demo-Sammlung: %s\n", qPrintable(katalog));
    return 0;
}
