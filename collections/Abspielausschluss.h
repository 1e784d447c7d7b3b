#pragma once
// The play exclusion lists of the main window: the styles and bands that the random
// choice passes over, loaded at start and edited from the options menu.
#include "shell/Teilbereich.h"

class Abspielausschluss : public Teilbereich {
public:
    using Teilbereich::Teilbereich;
    void verbinden() override;

    void AbspielausschlusslisteLaden();
    void BandAbspielausschlusslisteLaden();
    void mnuStilrichtungAusschliessen_Click();
    void mnuBandAusschliessen_Click();
    // The column of the bands: the one headed "Band", else column 0.
    int BandSpalte() const;
};
