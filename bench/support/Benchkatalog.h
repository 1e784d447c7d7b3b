#pragma once
// What the benchmarks share: catalogues of invented Carriers with RTF song lists, kept in a
// cache outside the source tree once made, the temporary home they run in, and figures.
#include "platform/Dialogdienst.h"

#include <QCoreApplication>
#include <QElapsedTimer>
#include <QString>
#include <QTemporaryDir>

#include <utility>
#include <vector>

// Makes a catalogue of that many Carriers at the path; a sample of the rows names music
// folders of twelve files below musikWurzel.
void KatalogAnlegen(const QString& pfad, const QString& musikWurzel, int zeilen);
// The catalogue of that many Carriers in the benchmark cache ($RK_BENCH_CACHE, else
// $XDG_CACHE_HOME/rillenkammer-bench, else ~/.cache/rillenkammer-bench), made when missing.
QString KatalogImCache(int zeilen);

// A temporary home (settings, program folder, runtime folder) for the run, so that a
// benchmark touches no setting of the user. Call before the QApplication is made.
class Benchumgebung {
public:
    Benchumgebung();
    QString pfad() const { return m_wurzel.path(); }
    // A writable copy of the cached catalogue in the temporary home, named as the one the
    // window opens (ArchivPfad).
    QString Arbeitskatalog(const QString& quelle) const;

private:
    QTemporaryDir m_wurzel;
};

// Every question gets the same answer; every other dialog is cancelled.
class FesteAntwort : public Dialogdienst {
public:
    explicit FesteAntwort(QString antwort = {})
        : m_antwort(std::move(antwort))
    {
    }
    QString MsgNimb(const Meldung&) override { return m_antwort; }
    QString InputNimb(const Eingabe&) override { return {}; }
    QString Datei(const Dateiauswahl&) override { return {}; }
    QString Ordner(const QString&, const QString&) override { return {}; }
    bool Schrift(Schriftauswahl&) override { return false; }
    bool Farbe(QColor&) override { return false; }
    int Auswahl(const QString&, const QString&, const QStringList&) override { return -1; }

private:
    QString m_antwort;
};

double median(std::vector<double> v);
double quantil(std::vector<double> v, double q);
double maximum(const std::vector<double>& v);
long residentKb();

// Runs the command and lets the window finish what it started; milliseconds.
template <class F>
double messen(F befehl)
{
    QElapsedTimer uhr;
    uhr.start();
    befehl();
    QCoreApplication::processEvents();
    return double(uhr.nsecsElapsed()) / 1e6;
}
