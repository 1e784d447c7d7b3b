#pragma once
// The rich text panes of the record: the tab strip that chooses a pane, which pane has the
// focus (and with it the font menu), and the standard font that new text gets.
#include "shell/Teilbereich.h"

#include <QString>

class Textfenster : public Teilbereich {
public:
    using Teilbereich::Teilbereich;
    void verbinden() override;

    // The standard font of the text panes, for new entries.
    QString StandardFontName = QStringLiteral("Segoe UI");
    double StandardFontsize = 12;
    bool StandardFontBold = false;
    bool StandardFontItalic = false;
    bool StandardFontStrikethru = false;
    bool StandardFontUnderline = false;
    qint64 StandardColor = 0;

protected:
    bool eventFilter(QObject* objekt, QEvent* ereignis) override;

private:
    // Shows the panes of the chosen text tab (1 covers, 2 to 4 texts, 5 playlists).
    void TextseiteZeigen();
};
