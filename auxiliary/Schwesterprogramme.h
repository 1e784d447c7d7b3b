#pragma once
// The small programs beside this one that the menus start. So far the catalogue manager,
// which the age test of a catalogue offers too.
#include "shell/Teilbereich.h"

class Schwesterprogramme : public Teilbereich {
public:
    using Teilbereich::Teilbereich;
    void verbinden() override;

    void mnuDatenbank_Click();
};
