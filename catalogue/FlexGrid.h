#pragma once
// The table of the main window: the recordset of Data1 with row 0 as the head row and
// the records from row 1 on, in recordset order. It speaks in the terms the procedures
// use: Rows, Cols, Row, Col, RowSel, ColSel, TopRow, TextMatrix, ColWidth in twips,
// Redraw. Columns can be moved; a moved column takes its width along.
#include <QSet>
#include <QTableView>
#include <QVariantList>

#include <functional>
#include <optional>
#include <vector>

class Recordset;
class FlexGridModell;

class FlexGrid : public QTableView {
    Q_OBJECT
public:
    explicit FlexGrid(QWidget* eltern = nullptr);
    ~FlexGrid() override;

    // Rebuilds rows and columns from a recordset; the columns come back in recordset
    // order while the widths stay with their positions. Without a recordset the grid
    // keeps its number of columns, with empty heads and no rows.
    void setRecordset(Recordset* rs);
    Recordset* recordset() const;
    // Row changes of the recordset that the table takes over without a rebuild.
    void zeileGeaendert(int datensatz);
    void zeileAngehaengt(int datensatz);
    void zeileEntfernt(int datensatz);

    int Rows() const;
    int Cols() const;
    // Row 0 is the head; an index outside the grid gives an empty text.
    QString TextMatrix(int zeile, int spalte) const;
    // Index of the grid column whose head is the name, -1 when none.
    int SpalteSuchen(const QString& kopf) const;
    // The recordset field shown in grid column c, or -1.
    int Feld(int spalte) const;
    // The first row from 1 on for which passt holds; -1 when there is none. Where the
    // recordset can be asked, only the rows that the SQL condition picks are looked at, so
    // the condition must pick every row passt may hold for (?1, ?2 ... take the values).
    int ZeileSuchen(const QString& bedingung, const QVariantList& werte,
                    const std::function<bool(int zeile)>& passt) const;
    int ZeileSuchen(const std::optional<QSet<qint64>>& kandidaten, const std::function<bool(int zeile)>& passt) const;
    // The same for rows where some cell may contain the lower-case term, caselessly: the
    // rows come from the catalogue's text index where it has one, else from one GLOB.
    int TextSuchen(const QString& begriff, const std::function<bool(int zeile)>& passt) const;
    // A column of grid column c as an SQL name, for such a condition.
    QString SqlName(int spalte) const;

    int Row() const { return m_row; }
    int Col() const { return m_col; }
    int RowSel() const { return m_rowSel; }
    int ColSel() const { return m_colSel; }
    // Setting Row or Col makes that cell current and raises RowColChange when it
    // changed; the selection shrinks to the cell. Out of range: Laufzeitfehler 381.
    void setRow(int zeile);
    void setCol(int spalte);
    void setRowSel(int zeile);
    void setColSel(int spalte);

    // The marked data rows in ascending order: the range from Row to RowSel and the rows
    // marked with Ctrl; the current row when nothing is marked.
    std::vector<int> MarkierteZeilen() const;

    // First data row shown at the top.
    int TopRow() const;
    void setTopRow(int zeile);

    int ColWidth(int spalte) const;
    void setColWidth(int spalte, int twips);
    // Moves a column to another position.
    void ColPosition(int spalte, int ziel);

    bool Redraw() const { return m_redraw; }
    void setRedraw(bool an);

    // Row and column under the mouse, -1 outside.
    int MouseRow() const { return m_mouseRow; }
    int MouseCol() const { return m_mouseCol; }

signals:
    void RowColChange();
    void EnterCell();
    void LeaveCell();
    void MouseDown(Qt::MouseButton knopf, Qt::KeyboardModifiers umschalt);
    void MouseUp(Qt::MouseButton knopf, Qt::KeyboardModifiers umschalt);
    void MouseMove(Qt::MouseButtons knoepfe);
    void GotFocus();
    void KeyPress(int taste);

protected:
    void currentChanged(const QModelIndex& aktuell, const QModelIndex& vorher) override;
    void mousePressEvent(QMouseEvent* e) override;
    void mouseReleaseEvent(QMouseEvent* e) override;
    void mouseMoveEvent(QMouseEvent* e) override;
    void keyPressEvent(QKeyEvent* e) override;
    void focusInEvent(QFocusEvent* e) override;
    bool viewportEvent(QEvent* e) override;
    bool eventFilter(QObject* objekt, QEvent* ereignis) override;

private:
    void kopfGeklickt(int spalte);
    // With Redraw off: stops painting before the first change of the layout.
    void zeichnenAnhalten();
    void zelleSetzen(int zeile, int spalte, bool anker);
    void auswahlZeigen();
    void mausPosition(const QPoint& p);

    FlexGridModell* m_modell;
    std::vector<int> m_twips; // set width of each column
    int m_row = 0;
    int m_col = 0;
    int m_rowSel = 0;
    int m_colSel = 0;
    int m_mouseRow = -1;
    int m_mouseCol = -1;
    bool m_redraw = true;
    bool m_ankerSetzen = false; // the next current change is a new anchor
    bool m_mausGedrueckt = false;
    bool m_intern = false;      // a change made by this class itself
};
