#pragma once
// One SQLite connection to a catalogue, with what the Jet dialect of the system needs:
// Jet's like(), the caseless German collation and the common Jet functions of the SQL
// console.
#include "catalogue/JetSql.h"
#include "catalogue/Textregeln.h"

#include <QString>
#include <QStringList>
#include <QVariant>

#include <memory>

struct sqlite3;
struct sqlite3_stmt;

struct AnweisungFreigeben {
    void operator()(sqlite3_stmt* anweisung) const;
};
// A prepared statement that is finalized with its owner.
using Anweisung = std::unique_ptr<sqlite3_stmt, AnweisungFreigeben>;

class Datenbank {
public:
    // Opens a catalogue for reading and writing. Throws Laufzeitfehler when the file is
    // missing, is a Jet file, or is no SQLite database (nothing is written then).
    static std::unique_ptr<Datenbank> oeffnen(const QString& pfad);
    ~Datenbank();
    Datenbank(const Datenbank&) = delete;
    Datenbank& operator=(const Datenbank&) = delete;

    const QString& pfad() const { return m_pfad; }
    sqlite3* handle() const { return m_db; }
    // True when the file could only be opened for reading.
    bool schreibgeschuetzt() const;

    // Runs an action query and returns the number of records affected. A select is
    // refused. Throws Laufzeitfehler with SQLite's message on any error.
    int Execute(const QString& sql);
    // Counts the runs of Execute, so that a recordset knows whether anything but its own
    // writes may have changed the file.
    qint64 Ausfuehrungen() const { return m_ausfuehrungen; }
    // Column names of a table in table order; empty when there is no such table.
    QStringList Spalten(const QString& tabelle) const;

    // Prepares one statement of the Jet dialect (left( and right( are made callable).
    // Throws Laufzeitfehler on a syntax error or an empty text.
    Anweisung vorbereiten(const QString& sql, bool dauerhaft = false) const;

    // Throws Laufzeitfehler for the last error of this connection.
    [[noreturn]] void fehlerWerfen(int rc) const;

private:
    explicit Datenbank(const QString& pfad, sqlite3* db);
    void sortierhilfeAnlegen();
    QString m_pfad;
    sqlite3* m_db = nullptr;
    qint64 m_ausfuehrungen = 0;
};

// True when the file begins like a Jet/ACE database (an old ".mdb").
bool IstJetDatei(const QString& pfad);

// A German sentence for one of SQLite's common messages, or an empty text.
QString SqliteMeldungDeutsch(const QString& meldung);
