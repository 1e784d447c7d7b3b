#pragma once
// The compilation generator on the main window's side: its menu entry opens the generator
// window, and the copy of all songs of the table into a folder.
#include "shell/Teilbereich.h"

class Generator : public Teilbereich {
public:
    using Teilbereich::Teilbereich;
    void verbinden() override;

    void mnuTontraegerGenerieren_Click();
    void mnuAlleSongsKopieren_Click();
};
