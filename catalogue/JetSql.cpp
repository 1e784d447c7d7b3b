#include "catalogue/JetSql.h"

#include "catalogue/Textregeln.h"
#include "shell/Grundregeln.h"

#include <QChar>
#include <QStringView>

#include <sqlite3.h>

#include <algorithm>
#include <cmath>
#include <initializer_list>
#include <string>
#include <vector>

using Textregeln::dekodieren;

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

// Jet's Left and Right: the first or the last n characters.
void randTeil(sqlite3_context* ctx, sqlite3_value** argv, bool links)
{
    qint64 n = 0;
    if (istNull(argv[0]) || !zahlArgument(ctx, argv[1], n))
        return;
    if (n < 0) {
        sqlite3_result_error(ctx, k_ungueltigesArgument, -1);
        return;
    }
    const QString text = textArgument(argv[0]);
    textErgebnis(ctx, links ? text.left(n) : text.right(n));
}

void leftFunktion(sqlite3_context* ctx, int, sqlite3_value** argv) { randTeil(ctx, argv, true); }
void rightFunktion(sqlite3_context* ctx, int, sqlite3_value** argv) { randTeil(ctx, argv, false); }

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

// Jet's Val, as the program reads numbers everywhere; a whole result stays an integer.
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
    // A memo may be long; the number stands within its first 400 characters that count.
    int ende = 0;
    for (int zaehler = 0; ende < n && zaehler < 400; ++ende)
        if (z[ende] != ' ' && z[ende] != '\t' && z[ende] != '\n' && z[ende] != '\r')
            ++zaehler;
    const double d = Val(QString::fromUtf8(z, ende));
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

