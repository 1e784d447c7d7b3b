// The catalogue table as web pages: every byte of a page against its template, the page
// count, the row colours across pages, the cells' rules, and the arranging window.
#include "support/Attrappen.h"
#include "support/Fenster.h"
#include "support/Katalog.h"
#include "support/Testumgebung.h"

#include "outputs/HtmlSeiten.h"
#include "outputs/Webseiten.h"
#include "outputs/frmWebTabelle.h"
#include "shell/Ausgabebox.h"
#include "shell/Einstellungen.h"
#include "shell/Globale.h"
#include "shell/Steuerelemente.h"

#include <QDir>
#include <QFile>
#include <QImage>
#include <QProcess>
#include <QStandardPaths>
#include <QUrl>
#include <QLabel>
#include <QLineEdit>
#include <QListWidget>
#include <QPushButton>

#include <memory>

namespace {

QByteArray lesen(const QString& pfad)
{
    QFile f(pfad);
    return f.open(QIODevice::ReadOnly) ? f.readAll() : QByteArray("fehlt");
}

QString html(int seite) { return ProgrammOrdner + "html/" + Webseiten::Dateiname(seite); }

// The page of the template, row by row; rows without their line end are marked "~". The
// rows are ASCII but for the euro sign, which Windows-1252 writes as 0x80.
QByteArray vorlage(const QStringList& zeilen)
{
    QByteArray s;
    for (const QString& z : zeilen)
        s += z.endsWith(u'~') ? z.chopped(1).toUtf8() : (z + "\r\n").toUtf8();
    return s.replace("\xE2\x82\xAC", "\x80") + "\r\n";
}

} // namespace

class TestWebseiten : public QObject {
    Q_OBJECT

    std::unique_ptr<Ausgabebox> w;

    void starten(const QList<Zeilenwerte>& zeilen, const QStringList& spalten, const QString& proSeite = "50")
    {
        QMap<QString, QString> e{{"WebTabelleZeilenanzahl", proSeite},
                                 {"WebTabelleUeberschrift", "Meine Platten"},
                                 {"WebTabelleURL", "www.example.de"}};
        for (int n = 0; n < frmWebTabelle::Spaltenzahl; ++n)
            e.insert(QStringLiteral("WebTabelleCaption%1").arg(n),
                     n < spalten.size() ? spalten[n] + "1" : QStringLiteral("Frei%1").arg(n) + "0");
        FensterStarten(w, {.zeilen = zeilen, .einstellungen = e});
        Attrappen::leeren();
    }
    void erstellen(const QString& antwort = "Nein")
    {
        Attrappen::dialoge().antwortenMsg << antwort;
        w->mnuHtmlSeitenErstellen->trigger();
    }

private slots:
    void cleanup() { w.reset(); }

    void seitenzahlUndZellen()
    {
        QCOMPARE(Webseiten::Seitenzahl(0, 50), 1);
        QCOMPARE(Webseiten::Seitenzahl(50, 50), 1);
        QCOMPARE(Webseiten::Seitenzahl(100, 50), 3);
        QCOMPARE(Webseiten::Seitenzahl(101, 50), 3);
        QCOMPARE(Webseiten::Seitenzahl(0, 0), 1);
        QVERIFY(!Webseiten::Seitenzahl(1, 0));

        QString band;
        QCOMPARE(Webseiten::Zelle(" ", "Preis", band), QString("<td>&nbsp;</td>\r\n"));
        QCOMPARE(Webseiten::Zelle("www.x.de", "Band", band), QString("<td><a href=www.x.de target=\"_blank\">www.x.de</a></td>\r\n"));
        QVERIFY(band.isEmpty()); // a link feeds no band key
        QCOMPARE(Webseiten::Zelle("https://x.de", "Info", band), QString("<td>https://x.de</td>\r\n"));
        QCOMPARE(Webseiten::Zelle("WWW.x.de", "Info", band), QString("<td>WWW.x.de</td>\r\n"));
        QCOMPARE(Webseiten::Zelle("<b>&", "Info", band), QString("<td><b>&</td>\r\n"));
        QCOMPARE(Webseiten::Zelle("Die Ärzte", "Band", band), QString("<td>Die &Auml;rzte</td>\r\n"));
        QCOMPARE(band, QString("Die_&Auml;rzte"));
        QVERIFY(Webseiten::Zelle("Das Ist", "LPTitel", band).contains("field-keywords=Die_&Auml;rzte_Das_Ist&x=0&y=0 target"));
        QVERIFY(Webseiten::Zelle("AB 1", "BestellNr", band).contains("field-keywords=AB_1&x=0"));
        QCOMPARE(Webseiten::Umlaute("äöüÄÖÜß"), QString("&auml;&ouml;&uuml;&Auml;&Ouml;&Uuml;&szlig;"));

        QCOMPARE(Webseiten::Kodieren(QString::fromUtf8("€é→\xF0\x9F\x98\x80")), QByteArray("\x80\xe9&#8594;&#128512;"));
    }

    // Three Carriers, three columns: index.html as the template gives it, byte for byte.
    void seiteWieVorlage()
    {
        starten({{{"Band", "Abba"}, {"LPTitel", "Gold"}, {"Preis", "9,99 €"}},
                 {{"Band", "Bach"}, {"LPTitel", "Messe"}, {"Preis", " "}},
                 {{"Band", "Czerny"}, {"LPTitel", "Übungen"}, {"Preis", "5"}}},
                {"Band", "LPTitel", "Preis"});
        erstellen();
        QCOMPARE(Attrappen::dialoge().meldungsTexte(),
                 QStringList{"1 HTML-Seiten erstellt.\r\n\r\nIm Browser anzeigen?\r\n"});
        QCOMPARE(Attrappen::shell().geoeffnet.size(), 0); // "Nein" opens nothing
        const QString link = "<td><a href=https://www.amazon.de/s/ref=nb_ss_w?__mk_de_DE=%C5M%C5Z%D5%D1"
                             "&url=search-alias%3Daps&field-keywords=";
        const QByteArray soll = vorlage({
            "<!DOCTYPE HTML PUBLIC \"-//W3C//DTD 4.01 HTML TRANSITIONAL//EN\">",
            "<html>",
            "<head>",
            "<title>Meine Platten</title>",
            "<meta name=\"author\" content=\"Meine Platten\">",
            "<meta name=\"publisher\" content=\"Meine Platten\">",
            "<meta name=\"copyright\" content=\"Meine Platten\">",
            "<meta name=\"description\" content=\"Meine Platten\">",
            "<meta name=\"keywords\" content=\"Rillenkammer Schallplatten Audio-CD Musik Lieder Songs DJ Cassetten "
            "Songtext Bibliothek Archiv\">",
            "<meta name=\"page-topic\" content=\"Musik\">",
            "<meta name=\"page-type\" content=\"Musik\">",
            "<meta name=\"audience\" content=\"Alle\">",
            "<meta https-equiv=\"content-language\" content=\"de\">",
            "<meta name=\"robots\" content=\"index, follow\">",
            "<meta name=\"REVISIT-AFTER\" content=\"10 days\">",
            "<style typ=\"text/css\">",
            "table { font-family: Helvetica, Arial; font-size:9pt; font-weight:none; }",
            "h1:first-letter { font:bold 30pt times new roman }",
            "td:first-letter { font:bold 9pt Helvetica, Arial }",
            "th:first-letter { font:bold 9pt Helvetica, Arial }",
            "</style>",
            "</head>",
            "<body style=\"font-family: Helvetica, Arial; font-size:10pt; font-weight:none;\">",
            "<h1 align=\"center\" style=\"color:#adc9de\">Meine Platten</h1>",
            "<form action=\"https://www.google.de/search\" method=\"Get\">",
            "<p align=\"center\">",
            "<input type=\"hidden\" name=\"h1\" value=\"de\">",
            "<!-- Tauschen Sie nachfolgend \"www.meine-plattensammlung.example.org\" durch Ihre Internetadresse aus "
            "z.B. \"www.meine-seite.de\" -->",
            "<input type=\"hidden\" name=\"as_sitesearch\" value=\"www.example.de\">",
            "<input type=\"text\" size=\"40\" maxlength=\"255\" name=\"q\">",
            "<input type=\"submit\" name=\"btnG\" value=\"Suchen\">",
            "</form>",
            "<p align=\"center\">",
            "| <b><a href=\"index.html\">1</a> </b>",
            "<br>   Seite <b>1</b></p>~",
            "<table border=\"0\" align=\"center\" cellspacing=\"2\" cellpadding=\"5\" width=\"98%\" bgcolor=\"#adc9de\">",
            "<tr valign=\"top\">",
            "<th>Band</th>",
            "<th>LPTitel</th>",
            "<th>Preis</th>",
            "</tr>",
            "<tr valign=\"top\" bgcolor=#f1f4fa>",
            "<td>Abba</td>",
            link + "Abba_Gold&x=0&y=0 target=\"_blank\">Gold</a></td>",
            "<td>9,99 €</td>",
            "</tr>",
            "<tr valign=\"top\" bgcolor=#e3eaf4>",
            "<td>Bach</td>",
            link + "Bach_Messe&x=0&y=0 target=\"_blank\">Messe</a></td>",
            "<td>&nbsp;</td>",
            "</tr>",
            "<tr valign=\"top\" bgcolor=#f1f4fa>",
            "<td>Czerny</td>",
            link + "Czerny_&Uuml;bungen&x=0&y=0 target=\"_blank\">&Uuml;bungen</a></td>",
            "<td>5</td>",
            "</tr>",
            "</table>",
            "<p align=\"center\">",
            "   Seite <b>1</b><br>~",
            "| <b><a href=\"index.html\">1</a> </b>",
            "|   Seite 1 </p>~",
            "<font size=\"1\"><div align=\"right\">erstellt mit der Software <b>'Rillenkammer'</b>",
            "von <a href=\"https://www.rillenkammer.example.org/rillenkammer.html\" target=\"_blank\"><b>Lumivox</b></a>",
            "</div>",
            "<br>",
            "</body>",
            "</html>",
        });
        QCOMPARE(lesen(html(1)), soll);
        QVERIFY(w->Bez[13]->text().isEmpty());
        QCOMPARE(w->filHtml->ListCount(), 1);
        // Again with fewer columns: the old page goes to the trash first; "Ja" opens it.
        erstellen("Ja");
        QCOMPARE(Attrappen::papierkorb().verschoben, QStringList{html(1)});
        QCOMPARE(Attrappen::shell().geoeffnet, QStringList{html(1)});
    }

    void seitenUndFarben()
    {
        QList<Zeilenwerte> zeilen;
        for (int i = 0; i < 101; ++i)
            zeilen << Zeilenwerte{{"Band", QStringLiteral("Band %1").arg(i, 3, 10, QChar(u'0'))}};
        // A name that stands in no column shows column 0 under its own head.
        starten(zeilen, {"Band", "Gibtsnicht"});
        erstellen();
        QVERIFY(QFile::exists(html(3)) && !QFile::exists(html(4)));
        const QByteArray zwei = lesen(html(2));
        QVERIFY(zwei.contains("<th>Gibtsnicht</th>"));
        QVERIFY(zwei.contains("<tr valign=\"top\" bgcolor=#f1f4fa>\r\n<td>Band 050</td>\r\n<td>Band 050</td>"));
        QCOMPARE(lesen(html(3)).count("<tr valign=\"top\" bgcolor"), 1);
        QVERIFY(lesen(html(3)).contains("rillenkammer3.html\">3</a>"));
        // 51 a page: page 2 begins with the other colour.
        Speichern("WebTabelleZeilenanzahl", "51");
        erstellen();
        QVERIFY(lesen(html(2)).contains("<tr valign=\"top\" bgcolor=#e3eaf4>\r\n<td>Band 051</td>"));
        QVERIFY(!QFile::exists(html(3)));
        // 0 a page is a division by zero, reported; the pages written stay.
        Speichern("WebTabelleZeilenanzahl", "0");
        Attrappen::leeren();
        w->mnuHtmlSeitenErstellen->trigger();
        QCOMPARE(Attrappen::dialoge().meldungen().value(0).titel, QString("Ausgabebox_mnuHtmlSeitenErstellen_Click"));
        // A page that cannot be written (a folder stands under its name) is named.
        Speichern("WebTabelleZeilenanzahl", "50");
        QFile::remove(html(2));
        QDir().mkpath(html(2));
        Attrappen::leeren();
        w->mnuHtmlSeitenErstellen->trigger();
        QVERIFY(Attrappen::dialoge().meldungsTexte().value(0).contains("rillenkammer2.html kann nicht geschrieben werden"));
        QVERIFY(QFile::exists(html(1)));
    }

    // The pages in a real browser: its DOM holds the table's rows and the navigation, and
    // it draws the page.
    void imBrowser()
    {
        const QString browser = QStandardPaths::findExecutable(QStringLiteral("chromium"));
        if (browser.isEmpty())
            QSKIP("chromium ist nicht installiert");
        QList<Zeilenwerte> zeilen;
        for (int i = 0; i < 60; ++i)
            zeilen << Zeilenwerte{{"Band", QStringLiteral("Die Ärzte %1").arg(i, 2, 10, QChar(u'0'))}, {"Preis", "9 €"}};
        starten(zeilen, {"Band", "LPTitel", "Preis"});
        erstellen();
        const QString profil = Testordner("chromium");
        auto chromium = [&](const QStringList& auftrag) {
            QProcess p;
            p.start(browser, QStringList{"--headless", "--disable-gpu", "--no-sandbox", "--user-data-dir=" + profil}
                                 + auftrag + QStringList{QUrl::fromLocalFile(html(1)).toString()});
            p.waitForFinished(60000);
            return QString::fromUtf8(p.readAllStandardOutput());
        };
        const QString dom = chromium({"--dump-dom"});
        QVERIFY2(dom.contains("<td>Die Ärzte 00</td>") && dom.contains("<td>Die Ärzte 49</td>"), qPrintable(dom.left(500)));
        QVERIFY(!dom.contains("Die Ärzte 50"));
        QVERIFY(dom.contains("<td>9 €</td>"));
        QVERIFY(dom.contains("href=\"rillenkammer2.html\""));
        const QString bild = profil + "seite.png";
        chromium({"--screenshot=" + bild, "--window-size=1000,700"});
        QCOMPARE(QImage(bild).size(), QSize(1000, 700));
    }

    // The arranging window: OK keeps the order, shown ones first; Exit keeps the keys.
    void tabelleAnordnen()
    {
        starten({{{"Band", "Abba"}}}, {"Band", "LPTitel", "Preis"});
        {
            frmWebTabelle f;
            QCOMPARE(f.Spalten(), (QStringList{"Band", "LPTitel", "Preis"}));
            QCOMPARE(f.lstSpalten->count(), 12);
            f.lstTabelle->setCurrentRow(2);
            f.cmdHochTief[0]->click();
            f.lstTabelle->setCurrentRow(0);
            f.cmdEntfernen->click();
            f.txtURL->setText("  www.neu.de ");
            f.cmdOK_Click();
        }
        QCOMPARE(Lesen("WebTabelleCaption0"), QString("Preis1"));
        QCOMPARE(Lesen("WebTabelleCaption1"), QString("LPTitel1"));
        QCOMPARE(Lesen("WebTabelleCaption14"), QString("Band0"));
        QCOMPARE(Lesen("WebTabelleURL"), QString("www.neu.de"));
        {
            frmWebTabelle f;
            while (f.lstTabelle->count() > 0) {
                f.lstTabelle->setCurrentRow(0);
                f.cmdEntfernen->click();
            }
            f.cmdExit->click();
        }
        QCOMPARE(Lesen("WebTabelleCaption0"), QString("Preis1"));
        // All columns left out: a table without heads and cells.
        for (int n = 0; n < frmWebTabelle::Spaltenzahl; ++n)
            Speichern(QStringLiteral("WebTabelleCaption%1").arg(n), QStringLiteral("X%1").arg(n) + "0");
        erstellen();
        const QByteArray seite = lesen(html(1));
        QVERIFY(seite.contains("<tr valign=\"top\">\r\n</tr>\r\n<tr valign=\"top\" bgcolor=#f1f4fa>\r\n</tr>"));
        QVERIFY(!seite.contains("<td>"));
    }
};

RK_TEST_MAIN(TestWebseiten)
#include "tst_webseiten.moc"
