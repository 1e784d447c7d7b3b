#pragma once
// The exclusion lists of styles and bands. Random play and the compilation generator
// each have a pair of them, kept in four small files in the program folder; the list of
// all styles lies beside the database.
#include <QString>
#include <QStringList>

class QListWidget;

// The four list files in ProgrammOrdner.
inline const QString StilAusschlussDateiCD = QStringLiteral("Ausschlussliste.ini");
inline const QString BandAusschlussDateiCD = QStringLiteral("BandAusschlussliste.ini");
inline const QString StilAusschlussDateiAbspielen = QStringLiteral("AusschlussAbspielliste.ini");
inline const QString BandAusschlussDateiAbspielen = QStringLiteral("BandAusschlussAbspielliste.ini");
// All styles, one per line, in DatenbankOrdner.
inline const QString StilrichtungDatei = QStringLiteral("Stilrichtung.ini");

// The settings that tell the two windows which list they edit, and their two values.
inline const QString SchluesselStilAusschluss = QStringLiteral("Ausschlussliste");
inline const QString SchluesselBandAusschluss = QStringLiteral("BandAusschlussliste");
inline const QString VerwendungAbspielen = QStringLiteral("Abspielen");
inline const QString VerwendungCD = QStringLiteral("CD-Erstellen");

// The file of the style (band) list of a use; empty for any other value of the setting.
QString StilAusschlussPfad(const QString& verwendung);
QString BandAusschlussPfad(const QString& verwendung);

// The lines of a list file as they stand: an empty line is an empty entry. A missing or
// unreadable file gives nothing, and false in *vorhanden.
QStringList AusschlussEintraege(const QString& pfad, bool* vorhanden = nullptr);
// Fills the list from the file with the wait pointer on. A missing file leaves the list
// as it was, so that the lists in force stay until the next start; returns false then.
bool AusschlussListeLaden(QListWidget* liste, const QString& pfad);
// Writes the entries, one per line. No entries give an empty file, not a missing one.
bool AusschlussListeSpeichern(const QString& pfad, const QStringList& eintraege);
// True when one of the entries occurs in the text, in exact case. An empty entry occurs
// in every text.
bool AusschlussTrifft(const QListWidget* liste, const QString& text);
