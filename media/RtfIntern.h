#pragma once
// What the RTF reader and writer must agree on, so that writing is stable over a read.
#include <algorithm>
#include <cmath>

// Characters that have no place in a paragraph's text: the reader drops them, the writer
// leaves them out.
inline bool RtfUnbrauchbar(char16_t c)
{
    return (c < 0x20 && c != u'\t') || c == 0x2029 || c == 0xFDD0 || c == 0xFDD1 || c == 0xFFFC
        || c == 0xFFFE || c == 0xFFFF;
}

// Bound of every length in twips (22 inches), both ways.
constexpr int RtfMaxTwips = 31680;

// A measure of the document rounded into the bounds; whatever a format holds, no overflow.
inline int RtfRunden(double wert, int unten, int oben)
{
    if (std::isnan(wert))
        return std::clamp(0, unten, oben);
    return int(std::lround(std::clamp(wert, double(unten), double(oben))));
}
