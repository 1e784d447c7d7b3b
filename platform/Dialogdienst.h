#pragma once
// Every message box, input box and common dialog of the system goes through this one
// service. The program installs the real windows; tests install a scripted double.
#include <QColor>
#include <QFont>
#include <QString>
#include <QStringList>

class QWidget;

// Arguments of MsgNimb. Colours are colour numbers; -1 means "left out".
struct Meldung {
    QString text;
    int typ = 0;
    int standard = 0;
    QString titel;
    int sekunden = 0;
    qint64 hintergrund = -1;
    qint64 textfarbe = -1;
};

struct Eingabe {
    QString prompt;
    QString titel;
    QString vorgabe;
    qint64 hintergrund = -1;
    qint64 textfarbe = -1;
};

// A file dialog. The filter is written as the system writes it:
// "Datenbank (*.db)|*.db|alle Dateien (*.*)|*.*".
struct Dateiauswahl {
    QString titel;
    QString filter;
    QString dateiname; // proposed file
    QString startordner;
    int filterIndex = 1;
    bool speichern = false;
    bool mehrfach = false;
    // Off where the caller refuses an existing file itself, so that only one question comes.
    bool ueberschreibenFragen = true;
    // Receives the filter the user left chosen (from 1), where the caller acts on it.
    int* filterGewaehlt = nullptr;
};

struct Schriftauswahl {
    QFont schrift;
    QColor farbe;
};

class Dialogdienst {
public:
    virtual ~Dialogdienst() = default;
    // Returns the button's word ("Ja", "Nein", "Ok", "Exit", ...) or an empty text.
    virtual QString MsgNimb(const Meldung& m) = 0;
    // Returns the trimmed entry, or an empty text for Exit.
    virtual QString InputNimb(const Eingabe& e) = 0;
    // The chosen path (several joined by "\n" with `mehrfach`), or empty on cancel.
    virtual QString Datei(const Dateiauswahl& d) = 0;
    // A folder with a trailing "/", or empty on cancel.
    virtual QString Ordner(const QString& titel, const QString& startordner) = 0;
    // False on cancel.
    virtual bool Schrift(Schriftauswahl& s) = 0;
    virtual bool Farbe(QColor& c) = 0;
    // One entry of a list (the scanner's sources): its index, or -1 on cancel.
    virtual int Auswahl(const QString& titel, const QString& frage, const QStringList& eintraege) = 0;
};

// The global answer of the last message box, cleared before every box.
extern QString MsgAntwort;

// Shorthands in the argument order the windows call them with.
QString MsgNimb(const QString& text, int typ, int standard, const QString& titel, int sekunden,
                qint64 hintergrund = -1, qint64 textfarbe = -1);
QString InputNimb(const QString& prompt, const QString& titel, const QString& vorgabe = {},
                  qint64 hintergrund = -1, qint64 textfarbe = -1);
