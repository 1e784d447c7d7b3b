#include "catalogue/Datensatzansicht.h"

#include "shell/Ausgabebox.h"

#include "catalogue/Datensteuerung.h"
#include "catalogue/FlexGrid.h"
#include "catalogue/Recordset.h"
#include "catalogue/Tabellenansicht.h"
#include "catalogue/Textregeln.h"
#include "media/Coververwaltung.h"
#include "media/Rtf.h"
#include "platform/Laufzeitfehler.h"
#include "platform/Mauszeiger.h"
#include "playback/Trackliste.h"
#include "shell/Globale.h"
#include "shell/Steuerelemente.h"
#include "shell/Symbole.h"

#include <QComboBox>
#include <QDir>
#include <QScrollBar>
#include <QTabBar>
#include <QTextEdit>
#include <QTreeWidget>

#include <cmath>

void Datensatzansicht::verbinden()
{
    // The bound record controls and their columns.
    m_bindungen = {
        {box.TextBand, QStringLiteral("Band")},
        {box.TextLPTitel, QStringLiteral("LPTitel")},
        {box.TextMedium, QStringLiteral("Medium")},
        {box.TextStil, QStringLiteral("Stil")},
        {box.TextInfo, QStringLiteral("Info")},
        {box.TextPlattenfirma, QStringLiteral("Plattenfirma")},
        {box.TextBestellNr, QStringLiteral("BestellNr")},
        {box.TextPreis, QStringLiteral("Preis")},
        {box.TextKaufdatum, QStringLiteral("Datum")},
        {box.TextSongs, QStringLiteral("Songs")},
        {box.txtBildpfad, QStringLiteral("BildPfad")},
        {box.TextMusikpfad, QStringLiteral("Musikpfad")},
        {box.txtSongText, QStringLiteral("SongText")},
        {box.txtEbook, QStringLiteral("eBook")},
        {box.txtBewertung, QStringLiteral("Bewertung")},
        {box.rtfLinks, QStringLiteral("InternetTab")},
        {box.rtfInfo, QStringLiteral("InfoTab")},
        {box.rtfSonstiges, QStringLiteral("SonstigesTab")},
    };
    connect(box.staBar, &Statusleiste::DblClick, this, [this] { AktuelleCDanzeigen(); });
    connect(box.Data1, &Datensteuerung::Validate, this, [this] { Data1_Validate(); });
    connect(box.Data1, &Datensteuerung::Reposition, this, [this] { Data1_Reposition(); });
    for (int i = 0; i < 6; ++i)
        connect(box.imgCDnote[i], &Bildfeld::Click, this, [this, i] { imgCDnote_Click(i); });
    // The field that had the focus last, for the commands that act on "the" field.
    for (Textfeld* t : {box.TextBand, box.TextLPTitel, box.TextMedium, box.TextStil, box.TextInfo,
                        box.TextPlattenfirma, box.TextBestellNr, box.TextPreis, box.TextKaufdatum,
                        box.TextMusikpfad, box.txtSuchen})
        connect(t, &Textfeld::GotFocus, this, [this, t] { box.AktivesFeld = t->objectName(); });
    for (QTextEdit* t : {box.TextSongs, box.txtSongText, box.rtfLinks, box.rtfInfo, box.rtfSonstiges}) {
        // Any change that is not the record filling the pane is an edit, typed or not.
        connect(t->document(), &QTextDocument::contentsChanged, this, [this, t] {
            if (!m_gebundenLaden)
                m_geaenderteTexte.insert(t);
        });
    }
}

void Datensatzansicht::GebundeneFelderLaden()
{
    Recordset* rs = box.Data1->recordset();
    m_gebundenLaden = true;
    m_geladeneWerte.assign(m_bindungen.size(), QString());
    for (size_t i = 0; i < m_bindungen.size(); ++i) {
        const Bindung& b = m_bindungen[i];
        const QString wert = rs ? rs->Value(b.feld).toString() : QString();
        m_geladeneWerte[i] = wert;
        if (auto* feld = qobject_cast<Textfeld*>(b.steuerelement)) {
            feld->setText(wert);
            feld->setCursorPosition(0);
        } else if (auto* text = qobject_cast<QTextEdit*>(b.steuerelement)) {
            TextfensterSetzen(text, wert);
        }
    }
    // A damaged or huge picture gives an empty pane, never a stop of the record.
    box.Bild1->setBild(
        rs ? Coververwaltung::BildLesen(rs->Value(QStringLiteral("Bilder")).toByteArray(),
                                        box.Bild1->contentsRect().size())
           : QPixmap());
    m_geaenderteTexte.clear();
    m_gebundenLaden = false;
}

bool Datensatzansicht::FelderGeaendert() const
{
    if (m_gebundenLaden || m_geladeneWerte.size() != m_bindungen.size())
        return false;
    if (!m_geaenderteTexte.isEmpty())
        return true;
    for (size_t i = 0; i < m_bindungen.size(); ++i) {
        const auto* feld = qobject_cast<Textfeld*>(m_bindungen[i].steuerelement);
        if (feld && feld->text() != m_geladeneWerte[i])
            return true;
    }
    return false;
}

void Datensatzansicht::Data1_Validate()
{
    Recordset* rs = box.Data1->recordset();
    if (!rs || m_gebundenLaden || m_geladeneWerte.size() != m_bindungen.size())
        return;
    // A record source that cannot be changed would drop the edit without a word.
    if (!rs->Updatable()) {
        if (FelderGeaendert())
            Fehlermeldung(Recordset::NichtAenderbar(), QStringLiteral("Ausgabebox_Data1_Validate"));
        return;
    }
    for (size_t i = 0; i < m_bindungen.size(); ++i) {
        const Bindung& b = m_bindungen[i];
        if (auto* feld = qobject_cast<Textfeld*>(b.steuerelement)) {
            if (feld->text() != m_geladeneWerte[i]) {
                rs->setValue(b.feld, feld->text());
                m_geladeneWerte[i] = feld->text();
            }
        } else if (auto* text = qobject_cast<QTextEdit*>(b.steuerelement)) {
            if (m_geaenderteTexte.contains(text)) {
                const QString wert = TextfensterLesen(text);
                rs->setValue(b.feld, wert);
                m_geladeneWerte[i] = wert;
                m_geaenderteTexte.remove(text);
            }
        }
    }
}

void Datensatzansicht::Data1_Reposition()
{
    // Errors are ignored here: the handler also runs while there is no recordset.
    GebundeneFelderLaden();
    CDSterneZeichnen();
    if (AutosizeLaeuft)
        return;
    box.cboBildpfad->clear();
    box.coververwaltung().DatensatzCover();
    // While the playlist is the source, the index and the played marks count its rows:
    // the catalogue following the song takes neither.
    if (!PlaylistModus)
        TrackIndex = 0;
    TrackListeLaden();
    // The Track stars belong to the first Track of the new list.
    box.trackliste().BewertungTracks();
    box.coververwaltung().DatensatzStreifen();
    AnzahlTontraeger();
    // The Track list was loaded just above.
    box.tabellenansicht().TabelleEinrichten(false);
}

void Datensatzansicht::TrackListeLaden()
{
    // One listing of the folder tells whether it holds files and fills the list.
    // A relative path would name a folder below wherever the program was started.
    const QString musik = box.TextMusikpfad->text();
    const bool ordner = musik.size() >= 2 && QDir::isAbsolutePath(musik);
    if (ordner)
        box.filTrack->setPath(musik);
    if (!ordner || box.filTrack->count() == 0) {
        box.filTrack->setPath(ProgrammOrdner + QStringLiteral("Leer"));
        box.filTrack->setEnabled(false);
        box.Bez[12]->setText(QStringLiteral("Tracks && Movies "));
        return;
    }
    box.filTrack->setEnabled(true);
    if (box.filTrack->count() > 0) {
        box.filTrack->setCurrentRow(0);
        box.filTrack->setSelected(0, true);
    }
    if (!PlaylistModus)
        TrackGespielt.assign(size_t(box.filTrack->count()), 0);
    box.Bez[12]->setText(QStringLiteral("Tracks && Movies ") + QString::number(box.filTrack->count()));
}

void Datensatzansicht::AnzahlTontraeger()
{
    if (Recordset* rs = box.Data1->recordset())
        box.staBar->setPanelText(3, QStringLiteral("Tonträger: ") + QString::number(rs->RecordCount()));
}

void Datensatzansicht::CDSterneZeichnen()
{
    for (Bildfeld* s : box.imgCDnote)
        s->setBild(box.imgSternGrau->Bild());
    bool ok = false;
    const double wert = box.txtBewertung->text().trimmed().toDouble(&ok);
    if (!ok || wert < 0 || wert >= 7)
        return;
    const int sterne = int(std::nearbyint(wert));
    for (int i = 0; i < 6 && i < sterne; ++i)
        box.imgCDnote[i]->setBild(box.imgStern->Bild());
}

void Datensatzansicht::imgCDnote_Click(int index)
{
    box.lvwPlaylist->hide();
    box.tabTexte->show();
    for (Bildfeld* s : box.imgCDnote)
        s->setBild(box.imgSternGrau->Bild());
    for (int i = 0; i <= index && i < 6; ++i)
        box.imgCDnote[i]->setBild(box.imgStern->Bild());
    // The rating is an edit of the record; it is written at the next save or move.
    box.txtBewertung->setText(QString::number(index + 1));
}

void Datensatzansicht::TextfensterSetzen(QTextEdit* text, const QString& wert)
{
    RtfLesen(wert, text->document(), text->font());
    // The pane's cursor went along with the text to its end; a pane shows its beginning.
    text->setTextCursor(QTextCursor(text->document()));
    text->verticalScrollBar()->setValue(0);
}

QString Datensatzansicht::TextfensterLesen(QTextEdit* text) const { return RtfSchreiben(text->document()); }

void Datensatzansicht::AktuelleCDanzeigen()
{
    const int musik = box.MSFlexGrid1->SpalteSuchen(QStringLiteral("Musikpfad"));
    const QString status = box.staBar->PanelText(2);
    if (!status.contains(u"playing:")) {
        if (status.contains(u"Pause"))
            Abbruch = true;
        return;
    }
    Mauszeiger(ZeigerSanduhr);
    box.staBar->setBevel(2, 1);
    FlexGrid* g = box.MSFlexGrid1;
    // The catalogue names the rows whose music folder holds the folder's text (GLOB is
    // SQLite's own, exact and binary); the table's own text decides.
    const int gefunden = musik < 0 || box.SpielOrdner.isEmpty()
        ? -1
        : g->ZeileSuchen(QStringLiteral("typeof(%1) <> 'text' OR %1 GLOB ?1").arg(g->SqlName(musik)),
                         {u'*' + GlobMaskiert(box.SpielOrdner) + u'*'},
                         [&](int z) { return g->TextMatrix(z, musik).contains(box.SpielOrdner); });
    if (const int zeile = gefunden; zeile >= 1) {
        box.Data1->setAbsolutePosition(zeile - 1);
        g->setRow(zeile);
        if (zeile < g->Rows() - 1)
            g->setTopRow(zeile);
        // The Track whose name, without its extension, stands in the panel.
        for (int i = 0; i < box.filTrack->count(); ++i) {
            QString name = box.filTrack->List(i);
            const qsizetype punkt = name.lastIndexOf(u'.');
            if (punkt > 0)
                name.truncate(punkt);
            if (!name.isEmpty() && status.contains(name)) {
                box.filTrack->setCurrentRow(i);
                break;
            }
        }
        if (PlaylistModus) {
            for (int i = 0; i < box.lvwPlaylist->topLevelItemCount(); ++i) {
                QTreeWidgetItem* eintrag = box.lvwPlaylist->topLevelItem(i);
                if (eintrag->text(2).contains(box.SpielOrdner) || eintrag->text(0).contains(box.SpielOrdner)) {
                    box.lvwPlaylist->setCurrentItem(eintrag);
                    box.lvwPlaylist->scrollToItem(eintrag);
                    break;
                }
            }
        }
    }
    box.staBar->setBevel(2, 2);
    Mauszeiger(ZeigerStandard);
}
