#pragma once
// The real dialog service: the system's own message and input boxes and Qt's file, folder,
// font and colour dialogs.
#include "platform/Dialogdienst.h"

#include <QStringList>

class QWidget;

class EchterDialogdienst : public Dialogdienst {
public:
    QString MsgNimb(const Meldung& m) override;
    QString InputNimb(const Eingabe& e) override;
    QString Datei(const Dateiauswahl& d) override;
    QString Ordner(const QString& titel, const QString& startordner) override;
    bool Schrift(Schriftauswahl& s) override;
    bool Farbe(QColor& c) override;
    int Auswahl(const QString& titel, const QString& frage, const QStringList& eintraege) override;
};

// Makes the program's dialog service the real one; called once at start.
void EchteDialogeAnmelden();

// The window a dialog belongs to: the open modal window, else the active window, else
// the main window "Ausgabebox"; nullptr when there is none.
QWidget* Bezugsfenster();

// "Datenbank (*.db)|*.db|alle Dateien (*.*)|*.*" as Qt's name filters:
// "Datenbank (*.db)", "alle Dateien (*)".
QStringList DateifilterUmwandeln(const QString& filter);
