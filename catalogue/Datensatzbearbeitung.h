#pragma once
// New entry, save and delete of Carriers through the record view.
#include "shell/Teilbereich.h"

class QTextEdit;

class Datensatzbearbeitung : public Teilbereich {
public:
    using Teilbereich::Teilbereich;
    void verbinden() override;

    void MenuNeuEingabe_Click();
    void MenuSpeichern_Click();
    void MenuEintragLoeschen_Click();

private:
    // Gives an empty rich text pane the standard font and left margin for new text.
    void NeuerTextFormatieren(QTextEdit* text);
};
