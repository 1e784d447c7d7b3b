#pragma once
// The column arrangement: which columns of the table are visible, and in which order.
// It edits the settings TabelleAnordnenCaption0 to 17 and TableNotSort.
#include "shell/Farbverlauf.h"
#include "shell/Steuerfeld.h"

#include <QString>

#include <array>

class QCheckBox;
class QLabel;
class QListWidget;
class QPushButton;

class frmSpaltenAnordnen : public VerlaufFenster {
    Q_OBJECT
public:
    explicit frmSpaltenAnordnen(QWidget* eltern = nullptr);

    // Fonts, the two lists from the settings and the state of chkNotSort. Shows nothing,
    // so that the window can be driven without its modal loop.
    void Form_Load();
    // Shows the window modally until it is closed.
    void Anzeigen();

    void RegistryLesen();
    void chkNotSort_Click();
    void cmdEinfuegen_Click();
    void cmdEntfernen_Click();
    void cmdHochTief_Click(int index);
    void cmdStandard_Click();
    void cmdDefault_Click();
    void cmdOK_Click();
    void cmdExit_Click();
    void cmdHilfe_Click();

    // The 18 arrangement strings as read at load: field name and flag.
    std::array<QString, 18> SpaltenTitel;

    QLabel* lblTabelle = nullptr;
    QListWidget* lstTabelle = nullptr;
    QLabel* lblSpalten = nullptr;
    QListWidget* lstSpalten = nullptr;
    QPushButton* cmdEinfuegen = nullptr;
    QPushButton* cmdEntfernen = nullptr;
    Steuerfeld<QPushButton, 2> cmdHochTief{"cmdHochTief"};
    QPushButton* cmdStandard = nullptr;
    QPushButton* cmdDefault = nullptr;
    QCheckBox* chkNotSort = nullptr;
    QPushButton* cmdOK = nullptr;
    QPushButton* cmdExit = nullptr;
    QPushButton* cmdHilfe = nullptr;

    // The field names in table order.
    static const std::array<const char*, 18> Tabellenspalten;
};
