// Path helpers, text files, colours and twips, the settings store, the error route, the
// mouse pointer and the copying of the shipped files.
#include "support/Testumgebung.h"

#include "platform/Einheiten.h"
#include "platform/Einzelinstanz.h"
#include "platform/Laufzeitfehler.h"
#include "platform/Mauszeiger.h"
#include "platform/Pfade.h"
#include "platform/Textdatei.h"
#include "shell/Anwendung.h"
#include "shell/Einstellungen.h"

#include <QDir>
#include <QFileInfo>
#include <QSignalSpy>

class TestPlattform : public QObject {
    Q_OBJECT
private slots:
    void pfadeUndEinheiten()
    {
        QCOMPARE(OrdnerAusPfad("/a/b/c.db"), QString("/a/b/"));
        QCOMPARE(OrdnerAusPfad("C:\\Musik\\Archiv.mdb"), QString("C:\\Musik\\"));
        QCOMPARE(DateinameAusPfad("C:\\Musik\\Archiv.mdb"), QString("Archiv.mdb"));
        QCOMPARE(OrdnerAusPfad("ohne"), QString());
        QCOMPARE(DateinameAusPfad("ohne"), QString("ohne"));
        QCOMPARE(MitSchraegstrich("/a"), QString("/a/"));
        QCOMPARE(MitSchraegstrich("/a/"), QString("/a/"));
        QCOMPARE(ProgrammOrdnerErmitteln(), Testumgebung::programmOrdner());
        QVERIFY(!DateiVorhanden(""));
        QVERIFY(!DateiVorhanden(Testumgebung::wurzel())); // a folder is no file
        // Colour numbers are BGR.
        QCOMPARE(NummerFarbe(3482368).name(), QString("#002335"));
        QCOMPARE(FarbNummer(NummerFarbe(16050915)), qint64(16050915));
        QCOMPARE(Px(15225), 1015);
        QCOMPARE(Twips(1015), 15225);
    }

    void textdateien()
    {
        const QString ordner = Testordner("text");
        // UTF-8 with a byte order mark and CR LF; Windows-1252 from an old installation.
        DateiSchreiben(ordner + "utf8.txt", "\xEF\xBB\xBFM\xC3\xA4" "dchen\r\nZ\xC3\xBC" "ge\r\n");
        QCOMPARE(TextdateiLesen(ordner + "utf8.txt"), (QStringList{"Mädchen", "Züge"}));
        DateiSchreiben(ordner + "ansi.txt", "M\xE4" "dchen\r\nStra\xDF" "e \x80\r\nletzte");
        QCOMPARE(TextdateiLesen(ordner + "ansi.txt"), (QStringList{"Mädchen", "Straße €", "letzte"}));
        // Half converted: each line is read by its own bytes.
        DateiSchreiben(ordner + "halb.txt", "M\xC3\xA4" "dchen\nStra\xDF" "e\r\n\xE2\x82\xAC\n");
        QCOMPARE(TextdateiLesen(ordner + "halb.txt"), (QStringList{"Mädchen", "Straße", "€"}));
        bool ok = true;
        QVERIFY(TextdateiLesen(ordner + "fehlt.txt", &ok).isEmpty());
        QVERIFY(!ok);
        // Written as UTF-8 with LF; a folder that does not exist: nothing written, nothing thrown.
        QVERIFY(TextdateiSchreiben(ordner + "neu.txt", {"Ärger", "", "Ende"}));
        QCOMPARE(DateiLesen(ordner + "neu.txt"), QByteArray("\xC3\x84rger\n\nEnde\n"));
        QCOMPARE(ErsteZeile(ordner + "neu.txt"), QString("Ärger"));
        QVERIFY(!TextdateiSchreiben(ordner + "gibtsnicht/x.txt", {"a"}));
    }

    void einstellungenOhneRuecksichtAufGrossschreibung()
    {
        Testumgebung::zuruecksetzen();
        QCOMPARE(Lesen("SQLformleft", "0"), QString("0"));
        Speichern("SQLformLeft", "1200");
        QCOMPARE(Lesen("SQLformleft", "0"), QString("1200"));
        Speichern("sqlformleft", "1300");
        Speichern("HäkchenBildpfad", "1");
        Speichern("WebTabelleUeberschrift", "Rock, Pop & Jazz");
        SaveSetting(AppNameVolume, Sektion, "MiniplayerLeft", "4500");
        // A fresh read from the files keeps the first spelling and every value.
        EinstellungenSchliessen();
        QCOMPARE(Lesen("SQLFORMLEFT"), QString("1300"));
        QCOMPARE(Lesen("häkchenbildpfad"), QString("1"));
        QCOMPARE(Lesen("WebTabelleUeberschrift"), QString("Rock, Pop & Jazz"));
        QCOMPARE(GetSetting(AppNameVolume, Sektion, "MiniplayerLeft"), QString("4500"));
        const QByteArray datei = DateiLesen(EinstellungsDatei(AppName));
        QVERIFY(datei.contains("SQLformLeft=1300"));
        QVERIFY(!datei.toLower().contains("sqlformleft=1200"));
        // Writing the same value again does not touch the file.
        const QDateTime vorher = QFileInfo(EinstellungsDatei(AppName)).lastModified();
        QTest::qWait(20);
        Speichern("SQLformLeft", "1300");
        QCOMPARE(QFileInfo(EinstellungsDatei(AppName)).lastModified(), vorher);
    }

    void fehlerweg()
    {
        Attrappen::dialoge().leeren();
        Fehlermeldung(Laufzeitfehler(53), "Ausgabebox_mnuOeffnen_Click");
        Fehlermeldung(Laufzeitfehler(Fehlernummer::DialogAbgebrochen), "Ausgabebox_mnuOeffnen_Click");
        FehlermeldungWarnfarben(Laufzeitfehler(3001, "no such table: Schallplatten"), "SQLform_CommandOK_Click");
        const auto m = Attrappen::dialoge().meldungen();
        QCOMPARE(m.size(), 2); // the dialog cancel stays silent
        QCOMPARE(m[0].text, QString("53 Datei nicht gefunden"));
        QCOMPARE(m[0].titel, QString("Ausgabebox_mnuOeffnen_Click"));
        QCOMPARE(m[1].text, QString("3001 no such table: Schallplatten"));
        QCOMPARE(m[1].hintergrund, Farbe::WarnHintergrund);
    }

    void mauszeigerIstEinZustand()
    {
        Mauszeiger(ZeigerSanduhr);
        Mauszeiger(ZeigerBeschaeftigt);
        QCOMPARE(QApplication::overrideCursor()->shape(), Qt::BusyCursor);
        Mauszeiger(ZeigerStandard);
        QVERIFY(!QApplication::overrideCursor());
    }

    void einzelinstanz()
    {
        Einzelinstanz erste(QStringLiteral("Probe"));
        QVERIFY(!erste.andereInstanzWecken());
        QVERIFY(erste.lauschen());
        QSignalSpy nachVorn(&erste, &Einzelinstanz::nachVorn);
        Einzelinstanz zweite(QStringLiteral("Probe"));
        QVERIFY(zweite.andereInstanzWecken());
        QVERIFY(nachVorn.wait(2000));
    }

    void mitgelieferteDateienWerdenNurErgaenzt()
    {
        const QString ordner = Testordner("programm");
        QVERIFY(RessourcenKopieren(ordner) >= 5);
        QVERIFY(QFileInfo(ordner + "Archiv_leer.db").isWritable());
        // A file the user changed stays as it is.
        DateiSchreiben(ordner + "Infozeichen.wav", "eigener Klang");
        QFile::remove(ordner + "Stoppzeichen.wav");
        QCOMPARE(RessourcenKopieren(ordner), 1);
        QCOMPARE(DateiLesen(ordner + "Infozeichen.wav"), QByteArray("eigener Klang"));
        QVERIFY(QFile::exists(ordner + "Stoppzeichen.wav"));
    }
};

RK_TEST_MAIN(TestPlattform)
#include "tst_plattform.moc"
