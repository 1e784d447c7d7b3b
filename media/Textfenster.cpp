#include "media/Textfenster.h"

#include "shell/Ausgabebox.h"

#include "playback/Abspieler.h"
#include "shell/Steuerelemente.h"

#include <QCheckBox>
#include <QComboBox>
#include <QEvent>
#include <QLabel>
#include <QMenu>
#include <QTabBar>
#include <QTextEdit>
#include <QTreeWidget>

void Textfenster::verbinden()
{
    for (QTextEdit* t : {box.TextSongs, box.txtSongText, box.rtfLinks, box.rtfInfo, box.rtfSonstiges})
        t->installEventFilter(this);
    // Tabs choose the pane of the text area.
    connect(box.tabTexte, &QTabBar::currentChanged, this, [this](int) { TextseiteZeigen(); });
    TextseiteZeigen();
}

void Textfenster::TextseiteZeigen()
{
    const int reiter = box.tabTexte->currentIndex() + 1;
    const bool cover = reiter == 1;
    for (QWidget* w : std::initializer_list<QWidget*>{box.chkBildpfad, box.cboBildpfad, box.chkVisualisierung,
                                                      box.chkVollbild, box.Bez[11], box.cboEbook, box.imgEbookOpen,
                                                      box.imgEbookKill, box.imgEbookPlay})
        w->setVisible(cover);
    if (cover) {
        box.imgBildpfad->setVisible(box.chkBildpfad->isChecked());
        box.cboBildpfad->setVisible(box.chkBildpfad->isChecked());
        box.Bild1->setVisible(!box.chkBildpfad->isChecked());
    } else {
        box.imgBildpfad->hide();
        box.Bild1->hide();
    }
    box.abspieler().MediaPlayer1Zeigen(box.abspieler().MediaPlayer1Sichtbar);
    box.rtfLinks->setVisible(reiter == 2);
    box.rtfInfo->setVisible(reiter == 3);
    box.rtfSonstiges->setVisible(reiter == 4);
    box.filPlaylist->setVisible(reiter == 5);
    box.lvwPlaylist->raise();
    box.txtSongText->raise();
    box.picCoverGreat->raise();
}

bool Textfenster::eventFilter(QObject* objekt, QEvent* ereignis)
{
    if (ereignis->type() == QEvent::FocusIn) {
        if (auto* text = qobject_cast<QTextEdit*>(objekt)) {
            box.AktivesFeld = text->objectName();
            box.AktivesTextfeld = text->objectName();
            box.mnuSchrift->setEnabled(true);
        }
    } else if (ereignis->type() == QEvent::FocusOut && qobject_cast<QTextEdit*>(objekt)) {
        box.mnuSchrift->setEnabled(false);
        box.AktivesTextfeld.clear();
    }
    return Teilbereich::eventFilter(objekt, ereignis);
}
