#pragma once
// The bands to leave out: the bands of the main window's table as it stands, filter
// included, with a check mark for each that the list of the current use excludes. Bands
// outside the table cannot be shown, so a save drops them from the list.
#include "collections/Ausschlussfenster.h"

class Ausgabebox;

class frmBandAusschlussliste : public Ausschlussfenster {
    Q_OBJECT
public:
    // Over the main window, whose table it reads.
    explicit frmBandAusschlussliste(Ausgabebox& box);

    // Fonts, the bands of the table and their check marks. Shows nothing, so that the
    // window can be driven without its modal loop.
    void Form_Load();
    void ListeErstellen();
    // Esc stopped the walk over the table: the list is not whole and must not be saved.
    bool Abgebrochen() const { return m_abgebrochen; }

    QListWidget* lstBandliste = nullptr;

private:
    Ausgabebox& m_box;
    bool m_abgebrochen = false;
};
