// The random choice of a Carrier. Until the player is built the start stays on the
// first record of the table.
#include "shell/Ausgabebox.h"

void Ausgabebox::TontraegerZufaellig() {}
