#pragma once
// The free-standing text viewer: one rich text or plain text file at a time, with a
// toolbar for loading, searching, formatting and saving.
#include "media/Textformat.h"
#include "shell/Steuerfeld.h"

#include <QWidget>

class Bildknopf;
class QFrame;
class QTextEdit;
class Statusleiste;

class frmEditor : public QWidget {
    Q_OBJECT
public:
    explicit frmEditor(QWidget* eltern = nullptr);

    // Place, window state and font from the settings. Shows nothing.
    void Form_Load();
    // Keeps the window state and, for a normal window, the place.
    void Form_Unload();
    void ButtonCommand_Click(int index);

    // Loads a file into Text: ".txt" as plain text, anything else through the RTF reader,
    // which takes a text without an RTF head as plain text. Throws Laufzeitfehler.
    void DateiLaden(const QString& pfad);
    // Writes Text to the current file in the form it was loaded in. Throws Laufzeitfehler.
    void DateiSpeichern();

    QFrame* FrameButtonKlein = nullptr;
    Steuerfeld<Bildknopf, 22> ButtonCommand{"ButtonCommand"}; // 6 and 8 to 12 stay empty
    QTextEdit* Text = nullptr;
    Statusleiste* staBar = nullptr;

    // The file shown, empty for a new text.
    QString Dateiname;
    bool Geaendert = false;

protected:
    void closeEvent(QCloseEvent* e) override;
    bool eventFilter(QObject* objekt, QEvent* ereignis) override;

private:
    void Laden();
    void Neu();
    void SchriftWaehlen();
    void FarbeWaehlen();
    void NameZeigen();

    Volltextsuche m_suche;
    // The current file holds RTF, so it is written as RTF again.
    bool m_rtf = true;
    bool m_entladen = false;
};
