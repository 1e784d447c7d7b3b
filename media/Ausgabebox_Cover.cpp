// Covers of the main window. The strip and the external covers come with the cover
// management; until then the procedures keep the strip empty.
#include "shell/Ausgabebox.h"

#include "shell/Steuerelemente.h"

void Ausgabebox::CoverListeAktuell() {}

void Ausgabebox::CoverAktualisieren() {}

void Ausgabebox::CoverDown()
{
    for (Bildfeld* c : imgCover) {
        c->setBild(QPixmap());
        c->hide();
    }
}

void Ausgabebox::CoverAZ() {}
