#include "auxiliary/Hilfsfenster.h"

#include "auxiliary/Tipbox.h"
#include "auxiliary/frmInfo.h"
#include "shell/Ausgabebox.h"
#include "shell/FensterPlatzieren.h"
#include "shell/Globale.h"
#include "shell/Steuerelemente.h"

#include <QAction>

void Hilfsfenster::verbinden()
{
    BefehlVerbinden(box.MenuTipOfDay, this, [this] { MenuTipOfDay_Click(); });
    BefehlVerbinden(box.MenuInfo, this, [this] { MenuInfo_Click(); });
}

void Hilfsfenster::MenuTipOfDay_Click()
{
    TippsVomMenue = true;
    Tipbox fenster(&box);
    if (!fenster.Geladen())
        return;
    fenster.adjustSize();
    FensterPlatzieren(&fenster, &box, QStringLiteral("center"), 10);
    fenster.exec();
}

void Hilfsfenster::MenuInfo_Click()
{
    frmInfo fenster(&box);
    FensterPlatzieren(&fenster, &box, QStringLiteral("center"), 10);
    fenster.exec();
}
