// The demo collection of the first start: the installer step puts it into the program
// folder with the paths of this machine, the program opens it, every track plays, and a
// user who has a demo or a hint already keeps them.
#include "support/Katalog.h"
#include "support/Testumgebung.h"

#include "catalogue/Datenbank.h"
#include "catalogue/Datensteuerung.h"
#include "catalogue/FlexGrid.h"
#include "platform/Medien.h"
#include "platform/Textdatei.h"
#include "playback/modPlatten.h"
#include "shell/Ausgabebox.h"
#include "shell/Einstellungen.h"

#include <QDirIterator>
#include <QProcess>
#include <QRegularExpression>

#include <sqlite3.h>

namespace {

struct Lauf {
    int code = -1;
    QString ausgabe;
};

// Runs the installer step; without a folder it decides by itself from the environment.
Lauf Einrichten(const QStringList& argumente, const QProcessEnvironment& umgebung = QProcessEnvironment::systemEnvironment())
{
    QProcess p;
    p.setProcessEnvironment(umgebung);
    p.start(qEnvironmentVariable("RK_TEST_BINARY_DIR") + QStringLiteral("/demo-einrichten"), argumente);
    Lauf l;
    if (!p.waitForStarted(10000)) {
        l.ausgabe = QStringLiteral("demo-einrichten not found: ") + p.program();
        return l;
    }
    if (p.waitForFinished(60000) && p.exitStatus() == QProcess::NormalExit)
        l.code = p.exitCode();
    l.ausgabe = QString::fromUtf8(p.readAllStandardOutput() + p.readAllStandardError());
    return l;
}

qint64 Groesse(const QString& ordner)
{
    qint64 summe = 0;
    QDirIterator it(ordner, QDir::Files, QDirIterator::Subdirectories);
    while (it.hasNext()) {
        it.next();
        summe += it.fileInfo().size();
    }
    return summe;
}

QByteArray Cover(const QString& katalog, int zeile)
{
    QByteArray daten;
    sqlite3* db = nullptr;
    sqlite3_open_v2(katalog.toUtf8().constData(), &db, SQLITE_OPEN_READONLY, nullptr);
    sqlite3_stmt* st = nullptr;
    if (sqlite3_prepare_v2(db, "select Bilder from Schallplatten order by rowid limit 1 offset ?", -1, &st, nullptr)
        == SQLITE_OK) {
        sqlite3_bind_int(st, 1, zeile);
        if (sqlite3_step(st) == SQLITE_ROW)
            daten = QByteArray(static_cast<const char*>(sqlite3_column_blob(st, 0)), sqlite3_column_bytes(st, 0));
    }
    sqlite3_finalize(st);
    sqlite3_close(db);
    return daten;
}

} // namespace

class TestDemo : public QObject {
    Q_OBJECT

private slots:
    void init() { Attrappen::medien().leeren(); }

    void sammlungIstVollstaendigUndSpielbar()
    {
        // A program folder with blanks and umlauts, as a home folder may have them.
        const QString programm = Testordner("Programm für Jürgen");
        const Lauf l = Einrichten({programm});
        QVERIFY2(l.code == 0, qPrintable(l.ausgabe));
        const QString demo = programm + "Demo/";
        const QString katalog = demo + "Demo.db";
        QCOMPARE(ErsteZeile(programm + "PfadErststart.txt"), katalog);
        QVERIFY(Datenbank::oeffnen(katalog) != nullptr);

        const QStringList baender = KatalogSpalte(katalog, "Band");
        QCOMPARE(baender.size(), 8);
        const QStringList titel = KatalogSpalte(katalog, "LPTitel");
        const QStringList musik = KatalogSpalte(katalog, "Musikpfad");
        const QStringList bilder = KatalogSpalte(katalog, "BildPfad");
        const QStringList wertungen = KatalogSpalte(katalog, "Bewertung");
        const QRegularExpression bewertet(QStringLiteral(" - [1-6]\\.[^.]+$"));
        int bewerteteTracks = 0, unbewertete = 0, filme = 0, fotos = 0;
        for (int i = 0; i < baender.size(); ++i) {
            const QString name = baender[i] + " - " + titel[i];
            // Absolute, on this machine, closed by "/" since the program adds the file name.
            QCOMPARE(musik[i], demo + "Musik/" + name + "/");
            // The cover naming rule, in Bilder beside the catalogue, the entry closed by "°".
            QCOMPARE(bilder[i], demo + "Bilder/" + name + ".png°");
            QVERIFY(QFileInfo(bilder[i].chopped(1)).isFile());
            QVERIFY(Cover(katalog, i).startsWith("\x89PNG"));
            QVERIFY2(QStringList({"1", "2", "3", "4", "5", "6"}).contains(wertungen[i]), qPrintable(name));

            const QFileInfoList dateien = QDir(musik[i]).entryInfoList(QDir::Files);
            QVERIFY2(!dateien.isEmpty(), qPrintable(name));
            for (const QFileInfo& d : dateien) {
                // Ratings are renames, so the copies must be writable.
                QVERIFY(d.isWritable());
                if (IstBilddatei(d.filePath())) {
                    ++fotos;
                    QCOMPARE(BassTracklaenge(musik[i] + d.fileName()), -1.0);
                    continue;
                }
                const double sekunden = BassTracklaenge(musik[i] + d.fileName());
                QVERIFY2(sekunden > 1.0 && sekunden < 15.0, qPrintable(d.fileName()));
                filme += d.suffix() == u"mp4";
                (bewertet.match(d.fileName()).hasMatch() ? bewerteteTracks : unbewertete)++;
            }
        }
        QCOMPARE(filme, 1);
        QCOMPARE(fotos, 1);
        QVERIFY(bewerteteTracks >= 12);
        QVERIFY(unbewertete >= 3);
        QVERIFY2(Groesse(demo) < 3 * 1024 * 1024, qPrintable(QString::number(Groesse(demo))));

        // The rich text fields are ANSI RTF with escapes for the German letters, and the
        // blank rule holds for the empty ones.
        const QStringList songs = KatalogSpalte(katalog, "Songs");
        for (const QString& s : songs) {
            QVERIFY(s.startsWith("{\\rtf1\\ansi\\ansicpg1252\\deff0{\\fonttbl{\\f0\\fnil Segoe UI;}}"));
            QVERIFY(!s.contains(QRegularExpression("[^\\x{0}-\\x{7f}]")));
        }
        QVERIFY(songs.join("").contains("M\\'f6wengeschrei"));
        const QStringList texte = KatalogSpalte(katalog, "SongText");
        QVERIFY(texte.contains(" "));
        QVERIFY(texte.join("").contains("\\b Ebbe\\b0"));
        for (const char* spalte : {"Band", "Medium", "Stil", "InternetTab", "InfoTab", "SonstigesTab"})
            for (const QString& wert : KatalogSpalte(katalog, spalte))
                QVERIFY2(!wert.isEmpty(), spalte);
    }

    void einmalEingerichtetBleibtEsUnberuehrt()
    {
        const QString programm = Testordner("wiederholt");
        QCOMPARE(Einrichten({programm}).code, 0);
        const QString demo = programm + "Demo/";
        const QString musik = demo + "Musik/Die Kieselsteine - Ebbe und Flut/";
        // The user rates a track, edits a record and points the hint elsewhere.
        QVERIFY(QFile::rename(musik + "Ebbe - 5.ogg", musik + "Ebbe - 2.ogg"));
        KatalogAusfuehren(demo + "Demo.db", "update Schallplatten set Info = 'meins' where Band = 'Mäuseklavier'");
        DateiSchreiben(programm + "PfadErststart.txt", "/anderswo/Archiv.db\n");
        QCOMPARE(Einrichten({programm}).code, 0);
        QVERIFY(!QFile::exists(musik + "Ebbe - 5.ogg"));
        QVERIFY(QFile::exists(musik + "Ebbe - 2.ogg"));
        QVERIFY(KatalogSpalte(demo + "Demo.db", "Info").contains("meins"));
        QCOMPARE(ErsteZeile(programm + "PfadErststart.txt"), QString("/anderswo/Archiv.db"));
        // A folder that cannot be made is an error, not a half installation.
        DateiSchreiben(Testordner("blockiert") + "Demo", "eine Datei, kein Ordner");
        const Lauf l = Einrichten({Testordner("blockiert")});
        QCOMPARE(l.code, 1);
        QVERIFY(!QFile::exists(Testordner("blockiert") + "PfadErststart.txt"));
        QCOMPARE(Einrichten({"-x"}).code, 2);
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
        QCOMPARE(Einrichten({}, umgebung).code, 0);
        QVERIFY(!QFileInfo::exists(daten + "Rillenkammer"));
        QFile::remove(konfig + "Rillenkammer/Rillenkammer.ini");
        QCOMPARE(Einrichten({}, umgebung).code, 0);
        QCOMPARE(ErsteZeile(daten + "Rillenkammer/PfadErststart.txt"), daten + "Rillenkammer/Demo/Demo.db");
        QVERIFY(QFileInfo::exists(daten + "Rillenkammer/Demo/Demo.db"));
    }

    void programmStartetMitDerDemo()
    {
        Testumgebung::zuruecksetzen();
        const QString programm = Testumgebung::programmOrdner();
        QCOMPARE(Einrichten({programm}).code, 0);
        Ausgabebox w;
        w.Form_Load();
        QCOMPARE(Lesen("ArchivPfad"), programm + "Demo/Demo.db");
        QCOMPARE(w.Data1->DatabaseName(), programm + "Demo/Demo.db");
        QCOMPARE(w.MSFlexGrid1->Rows(), 9);
        QVERIFY(!w.LadenFehlgeschlagen);
        QVERIFY(Attrappen::dialoge().meldungen().isEmpty());
    }
};

RK_TEST_MAIN(TestDemo)
#include "tst_demo.moc"
