#pragma once
// The compilation generator: fills a target folder with songs drawn at random from the
// Carriers the main table shows, leaving out excluded styles and bands and what the song
// list already holds. Every copied song is appended to the song list at once, so that a
// run cut short leaves a correct list. The same window keeps the song lists (Playlist/*.lst)
// and prints them as the insert of a disc case.
#include "platform/Laufzeitfehler.h"
#include "shell/Farbverlauf.h"
#include "shell/Steuerfeld.h"

#include <QString>
#include <QStringList>

class Ausgabebox;
class Bildfeld;
class QAction;
class QCheckBox;
class QLabel;
class QListWidget;
class QMenu;
class QMenuBar;
class QProgressBar;
class QPushButton;
class Statusleiste;
class Textfeld;
class Zeitgeber;

class frmCDgenerieren : public VerlaufFenster {
    Q_OBJECT
public:
    explicit frmCDgenerieren(Ausgabebox& box);
    ~frmCDgenerieren() override;

    // Settings, the song list, the style and the band list, the cover. Shows nothing, so
    // that the window can be driven without its modal loop.
    void Form_Load();
    // Shows the window modally until it is closed.
    void Anzeigen();

    void cmdOrdnerwahl_Click();
    void cmdGenerieren_Click();
    void cmdAbbrechen_Click();
    void cmdAusschussliste_Click();
    void cmdBandAusschluss_Click();
    // The stall watch, once a second while a run goes.
    void Timer1_Timer();

    void LiedlisteLaden();
    void AusschlusslisteLaden();
    void BandAusschlusslisteLaden();
    void mnuLiedlisteLaden_Click();
    void mnuLiedlisteSpeichernUnter_Click();
    void mnuLiedlisteLeeren_Click();
    void mnuLiedlisteLoeschen_Click();
    void mnuLiedlisteMarkEntf_Click();
    void mnuLiedlisteCopy_Click();
    void mnuCoverLaden_Click();
    void mnuLiedlisteDrucken_Click();

    // The folder of the song lists.
    static QString LiedlistenOrdner();
    // The line of the song list for a copied song.
    static QString Eintrag(const QString& datei, const QString& band, const QString& titel);
    // The text of the clipboard: each entry with its running number.
    static QString KopierText(const QStringList& eintraege);
    // An entry as it is printed: without ".mp3" and ".wma".
    static QString DruckText(const QString& eintrag);
    // Why the copy of a file into the folder failed, in German: unreadable source,
    // write-protected target, full disk, or another access error.
    static Laufzeitfehler KopierFehler(const QString& quelle, const QString& zielordner);

    Textfeld* txtAnzahl = nullptr;
    Textfeld* txtPfad = nullptr;
    QPushButton* cmdOrdnerwahl = nullptr;
    QPushButton* cmdGenerieren = nullptr;
    QPushButton* cmdAbbrechen = nullptr;
    QPushButton* cmdAusschussliste = nullptr;
    QPushButton* cmdBandAusschluss = nullptr;
    QListWidget* lstStilausschlussliste = nullptr;
    QListWidget* lstBandausschlussliste = nullptr;
    QListWidget* lstLiedliste = nullptr;
    QListWidget* lstDrucken = nullptr;
    QCheckBox* chkLiedlisteVerwenden = nullptr;
    Steuerfeld<QLabel, 10> lblBez{"lblBez"};
    QLabel* lblNameLiedliste = nullptr;
    QProgressBar* ProgressBar1 = nullptr;
    Statusleiste* staBar = nullptr;
    Zeitgeber* Timer1 = nullptr;
    Bildfeld* imgVorschau = nullptr;

    QMenuBar* Menue = nullptr;
    QMenu* mnuLiedliste = nullptr;
    QAction* mnuCoverLaden = nullptr;
    QAction* mnuLiedlisteLaden = nullptr;
    QAction* mnuLiedlisteSpeichernUnter = nullptr;
    QAction* mnuLiedlisteLeeren = nullptr;
    QAction* mnuLiedlisteLoeschen = nullptr;
    QAction* mnuLiedlisteMarkEntf = nullptr;
    QAction* mnuLiedlisteCopy = nullptr;
    QAction* mnuLiedlisteDrucken = nullptr;
    QAction* mnuHilfe = nullptr;
    QAction* mnuExit = nullptr;

    // Stops the run at its next test.
    bool GeneratorStopp = false;
    // Seconds until the stall watch ends the run.
    int Restsekunden = 120;
    // Panel 1 at the last tick of the watch.
    QString LetzterStand;
    // The file name of the current song list, with its extension.
    QString LiedlisteName;

protected:
    bool eventFilter(QObject* objekt, QEvent* ereignis) override;
    void closeEvent(QCloseEvent* e) override;

private:
    void LiedlisteEinlesen(const QString& pfad);
    // "Liedliste verwenden (n)".
    void BezAktualisieren();
    void NameZeigen();
    void PanelsZuruecksetzen();
    // The song list's file of the current name in the folder of the song lists.
    QString LiedlistenDatei() const;
    // Copies one found song; false when the run was stopped during the copy. A failure
    // throws with a German reason.
    bool LiedKopieren(const QString& quelle, const QString& ziel);

    Ausgabebox& m_box;
    // The file title of the last load or save dialog, for the printed heading.
    QString m_dialogTitel;
    bool m_laeuft = false;
};
