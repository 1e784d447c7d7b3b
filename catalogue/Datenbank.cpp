#include "catalogue/Datenbank.h"

#include "platform/Laufzeitfehler.h"
#include "platform/Pfade.h"

#include <QChar>
#include <QFile>
#include <QFileInfo>
#include <QRegularExpression>

#include <sqlite3.h>

#include <algorithm>
#include <cmath>
#include <cstring>
#include <string>
#include <vector>

// ---------------------------------------------------------------------------------------
// Text rules of the collation and of like(). Both run once per row over large
// catalogues, so they work on SQLite's UTF-8 bytes directly and never allocate.

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

// ---------------------------------------------------------------------------------------
// SQL functions of the connection.

namespace {

const char* const k_ungueltigesArgument = "Ungültiger Prozeduraufruf oder ungültiges Argument";
const char* const k_typenUnvertraeglich = "Typen unverträglich";

QString textArgument(sqlite3_value* v)
{
    const auto* z = reinterpret_cast<const char*>(sqlite3_value_text(v));
    return QString::fromUtf8(z, sqlite3_value_bytes(v));
}

void textErgebnis(sqlite3_context* ctx, const QString& text)
{
    const QByteArray u = text.toUtf8();
    sqlite3_result_text(ctx, u.isNull() ? "" : u.constData(), int(u.size()), SQLITE_TRANSIENT);
}

// A whole-number argument, rounded as Jet does (half to even). False when the result
// has been set (Null or an error).
bool zahlArgument(sqlite3_context* ctx, sqlite3_value* v, qint64& zahl)
{
    const int typ = sqlite3_value_numeric_type(v);
    if (typ == SQLITE_NULL)
        return false;
    if (typ == SQLITE_INTEGER) {
        zahl = sqlite3_value_int64(v);
        return true;
    }
    if (typ == SQLITE_FLOAT) {
        const double d = std::nearbyint(sqlite3_value_double(v));
        if (d > 2147483647.0 || d < -2147483648.0) {
            sqlite3_result_error(ctx, "Überlauf", -1);
            return false;
        }
        zahl = qint64(d);
        return true;
    }
    sqlite3_result_error(ctx, k_typenUnvertraeglich, -1);
    return false;
}

bool istNull(sqlite3_value* v) { return sqlite3_value_type(v) == SQLITE_NULL; }

void likeFunktion(sqlite3_context* ctx, int argc, sqlite3_value** argv)
{
    const auto* muster = reinterpret_cast<const char*>(sqlite3_value_text(argv[0]));
    const int nm = sqlite3_value_bytes(argv[0]);
    const auto* text = reinterpret_cast<const char*>(sqlite3_value_text(argv[1]));
    const int nt = sqlite3_value_bytes(argv[1]);
    if (!muster || !text)
        return;
    char32_t escape = 0;
    if (argc == 3) {
        const auto* e = sqlite3_value_text(argv[2]);
        const int ne = sqlite3_value_bytes(argv[2]);
        if (!e)
            return;
        int i = 0;
        if (ne > 0)
            escape = dekodieren(e, ne, i);
        if (ne == 0 || i != ne) {
            sqlite3_result_error(ctx, "ESCAPE expression must be a single character", -1);
            return;
        }
    }
    sqlite3_result_int(ctx, JetLikeUtf8(muster, nm, text, nt, escape) ? 1 : 0);
}

int kollation(void*, int na, const void* a, int nb, const void* b)
{
    return DeutschVergleichenUtf8(static_cast<const char*>(a), na, static_cast<const char*>(b), nb);
}

QString zeichenweise(const QString& text, bool gross)
{
    // One character for one: Jet's UCase keeps "ß" as it is.
    QString aus = text;
    for (QChar& c : aus)
        if (!c.isSurrogate())
            c = QChar(static_cast<char16_t>(gross ? QChar::toUpper(c.unicode())
                                                  : QChar::toLower(c.unicode())));
    return aus;
}

void ucaseFunktion(sqlite3_context* ctx, int, sqlite3_value** argv)
{
    if (istNull(argv[0]))
        return;
    textErgebnis(ctx, zeichenweise(textArgument(argv[0]), true));
}

void lcaseFunktion(sqlite3_context* ctx, int, sqlite3_value** argv)
{
    if (istNull(argv[0]))
        return;
    textErgebnis(ctx, zeichenweise(textArgument(argv[0]), false));
}

void lenFunktion(sqlite3_context* ctx, int, sqlite3_value** argv)
{
    if (istNull(argv[0]))
        return;
    sqlite3_result_int64(ctx, textArgument(argv[0]).size());
}

void leftFunktion(sqlite3_context* ctx, int, sqlite3_value** argv)
{
    qint64 n = 0;
    if (istNull(argv[0]) || !zahlArgument(ctx, argv[1], n))
        return;
    if (n < 0) {
        sqlite3_result_error(ctx, k_ungueltigesArgument, -1);
        return;
    }
    textErgebnis(ctx, textArgument(argv[0]).left(n));
}

void rightFunktion(sqlite3_context* ctx, int, sqlite3_value** argv)
{
    qint64 n = 0;
    if (istNull(argv[0]) || !zahlArgument(ctx, argv[1], n))
        return;
    if (n < 0) {
        sqlite3_result_error(ctx, k_ungueltigesArgument, -1);
        return;
    }
    textErgebnis(ctx, textArgument(argv[0]).right(n));
}

void midFunktion(sqlite3_context* ctx, int argc, sqlite3_value** argv)
{
    qint64 start = 0;
    qint64 laenge = -1;
    if (istNull(argv[0]) || !zahlArgument(ctx, argv[1], start))
        return;
    if (argc == 3 && !zahlArgument(ctx, argv[2], laenge))
        return;
    if (start < 1 || (argc == 3 && laenge < 0)) {
        sqlite3_result_error(ctx, k_ungueltigesArgument, -1);
        return;
    }
    const QString text = textArgument(argv[0]);
    if (start > text.size()) {
        textErgebnis(ctx, QString());
        return;
    }
    textErgebnis(ctx, text.mid(start - 1, argc == 3 ? laenge : -1));
}

// instr([start,] text, gesucht): 1-based, 0 when absent, caseless as Jet's text compare.
void instrFunktion(sqlite3_context* ctx, int argc, sqlite3_value** argv)
{
    qint64 start = 1;
    int erster = 0;
    if (argc == 3) {
        if (!zahlArgument(ctx, argv[0], start))
            return;
        if (start < 1) {
            sqlite3_result_error(ctx, k_ungueltigesArgument, -1);
            return;
        }
        erster = 1;
    }
    if (istNull(argv[erster]) || istNull(argv[erster + 1]))
        return;
    const QString text = textArgument(argv[erster]);
    const QString gesucht = textArgument(argv[erster + 1]);
    if (text.isEmpty() || start > text.size()) {
        sqlite3_result_int(ctx, 0);
        return;
    }
    if (gesucht.isEmpty()) {
        sqlite3_result_int64(ctx, start);
        return;
    }
    const qsizetype fund = text.indexOf(gesucht, start - 1, Qt::CaseInsensitive);
    sqlite3_result_int64(ctx, fund < 0 ? 0 : fund + 1);
}

// Jet's Trim takes blanks only, not tabs or line ends.
void trimFunktion(sqlite3_context* ctx, int, sqlite3_value** argv)
{
    if (istNull(argv[0]))
        return;
    const QString text = textArgument(argv[0]);
    qsizetype a = 0;
    qsizetype e = text.size();
    while (a < e && text.at(a) == u' ')
        ++a;
    while (e > a && text.at(e - 1) == u' ')
        --e;
    textErgebnis(ctx, text.mid(a, e - a));
}

void nzFunktion(sqlite3_context* ctx, int argc, sqlite3_value** argv)
{
    if (!istNull(argv[0]))
        sqlite3_result_value(ctx, argv[0]);
    else if (argc == 2)
        sqlite3_result_value(ctx, argv[1]);
    else
        sqlite3_result_text(ctx, "", 0, SQLITE_STATIC);
}

int ziffernwert(char c)
{
    if (c >= '0' && c <= '9')
        return c - '0';
    if (c >= 'a' && c <= 'f')
        return c - 'a' + 10;
    if (c >= 'A' && c <= 'F')
        return c - 'A' + 10;
    return 99;
}

// Jet's Val: blanks, tabs and line feeds are dropped everywhere, then the leading number
// is read (sign, digits, point, exponent E or D, or &H/&O); anything else gives 0.
void valFunktion(sqlite3_context* ctx, int, sqlite3_value** argv)
{
    const int typ = sqlite3_value_type(argv[0]);
    if (typ == SQLITE_NULL)
        return;
    if (typ == SQLITE_INTEGER || typ == SQLITE_FLOAT) {
        sqlite3_result_value(ctx, argv[0]);
        return;
    }
    const auto* z = reinterpret_cast<const char*>(sqlite3_value_text(argv[0]));
    const int n = sqlite3_value_bytes(argv[0]);
    std::string s;
    s.reserve(size_t(std::min(n, 64)));
    for (int i = 0; i < n && s.size() < 400; ++i)
        if (z[i] != ' ' && z[i] != '\t' && z[i] != '\n' && z[i] != '\r')
            s.push_back(z[i]);
    if (s.size() >= 2 && s[0] == '&'
        && (s[1] == 'H' || s[1] == 'h' || s[1] == 'O' || s[1] == 'o')) {
        const int basis = (s[1] == 'H' || s[1] == 'h') ? 16 : 8;
        quint64 wert = 0;
        size_t i = 2;
        for (; i < s.size() && ziffernwert(s[i]) < basis && wert <= 0xFFFFFFFFull; ++i)
            wert = wert * quint64(basis) + quint64(ziffernwert(s[i]));
        qint64 ergebnis;
        if (wert <= 0xFFFF)
            ergebnis = qint16(quint16(wert));
        else if (wert <= 0xFFFFFFFFull)
            ergebnis = qint32(quint32(wert));
        else
            ergebnis = qint64(wert);
        sqlite3_result_int64(ctx, ergebnis);
        return;
    }
    size_t i = 0;
    std::string zahl;
    if (i < s.size() && (s[i] == '+' || s[i] == '-'))
        zahl.push_back(s[i++]);
    bool ziffern = false;
    while (i < s.size() && s[i] >= '0' && s[i] <= '9') {
        zahl.push_back(s[i++]);
        ziffern = true;
    }
    if (i < s.size() && s[i] == '.') {
        zahl.push_back(s[i++]);
        while (i < s.size() && s[i] >= '0' && s[i] <= '9') {
            zahl.push_back(s[i++]);
            ziffern = true;
        }
    }
    if (!ziffern) {
        sqlite3_result_int(ctx, 0);
        return;
    }
    if (i < s.size() && (s[i] == 'e' || s[i] == 'E' || s[i] == 'd' || s[i] == 'D')) {
        size_t j = i + 1;
        std::string exponent = "e";
        if (j < s.size() && (s[j] == '+' || s[j] == '-'))
            exponent.push_back(s[j++]);
        bool expZiffern = false;
        while (j < s.size() && s[j] >= '0' && s[j] <= '9') {
            exponent.push_back(s[j++]);
            expZiffern = true;
        }
        if (expZiffern)
            zahl += exponent;
    }
    const double d = std::strtod(zahl.c_str(), nullptr);
    if (std::isfinite(d) && d == std::floor(d) && std::fabs(d) < 9.0e15)
        sqlite3_result_int64(ctx, qint64(d));
    else
        sqlite3_result_double(ctx, d);
}

void anmelden(sqlite3* db, const char* name, int argc,
              void (*f)(sqlite3_context*, int, sqlite3_value**))
{
    sqlite3_create_function_v2(db, name, argc,
                               SQLITE_UTF8 | SQLITE_DETERMINISTIC | SQLITE_INNOCUOUS, nullptr, f,
                               nullptr, nullptr, nullptr);
}

bool istWortzeichen(QChar c)
{
    return c.isLetterOrNumber() || c == u'_' || c == u'$' || c.unicode() >= 0x80;
}

} // namespace

void JetFunktionenAnmelden(sqlite3* db)
{
    // The text columns keep SQLite's own NOCASE, so that every program, and every index
    // another program made on them, orders and compares them alike: the file stays intact
    // whoever writes it. The German rules ("Ärzte" among the A, umlauts caseless) come in
    // under a name of their own, which JetSyntaxAnpassen adds to the sorting and the
    // comparisons of the system's statements.
    sqlite3_create_collation(db, DeutschKollation, SQLITE_UTF8, nullptr, kollation);
    anmelden(db, "like", 2, likeFunktion);
    anmelden(db, "like", 3, likeFunktion);
    anmelden(db, "ucase", 1, ucaseFunktion);
    anmelden(db, "lcase", 1, lcaseFunktion);
    anmelden(db, "len", 1, lenFunktion);
    anmelden(db, "left", 2, leftFunktion);
    anmelden(db, "right", 2, rightFunktion);
    anmelden(db, "mid", 2, midFunktion);
    anmelden(db, "mid", 3, midFunktion);
    anmelden(db, "instr", 2, instrFunktion);
    anmelden(db, "instr", 3, instrFunktion);
    anmelden(db, "trim", 1, trimFunktion);
    anmelden(db, "nz", 1, nzFunktion);
    anmelden(db, "nz", 2, nzFunktion);
    anmelden(db, "val", 1, valFunktion);
}

qsizetype SqlUeberspringen(const QString& s, qsizetype i)
{
    const qsizetype n = s.size();
    if (i >= n)
        return i;
    const QChar c = s.at(i);
    if (c == u'\'' || c == u'"' || c == u'`' || c == u'[') {
        // A doubled quote stands for itself inside the literal; brackets are not doubled.
        const QChar ende = c == u'[' ? QChar(u']') : c;
        for (qsizetype j = i + 1; j < n; ++j) {
            if (s.at(j) != ende)
                continue;
            if (ende != u']' && j + 1 < n && s.at(j + 1) == ende) {
                ++j;
                continue;
            }
            return j + 1;
        }
        return n;
    }
    if (c == u'-' && i + 1 < n && s.at(i + 1) == u'-') {
        const qsizetype j = s.indexOf(u'\n', i);
        return j < 0 ? n : j;
    }
    if (c == u'/' && i + 1 < n && s.at(i + 1) == u'*') {
        const qsizetype j = s.indexOf(QStringLiteral("*/"), i + 2);
        return j < 0 ? n : j + 2;
    }
    return i;
}

namespace {

// Statements whose text goes into the schema or that take no expressions: another
// program must be able to read the schema, and it knows no collation of ours.
bool schemaAnweisung(QStringView wort)
{
    for (const char16_t* w : {u"create", u"alter", u"drop", u"pragma", u"attach", u"detach", u"vacuum",
                              u"reindex", u"analyze"})
        if (wort.compare(QStringView(w), Qt::CaseInsensitive) == 0)
            return true;
    return false;
}

bool wortIst(QStringView wort, std::initializer_list<const char16_t*> woerter)
{
    for (const char16_t* w : woerter)
        if (wort.compare(QStringView(w), Qt::CaseInsensitive) == 0)
            return true;
    return false;
}

// The terms of one "order by" or "group by" list, at one depth of parentheses.
struct Sortierliste {
    int tiefe = 0;
    qsizetype inhaltEnde = -1; // end of the current term in the output; -1 before its first token
    bool hatKollation = false;
    bool termZu = false;       // "asc", "desc" or "nulls" closed the term
};

class JetUmschreiber {
public:
    explicit JetUmschreiber(const QString& sql)
        : m_sql(sql)
        , m_n(sql.size())
    {
        m_aus.reserve(m_n + 32);
    }

    QString umschreiben()
    {
        while (m_i < m_n) {
            const QChar c = m_sql.at(m_i);
            if (const qsizetype j = SqlUeberspringen(m_sql, m_i); j > m_i) {
                const bool kommentar = c == u'-' || c == u'/';
                const bool text = c == u'\'' || c == u'"';
                const bool vergleich = text && m_kollationen && nebenVergleich(j, c == u'\'');
                m_aus += QStringView(m_sql).sliced(m_i, j - m_i);
                m_i = j;
                if (vergleich && !folgtWort(u"collate"))
                    m_aus += kollation();
                if (!kommentar)
                    inhalt();
            } else if (istWortzeichen(c)) {
                wort();
            } else if (c.isSpace()) {
                m_aus += c;
                ++m_i;
            } else if (c == u'&') {
                m_aus += QStringLiteral("||");
                ++m_i;
                inhalt();
            } else if (c == u'(') {
                m_aus += c;
                ++m_i;
                inhalt();
                ++m_tiefe;
            } else if (c == u')') {
                listenBeenden(m_tiefe);
                m_aus += c;
                ++m_i;
                m_tiefe = std::max(0, m_tiefe - 1);
                inhalt();
            } else if (c == u',') {
                if (!m_listen.empty() && m_listen.back().tiefe == m_tiefe)
                    termBeenden(m_listen.back());
                m_aus += c;
                ++m_i;
            } else if (c == u';') {
                listenBeenden(0);
                m_aus += c;
                ++m_i;
                m_tiefe = 0;
                m_ersteWort = true;
                m_kollationen = !m_triggerText;
            } else {
                m_aus += c;
                ++m_i;
                inhalt();
            }
        }
        listenBeenden(0);
        return m_aus;
    }

private:
    static QString kollation() { return QStringLiteral(" COLLATE ") + QLatin1String(DeutschKollation); }

    void inhalt()
    {
        if (!m_listen.empty() && m_tiefe >= m_listen.back().tiefe && !m_listen.back().termZu)
            m_listen.back().inhaltEnde = m_aus.size();
    }

    void termBeenden(Sortierliste& l)
    {
        if (l.inhaltEnde >= 0 && !l.hatKollation)
            m_aus.insert(l.inhaltEnde, kollation());
        l = Sortierliste{l.tiefe};
    }

    // Ends the lists at this depth and deeper.
    void listenBeenden(int tiefe)
    {
        while (!m_listen.empty() && m_listen.back().tiefe >= tiefe) {
            if (!m_listen.back().termZu)
                termBeenden(m_listen.back());
            m_listen.pop_back();
        }
    }

    // The position of the next token after blanks and comments from j.
    qsizetype naechstes(qsizetype j) const
    {
        while (j < m_n) {
            if (m_sql.at(j).isSpace()) {
                ++j;
                continue;
            }
            const QChar c = m_sql.at(j);
            if ((c == u'-' || c == u'/') && SqlUeberspringen(m_sql, j) > j) {
                j = SqlUeberspringen(m_sql, j);
                continue;
            }
            break;
        }
        return j;
    }

    QStringView wortAb(qsizetype j) const
    {
        qsizetype k = j;
        while (k < m_n && istWortzeichen(m_sql.at(k)))
            ++k;
        return QStringView(m_sql).sliced(j, k - j);
    }

    bool folgtWort(const char16_t* w) const
    {
        return wortAb(naechstes(m_i)).compare(QStringView(w), Qt::CaseInsensitive) == 0;
    }

    // A quoted text ending at j that stands behind =, <, >, <>, <=, >= or !=, or, when
    // it is no name (a name may be the column of "set x = ..."), before one.
    bool nebenVergleich(qsizetype j, bool auchDavor) const
    {
        qsizetype k = m_aus.size();
        while (k > 0 && m_aus.at(k - 1).isSpace())
            --k;
        if (k > 0 && (m_aus.at(k - 1) == u'=' || m_aus.at(k - 1) == u'<' || m_aus.at(k - 1) == u'>'))
            return true;
        const qsizetype danach = naechstes(j);
        if (!auchDavor || danach >= m_n)
            return false;
        const QChar c = m_sql.at(danach);
        return c == u'=' || c == u'<' || c == u'>'
               || (c == u'!' && danach + 1 < m_n && m_sql.at(danach + 1) == u'=');
    }

    void wort()
    {
        qsizetype j = m_i;
        while (j < m_n && istWortzeichen(m_sql.at(j)))
            ++j;
        const QStringView w = QStringView(m_sql).sliced(m_i, j - m_i);
        if (m_ersteWort) {
            m_ersteWort = false;
            if (schemaAnweisung(w))
                m_kollationen = false;
        }
        // The statements of a trigger body are part of the schema too.
        if (!m_kollationen && wortIst(w, {u"trigger"}))
            m_triggerText = true;

        Sortierliste* liste = (!m_listen.empty() && m_listen.back().tiefe == m_tiefe) ? &m_listen.back() : nullptr;
        const bool nachTerm = liste && (liste->inhaltEnde >= 0 || liste->termZu);
        if (m_kollationen && wortIst(w, {u"order", u"group"})) {
            const qsizetype b = naechstes(j);
            if (wortAb(b).compare(u"by", Qt::CaseInsensitive) == 0) {
                listenBeenden(m_tiefe);
                m_aus += QStringView(m_sql).sliced(m_i, b + 2 - m_i);
                m_i = b + 2;
                m_listen.push_back(Sortierliste{m_tiefe});
                return;
            }
        }
        if (liste && nachTerm) {
            if (wortIst(w, {u"asc", u"desc", u"nulls"})) {
                if (!liste->termZu)
                    termBeenden(*liste);
                liste->termZu = true;
            } else if (wortIst(w, {u"limit", u"offset", u"having", u"window", u"rows", u"range", u"groups",
                                   u"union", u"except", u"intersect"})) {
                listenBeenden(m_tiefe);
                liste = nullptr;
            }
        }
        if (liste && !liste->termZu && wortIst(w, {u"collate"}))
            liste->hatKollation = true;

        bool ersetzt = false;
        if (!m_sql.at(m_i).isDigit() && wortIst(w, {u"left", u"right"})) {
            const qsizetype k = naechstes(j);
            if (k < m_n && m_sql.at(k) == u'(') {
                m_aus += u'"' + w.toString().toLower() + u'"';
                ersetzt = true;
            }
        }
        if (!ersetzt)
            m_aus += w;
        m_i = j;
        inhalt();
    }

    const QString& m_sql;
    const qsizetype m_n;
    QString m_aus;
    qsizetype m_i = 0;
    int m_tiefe = 0;
    std::vector<Sortierliste> m_listen;
    bool m_ersteWort = true;
    bool m_kollationen = true;
    bool m_triggerText = false;
};

} // namespace

QString JetSyntaxAnpassen(const QString& sql) { return JetUmschreiber(sql).umschreiben(); }

// ---------------------------------------------------------------------------------------
// The connection.

void AnweisungFreigeben::operator()(sqlite3_stmt* anweisung) const { sqlite3_finalize(anweisung); }

QString SqliteMeldungDeutsch(const QString& meldung)
{
    struct Muster {
        const char* englisch;
        const char* deutsch;
    };
    // The messages a user meets in the SQL console; %1, %2 are the names SQLite gives.
    static const Muster k_muster[] = {
        {R"m(^no such column: (.+)$)m", "Die Spalte \"%1\" gibt es nicht."},
        {R"m(^no such table: (.+)$)m", "Die Tabelle \"%1\" gibt es nicht."},
        {R"m(^no such function: (.+)$)m", "Die Funktion \"%1\" gibt es nicht."},
        {R"m(^no such collation sequence: (.+)$)m", "Die Sortierfolge \"%1\" gibt es nicht."},
        {R"m(^near "(.*)": syntax error$)m", "Die SQL-Anweisung hat einen Syntaxfehler bei \"%1\"."},
        {R"m(^incomplete input$)m", "Die SQL-Anweisung ist unvollständig."},
        {R"m(^unrecognized token: "?(.*?)"?$)m", "Die SQL-Anweisung enthält das unbekannte Zeichen %1."},
        {R"m(^ambiguous column name: (.+)$)m", "Der Spaltenname \"%1\" ist mehrdeutig."},
        {R"m(^(?:table|view) "?(.*?)"? already exists$)m", "Die Tabelle \"%1\" gibt es schon."},
        {R"m(^index (.+) already exists$)m", "Den Index \"%1\" gibt es schon."},
        {R"m(^table (.+) has no column named (.+)$)m", "Die Tabelle \"%1\" hat keine Spalte \"%2\"."},
        {R"m(^duplicate column name: (.+)$)m", "Die Spalte \"%1\" gibt es doppelt."},
        {R"m(^wrong number of arguments to function (.+)\(\)$)m", "Die Funktion %1() hat die falsche Anzahl von Argumenten."},
        {R"m(^(\d+) values for (\d+) columns$)m", "Es sind %1 Werte für %2 Spalten angegeben."},
        {R"m(^UNIQUE constraint failed: (.+)$)m", "Der Wert in %1 ist nicht eindeutig."},
        {R"m(^NOT NULL constraint failed: (.+)$)m", "%1 darf nicht leer sein."},
        {R"m(^misuse of aggregate(?: function)?:? (.+)$)m", "Die Aggregatfunktion %1 steht an falscher Stelle."},
        {R"m(^sub-select returns (\d+) columns - expected 1$)m", "Die Unterabfrage liefert %1 Spalten statt einer."},
        {R"m(^SELECTs to the left and right of .+ do not have the same number of result columns$)m",
         "Die verbundenen Abfragen liefern verschieden viele Spalten."},
        {R"m(^cannot modify (.+) because it is a view$)m", "\"%1\" ist eine Sicht und kann nicht geändert werden."},
        {R"m(^interrupted$)m", "Die Abfrage wurde abgebrochen."},
    };
    for (const Muster& m : k_muster) {
        const QRegularExpression ausdruck(QString::fromUtf8(m.englisch));
        const QRegularExpressionMatch treffer = ausdruck.match(meldung);
        if (!treffer.hasMatch())
            continue;
        QString text = QString::fromUtf8(m.deutsch);
        for (int k = 1; k <= ausdruck.captureCount(); ++k)
            text = text.arg(treffer.captured(k));
        return text;
    }
    return {};
}

namespace {

// The error of a connection as a Laufzeitfehler: 3000 + SQLite's primary code, SQLite's
// message, and a German sentence where the user can do something about it.
Laufzeitfehler datenbankFehler(sqlite3* db, int rc, const QString& pfad)
{
    const int primaer = rc & 0xFF;
    const QString meldung
        = db ? QString::fromUtf8(sqlite3_errmsg(db)) : QString::fromUtf8(sqlite3_errstr(rc));
    const QString name = DateinameAusPfad(pfad);
    QString text;
    switch (primaer) {
    case SQLITE_READONLY:
        text = QStringLiteral("Die Datenbank \"%1\" ist schreibgeschützt; die Änderung wurde nicht "
                              "gespeichert. (%2)")
                   .arg(name, meldung);
        break;
    case SQLITE_FULL:
        text = QStringLiteral("Der Datenträger der Datenbank \"%1\" ist voll; die Änderung wurde "
                              "nicht gespeichert. (%2)")
                   .arg(name, meldung);
        break;
    case SQLITE_IOERR:
        text = QStringLiteral("Fehler beim Zugriff auf die Datenbank \"%1\". (%2)")
                   .arg(name, meldung);
        break;
    case SQLITE_BUSY:
    case SQLITE_LOCKED:
        text = QStringLiteral("Die Datenbank \"%1\" wird gerade von einem anderen Programm "
                              "benutzt. (%2)")
                   .arg(name, meldung);
        break;
    case SQLITE_CORRUPT:
        text = QStringLiteral("Die Datenbank \"%1\" ist beschädigt. (%2)").arg(name, meldung);
        break;
    case SQLITE_NOTADB:
        text = QStringLiteral("Die Datei \"%1\" ist keine Datenbank. (%2)").arg(name, meldung);
        break;
    case SQLITE_CANTOPEN:
        text = QStringLiteral("Die Datenbank \"%1\" kann nicht geöffnet werden. (%2)")
                   .arg(name, meldung);
        break;
    default:
        text = SqliteMeldungDeutsch(meldung);
        text = text.isEmpty() ? meldung : text + QStringLiteral(" (") + meldung + u')';
    }
    return Laufzeitfehler(Fehlernummer::DatenbankBasis + primaer, text);
}

[[noreturn]] void werfen(sqlite3* db, int rc, const QString& pfad)
{
    throw datenbankFehler(db, rc, pfad);
}

void pragmaAusfuehren(sqlite3* db, const char* sql, const QString& pfad, bool pflicht)
{
    char* fehler = nullptr;
    const int rc = sqlite3_exec(db, sql, nullptr, nullptr, &fehler);
    sqlite3_free(fehler);
    if (rc != SQLITE_OK && pflicht)
        werfen(db, rc, pfad);
}

} // namespace

bool IstJetDatei(const QString& pfad)
{
    QFile datei(pfad);
    if (!datei.open(QIODevice::ReadOnly))
        return false;
    const QByteArray kopf = datei.read(32);
    if (kopf.size() < 19)
        return false;
    const QByteArray kennung = kopf.mid(4, 15);
    return kennung == "Standard Jet DB" || kennung == "Standard ACE DB";
}

Datenbank::Datenbank(const QString& pfad, sqlite3* db)
    : m_pfad(pfad)
    , m_db(db)
{
}

Datenbank::~Datenbank()
{
    // v2 leaves the closing to the last statement should one still be open.
    sqlite3_close_v2(m_db);
}

std::unique_ptr<Datenbank> Datenbank::oeffnen(const QString& pfad)
{
    const QFileInfo info(pfad);
    if (pfad.isEmpty() || !info.exists())
        throw Laufzeitfehler(Fehlernummer::DateiNichtGefunden);
    if (info.isDir())
        throw Laufzeitfehler(Fehlernummer::ZugriffsFehler);
    if (IstJetDatei(pfad))
        throw Laufzeitfehler(
            Fehlernummer::DatenbankBasis + SQLITE_NOTADB,
            QStringLiteral("Die Datei \"%1\" ist eine Datenbank im alten Jet-Format "
                           "(.mdb) und kann nicht geöffnet werden. Bitte wandeln "
                           "Sie sie zuerst in eine SQLite-Datenbank (.db) um.")
                .arg(pfad));
    // SQLite would take an empty file for a new database and write into it.
    if (info.size() == 0)
        werfen(nullptr, SQLITE_NOTADB, pfad);

    sqlite3* db = nullptr;
    const int rc
        = sqlite3_open_v2(QFile::encodeName(pfad).constData(), &db, SQLITE_OPEN_READWRITE, nullptr);
    if (rc != SQLITE_OK) {
        const Laufzeitfehler fehler = datenbankFehler(db, rc, pfad);
        sqlite3_close(db);
        throw fehler;
    }
    std::unique_ptr<Datenbank> datenbank(new Datenbank(pfad, db));
    JetFunktionenAnmelden(db);
    sqlite3_busy_timeout(db, 3000);
    // Reading the schema now makes a file that is no database fail here, not later.
    pragmaAusfuehren(db, "SELECT count(*) FROM sqlite_master", pfad, true);
    // The file is copied by "save as": no side files of a write-ahead log.
    pragmaAusfuehren(db, "PRAGMA journal_mode = DELETE", pfad, false);
    pragmaAusfuehren(db, "PRAGMA synchronous = FULL", pfad, false);
    pragmaAusfuehren(db, "PRAGMA temp_store = MEMORY", pfad, false);
    return datenbank;
}

bool Datenbank::schreibgeschuetzt() const { return sqlite3_db_readonly(m_db, "main") == 1; }

void Datenbank::fehlerWerfen(int rc) const { werfen(m_db, rc, m_pfad); }

Anweisung Datenbank::vorbereiten(const QString& sql, bool dauerhaft) const
{
    const QByteArray text = JetSyntaxAnpassen(sql).toUtf8();
    sqlite3_stmt* roh = nullptr;
    const int rc = sqlite3_prepare_v3(m_db, text.constData(), int(text.size()),
                                      dauerhaft ? SQLITE_PREPARE_PERSISTENT : 0, &roh, nullptr);
    if (rc != SQLITE_OK)
        fehlerWerfen(rc);
    if (!roh)
        throw Laufzeitfehler(Fehlernummer::DatenbankBasis + SQLITE_ERROR,
                             QStringLiteral("Die SQL-Anweisung ist leer."));
    return Anweisung(roh);
}

int Datenbank::Execute(const QString& sql)
{
    const QByteArray text = JetSyntaxAnpassen(sql).toUtf8();
    const char* z = text.constData();
    const char* const ende = z + text.size();
    bool sicherung = false; // several statements run as one
    auto zurueck = [&] {
        if (sicherung) {
            sqlite3_exec(m_db, "ROLLBACK TO rk_execute; RELEASE rk_execute", nullptr, nullptr,
                         nullptr);
            sicherung = false;
        }
    };
    int summe = 0;
    int anzahl = 0;
    while (z < ende) {
        sqlite3_stmt* roh = nullptr;
        const char* rest = nullptr;
        const int rc = sqlite3_prepare_v2(m_db, z, int(ende - z), &roh, &rest);
        if (rc != SQLITE_OK) {
            const Laufzeitfehler fehler = datenbankFehler(m_db, rc, m_pfad);
            zurueck();
            throw fehler;
        }
        z = rest;
        if (!roh)
            continue;
        Anweisung anweisung(roh);
        if (sqlite3_column_count(roh) > 0 && sqlite3_stmt_readonly(roh)) {
            zurueck();
            throw Laufzeitfehler(3065,
                                 QStringLiteral("Eine Auswahlabfrage kann nicht ausgeführt "
                                                "werden; nur Aktionsabfragen (update, insert, "
                                                "delete ...) sind möglich."));
        }
        if (!sicherung && anzahl == 0 && sqlite3_get_autocommit(m_db)) {
            const QByteArray folgt = QByteArray(rest, int(ende - rest)).trimmed();
            if (!folgt.isEmpty() && folgt != ";"
                && sqlite3_exec(m_db, "SAVEPOINT rk_execute", nullptr, nullptr, nullptr)
                    == SQLITE_OK)
                sicherung = true;
        }
        ++anzahl;
        const sqlite3_int64 vorher = sqlite3_total_changes64(m_db);
        int schritt;
        while ((schritt = sqlite3_step(roh)) == SQLITE_ROW) { }
        if (schritt != SQLITE_DONE) {
            const Laufzeitfehler fehler = datenbankFehler(m_db, schritt, m_pfad);
            anweisung.reset();
            zurueck();
            throw fehler;
        }
        if (sqlite3_total_changes64(m_db) != vorher)
            summe += sqlite3_changes(m_db);
    }
    if (sicherung)
        sqlite3_exec(m_db, "RELEASE rk_execute", nullptr, nullptr, nullptr);
    // This pragma puts SQLite's own like() back, with "%" as wild card.
    if (sql.contains(QLatin1String("case_sensitive_like"), Qt::CaseInsensitive))
        JetFunktionenAnmelden(m_db);
    if (anzahl == 0)
        throw Laufzeitfehler(Fehlernummer::DatenbankBasis + SQLITE_ERROR,
                             QStringLiteral("Die SQL-Anweisung ist leer."));
    return summe;
}

QStringList Datenbank::Spalten(const QString& tabelle) const
{
    QStringList namen;
    sqlite3_stmt* roh = nullptr;
    if (sqlite3_prepare_v2(m_db, "SELECT name FROM pragma_table_info(?1) ORDER BY cid", -1, &roh,
                           nullptr)
        != SQLITE_OK)
        return namen;
    Anweisung anweisung(roh);
    const QByteArray name = tabelle.toUtf8();
    sqlite3_bind_text(roh, 1, name.constData(), int(name.size()), SQLITE_TRANSIENT);
    while (sqlite3_step(roh) == SQLITE_ROW)
        namen << QString::fromUtf8(reinterpret_cast<const char*>(sqlite3_column_text(roh, 0)),
                                   sqlite3_column_bytes(roh, 0));
    return namen;
}
