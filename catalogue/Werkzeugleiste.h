#pragma once
// The tool bar row of the main window: cmdButton(0) to cmdButton(20) forward to the
// commands of the menus. A button whose command is not built yet waits, greyed.
#include "shell/Teilbereich.h"

class Werkzeugleiste : public Teilbereich {
public:
    using Teilbereich::Teilbereich;
    void verbinden() override;
};
