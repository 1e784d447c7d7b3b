// The record view: the bound fields follow the current record of Data1; what else
// happens at each change of the record; the six stars of the Carrier.
#include "shell/Ausgabebox.h"

#include "catalogue/Datensteuerung.h"
#include "catalogue/FlexGrid.h"
#include "catalogue/Recordset.h"
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

void Ausgabebox::GebundeneFelderLaden()
{
    Recordset* rs = Data1->recordset();
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
    QPixmap bild;
    if (rs) {
        const QByteArray bytes = rs->Value(QStringLiteral("Bilder")).toByteArray();
        if (!bytes.isEmpty())
            bild.loadFromData(bytes);
    }
    Bild1->setBild(bild);
    m_geaenderteTexte.clear();
    m_gebundenLaden = false;
}

bool Ausgabebox::FelderGeaendert() const
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

void Ausgabebox::Data1_Validate()
{
    Recordset* rs = Data1->recordset();
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

void Ausgabebox::Data1_Reposition()
{
    // Errors are ignored here: the handler also runs while there is no recordset.
    GebundeneFelderLaden();
    CDSterneZeichnen();
    if (AutosizeLaeuft)
        return;
    cboBildpfad->clear();
    TrackIndex = 0;
    TrackListeLaden();
    // The Track stars belong to the first Track of the new list.
    trackliste().BewertungTracks();
    AnzahlTontraeger();
    // The Track list was loaded just above.
    TabelleEinrichten(false);
}

void Ausgabebox::TrackListeLaden()
{
    // One listing of the folder tells whether it holds files and fills the list.
    // A relative path would name a folder below wherever the program was started.
    const QString musik = TextMusikpfad->text();
    const bool ordner = musik.size() >= 2 && QDir::isAbsolutePath(musik);
    if (ordner)
        filTrack->setPath(musik);
    if (!ordner || filTrack->count() == 0) {
        filTrack->setPath(ProgrammOrdner + QStringLiteral("Leer"));
        filTrack->setEnabled(false);
        Bez[12]->setText(QStringLiteral("Tracks && Movies "));
        return;
    }
    filTrack->setEnabled(true);
    if (filTrack->count() > 0) {
        filTrack->setCurrentRow(0);
        filTrack->setSelected(0, true);
    }
    TrackGespielt.assign(size_t(filTrack->count()), 0);
    Bez[12]->setText(QStringLiteral("Tracks && Movies ") + QString::number(filTrack->count()));
}

void Ausgabebox::AnzahlTontraeger()
{
    if (Recordset* rs = Data1->recordset())
        staBar->setPanelText(3, QStringLiteral("Tonträger: ") + QString::number(rs->RecordCount()));
}

void Ausgabebox::CDSterneZeichnen()
{
    for (Bildfeld* s : imgCDnote)
        s->setBild(imgSternGrau->Bild());
    bool ok = false;
    const double wert = txtBewertung->text().trimmed().toDouble(&ok);
    if (!ok || wert < 0 || wert >= 7)
        return;
    const int sterne = int(std::nearbyint(wert));
    for (int i = 0; i < 6 && i < sterne; ++i)
        imgCDnote[i]->setBild(imgStern->Bild());
}

void Ausgabebox::imgCDnote_Click(int index)
{
    lvwPlaylist->hide();
    tabTexte->show();
    for (Bildfeld* s : imgCDnote)
        s->setBild(imgSternGrau->Bild());
    for (int i = 0; i <= index && i < 6; ++i)
        imgCDnote[i]->setBild(imgStern->Bild());
    // The rating is an edit of the record; it is written at the next save or move.
    txtBewertung->setText(QString::number(index + 1));
}

void Ausgabebox::TextfensterSetzen(QTextEdit* text, const QString& wert)
{
    RtfLesen(wert, text->document(), text->font());
    // The pane's cursor went along with the text to its end; a pane shows its beginning.
    text->setTextCursor(QTextCursor(text->document()));
    text->verticalScrollBar()->setValue(0);
}

QString Ausgabebox::TextfensterLesen(QTextEdit* text) const { return RtfSchreiben(text->document()); }

void Ausgabebox::AktuelleCDanzeigen()
{
    const int musik = SpalteSuchen(QStringLiteral("Musikpfad"));
    const QString status = staBar->PanelText(2);
    if (!status.contains(u"playing:")) {
        if (status.contains(u"Pause"))
            Abbruch = true;
        return;
    }
    Mauszeiger(ZeigerSanduhr);
    staBar->setBevel(2, 1);
    FlexGrid* g = MSFlexGrid1;
    for (int zeile = 1; musik >= 0 && !SpielOrdner.isEmpty() && zeile < g->Rows(); ++zeile) {
        if (!g->TextMatrix(zeile, musik).contains(SpielOrdner))
            continue;
        Data1->setAbsolutePosition(zeile - 1);
        g->setRow(zeile);
        if (zeile < g->Rows() - 1)
            g->setTopRow(zeile);
        // The Track whose name, without its extension, stands in the panel.
        for (int i = 0; i < filTrack->count(); ++i) {
            QString name = filTrack->List(i);
            const qsizetype punkt = name.lastIndexOf(u'.');
            if (punkt > 0)
                name.truncate(punkt);
            if (!name.isEmpty() && status.contains(name)) {
                filTrack->setCurrentRow(i);
                break;
            }
        }
        if (PlaylistModus) {
            for (int i = 0; i < lvwPlaylist->topLevelItemCount(); ++i) {
                QTreeWidgetItem* eintrag = lvwPlaylist->topLevelItem(i);
                if (eintrag->text(2).contains(SpielOrdner) || eintrag->text(0).contains(SpielOrdner)) {
                    lvwPlaylist->setCurrentItem(eintrag);
                    lvwPlaylist->scrollToItem(eintrag);
                    break;
                }
            }
        }
        break;
    }
    staBar->setBevel(2, 2);
    Mauszeiger(ZeigerStandard);
}
