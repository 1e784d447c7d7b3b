#pragma once
// Time for the whole system: the current time, the seconds since midnight, waits that
// keep the window painted, and timers. Real in the program, fake in tests, so that a
// minute of the sequencer runs in milliseconds.
#include <QDateTime>
#include <QObject>

#include <memory>

// A timer as the windows use it: an interval in ms and an enabled flag.
class Zeitgeber : public QObject {
    Q_OBJECT
public:
    using QObject::QObject;
    virtual void setInterval(int ms) = 0;
    virtual int interval() const = 0;
    virtual void setEnabled(bool an) = 0;
    virtual bool isEnabled() const = 0;
signals:
    void Timer();
};

class Uhr {
public:
    virtual ~Uhr() = default;
    virtual QDateTime jetzt() const = 0;
    // Seconds since midnight, with fractions.
    virtual double sekundenSeitMitternacht() const = 0;
    // Waits the given ms while pending events run.
    virtual void warten(int ms) = 0;
    virtual Zeitgeber* neuerZeitgeber(QObject* eltern) = 0;
};

// The real clock.
class Systemuhr : public Uhr {
public:
    QDateTime jetzt() const override;
    double sekundenSeitMitternacht() const override;
    void warten(int ms) override;
    Zeitgeber* neuerZeitgeber(QObject* eltern) override;
};
