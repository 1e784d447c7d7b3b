#include "media/GifSchreiben.h"

#include <QImage>
#include <QPainter>
#include <QSaveFile>

#include <gif_lib.h>

#include <vector>

namespace {

int Schreiben(GifFileType* gif, const GifByteType* daten, int laenge)
{
    auto* datei = static_cast<QSaveFile*>(gif->UserData);
    return int(datei->write(reinterpret_cast<const char*>(daten), laenge));
}

// GIF has no partial transparency: a transparent picture is laid on white first.
QImage Deckend(const QImage& bild)
{
    if (!bild.hasAlphaChannel())
        return bild.convertToFormat(QImage::Format_RGB32);
    QImage flach(bild.size(), QImage::Format_RGB32);
    flach.fill(Qt::white);
    QPainter maler(&flach);
    maler.drawImage(0, 0, bild);
    return flach;
}

} // namespace

QString GifSchreiben(const QImage& bild, const QString& pfad)
{
    if (bild.isNull())
        return QStringLiteral("Es ist kein Bild vorhanden.");
    // The format counts width and height in 16 bits.
    if (bild.width() > 65535 || bild.height() > 65535)
        return QStringLiteral("Das Bild ist für das GIF-Format zu groß.");
    // Qt's own reduction: exact for up to 256 colours, else dithered onto a palette.
    const QImage palette = Deckend(bild).convertToFormat(QImage::Format_Indexed8, Qt::DiffuseDither);
    if (palette.isNull())
        return QStringLiteral("Zu wenig Speicher für das Bild.");
    const QList<QRgb> farben = palette.colorTable();
    // The colour map holds a power of two entries.
    int groesse = 2;
    while (groesse < farben.size())
        groesse *= 2;
    std::vector<GifColorType> tabelle(groesse, GifColorType{0, 0, 0});
    for (int i = 0; i < farben.size(); ++i)
        tabelle[i] = GifColorType{GifByteType(qRed(farben[i])), GifByteType(qGreen(farben[i])),
                                  GifByteType(qBlue(farben[i]))};

    QSaveFile datei(pfad);
    if (!datei.open(QIODevice::WriteOnly))
        return QStringLiteral("Die Datei kann nicht geschrieben werden: ") + datei.errorString();
    int fehler = 0;
    GifFileType* gif = EGifOpen(&datei, Schreiben, &fehler);
    if (!gif)
        return QStringLiteral("GIF-Fehler: ") + QString::fromUtf8(GifErrorString(fehler));
    ColorMapObject* karte = GifMakeMapObject(groesse, tabelle.data());
    bool gut = karte && EGifPutScreenDesc(gif, palette.width(), palette.height(), 8, 0, karte) == GIF_OK
        && EGifPutImageDesc(gif, 0, 0, palette.width(), palette.height(), false, nullptr) == GIF_OK;
    std::vector<GifPixelType> zeile(palette.width());
    for (int y = 0; gut && y < palette.height(); ++y) {
        const uchar* quelle = palette.constScanLine(y);
        zeile.assign(quelle, quelle + palette.width());
        gut = EGifPutLine(gif, zeile.data(), palette.width()) == GIF_OK;
    }
    if (!gut)
        fehler = gif->Error;
    GifFreeMapObject(karte);
    int schliessFehler = 0;
    if (EGifCloseFile(gif, &schliessFehler) != GIF_OK && gut) {
        gut = false;
        fehler = schliessFehler;
    }
    if (!gut)
        return QStringLiteral("GIF-Fehler: ") + QString::fromUtf8(GifErrorString(fehler));
    if (!datei.commit())
        return QStringLiteral("Die Datei kann nicht geschrieben werden: ") + datei.errorString();
    return {};
}
