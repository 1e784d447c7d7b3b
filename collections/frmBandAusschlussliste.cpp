#include "collections/frmBandAusschlussliste.h"

#include "catalogue/FlexGrid.h"
#include "collections/Abspielausschluss.h"
#include "collections/Ausschlusslisten.h"
#include "platform/Mauszeiger.h"
#include "shell/Ausgabebox.h"

#include <QListWidget>

frmBandAusschlussliste::frmBandAusschlussliste(Ausgabebox& box)
    : Ausschlussfenster(&box, new QListWidget, SchluesselBandAusschluss, &BandAusschlussPfad,
                       QStringLiteral("Band"))
    , m_box(box)
{
    setObjectName(QStringLiteral("frmBandAusschlussliste"));
    setWindowTitle(QStringLiteral("Band ausschließen"));
    lstBandliste = m_liste;
    lstBandliste->setObjectName(QStringLiteral("lstBandliste"));
    lstBandliste->setToolTip(QStringLiteral(" Bands mit Häkchen werden nicht berücksichtigt "));
}

void frmBandAusschlussliste::Form_Load()
{
    SchriftLesen();
    ListeErstellen();
    HaekchenSetzen();
    adjustSize();
}

void frmBandAusschlussliste::ListeErstellen()
{
    QStringList baender;
    Mauszeiger(ZeigerSanduhr);
    const FlexGrid* g = m_box.MSFlexGrid1;
    const int spalte = m_box.abspielausschluss().BandSpalte();
    // The table is taken as sorted by band: only a change from the row before counts.
    QString vorher;
    for (int zeile = 1; zeile < g->Rows(); ++zeile) {
        const QString band = g->TextMatrix(zeile, spalte);
        if (zeile == 1 || band != vorher)
            baender << band;
        vorher = band;
    }
    Mauszeiger(ZeigerStandard);
    EintraegeSetzen(baender);
}
