// The SQL console: the stored list in sql.dat, the keys of its fields, the window's place,
// and the two ways the main window runs a statement.
#include "support/Katalog.h"
#include "support/Modal.h"
#include "support/Testumgebung.h"

#include "catalogue/Datensteuerung.h"
#include "catalogue/FlexGrid.h"
#include "catalogue/Recordset.h"
#include "collections/SQLform.h"
#include "platform/Einheiten.h"
#include "platform/Mauszeiger.h"
#include "platform/Textdatei.h"
#include "shell/Ausgabebox.h"
#include "shell/Einstellungen.h"
#include "shell/Globale.h"
#include "shell/Steuerelemente.h"

#include <QAction>
#include <QDialog>
#include <QDir>
#include <QFile>
#include <QFontInfo>
#include <QListWidget>
#include <QPushButton>
#include <QRadioButton>

#include <memory>

namespace {

QStringList eintraege(const QListWidget* liste)
{
    QStringList texte;
    for (int i = 0; i < liste->count(); ++i)
        texte << liste->item(i)->text();
    return texte;
}

// Fills the console and leaves it by CommandOK, with the option of that index.
std::function<void(QDialog*)> ausfuehren(const QString& sql, int option)
{
    return [sql, option](QDialog* d) {
        d->findChild<Textfeld*>("TextSQL")->setText(sql);
        d->findChild<QRadioButton*>(QStringLiteral("optSql(%1)").arg(option))->click();
        QVERIFY(Klicken(d, "CommandOK"));
    };
}

} // namespace

class TestSqlform : public QObject {
    Q_OBJECT

    std::unique_ptr<Ausgabebox> w;
    QString katalog;

    void starten()
    {
        katalog = KatalogAnlegen(Testordner("sql") + "Q.db",
                                 {Zeilenwerte{{"Band", "Abba"}, {"Stil", "Pop"}},
                                  Zeilenwerte{{"Band", "Bach"}, {"Stil", "Klassik"}},
                                  Zeilenwerte{{"Band", "Ärzte"}, {"Stil", "Punk"}},
                                  Zeilenwerte{{"Band", "Cream"}, {"Stil", "Blues"}}});
        Speichern("ArchivPfad", katalog);
        w = std::make_unique<Ausgabebox>();
        w->Form_Load();
        w->show();
        QVERIFY(QTest::qWaitForWindowExposed(w.get()));
        Attrappen::dialoge().leeren();
    }

    QStringList spalte(const QString& kopf) const
    {
        QStringList werte;
        const int c = w->SpalteSuchen(kopf);
        for (int r = 1; r < w->MSFlexGrid1->Rows(); ++r)
            werte << w->MSFlexGrid1->TextMatrix(r, c);
        return werte;
    }

    static QString datei() { return ProgrammOrdner + "sql.dat"; }

private slots:
    void init()
    {
        w.reset();
        Testumgebung::zuruecksetzen();
        Attrappen::dialoge().leeren();
        SqlAnweisung.clear();
        ProgrammOrdner = Testumgebung::programmOrdner();
        QDir().mkpath(ProgrammOrdner);
    }
    void cleanup()
    {
        w.reset();
        SqlAnweisung.clear();
    }

    void uebernehmenVerweigertDoppelte()
    {
        SQLform f;
        f.Form_Load();
        QCOMPARE(f.windowTitle(), QString("SQL-Anweisung"));
        QVERIFY(eintraege(f.ListSQL).isEmpty()); // no file: an empty list
        QVERIFY(f.optSql[0]->isChecked());
        f.CommandUebernehmen->click(); // empty field: nothing
        QVERIFY(!QFile::exists(datei()));

        const QString a = "select * from Schallplatten where Band = 'Ärzte'";
        f.TextSQL->setText(a);
        f.CommandUebernehmen->click();
        QCOMPARE(DateiLesen(datei()), (a + "\n").toUtf8());
        f.CommandUebernehmen->click();
        QCOMPARE(eintraege(f.ListSQL), QStringList{a});
        const auto meldungen = Attrappen::dialoge().meldungen();
        QCOMPARE(meldungen.size(), 1);
        QCOMPARE(meldungen[0].text, "Der Eintrag ist schon vorhanden!\n\n" + a);
        QCOMPARE(meldungen[0].titel, QString("Hinweis"));
        // One blank more is another statement.
        const QString b = "select *  from Schallplatten where Band = 'Ärzte'";
        f.TextSQL->setText(b);
        f.CommandUebernehmen->click();
        QCOMPARE(eintraege(f.ListSQL), (QStringList{a, b}));
        QCOMPARE(DateiLesen(datei()), (a + "\n" + b + "\n").toUtf8());
        QCOMPARE(Attrappen::dialoge().meldungen().size(), 1);
    }

    void loeschenMitUndOhneFrage()
    {
        TextdateiSchreiben(datei(), {"select 1", "select 2", "select 3", "select 4"});
        SQLform f;
        f.Form_Load();
        f.show();
        QVERIFY(QTest::qWaitForWindowExposed(&f));
        // Nothing chosen: no question, nothing removed.
        f.CommandLoeschen->click();
        QVERIFY(Attrappen::dialoge().aufrufe.isEmpty());

        f.ListSQL->setCurrentRow(1);
        f.TextSQL->setText("select 2");
        Attrappen::dialoge().antwortenMsg << "Nein";
        f.CommandLoeschen->click();
        QCOMPARE(f.ListSQL->count(), 4);
        const Meldung frage = Attrappen::dialoge().meldungen().first();
        QCOMPARE(frage.text, QString("select 2\n\nSoll die SQL-Anweisung gelöscht werden?"));
        QCOMPARE(frage.typ, 22);
        QCOMPARE(frage.standard, 1);
        QCOMPARE(frage.titel, QString("Lumivox"));
        QCOMPARE(f.TextSQL->text(), QString("select 2"));
        // Any other answer removes, the empty one of a closed box too.
        f.CommandLoeschen->click();
        QCOMPARE(eintraege(f.ListSQL), (QStringList{"select 1", "select 3", "select 4"}));
        QCOMPARE(f.TextSQL->text(), QString());
        QCOMPARE(TextdateiLesen(datei()), (QStringList{"select 1", "select 3", "select 4"}));

        // The Delete key removes without a question.
        Attrappen::dialoge().leeren();
        f.ListSQL->setCurrentRow(2);
        f.TextSQL->setText("irgendwas");
        f.ListSQL->setFocus();
        QTest::keyClick(f.ListSQL, Qt::Key_Delete);
        QVERIFY(Attrappen::dialoge().aufrufe.isEmpty());
        QCOMPARE(eintraege(f.ListSQL), (QStringList{"select 1", "select 3"}));
        QCOMPARE(f.TextSQL->text(), QString());
        QCOMPARE(TextdateiLesen(datei()), (QStringList{"select 1", "select 3"}));
        // Other keys leave the list alone.
        QTest::keyClick(f.ListSQL, Qt::Key_Backspace);
        QCOMPARE(f.ListSQL->count(), 2);
        f.reject();
    }

    void sqlDatAusWindowsUndBeiJedemOeffnen()
    {
        // Windows-1252 with CR LF, as brought over: the umlauts come through, empty lines go.
        DateiSchreiben(datei(), "select * from Schallplatten where Band = 'M\xf6tley'\r\n\r\nupdate x\r\n");
        {
            SQLform f;
            f.Form_Load();
            QCOMPARE(eintraege(f.ListSQL),
                     (QStringList{"select * from Schallplatten where Band = 'Mötley'", "update x"}));
            f.TextSQL->setText("delete from y");
            f.CommandUebernehmen->click();
            // Written back as UTF-8 with LF.
            QCOMPARE(DateiLesen(datei()),
                     QByteArray("select * from Schallplatten where Band = 'M\xc3\xb6tley'\nupdate x\ndelete from y\n"));
        }
        // Read anew at every opening.
        TextdateiSchreiben(datei(), {"select 9"});
        SQLform f;
        f.Form_Load();
        QCOMPARE(eintraege(f.ListSQL), QStringList{"select 9"});
        // A file that cannot be written is reported, and the entry stays in the list.
        QFile::remove(datei());
        QDir().mkpath(datei());
        f.TextSQL->setText("select 10");
        f.CommandUebernehmen->click();
        QCOMPARE(eintraege(f.ListSQL), (QStringList{"select 9", "select 10"}));
        const auto meldungen = Attrappen::dialoge().meldungen();
        QCOMPARE(meldungen.size(), 1);
        QCOMPARE(meldungen[0].titel, QString("SQLform_CommandUebernehmen_Click"));
        QCOMPARE(meldungen[0].typ, 3);
        QVERIFY(meldungen[0].text.startsWith("75 "));
    }

    void klickWaehltDieArtNachKleinschreibung()
    {
        TextdateiSchreiben(datei(), {"insert into Schallplatten (Band) values ('X')",
                                     "update Schallplatten set Stil = 'Jazz'", "UPDATE Schallplatten SET Stil = 'Jazz'",
                                     "delete from Schallplatten", "select * from Schallplatten"});
        SQLform f;
        f.Form_Load();
        f.show();
        QVERIFY(QTest::qWaitForWindowExposed(&f));
        const bool erwartet[] = {true, true, false, false, false};
        for (int i = 0; i < 5; ++i) {
            QListWidgetItem* eintrag = f.ListSQL->item(i);
            QTest::mouseClick(f.ListSQL->viewport(), Qt::LeftButton, {},
                              f.ListSQL->visualItemRect(eintrag).center());
            QCOMPARE(f.TextSQL->text(), eintrag->text());
            QCOMPARE(f.optSql[1]->isChecked(), erwartet[i]);
            QCOMPARE(f.optSql[0]->isChecked(), !erwartet[i]);
            QCOMPARE(QApplication::focusWidget(), static_cast<QWidget*>(f.TextSQL));
        }
        f.reject();
    }

    void tastenImFeld()
    {
        SQLform f;
        f.Form_Load();
        f.show();
        QVERIFY(QTest::qWaitForWindowExposed(&f));
        f.TextSQL->setFocus();
        QTest::keyClicks(f.TextSQL, "select 'a'");
        QCOMPARE(f.TextSQL->text(), QString("select a"));
        // A release alone (the Enter that opened the window) runs nothing.
        QTest::keyRelease(f.TextSQL, Qt::Key_Return);
        QVERIFY(f.isVisible());
        QCOMPARE(f.TextSQL->text(), QString("select a"));
        // A pasted line break becomes a blank: sql.dat keeps one statement a line.
        f.TextSQL->setText("select *\nfrom Schallplatten");
        QCOMPARE(f.TextSQL->text(), QString("select * from Schallplatten"));
        // Enter runs the statement on its release.
        QTest::keyPress(f.TextSQL, Qt::Key_Return);
        QVERIFY(f.isVisible());
        QTest::keyRelease(f.TextSQL, Qt::Key_Return);
        QVERIFY(!f.isVisible());
        QCOMPARE(f.result(), int(QDialog::Accepted));
        QCOMPARE(SqlAnweisung, QString("select * from Schallplatten"));
    }

    void fensterplatzUndSchrift()
    {
        {
            // Empty store: the design size at the top left.
            SQLform f;
            f.Form_Load();
            QCOMPARE(f.pos(), QPoint(0, 0));
            QCOMPARE(f.size(), QSize(Px(10650), Px(7170)));
            QCOMPARE(f.TextSQL->font().pointSizeF(), 10.0);
            QCOMPARE(f.ListSQL->font().pointSizeF(), 10.0);
            QCOMPARE(f.ListSQL->font().family(), QFontInfo(f.TextSQL->font()).family());
            f.show();
            QVERIFY(QTest::qWaitForWindowExposed(&f));
            f.move(150, 75);
            f.resize(750, 510);
            f.CommandExit->click();
        }
        QCOMPARE(Lesen("SQLformTop"), QString("1125"));
        QCOMPARE(Lesen("SQLformleft"), QString("2250"));
        QCOMPARE(Lesen("SQLformwidth"), QString("11250"));
        QCOMPARE(Lesen("SQLformheight"), QString("7650"));
        // Written with a capital L, the spelling the store keeps.
        QVERIFY(DateiLesen(EinstellungsDatei(AppName)).contains("SQLformLeft=2250"));

        Speichern("ProgSchriftSize", "13");
        SQLform f;
        f.Form_Load();
        QCOMPARE(f.pos(), QPoint(150, 75));
        QCOMPARE(f.size(), QSize(750, 510));
        QCOMPARE(f.ListSQL->font().pointSizeF(), 13.0);
        // Closed maximized: the place of before stays.
        f.showMaximized();
        QVERIFY(QTest::qWaitForWindowExposed(&f));
        f.CommandExit->click();
        QCOMPARE(Lesen("SQLformleft"), QString("2250"));
        QCOMPARE(Lesen("SQLformwidth"), QString("11250"));
        // A value that does not convert leaves the design value.
        Speichern("SQLformwidth", "breit");
        SQLform g;
        g.Form_Load();
        QCOMPARE(g.width(), Px(10650));
    }

    void leeresFeldUndExitTunNichts()
    {
        starten();
        QVERIFY(w->MenuSQLabfrage->isEnabled());
        const QString quelle = w->Data1->RecordSource();
        ModalBedienen([](QDialog* d) {
            QCOMPARE(d->objectName(), QString("SQLform"));
            QCOMPARE(d->findChild<Textfeld*>("TextSQL")->text(), QString());
            QVERIFY(Klicken(d, "CommandOK"));
        });
        w->MenuSQLabfrage->trigger();
        QVERIFY(ModalBedient());
        QVERIFY(Attrappen::dialoge().aufrufe.isEmpty());
        QCOMPARE(w->Data1->RecordSource(), quelle);
        QCOMPARE(w->MSFlexGrid1->Rows(), 5);

        // Exit forgets the statement: nothing runs, the next opening is empty.
        ModalBedienen([](QDialog* d) {
            d->findChild<Textfeld*>("TextSQL")->setText("delete from Schallplatten");
            d->findChild<QRadioButton*>("optSql(1)")->click();
            QVERIFY(Klicken(d, "CommandExit"));
        });
        w->MenuSQLabfrage_Click();
        QCOMPARE(KatalogSpalte(katalog, "Band").size(), 4);
        // Esc leaves the same way.
        ModalBedienen([](QDialog* d) {
            QCOMPARE(d->findChild<Textfeld*>("TextSQL")->text(), QString());
            d->findChild<Textfeld*>("TextSQL")->setText("delete from Schallplatten");
            d->findChild<QRadioButton*>("optSql(1)")->click();
            QTest::keyClick(d, Qt::Key_Escape);
        });
        w->MenuSQLabfrage_Click();
        QVERIFY(ModalBedient());
        QCOMPARE(KatalogSpalte(katalog, "Band").size(), 4);
        QCOMPARE(SqlAnweisung, QString());
    }

    void datensatzquelleFiltertOhneZuSpeichern()
    {
        starten();
        const QString gespeichert = Lesen("Data1RecordSource");
        const QString sql = "select * from Schallplatten where Stil like 'p*' order by Band";
        ModalBedienen(ausfuehren(sql, 0));
        w->MenuSQLabfrage_Click();
        QVERIFY(ModalBedient());
        QVERIFY(Attrappen::dialoge().aufrufe.isEmpty());
        QCOMPARE(spalte("Band"), (QStringList{"Abba", "Ärzte"}));
        QCOMPARE(w->Data1->RecordSource(), sql);
        QCOMPARE(Lesen("Data1RecordSource"), gespeichert);
        QCOMPARE(MauszeigerArt(), ZeigerStandard);
        // The next opening shows the statement that ran.
        ModalBedienen([sql](QDialog* d) {
            QCOMPARE(d->findChild<Textfeld*>("TextSQL")->text(), sql);
            QVERIFY(Klicken(d, "CommandExit"));
        });
        w->MenuSQLabfrage_Click();
        QVERIFY(ModalBedient());

        // A record source of fewer columns is shown as it is.
        ModalBedienen(ausfuehren("select Band, Stil from Schallplatten order by Stil", 0));
        w->MenuSQLabfrage_Click();
        QCOMPARE(w->MSFlexGrid1->Cols(), 2);
        QCOMPARE(spalte("Stil"), (QStringList{"Blues", "Klassik", "Pop", "Punk"}));

        // A delete offered as record source is refused: nothing deleted, the source stays.
        ModalBedienen(ausfuehren("delete from Schallplatten", 0));
        w->MenuSQLabfrage_Click();
        const auto meldungen = Attrappen::dialoge().meldungen();
        QCOMPARE(meldungen.size(), 1);
        QCOMPARE(meldungen[0].titel, QString("Ausgabebox_MenuSQLabfrage_Click"));
        QCOMPARE(meldungen[0].typ, 3);
        QCOMPARE(KatalogSpalte(katalog, "Band").size(), 4);
        QCOMPARE(w->Data1->RecordSource(), QString("delete from Schallplatten"));
        QCOMPARE(MauszeigerArt(), ZeigerStandard);
        // The refresh brings the saved table back.
        w->MenuAktualisieren_Click();
        QCOMPARE(w->MSFlexGrid1->Rows(), 5);
    }

    void executeMeldetDieAnzahl()
    {
        starten();
        ModalBedienen(ausfuehren("update Schallplatten set Stil = 'Jazz' where Stil like 'P*'", 1));
        w->MenuSQLabfrage_Click();
        QVERIFY(ModalBedient());
        const auto meldungen = Attrappen::dialoge().meldungen();
        QCOMPARE(meldungen.size(), 1);
        QCOMPARE(meldungen[0].text, QString("2 Datensätze bearbeitet!"));
        QCOMPARE(meldungen[0].titel, QString("SQL-Befehl ausgeführt"));
        QCOMPARE(spalte("Stil"), (QStringList{"Jazz", "Jazz", "Klassik", "Blues"}));
        QCOMPARE(KatalogSpalte(katalog, "Stil"), (QStringList{"Jazz", "Klassik", "Jazz", "Blues"}));
        QCOMPARE(MauszeigerArt(), ZeigerStandard);
    }

    void executeMitSelectEndetImFehlerkasten()
    {
        starten();
        const QString quelle = w->Data1->RecordSource();
        ModalBedienen(ausfuehren("select * from Schallplatten", 1));
        w->MenuSQLabfrage_Click();
        QVERIFY(ModalBedient());
        auto meldungen = Attrappen::dialoge().meldungen();
        QCOMPARE(meldungen.size(), 1);
        QCOMPARE(meldungen[0].titel, QString("Ausgabebox_MenuSQLabfrage_Click"));
        QCOMPARE(meldungen[0].typ, 3);
        QCOMPARE(meldungen[0].standard, 0);
        QCOMPARE(meldungen[0].sekunden, 1);
        QCOMPARE(meldungen[0].hintergrund, Farbe::FehlerHintergrund);
        QVERIFY(meldungen[0].text.startsWith("3065 "));
        QCOMPARE(MauszeigerArt(), ZeigerStandard);
        // The table is untouched and the program goes on: a wrong statement, then a good one.
        QCOMPARE(w->Data1->RecordSource(), quelle);
        QCOMPARE(w->MSFlexGrid1->Rows(), 5);
        ModalBedienen(ausfuehren("update Schallplaten set Stil = 'x'", 1));
        w->MenuSQLabfrage_Click();
        meldungen = Attrappen::dialoge().meldungen();
        QCOMPARE(meldungen.size(), 2);
        QVERIFY(meldungen[1].text.contains("Schallplaten"));
        ModalBedienen(ausfuehren("delete from Schallplatten where Band = 'Bach'", 1));
        w->MenuSQLabfrage_Click();
        QCOMPARE(Attrappen::dialoge().meldungen().last().text, QString("1 Datensätze bearbeitet!"));
        QCOMPARE(spalte("Band"), (QStringList{"Abba", "Ärzte", "Cream"}));
    }

    void werkzeugknopfOeffnetDieKonsole()
    {
        starten();
        Bildknopf* knopf = w->cmdButton[4];
        QVERIFY(knopf->isEnabled());
        ModalBedienen([](QDialog* d) {
            QCOMPARE(d->objectName(), QString("SQLform"));
            QVERIFY(Klicken(d, "CommandExit"));
        });
        QTest::mouseClick(knopf, Qt::LeftButton);
        QVERIFY(ModalBedient());
    }
};

RK_TEST_MAIN(TestSqlform)
#include "tst_sqlform.moc"
