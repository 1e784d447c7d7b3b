// The formatting row, the font menu and the search of the text panes: each acts on the
// selection of the pane that last had the focus, and gives the focus back to it.
#include "media/Textfenster.h"

#include "shell/Ausgabebox.h"

#include "media/Rtf.h"
#include "media/Textformat.h"
#include "platform/Dialogdienst.h"
#include "platform/Dienste.h"
#include "platform/Einheiten.h"
#include "platform/Laufzeitfehler.h"

#include <QTextBlock>
#include <QTextCursor>
#include <QTextDocument>
#include <QTextEdit>

#include <vector>

namespace {

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
            FettUmschalten(text);
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
            AufzaehlungUmschalten(text);
            break;
        case 12:
            text->setAlignment(Qt::AlignLeft);
            break;
        case 13:
            text->setAlignment(Qt::AlignHCenter);
            break;
        case 14:
            text->setAlignment(Qt::AlignRight);
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
    SchriftAnwenden(text, auswahl.schrift);
}

void Textfenster::FarbeWaehlen(QTextEdit* text)
{
    QColor farbe = m_dialogFarbe;
    if (!D().dialoge().Farbe(farbe) || !farbe.isValid())
        throw Laufzeitfehler(Fehlernummer::DialogAbgebrochen);
    m_dialogFarbe = farbe;
    FarbeAnwenden(text, farbe);
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
    if (QTextEdit* text = AktivesTextfenster())
        TextrandSetzen(text, links, links ? QStringLiteral("SeitenrandLinks") : QStringLiteral("SeitenrandRechts"),
                       links ? QStringLiteral("50") : QStringLiteral("100"));
}

void Textfenster::TextSuchen(QTextEdit* text, bool weiter)
{
    if (text == box.TextSongs || text == box.txtSongText)
        m_suche.Suchen(text, weiter);
}
