#pragma once
// The playlists of the main window. So far only what the start and the end of the
// program need of them.
#include "shell/Teilbereich.h"

class Playlisten : public Teilbereich {
public:
    using Teilbereich::Teilbereich;
    void verbinden() override;

    void PlaylistSpeichern();

    // The list on screen is to be written to its file before it is left.
    bool PlaylistGeaendert = false;

protected:
    bool eventFilter(QObject* objekt, QEvent* ereignis) override;
};
