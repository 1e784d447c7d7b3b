#include "shell/Mausrad.h"

#include "catalogue/FlexGrid.h"

#include <QAbstractSlider>
#include <QApplication>
#include <QComboBox>
#include <QLineEdit>
#include <QListView>
#include <QPlainTextEdit>
#include <QScrollBar>
#include <QTextEdit>
#include <QWheelEvent>

namespace {
constexpr int AnzahlPlaetze = 50;
constexpr int Zeichenschritt = 50;

// The caret of a text pane moves by 50 characters, which scrolls the pane.
template <class Textfenster>
void caretSchritt(Textfenster* text, bool hoch)
{
    QTextCursor c = text->textCursor();
    const int laenge = text->document()->characterCount() - 1;
    if (hoch && c.position() > Zeichenschritt)
        c.setPosition(c.position() - Zeichenschritt);
    else if (!hoch && laenge - Zeichenschritt > c.position())
        c.setPosition(c.position() + Zeichenschritt);
    else
        return;
    text->setTextCursor(c);
    text->ensureCursorVisible();
}
} // namespace

Mausrad& Mausrad::instanz()
{
    static Mausrad rad;
    return rad;
}

QString Mausrad::Klasse(const QWidget* w)
{
    if (qobject_cast<const FlexGrid*>(w))
        return QStringLiteral("flexgrid");
    if (qobject_cast<const QScrollBar*>(w))
        return QStringLiteral("scrollbar");
    if (qobject_cast<const QAbstractSlider*>(w))
        return QStringLiteral("slider");
    if (qobject_cast<const QComboBox*>(w))
        return QStringLiteral("combobox");
    // A list view of rows and columns has no step of its own.
    if (qobject_cast<const QListView*>(w))
        return QStringLiteral("listbox");
    if (qobject_cast<const QLineEdit*>(w))
        return QStringLiteral("textbox");
    if (qobject_cast<const QTextEdit*>(w) || qobject_cast<const QPlainTextEdit*>(w))
        return QStringLiteral("richtext");
    return {};
}

void Mausrad::MausradEin(QWidget* fenster)
{
    if (!fenster)
        return;
    MausradAus();
    for (QWidget* w : fenster->findChildren<QWidget*>()) {
        if (w->objectName().isEmpty() || w->objectName().startsWith(u"qt_"))
            continue;
        const QString klasse = Klasse(w);
        if (klasse.isEmpty())
            continue;
        if (int(m_plaetze.size()) >= AnzahlPlaetze)
            break;
        m_plaetze.push_back({w, klasse});
    }
    qApp->installEventFilter(this);
}

void Mausrad::MausradAus()
{
    qApp->removeEventFilter(this);
    m_plaetze.clear();
    m_rest = 0;
}

int Mausrad::AnzahlEingehakt() const { return int(m_plaetze.size()); }

void Mausrad::Schritt(QWidget* w, const QString& klasse, bool hoch)
{
    if (klasse == u"slider" || klasse == u"scrollbar") {
        auto* s = static_cast<QAbstractSlider*>(w);
        if (hoch && s->value() > s->minimum())
            s->setValue(s->value() - 1);
        else if (!hoch && s->value() < s->maximum())
            s->setValue(s->value() + 1);
    } else if (klasse == u"listbox") {
        auto* l = static_cast<QListView*>(w);
        const int anzahl = l->model() ? l->model()->rowCount(l->rootIndex()) : 0;
        const QModelIndex oben = l->indexAt(QPoint(1, 1));
        const int top = oben.isValid() ? oben.row() : 0;
        const int neu = hoch ? (top > 0 ? top - 1 : top) : (top < anzahl ? top + 1 : top);
        if (neu != top && neu < anzahl)
            l->scrollTo(l->model()->index(neu, 0, l->rootIndex()), QAbstractItemView::PositionAtTop);
    } else if (klasse == u"combobox") {
        // A closed box has no visible top entry: the step changes nothing.
    } else if (klasse == u"flexgrid") {
        auto* g = static_cast<FlexGrid*>(w);
        const int top = g->TopRow();
        if (hoch && top > 1)
            g->setTopRow(top - 1);
        else if (!hoch && top < g->Rows() - 1)
            g->setTopRow(top + 1);
    } else if (auto* zeile = qobject_cast<QLineEdit*>(w)) {
        const int pos = zeile->cursorPosition();
        if (hoch && pos > Zeichenschritt)
            zeile->setCursorPosition(pos - Zeichenschritt);
        else if (!hoch && int(zeile->text().size()) - Zeichenschritt > pos)
            zeile->setCursorPosition(pos + Zeichenschritt);
    } else if (auto* text = qobject_cast<QTextEdit*>(w)) {
        caretSchritt(text, hoch);
    } else if (auto* plain = qobject_cast<QPlainTextEdit*>(w)) {
        caretSchritt(plain, hoch);
    }
}

bool Mausrad::eventFilter(QObject* objekt, QEvent* ereignis)
{
    if (ereignis->type() != QEvent::Wheel || !objekt->isWidgetType())
        return false;
    auto* e = static_cast<QWheelEvent*>(ereignis);
    const int delta = e->angleDelta().y();
    if (delta == 0)
        return false;
    // The wheel reaches the viewport or a scroll bar inside; the hooked control is the
    // nearest hooked ancestor.
    for (auto* w = static_cast<QWidget*>(objekt); w; w = w->parentWidget()) {
        for (const Platz& p : m_plaetze) {
            if (p.steuerelement != w)
                continue;
            // Fine-grained wheels send parts of a notch: a step per whole notch.
            m_rest += delta;
            while (m_rest >= 120 || m_rest <= -120) {
                const bool hoch = m_rest > 0;
                m_rest += hoch ? -120 : 120;
                Schritt(w, p.klasse, hoch);
            }
            return true;
        }
        if (w->isWindow())
            break;
    }
    return false;
}
