#include "shell/Steuerelemente.h"

#include "shell/Einstellungen.h"
#include "shell/Grundregeln.h"

#include <QAction>
#include <QCheckBox>
#include <QCollator>
#include <QDir>
#include <QFontInfo>
#include <QKeyEvent>
#include <QMouseEvent>
#include <QPushButton>

#include <algorithm>
#include <utility>
#include <vector>
#include <limits>

QPushButton* Befehlsknopf(QWidget* eltern, const QString& name, const QString& text, const QString& tipp)
{
    auto* k = new QPushButton(text, eltern);
    k->setObjectName(name);
    k->setAutoDefault(false);
    if (!tipp.isEmpty())
        k->setToolTip(tipp);
    return k;
}

void ProgrammschriftSetzen(QWidget* feld, std::initializer_list<QWidget*> andere)
{
    QFont schrift = feld->font();
    schrift.setFamily(Lesen(QStringLiteral("ProgSchriftName"), QStringLiteral("Segoe UI")));
    if (const auto v = Zahl(Lesen(QStringLiteral("ProgSchriftSize"), QStringLiteral("10"))); v && *v > 0 && *v < 200)
        schrift.setPointSizeF(*v);
    feld->setFont(schrift);
    for (QWidget* w : andere) {
        QFont gleich = w->font();
        gleich.setFamily(QFontInfo(feld->font()).family());
        gleich.setPointSizeF(feld->font().pointSizeF());
        w->setFont(gleich);
    }
}

void KlickVerbinden(QCheckBox* kasten, const QObject* kontext, std::function<void()> handler)
{
    QObject::connect(kasten, &QCheckBox::stateChanged, kontext, [handler = std::move(handler)](int) { handler(); });
}

void BefehlVerbinden(QAction* eintrag, const QObject* kontext, std::function<void()> befehl)
{
    eintrag->setEnabled(true);
    QObject::connect(eintrag, &QAction::triggered, kontext, [befehl = std::move(befehl)] { befehl(); });
}

void BefehlVerbinden(QAction* eintrag, const QObject* kontext, std::function<void(bool)> befehl)
{
    eintrag->setEnabled(true);
    QObject::connect(eintrag, &QAction::triggered, kontext, [befehl = std::move(befehl)](bool haken) { befehl(haken); });
}

// ---- Dateiliste ----

Dateiliste::Dateiliste(QWidget* eltern)
    : QListWidget(eltern)
{
    setSelectionMode(QAbstractItemView::ExtendedSelection);
    setUniformItemSizes(true);
}

void Dateiliste::setPath(const QString& ordner)
{
    m_pfad = ordner;
    Refresh();
}

void Dateiliste::setPattern(const QString& muster)
{
    m_muster = muster;
    Refresh();
}

void Dateiliste::Refresh()
{
    QStringList filter;
    for (const QString& teil : m_muster.split(u';', Qt::SkipEmptyParts)) {
        // "*.*" means every file, names without a dot included.
        const QString t = teil.trimmed();
        filter << (t == u"*.*" ? QStringLiteral("*") : t);
    }
    QStringList namen;
    if (!m_pfad.isEmpty()) {
        QDir ordner(m_pfad);
        ordner.setNameFilters(filter);
        ordner.setFilter(QDir::Files | QDir::Readable);
        ordner.setSorting(QDir::Unsorted);
        namen = ordner.entryList();
    }
    // Made once: the list is read at every record move.
    static const QCollator sortierung = [] {
        QCollator c;
        c.setCaseSensitivity(Qt::CaseInsensitive);
        return c;
    }();
    // A folder of tens of thousands of covers: each name's key is made once, not at every
    // comparison. Keys of some platforms keep the case, so they are made of the lower case.
    std::vector<std::pair<QCollatorSortKey, qsizetype>> schluessel;
    schluessel.reserve(size_t(namen.size()));
    for (qsizetype i = 0; i < namen.size(); ++i)
        schluessel.emplace_back(sortierung.sortKey(namen[i].toLower()), i);
    std::sort(schluessel.begin(), schluessel.end(), [&](const auto& a, const auto& b) {
        const int c = a.first.compare(b.first);
        return c != 0 ? c < 0 : namen[a.second] < namen[b.second];
    });
    QStringList sortiert;
    sortiert.reserve(namen.size());
    for (const auto& [k, i] : schluessel)
        sortiert << namen[i];
    namen = std::move(sortiert);
    const bool alt = blockSignals(true);
    clear();
    addItems(namen);
    blockSignals(alt);
}

QString Dateiliste::List(int i) const
{
    const QListWidgetItem* eintrag = item(i);
    return eintrag ? eintrag->text() : QString();
}

void Dateiliste::setListIndex(int i)
{
    setCurrentRow(i, QItemSelectionModel::NoUpdate);
}

bool Dateiliste::Selected(int i) const
{
    const QListWidgetItem* eintrag = item(i);
    return eintrag && eintrag->isSelected();
}

void Dateiliste::setSelected(int i, bool an)
{
    if (QListWidgetItem* eintrag = item(i))
        eintrag->setSelected(an);
}

void Dateiliste::mouseDoubleClickEvent(QMouseEvent* e)
{
    QListWidget::mouseDoubleClickEvent(e);
    if (e->button() == Qt::LeftButton && itemAt(e->position().toPoint()))
        emit DblClick();
}

// ---- Bildfeld ----

Bildfeld::Bildfeld(QWidget* eltern)
    : QLabel(eltern)
{
    setAlignment(Qt::AlignCenter);
}

void Bildfeld::setStretch(bool an)
{
    m_stretch = an;
    anzeigen();
}

void Bildfeld::setVerhaeltnisBehalten(bool an)
{
    m_verhaeltnis = an;
    anzeigen();
}

void Bildfeld::setBild(const QPixmap& bild)
{
    m_bild = bild;
    anzeigen();
}

void Bildfeld::anzeigen()
{
    if (m_bild.isNull() || !m_stretch || size().isEmpty()) {
        setPixmap(m_bild);
        return;
    }
    setPixmap(m_bild.scaled(contentsRect().size(), m_verhaeltnis ? Qt::KeepAspectRatio : Qt::IgnoreAspectRatio,
                            Qt::SmoothTransformation));
}

void Bildfeld::mousePressEvent(QMouseEvent* e) { emit MouseDown(e->button()); }

void Bildfeld::mouseReleaseEvent(QMouseEvent* e)
{
    emit MouseUp(e->button());
    if (e->button() == Qt::LeftButton && rect().contains(e->position().toPoint()))
        emit Click();
}

void Bildfeld::mouseDoubleClickEvent(QMouseEvent* e)
{
    if (e->button() == Qt::LeftButton)
        emit DblClick();
}

void Bildfeld::resizeEvent(QResizeEvent* e)
{
    QLabel::resizeEvent(e);
    if (m_stretch)
        anzeigen();
}

// ---- Bildknopf ----

Bildknopf::Bildknopf(QWidget* eltern)
    : QToolButton(eltern)
{
    setAutoRaise(true);
    setFocusPolicy(Qt::NoFocus);
    setToolButtonStyle(Qt::ToolButtonIconOnly);
}

void Bildknopf::mousePressEvent(QMouseEvent* e)
{
    QToolButton::mousePressEvent(e);
    // Keep the right button too, so that its release reaches this button.
    e->accept();
}

void Bildknopf::mouseReleaseEvent(QMouseEvent* e)
{
    QToolButton::mouseReleaseEvent(e);
    if (rect().contains(e->position().toPoint()))
        emit MouseUp(e->button());
}

// ---- Textfeld ----

Textfeld::Textfeld(QWidget* eltern)
    : QLineEdit(eltern)
{
    // The line edit's own limit of 32,767 characters would cut a long field just by
    // showing it, and the cut text would then be written back.
    setMaxLength(std::numeric_limits<int>::max());
}

void Textfeld::setText(const QString& t)
{
    if (t != text())
        QLineEdit::setText(t);
}

void Textfeld::keyPressEvent(QKeyEvent* e)
{
    if (m_enterSchlucken && (e->key() == Qt::Key_Return || e->key() == Qt::Key_Enter)) {
        e->accept();
        return;
    }
    if (!m_geschluckt.isEmpty() && e->text().size() == 1 && m_geschluckt.contains(e->text())
        && !(e->modifiers() & (Qt::ControlModifier | Qt::AltModifier))) {
        e->accept();
        return;
    }
    QLineEdit::keyPressEvent(e);
}

void Textfeld::focusInEvent(QFocusEvent* e)
{
    QLineEdit::focusInEvent(e);
    emit GotFocus();
}

void Textfeld::focusOutEvent(QFocusEvent* e)
{
    QLineEdit::focusOutEvent(e);
    emit LostFocus();
}

// ---- Statusleiste ----

Statusleiste::Statusleiste(const std::vector<int>& breiten, QWidget* eltern)
    : QStatusBar(eltern)
{
    setSizeGripEnabled(true);
    int nr = 1;
    for (const int breite : breiten) {
        auto* panel = new QLabel(this);
        panel->setObjectName(QStringLiteral("Panel(%1)").arg(nr++));
        panel->setFrameStyle(QFrame::Panel | QFrame::Sunken);
        panel->setContentsMargins(4, 0, 4, 0);
        panel->setTextFormat(Qt::PlainText);
        if (breite > 0)
            panel->setFixedWidth(breite);
        else
            panel->setMinimumWidth(60);
        addPermanentWidget(panel, breite > 0 ? 0 : 1);
        m_panels.push_back(panel);
    }
}

QLabel* Statusleiste::Panel(int nr) const
{
    if (nr < 1 || nr > int(m_panels.size()))
        return nullptr;
    return m_panels[size_t(nr - 1)];
}

QString Statusleiste::PanelText(int nr) const
{
    const QLabel* p = Panel(nr);
    return p ? p->text() : QString();
}

void Statusleiste::setPanelText(int nr, const QString& text)
{
    QLabel* p = Panel(nr);
    if (!p || p->text() == text)
        return;
    p->setText(text);
    p->setToolTip(text);
    emit PanelGeaendert(nr, text);
}

void Statusleiste::setBevel(int nr, int art)
{
    if (QLabel* p = Panel(nr))
        p->setFrameStyle(QFrame::Panel | (art == 1 ? QFrame::Sunken : QFrame::Raised));
}

void Statusleiste::mouseDoubleClickEvent(QMouseEvent* e)
{
    QStatusBar::mouseDoubleClickEvent(e);
    emit DblClick();
}
