#include "platform/Laufzeitfehler.h"

#include "platform/Dialogdienst.h"
#include "platform/Einheiten.h"

#include <map>

Laufzeitfehler::Laufzeitfehler(int nummer, const QString& beschreibung)
    : Nummer(nummer)
    , Beschreibung(beschreibung.isEmpty() ? Fehlerbeschreibung(nummer) : beschreibung)
    , m_what((QString::number(nummer) + u' ' + Beschreibung).toUtf8())
{
}

const char* Laufzeitfehler::what() const noexcept { return m_what.constData(); }

QString Fehlerbeschreibung(int nummer)
{
    static const std::map<int, const char16_t*> tabelle = {
        {3, u"Return ohne GoSub"},
        {5, u"Ungültiger Prozeduraufruf oder ungültiges Argument"},
        {6, u"Überlauf"},
        {7, u"Nicht genügend Speicher"},
        {9, u"Index außerhalb des gültigen Bereichs"},
        {11, u"Division durch Null"},
        {13, u"Typen unverträglich"},
        {28, u"Nicht genügend Stapelspeicher"},
        {52, u"Dateiname oder -nummer falsch"},
        {53, u"Datei nicht gefunden"},
        {54, u"Dateimodus falsch"},
        {55, u"Datei bereits geöffnet"},
        {57, u"Geräte-E/A-Fehler"},
        {58, u"Datei existiert bereits"},
        {61, u"Datenträger voll"},
        {62, u"Einlesen hinter Dateiende"},
        {67, u"Zu viele Dateien"},
        {68, u"Gerät nicht verfügbar"},
        {70, u"Zugriff verweigert"},
        {71, u"Datenträger nicht bereit"},
        {75, u"Fehler beim Zugriff auf Pfad/Datei"},
        {76, u"Pfad nicht gefunden"},
        {91, u"Objektvariable oder With-Blockvariable nicht festgelegt"},
        {94, u"Unzulässige Verwendung von Null"},
        {380, u"Unzulässiger Eigenschaftswert"},
        {Fehlernummer::DialogAbgebrochen, u"Abbrechen gewählt"},
    };
    const auto it = tabelle.find(nummer);
    if (it != tabelle.end())
        return QString::fromUtf16(it->second);
    return QStringLiteral("Anwendungs- oder objektdefinierter Fehler");
}

static void melden(const Laufzeitfehler& fehler, const QString& titel, qint64 hintergrund)
{
    if (fehler.Nummer == Fehlernummer::DialogAbgebrochen)
        return;
    MsgNimb(QString::number(fehler.Nummer) + u' ' + fehler.Beschreibung, 3, 0, titel, 1,
            hintergrund, Farbe::StandardText);
}

void Fehlermeldung(const Laufzeitfehler& fehler, const QString& titel)
{
    melden(fehler, titel, Farbe::FehlerHintergrund);
}

void FehlermeldungWarnfarben(const Laufzeitfehler& fehler, const QString& titel)
{
    melden(fehler, titel, Farbe::WarnHintergrund);
}
