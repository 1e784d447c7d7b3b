#include "catalogue/Textregeln.h"

#include <QChar>

#include <algorithm>
#include <cstring>

using namespace Textregeln;

namespace {

constexpr unsigned char klein(unsigned char c) { return (c >= 'A' && c <= 'Z') ? c + 32 : c; }

struct AsciiKlein {
    unsigned char z[128];
    constexpr AsciiKlein()
        : z()
    {
        for (int i = 0; i < 128; ++i)
            z[i] = klein(static_cast<unsigned char>(i));
    }
};
constexpr AsciiKlein k_klein;

// Caseless, but accents count: "ä" is not "a", "ß" stays "ß".
inline char32_t falten(char32_t c)
{
    if (c < 0x80)
        return k_klein.z[c];
    if (c < 0x100) {
        if (c >= 0xC0 && c <= 0xDE && c != 0xD7)
            return c + 0x20;
        return c;
    }
    return QChar::toCaseFolded(c);
}

// Sort weights: a primary letter (an expansion such as ß = ss has two) and a secondary
// mark that puts "ä" right after "a" while "Ä" and "ä" stay equal.
struct Gewicht {
    char32_t p1 = 0;
    char32_t p2 = 0;
    char32_t sek = 0;
};
constexpr char32_t k_tabellenEnde = 0x250; // Latin-1 and Latin Extended-A/B

struct Gewichte {
    Gewicht g[k_tabellenEnde];
    Gewichte()
    {
        for (char32_t cp = 0; cp < k_tabellenEnde; ++cp) {
            Gewicht& w = g[cp];
            const char32_t f = cp < 0x80 ? k_klein.z[cp] : QChar::toCaseFolded(cp);
            w.p1 = f;
            if (cp < 0x80)
                continue;
            const QChar qf(static_cast<char16_t>(f));
            if (qf.decompositionTag() == QChar::Canonical) {
                const QString zerlegt = qf.decomposition();
                if (!zerlegt.isEmpty() && zerlegt.at(0).unicode() < 0x80
                    && zerlegt.at(0).isLetter()) {
                    w.p1 = k_klein.z[zerlegt.at(0).unicode()];
                    w.sek = f;
                }
            }
        }
        auto doppelt = [this](char32_t cp, char32_t a, char32_t b, char32_t sek) {
            g[cp] = Gewicht {a, b, sek};
        };
        auto einfach = [this](char32_t cp, char32_t a, char32_t sek) {
            g[cp] = Gewicht {a, 0, sek};
        };
        doppelt(0xDF, 's', 's', 0xDF); // ß
        doppelt(0xC6, 'a', 'e', 0xE6); // Æ
        doppelt(0xE6, 'a', 'e', 0xE6);
        doppelt(0x152, 'o', 'e', 0x153); // Œ
        doppelt(0x153, 'o', 'e', 0x153);
        einfach(0xD8, 'o', 0xF8); // Ø
        einfach(0xF8, 'o', 0xF8);
        einfach(0xD0, 'd', 0xF0); // Ð
        einfach(0xF0, 'd', 0xF0);
        einfach(0x110, 'd', 0x111); // Đ
        einfach(0x111, 'd', 0x111);
        einfach(0x141, 'l', 0x142); // Ł
        einfach(0x142, 'l', 0x142);
        einfach(0x131, 'i', 0x131); // dotless i
    }
};

const Gewichte& gewichte()
{
    static const Gewichte tabelle;
    return tabelle;
}

struct Strom {
    const unsigned char* s;
    int n;
    int i;
    const Gewicht* tabelle;
    char32_t wartend = 0;

    bool naechstes(char32_t& p, char32_t& sek)
    {
        if (wartend) {
            p = wartend;
            sek = 0;
            wartend = 0;
            return true;
        }
        if (i >= n)
            return false;
        const unsigned c = s[i];
        if (c < 0x80) {
            p = k_klein.z[c];
            sek = 0;
            ++i;
            return true;
        }
        char32_t cp = dekodieren(s, n, i);
        if (cp >= k_tabellenEnde) {
            cp = QChar::toCaseFolded(cp);
            if (cp >= k_tabellenEnde) {
                p = cp;
                sek = 0;
                return true;
            }
        }
        const Gewicht& w = tabelle[cp];
        p = w.p1;
        sek = w.sek;
        wartend = w.p2;
        return true;
    }
};

} // namespace

int DeutschVergleichenUtf8(const char* a, int na, const char* b, int nb)
{
    const auto* x = reinterpret_cast<const unsigned char*>(a);
    const auto* y = reinterpret_cast<const unsigned char*>(b);
    const int n = na < nb ? na : nb;
    int i = 0;
    while (i < n && x[i] == y[i])
        ++i;
    if (i == na && i == nb)
        return 0;
    // Start again at the beginning of the character in which the bytes part.
    while (i > 0 && ((i < na && folgebyte(x[i])) || (i < nb && folgebyte(y[i]))))
        --i;
    // Plain ASCII: both sides move in step.
    while (i < na && i < nb) {
        const unsigned ca = x[i];
        const unsigned cb = y[i];
        if ((ca | cb) >= 0x80)
            break;
        if (ca != cb) {
            const unsigned ka = k_klein.z[ca];
            const unsigned kb = k_klein.z[cb];
            if (ka != kb)
                return ka < kb ? -1 : 1;
        }
        ++i;
    }
    if (i == na && i == nb)
        return 0;
    if (i == na)
        return -1;
    if (i == nb)
        return 1;
    const Gewicht* tabelle = gewichte().g;
    Strom sa {x, na, i, tabelle};
    Strom sb {y, nb, i, tabelle};
    int sekundaer = 0;
    for (;;) {
        char32_t pa, ka, pb, kb;
        const bool ha = sa.naechstes(pa, ka);
        const bool hb = sb.naechstes(pb, kb);
        if (!ha || !hb) {
            if (ha)
                return 1;
            if (hb)
                return -1;
            return sekundaer;
        }
        if (pa != pb)
            return pa < pb ? -1 : 1;
        if (sekundaer == 0 && ka != kb)
            sekundaer = ka < kb ? -1 : 1;
    }
}

int DeutschVergleichen(const QString& a, const QString& b)
{
    const QByteArray ua = a.toUtf8();
    const QByteArray ub = b.toUtf8();
    return DeutschVergleichenUtf8(ua.constData(), int(ua.size()), ub.constData(), int(ub.size()));
}

namespace {

// Tests a character against the list of "[...]" that starts at p (just behind "[").
// On return p is behind "]"; false in *gueltig when the list is not closed.
bool listeTrifft(const unsigned char* m, int nm, int& p, char32_t zeichen, bool& gueltig)
{
    int q = p;
    bool verneint = false;
    if (q < nm && m[q] == '!') {
        verneint = true;
        ++q;
    }
    const char32_t z = falten(zeichen);
    bool trifft = false;
    while (q < nm && m[q] != ']') {
        const char32_t von = dekodieren(m, nm, q);
        if (q + 1 < nm && m[q] == '-' && m[q + 1] != ']') {
            ++q;
            const char32_t bis = dekodieren(m, nm, q);
            if (falten(von) <= z && z <= falten(bis))
                trifft = true;
        } else if (falten(von) == z) {
            trifft = true;
        }
    }
    if (q >= nm) {
        gueltig = false;
        return false;
    }
    gueltig = true;
    p = q + 1;
    return trifft != verneint;
}

// An ASCII character that a pattern position matches only by itself, or 0.
inline unsigned char festesZeichen(const unsigned char* m, int nm, int p, char32_t escape)
{
    if (p >= nm)
        return 0;
    const unsigned char c = m[p];
    if (c >= 0x80 || c == '*' || c == '?' || c == '#' || c == '[' || char32_t(c) == escape)
        return 0;
    return c;
}

// Moves s to the next place in the text where the fixed character c may match;
// false when there is none.
inline bool vorspulen(const unsigned char* t, int nt, int& s, unsigned char c)
{
    const unsigned char k = k_klein.z[c];
    if (k < 'a' || k > 'z') {
        const void* fund = std::memchr(t + s, c, size_t(nt - s));
        if (!fund)
            return false;
        s = int(static_cast<const unsigned char*>(fund) - t);
        return true;
    }
    // A letter may also be matched by a non-ASCII character folding to it (the Kelvin
    // sign), so stop at every non-ASCII byte as well.
    while (s < nt && t[s] < 0x80 && k_klein.z[t[s]] != k)
        ++s;
    return s < nt;
}

} // namespace

bool JetLikeUtf8(const char* muster, int nm, const char* text, int nt, char32_t escape)
{
    const auto* m = reinterpret_cast<const unsigned char*>(muster);
    const auto* t = reinterpret_cast<const unsigned char*>(text);
    int p = 0;
    int s = 0;
    int sternP = -1; // pattern position behind the last "*"
    int sternS = -1; // text position the last "*" has reached
    unsigned char festNachStern = 0;
    while (s < nt) {
        if (p < nm) {
            const unsigned c = m[p];
            // The common case first: an ASCII literal against an ASCII character.
            if (c < 0x80 && t[s] < 0x80 && c != '*' && c != '?' && c != '#' && c != '['
                && char32_t(c) != escape) {
                if (k_klein.z[c] == k_klein.z[t[s]]) {
                    ++p;
                    ++s;
                    continue;
                }
            } else {
                int pn = p;
                char32_t mc = dekodieren(m, nm, pn);
                bool literal = true;
                if (escape != 0 && mc == escape && pn < nm) {
                    mc = dekodieren(m, nm, pn);
                } else if (mc == '*') {
                    p = pn;
                    while (p < nm && m[p] == '*' && escape != '*')
                        ++p;
                    if (p >= nm)
                        return true;
                    sternP = p;
                    sternS = s;
                    festNachStern = festesZeichen(m, nm, p, escape);
                    if (festNachStern) {
                        if (!vorspulen(t, nt, sternS, festNachStern))
                            return false;
                        s = sternS;
                    }
                    continue;
                } else if (mc == '?') {
                    dekodieren(t, nt, s);
                    p = pn;
                    continue;
                } else if (mc == '#') {
                    literal = false;
                    if (t[s] >= '0' && t[s] <= '9') {
                        ++s;
                        p = pn;
                        continue;
                    }
                } else if (mc == '[') {
                    if (pn < nm && m[pn] == ']') { // "[]" matches the empty text
                        p = pn + 1;
                        continue;
                    }
                    int sn = s;
                    const char32_t tc = dekodieren(t, nt, sn);
                    bool gueltig = false;
                    int q = pn;
                    const bool trifft = listeTrifft(m, nm, q, tc, gueltig);
                    if (gueltig) {
                        literal = false;
                        if (trifft) {
                            p = q;
                            s = sn;
                            continue;
                        }
                    }
                }
                if (literal) {
                    int sn = s;
                    const char32_t tc = dekodieren(t, nt, sn);
                    if (mc == tc || falten(mc) == falten(tc)) {
                        p = pn;
                        s = sn;
                        continue;
                    }
                }
            }
        }
        // Mismatch: let the last "*" take one more character.
        if (sternP < 0)
            return false;
        dekodieren(t, nt, sternS);
        if (festNachStern && sternS < nt && !vorspulen(t, nt, sternS, festNachStern))
            return false;
        s = sternS;
        p = sternP;
    }
    // Text used up: what is left of the pattern must match the empty text.
    for (;;) {
        if (p < nm && m[p] == '*' && escape != '*') {
            ++p;
        } else if (p + 1 < nm && m[p] == '[' && m[p + 1] == ']') {
            p += 2;
        } else {
            break;
        }
    }
    return p >= nm;
}

bool JetLike(const QString& muster, const QString& text)
{
    const QByteArray um = muster.toUtf8();
    const QByteArray ut = text.toUtf8();
    return JetLikeUtf8(um.constData(), int(um.size()), ut.constData(), int(ut.size()));
}

bool DeutschKopf(const char* text, int laenge, quint64& kopf)
{
    kopf = 0;
    for (int i = 0; i < 8; ++i) {
        unsigned zeichen = 0;
        if (i < laenge) {
            zeichen = static_cast<unsigned char>(text[i]);
            if (zeichen == 0 || zeichen >= 0x80)
                return false;
            zeichen = k_klein.z[zeichen];
        }
        kopf = (kopf << 8) | zeichen;
    }
    return true;
}

QString GlobOhneGrossKlein(const QString& text)
{
    QString muster;
    muster.reserve(text.size() * 4 + 8);
    for (const QChar c : text) {
        const QChar gross = c.toUpper(), klein = c.toLower();
        if (c == u'*' || c == u'?' || c == u'[' || c == u']')
            muster += u'[' + QString(c) + u']';
        else if (gross != klein)
            muster += u'[' + QString(klein) + QString(gross) + u']';
        else
            muster += c;
    }
    return muster;
}

QString GlobMaskiert(const QString& text)
{
    QString muster;
    muster.reserve(text.size() + 8);
    for (const QChar c : text) {
        if (c == u'*' || c == u'?' || c == u'[')
            muster += u'[' + QString(c) + u']';
        else
            muster += c;
    }
    return muster;
}
