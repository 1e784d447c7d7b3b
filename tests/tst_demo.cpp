// The demo collection of the first start: the installer step puts it into the program
// folder with the paths of this machine, the program opens it, every track plays, and a
// user who has a demo or a hint already keeps them.
#include "support/Katalog.h"
#include "support/Testumgebung.h"

#include "catalogue/Datensteuerung.h"
#include "catalogue/FlexGrid.h"
#include "collections/frmStilausschlussliste.h"
#include "platform/Textdatei.h"
#include "playback/modPlatten.h"
#include "shell/Ausgabebox.h"
#include "shell/Einstellungen.h"

#include <QDir>
#include <QListWidget>
#include <QProcess>
#include <QRegularExpression>

namespace {

// Runs the installer step and returns its exit code (-1 when it did not end normally);
// without a folder it decides by itself from the environment.
int Einrichten(const QStringList& argumente, const QProcessEnvironment& umgebung = QProcessEnvironment::systemEnvironment())
{
    QProcess p;
    p.setProcessEnvironment(umgebung);
    p.setProcessChannelMode(QProcess::ForwardedErrorChannel);
    p.start(qEnvironmentVariable("RK_TEST_BINARY_DIR") + QStringLiteral("/demo-einrichten"), argumente);
    return p.waitForFinished(60000) && p.exitStatus() == QProcess::NormalExit ? p.exitCode() : -1;
}

} // namespace

class TestDemo : public QObject {
    Q_OBJECT

private slots:
    void sammlungIstVollstaendigUndSpielbar()
    {
        // A program folder with blanks and umlauts, as a home folder may have them.
        const QString programm = Testordner("Programm für Jürgen");
        QCOMPARE(Einrichten({programm}), 0);
        const QString demo = programm + "Demo/", katalog = demo + "Demo.db";
        QCOMPARE(ErsteZeile(programm + "PfadErststart.txt"), katalog);
        // The playlists listed beside the demo are the ones the program writes.
        QVERIFY(QDir().mkpath(programm + "Playlist"));
        DateiSchreiben(programm + "Playlist/Abend.txt", "");
        QVERIFY(QFileInfo::exists(demo + "Playlist/Abend.txt"));

        const QStringList baender = KatalogSpalte(katalog, "Band");
        const QStringList titel = KatalogSpalte(katalog, "LPTitel");
        const QStringList musik = KatalogSpalte(katalog, "Musikpfad");
        const QStringList bilder = KatalogSpalte(katalog, "BildPfad");
        int tracks = 0;
        for (int i = 0; i < baender.size(); ++i) {
            const QString name = baender[i] + " - " + titel[i];
            // Absolute, on this machine, closed by "/" since the program adds the file name;
            // the cover entry closed by "°".
            QCOMPARE(musik[i], demo + "Musik/" + name + "/");
            QCOMPARE(bilder[i], demo + "Bilder/" + name + ".png°");
            QVERIFY(QFileInfo(bilder[i].chopped(1)).isFile());
            const QFileInfoList dateien = QDir(musik[i]).entryInfoList(QDir::Files);
            QVERIFY2(!dateien.isEmpty(), qPrintable(name));
            for (const QFileInfo& d : dateien) {
                // Ratings are renames, so the copies must be writable.
                QVERIFY(d.isWritable());
                if (IstBilddatei(d.filePath()))
                    continue;
                const double sekunden = BassTracklaenge(d.filePath());
                QVERIFY2(sekunden > 1.0 && sekunden < 15.0, qPrintable(d.fileName()));
                ++tracks;
            }
        }
        QVERIFY(tracks >= 15);
        // Every format a collection commonly holds, and the list of the demo's styles for
        // the exclusion window, beside the catalogue and in the program folder.
        QStringList endungen;
        for (const QString& ordner : musik)
            for (const QFileInfo& d : QDir(ordner).entryInfoList(QDir::Files))
                endungen << d.suffix();
        for (const char* endung : {"mp3", "ogg", "flac", "wav", "wma", "mp4"})
            QVERIFY2(endungen.contains(endung), endung);
        QStringList stile = KatalogSpalte(katalog, "Stil");
        stile.sort();
        stile.removeDuplicates();
        QCOMPARE(TextdateiLesen(demo + "Stilrichtung.ini"), stile);

        // The rich text fields are plain ASCII RTF with the German letters escaped, and
        // the blank rule holds for the empty fields.
        const QString songs = KatalogSpalte(katalog, "Songs").join("");
        QVERIFY(songs.contains("M\\'f6wengeschrei"));
        QVERIFY(!songs.contains(QRegularExpression("[^\\x{0}-\\x{7f}]")));
        for (const char* spalte : {"Band", "Medium", "Stil", "SongText", "InternetTab", "InfoTab", "SonstigesTab"})
            QVERIFY2(!KatalogSpalte(katalog, spalte).contains(QString()), spalte);
    }

    void einmalEingerichtetBleibtEsUnberuehrt()
    {
        const QString programm = Testordner("wiederholt");
        QCOMPARE(Einrichten({programm}), 0);
        const QString demo = programm + "Demo/";
        const QString musik = demo + "Musik/Die Kieselsteine - Ebbe und Flut/";
        // The user rates a track, edits a record and points the hint elsewhere.
        QVERIFY(QFile::rename(musik + "Ebbe - 5.ogg", musik + "Ebbe - 2.ogg"));
        KatalogAusfuehren(demo + "Demo.db", "update Schallplatten set Info = 'meins' where Band = 'Mäuseklavier'");
        DateiSchreiben(programm + "PfadErststart.txt", "/anderswo/Archiv.db\n");
        QCOMPARE(Einrichten({programm}), 0);
        QVERIFY(!QFile::exists(musik + "Ebbe - 5.ogg"));
        QVERIFY(KatalogSpalte(demo + "Demo.db", "Info").contains("meins"));
        QCOMPARE(ErsteZeile(programm + "PfadErststart.txt"), QString("/anderswo/Archiv.db"));
        // A folder that cannot be made is an error, not a half installation.
        const QString blockiert = Testordner("blockiert");
        DateiSchreiben(blockiert + "Demo", "eine Datei, kein Ordner");
        QCOMPARE(Einrichten({blockiert}), 1);
        QVERIFY(!QFile::exists(blockiert + "PfadErststart.txt"));
    }

    void ohneOrdnerNurBeimErstenStart()
    {
        // Without a folder the step follows the program's own folders, and leaves a user
        // who has settings alone.
        QProcessEnvironment umgebung = QProcessEnvironment::systemEnvironment();
        const QString daten = Testordner("xdg/daten"), konfig = Testordner("xdg/konfig");
        umgebung.insert("XDG_DATA_HOME", daten);
        umgebung.insert("XDG_CONFIG_HOME", konfig);
        DateiSchreiben(konfig + "Rillenkammer/Rillenkammer.ini", "[Options]\nArchivPfad=/meine/Sammlung.db\n");
        QCOMPARE(Einrichten({}, umgebung), 0);
        QVERIFY(!QFileInfo::exists(daten + "Rillenkammer"));
        QFile::remove(konfig + "Rillenkammer/Rillenkammer.ini");
        QCOMPARE(Einrichten({}, umgebung), 0);
        QCOMPARE(ErsteZeile(daten + "Rillenkammer/PfadErststart.txt"), daten + "Rillenkammer/Demo/Demo.db");
        QVERIFY(QFileInfo::exists(daten + "Rillenkammer/Demo/Demo.db"));
    }

    void programmStartetMitDerDemo()
    {
        Testumgebung::zuruecksetzen();
        const QString programm = Testumgebung::programmOrdner();
        QCOMPARE(Einrichten({programm}), 0);
        Ausgabebox w;
        w.Form_Load();
        QCOMPARE(Lesen("ArchivPfad"), programm + "Demo/Demo.db");
        QCOMPARE(w.Data1->DatabaseName(), programm + "Demo/Demo.db");
        QCOMPARE(w.MSFlexGrid1->Rows(), 1 + KatalogSpalte(programm + "Demo/Demo.db", "Band").size());
        QVERIFY(Attrappen::dialoge().meldungen().isEmpty());
        QCOMPARE(TextdateiLesen(programm + "Stilrichtung.ini"), TextdateiLesen(programm + "Demo/Stilrichtung.ini"));
        // The style window offers the demo's styles.
        frmStilausschlussliste stile(&w);
        stile.Form_Load();
        QStringList angeboten;
        for (int i = 0; i < stile.lstStilrichtung->count(); ++i)
            angeboten << stile.lstStilrichtung->item(i)->text();
        QCOMPARE(angeboten, TextdateiLesen(programm + "Demo/Stilrichtung.ini"));
        QVERIFY(angeboten.contains("Blasmusik"));
    }
};

RK_TEST_MAIN(TestDemo)
#include "tst_demo.moc"
