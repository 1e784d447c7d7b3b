// The SQL console: the stored list in sql.dat, the keys of its fields, the window's place,
// and the two ways the main window runs a statement.
#include "support/Fenster.h"
#include "support/Katalog.h"
#include "support/Modal.h"
#include "support/Testumgebung.h"

#include "catalogue/Datensteuerung.h"
#include "catalogue/FlexGrid.h"
#include "catalogue/Katalogdatei.h"
#include "collections/SQLform.h"
#include "collections/SqlKonsole.h"
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
        katalog = FensterStarten(w, {.zeilen = {Zeilenwerte{{"Band", "Abba"}, {"Stil", "Pop"}},
                                                Zeilenwerte{{"Band", "Bach"}, {"Stil", "Klassik"}},
                                                Zeilenwerte{{"Band", "Ärzte"}, {"Stil", "Punk"}},
                                                Zeilenwerte{{"Band", "Cream"}, {"Stil", "Blues"}}},
                                     .zuruecksetzen = false,
                                     .zeigen = true});
        Attrappen::dialoge().leeren();
    }

    QStringList spalte(const QString& kopf) const
    {
        QStringList werte;
        for (int r = 1; r < w->MSFlexGrid1->Rows(); ++r)
            werte << w->MSFlexGrid1->TextMatrix(r, w->MSFlexGrid1->SpalteSuchen(kopf));
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

    void listeSpeichernLoeschenUndDoppelteVerweigern()
    {
        // Brought over from Windows: Windows-1252, CR LF; empty lines are dropped.
        DateiSchreiben(datei(), "select * from Schallplatten where Band = 'M\xf6tley'\r\n\r\nupdate x\r\n");
        SQLform f;
        f.Form_Load();
        QCOMPARE(eintraege(f.ListSQL), (QStringList{"select * from Schallplatten where Band = 'Mötley'", "update x"}));
        f.TextSQL->setText("update x");
        f.CommandUebernehmen->click();
        QCOMPARE(Attrappen::dialoge().meldungsTexte(), QStringList{"Der Eintrag ist schon vorhanden!\n\nupdate x"});
        // One blank more is another statement; an empty field adds nothing. The file is
        // written anew as UTF-8 with LF.
        for (const char* neu : {"update  x", "", "select 4"}) {
            f.TextSQL->setText(neu);
            f.CommandUebernehmen->click();
        }
        QCOMPARE(DateiLesen(datei()),
                 QByteArray("select * from Schallplatten where Band = 'M\xc3\xb6tley'\nupdate x\nupdate  x\nselect 4\n"));

        // Deleting: nothing chosen, no question; "Nein" keeps; any other answer removes,
        // the empty one of a closed box too; the Delete key removes without a question.
        Attrappen::dialoge().leeren();
        f.ListSQL->setCurrentRow(-1);
        f.CommandLoeschen->click();
        QVERIFY(Attrappen::dialoge().aufrufe.isEmpty());
        f.ListSQL->setCurrentRow(1);
        Attrappen::dialoge().antwortenMsg << "Nein";
        f.CommandLoeschen->click();
        QCOMPARE(f.ListSQL->count(), 4);
        QCOMPARE(Attrappen::dialoge().meldungen().first().standard, 1);
        f.CommandLoeschen->click();
        QCOMPARE(f.TextSQL->text(), QString());
        QCOMPARE(TextdateiLesen(datei()), (QStringList{"select * from Schallplatten where Band = 'Mötley'",
                                                      "update  x", "select 4"}));
        Attrappen::dialoge().leeren();
        f.ListSQL->setCurrentRow(2);
        QTest::keyClick(f.ListSQL, Qt::Key_Delete);
        QVERIFY(Attrappen::dialoge().aufrufe.isEmpty());
        QCOMPARE(f.ListSQL->count(), 2);
        QCOMPARE(TextdateiLesen(datei()).size(), 2);
        // Read anew at every opening.
        TextdateiSchreiben(datei(), {"select 9"});
        SQLform g;
        g.Form_Load();
        QCOMPARE(eintraege(g.ListSQL), QStringList{"select 9"});
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
        }
        f.TextSQL->clear();
        QTest::keyClicks(f.TextSQL, "select 'a'");
        QCOMPARE(f.TextSQL->text(), QString("select a"));
        // A pasted line break becomes a blank: sql.dat keeps one statement a line.
        f.TextSQL->setText("select *\nfrom T");
        QCOMPARE(f.TextSQL->text(), QString("select * from T"));
        // Enter runs on its release, so the one that opened the window runs nothing.
        QTest::keyRelease(f.TextSQL, Qt::Key_Return);
        QVERIFY(f.isVisible());
        QTest::keyPress(f.TextSQL, Qt::Key_Return);
        QVERIFY(f.isVisible());
        QTest::keyRelease(f.TextSQL, Qt::Key_Return);
        QVERIFY(!f.isVisible());
        QCOMPARE(SqlAnweisung, QString("select * from T"));
    }

    void fensterplatz()
    {
        auto f = std::make_unique<SQLform>();
        f->Form_Load();
        f->show();
        QVERIFY(QTest::qWaitForWindowExposed(f.get()));
        f->move(150, 75);
        f->resize(750, 510);
        f->CommandExit->click();
        f = std::make_unique<SQLform>();
        f->Form_Load();
        QCOMPARE(f->geometry(), QRect(150, 75, 750, 510));
        // Closed maximized: the place of before stays, in twips.
        f->showMaximized();
        QVERIFY(QTest::qWaitForWindowExposed(f.get()));
        f->CommandExit->click();
        QCOMPARE(Lesen("SQLformwidth"), QString("11250"));
    }

    void datensatzquelleFiltertOhneZuSpeichern()
    {
        starten();
        const QString gespeichert = Lesen("Data1RecordSource");
        const QString quelle = w->Data1->RecordSource();
        // An empty field runs nothing.
        ModalBedienen([](QDialog* d) { QVERIFY(Klicken(d, "CommandOK")); });
        w->MenuSQLabfrage->trigger();
        QVERIFY(ModalBedient());
        QVERIFY(Attrappen::dialoge().aufrufe.isEmpty());
        QCOMPARE(w->Data1->RecordSource(), quelle);

        const QString sql = "select * from Schallplatten where Stil like 'p*' order by Band";
        ModalBedienen(ausfuehren(sql, 0));
        QTest::mouseClick(w->cmdButton[4], Qt::LeftButton); // the tool button opens it too
        QVERIFY(Attrappen::dialoge().aufrufe.isEmpty());
        QCOMPARE(spalte("Band"), (QStringList{"Abba", "Ärzte"}));
        QCOMPARE(Lesen("Data1RecordSource"), gespeichert);
        // The next opening shows the statement that ran; Exit and Esc forget what was typed.
        for (const bool esc : {false, true}) {
            ModalBedienen([sql, esc](QDialog* d) {
                auto* feld = d->findChild<Textfeld*>("TextSQL");
                QCOMPARE(feld->text(), esc ? QString() : sql);
                feld->setText("delete from Schallplatten");
                d->findChild<QRadioButton*>("optSql(1)")->click();
                if (esc)
                    QTest::keyClick(d, Qt::Key_Escape);
                else
                    Klicken(d, "CommandExit");
            });
            w->MenuSQLabfrage->trigger();
            QVERIFY(ModalBedient());
        }
        QCOMPARE(KatalogSpalte(katalog, "Band").size(), 4);

        // A delete offered as record source is refused: nothing deleted, the cursor back.
        ModalBedienen(ausfuehren("delete from Schallplatten", 0));
        w->MenuSQLabfrage->trigger();
        QCOMPARE(Attrappen::dialoge().meldungen().size(), 1);
        QCOMPARE(KatalogSpalte(katalog, "Band").size(), 4);
        QCOMPARE(MauszeigerArt(), ZeigerStandard);
        w->MenuAktualisieren->trigger();
        QCOMPARE(w->MSFlexGrid1->Rows(), 5);
    }

    void executeZaehltOderMeldetDenFehler()
    {
        starten();
        ModalBedienen(ausfuehren("update Schallplatten set Stil = 'Jazz' where Stil like 'P*'", 1));
        w->MenuSQLabfrage->trigger();
        QCOMPARE(Attrappen::dialoge().meldungsTexte(), QStringList{"2 Datensätze bearbeitet!"});
        QCOMPARE(spalte("Stil"), (QStringList{"Jazz", "Jazz", "Klassik", "Blues"}));
        QCOMPARE(KatalogSpalte(katalog, "Stil"), (QStringList{"Jazz", "Klassik", "Jazz", "Blues"}));

        // A select as action ends in the error box; the table stays as it was.
        Attrappen::dialoge().leeren();
        const QString quelle = w->Data1->RecordSource();
        ModalBedienen(ausfuehren("select * from Schallplatten", 1));
        w->MenuSQLabfrage->trigger();
        QVERIFY(Attrappen::dialoge().meldungsTexte().value(0).startsWith("3065 "));
        QCOMPARE(MauszeigerArt(), ZeigerStandard);
        QCOMPARE(w->Data1->RecordSource(), quelle);
        QCOMPARE(w->MSFlexGrid1->Rows(), 5);
        // The program goes on.
        ModalBedienen(ausfuehren("delete from Schallplatten where Band = 'Bach'", 1));
        w->MenuSQLabfrage->trigger();
        QCOMPARE(Attrappen::dialoge().meldungen().last().text, QString("1 Datensätze bearbeitet!"));
        QCOMPARE(spalte("Band"), (QStringList{"Abba", "Ärzte", "Cream"}));
    }
};

RK_TEST_MAIN(TestSqlform)
#include "tst_sqlform.moc"
