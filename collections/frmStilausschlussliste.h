#pragma once
// The styles to leave out: every style of Stilrichtung.ini beside the database, with a
// check mark for each that the list of the current use excludes.
#include "collections/Ausschlussfenster.h"

class frmStilausschlussliste : public Ausschlussfenster {
    Q_OBJECT
public:
    explicit frmStilausschlussliste(QWidget* eltern = nullptr);

    // Fonts, the styles and their check marks. Shows nothing, so that the window can be
    // driven without its modal loop.
    void Form_Load();
    void RegistryLesen();
    void ListeLaden();

    QListWidget* lstStilrichtung = nullptr;
};
