#include "collections/Abspielausschluss.h"

#include "shell/Ausgabebox.h"

#include "catalogue/FlexGrid.h"
#include "collections/Ausschlusslisten.h"
#include "collections/frmBandAusschlussliste.h"
#include "collections/frmStilausschlussliste.h"
#include "shell/Einstellungen.h"
#include "shell/FensterPlatzieren.h"
#include "shell/Steuerelemente.h"

#include <QAction>

void Abspielausschluss::verbinden()
{
    BefehlVerbinden(box.mnuStilrichtungAusschliessen, this, [this] { mnuStilrichtungAusschliessen_Click(); });
    BefehlVerbinden(box.mnuBandAusschliessen, this, [this] { mnuBandAusschliessen_Click(); });
}

void Abspielausschluss::AbspielausschlusslisteLaden()
{
    AusschlussListeLaden(box.lstAbspielausschluss, StilAusschlussPfad(VerwendungAbspielen));
}

void Abspielausschluss::BandAbspielausschlusslisteLaden()
{
    AusschlussListeLaden(box.lstBandAusschluss, BandAusschlussPfad(VerwendungAbspielen));
}

int Abspielausschluss::BandSpalte() const
{
    const int spalte = box.MSFlexGrid1->SpalteSuchen(QStringLiteral("Band"));
    return spalte >= 0 ? spalte : 0;
}

void Abspielausschluss::mnuStilrichtungAusschliessen_Click()
{
    Speichern(SchluesselStilAusschluss, VerwendungAbspielen);
    {
        frmStilausschlussliste fenster(&box);
        fenster.Form_Load();
        FensterPlatzieren(&fenster, &box, QStringLiteral("center"), 10);
        fenster.Anzeigen();
    }
    AbspielausschlusslisteLaden();
}

void Abspielausschluss::mnuBandAusschliessen_Click()
{
    Speichern(SchluesselBandAusschluss, VerwendungAbspielen);
    {
        frmBandAusschlussliste fenster(box);
        fenster.Form_Load();
        if (!fenster.Abgebrochen()) {
            FensterPlatzieren(&fenster, &box, QStringLiteral("center"), 10);
            fenster.Anzeigen();
        }
    }
    BandAbspielausschlusslisteLaden();
}
