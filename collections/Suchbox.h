#pragma once
// The search window: column boxes, a search text and a replacement turned into the Jet
// SQL that the main window makes the table's record source; also the start of the search
// by song rating. The results go to the globals of the search (shell/Globale.h).
#include "shell/Farbverlauf.h"
#include "shell/Steuerfeld.h"

#include <QCheckBox>
#include <QString>

class Bildfeld;
class QLabel;
class QListWidget;
class QPushButton;
class Textfeld;

// A box with a grey third state that only code sets: a click gives checked or clear.
class Dreistufenkasten : public QCheckBox {
    Q_OBJECT
public:
    using QCheckBox::QCheckBox;

protected:
    void nextCheckState() override;
};

class Suchbox : public VerlaufFenster {
    Q_OBJECT
public:
    explicit Suchbox(QWidget* eltern = nullptr);

    // Settings, the style lists, "Alle". Shows nothing, so that the window can be driven
    // without its modal loop.
    void Form_Load();
    // Shows the window modally until it is closed.
    void Anzeigen();

    void chkSpaltennameAlle_Click();
    void chkSpaltenname_Click(int index);
    void chkBewertungSong_Click();
    void chkErsetzen_Click();
    void imgStern_Click(int index);
    void lstStil_Auswahl();
    void ButtonOk_Click();
    void ButtonAbbrechen_Click();

    Steuerfeld<Dreistufenkasten, 13> chkSpaltenname{"chkSpaltenname"};
    QCheckBox* chkSpaltennameAlle = nullptr;
    QCheckBox* chkBewertungSong = nullptr;
    QCheckBox* chkErsetzen = nullptr;
    Textfeld* txtSuchen = nullptr;
    Textfeld* txtErsetzen = nullptr;
    Steuerfeld<Bildfeld, 7> imgStern{"imgStern"};
    QListWidget* lstStil = nullptr;
    QListWidget* lstAusschluss = nullptr;
    QPushButton* ButtonOk = nullptr;
    QPushButton* ButtonAbbrechen = nullptr;
    QLabel* lblSuchtext = nullptr;

    // The field that orders the result of a search in one column.
    QString Sortfeld = QStringLiteral("Band");

protected:
    bool eventFilter(QObject* objekt, QEvent* ereignis) override;

private:
    void ErsetzenOeffnen(bool offen);
    void AlleKaestenSetzen(Qt::CheckState zustand);
};
