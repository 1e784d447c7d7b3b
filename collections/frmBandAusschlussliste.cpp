#include "collections/frmBandAusschlussliste.h"

#include "catalogue/FlexGrid.h"
#include "collections/Abspielausschluss.h"
#include "collections/Ausschlusslisten.h"
#include "platform/Mauszeiger.h"
#include "shell/Ausgabebox.h"
#include "shell/Globale.h"
#include "shell/Grundregeln.h"

#include <QListWidget>
#include <QProgressBar>

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
    // A large table shows how far the walk is; Esc stops it, and the window then stays
    // closed, as a part of the bands would drop the others from the list.
    const EscAbbruch esc;
    Abbruch = false;
    const bool fortschritt = g->Rows() > 20000;
    if (fortschritt) {
        m_box.ProgressBar1->setRange(0, g->Rows());
        m_box.ProgressBar1->show();
    }
    // The table is taken as sorted by band: only a change from the row before counts.
    QString vorher;
    for (int zeile = 1; zeile < g->Rows() && !Abbruch; ++zeile) {
        const QString band = g->TextMatrix(zeile, spalte);
        if (zeile == 1 || band != vorher)
            baender << band;
        vorher = band;
        if (zeile % 2000 == 0) {
            if (fortschritt)
                m_box.ProgressBar1->setValue(zeile);
            EreignisseZulassen();
        }
    }
    m_abgebrochen = Abbruch;
    Abbruch = false;
    if (fortschritt)
        m_box.ProgressBar1->hide();
    Mauszeiger(ZeigerStandard);
    EintraegeSetzen(baender);
}
