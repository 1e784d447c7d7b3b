// The column arrangement window: how its buttons move the columns, what it stores, and
// how the table follows it.
#include "support/Fenster.h"
#include "support/Katalog.h"
#include "support/Modal.h"
#include "support/Testumgebung.h"

#include "catalogue/FlexGrid.h"
#include "catalogue/Tabellenansicht.h"
#include "catalogue/frmSpaltenAnordnen.h"
#include "shell/Ausgabebox.h"
#include "shell/Einstellungen.h"
#include "shell/Globale.h"

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
        FensterStarten(w, {.zeilen = {Zeilenwerte{{"Band", "Abba"}, {"Stil", "Pop"}},
                                      Zeilenwerte{{"Band", "Eine Band mit einem recht langen Namen"}, {"Stil", "Rock"}}},
                           .zuruecksetzen = false,
                           .zeigen = true});
    }

    int breite(const QString& kopf) const { return w->MSFlexGrid1->ColWidth(w->MSFlexGrid1->SpalteSuchen(kopf)); }

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
        Speichern("TabelleAnordnenCaption2", "Medium"); // no flag: in neither list
        Speichern("TabelleAnordnenCaption17", "SonstigesTab0");
        frmSpaltenAnordnen f;
        f.Form_Load();
        // A current row alone is no selection: a double press does nothing.
        f.lstSpalten->setCurrentRow(0, QItemSelectionModel::NoUpdate);
        f.cmdEinfuegen->click();
        f.cmdEinfuegen->click();
        f.cmdEntfernen->click();
        QCOMPARE(f.lstTabelle->count(), 16);
        QCOMPARE(eintraege(f.lstSpalten), QStringList{"SonstigesTab"});
        // The first remaining entry is chosen, so a second press moves it as well.
        waehlen(f.lstTabelle, "Band");
        f.cmdEntfernen->click();
        f.cmdEntfernen->click();
        QCOMPARE(eintraege(f.lstSpalten), (QStringList{"SonstigesTab", "Band", "LPTitel"}));
        waehlen(f.lstSpalten, "Band");
        f.cmdEinfuegen->click();
        QCOMPARE(eintraege(f.lstTabelle).last(), QString("Band"));
        // Up stops at the top.
        waehlen(f.lstTabelle, "Info");
        f.cmdHochTief[0]->click();
        f.cmdHochTief[0]->click();
        QCOMPARE(eintraege(f.lstTabelle).mid(0, 2), (QStringList{"Info", "Stil"}));
        f.cmdHochTief[1]->click();
        QCOMPARE(eintraege(f.lstTabelle).mid(0, 2), (QStringList{"Stil", "Info"}));
    }

    void standardKompaktUndHilfe()
    {
        frmSpaltenAnordnen f;
        f.Form_Load();
        f.cmdDefault->click();
        f.cmdOK->click();
        QCOMPARE(anordnung(),
                 (QStringList{"Band1", "LPTitel1", "Medium1", "Stil1", "Bewertung1", "Datum1", "Plattenfirma1",
                              "BestellNr1", "Preis1", "BildPfad0", "eBook0", "Info0", "Musikpfad0", "Songs0",
                              "SongText0", "InternetTab0", "InfoTab0", "SonstigesTab0"}));
        f.cmdStandard->click();
        QCOMPARE(eintraege(f.lstTabelle), Alle);
        QCOMPARE(Attrappen::dialoge().meldungsTexte(), QStringList{"Standardeinstellung hergestellt"});
        // A missing help page is reported; a present one is opened.
        f.cmdHilfe->click();
        QCOMPARE(Attrappen::dialoge().meldungen().size(), 2);
        DateiSchreiben(ProgrammOrdner + "Hilfe/spaltenanordnen.html", "<html></html>");
        f.cmdHilfe->click();
        QCOMPARE(Attrappen::shell().geoeffnet.last(), ProgrammOrdner + "Hilfe/spaltenanordnen.html");
    }

    void nichtAnordnenWirktSofortAuchNachExit()
    {
        starten();
        // Exit stores nothing of the window, but the tick in chkNotSort acts at once.
        ModalBedienen([](QDialog* d) {
            QVERIFY(Klicken(d, "cmdStandard"));
            d->findChild<QCheckBox*>("chkNotSort")->click();
            QVERIFY(TabelleNichtAnordnen); // before the window closes
            QVERIFY(Klicken(d, "cmdExit"));
        });
        w->mnuTabelleAnordnen->trigger();
        QVERIFY(ModalBedient());
        QVERIFY(TabelleNichtAnordnen);
        QCOMPARE(anordnung(), QStringList(18, "-"));
        QCOMPARE(Lesen("TableNotSort", "nie"), QString("nie"));
        // TabelleEinrichten does nothing now: no width stored, nothing hidden or moved.
        Speichern("TabelleAnordnenCaption0", "LPTitel1");
        Speichern("TabelleAnordnenCaption1", "Band0");
        Speichern("0Spaltenbreite", "4321");
        w->tabellenansicht().TabelleEinrichten();
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
        w->mnuTabelleAnordnen->trigger();
        QVERIFY(!TabelleNichtAnordnen);
        QCOMPARE(Lesen("TableNotSort"), QString("0"));
        QCOMPARE(w->MSFlexGrid1->TextMatrix(0, 0), QString("LPTitel"));
        QCOMPARE(breite("Band"), 0);
    }

    void okSpeichertUndDieTabelleFolgt()
    {
        starten();
        ModalBedienen([](QDialog* d) {
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
        w->mnuTabelleAnordnen->trigger();
        QVERIFY(ModalBedient());
        // Stored and shown in this order, the hidden ones behind; the widths fitted.
        const QStringList erwartet = {"Stil", "Band", "LPTitel", "Plattenfirma", "BestellNr", "Preis",
                                      "Datum", "Songs", "BildPfad", "Musikpfad", "SongText", "eBook",
                                      "Bewertung", "InternetTab", "InfoTab", "SonstigesTab", "Medium", "Info"};
        for (int i = 0; i < 18; ++i) {
            QCOMPARE(anordnung()[i], erwartet[i] + (i < 16 ? "1" : "0"));
            QCOMPARE(w->MSFlexGrid1->TextMatrix(0, i), erwartet[i]);
        }
        QCOMPARE(breite("Info"), 0);
        QVERIFY(breite("Band") > breite("Stil"));
        QCOMPARE(Lesen("1Spaltenbreite"), QString::number(breite("Band")));

        // All hidden: every arranged column gets width 0 (the picture column is not one).
        ModalBedienen([](QDialog* d) {
            d->findChild<QListWidget*>("lstTabelle")->setCurrentRow(0);
            for (int i = 0; i < 16; ++i)
                Klicken(d, "cmdEntfernen");
            QVERIFY(Klicken(d, "cmdOK"));
        });
        w->mnuTabelleAnordnen->trigger();
        QCOMPARE(Lesen("TabelleAnordnenCaption0"), QString("Medium0"));
        for (const QString& kopf : Alle)
            QCOMPARE(breite(kopf), 0);
    }
};

RK_TEST_MAIN(TestSpalten)
#include "tst_spalten.moc"
