#include "platform/Textdatei.h"

#include <QFile>
#include <QSaveFile>
#include <QStringDecoder>

namespace {
// Windows-1252 in 0x80..0x9F; 0 marks the five undefined bytes.
constexpr char16_t k_oberhalb7F[32] = {
    0x20AC, 0,      0x201A, 0x0192, 0x201E, 0x2026, 0x2020, 0x2021,
    0x02C6, 0x2030, 0x0160, 0x2039, 0x0152, 0,      0x017D, 0,
    0,      0x2018, 0x2019, 0x201C, 0x201D, 0x2022, 0x2013, 0x2014,
    0x02DC, 0x2122, 0x0161, 0x203A, 0x0153, 0,      0x017E, 0x0178,
};
} // namespace

char16_t Cp1252Zeichen(unsigned char byte)
{
    if (byte >= 0x80 && byte <= 0x9F && k_oberhalb7F[byte - 0x80] != 0)
        return k_oberhalb7F[byte - 0x80];
    return byte;
}

int Cp1252Byte(char32_t zeichen)
{
    if (zeichen < 0x80 || (zeichen >= 0xA0 && zeichen <= 0xFF))
        return int(zeichen);
    for (int i = 0; i < 32; ++i)
        if (k_oberhalb7F[i] != 0 && k_oberhalb7F[i] == zeichen)
            return 0x80 + i;
    return -1;
}

QString Cp1252Dekodieren(const QByteArray& bytes)
{
    QString text(bytes.size(), Qt::Uninitialized);
    QChar* ziel = text.data();
    for (const char c : bytes)
        *ziel++ = QChar(Cp1252Zeichen(static_cast<unsigned char>(c)));
    return text;
}

QString TextDekodieren(const QByteArray& bytes)
{
    QByteArrayView sicht(bytes);
    if (sicht.startsWith("\xEF\xBB\xBF"))
        sicht = sicht.sliced(3);
    QStringDecoder utf8(QStringDecoder::Utf8, QStringDecoder::Flag::Stateless);
    QString text = utf8.decode(sicht);
    if (!utf8.hasError())
        return text;
    return Cp1252Dekodieren(bytes);
}

QStringList TextdateiLesen(const QString& pfad, bool* ok)
{
    QFile datei(pfad);
    if (!datei.open(QIODevice::ReadOnly)) {
        if (ok)
            *ok = false;
        return {};
    }
    if (ok)
        *ok = true;
    const QByteArray inhalt = datei.readAll();
    // Each line on its own: a file half converted from Windows keeps its UTF-8 lines, and
    // one stray byte spoils no more than its line.
    QByteArrayView rest(inhalt);
    if (rest.startsWith("\xEF\xBB\xBF"))
        rest = rest.sliced(3);
    QStringList zeilen;
    while (!rest.isEmpty()) {
        const qsizetype ende = rest.indexOf('\n');
        QByteArrayView zeile = ende < 0 ? rest : rest.first(ende);
        rest = ende < 0 ? QByteArrayView() : rest.sliced(ende + 1);
        if (zeile.endsWith('\r'))
            zeile.chop(1);
        zeilen << TextDekodieren(zeile.toByteArray());
    }
    return zeilen;
}

QString ErsteZeile(const QString& pfad)
{
    const QStringList zeilen = TextdateiLesen(pfad);
    return zeilen.isEmpty() ? QString() : zeilen.first();
}

bool TextdateiSchreiben(const QString& pfad, const QStringList& zeilen)
{
    QSaveFile datei(pfad);
    if (!datei.open(QIODevice::WriteOnly))
        return false;
    QByteArray inhalt;
    for (const QString& zeile : zeilen) {
        inhalt += zeile.toUtf8();
        inhalt += '\n';
    }
    if (datei.write(inhalt) != inhalt.size()) {
        datei.cancelWriting();
        return false;
    }
    return datei.commit();
}

bool TextdateiAnhaengen(const QString& pfad, const QStringList& zeilen)
{
    QFile datei(pfad);
    if (!datei.open(QIODevice::ReadWrite))
        return false;
    QByteArray inhalt;
    if (datei.size() > 0 && datei.seek(datei.size() - 1) && datei.read(1) != "\n")
        inhalt += '\n';
    for (const QString& zeile : zeilen) {
        inhalt += zeile.toUtf8();
        inhalt += '\n';
    }
    return datei.seek(datei.size()) && datei.write(inhalt) == inhalt.size();
}
