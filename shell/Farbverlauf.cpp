#include "shell/Farbverlauf.h"

#include "platform/Einheiten.h"

#include <QApplication>
#include <QEvent>
#include <QLinearGradient>
#include <QPainter>

namespace {

// The classic system colour indices and the palette role that stands for each.
struct Systemrolle {
    QPalette::ColorGroup gruppe;
    QPalette::ColorRole rolle;
};

Systemrolle RolleFuerIndex(quint32 index)
{
    using P = QPalette;
    switch (index) {
    case 0: return {P::Active, P::Midlight};          // scroll bar
    case 2: return {P::Active, P::Highlight};         // active caption
    case 3: return {P::Inactive, P::Mid};             // inactive caption
    case 5: return {P::Active, P::Base};              // window
    case 6: return {P::Active, P::Shadow};            // window frame
    case 7: return {P::Active, P::WindowText};        // menu text
    case 8: return {P::Active, P::Text};              // window text
    case 9: return {P::Active, P::HighlightedText};   // caption text
    case 12: return {P::Active, P::Dark};             // application workspace
    case 13: return {P::Active, P::Highlight};        // highlight
    case 14: return {P::Active, P::HighlightedText};  // highlight text
    case 15: return {P::Active, P::Button};           // button face
    case 16: return {P::Active, P::Dark};             // button shadow
    case 17: return {P::Disabled, P::Text};           // grey text
    case 18: return {P::Active, P::ButtonText};       // button text
    case 19: return {P::Disabled, P::WindowText};     // inactive caption text
    case 20: return {P::Active, P::Light};            // button highlight
    case 21: return {P::Active, P::Shadow};           // 3D dark shadow
    case 22: return {P::Active, P::Midlight};         // 3D light
    case 23: return {P::Active, P::ToolTipText};      // info text
    case 24: return {P::Active, P::ToolTipBase};      // info background
    default: return {P::Active, P::Window};           // desktop, menu, borders, unknown
    }
}

// Paints the gradient of its widget before the widget's own paintEvent runs.
class VerlaufFilter : public QObject {
public:
    VerlaufFilter(QWidget* objekt, qint64 start, qint64 ende, int richtung)
        : QObject(objekt), start(start), ende(ende), richtung(richtung)
    {
    }
    qint64 start;
    qint64 ende;
    int richtung;

protected:
    bool eventFilter(QObject* o, QEvent* e) override
    {
        if (e->type() == QEvent::Paint && o == parent())
            FarbverlaufZeichnen(static_cast<QWidget*>(o), start, ende, richtung);
        return false;
    }
};

} // namespace

bool IstSystemfarbe(qint64 farbe)
{
    // Stored as a signed 32-bit number on the old platform, so look at the low 32 bits only.
    return (quint32(farbe) & 0xFF000000u) == 0x80000000u;
}

QColor FarbeAusNummer(qint64 farbe, const QPalette& palette)
{
    if (!IstSystemfarbe(farbe))
        return NummerFarbe(farbe);
    const Systemrolle r = RolleFuerIndex(quint32(farbe) & 0x00FFFFFFu);
    return palette.color(r.gruppe, r.rolle);
}

QColor FarbeAusNummer(qint64 farbe) { return FarbeAusNummer(farbe, QApplication::palette()); }

namespace {
void Zeichnen(QPainter& p, const QRect& rechteck, const QColor& start, const QColor& ende,
              int richtung)
{
    if (rechteck.isEmpty())
        return;
    // Through the pixel centres, so that the first and the last row get the end colours.
    const QRectF r = QRectF(rechteck).adjusted(0.5, 0.5, -0.5, -0.5);
    QLinearGradient verlauf(r.topLeft(),
                            richtung == VerlaufSenkrecht ? r.bottomLeft() : r.topRight());
    verlauf.setColorAt(0, start);
    verlauf.setColorAt(1, ende);
    p.fillRect(rechteck, verlauf);
}
} // namespace

void FarbverlaufZeichnen(QPainter& p, const QRect& rechteck, qint64 startfarbe, qint64 endfarbe,
                         int richtung)
{
    Zeichnen(p, rechteck, FarbeAusNummer(startfarbe), FarbeAusNummer(endfarbe), richtung);
}

void FarbverlaufZeichnen(QWidget* objekt, qint64 startfarbe, qint64 endfarbe, int richtung)
{
    if (!objekt)
        return;
    QPainter p(objekt);
    const QPalette& palette = objekt->palette();
    Zeichnen(p, objekt->rect(), FarbeAusNummer(startfarbe, palette),
             FarbeAusNummer(endfarbe, palette), richtung);
}

void FarbverlaufSetzen(QWidget* objekt, qint64 startfarbe, qint64 endfarbe, int richtung)
{
    if (!objekt)
        return;
    VerlaufFilter* filter = nullptr;
    for (QObject* kind : objekt->children())
        if (auto* f = dynamic_cast<VerlaufFilter*>(kind))
            filter = f;
    if (filter) {
        filter->start = startfarbe;
        filter->ende = endfarbe;
        filter->richtung = richtung;
    } else {
        objekt->installEventFilter(new VerlaufFilter(objekt, startfarbe, endfarbe, richtung));
    }
    objekt->update();
}

VerlaufFenster::VerlaufFenster(QWidget* eltern)
    : QDialog(eltern), m_start(Farbe::StandardHintergrund), m_ende(Farbe::VerlaufEnde)
{
}

void VerlaufFenster::setFarbverlauf(qint64 startfarbe, qint64 endfarbe, int richtung)
{
    m_start = startfarbe;
    m_ende = endfarbe;
    m_richtung = richtung;
    update();
}

void VerlaufFenster::paintEvent(QPaintEvent*)
{
    FarbverlaufZeichnen(this, m_start, m_ende, m_richtung);
}
