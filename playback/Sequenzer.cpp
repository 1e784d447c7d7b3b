#include "playback/Sequenzer.h"

#include "shell/Ausgabebox.h"

#include "platform/Dialogdienst.h"
#include "platform/Dienste.h"
#include "platform/Medien.h"
#include "platform/Uhr.h"
#include "playback/Abspieler.h"
#include "playback/MiniPlayer.h"
#include "playback/Trackliste.h"
#include "playback/Zufallswahl.h"
#include "playback/frmWinMediaPlayer.h"
#include "shell/Einstellungen.h"
#include "shell/Globale.h"
#include "shell/Grundregeln.h"
#include "shell/Steuerelemente.h"

#include <QAction>
#include <QCheckBox>
#include <QTreeWidget>

namespace {

double uhrzeit() { return D().uhr().sekundenSeitMitternacht(); }

// The re-entry guard of a timer handler that waits.
struct Sperre {
    bool& flag;
    explicit Sperre(bool& f)
        : flag(f)
    {
        flag = true;
    }
    ~Sperre() { flag = false; }
};

} // namespace

void Sequenzer::verbinden()
{
    connect(box.Timer1, &Zeitgeber::Timer, this, [this] { Timer1_Timer(); });
    connect(box.Timer2, &Zeitgeber::Timer, this, [this] { Timer2_Timer(); });
    // A box that a handler sets runs its own handler in turn, when its value really changes.
    KlickVerbinden(box.chkAlleTracks, this, [this] { chkAlleTracks_Click(); });
    KlickVerbinden(box.chkMarkTracks, this, [this] { chkMarkTracks_Click(); });
    KlickVerbinden(box.chkShuffle, this, [this] { chkShuffle_Click(); });
    KlickVerbinden(box.chkTracksAnspielen, this, [this] { chkTracksAnspielen_Click(); });
    BefehlVerbinden(box.mnuPauseZwischenTracks, this, [this] { mnuPauseZwischenTracks_Click(); });
    BefehlVerbinden(box.mnuLaufschrift, this, [this] { mnuLaufschrift_Click(); });
}

void Sequenzer::chkAlleTracks_Click()
{
    if (box.chkAlleTracks->isChecked()) {
        box.chkRepeat->setEnabled(true);
        box.chkShuffle->setChecked(false);
        box.chkShuffle->setEnabled(false);
        box.chkTracksZufaellig->setEnabled(true);
        box.chkTracksAnspielen->setEnabled(true);
        box.chkMarkTracks->setChecked(false);
        box.chkMarkTracks->setEnabled(false);
    } else {
        box.chkRepeat->setChecked(false);
        box.chkRepeat->setEnabled(false);
        box.chkShuffle->setEnabled(true);
        box.chkTracksZufaellig->setEnabled(false);
        box.chkTracksAnspielen->setEnabled(false);
        box.chkMarkTracks->setChecked(false);
        box.chkMarkTracks->setEnabled(true);
        box.Timer1->setEnabled(false);
    }
}

void Sequenzer::chkMarkTracks_Click()
{
    if (box.chkMarkTracks->isChecked()) {
        box.chkAlleTracks->setChecked(false);
        box.chkAlleTracks->setEnabled(false);
        box.chkRepeat->setChecked(false);
        box.chkRepeat->setEnabled(true);
        box.chkShuffle->setChecked(false);
        box.chkShuffle->setEnabled(false);
        box.chkTracksZufaellig->setChecked(false);
        box.chkTracksZufaellig->setEnabled(false);
        box.chkTracksAnspielen->setEnabled(true);
        TrackIndex = 0;
    } else {
        box.chkAlleTracks->setChecked(false);
        box.chkAlleTracks->setEnabled(true);
        box.chkRepeat->setChecked(false);
        box.chkRepeat->setEnabled(false);
        box.chkShuffle->setChecked(false);
        box.chkShuffle->setEnabled(true);
        box.chkTracksZufaellig->setChecked(false);
        box.chkTracksZufaellig->setEnabled(false);
        box.chkTracksAnspielen->setChecked(false);
        box.chkTracksAnspielen->setEnabled(false);
        box.Timer1->setEnabled(false);
    }
}

void Sequenzer::chkShuffle_Click()
{
    if (box.chkShuffle->isChecked()) {
        box.chkAlleTracks->setChecked(false);
        box.chkAlleTracks->setEnabled(false);
        box.chkRepeat->setChecked(false);
        box.chkRepeat->setEnabled(false);
        box.chkTracksZufaellig->setChecked(false);
        box.chkTracksZufaellig->setEnabled(false);
        box.chkTracksAnspielen->setEnabled(true);
        box.chkMarkTracks->setChecked(false);
        box.chkMarkTracks->setEnabled(false);
        const QString antwort =
            InputNimb(QStringLiteral("Bei der Shuffle-Funktion können Sie pro Datenträger mehrere Songs abspielen "
                                     "lassen!\n\nWieviele Songs pro Datenträger abspielen?"),
                      QStringLiteral("Songs pro Datenträger"), Lesen(QStringLiteral("ShuffleSongProCD"), QStringLiteral("1")));
        if (!antwort.isEmpty()) {
            Speichern(QStringLiteral("ShuffleSongProCD"), antwort);
            box.ShuffleSongProCD = GanzeZahl(antwort);
        }
    } else {
        box.chkAlleTracks->setChecked(false);
        box.chkAlleTracks->setEnabled(true);
        box.chkRepeat->setChecked(false);
        box.chkRepeat->setEnabled(false);
        box.chkTracksZufaellig->setChecked(false);
        box.chkTracksZufaellig->setEnabled(false);
        box.chkTracksAnspielen->setEnabled(false);
        box.chkMarkTracks->setChecked(false);
        box.chkMarkTracks->setEnabled(true);
        box.SongZaehler = 1;
        box.Timer1->setEnabled(false);
        box.abspieler().imgStop_Click();
    }
}

void Sequenzer::chkTracksAnspielen_Click()
{
    if (!box.chkTracksAnspielen->isChecked())
        return;
    const QString antwort = InputNimb(
        QStringLiteral("Wie lange soll der Track angespielt werden?\n\nDefault (Sek.) = 10"),
        QStringLiteral("Track & Movie anspielen"), Lesen(QStringLiteral("TracksAnspielen"), QStringLiteral("10")));
    if (antwort.isEmpty())
        return;
    if (const auto sekunden = Zahl(antwort); sekunden && *sekunden < 2) {
        MsgNimb(QStringLiteral("Mindestanspielzeit ist 2 Sekunden"), 1, 0, QStringLiteral("Sicherheitshinweis"), 0);
        box.chkTracksAnspielen->setChecked(false);
        return;
    }
    Speichern(QStringLiteral("TracksAnspielen"), antwort);
    // Sampling turns the wait between Tracks off until it is set again.
    Speichern(QStringLiteral("PauseZwischenTracks"), QStringLiteral("0"));
}

void Sequenzer::mnuPauseZwischenTracks_Click()
{
    for (;;) {
        const QString antwort =
            InputNimb(QStringLiteral("Geben Sie die Wartezeit in Sekunden zwischen den einzelnen Tracks ein"),
                      QStringLiteral("Pause zwischen den Tracks"),
                      Lesen(QStringLiteral("PauseZwischenTracks"), QStringLiteral("0")));
        if (antwort.isEmpty())
            return;
        if (Val(antwort) > 60
            && MsgNimb(QStringLiteral("Die Wartezeit ist größer als 60 Sekunden, \n"
                                      "soll diese Wartezeit übernommen werden?"),
                       22, 1, QStringLiteral("Sicherheitsabfrage"), 0)
                   == u"Nein")
            continue;
        Speichern(QStringLiteral("PauseZwischenTracks"), antwort);
        return;
    }
}

void Sequenzer::mnuLaufschrift_Click()
{
    // The action has toggled its mark.
    Speichern(QStringLiteral("Laufschrift"), box.mnuLaufschrift->isChecked() ? QStringLiteral("ein")
                                                                         : QStringLiteral("aus"));
}

bool Sequenzer::TrackZuEnde(bool mitAnspielen) const
{
    if ((mitAnspielen && box.chkTracksAnspielen->isChecked()) || !box.mnuWinPlayerVerwenden->isChecked())
        return uhrzeit() > box.abspieler().TrackEndeZeit;
    if (box.abspieler().FensterMedium)
        return !box.abspieler().WinMediaPlayer || box.abspieler().WinMediaPlayer->playState() == Medienspieler::Gestoppt;
    return box.MediaPlayer1Spieler->playState() == Medienspieler::Gestoppt;
}

void Sequenzer::ListenEndeStoppen()
{
    EreignisseZulassen();
    Warten(500);
    box.abspieler().imgStop_Click();
}

bool Sequenzer::NaechsterTrack()
{
    const int anzahl = box.filTrack->count();
    if (TrackIndex >= anzahl - 1) {
        if (!box.chkRepeat->isChecked()) {
            ListenEndeStoppen();
            return false;
        }
        TrackIndex = 0;
        return true;
    }
    // The same Track again: no combination of the boxes leads here, the test stands.
    if (box.chkRepeat->isChecked() && !box.chkAlleTracks->isChecked() && !box.chkMarkTracks->isChecked())
        return true;
    ++TrackIndex;
    return true;
}

bool Sequenzer::ZufallsTrack()
{
    const int anzahl = box.filTrack->count();
    const double r = D().zufall().Rnd();
    const int kandidat = int(float(anzahl - 1) * float(r) + 1.0f);
    const int obergrenze = int(TrackGespielt.size()) - 1;
    // A candidate behind the marks is taken as it is: the reads that would fail are skipped.
    if (kandidat > obergrenze || TrackGespielt[size_t(kandidat)] == 0) {
        if (kandidat <= obergrenze)
            TrackGespielt[size_t(kandidat)] = 1;
        TrackIndex = kandidat;
        return true;
    }
    for (int i = 0; i <= obergrenze; ++i) {
        if (TrackGespielt[size_t(i)] == 0) {
            TrackGespielt[size_t(i)] = 1;
            TrackIndex = i;
            return true;
        }
    }
    std::fill(TrackGespielt.begin(), TrackGespielt.end(), 0);
    if (!box.chkRepeat->isChecked()) {
        ListenEndeStoppen();
        return false;
    }
    TrackIndex = 0;
    return true;
}

bool Sequenzer::PlaylistZeileWaehlen()
{
    const int zeilen = box.lvwPlaylist->topLevelItemCount();
    auto angehakt = [this](int nr) {
        QTreeWidgetItem* z = box.lvwPlaylist->topLevelItem(nr - 1);
        return z && z->checkState(0) == Qt::Checked;
    };
    auto waehlen = [this](int nr) {
        if (QTreeWidgetItem* z = box.lvwPlaylist->topLevelItem(nr - 1)) {
            box.lvwPlaylist->setCurrentItem(z);
            box.lvwPlaylist->scrollToItem(z);
        }
    };
    if (TrackIndex == 0)
        TrackIndex = 1;
    if (box.chkShuffle->isChecked()) {
        box.zufallswahl().TontraegerZufaellig();
        return true;
    }
    if (box.chkTracksZufaellig->isChecked()) {
        const double r = D().zufall().Rnd();
        const int kandidat = int(float(zeilen - 1) * float(r) + 1.0f);
        const int obergrenze = int(TrackGespielt.size()) - 1;
        auto frei = [&](int nr) { return nr <= obergrenze && TrackGespielt[size_t(nr)] == 0; };
        int gewaehlt = 0;
        if (angehakt(kandidat) && frei(kandidat)) {
            gewaehlt = kandidat;
        } else {
            for (int i = 1; i <= obergrenze && !gewaehlt; ++i)
                if (angehakt(i) && frei(i))
                    gewaehlt = i;
        }
        if (gewaehlt) {
            TrackGespielt[size_t(gewaehlt)] = 1;
            TrackIndex = gewaehlt;
        } else {
            std::fill(TrackGespielt.begin(), TrackGespielt.end(), 0);
            if (!box.chkRepeat->isChecked()) {
                ListenEndeStoppen();
                return false;
            }
            TrackIndex = 1;
        }
        waehlen(TrackIndex);
        return true;
    }
    auto ersteAngehakte = [&](int von) {
        for (int r = von; r <= zeilen; ++r)
            if (angehakt(r))
                return r;
        return 0;
    };
    if (TrackIndex >= zeilen) {
        if (!box.chkRepeat->isChecked()) {
            ListenEndeStoppen();
            return false;
        }
        TrackIndex = 1;
        if (const int r = ersteAngehakte(1))
            TrackIndex = r;
        // Row 1 is selected, not the row found: this stands.
        waehlen(1);
        return true;
    }
    if (box.chkRepeat->isChecked() && !box.chkAlleTracks->isChecked() && !box.chkMarkTracks->isChecked())
        return true;
    TrackIndex = TrackIndex + 1 > zeilen ? 1 : TrackIndex + 1;
    int treffer = ersteAngehakte(TrackIndex);
    if (!treffer) {
        if (!box.chkRepeat->isChecked()) {
            ListenEndeStoppen();
            return false;
        }
        TrackIndex = 1;
        treffer = ersteAngehakte(1);
    }
    if (treffer)
        TrackIndex = treffer;
    waehlen(TrackIndex);
    return true;
}

void Sequenzer::Timer1_Timer()
{
    if (m_timer1Laeuft)
        return;
    const Sperre sperre(m_timer1Laeuft);
    // A catalogue where every choice is excluded would make this loop endless: after
    // this many choices in one tick the sequencer gives up and stops.
    const int hoechstens = 4 * (box.filTrack->count() + box.lvwPlaylist->topLevelItemCount()) + 1000;
    for (int wahl = 0;; ++wahl) {
        if (!TrackZuEnde(true))
            return;
        box.Timer1->setEnabled(false);
        if (wahl >= hoechstens) {
            box.abspieler().imgStop_Click();
            return;
        }
        if (PlaylistModus) {
            if (!PlaylistZeileWaehlen())
                return;
            break;
        }
        if (box.chkShuffle->isChecked())
            box.zufallswahl().TontraegerZufaellig();
        else if (box.chkTracksZufaellig->isChecked()) {
            if (!ZufallsTrack())
                return;
        } else if (!NaechsterTrack()) {
            return;
        }
        if (box.zufallswahl().TontraegerAusgeschlossen())
            continue;
        box.trackliste().TextSongAktualisieren();
        break;
    }

    const int pause = GanzeZahl(Lesen(QStringLiteral("PauseZwischenTracks"), QStringLiteral("0")));
    if (pause <= 0) {
        Warten(500);
    } else {
        for (int i = 1; i <= pause; ++i) {
            box.imgPause[0]->hide();
            box.imgPause[1]->show();
            box.staBar->setPanelText(2, QString::number(pause + 1 - i) + QStringLiteral(" Sek. Pause"));
            box.miniPlayer().PauseZeigen(QString::number(pause + 1 - i) + QStringLiteral(" Sek. Pause"));
            Warten(1000);
            if (Abbruch) {
                Abbruch = false;
                box.imgPause[0]->show();
                box.imgPause[1]->hide();
                box.miniPlayer().PauseBeendet();
                break;
            }
        }
    }
    if (StopGedrueckt)
        box.abspieler().imgStop_Click();
    else
        box.abspieler().imgStart_Click();
}

QString Sequenzer::LaufschriftText(int phase, bool spielendeZeile) const
{
    auto ohneEndung = [](QString name) {
        const qsizetype punkt = name.lastIndexOf(u'.');
        if (punkt >= 0)
            name.truncate(punkt);
        return name;
    };
    if (PlaylistModus) {
        const QTreeWidgetItem* zeile = spielendeZeile ? box.lvwPlaylist->topLevelItem(TrackIndex - 1)
                                                      : box.lvwPlaylist->currentItem();
        if (!zeile)
            return {};
        if (phase == 1)
            return zeile->text(1).chopped(std::min<qsizetype>(1, zeile->text(1).size()));
        if (phase == 2)
            return zeile->text(0).chopped(std::min<qsizetype>(4, zeile->text(0).size()));
        return ohneEndung(zeile->text(0));
    }
    if (phase == 1)
        return box.TextBand->text();
    if (phase == 2)
        return box.TextLPTitel->text();
    return ohneEndung(box.filTrack->List(TrackIndex));
}

void Sequenzer::Timer2_Timer()
{
    if (m_timer2Laeuft)
        return;
    const Sperre sperre(m_timer2Laeuft);
    m_laufschriftPhase = m_laufschriftPhase + 1 > 3 ? 1 : m_laufschriftPhase + 1;
    // After each letter: a window that is shown again, or a stopped title, ends the tick.
    auto abbrechen = [this] {
        if (box.isMinimized() && box.Timer2->isEnabled())
            return false;
        box.setWindowTitle(Ausgabebox::Titel);
        m_laufschriftPhase = 0;
        return true;
    };
    QString text = LaufschriftText(m_laufschriftPhase);
    for (int i = 1; i <= text.size(); ++i) {
        box.setWindowTitle(text.left(i));
        Warten(120);
        if (abbrechen())
            return;
    }
    Warten(500);
    text = LaufschriftText(m_laufschriftPhase);
    for (int i = int(text.size()); i >= 0; --i) {
        box.setWindowTitle(text.right(i));
        Warten(120);
        if (abbrechen())
            return;
    }
    if (TrackZuEnde(false)) {
        box.Timer2->setEnabled(false);
        box.setWindowTitle(Ausgabebox::Titel);
    }
}
