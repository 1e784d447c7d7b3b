// The controls of the main window at their places at design size, as a generated form
// class makes them: nothing here is wired to a command.
#include "shell/AusgabeboxSteuerelemente.h"

#include "catalogue/Datensteuerung.h"
#include "catalogue/FlexGrid.h"
#include "platform/Dienste.h"
#include "platform/Einheiten.h"
#include "platform/Medien.h"
#include "platform/Uhr.h"
#include "playback/Audioanzeige.h"
#include "shell/Farbverlauf.h"
#include "shell/Steuerelemente.h"
#include "shell/Symbole.h"

#include <QCheckBox>
#include <QComboBox>
#include <QLabel>
#include <QListWidget>
#include <QMainWindow>
#include <QProgressBar>
#include <QPushButton>
#include <QTabBar>
#include <QTextEdit>
#include <QTreeWidget>
#include <QVideoWidget>

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

void AusgabeboxSteuerelemente::anlegen(QMainWindow* fenster)
{
    steuerelementeAnlegen(fenster);
    menuesAnlegen(fenster);
    entwurfsplaetze();

    // Controls whose commands are not built yet wait, greyed.
    for (QWidget* wartet : std::initializer_list<QWidget*>{
             imgMiniPlayer, imgLautsprecherregler, imgMusikpfad, cmdBandTitel, cmdCoverUp, cmdCoverDown,
             imgEbookOpen, imgEbookKill, imgEbookPlay, chkBildpfad})
        wartet->setEnabled(false);

    // Label captions keep "&&" for a literal "&", as captions with an access key do.
    const std::pair<int, QWidget*> partner[] = {
        {0, TextBand},         {1, TextLPTitel},   {2, TextMedium},  {3, TextSongs},
        {4, TextInfo},         {5, TextPreis},     {6, TextStil},    {7, TextKaufdatum},
        {8, TextBestellNr},    {9, TextPlattenfirma}, {10, TextMusikpfad}, {11, cboEbook},
        {12, filTrack},
    };
    for (const auto& [index, feld] : partner)
        Bez[index]->setBuddy(feld);
}

void AusgabeboxSteuerelemente::Platz(QWidget* w, int links, int oben, int breite, int hoehe)
{
    w->setGeometry(Px(links), Px(oben), std::max(0, Px(breite)), std::max(0, Px(hoehe)));
}

void AusgabeboxSteuerelemente::steuerelementeAnlegen(QMainWindow* fenster)
{
    Innen = new QWidget(fenster);
    Innen->setObjectName(QStringLiteral("Innenflaeche"));
    FarbverlaufSetzen(Innen, Farbe::StandardHintergrund, Farbe::VerlaufEnde, VerlaufSenkrecht);
    fenster->setCentralWidget(Innen);
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
    MediaPlayer1Spieler = D().medien().neuerSpieler(fenster);
    MediaPlayer1Spieler->setObjectName(QStringLiteral("MediaPlayer1Spieler"));
    MediaPlayer1Spieler->setVideoOutput(MediaPlayer1);
    MediaPlayer1Audio = new Audioanzeige(MediaPlayer1Spieler, e);
    MediaPlayer1Audio->hide();
    chkVisualisierung = kasten(e, QStringLiteral("chkVisualisierung"), QStringLiteral("Visual"));
    chkVisualisierung->setChecked(true);
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
        *u.ziel = D().uhr().neuerZeitgeber(fenster);
        (*u.ziel)->setObjectName(QLatin1String(u.name));
        (*u.ziel)->setInterval(u.intervall);
        (*u.ziel)->setEnabled(false);
    }
}

void AusgabeboxSteuerelemente::entwurfsplaetze()
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
