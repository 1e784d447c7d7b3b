#pragma once
// The lowest layer of the player: start and stop on sound path one, and the length of a
// file. Everything above works with a path and the one alias "MyAlias".
#include <QString>

// Opens the file under the alias and plays it from its beginning without waiting. False
// when the file does not exist (nothing reaches the engine then) or the engine refuses.
bool MciDateiAbspielen(const QString& pfad, const QString& alias);
// Stops and closes the alias; harmless when nothing is open, so every start may call it.
void MciStoppen(const QString& alias);
// The length of a file in seconds, or -1.0 when it cannot be measured.
double BassTracklaenge(const QString& pfad);
