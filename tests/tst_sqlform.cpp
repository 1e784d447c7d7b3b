// The SQL console: the stored list in sql.dat, the keys of its fields, the window's place,
// and the two ways the main window runs a statement.
#include "support/Katalog.h"
#include "support/Modal.h"
#include "support/Testumgebung.h"

#include "catalogue/Datensteuerung.h"
#include "catalogue/FlexGrid.h"
#include "collections/SQLform.h"
#include "platform/Einheiten.h"
#include "platform/Mauszeiger.h"
#include "platform/Textdatei.h"
#include "shell/Ausgabebox.h"
#include "shell/Einstellungen.h"
#include "shell/Globale.h"
#include "shell/Steuerelemente.h"

#include <QDialog>
#include <QDir>
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
        for (int r = 1; r < w->MSFlexGrid1->Rows(); ++r)
            werte << w->MSFlexGrid1->TextMatrix(r, w->SpalteSuchen(kopf));
        return werte;
    }

    static QString datei() { return ProgrammOrdner + "sql.dat"; }

private slots:
    void init()
    {
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

    void listeSpeichernUndDoppelteVerweigern()
    {
        // Brought over from Windows: Windows-1252, CR LF; empty lines are dropped.
        DateiSchreiben(datei(), "select * from Schallplatten where Band = 'M\xf6tley'\r\n\r\nupdate x\r\n");
        SQLform f;
        f.Form_Load();
        QCOMPARE(eintraege(f.ListSQL), (QStringList{"select * from Schallplatten where Band = 'Mötley'", "update x"}));
        f.TextSQL->setText("update x");
        f.CommandUebernehmen->click();
        QCOMPARE(Attrappen::dialoge().meldungsTexte(), QStringList{"Der Eintrag ist schon vorhanden!\n\nupdate x"});
        QCOMPARE(Attrappen::dialoge().meldungen().first().titel, QString("Hinweis"));
        // One blank more is another statement; the file is written anew as UTF-8 with LF.
        f.TextSQL->setText("update  x");
        f.CommandUebernehmen->click();
        QCOMPARE(f.ListSQL->count(), 3);
        QCOMPARE(DateiLesen(datei()),
                 QByteArray("select * from Schallplatten where Band = 'M\xc3\xb6tley'\nupdate x\nupdate  x\n"));
        f.TextSQL->clear();
        f.CommandUebernehmen->click();
        QCOMPARE(f.ListSQL->count(), 3);
        // Read anew at every opening.
        TextdateiSchreiben(datei(), {"select 9"});
        SQLform g;
        g.Form_Load();
        QCOMPARE(eintraege(g.ListSQL), QStringList{"select 9"});
    }

    void loeschenMitUndOhneFrage()
    {
        TextdateiSchreiben(datei(), {"select 1", "select 2", "select 3", "select 4"});
        SQLform f;
        f.Form_Load();
        f.CommandLoeschen->click(); // nothing chosen: no question
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
        // Any other answer removes, the empty one of a closed box too.
        f.CommandLoeschen->click();
        QCOMPARE(f.TextSQL->text(), QString());
        QCOMPARE(TextdateiLesen(datei()), (QStringList{"select 1", "select 3", "select 4"}));
        // The Delete key removes without a question.
        Attrappen::dialoge().leeren();
        f.ListSQL->setCurrentRow(2);
        f.TextSQL->setText("irgendwas");
        QTest::keyClick(f.ListSQL, Qt::Key_Delete);
        QVERIFY(Attrappen::dialoge().aufrufe.isEmpty());
        QCOMPARE(f.TextSQL->text(), QString());
        QCOMPARE(TextdateiLesen(datei()), (QStringList{"select 1", "select 3"}));
    }

    void klickUndTastenImFeld()
    {
        TextdateiSchreiben(datei(), {"insert into T values (1)", "update T set a = 1", "UPDATE T SET a = 1",
                                     "delete from T"});
        SQLform f;
        f.Form_Load();
        f.show();
        QVERIFY(QTest::qWaitForWindowExposed(&f));
        // "into" and "update" in small letters choose Execute; capitals and delete do not.
        const bool ausfuehren[] = {true, true, false, false};
        for (int i = 0; i < 4; ++i) {
            QTest::mouseClick(f.ListSQL->viewport(), Qt::LeftButton, {},
                              f.ListSQL->visualItemRect(f.ListSQL->item(i)).center());
            QCOMPARE(f.TextSQL->text(), f.ListSQL->item(i)->text());
            QCOMPARE(f.optSql[1]->isChecked(), ausfuehren[i]);
            QCOMPARE(QApplication::focusWidget(), static_cast<QWidget*>(f.TextSQL));
        }
        f.TextSQL->clear();
        QTest::keyClicks(f.TextSQL, "select 'a'");
        QCOMPARE(f.TextSQL->text(), QString("select a"));
        // A release alone (the Enter that opened the window) runs nothing.
        QTest::keyRelease(f.TextSQL, Qt::Key_Return);
        QVERIFY(f.isVisible());
        // A pasted line break becomes a blank: sql.dat keeps one statement a line.
        f.TextSQL->setText("select *\nfrom T");
        QCOMPARE(f.TextSQL->text(), QString("select * from T"));
        QTest::keyPress(f.TextSQL, Qt::Key_Return);
        QVERIFY(f.isVisible());
        QTest::keyRelease(f.TextSQL, Qt::Key_Return);
        QVERIFY(!f.isVisible());
        QCOMPARE(SqlAnweisung, QString("select * from T"));
    }

    void fensterplatz()
    {
        {
            SQLform f;
            f.Form_Load();
            QCOMPARE(f.geometry(), QRect(0, 0, Px(10650), Px(7170)));
            QCOMPARE(f.ListSQL->font().pointSizeF(), 10.0);
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
        QVERIFY(DateiLesen(EinstellungsDatei(AppName)).contains("SQLformLeft=2250"));
        SQLform f;
        f.Form_Load();
        QCOMPARE(f.geometry(), QRect(150, 75, 750, 510));
        // Closed maximized: the place of before stays.
        f.showMaximized();
        QVERIFY(QTest::qWaitForWindowExposed(&f));
        f.CommandExit->click();
        QCOMPARE(Lesen("SQLformwidth"), QString("11250"));
    }

    void leerUndExitTunNichts()
    {
        starten();
        const QString quelle = w->Data1->RecordSource();
        ModalBedienen([](QDialog* d) { QVERIFY(Klicken(d, "CommandOK")); });
        w->MenuSQLabfrage->trigger();
        QVERIFY(ModalBedient());
        QVERIFY(Attrappen::dialoge().aufrufe.isEmpty());
        QCOMPARE(w->Data1->RecordSource(), quelle);
        // Exit and Esc forget the statement: nothing runs, the next opening is empty.
        for (const bool esc : {false, true}) {
            ModalBedienen([esc](QDialog* d) {
                QCOMPARE(d->findChild<Textfeld*>("TextSQL")->text(), QString());
                d->findChild<Textfeld*>("TextSQL")->setText("delete from Schallplatten");
                d->findChild<QRadioButton*>("optSql(1)")->click();
                if (esc)
                    QTest::keyClick(d, Qt::Key_Escape);
                else
                    Klicken(d, "CommandExit");
            });
            QTest::mouseClick(w->cmdButton[4], Qt::LeftButton); // the tool button opens it too
            QVERIFY(ModalBedient());
        }
        QCOMPARE(KatalogSpalte(katalog, "Band").size(), 4);
    }

    void datensatzquelleFiltertOhneZuSpeichern()
    {
        starten();
        const QString gespeichert = Lesen("Data1RecordSource");
        const QString sql = "select * from Schallplatten where Stil like 'p*' order by Band";
        ModalBedienen(ausfuehren(sql, 0));
        w->MenuSQLabfrage_Click();
        QVERIFY(Attrappen::dialoge().aufrufe.isEmpty());
        QCOMPARE(spalte("Band"), (QStringList{"Abba", "Ärzte"}));
        QCOMPARE(Lesen("Data1RecordSource"), gespeichert);
        QCOMPARE(MauszeigerArt(), ZeigerStandard);
        // The next opening shows the statement that ran.
        ModalBedienen([sql](QDialog* d) {
            QCOMPARE(d->findChild<Textfeld*>("TextSQL")->text(), sql);
            Klicken(d, "CommandExit");
        });
        w->MenuSQLabfrage_Click();

        // A delete offered as record source is refused: nothing deleted, the source stays.
        ModalBedienen(ausfuehren("delete from Schallplatten", 0));
        w->MenuSQLabfrage_Click();
        QCOMPARE(Attrappen::dialoge().meldungen().size(), 1);
        QCOMPARE(Attrappen::dialoge().meldungen()[0].titel, QString("Ausgabebox_MenuSQLabfrage_Click"));
        QCOMPARE(KatalogSpalte(katalog, "Band").size(), 4);
        QCOMPARE(w->Data1->RecordSource(), QString("delete from Schallplatten"));
        QCOMPARE(MauszeigerArt(), ZeigerStandard);
        w->MenuAktualisieren_Click();
        QCOMPARE(w->MSFlexGrid1->Rows(), 5);
    }

    void executeZaehltOderMeldetDenFehler()
    {
        starten();
        ModalBedienen(ausfuehren("update Schallplatten set Stil = 'Jazz' where Stil like 'P*'", 1));
        w->MenuSQLabfrage_Click();
        QCOMPARE(Attrappen::dialoge().meldungsTexte(), QStringList{"2 Datensätze bearbeitet!"});
        QCOMPARE(Attrappen::dialoge().meldungen()[0].titel, QString("SQL-Befehl ausgeführt"));
        QCOMPARE(spalte("Stil"), (QStringList{"Jazz", "Jazz", "Klassik", "Blues"}));
        QCOMPARE(KatalogSpalte(katalog, "Stil"), (QStringList{"Jazz", "Klassik", "Jazz", "Blues"}));

        // A select as action ends in the common error box; the table stays as it was.
        Attrappen::dialoge().leeren();
        const QString quelle = w->Data1->RecordSource();
        ModalBedienen(ausfuehren("select * from Schallplatten", 1));
        w->MenuSQLabfrage_Click();
        const Meldung fehler = Attrappen::dialoge().meldungen().value(0);
        QCOMPARE(fehler.titel, QString("Ausgabebox_MenuSQLabfrage_Click"));
        QCOMPARE(fehler.typ, 3);
        QCOMPARE(fehler.hintergrund, Farbe::FehlerHintergrund);
        QVERIFY(fehler.text.startsWith("3065 "));
        QCOMPARE(MauszeigerArt(), ZeigerStandard);
        QCOMPARE(w->Data1->RecordSource(), quelle);
        QCOMPARE(w->MSFlexGrid1->Rows(), 5);
        // The program goes on.
        ModalBedienen(ausfuehren("delete from Schallplatten where Band = 'Bach'", 1));
        w->MenuSQLabfrage_Click();
        QCOMPARE(Attrappen::dialoge().meldungen().last().text, QString("1 Datensätze bearbeitet!"));
        QCOMPARE(spalte("Band"), (QStringList{"Abba", "Ärzte", "Cream"}));
    }
};

RK_TEST_MAIN(TestSqlform)
#include "tst_sqlform.moc"
