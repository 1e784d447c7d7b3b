#include "playback/Audioanzeige.h"

#include "platform/Dienste.h"
#include "platform/Medien.h"
#include "platform/Uhr.h"

#include <QLinearGradient>
#include <QPainter>

#include <cmath>

namespace {
QString zeit(double sekunden)
{
    const int s = std::max(0, int(std::lround(sekunden)));
    return QStringLiteral("%1:%2").arg(s / 60).arg(s % 60, 2, 10, QChar(u'0'));
}
} // namespace

Audioanzeige::Audioanzeige(Medienspieler* spieler, QWidget* eltern)
    : QWidget(eltern)
    , m_spieler(spieler)
    , m_takt(D().uhr().neuerZeitgeber(this))
{
    setObjectName(QStringLiteral("Audioanzeige"));
    setAttribute(Qt::WA_TransparentForMouseEvents);
    m_takt->setInterval(500);
    connect(m_takt, &Zeitgeber::Timer, this, qOverload<>(&QWidget::update));
}

void Audioanzeige::setTitel(const QString& titel)
{
    m_titel = titel;
    update();
}

void Audioanzeige::setCover(const QPixmap& cover)
{
    m_cover = cover;
    update();
}

void Audioanzeige::showEvent(QShowEvent* e)
{
    QWidget::showEvent(e);
    m_takt->setEnabled(true);
}

void Audioanzeige::hideEvent(QHideEvent* e)
{
    QWidget::hideEvent(e);
    m_takt->setEnabled(false);
}

void Audioanzeige::paintEvent(QPaintEvent*)
{
    QPainter p(this);
    p.setRenderHint(QPainter::Antialiasing);
    QLinearGradient verlauf(0, 0, 0, height());
    verlauf.setColorAt(0, QColor(0x1c, 0x2a, 0x3c));
    verlauf.setColorAt(1, QColor(0x06, 0x0c, 0x16));
    p.fillRect(rect(), verlauf);

    const int rand = 8;
    const int textHoehe = fontMetrics().height();
    const int leiste = 6;
    // Room for the cover above the title and the progress, when the control is tall.
    const int bildHoehe = height() - 3 * rand - textHoehe - leiste;
    int textOben = rand;
    if (!m_cover.isNull() && bildHoehe > 40) {
        const QPixmap bild = m_cover.scaled(width() - 2 * rand, bildHoehe, Qt::KeepAspectRatio,
                                            Qt::SmoothTransformation);
        p.drawPixmap((width() - bild.width()) / 2, rand, bild);
        textOben = rand + bild.height() + rand;
    } else {
        textOben = std::max(rand, (height() - textHoehe - leiste - rand) / 2);
    }
    const double dauer = m_spieler->duration();
    const double stand = m_spieler->currentPosition();
    p.setPen(QColor(0xe3, 0xea, 0xf4));
    const QString zeile = QStringLiteral("♪  ") + m_titel;
    const QString zeiten = dauer > 0 ? zeit(stand) + QStringLiteral(" / ") + zeit(dauer) : zeit(stand);
    const int zeitBreite = fontMetrics().horizontalAdvance(zeiten) + rand;
    p.drawText(QRect(rand, textOben, width() - 2 * rand - zeitBreite, textHoehe), Qt::AlignLeft | Qt::AlignVCenter,
               fontMetrics().elidedText(zeile, Qt::ElideRight, width() - 2 * rand - zeitBreite));
    p.drawText(QRect(rand, textOben, width() - 2 * rand, textHoehe), Qt::AlignRight | Qt::AlignVCenter, zeiten);
    const QRect bahn(rand, textOben + textHoehe + rand / 2, width() - 2 * rand, leiste);
    p.fillRect(bahn, QColor(0x3a, 0x4a, 0x5e));
    if (dauer > 0) {
        QRect fortschritt = bahn;
        fortschritt.setWidth(int(bahn.width() * std::clamp(stand / dauer, 0.0, 1.0)));
        p.fillRect(fortschritt, QColor(0xad, 0xc9, 0xde));
    }
}
