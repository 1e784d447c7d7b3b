// The controls and menus of the main window and their places at design size.
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
#include <QKeyEvent>
#include <QMouseEvent>
#include <QTimer>
#include <QHeaderView>
#include <QLabel>
#include <QListWidget>
#include <QMenu>
#include <QMenuBar>
#include <QProgressBar>
#include <QPushButton>
#include <QTabBar>
#include <QTextEdit>
#include <QTreeWidget>
#include <QVideoWidget>

#include <functional>
#include <map>

namespace {

template <class T>
T* neu(QWidget* eltern, const QString& name)
{
    auto* w = new T(eltern);
    w->setObjectName(name);
    return w;
}

QTextEdit* textfenster(QWidget* eltern, const QString& name)
{
    auto* t = neu<QTextEdit>(eltern, name);
    t->setAcceptRichText(true);
    t->setTabChangesFocus(false);
    return t;
}

Bildknopf* knopf(QWidget* eltern, const QString& name, const QString& symbol, const QString& tipp = {})
{
    auto* b = neu<Bildknopf>(eltern, name);
    b->setIcon(Symbol(symbol));
    b->setIconSize(QSize(20, 20));
    if (!tipp.isEmpty())
        b->setToolTip(tipp);
    return b;
}

QCheckBox* kasten(QWidget* eltern, const QString& name, const QString& text, const QString& tipp = {})
{
    auto* k = neu<QCheckBox>(eltern, name);
    k->setText(text);
    if (!tipp.isEmpty())
        k->setToolTip(tipp);
    return k;
}

} // namespace

void Ausgabebox::Platz(QWidget* w, int links, int oben, int breite, int hoehe)
{
    w->setGeometry(Px(links), Px(oben), std::max(0, Px(breite)), std::max(0, Px(hoehe)));
}

void Ausgabebox::SteuerelementeAnlegen()
{
    Innen = new QWidget(this);
    Innen->setObjectName(QStringLiteral("Innenflaeche"));
    FarbverlaufSetzen(Innen, Farbe::StandardHintergrund, Farbe::VerlaufEnde, VerlaufSenkrecht);
    setCentralWidget(Innen);
    QWidget* e = Innen;

    // Catalogue and table
    Data1 = neu<Datensteuerung>(e, QStringLiteral("Data1"));
    Data1->setCaption(QStringLiteral("      Steuerung"));
    Data1->setToolTip(QStringLiteral(" Datenbanksteuerung "));
    MSFlexGrid1 = neu<FlexGrid>(e, QStringLiteral("MSFlexGrid1"));
    for (int i = 0; i < 32; ++i) {
        auto* b = neu<QPushButton>(e, ButtonAlpabeth.Name(i));
        if (i < 26)
            b->setText(QString(QChar(u'A' + i)));
        else {
            b->setIcon(QIcon(Stern(12, true)));
            b->setIconSize(QSize(10, 10));
            b->setText(QString::number(i - 25));
            b->setToolTip(QStringLiteral(" Tonträger mit %1 Sternen ").arg(i - 25));
        }
        b->setFocusPolicy(Qt::NoFocus);
        b->setContextMenuPolicy(Qt::PreventContextMenu);
        ButtonAlpabeth[i] = b;
    }
    cmdABC = neu<QPushButton>(e, QStringLiteral("cmdABC"));
    cmdABC->setText(QStringLiteral("Alle"));
    cmdABC->setToolTip(QStringLiteral(" Ganze Tabelle anzeigen "));
    cmdABC->setFocusPolicy(Qt::NoFocus);
    chkTabelle = kasten(e, QStringLiteral("chkTabelle"), QStringLiteral("AZ"),
                        QStringLiteral(" Für jeden Buchstaben A-Z, eine eigene Tabelle anzeigen "));
    lblTabellenName = neu<QLabel>(e, QStringLiteral("lblTabellenName"));
    lblTabellenName->setText(QStringLiteral("alle"));
    txtSuchen = neu<Textfeld>(e, QStringLiteral("txtSuchen"));
    txtSuchen->setPlaceholderText(QStringLiteral("Tabelle durchsuchen"));

    // Record form
    struct Feld {
        Textfeld** ziel;
        const char* name;
    };
    const Feld felder[] = {
        {&TextBand, "TextBand"},           {&TextLPTitel, "TextLPTitel"},
        {&TextMedium, "TextMedium"},       {&TextStil, "TextStil"},
        {&TextInfo, "TextInfo"},           {&TextPlattenfirma, "TextPlattenfirma"},
        {&TextBestellNr, "TextBestellNr"}, {&TextPreis, "TextPreis"},
        {&TextKaufdatum, "TextKaufdatum"}, {&TextMusikpfad, "TextMusikpfad"},
    };
    for (const Feld& f : felder) {
        *f.ziel = neu<Textfeld>(e, QLatin1String(f.name));
        // Field values go into SQL texts by concatenation: the apostrophe is swallowed.
        (*f.ziel)->setGeschluckt(QStringLiteral("'"));
    }
    TextPreis->setEnterSchlucken(true);
    imgMusikpfad = knopf(e, QStringLiteral("imgMusikpfad"), QStringLiteral("ordner"),
                         QStringLiteral(" Musikpfad wählen "));
    cmdBandTitel = neu<QPushButton>(e, QStringLiteral("cmdBandTitel"));
    cmdBandTitel->setText(QStringLiteral("Band - Titel"));
    cmdBandTitel->setToolTip(QStringLiteral(" Band - Titel in die Zwischenablage kopieren "));
    cmdBandTitel->setFocusPolicy(Qt::NoFocus);
    const char* bezTexte[] = {"Band",      "Titel",     "Medium",       "Songs",
                              "Info",      "Preis",     "Stilrichtung", "Kaufdatum",
                              "Bestell-Nr.", "Firma",   "Musikpfad",    "eBook u. Multimedia (0)",
                              "Tracks && Movies", "DB"};
    for (int i = 0; i < 14; ++i) {
        auto* l = neu<QLabel>(e, Bez.Name(i));
        l->setTextFormat(Qt::PlainText);
        l->setText(QString::fromUtf8(bezTexte[i]));
        Bez[i] = l;
    }
    Bez[0]->setToolTip(QStringLiteral(" Online-Suche Band "));
    Bez[1]->setToolTip(QStringLiteral(" Online-Suche Band u. Titel "));
    Bez[8]->setToolTip(QStringLiteral(" Online-Suche Bestell-Nr. "));
    txtBewertung = neu<Textfeld>(e, QStringLiteral("txtBewertung"));
    txtBildpfad = neu<Textfeld>(e, QStringLiteral("txtBildpfad"));
    txtEbook = neu<Textfeld>(e, QStringLiteral("txtEbook"));
    for (Textfeld* t : {txtBewertung, txtBildpfad, txtEbook})
        t->hide();
    for (int i = 0; i < 6; ++i) {
        auto* s = neu<Bildfeld>(e, imgCDnote.Name(i));
        s->setToolTip(QStringLiteral(" Tonträger bewerten: %1 ").arg(i + 1));
        s->setCursor(Qt::PointingHandCursor);
        imgCDnote[i] = s;
    }
    cboEbook = neu<QComboBox>(e, QStringLiteral("cboEbook"));
    imgEbookOpen = knopf(e, QStringLiteral("imgEbookOpen"), QStringLiteral("ebook_laden"),
                         QStringLiteral(" eBook laden... "));
    imgEbookKill = knopf(e, QStringLiteral("imgEbookKill"), QStringLiteral("ebook_loeschen"),
                         QStringLiteral(" eBook löschen "));
    imgEbookPlay = knopf(e, QStringLiteral("imgEbookPlay"), QStringLiteral("ebook_zeigen"),
                         QStringLiteral(" eBook anzeigen "));

    // Text tabs
    tabTexte = neu<QTabBar>(e, QStringLiteral("tabTexte"));
    for (const char* reiter : {"Cover", "Links", "Info", "Sonstiges", "Playlists"})
        tabTexte->addTab(QString::fromUtf8(reiter));
    tabTexte->setDrawBase(true);
    tabTexte->setExpanding(false);
    TextSongs = textfenster(e, QStringLiteral("TextSongs"));
    rtfLinks = textfenster(e, QStringLiteral("rtfLinks"));
    rtfInfo = textfenster(e, QStringLiteral("rtfInfo"));
    rtfSonstiges = textfenster(e, QStringLiteral("rtfSonstiges"));
    txtSongText = textfenster(e, QStringLiteral("txtSongText"));
    txtSongText->hide();
    cmdTextBig = neu<QPushButton>(e, QStringLiteral("cmdTextBig"));
    cmdTextBig->setIcon(Symbol(QStringLiteral("hoch")));
    cmdTextBig->setToolTip(QStringLiteral(" Songliste vergrößern "));
    cmdTextSmall = neu<QPushButton>(e, QStringLiteral("cmdTextSmall"));
    cmdTextSmall->setIcon(Symbol(QStringLiteral("runter")));
    cmdTextSmall->setToolTip(QStringLiteral(" Songliste verkleinern "));
    for (QPushButton* b : {cmdTextBig, cmdTextSmall})
        b->setFocusPolicy(Qt::NoFocus);
    struct Format {
        int index;
        const char* symbol;
        const char* tipp;
    };
    const Format formate[] = {
        {0, "schrift", " Schriftart "},        {1, "farbe", " Schriftfarbe "},
        {2, "standardschrift", " Standardschrift "}, {3, "fett", " Fett "},
        {4, "kursiv", " Kursiv "},             {5, "unterstrichen", " Unterstrichen "},
        {6, "rand_links", " linker Textrand "}, {7, "suchen", " Suchen "},
        {8, "weitersuchen", " Weitersuchen "}, {9, "rand_rechts", " rechter Textrand "},
        {11, "punkte", " Bulletin "},          {12, "links", " Links "},
        {13, "mitte", " Zentriert "},          {14, "rechts", " Rechts "},
    };
    for (const Format& f : formate)
        ButtonText[f.index] = knopf(e, ButtonText.Name(f.index),
                                            QLatin1String(f.symbol), QString::fromUtf8(f.tipp));
    filPlaylist = neu<Dateiliste>(e, QStringLiteral("filPlaylist"));
    filPlaylist->setPattern(QStringLiteral("*.txt"));
    filPlaylist->setSelectionMode(QAbstractItemView::SingleSelection);
    lvwPlaylist = neu<QTreeWidget>(e, QStringLiteral("lvwPlaylist"));
    lvwPlaylist->setHeaderLabels({QStringLiteral("Playlist"), QStringLiteral("Band u. CD"),
                                  QStringLiteral("Pfad")});
    lvwPlaylist->setRootIsDecorated(false);
    lvwPlaylist->setSelectionMode(QAbstractItemView::ExtendedSelection);
    lvwPlaylist->hide();

    // Covers
    chkBildpfad = kasten(e, QStringLiteral("chkBildpfad"), QStringLiteral("kein externes Cover"));
    cboBildpfad = neu<QComboBox>(e, QStringLiteral("cboBildpfad"));
    Bild1 = neu<Bildfeld>(e, QStringLiteral("Bild1"));
    imgBildpfad = neu<Bildfeld>(e, QStringLiteral("imgBildpfad"));
    for (Bildfeld* b : {Bild1, imgBildpfad}) {
        b->setStretch(true);
        b->setFrameStyle(QFrame::StyledPanel | QFrame::Sunken);
    }
    picCoverGreat = neu<Bildfeld>(e, QStringLiteral("picCoverGreat"));
    picCoverGreat->setStretch(true);
    picCoverGreat->hide();
    for (int i = 0; i < 22; ++i) {
        auto* c = neu<Bildfeld>(e, imgCover.Name(i));
        c->setStretch(true);
        c->hide();
        imgCover[i] = c;
    }
    cmdCoverUp = neu<QPushButton>(e, QStringLiteral("cmdCoverUp"));
    cmdCoverUp->setIcon(Symbol(QStringLiteral("hoch")));
    cmdCoverUp->setToolTip(QStringLiteral(" Cover zurückblättern "));
    cmdCoverDown = neu<QPushButton>(e, QStringLiteral("cmdCoverDown"));
    cmdCoverDown->setIcon(Symbol(QStringLiteral("runter")));
    cmdCoverDown->setToolTip(QStringLiteral(" Cover weiterblättern "));
    for (QPushButton* b : {cmdCoverUp, cmdCoverDown})
        b->setFocusPolicy(Qt::NoFocus);
    lstCover = neu<QListWidget>(e, QStringLiteral("lstCover"));
    lstCover->hide();
    filCover = neu<Dateiliste>(e, QStringLiteral("filCover"));
    filCover->hide();

    // Track list and player
    filTrack = neu<Dateiliste>(e, QStringLiteral("filTrack"));
    fraSternTrack = neu<QFrame>(e, QStringLiteral("fraSternTrack"));
    for (int i = 0; i < 6; ++i) {
        auto* s = neu<Bildfeld>(fraSternTrack, imgSongNote.Name(i));
        s->setToolTip(QStringLiteral(" Track bewerten: %1 ").arg(i + 1));
        s->setCursor(Qt::PointingHandCursor);
        imgSongNote[i] = s;
    }
    imgStart = knopf(e, QStringLiteral("imgStart"), QStringLiteral("start"), QStringLiteral(" Start "));
    imgStop = knopf(e, QStringLiteral("imgStop"), QStringLiteral("stop"), QStringLiteral(" Stop "));
    imgPause[0] = knopf(e, QStringLiteral("imgPause(0)"), QStringLiteral("pause"), QStringLiteral(" Pause "));
    imgPause[1] = knopf(e, QStringLiteral("imgPause(1)"), QStringLiteral("pause_aktiv"),
                        QStringLiteral(" Pause "));
    imgPause[1]->hide();
    imgResume = knopf(e, QStringLiteral("imgResume"), QStringLiteral("resume"),
                      QStringLiteral(" Fortsetzen "));
    imgVorBack[0] = knopf(e, QStringLiteral("imgVorBack(0)"), QStringLiteral("zurueck"),
                          QStringLiteral(" Track zurück "));
    imgVorBack[1] = knopf(e, QStringLiteral("imgVorBack(1)"), QStringLiteral("vor"),
                          QStringLiteral(" Track vor "));
    for (int i = 0; i < 3; ++i) {
        imgPosAB[i] = knopf(e, imgPosAB.Name(i), QStringLiteral("ab%1").arg(i),
                                    QStringLiteral(" A-B Wiederholung "));
        if (i > 0)
            imgPosAB[i]->hide();
    }
    imgMiniPlayer = knopf(e, QStringLiteral("imgMiniPlayer"), QStringLiteral("miniplayer"),
                          QStringLiteral(" Mini-Player "));
    imgLiedzufall = knopf(e, QStringLiteral("imgLiedzufall"), QStringLiteral("zufall"),
                          QStringLiteral(" Tonträger zufällig wählen "));
    imgLautsprecherregler = knopf(e, QStringLiteral("imgLautsprecherregler"),
                                  QStringLiteral("lautsprecher"), QStringLiteral(" Lautstärke "));
    cmdInfoTrack = neu<QPushButton>(e, QStringLiteral("cmdInfoTrack"));
    cmdInfoTrack->setText(QStringLiteral("Track-Info"));
    cmdInfoTrack->hide();
    MediaPlayer1 = neu<QVideoWidget>(e, QStringLiteral("MediaPlayer1"));
    MediaPlayer1->hide();
    MediaPlayer1Spieler = D().medien().neuerSpieler(this);
    MediaPlayer1Spieler->setObjectName(QStringLiteral("MediaPlayer1Spieler"));
    MediaPlayer1Spieler->setVideoOutput(MediaPlayer1);
    MediaPlayer1Audio = new Audioanzeige(MediaPlayer1Spieler, e);
    MediaPlayer1Audio->hide();
    chkVisualisierung = kasten(e, QStringLiteral("chkVisualisierung"), QStringLiteral("Visual"));
    chkVollbild = kasten(e, QStringLiteral("chkVollbild"), QStringLiteral("Vollbild"));
    chkAlleTracks = kasten(e, QStringLiteral("chkAlleTracks"), QStringLiteral("Alle"),
                           QStringLiteral(" Alle Titel dieses Tonträgers abspielen "));
    chkRepeat = kasten(e, QStringLiteral("chkRepeat"), QStringLiteral("Repeat"),
                       QStringLiteral(" wiederholen "));
    chkShuffle = kasten(e, QStringLiteral("chkShuffle"), QStringLiteral("Shuffle"),
                        QStringLiteral(" Tonträger u. Song zufällig wählen "));
    chkTracksZufaellig = kasten(e, QStringLiteral("chkTracksZufaellig"), QStringLiteral("Zufällig"),
                                QStringLiteral(" Zufällig die Titel auswählen "));
    chkTracksAnspielen = kasten(e, QStringLiteral("chkTracksAnspielen"), QStringLiteral("Anspielen"),
                                QStringLiteral(" Titel anspielen "));
    chkMarkTracks = kasten(e, QStringLiteral("chkMarkTracks"), QStringLiteral("sel. Tracks"));
    chkRepeat->setEnabled(false);
    chkTracksZufaellig->setEnabled(false);
    chkTracksAnspielen->setEnabled(false);
    ProgressBar1 = neu<QProgressBar>(e, QStringLiteral("ProgressBar1"));
    ProgressBar1->hide();

    // Tool bar row
    const char* werkzeuge[][2] = {
        {"neu", " Neu "},
        {"speichern", " Speichern "},
        {"aktualisieren", " Aktualisieren "},
        {"suchen", " Suchen "},
        {"sql", " SQL-Anweisung "},
        {"cd", " CD-Player "},
        {"webcam", " WebCam "},
        {"cover", " Cover laden..."},
        {"backup", " Backup (Rechtsklick als Admin) "},
        {"beenden", " Beenden "},
        {"laden", " Datenbank laden "},
        {"scannen", " Cover einscannen"},
        {"dvd", " DVD-Player "},
        {"songtext", " Songtext ein/ausblenden "},
        {"playlist", " Playlist "},
        {"online", " Online-Datenabgleich "},
        {"spaltenbreite", " Spaltenbreite optimieren "},
        {"player", " Rillenkammer-Player starten "},
        {"link", " mark. Text als Link ausführen "},
        {"uebersetzen", " DeepL Translation "},
        {"schreiben", " DeepL Write "},
    };
    for (int i = 0; i < 21; ++i)
        cmdButton[i] = knopf(e, cmdButton.Name(i), QLatin1String(werkzeuge[i][0]),
                                     QString::fromUtf8(werkzeuge[i][1]));
    lblGradiant = neu<QLabel>(e, QStringLiteral("lblGradiant"));
    FarbverlaufSetzen(lblGradiant, Farbe::VerlaufEnde, Farbe::StandardHintergrund, VerlaufWaagerecht);
    cmdPlayAsso = neu<QPushButton>(e, QStringLiteral("cmdPlayAsso"));
    cmdPlayAsso->setText(QStringLiteral("Extern abspielen"));
    cmdPlayAsso->setToolTip(QStringLiteral(" Track mit dem zugeordneten Programm abspielen "));
    cmdPlayAsso->setFocusPolicy(Qt::NoFocus);

    staBar = new Statusleiste({0, 0, 130, 80, 80, 110}, e);
    staBar->setObjectName(QStringLiteral("staBar"));

    // Hidden helpers
    lstAbspielausschluss = neu<QListWidget>(e, QStringLiteral("lstAbspielausschluss"));
    lstBandAusschluss = neu<QListWidget>(e, QStringLiteral("lstBandAusschluss"));
    filHtml = neu<Dateiliste>(e, QStringLiteral("filHtml"));
    filHtml->setPattern(QStringLiteral("*.html"));
    lblTemp = neu<QLabel>(e, QStringLiteral("lblTemp"));
    rtf2Text = textfenster(e, QStringLiteral("rtf2Text"));
    txtdummy = neu<Textfeld>(e, QStringLiteral("txtdummy"));
    imgStern = neu<Bildfeld>(e, QStringLiteral("imgStern"));
    imgStern->setBild(Stern(18, true));
    imgSternGrau = neu<Bildfeld>(e, QStringLiteral("imgSternGrau"));
    imgSternGrau->setBild(Stern(18, false));
    for (QWidget* w : std::initializer_list<QWidget*>{lstAbspielausschluss, lstBandAusschluss, filHtml,
                                                      lblTemp, rtf2Text, txtdummy, imgStern, imgSternGrau})
        w->hide();

    // Timers
    struct Uhrwerk {
        Zeitgeber** ziel;
        const char* name;
        int intervall;
    };
    const Uhrwerk uhren[] = {{&Timer1, "Timer1", 1000},
                             {&Timer2, "Timer2", 500},
                             {&Timer4, "Timer4", 1000},
                             {&TimerPosAB, "TimerPosAB", 500},
                             {&TimerSleep, "TimerSleep", 5000}};
    for (const Uhrwerk& u : uhren) {
        *u.ziel = D().uhr().neuerZeitgeber(this);
        (*u.ziel)->setObjectName(QLatin1String(u.name));
        (*u.ziel)->setInterval(u.intervall);
        (*u.ziel)->setEnabled(false);
    }

    // The bound record controls and their columns.
    m_bindungen = {
        {TextBand, QStringLiteral("Band")},
        {TextLPTitel, QStringLiteral("LPTitel")},
        {TextMedium, QStringLiteral("Medium")},
        {TextStil, QStringLiteral("Stil")},
        {TextInfo, QStringLiteral("Info")},
        {TextPlattenfirma, QStringLiteral("Plattenfirma")},
        {TextBestellNr, QStringLiteral("BestellNr")},
        {TextPreis, QStringLiteral("Preis")},
        {TextKaufdatum, QStringLiteral("Datum")},
        {TextSongs, QStringLiteral("Songs")},
        {txtBildpfad, QStringLiteral("BildPfad")},
        {TextMusikpfad, QStringLiteral("Musikpfad")},
        {txtSongText, QStringLiteral("SongText")},
        {txtEbook, QStringLiteral("eBook")},
        {txtBewertung, QStringLiteral("Bewertung")},
        {rtfLinks, QStringLiteral("InternetTab")},
        {rtfInfo, QStringLiteral("InfoTab")},
        {rtfSonstiges, QStringLiteral("SonstigesTab")},
    };
}

void Ausgabebox::Entwurfsplaetze()
{
    // Tool bar row; lblGradiant and cmdPlayAsso follow the width in Form_Resize.
    for (int i = 0; i < 21; ++i)
        Platz(cmdButton[i], 30 + i * 405, 30, 390, 390);
    Platz(lblGradiant, 8580, 30, 4800, 390);
    Platz(cmdPlayAsso, 13500, 30, 1620, 390);

    // Cover strip at the left edge.
    Platz(cmdCoverUp, 30, 450, 1410, 300);
    for (int i = 0; i < 22; ++i)
        Platz(imgCover[i], 75, 780 + i * 970, 1320, 930);
    Platz(cmdCoverDown, 30, 9480, 1410, 300);

    // The text tabs; the playlist takes their place when it shows.
    Platz(tabTexte, 1500, 420, 6990, 360);
    Platz(chkBildpfad, 1560, 840, 2400, 300);
    Platz(cboBildpfad, 3990, 810, 2310, 345);
    Platz(chkVisualisierung, 6360, 840, 960, 300);
    Platz(chkVollbild, 7350, 840, 1110, 300);
    Platz(Bild1, 1560, 1380, 6870, 4150);
    Platz(imgBildpfad, 1560, 1380, 6870, 4150);
    Platz(MediaPlayer1, 1560, 1380, 6870, 4150);
    Platz(picCoverGreat, 1500, 780, 6990, 5475);
    Platz(Bez[11], 1560, 5640, 2200, 270);
    Platz(cboEbook, 3780, 5600, 3480, 345);
    Platz(imgEbookOpen, 7290, 5580, 390, 390);
    Platz(imgEbookKill, 7680, 5580, 390, 390);
    Platz(imgEbookPlay, 8070, 5580, 390, 390);
    for (QTextEdit* t : {rtfLinks, rtfInfo, rtfSonstiges})
        Platz(t, 1560, 840, 6870, 5385);
    Platz(filPlaylist, 1560, 840, 6870, 5385);
    Platz(lvwPlaylist, 1500, 750, 6990, 5505);
    Platz(txtSongText, 1500, 780, 12000, 8000);

    // The record form.
    struct Zeile {
        QLabel* bez;
        QWidget* feld;
    };
    const Zeile spalte1[] = {{Bez[0], TextBand}, {Bez[2], TextMedium}, {Bez[4], TextInfo},
                             {Bez[8], TextBestellNr}, {Bez[7], TextKaufdatum}};
    const Zeile spalte2[] = {{Bez[1], TextLPTitel}, {Bez[6], TextStil}, {Bez[9], TextPlattenfirma},
                             {Bez[5], TextPreis}, {Bez[10], TextMusikpfad}};
    for (int k = 0; k < 5; ++k) {
        Platz(spalte1[k].bez, 8550, 450 + k * 720, 1995, 240);
        Platz(spalte1[k].feld, 8550, 690 + k * 720, 1995, 390);
        Platz(spalte2[k].bez, 10605, 450 + k * 720, 1995, 240);
        Platz(spalte2[k].feld, 10605, 690 + k * 720, 1995, 390);
    }
    Platz(TextMusikpfad, 10605, 3570, 1605, 390);
    Platz(imgMusikpfad, 12210, 3570, 390, 390);
    Platz(Bez[3], 8550, 4050, 2000, 240);
    Platz(cmdTextBig, 11880, 4020, 345, 270);
    Platz(cmdTextSmall, 12255, 4020, 345, 270);
    Platz(TextSongs, 8550, 4290, 4050, 1150);
    int x = 8550;
    for (int i = 0; i < 15; ++i) {
        if (!ButtonText[i])
            continue;
        Platz(ButtonText[i], x, 5480, 285, 300);
        x += 285;
    }
    for (int i = 0; i < 6; ++i)
        Platz(imgCDnote[i], 8550 + i * 300, 5850, 300, 300);
    Platz(cmdBandTitel, 10500, 5835, 2100, 330);

    // Track list with its stars.
    Platz(txtSuchen, 12660, 450, 2465, 330);
    Platz(Bez[12], 12660, 840, 2465, 240);
    Platz(filTrack, 12660, 1080, 2465, 4380);
    Platz(fraSternTrack, 13245, 5490, 1880, 330);
    for (int i = 0; i < 6; ++i)
        Platz(imgSongNote[i], 40 + i * 300, 15, 300, 300);

    // Transport and play modes.
    Bildknopf* transport[] = {imgStart,     imgPause[0],   imgResume,     imgStop,
                              imgVorBack[0], imgVorBack[1], imgPosAB[0],   imgLiedzufall,
                              imgMiniPlayer, imgLautsprecherregler};
    for (int i = 0; i < 10; ++i)
        Platz(transport[i], 1500 + i * 405, 6270, 390, 390);
    Platz(imgPause[1], 1500 + 405, 6270, 390, 390);
    Platz(imgPosAB[1], 1500 + 6 * 405, 6270, 390, 390);
    Platz(imgPosAB[2], 1500 + 6 * 405, 6270, 390, 390);
    Platz(cmdInfoTrack, 5600, 6300, 1000, 330);
    QCheckBox* modi[] = {chkAlleTracks, chkRepeat, chkShuffle, chkTracksZufaellig, chkTracksAnspielen,
                         chkMarkTracks};
    const int modusBreite[] = {800, 1050, 1080, 1080, 1250, 1350};
    x = 6660;
    for (int i = 0; i < 6; ++i) {
        Platz(modi[i], x, 6330, modusBreite[i], 300);
        x += modusBreite[i] + 30;
    }
    Platz(ProgressBar1, x, 6330, 1500, 300);
    Platz(Bez[13], 13500, 6330, 1600, 300);

    // Letters, table name and the data control above the table.
    for (int i = 0; i < 26; ++i)
        Platz(ButtonAlpabeth[i], 1500 + i * 240, 6720, 240, 330);
    for (int i = 26; i < 32; ++i)
        Platz(ButtonAlpabeth[i], 7800 + (i - 26) * 375, 6720, 375, 330);
    Platz(chkTabelle, 10110, 6750, 630, 270);
    Platz(cmdABC, 10740, 6720, 600, 330);
    Platz(lblTabellenName, 11400, 6750, 900, 270);
    Platz(Data1, 12330, 6720, 2790, 330);
    Platz(MSFlexGrid1, 1500, 7110, 13625, 2900);
    Platz(lblTemp, 0, 0, 1000, 300);
}

void Ausgabebox::MenusAnlegen()
{
    QMenuBar* leiste = menuBar();
    auto menue = [&](const char* name, const QString& text) {
        QMenu* m = leiste->addMenu(text);
        m->setObjectName(QLatin1String(name));
        return m;
    };
    auto eintrag = [](QMenu* m, const QString& name, const QString& text,
                          const QKeySequence& taste = {}) {
        QAction* a = m->addAction(text);
        a->setObjectName(name);
        if (!taste.isEmpty())
            a->setShortcut(taste);
        a->setShortcutContext(Qt::WindowShortcut);
        return a;
    };
    auto haken = [&](QMenu* m, const QString& name, const QString& text) {
        QAction* a = eintrag(m, name, text);
        a->setCheckable(true);
        return a;
    };

    mnuDatei = menue("mnuDatei", QStringLiteral("&Datei"));
    mnuOeffnen = eintrag(mnuDatei, QStringLiteral("mnuOeffnen"), QStringLiteral("&Datenbank laden..."),
                         QKeySequence(Qt::CTRL | Qt::Key_O));
    mnuNeueDatenbank = eintrag(mnuDatei, QStringLiteral("mnuNeueDatenbank"),
                               QStringLiteral("&Neue Datenbank anlegen..."));
    mnuSpeichernUnter = eintrag(mnuDatei, QStringLiteral("mnuSpeichernUnter"),
                                QStringLiteral("Speichern &unter..."), QKeySequence(Qt::CTRL | Qt::Key_U));
    MenuAktualisieren = eintrag(mnuDatei, QStringLiteral("MenuAktualisieren"),
                                QStringLiteral("&Aktualisieren"), QKeySequence(Qt::Key_F5));
    mnuDatei->addSeparator();
    MenuDrucken = eintrag(mnuDatei, QStringLiteral("MenuDrucken"), QStringLiteral("Vorderseite &drucken..."),
                          QKeySequence(Qt::CTRL | Qt::Key_F1));
    mnuVorschauDrucken = eintrag(mnuDatei, QStringLiteral("mnuVorschauDrucken"),
                                 QStringLiteral("&Vorschau Vorderseite drucken"),
                                 QKeySequence(Qt::CTRL | Qt::Key_F2));
    mnuBacksitePrint = eintrag(mnuDatei, QStringLiteral("mnuBacksitePrint"),
                               QStringLiteral("&Rückseite drucken..."), QKeySequence(Qt::CTRL | Qt::Key_F3));
    mnuViewBacksitePrint = eintrag(mnuDatei, QStringLiteral("mnuViewBacksitePrint"),
                                   QStringLiteral("Vorschau Rückseite druck&en"),
                                   QKeySequence(Qt::CTRL | Qt::Key_F4));
    mnuTabelleDrucken = eintrag(mnuDatei, QStringLiteral("mnuTabelleDrucken"),
                                QStringLiteral("&Tabelle drucken..."), QKeySequence(Qt::CTRL | Qt::Key_F5));
    mnuDatei->addSeparator();
    Menu_Backup = eintrag(mnuDatei, QStringLiteral("Menu_Backup"), QStringLiteral("&Backup..."));
    mnuDatei->addSeparator();
    for (int i = 0; i < 10; ++i) {
        QAction* a = eintrag(mnuDatei, mnuOrdner.Name(i), QString());
        a->setVisible(false);
        mnuOrdner[i] = a;
    }
    mnuDatei->addSeparator();
    MenuBeendenAktion = eintrag(mnuDatei, QStringLiteral("MenuBeenden"), QStringLiteral("&Beenden"));

    MenuBearbeiten = menue("MenuBearbeiten", QStringLiteral("&Bearbeiten"));
    MenuNeuEingabe = eintrag(MenuBearbeiten, QStringLiteral("MenuNeuEingabe"), QStringLiteral("&Neueingabe"),
                             QKeySequence(Qt::CTRL | Qt::Key_N));
    MenuSpeichern = eintrag(MenuBearbeiten, QStringLiteral("MenuSpeichern"), QStringLiteral("&Speichern"),
                            QKeySequence(Qt::CTRL | Qt::Key_S));
    MenuEintragLoeschen = eintrag(MenuBearbeiten, QStringLiteral("MenuEintragLoeschen"),
                                  QStringLiteral("Tonträger &löschen"));
    MenuBearbeiten->addSeparator();
    mnuKopieren = eintrag(MenuBearbeiten, QStringLiteral("mnuKopieren"), QStringLiteral("Tonträger &kopieren"));
    mnuTontraegerEinfuegen = eintrag(MenuBearbeiten, QStringLiteral("mnuTontraegerEinfügen"),
                                     QStringLiteral("Tonträger &einfügen"));
    MenuBearbeiten->addSeparator();
    mnuTabelleExportieren = eintrag(MenuBearbeiten, QStringLiteral("mnuTabelleExportieren"),
                                    QStringLiteral("Tabelle exportieren"));
    mnuTabelleImportieren = eintrag(MenuBearbeiten, QStringLiteral("mnuTabelleImportieren"),
                                    QStringLiteral("Tabelle importieren..."));
    MenuBearbeiten->addSeparator();
    MenuSuchen = eintrag(MenuBearbeiten, QStringLiteral("MenuSuchen"), QStringLiteral("&Suchen / Ersetzen..."),
                         QKeySequence(Qt::Key_F2));

    mnuTabelle = menue("mnuTabelle", QStringLiteral("&Tabelle"));
    mnuTabelleAutosize = eintrag(mnuTabelle, QStringLiteral("mnuTabelleAutosize"),
                                 QStringLiteral("Tabellenspaltenbreite &optimieren"), QKeySequence(Qt::Key_F11));
    mnuTabelleAnordnen = eintrag(mnuTabelle, QStringLiteral("mnuTabelleAnordnen"),
                                 QStringLiteral("&Tabellenspalten anordnen..."));
    mnuAllesMarkieren = eintrag(mnuTabelle, QStringLiteral("mnuAllesMarkieren"), QStringLiteral("Alles &markieren"),
                                QKeySequence(Qt::CTRL | Qt::Key_A));
    mnuTabelle->addSeparator();
    MenuSQLabfrage = eintrag(mnuTabelle, QStringLiteral("MenuSQLabfrage"), QStringLiteral("S&QL-Anweisung..."));

    mnuPlayer = menue("mnuPlayer", QStringLiteral("P&layer"));
    mnuWinPlayerVerwenden = haken(mnuPlayer, QStringLiteral("mnuWinPlayerVerwenden"),
                                  QStringLiteral("Windows Media Player &verwenden"));
    mnuPauseZwischenTracks = eintrag(mnuPlayer, QStringLiteral("mnuPauseZwischenTracks"),
                                     QStringLiteral("&Pause zwischen den Tracks..."));
    mnuLiedLang = eintrag(mnuPlayer, QStringLiteral("mnuLiedLang"), QStringLiteral("Liedlänge &messen"));
    mnuSleep = haken(mnuPlayer, QStringLiteral("mnuSleep"), QStringLiteral("Sl&eep..."));
    mnuPlayer->addSeparator();
    mnuCDplayer = eintrag(mnuPlayer, QStringLiteral("mnuCDplayer"), QStringLiteral("&CD-Player"),
                          QKeySequence(Qt::CTRL | Qt::Key_P));
    mnuDVDplayer = eintrag(mnuPlayer, QStringLiteral("mnuDVDplayer"), QStringLiteral("&DVD-Player"));
    mnuWebCam = eintrag(mnuPlayer, QStringLiteral("mnuWebCam"), QStringLiteral("&WebCam"));
    mnuRillenkammerPlayer = eintrag(mnuPlayer, QStringLiteral("mnuRillenkammerPlayer"),
                                    QStringLiteral("Rillenkamme&r-Player starten"));

    mnuPlaylist = menue("mnuPlaylist", QStringLiteral("&Playlist"));
    mnuPlaylistNeu = eintrag(mnuPlaylist, QStringLiteral("mnuPlaylistNeu"), QStringLiteral("&Neu..."));
    mnuPlaylistLaden = eintrag(mnuPlaylist, QStringLiteral("mnuPlaylistLaden"), QStringLiteral("&Laden..."));
    mnuPlaylistAnzeigen = haken(mnuPlaylist, QStringLiteral("mnuPlaylistAnzeigen"), QStringLiteral("An&zeigen"));
    mnuPlaylistKill = eintrag(mnuPlaylist, QStringLiteral("mnuPlaylistKill"), QStringLiteral("L&öschen..."));
    mnuPlaylistHaken = eintrag(mnuPlaylist, QStringLiteral("mnuPlaylistHaken"),
                               QStringLiteral("Alle &Häkchen an/aus"));
    mnuPlaylistAufnehmen = eintrag(mnuPlaylist, QStringLiteral("mnuPlaylistAufnehmen"),
                                   QStringLiteral("&In Playlist aufnehmen"));
    mnuPlaylistKopieren = eintrag(mnuPlaylist, QStringLiteral("mnuPlaylistKopieren"),
                                  QStringLiteral("Playlist in Ordner &kopieren..."));
    mnuPlaylist->addSeparator();
    mnuTontraegerGenerieren = eintrag(mnuPlaylist, QStringLiteral("mnuTontraegerGenerieren"),
                                      QStringLiteral("&Tonträger generieren..."));
    mnuAlleSongsKopieren = eintrag(mnuPlaylist, QStringLiteral("mnuAlleSongsKopieren"),
                                   QStringLiteral("Alle Songs der Tabelle in Ordner kopieren..."));

    mnuBild = menue("mnuBild", QStringLiteral("&Cover"));
    mnuBildLaden = eintrag(mnuBild, QStringLiteral("mnuBildLaden"), QStringLiteral("Cover &laden..."),
                           QKeySequence(Qt::Key_F6));
    MenuBildkopieren = eintrag(mnuBild, QStringLiteral("MenuBildkopieren"), QStringLiteral("Cover &kopieren"),
                               QKeySequence(Qt::Key_F7));
    MenuBildEinfuegen = eintrag(mnuBild, QStringLiteral("MenuBildEinfuegen"),
                                QStringLiteral("Cover &einfügen intern"), QKeySequence(Qt::Key_F8));
    mnuCoverExAblegen = eintrag(mnuBild, QStringLiteral("mnuCoverExAblegen"),
                                QStringLiteral("Cover einfügen extern (empfohlen)"), QKeySequence(Qt::Key_F9));
    mnuBildScannen = eintrag(mnuBild, QStringLiteral("mnuBildScannen"), QStringLiteral("Cover ein&scannen"));
    mnuBild->addSeparator();
    mnuBildDatenbankpfad = haken(mnuBild, QStringLiteral("mnuBildDatenbankpfad"),
                                 QStringLiteral("Cover u. eBook vom &Datenbankpfad laden"));
    mnuBild->addSeparator();
    mnuBildLoeschen = eintrag(mnuBild, QStringLiteral("mnuBildLoeschen"), QStringLiteral("Cover l&öschen"));
    mnuCoverPfadEnfernen = eintrag(mnuBild, QStringLiteral("mnuCoverPfadEnfernen"),
                                   QStringLiteral("Cover-Pfad entfernen"));

    mnuSchrift = menue("mnuSchrift", QStringLiteral("&Schrift"));
    mnuSchriftTiefgestellt = eintrag(mnuSchrift, QStringLiteral("mnuSchriftTiefgestellt"),
                                     QStringLiteral("&Tiefgestellt"));
    mnuSchriftHochgestellt = eintrag(mnuSchrift, QStringLiteral("mnuSchriftHochgestellt"),
                                     QStringLiteral("&Hochgestellt"));
    mnuSchriftDurchstrichen = eintrag(mnuSchrift, QStringLiteral("mnuSchriftDurchstrichen"),
                                      QStringLiteral("&Durchstrichen"));
    mnuSchrift->addSeparator();
    mnuRandLinks = eintrag(mnuSchrift, QStringLiteral("mnuRandLinks"), QStringLiteral("&linker Rand"));
    mnuRandRechts = eintrag(mnuSchrift, QStringLiteral("mnuRandRechts"), QStringLiteral("&rechter Rand"));
    // Only while a text pane has the focus.
    mnuSchrift->setEnabled(false);

    mnuExtras = menue("mnuExtras", QStringLiteral("E&xtras"));
    mnuInPlaylistAufnehmen = eintrag(mnuExtras, QStringLiteral("mnuInPlaylistAufnehmen"),
                                     QStringLiteral("&In Playlist aufnehmen                     F11"));
    mnuExtras->addSeparator();
    mnuTrackName = eintrag(mnuExtras, QStringLiteral("mnuTrackName"), QStringLiteral("&Track umbenennen..."));
    mnuTracksRenameTextTrack = eintrag(mnuExtras, QStringLiteral("mnuTracksRenameTextTrack"),
                                       QStringLiteral("Tracks umbenennen: Text vor Tracks..."));
    mnuTrackSuchenErsetzen = eintrag(mnuExtras, QStringLiteral("mnuTrackSuchenErsetzen"),
                                     QStringLiteral("Tracks &suchen und ersetzen..."));
    mnuTrackKill = eintrag(mnuExtras, QStringLiteral("mnuTrackKill"), QStringLiteral("Tracks l&öschen..."));
    mnuTrackSpeichernUnter = eintrag(mnuExtras, QStringLiteral("mnuTrackSpeichernUnter"),
                                     QStringLiteral("Track speichern u&nter..."));
    mnuTracksZeichenEntfernen = eintrag(mnuExtras, QStringLiteral("mnuTracksZeichenEntfernen"),
                                        QStringLiteral("Tracks n Zeichen &vorn entfernen..."));
    mnuTracksZeichenHintenEntfernen = eintrag(mnuExtras, QStringLiteral("mnuTracksZeichenHintenEntfernen"),
                                              QStringLiteral("Tracks n Zeichen hinten entfernen..."));
    mnuTrackGrossbuchstabe = eintrag(mnuExtras, QStringLiteral("mnuTrackGrossbuchstabe"),
                                     QStringLiteral("Tracks Wortanfang in &Großbuchstaben"));
    mnuSongsZeichenEntfernen = eintrag(mnuExtras, QStringLiteral("mnuSongsZeichenEntfernen"),
                                       QStringLiteral("Songs: &n Zeichen hinten entfernen..."));
    mnuTrackMovieCopy = eintrag(mnuExtras, QStringLiteral("mnuTrackMovieCopy"),
                                QStringLiteral("Songs: Tracks nach Textfeld \"Songs\" &kopieren..."));
    mnuTrackMovieUmbenennen = eintrag(mnuExtras, QStringLiteral("mnuTrackMovieUmbenennen"),
                                      QStringLiteral("Songs: Tracks entsprechend Textfeld \"Songs\" &umbenennen..."));
    mnuExtras->addSeparator();
    mnuAnzahlInterpreten = eintrag(mnuExtras, QStringLiteral("mnuAnzahlInterpreten"),
                                   QStringLiteral("An&zahl der Interpreten ermitteln"));
    mnuAnzahlTracks = eintrag(mnuExtras, QStringLiteral("mnuAnzahlTracks"),
                              QStringLiteral("Anzahl der Tracks && Movies ermitteln"));
    mnuID3Tag = eintrag(mnuExtras, QStringLiteral("mnuID3Tag"), QStringLiteral("MP3 ID&3v1-Tag ändern..."),
                        QKeySequence(Qt::CTRL | Qt::Key_I));
    MenuVerzeichnis = eintrag(mnuExtras, QStringLiteral("MenuVerzeichnis"),
                              QStringLiteral("Musik&verzeichnis öffnen"));
    mnuFreeDB = eintrag(mnuExtras, QStringLiteral("mnuFreeDB"), QStringLiteral("Online-Daten&abgleich"));
    mnuDatenbank = eintrag(mnuExtras, QStringLiteral("mnuDatenbank"), QStringLiteral("&Datenbank-Manager"));
    mnuExtras->addSeparator();
    mnuHtmlSeitenErstellen = eintrag(mnuExtras, QStringLiteral("mnuHtmlSeitenErstellen"),
                                     QStringLiteral("H&TML-Seiten erstellen"));
    mnuHtmlSeitenAnzeigen = eintrag(mnuExtras, QStringLiteral("mnuHtmlSeitenAnzeigen"),
                                    QStringLiteral("&HTML-Seiten anzeigen"));
    mnuWebTabelleAnordnen = eintrag(mnuExtras, QStringLiteral("mnuWebTabelleAnordnen"),
                                    QStringLiteral("HTML-Tabelle an&ordnen..."));
    mnuWebsiteAnzeigen = eintrag(mnuExtras, QStringLiteral("mnuWebsiteAnzeigen"),
                                 QStringLiteral("&Website anzeigen"));
    mnuFTPupload = eintrag(mnuExtras, QStringLiteral("mnuFTPupload"), QStringLiteral("&FTP upload..."));
    mnuExtras->addSeparator();
    mnuSongTextEinAus = eintrag(mnuExtras, QStringLiteral("mnuSongTextEinAus"),
                                QStringLiteral("S&ongtext ein/aus"));
    mnuWeblink = eintrag(mnuExtras, QStringLiteral("mnuWeblink"),
                         QStringLiteral("&mark. Text als Link ausführen..."));
    mnuTranslation = eintrag(mnuExtras, QStringLiteral("mnuTranslation"), QStringLiteral("DeepL Translation"),
                             QKeySequence(Qt::SHIFT | Qt::Key_F9));
    mnuDeeplWrite = eintrag(mnuExtras, QStringLiteral("mnuDeeplWrite"), QStringLiteral("DeepL Write"),
                            QKeySequence(Qt::SHIFT | Qt::Key_F8));
    mnuExtras->addSeparator();
    mnuExtraHelp = eintrag(mnuExtras, QStringLiteral("mnuExtraHelp"), QStringLiteral("&Hilfe"));

    mnuOptionen = menue("mnuOptionen", QStringLiteral("&Optionen"));
    mnuStilrichtungAusschliessen = eintrag(mnuOptionen, QStringLiteral("mnuStilrichtungAusschliessen"),
                                           QStringLiteral("Stilrichtung &ausschließen..."));
    mnuBandAusschliessen = eintrag(mnuOptionen, QStringLiteral("mnuBandAusschliessen"),
                                   QStringLiteral("Band ausschließen..."));
    mnuOptionen->addSeparator();
    mnuLaufschrift = haken(mnuOptionen, QStringLiteral("mnuLaufschrift"), QStringLiteral("&Laufschrift"));
    mnuMiniPlayerOnTop = haken(mnuOptionen, QStringLiteral("mnuMiniPlayerOnTop"),
                               QStringLiteral("Mini-Player im &Vordergrund"));
    mnuStartLautregler = haken(mnuOptionen, QStringLiteral("mnuStartLautregler"),
                               QStringLiteral("Lautsprecherregler beim &Start"));
    mnuOptionen->addSeparator();
    mnuProgSchrift = eintrag(mnuOptionen, QStringLiteral("mnuProgSchrift"),
                             QStringLiteral("&Programmschrift einstellen..."));
    mnuStandardschriftEinstellen = eintrag(mnuOptionen, QStringLiteral("mnuStandardschriftEinstellen"),
                                           QStringLiteral("Standardschrift &einstellen..."));

    MenuHelp = menue("MenuHelp", QStringLiteral("&?"));
    Menu_Hilfe = eintrag(MenuHelp, QStringLiteral("Menu_Hilfe"), QStringLiteral("&Hilfe"), QKeySequence(Qt::Key_F1));
    mnuReadMe = eintrag(MenuHelp, QStringLiteral("mnuReadMe"), QStringLiteral("Read&Me"));
    MenuTipOfDay = eintrag(MenuHelp, QStringLiteral("MenuTipOfDay"), QStringLiteral("&Tipps && Tricks"),
                           QKeySequence(Qt::CTRL | Qt::Key_T));
    MenuHelp->addSeparator();
    mnuFAQ = eintrag(MenuHelp, QStringLiteral("mnuFAQ"), QStringLiteral("&FAQ"));
    mnuProblembericht = eintrag(MenuHelp, QStringLiteral("mnuProblembericht"),
                                QStringLiteral("&Problembericht senden..."));
    mnuWebsiteAufrufen = eintrag(MenuHelp, QStringLiteral("mnuWebsiteAufrufen"),
                                 QStringLiteral("&Website aufrufen"));
    mnuSpende = eintrag(MenuHelp, QStringLiteral("mnuSpende"), QStringLiteral("&Spenden..."));
    mnuUpdateSuchen = eintrag(MenuHelp, QStringLiteral("mnuUpdateSuchen"), QStringLiteral("&Update suchen..."));
    mnuUpdateCheck = eintrag(MenuHelp, QStringLiteral("mnuUpdateCheck"), QString());
    mnuUpdateCheckAllwaysOff = eintrag(MenuHelp, QStringLiteral("mnuUpdateCheckAllwaysOff"), QString());
    mnuUpdateIE = eintrag(MenuHelp, QStringLiteral("mnuUpdateIE"), QString());
    for (QAction* a : {mnuUpdateCheck, mnuUpdateCheckAllwaysOff, mnuUpdateIE})
        a->setVisible(false);
    MenuHelp->addSeparator();
    MenuInfo = eintrag(MenuHelp, QStringLiteral("MenuInfo"), QStringLiteral("&Info"));

    // The column choice of the letter buttons, a menu of its own.
    mnuSpaltenkopf = new QMenu(this);
    mnuSpaltenkopf->setObjectName(QStringLiteral("mnuSpaltenkopf"));
    const char* spalten[] = {"Band",  "LPTitel",  "Medium",   "Stil",      "Info",
                             "Datum", "Preis",    "Plattenfirma", "BestellNr", "Songs",
                             "BildPfad", "Musikpfad", "SongText", "eBook",  "Bewertung"};
    for (int i = 0; i < 15; ++i) {
        QAction* a = haken(mnuSpaltenkopf, mnuSpalte.Name(i), QLatin1String(spalten[i]));
        a->setChecked(i == 0);
        mnuSpalte[i] = a;
    }

    // Entries whose commands are not built yet are there, but greyed.
    const QList<QAction*> bereit = {mnuOeffnen,         mnuNeueDatenbank,  mnuSpeichernUnter,
                                    MenuAktualisieren,  MenuBeendenAktion, mnuDatenbank,
                                    mnuTabelleAutosize, mnuAllesMarkieren, MenuNeuEingabe,
                                    MenuSpeichern,      MenuEintragLoeschen, mnuTabelleAnordnen,
                                    MenuSQLabfrage,     mnuWinPlayerVerwenden, mnuLiedLang,
                                    mnuPauseZwischenTracks, mnuLaufschrift,
                                    mnuStilrichtungAusschliessen, mnuBandAusschliessen, mnuSleep};
    for (QMenu* m : {mnuDatei, MenuBearbeiten, mnuTabelle, mnuPlayer, mnuPlaylist, mnuBild, mnuSchrift,
                     mnuExtras, mnuOptionen, MenuHelp})
        for (QAction* a : m->actions())
            if (!a->isSeparator() && !bereit.contains(a) && !a->objectName().startsWith(u"mnuOrdner"))
                a->setEnabled(false);
    for (QAction* a : mnuSpalte)
        a->setEnabled(true);
}

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
    connect(staBar, &Statusleiste::DblClick, this, [this] { AktuelleCDanzeigen(); });

    connect(Data1, &Datensteuerung::Validate, this, [this] { Data1_Validate(); });
    connect(Data1, &Datensteuerung::Reposition, this, [this] { Data1_Reposition(); });
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
    connect(MSFlexGrid1, &FlexGrid::MouseUp, this, [this] { TrackListeLaden(); });
    // The current cell shows in the highlight colours, the cell left behind faintly.
    connect(MSFlexGrid1, &FlexGrid::LeaveCell, this, [this] {
        QPalette p = MSFlexGrid1->palette();
        p.setColor(QPalette::Highlight, p.color(QPalette::HighlightedText));
        p.setColor(QPalette::HighlightedText, p.color(QPalette::WindowText));
        MSFlexGrid1->setPalette(p);
    });
    connect(MSFlexGrid1, &FlexGrid::EnterCell, this, [this] { MSFlexGrid1->setPalette(QPalette()); });

    for (int i = 0; i < 6; ++i)
        connect(imgCDnote[i], &Bildfeld::Click, this, [this, i] { imgCDnote_Click(i); });

    // The field that had the focus last, for the commands that act on "the" field.
    for (Textfeld* t : {TextBand, TextLPTitel, TextMedium, TextStil, TextInfo, TextPlattenfirma, TextBestellNr,
                        TextPreis, TextKaufdatum, TextMusikpfad, txtSuchen})
        connect(t, &Textfeld::GotFocus, this, [this, t] { AktivesFeld = t->objectName(); });
    for (QTextEdit* t : {TextSongs, txtSongText, rtfLinks, rtfInfo, rtfSonstiges}) {
        t->installEventFilter(this);
        // Any change that is not the record filling the pane is an edit, typed or not.
        connect(t->document(), &QTextDocument::contentsChanged, this, [this, t] {
            if (!m_gebundenLaden)
                m_geaenderteTexte.insert(t);
        });
    }
    filTrack->installEventFilter(this);

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
    connect(imgStart, &Bildknopf::clicked, this, [this] { imgStart_Click(); });
    connect(imgStop, &Bildknopf::clicked, this, [this] { imgStop_Click(); });
    connect(imgStop, &Bildknopf::MouseUp, this, [](Qt::MouseButton) { StopGedrueckt = true; });
    for (Bildknopf* b : imgPause)
        connect(b, &Bildknopf::clicked, this, [this] { imgPause_Click(); });
    connect(imgResume, &Bildknopf::clicked, this, [this] { imgResume_Click(); });
    for (int i = 0; i < 2; ++i)
        connect(imgVorBack[i], &Bildknopf::clicked, this, [this, i] { imgVorBack_Click(i); });
    for (Bildknopf* b : imgPosAB)
        connect(b, &Bildknopf::clicked, this, [this] { imgPosAB_Click(); });
    connect(TimerPosAB, &Zeitgeber::Timer, this, [this] { TimerPosAB_Timer(); });
    connect(Timer1, &Zeitgeber::Timer, this, [this] { Timer1_Timer(); });
    connect(Timer2, &Zeitgeber::Timer, this, [this] { Timer2_Timer(); });
    connect(chkAlleTracks, &QCheckBox::clicked, this, [this] { chkAlleTracks_Click(); });
    connect(chkMarkTracks, &QCheckBox::clicked, this, [this] { chkMarkTracks_Click(); });
    connect(chkShuffle, &QCheckBox::clicked, this, [this] { chkShuffle_Click(); });
    connect(chkTracksAnspielen, &QCheckBox::clicked, this, [this] { chkTracksAnspielen_Click(); });
    connect(mnuPauseZwischenTracks, &QAction::triggered, this, [this] { mnuPauseZwischenTracks_Click(); });
    connect(mnuLaufschrift, &QAction::triggered, this, [this] { mnuLaufschrift_Click(); });
    lvwPlaylist->installEventFilter(this);
    for (int i = 0; i < 6; ++i)
        connect(imgSongNote[i], &Bildfeld::Click, this, [this, i] { imgSongNote_Click(i); });
    connect(cmdPlayAsso, &QPushButton::clicked, this, [this] { cmdPlayAsso_Click(); });
    connect(cmdInfoTrack, &QPushButton::clicked, this, [this] { cmdInfoTrack_Click(); });
    connect(chkVisualisierung, &QCheckBox::clicked, this, [this] { chkVisualisierung_Click(); });
    connect(chkVollbild, &QCheckBox::clicked, this, [this] { chkVollbild_Click(); });
    connect(mnuWinPlayerVerwenden, &QAction::triggered, this, [this] { mnuWinPlayerVerwenden_Click(); });
    connect(mnuLiedLang, &QAction::triggered, this, [this] { mnuLiedLang_Click(); });
    connect(MediaPlayer1Spieler, &Medienspieler::PlayStateChange, this,
            [this](int zustand) { MediaPlayer1_PlayStateChange(zustand); });
    MediaPlayer1->installEventFilter(this);
    connect(filTrack, &QListWidget::itemClicked, this, [this] { BewertungTracks(); });
    connect(filTrack, &Dateiliste::DblClick, this, [this] { imgStart_Click(); });
    filTrack->viewport()->installEventFilter(this);

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
    MediaPlayer1Zeigen(MediaPlayer1Sichtbar);
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
    if (objekt == MediaPlayer1 && ereignis->type() == QEvent::MouseButtonPress) {
        MediaPlayer1_MouseDown(static_cast<QMouseEvent*>(ereignis)->button());
        return true;
    }
    if (objekt == filTrack || objekt == filTrack->viewport()) {
        switch (ereignis->type()) {
        case QEvent::MouseButtonPress:
            if (static_cast<QMouseEvent*>(ereignis)->button() == Qt::RightButton) {
                mnuExtras->setDefaultAction(mnuInPlaylistAufnehmen);
                mnuExtras->popup(QCursor::pos());
                return true;
            }
            break;
        case QEvent::MouseButtonRelease:
            QTimer::singleShot(0, this, [this] { filTrack_Nachlauf(); });
            break;
        case QEvent::KeyRelease: {
            const int taste = static_cast<QKeyEvent*>(ereignis)->key();
            filTrack_Nachlauf();
            if (taste == Qt::Key_Return || taste == Qt::Key_Enter)
                imgStart_Click();
            break;
        }
        default:
            break;
        }
    }
    if (objekt == lvwPlaylist && ereignis->type() == QEvent::FocusIn)
        // A row n of the playlist uses mark n; mark 0 stays free.
        TrackGespielt.assign(size_t(lvwPlaylist->topLevelItemCount()) + 1, 0);
    if (ereignis->type() == QEvent::FocusIn) {
        if (objekt == filTrack) {
            AktivesFeld = QStringLiteral("filTrack");
            if (!chkMarkTracks->isChecked())
                TrackIndex = std::max(0, filTrack->ListIndex());
            BewertungTracks();
        } else if (auto* text = qobject_cast<QTextEdit*>(objekt)) {
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
