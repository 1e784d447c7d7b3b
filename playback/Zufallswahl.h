#pragma once
// The random choice of a Carrier and a Track, or of a playlist row, and the test of the
// play exclusion lists that keeps unwanted styles and bands out of it.
#include "shell/Teilbereich.h"

class Zufallswahl : public Teilbereich {
public:
    using Teilbereich::Teilbereich;
    void verbinden() override;

    void TontraegerZufaellig();
    // True when the Carrier in the table's current row has a style or band that the
    // play exclusion lists name (binary containment, as in the random choice).
    bool TontraegerAusgeschlossen();

private:
    void TontraegerZeigen(int zeile);
    void TrackZufaellig();
    void PlaylistZeileZufaellig();
};
