// Attachments of a Carrier: the list and its count, adding into the eBook folder,
// deleting into the trash (once into the real one), and opening with the shell.
#include "support/Fenster.h"
#include "support/Katalog.h"
#include "support/Testumgebung.h"

#include "catalogue/Datensteuerung.h"
#include "media/Anhaenge.h"
#include "shell/Ausgabebox.h"
#include "shell/Globale.h"
#include "shell/Steuerelemente.h"

#include <QAction>
#include <QComboBox>
#include <QDir>
#include <QFileInfo>
#include <QLabel>

#include <memory>

class TestAnhaenge : public QObject {
    Q_OBJECT

    std::unique_ptr<Ausgabebox> w;
    QString katalog;
    QString d; // files of the test, with "/"

    DialogAttrappe& dlg() { return Attrappen::dialoge(); }
    QString ebook() const { return ProgrammOrdner + QStringLiteral("eBook/"); }
    QString bez() const { return w->Bez[11]->text(); }

    void starten(const QString& eintraege)
    {
        static int lauf = 0;
        d = Testordner(QStringLiteral("anh%1").arg(++lauf));
        DateiSchreiben(d + "Heft.pdf", "%PDF-1.4 Heft");
        DateiSchreiben(d + "Film mit Blanks.mkv", "Film");
        QString e = eintraege;
        e.replace(QStringLiteral("$"), d);
        katalog = FensterStarten(w, {.zeilen = {{{"Band", "Abba"}, {"LPTitel", "Arrival"}, {"eBook", e}},
                                                {{"Band", "Bach"}, {"LPTitel", "Messe"}}},
                                     .einstellungen = {{"BildLadePfad", "False"}}});
        Attrappen::leeren();
    }

private slots:
    void listeZaehltWasDaIst()
    {
        // A vanished file and an entry without its closing mark do not count.
        const QString feld = QStringLiteral("$Heft.pdf°$fort.pdf°$Film mit Blanks.mkv°$ohne Ende.pdf");
        starten(feld);
        QCOMPARE(bez(), QStringLiteral("eBook u. Multimedia (2)"));
        QCOMPARE(w->cboEbook->count(), 2);
        // The last one found is the one shown.
        QCOMPARE(w->cboEbook->currentText(), d + "Film mit Blanks.mkv");
        QFile::remove(d + "Heft.pdf");
        w->anhaenge().eBookListe();
        QCOMPARE(bez(), QStringLiteral("eBook u. Multimedia (1)"));
        QCOMPARE(w->txtEbook->text(), QString(feld).replace("$", d));

        // Beside the catalogue only the file name counts.
        DateiSchreiben(DatenbankOrdner + "eBook/Heft.pdf", "anderswo");
        w->mnuBildDatenbankpfad->setChecked(true);
        w->anhaenge().eBookListe();
        QCOMPARE(w->cboEbook->currentText(), DatenbankOrdner + "eBook/Heft.pdf");
        QCOMPARE(bez(), QStringLiteral("eBook u. Multimedia (1)"));
        w->mnuBildDatenbankpfad->setChecked(false);

        // The other record has one blank: nothing, (0).
        w->Data1->naechsterDatensatz();
        QCOMPARE(w->cboEbook->count(), 0);
        QCOMPARE(bez(), QStringLiteral("eBook u. Multimedia (0)"));
    }

    void hinzufuegenInDenEbookOrdner()
    {
        starten(QStringLiteral(" "));
        dlg().antwortenDatei << d + "Heft.pdf" << d + "Heft.pdf";
        w->imgEbookOpen->click();
        QCOMPARE(dlg().aufrufe.first().datei.startordner, ebook());
        const QString ziel = ebook() + "Heft.pdf";
        QCOMPARE(DateiLesen(ziel), QByteArray("%PDF-1.4 Heft"));
        QCOMPARE(w->txtEbook->text(), ziel + u'°');
        QCOMPARE(bez(), QStringLiteral("eBook u. Multimedia (1)"));
        // The same file again: a second entry, the copy kept as it is.
        DateiSchreiben(d + "Heft.pdf", "neuer Inhalt");
        w->imgEbookOpen->click();
        QCOMPARE(dlg().aufrufe.last().datei.startordner, ziel);
        QCOMPARE(DateiLesen(ziel), QByteArray("%PDF-1.4 Heft"));
        QCOMPARE(w->txtEbook->text(), ziel + u'°' + ziel + u'°');
        QCOMPARE(bez(), QStringLiteral("eBook u. Multimedia (2)"));
        w->MenuSpeichern->trigger();
        QCOMPARE(KatalogSpalte(katalog, "eBook").first(), ziel + u'°' + ziel + u'°');
    }

    void loeschenInDenPapierkorb()
    {
        starten(QStringLiteral("$Heft.pdf°$Film mit Blanks.mkv°"));
        dlg().antwortenMsg << "Nein";
        w->imgEbookKill->click();
        QVERIFY(QFileInfo::exists(d + "Film mit Blanks.mkv"));
        QCOMPARE(dlg().meldungen().first().text,
                 d + "Film mit Blanks.mkv\r\n\r\neBook bzw. Multimediafile löschen?");

        // "Ja": trashed, the sound, the entry gone and saved.
        dlg().antwortenMsg << "Ja";
        w->imgEbookKill->click();
        QCOMPARE(Attrappen::papierkorb().verschoben, QStringList{d + "Film mit Blanks.mkv"});
        QCOMPARE(Attrappen::klang().gespielt, QStringList{ProgrammOrdner + "Matsch.wav"});
        QCOMPARE(KatalogSpalte(katalog, "eBook").first(), d + "Heft.pdf°");
        QCOMPARE(bez(), QStringLiteral("eBook u. Multimedia (1)"));

        // The last one, into the real trash: one blank and (0).
        D().setzePapierkorb(nullptr);
        w->imgEbookKill->click();
        Attrappen::installieren();
        QVERIFY(!QFileInfo::exists(d + "Heft.pdf"));
        const QString trash = QString::fromLocal8Bit(qgetenv("XDG_DATA_HOME")) + "/Trash/files/";
        QVERIFY(!QDir(trash).entryList({"Heft*.pdf"}, QDir::Files).isEmpty());
        QCOMPARE(w->txtEbook->text(), QStringLiteral(" "));
        QCOMPARE(KatalogSpalte(katalog, "eBook").first(), QStringLiteral(" "));
        QCOMPARE(bez(), QStringLiteral("eBook u. Multimedia (0)"));
        QCOMPARE(w->TextBand->text(), QStringLiteral("Abba"));
        // Nothing shown: nothing asked.
        w->imgEbookKill->click();
        QVERIFY(dlg().aufrufe.isEmpty());
    }

    void oeffnenMitDemZugeordnetenProgramm()
    {
        starten(QStringLiteral("$Film mit Blanks.mkv°"));
        w->imgEbookPlay->click();
        QCOMPARE(Attrappen::shell().geoeffnet, QStringList{d + "Film mit Blanks.mkv"});
        // Vanished since the list was made: the error route, nothing opened.
        QFile::remove(d + "Film mit Blanks.mkv");
        w->imgEbookPlay->click();
        QCOMPARE(Attrappen::shell().geoeffnet.size(), 1);
        QCOMPARE(dlg().meldungen().first().text, QStringLiteral("53 Datei nicht gefunden"));
        QCOMPARE(dlg().meldungen().first().titel, QStringLiteral("Ausgabebox_imgEbookPlay_Click"));
        // No entries: nothing.
        w->Data1->naechsterDatensatz();
        w->imgEbookPlay->click();
        QCOMPARE(Attrappen::shell().geoeffnet.size(), 1);
    }
};

RK_TEST_MAIN(TestAnhaenge)
#include "tst_anhaenge.moc"
