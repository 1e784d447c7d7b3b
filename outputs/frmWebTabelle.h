#pragma once
// What the web pages of the table show: the columns in their order, the rows a page, the
// heading and the site's address.
#include "shell/Farbverlauf.h"
#include "shell/Steuerfeld.h"

class QLineEdit;
class QListWidget;
class QPushButton;

class frmWebTabelle : public VerlaufFenster {
    Q_OBJECT
public:
    // Reads the settings into the controls; the generator makes the window without showing it.
    explicit frmWebTabelle(QWidget* eltern = nullptr);

    void cmdOK_Click();
    // The chosen columns, in order.
    QStringList Spalten() const;

    QListWidget* lstTabelle = nullptr;
    QListWidget* lstSpalten = nullptr;
    QLineEdit* txtTabellenzeilen = nullptr;
    QLineEdit* txtTabellenUeberschrift = nullptr;
    QLineEdit* txtURL = nullptr;
    QPushButton* cmdEinfuegen = nullptr;
    QPushButton* cmdEntfernen = nullptr;
    Steuerfeld<QPushButton, 2> cmdHochTief{"cmdHochTief"};
    QPushButton* cmdOK = nullptr;
    QPushButton* cmdExit = nullptr;
    QPushButton* cmdHilfe = nullptr;

    static constexpr int Spaltenzahl = 15;
    static const char* const Standardspalten[Spaltenzahl];
};
