// The copy of all songs takes the one error route; the generator window has its own.
#include "collections/Generator.h"

#include "shell/Ausgabebox.h"

#include "catalogue/FlexGrid.h"
#include "collections/Ausschlusslisten.h"
#include "collections/Playlisten.h"
#include "collections/frmCDgenerieren.h"
#include "platform/Dateikopie.h"
#include "platform/Dialogdienst.h"
#include "platform/Dienste.h"
#include "platform/Laufzeitfehler.h"
#include "platform/Mauszeiger.h"
#include "platform/Pfade.h"
#include "shell/FensterPlatzieren.h"
#include "shell/Globale.h"
#include "shell/Grundregeln.h"
#include "shell/Steuerelemente.h"

#include <QAction>
#include <QDir>
#include <QFileInfo>
#include <QLabel>

void Generator::verbinden()
{
    BefehlVerbinden(box.mnuTontraegerGenerieren, this, [this] { mnuTontraegerGenerieren_Click(); });
    BefehlVerbinden(box.mnuAlleSongsKopieren, this, [this] { mnuAlleSongsKopieren_Click(); });
}

void Generator::mnuTontraegerGenerieren_Click()
{
    if (box.playlisten().PlaylistGeaendert)
        box.playlisten().PlaylistSpeichern();
    frmCDgenerieren fenster(box);
    fenster.Form_Load();
    FensterPlatzieren(&fenster, &box, QStringLiteral("center"), 10);
    fenster.Anzeigen();
}

void Generator::mnuAlleSongsKopieren_Click()
{
    QLabel* zaehler = box.Bez[13];
    try {
        const QString ziel = D().dialoge().Ordner(ProgrammOrdner, QDir::homePath());
        if (ziel.isEmpty())
            return;
        Mauszeiger(ZeigerSanduhr);
        FlexGrid* g = box.MSFlexGrid1;
        const int stil = g->SpalteSuchen(QStringLiteral("Stil"));
        zaehler->setText(QStringLiteral("0"));
        int kopiert = 0;
        // Esc stops the copy between two pieces of a file; that file is not left behind.
        Abbruch = false;
        const EscAbbruch esc;
        auto weiter = [] {
            EreignisseZulassen();
            return !Abbruch;
        };
        const int letzte = g->Rows() - 1;
        for (int zeile = 1; zeile <= letzte && !Abbruch; ++zeile) {
            g->setRow(zeile);
            if (zeile != letzte)
                g->setTopRow(zeile);
            if (AusschlussTrifft(box.lstBandAusschluss, g->TextMatrix(zeile, 0))
                || (stil >= 0
                    && AusschlussTrifft(box.lstAbspielausschluss, g->TextMatrix(zeile, stil))))
                continue;
            const QString ordner = MitSchraegstrich(box.TextMusikpfad->Text());
            if (ordner.trimmed().isEmpty() || !OrdnerVorhanden(ordner))
                continue;
            for (int i = 0; i < box.filTrack->count() && !Abbruch; ++i) {
                const QString name = box.filTrack->List(i);
                if (QFileInfo::exists(ziel + name))
                    continue;
                const QString quelle = MitSchraegstrich(box.filTrack->Path()) + name;
                if (!weiter())
                    break;
                if (!DateiKopieren(quelle, ziel + name, weiter)) {
                    if (Abbruch)
                        break;
                    throw frmCDgenerieren::KopierFehler(quelle, ziel);
                }
                zaehler->setText(QString::number(++kopiert));
            }
        }
        Abbruch = false;
        Mauszeiger(ZeigerStandard);
        MsgNimb(QString::number(kopiert) + QStringLiteral(" Lieder kopiert nach:\n") + ziel, 1, 0,
                QStringLiteral("Lieder kopieren"), 0);
        zaehler->clear();
    } catch (const Laufzeitfehler& fehler) {
        Abbruch = false;
        Mauszeiger(ZeigerStandard);
        zaehler->clear();
        Fehlermeldung(fehler, QStringLiteral("Ausgabebox_mnuAlleSongsKopieren_Click"));
    }
}
