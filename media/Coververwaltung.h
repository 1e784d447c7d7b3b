#pragma once
// The covers of the record view and the strip of covers beside the table. The strip and
// the external covers come with the cover management; until then the strip stays empty.
#include "shell/Teilbereich.h"

class Coververwaltung : public Teilbereich {
public:
    using Teilbereich::Teilbereich;
    void verbinden() override {}

    void CoverListeAktuell();
    void CoverAktualisieren();
    void CoverDown();
    void CoverAZ();
    // Fills cboBildpfad with the record's external covers found on disk, shows the first.
    void ExterneCoverLaden();

    // The last place of the strip that the window's height leaves room for.
    int CoverLetzterPlatz = 0;
    // The index in lstCover of the cover on the first place of the strip.
    int CoverStart = 0;
};
