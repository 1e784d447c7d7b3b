#include "media/Textformat.h"

#include "media/Rtf.h"
#include "media/RtfIntern.h"
#include "platform/Dialogdienst.h"
#include "platform/Einheiten.h"
#include "shell/Einstellungen.h"
#include "shell/Grundregeln.h"

#include <QTextBlock>
#include <QTextCursor>
#include <QTextDocument>
#include <QTextEdit>
#include <QTextList>

#include <algorithm>
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

} // namespace

void ZeichenUmschalten(QTextEdit* text, const std::function<bool(const QTextCharFormat&)>& gesetzt,
                       const std::function<void(QTextCharFormat&, bool)>& setzen)
{
    QTextCharFormat f;
    setzen(f, Zeichenzustand(text, gesetzt) != 1);
    text->mergeCurrentCharFormat(f);
}

void FettUmschalten(QTextEdit* text)
{
    const QFont standard = text->document()->defaultFont();
    ZeichenUmschalten(
        text,
        [standard](const QTextCharFormat& f) {
            return (f.hasProperty(QTextFormat::FontWeight) ? f.fontWeight() : standard.weight()) >= QFont::DemiBold;
        },
        [](QTextCharFormat& f, bool an) { f.setFontWeight(an ? QFont::Bold : QFont::Normal); });
}

void SchriftAnwenden(QTextEdit* text, const QFont& schrift)
{
    QTextCharFormat f;
    f.setFontFamilies(QStringList{schrift.family()});
    if (schrift.pointSizeF() > 0)
        f.setFontPointSize(schrift.pointSizeF());
    f.setFontWeight(schrift.bold() ? QFont::Bold : QFont::Normal);
    f.setFontItalic(schrift.italic());
    f.setFontStrikeOut(schrift.strikeOut());
    f.setFontUnderline(schrift.underline());
    text->mergeCurrentCharFormat(f);
}

void FarbeAnwenden(QTextEdit* text, const QColor& farbe)
{
    QTextCharFormat f;
    f.setForeground(farbe);
    text->mergeCurrentCharFormat(f);
}

bool AufzaehlungUmschalten(QTextEdit* text)
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
        return false;
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
    return true;
}

bool TextrandSetzen(QTextEdit* text, bool links, const QString& schluessel, const QString& vorgabe)
{
    const QString zuletzt = QString::number(Val(Lesen(schluessel, vorgabe)));
    const QString antwort = links
        ? InputNimb(QStringLiteral("Wie weit soll der Text vom linken Textrand entfernt sein?"),
                    QStringLiteral("Texteinzug links"), zuletzt)
        : InputNimb(QStringLiteral("Wie weit soll der Text vom rechten Textrand entfernt sein?"),
                    QStringLiteral("Texteinzug rechts"), zuletzt);
    if (antwort.isEmpty())
        return false;
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
    return true;
}

void Volltextsuche::Suchen(QTextEdit* text, bool weiter)
{
    if (!weiter) {
        QString vorgabe = text->textCursor().selectedText();
        if (!vorgabe.isEmpty()) {
            vorgabe.replace(QChar::ParagraphSeparator, u'\n');
            m_text = vorgabe;
        }
        const QString antwort = InputNimb(QStringLiteral("Suchtext eingeben"), QStringLiteral("Suchbox"), m_text);
        if (antwort.isEmpty())
            return;
        m_text = antwort;
        m_start = 1;
    }
    const QString inhalt = text->toPlainText();
    const qsizetype stelle =
        m_text.isEmpty() ? -1 : inhalt.indexOf(m_text, std::max<qsizetype>(m_start - 1, 0), Qt::CaseInsensitive);
    if (stelle < 0) {
        if (weiter)
            MsgNimb(QStringLiteral("Alles durchsucht, Suche beendet."), 1, 0, m_text, 0);
        else
            MsgNimb(m_text + QStringLiteral(" nicht gefunden"), 1, 0, QStringLiteral("Volltextsuche"), 0);
        return;
    }
    text->setFocus();
    QTextCursor c(text->document());
    c.setPosition(int(stelle));
    c.setPosition(int(std::min(stelle + m_text.size(), inhalt.size())), QTextCursor::KeepAnchor);
    text->setTextCursor(c);
    text->ensureCursorVisible();
    m_start = stelle + m_text.size() + 1;
}
