// The control words of the RTF reader: which it knows, and what each does to the group
// or the paragraph being read.
#include "media/RtfLeserIntern.h"

#include "platform/Einheiten.h"

#include <QTextList>

namespace RtfLeserIntern {

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

} // namespace RtfLeserIntern
