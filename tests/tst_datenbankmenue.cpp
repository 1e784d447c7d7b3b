// Loading, making, copying and refreshing catalogues from the menu, and the list of the
// ten recent catalogues.
#include "support/Fenster.h"
#include "support/Katalog.h"
#include "support/Testumgebung.h"

#include "catalogue/Datensteuerung.h"
#include "catalogue/FlexGrid.h"
#include "catalogue/Katalogdatei.h"
#include "catalogue/Recordset.h"
#include "shell/Ausgabebox.h"
#include "shell/Einstellungen.h"
#include "shell/Globale.h"
#include "shell/Steuerelemente.h"

#include <QAction>
#include <QLabel>

#include <memory>

class TestDatenbankmenue : public QObject {
    Q_OBJECT

    std::unique_ptr<Ausgabebox> w;
    QString ordner;

    QStringList eintraege() const
    {
        QStringList liste;
        for (int i = 0; i < 10; ++i)
            liste << w->katalogdatei().OrdnerEintrag(i);
        return liste;
    }

private slots:
    void init()
    {
        FensterStarten(w, {.ohneKatalog = true});
        ordner = Testordner("kataloge");
    }
    void cleanup() { w.reset(); }

    void ladenOeffnetUndMerktSichDieDatei()
    {
        const QString a = KatalogAnlegen(ordner + "A.db", Baender({"Zappa", "Abba", "Ärzte", "ärger"}));
        Attrappen::dialoge().antwortenDatei << a;
        w->mnuOeffnen->trigger();
        const auto aufruf = Attrappen::dialoge().aufrufe.first();
        QCOMPARE(aufruf.art, QString("Datei"));
        QCOMPARE(aufruf.datei.titel, QString(" Datenbank laden"));
        QCOMPARE(aufruf.datei.filter, QString("Datenbank (*.db)|*.db|alle Dateien (*.*)|*.*"));
        QCOMPARE(aufruf.datei.dateiname, Testumgebung::programmOrdner() + "Archiv_leer.db");
        QCOMPARE(w->Data1->DatabaseName(), a);
        QCOMPARE(w->staBar->PanelText(1), QString("A.db"));
        QCOMPARE(w->staBar->PanelText(2), QString("no play"));
        QCOMPARE(Lesen("ArchivPfad"), a);
        QCOMPARE(Lesen("Data1RecordSource"), QString("select * from Schallplatten order by Band, LPTitel"));
        QCOMPARE(DatenbankOrdner, ordner);
        QCOMPARE(w->katalogdatei().OrdnerEintrag(0), a);
        // German order: the umlaut among its letter, case ignored.
        const int band = w->MSFlexGrid1->SpalteSuchen("Band");
        QStringList reihe;
        for (int r = 1; r < w->MSFlexGrid1->Rows(); ++r)
            reihe << w->MSFlexGrid1->TextMatrix(r, band);
        QCOMPARE(reihe, (QStringList{"Abba", "ärger", "Ärzte", "Zappa"}));
    }

    void abbruchUndJetDateiAendernNichts()
    {
        const QString vorher = w->Data1->DatabaseName();
        w->staBar->setPanelText(1, "bleibt");
        w->mnuOeffnen->trigger(); // the dialog answers nothing: cancel
        QCOMPARE(w->staBar->PanelText(1), QString("bleibt"));
        QVERIFY(Attrappen::dialoge().meldungen().isEmpty());

        const QString jet = ordner + "Alt.mdb";
        QByteArray kopf(2048, '\0');
        kopf.replace(4, 15, "Standard Jet DB");
        DateiSchreiben(jet, kopf);
        Attrappen::dialoge().antwortenDatei << jet;
        w->mnuOeffnen->trigger();
        const auto m = Attrappen::dialoge().meldungen();
        QCOMPARE(m.size(), 1);
        QVERIFY(m[0].text.contains(jet));
        QCOMPARE(w->Data1->DatabaseName(), vorher);
        QVERIFY(w->Data1->recordset());
        QCOMPARE(DateiLesen(jet), kopf);
    }

    void neueDatenbankIstEineKopieDerVorlage()
    {
        const QString vorhanden = KatalogAnlegen(ordner + "Da.db", Baender({"Abba"}));
        Attrappen::dialoge().antwortenDatei << vorhanden;
        w->mnuNeueDatenbank->trigger();
        auto m = Attrappen::dialoge().meldungen();
        QCOMPARE(m.size(), 1);
        QCOMPARE(m[0].text, QString("Die Datenbank existiert schon und kann nicht überschrieben werden."));
        QCOMPARE(m[0].titel, QString("Sicherheitshinweis"));
        QCOMPARE(KatalogSpalte(vorhanden, "Band"), QStringList{"Abba"});

        const QString neu = ordner + "Neu.db";
        Attrappen::dialoge().leeren();
        Attrappen::dialoge().antwortenDatei << neu;
        w->mnuNeueDatenbank->trigger();
        QVERIFY(Attrappen::dialoge().aufrufe.first().datei.speichern);
        QCOMPARE(Attrappen::dialoge().aufrufe.first().datei.titel, QString(" Neue Datenbank anlegen"));
        QVERIFY(QFileInfo(neu).isWritable());
        QCOMPARE(w->Data1->DatabaseName(), neu);
        QCOMPARE(w->Data1->RecordSource(), QString("select * from Schallplatten order by Band"));
        QCOMPARE(Lesen("ArchivPfad"), neu);
        QCOMPARE(w->staBar->PanelText(1), QString("Neu.db"));
        // Not entered in the recent list.
        QVERIFY(!eintraege().contains(neu));
    }

    void speichernUnterKopiertAlleZeilen()
    {
        const QString a = KatalogAnlegen(ordner + "Quelle.db", Baender({"Abba", "Bach", "Cream"}));
        w->katalogdatei().mnuOeffnen_Click(a);
        // An edit on screen is part of the copy.
        w->TextBand->setText("Abba (neu)");
        const QString kopie = Testordner("kopien") + "Kopie.db";
        Attrappen::dialoge().antwortenDatei << kopie;
        w->mnuSpeichernUnter->trigger();
        QCOMPARE(Attrappen::dialoge().aufrufe.first().datei.startordner, ordner);
        QCOMPARE(w->Data1->DatabaseName(), kopie);
        QCOMPARE(w->MSFlexGrid1->Rows(), 4);
        QCOMPARE(KatalogSpalte(kopie, "Band"), (QStringList{"Abba (neu)", "Bach", "Cream"}));
        QCOMPARE(DatenbankOrdner, Testordner("kopien"));

        // Its own name exists: refused.
        Attrappen::dialoge().leeren();
        Attrappen::dialoge().antwortenDatei << kopie;
        w->mnuSpeichernUnter->trigger();
        QCOMPARE(Attrappen::dialoge().meldungen().size(), 1);
        QCOMPARE(w->Data1->DatabaseName(), kopie);
    }

    void letzteKatalogeOhneDoppelUndHoechstensZehn()
    {
        for (int i = 0; i < 10; ++i)
            w->katalogdatei().OrdnerMenuPfad(QStringLiteral("/k/%1.db").arg(i));
        QCOMPARE(w->katalogdatei().OrdnerEintrag(0), QString("/k/9.db"));
        QCOMPARE(w->katalogdatei().OrdnerEintrag(9), QString("/k/0.db"));
        // A path already there moves to the top without a second entry.
        w->katalogdatei().OrdnerMenuPfad("/k/4.db");
        QCOMPARE(eintraege(), (QStringList{"/k/4.db", "/k/9.db", "/k/8.db", "/k/7.db", "/k/6.db", "/k/5.db",
                                           "/k/3.db", "/k/2.db", "/k/1.db", "/k/0.db"}));
        // The eleventh drops the oldest.
        w->katalogdatei().OrdnerMenuPfad("/k/neu.db");
        QCOMPARE(w->katalogdatei().OrdnerEintrag(0), QString("/k/neu.db"));
        QCOMPARE(w->katalogdatei().OrdnerEintrag(9), QString("/k/1.db"));
        QVERIFY(!eintraege().contains("/k/0.db"));
        for (int i = 0; i < 10; ++i)
            QCOMPARE(Lesen(QStringLiteral("%1Ordnerpfad").arg(i)), w->katalogdatei().OrdnerEintrag(i));
        for (QAction* a : w->mnuOrdner)
            QVERIFY(a->isVisible());
    }

    void verschwundenerEintragFragtVorDemEntfernen()
    {
        const QString da = KatalogAnlegen(ordner + "Da.db", Baender({"Abba"}));
        w->katalogdatei().OrdnerMenuPfad(ordner + "Weg.db");
        w->katalogdatei().OrdnerMenuPfad(da);
        // "Nein" keeps the entry.
        Attrappen::dialoge().antwortenMsg << "Nein";
        w->mnuOrdner[1]->trigger();
        auto m = Attrappen::dialoge().meldungen();
        QCOMPARE(m.size(), 1);
        QCOMPARE(m[0].titel, QString("Datenbank nicht gefunden"));
        QVERIFY(m[0].text.endsWith("Soll der Menüeintrag entfernen werden?"));
        QCOMPARE(w->katalogdatei().OrdnerEintrag(1), ordner + "Weg.db");
        // "Ja" empties and hides it, without closing the gap.
        Attrappen::dialoge().antwortenMsg << "Ja";
        w->mnuOrdner[1]->trigger();
        QVERIFY(w->katalogdatei().OrdnerEintrag(1).isEmpty());
        QVERIFY(!w->mnuOrdner[1]->isVisible());
        QCOMPARE(Lesen("1Ordnerpfad", "x"), QString());
        // An existing entry opens.
        w->mnuOrdner[0]->trigger();
        QCOMPARE(w->Data1->DatabaseName(), da);
        // A gap closes at the next insert.
        w->katalogdatei().OrdnerEintragSetzen(0, "/k/a.db");
        w->katalogdatei().OrdnerEintragSetzen(1, QString());
        w->katalogdatei().OrdnerEintragSetzen(2, "/k/c.db");
        w->katalogdatei().OrdnerMenuPfad("/k/d.db");
        QCOMPARE(eintraege().mid(0, 4), (QStringList{"/k/d.db", "/k/a.db", "/k/c.db", ""}));
    }
};

RK_TEST_MAIN(TestDatenbankmenue)
#include "tst_datenbankmenue.moc"
