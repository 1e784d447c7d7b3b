#pragma once
// The two small windows of the help menu: the tips and the about window.
#include "shell/Teilbereich.h"

class Hilfsfenster : public Teilbereich {
public:
    using Teilbereich::Teilbereich;
    void verbinden() override;

    void MenuTipOfDay_Click();
    void MenuInfo_Click();
};
