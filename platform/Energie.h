#pragma once
// Switching the computer off. On this platform the login manager decides, over the
// system bus; tests install a double, so that nothing is ever switched off by a test.
#include <memory>

class Energie {
public:
    virtual ~Energie() = default;
    // True when this user may switch the computer off without being asked for a
    // password: only then can it happen while nobody sits at the screen.
    virtual bool darfAusschalten() = 0;
    // Asks for the computer to be switched off; false when that was refused or failed.
    virtual bool ausschalten() = 0;
};

// The login manager of the system.
std::unique_ptr<Energie> EchteEnergieErzeugen();
