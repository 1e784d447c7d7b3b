#pragma once
// What the recordset's two files share.
#include <QList>
#include <QPair>
#include <QString>
#include <QStringList>
#include <QVariant>

#include <optional>
#include <vector>

struct sqlite3_stmt;

namespace RecordsetIntern {

// A name as SQL quotes it.
QString namenZitieren(const QString& name);
// Binds a value of a field to a statement's parameter.
void binden(sqlite3_stmt* anweisung, int index, const QVariant& wert);
// The terms of "order by a, b desc" when each is a plain column of the table that holds
// text: the column and whether it descends; nothing for any other order.
std::optional<std::vector<QPair<QString, bool>>> einfacheOrdnung(const QString& ordnung, const QStringList& spalten,
                                                                 const std::vector<bool>& istBlob);

} // namespace RecordsetIntern
