#include "catalogue/FlexGrid.h"

#include "catalogue/Recordset.h"
#include "catalogue/Textregeln.h"
#include "platform/Einheiten.h"

#include <QAbstractTableModel>
#include <QHeaderView>
#include <QKeyEvent>
#include <QMouseEvent>
#include <QScrollBar>
#include <QToolTip>

#include <algorithm>

// The recordset seen through a column order. Row r of the model is grid row r + 1.
class FlexGridModell : public QAbstractTableModel {
public:
    using QAbstractTableModel::QAbstractTableModel;

    Recordset* rs = nullptr;
    std::vector<int> felder; // grid column -> recordset field
    int zeilen = 0;

    // Without a recordset the columns stay, empty, as many as before.
    void neu(Recordset* r, int spaltenBisher)
    {
        beginResetModel();
        rs = r;
        felder.clear();
        zeilen = 0;
        // A picture column has no text to show: the table leaves it out.
        if (rs) {
            for (int i = 0; i < rs->FieldCount(); ++i)
                if (!rs->IstBild(i))
                    felder.push_back(i);
        } else {
            felder.assign(size_t(spaltenBisher), -1);
        }
        if (rs)
            zeilen = rs->RecordCount();
        endResetModel();
    }

    int rowCount(const QModelIndex& p = {}) const override { return p.isValid() ? 0 : zeilen; }
    int columnCount(const QModelIndex& p = {}) const override
    {
        return p.isValid() ? 0 : int(felder.size());
    }

    QString kopf(int spalte) const
    {
        if (!rs || spalte < 0 || spalte >= int(felder.size()) || felder[size_t(spalte)] < 0)
            return {};
        return rs->FieldNames().value(felder[size_t(spalte)]);
    }

    QString zelle(int zeile, int spalte) const
    {
        if (!rs || zeile < 0 || zeile >= zeilen || spalte < 0 || spalte >= int(felder.size())
            || felder[size_t(spalte)] < 0)
            return {};
        const QVariant wert = rs->Wert(zeile, felder[size_t(spalte)]);
        if (wert.typeId() == QMetaType::QByteArray)
            return {}; // a picture has no text
        return wert.toString();
    }

    QVariant data(const QModelIndex& index, int rolle) const override
    {
        if (rolle != Qt::DisplayRole)
            return {};
        QString text = zelle(index.row(), index.column());
        // One line, as a cell shows it; long rich text would only cost painting time.
        for (qsizetype i = 0; i < text.size(); ++i)
            if (text[i] == u'\r' || text[i] == u'\n') {
                text.truncate(i);
                break;
            }
        if (text.size() > 300)
            text.truncate(300);
        return text;
    }

    QVariant headerData(int abschnitt, Qt::Orientation richtung, int rolle) const override
    {
        if (rolle != Qt::DisplayRole)
            return {};
        if (richtung == Qt::Horizontal)
            return kopf(abschnitt);
        return abschnitt + 1;
    }

    void spaltenGeaendert()
    {
        emit headerDataChanged(Qt::Horizontal, 0, std::max(0, columnCount() - 1));
        if (zeilen > 0 && columnCount() > 0)
            emit dataChanged(index(0, 0), index(zeilen - 1, columnCount() - 1));
    }

    void zeileNeu(int z)
    {
        if (z < 0 || z > zeilen)
            return;
        beginInsertRows({}, z, z);
        ++zeilen;
        endInsertRows();
    }
    void zeileWeg(int z)
    {
        if (z < 0 || z >= zeilen)
            return;
        beginRemoveRows({}, z, z);
        --zeilen;
        endRemoveRows();
    }
    void zeileAnders(int z)
    {
        if (z >= 0 && z < zeilen && columnCount() > 0)
            emit dataChanged(index(z, 0), index(z, columnCount() - 1));
    }
};

namespace {
constexpr int StandardBreite = 1000; // twips
constexpr int EntwurfSpalten = 18;   // the text columns of a catalogue
}

FlexGrid::FlexGrid(QWidget* eltern)
    : QTableView(eltern)
    , m_modell(new FlexGridModell(this))
{
    setModel(m_modell);
    setSelectionMode(QAbstractItemView::ExtendedSelection);
    setSelectionBehavior(QAbstractItemView::SelectItems);
    setEditTriggers(QAbstractItemView::NoEditTriggers);
    setVerticalScrollMode(QAbstractItemView::ScrollPerItem);
    setHorizontalScrollMode(QAbstractItemView::ScrollPerPixel);
    setWordWrap(false);
    setTextElideMode(Qt::ElideNone);
    setCornerButtonEnabled(false);
    verticalHeader()->hide();
    verticalHeader()->setSectionResizeMode(QHeaderView::Fixed);
    verticalHeader()->setMinimumSectionSize(1);
    verticalHeader()->setDefaultSectionSize(fontMetrics().height() + 4);
    horizontalHeader()->setSectionsClickable(false);
    horizontalHeader()->setHighlightSections(false);
    horizontalHeader()->setMinimumSectionSize(0);
    horizontalHeader()->setDefaultSectionSize(Px(StandardBreite));
    horizontalHeader()->viewport()->installEventFilter(this);
    viewport()->setMouseTracking(true);
    // The grid has its columns before any catalogue is open, so that the stored widths
    // can be applied at start and survive the first refresh.
    m_twips.assign(EntwurfSpalten, StandardBreite);
    setRecordset(nullptr);
}

FlexGrid::~FlexGrid() = default;

void FlexGrid::setRecordset(Recordset* rs)
{
    m_intern = true;
    m_modell->neu(rs, int(m_twips.size()));
    // Widths belong to positions and survive a rebuild; new positions get the standard.
    m_twips.resize(size_t(Cols()), StandardBreite);
    for (int c = 0; c < Cols(); ++c)
        setColWidth(c, m_twips[size_t(c)]);
    m_row = m_rowSel = Rows() > 1 ? 1 : 0;
    m_col = m_colSel = 0;
    if (m_row > 0 && Cols() > 0)
        selectionModel()->setCurrentIndex(m_modell->index(0, 0), QItemSelectionModel::NoUpdate);
    auswahlZeigen();
    m_intern = false;
}

Recordset* FlexGrid::recordset() const { return m_modell->rs; }

void FlexGrid::zeileGeaendert(int datensatz) { m_modell->zeileAnders(datensatz); }
void FlexGrid::zeileAngehaengt(int datensatz) { m_modell->zeileNeu(datensatz); }

void FlexGrid::zeileEntfernt(int datensatz)
{
    m_intern = true;
    m_modell->zeileWeg(datensatz);
    const int letzte = Rows() - 1;
    m_row = std::min(m_row, letzte);
    m_rowSel = std::min(m_rowSel, letzte);
    m_intern = false;
}

int FlexGrid::Rows() const { return m_modell->zeilen + 1; }
int FlexGrid::Cols() const { return m_modell->columnCount(); }

QString FlexGrid::TextMatrix(int zeile, int spalte) const
{
    if (zeile == 0)
        return m_modell->kopf(spalte);
    return m_modell->zelle(zeile - 1, spalte);
}

int FlexGrid::SpalteSuchen(const QString& kopf) const
{
    for (int c = 0; c < Cols(); ++c)
        if (TextMatrix(0, c) == kopf)
            return c;
    return -1;
}

int FlexGrid::Feld(int spalte) const
{
    if (spalte < 0 || spalte >= Cols())
        return -1;
    return m_modell->felder[size_t(spalte)];
}

QString FlexGrid::SqlName(int spalte) const
{
    QString name = TextMatrix(0, spalte);
    name.replace(u'"', QStringLiteral("\"\""));
    return u'"' + name + u'"';
}

int FlexGrid::ZeileSuchen(const QString& bedingung, const QVariantList& werte,
                          const std::function<bool(int zeile)>& passt) const
{
    const Recordset* rs = m_modell->rs;
    return ZeileSuchen(rs ? rs->RowIds(bedingung, werte) : std::nullopt, passt);
}

int FlexGrid::TextSuchen(const QString& begriff, const std::function<bool(int zeile)>& passt) const
{
    const Recordset* rs = m_modell->rs;
    if (!rs)
        return ZeileSuchen(std::nullopt, passt);
    QStringList koepfe;
    for (int c = 0; c < Cols(); ++c)
        koepfe << TextMatrix(0, c);
    if (auto kandidaten = rs->TextKandidaten(begriff, koepfe))
        return ZeileSuchen(kandidaten, passt);
    QStringList klauseln;
    for (int c = 0; c < Cols(); ++c)
        klauseln << SqlName(c) + QStringLiteral(" GLOB ?1");
    return ZeileSuchen(klauseln.join(QStringLiteral(" OR ")), {u'*' + GlobOhneGrossKlein(begriff) + u'*'}, passt);
}

int FlexGrid::ZeileSuchen(const std::optional<QSet<qint64>>& kandidaten,
                          const std::function<bool(int zeile)>& passt) const
{
    const Recordset* rs = m_modell->rs;
    // Only the rows that can match are read, in the recordset's order; where the catalogue
    // cannot be asked, every row is.
    if (rs && kandidaten) {
        for (int position = rs->ErstePosition(*kandidaten); position >= 0;
             position = rs->ErstePosition(*kandidaten, position + 1))
            if (passt(position + 1))
                return position + 1;
        return -1;
    }
    for (int zeile = 1; zeile < Rows(); ++zeile)
        if (passt(zeile))
            return zeile;
    return -1;
}

void FlexGrid::setRow(int zeile)
{
    if (zeile >= 0 && zeile < Rows())
        zelleSetzen(zeile, m_col, true);
}

void FlexGrid::setCol(int spalte)
{
    if (spalte >= 0 && spalte < Cols())
        zelleSetzen(m_row, spalte, true);
}

void FlexGrid::setRowSel(int zeile)
{
    if (zeile < 0 || zeile >= Rows())
        return;
    m_rowSel = zeile;
    auswahlZeigen();
}

void FlexGrid::setColSel(int spalte)
{
    if (spalte < 0 || spalte >= Cols())
        return;
    m_colSel = spalte;
    auswahlZeigen();
}

void FlexGrid::zelleSetzen(int zeile, int spalte, bool anker)
{
    const bool anders = zeile != m_row || spalte != m_col;
    if (anker) {
        m_row = zeile;
        m_col = spalte;
    }
    m_rowSel = zeile;
    m_colSel = spalte;
    m_intern = true;
    if (zeile > 0 && spalte >= 0 && spalte < Cols())
        selectionModel()->setCurrentIndex(m_modell->index(zeile - 1, spalte),
                                          QItemSelectionModel::NoUpdate);
    auswahlZeigen();
    m_intern = false;
    if (anker && anders) {
        emit LeaveCell();
        emit EnterCell();
        emit RowColChange();
    }
}

void FlexGrid::auswahlZeigen()
{
    QItemSelection auswahl;
    const int z1 = std::max(1, std::min(m_row, m_rowSel));
    const int z2 = std::max(m_row, m_rowSel);
    const int s1 = std::min(m_col, m_colSel);
    const int s2 = std::max(m_col, m_colSel);
    if (z2 >= 1 && s1 >= 0 && s2 < Cols())
        auswahl.select(m_modell->index(z1 - 1, s1), m_modell->index(z2 - 1, s2));
    const bool alt = m_intern;
    m_intern = true;
    selectionModel()->select(auswahl, QItemSelectionModel::ClearAndSelect);
    m_intern = alt;
}

void FlexGrid::currentChanged(const QModelIndex& aktuell, const QModelIndex& vorher)
{
    QTableView::currentChanged(aktuell, vorher);
    if (m_intern || !aktuell.isValid())
        return;
    const int zeile = aktuell.row() + 1;
    const int spalte = aktuell.column();
    if (m_ankerSetzen) {
        const bool anders = zeile != m_row || spalte != m_col;
        m_row = m_rowSel = zeile;
        m_col = m_colSel = spalte;
        if (anders) {
            emit LeaveCell();
            emit EnterCell();
            emit RowColChange();
        }
    } else {
        m_rowSel = zeile;
        m_colSel = spalte;
    }
}

std::vector<int> FlexGrid::MarkierteZeilen() const
{
    std::vector<int> zeilen;
    for (const QItemSelectionRange& bereich : selectionModel()->selection())
        for (int z = bereich.top(); z <= bereich.bottom(); ++z)
            zeilen.push_back(z + 1);
    std::sort(zeilen.begin(), zeilen.end());
    zeilen.erase(std::unique(zeilen.begin(), zeilen.end()), zeilen.end());
    if (zeilen.empty() && m_row >= 1)
        zeilen.push_back(m_row);
    return zeilen;
}

int FlexGrid::TopRow() const
{
    if (Rows() <= 1)
        return 0;
    return verticalScrollBar()->value() + 1;
}

void FlexGrid::setTopRow(int zeile)
{
    if (zeile >= 1 && zeile < Rows())
        verticalScrollBar()->setValue(zeile - 1);
}

int FlexGrid::ColWidth(int spalte) const
{
    if (spalte < 0 || spalte >= Cols())
        return 0;
    if (isColumnHidden(spalte))
        return 0;
    // The width the user dragged, else the one that was set.
    const int px = columnWidth(spalte);
    const int twips = m_twips[size_t(spalte)];
    return Px(twips) == px ? twips : Twips(px);
}

void FlexGrid::setColWidth(int spalte, int twips)
{
    if (spalte < 0 || spalte >= Cols())
        return;
    if (twips < 0)
        twips = StandardBreite;
    // The layout runs at every record move: a width that stands as it is changes nothing.
    if (m_twips[size_t(spalte)] == twips && isColumnHidden(spalte) == (twips == 0)
        && (twips == 0 || columnWidth(spalte) == std::max(1, Px(twips))))
        return;
    zeichnenAnhalten();
    m_twips[size_t(spalte)] = twips;
    if (twips == 0) {
        setColumnHidden(spalte, true);
        return;
    }
    setColumnHidden(spalte, false);
    setColumnWidth(spalte, std::max(1, Px(twips)));
}

void FlexGrid::ColPosition(int spalte, int ziel)
{
    const int n = Cols();
    if (spalte < 0 || spalte >= n || ziel < 0 || ziel >= n || spalte == ziel)
        return;
    std::vector<int> breiten;
    for (int c = 0; c < n; ++c)
        breiten.push_back(ColWidth(c));
    auto verschieben = [&](auto& v) {
        const auto wert = v[size_t(spalte)];
        v.erase(v.begin() + spalte);
        v.insert(v.begin() + ziel, wert);
    };
    zeichnenAnhalten();
    verschieben(m_modell->felder);
    verschieben(breiten);
    m_modell->spaltenGeaendert();
    for (int c = 0; c < n; ++c)
        setColWidth(c, breiten[size_t(c)]);
}

void FlexGrid::setRedraw(bool an)
{
    if (an == m_redraw)
        return;
    m_redraw = an;
    // Painting comes back, and the grid is painted anew, only if something was held back.
    if (an && !updatesEnabled())
        setUpdatesEnabled(true);
}

void FlexGrid::zeichnenAnhalten()
{
    if (!m_redraw && updatesEnabled())
        setUpdatesEnabled(false);
}

void FlexGrid::kopfGeklickt(int spalte)
{
    // A click on a head selects the whole column, from row 1 to the last.
    if (spalte < 0 || Rows() < 2)
        return;
    zelleSetzen(1, spalte, true);
    m_rowSel = Rows() - 1;
    m_colSel = spalte;
    auswahlZeigen();
}

bool FlexGrid::eventFilter(QObject* objekt, QEvent* ereignis)
{
    if (objekt != horizontalHeader()->viewport())
        return QTableView::eventFilter(objekt, ereignis);
    QHeaderView* kopf = horizontalHeader();
    if (ereignis->type() == QEvent::MouseButtonPress || ereignis->type() == QEvent::MouseButtonRelease
        || ereignis->type() == QEvent::MouseButtonDblClick) {
        auto* e = static_cast<QMouseEvent*>(ereignis);
        const int x = e->position().toPoint().x();
        const int spalte = kopf->logicalIndexAt(x);
        // Near a border the head keeps its own handling: the user drags a width.
        const int links = kopf->sectionViewportPosition(spalte);
        const int rechts = links + kopf->sectionSize(spalte);
        const bool amRand = spalte < 0 || x - links < 4 || rechts - x < 4;
        if (amRand)
            return false;
        if (ereignis->type() == QEvent::MouseButtonRelease) {
            emit MouseUp(e->button(), e->modifiers());
            return true;
        }
        m_mouseRow = 0;
        m_mouseCol = spalte;
        if (e->button() == Qt::LeftButton)
            kopfGeklickt(spalte);
        emit MouseDown(e->button(), e->modifiers());
        return true;
    }
    return false;
}

void FlexGrid::mausPosition(const QPoint& p)
{
    const QModelIndex i = indexAt(p);
    m_mouseRow = i.isValid() ? i.row() + 1 : -1;
    m_mouseCol = i.isValid() ? i.column() : -1;
}

void FlexGrid::mousePressEvent(QMouseEvent* e)
{
    mausPosition(e->position().toPoint());
    if (e->button() == Qt::LeftButton) {
        m_ankerSetzen = !(e->modifiers() & Qt::ShiftModifier);
        m_mausGedrueckt = true;
        QTableView::mousePressEvent(e);
        m_ankerSetzen = false;
    }
    emit MouseDown(e->button(), e->modifiers());
}

void FlexGrid::mouseReleaseEvent(QMouseEvent* e)
{
    QTableView::mouseReleaseEvent(e);
    m_mausGedrueckt = false;
    emit MouseUp(e->button(), e->modifiers());
}

void FlexGrid::mouseMoveEvent(QMouseEvent* e)
{
    mausPosition(e->position().toPoint());
    if (e->buttons() & Qt::LeftButton)
        QTableView::mouseMoveEvent(e);
    emit MouseMove(e->buttons());
}

void FlexGrid::keyPressEvent(QKeyEvent* e)
{
    emit KeyPress(e->key());
    m_ankerSetzen = !(e->modifiers() & Qt::ShiftModifier);
    QTableView::keyPressEvent(e);
    m_ankerSetzen = false;
}

bool FlexGrid::viewportEvent(QEvent* e)
{
    // The tool tip is the grid's own, set by the mouse move handler for the cell.
    if (e->type() == QEvent::ToolTip) {
        if (toolTip().isEmpty())
            QToolTip::hideText();
        else
            QToolTip::showText(static_cast<QHelpEvent*>(e)->globalPos(), toolTip(), viewport());
        return true;
    }
    return QTableView::viewportEvent(e);
}

void FlexGrid::focusInEvent(QFocusEvent* e)
{
    QTableView::focusInEvent(e);
    emit GotFocus();
}
