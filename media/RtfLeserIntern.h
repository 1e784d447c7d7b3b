#pragma once
// What the RTF reader's two files share: the control words it knows, the states of a
// group, and the reader itself.
#include "media/RtfIntern.h"
#include "shell/Grundregeln.h"

#include <QColor>
#include <QHash>
#include <QString>
#include <QTextCharFormat>
#include <QTextCursor>
#include <QTextListFormat>

#include <algorithm>
#include <string_view>
#include <utility>
#include <vector>

class QTextDocument;
class QTextList;

namespace RtfLeserIntern {

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

// The word of that name, nullptr for a word the reader ignores.
const Wort* WortSuchen(std::string_view name);

// List kinds of a paragraph; 0 is none.
enum Liste : qint8 { KeineListe, Punkte, Ziffern, KleinBuchstaben, GrossBuchstaben, KleinRoemisch, GrossRoemisch };
QTextListFormat::Style ListenStil(int art);

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

inline int Klemmen(qint64 wert, int unten, int oben)
{
    return int(std::clamp<qint64>(wert, unten, oben));
}

// The code page of a font's character set; 0 for the document's.
int CodeSeiteVonZeichensatz(int zeichensatz);
// The name the toolkit's decoder knows a code page by.
QByteArray KodierungsName(int seite);

inline bool Buchstabe(char16_t c) { return (c >= u'a' && c <= u'z') || (c >= u'A' && c <= u'Z'); }
inline bool Ziffer(char16_t c) { return c >= u'0' && c <= u'9'; }

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

} // namespace RtfLeserIntern
