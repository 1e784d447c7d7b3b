// The rich text engine: reading, plain text, writing, round trips, hostile input.
#include "support/Testumgebung.h"

#include "media/Rtf.h"

#include <QElapsedTimer>
#include <QRandomGenerator>
#include <QRegularExpression>
#include <QStringDecoder>
#include <QTextBlock>
#include <QTextCursor>
#include <QTextDocument>
#include <QTextList>

#include <functional>

using namespace Qt::StringLiterals;

namespace {

QFont Standard() { return QFont(u"Segoe UI"_s, 12); }

QString R(const char* koerper)
{
    return u"{\\rtf1\\ansi\\ansicpg1252\\deff0{\\fonttbl{\\f0\\fnil\\fcharset0 Arial;}{\\f1\\fnil\\fcharset0 Courier New;}}"
           "{\\colortbl ;\\red255\\green0\\blue0;\\red0\\green128\\blue0;}"_s
        + QString::fromUtf8(koerper) + u'}';
}

// Format of the character at a position of the document.
QTextCharFormat Fmt(const QTextDocument& d, int pos)
{
    QTextCursor c(const_cast<QTextDocument*>(&d));
    c.setPosition(pos + 1);
    return c.charFormat();
}

QTextBlockFormat Absatz(const QTextDocument& d, int nummer) { return d.findBlockByNumber(nummer).blockFormat(); }

QString Familie(const QTextCharFormat& f) { return f.fontFamilies().toStringList().value(0); }

int Tw(qreal pixel) { return qRound(pixel * 15); }

QString Lesen(QTextDocument& d, const QString& rtf)
{
    RtfLesen(rtf, &d, Standard());
    return d.toPlainText();
}

// Writes the document, reads that and writes again: the first and the second text.
QPair<QString, QString> Rundreise(const QTextDocument& d, QTextDocument& gelesen)
{
    const QString erstes = RtfSchreiben(&d);
    RtfLesen(erstes, &gelesen, Standard());
    return {erstes, RtfSchreiben(&gelesen)};
}

// The list of each paragraph, "-" for none, else its style and the number given.
QString Listen(const QTextDocument& d, const std::function<int(const QTextBlock&)>& nummer)
{
    QStringList arten;
    for (QTextBlock b = d.begin(); b.isValid(); b = b.next())
        arten << (b.textList() ? u"%1:%2"_s.arg(b.textList()->format().style()).arg(nummer(b)) : u"-"_s);
    return arten.join(u' ');
}

// Appends a run of text in the format the step makes.
void Lauf(QTextCursor& c, const QString& text, const std::function<void(QTextCharFormat&)>& setzen)
{
    QTextCharFormat f;
    setzen(f);
    c.insertText(text, f);
}

// A text as a common word processor of the rich edit family writes it.
const char* const k_editor = R"RTF({\rtf1\ansi\ansicpg1252\deff0\nouicompat\deflang1031{\fonttbl{\f0\fnil\fcharset0 Calibri;}{\f1\fnil\fcharset2 Symbol;}{\f2\fswiss\fprq2\fcharset0 Segoe UI;}}
{\colortbl ;\red0\green0\blue255;\red192\green0\blue0;}
{\*\generator Riched20 10.0.19041}\viewkind4\uc1 
\pard\sa200\sl276\slmult1\qc\b\f2\fs28\lang7 Die gro\'dfe Plattensammlung\b0\par
\pard\sa200\sl276\slmult1\f0\fs22 Seite A: \i M\'e4rchenstunde\i0  \endash  aufgenommen in K\'f6ln, \'dcberspielung 1978 f\'fcr 20\'80.\par
{\pict{\*\picprop}\wmetafile8\picw2117\pich1270\picwgoal1200\pichgoal720 
0100090000035000000000002700000000000400000003010800050000000b0200000000050000
}\par
{\pntext\f1\'B7\tab}{\*\pn\pnlvlblt\pnf1\pnindent0{\pntxtb\'B7}}\fi-360\li720\sa200\sl276\slmult1 Erster Titel mit \cf2\ul Bl\'e4sern\cf0\ulnone\par
{\pntext\f1\'B7\tab}Zweiter Titel \u8222?Anf\'fchrung\u8220?\par
\pard\sa200\sl276\slmult1 Mehr unter {{\field{\*\fldinst{HYPERLINK "https://beispiel.example/platten" }}{\fldrslt{\ul\cf1\cf1\ul Plattenseite}}}}\f0\fs22  und Stra\'dfe \u321?\'f3d\u378?.\par
\pard\sa200\sl276\slmult1 H\up6 oben\up0  und \dn4 unten\up0  \'d6l\par
}
)RTF";

// A text as a common word processor of the office family writes it: the document's
// tables, styles, lists, header, footnote, bookmark, hidden text and data stores around a
// few paragraphs.
const char* const k_buero = R"RTF({\rtf1\adeflang1025\ansi\ansicpg1252\uc1\adeff31507\deff0\stshfdbch31505\deflang1031\themelang1031{\fonttbl{\f0\fbidi \froman\fcharset0\fprq2{\*\panose 02020603050405020304}Times New Roman;}{\f3\fbidi \froman\fcharset2\fprq2{\*\panose 05050102010706020507}Symbol;}
{\f37\fbidi \fswiss\fcharset0\fprq2{\*\panose 020f0502020204030204}Calibri{\*\falt Arial};}{\flomajor\f31500\fbidi \froman\fcharset0\fprq2 Times New Roman;}}{\colortbl;\red0\green0\blue0;\red0\green0\blue255;}
{\*\defchp \f31506\fs22\lang1031 }{\*\defpap \ql \li0\ri0\sa160\sl259\slmult1\widctlpar }\noqfpromote {\stylesheet{\ql \li0\ri0\sa160\sl259\slmult1 \f31506\fs22\lang1031 \snext0 \sqformat \spriority0 Normal;}{\*\cs10 \additive \ssemihidden Default Paragraph Font;}}
{\*\listtable{\list\listtemplateid-1616226034\listhybrid{\listlevel\levelnfc23\levelnfcn23\leveljc0\levelfollow0\levelstartat1{\leveltext\leveltemplateid67567617\'01\uf0b7;}{\levelnumbers;}\f3\fbias0 \fi-360\li720\lin720 }{\listname ;}\listid1178420540}}
{\*\listoverridetable{\listoverride\listid1178420540\listoverridecount0\ls1}}{\*\rsidtbl \rsid1602283\rsid5250433}{\mmathPr\mmathFont34\mbrkBin0}{\info{\author Rita Sammler}{\creatim\yr2023\mo5\dy4\hr10\min12}{\version2}}{\*\xmlnstbl {\xmlns1 http://schemas.microsoft.com/office/word/2003/wordml}}
\paperw11906\paperh16838\margl1417\widowctrl\ftnbj\aenddoc\noxlattoyen{\*\docvar {__Grammarly}{true}}{\*\ftnsep \ltrpar \pard\plain \ltrpar\ql \li0\ri0\widctlpar {\rtlch\fcs1 \af31507 \ltrch\fcs0 \insrsid1602283 \chftnsep \par }}
\sectd \ltrsect\linex0\headery708\endnhere\sectlinegrid360 {\header \ltrpar \pard\plain Kopfzeile der Sammlung\par }{\*\pnseclvl1\pnucrm\pnstart1\pnindent720\pnhang {\pntxta .}}
\pard\plain \ltrpar\ql \li0\ri0\sa160\sl259\slmult1\widctlpar\itap0\pararsid5250433 \rtlch\fcs1 \af31507\afs22\alang1025 \ltrch\fcs0 \f37\fs22\lang1031\langfe1033 {\rtlch\fcs1 \af31507 \ltrch\fcs0 \b\insrsid5250433 Kammermusik f\'fcr Fl\'f6te}{\insrsid5250433  \endash  Einspielung aus Gro\'df}{\rtlch\fcs1 \af31507 \ltrch\fcs0 \insrsid5250433 \hich\af37\dbch\af31505\loch\f37 e}{\insrsid5250433  N\'e4he.
\par {\listtext\pard\plain\ltrpar \rtlch\fcs1 \af0\afs22 \ltrch\fcs0 \f3\fs22\insrsid5250433 \loch\af3\dbch\af31505\hich\f3 \'b7\tab}}\pard \ltrpar\ql \fi-360\li720\ri0\sa160\sl259\slmult1\widctlpar\ls1\adjustright\rin0\lin720\itap0\contextualspace {\insrsid5250433 Sonate in a-Moll}{\*\shppict{\pict{\*\picprop}\picw100\pich100\pngblip 89504e470d0a1a0a}}{\footnote \ltrpar \pard\plain Fu\'dfnote nicht im Text\par}
\par {\listtext\pard\plain\ltrpar \f3\fs22 \'b7\tab}Partita {\*\bkmkstart Anker}Nr.{\*\bkmkend Anker} 2 mit {\v versteckt}\'c4nderung
\par \pard \ltrpar\qr \li0\ri0\sa160\sl259\slmult1\widctlpar\itap0 {\rtlch\fcs1 \af31507 \ltrch\fcs0 \cf2\insrsid5250433 Rechts \u8222\'84oben\u8220\'93 }{\field\fldedit{\*\fldinst {\rtlch\fcs1 \af31507 \ltrch\fcs0 \insrsid5250433  HYPERLINK "mailto:rita@beispiel.example" }}{\fldrslt {\rtlch\fcs1 \af31507 \ltrch\fcs0 \cs15\ul\cf17\insrsid5250433 Schreiben}}}\sectd \ltrsect\linex0\endnhere {\insrsid5250433 
\par }{\*\themedata 504b030414000600080000002100e9de0fbfff0000001c020000}{\*\colorschememapping 3c3f786d6c2076657273696f6e3d22312e30}
{\*\latentstyles\lsdstimax376\lsdlockeddef0{\lsdlockedexcept \lsdqformat1 \lsdpriority0 \lsdlocked0 Normal;}}{\*\datastore 01050000020000001800000}}
)RTF";

// Documents of the round trip: built with the document's own means, as the pane builds them.
std::vector<std::function<void(QTextDocument&)>> Bauplaene()
{
    using F = std::function<void(QTextDocument&)>;
    return {
        [](QTextDocument&) {}, // empty
        [](QTextDocument& d) { QTextCursor(&d).insertText(u" "_s); },
        [](QTextDocument& d) {
            QTextCursor c(&d);
            c.insertText(u"Grüße aus Köln: Ä Ö Ü ä ö ü ß € „zitiert“ – Łódź 😀 {x} \\y\tz"_s + QChar(0x2028) + u"nächste Zeile"_s);
            c.insertBlock();
            c.insertBlock(); // an empty paragraph in between
            Lauf(c, u"fett"_s, [](auto& f) { f.setFontWeight(QFont::Bold); });
            Lauf(c, u" kursiv"_s, [](auto& f) { f.setFontWeight(QFont::Bold); f.setFontItalic(true); f.setFontUnderline(true); });
            Lauf(c, u" durch"_s, [](auto& f) {
                f.setFontStrikeOut(true); f.setForeground(QColor(200, 10, 20)); f.setFontPointSize(18.5);
                f.setFontFamilies({u"Courier New"_s});
            });
            Lauf(c, u" markiert"_s, [](auto& f) { f.setBackground(QColor(255, 255, 0)); });
            Lauf(c, u"hoch"_s, [](auto& f) { RtfVersatzSetzen(f, 30, 12); });
            Lauf(c, u"tief"_s, [](auto& f) { RtfVersatzSetzen(f, -30, 12); });
            Lauf(c, u"2"_s, [](auto& f) { f.setVerticalAlignment(QTextCharFormat::AlignSuperScript); });
        },
        [](QTextDocument& d) {
            QTextCursor c(&d);
            QTextBlockFormat b;
            b.setLeftMargin(50 / 15.0);
            b.setRightMargin(100 / 15.0);
            b.setTextIndent(-7 / 15.0);
            b.setAlignment(Qt::AlignHCenter);
            c.setBlockFormat(b);
            c.insertText(u"eingerückt und zentriert"_s);
            b = QTextBlockFormat();
            b.setAlignment(Qt::AlignRight);
            b.setTopMargin(4);
            b.setBottomMargin(13.3333);
            b.setLineHeight(115, QTextBlockFormat::ProportionalHeight);
            c.insertBlock(b);
            c.insertText(u"rechts"_s);
            b.setAlignment(Qt::AlignJustify);
            b.setLineHeight(20, QTextBlockFormat::FixedHeight);
            c.insertBlock(b);
            c.insertText(u"Blocksatz"_s);
        },
        [](QTextDocument& d) {
            // Each kind of list, one indented, a plain paragraph between two; two like lists
            // in a row at the end.
            QTextCursor c(&d);
            c.insertText(u"Titel"_s);
            auto liste = [&](QTextListFormat::Style art, const QStringList& punkte, int einzug = 1) {
                c.insertBlock(QTextBlockFormat());
                QTextListFormat lf;
                lf.setStyle(art);
                lf.setIndent(einzug);
                c.createList(lf);
                c.insertText(punkte.first());
                for (const QString& punkt : punkte.sliced(1)) {
                    c.insertBlock();
                    c.insertText(punkt);
                }
            };
            liste(QTextListFormat::ListDisc, {u"eins"_s, u"zwei"_s});
            c.insertBlock(QTextBlockFormat());
            c.insertText(u"dazwischen"_s);
            liste(QTextListFormat::ListDecimal, {u"erstens"_s, u"zweitens"_s}, 2);
            liste(QTextListFormat::ListUpperRoman, {u"römisch"_s});
            liste(QTextListFormat::ListLowerAlpha, {u"buchstabe"_s});
            liste(QTextListFormat::ListDisc, {u"a"_s});
            liste(QTextListFormat::ListDisc, {u"b"_s});
        },
        [](QTextDocument& d) {
            QFont f(u"Segoe UI"_s, 12);
            f.setBold(true);
            d.setDefaultFont(f); // unset properties follow the document's font
            QTextCursor c(&d);
            c.insertText(u"Standard fett"_s);
            Lauf(c, u" fremd"_s, [](auto& g) { g.setFontFamilies({u"Schrift; mit {Klammer} und Ä"_s}); });
            c.insertBlock();
            QTextCharFormat leer;
            leer.setFontPointSize(30);
            c.setBlockCharFormat(leer); // an empty last paragraph keeps its size
        },
        [](QTextDocument& d) {
            // Values past every range, and characters that have no place in a paragraph.
            QTextCursor c(&d);
            Lauf(c, u"winzig"_s, [](auto& f) { f.setFontPointSize(0.2); });
            Lauf(c, u"riesig"_s, [](auto& f) { f.setFontPointSize(5000); });
            Lauf(c, u"kaputt"_s, [](auto& f) { f.setFontPointSize(qQNaN()); RtfVersatzSetzen(f, 1 << 30, 12); });
            c.insertText(QString(QChar(0x0001)) + QChar(0xFFFC) + QChar(0x0080) + QChar(0x009F));
            QTextBlockFormat b;
            b.setLeftMargin(1e9);
            b.setRightMargin(-1e9);
            b.setTopMargin(qInf());
            b.setLineHeight(qQNaN(), QTextBlockFormat::ProportionalHeight);
            c.insertBlock(b);
            c.insertText(u"weit"_s);
        },
        F([](QTextDocument& d) { RtfLesen(QString::fromLatin1(k_editor), &d, Standard()); }),
        F([](QTextDocument& d) { RtfLesen(QString::fromLatin1(k_buero), &d, Standard()); }),
    };
}

// Mutations of the fuzz loop.
QString Verderben(QString text, QRandomGenerator& z)
{
    static const QStringList stuecke = {
        u"{"_s, u"}"_s, u"\\"_s, u"\\'"_s, u"\\u"_s, u"\\u-99999999999"_s, u"\\uc9"_s, u"\\bin999999"_s, u"\\bin3 "_s,
        u"\\fs99999999999999999999"_s, u"\\li-2147483648"_s, u"\\f77"_s, u"\\cf9999"_s, u"\\par"_s, u"\\pard"_s,
        u"\\plain"_s, u"\\*"_s, u"{\\*\\pn\\pnlvlblt"_s, u"{\\pntext"_s, u"\\ls3"_s, u"{\\fonttbl"_s, u"{\\colortbl"_s,
        u"\\red999;"_s, u"{\\pict "_s, u"\\up99999"_s, u"\\sl-99999\\slmult1"_s, u"\\ansicpg932"_s, u"\\fcharset128"_s,
        u"\\'82\\'a0"_s, u"\\abcdefghijklmnopqrstuvwxyzabcdefghijklmnop"_s, u"\\v"_s, QString(QChar(0)),
        QString(QChar(0xD800)), QString(QChar(0x2029)), QString(QChar(0xFFFC)),
    };
    for (int s = 1 + int(z.bounded(8)); s > 0 && !text.isEmpty(); --s) {
        const int pos = int(z.bounded(quint32(text.size())));
        switch (z.bounded(6)) {
        case 0: // flip a bit of a character
            text[pos] = QChar(char16_t(text[pos].unicode() ^ (1u << z.bounded(16))));
            break;
        case 1:
        case 2:
            text.insert(pos, stuecke[int(z.bounded(quint32(stuecke.size())))]);
            break;
        case 3:
            text.truncate(pos);
            break;
        case 4:
            text.remove(pos, int(z.bounded(40)));
            break;
        default: // repeat a piece
            text.insert(pos, text.mid(pos, int(z.bounded(30))).repeated(int(z.bounded(1, 50))));
        }
    }
    return text;
}

} // namespace

class TestRtf : public QObject {
    Q_OBJECT
private slots:
    void lesen();
    void zeichenUndSchriften();
    void listen();
    void schreiben();
    void textverarbeitung();
    void unsinn();
};

void TestRtf::lesen()
{
    // Each text is read by both readers; the document then has the formats asked for. What
    // the round trip of written documents shows already is not asked again here.
    struct Fall {
        const char* name;
        const char* rtf;
        QString text;
        std::function<bool(const QTextDocument&)> gut = nullptr;
    };
    const QList<Fall> faelle = {
        {"fett", "a\\b b\\b0 c\\b1 d", u"abcd"_s, [](auto& d) {
             return Fmt(d, 0).fontWeight() == QFont::Normal && Fmt(d, 1).fontWeight() == QFont::Bold
                 && Fmt(d, 2).fontWeight() == QFont::Normal && Fmt(d, 3).fontWeight() == QFont::Bold; }},
        {"kursiv in Gruppe", "a{\\i b}c", u"abc"_s,
         [](auto& d) { return !Fmt(d, 0).fontItalic() && Fmt(d, 1).fontItalic() && !Fmt(d, 2).fontItalic(); }},
        {"unterstrichen", "\\ul a\\ulnone b\\uldb c\\ul0 d\\ulwave e\\plain f", u"abcdef"_s, [](auto& d) {
             return Fmt(d, 0).fontUnderline() && !Fmt(d, 1).fontUnderline() && Fmt(d, 2).fontUnderline()
                 && !Fmt(d, 3).fontUnderline() && Fmt(d, 4).fontUnderline() && !Fmt(d, 5).fontUnderline(); }},
        {"Größen", "\\fs36 a\\fs17 b\\fs c", u"abc"_s, [](auto& d) { // \fs alone: the standard size
             return Fmt(d, 0).fontPointSize() == 18 && Fmt(d, 1).fontPointSize() == 8.5 && Fmt(d, 2).fontPointSize() == 12; }},
        {"eine unbekannte Farbnummer färbt nicht", "\\cf1 r\\cf99 x", u"rx"_s, [](auto& d) {
             return Fmt(d, 0).foreground().color() == QColor(255, 0, 0) && !Fmt(d, 1).hasProperty(QTextFormat::ForegroundBrush); }},
        {"Versatz", "n\\up3 h\\up0 n\\dn3 t\\up z\\dn w\\plain p", u"nhntzwp"_s, [](auto& d) {
             return RtfVersatz(Fmt(d, 1)) == 30 && Fmt(d, 1).baselineOffset() > 0 && RtfVersatz(Fmt(d, 2)) == 0
                 && RtfVersatz(Fmt(d, 3)) == -30 && Fmt(d, 3).baselineOffset() < 0 && RtfVersatz(Fmt(d, 4)) == 60
                 && RtfVersatz(Fmt(d, 5)) == -60 && RtfVersatz(Fmt(d, 6)) == 0; }},
        {"hoch und tief gestellt", "\\super a\\nosupersub b\\sub c", u"abc"_s, [](auto& d) {
             return Fmt(d, 0).verticalAlignment() == QTextCharFormat::AlignSuperScript
                 && Fmt(d, 1).verticalAlignment() == QTextCharFormat::AlignNormal
                 && Fmt(d, 2).verticalAlignment() == QTextCharFormat::AlignSubScript; }},
        {"Einzüge in Twips genau, bis \\pard", "\\li50\\ri7\\fi-200 a\\par b\\par\\pard c", u"a\nb\nc"_s, [](auto& d) {
             const QTextBlockFormat a = Absatz(d, 0), b = Absatz(d, 1), c = Absatz(d, 2);
             return Tw(a.leftMargin()) == 50 && Tw(a.rightMargin()) == 7 && Tw(a.textIndent()) == -200
                 && Tw(b.leftMargin()) == 50 && c.leftMargin() == 0 && c.textIndent() == 0; }},
        {"Ausrichtung", "\\qc a\\par\\qr b\\par\\qj c\\par\\ql d", u"a\nb\nc\nd"_s, [](auto& d) {
             return Absatz(d, 0).alignment() == Qt::AlignHCenter && Absatz(d, 1).alignment() == Qt::AlignRight
                 && Absatz(d, 2).alignment() == Qt::AlignJustify && Absatz(d, 3).alignment() == Qt::AlignLeft; }},
        {"\\pard lässt die Zeichen", "\\b\\qc a\\par\\pard b", u"a\nb"_s,
         [](auto& d) { return Fmt(d, 2).fontWeight() == QFont::Bold && Absatz(d, 1).alignment() == Qt::AlignLeft; }},
        {"ein leerer Absatz behält das Format seiner Marke", "a\\par\\fs48\\par b", u"a\n\nb"_s,
         [](auto& d) { return d.findBlockByNumber(1).charFormat().fontPointSize() == 24; }},
        {"Tabulator und Zeilenumbruch", "a\\tab b\\line c\\cell d\\row e", u"a\tb\nc\td\ne"_s,
         [](auto& d) { return d.blockCount() == 2 && d.firstBlock().text() == u"a\tb\u2028c\td"_s; }},
        {"versteckt", "a{\\v b}c\\v d\\v0 e", u"ace"_s},
        {"Zeichen mit Namen", "\\{a\\}\\\\b\\emdash\\endash\\lquote\\rquote\\ldblquote\\rdblquote\\bullet\\~\\_",
         u"{a}\\b—–‘’“”• ‑"_s},
        {"ein Feld zeigt sein Ergebnis", "x {\\field{\\*\\fldinst{HYPERLINK \"http://a.example\"}}{\\fldrslt{\\ul Link}}} y",
         u"x Link y"_s},
        {"übersprungene Ziele", "{\\info{\\title Titel}{\\author Wer}}{\\stylesheet{\\s0 Normal;}}{\\*\\unbekannt Müll {x}}"
         "{\\header Kopf}{\\footer Fuß}{\\pict\\pngblip 89504e47}{\\*\\generator Gen;}{\\object{\\*\\objdata 0102}}Text",
         u"Text"_s},
        {"unbekannte Wörter, Zeilenenden im Quelltext", "\\frobnicate12 a\\xyz b\r\nc", u"abc"_s},
        {"\\bin mit Klammern in den Daten", "a{\\pict\\bin4 {}}\\}b", u"ab"_s},
        {"Backslash am Zeilenende ist ein Absatz", "a\\\nb", u"a\nb"_s},
        // The closing \par opens no paragraph of its own; the one after it is dropped
        // when empty. Text after the outermost group is no part of the document.
        {"Absatzende", "a\\par", u"a"_s}, {"zwei Absatzenden", "a\\par\\par", u"a\n"_s},
        {"Aufzählung ohne Text", "a\\par{\\pntext\\'b7\\tab}", u"a"_s}, {"nur ein Absatzende", "\\par", QString()},
        {"nach der Gruppe", "a}b{c", u"a"_s},
    };
    for (const Fall& f : faelle) {
        QTextDocument d;
        const QString rtf = R(f.rtf);
        const QString text = Lesen(d, rtf);
        QVERIFY2(text == f.text && RtfText(rtf) == f.text, qPrintable(QString::fromUtf8(f.name) + u": "_s + text));
        QVERIFY2(!f.gut || f.gut(d), f.name);
    }
}

void TestRtf::zeichenUndSchriften()
{
    const QList<QPair<const char*, QString>> faelle = {
        {"\\'e4\\'f6\\'fc\\'c4\\'d6\\'dc\\'df\\'E4", u"äöüÄÖÜßä"_s},
        {"\\'80\\'84\\'93\\'94\\'96\\'85\\'a0", u"€„“”–… "_s}, // Windows-1252 above 7F
        {"\\u8364?\\u321?x", u"€Łx"_s},
        {"{\\uc2\\u8364\\'80\\'80x}\\u8364?y", u"€x€y"_s}, // \uc2 skips two, in its group
        {"\\uc0\\u8364 x", u"€x"_s},
        {"\\u8364\\'80 x", u"€ x"_s},         // the replacement as a control word
        {"{\\uc3\\u8364?}z", u"€z"_s},         // the replacement ends at the brace
        {"\\u-3913?\\u-10179?\\u-8704?", QString(QChar(0xF0B7)) + u"😀"_s},
        {"\\u99999?a\\u-40000?b", u"ab"_s},   // out of range
        {"a\\'00\\'0d\\'0a\\u10?b", u"ab"_s}, // control characters are dropped
        {"\\'e4123", u"ä123"_s},
        {"a\\'eg", u"ag"_s}, // half a hex escape
    };
    for (const auto& [koerper, text] : faelle) {
        QTextDocument d;
        QCOMPARE(Lesen(d, R(koerper)), text);
        QCOMPARE(RtfText(R(koerper)), text);
    }

    // Fonts: table entries with and without groups, the default font, an unknown number;
    // no \fs gives the standard size.
    QTextDocument d;
    Lesen(d, u"{\\rtf1\\ansi\\deff1{\\fonttbl\\f0\\fswiss Arial;{\\f1\\froman{\\*\\panose 0}Times {\\*\\falt T}New Roman;}"
             "{\\f2 Gr\\'f6\\'dfe;}}a\\f0 b\\f2 c\\f9 d\\plain e}"_s);
    const QStringList familien = {u"Times New Roman"_s, u"Arial"_s, u"Größe"_s, u"Segoe UI"_s, u"Times New Roman"_s};
    for (int i = 0; i < familien.size(); ++i)
        QCOMPARE(Familie(Fmt(d, i)), familien.at(i));
    QCOMPARE(Fmt(d, 0).fontPointSize(), 12.0);

    // \'xx follows the code page of the font's character set.
    if (QStringDecoder("windows-1251").isValid())
        QCOMPARE(RtfText(u"{\\rtf1\\ansi{\\fonttbl{\\f0 Arial;}{\\f1\\fcharset204 Arial;}}\\'e4\\f1\\'e4\\'e0\\f0\\'e4}"_s),
                 u"äдаä"_s);
    if (QStringDecoder("Shift_JIS").isValid()) {
        QCOMPARE(RtfText(u"{\\rtf1\\ansi\\ansicpg932 \\'82\\'a0x}"_s), u"あx"_s);
        // The second byte of a double-byte character may stand as a plain letter.
        QCOMPARE(RtfText(u"{\\rtf1\\ansi\\ansicpg932 \\'83A\\'83Cx}"_s), u"アイx"_s);
        QCOMPARE(Lesen(d, u"{\\rtf1\\ansi\\ansicpg932 \\'83A\\'83Cx}"_s), u"アイx"_s);
    }
    // Blanks and line ends before the group still make it RTF.
    QCOMPARE(Lesen(d, u" \r\n{\\rtf1\\ansi M\\'e4dchen}"_s), u"Mädchen"_s);
    QCOMPARE(RtfText(u"\n {\\rtf1\\ansi M\\'e4dchen}"_s), u"Mädchen"_s);

    // Plain text in the field: lines become paragraphs in the standard font, unchanged.
    const QString zeilen = u"Zeile 1\r\nZeile 2\rZeile 3\n{\\b kein RTF}"_s;
    RtfLesen(zeilen, &d, QFont(u"Segoe UI"_s, 14));
    QCOMPARE(d.toPlainText(), u"Zeile 1\nZeile 2\nZeile 3\n{\\b kein RTF}"_s);
    QCOMPARE(RtfText(zeilen), d.toPlainText());
    QVERIFY(Fmt(d, 0).fontPointSize() == 14 && !d.isModified() && !d.isUndoAvailable());
    QCOMPARE(Lesen(d, u" "_s), u" "_s);
    QVERIFY(Lesen(d, QString()).isEmpty() && RtfText(QString()).isEmpty());
}

void TestRtf::listen()
{
    // Old-style bullets last until \pard; Qt draws the bullet left of the text, so the
    // first-line indent is kept aside. A word processor's \ls lists with \listtext, each
    // number its own list.
    QTextDocument d;
    Lesen(d, R("Kopf\\par{\\pntext\\f1\\'B7\\tab}{\\*\\pn\\pnlvlblt\\pnf1\\pnindent0{\\pntxtb\\'B7}}\\fi-360\\li720 eins\\par"
               "{\\pntext\\f1\\'B7\\tab}zwei\\par\\pard drei\\par"
               "{\\listtext\\pard\\plain\\f3 \\'b7\\tab}\\ls1\\li720 c\\par{\\listtext\\pard\\plain\\f3 \\'b7\\tab}\\ls1\\li720 d\\par"
               "\\pard{\\listtext 1)\\tab}\\ls2\\li720 e\\par\\pard{\\*\\pn\\pnlvlbody\\pnucrm}f"));
    QCOMPARE(d.toPlainText(), u"Kopf\neins\nzwei\ndrei\nc\nd\ne\nf"_s);
    QCOMPARE(Listen(d, [](auto& b) { return b.textList()->count(); }), u"- -1:2 -1:2 - -1:2 -1:2 -4:1 -8:1"_s);
    QVERIFY(d.findBlockByNumber(1).textList() != d.findBlockByNumber(4).textList());
    QCOMPARE(Tw(Absatz(d, 1).leftMargin()), 720);
    QCOMPARE(Absatz(d, 1).textIndent(), 0.0);
    QCOMPARE(Absatz(d, 1).intProperty(RtfEigenschaft::ErstzeileTwips), -360);
    // Without an indent of its own the list makes room for the bullet.
    QCOMPARE(d.lastBlock().textList()->format().indent(), 1);

    // Long lists are built in linear time. Bullets: lists of 64 items, written back as
    // they came. Numbers: the items past 128 carry their number as text, and the plain
    // text read without a document says the same.
    QTextDocument lang;
    QTextCursor k(&lang);
    QTextListFormat punkte;
    punkte.setStyle(QTextListFormat::ListDisc);
    k.insertText(u"Punkt 1"_s);
    k.createList(punkte);
    for (int i = 2; i <= 200; ++i) {
        k.insertBlock();
        k.insertText(u"Punkt %1"_s.arg(i));
    }
    const QString punkteRtf = RtfSchreiben(&lang);
    Lesen(d, punkteRtf);
    QCOMPARE(d.blockCount(), 200);
    QCOMPARE(d.lastBlock().textList()->format().style(), QTextListFormat::ListDisc);
    QCOMPARE(d.findBlockByNumber(63).textList(), d.firstBlock().textList());
    QCOMPARE(RtfSchreiben(&d), punkteRtf);
    QString nummern = u"{\\rtf1\\ansi "_s;
    for (int i = 1; i <= 131; ++i)
        nummern += u"{\\pntext %1.\\tab}{\\*\\pn\\pnlvlbody\\pndec\\pnstart1}\\fi-360\\li720 Nr %1\\par"_s.arg(i);
    nummern += u"\\pard Ende}"_s;
    Lesen(d, nummern);
    QCOMPARE(d.findBlockByNumber(127).textList()->itemText(d.findBlockByNumber(127)), u"128."_s);
    QCOMPARE(d.findBlockByNumber(128).textList(), nullptr);
    QCOMPARE(d.findBlockByNumber(128).text(), u"129.\tNr 129"_s);
    QCOMPARE(RtfText(nummern), d.toPlainText());
    nummern.chop(u"\\par\\pard Ende}"_s.size());
    QCOMPARE(RtfText(nummern + u'}'), Lesen(d, nummern + u'}'));
    // Numbered items say where they start, or other word processors count from 0.
    QVERIFY(RtfSchreiben(&d).contains(u"\\pndec\\pnstart1"_s));
}

void TestRtf::schreiben()
{
    // Parts of the written documents as other readers expect them: the tables, escapes of
    // all that is no ASCII (the search for "Mädchen" in the field looks for M\?e4dchen),
    // runs of formats, paragraphs in twips from the pane's pixels, a list, a font name.
    const QMap<int, QStringList> teile = {
        {2,
         {u"{\\rtf1\\ansi\\ansicpg1252\\deff0\\uc1{\\fonttbl{\\f0\\fnil\\fcharset0 Segoe UI;}{\\f1\\fnil\\fcharset0 Courier New;}}\n"
          "{\\colortbl ;\\red200\\green10\\blue20;\\red255\\green255\\blue0;}\n"_s,
          u"\\pard\\f0\\fs24 Gr\\'fc\\'dfe aus K\\'f6ln: \\'c4 \\'d6 \\'dc \\'e4 \\'f6 \\'fc \\'df \\'80 \\'84zitiert\\'93 \\'96 "
          "\\u321?\\'f3d\\u378? \\u-10179?\\u-8704? \\{x\\} \\\\y\\tab z\\line n\\'e4chste Zeile\\par\n\\pard\\par\n"_s,
          u"\\pard\\b fett\\i\\ul  kursiv\\f1\\fs37\\b0\\i0\\ulnone\\strike\\cf1  durch\\f0\\fs24\\strike0\\cf0\\highlight2  markiert"
          "\\highlight0\\up3 hoch\\dn3 tief\\up0\\super 2\\par\n}"_s}},
        {3,
         {u"\\pard\\fi-7\\li50\\ri100\\qc\\f0\\fs24 einger\\'fcckt und zentriert\\par\n"
          "\\pard\\sb60\\sa200\\sl276\\slmult1\\qr rechts\\par\n\\pard\\sb60\\sa200\\sl-300\\slmult0\\qj Blocksatz\\par\n"_s}},
        {4, {u"\\pard{\\pntext\\'95\\tab}{\\*\\pn\\pnlvlblt\\pnindent0{\\pntxtb\\'95}}\\fi-360\\li600 eins\\par\n"_s}},
        {5, {u"{\\f1\\fnil\\fcharset0 Schrift mit \\{Klammer\\} und \\'c4;}"_s}},
        {6, {u"\\pard\\li31680\\ri-31680\\sb31680 weit\\par\n"_s}},
    };
    // Each document is written in ASCII and to the same bytes over a read; its text
    // survives but for what has no place in a paragraph.
    const auto plaene = Bauplaene();
    for (int i = 0; i < int(plaene.size()); ++i) {
        QTextDocument d;
        d.setDefaultFont(Standard());
        plaene[i](d);
        QTextDocument d2;
        const auto [erstes, zweites] = Rundreise(d, d2);
        QVERIFY2(erstes == zweites, qPrintable(u"Dokument %1:\n%2\n---\n%3"_s.arg(i).arg(erstes, zweites)));
        QVERIFY(erstes.startsWith(u"{\\rtf1\\ansi\\ansicpg1252\\deff0"_s) && erstes.endsWith(u'}'));
        QVERIFY2(!erstes.contains(QRegularExpression(u"[^\\x00-\\x7f]"_s)), "only ASCII in the source");
        for (const QString& teil : teile.value(i))
            QVERIFY2(erstes.contains(teil), qPrintable(erstes + u"\nohne\n"_s + teil));
        QCOMPARE(d2.toPlainText(), QString(d.toPlainText()).remove(QRegularExpression(u"[\\x01\\x{fffc}]"_s)));
        // Lists keep their kinds; the second of two like lists in a row continues the first.
        if (i == 4)
            QCOMPARE(Listen(d2, [](auto& b) { return b.textList()->itemNumber(b); }),
                     u"- -1:0 -1:1 - -4:0 -4:1 -8:0 -5:0 -1:0 -1:1"_s);
    }
}

void TestRtf::textverarbeitung()
{
    // No word lost, nothing of the skipped parts shown, and both readers agree.
    const QList<QPair<const char*, QString>> quellen = {
        {k_editor, u"Die große Plattensammlung Seite A: Märchenstunde – aufgenommen in Köln, Überspielung 1978 für 20€. "
                   "Erster Titel mit Bläsern Zweiter Titel „Anführung“ Mehr unter Plattenseite und Straße Łódź. Hoben und "
                   "unten Öl"_s},
        {k_buero, u"Kammermusik für Flöte – Einspielung aus Große Nähe. Sonate in a-Moll Partita Nr. 2 mit Änderung "
                  "Rechts „oben“ Schreiben"_s}};
    for (const auto& [quelle, woerter] : quellen) {
        const QString rtf = QString::fromLatin1(quelle);
        QTextDocument d;
        const QString text = Lesen(d, rtf);
        QCOMPARE(RtfText(rtf), text);
        QCOMPARE(text.split(QRegularExpression(u"\\s+"_s), Qt::SkipEmptyParts).join(u' '), woerter);
        for (const char* fremd : {"HYPERLINK", "0100090000", "Riched", "Normal", "Rita", "Kopfzeile", "Fußnote",
                                  "versteckt", "504b03", "89504e", "Grammarly", "Anker", "Symbol", "Calibri"})
            QVERIFY2(!text.contains(QString::fromUtf8(fremd)), fremd);
        // Their bullets are one list; the formats of the first characters come through.
        QVERIFY(Fmt(d, 0).fontWeight() == QFont::Bold);
        const int punkt = quelle == k_editor ? 3 : 1;
        QVERIFY(d.findBlockByNumber(punkt).textList());
        QCOMPARE(d.findBlockByNumber(punkt).textList(), d.findBlockByNumber(punkt + 1).textList());
    }
}

void TestRtf::unsinn()
{
    // Hand-made hostile texts, each in bounded time.
    QList<QString> boese = {
        u"{\\rtf1 "_s + QString(200000, u'{') + u"tief"_s + QString(100000, u'}'),
        u"{\\rtf1 "_s + u"{\\b a"_s.repeated(50000),
        u"{\\rtf1 \\fs99999999999999999999999999 \\li-99999999999999999 \\u99999999999999 \\uc99999 x}"_s,
        u"{\\rtf1 \\bin99999999999 x}"_s, u"{\\rtf1 \\bin-5 x}"_s, u"{\\rtf1 x\\'4"_s, u"{\\rtf1 x\\u-"_s, u"{\\rtf"_s,
        u"{\\rtf1 "_s + u"\\par"_s.repeated(100000), u"{\\rtf1 \\"_s + QString(100000, u'a'),
        u"{\\rtf1{\\fonttbl"_s + u"{\\f1 "_s.repeated(20000),
        u"{\\rtf1{\\colortbl"_s + u";"_s.repeated(100000) + u"}\\cf65535 x\\cf99999 y}"_s,
        u"{\\rtf1\\ansicpg932 "_s + u"\\'82"_s.repeated(50001) + u'}',
    };
    QRandomGenerator z(4711);
    QString zufall(300000, Qt::Uninitialized);
    for (QChar& c : zufall)
        c = QChar(char16_t(z.bounded(0x10000)));
    boese << u"{\\rtf1 "_s + zufall;
    for (const QString& rtf : boese) {
        QElapsedTimer uhr;
        uhr.start();
        QTextDocument d;
        RtfLesen(rtf, &d, Standard());
        QCOMPARE(RtfText(rtf), d.toPlainText());
        RtfSchreiben(&d);
        QVERIFY2(uhr.elapsed() < 5000, qPrintable(rtf.left(40)));
    }

    // Seeded mutations of real texts: no crash, the two readers agree, writing stays stable.
    QList<QString> vorlagen = {QString::fromLatin1(k_editor), QString::fromLatin1(k_buero)};
    for (const auto& plan : Bauplaene()) {
        QTextDocument d;
        plan(d);
        vorlagen << RtfSchreiben(&d);
    }
    QElapsedTimer uhr;
    uhr.start();
    constexpr int Runden = 5000;
    for (int runde = 0; runde < Runden; ++runde) {
        const QString rtf = Verderben(vorlagen[runde % vorlagen.size()], z);
        QTextDocument d;
        RtfLesen(rtf, &d, Standard());
        if (RtfText(rtf) != d.toPlainText())
            QFAIL(qPrintable(u"Runde %1: die Leser weichen ab bei\n%2"_s.arg(runde).arg(rtf)));
        if (runde % 10 == 0) {
            QTextDocument d2;
            if (const auto [erstes, zweites] = Rundreise(d, d2); erstes != zweites)
                QFAIL(qPrintable(u"Runde %1: Schreiben nicht stabil bei\n%2"_s.arg(runde).arg(rtf)));
        }
    }
    qInfo("%d verdorbene Texte in %lld ms", Runden, uhr.elapsed());
    QVERIFY(uhr.elapsed() < Runden); // a millisecond a text
}

RK_TEST_MAIN(TestRtf)
#include "tst_rtf.moc"
