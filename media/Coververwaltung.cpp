#include "media/Coververwaltung.h"

#include "shell/Ausgabebox.h"

#include "shell/Steuerelemente.h"

#include <QComboBox>
#include <QFileInfo>

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

void Coververwaltung::ExterneCoverLaden()
{
    box.cboBildpfad->clear();
    box.imgBildpfad->setBild(QPixmap());
    const QStringList teile = box.txtBildpfad->text().trimmed().split(u'\u00b0');
    for (qsizetype i = 0; i + 1 < teile.size(); ++i)
        if (QFileInfo(teile[i]).isFile())
            box.cboBildpfad->addItem(teile[i]);
    if (box.cboBildpfad->count() > 0) {
        box.imgBildpfad->setBild(QPixmap(box.cboBildpfad->itemText(0)));
        box.cboBildpfad->setCurrentIndex(0);
    }
}
