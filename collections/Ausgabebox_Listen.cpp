// Exclusion lists and the playlist of the main window, as far as the start and the end
// of the program need them, and the two windows that edit the play exclusions.
#include "shell/Ausgabebox.h"

#include "catalogue/FlexGrid.h"
#include "collections/Ausschlusslisten.h"
#include "collections/frmBandAusschlussliste.h"
#include "collections/frmStilausschlussliste.h"
#include "shell/Einstellungen.h"
#include "shell/FensterPlatzieren.h"

void Ausgabebox::AbspielausschlusslisteLaden()
{
    AusschlussListeLaden(lstAbspielausschluss, StilAusschlussPfad(VerwendungAbspielen));
}

void Ausgabebox::BandAbspielausschlusslisteLaden()
{
    AusschlussListeLaden(lstBandAusschluss, BandAusschlussPfad(VerwendungAbspielen));
}

int Ausgabebox::BandSpalte() const
{
    const int spalte = MSFlexGrid1->SpalteSuchen(QStringLiteral("Band"));
    return spalte >= 0 ? spalte : 0;
}

void Ausgabebox::mnuStilrichtungAusschliessen_Click()
{
    Speichern(SchluesselStilAusschluss, VerwendungAbspielen);
    {
        frmStilausschlussliste fenster(this);
        fenster.Form_Load();
        FensterPlatzieren(&fenster, this, QStringLiteral("center"), 10);
        fenster.Anzeigen();
    }
    AbspielausschlusslisteLaden();
}

void Ausgabebox::mnuBandAusschliessen_Click()
{
    Speichern(SchluesselBandAusschluss, VerwendungAbspielen);
    {
        frmBandAusschlussliste fenster(this);
        fenster.Form_Load();
        FensterPlatzieren(&fenster, this, QStringLiteral("center"), 10);
        fenster.Anzeigen();
    }
    BandAbspielausschlusslisteLaden();
}

void Ausgabebox::PlaylistSpeichern() { PlaylistGeaendert = false; }
