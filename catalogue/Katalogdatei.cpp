#include "catalogue/Katalogdatei.h"

#include "shell/Ausgabebox.h"

#include "catalogue/Datenbank.h"
#include "catalogue/Datensteuerung.h"
#include "catalogue/Tabellenansicht.h"
#include "media/Coververwaltung.h"
#include "platform/Dialogdienst.h"
#include "platform/Dienste.h"
#include "platform/Einheiten.h"
#include "platform/Laufzeitfehler.h"
#include "platform/Mauszeiger.h"
#include "platform/Pfade.h"
#include "shell/Einstellungen.h"
#include "shell/Globale.h"
#include "shell/Grundregeln.h"
#include "shell/Steuerelemente.h"

#include <QAction>
#include <QFile>
#include <QLabel>

namespace {

const QString GanzeTabelle = QStringLiteral("select * from Schallplatten order by Band, LPTitel");
const QString NachBand = QStringLiteral("select * from Schallplatten order by Band");
const QString Dateifilter = QStringLiteral("Datenbank (*.db)|*.db|alle Dateien (*.*)|*.*");

QString vorlage() { return ProgrammOrdner + QStringLiteral("Archiv_leer.db"); }

// A picked file that is an old Jet catalogue is refused before anything changes.
bool jetAbgelehnt(const QString& pfad, const QString& titel)
{
    if (!IstJetDatei(pfad))
        return false;
    MsgNimb(QStringLiteral("Die Datei\n") + pfad
                + QStringLiteral("\nist eine Datenbank im alten Jet-Format (.mdb).\n\n"
                                 "Rillenkammer öffnet nur Datenbanken im Format .db."),
            3, 0, titel, 0, Farbe::WarnHintergrund, Farbe::StandardText);
    return true;
}

// Copies a catalogue file; the copy is writable whatever the source was.
void kopieren(const QString& quelle, const QString& ziel)
{
    if (!QFile::exists(quelle))
        throw Laufzeitfehler(Fehlernummer::DateiNichtGefunden,
                             QStringLiteral("Datei nicht gefunden: ") + quelle);
    if (!QFile::copy(quelle, ziel))
        throw Laufzeitfehler(Fehlernummer::ZugriffsFehler,
                             QStringLiteral("Fehler beim Zugriff auf Pfad/Datei: ") + ziel);
    QFile::setPermissions(ziel, QFile::permissions(ziel) | QFile::WriteOwner | QFile::ReadOwner);
}

} // namespace

void Katalogdatei::verbinden()
{
    BefehlVerbinden(box.mnuOeffnen, this, [this] { mnuOeffnen_Click(); });
    BefehlVerbinden(box.mnuNeueDatenbank, this, [this] { mnuNeueDatenbank_Click(); });
    BefehlVerbinden(box.mnuSpeichernUnter, this, [this] { mnuSpeichernUnter_Click(); });
    BefehlVerbinden(box.MenuAktualisieren, this, [this] { MenuAktualisieren_Click(); });
    for (int i = 0; i < 10; ++i)
        BefehlVerbinden(box.mnuOrdner[i], this, [this, i] { mnuOrdner_Click(i); });
}

void Katalogdatei::mnuOeffnen_Click(const QString& vorgegeben)
{
    Mauszeiger(ZeigerSanduhr);
    try {
        QString pfad = vorgegeben;
        if (pfad.isEmpty()) {
            Dateiauswahl d;
            d.titel = QStringLiteral(" Datenbank laden");
            d.filter = Dateifilter;
            d.dateiname = Lesen(QStringLiteral("ArchivPfad"), vorlage());
            d.startordner = ProgrammOrdner;
            d.filterIndex = 1;
            pfad = D().dialoge().Datei(d);
            if (pfad.isEmpty())
                throw Laufzeitfehler(Fehlernummer::DialogAbgebrochen);
        }
        if (jetAbgelehnt(pfad, QStringLiteral("Datenbank laden"))) {
            Mauszeiger(ZeigerStandard);
            return;
        }
        box.staBar->setPanelText(1, QStringLiteral(" Datenbank wird geladen..."));
        box.staBar->setPanelText(2, QStringLiteral("no play"));
        // Release the old file first.
        box.Data1->setDatabaseName(QString());
        box.Data1->setRecordSource(QString());
        box.Data1->Refresh();
        EreignisseZulassen();
        box.tabellenansicht().TabelleEinrichten();
        box.Data1->setDatabaseName(pfad);
        box.Data1->setRecordSource(GanzeTabelle);
        box.Data1->Refresh();
        EreignisseZulassen();
        Speichern(QStringLiteral("Data1RecordSource"), GanzeTabelle);
        box.lblTabellenName->setText(QStringLiteral("alle"));
        Speichern(QStringLiteral("TabellenName"), QStringLiteral("alle"));
        box.tabellenansicht().TabelleEinrichten();
        Speichern(QStringLiteral("ArchivPfad"), pfad);
        OrdnerMenuPfad(pfad);
        box.staBar->setPanelText(1, DateinameAusPfad(pfad));
        DatenbankOrdner = OrdnerAusPfad(pfad);
        box.DatenbankCheck(pfad);
        box.coververwaltung().CoverAktualisieren();
    } catch (const Laufzeitfehler& fehler) {
        // A cancelled dialog leaves everything, panel 1 included, as it was.
        if (fehler.Nummer != Fehlernummer::DialogAbgebrochen) {
            box.staBar->setPanelText(1, QStringLiteral(" Fehler beim Laden der Datenbank!"));
            Mauszeiger(ZeigerStandard);
            Fehlermeldung(fehler, QStringLiteral("Ausgabebox_mnuOeffnen_Click"));
        }
    }
    Mauszeiger(ZeigerStandard);
}

void Katalogdatei::mnuNeueDatenbank_Click()
{
    DatenbankKopieAnlegen(QStringLiteral(" Neue Datenbank anlegen"), ProgrammOrdner, false,
                          QStringLiteral("Ausgabeboxbox_mnuNeueDatenbank_Click"));
}

void Katalogdatei::mnuSpeichernUnter_Click()
{
    DatenbankKopieAnlegen(QStringLiteral(" Speichern unter"), DatenbankOrdner, true,
                          QStringLiteral("Ausgabeboxbox_mnuSpeichernUnter_Click"));
}

void Katalogdatei::DatenbankKopieAnlegen(const QString& titel, const QString& startordner, bool offeneKopieren,
                                       const QString& fehlertitel)
{
    const QString bisher = box.Data1->DatabaseName();
    const QString bisherQuelle = box.Data1->RecordSource();
    try {
        Dateiauswahl d;
        d.titel = titel;
        d.filter = QStringLiteral("Datenbank (*.db) |*.db|alle Dateien (*.*) |*.*");
        d.startordner = startordner;
        d.filterIndex = 1;
        d.speichern = true;
        d.ueberschreibenFragen = false;
        const QString pfad = D().dialoge().Datei(d);
        if (pfad.isEmpty())
            throw Laufzeitfehler(Fehlernummer::DialogAbgebrochen);
        if (QFile::exists(pfad)) {
            MsgNimb(QStringLiteral("Die Datenbank existiert schon und kann nicht überschrieben werden."), 3, 0,
                    QStringLiteral("Sicherheitshinweis"), 0, Farbe::WarnHintergrund, Farbe::StandardText);
            return;
        }
        // Closing writes what is pending, so that a copy of the open file holds every row.
        box.Data1->schliessen();
        EreignisseZulassen();
        kopieren(offeneKopieren ? Lesen(QStringLiteral("ArchivPfad"), vorlage()) : vorlage(), pfad);
        EreignisseZulassen();
        box.Data1->setDatabaseName(pfad);
        box.Data1->setRecordSource(NachBand);
        box.Data1->Refresh();
        EreignisseZulassen();
        Speichern(QStringLiteral("Data1RecordSource"), NachBand);
        if (offeneKopieren)
            box.tabellenansicht().TabelleEinrichten();
        box.staBar->setPanelText(1, DateinameAusPfad(pfad));
        DatenbankOrdner = OrdnerAusPfad(pfad);
        Speichern(QStringLiteral("ArchivPfad"), pfad);
        box.coververwaltung().CoverAktualisieren();
    } catch (const Laufzeitfehler& fehler) {
        DatenbankWiederOeffnen(bisher, bisherQuelle);
        Fehlermeldung(fehler, fehlertitel);
    }
}

void Katalogdatei::DatenbankWiederOeffnen(const QString& pfad, const QString& quelle)
{
    // After a failed copy the catalogue of before comes back, so that work goes on.
    if (pfad.isEmpty() || box.Data1->database())
        return;
    try {
        box.Data1->setDatabaseName(pfad);
        box.Data1->setRecordSource(quelle);
        box.Data1->Refresh();
    } catch (const Laufzeitfehler&) {
    }
}

void Katalogdatei::MenuAktualisieren_Click()
{
    try {
        box.Data1->setRecordSource(QStringLiteral("Schallplatten"));
        box.Data1->setRecordSource(GanzeTabelle);
        box.Data1->Refresh();
        EreignisseZulassen();
        Speichern(QStringLiteral("Data1RecordSource"), GanzeTabelle);
        box.lblTabellenName->setText(QStringLiteral("alle"));
        Speichern(QStringLiteral("TabellenName"), QStringLiteral("alle"));
        box.coververwaltung().CoverAktualisieren();
        box.tabellenansicht().TabelleEinrichten();
        box.coververwaltung().CoverDown();
    } catch (const Laufzeitfehler& fehler) {
        Fehlermeldung(fehler, QStringLiteral("Ausgabebox_MenuAktualisieren_Click"));
    }
}

QString Katalogdatei::OrdnerEintrag(int index) const
{
    return box.mnuOrdner[index]->data().toString();
}

void Katalogdatei::OrdnerEintragSetzen(int index, const QString& pfad)
{
    QAction* a = box.mnuOrdner[index];
    a->setData(pfad);
    // A path may hold "&", which a menu caption would take for an access key.
    a->setText(QString(pfad).replace(u'&', QStringLiteral("&&")));
    a->setVisible(!pfad.isEmpty());
}

void Katalogdatei::OrdnerMenuPfad(const QString& pfad)
{
    for (int i = 0; i < 10; ++i)
        if (OrdnerEintrag(i) == pfad)
            OrdnerEintragSetzen(i, QString());
    for (int i = 0; i < 9; ++i) {
        if (OrdnerEintrag(i).isEmpty() && !OrdnerEintrag(i + 1).isEmpty()) {
            for (int k = i; k < 9; ++k)
                OrdnerEintragSetzen(k, OrdnerEintrag(k + 1));
            OrdnerEintragSetzen(9, QString());
        }
    }
    for (int i = 9; i >= 1; --i)
        OrdnerEintragSetzen(i, OrdnerEintrag(i - 1));
    OrdnerEintragSetzen(0, pfad);
    for (int i = 0; i < 10; ++i)
        Speichern(QStringLiteral("%1Ordnerpfad").arg(i), OrdnerEintrag(i));
}

void Katalogdatei::mnuOrdner_Click(int index)
{
    const QString pfad = OrdnerEintrag(index);
    if (DateiVorhanden(pfad)) {
        mnuOeffnen_Click(pfad);
        return;
    }
    const QString antwort = MsgNimb(QStringLiteral("Diese Datenbank ist nicht mehr vorhanden bzw. nicht erreichbar!\n")
                                        + pfad + QStringLiteral("\n\nSoll der Menüeintrag entfernen werden?"),
                                    22, 1, QStringLiteral("Datenbank nicht gefunden"), 0);
    if (antwort != u"Ja")
        return;
    OrdnerEintragSetzen(index, QString());
    Speichern(QStringLiteral("%1Ordnerpfad").arg(index), QString());
}
