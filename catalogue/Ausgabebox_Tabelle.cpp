// The table of the main window: column order, visibility and widths from the settings,
// re-applied whenever the grid may have been rebuilt, and the row change.
#include "shell/Ausgabebox.h"

#include "catalogue/Datensteuerung.h"
#include "catalogue/FlexGrid.h"
#include "shell/Einstellungen.h"
#include "shell/Globale.h"

namespace {

const char* const Standardspalten[18] = {"Band",     "LPTitel",   "Medium",   "Stil",     "Info",
                                         "Plattenfirma", "BestellNr", "Preis", "Datum",    "Songs",
                                         "BildPfad", "Musikpfad", "SongText", "eBook",    "Bewertung",
                                         "InternetTab", "InfoTab", "SonstigesTab"};

QString breiteSchluessel(int n) { return QStringLiteral("%1Spaltenbreite").arg(n); }
QString anordnungSchluessel(int n) { return QStringLiteral("TabelleAnordnenCaption%1").arg(n); }

} // namespace

void Ausgabebox::SpaltenTitelLesen()
{
    for (int n = 0; n < 18; ++n)
        SpaltenTitel[size_t(n)] =
            Lesen(anordnungSchluessel(n), QLatin1String(Standardspalten[n]) + QStringLiteral("1"));
}

void Ausgabebox::SpaltenSichtbarkeitAnwenden()
{
    for (int n = 0; n < 18; ++n) {
        QString& titel = SpaltenTitel[size_t(n)];
        if (titel.endsWith(u'1')) {
            titel.chop(1);
            int breite = Lesen(breiteSchluessel(n), QStringLiteral("1000")).toInt();
            // A column made visible again after a width of 0 gets the standard width.
            if (breite == 0)
                breite = 1000;
            MSFlexGrid1->setColWidth(n, breite);
        } else if (titel.endsWith(u'0')) {
            titel.chop(1);
            MSFlexGrid1->setColWidth(n, 0);
        }
    }
}

void Ausgabebox::TabelleEinrichten()
{
    if (TabelleNichtAnordnen)
        return;
    FlexGrid* g = MSFlexGrid1;
    // Keep a width the user has dragged.
    g->setRedraw(false);
    for (int n = 0; n < g->Cols(); ++n)
        Speichern(breiteSchluessel(n), QString::number(g->ColWidth(n)));
    g->setRedraw(true);

    SpaltenTitelLesen();
    g->setRedraw(false);
    SpaltenSichtbarkeitAnwenden();
    g->setRedraw(true);

    TrackListeLaden();

    g->setRedraw(false);
    int breiten[18];
    for (int i = 0; i < 18; ++i)
        breiten[i] = g->ColWidth(i);
    const int letzte = std::min(g->Cols() - 1, 17);
    for (int i = 0; i <= letzte; ++i) {
        for (int j = i; j < g->Cols(); ++j) {
            if (g->TextMatrix(0, j) == SpaltenTitel[size_t(i)]) {
                g->ColPosition(j, i);
                break;
            }
        }
    }
    for (int i = 0; i < 18; ++i)
        g->setColWidth(i, breiten[i]);
    for (int n = 0; n < 18; ++n)
        if (Lesen(anordnungSchluessel(n), QLatin1String(Standardspalten[n]) + QStringLiteral("1")).endsWith(u'0'))
            g->setColWidth(n, 0);
    g->setRedraw(true);
}

int Ausgabebox::SpalteSuchen(const QString& kopf) const
{
    for (int c = 0; c < MSFlexGrid1->Cols(); ++c)
        if (MSFlexGrid1->TextMatrix(0, c) == kopf)
            return c;
    return -1;
}

void Ausgabebox::MSFlexGrid1_RowColChange()
{
    if (AutosizeLaeuft)
        return;
    Data1->setAbsolutePosition(MSFlexGrid1->Row() - 1);
}
