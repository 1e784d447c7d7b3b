// The controls and menus of the main window and their places at design size.
#include "catalogue/Datensatzansicht.h"
#include "catalogue/Tabellenansicht.h"
#include "playback/Abspieler.h"
#include "shell/Ausgabebox.h"

#include "catalogue/Datensatzbearbeitung.h"
#include "catalogue/Datensteuerung.h"
#include "catalogue/FlexGrid.h"
#include "catalogue/Katalogdatei.h"
#include "collections/SqlKonsole.h"
#include "platform/Dienste.h"
#include "platform/Einheiten.h"
#include "platform/Medien.h"
#include "platform/Uhr.h"
#include "playback/Audioanzeige.h"
#include "shell/Farbverlauf.h"
#include "shell/Globale.h"
#include "shell/Steuerelemente.h"
#include "shell/Symbole.h"

#include <QCheckBox>
#include <QComboBox>
#include <QCoreApplication>
#include <QCursor>
#include <QEvent>
#include <QHeaderView>
#include <QKeyEvent>
#include <QLabel>
#include <QListWidget>
#include <QMenu>
#include <QMenuBar>
#include <QMouseEvent>
#include <QProgressBar>
#include <QPushButton>
#include <QTabBar>
#include <QTextEdit>
#include <QTimer>
#include <QTreeWidget>
#include <QVideoWidget>

#include <functional>
#include <map>

void Ausgabebox::EreignisseVerbinden()
{
    connect(MenuBeendenAktion, &QAction::triggered, this, [this] { MenuBeenden(); });
    connect(mnuDatenbank, &QAction::triggered, this, [this] { mnuDatenbank_Click(); });

    // Tool buttons whose commands stand; the others wait for their commands.
    const std::map<int, std::function<void()>> werkzeuge = {
        {0, [this] { datensatzbearbeitung().MenuNeuEingabe_Click(); }},
        {1, [this] { datensatzbearbeitung().MenuSpeichern_Click(); }},
        {2, [this] { katalogdatei().MenuAktualisieren_Click(); }},
        {4, [this] { sqlKonsole().MenuSQLabfrage_Click(); }},
        {9, [this] { MenuBeenden(); }},
        {10, [this] { katalogdatei().mnuOeffnen_Click(); }},
        {16, [this] { tabellenansicht().mnuTabelleAutosize_Click(); }},
    };
    for (int i = 0; i < 21; ++i) {
        const auto it = werkzeuge.find(i);
        if (it == werkzeuge.end()) {
            cmdButton[i]->setEnabled(false);
            continue;
        }
        const std::function<void()> befehl = it->second;
        connect(cmdButton[i], &Bildknopf::MouseUp, this, [befehl](Qt::MouseButton knopf) {
            QCoreApplication::processEvents();
            if (knopf == Qt::LeftButton)
                befehl();
        });
    }
    // Controls whose commands are not built yet wait, greyed.
    for (QWidget* wartet : std::initializer_list<QWidget*>{
             imgMiniPlayer, imgLautsprecherregler, imgMusikpfad, cmdBandTitel, cmdTextBig, cmdTextSmall,
             cmdCoverUp, cmdCoverDown, imgEbookOpen, imgEbookKill, imgEbookPlay, chkBildpfad})
        wartet->setEnabled(false);
    for (Bildknopf* b : ButtonText)
        if (b)
            b->setEnabled(false);


    for (QTextEdit* t : {TextSongs, txtSongText, rtfLinks, rtfInfo, rtfSonstiges})
        t->installEventFilter(this);

    // Label captions keep "&&" for a literal "&", as captions with an access key do.
    const std::pair<int, QWidget*> partner[] = {
        {0, TextBand},         {1, TextLPTitel},   {2, TextMedium},  {3, TextSongs},
        {4, TextInfo},         {5, TextPreis},     {6, TextStil},    {7, TextKaufdatum},
        {8, TextBestellNr},    {9, TextPlattenfirma}, {10, TextMusikpfad}, {11, cboEbook},
        {12, filTrack},
    };
    for (const auto& [index, feld] : partner)
        Bez[index]->setBuddy(feld);


    // Tabs choose the pane of the text area.
    connect(tabTexte, &QTabBar::currentChanged, this, [this](int) { TextseiteZeigen(); });
    TextseiteZeigen();
}

void Ausgabebox::TextseiteZeigen()
{
    const int reiter = tabTexte->currentIndex() + 1;
    const bool cover = reiter == 1;
    for (QWidget* w : std::initializer_list<QWidget*>{chkBildpfad, cboBildpfad, chkVisualisierung, chkVollbild,
                                                      Bez[11], cboEbook, imgEbookOpen, imgEbookKill,
                                                      imgEbookPlay})
        w->setVisible(cover);
    if (cover) {
        imgBildpfad->setVisible(chkBildpfad->isChecked());
        cboBildpfad->setVisible(chkBildpfad->isChecked());
        Bild1->setVisible(!chkBildpfad->isChecked());
    } else {
        imgBildpfad->hide();
        Bild1->hide();
    }
    abspieler().MediaPlayer1Zeigen(abspieler().MediaPlayer1Sichtbar);
    rtfLinks->setVisible(reiter == 2);
    rtfInfo->setVisible(reiter == 3);
    rtfSonstiges->setVisible(reiter == 4);
    filPlaylist->setVisible(reiter == 5);
    lvwPlaylist->raise();
    txtSongText->raise();
    picCoverGreat->raise();
}

bool Ausgabebox::eventFilter(QObject* objekt, QEvent* ereignis)
{
    if (ereignis->type() == QEvent::FocusIn) {
        if (auto* text = qobject_cast<QTextEdit*>(objekt)) {
            AktivesFeld = text->objectName();
            AktivesTextfeld = text->objectName();
            mnuSchrift->setEnabled(true);
        }
    } else if (ereignis->type() == QEvent::FocusOut && qobject_cast<QTextEdit*>(objekt)) {
        mnuSchrift->setEnabled(false);
        AktivesTextfeld.clear();
    }
    return QMainWindow::eventFilter(objekt, ereignis);
}
