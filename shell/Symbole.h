#pragma once
// The pictures of the program's buttons: from the style where it has a fitting one,
// else drawn here (letters, stars, small shapes), so that no foreign artwork is needed.
#include <QIcon>
#include <QPixmap>

// An icon by its name, such as "start", "stop", "fett" or "stern".
QIcon Symbol(const QString& name);
// A star of the given size, lit (yellow) or grey.
QPixmap Stern(int groesse, bool hell);
