// The column arrangement window, opened from the table menu.
#include "shell/Ausgabebox.h"

#include "catalogue/frmSpaltenAnordnen.h"
#include "shell/FensterPlatzieren.h"

void Ausgabebox::mnuTabelleAnordnen_Click()
{
    {
        frmSpaltenAnordnen fenster(this);
        fenster.Form_Load();
        FensterPlatzieren(&fenster, this, QStringLiteral("center"), 10);
        fenster.Anzeigen();
    }
    TabelleEinrichten();
    mnuTabelleAutosize_Click();
}
