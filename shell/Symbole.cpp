#include "shell/Symbole.h"

#include <QApplication>
#include <QHash>
#include <QPainter>
#include <QPainterPath>
#include <QStyle>

#include <cmath>

namespace {

constexpr int Groesse = 24;

QPixmap leer()
{
    QPixmap bild(Groesse, Groesse);
    bild.fill(Qt::transparent);
    return bild;
}

// A glyph of one to three letters, for the formatting and tool buttons.
QIcon zeichen(const QString& text, const QFont& schrift, const QColor& farbe = QColor(0x20, 0x30, 0x50))
{
    QPixmap bild = leer();
    QPainter p(&bild);
    p.setRenderHint(QPainter::TextAntialiasing);
    p.setFont(schrift);
    p.setPen(farbe);
    p.drawText(bild.rect(), Qt::AlignCenter, text);
    return QIcon(bild);
}

QFont schrift(int pixel, bool fett = false, bool kursiv = false, bool unterstrichen = false)
{
    QFont f;
    f.setPixelSize(pixel);
    f.setBold(fett);
    f.setItalic(kursiv);
    f.setUnderline(unterstrichen);
    return f;
}

// Horizontal lines of a paragraph, aligned left, centred or right.
QIcon absatz(Qt::Alignment ausrichtung, bool punkte = false)
{
    QPixmap bild = leer();
    QPainter p(&bild);
    p.setPen(QPen(QColor(0x20, 0x30, 0x50), 2));
    const int laengen[] = {18, 12, 16, 10};
    for (int i = 0; i < 4; ++i) {
        const int y = 5 + i * 5;
        int laenge = punkte ? 13 : laengen[i];
        int x = 3;
        if (punkte) {
            p.drawPoint(4, y);
            x = 9;
        } else if (ausrichtung & Qt::AlignHCenter) {
            x = (Groesse - laenge) / 2;
        } else if (ausrichtung & Qt::AlignRight) {
            x = Groesse - 3 - laenge;
        }
        p.drawLine(x, y, x + laenge, y);
    }
    return QIcon(bild);
}

// A margin mark: a bar at one side and an arrow towards it.
QIcon rand(bool links)
{
    QPixmap bild = leer();
    QPainter p(&bild);
    p.setRenderHint(QPainter::Antialiasing);
    p.setPen(QPen(QColor(0x20, 0x30, 0x50), 2));
    const int balken = links ? 4 : 20;
    p.drawLine(balken, 3, balken, 21);
    const int von = links ? 19 : 5;
    const int bis = links ? 8 : 16;
    p.drawLine(von, 12, bis, 12);
    const int spitze = links ? 3 : -3;
    p.drawLine(bis, 12, bis + spitze, 9);
    p.drawLine(bis, 12, bis + spitze, 15);
    return QIcon(bild);
}

QIcon standard(QStyle::StandardPixmap art) { return QApplication::style()->standardIcon(art); }

QIcon gezeichnet(const QString& name)
{
    if (name == u"fett")
        return zeichen(QStringLiteral("F"), schrift(17, true));
    if (name == u"kursiv")
        return zeichen(QStringLiteral("K"), schrift(17, false, true));
    if (name == u"unterstrichen")
        return zeichen(QStringLiteral("U"), schrift(17, false, false, true));
    if (name == u"schrift")
        return zeichen(QStringLiteral("Aa"), schrift(14));
    if (name == u"standardschrift")
        return zeichen(QStringLiteral("A"), schrift(16), QColor(0x50, 0x50, 0x50));
    if (name == u"farbe") {
        QPixmap bild = leer();
        QPainter p(&bild);
        p.setFont(schrift(15, true));
        p.setPen(QColor(0x20, 0x30, 0x50));
        p.drawText(QRect(0, 0, Groesse, 19), Qt::AlignCenter, QStringLiteral("A"));
        p.fillRect(4, 19, 16, 4, QColor(0xd0, 0x20, 0x20));
        return QIcon(bild);
    }
    if (name == u"rand_links")
        return rand(true);
    if (name == u"rand_rechts")
        return rand(false);
    if (name == u"links")
        return absatz(Qt::AlignLeft);
    if (name == u"mitte")
        return absatz(Qt::AlignHCenter);
    if (name == u"rechts")
        return absatz(Qt::AlignRight);
    if (name == u"punkte")
        return absatz(Qt::AlignLeft, true);
    if (name == u"weitersuchen")
        return zeichen(QStringLiteral("»"), schrift(18, true));
    if (name == u"alles_markieren")
        return zeichen(QStringLiteral("▣"), schrift(17));
    if (name == u"sql")
        return zeichen(QStringLiteral("SQL"), schrift(9, true));
    if (name == u"link")
        return zeichen(QStringLiteral("www"), schrift(9, true), QColor(0x10, 0x40, 0xc0));
    if (name == u"uebersetzen")
        return zeichen(QStringLiteral("A→"), schrift(11, true));
    if (name == u"schreiben")
        return zeichen(QStringLiteral("✎"), schrift(16));
    if (name == u"spaltenbreite")
        return zeichen(QStringLiteral("↔"), schrift(18, true));
    if (name == u"songtext")
        return zeichen(QStringLiteral("♪"), schrift(18));
    if (name == u"playlist")
        return absatz(Qt::AlignLeft, true);
    if (name == u"zufall")
        return zeichen(QStringLiteral("⚄"), schrift(20));
    if (name == u"webcam")
        return zeichen(QStringLiteral("◉"), schrift(17));
    if (name == u"scannen")
        return zeichen(QStringLiteral("▤"), schrift(17));
    if (name == u"online")
        return zeichen(QStringLiteral("⇅"), schrift(17, true));
    if (name == u"player")
        return zeichen(QStringLiteral("▶♪"), schrift(11));
    if (name == u"vollbild") {
        // Four corners pointing outwards.
        QPixmap bild = leer();
        QPainter p(&bild);
        p.setPen(QPen(QColor(0x20, 0x30, 0x50), 2));
        const int a = 4, b = 20, l = 6;
        p.drawPolyline(QPolygon({QPoint(a, a + l), QPoint(a, a), QPoint(a + l, a)}));
        p.drawPolyline(QPolygon({QPoint(b - l, a), QPoint(b, a), QPoint(b, a + l)}));
        p.drawPolyline(QPolygon({QPoint(a, b - l), QPoint(a, b), QPoint(a + l, b)}));
        p.drawPolyline(QPolygon({QPoint(b - l, b), QPoint(b, b), QPoint(b, b - l)}));
        return QIcon(bild);
    }
    if (name == u"miniplayer")
        return zeichen(QStringLiteral("▭"), schrift(18));
    if (name == u"ab0" || name == u"ab1" || name == u"ab2") {
        const QColor farbe = name == u"ab0" ? QColor(0x20, 0x30, 0x50)
            : name == u"ab1"                ? QColor(0xc0, 0x70, 0x00)
                                            : QColor(0x00, 0x90, 0x30);
        return zeichen(QStringLiteral("A-B"), schrift(9, true), farbe);
    }
    if (name == u"stern")
        return QIcon(Stern(Groesse, true));
    if (name == u"stern_grau")
        return QIcon(Stern(Groesse, false));
    if (name == u"pause_aktiv") {
        QPixmap bild = leer();
        QPainter p(&bild);
        p.fillRect(6, 4, 4, 16, QColor(0xc0, 0x60, 0x00));
        p.fillRect(14, 4, 4, 16, QColor(0xc0, 0x60, 0x00));
        return QIcon(bild);
    }
    return {};
}

} // namespace

QPixmap Stern(int groesse, bool hell)
{
    QPixmap bild(groesse, groesse);
    bild.fill(Qt::transparent);
    QPainter p(&bild);
    p.setRenderHint(QPainter::Antialiasing);
    QPainterPath pfad;
    const double mitte = groesse / 2.0;
    const double aussen = groesse * 0.48;
    const double innen = aussen * 0.42;
    for (int i = 0; i < 10; ++i) {
        const double r = i % 2 == 0 ? aussen : innen;
        const double winkel = -M_PI / 2 + i * M_PI / 5;
        const QPointF punkt(mitte + r * std::cos(winkel), mitte + 0.06 * groesse + r * std::sin(winkel));
        if (i == 0)
            pfad.moveTo(punkt);
        else
            pfad.lineTo(punkt);
    }
    pfad.closeSubpath();
    p.setPen(QPen(hell ? QColor(0xb0, 0x80, 0x00) : QColor(0x90, 0x90, 0x90), 1));
    p.setBrush(hell ? QColor(0xff, 0xcc, 0x20) : QColor(0xd8, 0xd8, 0xd8));
    p.drawPath(pfad);
    return bild;
}

QIcon Symbol(const QString& name)
{
    static QHash<QString, QIcon> zwischenspeicher;
    const auto it = zwischenspeicher.constFind(name);
    if (it != zwischenspeicher.constEnd())
        return *it;
    static const QHash<QString, QStyle::StandardPixmap> ausDemStil = {
        {QStringLiteral("neu"), QStyle::SP_FileIcon},
        {QStringLiteral("speichern"), QStyle::SP_DialogSaveButton},
        {QStringLiteral("aktualisieren"), QStyle::SP_BrowserReload},
        {QStringLiteral("suchen"), QStyle::SP_FileDialogContentsView},
        {QStringLiteral("cd"), QStyle::SP_DriveCDIcon},
        {QStringLiteral("dvd"), QStyle::SP_DriveDVDIcon},
        {QStringLiteral("cover"), QStyle::SP_FileDialogDetailedView},
        {QStringLiteral("backup"), QStyle::SP_DriveHDIcon},
        {QStringLiteral("beenden"), QStyle::SP_DialogCloseButton},
        {QStringLiteral("laden"), QStyle::SP_DialogOpenButton},
        {QStringLiteral("ordner"), QStyle::SP_DirOpenIcon},
        {QStringLiteral("start"), QStyle::SP_MediaPlay},
        {QStringLiteral("stop"), QStyle::SP_MediaStop},
        {QStringLiteral("pause"), QStyle::SP_MediaPause},
        {QStringLiteral("resume"), QStyle::SP_MediaSeekForward},
        {QStringLiteral("zurueck"), QStyle::SP_MediaSkipBackward},
        {QStringLiteral("vor"), QStyle::SP_MediaSkipForward},
        {QStringLiteral("lautsprecher"), QStyle::SP_MediaVolume},
        {QStringLiteral("ebook_laden"), QStyle::SP_DialogOpenButton},
        {QStringLiteral("ebook_loeschen"), QStyle::SP_TrashIcon},
        {QStringLiteral("ebook_zeigen"), QStyle::SP_FileDialogContentsView},
        {QStringLiteral("hoch"), QStyle::SP_ArrowUp},
        {QStringLiteral("runter"), QStyle::SP_ArrowDown},
        {QStringLiteral("info"), QStyle::SP_MessageBoxInformation},
    };
    QIcon icon;
    const auto stil = ausDemStil.constFind(name);
    if (stil != ausDemStil.constEnd())
        icon = standard(*stil);
    if (icon.isNull())
        icon = gezeichnet(name);
    zwischenspeicher.insert(name, icon);
    return icon;
}
