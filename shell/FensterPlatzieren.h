#pragma once
// Places a window beside or over another one, inside the work area of that screen.
#include <QString>

class QWidget;

// Position "center", "right", "left", "below" or "above" (any case); the spacing in pixels
// keeps the window away from that side of the reference window, and the other axis is
// centred on it. Without a reference window the window is centred on the primary screen.
// Moves the window without resizing or activating it.
void FensterPlatzieren(QWidget* fenster, QWidget* bezug, const QString& position, int abstand);
