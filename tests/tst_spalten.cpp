// The column arrangement window: how its buttons move the columns, what it stores, and
// how the table follows it.
#include "support/Katalog.h"
#include "support/Modal.h"
#include "support/Testumgebung.h"

#include "catalogue/FlexGrid.h"
#include "catalogue/frmSpaltenAnordnen.h"
#include "shell/Ausgabebox.h"
#include "shell/Einstellungen.h"
#include "shell/Globale.h"

#include <QAction>
#include <QCheckBox>
#include <QDialog>
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

QStringList anordnung()
{
    QStringList werte;
    for (int n = 0; n < 18; ++n)
        werte << Lesen(QStringLiteral("TabelleAnordnenCaption%1").arg(n), QStringLiteral("-"));
    return werte;
}

void waehlen(QListWidget* liste, const QString& text)
{
    liste->setCurrentItem(liste->findItems(text, Qt::MatchExactly).value(0));
}

const QStringList Alle = {"Band",  "LPTitel",  "Medium",    "Stil",     "Info",  "Plattenfirma", "BestellNr",
                          "Preis", "Datum",    "Songs",     "BildPfad", "Musikpfad", "SongText", "eBook",
                          "Bewertung", "InternetTab", "InfoTab", "SonstigesTab"};

} // namespace

class TestSpalten : public QObject {
    Q_OBJECT

    std::unique_ptr<Ausgabebox> w;

    void starten()
    {
        Speichern("ArchivPfad",
                  KatalogAnlegen(Testordner("spalten") + "S.db",
                                 {Zeilenwerte{{"Band", "Abba"}, {"Stil", "Pop"}},
                                  Zeilenwerte{{"Band", "Eine Band mit einem recht langen Namen"}, {"Stil", "Rock"}}}));
        w = std::make_unique<Ausgabebox>();
        w->Form_Load();
        w->show();
        QVERIFY(QTest::qWaitForWindowExposed(w.get()));
    }

    int breite(const QString& kopf) const { return w->MSFlexGrid1->ColWidth(w->SpalteSuchen(kopf)); }

private slots:
    void init()
    {
        Testumgebung::zuruecksetzen();
        Attrappen::dialoge().leeren();
        TabelleNichtAnordnen = false;
        ProgrammOrdner = Testumgebung::programmOrdner();
    }
    void cleanup()
    {
        w.reset();
        TabelleNichtAnordnen = false;
    }

    void knoepfeBewegenNurDieAuswahl()
    {
        Speichern("TabelleAnordnenCaption2", "Medium");  // no flag: in neither list
        Speichern("TabelleAnordnenCaption17", "SonstigesTab0");
        frmSpaltenAnordnen f;
        f.Form_Load();
        QCOMPARE(f.lstTabelle->count(), 16);
        QCOMPARE(eintraege(f.lstSpalten), QStringList{"SonstigesTab"});
        QVERIFY(!f.cmdHochTief[0]->isEnabled()); // until a choice is made in a list
        // Nothing selected (a current row alone is no selection): a double press does nothing.
        f.lstSpalten->setCurrentRow(0, QItemSelectionModel::NoUpdate);
        f.cmdEinfuegen->click();
        f.cmdEinfuegen->click();
        f.cmdEntfernen->click();
        QCOMPARE(f.lstTabelle->count(), 16);
        QCOMPARE(f.lstSpalten->count(), 1);

        waehlen(f.lstTabelle, "Band");
        QVERIFY(f.cmdHochTief[0]->isEnabled());
        f.cmdEntfernen->click();
        // The first remaining entry is chosen, so a second press moves it as well.
        f.cmdEntfernen->click();
        QCOMPARE(eintraege(f.lstSpalten), (QStringList{"SonstigesTab", "Band", "LPTitel"}));
        waehlen(f.lstSpalten, "Band");
        f.cmdEinfuegen->click();
        QCOMPARE(eintraege(f.lstTabelle).last(), QString("Band"));

        waehlen(f.lstTabelle, "Info");
        f.cmdHochTief[0]->click();
        f.cmdHochTief[0]->click(); // already first
        QCOMPARE(eintraege(f.lstTabelle).mid(0, 2), (QStringList{"Info", "Stil"}));
        f.cmdHochTief[1]->click();
        QCOMPARE(eintraege(f.lstTabelle).mid(0, 2), (QStringList{"Stil", "Info"}));
        QVERIFY(f.lstTabelle->item(1)->isSelected());
        waehlen(f.lstTabelle, "Band");
        f.cmdHochTief[1]->click(); // already last
        QCOMPARE(eintraege(f.lstTabelle).last(), QString("Band"));
    }

    void standardKompaktUndHilfe()
    {
        frmSpaltenAnordnen f;
        f.Form_Load();
        f.cmdDefault->click();
        QVERIFY(Attrappen::dialoge().aufrufe.isEmpty());
        f.cmdOK->click();
        QCOMPARE(anordnung(),
                 (QStringList{"Band1", "LPTitel1", "Medium1", "Stil1", "Bewertung1", "Datum1", "Plattenfirma1",
                              "BestellNr1", "Preis1", "BildPfad0", "eBook0", "Info0", "Musikpfad0", "Songs0",
                              "SongText0", "InternetTab0", "InfoTab0", "SonstigesTab0"}));
        QCOMPARE(Lesen("TableNotSort"), QString("0"));

        f.cmdStandard->click();
        QCOMPARE(eintraege(f.lstTabelle), Alle);
        QCOMPARE(Attrappen::dialoge().meldungsTexte(), QStringList{"Standardeinstellung hergestellt"});
        f.cmdHilfe->click();
        QCOMPARE(Attrappen::dialoge().meldungen().last().text,
                 QString("Die Hilfeseite spaltenanordnen.html ist nicht vorhanden."));
        DateiSchreiben(ProgrammOrdner + "Hilfe/spaltenanordnen.html", "<html></html>");
        f.cmdHilfe->click();
        QCOMPARE(Attrappen::shell().geoeffnet.last(), ProgrammOrdner + "Hilfe/spaltenanordnen.html");
    }

    void standardUndExitAendernNichts()
    {
        starten();
        Speichern("TabelleAnordnenCaption0", "Stil1");
        Speichern("TabelleAnordnenCaption3", "Band0");
        const QStringList vorher = anordnung();
        ModalBedienen([](QDialog* d) {
            QVERIFY(Klicken(d, "cmdStandard"));
            QVERIFY(Klicken(d, "cmdExit"));
        });
        w->mnuTabelleAnordnen->trigger();
        QVERIFY(ModalBedient());
        QCOMPARE(anordnung(), vorher);
        QCOMPARE(Lesen("TableNotSort", "nie"), QString("nie"));
        // The table follows what is stored, not what the window showed.
        QCOMPARE(w->MSFlexGrid1->TextMatrix(0, 0), QString("Stil"));
        QCOMPARE(breite("Band"), 0);
    }

    void nichtAnordnenWirktSofortAuchNachExit()
    {
        starten();
        ModalBedienen([](QDialog* d) {
            d->findChild<QCheckBox*>("chkNotSort")->click();
            QVERIFY(TabelleNichtAnordnen); // before the window closes
            QVERIFY(Klicken(d, "cmdExit"));
        });
        w->mnuTabelleAnordnen_Click();
        QVERIFY(TabelleNichtAnordnen);
        QCOMPARE(Lesen("TableNotSort", "nie"), QString("nie"));
        // TabelleEinrichten does nothing now: no width stored, nothing hidden or moved.
        Speichern("TabelleAnordnenCaption0", "LPTitel1");
        Speichern("TabelleAnordnenCaption1", "Band0");
        Speichern("0Spaltenbreite", "4321");
        w->TabelleEinrichten();
        QCOMPARE(w->MSFlexGrid1->TextMatrix(0, 0), QString("Band"));
        QVERIFY(breite("Band") > 0);
        QCOMPARE(Lesen("0Spaltenbreite"), QString("4321"));

        // A stored tick sets the flag as the window opens; clearing the box frees the table.
        Speichern("TableNotSort", "1");
        TabelleNichtAnordnen = false;
        ModalBedienen([](QDialog* d) {
            QVERIFY(TabelleNichtAnordnen);
            d->findChild<QCheckBox*>("chkNotSort")->click();
            QVERIFY(Klicken(d, "cmdOK"));
        });
        w->mnuTabelleAnordnen_Click();
        QVERIFY(!TabelleNichtAnordnen);
        QCOMPARE(Lesen("TableNotSort"), QString("0"));
        QCOMPARE(w->MSFlexGrid1->TextMatrix(0, 0), QString("LPTitel"));
        QCOMPARE(breite("Band"), 0);
    }

    void okSpeichertUndDieTabelleFolgt()
    {
        starten();
        ModalBedienen([this](QDialog* d) {
            QVERIFY(w->frameGeometry().contains(d->frameGeometry().center())); // over the main window
            auto* tabelle = d->findChild<QListWidget*>("lstTabelle");
            for (const char* name : {"Medium", "Info"}) {
                waehlen(tabelle, name);
                QVERIFY(Klicken(d, "cmdEntfernen"));
            }
            waehlen(tabelle, "Stil");
            QVERIFY(Klicken(d, "cmdHochTief(0)"));
            QVERIFY(Klicken(d, "cmdHochTief(0)"));
            QVERIFY(Klicken(d, "cmdOK"));
        });
        w->mnuTabelleAnordnen_Click();
        QVERIFY(ModalBedient());
        const QStringList erwartet = {"Stil", "Band", "LPTitel", "Plattenfirma", "BestellNr", "Preis",
                                      "Datum", "Songs", "BildPfad", "Musikpfad", "SongText", "eBook",
                                      "Bewertung", "InternetTab", "InfoTab", "SonstigesTab", "Medium", "Info"};
        QStringList gespeichert;
        QStringList koepfe;
        for (int i = 0; i < 18; ++i) {
            gespeichert << erwartet[i] + (i < 16 ? "1" : "0");
            koepfe << w->MSFlexGrid1->TextMatrix(0, i);
        }
        QCOMPARE(anordnung(), gespeichert);
        // The grid follows: order, the hidden ones behind with width 0, the widths fitted.
        QCOMPARE(koepfe, erwartet);
        QCOMPARE(breite("Medium"), 0);
        QCOMPARE(breite("Info"), 0);
        QVERIFY(breite("Band") > breite("Stil"));
        QCOMPARE(Lesen("1Spaltenbreite"), QString::number(breite("Band")));
    }

    void alleAusgeblendetGibtBreiteNull()
    {
        starten();
        ModalBedienen([](QDialog* d) {
            d->findChild<QListWidget*>("lstTabelle")->setCurrentRow(0);
            for (int i = 0; i < 18; ++i)
                Klicken(d, "cmdEntfernen");
            QCOMPARE(d->findChild<QListWidget*>("lstSpalten")->count(), 18);
            QVERIFY(Klicken(d, "cmdOK"));
        });
        w->mnuTabelleAnordnen_Click();
        QCOMPARE(Lesen("TabelleAnordnenCaption0"), QString("Band0"));
        // Every arranged column; the picture column is not one of them.
        for (const QString& kopf : Alle)
            QCOMPARE(breite(kopf), 0);
    }
};

RK_TEST_MAIN(TestSpalten)
#include "tst_spalten.moc"
