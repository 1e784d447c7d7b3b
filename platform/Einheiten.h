#pragma once
// Twips and the blue-green-red colour numbers that the settings and the windows use.
#include <QColor>
#include <QtGlobal>

namespace Farbe {
constexpr qint64 StandardHintergrund = 16050915; // #e3eaf4
constexpr qint64 StandardText = 3482368;         // #002335
constexpr qint64 WarnHintergrund = 12640511;     // #ffe0c0
constexpr qint64 FehlerHintergrund = 12632319;   // #ffc0c0
constexpr qint64 VerlaufEnde = 14600621;         // #adcade
} // namespace Farbe

constexpr int TwipsProPixel = 15;

// Twips to logical pixels (96 dpi), rounded to the nearest pixel. Far beyond any screen a
// length is cut, so that no reading of a setting makes a number no int can hold.
inline int Px(double twips)
{
    constexpr double Grenze = 1e9;
    return qRound(qBound(-Grenze, twips, Grenze) / TwipsProPixel);
}
inline int Twips(int pixel) { return pixel * TwipsProPixel; }

// A colour number: red = v & 255, green = (v >> 8) & 255, blue = (v >> 16) & 255.
inline QColor NummerFarbe(qint64 v)
{
    return QColor(int(v & 255), int((v >> 8) & 255), int((v >> 16) & 255));
}
inline qint64 FarbNummer(const QColor& c)
{
    return qint64(c.red()) | (qint64(c.green()) << 8) | (qint64(c.blue()) << 16);
}
