// The searches over the catalogue: the statements of the search window, the filter and
// the replacement it runs, the search by song rating, and the walk of the search field.
#include "support/Fenster.h"
#include "support/Katalog.h"
#include "support/Modal.h"
#include "support/Testumgebung.h"

#include "catalogue/Datensteuerung.h"
#include "catalogue/FlexGrid.h"
#include "collections/Suchanfrage.h"
#include "collections/Suchbox.h"
#include "platform/Mauszeiger.h"
#include "platform/Textdatei.h"
#include "shell/Ausgabebox.h"
#include "shell/Einstellungen.h"
#include "shell/Globale.h"
#include "shell/Steuerelemente.h"

#include <QAction>
#include <QDialog>
#include <QDir>
#include <QLabel>
#include <QListWidget>
#include <QPushButton>
#include <QTreeWidget>

#include <functional>
#include <memory>

class TestSuche : public QObject {
    Q_OBJECT

    std::unique_ptr<Ausgabebox> w;
    QString katalog;
    QString musik;

    void starten()
    {
        static int lauf = 0;
        musik = Testordner(QStringLiteral("suche%1").arg(++lauf));
        const QString abba = musik + "Abba/";
        const QString cream = musik + "Cream/";
        for (const char* d : {"Money - 3.mp3", "Waterloo - 1.mp3", "Fernando.mp3"})
            DateiSchreiben(abba + d, "x");
        for (const char* d : {"Crossroads - 3.mp3", "Badge - 13.mp3"})
            DateiSchreiben(cream + d, "x");
        katalog = FensterStarten(
            w, {.zeilen = {Zeilenwerte{{"Band", "Abba"}, {"LPTitel", "Arrival"}, {"Medium", "LP"}, {"Stil", "Pop"},
                                       {"Musikpfad", abba}, {"Info", "O'Neil LP"}},
                           Zeilenwerte{{"Band", "Bach"}, {"LPTitel", "LP Kantaten"}, {"Medium", "CD"},
                                       {"Stil", "Klassik"},
                                       {"Songs", "{\\rtf1\\ansi \\'e4rger im Chor\\par}"}},
                           Zeilenwerte{{"Band", "Cream"}, {"LPTitel", "Wheels"}, {"Medium", "LP"}, {"Stil", "Blues"},
                                       {"Musikpfad", cream}, {"Info", "50% Rabatt_[*]; Ende"},
                                       {"Songs", "{\\rtf1\\ansi Crossroads\\par Badge\\par}"}}},
                .zuruecksetzen = false});
        Attrappen::dialoge().leeren();
        SuchAbfrage.clear();
        SuchenNach.clear();
        ErsetzenDurch.clear();
        Suchspalten.clear();
        SongBewertungSuche = false;
    }

    QStringList spalte(const QString& kopf) const
    {
        QStringList werte;
        for (int r = 1; r < w->MSFlexGrid1->Rows(); ++r)
            werte << w->MSFlexGrid1->TextMatrix(r, w->MSFlexGrid1->SpalteSuchen(kopf));
        return werte;
    }

    // Opens the search window, lets the step set it up, and runs OK unless the step closed it.
    void suchen(const std::function<void(Suchbox*)>& schritt)
    {
        ModalBedienen([schritt](QDialog* d) {
            auto* s = qobject_cast<Suchbox*>(d);
            QVERIFY(s);
            schritt(s);
            if (s->isVisible())
                s->ButtonOk->click();
        });
        w->MenuSuchen->trigger();
        QVERIFY(ModalBedient());
    }

    static void nurSpalte(Suchbox* s, int box)
    {
        s->chkSpaltennameAlle->setChecked(false);
        s->chkSpaltenname[box]->click();
    }

private slots:
    void init()
    {
        Testumgebung::zuruecksetzen();
        ProgrammOrdner = Testumgebung::programmOrdner();
        QDir().mkpath(ProgrammOrdner + "Playlist");
    }
    void cleanup() { w.reset(); }

    // The statements as tables: texts in, Jet SQL out.
    void anweisungen()
    {
        const QString alle = "select * from Schallplatten where ";
        QCOMPARE(SuchtextVerleimen("Pop, Rock"), QString("Pop*' or Stil like '*Rock"));
        // "a, b" under "Alle": each column's clause on "a" carries a clause on Stil for "b".
        const QString sql = SuchAnweisung({0, 1, 2}, SuchtextVerleimen("Pop, Rock"), "Band");
        QCOMPARE(sql, alle + "Band like '*Pop*' or Stil like '*Rock*' or LPTitel like '*Pop*' or Stil like '*Rock*'"
                             " or Medium like '*Pop*' or Stil like '*Rock*' order by Band");
        // One column: its own sort field; Songs converts the German letters.
        QCOMPARE(SuchAnweisung({1}, " Help ", "LPTitel"), alle + "LPTitel like '*Help*' order by LPTitel");
        QCOMPARE(SuchAnweisung({6}, "Ärger über Straße", "Band"),
                 alle + "Songs like '*\\?c4rger \\?fcber Stra\\?dfe*' order by Band");
        // The user's text is literal: apostrophes doubled, Jet's wildcards bracketed.
        QCOMPARE(SuchAnweisung({5}, "O'Neil 50% _*?#[;", "Info"),
                 alle + "Info like '*O''Neil 50% _[*][?][#][[];*' order by Info");
        QCOMPARE(SuchspaltenTabelle[12].feld, "Bewertung");

        // The replacement: the span is taken before the doubling (an apostrophe in front
        // shifts it), and the texts are doubled anew at every hit.
        QString suchen = "Band", ersetzen = "Group", alt;
        QCOMPARE(ErsetzterWert("The Band", suchen, ersetzen, &alt), QString("The Group"));
        QCOMPARE(alt, QString("The Band"));
        QCOMPARE(ErsetzterWert("O'Brien Band", suchen, ersetzen, &alt), QString("O''BrienGroupd"));
        QCOMPARE(alt, QString("O''Brien Band"));
        suchen = "Rock";
        ersetzen = "Rock'n'Roll";
        QCOMPARE(ErsetzterWert("Rock", suchen, ersetzen, &alt), QString("Rock''n''Roll"));
        QCOMPARE(ErsetzterWert("Hardrock Rock", suchen, ersetzen, &alt), QString("Hardrock Rock''''n''''Roll"));
    }

    // The rules between the controls of the window.
    void fensterRegeln()
    {
        DateiSchreiben(ProgrammOrdner + "Stilrichtung.ini", "Pop\r\n\r\n Jazz \r\nSchlager\r\n");
        DateiSchreiben(ProgrammOrdner + "AusschlussAbspielliste.ini", "Schlager\r\n");
        Suchbox s;
        s.Form_Load();
        QCOMPARE(s.lstStil->count(), 2);
        QCOMPARE(s.lstStil->item(1)->text(), QString("Jazz"));
        for (int i = 0; i < SuchspaltenAnzahl; ++i)
            QCOMPARE(s.chkSpaltenname[i]->checkState(), Qt::PartiallyChecked);
        // Under "Alle" a click changes nothing; replacing asks for columns first.
        s.chkSpaltenname[3]->click();
        QCOMPARE(s.chkSpaltenname[3]->checkState(), Qt::PartiallyChecked);
        s.chkErsetzen->click();
        QVERIFY(!s.chkErsetzen->isChecked() && !s.chkSpaltennameAlle->isChecked());
        QCOMPARE(Attrappen::dialoge().meldungen().last().titel, QString("Hinweis"));
        QVERIFY(s.txtErsetzen->isReadOnly());
        // Songs and Stil cannot be replaced in.
        s.chkSpaltenname[4]->click();
        s.chkErsetzen->click();
        QVERIFY(!s.chkErsetzen->isChecked());
        QCOMPARE(s.chkSpaltenname[4]->checkState(), Qt::Unchecked);
        QCOMPARE(Attrappen::dialoge().meldungen().last().titel, QString("Bedienungshinweis"));
        // A style chosen from the list is appended to the text.
        s.txtSuchen->setText("Pop");
        s.lstStil->setCurrentRow(1);
        QTest::mouseClick(s.lstStil->viewport(), Qt::LeftButton, {}, s.lstStil->visualItemRect(s.lstStil->item(1)).center());
        QCOMPARE(s.txtSuchen->text(), QString("Pop, Jazz"));
        QCOMPARE(s.chkSpaltenname[4]->checkState(), Qt::Checked);
        // Stars: without a rating box a notice, with the song rating " - n.".
        const int vorher = int(Attrappen::dialoge().meldungen().size());
        emit s.imgStern[3]->Click();
        QCOMPARE(Attrappen::dialoge().meldungen().size(), vorher + 1);
        s.chkBewertungSong->click();
        QCOMPARE(s.txtSuchen->text(), QString(" - 1."));
        QCOMPARE(s.chkSpaltenname[6]->checkState(), Qt::Checked);
        emit s.imgStern[0]->Click();
        QCOMPARE(s.txtSuchen->text(), QString(" - 0."));
        // A typed "3" is no rating pattern: refused, the window stays.
        s.txtSuchen->setText("3");
        s.ButtonOk->click();
        QCOMPARE(Attrappen::dialoge().meldungen().last().titel, QString("ungültiger Suchtext"));
        QVERIFY(!SongBewertungSuche);
    }

    // F2 filters the table; the label and the settings follow, and a restart keeps it.
    void filterUndNeustart()
    {
        starten();
        suchen([](Suchbox* s) { s->txtSuchen->setText("lp"); });
        QCOMPARE(spalte("Band"), (QStringList{"Abba", "Bach", "Cream"}));
        suchen([](Suchbox* s) {
            nurSpalte(s, 2);
            s->txtSuchen->setText("lp");
        });
        QCOMPARE(spalte("Band"), (QStringList{"Abba", "Cream"}));
        QCOMPARE(w->lblTabellenName->text(), QString("lp"));
        QCOMPARE(Lesen("Data1RecordSource"), QString("select * from Schallplatten where Medium like '*lp*' order by Band"));
        // A pasted apostrophe and the characters of SQL patterns are searched for as they are.
        suchen([](Suchbox* s) { s->txtSuchen->setText("O'Neil"); });
        QCOMPARE(spalte("Band"), QStringList{"Abba"});
        suchen([](Suchbox* s) { s->txtSuchen->setText("50% Rabatt_[*]; Ende"); });
        QCOMPARE(spalte("Band"), QStringList{"Cream"});
        suchen([](Suchbox* s) { s->txtSuchen->setText("%"); });
        QCOMPARE(spalte("Band"), QStringList{"Cream"});
        // "ärger" finds the Songs entry whose rich text escapes the letter.
        suchen([](Suchbox* s) {
            nurSpalte(s, 6);
            s->txtSuchen->setText("ärger");
        });
        QCOMPARE(spalte("Band"), QStringList{"Bach"});
        // Nothing found: an empty table, the label shows the text.
        suchen([](Suchbox* s) { s->txtSuchen->setText("Zappa"); });
        QCOMPARE(w->MSFlexGrid1->Rows(), 1);
        QCOMPARE(w->lblTabellenName->text(), QString("Zappa"));
        suchen([](Suchbox* s) {
            nurSpalte(s, 0);
            s->txtSuchen->setText("a");
        });
        // A find text left by the find dialog is no statement: the error box, the pointer back.
        SuchAbfrage = "Abba";
        ModalBedienen([](QDialog* d) { QVERIFY(Klicken(d, "ButtonAbbrechen")); });
        w->MenuSuchen->trigger();
        QCOMPARE(Attrappen::dialoge().meldungen().last().titel, QString("Ausgabebox_MenuSuchen_Click"));
        QCOMPARE(MauszeigerArt(), ZeigerStandard);
        Attrappen::dialoge().leeren();
        FensterStarten(w, {.katalog = katalog, .zuruecksetzen = false});
        QCOMPARE(spalte("Band"), (QStringList{"Abba", "Bach", "Cream"}));
        QCOMPARE(w->lblTabellenName->text(), QString("a"));
        QVERIFY(Attrappen::dialoge().meldungen().isEmpty());
    }

    // The replacement rewrites only the searched columns; Titel is never replaced; a cancel
    // right after runs it again over the table.
    void ersetzen()
    {
        starten();
        const QStringList band = KatalogSpalte(katalog, "Band"), info = KatalogSpalte(katalog, "Info");
        suchen([](Suchbox* s) {
            nurSpalte(s, 1);
            s->chkSpaltenname[2]->click();
            s->txtSuchen->setText("LP");
            s->chkErsetzen->click();
            s->txtErsetzen->setText("Vinyl");
        });
        QCOMPARE(Attrappen::dialoge().meldungsTexte(), QStringList{"2 Datensätze ersetzt!"});
        QCOMPARE(KatalogSpalte(katalog, "Medium"), (QStringList{"Vinyl", "CD", "Vinyl"}));
        QCOMPARE(KatalogSpalte(katalog, "LPTitel"), (QStringList{"Arrival", "LP Kantaten", "Wheels"}));
        QCOMPARE(KatalogSpalte(katalog, "Band"), band);
        QCOMPARE(KatalogSpalte(katalog, "Info"), info);
        QCOMPARE(w->lblTabellenName->text(), QString("alle"));
        QCOMPARE(w->MSFlexGrid1->Rows(), 4);

        KatalogAusfuehren(katalog, "update Schallplatten set Medium = 'LP' where Band = 'Bach'");
        w->MenuAktualisieren->trigger();
        Attrappen::dialoge().leeren();
        ModalBedienen([](QDialog* d) { QVERIFY(Klicken(d, "ButtonAbbrechen")); });
        w->MenuSuchen->trigger();
        QCOMPARE(Attrappen::dialoge().meldungsTexte(), QStringList{"1 Datensätze ersetzt!"});
        QCOMPARE(KatalogSpalte(katalog, "Medium"), (QStringList{"Vinyl", "Vinyl", "Vinyl"}));

        // A replacement with apostrophes stays text, not SQL.
        Attrappen::dialoge().leeren();
        suchen([](Suchbox* s) {
            nurSpalte(s, 5);
            s->txtSuchen->setText("Ende");
            s->chkErsetzen->click();
            s->txtErsetzen->setText("x'; drop table Schallplatten; --");
        });
        QCOMPARE(KatalogSpalte(katalog, "Info").last(), QString("50% Rabatt_[*]; x'; drop table Schallplatten; --"));
    }

    // Song ratings: the Tracks of " - 3." collect into a playlist of the chosen name.
    void songBewertung()
    {
        starten();
        Attrappen::dialoge().antwortenInput << "Dreier";
        suchen([](Suchbox* s) {
            s->chkBewertungSong->click();
            emit s->imgStern[3]->Click();
        });
        QCOMPARE(TextdateiLesen(ProgrammOrdner + "Playlist/Dreier.txt"),
                 (QStringList{musik + "Abba/Money - 3.mp3", musik + "Cream/Crossroads - 3.mp3"}));
        QCOMPARE(w->lvwPlaylist->topLevelItemCount(), 2);
        QVERIFY(!w->lvwPlaylist->isHidden());
        QVERIFY(!SongBewertungSuche);
        // No name: the list stays as "Suchliste.txt" with the pane hidden; the file the last
        // search left is replaced. " - 13." is no rating and counts as none.
        Attrappen::dialoge().antwortenInput << "";
        suchen([](Suchbox* s) {
            s->chkBewertungSong->click();
            emit s->imgStern[0]->Click();
        });
        QCOMPARE(TextdateiLesen(ProgrammOrdner + "Playlist/Suchliste.txt"),
                 (QStringList{musik + "Abba/Fernando.mp3", musik + "Cream/Badge - 13.mp3"}));
        QVERIFY(w->lvwPlaylist->isHidden());
    }

    // The search field walks the table row by row; Enter goes on; at the end it turns red,
    // sounds and begins again.
    void tabelleDurchsuchen()
    {
        starten();
        auto farbe = [&] { return w->txtSuchen->palette().color(QPalette::Base).name(); };
        w->txtSuchen->setText("LP");
        QTest::keyClick(w->txtSuchen, Qt::Key_Return);
        QCOMPARE(w->TextBand->text(), QString("Abba"));
        QCOMPARE(farbe(), QString("#c0ffc0"));
        QTest::keyClick(w->txtSuchen, Qt::Key_Return);
        QCOMPARE(w->TextBand->text(), QString("Bach"));
        QTest::keyClick(w->txtSuchen, Qt::Key_Return);
        QCOMPARE(w->TextBand->text(), QString("Cream"));
        QTest::keyClick(w->txtSuchen, Qt::Key_Return);
        QCOMPARE(farbe(), QString("#ffc0c0"));
        QCOMPARE(Attrappen::klang().gespielt.last(), ProgrammOrdner + "false.wav");
        QCOMPARE(w->SuchZeile, 1);
        QTest::keyClick(w->txtSuchen, Qt::Key_Return);
        QCOMPARE(w->TextBand->text(), QString("Abba"));
        // A Track's name selects it in the list.
        w->txtSuchen->setText("crossroads");
        w->txtSuchen->actions().first()->trigger();
        QCOMPARE(w->TextBand->text(), QString("Cream"));
        QCOMPARE(w->filTrack->selectedItems().size(), 1);
        QCOMPARE(w->filTrack->selectedItems().first()->text(), QString("Crossroads - 3.mp3"));
        QCOMPARE(farbe(), QString("#c0ffc0"));
        QVERIFY(w->txtSuchen->hasFocus() || !w->isVisible());
    }
};

RK_TEST_MAIN(TestSuche)
#include "tst_suche.moc"
