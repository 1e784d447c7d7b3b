#include "auxiliary/Hilfe.h"

#include "platform/Dialogdienst.h"
#include "platform/Dienste.h"
#include "platform/Pfade.h"
#include "shell/Globale.h"

void HilfeAufrufen(const QString& seite)
{
    const QString pfad = ProgrammOrdner + QStringLiteral("Hilfe/") + seite;
    if (DateiVorhanden(pfad)) {
        D().shell().oeffnen(pfad);
        return;
    }
    MsgNimb(QStringLiteral("Die Hilfeseite ") + seite + QStringLiteral(" ist nicht vorhanden."), 1, 0,
            QStringLiteral("Hilfe"), 0);
}
