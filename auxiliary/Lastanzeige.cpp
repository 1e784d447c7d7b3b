#include "auxiliary/Lastanzeige.h"

void Lastanzeige::LastanzeigeStarten() {}
