// Exclusion lists and the playlist of the main window, as far as the start and the end
// of the program need them.
#include "shell/Ausgabebox.h"

void Ausgabebox::AbspielausschlusslisteLaden() {}

void Ausgabebox::BandAbspielausschlusslisteLaden() {}

void Ausgabebox::PlaylistSpeichern() { PlaylistGeaendert = false; }
