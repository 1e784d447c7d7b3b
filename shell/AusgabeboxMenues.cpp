// The menus of the main window, from one table, and the column choice of the letter
// buttons.
#include "shell/AusgabeboxSteuerelemente.h"

#include <QAction>
#include <QMainWindow>
#include <QMenu>
#include <QMenuBar>

namespace {

using S = AusgabeboxSteuerelemente;

enum class Art { Menue, Eintrag, Haken, Verborgen, Trenner, Ordnerliste };

// One row: a menu of the bar, or an entry, a separator or the recent list of the menu
// above it.
struct Menuezeile {
    Art art;
    QMenu* S::*menue = nullptr;
    QAction* S::*aktion = nullptr;
    const char* name = nullptr;
    const char* text = "";
    QKeyCombination taste = {};
};

Menuezeile Menue(QMenu* S::*menue, const char* name, const char* text)
{
    return {Art::Menue, menue, nullptr, name, text};
}
Menuezeile Eintrag(QAction* S::*aktion, const char* name, const char* text, QKeyCombination taste = {})
{
    return {Art::Eintrag, nullptr, aktion, name, text, taste};
}
Menuezeile Haken(QAction* S::*aktion, const char* name, const char* text)
{
    return {Art::Haken, nullptr, aktion, name, text};
}
// There, but not shown.
Menuezeile Verborgen(QAction* S::*aktion, const char* name) { return {Art::Verborgen, nullptr, aktion, name}; }
Menuezeile Trenner() { return {Art::Trenner}; }
// The ten hidden entries of the recent catalogues, mnuOrdner(0) to mnuOrdner(9).
Menuezeile Ordnerliste() { return {Art::Ordnerliste}; }

const Menuezeile Menues[] = {
    Menue(&S::mnuDatei, "mnuDatei", "&Datei"),
    Eintrag(&S::mnuOeffnen, "mnuOeffnen", "&Datenbank laden...", Qt::CTRL | Qt::Key_O),
    Eintrag(&S::mnuNeueDatenbank, "mnuNeueDatenbank", "&Neue Datenbank anlegen..."),
    Eintrag(&S::mnuSpeichernUnter, "mnuSpeichernUnter", "Speichern &unter...", Qt::CTRL | Qt::Key_U),
    Eintrag(&S::MenuAktualisieren, "MenuAktualisieren", "&Aktualisieren", Qt::Key_F5),
    Trenner(),
    Eintrag(&S::MenuDrucken, "MenuDrucken", "Vorderseite &drucken...", Qt::CTRL | Qt::Key_F1),
    Eintrag(&S::mnuVorschauDrucken, "mnuVorschauDrucken", "&Vorschau Vorderseite drucken", Qt::CTRL | Qt::Key_F2),
    Eintrag(&S::mnuBacksitePrint, "mnuBacksitePrint", "&Rückseite drucken...", Qt::CTRL | Qt::Key_F3),
    Eintrag(&S::mnuViewBacksitePrint, "mnuViewBacksitePrint", "Vorschau Rückseite druck&en", Qt::CTRL | Qt::Key_F4),
    Eintrag(&S::mnuTabelleDrucken, "mnuTabelleDrucken", "&Tabelle drucken...", Qt::CTRL | Qt::Key_F5),
    Trenner(),
    Eintrag(&S::Menu_Backup, "Menu_Backup", "&Backup..."),
    Trenner(),
    Ordnerliste(),
    Trenner(),
    Eintrag(&S::MenuBeendenAktion, "MenuBeenden", "&Beenden"),
    Menue(&S::MenuBearbeiten, "MenuBearbeiten", "&Bearbeiten"),
    Eintrag(&S::MenuNeuEingabe, "MenuNeuEingabe", "&Neueingabe", Qt::CTRL | Qt::Key_N),
    Eintrag(&S::MenuSpeichern, "MenuSpeichern", "&Speichern", Qt::CTRL | Qt::Key_S),
    Eintrag(&S::MenuEintragLoeschen, "MenuEintragLoeschen", "Tonträger &löschen"),
    Trenner(),
    Eintrag(&S::mnuKopieren, "mnuKopieren", "Tonträger &kopieren"),
    Eintrag(&S::mnuTontraegerEinfuegen, "mnuTontraegerEinfügen", "Tonträger &einfügen"),
    Trenner(),
    Eintrag(&S::mnuTabelleExportieren, "mnuTabelleExportieren", "Tabelle exportieren"),
    Eintrag(&S::mnuTabelleImportieren, "mnuTabelleImportieren", "Tabelle importieren..."),
    Trenner(),
    Eintrag(&S::MenuSuchen, "MenuSuchen", "&Suchen / Ersetzen...", Qt::Key_F2),
    Menue(&S::mnuTabelle, "mnuTabelle", "&Tabelle"),
    Eintrag(&S::mnuTabelleAutosize, "mnuTabelleAutosize", "Tabellenspaltenbreite &optimieren", Qt::Key_F11),
    Eintrag(&S::mnuTabelleAnordnen, "mnuTabelleAnordnen", "&Tabellenspalten anordnen..."),
    Eintrag(&S::mnuAllesMarkieren, "mnuAllesMarkieren", "Alles &markieren", Qt::CTRL | Qt::Key_A),
    Trenner(),
    Eintrag(&S::MenuSQLabfrage, "MenuSQLabfrage", "S&QL-Anweisung..."),
    Menue(&S::mnuPlayer, "mnuPlayer", "P&layer"),
    Haken(&S::mnuWinPlayerVerwenden, "mnuWinPlayerVerwenden", "Windows Media Player &verwenden"),
    Eintrag(&S::mnuPauseZwischenTracks, "mnuPauseZwischenTracks", "&Pause zwischen den Tracks..."),
    Eintrag(&S::mnuLiedLang, "mnuLiedLang", "Liedlänge &messen"),
    Haken(&S::mnuSleep, "mnuSleep", "Sl&eep..."),
    Trenner(),
    Eintrag(&S::mnuCDplayer, "mnuCDplayer", "&CD-Player", Qt::CTRL | Qt::Key_P),
    Eintrag(&S::mnuDVDplayer, "mnuDVDplayer", "&DVD-Player"),
    Eintrag(&S::mnuWebCam, "mnuWebCam", "&WebCam"),
    Eintrag(&S::mnuRillenkammerPlayer, "mnuRillenkammerPlayer", "Rillenkamme&r-Player starten"),
    Menue(&S::mnuPlaylist, "mnuPlaylist", "&Playlist"),
    Eintrag(&S::mnuPlaylistNeu, "mnuPlaylistNeu", "&Neu..."),
    Eintrag(&S::mnuPlaylistLaden, "mnuPlaylistLaden", "&Laden..."),
    Haken(&S::mnuPlaylistAnzeigen, "mnuPlaylistAnzeigen", "An&zeigen"),
    Eintrag(&S::mnuPlaylistKill, "mnuPlaylistKill", "L&öschen..."),
    Eintrag(&S::mnuPlaylistHaken, "mnuPlaylistHaken", "Alle &Häkchen an/aus"),
    Eintrag(&S::mnuPlaylistAufnehmen, "mnuPlaylistAufnehmen", "&In Playlist aufnehmen"),
    Eintrag(&S::mnuPlaylistKopieren, "mnuPlaylistKopieren", "Playlist in Ordner &kopieren..."),
    Trenner(),
    Eintrag(&S::mnuTontraegerGenerieren, "mnuTontraegerGenerieren", "&Tonträger generieren..."),
    Eintrag(&S::mnuAlleSongsKopieren, "mnuAlleSongsKopieren", "Alle Songs der Tabelle in Ordner kopieren..."),
    Menue(&S::mnuBild, "mnuBild", "&Cover"),
    Eintrag(&S::mnuBildLaden, "mnuBildLaden", "Cover &laden...", Qt::Key_F6),
    Eintrag(&S::MenuBildkopieren, "MenuBildkopieren", "Cover &kopieren", Qt::Key_F7),
    Eintrag(&S::MenuBildEinfuegen, "MenuBildEinfuegen", "Cover &einfügen intern", Qt::Key_F8),
    Eintrag(&S::mnuCoverExAblegen, "mnuCoverExAblegen", "Cover einfügen extern (empfohlen)", Qt::Key_F9),
    Eintrag(&S::mnuBildScannen, "mnuBildScannen", "Cover ein&scannen"),
    Trenner(),
    Haken(&S::mnuBildDatenbankpfad, "mnuBildDatenbankpfad", "Cover u. eBook vom &Datenbankpfad laden"),
    Trenner(),
    Eintrag(&S::mnuBildLoeschen, "mnuBildLoeschen", "Cover l&öschen"),
    Eintrag(&S::mnuCoverPfadEnfernen, "mnuCoverPfadEnfernen", "Cover-Pfad entfernen"),
    Menue(&S::mnuSchrift, "mnuSchrift", "&Schrift"),
    Eintrag(&S::mnuSchriftTiefgestellt, "mnuSchriftTiefgestellt", "&Tiefgestellt"),
    Eintrag(&S::mnuSchriftHochgestellt, "mnuSchriftHochgestellt", "&Hochgestellt"),
    Eintrag(&S::mnuSchriftDurchstrichen, "mnuSchriftDurchstrichen", "&Durchstrichen"),
    Trenner(),
    Eintrag(&S::mnuRandLinks, "mnuRandLinks", "&linker Rand"),
    Eintrag(&S::mnuRandRechts, "mnuRandRechts", "&rechter Rand"),
    Menue(&S::mnuExtras, "mnuExtras", "E&xtras"),
    Eintrag(&S::mnuInPlaylistAufnehmen, "mnuInPlaylistAufnehmen", "&In Playlist aufnehmen                     F11"),
    Trenner(),
    Eintrag(&S::mnuTrackName, "mnuTrackName", "&Track umbenennen..."),
    Eintrag(&S::mnuTracksRenameTextTrack, "mnuTracksRenameTextTrack", "Tracks umbenennen: Text vor Tracks..."),
    Eintrag(&S::mnuTrackSuchenErsetzen, "mnuTrackSuchenErsetzen", "Tracks &suchen und ersetzen..."),
    Eintrag(&S::mnuTrackKill, "mnuTrackKill", "Tracks l&öschen..."),
    Eintrag(&S::mnuTrackSpeichernUnter, "mnuTrackSpeichernUnter", "Track speichern u&nter..."),
    Eintrag(&S::mnuTracksZeichenEntfernen, "mnuTracksZeichenEntfernen", "Tracks n Zeichen &vorn entfernen..."),
    Eintrag(&S::mnuTracksZeichenHintenEntfernen, "mnuTracksZeichenHintenEntfernen", "Tracks n Zeichen hinten entfernen..."),
    Eintrag(&S::mnuTrackGrossbuchstabe, "mnuTrackGrossbuchstabe", "Tracks Wortanfang in &Großbuchstaben"),
    Eintrag(&S::mnuSongsZeichenEntfernen, "mnuSongsZeichenEntfernen", "Songs: &n Zeichen hinten entfernen..."),
    Eintrag(&S::mnuTrackMovieCopy, "mnuTrackMovieCopy", "Songs: Tracks nach Textfeld \"Songs\" &kopieren..."),
    Eintrag(&S::mnuTrackMovieUmbenennen, "mnuTrackMovieUmbenennen", "Songs: Tracks entsprechend Textfeld \"Songs\" &umbenennen..."),
    Trenner(),
    Eintrag(&S::mnuAnzahlInterpreten, "mnuAnzahlInterpreten", "An&zahl der Interpreten ermitteln"),
    Eintrag(&S::mnuAnzahlTracks, "mnuAnzahlTracks", "Anzahl der Tracks && Movies ermitteln"),
    Eintrag(&S::mnuID3Tag, "mnuID3Tag", "MP3 ID&3v1-Tag ändern...", Qt::CTRL | Qt::Key_I),
    Eintrag(&S::MenuVerzeichnis, "MenuVerzeichnis", "Musik&verzeichnis öffnen"),
    Eintrag(&S::mnuFreeDB, "mnuFreeDB", "Online-Daten&abgleich"),
    Eintrag(&S::mnuDatenbank, "mnuDatenbank", "&Datenbank-Manager"),
    Trenner(),
    Eintrag(&S::mnuHtmlSeitenErstellen, "mnuHtmlSeitenErstellen", "H&TML-Seiten erstellen"),
    Eintrag(&S::mnuHtmlSeitenAnzeigen, "mnuHtmlSeitenAnzeigen", "&HTML-Seiten anzeigen"),
    Eintrag(&S::mnuWebTabelleAnordnen, "mnuWebTabelleAnordnen", "HTML-Tabelle an&ordnen..."),
    Eintrag(&S::mnuWebsiteAnzeigen, "mnuWebsiteAnzeigen", "&Website anzeigen"),
    Eintrag(&S::mnuFTPupload, "mnuFTPupload", "&FTP upload..."),
    Trenner(),
    Eintrag(&S::mnuSongTextEinAus, "mnuSongTextEinAus", "S&ongtext ein/aus"),
    Eintrag(&S::mnuWeblink, "mnuWeblink", "&mark. Text als Link ausführen..."),
    Eintrag(&S::mnuTranslation, "mnuTranslation", "DeepL Translation", Qt::SHIFT | Qt::Key_F9),
    Eintrag(&S::mnuDeeplWrite, "mnuDeeplWrite", "DeepL Write", Qt::SHIFT | Qt::Key_F8),
    Trenner(),
    Eintrag(&S::mnuExtraHelp, "mnuExtraHelp", "&Hilfe"),
    Trenner(),
    Eintrag(&S::mnuTexteditor, "mnuTexteditor", "Texteditor..."),
    Eintrag(&S::mnuUebersetzenVorlesen, "mnuUebersetzenVorlesen", "Übersetzen und Vorlesen..."),
    Menue(&S::mnuOptionen, "mnuOptionen", "&Optionen"),
    Eintrag(&S::mnuStilrichtungAusschliessen, "mnuStilrichtungAusschliessen", "Stilrichtung &ausschließen..."),
    Eintrag(&S::mnuBandAusschliessen, "mnuBandAusschliessen", "Band ausschließen..."),
    Trenner(),
    Haken(&S::mnuLaufschrift, "mnuLaufschrift", "&Laufschrift"),
    Haken(&S::mnuMiniPlayerOnTop, "mnuMiniPlayerOnTop", "Mini-Player im &Vordergrund"),
    Haken(&S::mnuStartLautregler, "mnuStartLautregler", "Lautsprecherregler beim &Start"),
    Trenner(),
    Eintrag(&S::mnuProgSchrift, "mnuProgSchrift", "&Programmschrift einstellen..."),
    Eintrag(&S::mnuStandardschriftEinstellen, "mnuStandardschriftEinstellen", "Standardschrift &einstellen..."),
    Menue(&S::MenuHelp, "MenuHelp", "&?"),
    Eintrag(&S::Menu_Hilfe, "Menu_Hilfe", "&Hilfe", Qt::Key_F1),
    Eintrag(&S::mnuReadMe, "mnuReadMe", "Read&Me"),
    Eintrag(&S::MenuTipOfDay, "MenuTipOfDay", "&Tipps && Tricks", Qt::CTRL | Qt::Key_T),
    Trenner(),
    Eintrag(&S::mnuFAQ, "mnuFAQ", "&FAQ"),
    Eintrag(&S::mnuProblembericht, "mnuProblembericht", "&Problembericht senden..."),
    Eintrag(&S::mnuWebsiteAufrufen, "mnuWebsiteAufrufen", "&Website aufrufen"),
    Eintrag(&S::mnuSpende, "mnuSpende", "&Spenden..."),
    Eintrag(&S::mnuUpdateSuchen, "mnuUpdateSuchen", "&Update suchen..."),
    Verborgen(&S::mnuUpdateCheck, "mnuUpdateCheck"),
    Verborgen(&S::mnuUpdateCheckAllwaysOff, "mnuUpdateCheckAllwaysOff"),
    Verborgen(&S::mnuUpdateIE, "mnuUpdateIE"),
    Trenner(),
    Eintrag(&S::MenuInfo, "MenuInfo", "&Info"),
};

QAction* eintragAnlegen(QMenu* m, const QString& name, const QString& text, QKeyCombination taste = {})
{
    QAction* a = m->addAction(text);
    a->setObjectName(name);
    if (taste != QKeyCombination())
        a->setShortcut(taste);
    a->setShortcutContext(Qt::WindowShortcut);
    return a;
}

} // namespace

void AusgabeboxSteuerelemente::menuesAnlegen(QMainWindow* fenster)
{
    QMenuBar* leiste = fenster->menuBar();
    QMenu* m = nullptr;
    for (const Menuezeile& z : Menues) {
        switch (z.art) {
        case Art::Menue:
            m = leiste->addMenu(QString::fromUtf8(z.text));
            m->setObjectName(QLatin1String(z.name));
            this->*z.menue = m;
            break;
        case Art::Eintrag:
        case Art::Haken:
        case Art::Verborgen: {
            QAction* a = eintragAnlegen(m, QString::fromUtf8(z.name), QString::fromUtf8(z.text), z.taste);
            a->setCheckable(z.art == Art::Haken);
            a->setVisible(z.art != Art::Verborgen);
            this->*z.aktion = a;
            break;
        }
        case Art::Trenner:
            m->addSeparator();
            break;
        case Art::Ordnerliste:
            for (int i = 0; i < mnuOrdner.Anzahl(); ++i)
                mnuOrdner.setzen(i, eintragAnlegen(m, mnuOrdner.Name(i), QString()))->setVisible(false);
            break;
        }
    }
    // Only while a text pane has the focus.
    mnuSchrift->setEnabled(false);

    // The column choice of the letter buttons, a menu of its own.
    mnuSpaltenkopf = new QMenu(fenster);
    mnuSpaltenkopf->setObjectName(QStringLiteral("mnuSpaltenkopf"));
    const char* spalten[] = {"Band",  "LPTitel",  "Medium",   "Stil",      "Info",
                             "Datum", "Preis",    "Plattenfirma", "BestellNr", "Songs",
                             "BildPfad", "Musikpfad", "SongText", "eBook",  "Bewertung"};
    for (int i = 0; i < mnuSpalte.Anzahl(); ++i) {
        QAction* a = eintragAnlegen(mnuSpaltenkopf, mnuSpalte.Name(i), QLatin1String(spalten[i]));
        a->setCheckable(true);
        a->setChecked(i == 0);
        mnuSpalte[i] = a;
    }

    // Every entry of the bar waits greyed until its command is wired (BefehlVerbinden).
    for (QMenu* menue : {mnuDatei, MenuBearbeiten, mnuTabelle, mnuPlayer, mnuPlaylist, mnuBild, mnuSchrift,
                         mnuExtras, mnuOptionen, MenuHelp})
        for (QAction* a : menue->actions())
            if (!a->isSeparator())
                a->setEnabled(false);
}
