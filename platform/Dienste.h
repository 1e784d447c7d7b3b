#pragma once
// The platform services of the system, one of each, replaceable by tests.
#include <QString>
#include <QStringList>

#include <functional>
#include <memory>

class Dialogdienst;
class Medien;
class Energie;
class Scanner;
class Sprachausgabe;
class Uhr;

class Zufall {
public:
    virtual ~Zufall() = default;
    // A number in [0, 1).
    virtual double Rnd() = 0;
};

class Klang {
public:
    virtual ~Klang() = default;
    // Plays a .wav asynchronously; a new sound ends the one playing; a missing file is silent.
    virtual void abspielen(const QString& pfad) = 0;
};

class Shell {
public:
    virtual ~Shell() = default;
    // Opens a file with its associated program, or an address in the browser.
    virtual bool oeffnen(const QString& pfadOderAdresse) = 0;
    // Starts a program without waiting for it; false when it cannot be started.
    virtual bool starten(const QString& programm, const QStringList& argumente) = 0;
};

class Papierkorb {
public:
    virtual ~Papierkorb() = default;
    virtual bool verschieben(const QString& pfad) = 0;
};

class Prozess {
public:
    virtual ~Prozess() = default;
    // Ends the process at once, so that no object still held can keep it alive.
    virtual void beenden(int code) = 0;
};

class Dienste {
public:
    static Dienste& instanz();

    Dialogdienst& dialoge();
    Uhr& uhr();
    Zufall& zufall();
    Klang& klang();
    Shell& shell();
    Papierkorb& papierkorb();
    Prozess& prozess();
    Medien& medien();
    // Switching the computer off (the sleep timer).
    Energie& energie();
    // Reading text aloud.
    Sprachausgabe& sprachausgabe();
    // Pictures from a scanner.
    Scanner& scanner();

    void setzeDialoge(std::unique_ptr<Dialogdienst> d);
    void setzeUhr(std::unique_ptr<Uhr> u);
    void setzeZufall(std::unique_ptr<Zufall> z);
    void setzeKlang(std::unique_ptr<Klang> k);
    void setzeShell(std::unique_ptr<Shell> s);
    void setzePapierkorb(std::unique_ptr<Papierkorb> p);
    void setzeProzess(std::unique_ptr<Prozess> p);
    void setzeMedien(std::unique_ptr<Medien> m);
    void setzeEnergie(std::unique_ptr<Energie> e);
    void setzeSprachausgabe(std::unique_ptr<Sprachausgabe> s);
    void setzeScanner(std::unique_ptr<Scanner> s);

private:
    Dienste();
    ~Dienste();
    std::unique_ptr<Dialogdienst> m_dialoge;
    std::unique_ptr<Uhr> m_uhr;
    std::unique_ptr<Zufall> m_zufall;
    std::unique_ptr<Klang> m_klang;
    std::unique_ptr<Shell> m_shell;
    std::unique_ptr<Papierkorb> m_papierkorb;
    std::unique_ptr<Prozess> m_prozess;
    std::unique_ptr<Medien> m_medien;
    std::unique_ptr<Energie> m_energie;
    std::unique_ptr<Sprachausgabe> m_sprachausgabe;
    std::unique_ptr<Scanner> m_scanner;
};

inline Dienste& D() { return Dienste::instanz(); }

// The real dialog service is provided by the shell (frmMsgNimb, frmInputNimb and Qt's
// dialogs); the platform layer gets it through this factory so it does not depend on
// the windows.
void setzeDialogFabrik(std::function<std::unique_ptr<Dialogdienst>()> fabrik);
