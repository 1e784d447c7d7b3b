// The field labels of the record form. Until they can be renamed they keep their
// design captions.
#include "shell/Ausgabebox.h"

void Ausgabebox::BezLaden() {}
