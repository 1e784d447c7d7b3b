#pragma once
// A subsystem part of the main window. At run time the window is one object; in the
// source its procedures live in parts like this, each in the folder of its subsystem.
//
// A new part:
// - is a class of its own derived from Teilbereich, in its subsystem's folder;
// - is made by Ausgabebox after the controls, as a child of the window, so that it
//   outlives the controls when the window goes, and the window offers it by reference;
// - wires its own controls, actions and timers in verbinden(), which the window calls
//   once, when all parts are made; a menu entry is wired with BefehlVerbinden
//   (shell/Steuerelemente.h), which also takes away the grey it stands in until then;
// - keeps the state that only it reads private. What several parts read stays on the
//   window, or is a global where the system has one.
// Parts call each other directly through the window, in the order the procedures call
// each other; there are no signals between parts.
//
// A check box is wired with KlickVerbinden (shell/Steuerelemente.h): its handler runs
// whenever its value really changes, by a click or set in code, so code that sets a box
// never calls the handler itself. Menu check marks set in code run nothing.
#include <QObject>

class Ausgabebox;

class Teilbereich : public QObject {
public:
    explicit Teilbereich(Ausgabebox& box);
    virtual void verbinden() = 0;

protected:
    Ausgabebox& box;
};
