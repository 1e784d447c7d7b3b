#include "playback/MiniPlayer.h"

#include "platform/Dialogdienst.h"
#include "platform/Dienste.h"
#include "platform/Uhr.h"
#include "platform/Einheiten.h"
#include "playback/Abspieler.h"
#include "playback/Sequenzer.h"
#include "playback/Zufallswahl.h"
#include "playback/frmMiniPlayer.h"
#include "shell/Ausgabebox.h"
#include "shell/Einstellungen.h"
#include "shell/Globale.h"
#include "shell/Grundregeln.h"
#include "shell/Steuerelemente.h"

#include <QAction>
#include <QFileInfo>
#include <QGuiApplication>
#include <QListWidget>
#include <QScreen>
#include <QTreeWidget>

#include <algorithm>
#include <optional>

namespace {

// A stored place of the window; nothing where it was never stored.
std::optional<int> Platz(const QString& schluessel)
{
    const QString wert = Lesen(schluessel);
    if (wert.isEmpty())
        return std::nullopt;
    if (const auto zahl = Zahl(wert))
        return GanzeZahl(*zahl);
    return std::nullopt;
}

// A turned window that would reach over the screen's edge is moved back onto it.
void aufDenSchirm(QWidget* fenster)
{
    const QScreen* schirm = fenster->screen() ? fenster->screen() : QGuiApplication::primaryScreen();
    const QRect flaeche = schirm->availableGeometry();
    QRect r = fenster->frameGeometry();
    r.moveRight(std::min(r.right(), flaeche.right()));
    r.moveBottom(std::min(r.bottom(), flaeche.bottom()));
    r.moveLeft(std::max(r.left(), flaeche.left()));
    r.moveTop(std::max(r.top(), flaeche.top()));
    if (r.topLeft() != fenster->frameGeometry().topLeft())
        fenster->move(fenster->pos() + (r.topLeft() - fenster->frameGeometry().topLeft()));
}

} // namespace

void MiniPlayer::verbinden()
{
    box.imgMiniPlayer->setEnabled(true);
    connect(box.imgMiniPlayer, &Bildknopf::clicked, this, [this] { imgMiniPlayer_Click(); });
    box.imgLautsprecherregler->setEnabled(true);
    connect(box.imgLautsprecherregler, &Bildknopf::clicked, this, [this] { Lautsprecherregler(false); });
}

frmMiniPlayer* MiniPlayer::fenster()
{
    if (m_fenster)
        return m_fenster;
    m_fenster = new frmMiniPlayer(&box);
    for (int i = 0; i < 13; ++i)
        connect(m_fenster->imgVorBack[i], &Bildknopf::clicked, this, [this, i] { imgVorBack_Click(i); });
    connect(m_fenster->imgLautsprecherregler, &Bildknopf::clicked, this, [this] { Lautsprecherregler(true); });
    connect(m_fenster->Timer3, &Zeitgeber::Timer, this, [this] { Timer3_Timer(); });
    m_fenster->beimSchliessen = [this] { return Schliessen(); };
    m_fenster->beimAktivieren = [this] { Aktiviert(); };
    ABsonderzeichen();
    return m_fenster;
}

bool MiniPlayer::Sichtbar() const { return m_fenster && m_fenster->isVisible(); }

void MiniPlayer::imgMiniPlayer_Click()
{
    box.hide();
    box.Timer4->setEnabled(false);
    box.FensterwerteSpeichern();
    frmMiniPlayer* f = fenster();
    EreignisseZulassen();
    // Twips; a top of 0 counts as never stored.
    const QRect schirm = QGuiApplication::primaryScreen()->availableGeometry();
    const int formel = Twips(schirm.height()) - Twips(f->height()) - 550;
    int oben = Platz(QStringLiteral("MiniPlayerTop")).value_or(formel);
    if (oben == 0)
        oben = formel;
    const int links = Platz(QStringLiteral("MiniPlayerLeft")).value_or(50);
    f->move(Px(links), Px(oben));
    f->setWindowFlag(Qt::WindowStaysOnTopHint, box.mnuMiniPlayerOnTop->isChecked());
    f->show();
    if (box.mnuMiniPlayerOnTop->isChecked())
        f->raise();
    EreignisseZulassen();
    if (box.mnuLaufschrift->isChecked() && box.staBar->PanelText(2).contains(u"playing:")) {
        f->Timer3->setEnabled(true);
        f->setWindowTitle(frmMiniPlayer::Titel);
    }
    const Abspieler& a = box.abspieler();
    const int schleife = a.PosAGesetzt ? 8 : (a.PosA == 0 ? 7 : 9);
    for (int i : {7, 8, 9})
        f->imgVorBack[i]->setVisible(i == schleife);
    f->imgVorBack[6]->setVisible(!a.WmpPause);
    f->imgVorBack[10]->setVisible(a.WmpPause);
}

void MiniPlayer::ABsonderzeichen()
{
    if (!m_fenster)
        return;
    for (int i : {6, 7})
        m_fenster->imgVorBack[i]->show();
    for (int i : {8, 9, 10})
        m_fenster->imgVorBack[i]->hide();
}

void MiniPlayer::imgVorBack_Click(int index)
{
    frmMiniPlayer* f = fenster();
    Abspieler& a = box.abspieler();
    const bool stumm = box.staBar->PanelText(2) == u"no play";
    const int zeilen = box.lvwPlaylist->topLevelItemCount();
    auto angehakt = [this](int nr) {
        const QTreeWidgetItem* z = box.lvwPlaylist->topLevelItem(nr - 1);
        return z && z->checkState(0) == Qt::Checked;
    };
    auto waehlen = [this](int nr) {
        if (QTreeWidgetItem* z = box.lvwPlaylist->topLevelItem(nr - 1)) {
            box.lvwPlaylist->setCurrentItem(z);
            box.lvwPlaylist->scrollToItem(z);
        }
    };
    auto starten = [&] {
        a.MiniPlayerVorBackStart();
        f->Timer3->setEnabled(true);
    };
    switch (index) {
    case 0:
        ABsonderzeichen();
        f->Timer3->setEnabled(false);
        if (PlaylistModus && zeilen > 0) {
            if (TrackIndex <= 1) {
                TrackIndex = zeilen;
            } else {
                TrackIndex -= 1;
                // Towards the top for a checked row, once round from the last.
                int n = TrackIndex;
                bool gewendet = false;
                while (!angehakt(n)) {
                    if (--n < 1) {
                        if (gewendet)
                            break;
                        gewendet = true;
                        n = zeilen;
                    }
                }
                if (n >= 1)
                    TrackIndex = n;
            }
            waehlen(TrackIndex);
        } else if (!PlaylistModus) {
            TrackIndex = TrackIndex <= 0 ? box.filTrack->count() - 1 : TrackIndex - 1;
        }
        starten();
        break;
    case 1:
        ABsonderzeichen();
        f->Timer3->setEnabled(false);
        if (PlaylistModus && zeilen > 0) {
            if (TrackIndex >= zeilen) {
                TrackIndex = 1;
                waehlen(1);
                starten();
                return;
            }
            TrackIndex += 1;
            int n = TrackIndex;
            bool gewendet = false;
            while (!angehakt(n)) {
                if (++n > zeilen) {
                    if (gewendet)
                        break;
                    gewendet = true;
                    n = 1;
                }
            }
            if (n <= zeilen)
                TrackIndex = n;
            waehlen(TrackIndex);
        } else if (!PlaylistModus) {
            TrackIndex = TrackIndex >= box.filTrack->count() - 1 ? 0 : TrackIndex + 1;
        }
        starten();
        break;
    case 2:
        ABsonderzeichen();
        starten();
        break;
    case 3:
        ABsonderzeichen();
        f->Timer3->setEnabled(false);
        if (f->windowTitle().contains(u"Pause"))
            Abbruch = true;
        f->setWindowTitle(frmMiniPlayer::Titel);
        a.MiniPlayerStop();
        break;
    case 4:
        ABsonderzeichen();
        PlatzSpeichern();
        f->hide();
        box.show();
        box.raise();
        f->Timer3->setEnabled(false);
        box.Timer4->setEnabled(true);
        box.txtSuchen->setFocus();
        break;
    case 5:
        ABsonderzeichen();
        box.zufallswahl().TontraegerZufaellig();
        starten();
        break;
    case 6:
    case 10:
        if (stumm)
            return;
        f->imgVorBack[10]->setVisible(index == 6);
        f->imgVorBack[6]->setVisible(index == 10);
        a.MiniPlayerPause();
        break;
    case 7:
    case 8:
    case 9: {
        if (stumm)
            return;
        a.MiniPlayerPosAB();
        const int naechstes = index == 7 ? 8 : (index == 8 ? 9 : 7);
        for (int i : {7, 8, 9})
            f->imgVorBack[i]->setVisible(i == naechstes);
        break;
    }
    case 11:
        ABsonderzeichen();
        a.MiniPlayerResume();
        f->Timer3->setEnabled(true);
        break;
    case 12:
        Drehen();
        break;
    default:
        break;
    }
}

void MiniPlayer::PlatzSpeichern()
{
    const frmMiniPlayer* f = fenster();
    const QString form = f->Senkrecht() ? QStringLiteral("Vertikal") : QStringLiteral("Horizontal");
    Speichern(QStringLiteral("MiniPlayer%1Top").arg(form), QString::number(Twips(f->y())));
    Speichern(QStringLiteral("MiniPlayer%1Left").arg(form), QString::number(Twips(f->x())));
}

void MiniPlayer::Drehen()
{
    frmMiniPlayer* f = fenster();
    PlatzSpeichern();
    const bool senkrecht = !f->Senkrecht();
    const QString form = senkrecht ? QStringLiteral("Vertikal") : QStringLiteral("Horizontal");
    f->Anordnen(senkrecht);
    // A shape never placed stays where the window is.
    const auto oben = Platz(QStringLiteral("MiniPlayer%1Top").arg(form));
    const auto links = Platz(QStringLiteral("MiniPlayer%1Left").arg(form));
    if (oben && links)
        f->move(Px(*links), Px(*oben));
    aufDenSchirm(f);
    f->update();
}

void MiniPlayer::Aktiviert()
{
    // The shape stays and the window goes back to the stored place of its shape.
    if (m_aktivierung || !m_fenster)
        return;
    m_aktivierung = true;
    const bool senkrecht = m_fenster->Senkrecht();
    const QString form = senkrecht ? QStringLiteral("Vertikal") : QStringLiteral("Horizontal");
    m_fenster->Anordnen(senkrecht);
    const auto oben = Platz(QStringLiteral("MiniPlayer%1Top").arg(form));
    const auto links = Platz(QStringLiteral("MiniPlayer%1Left").arg(form));
    if (oben && links)
        m_fenster->move(Px(*links), Px(*oben));
    aufDenSchirm(m_fenster);
    m_aktivierung = false;
}

bool MiniPlayer::Schliessen()
{
    // Closing the mini player ends the program through the ordinary unload.
    m_fenster->Timer3->setEnabled(false);
    box.abspieler().MiniPlayerStop();
    PlatzSpeichern();
    box.close();
    EreignisseZulassen();
    box.AlleFensterSchliessen();
    return true;
}

void MiniPlayer::Lautsprecherregler(bool uebergabe)
{
    const QString programm = ProgrammOrdner + QStringLiteral("Pegelsteller");
    if (!QFileInfo(programm).isFile()) {
        MsgNimb(QStringLiteral("Pegelsteller.exe nicht gefunden."), 3, 0, QStringLiteral("Lautsprecherregler"), 0);
        return;
    }
    if (uebergabe) {
        // Where the volume tool is to open, in pixels, for the tool itself to read.
        const frmMiniPlayer* f = fenster();
        SaveSetting(AppNameVolume, Sektion, QStringLiteral("MiniplayerLeft"),
                    QString::number(qRound((Twips(f->x()) + Twips(f->width()) + 150) * 0.06667)));
        SaveSetting(AppNameVolume, Sektion, QStringLiteral("MiniplayerTop"),
                    QString::number(qRound(Twips(f->y()) * 0.06667)));
    }
    D().shell().starten(programm, {});
}

void MiniPlayer::Timer3_Timer()
{
    if (m_timer3Laeuft || !m_fenster)
        return;
    frmMiniPlayer* f = m_fenster;
    m_timer3Laeuft = true;
    auto ende = [&] {
        m_timer3Laeuft = false;
        if (!f->Timer3->isEnabled())
            f->setWindowTitle(frmMiniPlayer::Titel);
    };
    if (box.mnuLaufschrift->isChecked()) {
        f->LaufschriftPhase = f->LaufschriftPhase + 1 > 3 ? 1 : f->LaufschriftPhase + 1;
        QString text = box.sequenzer().LaufschriftText(f->LaufschriftPhase, true);
        for (int i = 1; i <= text.size(); ++i) {
            f->setWindowTitle(text.left(i));
            Warten(120);
            if (!f->Timer3->isEnabled())
                return ende();
        }
        Warten(500);
        text = box.sequenzer().LaufschriftText(f->LaufschriftPhase, true);
        for (int i = int(text.size()); i >= 0; --i) {
            f->setWindowTitle(text.right(i));
            Warten(120);
            if (!f->Timer3->isEnabled())
                return ende();
        }
    }
    if (box.abspieler().MedienpfadAngehalten())
        f->Timer3->setEnabled(false);
    ende();
}

void MiniPlayer::TransportGestoppt()
{
    if (!m_fenster)
        return;
    m_fenster->Timer3->setEnabled(false);
    m_fenster->setWindowTitle(frmMiniPlayer::Titel);
}

void MiniPlayer::TitelStarten()
{
    if (m_fenster && box.mnuLaufschrift->isChecked() && box.isHidden()
        && box.staBar->PanelText(2).contains(u"playing:"))
        m_fenster->Timer3->setEnabled(true);
}

void MiniPlayer::PauseZeigen(const QString& text)
{
    if (!Sichtbar())
        return;
    m_fenster->imgVorBack[6]->hide();
    m_fenster->imgVorBack[10]->show();
    m_fenster->setWindowTitle(u' ' + text);
}

void MiniPlayer::PauseBeendet()
{
    if (!Sichtbar())
        return;
    m_fenster->imgVorBack[6]->show();
    m_fenster->imgVorBack[10]->hide();
}

void MiniPlayer::SonderfunktionenAus()
{
    if (Sichtbar())
        ABsonderzeichen();
}
