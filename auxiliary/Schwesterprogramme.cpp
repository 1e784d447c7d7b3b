#include "auxiliary/Schwesterprogramme.h"

#include "shell/Ausgabebox.h"

#include "catalogue/Datensteuerung.h"
#include "platform/Dienste.h"
#include "platform/Laufzeitfehler.h"
#include "shell/Globale.h"
#include "shell/Grundregeln.h"
#include "shell/Steuerelemente.h"

#include <QAction>

void Schwesterprogramme::verbinden()
{
    BefehlVerbinden(box.mnuDatenbank, this, [this] { mnuDatenbank_Click(); });
}

void Schwesterprogramme::mnuDatenbank_Click()
{
    try {
        const QString programm = ProgrammOrdner + QStringLiteral("Karteiwart");
        if (!D().shell().starten(programm, {}))
            throw Laufzeitfehler(Fehlernummer::DateiNichtGefunden);
        // The tool gets the database to itself: the program ends.
        EreignisseZulassen();
        box.Data1->Refresh();
        EreignisseZulassen();
        box.AlleFensterSchliessen();
    } catch (const Laufzeitfehler& fehler) {
        Fehlermeldung(fehler, QStringLiteral("Ausgabebox_mnuDatenbank_Click"));
    }
}
