// The load display of the status bar.
#include "shell/Ausgabebox.h"

void Ausgabebox::LastanzeigeStarten() {}
