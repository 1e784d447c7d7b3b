#pragma once
// Headless test runs: every run gets its own temporary home, config, data and runtime
// folders, so that no test reads or writes the real home folder, and the doubles of
// all platform services.
#include "Attrappen.h"

#include <QApplication>
#include <QString>
#include <QTest>

class Testumgebung {
public:
    Testumgebung();
    ~Testumgebung();
    // The temporary root of this run.
    static QString wurzel();
    // ProgrammOrdner of this run ($XDG_DATA_HOME/Rillenkammer/).
    static QString programmOrdner();
    // Empties config and data folders and forgets the open settings stores.
    static void zuruecksetzen();
};

// Makes a test folder below the run's root and returns it with a trailing "/".
QString Testordner(const QString& name);
// Writes bytes to a file, making its folder.
void DateiSchreiben(const QString& pfad, const QByteArray& inhalt);
QByteArray DateiLesen(const QString& pfad);
// Sends a text with umlauts to a widget, one key event per character.
void TasteText(QWidget* w, const QString& text);

#define RK_TEST_MAIN(Klasse)                                                                \
    int main(int argc, char** argv)                                                         \
    {                                                                                       \
        Testumgebung umgebung;                                                              \
        QApplication app(argc, argv);                                                       \
        Attrappen::installieren();                                                          \
        Klasse test;                                                                        \
        return QTest::qExec(&test, argc, argv);                                             \
    }
