// The rich text engine: reading, plain text, writing, round trips, hostile input.
#include "support/Testumgebung.h"

#include "media/Rtf.h"

#include <QElapsedTimer>
#include <QRegularExpression>
#include <QRandomGenerator>
#include <QStringDecoder>
#include <QTextBlock>
#include <QTextCursor>
#include <QTextDocument>
#include <QTextList>

#include <functional>

namespace {

QFont Standard() { return QFont(QStringLiteral("Segoe UI"), 12); }

QString R(const char* koerper)
{
    return QStringLiteral("{\\rtf1\\ansi\\ansicpg1252\\deff0{\\fonttbl{\\f0\\fnil\\fcharset0 Arial;}"
                          "{\\f1\\fnil\\fcharset0 Courier New;}}"
                          "{\\colortbl ;\\red255\\green0\\blue0;\\red0\\green128\\blue0;}")
        + QString::fromUtf8(koerper) + u'}';
}

// Format of the character at a position of the document.
QTextCharFormat Fmt(const QTextDocument& d, int pos)
{
    QTextCursor c(const_cast<QTextDocument*>(&d));
    c.setPosition(pos + 1);
    return c.charFormat();
}

QTextBlockFormat Absatz(const QTextDocument& d, int nummer)
{
    return d.findBlockByNumber(nummer).blockFormat();
}

int Tw(qreal pixel) { return qRound(pixel * 15); }

QString Lesen(QTextDocument& d, const QString& rtf)
{
    RtfLesen(rtf, &d, Standard());
    return d.toPlainText();
}

QString Rundreise(const QTextDocument& d, QString* zweites = nullptr)
{
    const QString eins = RtfSchreiben(&d);
    QTextDocument d2;
    RtfLesen(eins, &d2, Standard());
    if (zweites)
        *zweites = RtfSchreiben(&d2);
    return eins;
}

// A text as a common word processor of the rich edit family writes it.
const char* const k_editor = R"RTF({\rtf1\ansi\ansicpg1252\deff0\nouicompat\deflang1031{\fonttbl{\f0\fnil\fcharset0 Calibri;}{\f1\fnil\fcharset2 Symbol;}{\f2\fswiss\fprq2\fcharset0 Segoe UI;}}
{\colortbl ;\red0\green0\blue255;\red192\green0\blue0;}
{\*\generator Riched20 10.0.19041}\viewkind4\uc1 
\pard\sa200\sl276\slmult1\qc\b\f2\fs28\lang7 Die gro\'dfe Plattensammlung\b0\par
\pard\sa200\sl276\slmult1\f0\fs22 Seite A: \i M\'e4rchenstunde\i0  \endash  aufgenommen in K\'f6ln, \'dcberspielung 1978 f\'fcr 20\'80.\par
{\pict{\*\picprop}\wmetafile8\picw2117\pich1270\picwgoal1200\pichgoal720 
0100090000035000000000002700000000000400000003010800050000000b0200000000050000
000c02d004d004030000001e000400000007010400040000000701040027000000
}\par
{\pntext\f1\'B7\tab}{\*\pn\pnlvlblt\pnf1\pnindent0{\pntxtb\'B7}}\fi-360\li720\sa200\sl276\slmult1 Erster Titel mit \cf2\ul Bl\'e4sern\cf0\ulnone\par
{\pntext\f1\'B7\tab}Zweiter Titel \u8222?Anf\'fchrung\u8220?\par
\pard\sa200\sl276\slmult1 Mehr unter {{\field{\*\fldinst{HYPERLINK "https://beispiel.example/platten" }}{\fldrslt{\ul\cf1\cf1\ul Plattenseite}}}}\f0\fs22  und Stra\'dfe \u321?\'f3d\u378?.\par
\pard\sa200\sl276\slmult1 H\up6 oben\up0  und \dn4 unten\up0  \'d6l\par
}
)RTF";

// A text as a common word processor of the office family writes it.
const char* const k_buero = R"RTF({\rtf1\adeflang1025\ansi\ansicpg1252\uc1\adeff31507\deff0\stshfdbch31505\stshfloch31506\stshfhich31506\stshfbi31507\deflang1031\deflangfe1031\themelang1031{\fonttbl{\f0\fbidi \froman\fcharset0\fprq2{\*\panose 02020603050405020304}Times New Roman;}{\f3\fbidi \froman\fcharset2\fprq2{\*\panose 05050102010706020507}Symbol;}
{\f37\fbidi \fswiss\fcharset0\fprq2{\*\panose 020f0502020204030204}Calibri{\*\falt Arial};}{\flomajor\f31500\fbidi \froman\fcharset0\fprq2{\*\panose 02020603050405020304}Times New Roman;}}
{\colortbl;\red0\green0\blue0;\red0\green0\blue255;\red0\green255\blue255;}
{\*\defchp \f31506\fs22\lang1031\langfe1033 }{\*\defpap \ql \li0\ri0\sa160\sl259\slmult1\widctlpar\wrapdefault\aspalpha\aspnum\faauto\adjustright\rin0\lin0\itap0 }
\noqfpromote {\stylesheet{\ql \li0\ri0\sa160\sl259\slmult1\widctlpar\wrapdefault\aspalpha\aspnum\faauto\adjustright\rin0\lin0\itap0 \rtlch\fcs1 \af31507\afs22\alang1025 \ltrch\fcs0 \f31506\fs22\lang1031\langfe1033\cgrid\langnp1031\langfenp1033 \snext0 \sqformat \spriority0 Normal;}{\*\cs10 \additive \ssemihidden \sunhideused \spriority1 Default Paragraph Font;}}
{\*\listtable{\list\listtemplateid-1616226034\listhybrid{\listlevel\levelnfc23\levelnfcn23\leveljc0\leveljcn0\levelfollow0\levelstartat1\levelspace0\levelindent0{\leveltext\leveltemplateid67567617\'01\uf0b7;}{\levelnumbers;}\f3\fbias0 \fi-360\li720\lin720 }{\listname ;}\listid1178420540}}
{\*\listoverridetable{\listoverride\listid1178420540\listoverridecount0\ls1}}{\*\rsidtbl \rsid1602283\rsid5250433}{\mmathPr\mmathFont34\mbrkBin0\mbrkBinSub0\msmallFrac0\mdispDef1\mlMargin0\mrMargin0\mdefJc1\mwrapIndent1440\mintLim0\mnaryLim1}{\info{\author Rita Sammler}{\operator Rita Sammler}{\creatim\yr2023\mo5\dy4\hr10\min12}{\version2}}{\*\xmlnstbl {\xmlns1 http://schemas.microsoft.com/office/word/2003/wordml}}
\paperw11906\paperh16838\margl1417\margr1417\margt1417\margb1134\gutter0\ltrsect
\widowctrl\ftnbj\aenddoc\hyphhotz425\trackmoves0\trackformatting1\donotembedsysfont1\relyonvml0\donotembedlingdata0\grfdocevents0\validatexml1\showplaceholdtext0\ignoremixedcontent0\saveinvalidxml0\showxmlerrors1\noxlattoyen
{\*\docvar {__Grammarly}{true}}{\*\ftnsep \ltrpar \pard\plain \ltrpar\ql \li0\ri0\widctlpar\wrapdefault\aspalpha\aspnum\faauto\adjustright\rin0\lin0\itap0 \rtlch\fcs1 \af31507\afs22\alang1025 \ltrch\fcs0 \f31506\fs22\lang1031\langfe1033\cgrid\langnp1031\langfenp1033 {\rtlch\fcs1 \af31507 \ltrch\fcs0 \insrsid1602283 \chftnsep \par }}
\sectd \ltrsect\linex0\headery708\footery708\colsx708\endnhere\sectlinegrid360\sectdefaultcl\sftnbj {\header \ltrpar \pard\plain Kopfzeile der Sammlung\par }{\*\pnseclvl1\pnucrm\pnstart1\pnindent720\pnhang {\pntxta .}}
\pard\plain \ltrpar\ql \li0\ri0\sa160\sl259\slmult1\widctlpar\wrapdefault\aspalpha\aspnum\faauto\adjustright\rin0\lin0\itap0\pararsid5250433 \rtlch\fcs1 \af31507\afs22\alang1025 \ltrch\fcs0 \f37\fs22\lang1031\langfe1033\cgrid\langnp1031\langfenp1033 {\rtlch\fcs1 \af31507 \ltrch\fcs0 \b\insrsid5250433 Kammermusik f\'fcr Fl\'f6te}{\rtlch\fcs1 \af31507 \ltrch\fcs0 \insrsid5250433  \endash  Einspielung aus Gro\'df}{\rtlch\fcs1 \af31507 \ltrch\fcs0 \insrsid5250433 \hich\af37\dbch\af31505\loch\f37 e}{\rtlch\fcs1 \af31507 \ltrch\fcs0 \insrsid5250433  N\'e4he.
\par {\listtext\pard\plain\ltrpar \rtlch\fcs1 \af0\afs22 \ltrch\fcs0 \f3\fs22\insrsid5250433 \loch\af3\dbch\af31505\hich\f3 \'b7\tab}}\pard \ltrpar\ql \fi-360\li720\ri0\sa160\sl259\slmult1\widctlpar\wrapdefault\aspalpha\aspnum\faauto\ls1\adjustright\rin0\lin720\itap0\pararsid5250433\contextualspace {\rtlch\fcs1 \af31507 \ltrch\fcs0 \insrsid5250433 Sonate in a-Moll}{\footnote \ltrpar \pard\plain Fu\'dfnote nicht im Text\par}
\par {\listtext\pard\plain\ltrpar \rtlch\fcs1 \af0\afs22 \ltrch\fcs0 \f3\fs22\insrsid5250433 \loch\af3\dbch\af31505\hich\f3 \'b7\tab}Partita {\*\bkmkstart Anker}Nr.{\*\bkmkend Anker} 2 mit {\v versteckt}\'c4nderung
\par \pard \ltrpar\qr \li0\ri0\sa160\sl259\slmult1\widctlpar\wrapdefault\aspalpha\aspnum\faauto\adjustright\rin0\lin0\itap0\pararsid5250433 {\rtlch\fcs1 \af31507 \ltrch\fcs0 \cf2\insrsid5250433 Rechts }{\field\fldedit{\*\fldinst {\rtlch\fcs1 \af31507 \ltrch\fcs0 \insrsid5250433  HYPERLINK "mailto:rita@beispiel.example" }}{\fldrslt {\rtlch\fcs1 \af31507 \ltrch\fcs0 \cs15\ul\cf17\insrsid5250433 Schreiben}}}\sectd \ltrsect\linex0\endnhere\sectlinegrid360\sectdefaultcl\sftnbj {\rtlch\fcs1 \af31507 \ltrch\fcs0 \insrsid5250433 
\par }{\*\themedata 504b030414000600080000002100e9de0fbfff0000001c020000130000005b436f6e74656e745f54797065735d2e78}
{\*\colorschememapping 3c3f786d6c2076657273696f6e3d22312e302220656e636f64696e673d225554462d3822207374616e64616c6f6e653d22796573223f3e}
{\*\latentstyles\lsdstimax376\lsdlockeddef0\lsdsemihiddendef0{\lsdlockedexcept \lsdqformat1 \lsdpriority0 \lsdlocked0 Normal;}}{\*\datastore 01050000020000001800000}}
)RTF";

// Documents of the round trip: built with the document's own means.
std::vector<std::function<void(QTextDocument&)>> Bauplaene()
{
    using F = std::function<void(QTextDocument&)>;
    return {
        [](QTextDocument&) {}, // empty
        [](QTextDocument& d) { QTextCursor(&d).insertText(QStringLiteral(" ")); },
        [](QTextDocument& d) {
            QTextCursor c(&d);
            QTextCharFormat f;
            c.insertText(QStringLiteral("Grüße aus Köln: Ä Ö Ü ä ö ü ß € „zitiert“ – Łódź 😀 {x} \\y\tz"), f);
            c.insertText(QString(QChar(0x2028)) + QStringLiteral("nächste Zeile"));
            c.insertBlock();
            c.insertBlock(); // an empty paragraph in between
            f.setFontWeight(QFont::Bold);
            c.insertText(QStringLiteral("fett"), f);
            f.setFontItalic(true);
            f.setFontUnderline(true);
            c.insertText(QStringLiteral(" kursiv"), f);
            f = QTextCharFormat();
            f.setFontStrikeOut(true);
            f.setForeground(QColor(200, 10, 20));
            f.setFontPointSize(18.5);
            f.setFontFamilies({QStringLiteral("Courier New")});
            c.insertText(QStringLiteral(" durch"), f);
            f = QTextCharFormat();
            f.setBackground(QColor(255, 255, 0));
            c.insertText(QStringLiteral(" markiert"), f);
            f = QTextCharFormat();
            RtfVersatzSetzen(f, 30, 12);
            c.insertText(QStringLiteral("hoch"), f);
            RtfVersatzSetzen(f, -30, 12);
            c.insertText(QStringLiteral("tief"), f);
            f = QTextCharFormat();
            f.setVerticalAlignment(QTextCharFormat::AlignSuperScript);
            c.insertText(QStringLiteral("2"), f);
        },
        [](QTextDocument& d) {
            QTextCursor c(&d);
            QTextBlockFormat b;
            b.setLeftMargin(50 / 15.0);
            b.setRightMargin(100 / 15.0);
            b.setTextIndent(-7 / 15.0);
            b.setAlignment(Qt::AlignHCenter);
            c.setBlockFormat(b);
            c.insertText(QStringLiteral("eingerückt und zentriert"));
            b = QTextBlockFormat();
            b.setAlignment(Qt::AlignRight);
            b.setTopMargin(4);
            b.setBottomMargin(13.3333);
            b.setLineHeight(115, QTextBlockFormat::ProportionalHeight);
            c.insertBlock(b);
            c.insertText(QStringLiteral("rechts"));
            b.setAlignment(Qt::AlignJustify);
            b.setLineHeight(20, QTextBlockFormat::FixedHeight);
            c.insertBlock(b);
            c.insertText(QStringLiteral("Blocksatz"));
        },
        [](QTextDocument& d) {
            QTextCursor c(&d);
            c.insertText(QStringLiteral("Titel"));
            c.insertBlock();
            c.createList(QTextListFormat::ListDisc);
            c.insertText(QStringLiteral("eins"));
            c.insertBlock();
            c.insertText(QStringLiteral("zwei"));
            c.insertBlock(QTextBlockFormat());
            c.insertText(QStringLiteral("dazwischen"));
            c.insertBlock();
            QTextListFormat lf;
            lf.setStyle(QTextListFormat::ListDecimal);
            lf.setIndent(2);
            c.createList(lf);
            c.insertText(QStringLiteral("erstens"));
            c.insertBlock();
            c.insertText(QStringLiteral("zweitens"));
            c.insertBlock(QTextBlockFormat());
            c.createList(QTextListFormat::ListUpperRoman);
            c.insertText(QStringLiteral("römisch"));
            c.insertBlock(QTextBlockFormat());
            c.createList(QTextListFormat::ListLowerAlpha);
            c.insertText(QStringLiteral("buchstabe"));
            c.insertBlock(QTextBlockFormat());
            c.createList(QTextListFormat::ListDisc); // two lists of one kind in a row
            c.insertText(QStringLiteral("a"));
            c.insertBlock(QTextBlockFormat());
            c.createList(QTextListFormat::ListDisc);
            c.insertText(QStringLiteral("b"));
        },
        [](QTextDocument& d) {
            QFont f(QStringLiteral("Segoe UI"), 12);
            f.setBold(true);
            d.setDefaultFont(f); // unset properties follow the document's font
            QTextCursor c(&d);
            c.insertText(QStringLiteral("Standard fett"));
            QTextCharFormat g;
            g.setFontFamilies({QStringLiteral("Schrift; mit {Klammer} und Ä")});
            c.insertText(QStringLiteral(" fremd"), g);
            c.insertBlock();
            QTextCharFormat leer;
            leer.setFontPointSize(30);
            c.setBlockCharFormat(leer); // an empty last paragraph keeps its size
        },
        [](QTextDocument& d) {
            QTextCursor c(&d);
            QTextCharFormat f;
            f.setFontPointSize(0.2); // below the smallest size
            c.insertText(QStringLiteral("winzig"), f);
            f.setFontPointSize(5000);
            c.insertText(QStringLiteral("riesig"), f);
            f.setFontPointSize(qQNaN());
            RtfVersatzSetzen(f, 1 << 30, 12);
            c.insertText(QStringLiteral("kaputt"), f);
            c.insertText(QString(QChar(0x0001)) + QChar(0xFFFC) + QChar(0x0080) + QChar(0x009F));
            QTextBlockFormat b;
            b.setLeftMargin(1e9);
            b.setRightMargin(-1e9);
            b.setTopMargin(qInf());
            b.setLineHeight(qQNaN(), QTextBlockFormat::ProportionalHeight);
            c.insertBlock(b);
            c.insertText(QStringLiteral("weit"));
        },
        F([](QTextDocument& d) { RtfLesen(QString::fromLatin1(k_editor), &d, Standard()); }),
        F([](QTextDocument& d) { RtfLesen(QString::fromLatin1(k_buero), &d, Standard()); }),
    };
}

// Mutations of the fuzz loop.
QString Verderben(QString text, QRandomGenerator& z)
{
    static const QStringList stuecke = {
        QStringLiteral("{"), QStringLiteral("}"), QStringLiteral("\\"), QStringLiteral("\\'"),
        QStringLiteral("\\u"), QStringLiteral("\\u-99999999999"), QStringLiteral("\\uc9"),
        QStringLiteral("\\bin999999"), QStringLiteral("\\bin3 "), QStringLiteral("\\fs99999999999999999999"),
        QStringLiteral("\\li-2147483648"), QStringLiteral("\\f77"), QStringLiteral("\\cf9999"),
        QStringLiteral("\\par"), QStringLiteral("\\pard"), QStringLiteral("\\plain"), QStringLiteral("\\*"),
        QStringLiteral("{\\*\\pn\\pnlvlblt"), QStringLiteral("{\\pntext"), QStringLiteral("\\ls3"),
        QStringLiteral("{\\fonttbl"), QStringLiteral("{\\colortbl"), QStringLiteral("\\red999;"),
        QStringLiteral("{\\pict "), QStringLiteral("\\up99999"), QStringLiteral("\\sl-99999\\slmult1"),
        QStringLiteral("\\ansicpg932"), QStringLiteral("\\fcharset128"), QStringLiteral("\\'82\\'a0"),
        QStringLiteral("\\abcdefghijklmnopqrstuvwxyzabcdefghijklmnop"), QStringLiteral("\\v"),
        QString(QChar(0)), QString(QChar(0xD800)), QString(QChar(0x2029)), QString(QChar(0xFFFC)),
    };
    const int schritte = 1 + int(z.bounded(8));
    for (int s = 0; s < schritte && !text.isEmpty(); ++s) {
        const int pos = int(z.bounded(quint32(text.size())));
        switch (z.bounded(6)) {
        case 0: // flip a character
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
            break;
        }
    }
    return text;
}

} // namespace

class TestRtf : public QObject {
    Q_OBJECT
private slots:
    void lesenFormate();
    void lesenSchriftenUndZeichen();
    void lesenListen();
    void lesenAbsatzende();
    void schreibenEscapes();
    void schreibenFormate();
    void rundreisen();
    void textverarbeitung();
    void unsinn();
};

void TestRtf::lesenFormate()
{
    struct Fall {
        const char* name;
        const char* rtf;
        QString text;
        std::function<bool(const QTextDocument&)> gut;
    };
    const QList<Fall> faelle = {
        {"fett", "a\\b b\\b0 c\\b1 d", QStringLiteral("abcd"),
         [](const QTextDocument& d) {
             return Fmt(d, 0).fontWeight() == QFont::Normal && Fmt(d, 1).fontWeight() == QFont::Bold
                 && Fmt(d, 2).fontWeight() == QFont::Normal && Fmt(d, 3).fontWeight() == QFont::Bold;
         }},
        {"kursiv in Gruppe", "a{\\i b}c", QStringLiteral("abc"),
         [](const QTextDocument& d) { return !Fmt(d, 0).fontItalic() && Fmt(d, 1).fontItalic() && !Fmt(d, 2).fontItalic(); }},
        {"unterstrichen", "\\ul a\\ulnone b\\uldb c\\ul0 d\\ulwave e\\plain f", QStringLiteral("abcdef"),
         [](const QTextDocument& d) {
             return Fmt(d, 0).fontUnderline() && !Fmt(d, 1).fontUnderline() && Fmt(d, 2).fontUnderline()
                 && !Fmt(d, 3).fontUnderline() && Fmt(d, 4).fontUnderline() && !Fmt(d, 5).fontUnderline();
         }},
        {"durchgestrichen", "\\strike a\\strike0 b\\striked1 c", QStringLiteral("abc"),
         [](const QTextDocument& d) { return Fmt(d, 0).fontStrikeOut() && !Fmt(d, 1).fontStrikeOut() && Fmt(d, 2).fontStrikeOut(); }},
        {"Größen", "\\fs36 a\\fs17 b\\fs c", QStringLiteral("abc"),
         [](const QTextDocument& d) {
             return Fmt(d, 0).fontPointSize() == 18 && Fmt(d, 1).fontPointSize() == 8.5
                 && Fmt(d, 2).fontPointSize() == 12; // \fs without a value: the standard size
         }},
        {"Farben", "\\cf1 r\\cf2 g\\cf0 a\\cf99 x\\highlight2 h\\highlight0 n", QStringLiteral("rgaxhn"),
         [](const QTextDocument& d) {
             return Fmt(d, 0).foreground().color() == QColor(255, 0, 0)
                 && Fmt(d, 1).foreground().color() == QColor(0, 128, 0)
                 && !Fmt(d, 2).hasProperty(QTextFormat::ForegroundBrush)
                 && !Fmt(d, 3).hasProperty(QTextFormat::ForegroundBrush)
                 && Fmt(d, 4).background().color() == QColor(0, 128, 0)
                 && !Fmt(d, 5).hasProperty(QTextFormat::BackgroundBrush);
         }},
        {"Versatz", "n\\up3 h\\up0 n\\dn3 t\\up z\\dn w\\plain p", QStringLiteral("nhntzwp"),
         [](const QTextDocument& d) {
             return RtfVersatz(Fmt(d, 0)) == 0 && RtfVersatz(Fmt(d, 1)) == 30 && Fmt(d, 1).baselineOffset() > 0
                 && RtfVersatz(Fmt(d, 2)) == 0 && RtfVersatz(Fmt(d, 3)) == -30 && Fmt(d, 3).baselineOffset() < 0
                 && RtfVersatz(Fmt(d, 4)) == 60 && RtfVersatz(Fmt(d, 5)) == -60 && RtfVersatz(Fmt(d, 6)) == 0;
         }},
        {"hoch und tief gestellt", "\\super a\\nosupersub b\\sub c", QStringLiteral("abc"),
         [](const QTextDocument& d) {
             return Fmt(d, 0).verticalAlignment() == QTextCharFormat::AlignSuperScript
                 && Fmt(d, 1).verticalAlignment() == QTextCharFormat::AlignNormal
                 && Fmt(d, 2).verticalAlignment() == QTextCharFormat::AlignSubScript;
         }},
        {"Einzüge in Twips genau", "\\li50\\ri7\\fi-200 a\\par b\\par\\pard c", QStringLiteral("a\nb\nc"),
         [](const QTextDocument& d) {
             const QTextBlockFormat a = Absatz(d, 0), b = Absatz(d, 1), c = Absatz(d, 2);
             return Tw(a.leftMargin()) == 50 && Tw(a.rightMargin()) == 7 && Tw(a.textIndent()) == -200
                 && Tw(b.leftMargin()) == 50 // paragraph properties last until \pard
                 && c.leftMargin() == 0 && c.textIndent() == 0;
         }},
        {"Ausrichtung", "\\qc a\\par\\qr b\\par\\qj c\\par\\ql d", QStringLiteral("a\nb\nc\nd"),
         [](const QTextDocument& d) {
             return Absatz(d, 0).alignment() == Qt::AlignHCenter && Absatz(d, 1).alignment() == Qt::AlignRight
                 && Absatz(d, 2).alignment() == Qt::AlignJustify && Absatz(d, 3).alignment() == Qt::AlignLeft;
         }},
        {"Abstände", "\\sb120\\sa200\\sl276\\slmult1 a\\par\\pard\\sl-300\\slmult0 b", QStringLiteral("a\nb"),
         [](const QTextDocument& d) {
             const QTextBlockFormat a = Absatz(d, 0), b = Absatz(d, 1);
             return Tw(a.topMargin()) == 120 && Tw(a.bottomMargin()) == 200
                 && a.lineHeightType() == QTextBlockFormat::ProportionalHeight && a.lineHeight() == 115
                 && b.lineHeightType() == QTextBlockFormat::FixedHeight && Tw(b.lineHeight()) == 300;
         }},
        {"\\pard lässt die Zeichen", "\\b\\qc a\\par\\pard b", QStringLiteral("a\nb"),
         [](const QTextDocument& d) { return Fmt(d, 2).fontWeight() == QFont::Bold && Absatz(d, 1).alignment() == Qt::AlignLeft; }},
        {"Tabulator und Zeilenumbruch", "a\\tab b\\line c\\cell d\\row e", QStringLiteral("a\tb\nc\td\ne"),
         [](const QTextDocument& d) { return d.blockCount() == 2 && d.firstBlock().text() == QStringLiteral("a\tb\u2028c\td"); }},
        {"versteckt", "a{\\v b}c\\v d\\v0 e", QStringLiteral("ace"), nullptr},
        {"Klammern und Backslash", "\\{a\\}\\\\b", QStringLiteral("{a}\\b"), nullptr},
        {"Zeichen mit Namen", "\\emdash\\endash\\lquote\\rquote\\ldblquote\\rdblquote\\bullet\\~\\_",
         QStringLiteral("—–‘’“”• ‑"), nullptr},
        {"ein Feld zeigt sein Ergebnis", "x {\\field{\\*\\fldinst{HYPERLINK \"http://a.example\"}}{\\fldrslt{\\ul Link}}} y",
         QStringLiteral("x Link y"), nullptr},
        {"übersprungene Ziele", "{\\info{\\title Titel}{\\author Wer}}{\\stylesheet{\\s0 Normal;}}{\\*\\unbekannt Müll {x}}"
         "{\\header Kopf}{\\footer Fuß}{\\pict\\pngblip 89504e47}{\\*\\generator Gen;}{\\object{\\*\\objdata 0102}}Text",
         QStringLiteral("Text"), nullptr},
        {"unbekannte Wörter", "\\frobnicate12 a\\xyz b", QStringLiteral("ab"), nullptr},
        {"\\bin mit Klammern in den Daten", "a{\\pict\\bin4 {}}\\}b", QStringLiteral("ab"), nullptr},
        {"Zeilenenden im Quelltext zählen nicht", "a\r\nb\nc", QStringLiteral("abc"), nullptr},
        {"Backslash am Zeilenende ist ein Absatz", "a\\\nb", QStringLiteral("a\nb"), nullptr},
    };
    for (const Fall& f : faelle) {
        QTextDocument d;
        const QString rtf = R(f.rtf);
        const QString text = Lesen(d, rtf);
        QVERIFY2(text == f.text, qPrintable(QStringLiteral("%1: %2").arg(QString::fromUtf8(f.name), text)));
        QVERIFY2(RtfText(rtf) == f.text, f.name);
        if (f.gut)
            QVERIFY2(f.gut(d), f.name);
    }
}

void TestRtf::lesenSchriftenUndZeichen()
{
    struct Fall {
        const char* name;
        const char* rtf;
        QString text;
    };
    const QList<Fall> faelle = {
        {"Umlaute als \\'xx", "\\'e4\\'f6\\'fc\\'c4\\'d6\\'dc\\'df\\'E4", QStringLiteral("äöüÄÖÜßä")},
        {"Windows-1252 oberhalb 7F", "\\'80\\'84\\'93\\'94\\'96\\'85\\'a0", QStringLiteral("€„“”–… ")},
        {"Unicode mit Ersatz", "\\u8364?\\u321?x", QStringLiteral("€Łx")},
        {"\\uc2 überspringt zwei", "{\\uc2\\u8364\\'80\\'80x}\\u8364?y", QStringLiteral("€x€y")},
        {"\\uc0 überspringt nichts", "\\uc0\\u8364 x", QStringLiteral("€x")},
        {"Ersatz als Steuerwort", "\\u8364\\'80 x", QStringLiteral("€ x")},
        {"Ersatz endet an der Klammer", "{\\uc3\\u8364?}z", QStringLiteral("€z")},
        {"negativ", "\\u-3913?\\u-10179?\\u-8704?", QString(QChar(0xF0B7)) + QStringLiteral("😀")},
        {"außerhalb", "\\u99999?a\\u-40000?b", QStringLiteral("ab")},
        {"Steuerzeichen fallen weg", "a\\'00\\'0d\\'0a\\u10?b", QStringLiteral("ab")},
        {"Ziffer hinter Hex", "\\'e4123", QStringLiteral("ä123")},
        {"halbes Hex", "a\\'eg", QStringLiteral("ag")},
    };
    for (const Fall& f : faelle) {
        QTextDocument d;
        const QString rtf = R(f.rtf);
        QVERIFY2(Lesen(d, rtf) == f.text, f.name);
        QVERIFY2(RtfText(rtf) == f.text, f.name);
    }

    // Fonts: table entries with and without groups, the default font, an unknown number.
    QTextDocument d;
    Lesen(d, QStringLiteral("{\\rtf1\\ansi\\deff1{\\fonttbl\\f0\\fswiss Arial;{\\f1\\froman{\\*\\panose 0}Times {\\*\\falt T}New Roman;}"
                            "{\\f2 Gr\\'f6\\'dfe;}}a\\f0 b\\f2 c\\f9 d\\plain e}"));
    QCOMPARE(d.toPlainText(), QStringLiteral("abcde"));
    QCOMPARE(Fmt(d, 0).fontFamilies().toStringList().value(0), QStringLiteral("Times New Roman"));
    QCOMPARE(Fmt(d, 1).fontFamilies().toStringList().value(0), QStringLiteral("Arial"));
    QCOMPARE(Fmt(d, 2).fontFamilies().toStringList().value(0), QStringLiteral("Größe"));
    QCOMPARE(Fmt(d, 3).fontFamilies().toStringList().value(0), QStringLiteral("Segoe UI"));
    QCOMPARE(Fmt(d, 4).fontFamilies().toStringList().value(0), QStringLiteral("Times New Roman"));
    QCOMPARE(Fmt(d, 0).fontPointSize(), 12.0); // no \fs: the standard size
    QCOMPARE(d.defaultFont().family(), QStringLiteral("Segoe UI"));

    // \'xx follows the code page of the font's character set.
    if (QStringDecoder("windows-1251").isValid()) {
        const QString kyrillisch = QStringLiteral("{\\rtf1\\ansi{\\fonttbl{\\f0 Arial;}{\\f1\\fcharset204 Arial;}}"
                                                  "\\'e4\\f1\\'e4\\'e0\\f0\\'e4}");
        QCOMPARE(RtfText(kyrillisch), QStringLiteral("äдаä"));
        QCOMPARE(Lesen(d, kyrillisch), QStringLiteral("äдаä"));
    }
    if (QStringDecoder("Shift_JIS").isValid())
        QCOMPARE(RtfText(QStringLiteral("{\\rtf1\\ansi\\ansicpg932 \\'82\\'a0x}")), QStringLiteral("あx"));

    // Plain text in the field: lines become paragraphs in the standard font.
    QFont standard(QStringLiteral("Segoe UI"), 14);
    standard.setItalic(true);
    RtfLesen(QStringLiteral("Zeile 1\r\nZeile 2\rZeile 3\n{\\b kein RTF}"), &d, standard);
    QCOMPARE(d.blockCount(), 4);
    QCOMPARE(d.toPlainText(), QStringLiteral("Zeile 1\nZeile 2\nZeile 3\n{\\b kein RTF}"));
    QCOMPARE(RtfText(QStringLiteral("Zeile 1\r\nZeile 2\rZeile 3\n{\\b kein RTF}")), d.toPlainText());
    QCOMPARE(Fmt(d, 0).fontPointSize(), 14.0);
    QVERIFY(Fmt(d, 0).fontItalic());
    QCOMPARE(Lesen(d, QStringLiteral(" ")), QStringLiteral(" "));
    QCOMPARE(Lesen(d, QString()), QString());
    QCOMPARE(RtfText(QString()), QString());
    QVERIFY(!d.isModified());
    QVERIFY(!d.isUndoAvailable());
}

void TestRtf::lesenListen()
{
    // Old-style bullets: the list properties last until \pard.
    QTextDocument d;
    Lesen(d, R("Kopf\\par{\\pntext\\f1\\'B7\\tab}{\\*\\pn\\pnlvlblt\\pnf1\\pnindent0{\\pntxtb\\'B7}}\\fi-360\\li720 eins\\par"
               "{\\pntext\\f1\\'B7\\tab}zwei\\par\\pard drei"));
    QCOMPARE(d.toPlainText(), QStringLiteral("Kopf\neins\nzwei\ndrei"));
    QVERIFY(!d.findBlockByNumber(0).textList());
    QTextList* punkte = d.findBlockByNumber(1).textList();
    QVERIFY(punkte);
    QCOMPARE(punkte->format().style(), QTextListFormat::ListDisc);
    QCOMPARE(punkte->count(), 2);
    QCOMPARE(d.findBlockByNumber(2).textList(), punkte);
    QVERIFY(!d.findBlockByNumber(3).textList());
    QCOMPARE(Tw(Absatz(d, 1).leftMargin()), 720);
    QCOMPARE(Absatz(d, 1).textIndent(), 0.0); // Qt draws the bullet left of the text
    QCOMPARE(Absatz(d, 1).intProperty(RtfEigenschaft::ErstzeileTwips), -360);

    // Numbered, and a word processor's \ls lists with \listtext.
    Lesen(d, R("{\\pntext 1.\\tab}{\\*\\pn\\pnlvlbody\\pndec{\\pntxta .}}\\li720 a\\par{\\pntext 2.\\tab}b\\par\\pard"
               "{\\listtext\\pard\\plain\\f3 \\'b7\\tab}\\ls1\\li720 c\\par{\\listtext\\pard\\plain\\f3 \\'b7\\tab}\\ls1\\li720 d\\par"
               "\\pard{\\listtext 1)\\tab}\\ls2\\li720 e\\par\\pard{\\*\\pn\\pnlvlbody\\pnucrm}\\li500 f"));
    QCOMPARE(d.toPlainText(), QStringLiteral("a\nb\nc\nd\ne\nf"));
    QCOMPARE(d.findBlockByNumber(0).textList()->format().style(), QTextListFormat::ListDecimal);
    QCOMPARE(d.findBlockByNumber(0).textList()->count(), 2);
    QCOMPARE(d.findBlockByNumber(2).textList()->format().style(), QTextListFormat::ListDisc);
    QCOMPARE(d.findBlockByNumber(2).textList(), d.findBlockByNumber(3).textList());
    QCOMPARE(d.findBlockByNumber(4).textList()->format().style(), QTextListFormat::ListDecimal);
    QCOMPARE(d.findBlockByNumber(5).textList()->format().style(), QTextListFormat::ListUpperRoman);

    // Without an indent of its own the list makes room for the bullet.
    Lesen(d, R("{\\*\\pn\\pnlvlblt} x"));
    QVERIFY(d.firstBlock().textList());
    QCOMPARE(d.firstBlock().textList()->format().indent(), 1);
}

void TestRtf::lesenAbsatzende()
{
    // The closing \par opens no paragraph of its own; the one after it is dropped when empty.
    QCOMPARE(RtfText(R("a\\par")), QStringLiteral("a"));
    QCOMPARE(RtfText(R("a\\par\\par")), QStringLiteral("a\n"));
    QCOMPARE(RtfText(R("a\\par b")), QStringLiteral("a\nb"));
    QCOMPARE(RtfText(R("a\\par{\\pntext\\'b7\\tab}")), QStringLiteral("a"));
    QCOMPARE(RtfText(R("\\par")), QString());
    QCOMPARE(RtfText(R("")), QString());
    QTextDocument d;
    QCOMPARE(Lesen(d, R("a\\par\\par")), QStringLiteral("a\n"));
    QCOMPARE(d.blockCount(), 2);
    // An empty paragraph keeps the format of its mark.
    Lesen(d, R("a\\par\\fs48\\par b"));
    QCOMPARE(d.findBlockByNumber(1).charFormat().fontPointSize(), 24.0);
    // Text after the outermost group is no part of the document.
    QCOMPARE(RtfText(QStringLiteral("{\\rtf1 a}b{c}")), QStringLiteral("a"));
}

void TestRtf::schreibenEscapes()
{
    QTextDocument d;
    QTextCursor(&d).insertText(QStringLiteral("Mädchen ÄÖÜäöüß € Łódź 😀 {\\} a\tb") + QChar(0x2028) + u'c');
    const QString rtf = RtfSchreiben(&d);
    QVERIFY2(rtf.startsWith(QStringLiteral("{\\rtf1\\ansi\\ansicpg1252\\deff0")), qPrintable(rtf));
    QVERIFY(rtf.endsWith(u'}'));
    // The search for "Mädchen" in the field looks for M\?e4dchen.
    QVERIFY(rtf.contains(QStringLiteral("M\\'e4dchen")));
    QVERIFY(rtf.contains(QStringLiteral("\\'c4\\'d6\\'dc\\'e4\\'f6\\'fc\\'df \\'80 ")));
    QVERIFY(rtf.contains(QStringLiteral("\\u321?\\'f3d\\u378?")));
    QVERIFY(rtf.contains(QStringLiteral("\\u-10179?\\u-8704?")));
    QVERIFY(rtf.contains(QStringLiteral("\\{\\\\\\} a\\tab b\\line c\\par")));
    for (const QChar c : rtf)
        QVERIFY2(c.unicode() < 128, "only ASCII in the source");
    // Font names are escaped too.
    QTextCharFormat f;
    f.setFontFamilies({QStringLiteral("Bücher {Sonder}")});
    QTextCursor(&d).insertText(QStringLiteral("x"), f);
    QVERIFY(RtfSchreiben(&d).contains(QStringLiteral("\\fcharset0 B\\'fccher \\{Sonder\\};}")));
    QVERIFY(RtfSchreiben(nullptr).isEmpty());
}

void TestRtf::schreibenFormate()
{
    QTextDocument d;
    d.setDefaultFont(QFont(QStringLiteral("Segoe UI"), 12));
    QTextCursor c(&d);
    QTextBlockFormat b;
    b.setLeftMargin(50 / 15.0);
    b.setAlignment(Qt::AlignHCenter);
    c.setBlockFormat(b);
    c.insertText(QStringLiteral("a"));
    QTextCharFormat f;
    f.setFontWeight(QFont::Bold);
    f.setForeground(QColor(255, 0, 0));
    c.insertText(QStringLiteral("b"), f);
    f = QTextCharFormat();
    RtfVersatzSetzen(f, 30, 12);
    c.insertText(QStringLiteral("h"), f);
    RtfVersatzSetzen(f, -30, 12);
    c.insertText(QStringLiteral("t"), f);
    c.insertText(QStringLiteral("n"), QTextCharFormat());
    c.insertBlock(QTextBlockFormat());
    c.createList(QTextListFormat::ListDisc);
    c.insertText(QStringLiteral("p"));
    const QString rtf = RtfSchreiben(&d);
    QVERIFY2(rtf.contains(QStringLiteral("{\\fonttbl{\\f0\\fnil\\fcharset0 Segoe UI;}}")), qPrintable(rtf));
    QVERIFY(rtf.contains(QStringLiteral("{\\colortbl ;\\red255\\green0\\blue0;}")));
    QVERIFY(rtf.contains(QStringLiteral("\\pard\\li50\\qc\\f0\\fs24 a\\b\\cf1 b\\b0\\cf0\\up3 h\\dn3 t\\up0 n\\par\n")));
    QVERIFY(rtf.contains(QStringLiteral("\\pard{\\pntext\\'95\\tab}{\\*\\pn\\pnlvlblt\\pnindent0{\\pntxtb\\'95}}\\fi-360\\li600 p\\par\n")));
    // What the pane sets in pixels leaves in twips.
    QTextDocument e;
    QTextCursor(&e).setBlockFormat([] { QTextBlockFormat g; g.setLeftMargin(10); g.setRightMargin(3.4); return g; }());
    QVERIFY(RtfSchreiben(&e).contains(QStringLiteral("\\pard\\li150\\ri51\\f0")));
}

void TestRtf::rundreisen()
{
    const auto plaene = Bauplaene();
    for (size_t i = 0; i < plaene.size(); ++i) {
        QTextDocument d;
        d.setDefaultFont(Standard());
        plaene[i](d);
        QString zweites;
        const QString erstes = Rundreise(d, &zweites);
        QVERIFY2(erstes == zweites, qPrintable(QStringLiteral("Dokument %1:\n%2\n---\n%3").arg(i).arg(erstes, zweites)));
        QTextDocument d2;
        RtfLesen(erstes, &d2, Standard());
        QCOMPARE(d2.toPlainText(), QString(d.toPlainText()).remove(QRegularExpression(QStringLiteral("[\\x01\\x{fffc}]"))));
        QCOMPARE(RtfText(erstes), d2.toPlainText());
    }

    // Lists keep their kinds; the second of two like lists in a row continues the first.
    QTextDocument l;
    plaene[4](l);
    QTextDocument l2;
    RtfLesen(RtfSchreiben(&l), &l2, Standard());
    QStringList arten;
    for (QTextBlock b = l2.begin(); b.isValid(); b = b.next())
        arten << (b.textList() ? QString::number(b.textList()->format().style()) + u':' + QString::number(b.textList()->itemNumber(b)) : QStringLiteral("-"));
    QCOMPARE(arten.join(u' '), QStringLiteral("- -1:0 -1:1 - -4:0 -4:1 -8:0 -5:0 -1:0 -1:1"));
}

void TestRtf::textverarbeitung()
{
    for (const char* quelle : {k_editor, k_buero}) {
        const QString rtf = QString::fromLatin1(quelle);
        QTextDocument d;
        const QString text = Lesen(d, rtf);
        QCOMPARE(RtfText(rtf), text);
        const bool editor = quelle == k_editor;
        const QStringList woerter = editor
            ? QStringList{"Die", "große", "Plattensammlung", "Seite", "A:", "Märchenstunde", "–", "aufgenommen",
                          "in", "Köln,", "Überspielung", "1978", "für", "20€.", "Erster", "Titel", "mit", "Bläsern",
                          "Zweiter", "Titel", "„Anführung“", "Mehr", "unter", "Plattenseite", "und", "Straße", "Łódź.",
                          "Hoben", "und", "unten", "Öl"}
            : QStringList{"Kammermusik", "für", "Flöte", "–", "Einspielung", "aus", "Große", "Nähe.", "Sonate", "in",
                          "a-Moll", "Partita", "Nr.", "2", "mit", "Änderung", "Rechts", "Schreiben"};
        const QStringList gelesen = text.split(QRegularExpression(QStringLiteral("\\s+")), Qt::SkipEmptyParts);
        QCOMPARE(gelesen.join(u' '), woerter.join(u' '));
        for (const char* fremd : {"HYPERLINK", "0100090000", "Riched", "Normal", "Rita", "Kopfzeile", "Fußnote",
                                  "versteckt", "504b03", "Grammarly", "Anker", "Symbol", "Calibri"})
            QVERIFY2(!text.contains(QLatin1String(fremd)), fremd);
    }

    QTextDocument d;
    Lesen(d, QString::fromLatin1(k_editor));
    QCOMPARE(d.blockCount(), 7);
    QCOMPARE(Absatz(d, 0).alignment(), Qt::AlignHCenter);
    QCOMPARE(Fmt(d, 0).fontWeight(), QFont::Bold);
    QCOMPARE(Fmt(d, 0).fontPointSize(), 14.0);
    QCOMPARE(Fmt(d, 0).fontFamilies().toStringList().value(0), QStringLiteral("Segoe UI"));
    QCOMPARE(Absatz(d, 1).lineHeight(), 115.0);
    QCOMPARE(d.findBlockByNumber(3).textList(), d.findBlockByNumber(4).textList());
    QVERIFY(d.findBlockByNumber(3).textList());
    const int link = int(d.toPlainText().indexOf(QStringLiteral("Plattenseite")));
    QCOMPARE(Fmt(d, link).foreground().color(), QColor(0, 0, 255));
    QVERIFY(Fmt(d, link).fontUnderline());

    Lesen(d, QString::fromLatin1(k_buero));
    QCOMPARE(Fmt(d, 0).fontFamilies().toStringList().value(0), QStringLiteral("Calibri"));
    QCOMPARE(Fmt(d, 0).fontWeight(), QFont::Bold);
    QCOMPARE(Fmt(d, 0).fontPointSize(), 11.0);
    QVERIFY(d.findBlockByNumber(1).textList());
    QCOMPARE(d.findBlockByNumber(1).textList(), d.findBlockByNumber(2).textList());
    QCOMPARE(Absatz(d, 3).alignment(), Qt::AlignRight);
}

void TestRtf::unsinn()
{
    // Hand-made hostile texts, each in bounded time.
    const QList<QString> boese = {
        QStringLiteral("{\\rtf1 ") + QString(200000, u'{') + QStringLiteral("tief") + QString(100000, u'}'),
        QStringLiteral("{\\rtf1 ") + QStringLiteral("{\\b a").repeated(50000),
        QStringLiteral("{\\rtf1 a}}}}}}b"),
        QStringLiteral("{\\rtf1 {\\b abc"),
        QStringLiteral("{\\rtf1 \\fs99999999999999999999999999 \\li-99999999999999999 \\u99999999999999 \\uc99999 x}"),
        QStringLiteral("{\\rtf1 \\bin99999999999 x}"),
        QStringLiteral("{\\rtf1 \\bin-5 x}"),
        QStringLiteral("{\\rtf1 x\\"),
        QStringLiteral("{\\rtf1 x\\'"),
        QStringLiteral("{\\rtf1 x\\'4"),
        QStringLiteral("{\\rtf1 x\\u"),
        QStringLiteral("{\\rtf1 x\\u-"),
        QStringLiteral("{\\rtf"),
        QStringLiteral("{\\rtf1 ") + QStringLiteral("\\par").repeated(100000),
        QStringLiteral("{\\rtf1 ") + QStringLiteral("\\") + QString(100000, u'a'),
        QStringLiteral("{\\rtf1{\\fonttbl") + QStringLiteral("{\\f1 ").repeated(20000),
        QStringLiteral("{\\rtf1{\\colortbl") + QStringLiteral(";").repeated(100000) + u'}' + QStringLiteral("\\cf65535 x\\cf99999 y}"),
        QStringLiteral("{\\rtf1\\ansicpg932 ") + QStringLiteral("\\'82").repeated(50001) + u'}',
    };
    QRandomGenerator z(4711);
    QString zufall(300000, Qt::Uninitialized);
    for (QChar& c : zufall)
        c = QChar(char16_t(z.bounded(0x10000)));
    QList<QString> alle = boese;
    alle << QStringLiteral("{\\rtf1 ") + zufall;
    for (const QString& rtf : alle) {
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
        d.setDefaultFont(Standard());
        plan(d);
        vorlagen << RtfSchreiben(&d);
    }
    QElapsedTimer uhr;
    uhr.start();
    constexpr int Runden = 10000;
    for (int runde = 0; runde < Runden; ++runde) {
        const QString rtf = Verderben(vorlagen[runde % vorlagen.size()], z);
        QTextDocument d;
        RtfLesen(rtf, &d, Standard());
        const QString text = RtfText(rtf);
        if (text != d.toPlainText())
            QFAIL(qPrintable(QStringLiteral("Runde %1: die Leser weichen ab bei\n%2").arg(runde).arg(rtf)));
        if (runde % 10 == 0) {
            QString zweites;
            const QString erstes = Rundreise(d, &zweites);
            if (erstes != zweites)
                QFAIL(qPrintable(QStringLiteral("Runde %1: Schreiben nicht stabil bei\n%2").arg(runde).arg(rtf)));
        }
    }
    qInfo("%d verdorbene Texte in %lld ms", Runden, uhr.elapsed());
    QVERIFY(uhr.elapsed() < 10000);
}

RK_TEST_MAIN(TestRtf)
#include "tst_rtf.moc"
