#pragma once
// The load display of the status bar.
#include "shell/Teilbereich.h"

class Lastanzeige : public Teilbereich {
public:
    using Teilbereich::Teilbereich;
    void verbinden() override {}

    void LastanzeigeStarten();
};
