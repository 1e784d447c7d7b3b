#pragma once
// Test doubles of the platform services. Each records what it was asked and answers
// from a queue, so that no test waits on a window or on real time.
#include "platform/Dialogdienst.h"
#include "platform/Dienste.h"
#include "platform/Energie.h"
#include "platform/Uhr.h"

#include <QList>
#include <QQueue>
#include <QStringList>

#include <functional>

class DialogAttrappe : public Dialogdienst {
public:
    struct Aufruf {
        QString art; // "MsgNimb", "InputNimb", "Datei", "Ordner", "Schrift", "Farbe"
        Meldung meldung;
        Eingabe eingabe;
        Dateiauswahl datei;
        QString ordnerTitel;
        QString ordnerStart;
    };

    QList<Aufruf> aufrufe;
    // Answers by kind; an empty queue answers with an empty text (cancel, no answer).
    QQueue<QString> antwortenMsg;
    QQueue<QString> antwortenInput;
    QQueue<QString> antwortenDatei;
    QQueue<QString> antwortenOrdner;
    // Called before each answer, to look at the program's state while a box is "open".
    std::function<void(const Aufruf&)> beimAufruf;

    QString MsgNimb(const Meldung& m) override;
    QString InputNimb(const Eingabe& e) override;
    QString Datei(const Dateiauswahl& d) override;
    QString Ordner(const QString& titel, const QString& startordner) override;
    bool Schrift(Schriftauswahl& s) override;
    bool Farbe(QColor& c) override;

    QList<Meldung> meldungen() const;
    QStringList meldungsTexte() const;
    void leeren();
};

// A clock that moves only when told: waits advance it, timers fire as it passes them.
class FalscheUhr : public Uhr {
public:
    QDateTime start = QDateTime(QDate(2026, 11, 21), QTime(20, 0, 0));
    qint64 ms = 0; // time since start
    int gewartet = 0; // number of waits

    QDateTime jetzt() const override;
    double sekundenSeitMitternacht() const override;
    void warten(int ms) override;
    Zeitgeber* neuerZeitgeber(QObject* eltern) override;
    // Lets the time run; enabled timers fire at each of their due points.
    void vorruecken(qint64 ms);

    QList<class FalscherZeitgeber*> zeitgeber;
};

class FalscherZeitgeber : public Zeitgeber {
    Q_OBJECT
public:
    FalscherZeitgeber(FalscheUhr* uhr, QObject* eltern);
    ~FalscherZeitgeber() override;
    void setInterval(int ms) override;
    int interval() const override { return m_interval; }
    void setEnabled(bool an) override;
    bool isEnabled() const override { return m_an; }
    void ausloesen() { emit Timer(); }

    qint64 faellig = 0;

private:
    FalscheUhr* m_uhr;
    int m_interval = 0;
    bool m_an = false;
};

class FalscherZufall : public Zufall {
public:
    QQueue<double> werte;
    double sonst = 0.0;
    double Rnd() override { return werte.isEmpty() ? sonst : werte.dequeue(); }
};

class KlangAttrappe : public Klang {
public:
    QStringList gespielt;
    void abspielen(const QString& pfad) override { gespielt << pfad; }
};

class ShellAttrappe : public Shell {
public:
    QStringList geoeffnet;
    bool oeffnen(const QString& ziel) override
    {
        geoeffnet << ziel;
        return true;
    }
    QStringList gestartet;
    bool startenGelingt = true;
    bool starten(const QString& programm, const QStringList& argumente) override
    {
        gestartet << (QStringList{programm} + argumente).join(u' ');
        return startenGelingt;
    }
};

class PapierkorbAttrappe : public Papierkorb {
public:
    QStringList verschoben;
    bool verschieben(const QString& pfad) override;
};

// Says whether the computer may be switched off, and records each attempt instead.
class EnergieAttrappe : public Energie {
public:
    bool darf = true;
    bool gelingt = true;
    int ausgeschaltet = 0; // attempts to switch off
    bool darfAusschalten() override { return darf; }
    bool ausschalten() override
    {
        ++ausgeschaltet;
        return gelingt;
    }
};

// Records the end of the process instead of ending it.
class ProzessAttrappe : public Prozess {
public:
    QList<int> beendet;
    void beenden(int code) override { beendet << code; }
};

// The installed doubles of this test run.
struct Attrappen {
    static DialogAttrappe& dialoge();
    static FalscheUhr& uhr();
    static FalscherZufall& zufall();
    static KlangAttrappe& klang();
    static ShellAttrappe& shell();
    static PapierkorbAttrappe& papierkorb();
    static ProzessAttrappe& prozess();
    static EnergieAttrappe& energie();
    // Installs fresh doubles for every service.
    static void installieren();
};
