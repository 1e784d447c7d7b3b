#include "playback/frmWinMediaPlayer.h"

#include "platform/Dienste.h"
#include "platform/Einheiten.h"
#include "platform/Medien.h"
#include "platform/Uhr.h"
#include "playback/Abspieler.h"
#include "playback/Zufallswahl.h"
#include "shell/Ausgabebox.h"
#include "shell/Einstellungen.h"
#include "shell/Globale.h"
#include "shell/Grundregeln.h"
#include "shell/Steuerelemente.h"
#include "shell/Symbole.h"

#include <QCloseEvent>
#include <QKeyEvent>
#include <QVideoWidget>

#include <cmath>

namespace {

// How long a picture stands before the sequencer may go on, like a slide show.
constexpr int BildDauerMs = 5000;

} // namespace

frmWinMediaPlayer::frmWinMediaPlayer(Ausgabebox& box)
    : VerlaufFenster(&box)
    , m_box(box)
{
    setObjectName(QStringLiteral("frmWinMediaPlayer"));
    setWindowTitle(QStringLiteral("Rillenkammer - Media Player"));
    setWindowFlag(Qt::Window);
    setModal(false);
    setFarbverlauf(Farbe::VerlaufEnde, Farbe::StandardHintergrund, VerlaufWaagerecht);

    WindowsMediaPlayer1 = new QVideoWidget(this);
    WindowsMediaPlayer1->setObjectName(QStringLiteral("WindowsMediaPlayer1"));
    imgBild = new Bildfeld(this);
    imgBild->setObjectName(QStringLiteral("imgBild"));
    imgBild->setStretch(true);
    imgBild->hide();
    m_spieler = D().medien().neuerSpieler(this);
    m_spieler->setVideoOutput(WindowsMediaPlayer1);

    struct Knopf {
        const char* symbol;
        const char* tipp;
    };
    const Knopf knoepfe[10] = {
        {"zurueck", " zurück "},
        {"vor", " vor "},
        {"zufall", " Tonträger zufällig wählen "},
        {"beenden", " Fenster schließen "},
        {"ab0", " Anfang der Wiederholung setzen "},
        {"ab1", " Ende der Wiederholung setzen "},
        {"ab2", " Wiederholung beenden "},
        {"spaltenbreite", " Video strecken "},
        {"miniplayer", " Video nicht strecken "},
        {"vollbild", " Vollbild "},
    };
    for (int i = 0; i < 10; ++i) {
        auto* b = new Bildknopf(this);
        b->setObjectName(imgVorBack.Name(i));
        b->setIcon(Symbol(QLatin1String(knoepfe[i].symbol)));
        b->setIconSize(QSize(22, 22));
        b->setToolTip(QString::fromUtf8(knoepfe[i].tipp));
        connect(b, &Bildknopf::clicked, this, [this, i] { imgVorBack_Click(i); });
        imgVorBack[i] = b;
    }
    imgVorBack[8]->hide();
    TimerPosAB = D().uhr().neuerZeitgeber(this);
    TimerPosAB->setObjectName(QStringLiteral("TimerPosAB"));
    TimerPosAB->setInterval(500);
    TimerPosAB->setEnabled(false);
    connect(TimerPosAB, &Zeitgeber::Timer, this, [this] { TimerPosAB_Timer(); });
    resize(Px(15225) / 2, Px(10725) / 2);
}

frmWinMediaPlayer::~frmWinMediaPlayer() = default;

void frmWinMediaPlayer::Form_Load()
{
    const QString zustand = Lesen(QStringLiteral("WinMediaPlayerWindowState"), QStringLiteral("0"));
    QRect platz = geometry();
    if (const auto v = Zahl(Lesen(QStringLiteral("WinMediaPlayerLeft"), QStringLiteral("0"))))
        platz.moveLeft(Px(*v));
    if (const auto v = Zahl(Lesen(QStringLiteral("WinMediaPlayerTop"), QStringLiteral("0"))))
        platz.moveTop(Px(*v));
    if (const auto v = Zahl(Lesen(QStringLiteral("WinMediaPlayerWidth"), QStringLiteral("15225"))); v && *v > 0)
        platz.setWidth(Px(*v));
    if (const auto v = Zahl(Lesen(QStringLiteral("WinMediaPlayerHeight"), QStringLiteral("10725"))); v && *v > 0)
        platz.setHeight(Px(*v));
    move(platz.topLeft());
    resize(platz.size());
    if (Zahl(zustand) == 2.0)
        setWindowState(Qt::WindowMaximized);
    ABsonderzeichen();
}

void frmWinMediaPlayer::setURL(const QString& pfad)
{
    m_spieler->close();
    m_bild = IstBilddatei(pfad);
    if (m_bild) {
        QPixmap bild(pfad);
        imgBild->setBild(bild);
        imgBild->setProperty("pfad", pfad);
        imgBild->show();
        WindowsMediaPlayer1->hide();
        // The picture stands for a while, then counts as played.
        imgBild->setProperty("bis", D().uhr().jetzt().addMSecs(BildDauerMs));
        return;
    }
    imgBild->hide();
    imgBild->setProperty("pfad", QString());
    WindowsMediaPlayer1->show();
    m_spieler->setURL(pfad);
}

QString frmWinMediaPlayer::URL() const
{
    return m_bild ? imgBild->property("pfad").toString() : m_spieler->URL();
}

bool frmWinMediaPlayer::zeigtBild() const { return m_bild; }

void frmWinMediaPlayer::MedienSchliessen()
{
    m_spieler->close();
    m_bild = false;
    imgBild->setBild(QPixmap());
    imgBild->hide();
    WindowsMediaPlayer1->show();
}

int frmWinMediaPlayer::playState() const
{
    if (m_bild)
        return D().uhr().jetzt() < imgBild->property("bis").toDateTime() ? Medienspieler::Spielt
                                                                         : Medienspieler::Gestoppt;
    return m_spieler->playState();
}

void frmWinMediaPlayer::ABsonderzeichen()
{
    imgVorBack[4]->show();
    imgVorBack[5]->hide();
    imgVorBack[6]->hide();
    PosAGesetzt = false;
    PosA = 0;
    TimerPosAB->setEnabled(false);
}

void frmWinMediaPlayer::imgVorBack_Click(int index)
{
    switch (index) {
    case 0:
    case 1:
    case 2: {
        ABsonderzeichen();
        const int letzte = m_box.filTrack->count() - 1;
        if (index == 0)
            TrackIndex = TrackIndex <= 0 ? std::max(0, letzte) : TrackIndex - 1;
        else if (index == 1)
            TrackIndex = TrackIndex >= letzte ? 0 : TrackIndex + 1;
        else
            m_box.zufallswahl().TontraegerZufaellig();
        m_box.abspieler().MiniPlayerVorBackStart();
        break;
    }
    case 3:
        close();
        break;
    case 4:
        PosAGesetzt = true;
        imgVorBack[5]->show();
        imgVorBack[4]->hide();
        imgVorBack[6]->hide();
        TimerPosAB->setEnabled(false);
        PosA = int(std::lround(m_spieler->currentPosition()));
        break;
    case 5:
        PosAGesetzt = false;
        imgVorBack[6]->show();
        imgVorBack[4]->hide();
        imgVorBack[5]->hide();
        PosB = int(std::lround(m_spieler->currentPosition()));
        TimerPosAB->setEnabled(true);
        break;
    case 6:
        PosA = 0;
        imgVorBack[4]->show();
        imgVorBack[5]->hide();
        imgVorBack[6]->hide();
        TimerPosAB->setEnabled(false);
        break;
    case 7:
    case 8: {
        const bool strecken = index == 7;
        WindowsMediaPlayer1->setAspectRatioMode(strecken ? Qt::IgnoreAspectRatio : Qt::KeepAspectRatio);
        imgBild->setVerhaeltnisBehalten(!strecken);
        imgVorBack[8]->setVisible(strecken);
        imgVorBack[7]->setVisible(!strecken);
        break;
    }
    case 9:
        Vollbild = true;
        showFullScreen();
        break;
    default:
        break;
    }
}

void frmWinMediaPlayer::TimerPosAB_Timer()
{
    if (m_spieler->currentPosition() >= PosB)
        m_spieler->setCurrentPosition(PosA);
}

void frmWinMediaPlayer::Form_Resize()
{
    const int breite = width();
    const int hoehe = height();
    const int unten = Px(450);
    WindowsMediaPlayer1->setGeometry(0, 0, breite, std::max(0, hoehe - unten));
    imgBild->setGeometry(WindowsMediaPlayer1->geometry());
    // The three loop pictures share one place, as do the two stretch pictures.
    const int platz[10] = {0, 1, 2, 3, 4, 4, 4, 5, 5, 6};
    const int groesse = 28;
    for (int i = 0; i < 10; ++i)
        imgVorBack[i]->setGeometry(8 + platz[i] * (groesse + 4), hoehe - groesse - Px(60), groesse, groesse);
}

void frmWinMediaPlayer::resizeEvent(QResizeEvent* e)
{
    VerlaufFenster::resizeEvent(e);
    Form_Resize();
}

void frmWinMediaPlayer::keyPressEvent(QKeyEvent* e)
{
    // Esc leaves the full screen first; a dialog would close on it.
    if (e->key() == Qt::Key_Escape && Vollbild) {
        Vollbild = false;
        showNormal();
        return;
    }
    VerlaufFenster::keyPressEvent(e);
}

void frmWinMediaPlayer::closeEvent(QCloseEvent* e)
{
    m_box.abspieler().MiniPlayerStop();
    MedienSchliessen();
    EreignisseZulassen();
    if (windowState() & Qt::WindowMinimized) {
        // A minimised window keeps the place of before.
    } else if (windowState() & Qt::WindowMaximized) {
        Speichern(QStringLiteral("WinMediaPlayerWindowState"), QStringLiteral("2"));
    } else if (!Vollbild) {
        Speichern(QStringLiteral("WinMediaPlayerWindowState"), QStringLiteral("0"));
        Speichern(QStringLiteral("WinMediaPlayerLeft"), QString::number(Twips(x())));
        Speichern(QStringLiteral("WinMediaPlayerTop"), QString::number(Twips(y())));
        Speichern(QStringLiteral("WinMediaPlayerWidth"), QString::number(Twips(width())));
        Speichern(QStringLiteral("WinMediaPlayerHeight"), QString::number(Twips(height())));
    }
    e->accept();
}
