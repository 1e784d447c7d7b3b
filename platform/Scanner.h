#pragma once
// The scanner service: the devices that the scanner system finds, and one picture from one
// of them. Behind it stands SANE; tests install a double, and one test scans for real from
// SANE's test device.
#include <QImage>
#include <QList>
#include <QString>

#include <memory>

struct Scangeraet {
    QString name;         // what the scanner system opens, e.g. "test:0"
    QString beschreibung; // maker, model and kind, for the user
};

class Scanner {
public:
    virtual ~Scanner() = default;
    // The devices found; empty with the reason in `fehler` when there is none or the
    // scanner system is missing.
    virtual QList<Scangeraet> geraete(QString& fehler) = 0;
    // One picture from the device; a null image with the reason in `fehler` on failure.
    virtual QImage scannen(const QString& geraet, QString& fehler) = 0;
};

// SANE through its command-line front end; the window stays painted while it works.
std::unique_ptr<Scanner> SaneScanner();
