#pragma once
// The catalogue table as a static web site in the folder "html" beside the program, and
// the commands that show it.
#include "shell/Teilbereich.h"

class HtmlSeiten : public Teilbereich {
public:
    using Teilbereich::Teilbereich;
    void verbinden() override;

    void mnuHtmlSeitenErstellen_Click();
    void mnuHtmlSeitenAnzeigen_Click();
    void mnuWebsiteAnzeigen_Click();
    void mnuWebTabelleAnordnen_Click();

private:
    // Writes the pages; the number written, or -1 when Esc stopped it.
    int SeitenSchreiben();
};
