#include "playback/frmMiniPlayer.h"

#include "platform/Dienste.h"
#include "platform/Einheiten.h"
#include "platform/Uhr.h"
#include "shell/Farbverlauf.h"
#include "shell/Steuerelemente.h"
#include "shell/Symbole.h"

#include <QCloseEvent>
#include <QMouseEvent>
#include <QPainter>
#include <QWindow>

const QString frmMiniPlayer::Titel = QStringLiteral("Rillenkammer-Miniplayer");

namespace {

constexpr int Knopf = 22; // pixels of a picture's square

struct Bildinfo {
    const char* symbol;
    const char* tipp;
};
// The pictures by index: what they show and say.
constexpr Bildinfo Bilder[13] = {
    {"zurueck", " Zurück "},        {"vor", " Vor "},          {"start", " Start "},
    {"stop", " Stop "},             {"hoch", " Hauptfenster "}, {"zufall", " Zufälliger Tonträger "},
    {"pause", " Pause "},           {"ab0", " Schleife A-B "}, {"ab1", " Schleife: A gesetzt "},
    {"ab2", " Schleife läuft "},    {"pause_aktiv", " Pause "}, {"resume", " Fortsetzen "},
    {"runter", " Fenster drehen "},
};

} // namespace

frmMiniPlayer::frmMiniPlayer(QWidget* eltern)
    : QWidget(eltern, Qt::Window)
{
    setObjectName(QStringLiteral("frmMiniPlayer"));
    setWindowTitle(Titel);
    for (int i = 0; i < 13; ++i) {
        auto* b = new Bildknopf(this);
        b->setIcon(Symbol(QLatin1String(Bilder[i].symbol)));
        b->setIconSize(QSize(18, 18));
        b->setToolTip(QString::fromUtf8(Bilder[i].tipp));
        b->setAutoRaise(true);
        imgVorBack.setzen(i, b);
    }
    imgLautsprecherregler = new Bildknopf(this);
    imgLautsprecherregler->setObjectName(QStringLiteral("imgLautsprecherregler"));
    imgLautsprecherregler->setIcon(Symbol(QStringLiteral("lautsprecher")));
    imgLautsprecherregler->setIconSize(QSize(18, 18));
    imgLautsprecherregler->setToolTip(QStringLiteral(" Lautstärke "));
    imgLautsprecherregler->setAutoRaise(true);
    Timer3 = D().uhr().neuerZeitgeber(this);
    Timer3->setObjectName(QStringLiteral("Timer3"));
    Timer3->setInterval(500);
    Timer3->setEnabled(false);
    Anordnen(false);
}

bool frmMiniPlayer::Senkrecht() const { return Twips(height()) == HoeheSenkrecht; }

void frmMiniPlayer::Anordnen(bool senkrecht)
{
    // The pictures in the order of the strip; the resting and the active picture of pause
    // and of the loop share one place.
    const int platz[13] = {0, 3, 1, 2, 9, 8, 4, 5, 5, 5, 4, 6, 10};
    for (int i = 0; i < 13; ++i) {
        const int p = platz[i] * (Knopf + 2) + 2;
        imgVorBack[i]->setGeometry(senkrecht ? 5 : p, senkrecht ? p : 18, Knopf, Knopf);
    }
    const int p = 7 * (Knopf + 2) + 2;
    imgLautsprecherregler->setGeometry(senkrecht ? 5 : p, senkrecht ? p : 18, Knopf, Knopf);
    if (senkrecht)
        setFixedSize(Px(510), Px(HoeheSenkrecht));
    else
        setFixedSize(Px(5235), Px(HoeheWaagerecht));
}

void frmMiniPlayer::paintEvent(QPaintEvent*)
{
    FarbverlaufZeichnen(this, 16050915, 14600621, Senkrecht() ? VerlaufWaagerecht : VerlaufSenkrecht);
}

void frmMiniPlayer::mousePressEvent(QMouseEvent* e)
{
    // The body carries the window, as its caption would.
    if (e->button() == Qt::LeftButton && windowHandle())
        windowHandle()->startSystemMove();
    QWidget::mousePressEvent(e);
}

void frmMiniPlayer::closeEvent(QCloseEvent* e)
{
    if (beimSchliessen && !beimSchliessen())
        e->ignore();
    else
        e->accept();
}

bool frmMiniPlayer::event(QEvent* e)
{
    if (e->type() == QEvent::WindowActivate && beimAktivieren)
        beimAktivieren();
    return QWidget::event(e);
}
