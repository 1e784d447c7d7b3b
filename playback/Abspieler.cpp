// Like all of the player, the transport ignores failures: a step that fails is skipped
// and nothing is reported.
#include "playback/Abspieler.h"
#include "playback/MiniPlayer.h"

#include "shell/Ausgabebox.h"

#include "catalogue/Datensatzansicht.h"
#include "catalogue/Datensteuerung.h"
#include "catalogue/FlexGrid.h"
#include "collections/Playlisten.h"
#include "platform/Dienste.h"
#include "platform/Einheiten.h"
#include "platform/Medien.h"
#include "platform/Pfade.h"
#include "platform/Uhr.h"
#include "playback/Audioanzeige.h"
#include "playback/Trackliste.h"
#include "playback/frmWinMediaPlayer.h"
#include "playback/modPlatten.h"
#include "shell/Einstellungen.h"
#include "shell/FensterPlatzieren.h"
#include "shell/Globale.h"
#include "shell/Grundregeln.h"
#include "shell/Steuerelemente.h"

#include <QAction>
#include <QCheckBox>
#include <QCursor>
#include <QEvent>
#include <QFileInfo>
#include <QLabel>
#include <QMenu>
#include <QMouseEvent>
#include <QPushButton>
#include <QTabBar>
#include <QTreeWidget>
#include <QVideoWidget>

#include <cmath>

const QString Abspieler::Alias = QStringLiteral("MyAlias");

namespace {

double uhrzeit() { return D().uhr().sekundenSeitMitternacht(); }

bool gehoertInsFenster(const QString& name)
{
    static const QStringList endungen = {".avi", ".wmv", ".mpg", ".jpg", "jpeg", ".gif", ".png",
                                         ".bmp", ".tif", "tiff", ".pcx", ".rle", ".wmf", ".dib",
                                         ".emf", ".cur", ".mp4", ".flv", "m2ts"};
    return endungen.contains(EndungVier(name));
}

double anspielzeit() { return Zahl(Lesen(QStringLiteral("TracksAnspielen"), QStringLiteral("10"))).value_or(10.0); }

} // namespace

void Abspieler::verbinden()
{
    connect(box.imgStart, &Bildknopf::clicked, this, [this] { imgStart_Click(); });
    connect(box.imgStop, &Bildknopf::clicked, this, [this] { imgStop_Click(); });
    connect(box.imgStop, &Bildknopf::MouseUp, this, [](Qt::MouseButton) { StopGedrueckt = true; });
    for (Bildknopf* b : box.imgPause)
        connect(b, &Bildknopf::clicked, this, [this] { imgPause_Click(); });
    connect(box.imgResume, &Bildknopf::clicked, this, [this] { imgResume_Click(); });
    for (int i = 0; i < 2; ++i)
        connect(box.imgVorBack[i], &Bildknopf::clicked, this, [this, i] { imgVorBack_Click(i); });
    for (Bildknopf* b : box.imgPosAB)
        connect(b, &Bildknopf::clicked, this, [this] { imgPosAB_Click(); });
    connect(box.TimerPosAB, &Zeitgeber::Timer, this, [this] { TimerPosAB_Timer(); });
    connect(box.cmdPlayAsso, &QPushButton::clicked, this, [this] { cmdPlayAsso_Click(); });
    KlickVerbinden(box.chkVisualisierung, this, [this] { chkVisualisierung_Click(); });
    KlickVerbinden(box.chkVollbild, this, [this] { chkVollbild_Click(); });
    BefehlVerbinden(box.mnuWinPlayerVerwenden, this, [this] { mnuWinPlayerVerwenden_Click(); });
    connect(box.MediaPlayer1Spieler, &Medienspieler::PlayStateChange, this,
            [this](int zustand) { MediaPlayer1_PlayStateChange(zustand); });
    box.MediaPlayer1->installEventFilter(this);
}

bool Abspieler::eventFilter(QObject* objekt, QEvent* ereignis)
{
    if (objekt == box.MediaPlayer1 && ereignis->type() == QEvent::MouseButtonPress) {
        MediaPlayer1_MouseDown(static_cast<QMouseEvent*>(ereignis)->button());
        return true;
    }
    return Teilbereich::eventFilter(objekt, ereignis);
}

frmWinMediaPlayer* Abspieler::WinMediaPlayerFenster()
{
    if (!WinMediaPlayer) {
        WinMediaPlayer = new frmWinMediaPlayer(box);
        WinMediaPlayer->Form_Load();
        connect(WinMediaPlayer, &QObject::destroyed, this, [this] { WinMediaPlayer = nullptr; });
    }
    return WinMediaPlayer;
}

void Abspieler::MediaPlayer1Zeigen(bool sichtbar)
{
    MediaPlayer1Sichtbar = sichtbar;
    AudioanzeigeAktualisieren();
}

void Abspieler::AudioanzeigeAktualisieren()
{
    // The control lives on the covers' tab and shows there only. While audio plays
    // there is no picture: the audio display stands in its place.
    static const QStringList videos = {"avi", "wmv", "mpg", "mpeg", "mp4", "m4v", "flv", "m2ts", "mkv",
                                       "webm", "ogv", "mov", "3gp"};
    const bool sichtbar = MediaPlayer1Sichtbar && box.tabTexte->currentIndex() == 0 && !box.lvwPlaylist->isVisible();
    const QString url = box.MediaPlayer1Spieler->URL();
    const bool audio = !url.isEmpty() && !videos.contains(QFileInfo(url).suffix().toLower());
    box.MediaPlayer1->setVisible(sichtbar && !audio);
    if (box.MediaPlayer1->isVisible())
        box.MediaPlayer1->raise();
    if (!sichtbar || !audio) {
        box.MediaPlayer1Audio->hide();
        return;
    }
    box.MediaPlayer1Audio->setGeometry(box.MediaPlayer1->geometry());
    box.MediaPlayer1Audio->setTitel(QFileInfo(url).completeBaseName());
    box.MediaPlayer1Audio->setCover(box.Bild1->Bild().isNull() ? box.imgBildpfad->Bild() : box.Bild1->Bild());
    box.MediaPlayer1Audio->show();
    box.MediaPlayer1Audio->raise();
}

void Abspieler::SonderfunktionenAus()
{
    WmpPause = false;
    PosAGesetzt = false;
    PosA = 0;
    box.imgPosAB[0]->show();
    box.imgPosAB[1]->hide();
    box.imgPosAB[2]->hide();
    box.TimerPosAB->setEnabled(false);
    box.imgPause[0]->show();
    box.imgPause[1]->hide();
    box.miniPlayer().SonderfunktionenAus();
}

void Abspieler::imgStart_Click()
{
    // A file whose name begins with an apostrophe always goes to its own program.
    if (box.filTrack->List(TrackIndex).startsWith(u'\'')) {
        cmdPlayAsso_Click();
        return;
    }
    StopGedrueckt = false;
    MciStoppen(Alias);
    if (FensterMedium && WinMediaPlayer)
        WinMediaPlayer->MedienSchliessen();
    EreignisseZulassen();
    SonderfunktionenAus();
    box.SpalteStil = -1;
    for (int c = 0; c < 18 && box.SpalteStil < 0; ++c)
        if (box.MSFlexGrid1->TextMatrix(0, c) == u"Stil")
            box.SpalteStil = c;
    if (box.chkAlleTracks->isChecked() || box.chkRepeat->isChecked() || box.chkShuffle->isChecked()
        || box.chkMarkTracks->isChecked())
        box.Timer1->setEnabled(true);
    if (box.isMinimized() && box.mnuLaufschrift->isChecked())
        box.Timer2->setEnabled(true);

    const bool wmp = box.mnuWinPlayerVerwenden->isChecked();
    if (PlaylistModus) {
        if (TrackIndex == 0)
            TrackIndex = 1;
        const int zeilen = box.lvwPlaylist->topLevelItemCount();
        auto zeile = [this](int nr) { return box.lvwPlaylist->topLevelItem(nr - 1); };
        if (box.chkMarkTracks->isChecked()) {
            int treffer = 0;
            for (int r = TrackIndex; r <= zeilen && !treffer; ++r)
                if (zeile(r)->checkState(0) == Qt::Checked)
                    treffer = r;
            if (treffer) {
                TrackIndex = treffer;
                box.lvwPlaylist->setCurrentItem(zeile(treffer));
                box.trackliste().BewertungTracks();
                box.lvwPlaylist->scrollToItem(zeile(treffer));
            } else {
                if (!box.chkRepeat->isChecked())
                    imgStop_Click();
                TrackIndex = 1;
                if (QTreeWidgetItem* erste = zeile(1)) {
                    box.lvwPlaylist->setCurrentItem(erste);
                    box.trackliste().BewertungTracks();
                    box.lvwPlaylist->scrollToItem(erste);
                }
                return;
            }
        }
        QTreeWidgetItem* z = zeile(TrackIndex);
        const QString pfad = z ? z->text(2) + z->text(1) + z->text(0) : QString();
        const QString name = z ? z->text(0) : QString();
        if (!wmp) {
            const double laenge = BassTracklaenge(pfad);
            box.trackliste().BewertungTracks();
            MciDateiAbspielen(pfad, Alias);
            EreignisseZulassen();
            TrackEndeZeit = uhrzeit() + laenge;
        } else if (EndungVier(name) == u".mov") {
            box.trackliste().BewertungTracks();
            MciDateiAbspielen(pfad, Alias);
            EreignisseZulassen();
        } else {
            MediaPlayerPfad(pfad);
        }
        if (box.chkTracksAnspielen->isChecked()) {
            TrackEndeZeit = uhrzeit() + anspielzeit();
            box.trackliste().BewertungTracks();
        }
        box.SpielOrdner = OrdnerAusPfad(pfad);
        box.datensatzansicht().AktuelleCDanzeigen();
        box.trackliste().BewertungTracks();
        box.staBar->setPanelText(2, QStringLiteral("playing:  ") + pfad);
        LaufenderTrack = box.staBar->PanelText(2).trimmed();
        if (box.chkTracksZufaellig->isChecked()) {
            if (TrackIndex >= int(TrackGespielt.size()))
                TrackGespielt.resize(size_t(TrackIndex) + 1, 0);
            TrackGespielt[size_t(TrackIndex)] = 1;
            box.trackliste().BewertungTracks();
        }
        box.playlisten().PlaylistTitelErzwingen = true;
        box.playlisten().SuchenPlaylistTitel();
    } else {
        if (!box.chkMarkTracks->isChecked()) {
            box.filTrack->clearSelection();
            box.filTrack->setSelected(TrackIndex, true);
        } else {
            int treffer = -1;
            for (int i = TrackIndex; i < box.filTrack->count() && treffer < 0; ++i)
                if (box.filTrack->Selected(i))
                    treffer = i;
            if (treffer >= 0) {
                TrackIndex = treffer;
                box.trackliste().BewertungTracks();
            } else {
                if (!box.chkRepeat->isChecked())
                    imgStop_Click();
                TrackIndex = 0;
                box.trackliste().BewertungTracks();
                return;
            }
        }
        // The field holds its trailing "/": the name follows it directly.
        const QString eintrag = box.filTrack->List(TrackIndex);
        const QString pfad = box.TextMusikpfad->text() + eintrag;
        const QString nummer = QStringLiteral("Tracks && Movies Nr.: ") + QString::number(TrackIndex + 1);
        if (!wmp) {
            const double laenge = BassTracklaenge(pfad);
            MciDateiAbspielen(pfad, Alias);
            box.Bez[12]->setText(nummer);
            box.trackliste().BewertungTracks();
            EreignisseZulassen();
            TrackEndeZeit = uhrzeit() + laenge;
        } else if (EndungVier(eintrag) == u".mov") {
            MciDateiAbspielen(pfad, Alias);
            box.Bez[12]->setText(nummer);
            box.trackliste().BewertungTracks();
            EreignisseZulassen();
        } else {
            MediaPlayerPfad(pfad);
            box.Bez[12]->setText(nummer);
            box.trackliste().BewertungTracks();
            EreignisseZulassen();
        }
        if (box.chkTracksZufaellig->isChecked()) {
            if (TrackIndex >= int(TrackGespielt.size()))
                TrackGespielt.resize(size_t(TrackIndex) + 1, 0);
            TrackGespielt[size_t(TrackIndex)] = 1;
            box.trackliste().BewertungTracks();
        }
        if (box.chkTracksAnspielen->isChecked()) {
            TrackEndeZeit = uhrzeit() + anspielzeit();
            box.trackliste().BewertungTracks();
        }
        box.SpielOrdner = box.TextMusikpfad->text();
        LaufenderTrack = QStringLiteral("playing:  ") + box.TextMusikpfad->text() + eintrag;
        box.staBar->setPanelText(2, LaufenderTrack);
    }
    // Room for the player control below the cover.
    if (wmp && EndungVier(box.filTrack->List(TrackIndex)) != u".mov") {
        box.Bild1->resize(box.Bild1->width(), Px(3195));
        box.imgBildpfad->resize(box.imgBildpfad->width(), Px(3195));
    }
    box.miniPlayer().TitelStarten();
    box.trackliste().TextSongAktualisieren();
}

void Abspieler::MediaPlayerPfad(const QString& pfad)
{
    if (MediaPlayer1Sichtbar) {
        box.MediaPlayer1Spieler->close();
        EreignisseZulassen();
    }
    box.cmdInfoTrack->show();
    FensterMedium = gehoertInsFenster(box.filTrack->List(TrackIndex));
    if (!FensterMedium && WinMediaPlayer)
        WinMediaPlayer->MedienSchliessen();
    MediaPlayer1Zeigen(true);
    if (FensterMedium) {
        frmWinMediaPlayer* fenster = WinMediaPlayerFenster();
        fenster->show();
        fenster->raise();
        fenster->setURL(pfad);
    } else {
        box.MediaPlayer1Spieler->setURL(pfad);
    }
    AudioanzeigeAktualisieren();
}

void Abspieler::imgStop_Click()
{
    if (box.staBar->PanelText(2).contains(u"Pause"))
        Abbruch = true;
    box.Timer1->setEnabled(false);
    box.Timer2->setEnabled(false);
    box.miniPlayer().TransportGestoppt();
    if (FensterMedium && WinMediaPlayer)
        WinMediaPlayer->MedienSchliessen();
    box.cmdInfoTrack->hide();
    EreignisseZulassen();
    box.setWindowTitle(Ausgabebox::Titel);
    box.staBar->setPanelText(2, QStringLiteral("no play"));
    box.Bild1->resize(box.Bild1->width(), Px(4150));
    box.imgBildpfad->resize(box.imgBildpfad->width(), Px(4150));
    SonderfunktionenAus();
    if (box.chkMarkTracks->isChecked())
        TrackIndex = 0;
    if (box.mnuWinPlayerVerwenden->isChecked()) {
        ResumePosition = int(std::lround(box.MediaPlayer1Spieler->currentPosition()));
        if (PlaylistModus) {
            QTreeWidgetItem* gewaehlt = box.lvwPlaylist->currentItem();
            ResumeIndex = gewaehlt ? box.lvwPlaylist->indexOfTopLevelItem(gewaehlt) + 1 : 0;
            TrackIndex = ResumeIndex;
        } else {
            ResumeIndex = TrackIndex;
            ResumeOrdner = box.TextMusikpfad->text();
        }
        box.MediaPlayer1Spieler->close();
        MediaPlayer1Zeigen(false);
    }
    MciStoppen(Alias);
    EreignisseZulassen();
}

void Abspieler::imgPause_Click()
{
    const QString status = box.staBar->PanelText(2);
    if (status == u"no play")
        return;
    if (status.contains(u"Pause")) {
        // Ends the wait between Tracks at once.
        Abbruch = true;
        return;
    }
    WmpPause = !WmpPause;
    if (WmpPause)
        box.MediaPlayer1Spieler->pause();
    else
        box.MediaPlayer1Spieler->play();
    box.imgPause[0]->setVisible(!WmpPause);
    box.imgPause[1]->setVisible(WmpPause);
}

void Abspieler::imgResume_Click()
{
    if (PlaylistModus) {
        if (QTreeWidgetItem* zeile = box.lvwPlaylist->topLevelItem(ResumeIndex - 1))
            box.lvwPlaylist->setCurrentItem(zeile);
    } else {
        FlexGrid* g = box.MSFlexGrid1;
        const int musik = g->SpalteSuchen(QStringLiteral("Musikpfad"));
        const int zeile = musik < 0 ? -1
                                    : g->ZeileSuchen(QStringLiteral("typeof(%1) <> 'text' OR %1 = ?1 COLLATE BINARY")
                                                         .arg(g->SqlName(musik)),
                                                     {ResumeOrdner},
                                                     [&](int z) { return g->TextMatrix(z, musik) == ResumeOrdner; });
        if (zeile >= 1)
            box.Data1->setAbsolutePosition(zeile - 1);
    }
    EreignisseZulassen();
    TrackIndex = ResumeIndex;
    imgStart_Click();
    box.MediaPlayer1Spieler->setCurrentPosition(ResumePosition);
}

void Abspieler::imgVorBack_Click(int index)
{
    SonderfunktionenAus();
    const bool markiert = box.chkMarkTracks->isChecked();
    if (!PlaylistModus) {
        const int letzte = box.filTrack->count() - 1;
        if (index == 0) {
            if (TrackIndex > 0) {
                if (markiert) {
                    for (int i = TrackIndex - 1; i >= 0; --i)
                        if (box.filTrack->Selected(i)) {
                            TrackIndex = i;
                            break;
                        }
                } else {
                    --TrackIndex;
                }
            } else if (!markiert) {
                TrackIndex = std::max(0, letzte);
            } else {
                for (int i = letzte; i >= 0; --i)
                    if (box.filTrack->Selected(i)) {
                        TrackIndex = i;
                        break;
                    }
            }
        } else {
            TrackIndex = TrackIndex >= letzte ? 0 : TrackIndex + 1;
        }
        imgStart_Click();
        return;
    }
    // Playlist: the next checked row in the direction, with one wrap.
    const int zeilen = box.lvwPlaylist->topLevelItemCount();
    if (zeilen == 0)
        return;
    auto angehakt = [this](int nr) {
        QTreeWidgetItem* z = box.lvwPlaylist->topLevelItem(nr - 1);
        return z && z->checkState(0) == Qt::Checked;
    };
    auto nehmen = [this](int nr) {
        TrackIndex = nr;
        QTreeWidgetItem* z = box.lvwPlaylist->topLevelItem(nr - 1);
        box.lvwPlaylist->setCurrentItem(z);
        box.lvwPlaylist->scrollToItem(z);
        imgStart_Click();
    };
    if (index == 0) {
        int start = TrackIndex - 1 < 1 ? zeilen : TrackIndex - 1;
        for (int runde = 0; runde < 2; ++runde) {
            for (int r = start; r >= 1; --r)
                if (angehakt(r)) {
                    nehmen(r);
                    return;
                }
            start = zeilen;
        }
    } else {
        int start = TrackIndex + 1 > zeilen ? 1 : TrackIndex + 1;
        for (int runde = 0; runde < 2; ++runde) {
            for (int r = start; r <= zeilen; ++r)
                if (angehakt(r)) {
                    nehmen(r);
                    return;
                }
            start = 1;
        }
    }
}

void Abspieler::imgPosAB_Click()
{
    if (box.staBar->PanelText(2) == u"no play")
        return;
    const int position = int(std::lround(box.MediaPlayer1Spieler->currentPosition()));
    int bild;
    if (PosAGesetzt) {
        PosAGesetzt = false;
        PosB = position;
        box.TimerPosAB->setEnabled(true);
        bild = 2;
    } else if (PosA != 0) {
        PosA = 0;
        box.TimerPosAB->setEnabled(false);
        bild = 0;
    } else {
        PosAGesetzt = true;
        box.TimerPosAB->setEnabled(false);
        PosA = position;
        bild = 1;
    }
    for (int i = 0; i < 3; ++i)
        box.imgPosAB[i]->setVisible(i == bild);
}

void Abspieler::TimerPosAB_Timer()
{
    if (box.MediaPlayer1Spieler->currentPosition() >= PosB)
        box.MediaPlayer1Spieler->setCurrentPosition(PosA);
}

void Abspieler::cmdPlayAsso_Click()
{
    imgStop_Click();
    EreignisseZulassen();
    const QString pfad = box.TextMusikpfad->text() + box.filTrack->List(TrackIndex);
    EreignisseZulassen();
    D().shell().oeffnen(pfad);
}

void Abspieler::MiniPlayerVorBackStart() { imgStart_Click(); }

bool Abspieler::MedienpfadAngehalten() const
{
    return box.MediaPlayer1Spieler->playState() == Medienspieler::Gestoppt;
}

void Abspieler::MiniPlayerStop()
{
    StopGedrueckt = true;
    imgStop_Click();
}

void Abspieler::MediaPlayer1_PlayStateChange(int zustand)
{
    if (box.chkVollbild->isChecked())
        box.MediaPlayer1->setFullScreen(true);
    if (zustand == Medienspieler::Gestoppt)
        box.staBar->setPanelText(2, QStringLiteral("no play"));
}

void Abspieler::MediaPlayer1_MouseDown(Qt::MouseButton knopf)
{
    if (knopf == Qt::RightButton) {
        box.mnuBild->setDefaultAction(box.MenuBildkopieren);
        box.mnuBild->popup(QCursor::pos());
        return;
    }
    if (knopf != Qt::LeftButton)
        return;
    const QString eintrag = box.filTrack->List(TrackIndex);
    // The ending in its own case, as the files are named.
    static const QStringList videos = {".avi", ".wmv", ".mpg", ".mp4", ".flv", "m2ts"};
    if (!videos.contains(eintrag.right(4)))
        return;
    imgStop_Click();
    EreignisseZulassen();
    frmWinMediaPlayer* fenster = WinMediaPlayerFenster();
    fenster->show();
    fenster->raise();
    fenster->setURL(box.TextMusikpfad->text() + eintrag);
}

void Abspieler::chkVollbild_Click() { box.MediaPlayer1->setFullScreen(box.chkVollbild->isChecked()); }

void Abspieler::chkVisualisierung_Click()
{
    MediaPlayer1Zeigen(false);
    if (box.chkVisualisierung->isChecked()) {
        box.Platz(box.MediaPlayer1, 1560, 1380, 6870, 4150);
        Speichern(QStringLiteral("WinMediaPlayerVisualisierung"), QStringLiteral("1"));
    } else {
        box.Platz(box.MediaPlayer1, 1560, 4575, 6870, 960);
        Speichern(QStringLiteral("WinMediaPlayerVisualisierung"), QStringLiteral("0"));
    }
    if (box.MediaPlayer1Spieler->playState() == Medienspieler::Spielt)
        MediaPlayer1Zeigen(true);
    AudioanzeigeAktualisieren();
}

void Abspieler::mnuWinPlayerVerwenden_Click()
{
    // The action has toggled its mark; nothing that plays is touched.
    Speichern(QStringLiteral("WinMediaPlayer"),
              box.mnuWinPlayerVerwenden->isChecked() ? QStringLiteral("True") : QStringLiteral("False"));
}
