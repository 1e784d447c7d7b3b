#pragma once
// Catalogues for tests: copies of the template with rows of our choosing.
#include <QMap>
#include <QString>
#include <QStringList>

using Zeilenwerte = QMap<QString, QString>;

// Copies the template to the path and appends the rows (column name to value); columns
// left out hold one blank. Returns the path.
QString KatalogAnlegen(const QString& pfad, const QList<Zeilenwerte>& zeilen = {});
// Rows of the given bands with a title each ("Band", "Titel <n>").
QList<Zeilenwerte> Baender(const QStringList& baender);
// Runs one statement on a catalogue file directly, beside the program.
void KatalogAusfuehren(const QString& pfad, const QString& sql);
// The values of one column of a catalogue, in rowid order.
QStringList KatalogSpalte(const QString& pfad, const QString& spalte);
