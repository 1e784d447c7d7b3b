// The start of the program: choice of the catalogue, the second instance, the age test,
// a damaged catalogue, and what the end keeps for the next start.
#include "support/Fenster.h"
#include "support/Katalog.h"
#include "support/Testumgebung.h"

#include "catalogue/Datensteuerung.h"
#include "catalogue/FlexGrid.h"
#include "catalogue/Katalogdatei.h"
#include "media/Textfenster.h"
#include "platform/Einheiten.h"
#include "shell/Ausgabebox.h"
#include "shell/Einstellungen.h"
#include "shell/Globale.h"
#include "shell/Steuerelemente.h"

#include <QAction>
#include <QCheckBox>
#include <QDir>
#include <QLabel>

#include <memory>

class TestStart : public QObject {
    Q_OBJECT

    // The start on what the test has set up: its settings, its files, no catalogue named.
    std::unique_ptr<Ausgabebox> starten()
    {
        std::unique_ptr<Ausgabebox> w;
        FensterStarten(w, {.ohneKatalog = true, .zuruecksetzen = false});
        return w;
    }

    static QString programm() { return Testumgebung::programmOrdner(); }

private slots:
    void init()
    {
        Testumgebung::zuruecksetzen();
        Attrappen::dialoge().leeren();
        Attrappen::prozess().beendet.clear();
        Attrappen::shell().gestartet.clear();
    }

    void ersterStartOhneHinweisNimmtDieVorlage()
    {
        auto w = starten();
        const QString vorlage = programm() + "Archiv_leer.db";
        QCOMPARE(Lesen("ArchivPfad"), vorlage);
        QCOMPARE(w->Data1->DatabaseName(), vorlage);
        QVERIFY(QFileInfo(vorlage).isWritable());
        QCOMPARE(w->staBar->PanelText(1), QString("Archiv_leer.db"));
        QCOMPARE(w->lblTabellenName->text(), QString("alle"));
        QCOMPARE(Lesen("ProgrammName"), QString("R i l l e n k a m m e r"));
        QCOMPARE(Lesen("ErscheinungsJahr"), QString("1998"));
        for (const char* ordner : {"Bilder", "Leer", "eBook", "html", "Playlist"})
            QVERIFY2(QDir(programm() + ordner).exists(), ordner);
        QCOMPARE(ProgrammOrdner, programm());
        QCOMPARE(DatenbankOrdner, programm());
        QVERIFY(QFile::exists(programm() + "Infozeichen.wav"));
        // The template has every column: no question at start.
        QVERIFY(Attrappen::dialoge().meldungen().isEmpty());
        QVERIFY(!w->LadenFehlgeschlagen);
    }

    void ersterStartFolgtDemHinweisDesInstallers()
    {
        const QString katalog = KatalogAnlegen(Testordner("fremd") + "Sammlung.db", Baender({"Abba", "Zappa"}));
        DateiSchreiben(programm() + "PfadErststart.txt", (katalog + "\r\nzweite Zeile\r\n").toUtf8());
        auto w = starten();
        QCOMPARE(Lesen("ArchivPfad"), katalog);
        QCOMPARE(w->Data1->DatabaseName(), katalog);
        QCOMPARE(DatenbankOrdner, Testordner("fremd"));
        QCOMPARE(w->MSFlexGrid1->Rows(), 3);
        QCOMPARE(w->staBar->PanelText(3), QString("Tonträger: 2"));
    }

    void leereErsteZeileBleibtEinErsterStart()
    {
        DateiSchreiben(programm() + "PfadErststart.txt", "\n");
        auto w = starten();
        QCOMPARE(Lesen("ArchivPfad", "unberührt"), QString());
        QVERIFY(w->Data1->DatabaseName().isEmpty());
        // Nothing open: the grid has no rating column, so the age test asks.
        const auto m = Attrappen::dialoge().meldungen();
        QCOMPARE(m.size(), 1);
        QCOMPARE(m[0].titel, QString("Datenbank updaten"));
    }

    void verschwundeneDatenbankOeffnetDieVorlageUndBehaeltDieEinstellung()
    {
        const QString weg = Testordner("weg") + "Verschwunden.db";
        Speichern("ArchivPfad", weg);
        auto w = starten();
        QCOMPARE(w->Data1->DatabaseName(), programm() + "Archiv_leer.db");
        QCOMPARE(Lesen("ArchivPfad"), weg);
    }

    void zweiteInstanzSchreibtNichts()
    {
        auto erste = starten();
        EinstellungenSchliessen();
        const QByteArray vorher = DateiLesen(EinstellungsDatei(AppName));
        QVERIFY(!vorher.isEmpty());
        Attrappen::dialoge().leeren();

        Ausgabebox zweite;
        QVERIFY(zweite.Mehrfachstart());
        const auto m = Attrappen::dialoge().meldungen();
        QCOMPARE(m.size(), 1);
        QCOMPARE(m[0].text, QString("Rillenkammer läuft bereits!"));
        QCOMPARE(m[0].titel, QString("Hinweis"));
        QCOMPARE(Attrappen::prozess().beendet, QList<int>{0});
        EinstellungenSchliessen();
        QCOMPARE(DateiLesen(EinstellungsDatei(AppName)), vorher);
    }

    void keinKatalogGibtDenFehlerwegUndDasFensterKommt()
    {
        const QString kaputt = Testordner("kaputt") + "Notizen.db";
        DateiSchreiben(kaputt, "Das ist nur ein Text, keine Datenbank.\n");
        Speichern("ArchivPfad", kaputt);
        auto w = starten();
        QVERIFY(w->LadenFehlgeschlagen);
        QCOMPARE(w->staBar->PanelText(1), QString(" Fehler beim Laden der Datenbank!"));
        const auto m = Attrappen::dialoge().meldungen();
        QCOMPARE(m.size(), 1);
        QCOMPARE(m[0].titel, QString("Ausgabebox_Form_Load"));
        QCOMPARE(m[0].typ, 3);
        QCOMPARE(m[0].hintergrund, Farbe::FehlerHintergrund);
        QVERIFY(!w->Data1->recordset());
        w->show();
        QVERIFY(w->isVisible());
        // The file is untouched.
        QCOMPARE(DateiLesen(kaputt), QByteArray("Das ist nur ein Text, keine Datenbank.\n"));
    }

    void alterKatalogFragtNachDemUpdate()
    {
        const QString alt = KatalogAnlegen(Testordner("alt") + "Alt.db", Baender({"Abba"}));
        KatalogAusfuehren(alt, "drop index Schallplatten_Band_LPTitel");
        KatalogAusfuehren(alt, "alter table Schallplatten drop column Bewertung");
        Speichern("ArchivPfad", alt);

        Attrappen::dialoge().antwortenMsg << "Nein";
        auto w = starten();
        auto m = Attrappen::dialoge().meldungen();
        QCOMPARE(m.size(), 1);
        QCOMPARE(m[0].titel, QString("Datenbank updaten"));
        QCOMPARE(m[0].typ, 22);
        QVERIFY(m[0].text.contains(alt));
        QVERIFY(m[0].text.endsWith("Datenbank-Update einspielen?"));
        // It opens and works all the same.
        QCOMPARE(w->MSFlexGrid1->TextMatrix(1, w->MSFlexGrid1->SpalteSuchen("Band")), QString("Abba"));
        QVERIFY(Attrappen::shell().gestartet.isEmpty());

        // "Ja" hands the file over to the database manager and ends the program.
        Attrappen::dialoge().leeren();
        Attrappen::dialoge().antwortenMsg << "Ja";
        w->DatenbankCheck(alt);
        m = Attrappen::dialoge().meldungen();
        QCOMPARE(m.size(), 2);
        QCOMPARE(m[1].titel, QString("Datenbank-Manager starten"));
        QCOMPARE(Attrappen::shell().gestartet, QStringList{programm() + "Karteiwart"});
        QCOMPARE(Attrappen::prozess().beendet, QList<int>{0});
    }

    void falscherWertLaesstDieAnderenSchluesselWirken()
    {
        Speichern("WindowState", "abc");
        Speichern("AusgabeboxLeft", "1500");
        Speichern("AusgabeboxWidth", "zwölf");
        Speichern("Laufschrift", "aus");
        Speichern("TopRow", "1");
        Speichern("0Ordnerpfad", "/a/Erste.db");
        Speichern("1Ordnerpfad", "");
        Speichern("2Ordnerpfad", "/a/Dritte & Vierte.db");
        auto w = starten();
        QCOMPARE(w->windowState(), Qt::WindowNoState);
        QCOMPARE(w->x(), Px(1500));
        QCOMPARE(w->width(), Px(15225));
        QVERIFY(!w->mnuLaufschrift->isChecked());
        QVERIFY(w->chkTabelle->isChecked());
        QVERIFY(w->mnuOrdner[0]->isVisible());
        QVERIFY(!w->mnuOrdner[1]->isVisible());
        QVERIFY(w->mnuOrdner[2]->isVisible());
        QCOMPARE(w->katalogdatei().OrdnerEintrag(2), QString("/a/Dritte & Vierte.db"));
        QCOMPARE(w->mnuOrdner[2]->text(), QString("/a/Dritte && Vierte.db"));
    }

    void endeSpeichertNachFensterzustand()
    {
        {
            auto w = starten();
            w->move(Px(600), Px(300));
            w->resize(Px(12000), Px(9000));
            w->MSFlexGrid1->setColWidth(0, 2400);
            w->textfenster().StandardFontBold = true;
            w->chkBildpfad->setChecked(true);
            w->Form_Unload();
        }
        QCOMPARE(Attrappen::prozess().beendet, QList<int>{0});
        QCOMPARE(Lesen("WindowState"), QString("0"));
        QCOMPARE(Lesen("AusgabeboxLeft"), QString("600"));
        QCOMPARE(Lesen("StandardFontBold"), QString("True"));

        // The next start restores them. Maximised: only the state, so the normal size survives.
        {
            auto w = starten();
            QCOMPARE(w->geometry(), QRect(Px(600), Px(300), Px(12000), Px(9000)));
            QVERIFY(w->chkBildpfad->isChecked());
            QCOMPARE(w->MSFlexGrid1->ColWidth(0), 2400);
            w->setWindowState(Qt::WindowMaximized);
            w->Form_Unload();
        }
        QCOMPARE(Lesen("WindowState"), QString("2"));
        QCOMPARE(Lesen("AusgabeboxWidth"), QString("12000"));
        {
            auto w = starten();
            QVERIFY(w->windowState() & Qt::WindowMaximized);
            // Minimised: nothing of the place is written.
            w->setWindowState(Qt::WindowMinimized);
            w->Form_Unload();
        }
        QCOMPARE(Lesen("WindowState"), QString("2"));
        QCOMPARE(Lesen("AusgabeboxLeft"), QString("600"));
    }

    void ungespeicherteEingabeGehtBeimSchliessenNichtVerloren()
    {
        const QString katalog = KatalogAnlegen(Testordner("eingabe") + "E.db", Baender({"Abba"}));
        Speichern("ArchivPfad", katalog);
        auto w = starten();
        w->TextBand->setFocus();
        w->TextBand->selectAll();
        TasteText(w->TextBand, "Ärzte'");
        QCOMPARE(w->TextBand->text(), QString("Ärzte"));
        w->close();
        QCOMPARE(KatalogSpalte(katalog, "Band"), QStringList{"Ärzte"});
    }
};

RK_TEST_MAIN(TestStart)
#include "tst_start.moc"
