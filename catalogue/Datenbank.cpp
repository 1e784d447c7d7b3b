#include "catalogue/Datenbank.h"

#include "platform/Laufzeitfehler.h"
#include "platform/Pfade.h"

#include <QFile>
#include <QFileInfo>
#include <QRegularExpression>

#include <sqlite3.h>

void AnweisungFreigeben::operator()(sqlite3_stmt* anweisung) const { sqlite3_finalize(anweisung); }

QString SqliteMeldungDeutsch(const QString& meldung)
{
    struct Muster {
        const char* englisch;
        const char* deutsch;
    };
    // The messages a user meets in the SQL console; %1, %2 are the names SQLite gives.
    static const Muster k_muster[] = {
        {R"m(^no such column: (.+)$)m", "Die Spalte \"%1\" gibt es nicht."},
        {R"m(^no such table: (.+)$)m", "Die Tabelle \"%1\" gibt es nicht."},
        {R"m(^no such function: (.+)$)m", "Die Funktion \"%1\" gibt es nicht."},
        {R"m(^no such collation sequence: (.+)$)m", "Die Sortierfolge \"%1\" gibt es nicht."},
        {R"m(^near "(.*)": syntax error$)m", "Die SQL-Anweisung hat einen Syntaxfehler bei \"%1\"."},
        {R"m(^incomplete input$)m", "Die SQL-Anweisung ist unvollständig."},
        {R"m(^unrecognized token: "?(.*?)"?$)m", "Die SQL-Anweisung enthält das unbekannte Zeichen %1."},
        {R"m(^ambiguous column name: (.+)$)m", "Der Spaltenname \"%1\" ist mehrdeutig."},
        {R"m(^(?:table|view) "?(.*?)"? already exists$)m", "Die Tabelle \"%1\" gibt es schon."},
        {R"m(^index (.+) already exists$)m", "Den Index \"%1\" gibt es schon."},
        {R"m(^table (.+) has no column named (.+)$)m", "Die Tabelle \"%1\" hat keine Spalte \"%2\"."},
        {R"m(^duplicate column name: (.+)$)m", "Die Spalte \"%1\" gibt es doppelt."},
        {R"m(^wrong number of arguments to function (.+)\(\)$)m",
         "Die Funktion %1() hat die falsche Anzahl von Argumenten."},
        {R"m(^(\d+) values for (\d+) columns$)m", "Es sind %1 Werte für %2 Spalten angegeben."},
        {R"m(^UNIQUE constraint failed: (.+)$)m", "Der Wert in %1 ist nicht eindeutig."},
        {R"m(^NOT NULL constraint failed: (.+)$)m", "%1 darf nicht leer sein."},
        {R"m(^misuse of aggregate(?: function)?:? (.+)$)m", "Die Aggregatfunktion %1 steht an falscher Stelle."},
        {R"m(^sub-select returns (\d+) columns - expected 1$)m", "Die Unterabfrage liefert %1 Spalten statt einer."},
        {R"m(^SELECTs to the left and right of .+ do not have the same number of result columns$)m",
         "Die verbundenen Abfragen liefern verschieden viele Spalten."},
        {R"m(^cannot modify (.+) because it is a view$)m", "\"%1\" ist eine Sicht und kann nicht geändert werden."},
        {R"m(^interrupted$)m", "Die Abfrage wurde abgebrochen."},
    };
    for (const Muster& m : k_muster) {
        const QRegularExpression ausdruck(QString::fromUtf8(m.englisch));
        const QRegularExpressionMatch treffer = ausdruck.match(meldung);
        if (!treffer.hasMatch())
            continue;
        QString text = QString::fromUtf8(m.deutsch);
        for (int k = 1; k <= ausdruck.captureCount(); ++k)
            text = text.arg(treffer.captured(k));
        return text;
    }
    return {};
}

namespace {

// The error of a connection as a Laufzeitfehler: 3000 + SQLite's primary code, SQLite's
// message, and a German sentence where the user can do something about it.
Laufzeitfehler datenbankFehler(sqlite3* db, int rc, const QString& pfad)
{
    const int primaer = rc & 0xFF;
    const QString meldung
        = db ? QString::fromUtf8(sqlite3_errmsg(db)) : QString::fromUtf8(sqlite3_errstr(rc));
    const QString name = DateinameAusPfad(pfad);
    QString text;
    switch (primaer) {
    case SQLITE_READONLY:
        text = QStringLiteral("Die Datenbank \"%1\" ist schreibgeschützt; die Änderung wurde nicht "
                              "gespeichert. (%2)")
                   .arg(name, meldung);
        break;
    case SQLITE_FULL:
        text = QStringLiteral("Der Datenträger der Datenbank \"%1\" ist voll; die Änderung wurde "
                              "nicht gespeichert. (%2)")
                   .arg(name, meldung);
        break;
    case SQLITE_IOERR:
        text = QStringLiteral("Fehler beim Zugriff auf die Datenbank \"%1\". (%2)")
                   .arg(name, meldung);
        break;
    case SQLITE_BUSY:
    case SQLITE_LOCKED:
        text = QStringLiteral("Die Datenbank \"%1\" wird gerade von einem anderen Programm "
                              "benutzt. (%2)")
                   .arg(name, meldung);
        break;
    case SQLITE_CORRUPT:
        text = QStringLiteral("Die Datenbank \"%1\" ist beschädigt. (%2)").arg(name, meldung);
        break;
    case SQLITE_NOTADB:
        text = QStringLiteral("Die Datei \"%1\" ist keine Datenbank. (%2)").arg(name, meldung);
        break;
    case SQLITE_CANTOPEN:
        text = QStringLiteral("Die Datenbank \"%1\" kann nicht geöffnet werden. (%2)")
                   .arg(name, meldung);
        break;
    default:
        text = SqliteMeldungDeutsch(meldung);
        text = text.isEmpty() ? meldung : text + QStringLiteral(" (") + meldung + u')';
    }
    return Laufzeitfehler(Fehlernummer::DatenbankBasis + primaer, text);
}

[[noreturn]] void werfen(sqlite3* db, int rc, const QString& pfad)
{
    throw datenbankFehler(db, rc, pfad);
}

void pragmaAusfuehren(sqlite3* db, const char* sql, const QString& pfad, bool pflicht)
{
    char* fehler = nullptr;
    const int rc = sqlite3_exec(db, sql, nullptr, nullptr, &fehler);
    sqlite3_free(fehler);
    if (rc != SQLITE_OK && pflicht)
        werfen(db, rc, pfad);
}

} // namespace

bool IstJetDatei(const QString& pfad)
{
    QFile datei(pfad);
    if (!datei.open(QIODevice::ReadOnly))
        return false;
    const QByteArray kopf = datei.read(32);
    if (kopf.size() < 19)
        return false;
    const QByteArray kennung = kopf.mid(4, 15);
    return kennung == "Standard Jet DB" || kennung == "Standard ACE DB";
}

Datenbank::Datenbank(const QString& pfad, sqlite3* db)
    : m_pfad(pfad)
    , m_db(db)
{
}

Datenbank::~Datenbank()
{
    // v2 leaves the closing to the last statement should one still be open.
    sqlite3_close_v2(m_db);
}

std::unique_ptr<Datenbank> Datenbank::oeffnen(const QString& pfad)
{
    const QFileInfo info(pfad);
    if (pfad.isEmpty() || !info.exists())
        throw Laufzeitfehler(Fehlernummer::DateiNichtGefunden);
    if (info.isDir())
        throw Laufzeitfehler(Fehlernummer::ZugriffsFehler);
    if (IstJetDatei(pfad))
        throw Laufzeitfehler(
            Fehlernummer::DatenbankBasis + SQLITE_NOTADB,
            QStringLiteral("Die Datei \"%1\" ist eine Datenbank im alten Jet-Format "
                           "(.mdb) und kann nicht geöffnet werden. Bitte wandeln "
                           "Sie sie zuerst in eine SQLite-Datenbank (.db) um.")
                .arg(pfad));
    // SQLite would take an empty file for a new database and write into it.
    if (info.size() == 0)
        werfen(nullptr, SQLITE_NOTADB, pfad);

    sqlite3* db = nullptr;
    const int rc
        = sqlite3_open_v2(QFile::encodeName(pfad).constData(), &db, SQLITE_OPEN_READWRITE, nullptr);
    if (rc != SQLITE_OK) {
        const Laufzeitfehler fehler = datenbankFehler(db, rc, pfad);
        sqlite3_close(db);
        throw fehler;
    }
    std::unique_ptr<Datenbank> datenbank(new Datenbank(pfad, db));
    JetFunktionenAnmelden(db);
    sqlite3_busy_timeout(db, 3000);
    // Reading the schema now makes a file that is no database fail here, not later.
    pragmaAusfuehren(db, "SELECT count(*) FROM sqlite_master", pfad, true);
    // The file is copied by "save as": no side files of a write-ahead log.
    pragmaAusfuehren(db, "PRAGMA journal_mode = DELETE", pfad, false);
    pragmaAusfuehren(db, "PRAGMA synchronous = FULL", pfad, false);
    pragmaAusfuehren(db, "PRAGMA temp_store = MEMORY", pfad, false);
    // A sort uses both cores; the German collation may be called from either.
    pragmaAusfuehren(db, "PRAGMA threads = 2", pfad, false);
    datenbank->sortierhilfeAnlegen();
    return datenbank;
}

void Datenbank::sortierhilfeAnlegen()
{
    // The table's own order of band and title, with the rating beside them, lets the
    // default order, the letters and the rating filter read a small index instead of the
    // whole table. Its collation is the columns' own, so every SQLite program keeps it in
    // order; it holds no entry of its own. A file that cannot be written goes without.
    if (schreibgeschuetzt())
        return;
    const QStringList spalten = Spalten(QStringLiteral("Schallplatten"));
    auto hat = [&](const char* name) { return spalten.contains(QLatin1String(name), Qt::CaseInsensitive); };
    if (!hat("Band") || !hat("LPTitel"))
        return;
    const QByteArray sql = QByteArrayLiteral("CREATE INDEX IF NOT EXISTS Schallplatten_Band_LPTitel "
                                             "ON Schallplatten (Band, LPTitel")
        + (hat("Bewertung") ? QByteArrayLiteral(", Bewertung)") : QByteArrayLiteral(")"));
    sqlite3_exec(m_db, sql.constData(), nullptr, nullptr, nullptr);
    // The Carrier of a playing folder is looked for at every start of a playlist's song:
    // the catalogue then reads the music folders from a small index, not the whole table.
    if (hat("Musikpfad"))
        sqlite3_exec(m_db, "CREATE INDEX IF NOT EXISTS Schallplatten_Musikpfad ON Schallplatten (Musikpfad)", nullptr,
                     nullptr, nullptr);
}

bool Datenbank::schreibgeschuetzt() const { return sqlite3_db_readonly(m_db, "main") == 1; }

void Datenbank::fehlerWerfen(int rc) const { werfen(m_db, rc, m_pfad); }

Anweisung Datenbank::vorbereiten(const QString& sql, bool dauerhaft) const
{
    const QByteArray text = JetSyntaxAnpassen(sql).toUtf8();
    sqlite3_stmt* roh = nullptr;
    const int rc = sqlite3_prepare_v3(m_db, text.constData(), int(text.size()),
                                      dauerhaft ? SQLITE_PREPARE_PERSISTENT : 0, &roh, nullptr);
    if (rc != SQLITE_OK)
        fehlerWerfen(rc);
    if (!roh)
        throw Laufzeitfehler(Fehlernummer::DatenbankBasis + SQLITE_ERROR,
                             QStringLiteral("Die SQL-Anweisung ist leer."));
    return Anweisung(roh);
}

int Datenbank::Execute(const QString& sql)
{
    ++m_ausfuehrungen;
    const QByteArray text = JetSyntaxAnpassen(sql).toUtf8();
    const char* z = text.constData();
    const char* const ende = z + text.size();
    bool sicherung = false; // several statements run as one
    auto zurueck = [&] {
        if (sicherung) {
            sqlite3_exec(m_db, "ROLLBACK TO rk_execute; RELEASE rk_execute", nullptr, nullptr,
                         nullptr);
            sicherung = false;
        }
    };
    int summe = 0;
    int anzahl = 0;
    while (z < ende) {
        sqlite3_stmt* roh = nullptr;
        const char* rest = nullptr;
        const int rc = sqlite3_prepare_v2(m_db, z, int(ende - z), &roh, &rest);
        if (rc != SQLITE_OK) {
            const Laufzeitfehler fehler = datenbankFehler(m_db, rc, m_pfad);
            zurueck();
            throw fehler;
        }
        z = rest;
        if (!roh)
            continue;
        Anweisung anweisung(roh);
        if (sqlite3_column_count(roh) > 0 && sqlite3_stmt_readonly(roh)) {
            zurueck();
            throw Laufzeitfehler(3065,
                                 QStringLiteral("Eine Auswahlabfrage kann nicht ausgeführt "
                                                "werden; nur Aktionsabfragen (update, insert, "
                                                "delete ...) sind möglich."));
        }
        if (!sicherung && anzahl == 0 && sqlite3_get_autocommit(m_db)) {
            const QByteArray folgt = QByteArray(rest, int(ende - rest)).trimmed();
            if (!folgt.isEmpty() && folgt != ";"
                && sqlite3_exec(m_db, "SAVEPOINT rk_execute", nullptr, nullptr, nullptr)
                    == SQLITE_OK)
                sicherung = true;
        }
        ++anzahl;
        const sqlite3_int64 vorher = sqlite3_total_changes64(m_db);
        int schritt;
        while ((schritt = sqlite3_step(roh)) == SQLITE_ROW) { }
        if (schritt != SQLITE_DONE) {
            const Laufzeitfehler fehler = datenbankFehler(m_db, schritt, m_pfad);
            anweisung.reset();
            zurueck();
            throw fehler;
        }
        if (sqlite3_total_changes64(m_db) != vorher)
            summe += sqlite3_changes(m_db);
    }
    if (sicherung)
        sqlite3_exec(m_db, "RELEASE rk_execute", nullptr, nullptr, nullptr);
    // This pragma puts SQLite's own like() back, with "%" as wild card.
    if (sql.contains(QLatin1String("case_sensitive_like"), Qt::CaseInsensitive))
        JetFunktionenAnmelden(m_db);
    if (anzahl == 0)
        throw Laufzeitfehler(Fehlernummer::DatenbankBasis + SQLITE_ERROR,
                             QStringLiteral("Die SQL-Anweisung ist leer."));
    return summe;
}

QStringList Datenbank::Spalten(const QString& tabelle) const
{
    QStringList namen;
    sqlite3_stmt* roh = nullptr;
    if (sqlite3_prepare_v2(m_db, "SELECT name FROM pragma_table_info(?1) ORDER BY cid", -1, &roh,
                           nullptr)
        != SQLITE_OK)
        return namen;
    Anweisung anweisung(roh);
    const QByteArray name = tabelle.toUtf8();
    sqlite3_bind_text(roh, 1, name.constData(), int(name.size()), SQLITE_TRANSIENT);
    while (sqlite3_step(roh) == SQLITE_ROW)
        namen << QString::fromUtf8(reinterpret_cast<const char*>(sqlite3_column_text(roh, 0)),
                                   sqlite3_column_bytes(roh, 0));
    return namen;
}

