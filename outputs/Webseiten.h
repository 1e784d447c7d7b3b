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
// A page is: Kopf, Navigation, Tabellenkopf, the rows, Tabellenende, Navigation, Schluss.
// Kopf and Navigation are the same on every page of a run, so they are made once.
// The page's start up to its navigation.
QString Kopf(const QString& ueberschrift, const QString& url);
// The links to all pages, one line each.
QString Navigation(int seiten);
// The page number and the table's head row with its cells.
QString Tabellenkopf(int seite, const QStringList& spalten);
// The table's end and the page number before the navigation below it.
QString Tabellenende(int seite);
// The page number after the lower navigation and the page's end.
QString Schluss(int seite);
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
