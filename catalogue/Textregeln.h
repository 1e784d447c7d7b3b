#pragma once
// The text rules of the catalogue: the caseless German comparison of the collation and
// Jet's like(). Both run once per row over large catalogues, so they work on SQLite's
// UTF-8 bytes directly and never allocate.
#include <QString>

// The caseless German comparison the collation uses: "Ärzte" sorts among the A, case is
// ignored, umlauts come right after their base letter. Negative, 0 or positive.
int DeutschVergleichen(const QString& a, const QString& b);
// The same on UTF-8 bytes, without allocating; invalid bytes count as Latin-1.
int DeutschVergleichenUtf8(const char* a, int na, const char* b, int nb);
// The first eight characters of a text as the German comparison orders them, packed into
// one number, for texts whose first eight bytes (or fewer) are plain ASCII without NUL;
// false for any other text. Two such heads that differ order their texts as the
// comparison does; equal heads of texts of at most eight characters mean equal texts.
bool DeutschKopf(const char* text, int laenge, quint64& kopf);

// The text as a pattern of SQLite's GLOB that stands for exactly this text.
QString GlobMaskiert(const QString& text);
// The text for GLOB with each letter in both cases: a caseless "contains" that SQLite
// runs without a function of ours.
QString GlobOhneGrossKlein(const QString& text);
// Jet's like: * ? # [list] [!list], caseless for all letters including umlauts.
bool JetLike(const QString& muster, const QString& text);
// The same on UTF-8 bytes; escape is a code point that makes the next one literal, or 0.
bool JetLikeUtf8(const char* muster, int nm, const char* text, int nt, char32_t escape = 0);

namespace Textregeln {

inline bool folgebyte(unsigned char c) { return (c & 0xC0) == 0x80; }

// One code point from UTF-8; a byte that starts no valid sequence stands for itself
// (Latin-1), so that any bytes compare and match without failing.
inline char32_t dekodieren(const unsigned char* s, int n, int& i)
{
    const unsigned c = s[i];
    if (c < 0x80) {
        ++i;
        return c;
    }
    if (c >= 0xC2 && c < 0xE0 && i + 1 < n && folgebyte(s[i + 1])) {
        const char32_t r = ((c & 0x1F) << 6) | (s[i + 1] & 0x3F);
        i += 2;
        return r;
    }
    if (c >= 0xE0 && c < 0xF0 && i + 2 < n && folgebyte(s[i + 1]) && folgebyte(s[i + 2])) {
        const char32_t r = ((c & 0x0F) << 12) | ((s[i + 1] & 0x3F) << 6) | (s[i + 2] & 0x3F);
        if (r >= 0x800 && (r < 0xD800 || r > 0xDFFF)) {
            i += 3;
            return r;
        }
    }
    if (c >= 0xF0 && c < 0xF5 && i + 3 < n && folgebyte(s[i + 1]) && folgebyte(s[i + 2])
        && folgebyte(s[i + 3])) {
        const char32_t r = ((c & 0x07) << 18) | ((s[i + 1] & 0x3F) << 12) | ((s[i + 2] & 0x3F) << 6)
            | (s[i + 3] & 0x3F);
        if (r >= 0x10000 && r <= 0x10FFFF) {
            i += 4;
            return r;
        }
    }
    ++i;
    return c;
}

} // namespace Textregeln
