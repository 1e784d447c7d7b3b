#pragma once
// The table of the main window: column order, visibility and widths from the settings,
// re-applied whenever the grid may have been rebuilt, the row change, sorting by a head,
// the letter and rating buttons, and the column arrangement window.
#include "shell/Teilbereich.h"

#include <QString>

#include <array>

class Tabellenansicht : public Teilbereich {
public:
    using Teilbereich::Teilbereich;
    void verbinden() override;

    // Without trackListeLaden the caller has just loaded the Track list itself.
    void TabelleEinrichten(bool trackListeLaden = true);
    // Reads TabelleAnordnenCaption0 to 17 into SpaltenTitel.
    void SpaltenTitelLesen();
    // Visibility and widths by SpaltenTitel, column n by position n (redraw is the caller's).
    void SpaltenSichtbarkeitAnwenden();
    void MSFlexGrid1_RowColChange();
    void ButtonAlpabeth_MouseUp(int index);
    // The record source of a letter (0 to 25) or rating button (26 to 31) on a column.
    static QString BuchstabenFilter(int index, const QString& spalte);
    void chkTabelle_Click();
    void mnuTabelleAutosize_Click();
    void mnuAllesMarkieren_Click();
    // The column arrangement window, then layout and widths.
    void mnuTabelleAnordnen_Click();

    std::array<QString, 18> SpaltenTitel;

protected:
    bool eventFilter(QObject* objekt, QEvent* ereignis) override;

private:
    void MSFlexGrid1_MouseDown(Qt::MouseButton knopf);
    void MSFlexGrid1_MouseMove(Qt::MouseButtons knoepfe);
};
