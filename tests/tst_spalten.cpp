// The column arrangement window: what it reads, how its buttons move the columns, what
// it stores, and how the table follows it.
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
#include <QLabel>
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
    const auto gefunden = liste->findItems(text, Qt::MatchExactly);
    QVERIFY2(!gefunden.isEmpty(), qPrintable(text));
    liste->setCurrentItem(gefunden.first());
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
                                 {Zeilenwerte{{"Band", "Abba"}, {"Stil", "Pop"}, {"LPTitel", "Arrival"}},
                                  Zeilenwerte{{"Band", "Eine Band mit einem recht langen Namen"}, {"Stil", "Rock"}}}));
        w = std::make_unique<Ausgabebox>();
        w->Form_Load();
        w->show();
        QVERIFY(QTest::qWaitForWindowExposed(w.get()));
    }

    QStringList koepfe() const
    {
        QStringList k;
        for (int c = 0; c < w->MSFlexGrid1->Cols(); ++c)
            k << w->MSFlexGrid1->TextMatrix(0, c);
        return k;
    }

    int breite(const QString& kopf) const { return w->MSFlexGrid1->ColWidth(w->SpalteSuchen(kopf)); }

private slots:
    void init()
    {
        w.reset();
        Testumgebung::zuruecksetzen();
        Attrappen::dialoge().leeren();
        Attrappen::shell().geoeffnet.clear();
        TabelleNichtAnordnen = false;
        ProgrammOrdner = Testumgebung::programmOrdner();
    }
    void cleanup()
    {
        w.reset();
        TabelleNichtAnordnen = false;
    }

    void ladenVerteiltDieSpaltenAufBeideListen()
    {
        {
            frmSpaltenAnordnen f;
            f.Form_Load();
            QCOMPARE(f.windowTitle(), QString("Tabellenspalten anordnen"));
            QCOMPARE(eintraege(f.lstTabelle), Alle);
            QVERIFY(eintraege(f.lstSpalten).isEmpty());
            QVERIFY(!f.chkNotSort->isChecked());
            QCOMPARE(f.font().pointSizeF(), 10.0);
            QCOMPARE(f.cmdEinfuegen->objectName(), QString("cmdEinfügen"));
            QCOMPARE(f.cmdHochTief[1]->objectName(), QString("cmdHochTief(1)"));
            QCOMPARE(f.chkNotSort->text(), QString("Tabellenspalten nicht automatisch anordnen"));
            QCOMPARE(f.chkNotSort->toolTip(), QString(" Damit alle SQL-Befehle verwendbar sind "));
            QCOMPARE(f.lblTabelle->text(), QString("Reihenfolge der sichtbaren Spalten"));
            QCOMPARE(f.lblSpalten->text(), QString("nicht sichtbare Spalten"));
        }
        // Order by key number; a string with another flag is left out of both lists.
        Speichern("TabelleAnordnenCaption0", "Stil1");
        Speichern("TabelleAnordnenCaption1", "Band0");
        Speichern("TabelleAnordnenCaption2", "Medium");
        Speichern("TabelleAnordnenCaption3", "Info0");
        Speichern("ProgSchriftSize", "14");
        frmSpaltenAnordnen f;
        f.Form_Load();
        // Key 4 still holds its default "Info1": the number is the place, not the column.
        QCOMPARE(eintraege(f.lstTabelle).mid(0, 3), (QStringList{"Stil", "Info", "Plattenfirma"}));
        QCOMPARE(eintraege(f.lstTabelle).size(), 15);
        QCOMPARE(eintraege(f.lstSpalten), (QStringList{"Band", "Info"}));
        QCOMPARE(f.SpaltenTitel[2], QString("Medium"));
        QCOMPARE(f.font().pointSizeF(), 14.0);
        // Nothing chosen yet: up and down wait for a choice in either list.
        QVERIFY(!f.cmdHochTief[0]->isEnabled());
        f.lstSpalten->setCurrentRow(1);
        QVERIFY(f.cmdHochTief[0]->isEnabled());
        QVERIFY(f.cmdHochTief[1]->isEnabled());
    }

    void knoepfeVerschiebenNurDieAuswahl()
    {
        Speichern("TabelleAnordnenCaption16", "InfoTab0");
        Speichern("TabelleAnordnenCaption17", "SonstigesTab0");
        frmSpaltenAnordnen f;
        f.Form_Load();
        const QStringList sichtbar = eintraege(f.lstTabelle);
        // Nothing selected: a double press changes nothing, in either direction.
        f.cmdEinfuegen->click();
        f.cmdEinfuegen->click();
        f.cmdEntfernen->click();
        f.cmdHochTief[0]->click();
        QCOMPARE(eintraege(f.lstTabelle), sichtbar);
        QCOMPARE(eintraege(f.lstSpalten), (QStringList{"InfoTab", "SonstigesTab"}));
        // A current row without a selection counts as nothing selected.
        f.lstSpalten->setCurrentRow(0, QItemSelectionModel::NoUpdate);
        f.cmdEinfuegen->click();
        QCOMPARE(f.lstSpalten->count(), 2);

        waehlen(f.lstSpalten, "SonstigesTab");
        f.cmdEinfuegen->click();
        QCOMPARE(eintraege(f.lstTabelle).last(), QString("SonstigesTab"));
        QCOMPARE(eintraege(f.lstSpalten), QStringList{"InfoTab"});
        // The first remaining entry is chosen, so a second press moves it too.
        QVERIFY(f.lstSpalten->item(0)->isSelected());
        f.cmdEinfuegen->click();
        QCOMPARE(eintraege(f.lstTabelle).mid(16), (QStringList{"SonstigesTab", "InfoTab"}));
        QCOMPARE(f.lstSpalten->count(), 0);
        f.cmdEinfuegen->click(); // empty list: nothing
        QCOMPARE(f.lstTabelle->count(), 18);

        waehlen(f.lstTabelle, "Medium");
        f.cmdEntfernen->click();
        QCOMPARE(eintraege(f.lstSpalten), QStringList{"Medium"});
        QVERIFY(f.lstTabelle->item(0)->isSelected());
        QCOMPARE(f.lstTabelle->item(0)->text(), QString("Band"));
    }

    void hochUndTiefMitWandernderAuswahl()
    {
        frmSpaltenAnordnen f;
        f.Form_Load();
        waehlen(f.lstTabelle, "Medium");
        f.cmdHochTief[0]->click();
        f.cmdHochTief[0]->click();
        QCOMPARE(eintraege(f.lstTabelle).mid(0, 3), (QStringList{"Medium", "Band", "LPTitel"}));
        QVERIFY(f.lstTabelle->item(0)->isSelected());
        f.cmdHochTief[0]->click(); // already first
        QCOMPARE(f.lstTabelle->item(0)->text(), QString("Medium"));
        f.cmdHochTief[1]->click();
        QCOMPARE(eintraege(f.lstTabelle).mid(0, 3), (QStringList{"Band", "Medium", "LPTitel"}));
        QVERIFY(f.lstTabelle->item(1)->isSelected());

        waehlen(f.lstTabelle, "InfoTab");
        f.cmdHochTief[1]->click();
        QCOMPARE(eintraege(f.lstTabelle).mid(16), (QStringList{"SonstigesTab", "InfoTab"}));
        f.cmdHochTief[1]->click(); // already last
        QCOMPARE(eintraege(f.lstTabelle).mid(16), (QStringList{"SonstigesTab", "InfoTab"}));
        QCOMPARE(f.lstTabelle->count(), 18);
    }

    void standardUndKompakt()
    {
        Speichern("TabelleAnordnenCaption0", "Preis1");
        Speichern("TabelleAnordnenCaption7", "Band0");
        frmSpaltenAnordnen f;
        f.Form_Load();
        f.cmdStandard->click();
        QCOMPARE(eintraege(f.lstTabelle), Alle);
        QVERIFY(eintraege(f.lstSpalten).isEmpty());
        const auto meldungen = Attrappen::dialoge().meldungen();
        QCOMPARE(meldungen.size(), 1);
        QCOMPARE(meldungen[0].text, QString("Standardeinstellung hergestellt"));
        QCOMPARE(meldungen[0].titel, QString("Hinweis"));

        f.cmdDefault->click();
        QCOMPARE(Attrappen::dialoge().meldungen().size(), 1); // no message for the preset
        QCOMPARE(eintraege(f.lstTabelle), (QStringList{"Band", "LPTitel", "Medium", "Stil", "Bewertung", "Datum",
                                                       "Plattenfirma", "BestellNr", "Preis"}));
        QCOMPARE(eintraege(f.lstSpalten), (QStringList{"BildPfad", "eBook", "Info", "Musikpfad", "Songs", "SongText",
                                                       "InternetTab", "InfoTab", "SonstigesTab"}));
        f.cmdOK->click();
        QCOMPARE(f.result(), int(QDialog::Accepted));
        QCOMPARE(anordnung(),
                 (QStringList{"Band1", "LPTitel1", "Medium1", "Stil1", "Bewertung1", "Datum1", "Plattenfirma1",
                              "BestellNr1", "Preis1", "BildPfad0", "eBook0", "Info0", "Musikpfad0", "Songs0",
                              "SongText0", "InternetTab0", "InfoTab0", "SonstigesTab0"}));
        QCOMPARE(Lesen("TableNotSort"), QString("0"));
    }

    void standardUndExitLassenDieEinstellungen()
    {
        starten();
        Speichern("TabelleAnordnenCaption0", "Stil1");
        Speichern("TabelleAnordnenCaption3", "Band0");
        const QStringList vorher = anordnung();
        ModalBedienen([](QDialog* d) {
            QCOMPARE(d->objectName(), QString("frmSpaltenAnordnen"));
            QVERIFY(Klicken(d, "cmdStandard"));
            QCOMPARE(d->findChild<QListWidget*>("lstTabelle")->count(), 18);
            QVERIFY(Klicken(d, "cmdExit"));
        });
        w->mnuTabelleAnordnen_Click();
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
        QVERIFY(w->mnuTabelleAnordnen->isEnabled());
        ModalBedienen([](QDialog* d) {
            d->findChild<QCheckBox*>("chkNotSort")->click();
            QVERIFY(TabelleNichtAnordnen); // before the window closes
            QVERIFY(Klicken(d, "cmdExit"));
        });
        w->mnuTabelleAnordnen->trigger();
        QVERIFY(ModalBedient());
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

        // Clearing the box frees the table at once as well.
        ModalBedienen([](QDialog* d) {
            auto* kasten = d->findChild<QCheckBox*>("chkNotSort");
            QVERIFY(!kasten->isChecked()); // the setting was never written
            kasten->click();
            kasten->click();
            QVERIFY(!TabelleNichtAnordnen);
            QVERIFY(Klicken(d, "cmdExit"));
        });
        w->mnuTabelleAnordnen_Click();
        QVERIFY(!TabelleNichtAnordnen);
        QCOMPARE(w->MSFlexGrid1->TextMatrix(0, 0), QString("LPTitel"));
        QCOMPARE(breite("Band"), 0);

        // A stored tick sets the flag as the window opens, before anything is clicked.
        TabelleNichtAnordnen = false;
        Speichern("TableNotSort", "1");
        frmSpaltenAnordnen f;
        f.Form_Load();
        QVERIFY(f.chkNotSort->isChecked());
        QVERIFY(TabelleNichtAnordnen);
    }

    void okSpeichertUndDieTabelleFolgt()
    {
        starten();
        ModalBedienen([this](QDialog* d) {
            // Centred over the main window.
            QVERIFY(w->frameGeometry().contains(d->frameGeometry().center()));
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
        for (int i = 0; i < 18; ++i)
            gespeichert << erwartet[i] + (i < 16 ? "1" : "0");
        QCOMPARE(anordnung(), gespeichert);
        QCOMPARE(Lesen("TableNotSort"), QString("0"));
        // The grid follows: order, the hidden ones behind with width 0, widths fitted.
        QCOMPARE(koepfe().mid(0, 18), erwartet);
        QCOMPARE(breite("Medium"), 0);
        QCOMPARE(breite("Info"), 0);
        QVERIFY(breite("Band") > breite("Stil"));
        QVERIFY(breite("Band") != 1000);
        QCOMPARE(Lesen("1Spaltenbreite"), QString::number(breite("Band")));
    }

    void alleAusgeblendetGibtEineTabelleOhneBreite()
    {
        starten();
        ModalBedienen([](QDialog* d) {
            auto* tabelle = d->findChild<QListWidget*>("lstTabelle");
            // cmdEntfernen chooses the next entry itself.
            tabelle->setCurrentRow(0);
            for (int i = 0; i < 18; ++i)
                QVERIFY(Klicken(d, "cmdEntfernen"));
            QCOMPARE(tabelle->count(), 0);
            QCOMPARE(d->findChild<QListWidget*>("lstSpalten")->count(), 18);
            QVERIFY(Klicken(d, "cmdOK"));
        });
        w->mnuTabelleAnordnen_Click();
        QVERIFY(ModalBedient());
        QCOMPARE(Lesen("TabelleAnordnenCaption0"), QString("Band0"));
        // Every arranged column is hidden; the picture column is not one of them.
        for (const QString& kopf : Alle)
            QCOMPARE(breite(kopf), 0);
        QCOMPARE(w->MSFlexGrid1->TextMatrix(0, 18), QString("Bilder"));
    }

    void hilfeSeite()
    {
        frmSpaltenAnordnen f;
        f.Form_Load();
        f.cmdHilfe->click();
        QVERIFY(Attrappen::shell().geoeffnet.isEmpty());
        const auto meldungen = Attrappen::dialoge().meldungen();
        QCOMPARE(meldungen.size(), 1);
        QCOMPARE(meldungen[0].text, QString("Die Hilfeseite spaltenanordnen.html ist nicht vorhanden."));
        QCOMPARE(meldungen[0].typ, 1);
        QCOMPARE(meldungen[0].titel, QString("Hilfe"));

        const QString seite = ProgrammOrdner + "Hilfe/spaltenanordnen.html";
        DateiSchreiben(seite, "<html></html>");
        f.cmdHilfe->click();
        QCOMPARE(Attrappen::shell().geoeffnet, QStringList{seite});
        QCOMPARE(Attrappen::dialoge().meldungen().size(), 1);
    }
};

RK_TEST_MAIN(TestSpalten)
#include "tst_spalten.moc"
