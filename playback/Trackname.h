#pragma once
// The rating of a Track lives in its file name: " - " and a digit from 1 to 6 directly
// before the extension, as in "Summer Song - 4.mp3".
#include <QString>

// The name with the new rating; an old rating (0 to 6) before the extension is replaced.
// A name without "." comes back unchanged.
QString TrackMitBewertung(const QString& name, int sterne);
// The stars a name shows: 0 for none and for a digit above 6.
int TrackBewertung(const QString& name);
// True for a name whose extension is that of a sound or video file: only such files are
// rated, a cover, a booklet or a text beside them keeps its name.
bool IstMedienname(const QString& name);
