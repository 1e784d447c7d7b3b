#pragma once
// The Track list of the record and the ratings in file names: the two rows of stars, a
// click on a Track star, the length of a Track, and the lyrics that follow the Track.
#include "shell/Teilbereich.h"

#include <QString>

class Trackliste : public Teilbereich {
public:
    using Teilbereich::Teilbereich;
    void verbinden() override;

    void BewertungTracks();
    void imgSongNote_Click(int index);
    void mnuLiedLang_Click();
    void cmdInfoTrack_Click();
    void TextSongAktualisieren();

protected:
    bool eventFilter(QObject* objekt, QEvent* ereignis) override;

private:
    // What follows a key or the mouse in the Track list.
    void filTrack_Nachlauf();
    // Scrolls the lyrics to the first place of the name, caseless; false when absent.
    bool LiedtextZeigen(const QString& name);
};
