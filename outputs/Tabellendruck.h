#pragma once
// The marked rectangle of the table as a printed text table, and the small row routine
// behind it: a row of "|"-separated cells placed in columns given as "^50|>30|20"
// (centred, right, left; widths in millimetres).
#include "shell/Teilbereich.h"

#include <QString>
#include <QStringList>

#include <functional>

class Druckflaeche;

namespace Tabellendruck {

// The number of a column field: the whole field when it begins with a digit, else from
// its second character on.
int Feldbreite(const QString& feld);
// The text fitted to the field's width with blanks for its alignment; breite measures a
// text on paper in the unit of the width.
QString Einpassen(QString text, const QString& feld, const std::function<double(const QString&)>& breite);
// The column fields for grid columns of these widths (twips) and alignments over a print
// width in millimetres: each keeps its share of the sum, rounded.
QString Spaltenangabe(const QList<int>& breitenTwips, const QList<int>& ausrichtungen, int druckbreite);
// A cell as the table shows it in a column of the given width: a text wider than the
// column is cut where it reaches the column, less three characters, and "..." added.
QString Gekuerzt(QString text, int spaltenbreite, const std::function<int(const QString&)>& breite);
// Prints one row: cells missing at the end are empty.
void ZeileDrucken(Druckflaeche& f, double links, const QString& spalten, const QString& zellen);

} // namespace Tabellendruck

class Tabellendrucker : public Teilbereich {
public:
    using Teilbereich::Teilbereich;
    void verbinden() override;
    void mnuTabelleDrucken_Click();
};
