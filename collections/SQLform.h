#pragma once
// The SQL console: one statement typed or chosen from the stored list (sql.dat in the
// program folder), handed to the main window through SqlAnweisung, to run either as the
// table's record source or as an action on the database.
#include "shell/Farbverlauf.h"
#include "shell/Steuerfeld.h"

#include <QString>

class QLabel;
class QListWidget;
class QPushButton;
class QRadioButton;
class Textfeld;

class SQLform : public VerlaufFenster {
    Q_OBJECT
public:
    explicit SQLform(QWidget* eltern = nullptr);

    // Place, fonts, the stored list and the last statement. Shows nothing, so that the
    // window can be driven without its modal loop.
    void Form_Load();
    // Shows the window modally until it is closed.
    void Anzeigen();

    void RegistryLesen();
    void CommandOK_Click();
    void CommandExit_Click();
    void CommandUebernehmen_Click();
    void CommandLoeschen_Click();
    void ListSQL_Click();
    void ListSQL_KeyDown(int taste);
    // Saves the place when the window closes in normal state.
    void Form_Unload();

    // The file of the stored statements.
    static QString SqlDatei();

    QLabel* lblTextSQL = nullptr;
    Textfeld* TextSQL = nullptr;
    Steuerfeld<QRadioButton, 2> optSql{"optSql"};
    QPushButton* CommandOK = nullptr;
    QPushButton* CommandExit = nullptr;
    QPushButton* CommandUebernehmen = nullptr;
    QPushButton* CommandLoeschen = nullptr;
    QLabel* lblListSQL = nullptr;
    QListWidget* ListSQL = nullptr;

public slots:
    // Every way out ends here; all but CommandOK leave no statement to run.
    void done(int ergebnis) override;

protected:
    bool eventFilter(QObject* objekt, QEvent* ereignis) override;

private:
    void ListeLesen();
    // Writes the list to sql.dat; throws Laufzeitfehler when the file cannot be written.
    void ListeSpeichern();
    // The row of the selected entry, -1 when none.
    int Auswahl() const;

    bool m_enterGedrueckt = false;
};
