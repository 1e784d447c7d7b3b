#include "playback/Zufallswahl.h"

#include "shell/Ausgabebox.h"

#include "catalogue/Datensteuerung.h"
#include "catalogue/FlexGrid.h"
#include "catalogue/Recordset.h"
#include "catalogue/Textregeln.h"
#include "collections/Abspielausschluss.h"
#include "collections/Ausschlusslisten.h"
#include "platform/Dialogdienst.h"
#include "platform/Dienste.h"
#include "platform/Laufzeitfehler.h"
#include "platform/Uhr.h"
#include "playback/Abspieler.h"
#include "playback/Trackliste.h"
#include "shell/Einstellungen.h"
#include "shell/Globale.h"
#include "shell/Grundregeln.h"
#include "shell/Steuerelemente.h"

#include <QCheckBox>
#include <QListWidget>
#include <QTreeWidget>

#include <algorithm>
#include <cmath>
#include <optional>

namespace {

// A draw in [0, 1) as a single, which rounding must not lift to 1.
float einfacheZahl(double r)
{
    const float wert = float(std::clamp(r, 0.0, 1.0));
    return std::min(wert, std::nextafter(1.0f, 0.0f));
}

const QString ZweiterSatz =
    QStringLiteral("Entfernen Sie dort das Häkchen, damit Sie diese Stilrichtung verwenden können.");

} // namespace

void Zufallswahl::verbinden()
{
    connect(box.imgLiedzufall, &Bildknopf::MouseUp, this, [this](Qt::MouseButton knopf) {
        EreignisseZulassen();
        if (knopf == Qt::LeftButton)
            TontraegerZufaellig();
    });
}

bool Zufallswahl::TontraegerAusgeschlossen()
{
    const int zeile = box.MSFlexGrid1->Row();
    if (zeile < 1)
        return false;
    box.SpalteStil = box.MSFlexGrid1->SpalteSuchen(QStringLiteral("Stil"));
    return AusschlussTrifft(box.lstAbspielausschluss, box.MSFlexGrid1->TextMatrix(zeile, box.SpalteStil))
        || AusschlussTrifft(box.lstBandAusschluss, box.MSFlexGrid1->TextMatrix(zeile, box.abspielausschluss().BandSpalte()));
}

void Zufallswahl::TontraegerZufaellig()
{
    // Errors are ignored here: a failed step leaves things as they are.
    try {
        const int songsProTontraeger = GanzeZahl(Lesen(QStringLiteral("ShuffleSongProCD"), QStringLiteral("1")));
        if (PlaylistModus) {
            PlaylistZeileZufaellig();
            return;
        }
        box.SpalteStil = box.MSFlexGrid1->SpalteSuchen(QStringLiteral("Stil"));
        Recordset* rs = box.Data1->recordset();
        if (!rs || rs->RecordCount() < 1)
            return;
        if (box.SongZaehler < songsProTontraeger) {
            ++box.SongZaehler;
            TrackZufaellig();
            return;
        }
        box.SongZaehler = 1;

        // Both counters count rejected draws, not different Carriers: after as many
        // rejections of one kind as there are rows the choice gives up.
        const int anzahl = rs->RecordCount();
        const int bandSpalte = box.abspielausschluss().BandSpalte();
        int stilZaehler = 0;
        int bandZaehler = 0;
        // Scattered draws fetch a block of rows each; after many rejections (a large table
        // mostly excluded) the catalogue names, once, the rows whose cell can hold an
        // excluded text, and only those cells are read.
        FlexGrid* g = box.MSFlexGrid1;
        std::optional<QSet<qint64>> stilKandidaten;
        std::optional<QSet<qint64>> bandKandidaten;
        auto kandidaten = [&](const QListWidget* liste, int spalte) -> std::optional<QSet<qint64>> {
            if (spalte < 0)
                return std::nullopt;
            const QString name = g->SqlName(spalte);
            QStringList teile = {QStringLiteral("typeof(%1) <> 'text'").arg(name)};
            QVariantList muster;
            for (int i = 0; i < liste->count(); ++i) {
                teile << QStringLiteral("%1 GLOB ?%2").arg(name).arg(i + 1);
                muster << u'*' + GlobMaskiert(liste->item(i)->text()) + u'*';
            }
            return rs->RowIds(teile.join(QStringLiteral(" OR ")), muster);
        };
        auto trifft = [&](const std::optional<QSet<qint64>>& kandidat, const QListWidget* liste, int zeile,
                          int spalte) {
            if (kandidat && !kandidat->contains(rs->RowId(zeile - 1)))
                return false;
            return AusschlussTrifft(liste, g->TextMatrix(zeile, spalte));
        };
        for (;;) {
            if (stilZaehler + bandZaehler == 256) {
                stilKandidaten = kandidaten(box.lstAbspielausschluss, box.SpalteStil);
                bandKandidaten = kandidaten(box.lstBandAusschluss, bandSpalte);
            }
            const int zeile = int(std::floor(anzahl * D().zufall().Rnd() + 1));
            // The cells are read before the move, so that a rejected Carrier is not loaded
            // in vain; the last drawn one is shown in any case.
            const bool stil = trifft(stilKandidaten, box.lstAbspielausschluss, zeile, box.SpalteStil);
            const bool band = !stil && trifft(bandKandidaten, box.lstBandAusschluss, zeile, bandSpalte);
            if (stil && ++stilZaehler == anzahl) {
                TontraegerZeigen(zeile);
                MsgNimb(QStringLiteral("Diese Stilrichtung wurde im Menüpunkt 'Optionen/Stilrichtung "
                                       "ausschließen...' ausgeschlossen.\n")
                            + ZweiterSatz,
                        3, 0, QStringLiteral("Bedienungshinweis"), 0);
                return;
            }
            if (band && ++bandZaehler == anzahl) {
                TontraegerZeigen(zeile);
                MsgNimb(QStringLiteral("Diese Band wurde im Menüpunkt 'Optionen/Band ausschließen...' "
                                       "ausgeschlossen.\n")
                            + ZweiterSatz,
                        3, 0, QStringLiteral("Bedienungshinweis"), 0);
                return;
            }
            if (!stil && !band) {
                TontraegerZeigen(zeile);
                break;
            }
            EreignisseZulassen();
        }
        TrackZufaellig();
    } catch (const Laufzeitfehler&) {
    }
}

void Zufallswahl::TontraegerZeigen(int zeile)
{
    // The row change moves the record (MSFlexGrid1_RowColChange); a row that is current
    // already moves nothing, so a single record stays where it is.
    if (box.MSFlexGrid1->Row() != zeile) {
        box.MSFlexGrid1->setRow(zeile);
    } else if (Recordset* rs = box.Data1->recordset(); rs && rs->AbsolutePosition() != zeile - 1) {
        box.Data1->setAbsolutePosition(zeile - 1);
    }
    box.MSFlexGrid1->setTopRow(zeile);
    EreignisseZulassen();
}

void Zufallswahl::TrackZufaellig()
{
    const int anzahl = box.filTrack->count();
    if (anzahl == 0)
        return;
    // Entry 0 is never drawn; with one entry the draw lies behind the list.
    const float r = einfacheZahl(D().zufall().Rnd());
    const int track = int(std::floor(float(anzahl - 1) * r + 1.0f));
    if (track < anzahl) {
        box.filTrack->setSelected(track, true);
        box.filTrack->setCurrentRow(track, QItemSelectionModel::NoUpdate);
        box.filTrack->scrollToItem(box.filTrack->item(track));
    }
    TrackIndex = track;
    if (track != 0)
        box.filTrack->setSelected(0, false);
    // The current Track changed: its stars, not those of the first one.
    box.trackliste().BewertungTracks();
}

void Zufallswahl::PlaylistZeileZufaellig()
{
    // Rows count from 1, as the played marks do; element 0 stays free.
    const int anzahl = box.lvwPlaylist->topLevelItemCount();
    auto markiert = [this](int zeile) {
        const QTreeWidgetItem* eintrag = box.lvwPlaylist->topLevelItem(zeile - 1);
        return eintrag && eintrag->checkState(0) == Qt::Checked;
    };
    auto frei = [](int zeile) { return zeile >= 0 && size_t(zeile) < TrackGespielt.size() && TrackGespielt[size_t(zeile)] == 0; };

    const int kandidat = int(std::floor((anzahl - 1) * D().zufall().Rnd() + 1));
    if (markiert(kandidat) && frei(kandidat)) {
        TrackGespielt[size_t(kandidat)] = 1;
        TrackIndex = kandidat;
    } else {
        int treffer = -1;
        for (int zeile = 1; zeile < int(TrackGespielt.size()); ++zeile) {
            if (markiert(zeile) && frei(zeile)) {
                treffer = zeile;
                break;
            }
        }
        if (treffer > 0) {
            TrackGespielt[size_t(treffer)] = 1;
            TrackIndex = treffer;
        } else {
            std::fill(TrackGespielt.begin(), TrackGespielt.end(), 0);
            if (!box.chkRepeat->isChecked()) {
                // Every checked row has played: the run ends.
                EreignisseZulassen();
                D().uhr().warten(500);
                box.abspieler().imgStop_Click();
                return;
            }
            TrackIndex = 1;
        }
    }
    if (QTreeWidgetItem* eintrag = box.lvwPlaylist->topLevelItem(TrackIndex - 1)) {
        box.lvwPlaylist->setCurrentItem(eintrag);
        box.lvwPlaylist->scrollToItem(eintrag);
    }
    // While something plays, the random row starts at once.
    if (box.staBar->PanelText(2).contains(u"playing:  "))
        box.abspieler().imgStart_Click();
}
