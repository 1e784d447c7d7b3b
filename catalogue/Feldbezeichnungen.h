#pragma once
// The field labels of the record form. Until they can be renamed they keep their design
// captions.
#include "shell/Teilbereich.h"

class Feldbezeichnungen : public Teilbereich {
public:
    using Teilbereich::Teilbereich;
    void verbinden() override {}

    void BezLaden();
};
