// The playlist on a large catalogue: loading a playlist of 10,000 rows until the list shows,
// and starting one of its rows until the table stands on the song's Carrier, on the real
// main window with the catalogue of the benchmark cache (a copy, in a temporary home). The
// sound engine opens nothing: the figures are the program's, not those of the machine's
// sound devices (without any, as under the benchmark, opening a file takes a second).
//
//   bench_playlist [-n runs] [Carriers] [rows]
#include "support/Benchkatalog.h"

#include "catalogue/FlexGrid.h"
#include "collections/Playlisten.h"
#include "platform/Dialogdienst.h"
#include "platform/Dienste.h"
#include "platform/Medien.h"
#include "platform/Pfade.h"
#include "platform/Textdatei.h"
#include "playback/Abspieler.h"
#include "shell/Anwendung.h"
#include "shell/Ausgabebox.h"
#include "shell/Einstellungen.h"
#include "shell/Globale.h"
#include "shell/Steuerelemente.h"

#include <QAction>
#include <QApplication>
#include <QDir>
#include <QFile>
#include <QRandomGenerator>
#include <QTreeWidget>

#include <cstdio>

namespace {

// The open dialog answers with the playlist; every other dialog is cancelled.
class Dialoge : public Dialogdienst {
public:
    QString datei;
    QString MsgNimb(const Meldung&) override { return {}; }
    QString InputNimb(const Eingabe&) override { return {}; }
    QString Datei(const Dateiauswahl&) override { return datei; }
    QString Ordner(const QString&, const QString&) override { return {}; }
    bool Schrift(Schriftauswahl&) override { return false; }
    bool Farbe(QColor&) override { return false; }
    int Auswahl(const QString&, const QString&, const QStringList&) override { return -1; }
};

// The sound engine without sound: lengths are read, nothing is opened.
class StilleMedien : public Medien {
public:
    bool oeffnenUndSpielen(const QString&, const QString&) override { return true; }
    void stoppenUndSchliessen(const QString&) override {}
    Medienspieler* neuerSpieler(QObject* eltern) override { return m_echt->neuerSpieler(eltern); }
    double laenge(const QString& pfad) override { return m_echt->laenge(pfad); }

private:
    std::unique_ptr<Medien> m_echt = EchteMedienErzeugen();
};

// Lines from the catalogue's music folders, in a mixed order without direct repetitions.
QStringList playlistZeilen(const QString& musik, int anzahl)
{
    QStringList dateien;
    for (const QString& ordner : QDir(musik).entryList(QDir::Dirs | QDir::NoDotAndDotDot))
        for (const QString& datei : QDir(musik + ordner).entryList(QDir::Files))
            dateien << musik + ordner + u'/' + datei;
    QRandomGenerator z(815);
    QStringList zeilen;
    while (zeilen.size() < anzahl) {
        const QString d = dateien.at(z.bounded(int(dateien.size())));
        if (zeilen.isEmpty() || zeilen.last() != d)
            zeilen << d;
    }
    return zeilen;
}

} // namespace

int main(int argc, char** argv)
{
    int laeufe = 20;
    int tontraeger = 100000;
    int zeilen = 10000;
    std::vector<int> zahlen;
    for (int i = 1; i < argc; ++i) {
        if (QByteArray(argv[i]) == "-n" && i + 1 < argc)
            laeufe = std::max(1, std::atoi(argv[++i]));
        else if (std::atoi(argv[i]) > 0)
            zahlen.push_back(std::atoi(argv[i]));
    }
    if (!zahlen.empty())
        tontraeger = zahlen[0];
    if (zahlen.size() > 1)
        zeilen = zahlen[1];

    Benchumgebung umgebung;
    QApplication app(argc, argv);
    RessourcenAnmelden();
    auto dialoge = std::make_unique<Dialoge>();
    Dialoge* antworten = dialoge.get();
    D().setzeDialoge(std::move(dialoge));
    D().setzeMedien(std::make_unique<StilleMedien>());

    const QString quelle = KatalogImCache(tontraeger);
    umgebung.Arbeitskatalog(quelle);
    Speichern(QStringLiteral("WinMediaPlayer"), QStringLiteral("False"));

    Ausgabebox w;
    w.Form_Load();
    w.show();
    QCoreApplication::processEvents();
    const QString musik = OrdnerAusPfad(quelle) + QStringLiteral("musik-%1/").arg(tontraeger);
    antworten->datei = ProgrammOrdner + QStringLiteral("Playlist/Bench.txt");
    TextdateiSchreiben(antworten->datei, playlistZeilen(musik, zeilen));

    std::vector<double> laden;
    for (int lauf = 0; lauf < laeufe; ++lauf)
        laden.push_back(messen([&] { w.mnuPlaylistLaden->trigger(); }));
    const int geladen = w.lvwPlaylist->topLevelItemCount();

    // Rows started one after another, as the sequencer starts them while a song plays;
    // each start walks the table to the first Carrier whose cells name the song.
    FlexGrid* g = w.MSFlexGrid1;
    const int musikSpalte = g->SpalteSuchen(QStringLiteral("Musikpfad"));
    QRandomGenerator z(4711);
    std::vector<double> starten;
    std::vector<double> suchen;
    int gefunden = 0;
    for (int lauf = 0; lauf < 5 * laeufe; ++lauf) {
        const int nr = 1 + z.bounded(geladen);
        QTreeWidgetItem* zeile = w.lvwPlaylist->topLevelItem(nr - 1);
        w.lvwPlaylist->setCurrentItem(zeile);
        TrackIndex = nr;
        starten.push_back(messen([&] { w.imgStart->click(); }));
        const QString ordner = zeile->text(2) + zeile->text(1);
        if (g->TextMatrix(g->Row(), musikSpalte).contains(ordner) && TrackIndex == nr)
            ++gefunden;
        // The search alone, for another row's song, from another Carrier.
        w.lvwPlaylist->setCurrentItem(w.lvwPlaylist->topLevelItem(z.bounded(geladen)));
        g->setRow(1 + z.bounded(g->Rows() - 1));
        QCoreApplication::processEvents();
        suchen.push_back(messen([&] {
            w.playlisten().PlaylistTitelErzwingen = true;
            w.playlisten().SuchenPlaylistTitel();
        }));
    }
    w.abspieler().imgStop_Click();

    std::printf("\n%d Carriers, playlist of %d rows, ms (median / 99th percentile / maximum)\n", tontraeger, geladen);
    std::printf("%-44s %8.1f / %8.1f / %8.1f\n", "load and show the playlist", median(laden), quantil(laden, 0.99),
                maximum(laden));
    std::printf("%-44s %8.1f / %8.1f / %8.1f\n", "start a row (start command, table follows)", median(starten),
                quantil(starten, 0.99), maximum(starten));
    std::printf("%-44s %8.1f / %8.1f / %8.1f\n", "  the title search alone (table to Carrier)", median(suchen),
                quantil(suchen, 0.99), maximum(suchen));
    std::printf("starts that left the table on the song's own Carrier: %d of %zu\n", gefunden, starten.size());
    return 0;
}
