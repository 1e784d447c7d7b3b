// The transport of the main window: start, stop, pause, resume, step and loop, on the
// two sound paths. Like all of the player, it ignores failures: a step that fails is
// skipped and nothing is reported.
#include "shell/Ausgabebox.h"

#include "catalogue/Datensteuerung.h"
#include "catalogue/FlexGrid.h"
#include "platform/Dienste.h"
#include "platform/Einheiten.h"
#include "platform/Medien.h"
#include "platform/Pfade.h"
#include "platform/Uhr.h"
#include "playback/Audioanzeige.h"
#include "playback/frmWinMediaPlayer.h"
#include "playback/modPlatten.h"
#include "shell/Einstellungen.h"
#include "shell/FensterPlatzieren.h"
#include "shell/Globale.h"
#include "shell/Steuerelemente.h"

#include <QAction>
#include <QCheckBox>
#include <QCoreApplication>
#include <QCursor>
#include <QFileInfo>
#include <QLabel>
#include <QMenu>
#include <QPushButton>
#include <QTabBar>
#include <QTreeWidget>
#include <QVideoWidget>

#include <cmath>

const QString Ausgabebox::Alias = QStringLiteral("MyAlias");

namespace {

void warten() { QCoreApplication::processEvents(); }

double uhrzeit() { return D().uhr().sekundenSeitMitternacht(); }

// The last four characters in lower case, as the start command tests endings.
QString endung(const QString& name) { return name.right(4).toLower(); }

bool gehoertInsFenster(const QString& name)
{
    static const QStringList endungen = {".avi", ".wmv", ".mpg", ".jpg", "jpeg", ".gif", ".png",
                                         ".bmp", ".tif", "tiff", ".pcx", ".rle", ".wmf", ".dib",
                                         ".emf", ".cur", ".mp4", ".flv", "m2ts"};
    return endungen.contains(endung(name));
}

double anspielzeit()
{
    bool ok = false;
    const double s = Lesen(QStringLiteral("TracksAnspielen"), QStringLiteral("10")).toDouble(&ok);
    return ok ? s : 10.0;
}

} // namespace

frmWinMediaPlayer* Ausgabebox::WinMediaPlayerFenster()
{
    if (!WinMediaPlayer) {
        WinMediaPlayer = new frmWinMediaPlayer(this);
        WinMediaPlayer->Form_Load();
        connect(WinMediaPlayer, &QObject::destroyed, this, [this] { WinMediaPlayer = nullptr; });
    }
    return WinMediaPlayer;
}

void Ausgabebox::MediaPlayer1Zeigen(bool sichtbar)
{
    MediaPlayer1Sichtbar = sichtbar;
    AudioanzeigeAktualisieren();
}

void Ausgabebox::AudioanzeigeAktualisieren()
{
    // The control lives on the covers' tab and shows there only. While audio plays
    // there is no picture: the audio display stands in its place.
    static const QStringList videos = {"avi", "wmv", "mpg", "mpeg", "mp4", "m4v", "flv", "m2ts", "mkv",
                                       "webm", "ogv", "mov", "3gp"};
    const bool sichtbar = MediaPlayer1Sichtbar && tabTexte->currentIndex() == 0 && !lvwPlaylist->isVisible();
    const QString url = MediaPlayer1Spieler->URL();
    const bool audio = !url.isEmpty() && !videos.contains(QFileInfo(url).suffix().toLower());
    MediaPlayer1->setVisible(sichtbar && !audio);
    if (MediaPlayer1->isVisible())
        MediaPlayer1->raise();
    if (!sichtbar || !audio) {
        MediaPlayer1Audio->hide();
        return;
    }
    MediaPlayer1Audio->setGeometry(MediaPlayer1->geometry());
    MediaPlayer1Audio->setTitel(QFileInfo(url).completeBaseName());
    MediaPlayer1Audio->setCover(Bild1->Bild().isNull() ? imgBildpfad->Bild() : Bild1->Bild());
    MediaPlayer1Audio->show();
    MediaPlayer1Audio->raise();
}

void Ausgabebox::SonderfunktionenAus()
{
    WmpPause = false;
    PosAGesetzt = false;
    PosA = 0;
    imgPosAB[0]->show();
    imgPosAB[1]->hide();
    imgPosAB[2]->hide();
    TimerPosAB->setEnabled(false);
    imgPause[0]->show();
    imgPause[1]->hide();
}

void Ausgabebox::imgStart_Click()
{
    // A file whose name begins with an apostrophe always goes to its own program.
    if (filTrack->List(TrackIndex).startsWith(u'\'')) {
        cmdPlayAsso_Click();
        return;
    }
    StopGedrueckt = false;
    MciStoppen(Alias);
    if (FensterMedium && WinMediaPlayer)
        WinMediaPlayer->MedienSchliessen();
    warten();
    SonderfunktionenAus();
    SpalteStil = -1;
    for (int c = 0; c < 18 && SpalteStil < 0; ++c)
        if (MSFlexGrid1->TextMatrix(0, c) == u"Stil")
            SpalteStil = c;
    if (chkAlleTracks->isChecked() || chkRepeat->isChecked() || chkShuffle->isChecked()
        || chkMarkTracks->isChecked())
        Timer1->setEnabled(true);
    if (isMinimized() && mnuLaufschrift->isChecked())
        Timer2->setEnabled(true);

    const bool wmp = mnuWinPlayerVerwenden->isChecked();
    if (PlaylistModus) {
        if (TrackIndex == 0)
            TrackIndex = 1;
        const int zeilen = lvwPlaylist->topLevelItemCount();
        auto zeile = [this](int nr) { return lvwPlaylist->topLevelItem(nr - 1); };
        if (chkMarkTracks->isChecked()) {
            int treffer = 0;
            for (int r = TrackIndex; r <= zeilen && !treffer; ++r)
                if (zeile(r)->checkState(0) == Qt::Checked)
                    treffer = r;
            if (treffer) {
                TrackIndex = treffer;
                lvwPlaylist->setCurrentItem(zeile(treffer));
                BewertungTracks();
                lvwPlaylist->scrollToItem(zeile(treffer));
            } else {
                if (!chkRepeat->isChecked())
                    imgStop_Click();
                TrackIndex = 1;
                if (QTreeWidgetItem* erste = zeile(1)) {
                    lvwPlaylist->setCurrentItem(erste);
                    BewertungTracks();
                    lvwPlaylist->scrollToItem(erste);
                }
                return;
            }
        }
        QTreeWidgetItem* z = zeile(TrackIndex);
        const QString pfad = z ? z->text(2) + z->text(1) + z->text(0) : QString();
        const QString name = z ? z->text(0) : QString();
        if (!wmp) {
            const double laenge = BassTracklaenge(pfad);
            BewertungTracks();
            MciDateiAbspielen(pfad, Alias);
            warten();
            TrackEndeZeit = uhrzeit() + laenge;
        } else if (endung(name) == u".mov") {
            BewertungTracks();
            MciDateiAbspielen(pfad, Alias);
            warten();
        } else {
            MediaPlayerPfad(pfad);
        }
        if (chkTracksAnspielen->isChecked()) {
            TrackEndeZeit = uhrzeit() + anspielzeit();
            BewertungTracks();
        }
        SpielOrdner = OrdnerAusPfad(pfad);
        AktuelleCDanzeigen();
        BewertungTracks();
        staBar->setPanelText(2, QStringLiteral("playing:  ") + pfad);
        LaufenderTrack = staBar->PanelText(2).trimmed();
        if (chkTracksZufaellig->isChecked()) {
            if (TrackIndex >= int(TrackGespielt.size()))
                TrackGespielt.resize(size_t(TrackIndex) + 1, 0);
            TrackGespielt[size_t(TrackIndex)] = 1;
            BewertungTracks();
        }
        PlaylistTitelErzwingen = true;
        SuchenPlaylistTitel();
    } else {
        if (!chkMarkTracks->isChecked()) {
            filTrack->clearSelection();
            filTrack->setSelected(TrackIndex, true);
        } else {
            int treffer = -1;
            for (int i = TrackIndex; i < filTrack->count() && treffer < 0; ++i)
                if (filTrack->Selected(i))
                    treffer = i;
            if (treffer >= 0) {
                TrackIndex = treffer;
                BewertungTracks();
            } else {
                if (!chkRepeat->isChecked())
                    imgStop_Click();
                TrackIndex = 0;
                BewertungTracks();
                return;
            }
        }
        // The field holds its trailing "/": the name follows it directly.
        const QString eintrag = filTrack->List(TrackIndex);
        const QString pfad = TextMusikpfad->text() + eintrag;
        const QString nummer = QStringLiteral("Tracks && Movies Nr.: ") + QString::number(TrackIndex + 1);
        if (!wmp) {
            const double laenge = BassTracklaenge(pfad);
            MciDateiAbspielen(pfad, Alias);
            Bez[12]->setText(nummer);
            BewertungTracks();
            warten();
            TrackEndeZeit = uhrzeit() + laenge;
        } else if (endung(eintrag) == u".mov") {
            MciDateiAbspielen(pfad, Alias);
            Bez[12]->setText(nummer);
            BewertungTracks();
            warten();
        } else {
            MediaPlayerPfad(pfad);
            Bez[12]->setText(nummer);
            BewertungTracks();
            warten();
        }
        if (chkTracksZufaellig->isChecked()) {
            if (TrackIndex >= int(TrackGespielt.size()))
                TrackGespielt.resize(size_t(TrackIndex) + 1, 0);
            TrackGespielt[size_t(TrackIndex)] = 1;
            BewertungTracks();
        }
        if (chkTracksAnspielen->isChecked()) {
            TrackEndeZeit = uhrzeit() + anspielzeit();
            BewertungTracks();
        }
        SpielOrdner = TextMusikpfad->text();
        LaufenderTrack = QStringLiteral("playing:  ") + TextMusikpfad->text() + eintrag;
        staBar->setPanelText(2, LaufenderTrack);
    }
    // Room for the player control below the cover.
    if (wmp && endung(filTrack->List(TrackIndex)) != u".mov") {
        Bild1->resize(Bild1->width(), Px(3195));
        imgBildpfad->resize(imgBildpfad->width(), Px(3195));
    }
    TextSongAktualisieren();
}

void Ausgabebox::MediaPlayerPfad(const QString& pfad)
{
    if (MediaPlayer1Sichtbar) {
        MediaPlayer1Spieler->close();
        warten();
    }
    cmdInfoTrack->show();
    FensterMedium = gehoertInsFenster(filTrack->List(TrackIndex));
    if (!FensterMedium && WinMediaPlayer)
        WinMediaPlayer->MedienSchliessen();
    MediaPlayer1Zeigen(true);
    if (FensterMedium) {
        frmWinMediaPlayer* fenster = WinMediaPlayerFenster();
        fenster->show();
        fenster->raise();
        fenster->setURL(pfad);
    } else {
        MediaPlayer1Spieler->setURL(pfad);
    }
    AudioanzeigeAktualisieren();
}

void Ausgabebox::imgStop_Click()
{
    if (staBar->PanelText(2).contains(u"Pause"))
        Abbruch = true;
    Timer1->setEnabled(false);
    Timer2->setEnabled(false);
    if (FensterMedium && WinMediaPlayer)
        WinMediaPlayer->MedienSchliessen();
    cmdInfoTrack->hide();
    warten();
    setWindowTitle(Titel);
    staBar->setPanelText(2, QStringLiteral("no play"));
    Bild1->resize(Bild1->width(), Px(4150));
    imgBildpfad->resize(imgBildpfad->width(), Px(4150));
    SonderfunktionenAus();
    if (chkMarkTracks->isChecked())
        TrackIndex = 0;
    if (mnuWinPlayerVerwenden->isChecked()) {
        ResumePosition = int(std::lround(MediaPlayer1Spieler->currentPosition()));
        if (PlaylistModus) {
            QTreeWidgetItem* gewaehlt = lvwPlaylist->currentItem();
            ResumeIndex = gewaehlt ? lvwPlaylist->indexOfTopLevelItem(gewaehlt) + 1 : 0;
            TrackIndex = ResumeIndex;
        } else {
            ResumeIndex = TrackIndex;
            ResumeOrdner = TextMusikpfad->text();
        }
        MediaPlayer1Spieler->close();
        MediaPlayer1Zeigen(false);
    }
    MciStoppen(Alias);
    warten();
}

void Ausgabebox::imgPause_Click()
{
    const QString status = staBar->PanelText(2);
    if (status == u"no play")
        return;
    if (status.contains(u"Pause")) {
        // Ends the wait between Tracks at once.
        Abbruch = true;
        return;
    }
    WmpPause = !WmpPause;
    if (WmpPause)
        MediaPlayer1Spieler->pause();
    else
        MediaPlayer1Spieler->play();
    imgPause[0]->setVisible(!WmpPause);
    imgPause[1]->setVisible(WmpPause);
}

void Ausgabebox::imgResume_Click()
{
    if (PlaylistModus) {
        if (QTreeWidgetItem* zeile = lvwPlaylist->topLevelItem(ResumeIndex - 1))
            lvwPlaylist->setCurrentItem(zeile);
    } else {
        const int musik = SpalteSuchen(QStringLiteral("Musikpfad"));
        for (int zeile = 1; musik >= 0 && zeile < MSFlexGrid1->Rows(); ++zeile) {
            if (MSFlexGrid1->TextMatrix(zeile, musik) == ResumeOrdner) {
                Data1->setAbsolutePosition(zeile - 1);
                break;
            }
        }
    }
    warten();
    TrackIndex = ResumeIndex;
    imgStart_Click();
    MediaPlayer1Spieler->setCurrentPosition(ResumePosition);
}

void Ausgabebox::imgVorBack_Click(int index)
{
    SonderfunktionenAus();
    const bool markiert = chkMarkTracks->isChecked();
    if (!PlaylistModus) {
        const int letzte = filTrack->count() - 1;
        if (index == 0) {
            if (TrackIndex > 0) {
                if (markiert) {
                    for (int i = TrackIndex - 1; i >= 0; --i)
                        if (filTrack->Selected(i)) {
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
                    if (filTrack->Selected(i)) {
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
    const int zeilen = lvwPlaylist->topLevelItemCount();
    if (zeilen == 0)
        return;
    auto angehakt = [this](int nr) {
        QTreeWidgetItem* z = lvwPlaylist->topLevelItem(nr - 1);
        return z && z->checkState(0) == Qt::Checked;
    };
    auto nehmen = [this](int nr) {
        TrackIndex = nr;
        QTreeWidgetItem* z = lvwPlaylist->topLevelItem(nr - 1);
        lvwPlaylist->setCurrentItem(z);
        lvwPlaylist->scrollToItem(z);
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

void Ausgabebox::imgPosAB_Click()
{
    if (staBar->PanelText(2) == u"no play")
        return;
    const int position = int(std::lround(MediaPlayer1Spieler->currentPosition()));
    int bild;
    if (PosAGesetzt) {
        PosAGesetzt = false;
        PosB = position;
        TimerPosAB->setEnabled(true);
        bild = 2;
    } else if (PosA != 0) {
        PosA = 0;
        TimerPosAB->setEnabled(false);
        bild = 0;
    } else {
        PosAGesetzt = true;
        TimerPosAB->setEnabled(false);
        PosA = position;
        bild = 1;
    }
    for (int i = 0; i < 3; ++i)
        imgPosAB[i]->setVisible(i == bild);
}

void Ausgabebox::TimerPosAB_Timer()
{
    if (MediaPlayer1Spieler->currentPosition() >= PosB)
        MediaPlayer1Spieler->setCurrentPosition(PosA);
}

void Ausgabebox::cmdPlayAsso_Click()
{
    imgStop_Click();
    warten();
    const QString pfad = TextMusikpfad->text() + filTrack->List(TrackIndex);
    warten();
    D().shell().oeffnen(pfad);
}

void Ausgabebox::MiniPlayerVorBackStart() { imgStart_Click(); }

void Ausgabebox::MiniPlayerStop()
{
    StopGedrueckt = true;
    imgStop_Click();
}

void Ausgabebox::MediaPlayer1_PlayStateChange(int zustand)
{
    if (chkVollbild->isChecked())
        MediaPlayer1->setFullScreen(true);
    if (zustand == Medienspieler::Gestoppt)
        staBar->setPanelText(2, QStringLiteral("no play"));
}

void Ausgabebox::MediaPlayer1_MouseDown(Qt::MouseButton knopf)
{
    if (knopf == Qt::RightButton) {
        mnuBild->setDefaultAction(MenuBildkopieren);
        mnuBild->popup(QCursor::pos());
        return;
    }
    if (knopf != Qt::LeftButton)
        return;
    const QString eintrag = filTrack->List(TrackIndex);
    // The ending in its own case, as the files are named.
    static const QStringList videos = {".avi", ".wmv", ".mpg", ".mp4", ".flv", "m2ts"};
    if (!videos.contains(eintrag.right(4)))
        return;
    imgStop_Click();
    warten();
    frmWinMediaPlayer* fenster = WinMediaPlayerFenster();
    fenster->show();
    fenster->raise();
    fenster->setURL(TextMusikpfad->text() + eintrag);
}

void Ausgabebox::chkVollbild_Click() { MediaPlayer1->setFullScreen(chkVollbild->isChecked()); }

void Ausgabebox::chkVisualisierung_Click()
{
    MediaPlayer1Zeigen(false);
    if (chkVisualisierung->isChecked()) {
        Platz(MediaPlayer1, 1560, 1380, 6870, 4150);
        Speichern(QStringLiteral("WinMediaPlayerVisualisierung"), QStringLiteral("1"));
    } else {
        Platz(MediaPlayer1, 1560, 4575, 6870, 960);
        Speichern(QStringLiteral("WinMediaPlayerVisualisierung"), QStringLiteral("0"));
    }
    if (MediaPlayer1Spieler->playState() == Medienspieler::Spielt)
        MediaPlayer1Zeigen(true);
    AudioanzeigeAktualisieren();
}

void Ausgabebox::mnuWinPlayerVerwenden_Click()
{
    // The action has toggled its mark; nothing that plays is touched.
    Speichern(QStringLiteral("WinMediaPlayer"),
              mnuWinPlayerVerwenden->isChecked() ? QStringLiteral("True") : QStringLiteral("False"));
}

void Ausgabebox::SuchenPlaylistTitel()
{
    // The playlist's title search comes with the playlists.
    PlaylistTitelErzwingen = false;
}
