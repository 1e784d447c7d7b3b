#pragma once
// The Jet dialect on SQLite: the functions and the collation every connection gets, and
// the adaptation of Jet's SQL texts.
#include <QString>

struct sqlite3;

// The name under which the caseless German collation is registered.
inline constexpr char DeutschKollation[] = "DEUTSCH";

// Registers like(), the collation and the Jet functions on any connection.
void JetFunktionenAnmelden(sqlite3* db);

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
