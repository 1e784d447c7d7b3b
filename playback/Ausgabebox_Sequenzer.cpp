// The sequencer: the tick of Timer1 finds the end of a track, chooses the next one,
// passes over excluded Carriers, waits and starts it; the six mode boxes keep themselves
// in legal combinations; Timer2 writes the running title into the minimised caption.
#include "playback/Abspieler.h"
#include "playback/Trackliste.h"
#include "shell/Ausgabebox.h"

#include "playback/Zufallswahl.h"

#include "platform/Dialogdienst.h"
#include "platform/Dienste.h"
#include "platform/Medien.h"
#include "platform/Uhr.h"
#include "playback/frmWinMediaPlayer.h"
#include "shell/Einstellungen.h"
#include "shell/Globale.h"
#include "shell/Steuerelemente.h"

#include <QAction>
#include <QCheckBox>
#include <QCoreApplication>
#include <QTreeWidget>

namespace {

void warten(int ms)
{
    D().uhr().warten(ms);
    QCoreApplication::processEvents();
}

double uhrzeit() { return D().uhr().sekundenSeitMitternacht(); }

// Jet's Val on a setting: the leading number, 0 when there is none.
double wert(const QString& text)
{
    QString zahl;
    for (const QChar c : text.trimmed()) {
        if (c.isDigit() || (c == u'.' && !zahl.contains(u'.')) || (c == u'-' && zahl.isEmpty()))
            zahl += c;
        else
            break;
    }
    return zahl.toDouble();
}

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

void Ausgabebox::ModusSetzen(QCheckBox* kasten, bool an)
{
    // A value changed by a handler fires the handler of that box, as a click would.
    if (kasten->isChecked() == an)
        return;
    kasten->setChecked(an);
    if (kasten == chkAlleTracks)
        chkAlleTracks_Click();
    else if (kasten == chkMarkTracks)
        chkMarkTracks_Click();
    else if (kasten == chkShuffle)
        chkShuffle_Click();
    else if (kasten == chkTracksAnspielen)
        chkTracksAnspielen_Click();
}

void Ausgabebox::chkAlleTracks_Click()
{
    if (chkAlleTracks->isChecked()) {
        chkRepeat->setEnabled(true);
        ModusSetzen(chkShuffle, false);
        chkShuffle->setEnabled(false);
        chkTracksZufaellig->setEnabled(true);
        chkTracksAnspielen->setEnabled(true);
        ModusSetzen(chkMarkTracks, false);
        chkMarkTracks->setEnabled(false);
    } else {
        ModusSetzen(chkRepeat, false);
        chkRepeat->setEnabled(false);
        chkShuffle->setEnabled(true);
        chkTracksZufaellig->setEnabled(false);
        chkTracksAnspielen->setEnabled(false);
        ModusSetzen(chkMarkTracks, false);
        chkMarkTracks->setEnabled(true);
        Timer1->setEnabled(false);
    }
}

void Ausgabebox::chkMarkTracks_Click()
{
    if (chkMarkTracks->isChecked()) {
        ModusSetzen(chkAlleTracks, false);
        chkAlleTracks->setEnabled(false);
        ModusSetzen(chkRepeat, false);
        chkRepeat->setEnabled(true);
        ModusSetzen(chkShuffle, false);
        chkShuffle->setEnabled(false);
        ModusSetzen(chkTracksZufaellig, false);
        chkTracksZufaellig->setEnabled(false);
        chkTracksAnspielen->setEnabled(true);
        TrackIndex = 0;
    } else {
        ModusSetzen(chkAlleTracks, false);
        chkAlleTracks->setEnabled(true);
        ModusSetzen(chkRepeat, false);
        chkRepeat->setEnabled(false);
        ModusSetzen(chkShuffle, false);
        chkShuffle->setEnabled(true);
        ModusSetzen(chkTracksZufaellig, false);
        chkTracksZufaellig->setEnabled(false);
        ModusSetzen(chkTracksAnspielen, false);
        chkTracksAnspielen->setEnabled(false);
        Timer1->setEnabled(false);
    }
}

void Ausgabebox::chkShuffle_Click()
{
    if (chkShuffle->isChecked()) {
        ModusSetzen(chkAlleTracks, false);
        chkAlleTracks->setEnabled(false);
        ModusSetzen(chkRepeat, false);
        chkRepeat->setEnabled(false);
        ModusSetzen(chkTracksZufaellig, false);
        chkTracksZufaellig->setEnabled(false);
        chkTracksAnspielen->setEnabled(true);
        ModusSetzen(chkMarkTracks, false);
        chkMarkTracks->setEnabled(false);
        const QString antwort =
            InputNimb(QStringLiteral("Bei der Shuffle-Funktion können Sie pro Datenträger mehrere Songs abspielen "
                                     "lassen!\n\nWieviele Songs pro Datenträger abspielen?"),
                      QStringLiteral("Songs pro Datenträger"), Lesen(QStringLiteral("ShuffleSongProCD"), QStringLiteral("1")));
        if (!antwort.isEmpty()) {
            Speichern(QStringLiteral("ShuffleSongProCD"), antwort);
            ShuffleSongProCD = int(wert(antwort));
        }
    } else {
        ModusSetzen(chkAlleTracks, false);
        chkAlleTracks->setEnabled(true);
        ModusSetzen(chkRepeat, false);
        chkRepeat->setEnabled(false);
        ModusSetzen(chkTracksZufaellig, false);
        chkTracksZufaellig->setEnabled(false);
        chkTracksAnspielen->setEnabled(false);
        ModusSetzen(chkMarkTracks, false);
        chkMarkTracks->setEnabled(true);
        SongZaehler = 1;
        Timer1->setEnabled(false);
        abspieler().imgStop_Click();
    }
}

void Ausgabebox::chkTracksAnspielen_Click()
{
    if (!chkTracksAnspielen->isChecked())
        return;
    const QString antwort = InputNimb(
        QStringLiteral("Wie lange soll der Track angespielt werden?\n\nDefault (Sek.) = 10"),
        QStringLiteral("Track & Movie anspielen"), Lesen(QStringLiteral("TracksAnspielen"), QStringLiteral("10")));
    if (antwort.isEmpty())
        return;
    bool zahl = false;
    const double sekunden = antwort.toDouble(&zahl);
    if (zahl && sekunden < 2) {
        MsgNimb(QStringLiteral("Mindestanspielzeit ist 2 Sekunden"), 1, 0, QStringLiteral("Sicherheitshinweis"), 0);
        ModusSetzen(chkTracksAnspielen, false);
        return;
    }
    Speichern(QStringLiteral("TracksAnspielen"), antwort);
    // Sampling turns the wait between Tracks off until it is set again.
    Speichern(QStringLiteral("PauseZwischenTracks"), QStringLiteral("0"));
}

void Ausgabebox::mnuPauseZwischenTracks_Click()
{
    for (;;) {
        const QString antwort =
            InputNimb(QStringLiteral("Geben Sie die Wartezeit in Sekunden zwischen den einzelnen Tracks ein"),
                      QStringLiteral("Pause zwischen den Tracks"),
                      Lesen(QStringLiteral("PauseZwischenTracks"), QStringLiteral("0")));
        if (antwort.isEmpty())
            return;
        if (wert(antwort) > 60
            && MsgNimb(QStringLiteral("Die Wartezeit ist größer als 60 Sekunden, \n"
                                      "soll diese Wartezeit übernommen werden?"),
                       22, 1, QStringLiteral("Sicherheitsabfrage"), 0)
                   == u"Nein")
            continue;
        Speichern(QStringLiteral("PauseZwischenTracks"), antwort);
        return;
    }
}

void Ausgabebox::mnuLaufschrift_Click()
{
    // The action has toggled its mark.
    Speichern(QStringLiteral("Laufschrift"), mnuLaufschrift->isChecked() ? QStringLiteral("ein")
                                                                         : QStringLiteral("aus"));
}

bool Ausgabebox::TrackZuEnde(bool mitAnspielen) const
{
    if ((mitAnspielen && chkTracksAnspielen->isChecked()) || !mnuWinPlayerVerwenden->isChecked())
        return uhrzeit() > abspieler().TrackEndeZeit;
    if (abspieler().FensterMedium)
        return !abspieler().WinMediaPlayer || abspieler().WinMediaPlayer->playState() == Medienspieler::Gestoppt;
    return MediaPlayer1Spieler->playState() == Medienspieler::Gestoppt;
}

void Ausgabebox::ListenEndeStoppen()
{
    QCoreApplication::processEvents();
    warten(500);
    abspieler().imgStop_Click();
}

bool Ausgabebox::NaechsterTrack()
{
    const int anzahl = filTrack->count();
    if (TrackIndex >= anzahl - 1) {
        if (!chkRepeat->isChecked()) {
            ListenEndeStoppen();
            return false;
        }
        TrackIndex = 0;
        return true;
    }
    // The same Track again: no combination of the boxes leads here, the test stands.
    if (chkRepeat->isChecked() && !chkAlleTracks->isChecked() && !chkMarkTracks->isChecked())
        return true;
    ++TrackIndex;
    return true;
}

bool Ausgabebox::ZufallsTrack()
{
    const int anzahl = filTrack->count();
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
    if (!chkRepeat->isChecked()) {
        ListenEndeStoppen();
        return false;
    }
    TrackIndex = 0;
    return true;
}

bool Ausgabebox::PlaylistZeileWaehlen()
{
    const int zeilen = lvwPlaylist->topLevelItemCount();
    auto angehakt = [this](int nr) {
        QTreeWidgetItem* z = lvwPlaylist->topLevelItem(nr - 1);
        return z && z->checkState(0) == Qt::Checked;
    };
    auto waehlen = [this](int nr) {
        if (QTreeWidgetItem* z = lvwPlaylist->topLevelItem(nr - 1)) {
            lvwPlaylist->setCurrentItem(z);
            lvwPlaylist->scrollToItem(z);
        }
    };
    if (TrackIndex == 0)
        TrackIndex = 1;
    if (chkShuffle->isChecked()) {
        zufallswahl().TontraegerZufaellig();
        return true;
    }
    if (chkTracksZufaellig->isChecked()) {
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
            if (!chkRepeat->isChecked()) {
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
        if (!chkRepeat->isChecked()) {
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
    if (chkRepeat->isChecked() && !chkAlleTracks->isChecked() && !chkMarkTracks->isChecked())
        return true;
    TrackIndex = TrackIndex + 1 > zeilen ? 1 : TrackIndex + 1;
    int treffer = ersteAngehakte(TrackIndex);
    if (!treffer) {
        if (!chkRepeat->isChecked()) {
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

void Ausgabebox::Timer1_Timer()
{
    if (m_timer1Laeuft)
        return;
    const Sperre sperre(m_timer1Laeuft);
    // A catalogue where every choice is excluded would make this loop endless: after
    // this many choices in one tick the sequencer gives up and stops.
    const int hoechstens = 4 * (filTrack->count() + lvwPlaylist->topLevelItemCount()) + 1000;
    for (int wahl = 0;; ++wahl) {
        if (!TrackZuEnde(true))
            return;
        Timer1->setEnabled(false);
        if (wahl >= hoechstens) {
            abspieler().imgStop_Click();
            return;
        }
        if (PlaylistModus) {
            if (!PlaylistZeileWaehlen())
                return;
            break;
        }
        if (chkShuffle->isChecked())
            zufallswahl().TontraegerZufaellig();
        else if (chkTracksZufaellig->isChecked()) {
            if (!ZufallsTrack())
                return;
        } else if (!NaechsterTrack()) {
            return;
        }
        if (zufallswahl().TontraegerAusgeschlossen())
            continue;
        trackliste().TextSongAktualisieren();
        break;
    }

    const int pause = int(wert(Lesen(QStringLiteral("PauseZwischenTracks"), QStringLiteral("0"))));
    if (pause <= 0) {
        warten(500);
    } else {
        for (int i = 1; i <= pause; ++i) {
            imgPause[0]->hide();
            imgPause[1]->show();
            staBar->setPanelText(2, QString::number(pause + 1 - i) + QStringLiteral(" Sek. Pause"));
            warten(1000);
            if (Abbruch) {
                Abbruch = false;
                imgPause[0]->show();
                imgPause[1]->hide();
                break;
            }
        }
    }
    if (StopGedrueckt)
        abspieler().imgStop_Click();
    else
        abspieler().imgStart_Click();
}

QString Ausgabebox::LaufschriftText(int phase) const
{
    auto ohneEndung = [](QString name) {
        const qsizetype punkt = name.lastIndexOf(u'.');
        if (punkt >= 0)
            name.truncate(punkt);
        return name;
    };
    if (PlaylistModus) {
        const QTreeWidgetItem* zeile = lvwPlaylist->currentItem();
        if (!zeile)
            return {};
        if (phase == 1)
            return zeile->text(1).chopped(std::min<qsizetype>(1, zeile->text(1).size()));
        if (phase == 2)
            return zeile->text(0).chopped(std::min<qsizetype>(4, zeile->text(0).size()));
        return ohneEndung(zeile->text(0));
    }
    if (phase == 1)
        return TextBand->text();
    if (phase == 2)
        return TextLPTitel->text();
    return ohneEndung(filTrack->List(TrackIndex));
}

void Ausgabebox::Timer2_Timer()
{
    if (m_timer2Laeuft)
        return;
    const Sperre sperre(m_timer2Laeuft);
    m_laufschriftPhase = m_laufschriftPhase + 1 > 3 ? 1 : m_laufschriftPhase + 1;
    // After each letter: a window that is shown again, or a stopped title, ends the tick.
    auto abbrechen = [this] {
        if (isMinimized() && Timer2->isEnabled())
            return false;
        setWindowTitle(Titel);
        m_laufschriftPhase = 0;
        return true;
    };
    QString text = LaufschriftText(m_laufschriftPhase);
    for (int i = 1; i <= text.size(); ++i) {
        setWindowTitle(text.left(i));
        warten(120);
        if (abbrechen())
            return;
    }
    warten(500);
    text = LaufschriftText(m_laufschriftPhase);
    for (int i = int(text.size()); i >= 0; --i) {
        setWindowTitle(text.right(i));
        warten(120);
        if (abbrechen())
            return;
    }
    if (TrackZuEnde(false)) {
        Timer2->setEnabled(false);
        setWindowTitle(Titel);
    }
}
