#include "outputs/Tabellendruck.h"

#include "catalogue/FlexGrid.h"
#include "outputs/Druckflaeche.h"
#include "platform/Dialogdienst.h"
#include "platform/Einheiten.h"
#include "platform/Laufzeitfehler.h"
#include "platform/Mauszeiger.h"
#include "shell/Ausgabebox.h"
#include "shell/Steuerelemente.h"

#include <QAction>
#include <QFileInfo>
#include <QFontMetrics>
#include <QPrinter>

#include <algorithm>
#include <cmath>

namespace Tabellendruck {

int Feldbreite(const QString& feld)
{
    if (feld.isEmpty())
        return 0;
    return (feld[0].isDigit() ? feld : feld.mid(1)).toInt();
}

QString Einpassen(QString text, const QString& feld, const std::function<double(const QString&)>& breite)
{
    double platz = Feldbreite(feld);
    while (text.endsWith(u' '))
        text.chop(1);
    const bool rechts = feld.startsWith(u'>');
    if (rechts)
        platz -= breite(QStringLiteral(" "));
    while (!text.isEmpty() && breite(text) > platz)
        text.chop(1);
    // Blanks until the width is reached; a font whose blank has no width would never get there.
    auto auffuellen = [&](bool beidseits) {
        while (breite(text) < platz) {
            const QString mehr = beidseits ? u' ' + text + u' ' : u' ' + text;
            if (breite(mehr) <= breite(text))
                break;
            text = mehr;
        }
    };
    if (feld.startsWith(u'^')) {
        auffuellen(true);
    } else if (rechts) {
        auffuellen(false);
        text += u' ';
    }
    return text;
}

QString Spaltenangabe(const QList<int>& breitenTwips, const QList<int>& ausrichtungen, int druckbreite)
{
    long long summe = 0;
    for (const int b : breitenTwips)
        summe += b;
    QStringList felder;
    for (qsizetype i = 0; i < breitenTwips.size(); ++i) {
        const int a = ausrichtungen.value(i);
        const QString zeichen = (a >= 3 && a <= 5) ? QStringLiteral("^") : (a >= 6 && a <= 8) ? QStringLiteral(">") : QString();
        const int anteil = summe > 0 ? int(double(breitenTwips[i]) / double(summe) * 100.0 + 0.5) : 0;
        felder << zeichen + QString::number(int(anteil / 100.0 * druckbreite + 0.5));
    }
    return felder.join(u'|');
}

QString Gekuerzt(QString text, int spaltenbreite, const std::function<int(const QString&)>& breite)
{
    text.remove(u'|');
    if (spaltenbreite < 1 || breite(text) <= spaltenbreite)
        return text;
    qsizetype n = 1;
    while (n < text.size() && breite(text.left(n)) < spaltenbreite)
        ++n;
    return text.left(std::max<qsizetype>(0, n - 3)) + QStringLiteral("...");
}

void ZeileDrucken(Druckflaeche& f, double links, const QString& spalten, const QString& zellen)
{
    const Druckflaeche::Einheit vorher = f.ScaleMode();
    f.setScaleMode(Druckflaeche::Einheit::Millimeter);
    const QStringList felder = spalten.split(u'|');
    QStringList texte = zellen.split(u'|');
    while (texte.size() < felder.size())
        texte << QString();
    double x = links;
    for (qsizetype i = 0; i < felder.size(); ++i) {
        f.setCurrentX(x);
        f.Print(Einpassen(texte[i], felder[i], [&f](const QString& t) { return f.TextWidth(t); }), false);
        x += Feldbreite(felder[i]);
    }
    f.setCurrentX(links);
    f.Print();
    f.setScaleMode(vorher);
}

} // namespace Tabellendruck

void Tabellendrucker::verbinden()
{
    BefehlVerbinden(box.mnuTabelleDrucken, this, [this] { mnuTabelleDrucken_Click(); });
}

void Tabellendrucker::mnuTabelleDrucken_Click()
{
    using namespace Tabellendruck;
    try {
        QPrinter drucker(QPrinter::HighResolution);
        DruckerWaehlen(drucker, QPageLayout::Landscape, &box);
        Mauszeiger(ZeigerSanduhr);
        Druckflaeche f(drucker);
        f.AktivPruefen();
        f.setScaleMode(Druckflaeche::Einheit::Millimeter);
        f.setFontName(QStringLiteral("Times New Roman"));
        f.setFontSize(11);
        f.setCurrentY(10);
        f.setCurrentX(10);
        f.setFontBold(true);
        // The catalogue's name without its extension.
        f.Print(QStringLiteral("Rillenkammer ") + QFileInfo(box.staBar->PanelText(1).trimmed()).completeBaseName()
                + QStringLiteral("\r\n"));
        f.setFontBold(false);
        const int druckbreite = int(f.ScaleWidth()) - 20;

        const FlexGrid* g = box.MSFlexGrid1;
        const int z1 = std::max(1, std::min(g->Row(), g->RowSel()));
        const int z2 = std::max(g->Row(), g->RowSel());
        const int s1 = std::max(0, std::min(g->Col(), g->ColSel()));
        const int s2 = std::max(g->Col(), g->ColSel());
        QList<int> breiten, ausrichtungen;
        QStringList koepfe;
        for (int c = s1; c <= s2; ++c) {
            breiten << g->ColWidth(c);
            ausrichtungen << 1; // the table shows every column left-aligned
            koepfe << g->TextMatrix(0, c).remove(u'|');
        }
        const QString spalten = Spaltenangabe(breiten, ausrichtungen, druckbreite);
        f.setFontBold(true);
        f.setFontSize(9);
        ZeileDrucken(f, 10, spalten, koepfe.join(u'|'));
        f.setFontBold(false);
        f.setFontSize(9);
        f.setCurrentY(f.CurrentY() + 5);
        // Cells are cut as wide as the table shows them, in the window's font.
        const QFontMetrics masse(box.font());
        const auto bildschirm = [&masse](const QString& t) { return masse.horizontalAdvance(t); };
        for (int z = z1; z <= z2 && z < g->Rows(); ++z) {
            // A row that would reach below the paper starts a new sheet, as a printer does.
            if (f.CurrentY() + f.TextHeight() > f.ScaleHeight() - 10) {
                f.NewPage();
                f.setCurrentY(10);
            }
            QStringList zellen;
            for (int c = s1; c <= s2; ++c)
                zellen << Gekuerzt(g->TextMatrix(z, c), Px(g->ColWidth(c)), bildschirm);
            ZeileDrucken(f, 10, spalten, zellen.join(u'|'));
        }
        f.EndDoc();
        Mauszeiger(ZeigerStandard);
        MsgNimb(QStringLiteral("Der markierte Tabellenbereich wurde an den Drucker '") + drucker.printerName()
                    + QStringLiteral("' gesendet."),
                1, 0, QStringLiteral("Drucken..."), 0);
    } catch (const Laufzeitfehler& fehler) {
        Mauszeiger(ZeigerStandard);
        Fehlermeldung(fehler, QStringLiteral("Ausgabebox_mnuTabelleDrucken_Click"));
    }
}
