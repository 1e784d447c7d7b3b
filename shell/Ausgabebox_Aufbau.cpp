// The controls and menus of the main window and their places at design size.
#include "catalogue/Datensatzansicht.h"
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
    for (int i = 0; i < 15; ++i)
        connect(mnuSpalte[i], &QAction::triggered, this, [this, i] {
            for (QAction* a : mnuSpalte)
                a->setChecked(false);
            mnuSpalte[i]->setChecked(true);
        });

    // Tool buttons whose commands stand; the others wait for their commands.
    const std::map<int, std::function<void()>> werkzeuge = {
        {0, [this] { datensatzbearbeitung().MenuNeuEingabe_Click(); }},
        {1, [this] { datensatzbearbeitung().MenuSpeichern_Click(); }},
        {2, [this] { katalogdatei().MenuAktualisieren_Click(); }},
        {4, [this] { sqlKonsole().MenuSQLabfrage_Click(); }},
        {9, [this] { MenuBeenden(); }},
        {10, [this] { katalogdatei().mnuOeffnen_Click(); }},
        {16, [this] { mnuTabelleAutosize_Click(); }},
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
    connect(cmdABC, &QPushButton::clicked, this, [this] { katalogdatei().MenuAktualisieren_Click(); });
    connect(mnuTabelleAutosize, &QAction::triggered, this, [this] { mnuTabelleAutosize_Click(); });
    connect(mnuAllesMarkieren, &QAction::triggered, this, [this] { mnuAllesMarkieren_Click(); });
    connect(mnuTabelleAnordnen, &QAction::triggered, this, [this] { mnuTabelleAnordnen_Click(); });
    connect(mnuStilrichtungAusschliessen, &QAction::triggered, this, [this] { mnuStilrichtungAusschliessen_Click(); });
    connect(mnuBandAusschliessen, &QAction::triggered, this, [this] { mnuBandAusschliessen_Click(); });
    connect(chkTabelle, &QCheckBox::clicked, this, [this] { chkTabelle_Click(); });
    for (int i = 0; i < 32; ++i) {
        connect(ButtonAlpabeth[i], &QPushButton::clicked, this, [this, i] { ButtonAlpabeth_MouseUp(i); });
        ButtonAlpabeth[i]->installEventFilter(this);
    }

    connect(Data1, &Datensteuerung::neuAufgebaut, this, [this] { MSFlexGrid1->setRecordset(Data1->recordset()); });
    connect(Data1, &Datensteuerung::zeileGeaendert, MSFlexGrid1, &FlexGrid::zeileGeaendert);
    connect(Data1, &Datensteuerung::zeileAngehaengt, MSFlexGrid1, &FlexGrid::zeileAngehaengt);
    connect(Data1, &Datensteuerung::zeileEntfernt, MSFlexGrid1, &FlexGrid::zeileEntfernt);
    connect(MSFlexGrid1, &FlexGrid::RowColChange, this, [this] { MSFlexGrid1_RowColChange(); });
    connect(MSFlexGrid1, &FlexGrid::GotFocus, this, [this] { AktivesFeld = QStringLiteral("MSFlexGrid1"); });
    connect(MSFlexGrid1, &FlexGrid::KeyPress, this, [](int taste) {
        if (taste == Qt::Key_Escape)
            Abbruch = true;
    });
    connect(MSFlexGrid1, &FlexGrid::MouseDown, this,
            [this](Qt::MouseButton knopf, Qt::KeyboardModifiers) { MSFlexGrid1_MouseDown(knopf); });
    connect(MSFlexGrid1, &FlexGrid::MouseMove, this, [this](Qt::MouseButtons k) { MSFlexGrid1_MouseMove(k); });
    connect(MSFlexGrid1, &FlexGrid::MouseUp, this, [this] { datensatzansicht().TrackListeLaden(); });
    // The current cell shows in the highlight colours, the cell left behind faintly.
    connect(MSFlexGrid1, &FlexGrid::LeaveCell, this, [this] {
        QPalette p = MSFlexGrid1->palette();
        p.setColor(QPalette::Highlight, p.color(QPalette::HighlightedText));
        p.setColor(QPalette::HighlightedText, p.color(QPalette::WindowText));
        MSFlexGrid1->setPalette(p);
    });
    connect(MSFlexGrid1, &FlexGrid::EnterCell, this, [this] { MSFlexGrid1->setPalette(QPalette()); });

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

    // The player.
    lvwPlaylist->installEventFilter(this);

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
    if (ereignis->type() == QEvent::MouseButtonPress
        && static_cast<QMouseEvent*>(ereignis)->button() == Qt::RightButton
        && objekt->objectName().startsWith(u"ButtonAlpabeth(")) {
        // The right button chooses the column the letters work on.
        mnuSpaltenkopf->popup(QCursor::pos());
        return true;
    }
    if (objekt == lvwPlaylist && ereignis->type() == QEvent::FocusIn)
        // A row n of the playlist uses mark n; mark 0 stays free.
        TrackGespielt.assign(size_t(lvwPlaylist->topLevelItemCount()) + 1, 0);
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
