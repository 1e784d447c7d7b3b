#include "auxiliary/Schwesterprogramme.h"

#include "shell/Ausgabebox.h"

#include "catalogue/Datensteuerung.h"
#include "platform/Dienste.h"
#include "platform/Laufzeitfehler.h"
#include "shell/Globale.h"

#include <QAction>
#include <QCoreApplication>

void Schwesterprogramme::verbinden()
{
    connect(box.mnuDatenbank, &QAction::triggered, this, [this] { mnuDatenbank_Click(); });
}

void Schwesterprogramme::mnuDatenbank_Click()
{
    try {
        const QString programm = ProgrammOrdner + QStringLiteral("Karteiwart");
        if (!D().shell().starten(programm, {}))
            throw Laufzeitfehler(Fehlernummer::DateiNichtGefunden);
        // The tool gets the database to itself: the program ends.
        QCoreApplication::processEvents();
        box.Data1->Refresh();
        QCoreApplication::processEvents();
        box.AlleFensterSchliessen();
    } catch (const Laufzeitfehler& fehler) {
        Fehlermeldung(fehler, QStringLiteral("Ausgabebox_mnuDatenbank_Click"));
    }
}
