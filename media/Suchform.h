#pragma once
// The find-and-replace dialog. It keeps nothing itself: the texts stand in SuchAbfrage and
// ErsetzenDurch (shell/Globale.h), the options in the flags below, for the command that
// shows it to read afterwards.
#include "shell/Farbverlauf.h"

class QCheckBox;
class QLabel;
class QPushButton;
class Textfeld;

// Every occurrence is to be replaced.
extern bool AllesErsetzen;
// Case counts.
extern bool GrossKleinschreibung;
// Only whole words: the search text then carries a blank on each side.
extern bool GanzesWort;
// The dialog offers the replacement too; cleared whenever it closes.
extern bool ErsetzenModus;

class Suchform : public VerlaufFenster {
    Q_OBJECT
public:
    explicit Suchform(QWidget* eltern = nullptr);

    // Shows the dialog modally, centred over the reference window, with the title given.
    static void Anzeigen(QWidget* bezug, const QString& titel);

    // The stored texts, selected; the replacement only in replace mode. Shows nothing.
    void Form_Load();
    void Button_OK_Click();
    void Button_Exit_Click();

    QLabel* lblLogo = nullptr;
    QLabel* lblSuchen = nullptr;
    Textfeld* Text_Suchen = nullptr;
    QLabel* lblErsetzen = nullptr;
    Textfeld* Text_Ersetzen = nullptr;
    QCheckBox* Check_GrossKleinschreibung = nullptr;
    QCheckBox* Check_AllesErsetzen = nullptr;
    QCheckBox* Check_GanzesWort = nullptr;
    QPushButton* Button_OK = nullptr;
    QPushButton* Button_Exit = nullptr;

public slots:
    // Esc and the close box leave as Button_Exit does.
    void done(int ergebnis) override;
};
