#pragma once
// Reading text aloud with the voices the system offers. The real service speaks through
// the desktop's speech engine; tests install a double.
#include <QString>
#include <QStringList>

#include <memory>

class Sprachausgabe {
public:
    virtual ~Sprachausgabe() = default;
    // True when an engine with at least one voice and a sound output is there.
    virtual bool verfuegbar() = 0;
    // The names of the voices, in the engine's order.
    virtual QStringList stimmen() = 0;
    // Starts speaking and returns at once. A voice the engine does not know leaves its
    // current voice; the rate runs from -1 (slow) to 1 (fast). False when nothing started.
    virtual bool sprechen(const QString& text, const QString& stimme, double tempo) = 0;
    // True while it speaks.
    virtual bool spricht() = 0;
};

std::unique_ptr<Sprachausgabe> EchteSprachausgabeErzeugen();
