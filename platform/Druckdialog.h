#pragma once
// The print dialog of the system, replaceable: the program asks the user, tests print to
// a PDF file without any window.
#include <memory>

class QPrinter;
class QWidget;

class Druckdialog {
public:
    virtual ~Druckdialog() = default;
    // Lets the user choose and set up the printer, starting from what it holds; false on
    // cancel.
    virtual bool einrichten(QPrinter& drucker, QWidget* eltern) = 0;
};

// The one in use: the real dialog unless another was installed.
Druckdialog& Druckdialoge();
void setzeDruckdialog(std::unique_ptr<Druckdialog> dialog);
