#pragma once
// Test doubles of the platform services. Each records what it was asked and answers
// from a queue, so that no test waits on a window or on real time.
#include "platform/Dialogdienst.h"
#include "platform/Dienste.h"
#include "platform/Medien.h"
#include "platform/Scanner.h"
#include "platform/Energie.h"
#include "platform/Sprachausgabe.h"
#include "platform/Uhr.h"

#include <QHash>
#include <QList>
#include <QMap>
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
        Schriftauswahl schrift; // what the font dialog was preset with
        QColor farbe;           // what the colour dialog was preset with
        QStringList eintraege;  // what a list offered
    };

    QList<Aufruf> aufrufe;
    // Answers by kind; an empty queue answers with an empty text (cancel, no answer).
    QQueue<QString> antwortenMsg;
    QQueue<QString> antwortenInput;
    QQueue<QString> antwortenDatei;
    // The filter a file dialog reports as chosen; an empty queue leaves the preset one.
    QQueue<int> antwortenFilter;
    QQueue<QString> antwortenOrdner;
    // Font and colour dialogs: the queued choice, or a cancel when the queue is empty.
    QQueue<Schriftauswahl> antwortenSchrift;
    QQueue<QColor> antwortenFarbe;
    // The index chosen from a list; an empty queue cancels.
    QQueue<int> antwortenAuswahl;
    // Called before each answer, to look at the program's state while a box is "open".
    std::function<void(const Aufruf&)> beimAufruf;

    QString MsgNimb(const Meldung& m) override;
    QString InputNimb(const Eingabe& e) override;
    QString Datei(const Dateiauswahl& d) override;
    QString Ordner(const QString& titel, const QString& startordner) override;
    bool Schrift(Schriftauswahl& s) override;
    bool Farbe(QColor& c) override;
    int Auswahl(const QString& titel, const QString& frage, const QStringList& eintraege) override;

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

// A speech engine that records what it was to say instead of saying it.
class SprachausgabeAttrappe : public Sprachausgabe {
public:
    struct Ansage {
        QString text;
        QString stimme;
        double tempo = 0.0;
    };
    bool da = true; // false: no engine installed
    QStringList namen{QStringLiteral("Erste Stimme"), QStringLiteral("Zweite Stimme")};
    QList<Ansage> gesagt;
    bool verfuegbar() override { return da; }
    QStringList stimmen() override { return da ? namen : QStringList(); }
    bool sprechen(const QString& text, const QString& stimme, double tempo) override
    {
        if (!da)
            return false;
        gesagt << Ansage{text, stimme, tempo};
        return true;
    }
    bool spricht() override { return false; }
};

// A scanner with the devices and the picture a test gives it; it records each scan.
class ScannerAttrappe : public Scanner {
public:
    QList<Scangeraet> liste;
    QImage bild;
    QString fehlerText = QStringLiteral("Es wurde kein Scanner gefunden.");
    QStringList gescannt;
    QList<Scangeraet> geraete(QString& fehler) override
    {
        if (liste.isEmpty())
            fehler = fehlerText;
        return liste;
    }
    QImage scannen(const QString& geraet, QString& fehler) override
    {
        gescannt << geraet;
        if (bild.isNull())
            fehler = fehlerText;
        return bild;
    }
};

// Records the end of the process instead of ending it.
class ProzessAttrappe : public Prozess {
public:
    QList<int> beendet;
    void beenden(int code) override { beendet << code; }
};

// The media player control without sound: it records every call, and its position runs
// with the clock service while it plays, so a fake clock moves it. At its length (when one
// is set) it stops by itself, as a file that plays to its end. Like the real control it
// starts only files that exist; any file will do, the double never reads it.
class SpielerAttrappe : public Medienspieler {
    Q_OBJECT
public:
    SpielerAttrappe(class MedienAttrappe* herkunft, QObject* eltern);
    ~SpielerAttrappe() override;

    // "URL <path>", "play", "pause", "stop", "close", "Position <s>", in order.
    QStringList aufrufe;
    // The length a loaded file reports; 0 plays without end.
    double dauer = 0.0;
    QList<QPair<QString, QString>> tags;
    QVideoWidget* videoAusgabe = nullptr;

    void setURL(const QString& pfad) override;
    QString URL() const override { return m_url; }
    void play() override;
    void pause() override;
    void stop() override;
    void close() override;
    double currentPosition() const override;
    void setCurrentPosition(double sekunden) override;
    double duration() const override { return m_url.isEmpty() ? 0.0 : dauer; }
    int playState() const override { return m_zustand; }
    void setVideoOutput(QVideoWidget* ausgabe) override { videoAusgabe = ausgabe; }
    QList<QPair<QString, QString>> attribute() const override { return tags; }

    // Sets the play state and reports it, even when it does not change.
    void zustandSetzen(int zustand);
    // The file plays to its end now: position at the length, stopped.
    void ende();

private:
    void wechseln(int zustand);
    void pruefen();
    qint64 uhrMs() const;

    QString m_url;
    int m_zustand = Gestoppt;
    double m_basis = 0.0; // position at the anchor
    qint64 m_anker = 0; // clock time of the anchor, ms
    class Zeitgeber* m_takt = nullptr;
    class MedienAttrappe* m_herkunft;
    friend class MedienAttrappe;
};

// Both sound paths without sound. Path one keeps the old engine's command language in
// its record ("open <path> alias <a>", "play <a> from 0", "stop <a>", "close <a>"), and
// an open alias refuses a second open, as the engine did.
class MedienAttrappe : public Medien {
public:
    ~MedienAttrappe() override;
    QStringList befehle;
    // Open aliases (lower case) and their files.
    QMap<QString, QString> offen;
    // False: every open is refused.
    bool oeffnenGelingt = true;
    // Lengths by path; paths not named here are measured for real.
    QHash<QString, double> laengen;
    QStringList gemessen;
    // The living controls, in the order they were made.
    QList<SpielerAttrappe*> spieler;

    bool oeffnenUndSpielen(const QString& pfad, const QString& alias) override;
    void stoppenUndSchliessen(const QString& alias) override;
    Medienspieler* neuerSpieler(QObject* eltern) override;
    double laenge(const QString& pfad) override;

    // The files that path one started playing, in order.
    QStringList gestartet() const;
    void leeren();
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
    static MedienAttrappe& medien();
    static EnergieAttrappe& energie();
    static SprachausgabeAttrappe& sprachausgabe();
    static ScannerAttrappe& scanner();
    // Installs fresh doubles for every service.
    static void installieren();
    // Forgets the answers and records of the dialogs, the media, the shell, the trash,
    // the sounds, the process end, the energy, the speech service and the scanner; the
    // clock runs on.
    static void leeren();
};
