#pragma once
// Formatting and search on the selection of a rich text control, the same in the record's
// text panes and in the text viewer.
#include <QString>

#include <functional>

class QColor;
class QFont;
class QTextCharFormat;
class QTextEdit;

// Switches a character attribute of the selection: only a state that holds for the whole
// selection is switched off, a mixed one is set.
void ZeichenUmschalten(QTextEdit* text, const std::function<bool(const QTextCharFormat&)>& gesetzt,
                       const std::function<void(QTextCharFormat&, bool)>& setzen);
void FettUmschalten(QTextEdit* text);
// Name, size, bold, italic, strikethrough and underline of a font dialog's font.
void SchriftAnwenden(QTextEdit* text, const QFont& schrift);
void FarbeAnwenden(QTextEdit* text, const QColor& farbe);
// Bullets on or off for the selected paragraphs. Paragraphs with and without bullets in
// one selection are refused with the message; false then.
bool AufzaehlungUmschalten(QTextEdit* text);
// Asks for the left or right indent of the selected paragraphs, offering the value kept
// under the key (or the default), applies it and keeps the answer. False on cancel.
bool TextrandSetzen(QTextEdit* text, bool links, const QString& schluessel, const QString& vorgabe);

// The full-text search of a text control: the text asked for and where the next search
// begins (from 1).
class Volltextsuche {
public:
    // Asks for the text, a selection being the default, and selects its first occurrence;
    // with weiter, selects the next one without asking. Case is ignored.
    void Suchen(QTextEdit* text, bool weiter);

private:
    QString m_text;
    qsizetype m_start = 1;
};
