#pragma once
// Drives a modal window from inside its own event loop, so that no test blocks on it.
#include <QString>

#include <functional>

class QDialog;
class QWidget;

// Arranges for the step to run on the next modal window once it is shown. A window the
// step leaves open is closed by reject() and the test fails, so a test never hangs.
// Call it just before the command that opens the window.
void ModalBedienen(std::function<void(QDialog*)> schritt);
// True when the step of the last ModalBedienen has run.
bool ModalBedient();
// Clicks the button with that objectName in the window; false when there is none.
bool Klicken(QWidget* fenster, const QString& name);
