#pragma once
// Marked text to the translation and writing pages in the browser, through the
// clipboard, and the translation window with its reading aloud.
#include "shell/Teilbereich.h"

#include <QString>

class QAction;

class Uebersetzung : public Teilbereich {
public:
    using Teilbereich::Teilbereich;
    void verbinden() override;

    void mnuTranslation_Click();
    void mnuDeeplWrite_Click();
    // Opens the translation window.
    void mnuUebersetzenVorlesen_Click();

private:
    // Opens the page under that path and puts the marked text on the clipboard.
    void TextZurSeite(const QString& pfad);
    // The selection of the active pane, or its whole text without one; empty for the
    // panes the pages are not meant for.
    QString Vorlagetext() const;
};
