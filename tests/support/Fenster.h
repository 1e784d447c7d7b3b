#pragma once
// The main window as the program starts it, on a test catalogue: the one way the tests
// build it.
#include "Katalog.h"

#include "shell/Ausgabebox.h"

#include <QMap>

#include <memory>

struct Fensterstart {
    // The rows of a new catalogue in a folder of its own.
    QList<Zeilenwerte> zeilen = {};
    // A catalogue to open as it is, in place of a new one.
    QString katalog = {};
    // No catalogue is named: the start finds its own, as at a first start.
    bool ohneKatalog = false;
    // Settings written just before the start.
    QMap<QString, QString> einstellungen = {};
    // Settings, program folder and the dialogs' answers start empty; false keeps what the
    // test has set up.
    bool zuruecksetzen = true;
    // Shown and exposed, for tests that click, resize or measure.
    bool zeigen = false;
};

// Ends a window still open, resets what the start asks for, writes the catalogue as
// ArchivPfad and runs the load handler. Returns the path of the catalogue.
QString FensterStarten(std::unique_ptr<Ausgabebox>& w, const Fensterstart& start = {});
