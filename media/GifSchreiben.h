#pragma once
// GIF writing, which Qt's image formats lack. The picture is reduced to a palette of at
// most 256 colours; a picture of fewer colours keeps them exactly.
#include <QString>

class QImage;

// Writes the picture to the path. An empty text on success, else the reason in German;
// the target is then untouched.
QString GifSchreiben(const QImage& bild, const QString& pfad);
