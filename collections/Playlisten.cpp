// Each command takes the one error route: an unexpected error ends it with the common error
// box under the procedure's name.
#include "collections/Playlisten.h"

#include "shell/Ausgabebox.h"

#include "catalogue/Datensteuerung.h"
#include "catalogue/FlexGrid.h"
#include "catalogue/Recordset.h"
#include "collections/Suche.h"
#include "platform/Dateikopie.h"
#include "platform/Dialogdienst.h"
#include "platform/Dienste.h"
#include "platform/Einheiten.h"
#include "platform/Laufzeitfehler.h"
#include "platform/Mauszeiger.h"
#include "platform/Pfade.h"
#include "platform/Textdatei.h"
#include "playback/Abspieler.h"
#include "playback/Trackliste.h"
#include "shell/Globale.h"
#include "shell/Grundregeln.h"
#include "shell/Steuerelemente.h"

#include <QAction>
#include <QComboBox>
#include <QCursor>
#include <QDir>
#include <QEvent>
#include <QFileInfo>
#include <QHeaderView>
#include <QKeyEvent>
#include <QMenu>
#include <QMouseEvent>
#include <QProgressBar>
#include <QTabBar>
#include <QTextEdit>
#include <QTreeWidget>

#include <utility>

void Playlisten::verbinden()
{
    BefehlVerbinden(box.mnuPlaylistNeu, this, [this] { mnuPlaylistNeu_Click(); });
    BefehlVerbinden(box.mnuPlaylistLaden, this, [this] { mnuPlaylistLaden_Click(); });
    // The command reads the mark as it stood before the click.
    BefehlVerbinden(box.mnuPlaylistAnzeigen, this, [this](bool haken) {
        box.mnuPlaylistAnzeigen->setChecked(!haken);
        mnuPlaylistAnzeigen_Click();
    });
    BefehlVerbinden(box.mnuPlaylistKill, this, [this] { mnuPlaylistKill_Click(); });
    BefehlVerbinden(box.mnuPlaylistHaken, this, [this] { mnuPlaylistHaken_Click(); });
    BefehlVerbinden(box.mnuPlaylistAufnehmen, this, [this] { mnuPlaylistAufnehmen_Click(); });
    BefehlVerbinden(box.mnuInPlaylistAufnehmen, this, [this] { mnuPlaylistAufnehmen_Click(); });
    BefehlVerbinden(box.mnuPlaylistKopieren, this, [this] { mnuPlaylistKopieren_Click(); });
    connect(box.filPlaylist, &QListWidget::itemClicked, this,
            [this](QListWidgetItem* eintrag) { filPlaylist_Click(eintrag->text()); });

    QTreeWidget* liste = box.lvwPlaylist;
    // Every row is one line high: a long list is laid out without measuring each row.
    liste->setUniformRowHeights(true);
    // The song's name and its Carrier's folder first; the path takes the rest.
    liste->header()->resizeSection(0, Px(3000));
    liste->header()->resizeSection(1, Px(2300));
    connect(liste, &QTreeWidget::itemClicked, this, [this] { lvwPlaylist_Click(); });
    connect(liste, &QTreeWidget::itemDoubleClicked, this, [this] { lvwPlaylist_DblClick(); });
    liste->installEventFilter(this);
    liste->viewport()->installEventFilter(this);
}

bool Playlisten::eventFilter(QObject* objekt, QEvent* ereignis)
{
    QTreeWidget* liste = box.lvwPlaylist;
    if (objekt == liste) {
        if (ereignis->type() == QEvent::FocusIn)
            lvwPlaylist_GotFocus();
        else if (ereignis->type() == QEvent::KeyRelease)
            lvwPlaylist_KeyUp(static_cast<QKeyEvent*>(ereignis)->key());
    } else if (objekt == liste->viewport()) {
        if (ereignis->type() == QEvent::MouseButtonPress
            && static_cast<QMouseEvent*>(ereignis)->button() == Qt::RightButton)
            box.mnuPlaylist->popup(QCursor::pos());
        else if (ereignis->type() == QEvent::MouseButtonRelease)
            lvwPlaylist_MouseUp();
    }
    return Teilbereich::eventFilter(objekt, ereignis);
}

QString Playlisten::PlaylistOrdner() { return ProgrammOrdner + QStringLiteral("Playlist/"); }

QTreeWidgetItem* Playlisten::ZeileAnlegen(const QString& pfad)
{
    // Each folder keeps the separator the path has, so the three columns give it again.
    const QString ordner = OrdnerAusPfad(pfad);
    const QString davor = OrdnerAusPfad(ordner.chopped(std::min<qsizetype>(1, ordner.size())));
    auto* zeile = new QTreeWidgetItem({DateinameAusPfad(pfad), ordner.mid(davor.size()), davor});
    zeile->setCheckState(0, Qt::Checked);
    return zeile;
}

QString Playlisten::ZeilenPfad(const QTreeWidgetItem* zeile)
{
    return zeile->text(2) + zeile->text(1) + zeile->text(0);
}

int Playlisten::GewaehlteZeile() const
{
    QTreeWidgetItem* zeile = box.lvwPlaylist->currentItem();
    return zeile ? box.lvwPlaylist->indexOfTopLevelItem(zeile) + 1 : 0;
}

void Playlisten::KopfSchreiben()
{
    box.lvwPlaylist->headerItem()->setText(
        0, QStringLiteral("Playlist - ") + PlaylistName.chopped(std::min<qsizetype>(4, PlaylistName.size()))
               + QStringLiteral(" (") + QString::number(box.lvwPlaylist->topLevelItemCount()) + u')');
}

void Playlisten::MarkenAnlegen()
{
    // Row n uses mark n; mark 0 stays free.
    TrackGespielt.assign(size_t(box.lvwPlaylist->topLevelItemCount()) + 1, 0);
}

void Playlisten::ListeZeigen(bool zeigen)
{
    box.mnuPlaylistAnzeigen->setChecked(zeigen);
    box.lvwPlaylist->setVisible(zeigen);
    box.tabTexte->setVisible(!zeigen);
    if (zeigen)
        box.lvwPlaylist->raise();
}

void Playlisten::PlaylistSpeichern()
{
    PlaylistGeaendert = false;
    Mauszeiger(ZeigerSanduhr);
    QStringList zeilen;
    const int anzahl = box.lvwPlaylist->topLevelItemCount();
    zeilen.reserve(anzahl);
    for (int i = 0; i < anzahl; ++i)
        zeilen << ZeilenPfad(box.lvwPlaylist->topLevelItem(i));
    const bool geschrieben = TextdateiSchreiben(PlaylistOrdner() + PlaylistName, zeilen);
    KopfSchreiben();
    Mauszeiger(ZeigerStandard);
    if (!geschrieben)
        Fehlermeldung(Laufzeitfehler(Fehlernummer::ZugriffsFehler), QStringLiteral("Ausgabebox_PlaylistSpeichern"));
}

void Playlisten::mnuPlaylistNeu_Click()
{
    try {
        box.tabTexte->setCurrentIndex(4);
        if (PlaylistGeaendert)
            PlaylistSpeichern();
        box.abspieler().imgStop_Click();
        QString antwort;
        for (;;) {
            antwort = InputNimb(QStringLiteral("Namen der Playlist eingeben."), QStringLiteral("Neue Playlist"));
            if (antwort.isEmpty())
                return;
            // ".txt" is added here also to a name that has it: such a name finds no file.
            const QString datei = PlaylistOrdner() + antwort + QStringLiteral(".txt");
            if (!DateiVorhanden(datei))
                break;
            const QString wahl = MsgNimb(QStringLiteral("Diese Playlist existiert bereits, überschreiben?\n\n")
                                             + antwort + u'\n',
                                         22, 1, QStringLiteral("Sicherheitshinweis"), 0);
            if (wahl == u"Nein")
                continue;
            if (wahl == u"Ja")
                D().papierkorb().verschieben(datei);
            break;
        }
        if (!antwort.endsWith(QStringLiteral(".txt")))
            antwort += QStringLiteral(".txt");
        PlaylistName = antwort;
        box.lvwPlaylist->clear();
        ListeZeigen(true);
        PlaylistModus = true;
        TrackIndex = 1;
        AlleHaken = true;
        KopfSchreiben();
        MarkenAnlegen();
    } catch (const Laufzeitfehler& fehler) {
        Fehlermeldung(fehler, QStringLiteral("Ausgabebox_mnuPlaylistNeu_Click"));
    }
}

void Playlisten::mnuPlaylistLaden_Click()
{
    try {
        box.tabTexte->setCurrentIndex(4);
        QString pfad;
        if (PlaylistGeaendert) {
            PlaylistSpeichern();
            pfad = PlaylistOrdner() + PlaylistName;
        }
        box.abspieler().imgStop_Click();
        if (PlaylistAusListe) {
            PlaylistAusListe = false;
            pfad = PlaylistOrdner() + PlaylistName;
        } else if (!SongBewertungSuche) {
            Dateiauswahl d;
            d.titel = QStringLiteral("Playlist laden");
            d.filter = QStringLiteral("Playlist (*.txt|*.txt|alle Dateien (*.*)|*.*");
            d.filterIndex = 1;
            d.startordner = PlaylistOrdner();
            pfad = D().dialoge().Datei(d);
            if (pfad.isEmpty())
                throw Laufzeitfehler(Fehlernummer::DialogAbgebrochen);
            // A file from another folder is read from there and saved into the playlists.
            PlaylistName = DateinameAusPfad(pfad);
        }
        Mauszeiger(ZeigerSanduhr);
        // Without the file the rows stay as they are.
        if (DateiVorhanden(pfad)) {
            bool gelesen = false;
            const QStringList zeilen = TextdateiLesen(pfad, &gelesen);
            if (!gelesen)
                throw Laufzeitfehler(Fehlernummer::ZugriffsFehler);
            // Built apart and shown at once: a long list is laid out once.
            QList<QTreeWidgetItem*> neu;
            neu.reserve(zeilen.size());
            const QString* zuletzt = nullptr;
            bool ungeteilt = false;
            for (const QString& zeile : zeilen) {
                // A direct repetition goes; a song may come back later in the list.
                if (zeile.isEmpty() || (zuletzt && zeile == *zuletzt))
                    continue;
                // A line without a folder cannot be split: the reading ends there.
                if (!zeile.contains(u'/') && !zeile.contains(u'\\')) {
                    ungeteilt = true;
                    break;
                }
                neu << ZeileAnlegen(zeile);
                zuletzt = &zeile;
            }
            box.lvwPlaylist->setUpdatesEnabled(false);
            box.lvwPlaylist->clear();
            box.lvwPlaylist->addTopLevelItems(neu);
            box.lvwPlaylist->setUpdatesEnabled(true);
            if (ungeteilt) {
                // The rows read so far stay, and each of them has its played mark.
                MarkenAnlegen();
                throw Laufzeitfehler(Fehlernummer::UngueltigerAufruf);
            }
        }
        KopfSchreiben();
        ListeZeigen(true);
        TrackIndex = 1;
        PlaylistModus = true;
        AlleHaken = true;
        MarkenAnlegen();
        Mauszeiger(ZeigerStandard);
    } catch (const Laufzeitfehler& fehler) {
        Mauszeiger(ZeigerStandard);
        Fehlermeldung(fehler, QStringLiteral("Ausgabebox_mnuPlaylistLaden_Click"));
    }
}

void Playlisten::mnuPlaylistAnzeigen_Click()
{
    if (PlaylistGeaendert)
        PlaylistSpeichern();
    if (box.mnuPlaylistAnzeigen->isChecked()) {
        ListeZeigen(false);
        return;
    }
    if (PlaylistName.isEmpty())
        mnuPlaylistLaden_Click();
    ListeZeigen(true);
}

void Playlisten::mnuPlaylistKill_Click()
{
    const QTreeWidgetItem* gewaehlt = box.lvwPlaylist->currentItem();
    // One row is named, however many are selected.
    if (MsgNimb(QStringLiteral("Lied aus der Playlist entfernen?\n\n") + (gewaehlt ? gewaehlt->text(0) : QString()),
                22, 0, QStringLiteral("Sicherheitsabfrage"), 0)
        == u"Nein")
        return;
    for (int i = box.lvwPlaylist->topLevelItemCount() - 1; i >= 0; --i)
        if (box.lvwPlaylist->topLevelItem(i)->isSelected())
            delete box.lvwPlaylist->takeTopLevelItem(i);
    PlaylistSpeichern();
}

void Playlisten::mnuPlaylistHaken_Click()
{
    AlleHaken = !AlleHaken;
    const Qt::CheckState haken = AlleHaken ? Qt::Checked : Qt::Unchecked;
    for (int i = 0; i < box.lvwPlaylist->topLevelItemCount(); ++i)
        box.lvwPlaylist->topLevelItem(i)->setCheckState(0, haken);
}

void Playlisten::mnuPlaylistAufnehmen_Click()
{
    if (PlaylistName.isEmpty()) {
        MsgNimb(QStringLiteral("Vergeben Sie zuerst einen Namen für eine neue Playlist,\n"
                               "oder laden Sie eine bestehenden Playlist."),
                1, 0, QStringLiteral("Kein Playlist vorhanden"), 0);
        return;
    }
    try {
        Mauszeiger(ZeigerSanduhr);
        const QString datei = PlaylistOrdner() + PlaylistName;
        const bool neueDatei = !DateiVorhanden(datei);
        // The field holds its trailing "/": the name follows it directly.
        const QString ordner = box.TextMusikpfad->text();
        QStringList pfade;
        for (int i = 0; i < box.filTrack->count(); ++i)
            if (box.filTrack->Selected(i))
                pfade << ordner + box.filTrack->List(i);
        if (!TextdateiAnhaengen(datei, pfade))
            throw Laufzeitfehler(Fehlernummer::ZugriffsFehler);
        for (const QString& pfad : pfade) {
            QTreeWidgetItem* zeile = ZeileAnlegen(pfad);
            box.lvwPlaylist->addTopLevelItem(zeile);
            box.lvwPlaylist->scrollToItem(zeile);
        }
        KopfSchreiben();
        MarkenAnlegen();
        // The first take-over makes the file: the tab's list shows it.
        if (neueDatei)
            box.filPlaylist->Refresh();
        Mauszeiger(ZeigerStandard);
    } catch (const Laufzeitfehler& fehler) {
        Mauszeiger(ZeigerStandard);
        Fehlermeldung(fehler, QStringLiteral("Ausgabebox_mnuPlaylistAufnehmen_Click"));
    }
}

void Playlisten::filPlaylist_Click(const QString& name)
{
    // Only the name is taken: it is read from the playlists' folder whatever folder the
    // list shows.
    PlaylistAusListe = true;
    PlaylistName = name;
    mnuPlaylistLaden_Click();
}

void Playlisten::lvwPlaylist_Click()
{
    PlaylistModus = true;
    MarkenAnlegen();
    TrackIndex = std::max(1, GewaehlteZeile());
}

void Playlisten::lvwPlaylist_GotFocus()
{
    PlaylistModus = true;
    TrackIndex = std::max(1, GewaehlteZeile());
    MarkenAnlegen();
    box.trackliste().BewertungTracks();
}

void Playlisten::lvwPlaylist_KeyUp(int taste)
{
    TrackIndex = GewaehlteZeile();
    box.trackliste().BewertungTracks();
    if (taste == Qt::Key_Return || taste == Qt::Key_Enter)
        box.abspieler().imgStart_Click();
}

void Playlisten::lvwPlaylist_MouseUp()
{
    TrackIndex = GewaehlteZeile();
    box.trackliste().BewertungTracks();
}

void Playlisten::lvwPlaylist_DblClick()
{
    box.abspieler().imgStop_Click();
    EreignisseZulassen();
    box.abspieler().imgStart_Click();
    EreignisseZulassen();
    box.SuchZeile = 1;
    SuchenPlaylistTitel();
}

void Playlisten::mnuPlaylistKopieren_Click()
{
    if (PlaylistName.isEmpty()) {
        MsgNimb(QStringLiteral("Playlist unbekannt, laden Sie zuerst eine Playlist!"), 1, 0,
                QStringLiteral("Ausgabebox_mnuPlaylistKopieren_Click"), 0, Farbe::WarnHintergrund, Farbe::StandardText);
        mnuPlaylistLaden_Click();
        return;
    }
    int kopiert = 0;
    int vorhanden = 0;
    int fehlt = 0;
    try {
        const QString ziel = D().dialoge().Ordner(ProgrammOrdner, QDir::homePath());
        if (ziel.isEmpty())
            return;
        Mauszeiger(ZeigerSanduhr);
        QList<const QTreeWidgetItem*> angehakt;
        for (int i = 0; i < box.lvwPlaylist->topLevelItemCount(); ++i)
            if (box.lvwPlaylist->topLevelItem(i)->checkState(0) == Qt::Checked)
                angehakt << box.lvwPlaylist->topLevelItem(i);
        box.ProgressBar1->setRange(0, int(angehakt.size()));
        box.ProgressBar1->setValue(0);
        box.ProgressBar1->show();
        // Esc stops the copy between two pieces of a file; that file is not left behind.
        Abbruch = false;
        const EscAbbruch esc;
        auto weiter = [] {
            EreignisseZulassen();
            return !Abbruch;
        };
        for (const QTreeWidgetItem* zeile : angehakt) {
            const QString quelle = ZeilenPfad(zeile);
            const QString datei = ziel + zeile->text(0);
            if (!DateiVorhanden(quelle)) {
                ++fehlt;
            } else if (QFileInfo::exists(datei)) {
                ++vorhanden;
            } else {
                box.ProgressBar1->setValue(++kopiert);
                if (!weiter() || !DateiKopieren(quelle, datei, weiter)) {
                    --kopiert;
                    if (!Abbruch)
                        throw Laufzeitfehler(Fehlernummer::ZugriffsFehler);
                    break;
                }
            }
        }
        Abbruch = false;
        box.ProgressBar1->hide();
        Mauszeiger(ZeigerStandard);
        MsgNimb(QString::number(kopiert) + QStringLiteral(" Lieder kopiert nach:\n") + ziel
                    + QStringLiteral("\n\nBereits im Zielordner vorhanden: ") + QString::number(vorhanden)
                    + QStringLiteral("\nLieder nicht im Quellordner vorhanden: ") + QString::number(fehlt),
                1, 0, QStringLiteral("Lieder kopieren"), 0);
    } catch (const Laufzeitfehler& fehler) {
        Abbruch = false;
        box.ProgressBar1->hide();
        Mauszeiger(ZeigerStandard);
        Fehlermeldung(fehler, QStringLiteral("Ausgabebox_mnuPlaylistKopieren_Click"));
    }
}

void Playlisten::SuchenPlaylistTitel()
{
    // Errors are ignored here, as in the transport that calls it.
    const bool vonVorn = std::exchange(PlaylistTitelErzwingen, false);
    const QTreeWidgetItem* zeile = box.lvwPlaylist->currentItem();
    if (!zeile)
        return;
    // The song's name without its extension and rating, in lower case.
    QString begriff = zeile->text(0);
    if (const qsizetype punkt = begriff.lastIndexOf(u'.'); punkt >= 0)
        begriff.truncate(punkt);
    for (const char* bewertung : {" - 1", " - 2", " - 3", " - 4", " - 5", " - 6"})
        begriff.remove(QLatin1String(bewertung));
    begriff = begriff.toLower();
    // The walk of the search field, silent on a miss: the field's colour tells whether the
    // song's Carrier is in the table.
    box.suche().TabelleDurchsuchenNach(begriff, false, vonVorn);
}
