// The Track file operations on a large music folder: a Carrier whose folder holds 1,000
// Tracks, on the real main window (a catalogue of one row in a temporary home). Times,
// from the menu entry until the list shows the new names: capitals at the word beginnings,
// a text before all names, search and replace, and n characters cut at the front, each
// over all 1,000 marked Tracks. Every run works on fresh names, so that each renames all.
//
//   bench_trackdateien [-n runs] [Tracks]
#include "support/Benchkatalog.h"

#include "platform/Dialogdienst.h"
#include "platform/Dienste.h"
#include "shell/Anwendung.h"
#include "shell/Ausgabebox.h"
#include "shell/Einstellungen.h"
#include "shell/Steuerelemente.h"

#include <QAbstractButton>
#include <QAction>
#include <QApplication>
#include <QDialog>
#include <QDir>
#include <QFile>
#include <QQueue>
#include <QTimer>

#include <sqlite3.h>

#include <cstdio>
#include <functional>

namespace {

// Questions are answered "Ja", input boxes from a queue; the find dialog is answered by
// the step set for it.
class Dialoge : public Dialogdienst {
public:
    QQueue<QString> eingaben;
    int meldungen = 0;
    QString MsgNimb(const Meldung& m) override
    {
        if (m.typ == 3) {
            ++meldungen;
            std::printf("message: %s\n", qPrintable(m.text));
        }
        return QStringLiteral("Ja");
    }
    QString InputNimb(const Eingabe&) override
    {
        return eingaben.isEmpty() ? QString() : eingaben.dequeue();
    }
    QString Datei(const Dateiauswahl&) override { return {}; }
    QString Ordner(const QString&, const QString&) override { return {}; }
    bool Schrift(Schriftauswahl&) override { return false; }
    bool Farbe(QColor&) override { return false; }
    int Auswahl(const QString&, const QString&, const QStringList&) override { return -1; }
};

// A catalogue of one Carrier whose Musikpfad is the folder.
void KatalogMitOrdner(const QString& pfad, const QString& ordner)
{
    QFile::copy(QStringLiteral(":/resources/programmordner/Archiv_leer.db"), pfad);
    QFile::setPermissions(pfad, QFile::ReadOwner | QFile::WriteOwner);
    sqlite3* db = nullptr;
    sqlite3_open(pfad.toUtf8().constData(), &db);
    const QByteArray sql
        = QStringLiteral("delete from Schallplatten; insert into Schallplatten (Band, LPTitel, "
                         "Musikpfad) values ('Tausend Lieder', 'Gesamtwerk', '%1');")
              .arg(QString(ordner).replace(u'\'', QStringLiteral("''")))
              .toUtf8();
    sqlite3_exec(db, sql.constData(), nullptr, nullptr, nullptr);
    sqlite3_close(db);
}

// Fresh names of the kind a ripper leaves: number, small letters, rating.
void OrdnerFuellen(const QString& ordner, int anzahl, int lauf)
{
    QDir d(ordner);
    for (const QString& n : d.entryList(QDir::Files | QDir::Hidden))
        d.remove(n);
    for (int i = 1; i <= anzahl; ++i)
        QFile(ordner
              + QStringLiteral("%1 das lied nummer %1 vom (live) mond-licht, lauf %2 - %3.mp3")
                    .arg(i, 4, 10, QChar(u'0'))
                    .arg(lauf)
                    .arg(1 + i % 6))
            .open(QIODevice::WriteOnly);
}

} // namespace

int main(int argc, char** argv)
{
    int laeufe = 5;
    int tracks = 1000;
    for (int i = 1; i < argc; ++i) {
        if (QByteArray(argv[i]) == "-n" && i + 1 < argc)
            laeufe = std::max(1, std::atoi(argv[++i]));
        else if (std::atoi(argv[i]) > 0)
            tracks = std::atoi(argv[i]);
    }
    Benchumgebung umgebung;
    QApplication app(argc, argv);
    RessourcenAnmelden();
    auto dialoge = std::make_unique<Dialoge>();
    Dialoge* antworten = dialoge.get();
    D().setzeDialoge(std::move(dialoge));

    const QString ordner = umgebung.pfad() + QStringLiteral("/Musik/Tausend Lieder/");
    QDir().mkpath(ordner);
    OrdnerFuellen(ordner, tracks, 0);
    const QString katalog = umgebung.pfad() + QStringLiteral("/Tausend.db");
    KatalogMitOrdner(katalog, ordner);
    Speichern(QStringLiteral("ArchivPfad"), katalog);

    Ausgabebox w;
    w.Form_Load();
    w.show();
    QCoreApplication::processEvents();
    if (w.filTrack->count() != tracks) {
        std::printf("the list shows %d Tracks, not %d\n", int(w.filTrack->count()), tracks);
        return 1;
    }

    // Each command over all Tracks, marked, on fresh names; every name must have changed.
    auto befehl = [&](const char* name, QAction* eintrag, const std::function<void()>& vorher) {
        std::vector<double> ms;
        for (int lauf = 1; lauf <= laeufe; ++lauf) {
            OrdnerFuellen(ordner, tracks, lauf);
            w.filTrack->Refresh();
            w.filTrack->selectAll();
            const QStringList alt = QDir(ordner).entryList(QDir::Files);
            vorher();
            ms.push_back(messen([&] { eintrag->trigger(); }));
            const QStringList neu = QDir(ordner).entryList(QDir::Files);
            int gleich = 0;
            for (const QString& n : neu)
                gleich += alt.contains(n) ? 1 : 0;
            if (neu.size() != tracks || gleich > 0 || w.filTrack->count() != tracks) {
                std::printf("%s: %d names left as they were, %d files\n", name, gleich,
                            int(neu.size()));
                std::exit(1);
            }
        }
        std::printf("%-44s %8.1f / %8.1f ms\n", name, median(ms), maximum(ms));
    };
    std::printf("\n%d Tracks, all marked, ms (median / maximum of %d runs)\n", tracks, laeufe);
    befehl("Tracks Wortanfang in Großbuchstaben", w.mnuTrackGrossbuchstabe, [] {});
    befehl("Tracks umbenennen: Text vor Tracks", w.mnuTracksRenameTextTrack,
           [&] { antworten->eingaben.enqueue(QStringLiteral("Neu ")); });
    befehl("Tracks n Zeichen vorn entfernen (5)", w.mnuTracksZeichenEntfernen,
           [&] { antworten->eingaben.enqueue(QStringLiteral("5")); });
    befehl("Tracks suchen und ersetzen", w.mnuTrackSuchenErsetzen, [&] {
        QTimer::singleShot(0, &w, [] {
            auto* d = qobject_cast<QDialog*>(QApplication::activeModalWidget());
            if (!d)
                return;
            d->findChild<Textfeld*>(QStringLiteral("Text_Suchen"))
                ->setText(QStringLiteral("das lied"));
            d->findChild<Textfeld*>(QStringLiteral("Text_Ersetzen"))
                ->setText(QStringLiteral("Das Lied"));
            d->findChild<QAbstractButton*>(QStringLiteral("Button_OK"))->click();
        });
    });
    if (antworten->meldungen > 0) {
        std::printf("%d error messages\n", antworten->meldungen);
        return 1;
    }
    EinstellungenSchliessen();
    return 0;
}
