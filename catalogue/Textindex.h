#pragma once
// A trigram index over the text columns of a catalogue table, kept by triggers in the
// file itself, that names the rows where a text may occur without reading the table.
// Its answer is a superset: each row it names is still compared as the table shows it.
#include <QSet>
#include <QString>
#include <QStringList>

#include <functional>
#include <optional>

struct sqlite3;

namespace Textindex {

// The index's question for a caseless "contains": every distinct trigram of the term,
// each quoted, joined by AND. Empty where the index cannot answer: a term of fewer than
// three characters, or one with letters whose case the index may fold otherwise.
QString Abfrage(const QString& begriff);

// The columns an index of the table covers: every column not declared as a picture.
QStringList Spalten(sqlite3* db, const QString& tabelle);

// True when the table's index stands, covers exactly these columns and its triggers are
// the ones this program writes.
bool Bereit(sqlite3* db, const QString& tabelle, const QStringList& spalten);

// Builds the index anew in one transaction. weiter(gelesen, gesamt) is asked every few
// hundred rows; false from it rolls everything back. False as well where the file cannot
// take the index (read-only, busy); the file is then as it was.
bool Anlegen(sqlite3* db, const QString& tabelle, const std::function<bool(qint64, qint64)>& weiter);

// The rowids the index names for the term; nothing where the question cannot be asked.
std::optional<QSet<qint64>> Kandidaten(sqlite3* db, const QString& tabelle, const QString& begriff);

} // namespace Textindex
