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
    void pfade()
    {
        QCOMPARE(DateinameAusPfad("/a/b/c.db"), QString("c.db"));
        QCOMPARE(OrdnerAusPfad("/a/b/c.db"), QString("/a/b/"));
        QCOMPARE(OrdnerAusPfad("C:\\Musik\\Archiv.mdb"), QString("C:\\Musik\\"));
        QCOMPARE(DateinameAusPfad("C:\\Musik\\Archiv.mdb"), QString("Archiv.mdb"));
        QCOMPARE(OrdnerAusPfad("ohne"), QString());
        QCOMPARE(DateinameAusPfad("ohne"), QString("ohne"));
        QCOMPARE(MitSchraegstrich("/a"), QString("/a/"));
        QCOMPARE(MitSchraegstrich("/a/"), QString("/a/"));
        QVERIFY(ProgrammOrdnerErmitteln().endsWith("/data/Rillenkammer/"));
        QVERIFY(ProgrammOrdnerErmitteln().startsWith(Testumgebung::wurzel()));
        QVERIFY(!DateiVorhanden(""));
        QVERIFY(!DateiVorhanden(Testumgebung::wurzel())); // a folder is no file
    }

    void textdateien()
    {
        const QString ordner = Testordner("text");
        // UTF-8 with a byte order mark and CR LF.
        DateiSchreiben(ordner + "utf8.txt", "\xEF\xBB\xBFM\xC3\xA4" "dchen\r\nZ\xC3\xBC" "ge\r\n");
        QCOMPARE(TextdateiLesen(ordner + "utf8.txt"), (QStringList{"Mädchen", "Züge"}));
        // Windows-1252 from an old installation: ä, ß and the euro sign.
        DateiSchreiben(ordner + "ansi.txt", "M\xE4" "dchen\r\nStra\xDF" "e \x80\r\nletzte");
        QCOMPARE(TextdateiLesen(ordner + "ansi.txt"), (QStringList{"Mädchen", "Straße €", "letzte"}));
        bool ok = true;
        QVERIFY(TextdateiLesen(ordner + "fehlt.txt", &ok).isEmpty());
        QVERIFY(!ok);
        // Written as UTF-8 with LF, and read back alike.
        QVERIFY(TextdateiSchreiben(ordner + "neu.txt", {"Ärger", "", "Ende"}));
        QCOMPARE(DateiLesen(ordner + "neu.txt"), QByteArray("\xC3\x84rger\n\nEnde\n"));
        QCOMPARE(TextdateiLesen(ordner + "neu.txt"), (QStringList{"Ärger", "", "Ende"}));
        QCOMPARE(ErsteZeile(ordner + "neu.txt"), QString("Ärger"));
        // A folder that does not exist: nothing written, nothing thrown.
        QVERIFY(!TextdateiSchreiben(ordner + "gibtsnicht/x.txt", {"a"}));
        QCOMPARE(Cp1252Byte(U'€'), 0x80);
        QCOMPARE(Cp1252Byte(U'ä'), 0xE4);
        QCOMPARE(Cp1252Byte(U'Ł'), -1);
    }

    void farbenUndTwips()
    {
        QCOMPARE(NummerFarbe(16050915).name(), QString("#e3eaf4"));
        QCOMPARE(NummerFarbe(3482368).name(), QString("#002335"));
        QCOMPARE(NummerFarbe(12640511).name(), QString("#ffe0c0"));
        QCOMPARE(NummerFarbe(12632319).name(), QString("#ffc0c0"));
        QCOMPARE(NummerFarbe(14600621).name(), QString("#adc9de"));
        QCOMPARE(FarbNummer(QColor("#e3eaf4")), qint64(16050915));
        QCOMPARE(Px(15225), 1015);
        QCOMPARE(Twips(1015), 15225);
    }

    void einstellungenOhneRuecksichtAufGrossschreibung()
    {
        Testumgebung::zuruecksetzen();
        QCOMPARE(Lesen("SQLformleft", "0"), QString("0"));
        Speichern("SQLformLeft", "1200");
        QCOMPARE(Lesen("SQLformleft", "0"), QString("1200"));
        Speichern("sqlformleft", "1300");
        Speichern("HäkchenBildpfad", "1");
        Speichern("Show Tips at Startup", "0");
        Speichern("WebTabelleUeberschrift", "Rock, Pop & Jazz");
        SaveSetting(AppNameVolume, Sektion, "MiniplayerLeft", "4500");
        // A fresh read from the files keeps the first spelling and every value.
        EinstellungenSchliessen();
        QCOMPARE(Lesen("SQLFORMLEFT"), QString("1300"));
        QCOMPARE(Lesen("häkchenbildpfad"), QString("1"));
        QCOMPARE(Lesen("Show Tips at Startup"), QString("0"));
        QCOMPARE(Lesen("WebTabelleUeberschrift"), QString("Rock, Pop & Jazz"));
        QCOMPARE(GetSetting(AppNameVolume, Sektion, "MiniplayerLeft"), QString("4500"));
        QCOMPARE(Lesen("MiniplayerLeft", "leer"), QString("leer"));
        const QByteArray datei = DateiLesen(EinstellungsDatei(AppName));
        QVERIFY(datei.contains("SQLformLeft=1300"));
        QVERIFY(!datei.toLower().contains("sqlformleft=1200"));
        QVERIFY(EinstellungsDatei(AppNameVolume).endsWith("/Rillenkammer/RillenkammerVolume.ini"));
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
        QCOMPARE(m[0].typ, 3);
        QCOMPARE(m[0].standard, 0);
        QCOMPARE(m[0].sekunden, 1);
        QCOMPARE(m[0].titel, QString("Ausgabebox_mnuOeffnen_Click"));
        QCOMPARE(m[0].hintergrund, Farbe::FehlerHintergrund);
        QCOMPARE(m[1].text, QString("3001 no such table: Schallplatten"));
        QCOMPARE(m[1].hintergrund, Farbe::WarnHintergrund);
        QCOMPARE(Fehlerbeschreibung(9), QString("Index außerhalb des gültigen Bereichs"));
        QCOMPARE(Fehlerbeschreibung(76), QString("Pfad nicht gefunden"));
    }

    void mauszeigerIstEinZustand()
    {
        Mauszeiger(ZeigerSanduhr);
        Mauszeiger(ZeigerSanduhr);
        QCOMPARE(MauszeigerArt(), ZeigerSanduhr);
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
