// The exclusion lists of styles and bands: their files, the two windows that edit them,
// and the lists in force on the main window.
#include "support/Katalog.h"
#include "support/Modal.h"
#include "support/Testumgebung.h"

#include "catalogue/Datensteuerung.h"
#include "catalogue/FlexGrid.h"
#include "collections/Ausschlusslisten.h"
#include "collections/frmBandAusschlussliste.h"
#include "collections/frmStilausschlussliste.h"
#include "shell/Ausgabebox.h"
#include "shell/Einstellungen.h"
#include "shell/Globale.h"

#include <QAction>
#include <QCheckBox>
#include <QDialog>
#include <QDir>
#include <QFile>
#include <QListWidget>
#include <QPushButton>

#include <memory>

namespace {

QStringList eintraege(const QListWidget* liste)
{
    QStringList texte;
    for (int i = 0; i < liste->count(); ++i)
        texte << liste->item(i)->text();
    return texte;
}

QStringList angehakt(const QListWidget* liste)
{
    QStringList texte;
    for (int i = 0; i < liste->count(); ++i)
        if (liste->item(i)->checkState() == Qt::Checked)
            texte << liste->item(i)->text();
    return texte;
}

void haken(QListWidget* liste, const QString& text, bool an = true)
{
    const QList<QListWidgetItem*> treffer = liste->findItems(text, Qt::MatchExactly);
    QVERIFY2(!treffer.isEmpty(), qPrintable(text));
    treffer.first()->setCheckState(an ? Qt::Checked : Qt::Unchecked);
}

} // namespace

class TestAusschluss : public QObject {
    Q_OBJECT

    std::unique_ptr<Ausgabebox> w;
    QString ordner; // beside the catalogue: DatenbankOrdner

    void starten(const QList<Zeilenwerte>& zeilen)
    {
        ordner = Testordner("ausschluss");
        Speichern("ArchivPfad", KatalogAnlegen(ordner + "A.db", zeilen));
        w = std::make_unique<Ausgabebox>();
        w->Form_Load();
        w->show();
        QVERIFY(QTest::qWaitForWindowExposed(w.get()));
    }

    static QString pg(const QString& name) { return Testumgebung::programmOrdner() + name; }

private slots:
    void init()
    {
        Testumgebung::zuruecksetzen();
        Attrappen::dialoge().leeren();
        Attrappen::zufall().werte.clear();
        ProgrammOrdner = Testumgebung::programmOrdner();
        QDir().mkpath(ProgrammOrdner);
        QFile::remove(Testordner("ausschluss") + "Stilrichtung.ini");
    }
    void cleanup() { w.reset(); }

    void dateienUtf8UndWindows1252()
    {
        // Written as UTF-8 with LF, without any change to the entries.
        const QString datei = pg("AusschlussAbspielliste.ini");
        QVERIFY(AusschlussListeSpeichern(datei, {"Kölsch", "", " Punk "}));
        QCOMPARE(DateiLesen(datei), QByteArray("K\xc3\xb6lsch\n\n Punk \n"));
        bool vorhanden = false;
        QCOMPARE(AusschlussEintraege(datei, &vorhanden), (QStringList{"Kölsch", "", " Punk "}));
        QVERIFY(vorhanden);

        // A file from Windows: single bytes and CR LF.
        DateiSchreiben(datei, "K\xf6lsch\r\n\r\nNeue Deutsche Welle\r\n");
        QCOMPARE(AusschlussEintraege(datei), (QStringList{"Kölsch", "", "Neue Deutsche Welle"}));

        // Nothing to keep still leaves a file, an empty one.
        QVERIFY(AusschlussListeSpeichern(datei, {}));
        QVERIFY(QFile::exists(datei));
        QCOMPARE(DateiLesen(datei), QByteArray());
        QCOMPARE(AusschlussEintraege(datei, &vorhanden), QStringList());
        QVERIFY(vorhanden);

        QCOMPARE(AusschlussEintraege(pg("fehlt.ini"), &vorhanden), QStringList());
        QVERIFY(!vorhanden);

        // Each use has its own pair of files; another value of the setting has none.
        QCOMPARE(StilAusschlussPfad("Abspielen"), pg("AusschlussAbspielliste.ini"));
        QCOMPARE(BandAusschlussPfad("Abspielen"), pg("BandAusschlussAbspielliste.ini"));
        QCOMPARE(StilAusschlussPfad("CD-Erstellen"), pg("Ausschlussliste.ini"));
        QCOMPARE(BandAusschlussPfad("CD-Erstellen"), pg("BandAusschlussliste.ini"));
        QCOMPARE(StilAusschlussPfad("abspielen"), QString());
        QCOMPARE(BandAusschlussPfad(""), QString());
    }

    void listenInKraftBeimStartUndNeuLaden()
    {
        DateiSchreiben(pg("AusschlussAbspielliste.ini"), "Schlager\n\n");
        DateiSchreiben(pg("BandAusschlussAbspielliste.ini"), "Heino\r\n");
        // The generator's files do not reach random play.
        DateiSchreiben(pg("Ausschlussliste.ini"), "Jazz\n");
        starten(Baender({"Abba"}));
        QCOMPARE(eintraege(w->lstAbspielausschluss), (QStringList{"Schlager", ""}));
        QCOMPARE(eintraege(w->lstBandAusschluss), QStringList{"Heino"});

        // A deleted file leaves the list in force until the next start ...
        QFile::remove(pg("AusschlussAbspielliste.ini"));
        w->AbspielausschlusslisteLaden();
        QCOMPARE(eintraege(w->lstAbspielausschluss), (QStringList{"Schlager", ""}));
        // ... an empty file empties it.
        DateiSchreiben(pg("AusschlussAbspielliste.ini"), "");
        w->AbspielausschlusslisteLaden();
        QCOMPARE(w->lstAbspielausschluss->count(), 0);
        DateiSchreiben(pg("BandAusschlussAbspielliste.ini"), "Heino\nAbba\n");
        w->BandAbspielausschlusslisteLaden();
        QCOMPARE(eintraege(w->lstBandAusschluss), (QStringList{"Heino", "Abba"}));
    }

    void stilfensterHakenUndSpeichern()
    {
        starten(Baender({"Abba"}));
        DateiSchreiben(ordner + "Stilrichtung.ini", "Rock\r\n\r\nJazz\r\nK\xf6lsch\r\nPop\r\n");
        // A line without a style in the list is dropped at the next save.
        DateiSchreiben(pg("AusschlussAbspielliste.ini"), "Pop\nRock\nGibt es nicht\n");
        Speichern("Ausschlussliste", "Abspielen");
        {
            frmStilausschlussliste f;
            f.Form_Load();
            QCOMPARE(eintraege(f.lstStilrichtung), (QStringList{"Rock", "", "Jazz", "Kölsch", "Pop"}));
            QCOMPARE(angehakt(f.lstStilrichtung), (QStringList{"Rock", "Pop"}));
            // The legend cannot be cleared.
            f.Check1->click();
            QVERIFY(f.Check1->isChecked());
            haken(f.lstStilrichtung, "Kölsch");
            haken(f.lstStilrichtung, "Rock", false);
            f.cmdOK->click();
            QCOMPARE(f.result(), int(QDialog::Accepted));
        }
        // List order, not the order of the old file.
        QCOMPARE(DateiLesen(pg("AusschlussAbspielliste.ini")), QByteArray("K\xc3\xb6lsch\nPop\n"));

        // Exit keeps the file as it was.
        {
            frmStilausschlussliste f;
            f.Form_Load();
            haken(f.lstStilrichtung, "Jazz");
            f.cmdExit->click();
        }
        QCOMPARE(DateiLesen(pg("AusschlussAbspielliste.ini")), QByteArray("K\xc3\xb6lsch\nPop\n"));

        // The generator's list is a file of its own.
        Speichern("Ausschlussliste", "CD-Erstellen");
        {
            frmStilausschlussliste f;
            f.Form_Load();
            QCOMPARE(angehakt(f.lstStilrichtung), QStringList());
            haken(f.lstStilrichtung, "");
            f.cmdOK->click();
        }
        QCOMPARE(DateiLesen(pg("Ausschlussliste.ini")), QByteArray("\n"));
        QCOMPARE(DateiLesen(pg("AusschlussAbspielliste.ini")), QByteArray("K\xc3\xb6lsch\nPop\n"));

        // Any other use: no marks, and OK writes nothing but still closes.
        Speichern("Ausschlussliste", "irgendwas");
        {
            frmStilausschlussliste f;
            f.Form_Load();
            QCOMPARE(angehakt(f.lstStilrichtung), QStringList());
            haken(f.lstStilrichtung, "Jazz");
            f.cmdOK->click();
            QCOMPARE(f.result(), int(QDialog::Accepted));
        }
        QCOMPARE(DateiLesen(pg("AusschlussAbspielliste.ini")), QByteArray("K\xc3\xb6lsch\nPop\n"));

        // Without Stilrichtung.ini there is nothing to choose from.
        QFile::remove(ordner + "Stilrichtung.ini");
        Speichern("Ausschlussliste", "Abspielen");
        frmStilausschlussliste leer;
        leer.Form_Load();
        QCOMPARE(leer.lstStilrichtung->count(), 0);
    }

    void speichernScheitertOhneDatenverlust()
    {
        starten(Baender({"Abba"}));
        DateiSchreiben(ordner + "Stilrichtung.ini", "Rock\n");
        Speichern("Ausschlussliste", "Abspielen");
        // A folder where the file should be: it cannot be written.
        QDir().mkpath(pg("AusschlussAbspielliste.ini"));
        frmStilausschlussliste f;
        f.Form_Load();
        haken(f.lstStilrichtung, "Rock");
        f.cmdOK->click();
        QCOMPARE(Attrappen::dialoge().meldungen().size(), 1);
        QVERIFY(Attrappen::dialoge().meldungen().first().text.startsWith("75 "));
        QCOMPARE(Attrappen::dialoge().meldungen().first().titel, QString("frmStilausschlussliste_cmdOK_Click"));
        // Still open, with the marks.
        QCOMPARE(f.result(), 0);
        QCOMPARE(angehakt(f.lstStilrichtung), QStringList{"Rock"});
    }

    void menueStilrichtungAusschliessen()
    {
        starten(Baender({"Abba"}));
        DateiSchreiben(ordner + "Stilrichtung.ini", "Rock\nPop\n");
        Speichern("Ausschlussliste", "CD-Erstellen");
        QVERIFY(w->mnuStilrichtungAusschliessen->isEnabled());
        ModalBedienen([](QDialog* d) {
            // The menu has chosen the list of random play before the window came.
            QCOMPARE(Lesen("Ausschlussliste"), QString("Abspielen"));
            haken(d->findChild<QListWidget*>("lstStilrichtung"), "Pop");
            QVERIFY(Klicken(d, "cmdOK"));
        });
        w->mnuStilrichtungAusschliessen->trigger();
        QVERIFY(ModalBedient());
        QCOMPARE(eintraege(w->lstAbspielausschluss), QStringList{"Pop"});

        // Saved with nothing checked: the list in force is emptied at once.
        ModalBedienen([](QDialog* d) {
            haken(d->findChild<QListWidget*>("lstStilrichtung"), "Pop", false);
            QVERIFY(Klicken(d, "cmdOK"));
        });
        w->mnuStilrichtungAusschliessen->trigger();
        QCOMPARE(w->lstAbspielausschluss->count(), 0);
        QVERIFY(!QFile::exists(pg("Ausschlussliste.ini")));
    }

    void bandfensterNimmtDieTabelle()
    {
        starten({Zeilenwerte{{"Band", "Abba"}, {"LPTitel", "3"}}, Zeilenwerte{{"Band", "Abba"}, {"LPTitel", "1"}},
                 Zeilenwerte{{"Band", "Bach"}, {"LPTitel", "2"}}, Zeilenwerte{{"Band", "Cream"}, {"LPTitel", "4"}},
                 Zeilenwerte{{"Band", "Band"}, {"LPTitel", "5"}}});
        Speichern("BandAusschlussliste", "Abspielen");
        Speichern("ProgSchriftSize", "14");
        {
            frmBandAusschlussliste f;
            f.Form_Load();
            // A band called "Band" is no head.
            QCOMPARE(eintraege(f.lstBandliste), (QStringList{"Abba", "Bach", "Band", "Cream"}));
            QCOMPARE(f.lstBandliste->font().pointSizeF(), 14.0);
        }
        // A table in another order repeats a band for each change.
        w->Data1->setRecordSource("select * from Schallplatten order by LPTitel");
        w->Data1->Refresh();
        {
            frmBandAusschlussliste f;
            f.Form_Load();
            QCOMPARE(eintraege(f.lstBandliste), (QStringList{"Abba", "Bach", "Abba", "Cream", "Band"}));
        }
        // The band column is found by its head, wherever the table shows it.
        w->MSFlexGrid1->ColPosition(w->SpalteSuchen("Band"), 3);
        {
            frmBandAusschlussliste f;
            f.Form_Load();
            QCOMPARE(eintraege(f.lstBandliste).first(), QString("Abba"));
            QCOMPARE(f.lstBandliste->count(), 5);
        }
    }

    void bandfensterAufGefilterterTabelleVergisstVerborgene()
    {
        DateiSchreiben(pg("BandAusschlussAbspielliste.ini"), "Abba\nCream\n");
        starten(Baender({"Abba", "AC/DC", "Bach", "Cream"}));
        QCOMPARE(eintraege(w->lstBandAusschluss), (QStringList{"Abba", "Cream"}));
        // Only the bands beginning with A are in the table.
        w->Data1->setRecordSource(Ausgabebox::BuchstabenFilter(0, "Band"));
        w->Data1->Refresh();
        QCOMPARE(w->MSFlexGrid1->Rows(), 3);
        QVERIFY(w->mnuBandAusschliessen->isEnabled());
        ModalBedienen([](QDialog* d) {
            auto* liste = d->findChild<QListWidget*>("lstBandliste");
            QCOMPARE(eintraege(liste), (QStringList{"Abba", "AC/DC"}));
            QCOMPARE(angehakt(liste), QStringList{"Abba"});
            QVERIFY(Klicken(d, "cmdOK"));
        });
        w->mnuBandAusschliessen->trigger();
        QVERIFY(ModalBedient());
        QCOMPARE(Lesen("BandAusschlussliste"), QString("Abspielen"));
        QCOMPARE(DateiLesen(pg("BandAusschlussAbspielliste.ini")), QByteArray("Abba\n"));
        QCOMPARE(eintraege(w->lstBandAusschluss), QStringList{"Abba"});

        // Exit changes nothing, neither the file nor the list in force.
        ModalBedienen([](QDialog* d) {
            haken(d->findChild<QListWidget*>("lstBandliste"), "AC/DC");
            QVERIFY(Klicken(d, "cmdExit"));
        });
        w->mnuBandAusschliessen->trigger();
        QCOMPARE(DateiLesen(pg("BandAusschlussAbspielliste.ini")), QByteArray("Abba\n"));
        QCOMPARE(eintraege(w->lstBandAusschluss), QStringList{"Abba"});
    }
};

RK_TEST_MAIN(TestAusschluss)
#include "tst_ausschluss.moc"
