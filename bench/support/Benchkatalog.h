#pragma once
// What the benchmarks share: catalogues of invented Carriers with RTF song lists, kept in a
// cache outside the source tree once made, the temporary home they run in, and figures.
#include <QCoreApplication>
#include <QElapsedTimer>
#include <QString>
#include <QTemporaryDir>

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

private:
    QTemporaryDir m_wurzel;
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
