#include "media/Coververwaltung.h"

#include "shell/Ausgabebox.h"

#include "shell/Steuerelemente.h"

void Coververwaltung::CoverListeAktuell() {}

void Coververwaltung::CoverAktualisieren() {}

void Coververwaltung::CoverDown()
{
    for (Bildfeld* c : box.imgCover) {
        c->setBild(QPixmap());
        c->hide();
    }
}

void Coververwaltung::CoverAZ() {}
