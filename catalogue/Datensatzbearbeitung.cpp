#include "catalogue/Datensatzbearbeitung.h"

#include "shell/Ausgabebox.h"

#include "catalogue/Datensatzansicht.h"
#include "catalogue/Datensteuerung.h"
#include "catalogue/FlexGrid.h"
#include "catalogue/Katalogdatei.h"
#include "catalogue/Recordset.h"
#include "catalogue/Tabellenansicht.h"
#include "media/Coververwaltung.h"
#include "media/Textfenster.h"
#include "platform/Dialogdienst.h"
#include "platform/Einheiten.h"
#include "platform/Laufzeitfehler.h"
#include "platform/Mauszeiger.h"
#include "shell/Einstellungen.h"
#include "shell/Globale.h"
#include "shell/Grundregeln.h"
#include "shell/Steuerelemente.h"

#include <QAction>
#include <QComboBox>
#include <QFile>
#include <QLabel>
#include <QTextEdit>

#include <sqlite3.h>

#include <optional>
#include <vector>

namespace {

// Leading and trailing blanks only, as the save trims band and title.
QString blankFrei(const QString& text)
{
    qsizetype anfang = 0;
    qsizetype ende = text.size();
    while (anfang < ende && text[anfang] == u' ')
        ++anfang;
    while (ende > anfang && text[ende - 1] == u' ')
        --ende;
    return text.mid(anfang, ende - anfang);
}

} // namespace

void Datensatzbearbeitung::verbinden()
{
    BefehlVerbinden(box.MenuNeuEingabe, this, [this] { MenuNeuEingabe_Click(); });
    BefehlVerbinden(box.MenuSpeichern, this, [this] { MenuSpeichern_Click(); });
    BefehlVerbinden(box.MenuEintragLoeschen, this, [this] { MenuEintragLoeschen_Click(); });
}

void Datensatzbearbeitung::NeuerTextFormatieren(QTextEdit* text)
{
    QFont schrift = text->font();
    schrift.setFamily(box.textfenster().StandardFontName);
    text->setFont(schrift);
    QTextCharFormat format;
    format.setFontFamilies({box.textfenster().StandardFontName});
    format.setFontPointSize(box.textfenster().StandardFontsize);
    format.setFontWeight(box.textfenster().StandardFontBold ? QFont::Bold : QFont::Normal);
    format.setFontItalic(box.textfenster().StandardFontItalic);
    format.setFontStrikeOut(box.textfenster().StandardFontStrikethru);
    format.setFontUnderline(box.textfenster().StandardFontUnderline);
    format.setForeground(NummerFarbe(box.textfenster().StandardColor));
    text->setCurrentCharFormat(format);
    const double rand = Zahl(Lesen(QStringLiteral("SeitenrandLinks"), QStringLiteral("50"))).value_or(50.0);
    QTextBlockFormat einzug;
    einzug.setLeftMargin(rand / TwipsProPixel);
    text->textCursor().mergeBlockFormat(einzug);
}

void Datensatzbearbeitung::MenuNeuEingabe_Click()
{
    try {
        MenuSpeichern_Click();
        EreignisseZulassen();
        Recordset* rs = box.Data1->recordset();
        if (!rs)
            throw Laufzeitfehler(91);
        box.Data1->letzterDatensatz();
        rs->AddNew();
        box.datensatzansicht().GebundeneFelderLaden();
        box.datensatzansicht().CDSterneZeichnen();
        for (QTextEdit* t : {box.TextSongs, box.rtfInfo, box.rtfSonstiges})
            NeuerTextFormatieren(t);
        box.TextBand->setFocus();
    } catch (const Laufzeitfehler& fehler) {
        Fehlermeldung(fehler, QStringLiteral("Ausgabebox_MenuNeuEingabe_Click"));
    }
}

void Datensatzbearbeitung::MenuSpeichern_Click()
{
    // A record source that cannot be changed: say so, and leave what was typed on screen.
    // Without an edit there is nothing to normalise, since nothing can be stored.
    const Recordset* quelle = box.Data1->recordset();
    const bool aenderbar = !quelle || quelle->Updatable();
    if (!aenderbar && box.datensatzansicht().FelderGeaendert()) {
        Fehlermeldung(Recordset::NichtAenderbar(), QStringLiteral("Ausgabebox_MenuSpeichern_Click"));
        return;
    }
    // Errors are ignored here: each step that can run, runs.
    Mauszeiger(ZeigerSanduhr);
    if (aenderbar) {
        box.TextBand->setText(blankFrei(box.TextBand->text()));
        box.TextLPTitel->setText(blankFrei(box.TextLPTitel->text()));
        // An empty field is stored as one blank; eBook and rating may stay truly empty.
        for (Textfeld* feld : {box.TextBand, box.TextKaufdatum, box.TextLPTitel, box.TextPreis, box.TextMedium,
                               box.TextPlattenfirma, box.TextBestellNr, box.TextInfo, box.TextMusikpfad,
                               box.TextStil, box.txtBildpfad})
            if (feld->text().isEmpty())
                feld->setText(QStringLiteral(" "));
        for (QTextEdit* text : {box.TextSongs, box.txtSongText, box.rtfLinks, box.rtfInfo, box.rtfSonstiges})
            if (text->toPlainText().isEmpty())
                text->setPlainText(QStringLiteral(" "));
    }
    const int spalteBand = box.MSFlexGrid1->SpalteSuchen(QStringLiteral("Band"));
    const int spalteTitel = box.MSFlexGrid1->SpalteSuchen(QStringLiteral("LPTitel"));
    const QString band = box.TextBand->text();
    const QString titel = box.TextLPTitel->text();
    // The record's name in the table before the save, for the strip of covers.
    const bool listeGalt = box.coververwaltung().ListeGiltFuerTabelle();
    std::optional<QString> alterName;
    qint64 gespeichert = -1;
    const bool neu = quelle && quelle->Updatable() && quelle->EditPending() && quelle->AbsolutePosition() < 0;
    if (quelle && quelle->Updatable() && quelle->AbsolutePosition() >= 0) {
        gespeichert = quelle->RowId(quelle->AbsolutePosition());
        if (spalteBand >= 0 && spalteTitel >= 0) {
            const int z = quelle->AbsolutePosition() + 1;
            alterName = box.MSFlexGrid1->TextMatrix(z, spalteBand) + QStringLiteral(" - ")
                + box.MSFlexGrid1->TextMatrix(z, spalteTitel);
        }
    }
    const Datenbank* db = box.Data1->database();
    const qint64 letzteNeue = db ? sqlite3_last_insert_rowid(db->handle()) : 0;
    try {
        box.Data1->Refresh();
    } catch (const Laufzeitfehler& fehler) {
        // What was typed stays on screen and in the edit buffer; say why it is not stored.
        Mauszeiger(ZeigerStandard);
        Fehlermeldung(fehler, QStringLiteral("Ausgabebox_MenuSpeichern_Click"));
        return;
    }
    if (!band.isEmpty() && spalteBand >= 0 && spalteTitel >= 0) {
        FlexGrid* g = box.MSFlexGrid1;
        g->setRedraw(false);
        // The catalogue names the rows that hold the two texts, or a value of another kind
        // whose text may be them; the table's own text decides.
        const int zeile = g->ZeileSuchen(
            QStringLiteral("(typeof(%1) <> 'text' OR %1 = ?1 COLLATE BINARY) AND "
                           "(typeof(%2) <> 'text' OR %2 = ?2 COLLATE BINARY)")
                .arg(g->SqlName(spalteBand), g->SqlName(spalteTitel)),
            {band, titel},
            [&](int z) { return g->TextMatrix(z, spalteBand) == band && g->TextMatrix(z, spalteTitel) == titel; });
        if (zeile >= 1) {
            box.Data1->setAbsolutePosition(zeile - 1);
            g->setRow(zeile);
            if (zeile < g->Rows() - 1)
                g->setTopRow(zeile);
            g->setFocus();
        }
        g->setRedraw(true);
    }
    // Whether the saved row is in the table now, the new one by the rowid it was given.
    if (neu && box.Data1->database() == db && db && sqlite3_last_insert_rowid(db->handle()) != letzteNeue)
        gespeichert = sqlite3_last_insert_rowid(db->handle());
    const Recordset* nachher = box.Data1->recordset();
    const bool imGrid = gespeichert >= 0 && nachher && nachher->Updatable() && nachher->Position(gespeichert) >= 0;
    box.coververwaltung().CoverNachSpeichern(listeGalt && spalteBand >= 0 && spalteTitel >= 0,
                                             alterName ? &*alterName : nullptr,
                                             band + QStringLiteral(" - ") + titel, imGrid);
    Mauszeiger(ZeigerStandard);
}

void Datensatzbearbeitung::MenuEintragLoeschen_Click()
{
    if (MsgNimb(QStringLiteral("Alle markierten Tonträger aus der Datenbank löschen?"), 22, 2,
                QStringLiteral("Tonträger löschen"), 0)
        != u"Ja")
        return;
    FlexGrid* g = box.MSFlexGrid1;
    try {
        box.tabellenansicht().MSFlexGrid1_RowColChange();
        g->setRedraw(false);
        // Exactly the marked rows, whichever way they were marked. The bottom one goes
        // first, so that the rows still to come keep their numbers.
        const std::vector<int> zeilen = g->MarkierteZeilen();
        const int anzahl = int(zeilen.size());
        // The count shows how far it is; Esc stops it before the next Carrier.
        const EscAbbruch esc;
        Abbruch = false;
        for (int n = 1; n <= anzahl && !Abbruch; ++n) {
            box.Bez[13]->setText(QString::number(n));
            EreignisseZulassen();
            if (Abbruch)
                break;
            const int zeile = zeilen[size_t(anzahl - n)];
            if (zeile >= g->Rows())
                continue;
            // The row change sets the record, as a click would.
            if (g->Row() != zeile)
                g->setRow(zeile);
            else
                box.tabellenansicht().MSFlexGrid1_RowColChange();
            Recordset* rs = box.Data1->recordset();
            if (!rs)
                throw Laufzeitfehler(91);
            if (rs->RecordCount() <= 1) {
                MsgNimb(QStringLiteral("Der letzte Datensatz darf nicht gelöscht werden."), 3, 0,
                        QStringLiteral("Sicherheithinweis"), 0, Farbe::WarnHintergrund, Farbe::StandardText);
                break;
            }
            // The record must be the one of the row: a refused move leaves another one current.
            if (rs->AbsolutePosition() != zeile - 1)
                break;
            // The Carrier's cover goes with it, to the trash, by the cover removal.
            const QString cover = box.cboBildpfad->currentText();
            if (!cover.isEmpty() && !cover.endsWith(u'/') && !cover.endsWith(u'\\') && QFile::exists(cover)) {
                Coververwaltung& covers = box.coververwaltung();
                covers.ExterneDateiLoeschen = true;
                covers.ExternesCoverEntfernen();
                covers.ExterneDateiLoeschen = false;
            }
            rs->Delete();
        }
    } catch (const Laufzeitfehler& fehler) {
        Abbruch = false;
        g->setRedraw(true);
        box.Bez[13]->clear();
        Fehlermeldung(fehler, QStringLiteral("Ausgabebox_MenuEintragLoeschen_Click"));
        return;
    }
    Abbruch = false;
    g->setRedraw(true);
    box.Bez[13]->clear();
    box.katalogdatei().MenuAktualisieren_Click();
    Mauszeiger(ZeigerStandard);
}
