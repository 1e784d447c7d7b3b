#include "outputs/Druckflaeche.h"

#include "platform/Laufzeitfehler.h"

#include "platform/Druckdialog.h"

#include <QFontMetricsF>
#include <QImage>
#include <QPixmap>
#include <QPrinter>

#include <cmath>

namespace {

constexpr double TwipsProMillimeter = 1440.0 / 25.4;

} // namespace

Druckflaeche::Druckflaeche(QPrinter& drucker)
    : m_geraet(&drucker)
    , m_drucker(&drucker)
{
    beginnen();
}

Druckflaeche::Druckflaeche(QPaintDevice& bild, double twipsProPixel)
    : m_geraet(&bild)
    , m_twipsProPixel(twipsProPixel > 0 ? twipsProPixel : 15.0)
{
    beginnen();
}

Druckflaeche::~Druckflaeche()
{
    if (m_maler.isActive())
        m_maler.end();
}

void Druckflaeche::beginnen()
{
    m_schrift = QFont(QStringLiteral("Times New Roman"), 10);
    if (!m_maler.begin(m_geraet))
        return;
    // Lines and boxes stay sharp, as a printer draws them; text is smoothed by the fonts.
    m_maler.setRenderHint(QPainter::Antialiasing, false);
    m_maler.setRenderHint(QPainter::SmoothPixmapTransform, true);
    schriftSetzen();
}

double Druckflaeche::faktor() const
{
    if (m_drucker)
        return m_geraet->logicalDpiX() / 1440.0;
    return 1.0 / m_twipsProPixel;
}

double Druckflaeche::twips(double wert) const
{
    return m_einheit == Einheit::Millimeter ? wert * TwipsProMillimeter : wert;
}

double Druckflaeche::laenge(double tw) const
{
    return m_einheit == Einheit::Millimeter ? tw / TwipsProMillimeter : tw;
}

QPointF Druckflaeche::punkt(double x, double y) const
{
    return {twips(x - m_links) * faktor(), twips(y - m_oben) * faktor()};
}

void Druckflaeche::setScaleMode(Einheit einheit)
{
    if (einheit == m_einheit)
        return;
    auto umrechnen = [this, einheit](double& wert) {
        const double tw = twips(wert);
        wert = einheit == Einheit::Millimeter ? tw / TwipsProMillimeter : tw;
    };
    for (double* wert : {&m_links, &m_oben, &m_x, &m_y, &m_zeilenanfang, &m_tab})
        umrechnen(*wert);
    m_einheit = einheit;
}

double Druckflaeche::ScaleWidth() const { return laenge(m_geraet->width() / faktor()); }

double Druckflaeche::ScaleHeight() const { return laenge(m_geraet->height() / faktor()); }

void Druckflaeche::setCurrentX(double x)
{
    m_x = x;
    m_zeilenanfang = x;
}

void Druckflaeche::schriftSetzen()
{
    if (m_maler.isActive())
        m_maler.setFont(m_schrift);
}

void Druckflaeche::setFontName(const QString& name)
{
    m_schrift.setFamily(name);
    schriftSetzen();
}

void Druckflaeche::setFontSize(double punkte)
{
    if (punkte > 0 && std::isfinite(punkte))
        m_schrift.setPointSizeF(punkte);
    schriftSetzen();
}

void Druckflaeche::setFontBold(bool an)
{
    m_schrift.setBold(an);
    schriftSetzen();
}

void Druckflaeche::setFontItalic(bool an)
{
    m_schrift.setItalic(an);
    schriftSetzen();
}

double Druckflaeche::TextWidth(const QString& text) const
{
    return laenge(QFontMetricsF(m_schrift, m_geraet).horizontalAdvance(text) / faktor());
}

double Druckflaeche::TextHeight() const
{
    return laenge(QFontMetricsF(m_schrift, m_geraet).height() / faktor());
}

void Druckflaeche::Print(const QString& text, bool zeilenende)
{
    const QFontMetricsF masse(m_schrift, m_geraet);
    const QStringList stuecke = text.split(u'\t');
    for (qsizetype i = 0; i < stuecke.size(); ++i) {
        if (i > 0) {
            // The next tab column to the right of the position, counted from the line's edge.
            const double tab = m_tab > 0 ? m_tab : 1440.0;
            const double weg = m_x - m_zeilenanfang;
            m_x = m_zeilenanfang + (std::floor(weg / tab + 1e-9) + 1) * tab;
        }
        const QString& stueck = stuecke[i];
        if (stueck.isEmpty())
            continue;
        if (m_maler.isActive()) {
            m_maler.setPen(m_vorne);
            const QPointF oben = punkt(m_x, m_y);
            m_maler.drawText(QPointF(oben.x(), oben.y() + masse.ascent()), stueck);
        }
        m_x += laenge(masse.horizontalAdvance(stueck) / faktor());
    }
    if (zeilenende) {
        m_x = m_zeilenanfang;
        m_y += laenge(masse.height() / faktor());
    }
}

void Druckflaeche::Line(double x1, double y1, double x2, double y2)
{
    if (!m_maler.isActive())
        return;
    m_maler.setPen(QPen(m_vorne, 0));
    m_maler.drawLine(punkt(x1, y1), punkt(x2, y2));
}

void Druckflaeche::Box(double x1, double y1, double x2, double y2)
{
    if (!m_maler.isActive())
        return;
    m_maler.setPen(QPen(m_vorne, 0));
    m_maler.setBrush(m_fuellen ? QBrush(m_fuellfarbe) : QBrush(Qt::NoBrush));
    m_maler.drawRect(QRectF(punkt(x1, y1), punkt(x2, y2)).normalized());
    m_maler.setBrush(Qt::NoBrush);
}

void Druckflaeche::PaintPicture(const QImage& bild, double x, double y, double breite, double hoehe)
{
    if (!m_maler.isActive() || bild.isNull())
        return;
    const double b = breite < 0 ? laenge(bild.width() * 15.0) : breite;
    const double h = hoehe < 0 ? laenge(bild.height() * 15.0) : hoehe;
    m_maler.drawImage(QRectF(punkt(x, y), punkt(x + b, y + h)).normalized(), bild);
}

void Druckflaeche::PaintPicture(const QPixmap& bild, double x, double y, double breite,
                                double hoehe)
{
    PaintPicture(bild.toImage(), x, y, breite, hoehe);
}

void Druckflaeche::NewPage()
{
    if (m_maler.isActive()) {
        if (m_drucker)
            m_drucker->newPage();
        else
            m_maler.fillRect(QRect(0, 0, m_geraet->width(), m_geraet->height()), Qt::white);
    }
    m_x = m_zeilenanfang = m_links;
    m_y = m_oben;
}

void Druckflaeche::EndDoc()
{
    if (m_maler.isActive())
        m_maler.end();
}

void Druckflaeche::AktivPruefen() const
{
    if (!aktiv())
        throw Laufzeitfehler(482, QStringLiteral("Druckerfehler: Der Drucker kann nicht geöffnet werden."));
}

void DruckerWaehlen(QPrinter& drucker, QPageLayout::Orientation lage, QWidget* eltern)
{
    drucker.setPageOrientation(lage);
    if (!Druckdialoge().einrichten(drucker, eltern) || !drucker.isValid())
        throw Laufzeitfehler(Fehlernummer::DialogAbgebrochen);
}
