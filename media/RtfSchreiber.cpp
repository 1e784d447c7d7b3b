// RTF writer: ANSI RTF with Windows-1252 escapes. Every paragraph is written with \pard and
// all its properties, runs as changes against the character state so far; font and colour
// tables list what the body uses, in the order of first use. What the reader would drop or
// normalise is dropped or normalised here already, so that writing is stable over a read.
#include "media/Rtf.h"
#include "media/RtfIntern.h"
#include "platform/Einheiten.h"
#include "platform/Textdatei.h"

#include <QFont>
#include <QHash>
#include <QTextBlock>
#include <QTextDocument>
#include <QTextList>

#include <algorithm>
#include <vector>

namespace {


struct Lauf {
    int schrift = -1;
    int halbpunkte = -1;
    int farbe = 0;
    int hinter = 0;
    int versatz = 0;
    int hochtief = 0;
    bool fett = false, kursiv = false, unter = false, durch = false;
    bool operator==(const Lauf&) const = default;
};


int Twips(qreal pixel, int unten = -RtfMaxTwips)
{
    return RtfRunden(pixel * TwipsProPixel, unten, RtfMaxTwips);
}

QString Roemisch(int zahl)
{
    static const std::pair<int, const char*> stufen[] = {
        {1000, "m"}, {900, "cm"}, {500, "d"}, {400, "cd"}, {100, "c"}, {90, "xc"},
        {50, "l"},   {40, "xl"},  {10, "x"},  {9, "ix"},   {5, "v"},   {4, "iv"}, {1, "i"}};
    QString aus;
    zahl = std::clamp(zahl, 1, 3999);
    for (const auto& [wert, text] : stufen)
        while (zahl >= wert) {
            aus += QLatin1String(text);
            zahl -= wert;
        }
    return aus;
}

QString Buchstaben(int zahl)
{
    QString aus;
    for (; zahl > 0; zahl = (zahl - 1) / 26)
        aus.prepend(QChar(u'a' + (zahl - 1) % 26));
    return aus;
}

class Schreiber {
public:
    explicit Schreiber(const QTextDocument* dokument) : m_dokument(dokument)
    {
        m_standard = dokument->defaultFont();
        m_aus.reserve(1024);
    }
    QString schreiben();

private:
    void absatz(const QTextBlock& block);
    Lauf aufloesen(const QTextCharFormat& f);
    int schriftNummer(const QString& familie);
    int farbNummer(const QColor& farbe);
    void zustandSchreiben();
    void wort(const char* w);
    void wort(const char* w, int zahl);
    void zeichen(char16_t c);
    static void escapen(QString& aus, char16_t c, bool& wortOffen);

    const QTextDocument* m_dokument;
    QFont m_standard;
    QStringList m_schriften; // \fN is the index
    QHash<QString, int> m_schriftNummern;
    std::vector<QRgb> m_farben; // \cfN is the index + 1
    QHash<QRgb, int> m_farbNummern;
    QString m_aus;
    bool m_wortOffen = false;
    Lauf m_jetzt; // what the reader holds so far
    Lauf m_soll; // what the next character needs
    bool m_absatzHatText = false;
    int m_vorigeListe = 0; // list kind of the paragraph before, for the numbers in \pntext
    int m_listenNummer = 0;
};

void Schreiber::wort(const char* w)
{
    m_aus += u'\\';
    m_aus += QLatin1String(w);
    m_wortOffen = true;
}

void Schreiber::wort(const char* w, int zahl)
{
    wort(w);
    m_aus += QString::number(zahl);
}

void Schreiber::escapen(QString& aus, char16_t c, bool& wortOffen)
{
    if (c == u'\\' || c == u'{' || c == u'}') {
        aus += u'\\';
        aus += QChar(c);
        wortOffen = false;
    } else if (c < 0x80) {
        if (wortOffen)
            aus += u' ';
        aus += QChar(c);
        wortOffen = false;
    } else if (const int byte = Cp1252Byte(c); byte >= 0) {
        static const char hex[] = "0123456789abcdef";
        aus += QLatin1String("\\'");
        aus += QChar(hex[byte >> 4]);
        aus += QChar(hex[byte & 15]);
        wortOffen = false;
    } else {
        // signed 16 bits, "?" for readers without Unicode
        aus += QLatin1String("\\u");
        aus += QString::number(c > 32767 ? int(c) - 65536 : int(c));
        aus += u'?';
        wortOffen = false;
    }
}

void Schreiber::zeichen(char16_t c)
{
    if (RtfUnbrauchbar(c))
        return;
    zustandSchreiben();
    m_absatzHatText = true;
    if (c == u'\t')
        wort("tab");
    else if (c == 0x2028)
        wort("line");
    else
        escapen(m_aus, c, m_wortOffen);
}

void Schreiber::zustandSchreiben()
{
    const Lauf& s = m_soll;
    Lauf& j = m_jetzt;
    if (s == j)
        return;
    if (s.schrift != j.schrift)
        wort("f", s.schrift);
    if (s.halbpunkte != j.halbpunkte)
        wort("fs", s.halbpunkte);
    if (s.fett != j.fett)
        wort(s.fett ? "b" : "b0");
    if (s.kursiv != j.kursiv)
        wort(s.kursiv ? "i" : "i0");
    if (s.unter != j.unter)
        wort(s.unter ? "ul" : "ulnone");
    if (s.durch != j.durch)
        wort(s.durch ? "strike" : "strike0");
    if (s.farbe != j.farbe)
        wort("cf", s.farbe);
    if (s.hinter != j.hinter)
        wort("highlight", s.hinter);
    if (s.versatz != j.versatz) {
        if (s.versatz > 0)
            wort("up", s.versatz / 10);
        else if (s.versatz < 0)
            wort("dn", -s.versatz / 10);
        else
            wort("up0");
    }
    if (s.hochtief != j.hochtief)
        wort(s.hochtief > 0 ? "super" : s.hochtief < 0 ? "sub" : "nosupersub");
    j = s;
}

// A font name as the reader takes it back: no ";" (it ends the entry), no control characters,
// no blanks around.
QString Schriftname(const QString& name)
{
    QString aus;
    for (const QChar c : name)
        if (c != u';' && !RtfUnbrauchbar(c.unicode()))
            aus += c;
    return aus.trimmed();
}

int Schreiber::schriftNummer(const QString& familie)
{
    QString name = Schriftname(familie);
    if (name.isEmpty())
        name = Schriftname(m_standard.family());
    if (name.isEmpty())
        name = QStringLiteral("Segoe UI");
    const auto it = m_schriftNummern.constFind(name);
    if (it != m_schriftNummern.constEnd())
        return *it;
    m_schriften.append(name);
    return m_schriftNummern[name] = int(m_schriften.size() - 1);
}

int Schreiber::farbNummer(const QColor& farbe)
{
    const QRgb rgb = farbe.rgb() & 0xFFFFFF;
    const auto it = m_farbNummern.constFind(rgb);
    if (it != m_farbNummern.constEnd())
        return *it;
    m_farben.push_back(rgb);
    return m_farbNummern[rgb] = int(m_farben.size());
}

Lauf Schreiber::aufloesen(const QTextCharFormat& f)
{
    Lauf l;
    QString familie;
    if (f.hasProperty(QTextFormat::FontFamilies))
        familie = f.property(QTextFormat::FontFamilies).toStringList().value(0);
    else if (f.hasProperty(QTextFormat::FontFamily))
        familie = f.stringProperty(QTextFormat::FontFamily);
    l.schrift = schriftNummer(familie);

    qreal punkte = m_standard.pointSizeF();
    if (f.hasProperty(QTextFormat::FontPointSize))
        punkte = f.fontPointSize();
    else if (f.hasProperty(QTextFormat::FontPixelSize))
        punkte = f.intProperty(QTextFormat::FontPixelSize) * 0.75;
    if (punkte <= 0)
        punkte = 12.0;
    l.halbpunkte = RtfRunden(punkte * 2, 2, 3276);

    l.fett = (f.hasProperty(QTextFormat::FontWeight) ? f.fontWeight() : m_standard.weight())
        >= QFont::DemiBold;
    l.kursiv = f.hasProperty(QTextFormat::FontItalic) ? f.fontItalic() : m_standard.italic();
    l.unter = f.hasProperty(QTextFormat::TextUnderlineStyle) || f.hasProperty(QTextFormat::FontUnderline)
        ? f.fontUnderline() : m_standard.underline();
    l.durch = f.hasProperty(QTextFormat::FontStrikeOut) ? f.fontStrikeOut() : m_standard.strikeOut();
    if (f.hasProperty(QTextFormat::ForegroundBrush) && f.foreground().style() != Qt::NoBrush)
        l.farbe = farbNummer(f.foreground().color());
    if (f.hasProperty(QTextFormat::BackgroundBrush) && f.background().style() != Qt::NoBrush
        && f.background().color().alpha() > 0)
        l.hinter = farbNummer(f.background().color());
    // \upN counts half points, 10 twips each
    l.versatz = RtfRunden(RtfVersatz(f) / 10.0, -3276, 3276) * 10;
    if (f.verticalAlignment() == QTextCharFormat::AlignSuperScript)
        l.hochtief = 1;
    else if (f.verticalAlignment() == QTextCharFormat::AlignSubScript)
        l.hochtief = -1;
    return l;
}

void Schreiber::absatz(const QTextBlock& block)
{
    const QTextBlockFormat bf = block.blockFormat();
    const QTextList* liste = block.textList();
    int art = 0;
    const char* pnStil = nullptr;
    if (liste) {
        switch (liste->format().style()) {
        case QTextListFormat::ListDecimal: art = 2; pnStil = "pndec"; break;
        case QTextListFormat::ListLowerAlpha: art = 3; pnStil = "pnlcltr"; break;
        case QTextListFormat::ListUpperAlpha: art = 4; pnStil = "pnucltr"; break;
        case QTextListFormat::ListLowerRoman: art = 5; pnStil = "pnlcrm"; break;
        case QTextListFormat::ListUpperRoman: art = 6; pnStil = "pnucrm"; break;
        default: art = 1; break;
        }
    }
    m_listenNummer = art != 0 && art == m_vorigeListe ? m_listenNummer + 1 : 1;
    m_vorigeListe = art;

    wort("pard");
    int links = Twips(bf.leftMargin()
                      + (bf.indent() + (liste ? liste->format().indent() : 0)) * m_dokument->indentWidth());
    int erste = Twips(bf.textIndent());
    if (art != 0) {
        // A list paragraph always has room for its bullet; the reader draws it there.
        if (links <= 0)
            links = std::max(Twips(m_dokument->indentWidth()), 1);
        erste = bf.hasProperty(RtfEigenschaft::ErstzeileTwips)
            ? std::clamp(bf.intProperty(RtfEigenschaft::ErstzeileTwips), -RtfMaxTwips, RtfMaxTwips)
            : -std::min(360, links);
        m_aus += QLatin1String("{\\pntext");
        m_wortOffen = true;
        QString marke;
        switch (art) {
        case 1: marke = QChar(0x2022); break;
        case 2: marke = QString::number(m_listenNummer) + u'.'; break;
        case 3: marke = Buchstaben(m_listenNummer) + u'.'; break;
        case 4: marke = Buchstaben(m_listenNummer).toUpper() + u'.'; break;
        case 5: marke = Roemisch(m_listenNummer) + u'.'; break;
        default: marke = Roemisch(m_listenNummer).toUpper() + u'.'; break;
        }
        for (const QChar c : marke)
            escapen(m_aus, c.unicode(), m_wortOffen);
        wort("tab");
        m_aus += QLatin1String("}{\\*\\pn");
        if (art == 1) {
            m_aus += QLatin1String("\\pnlvlblt\\pnindent0{\\pntxtb\\'95}}");
        } else {
            m_aus += QLatin1String("\\pnlvlbody\\");
            m_aus += QLatin1String(pnStil);
            // Without a start other word processors count from 0.
            m_aus += QLatin1String("\\pnstart1\\pnindent0{\\pntxta .}}");
        }
        m_wortOffen = false;
    }
    if (erste != 0)
        wort("fi", erste);
    if (links != 0)
        wort("li", links);
    if (const int rechts = Twips(bf.rightMargin()); rechts != 0)
        wort("ri", rechts);
    if (const int davor = Twips(bf.topMargin(), 0); davor != 0)
        wort("sb", davor);
    if (const int danach = Twips(bf.bottomMargin(), 0); danach != 0)
        wort("sa", danach);
    switch (bf.lineHeightType()) {
    case QTextBlockFormat::ProportionalHeight:
        if (const int sl = RtfRunden(bf.lineHeight() * 2.4, 0, RtfMaxTwips); sl != 0 && sl != 240) {
            wort("sl", sl);
            wort("slmult1");
        }
        break;
    case QTextBlockFormat::MinimumHeight:
        if (const int sl = Twips(bf.lineHeight(), 0); sl != 0) {
            wort("sl", sl);
            wort("slmult0");
        }
        break;
    case QTextBlockFormat::FixedHeight:
        if (const int sl = Twips(bf.lineHeight(), 0); sl != 0) {
            wort("sl", -sl);
            wort("slmult0");
        }
        break;
    default:
        break;
    }
    switch (bf.alignment() & Qt::AlignHorizontal_Mask) {
    case Qt::AlignHCenter: wort("qc"); break;
    case Qt::AlignRight: wort("qr"); break;
    case Qt::AlignJustify: wort("qj"); break;
    default: break;
    }

    m_absatzHatText = false;
    for (auto it = block.begin(); !it.atEnd(); ++it) {
        const QTextFragment stueck = it.fragment();
        if (!stueck.isValid())
            continue;
        m_soll = aufloesen(stueck.charFormat());
        const QString text = stueck.text();
        for (const QChar c : text)
            zeichen(c.unicode());
    }
    // An empty paragraph keeps the format its mark has.
    if (!m_absatzHatText) {
        m_soll = aufloesen(block.charFormat());
        zustandSchreiben();
    }
    wort("par");
    m_aus += u'\n';
}

QString Schreiber::schreiben()
{
    for (QTextBlock block = m_dokument->begin(); block.isValid(); block = block.next())
        absatz(block);

    QString kopf = QStringLiteral("{\\rtf1\\ansi\\ansicpg1252\\deff0\\uc1{\\fonttbl");
    for (qsizetype i = 0; i < m_schriften.size(); ++i) {
        kopf += QStringLiteral("{\\f%1\\fnil\\fcharset0 ").arg(i);
        bool offen = false;
        for (const QChar c : m_schriften[i])
            escapen(kopf, c.unicode(), offen);
        kopf += QLatin1String(";}");
    }
    kopf += QLatin1String("}\n");
    if (!m_farben.empty()) {
        kopf += QLatin1String("{\\colortbl ;");
        for (const QRgb rgb : m_farben)
            kopf += QStringLiteral("\\red%1\\green%2\\blue%3;").arg(qRed(rgb)).arg(qGreen(rgb)).arg(qBlue(rgb));
        kopf += QLatin1String("}\n");
    }
    return kopf + m_aus + u'}';
}

} // namespace

QString RtfSchreiben(const QTextDocument* dokument)
{
    if (!dokument)
        return QString();
    Schreiber schreiber(dokument);
    return schreiber.schreiben();
}
