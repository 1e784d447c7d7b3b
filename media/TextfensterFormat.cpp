// The formatting row, the font menu and the search of the text panes: each acts on the
// selection of the pane that last had the focus, and gives the focus back to it.
#include "media/Textfenster.h"

#include "shell/Ausgabebox.h"

#include "media/Rtf.h"
#include "media/RtfIntern.h"
#include "platform/Dialogdienst.h"
#include "platform/Dienste.h"
#include "platform/Einheiten.h"
#include "platform/Laufzeitfehler.h"
#include "shell/Einstellungen.h"
#include "shell/Grundregeln.h"

#include <QTextBlock>
#include <QTextCursor>
#include <QTextDocument>
#include <QTextEdit>
#include <QTextList>

#include <vector>

namespace {

// Whether an attribute holds for the selection: 1 for every character, 0 for none, -1 for
// some. Without a selection, for the next character typed.
int Zeichenzustand(const QTextEdit* text, const std::function<bool(const QTextCharFormat&)>& gesetzt)
{
    const QTextCursor c = text->textCursor();
    if (!c.hasSelection())
        return gesetzt(c.charFormat()) ? 1 : 0;
    const int von = c.selectionStart();
    const int bis = c.selectionEnd();
    bool an = false;
    bool aus = false;
    for (QTextBlock b = text->document()->findBlock(von); b.isValid() && b.position() < bis; b = b.next()) {
        for (auto it = b.begin(); !it.atEnd(); ++it) {
            const QTextFragment f = it.fragment();
            if (f.position() + f.length() <= von || f.position() >= bis)
                continue;
            (gesetzt(f.charFormat()) ? an : aus) = true;
            if (an && aus)
                return -1;
        }
    }
    return an ? 1 : 0;
}

// An offset as a format to merge; offset 0 must be said, since merging adds only.
QTextCharFormat Versatzformat(int twips, qreal punkte)
{
    QTextCharFormat f;
    if (twips == 0) {
        f.setProperty(RtfEigenschaft::VersatzTwips, 0);
        f.setBaselineOffset(0);
    } else {
        RtfVersatzSetzen(f, twips, punkte);
    }
    return f;
}

qreal Punktgroesse(const QTextCharFormat& f, const QFont& standard)
{
    if (f.fontPointSize() > 0)
        return f.fontPointSize();
    return standard.pointSizeF() > 0 ? standard.pointSizeF() : 12.0;
}

} // namespace

void Textfenster::ButtonText_Click(int index)
{
    QTextEdit* text = AktivesTextfenster();
    if (!text)
        return;
    try {
        const QFont standard = text->document()->defaultFont();
        switch (index) {
        case 0:
            SchriftWaehlen(text);
            break;
        case 1:
            FarbeWaehlen(text);
            break;
        case 2:
            StandardschriftSetzen(text);
            break;
        case 3:
            ZeichenUmschalten(
                text,
                [standard](const QTextCharFormat& f) {
                    return (f.hasProperty(QTextFormat::FontWeight) ? f.fontWeight() : standard.weight())
                        >= QFont::DemiBold;
                },
                [](QTextCharFormat& f, bool an) { f.setFontWeight(an ? QFont::Bold : QFont::Normal); });
            break;
        case 4:
            ZeichenUmschalten(
                text,
                [standard](const QTextCharFormat& f) {
                    return f.hasProperty(QTextFormat::FontItalic) ? f.fontItalic() : standard.italic();
                },
                [](QTextCharFormat& f, bool an) { f.setFontItalic(an); });
            break;
        case 5:
            ZeichenUmschalten(
                text,
                [standard](const QTextCharFormat& f) {
                    return f.hasProperty(QTextFormat::TextUnderlineStyle) || f.hasProperty(QTextFormat::FontUnderline)
                        ? f.fontUnderline()
                        : standard.underline();
                },
                [](QTextCharFormat& f, bool an) { f.setFontUnderline(an); });
            break;
        case 6:
            mnuRandLinks_Click();
            return;
        case 7:
        case 8:
            TextSuchen(text, index == 8);
            break;
        case 9:
            mnuRandRechts_Click();
            return;
        case 11:
            Aufzaehlung(text);
            break;
        case 12:
            Ausrichten(text, Qt::AlignLeft);
            break;
        case 13:
            Ausrichten(text, Qt::AlignHCenter);
            break;
        case 14:
            Ausrichten(text, Qt::AlignRight);
            break;
        default:
            return;
        }
        text->setFocus();
    } catch (const Laufzeitfehler& fehler) {
        Fehlermeldung(fehler, QStringLiteral("Ausgabebox_ButtonText_Click"));
    }
}

void Textfenster::SchriftWaehlen(QTextEdit* text)
{
    Schriftauswahl auswahl{m_dialogSchrift, m_dialogFarbe};
    if (!m_dialogSchriftDa || auswahl.schrift.family().isEmpty())
        auswahl.schrift = QFont(QStringLiteral("Segoe UI"), 12);
    if (!D().dialoge().Schrift(auswahl))
        throw Laufzeitfehler(Fehlernummer::DialogAbgebrochen);
    m_dialogSchrift = auswahl.schrift;
    m_dialogSchriftDa = true;
    const QFont& s = auswahl.schrift;
    QTextCharFormat f;
    f.setFontFamilies(QStringList{s.family()});
    if (s.pointSizeF() > 0)
        f.setFontPointSize(s.pointSizeF());
    f.setFontWeight(s.bold() ? QFont::Bold : QFont::Normal);
    f.setFontItalic(s.italic());
    f.setFontStrikeOut(s.strikeOut());
    f.setFontUnderline(s.underline());
    text->mergeCurrentCharFormat(f);
}

void Textfenster::FarbeWaehlen(QTextEdit* text)
{
    QColor farbe = m_dialogFarbe;
    if (!D().dialoge().Farbe(farbe) || !farbe.isValid())
        throw Laufzeitfehler(Fehlernummer::DialogAbgebrochen);
    m_dialogFarbe = farbe;
    QTextCharFormat f;
    f.setForeground(farbe);
    text->mergeCurrentCharFormat(f);
}

void Textfenster::StandardschriftSetzen(QTextEdit* text)
{
    QTextCharFormat f = Versatzformat(0, StandardFontsize);
    f.setFontFamilies(QStringList{StandardFontName});
    if (StandardFontsize > 0)
        f.setFontPointSize(StandardFontsize);
    f.setFontWeight(StandardFontBold ? QFont::Bold : QFont::Normal);
    f.setFontUnderline(StandardFontUnderline);
    f.setFontStrikeOut(StandardFontStrikethru);
    f.setFontItalic(StandardFontItalic);
    f.setForeground(NummerFarbe(StandardColor));
    text->mergeCurrentCharFormat(f);
}

void Textfenster::ZeichenUmschalten(QTextEdit* text, const std::function<bool(const QTextCharFormat&)>& gesetzt,
                                   const std::function<void(QTextCharFormat&, bool)>& setzen)
{
    // Only a state that holds for the whole selection is switched off; a mixed one is set.
    QTextCharFormat f;
    setzen(f, Zeichenzustand(text, gesetzt) != 1);
    text->mergeCurrentCharFormat(f);
}

void Textfenster::VersatzSetzen(QTextEdit* text, int twips)
{
    const QFont standard = text->document()->defaultFont();
    QTextCursor c = text->textCursor();
    if (!c.hasSelection()) {
        text->mergeCurrentCharFormat(Versatzformat(twips, Punktgroesse(c.charFormat(), standard)));
        return;
    }
    // The offset is kept relative to the font size, so each run gets its own.
    struct Stueck {
        int von;
        int bis;
        qreal punkte;
    };
    std::vector<Stueck> stuecke;
    const int von = c.selectionStart();
    const int bis = c.selectionEnd();
    for (QTextBlock b = text->document()->findBlock(von); b.isValid() && b.position() < bis; b = b.next())
        for (auto it = b.begin(); !it.atEnd(); ++it) {
            const QTextFragment f = it.fragment();
            const int a = std::max(von, f.position());
            const int e = std::min(bis, f.position() + f.length());
            if (a < e)
                stuecke.push_back({a, e, Punktgroesse(f.charFormat(), standard)});
        }
    QTextCursor k(text->document());
    k.beginEditBlock();
    for (const Stueck& s : stuecke) {
        k.setPosition(s.von);
        k.setPosition(s.bis, QTextCursor::KeepAnchor);
        k.mergeCharFormat(Versatzformat(twips, s.punkte));
    }
    k.endEditBlock();
}

void Textfenster::Aufzaehlung(QTextEdit* text)
{
    QTextDocument* dokument = text->document();
    const QTextCursor c = text->textCursor();
    const QTextBlock erster = dokument->findBlock(c.selectionStart());
    const QTextBlock letzter = dokument->findBlock(c.selectionEnd());
    std::vector<QTextBlock> absaetze;
    bool mit = false;
    bool ohne = false;
    for (QTextBlock b = erster; b.isValid(); b = b.next()) {
        absaetze.push_back(b);
        (b.textList() ? mit : ohne) = true;
        if (b == letzter)
            break;
    }
    if (mit && ohne) {
        MsgNimb(QStringLiteral("Absätze mit und ohne Aufzählungspunkten wurden markiert, das geht nicht."), 1, 0,
                QStringLiteral("Aufzählungsstil mit Punkten"), 0);
        return;
    }
    QTextCursor k(dokument);
    k.beginEditBlock();
    if (mit) {
        for (const QTextBlock& b : absaetze) {
            QTextBlockFormat vorher = b.blockFormat();
            if (QTextList* liste = b.textList())
                liste->remove(b);
            // The text goes back where it stood before the bullet.
            vorher.setObjectIndex(-1);
            vorher.clearProperty(RtfEigenschaft::ErstzeileTwips);
            QTextCursor(b).setBlockFormat(vorher);
        }
    } else {
        QTextListFormat format;
        format.setStyle(QTextListFormat::ListDisc);
        // Room for the bullet left of the text.
        format.setIndent(1);
        k.setPosition(erster.position());
        k.setPosition(letzter.position(), QTextCursor::KeepAnchor);
        k.createList(format);
    }
    k.endEditBlock();
}

void Textfenster::Ausrichten(QTextEdit* text, Qt::Alignment ausrichtung)
{
    text->setAlignment(ausrichtung);
}

void Textfenster::mnuSchriftTiefgestellt_Click()
{
    if (QTextEdit* text = AktivesTextfenster()) {
        VersatzSetzen(text, -30);
        text->setFocus();
    }
}

void Textfenster::mnuSchriftHochgestellt_Click()
{
    if (QTextEdit* text = AktivesTextfenster()) {
        VersatzSetzen(text, 30);
        text->setFocus();
    }
}

void Textfenster::mnuSchriftDurchstrichen_Click()
{
    if (QTextEdit* text = AktivesTextfenster()) {
        const bool standard = text->document()->defaultFont().strikeOut();
        ZeichenUmschalten(
            text,
            [standard](const QTextCharFormat& f) {
                return f.hasProperty(QTextFormat::FontStrikeOut) ? f.fontStrikeOut() : standard;
            },
            [](QTextCharFormat& f, bool an) { f.setFontStrikeOut(an); });
        text->setFocus();
    }
}

void Textfenster::mnuRandLinks_Click() { RandSetzen(true); }

void Textfenster::mnuRandRechts_Click() { RandSetzen(false); }

void Textfenster::RandSetzen(bool links)
{
    QTextEdit* text = AktivesTextfenster();
    if (!text)
        return;
    const QString schluessel = links ? QStringLiteral("SeitenrandLinks") : QStringLiteral("SeitenrandRechts");
    const QString vorgabe = QString::number(Val(Lesen(schluessel, links ? QStringLiteral("50") : QStringLiteral("100"))));
    const QString antwort = links
        ? InputNimb(QStringLiteral("Wie weit soll der Text vom linken Textrand entfernt sein?"),
                    QStringLiteral("Texteinzug links"), vorgabe)
        : InputNimb(QStringLiteral("Wie weit soll der Text vom rechten Textrand entfernt sein?"),
                    QStringLiteral("Texteinzug rechts"), vorgabe);
    if (antwort.isEmpty())
        return;
    // Twips, within what a page can hold.
    const double rand = double(RtfRunden(Val(antwort), 0, RtfMaxTwips)) / TwipsProPixel;
    QTextBlockFormat einzug;
    if (links)
        einzug.setLeftMargin(rand);
    else
        einzug.setRightMargin(rand);
    text->textCursor().mergeBlockFormat(einzug);
    text->setFocus();
    Speichern(schluessel, antwort);
}

void Textfenster::TextSuchen(QTextEdit* text, bool weiter)
{
    if (text != box.TextSongs && text != box.txtSongText)
        return;
    if (!weiter) {
        QString vorgabe = text->textCursor().selectedText();
        if (!vorgabe.isEmpty()) {
            vorgabe.replace(QChar::ParagraphSeparator, u'\n');
            m_suchText = vorgabe;
        }
        const QString antwort = InputNimb(QStringLiteral("Suchtext eingeben"), QStringLiteral("Suchbox"), m_suchText);
        if (antwort.isEmpty())
            return;
        m_suchText = antwort;
        m_suchStart = 1;
    }
    const QString inhalt = text->toPlainText();
    const qsizetype stelle =
        m_suchText.isEmpty() ? -1 : inhalt.indexOf(m_suchText, std::max<qsizetype>(m_suchStart - 1, 0), Qt::CaseInsensitive);
    if (stelle < 0) {
        if (weiter)
            MsgNimb(QStringLiteral("Alles durchsucht, Suche beendet."), 1, 0, m_suchText, 0);
        else
            MsgNimb(m_suchText + QStringLiteral(" nicht gefunden"), 1, 0, QStringLiteral("Volltextsuche"), 0);
        return;
    }
    text->setFocus();
    QTextCursor c(text->document());
    c.setPosition(int(stelle));
    c.setPosition(int(std::min(stelle + m_suchText.size(), inhalt.size())), QTextCursor::KeepAnchor);
    text->setTextCursor(c);
    text->ensureCursorVisible();
    m_suchStart = stelle + m_suchText.size() + 1;
}
