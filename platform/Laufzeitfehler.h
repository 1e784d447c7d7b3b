#pragma once
// Runtime errors of the classic kind: a number and a German description. Procedures
// that use the one error route catch these and show them through Fehlermeldung().
#include <QString>

#include <exception>

struct Laufzeitfehler : std::exception {
    int Nummer = 0;
    QString Beschreibung;

    explicit Laufzeitfehler(int nummer, const QString& beschreibung = {});
    const char* what() const noexcept override;

private:
    QByteArray m_what;
};

// Numbers used by the system.
namespace Fehlernummer {
constexpr int UngueltigerAufruf = 5;
constexpr int IndexAusserhalb = 9;
constexpr int DivisionDurchNull = 11;
constexpr int TypenUnvertraeglich = 13;
constexpr int DateinameFalsch = 52;
constexpr int DateiNichtGefunden = 53;
constexpr int DateiExistiertBereits = 58;
constexpr int ZugriffsFehler = 75;
constexpr int PfadNichtGefunden = 76;
// The cancel of a file, font, colour or print dialog: silent on every error route.
constexpr int DialogAbgebrochen = 32755;
// Database errors are 3000 plus SQLite's primary result code, with SQLite's message.
constexpr int DatenbankBasis = 3000;
} // namespace Fehlernummer

// The German description of a runtime error number ("Datei nicht gefunden" for 53).
QString Fehlerbeschreibung(int nummer);

// The one error route: MsgNimb with "<number> <description>", type 3, default 0, the
// procedure's title, seconds 1, error colours. The dialog cancel stays silent.
void Fehlermeldung(const Laufzeitfehler& fehler, const QString& titel);
// The same with the warning colours, which a few procedures use.
void FehlermeldungWarnfarben(const Laufzeitfehler& fehler, const QString& titel);
