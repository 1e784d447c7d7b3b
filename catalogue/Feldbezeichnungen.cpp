#include "catalogue/Feldbezeichnungen.h"

void Feldbezeichnungen::BezLaden() {}
