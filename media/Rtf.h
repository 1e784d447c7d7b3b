#pragma once
// The rich text engine of the text panes: RTF source of a field to a QTextDocument and back.
//
// Units in the document: paragraph indents and spacing are QTextBlockFormat margins of
// twips / 15 pixels, kept unrounded, so qRound(px * 15) gives the twips back exactly.
// The character offset (twips, raised above 0) is kept exactly in RtfEigenschaft::VersatzTwips
// and shown as a baseline offset relative to the font size.
#include <QString>
#include <QTextFormat>

class QFont;
class QTextDocument;

namespace RtfEigenschaft {
// QTextCharFormat: character offset in twips (int), > 0 raised, < 0 lowered.
constexpr int VersatzTwips = QTextFormat::UserProperty + 0x5201;
// QTextBlockFormat of a list paragraph: first-line indent in twips (int); Qt draws the
// bullet left of the text, so a list paragraph shows no first-line indent of its own.
constexpr int ErstzeileTwips = QTextFormat::UserProperty + 0x5202;
} // namespace RtfEigenschaft

// Replaces the content of the document with the RTF source. A text that does not begin with
// "{\rtf" (after blanks and line ends) is taken as plain text. Font and size that the source leaves open come from
// standard, which also becomes the document's default font. Never fails: bad input gives
// whatever text could be read.
void RtfLesen(const QString& rtf, QTextDocument* dokument, const QFont& standard);

// Plain text of an RTF source without building a document: the same text as
// QTextDocument::toPlainText() after RtfLesen ("\n" between paragraphs and for line breaks,
// "\t" for tabs, non-breaking spaces as blanks).
QString RtfText(const QString& rtf);

// ANSI RTF of the document: Windows-1252 with \'xx escapes for every character above 127 it
// has, \uN? beyond. Deterministic: reading the result and writing again gives the same text.
QString RtfSchreiben(const QTextDocument* dokument);

// Character offset of a format in twips: the exact value if kept, else derived from the
// baseline offset and the font size.
int RtfVersatz(const QTextCharFormat& format);
// Sets the character offset in twips, shown for text of the given point size.
void RtfVersatzSetzen(QTextCharFormat& format, int twips, qreal punktgroesse);
