#pragma once
// The tool bar row of the main window: cmdButton(0) to cmdButton(20) forward to the
// commands of the menus. A button whose command is not built yet waits, greyed.
#include "shell/Teilbereich.h"

class Werkzeugleiste : public Teilbereich {
public:
    using Teilbereich::Teilbereich;
    void verbinden() override;

    // Moves through every row of the table and adds up the files of the music folders.
    void mnuAnzahlTracks_Click();
    // "Band - Titel", the naming rule of covers, to the clipboard.
    void cmdBandTitel_Click();
    // The music folder of the record from the folder dialog.
    void imgMusikpfad_Click();
};
