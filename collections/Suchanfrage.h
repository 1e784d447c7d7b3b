#pragma once
// The statements of the search window: the column boxes with their fields, the Jet SQL
// that a search text and the checked boxes give, and the rules of the replacement.
#include <QString>
#include <QStringList>

#include <array>

struct Suchspalte {
    const char* beschriftung; // caption of the box, joined into Suchspalten
    const char* feld;         // the field searched
    const char* sortfeld;     // the order a click on the box chooses
};

inline constexpr int SuchspaltenAnzahl = 13;
inline constexpr int SpalteStilBox = 4;
inline constexpr int SpalteSongsBox = 6;
inline constexpr int SpalteBewertungBox = 12;
extern const std::array<Suchspalte, SuchspaltenAnzahl> SuchspaltenTabelle;

// The glue that joins the parts of "a, b": a second clause on Stil inside the text.
inline const QString StilKlammer = QStringLiteral("*' or Stil like '*");

// "a, b" joined by the glue, as the search field shows it after OK.
QString SuchtextVerleimen(const QString& text);

// The German letters as the stored rich text of Songs escapes them, with Jet's "?" for
// the apostrophe of the escape.
QString SongsMuster(const QString& text);

// The search text for a Jet like pattern: the parts between the glue are taken literally
// (apostrophes doubled, Jet's wildcards bracketed), the glue keeps its meaning. With
// songs, the German letters become the patterns of SongsMuster.
QString SuchmusterJet(const QString& verleimt, bool songs);

// The statement of the checked boxes (state 1 or, under "Alle", 2); boxen holds the
// indexes of the boxes whose state is not 0, in index order. With fewer than two the
// stored sort field orders, otherwise Band.
QString SuchAnweisung(const QList<int>& boxen, const QString& verleimt, const QString& sortfeld);

// The new value of a cell in the replacement, for SQL: the old value with its apostrophes
// doubled goes to *alt; suchen and ersetzen have their apostrophes doubled in place, anew
// at every hit; the span at the position of suchen in the cell as it stands (taken before
// the doubling, so an apostrophe in front of it shifts the span) is replaced.
QString ErsetzterWert(const QString& zelle, QString& suchen, QString& ersetzen, QString* alt);
