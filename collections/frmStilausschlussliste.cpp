#include "collections/frmStilausschlussliste.h"

#include "collections/Ausschlusslisten.h"
#include "platform/Mauszeiger.h"
#include "shell/Globale.h"

#include <QListWidget>

frmStilausschlussliste::frmStilausschlussliste(QWidget* eltern)
    : Ausschlussfenster(eltern, new QListWidget, SchluesselStilAusschluss, &StilAusschlussPfad,
                       QStringLiteral("Stilrichtung"))
{
    setObjectName(QStringLiteral("frmStilausschlussliste"));
    setWindowTitle(QStringLiteral("Stilrichtung ausschließen"));
    lstStilrichtung = m_liste;
    lstStilrichtung->setObjectName(QStringLiteral("lstStilrichtung"));
    lstStilrichtung->setToolTip(QStringLiteral(" Stilrichtungen mit Häkchen werden nicht berücksichtigt "));
}

void frmStilausschlussliste::Form_Load()
{
    RegistryLesen();
    ListeLaden();
    adjustSize();
}

void frmStilausschlussliste::RegistryLesen() { SchriftLesen(); }

void frmStilausschlussliste::ListeLaden()
{
    // The styles are those of the open catalogue, so their list lies beside it.
    bool vorhanden = false;
    const QStringList stile = AusschlussEintraege(DatenbankOrdner + StilrichtungDatei, &vorhanden);
    if (vorhanden) {
        Mauszeiger(ZeigerSanduhr);
        EintraegeSetzen(stile);
        Mauszeiger(ZeigerStandard);
    }
    HaekchenSetzen();
}
