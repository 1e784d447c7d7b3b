#pragma once
// The translation window: a text, two languages, and the translate page opened in the
// browser with them; beside it, reading the source or the translation aloud with a
// voice and speed of the user's choice.
#include "shell/Farbverlauf.h"
#include "shell/Steuerfeld.h"

#include <QString>
#include <QStringList>

class QComboBox;
class QFrame;
class QLabel;
class QPlainTextEdit;
class QPushButton;
class QStatusBar;

class frmTranslation : public VerlaufFenster {
    Q_OBJECT
public:
    explicit frmTranslation(QWidget* eltern = nullptr);

    // Lists, place, size, fonts and the two languages. Shows nothing, so that the window
    // can be driven without its modal loop.
    void Form_Load();
    // Shows the window modally until it is closed.
    void Anzeigen();
    // Saves state, place and size, and the two languages.
    void Form_Unload();

    void cmdOK_Click();
    void cmdButton_Click(int index);
    // Asks for the voice and the speed of reading aloud.
    void Sprecherstimme();

    // Hands the text to the translate page in the browser. Nothing comes back from the
    // page, so the result stays as it was and the answer is false; the locale and the
    // seconds to wait for a reply have no use here.
    static bool Uebersetzen(const QString& text, const QString& von, const QString& nach, QString& ergebnis,
                            int gebietsschema, int sekunden);
    // The code of a list entry: its text up to " - ", trimmed.
    static QString Sprachcode(const QString& eintrag);
    // The rows of both language lists, in their order.
    static const QStringList& Sprachen();

    QLabel* lblVon = nullptr;
    QComboBox* cboVon = nullptr;
    QLabel* lblNach = nullptr;
    QComboBox* cboNach = nullptr;
    QPlainTextEdit* txtQuelle = nullptr;
    QPlainTextEdit* txtZiel = nullptr;
    QPushButton* cmdOK = nullptr;
    Steuerfeld<QPushButton, 4> cmdButton{"cmdButton"};
    QStatusBar* StatusBar1 = nullptr;
    QFrame* fraLogo = nullptr;
    QLabel* lblLogo = nullptr;
    QLabel* imgLogo = nullptr;

public slots:
    void done(int ergebnis) override;

protected:
    bool eventFilter(QObject* objekt, QEvent* ereignis) override;

private:
    void Vorlesen();

    // The box clicked last is the one read aloud.
    QPlainTextEdit* m_vorlesefeld = nullptr;
};
