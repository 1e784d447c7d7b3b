#pragma once
// The main window and application object. It owns the catalogue (Data1), the table
// (MSFlexGrid1), the bound record controls, the Track list, the playlist and the
// player's members and timers. Other windows read and drive its controls directly.
//
// Its controls are the plain struct AusgabeboxSteuerelemente. Procedures move into
// subsystem parts (Teilbereich, see there) as their subsystems are taken apart; the rest
// are implemented in files grouped by subsystem:
//   shell/Ausgabebox_Aufbau.cpp          controls, menus and their design places
//   shell/Ausgabebox_Start.cpp           start, settings, layout, end
//   catalogue/Ausgabebox_Datensatz.cpp   bound fields, reposition, Carrier stars
//   catalogue/Ausgabebox_Tabelle.cpp     table layout and table events
//   and the files of the later subsystems, which add their procedures here.
#include "shell/AusgabeboxSteuerelemente.h"

#include <QMainWindow>
#include <QSet>
#include <QString>
#include <QStringList>

#include <array>
#include <vector>

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
    void MenuBeenden();
    // Unloads every other window still loaded; a nested call returns at once.
    void AlleFensterSchliessen();
    void TipboxLaden();

    // ---- Catalogue file (the part Katalogdatei); the choice at start stays here ----
    void mnuDatenbank_Click();

    // The column headed "Stil", found anew by each start and each random choice; -1 when none.
    int SpalteStil = -1;
    // ---- Filled in by later subsystems ----
    void CoverListeAktuell();
    void CoverAktualisieren();
    void CoverDown();
    void CoverAZ();
    void BezLaden();
    void LastanzeigeStarten();

    // ---- Subsystem parts ----
    class Schlafmodus& schlafmodus() const { return *m_schlafmodus; }
    class Zufallswahl& zufallswahl() const { return *m_zufallswahl; }
    class Katalogdatei& katalogdatei() const { return *m_katalogdatei; }
    class Datensatzbearbeitung& datensatzbearbeitung() const { return *m_datensatzbearbeitung; }
    class SqlKonsole& sqlKonsole() const { return *m_sqlKonsole; }
    class Abspieler& abspieler() const { return *m_abspieler; }
    class Trackliste& trackliste() const { return *m_trackliste; }
    class Sequenzer& sequenzer() const { return *m_sequenzer; }
    class Datensatzansicht& datensatzansicht() const { return *m_datensatzansicht; }
    class Tabellenansicht& tabellenansicht() const { return *m_tabellenansicht; }
    class Abspielausschluss& abspielausschluss() const { return *m_abspielausschluss; }
    class Playlisten& playlisten() const { return *m_playlisten; }

    // ---- State of the window ----
    QString AktivesFeld;
    QString AktivesTextfeld;
    int ShuffleSongProCD = 1;
    // Songs chosen on the current Carrier in this shuffle run.
    int SongZaehler = 1;
    // The standard font of the text panes, for new entries.
    QString StandardFontName = QStringLiteral("Segoe UI");
    double StandardFontsize = 12;
    bool StandardFontBold = false;
    bool StandardFontItalic = false;
    bool StandardFontStrikethru = false;
    bool StandardFontUnderline = false;
    qint64 StandardColor = 0;
    int TrackItemHoehe = 0;
    int CoverLetzterPlatz = 0;
    int CoverStart = 0;
    // The folder of the Carrier that is playing.
    QString SpielOrdner;
    // Set when the load handler failed; the rest of the start was skipped.
    bool LadenFehlgeschlagen = false;

protected:
    void closeEvent(QCloseEvent* e) override;
    void resizeEvent(QResizeEvent* e) override;
    void changeEvent(QEvent* e) override;
    bool eventFilter(QObject* objekt, QEvent* ereignis) override;

private:
    // shell/Ausgabebox_Aufbau.cpp
    void EreignisseVerbinden();
    // Shows the panes of the chosen text tab (1 covers, 2 to 4 texts, 5 playlists).
    void TextseiteZeigen();

    bool m_entladen = false;
    bool m_fensterSchliessenLaeuft = false;
    class Einzelinstanz* m_instanz = nullptr;
    // The parts, children of the window made after its controls.
    void TeileAnlegen();
    class Schlafmodus* m_schlafmodus = nullptr;
    class Zufallswahl* m_zufallswahl = nullptr;
    class Katalogdatei* m_katalogdatei = nullptr;
    class Datensatzbearbeitung* m_datensatzbearbeitung = nullptr;
    class SqlKonsole* m_sqlKonsole = nullptr;
    class Abspieler* m_abspieler = nullptr;
    class Trackliste* m_trackliste = nullptr;
    class Sequenzer* m_sequenzer = nullptr;
    class Datensatzansicht* m_datensatzansicht = nullptr;
    class Tabellenansicht* m_tabellenansicht = nullptr;
    class Abspielausschluss* m_abspielausschluss = nullptr;
    class Playlisten* m_playlisten = nullptr;
};

// The one main window, for the other windows; nullptr before it exists.
extern Ausgabebox* Hauptfenster;
