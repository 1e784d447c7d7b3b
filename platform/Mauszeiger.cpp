#include "platform/Mauszeiger.h"

#include <QApplication>
#include <QCursor>

static int s_art = ZeigerStandard;

void Mauszeiger(int art)
{
    if (art == s_art)
        return;
    while (QApplication::overrideCursor())
        QApplication::restoreOverrideCursor();
    s_art = art;
    if (art == ZeigerSanduhr)
        QApplication::setOverrideCursor(Qt::WaitCursor);
    else if (art == ZeigerBeschaeftigt)
        QApplication::setOverrideCursor(Qt::BusyCursor);
    else
        s_art = ZeigerStandard;
}

int MauszeigerArt() { return s_art; }
