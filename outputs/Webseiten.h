#pragma once
// The text of the static web pages of the catalogue table: pure functions, so that every
// byte of a page can be checked against its template.
#include <QByteArray>
#include <QString>
#include <QStringList>

#include <optional>

namespace Webseiten {

inline const QString Suchmaschine = QStringLiteral("www.google.de");
inline const QString Produktsuche = QStringLiteral("www.amazon.de");
inline const QString Herstellerseite = QStringLiteral("www.rillenkammer.example.org");
// What the site's own address is before the user enters it, and the sample the menu opens.
inline const QString StandardURL = QStringLiteral("www.meine-plattensammlung.example.org");
inline const QString BeispielWebsite = QStringLiteral("https://www.rillenkammer.example.org/beispiel/");

// Pages for the data rows: whole pages plus one as soon as the rows exceed one page, so
// 100 rows at 50 give three; nothing for 0 rows a page with rows to write.
std::optional<int> Seitenzahl(int datenzeilen, int proSeite);
// The file of page n: "index.html", then "rillenkammer2.html" and so on.
QString Dateiname(int seite);
// The page from its start to the head row of the table, and the head cells.
QString Kopf(const QString& ueberschrift, const QString& url, int seite, int seiten, const QStringList& spalten);
// The table's end and the page's end.
QString Fuss(int seite, int seiten);
// "ä" to "&auml;" and the other six German letters; nothing else is escaped.
QString Umlaute(QString text);
// One data cell, by the name of its grid column; the band key carries the last band from
// cell to cell for the title's product link.
QString Zelle(QString text, const QString& name, QString& bandSchluessel);
// The row's opening with its colour, which flips first: "#e3eaf4" and "#f1f4fa".
QString Zeilenanfang(QString& farbe);
// Windows-1252; a character it lacks becomes a numeric character reference.
QByteArray Kodieren(const QString& seite);

} // namespace Webseiten
