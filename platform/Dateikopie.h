#pragma once
// The copy of one file, as the shell's copy does it: the target is whole or not there.
#include <QString>

#include <functional>

// Copies quelle to ziel in pieces; between the pieces weiter() is asked, which may let
// events run and says whether to go on. The copy is written under a name of its own beside
// the target and takes the target's name only when it is complete, so a stop, a failure or
// an end of the process midway leaves no part of a file under the target's name. An existing
// target is replaced. False when stopped or failed.
bool DateiKopieren(const QString& quelle, const QString& ziel, const std::function<bool()>& weiter = {});
