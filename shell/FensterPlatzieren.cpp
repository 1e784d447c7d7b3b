#include "shell/FensterPlatzieren.h"

#include <QGuiApplication>
#include <QScreen>
#include <QWidget>

namespace {

// The reference's rectangle on the desktop, frame included for a window.
QRect Bezugsrechteck(const QWidget* bezug)
{
    if (bezug->isWindow())
        return bezug->frameGeometry();
    return QRect(bezug->mapToGlobal(QPoint(0, 0)), bezug->size());
}

QScreen* BildschirmBei(const QRect& r, const QWidget* bezug)
{
    if (QScreen* s = QGuiApplication::screenAt(r.center()))
        return s;
    if (bezug && bezug->screen())
        return bezug->screen();
    return QGuiApplication::primaryScreen();
}

} // namespace

void FensterPlatzieren(QWidget* fenster, QWidget* bezug, const QString& position, int abstand)
{
    if (!fenster)
        return;
    QSize groesse = fenster->frameGeometry().size();
    // A window not shown yet has no frame; it will get one like the reference's window.
    if (bezug && fenster->isWindow() && fenster->frameGeometry() == fenster->geometry()) {
        const QWidget* w = bezug->window();
        groesse += w->frameGeometry().size() - w->geometry().size();
    }
    QScreen* bildschirm = nullptr;
    QRect ziel;
    if (bezug) {
        ziel = Bezugsrechteck(bezug);
        bildschirm = BildschirmBei(ziel, bezug);
    } else {
        bildschirm = QGuiApplication::primaryScreen();
        if (!bildschirm)
            return;
        ziel = bildschirm->availableGeometry();
    }

    // Centred on both axes first; a side then moves one axis out of the reference.
    QPoint p(ziel.x() + (ziel.width() - groesse.width()) / 2,
             ziel.y() + (ziel.height() - groesse.height()) / 2);
    const QString seite = bezug ? position.trimmed().toLower() : QString();
    if (seite == u"right")
        p.setX(ziel.x() + ziel.width() + abstand);
    else if (seite == u"left")
        p.setX(ziel.x() - abstand - groesse.width());
    else if (seite == u"below")
        p.setY(ziel.y() + ziel.height() + abstand);
    else if (seite == u"above")
        p.setY(ziel.y() - abstand - groesse.height());
    // "center" and any unknown word stay centred.

    if (bildschirm) {
        // Keep the window on the work area; its top left corner wins when it is too big.
        const QRect flaeche = bildschirm->availableGeometry();
        p.setX(qMax(flaeche.left(), qMin(p.x(), flaeche.x() + flaeche.width() - groesse.width())));
        p.setY(qMax(flaeche.top(), qMin(p.y(), flaeche.y() + flaeche.height() - groesse.height())));
    }
    fenster->move(p);
}
