// RTF reader: one pass over the source, a stack of group states, and either a document
// that is built paragraph by paragraph or only the plain text.
#include "media/Rtf.h"

#include "media/RtfIntern.h"
#include "media/RtfLeserIntern.h"
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

namespace RtfLeserIntern {

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

} // namespace RtfLeserIntern

namespace {

using namespace RtfLeserIntern;

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
