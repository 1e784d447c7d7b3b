#pragma once
// The main window and application object. It owns the catalogue (Data1), the table
// (MSFlexGrid1), the bound record controls, the Track list, the playlist and the
// player's members and timers. Other windows read and drive its controls directly.
//
// Its controls are the plain struct AusgabeboxSteuerelemente. Its procedures live in the
// subsystem parts (Teilbereich, see there), which the window makes after its controls and
// offers by reference. The window itself keeps the start, the settings it reads at start,
// the layout, the unload, and the state that several parts read.
#include "shell/AusgabeboxSteuerelemente.h"

#include <QMainWindow>
#include <QString>

class Ausgabebox : public QMainWindow, public AusgabeboxSteuerelemente {
    Q_OBJECT
public:
    explicit Ausgabebox(QWidget* eltern = nullptr);
    ~Ausgabebox() override;

    // The caption of the window when nothing runs in its title.
    static const QString Titel;

    // ---- Start and end (shell/Ausgabebox_Start.cpp) ----
    void Form_Load();
    // True when another instance runs: it was raised, the notice shown, the process ended.
    bool Mehrfachstart();
    void RegistryLesen();
    void DatenbankCheck(const QString& pfad);
    void Form_Resize();
    void Form_QueryUnload();
    void Form_Unload();
    // The window's place, the table's column widths, the standard font and the cover pane:
    // what the unload keeps, and the mini player when it takes over.
    void FensterwerteSpeichern();
    void MenuBeenden();
    // Unloads every other window still loaded; a nested call returns at once.
    void AlleFensterSchliessen();
    void TipboxLaden();

    // ---- Subsystem parts ----
    class Katalogdatei& katalogdatei() const { return *m_katalogdatei; }
    class Datensatzansicht& datensatzansicht() const { return *m_datensatzansicht; }
    class Datensatzbearbeitung& datensatzbearbeitung() const { return *m_datensatzbearbeitung; }
    class Tabellenansicht& tabellenansicht() const { return *m_tabellenansicht; }
    class Feldbezeichnungen& feldbezeichnungen() const { return *m_feldbezeichnungen; }
    class Werkzeugleiste& werkzeugleiste() const { return *m_werkzeugleiste; }
    class Abspieler& abspieler() const { return *m_abspieler; }
    class Trackliste& trackliste() const { return *m_trackliste; }
    class Sequenzer& sequenzer() const { return *m_sequenzer; }
    class Zufallswahl& zufallswahl() const { return *m_zufallswahl; }
    class Schlafmodus& schlafmodus() const { return *m_schlafmodus; }
    class Playlisten& playlisten() const { return *m_playlisten; }
    class SqlKonsole& sqlKonsole() const { return *m_sqlKonsole; }
    class Suche& suche() const { return *m_suche; }
    class Abspielausschluss& abspielausschluss() const { return *m_abspielausschluss; }
    class Trackdateien& trackdateien() const { return *m_trackdateien; }
    class Coververwaltung& coververwaltung() const { return *m_coververwaltung; }
    class Bildimport& bildimport() const { return *m_bildimport; }
    class Anhaenge& anhaenge() const { return *m_anhaenge; }
    class Textfenster& textfenster() const { return *m_textfenster; }
    class Uebersetzung& uebersetzung() const { return *m_uebersetzung; }
    class Schwesterprogramme& schwesterprogramme() const { return *m_schwesterprogramme; }
    class Lastanzeige& lastanzeige() const { return *m_lastanzeige; }
    class Hilfsfenster& hilfsfenster() const { return *m_hilfsfenster; }
    class MiniPlayer& miniPlayer() const { return *m_miniPlayer; }
    class HtmlSeiten& htmlSeiten() const { return *m_htmlSeiten; }
    class Tabellendrucker& tabellendrucker() const { return *m_tabellendrucker; }
    class Traegerdruck& traegerdruck() const { return *m_traegerdruck; }
    class Generator& generator() const { return *m_generator; }

    // ---- State that several parts read ----
    QString AktivesFeld;
    QString AktivesTextfeld;
    int ShuffleSongProCD = 1;
    // Songs chosen on the current Carrier in this shuffle run.
    int SongZaehler = 1;
    int TrackItemHoehe = 0;
    // The folder of the Carrier that is playing.
    QString SpielOrdner;
    // The column headed "Stil", found anew by each start and each random choice; -1 when none.
    int SpalteStil = -1;
    // Set when the load handler failed; the rest of the start was skipped.
    bool LadenFehlgeschlagen = false;
    // The walk of the table by a search term: the row from 1 where the next walk begins,
    // and the term of the last walk that found something.
    int SuchZeile = 0;
    QString LetzterSuchtext;

protected:
    void closeEvent(QCloseEvent* e) override;
    void resizeEvent(QResizeEvent* e) override;
    void changeEvent(QEvent* e) override;

private:
    bool m_entladen = false;
    bool m_fensterSchliessenLaeuft = false;
    class Einzelinstanz* m_instanz = nullptr;
    // The parts, children of the window made after its controls.
    void TeileAnlegen();
    class Katalogdatei* m_katalogdatei = nullptr;
    class Datensatzansicht* m_datensatzansicht = nullptr;
    class Datensatzbearbeitung* m_datensatzbearbeitung = nullptr;
    class Tabellenansicht* m_tabellenansicht = nullptr;
    class Feldbezeichnungen* m_feldbezeichnungen = nullptr;
    class Werkzeugleiste* m_werkzeugleiste = nullptr;
    class Abspieler* m_abspieler = nullptr;
    class Trackliste* m_trackliste = nullptr;
    class Sequenzer* m_sequenzer = nullptr;
    class Zufallswahl* m_zufallswahl = nullptr;
    class Schlafmodus* m_schlafmodus = nullptr;
    class Playlisten* m_playlisten = nullptr;
    class SqlKonsole* m_sqlKonsole = nullptr;
    class Suche* m_suche = nullptr;
    class Abspielausschluss* m_abspielausschluss = nullptr;
    class Trackdateien* m_trackdateien = nullptr;
    class Coververwaltung* m_coververwaltung = nullptr;
    class Bildimport* m_bildimport = nullptr;
    class Anhaenge* m_anhaenge = nullptr;
    class Textfenster* m_textfenster = nullptr;
    class Uebersetzung* m_uebersetzung = nullptr;
    class Schwesterprogramme* m_schwesterprogramme = nullptr;
    class Lastanzeige* m_lastanzeige = nullptr;
    class Hilfsfenster* m_hilfsfenster = nullptr;
    class MiniPlayer* m_miniPlayer = nullptr;
    class HtmlSeiten* m_htmlSeiten = nullptr;
    class Tabellendrucker* m_tabellendrucker = nullptr;
    class Traegerdruck* m_traegerdruck = nullptr;
    class Generator* m_generator = nullptr;
};
