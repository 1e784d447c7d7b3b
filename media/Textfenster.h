#pragma once
// The rich text panes of the record: the tab strip that chooses a pane, which pane has the
// focus (and with it the font menu), the keys in a pane, the formatting row and the font
// menu, the search in the song panes, the standard font that new text gets, and the link
// that a marked text names.
//
// The formatting commands live in TextfensterFormat.cpp.
#include "media/Textformat.h"
#include "shell/Teilbereich.h"

#include <QColor>
#include <QFont>
#include <QPointer>
#include <QString>

class QKeyEvent;
class QTextEdit;

class Textfenster : public Teilbereich {
public:
    using Teilbereich::Teilbereich;
    void verbinden() override;

    // The standard font of the text panes, for new entries.
    QString StandardFontName = QStringLiteral("Segoe UI");
    double StandardFontsize = 12;
    bool StandardFontBold = false;
    bool StandardFontItalic = false;
    bool StandardFontStrikethru = false;
    bool StandardFontUnderline = false;
    qint64 StandardColor = 0;

    // ---- The formatting row and the font menu (TextfensterFormat.cpp) ----
    void ButtonText_Click(int index);
    void mnuSchriftTiefgestellt_Click();
    void mnuSchriftHochgestellt_Click();
    void mnuSchriftDurchstrichen_Click();
    void mnuRandLinks_Click();
    void mnuRandRechts_Click();

    // ---- Menus of the panes and the fonts ----
    void mnuSongTextEinAus_Click();
    void mnuWeblink_Click();
    void mnuProgSchrift_Click();
    void mnuStandardschriftEinstellen_Click();
    void cmdTextBig_Click();
    void cmdTextSmall_Click();
    // Opens the text viewer, or brings the open one to the front.
    void mnuTexteditor_Click();
    // The program font to TextBand, and what TextBand got to the other fields of the view.
    void ProgrammschriftAnwenden(const QString& name, double groesse);

    // The pane named by AktivesTextfeld, or none.
    QTextEdit* AktivesTextfenster() const;

protected:
    bool eventFilter(QObject* objekt, QEvent* ereignis) override;

private:
    // Shows the panes of the chosen text tab (1 covers, 2 to 4 texts, 5 playlists).
    void TextseiteZeigen();
    // Enter in a pane: a new line with the blanks that the current line begins with.
    void EinzugUmbruch(QTextEdit* text);
    // Apostrophe, Enter and Esc in a pane; true when the key is used up.
    bool TasteImTextfenster(QTextEdit* text, const QKeyEvent* taste);
    // The selected text of the field named by AktivesFeld.
    QString MarkierterText() const;

    // Formatting (TextfensterFormat.cpp).
    void SchriftWaehlen(QTextEdit* text);
    void FarbeWaehlen(QTextEdit* text);
    void StandardschriftSetzen(QTextEdit* text);
    void VersatzSetzen(QTextEdit* text, int twips);
    void RandSetzen(bool links);
    void TextSuchen(QTextEdit* text, bool weiter);

    // The last font and colour of the dialogs, their preset for the next time.
    QFont m_dialogSchrift;
    bool m_dialogSchriftDa = false; // the dialog has had a font
    QColor m_dialogFarbe = Qt::black;
    // The search in the song panes.
    Volltextsuche m_suche;
    // The text viewer while it is open.
    QPointer<class frmEditor> m_editor;
};
