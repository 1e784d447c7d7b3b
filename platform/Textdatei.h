#pragma once
// Plain text files of the system: written as UTF-8 without byte order mark with LF;
// read as UTF-8 when the bytes are valid UTF-8, else as Windows-1252, CR LF or LF.
#include <QByteArray>
#include <QString>
#include <QStringList>

// The lines of a file; false in *ok when it could not be read.
QStringList TextdateiLesen(const QString& pfad, bool* ok = nullptr);
// The first line, or an empty text.
QString ErsteZeile(const QString& pfad);
// Writes the lines, each closed by LF. Atomic: the old file stays on failure.
bool TextdateiSchreiben(const QString& pfad, const QStringList& zeilen);
// Appends the lines, each closed by LF, making the file when it is missing. A last line
// that lacks its line end (a file from elsewhere) gets one first.
bool TextdateiAnhaengen(const QString& pfad, const QStringList& zeilen);

// Text of bytes as described above.
QString TextDekodieren(const QByteArray& bytes);
QString Cp1252Dekodieren(const QByteArray& bytes);
// Windows-1252 byte of a character, or -1 where it has none.
int Cp1252Byte(char32_t zeichen);
// The character of a Windows-1252 byte (undefined bytes map to their Latin-1 code point).
char16_t Cp1252Zeichen(unsigned char byte);
