#pragma once
// One SQLite connection to a catalogue, with what the Jet dialect of the system needs:
// Jet's like(), the caseless German collation and the common Jet functions of the SQL
// console.
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
    // Column names of a table in table order; empty when there is no such table.
    QStringList Spalten(const QString& tabelle) const;

    // Prepares one statement of the Jet dialect (left( and right( are made callable).
    // Throws Laufzeitfehler on a syntax error or an empty text.
    Anweisung vorbereiten(const QString& sql, bool dauerhaft = false) const;

    // Throws Laufzeitfehler for the last error of this connection.
    [[noreturn]] void fehlerWerfen(int rc) const;

private:
    explicit Datenbank(const QString& pfad, sqlite3* db);
    QString m_pfad;
    sqlite3* m_db = nullptr;
};

// The name under which the caseless German collation is registered.
inline constexpr char DeutschKollation[] = "DEUTSCH";

// Registers like(), the collation and the Jet functions on any connection.
void JetFunktionenAnmelden(sqlite3* db);

// True when the file begins like a Jet/ACE database (an old ".mdb").
bool IstJetDatei(const QString& pfad);

// Jet SQL made acceptable to SQLite, outside literals, quoted names and comments:
// - the calls left(...) and right(...) become "left"(...) and "right"(...), since SQLite
//   reads the bare words as join keywords;
// - Jet's "&" joins texts and becomes "||" (to SQLite it is a bitwise and);
// - the terms of "order by" and "group by", and a quoted text beside a comparison, get
//   "COLLATE DEUTSCH", so that they sort and compare as Jet does (not in statements that
//   change the schema, whose text is stored in the file).
// Everything else is passed through.
QString JetSyntaxAnpassen(const QString& sql);
// The position behind a quoted literal, a bracketed name or a comment that starts at i
// (an unclosed one runs to the end); i itself when none starts there.
qsizetype SqlUeberspringen(const QString& s, qsizetype i);

// A German sentence for one of SQLite's common messages, or an empty text.
QString SqliteMeldungDeutsch(const QString& meldung);

// The caseless German comparison the collation uses: "Ärzte" sorts among the A, case is
// ignored, umlauts come right after their base letter. Negative, 0 or positive.
int DeutschVergleichen(const QString& a, const QString& b);
// The same on UTF-8 bytes, without allocating; invalid bytes count as Latin-1.
int DeutschVergleichenUtf8(const char* a, int na, const char* b, int nb);
// Jet's like: * ? # [list] [!list], caseless for all letters including umlauts.
bool JetLike(const QString& muster, const QString& text);
// The same on UTF-8 bytes; escape is a code point that makes the next one literal, or 0.
bool JetLikeUtf8(const char* muster, int nm, const char* text, int nt, char32_t escape = 0);
