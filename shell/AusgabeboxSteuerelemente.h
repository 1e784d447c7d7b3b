#pragma once
// The controls, menus, actions and timers of the main window, as a generated form class
// holds them: plain pointers that anlegen() fills. The window inherits them, so every
// procedure and every other window reaches a control by its name.
#include "shell/Steuerfeld.h"

#include <QString>

class Audioanzeige;
class Bildfeld;
class Bildknopf;
class Dateiliste;
class Datensteuerung;
class FlexGrid;
class QAction;
class QCheckBox;
class QComboBox;
class QFrame;
class QLabel;
class QListWidget;
class QMainWindow;
class QMenu;
class QProgressBar;
class QPushButton;
class QTabBar;
class QTextEdit;
class QTreeWidget;
class QVideoWidget;
class QWidget;
class Medienspieler;
class Statusleiste;
class Textfeld;
class Zeitgeber;

struct AusgabeboxSteuerelemente {
    // Makes every control, menu and timer at its design place, as a generated form
    // class's setupUi does. Nothing is wired to a command here.
    void anlegen(QMainWindow* fenster);
    // Places a control in twips of the inner area.
    static void Platz(QWidget* w, int links, int oben, int breite, int hoehe);

    QWidget* Innen = nullptr; // the inner area, in which all lengths are measured

    // Catalogue and table
    Datensteuerung* Data1 = nullptr;
    FlexGrid* MSFlexGrid1 = nullptr;
    Steuerfeld<QPushButton, 32> ButtonAlpabeth{"ButtonAlpabeth"};
    QPushButton* cmdABC = nullptr;
    QCheckBox* chkTabelle = nullptr;
    QLabel* lblTabellenName = nullptr;
    Textfeld* txtSuchen = nullptr;

    // Record form
    Textfeld* TextBand = nullptr;
    Textfeld* TextLPTitel = nullptr;
    Textfeld* TextMedium = nullptr;
    Textfeld* TextStil = nullptr;
    Textfeld* TextInfo = nullptr;
    Textfeld* TextPlattenfirma = nullptr;
    Textfeld* TextBestellNr = nullptr;
    Textfeld* TextPreis = nullptr;
    Textfeld* TextKaufdatum = nullptr;
    Textfeld* TextMusikpfad = nullptr;
    Bildknopf* imgMusikpfad = nullptr;
    QPushButton* cmdBandTitel = nullptr;
    Steuerfeld<QLabel, 14> Bez{"Bez"};
    Textfeld* txtBewertung = nullptr;
    Textfeld* txtBildpfad = nullptr;
    Textfeld* txtEbook = nullptr;
    Steuerfeld<Bildfeld, 6> imgCDnote{"imgCDnote"};
    QComboBox* cboEbook = nullptr;
    Bildknopf* imgEbookOpen = nullptr;
    Bildknopf* imgEbookKill = nullptr;
    Bildknopf* imgEbookPlay = nullptr;

    // Text tabs and the playlist that shares their place
    QTabBar* tabTexte = nullptr;
    QTextEdit* TextSongs = nullptr;
    QTextEdit* txtSongText = nullptr;
    QTextEdit* rtfLinks = nullptr;
    QTextEdit* rtfInfo = nullptr;
    QTextEdit* rtfSonstiges = nullptr;
    QPushButton* cmdTextBig = nullptr;
    QPushButton* cmdTextSmall = nullptr;
    Steuerfeld<Bildknopf, 15> ButtonText{"ButtonText"}; // index 10 stays empty
    Dateiliste* filPlaylist = nullptr;
    QTreeWidget* lvwPlaylist = nullptr;

    // Covers
    Bildfeld* Bild1 = nullptr;
    Bildfeld* imgBildpfad = nullptr;
    QComboBox* cboBildpfad = nullptr;
    QCheckBox* chkBildpfad = nullptr;
    Bildfeld* picCoverGreat = nullptr;
    Steuerfeld<Bildfeld, 22> imgCover{"imgCover"};
    QPushButton* cmdCoverUp = nullptr;
    QPushButton* cmdCoverDown = nullptr;
    QListWidget* lstCover = nullptr;
    Dateiliste* filCover = nullptr;

    // Track list and player
    Dateiliste* filTrack = nullptr;
    QFrame* fraSternTrack = nullptr;
    Steuerfeld<Bildfeld, 6> imgSongNote{"imgSongNote"};
    Bildknopf* imgStart = nullptr;
    Bildknopf* imgStop = nullptr;
    Steuerfeld<Bildknopf, 2> imgPause{"imgPause"};
    Bildknopf* imgResume = nullptr;
    Steuerfeld<Bildknopf, 2> imgVorBack{"imgVorBack"};
    Steuerfeld<Bildknopf, 3> imgPosAB{"imgPosAB"};
    Bildknopf* imgMiniPlayer = nullptr;
    Bildknopf* imgLiedzufall = nullptr;
    Bildknopf* imgLautsprecherregler = nullptr;
    QPushButton* cmdInfoTrack = nullptr;
    QVideoWidget* MediaPlayer1 = nullptr;
    Medienspieler* MediaPlayer1Spieler = nullptr; // the player behind MediaPlayer1
    Audioanzeige* MediaPlayer1Audio = nullptr;    // over MediaPlayer1 while audio plays
    QCheckBox* chkVisualisierung = nullptr;
    QCheckBox* chkVollbild = nullptr;
    QCheckBox* chkAlleTracks = nullptr;
    QCheckBox* chkRepeat = nullptr;
    QCheckBox* chkShuffle = nullptr;
    QCheckBox* chkTracksZufaellig = nullptr;
    QCheckBox* chkTracksAnspielen = nullptr;
    QCheckBox* chkMarkTracks = nullptr;
    QProgressBar* ProgressBar1 = nullptr;

    // Tool bar row
    Steuerfeld<Bildknopf, 21> cmdButton{"cmdButton"};
    QLabel* lblGradiant = nullptr;
    QPushButton* cmdPlayAsso = nullptr;

    Statusleiste* staBar = nullptr;

    // Hidden helpers
    QListWidget* lstAbspielausschluss = nullptr;
    QListWidget* lstBandAusschluss = nullptr;
    Dateiliste* filHtml = nullptr;
    QLabel* lblTemp = nullptr;
    QTextEdit* rtf2Text = nullptr;
    Textfeld* txtdummy = nullptr;
    Bildfeld* imgStern = nullptr;
    Bildfeld* imgSternGrau = nullptr;

    // Timers
    Zeitgeber* Timer1 = nullptr;
    Zeitgeber* Timer2 = nullptr;
    Zeitgeber* Timer4 = nullptr;
    Zeitgeber* TimerPosAB = nullptr;
    Zeitgeber* TimerSleep = nullptr;

    // ---- Menus ----
    QMenu* mnuDatei = nullptr;
    QMenu* MenuBearbeiten = nullptr;
    QMenu* mnuTabelle = nullptr;
    QMenu* mnuPlayer = nullptr;
    QMenu* mnuPlaylist = nullptr;
    QMenu* mnuBild = nullptr;
    QMenu* mnuSchrift = nullptr;
    QMenu* mnuExtras = nullptr;
    QMenu* mnuOptionen = nullptr;
    QMenu* MenuHelp = nullptr;
    QMenu* mnuSpaltenkopf = nullptr;

    QAction* mnuOeffnen = nullptr;
    QAction* mnuNeueDatenbank = nullptr;
    QAction* mnuSpeichernUnter = nullptr;
    QAction* MenuAktualisieren = nullptr;
    Steuerfeld<QAction, 10> mnuOrdner{"mnuOrdner"};
    QAction* MenuDrucken = nullptr;
    QAction* mnuVorschauDrucken = nullptr;
    QAction* mnuBacksitePrint = nullptr;
    QAction* mnuViewBacksitePrint = nullptr;
    QAction* mnuTabelleDrucken = nullptr;
    QAction* Menu_Backup = nullptr;
    QAction* MenuBeendenAktion = nullptr;

    QAction* MenuNeuEingabe = nullptr;
    QAction* MenuSpeichern = nullptr;
    QAction* MenuEintragLoeschen = nullptr;
    QAction* mnuKopieren = nullptr;
    QAction* mnuTontraegerEinfuegen = nullptr;
    QAction* mnuTabelleExportieren = nullptr;
    QAction* mnuTabelleImportieren = nullptr;
    QAction* MenuSuchen = nullptr;

    QAction* mnuTabelleAutosize = nullptr;
    QAction* mnuTabelleAnordnen = nullptr;
    QAction* mnuAllesMarkieren = nullptr;
    QAction* MenuSQLabfrage = nullptr;

    QAction* mnuWinPlayerVerwenden = nullptr;
    QAction* mnuPauseZwischenTracks = nullptr;
    QAction* mnuLiedLang = nullptr;
    QAction* mnuSleep = nullptr;
    QAction* mnuCDplayer = nullptr;
    QAction* mnuDVDplayer = nullptr;
    QAction* mnuWebCam = nullptr;
    QAction* mnuRillenkammerPlayer = nullptr;

    QAction* mnuPlaylistNeu = nullptr;
    QAction* mnuPlaylistLaden = nullptr;
    QAction* mnuPlaylistAnzeigen = nullptr;
    QAction* mnuPlaylistKill = nullptr;
    QAction* mnuPlaylistHaken = nullptr;
    QAction* mnuPlaylistAufnehmen = nullptr;
    QAction* mnuPlaylistKopieren = nullptr;
    QAction* mnuTontraegerGenerieren = nullptr;
    QAction* mnuAlleSongsKopieren = nullptr;

    QAction* mnuBildLaden = nullptr;
    QAction* MenuBildkopieren = nullptr;
    QAction* MenuBildEinfuegen = nullptr;
    QAction* mnuCoverExAblegen = nullptr;
    QAction* mnuBildScannen = nullptr;
    QAction* mnuBildDatenbankpfad = nullptr;
    QAction* mnuBildLoeschen = nullptr;
    QAction* mnuCoverPfadEnfernen = nullptr;

    QAction* mnuSchriftTiefgestellt = nullptr;
    QAction* mnuSchriftHochgestellt = nullptr;
    QAction* mnuSchriftDurchstrichen = nullptr;
    QAction* mnuRandLinks = nullptr;
    QAction* mnuRandRechts = nullptr;

    QAction* mnuInPlaylistAufnehmen = nullptr;
    QAction* mnuTrackName = nullptr;
    QAction* mnuTracksRenameTextTrack = nullptr;
    QAction* mnuTrackSuchenErsetzen = nullptr;
    QAction* mnuTrackKill = nullptr;
    QAction* mnuTrackSpeichernUnter = nullptr;
    QAction* mnuTracksZeichenEntfernen = nullptr;
    QAction* mnuTracksZeichenHintenEntfernen = nullptr;
    QAction* mnuTrackGrossbuchstabe = nullptr;
    QAction* mnuSongsZeichenEntfernen = nullptr;
    QAction* mnuTrackMovieCopy = nullptr;
    QAction* mnuTrackMovieUmbenennen = nullptr;
    QAction* mnuAnzahlInterpreten = nullptr;
    QAction* mnuAnzahlTracks = nullptr;
    QAction* mnuID3Tag = nullptr;
    QAction* MenuVerzeichnis = nullptr;
    QAction* mnuFreeDB = nullptr;
    QAction* mnuDatenbank = nullptr;
    QAction* mnuHtmlSeitenErstellen = nullptr;
    QAction* mnuHtmlSeitenAnzeigen = nullptr;
    QAction* mnuWebTabelleAnordnen = nullptr;
    QAction* mnuWebsiteAnzeigen = nullptr;
    QAction* mnuFTPupload = nullptr;
    QAction* mnuSongTextEinAus = nullptr;
    QAction* mnuWeblink = nullptr;
    QAction* mnuTranslation = nullptr;
    QAction* mnuDeeplWrite = nullptr;
    QAction* mnuExtraHelp = nullptr;
    QAction* mnuTexteditor = nullptr;
    QAction* mnuUebersetzenVorlesen = nullptr;

    QAction* mnuStilrichtungAusschliessen = nullptr;
    QAction* mnuBandAusschliessen = nullptr;
    QAction* mnuLaufschrift = nullptr;
    QAction* mnuMiniPlayerOnTop = nullptr;
    QAction* mnuStartLautregler = nullptr;
    QAction* mnuProgSchrift = nullptr;
    QAction* mnuStandardschriftEinstellen = nullptr;

    QAction* Menu_Hilfe = nullptr;
    QAction* mnuReadMe = nullptr;
    QAction* mnuUpdateSuchen = nullptr;
    QAction* MenuTipOfDay = nullptr;
    QAction* MenuInfo = nullptr;
    QAction* mnuFAQ = nullptr;
    QAction* mnuProblembericht = nullptr;
    QAction* mnuWebsiteAufrufen = nullptr;
    QAction* mnuSpende = nullptr;
    QAction* mnuUpdateCheck = nullptr;
    QAction* mnuUpdateCheckAllwaysOff = nullptr;
    QAction* mnuUpdateIE = nullptr;

    Steuerfeld<QAction, 15> mnuSpalte{"mnuSpalte"};

private:
    void steuerelementeAnlegen(QMainWindow* fenster);
    void menuesAnlegen(QMainWindow* fenster);
    void entwurfsplaetze();
};
