// RTF reader: one pass over the source, a stack of group states, and either a document
// that is built paragraph by paragraph or only the plain text.
#include "media/Rtf.h"
#include "media/RtfIntern.h"
#include "platform/Einheiten.h"
#include "platform/Textdatei.h"

#include <QFont>
#include <QHash>
#include <QStringDecoder>
#include <QTextBlock>
#include <QTextCursor>
#include <QTextDocument>
#include <QTextList>

#include <algorithm>
#include <string_view>
#include <vector>

namespace {

enum class W : quint8 {
    // destinations
    Schrifttabelle, Farbtabelle, Ueberspringen, Marke, Pn,
    // document and tables
    Ansi, Mac, Pc, Pca, Ansicpg, Deff, Bin, Fcharset, Rot, Gruen, Blau, Uc, U,
    // character properties
    Plain, F, Fs, B, I, Ul, Ulnone, Strike, Cf, Highlight, Up, Dn, Super, Sub, Nosupersub, V,
    // paragraphs
    Par, Line, Tab, Pard, Li, Ri, Fi, Ql, Qc, Qr, Qj, Sb, Sa, Sl, Slmult, Ls, Ilvl, Cell, Row,
    // old-style lists
    Pnlvlblt, Pnlvlbody, Pnlvlcont, Pnlvl, Pndec, Pnucltr, Pnlcltr, Pnucrm, Pnlcrm,
    // a character by name
    Zeichen,
};

struct Wort {
    std::string_view name;
    W art;
    char16_t zeichen = 0;
};

// Control words the reader acts on; every other word is ignored.
const std::vector<Wort>& Woerter()
{
    static const std::vector<Wort> tabelle = [] {
        std::vector<Wort> t = {
            {"fonttbl", W::Schrifttabelle}, {"colortbl", W::Farbtabelle},
            {"pntext", W::Marke}, {"listtext", W::Marke}, {"pn", W::Pn},
            {"ansi", W::Ansi}, {"mac", W::Mac}, {"pc", W::Pc}, {"pca", W::Pca},
            {"ansicpg", W::Ansicpg}, {"deff", W::Deff}, {"bin", W::Bin},
            {"fcharset", W::Fcharset}, {"red", W::Rot}, {"green", W::Gruen}, {"blue", W::Blau},
            {"uc", W::Uc}, {"u", W::U},
            {"plain", W::Plain}, {"f", W::F}, {"fs", W::Fs}, {"b", W::B}, {"i", W::I},
            {"ul", W::Ul}, {"uld", W::Ul}, {"uldash", W::Ul}, {"uldashd", W::Ul},
            {"uldashdd", W::Ul}, {"uldb", W::Ul}, {"ulhair", W::Ul}, {"ulhwave", W::Ul},
            {"ulldash", W::Ul}, {"ulth", W::Ul}, {"ulthd", W::Ul}, {"ulthdash", W::Ul},
            {"ulthdashd", W::Ul}, {"ulthdashdd", W::Ul}, {"ulthldash", W::Ul},
            {"ululdbwave", W::Ul}, {"ulw", W::Ul}, {"ulwave", W::Ul}, {"ulnone", W::Ulnone},
            {"strike", W::Strike}, {"striked", W::Strike}, {"cf", W::Cf},
            {"highlight", W::Highlight}, {"cb", W::Highlight}, {"up", W::Up}, {"dn", W::Dn},
            {"super", W::Super}, {"sub", W::Sub}, {"nosupersub", W::Nosupersub}, {"v", W::V},
            {"par", W::Par}, {"line", W::Line}, {"tab", W::Tab}, {"pard", W::Pard},
            {"li", W::Li}, {"lin", W::Li}, {"ri", W::Ri}, {"rin", W::Ri}, {"fi", W::Fi},
            {"ql", W::Ql}, {"qc", W::Qc}, {"qr", W::Qr}, {"qj", W::Qj}, {"qd", W::Qj},
            {"sb", W::Sb}, {"sa", W::Sa}, {"sl", W::Sl}, {"slmult", W::Slmult},
            {"ls", W::Ls}, {"ilvl", W::Ilvl}, {"cell", W::Cell}, {"nestcell", W::Cell},
            {"row", W::Row}, {"nestrow", W::Row},
            {"pnlvlblt", W::Pnlvlblt}, {"pnlvlbody", W::Pnlvlbody}, {"pnlvlcont", W::Pnlvlcont},
            {"pnlvl", W::Pnlvl}, {"pndec", W::Pndec}, {"pnucltr", W::Pnucltr},
            {"pnlcltr", W::Pnlcltr}, {"pnucrm", W::Pnucrm}, {"pnlcrm", W::Pnlcrm},
            {"emdash", W::Zeichen, 0x2014}, {"endash", W::Zeichen, 0x2013},
            {"lquote", W::Zeichen, 0x2018}, {"rquote", W::Zeichen, 0x2019},
            {"ldblquote", W::Zeichen, 0x201C}, {"rdblquote", W::Zeichen, 0x201D},
            {"bullet", W::Zeichen, 0x2022}, {"emspace", W::Zeichen, 0x2003},
            {"enspace", W::Zeichen, 0x2002}, {"qmspace", W::Zeichen, 0x2005},
            {"zwj", W::Zeichen, 0x200D}, {"zwnj", W::Zeichen, 0x200C},
            {"zwbo", W::Zeichen, 0x200B}, {"ltrmark", W::Zeichen, 0x200E},
            {"rtlmark", W::Zeichen, 0x200F},
        };
        // Destinations whose content is no text of the document.
        for (std::string_view name :
             {"annotation", "atnauthor", "atndate", "atnicn", "atnid", "atnparent", "atnref",
              "atntime", "atrfend", "atrfstart", "author", "background", "bkmkend", "bkmkstart",
              "blipuid", "buptim", "category", "colorschememapping", "comment", "company",
              "creatim", "datafield", "datastore", "defchp", "defpap", "do", "doccomm", "docvar",
              "dptxbxtext", "factoidname", "falt", "fchars", "ffdeftext", "ffentrymcr",
              "ffexitmcr", "ffformat", "ffhelptext", "ffl", "ffname", "ffstattext", "file",
              "filetbl", "fldinst", "fldtype", "fname", "fontemb", "fontfile", "footer",
              "footerf", "footerl", "footerr", "footnote", "formfield", "ftncn", "ftnsep",
              "ftnsepc", "aftncn", "aftnsep", "aftnsepc", "generator", "gridtbl", "header",
              "headerf", "headerl", "headerr", "hlinkbase", "htmltag", "info", "keycode",
              "keywords", "latentstyles", "lchars", "levelnumbers", "leveltext", "lfolevel",
              "linkval", "list", "listlevel", "listname", "listoverride", "listoverridetable",
              "listpicture", "liststylename", "listtable", "manager", "mhtmltag", "mmathPr",
              "nesttableprops", "nextfile", "nonesttables", "nonshppict", "objalias",
              "objclass", "objdata", "object", "objname", "objsect", "objtime", "oldcprops",
              "oldpprops", "oldsprops", "oldtprops", "operator", "panose", "password",
              "passwordhash", "pgdsctbl", "pict", "pnseclvl", "pntxta", "pntxtb", "printim",
              "private", "propname", "protend", "protstart", "protusertbl", "pxe", "revtbl",
              "revtim", "rsidtbl", "rxe", "shp", "shpinst", "shppict", "stylesheet", "subject",
              "tc", "template", "themedata", "title", "txe", "ud", "userprops",
              "wgrffmtfilter", "windowcaption", "writereservation", "writereservhash", "xe",
              "xform", "xmlattrname", "xmlattrvalue", "xmlclose", "xmlname", "xmlnstbl",
              "xmlopen"})
            t.push_back({name, W::Ueberspringen});
        std::sort(t.begin(), t.end(), [](const Wort& a, const Wort& b) { return a.name < b.name; });
        return t;
    }();
    return tabelle;
}

const Wort* WortSuchen(std::string_view name)
{
    const auto& t = Woerter();
    auto it = std::lower_bound(t.begin(), t.end(), name,
                               [](const Wort& w, std::string_view n) { return w.name < n; });
    return it != t.end() && it->name == name ? &*it : nullptr;
}

// List kinds of a paragraph; 0 is none.
enum Liste : qint8 { KeineListe, Punkte, Ziffern, KleinBuchstaben, GrossBuchstaben, KleinRoemisch, GrossRoemisch };

QTextListFormat::Style ListenStil(int art)
{
    switch (art) {
    case Ziffern: return QTextListFormat::ListDecimal;
    case KleinBuchstaben: return QTextListFormat::ListLowerAlpha;
    case GrossBuchstaben: return QTextListFormat::ListUpperAlpha;
    case KleinRoemisch: return QTextListFormat::ListLowerRoman;
    case GrossRoemisch: return QTextListFormat::ListUpperRoman;
    default: return QTextListFormat::ListDisc;
    }
}

struct Zeichenzustand {
    int schrift = -1; // font number, -1 the default font
    int halbpunkte = 0; // 0 the standard size
    int farbe = 0;
    int hinter = 0;
    int versatz = 0; // twips
    qint8 hochtief = 0;
    bool fett = false, kursiv = false, unter = false, durch = false, verborgen = false;
    bool operator==(const Zeichenzustand&) const = default;
};

struct Absatzzustand {
    int links = 0, rechts = 0, erste = 0, davor = 0, danach = 0, zeile = 0; // twips
    bool mehrfach = false;
    char ausrichtung = 'l';
    qint8 liste = KeineListe;
    int ls = 0;
    int ebene = 0;
};

enum class Ziel : quint8 { Text, Ueberspringen, Schrifttabelle, Farbtabelle, Marke, Pn };

struct Gruppe {
    Zeichenzustand z;
    Absatzzustand a;
    Ziel ziel = Ziel::Text;
    quint8 uc = 1;
};

struct Schrift {
    QString name;
    int seite = 0; // code page, 0 the document's
};

constexpr int MaxTiefe = 200;

int Klemmen(qint64 wert, int unten, int oben)
{
    return int(std::clamp<qint64>(wert, unten, oben));
}

int CodeSeiteVonZeichensatz(int zeichensatz)
{
    switch (zeichensatz) {
    case 77: return 10000;
    case 128: return 932;
    case 129: return 949;
    case 134: return 936;
    case 136: return 950;
    case 161: return 1253;
    case 162: return 1254;
    case 163: return 1258;
    case 177: return 1255;
    case 178: return 1256;
    case 186: return 1257;
    case 204: return 1251;
    case 222: return 874;
    case 238: return 1250;
    case 255: return 437;
    default: return 0;
    }
}

QByteArray KodierungsName(int seite)
{
    switch (seite) {
    case 932: return "Shift_JIS";
    case 936: return "GBK";
    case 949: return "EUC-KR";
    case 950: return "Big5";
    case 10000: return "macintosh";
    case 437: return "IBM437";
    case 850: return "IBM850";
    case 874: return "windows-874";
    case 65001: return "UTF-8";
    default: return "windows-" + QByteArray::number(seite);
    }
}


inline bool Buchstabe(char16_t c) { return (c >= u'a' && c <= u'z') || (c >= u'A' && c <= u'Z'); }
inline bool Ziffer(char16_t c) { return c >= u'0' && c <= u'9'; }
inline int HexWert(char16_t c)
{
    if (c >= u'0' && c <= u'9')
        return c - u'0';
    if (c >= u'a' && c <= u'f')
        return c - u'a' + 10;
    if (c >= u'A' && c <= u'F')
        return c - u'A' + 10;
    return -1;
}

class Leser {
public:
    // Without a document only the plain text is gathered.
    Leser(QStringView quelle, QTextDocument* dokument, const QString& familie, qreal punkte)
        : m_q(quelle), m_dokument(dokument), m_standardFamilie(familie),
          m_standardPunkte(punkte > 0 ? punkte : 12.0)
    {
        if (dokument)
            m_cursor = QTextCursor(dokument);
        m_stapel.reserve(32);
    }

    void lesen();
    QString text() const { return m_text; }

private:
    Gruppe& g() { return m_stapel.back(); }
    void gruppeAuf();
    bool gruppeZu(); // false when the outermost group has closed
    void steuerung();
    void wort(std::string_view name, bool hatWert, int wert);
    void byteEin(unsigned char byte);
    void bytesAusgeben();
    void zeichenEin(char16_t c);
    void absatzEnde();
    void absatzAusgeben();
    void schriftFertig();
    int codeSeite();
    QString familie(int nummer) const;
    QTextCharFormat format(const Zeichenzustand& z);
    QTextBlockFormat blockFormat(const Absatzzustand& a) const;

    QStringView m_q;
    qsizetype m_pos = 0;
    QTextDocument* m_dokument;
    QTextCursor m_cursor;
    QString m_standardFamilie;
    qreal m_standardPunkte = 12.0;

    std::vector<Gruppe> m_stapel;
    int m_ueberlauf = 0; // groups beyond MaxTiefe
    bool m_stern = false; // \* seen: an unknown destination follows
    int m_fallback = 0; // characters still to skip after \uN
    int m_seite = 1252; // \ansicpg
    int m_deff = 0;

    QHash<int, Schrift> m_schriften;
    int m_schriftNummer = -1; // entry of the font table being read
    int m_schriftSatz = -1;
    QString m_schriftName;
    std::vector<QColor> m_farben;
    int m_rot = -1, m_gruen = -1, m_blau = -1;

    QByteArray m_bytes; // \'xx of a code page other than 1252, decoded together
    int m_bytesSeite = 0;

    QString m_marke; // text of \pntext or \listtext
    qint8 m_pnArt = KeineListe;
    int m_pnEbene = 0;

    // plain text
    QString m_text;
    bool m_absatzLeer = true;
    int m_absaetze = 0;

    // the paragraph being read: its text and the runs in it
    QString m_absatz;
    std::vector<std::pair<qsizetype, Zeichenzustand>> m_laeufe;
    bool m_zustandNeu = true;
    std::vector<std::pair<Zeichenzustand, QTextCharFormat>> m_formate;
    QTextList* m_liste = nullptr;
    // The run of list paragraphs of one kind in a row that the paragraph belongs to.
    int m_laufArt = KeineListe, m_laufLs = 0, m_laufEbene = 0;
    bool m_laufEingerueckt = false;
    int m_laufLaenge = 0;
    qsizetype m_absatzAnfang = 0; // plain text: where the paragraph being read starts

    // The collected bytes end in the first byte of a double-byte character.
    bool folgebyteFehlt() const;
    int listenArt(const Absatzzustand& a) const;
    bool imLaufZaehlen(int art, const Absatzzustand& a);
    QString markeAlsText() const;
};

// The toolkit's lists cost the square of their items to build. A bullet list is therefore
// made of lists of this many items, which look as one; a numbered list keeps its items up
// to the larger number as a list and shows the items beyond with their number as text.
constexpr int PunkteJeListe = 64;
constexpr int NummernAlsListe = 128;

int Leser::listenArt(const Absatzzustand& a) const
{
    if (a.liste == KeineListe && a.ls > 0)
        return std::any_of(m_marke.begin(), m_marke.end(), [](QChar c) { return c.isDigit(); }) ? Ziffern
                                                                                                 : Punkte;
    return a.liste;
}

// Counts the paragraph into its run; true for a numbered item past those kept as a list.
bool Leser::imLaufZaehlen(int art, const Absatzzustand& a)
{
    const bool eingerueckt = a.links <= 0;
    if (art == KeineListe || art != m_laufArt || a.ls != m_laufLs || a.ebene != m_laufEbene
        || eingerueckt != m_laufEingerueckt) {
        m_laufArt = art;
        m_laufLs = a.ls;
        m_laufEbene = a.ebene;
        m_laufEingerueckt = eingerueckt;
        m_laufLaenge = 0;
    }
    if (art == KeineListe)
        return false;
    ++m_laufLaenge;
    return art != Punkte && m_laufLaenge > NummernAlsListe;
}

// The number of the item as the source gives it, else as counted, and a tab.
QString Leser::markeAlsText() const
{
    QString marke = m_marke.trimmed();
    if (marke.isEmpty())
        marke = QString::number(m_laufLaenge) + u'.';
    return marke + u'\t';
}

void Leser::lesen()
{
    if (m_dokument)
        m_cursor.beginEditBlock();
    const qsizetype n = m_q.size();
    while (m_pos < n) {
        const char16_t c = m_q[m_pos].unicode();
        if (c == u'\\') {
            steuerung();
            continue;
        }
        ++m_pos;
        if (c == u'\r' || c == u'\n')
            continue;
        // In a double-byte code page the second byte of a character may be a plain
        // letter, written as itself after the \'xx of the first.
        if (!m_bytes.isEmpty() && c < 0x80 && c != u'{' && c != u'}' && folgebyteFehlt()) {
            m_bytes.append(char(c));
            continue;
        }
        if (!m_bytes.isEmpty())
            bytesAusgeben();
        if (c == u'{') {
            gruppeAuf();
        } else if (c == u'}') {
            if (!gruppeZu())
                break;
        } else if (!m_stapel.empty()) {
            if (m_fallback > 0)
                --m_fallback;
            else
                zeichenEin(c);
        }
    }
    if (!m_bytes.isEmpty())
        bytesAusgeben();
    if (m_stapel.empty())
        m_stapel.emplace_back();
    // A last paragraph without text is the one that the closing \par opened.
    if (m_dokument) {
        if (m_absaetze == 0 || !m_laeufe.empty())
            absatzAusgeben();
        m_cursor.endEditBlock();
    } else if (m_absaetze > 0 && m_absatzLeer) {
        m_text.chop(1);
    } else if (!m_absatzLeer && imLaufZaehlen(listenArt(g().a), g().a)) {
        m_text.insert(m_absatzAnfang, markeAlsText());
    }
}

void Leser::gruppeAuf()
{
    m_fallback = 0;
    m_stern = false;
    if (m_stapel.empty()) {
        m_stapel.emplace_back();
        return;
    }
    if (int(m_stapel.size()) >= MaxTiefe) {
        ++m_ueberlauf;
        return;
    }
    m_stapel.push_back(m_stapel.back());
}

bool Leser::gruppeZu()
{
    m_fallback = 0;
    m_stern = false;
    if (m_ueberlauf > 0) {
        --m_ueberlauf;
        return true;
    }
    // The outermost group stays: its state ends the last paragraph.
    if (m_stapel.size() <= 1)
        return false;
    const Ziel ziel = g().ziel;
    m_stapel.pop_back();
    const Ziel oben = g().ziel;
    if (ziel == Ziel::Schrifttabelle)
        schriftFertig();
    else if (ziel == Ziel::Pn && oben != Ziel::Pn && m_pnArt != KeineListe) {
        g().a.liste = m_pnArt;
        g().a.ebene = m_pnEbene;
    }
    m_zustandNeu = true;
    return true;
}

void Leser::steuerung()
{
    const qsizetype n = m_q.size();
    ++m_pos; // the backslash
    if (m_pos >= n)
        return;
    const char16_t c = m_q[m_pos].unicode();
    if (Buchstabe(c)) {
        char puffer[32];
        int laenge = 0;
        while (m_pos < n && Buchstabe(m_q[m_pos].unicode())) {
            if (laenge < int(sizeof puffer))
                puffer[laenge] = char(m_q[m_pos].unicode());
            ++laenge;
            ++m_pos;
        }
        bool minus = false;
        if (m_pos + 1 < n && m_q[m_pos] == u'-' && Ziffer(m_q[m_pos + 1].unicode())) {
            minus = true;
            ++m_pos;
        }
        qint64 wert = 0;
        bool hatWert = false;
        while (m_pos < n && Ziffer(m_q[m_pos].unicode())) {
            if (wert < 10'000'000'000LL)
                wert = wert * 10 + (m_q[m_pos].unicode() - u'0');
            hatWert = true;
            ++m_pos;
        }
        if (m_pos < n && m_q[m_pos] == u' ')
            ++m_pos;
        if (!m_bytes.isEmpty())
            bytesAusgeben();
        if (m_stapel.empty())
            return;
        const int zahl = Klemmen(minus ? -wert : wert, -2147483647, 2147483647);
        const std::string_view name(puffer, size_t(std::min(laenge, int(sizeof puffer))));
        if (laenge > int(sizeof puffer)) {
            m_stern = false; // no word is that long
            return;
        }
        // \bin's data is skipped even where it stands for a fallback character.
        if (name == "bin") {
            if (hatWert && zahl > 0)
                m_pos = std::min<qsizetype>(n, m_pos + zahl);
            return;
        }
        if (m_fallback > 0) {
            --m_fallback;
            return;
        }
        wort(name, hatWert, zahl);
        return;
    }
    ++m_pos;
    if (c == u'\'') {
        int byte = -1;
        if (m_pos < n && HexWert(m_q[m_pos].unicode()) >= 0) {
            byte = HexWert(m_q[m_pos++].unicode());
            if (m_pos < n && HexWert(m_q[m_pos].unicode()) >= 0)
                byte = byte * 16 + HexWert(m_q[m_pos++].unicode());
        }
        if (m_stapel.empty() || byte < 0)
            return;
        if (m_fallback > 0) {
            --m_fallback;
            return;
        }
        byteEin(static_cast<unsigned char>(byte));
        return;
    }
    if (!m_bytes.isEmpty())
        bytesAusgeben();
    if (m_stapel.empty())
        return;
    if (m_fallback > 0) {
        --m_fallback;
        return;
    }
    switch (c) {
    case u'\\':
    case u'{':
    case u'}':
        zeichenEin(c);
        break;
    case u'~':
        zeichenEin(0x00A0);
        break;
    case u'-':
        zeichenEin(0x00AD);
        break;
    case u'_':
        zeichenEin(0x2011);
        break;
    case u'*':
        m_stern = true;
        break;
    case u'\r':
    case u'\n':
        if (g().ziel == Ziel::Text)
            absatzEnde();
        break;
    default:
        break;
    }
}

void Leser::wort(std::string_view name, bool hatWert, int wert)
{
    const Wort* w = WortSuchen(name);
    const bool stern = m_stern;
    m_stern = false;
    Gruppe& gr = g();
    if (stern && (!w || (w->art != W::Pn && w->art != W::Ueberspringen))) {
        // An ignorable destination that this reader does not know.
        gr.ziel = Ziel::Ueberspringen;
        return;
    }
    if (!w || gr.ziel == Ziel::Ueberspringen)
        return;
    const int an = hatWert ? wert : 1; // a toggle without value is on
    Zeichenzustand& z = gr.z;
    Absatzzustand& a = gr.a;
    const bool imText = gr.ziel == Ziel::Text;

    switch (w->art) {
    case W::Schrifttabelle:
        gr.ziel = Ziel::Schrifttabelle;
        m_schriftNummer = -1;
        m_schriftName.clear();
        return;
    case W::Farbtabelle:
        gr.ziel = Ziel::Farbtabelle;
        m_farben.clear();
        m_rot = m_gruen = m_blau = -1;
        return;
    case W::Ueberspringen:
        gr.ziel = Ziel::Ueberspringen;
        return;
    case W::Marke:
        gr.ziel = Ziel::Marke;
        m_marke.clear();
        return;
    case W::Pn:
        if (gr.ziel == Ziel::Text) {
            gr.ziel = Ziel::Pn;
            m_pnArt = KeineListe;
            m_pnEbene = 0;
        }
        return;
    case W::Ansi: m_seite = 1252; return;
    case W::Mac: m_seite = 10000; return;
    case W::Pc: m_seite = 437; return;
    case W::Pca: m_seite = 850; return;
    case W::Ansicpg:
        if (hatWert && wert > 0 && wert < 100000)
            m_seite = wert;
        return;
    case W::Deff:
        if (hatWert)
            m_deff = wert;
        return;
    case W::Uc:
        gr.uc = quint8(Klemmen(wert, 0, 8));
        return;
    case W::U: {
        if (hatWert && wert >= -32768 && wert <= 65535) {
            const char16_t c = char16_t(wert < 0 ? wert + 65536 : wert);
            if (c != 0)
                zeichenEin(c);
        }
        m_fallback = gr.uc;
        return;
    }
    case W::Bin:
        return; // handled before
    case W::Zeichen:
        zeichenEin(w->zeichen);
        return;
    default:
        break;
    }

    if (gr.ziel == Ziel::Schrifttabelle) {
        if (w->art == W::F) {
            schriftFertig();
            m_schriftNummer = wert;
            m_schriftSatz = -1;
        } else if (w->art == W::Fcharset) {
            m_schriftSatz = wert;
        }
        return;
    }
    if (gr.ziel == Ziel::Farbtabelle) {
        const int teil = Klemmen(wert, 0, 255);
        if (w->art == W::Rot)
            m_rot = teil;
        else if (w->art == W::Gruen)
            m_gruen = teil;
        else if (w->art == W::Blau)
            m_blau = teil;
        return;
    }

    switch (w->art) {
    case W::Pnlvlblt: m_pnArt = Punkte; break;
    case W::Pnlvlbody:
        if (m_pnArt == KeineListe || m_pnArt == Punkte)
            m_pnArt = Ziffern;
        break;
    case W::Pnlvlcont: m_pnArt = KeineListe; break;
    case W::Pnlvl:
        m_pnEbene = Klemmen(wert, 0, 9);
        if (m_pnArt == KeineListe)
            m_pnArt = Ziffern;
        break;
    case W::Pndec: m_pnArt = Ziffern; break;
    case W::Pnlcltr: m_pnArt = KleinBuchstaben; break;
    case W::Pnucltr: m_pnArt = GrossBuchstaben; break;
    case W::Pnlcrm: m_pnArt = KleinRoemisch; break;
    case W::Pnucrm: m_pnArt = GrossRoemisch; break;
    default: break;
    }
    if (!imText)
        return;

    bool zeichenformat = true;
    switch (w->art) {
    case W::Plain: z = Zeichenzustand{}; break;
    case W::F: z.schrift = wert; break;
    case W::Fs: z.halbpunkte = hatWert ? Klemmen(wert, 2, 3276) : 0; break;
    case W::B: z.fett = an != 0; break;
    case W::I: z.kursiv = an != 0; break;
    case W::Ul: z.unter = an != 0; break;
    case W::Ulnone: z.unter = false; break;
    case W::Strike: z.durch = an != 0; break;
    case W::Cf: z.farbe = Klemmen(wert, 0, 65535); break;
    case W::Highlight: z.hinter = Klemmen(wert, 0, 65535); break;
    case W::Up: z.versatz = Klemmen(qint64(hatWert ? wert : 6) * 10, -32760, 32760); break;
    case W::Dn: z.versatz = -Klemmen(qint64(hatWert ? wert : 6) * 10, -32760, 32760); break;
    case W::Super: z.hochtief = 1; break;
    case W::Sub: z.hochtief = -1; break;
    case W::Nosupersub: z.hochtief = 0; break;
    case W::V: z.verborgen = an != 0; break;
    default: zeichenformat = false; break;
    }
    if (zeichenformat) {
        m_zustandNeu = true;
        return;
    }

    switch (w->art) {
    case W::Par:
    case W::Row: absatzEnde(); break;
    case W::Line: zeichenEin(0x2028); break;
    case W::Tab:
    case W::Cell: zeichenEin(u'\t'); break;
    case W::Pard: a = Absatzzustand{}; break;
    case W::Li: a.links = Klemmen(wert, -RtfMaxTwips, RtfMaxTwips); break;
    case W::Ri: a.rechts = Klemmen(wert, -RtfMaxTwips, RtfMaxTwips); break;
    case W::Fi: a.erste = Klemmen(wert, -RtfMaxTwips, RtfMaxTwips); break;
    case W::Sb: a.davor = Klemmen(wert, 0, RtfMaxTwips); break;
    case W::Sa: a.danach = Klemmen(wert, 0, RtfMaxTwips); break;
    case W::Sl: a.zeile = Klemmen(wert, -RtfMaxTwips, RtfMaxTwips); break;
    case W::Slmult: a.mehrfach = an != 0; break;
    case W::Ql: a.ausrichtung = 'l'; break;
    case W::Qc: a.ausrichtung = 'c'; break;
    case W::Qr: a.ausrichtung = 'r'; break;
    case W::Qj: a.ausrichtung = 'j'; break;
    case W::Ls: a.ls = Klemmen(wert, 0, 65535); break;
    case W::Ilvl: a.ebene = Klemmen(wert, 0, 9); break;
    case W::Pnlvlblt:
    case W::Pnlvlbody:
    case W::Pnlvlcont:
    case W::Pnlvl:
    case W::Pndec:
    case W::Pnlcltr:
    case W::Pnucltr:
    case W::Pnlcrm:
    case W::Pnucrm:
        // outside a {\pn} group: straight to the paragraph
        a.liste = m_pnArt;
        a.ebene = m_pnEbene;
        break;
    default: break;
    }
}

int Leser::codeSeite()
{
    const int nummer = g().z.schrift < 0 ? m_deff : g().z.schrift;
    const auto it = m_schriften.constFind(nummer);
    if (it != m_schriften.constEnd() && it->seite != 0)
        return it->seite;
    return m_seite;
}

void Leser::byteEin(unsigned char byte)
{
    const Ziel ziel = g().ziel;
    if (ziel == Ziel::Ueberspringen || ziel == Ziel::Pn || ziel == Ziel::Farbtabelle)
        return;
    int seite = codeSeite();
    if (ziel == Ziel::Schrifttabelle) // a name in the code page of its own entry
        seite = CodeSeiteVonZeichensatz(m_schriftSatz) ? CodeSeiteVonZeichensatz(m_schriftSatz) : m_seite;
    if (seite == 1252 || byte < 0x80) {
        if (!m_bytes.isEmpty())
            bytesAusgeben();
        zeichenEin(Cp1252Zeichen(byte));
        return;
    }
    if (!m_bytes.isEmpty() && m_bytesSeite != seite)
        bytesAusgeben();
    m_bytesSeite = seite;
    m_bytes.append(char(byte));
}

bool Leser::folgebyteFehlt() const
{
    auto leitbyte = [this](unsigned char b) {
        switch (m_bytesSeite) {
        case 932: return (b >= 0x81 && b <= 0x9F) || (b >= 0xE0 && b <= 0xFC);
        case 936:
        case 949:
        case 950: return b >= 0x81 && b <= 0xFE;
        default: return false;
        }
    };
    qsizetype i = 0;
    while (i < m_bytes.size())
        i += leitbyte(static_cast<unsigned char>(m_bytes[i])) ? 2 : 1;
    return i > m_bytes.size();
}

void Leser::bytesAusgeben()
{
    const QByteArray bytes = std::exchange(m_bytes, QByteArray());
    QStringDecoder dekoder(KodierungsName(m_bytesSeite).constData());
    const QString text = dekoder.isValid() ? QString(dekoder.decode(bytes)) : Cp1252Dekodieren(bytes);
    for (const QChar c : text)
        zeichenEin(c.unicode());
}

void Leser::zeichenEin(char16_t c)
{
    Gruppe& gr = g();
    switch (gr.ziel) {
    case Ziel::Text:
        break;
    case Ziel::Schrifttabelle:
        if (c == u';')
            schriftFertig();
        else if (m_schriftNummer >= 0 && m_schriftName.size() < 200 && !RtfUnbrauchbar(c))
            m_schriftName.append(QChar(c));
        return;
    case Ziel::Farbtabelle:
        if (c == u';') {
            const bool gesetzt = m_rot >= 0 || m_gruen >= 0 || m_blau >= 0;
            if (m_farben.size() < 65536)
                m_farben.push_back(gesetzt ? QColor(std::max(m_rot, 0), std::max(m_gruen, 0),
                                                    std::max(m_blau, 0))
                                           : QColor());
            m_rot = m_gruen = m_blau = -1;
        }
        return;
    case Ziel::Marke:
        if (m_marke.size() < 32)
            m_marke.append(QChar(c));
        return;
    case Ziel::Ueberspringen:
    case Ziel::Pn:
        return;
    }
    if (gr.z.verborgen || RtfUnbrauchbar(c))
        return;
    if (!m_dokument) {
        m_text.append(c == 0x2028 ? QChar(u'\n') : c == 0x00A0 ? QChar(u' ') : QChar(c));
        m_absatzLeer = false;
        return;
    }
    if (m_zustandNeu) {
        m_zustandNeu = false;
        if (m_laeufe.empty() || !(m_laeufe.back().second == gr.z))
            m_laeufe.emplace_back(m_absatz.size(), gr.z);
    }
    m_absatz.append(QChar(c));
}

void Leser::schriftFertig()
{
    if (m_schriftNummer >= 0) {
        const QString name = m_schriftName.trimmed();
        if (!name.isEmpty() || !m_schriften.contains(m_schriftNummer))
            m_schriften.insert(m_schriftNummer, {name, CodeSeiteVonZeichensatz(m_schriftSatz)});
    }
    m_schriftNummer = -1;
    m_schriftName.clear();
}

void Leser::absatzEnde()
{
    if (!m_dokument) {
        if (imLaufZaehlen(listenArt(g().a), g().a))
            m_text.insert(m_absatzAnfang, markeAlsText());
        m_text.append(u'\n');
        m_absatzAnfang = m_text.size();
        m_absatzLeer = true;
        ++m_absaetze;
        m_marke.clear();
        return;
    }
    absatzAusgeben();
    ++m_absaetze;
}

QString Leser::familie(int nummer) const
{
    const auto it = m_schriften.constFind(nummer < 0 ? m_deff : nummer);
    if (it != m_schriften.constEnd() && !it->name.isEmpty())
        return it->name;
    return m_standardFamilie;
}

QTextCharFormat Leser::format(const Zeichenzustand& z)
{
    for (const auto& [zustand, f] : m_formate)
        if (zustand == z)
            return f;
    QTextCharFormat f;
    f.setFontFamilies(QStringList{familie(z.schrift)});
    const qreal punkte = z.halbpunkte > 0 ? z.halbpunkte / 2.0 : m_standardPunkte;
    f.setFontPointSize(punkte);
    f.setFontWeight(z.fett ? QFont::Bold : QFont::Normal);
    f.setFontItalic(z.kursiv);
    f.setFontUnderline(z.unter);
    f.setFontStrikeOut(z.durch);
    if (z.farbe > 0 && z.farbe < int(m_farben.size()) && m_farben[size_t(z.farbe)].isValid())
        f.setForeground(m_farben[size_t(z.farbe)]);
    if (z.hinter > 0 && z.hinter < int(m_farben.size()) && m_farben[size_t(z.hinter)].isValid())
        f.setBackground(m_farben[size_t(z.hinter)]);
    if (z.versatz != 0)
        RtfVersatzSetzen(f, z.versatz, punkte);
    if (z.hochtief != 0)
        f.setVerticalAlignment(z.hochtief > 0 ? QTextCharFormat::AlignSuperScript
                                              : QTextCharFormat::AlignSubScript);
    if (m_formate.size() >= 32)
        m_formate.erase(m_formate.begin());
    m_formate.emplace_back(z, f);
    return f;
}

QTextBlockFormat Leser::blockFormat(const Absatzzustand& a) const
{
    QTextBlockFormat f;
    f.setLeftMargin(a.links / double(TwipsProPixel));
    f.setRightMargin(a.rechts / double(TwipsProPixel));
    f.setTopMargin(a.davor / double(TwipsProPixel));
    f.setBottomMargin(a.danach / double(TwipsProPixel));
    switch (a.ausrichtung) {
    case 'c': f.setAlignment(Qt::AlignHCenter); break;
    case 'r': f.setAlignment(Qt::AlignRight); break;
    case 'j': f.setAlignment(Qt::AlignJustify); break;
    default: f.setAlignment(Qt::AlignLeft); break;
    }
    if (a.zeile != 0) {
        if (a.mehrfach)
            f.setLineHeight(std::abs(a.zeile) * 100.0 / 240.0, QTextBlockFormat::ProportionalHeight);
        else if (a.zeile > 0)
            f.setLineHeight(a.zeile / double(TwipsProPixel), QTextBlockFormat::MinimumHeight);
        else
            f.setLineHeight(-a.zeile / double(TwipsProPixel), QTextBlockFormat::FixedHeight);
    }
    return f;
}

void Leser::absatzAusgeben()
{
    const Absatzzustand& a = g().a;
    int art = listenArt(a);
    const bool nummerAlsText = imLaufZaehlen(art, a);
    if (nummerAlsText)
        art = KeineListe;
    QTextBlockFormat bf = blockFormat(a);
    if (art != KeineListe)
        bf.setProperty(RtfEigenschaft::ErstzeileTwips, a.erste);
    else
        bf.setTextIndent(a.erste / double(TwipsProPixel));
    const QTextCharFormat marke = format(g().z);
    if (m_absaetze == 0) {
        m_cursor.setBlockFormat(bf);
        m_cursor.setBlockCharFormat(marke);
    } else {
        m_cursor.insertBlock(bf, marke);
    }
    if (nummerAlsText)
        m_cursor.insertText(markeAlsText(), m_laeufe.empty() ? marke : format(m_laeufe.front().second));
    for (size_t i = 0; i < m_laeufe.size(); ++i) {
        const qsizetype von = m_laeufe[i].first;
        const qsizetype bis = i + 1 < m_laeufe.size() ? m_laeufe[i + 1].first : m_absatz.size();
        m_cursor.insertText(m_absatz.mid(von, bis - von), format(m_laeufe[i].second));
    }
    if (art != KeineListe) {
        if (m_liste && m_laufLaenge > 1 && (art != Punkte || (m_laufLaenge - 1) % PunkteJeListe != 0)) {
            m_liste->add(m_cursor.block());
        } else {
            QTextListFormat lf;
            lf.setStyle(ListenStil(art));
            // The paragraph's own indent makes room for the bullet; without one the list does.
            lf.setIndent(m_laufEingerueckt ? 1 : 0);
            m_liste = m_cursor.createList(lf);
        }
    } else {
        m_liste = nullptr;
    }
    m_absatz.clear();
    m_laeufe.clear();
    m_zustandNeu = true;
    m_marke.clear();
}

// Plain text as a document would hold it: lines become paragraphs.
QString EinfacherText(const QString& text)
{
    QString aus;
    aus.reserve(text.size());
    for (qsizetype i = 0; i < text.size(); ++i) {
        const char16_t c = text[i].unicode();
        if (c == u'\r') {
            aus.append(u'\n');
            if (i + 1 < text.size() && text[i + 1] == u'\n')
                ++i;
        } else if (c == u'\n' || c == 0x2028 || c == 0x2029) {
            aus.append(u'\n');
        } else if (!RtfUnbrauchbar(c)) {
            aus.append(QChar(c));
        }
    }
    return aus;
}

// Blanks, line ends or a byte order mark before the group are no reason to show the source.
bool IstRtf(const QString& text)
{
    qsizetype i = 0;
    while (i < text.size() && (text[i].isSpace() || text[i] == QChar(0xFEFF)))
        ++i;
    return QStringView(text).sliced(i).startsWith(QLatin1String("{\\rtf"));
}

} // namespace

void RtfLesen(const QString& rtf, QTextDocument* dokument, const QFont& standard)
{
    if (!dokument)
        return;
    const bool rueckgaengig = dokument->isUndoRedoEnabled();
    dokument->setUndoRedoEnabled(false);
    dokument->clear();
    dokument->setDefaultFont(standard);
    if (IstRtf(rtf)) {
        Leser leser(rtf, dokument, standard.family(), standard.pointSizeF());
        leser.lesen();
    } else {
        QTextCharFormat f;
        f.setFontFamilies(QStringList{standard.family()});
        f.setFontPointSize(standard.pointSizeF() > 0 ? standard.pointSizeF() : 12.0);
        f.setFontWeight(standard.bold() ? QFont::Bold : QFont::Normal);
        f.setFontItalic(standard.italic());
        f.setFontUnderline(standard.underline());
        f.setFontStrikeOut(standard.strikeOut());
        QTextCursor cursor(dokument);
        cursor.beginEditBlock();
        cursor.setBlockCharFormat(f);
        cursor.insertText(EinfacherText(rtf), f);
        cursor.endEditBlock();
    }
    dokument->setUndoRedoEnabled(rueckgaengig);
    dokument->setModified(false);
}

QString RtfText(const QString& rtf)
{
    if (!IstRtf(rtf))
        return EinfacherText(rtf).replace(QChar(0x00A0), u' ');
    Leser leser(rtf, nullptr, QString(), 12.0);
    leser.lesen();
    return leser.text();
}

int RtfVersatz(const QTextCharFormat& format)
{
    if (format.hasProperty(RtfEigenschaft::VersatzTwips))
        return format.intProperty(RtfEigenschaft::VersatzTwips);
    if (!format.hasProperty(QTextFormat::TextBaselineOffset))
        return 0;
    const qreal punkte = format.fontPointSize() > 0 ? format.fontPointSize() : 12.0;
    return RtfRunden(format.baselineOffset() * punkte / 5.0, -RtfMaxTwips, RtfMaxTwips);
}

void RtfVersatzSetzen(QTextCharFormat& format, int twips, qreal punktgroesse)
{
    if (twips == 0) {
        format.clearProperty(RtfEigenschaft::VersatzTwips);
        format.clearProperty(QTextFormat::TextBaselineOffset);
        return;
    }
    if (punktgroesse <= 0)
        punktgroesse = 12.0;
    format.setProperty(RtfEigenschaft::VersatzTwips, twips);
    // percent of the font height; a point is 20 twips
    format.setBaselineOffset(twips * 5.0 / punktgroesse);
}
