// Covers in and out: the GIF writer, the save target, reading bad pictures, loading a
// file into the cover folder, pasting from the clipboard inside and outside the record,
// and scanning, once for real from the scanner system's test device.
#include "support/Fenster.h"
#include "support/Katalog.h"
#include "support/Testumgebung.h"

#include "catalogue/Datensteuerung.h"
#include "catalogue/Recordset.h"
#include "media/Bildimport.h"
#include "media/GifSchreiben.h"
#include "platform/Scanner.h"
#include "shell/Ausgabebox.h"
#include "shell/Globale.h"
#include "shell/Steuerelemente.h"

#include <QAction>
#include <QBuffer>
#include <QCheckBox>
#include <QClipboard>
#include <QDir>
#include <QFileInfo>
#include <QImageReader>
#include <QMimeData>
#include <QStandardPaths>

#include <memory>

namespace {

QImage Muster(int b, int h, bool bunt)
{
    QImage bild(b, h, QImage::Format_RGB32);
    for (int y = 0; y < h; ++y)
        for (int x = 0; x < b; ++x)
            bild.setPixel(x, y, bunt ? qRgb(x * 255 / qMax(1, b - 1), y * 255 / qMax(1, h - 1), (x * y) % 256)
                                     : ((x + y) % 3 == 0 ? qRgb(255, 0, 0) : (x % 2 ? qRgb(0, 0, 255) : qRgb(250, 250, 250))));
    return bild;
}

QByteArray Png(const QImage& bild)
{
    QByteArray daten;
    QBuffer puffer(&daten);
    puffer.open(QIODevice::WriteOnly);
    bild.save(&puffer, "PNG");
    return daten;
}

// A PNG of 20,000 × 20,000 grey pixels, of which only the first two rows are there.
QByteArray RiesenPng()
{
    return QByteArray::fromHex(
        "89504e470d0a1a0a0000000d4948445200004e2000004e200800000000c61b19e50000003d4944415478daedc1"
        "3101000000c2a0f54fed6909a00000000000000000000000000000000000000000000000000000000000000000"
        "000000000000801b9c420001361e86860000000049454e44ae426082");
}

} // namespace

class TestBildimport : public QObject {
    Q_OBJECT

    std::unique_ptr<Ausgabebox> w;
    QString katalog;

    DialogAttrappe& dlg() { return Attrappen::dialoge(); }
    QString cover() const { return DatenbankOrdner + QStringLiteral("Bilder/"); }

    void starten()
    {
        katalog = FensterStarten(w, {.zeilen = {{{"Band", "Abba"}, {"LPTitel", "Arrival"}, {"Stil", "Pop"}},
                                                {{"Band", "Bach"}, {"LPTitel", "Messe"}}}});
        QDir().mkpath(cover());
        Attrappen::leeren();
    }

    void ablage(const QImage& bild, const QString& text = {})
    {
        auto* daten = new QMimeData;
        if (!bild.isNull())
            daten->setImageData(bild);
        if (!text.isEmpty())
            daten->setText(text);
        QGuiApplication::clipboard()->setMimeData(daten);
    }

private slots:
    void gifSchreiben_data()
    {
        QTest::addColumn<QImage>("bild");
        QTest::addColumn<bool>("gelingt");
        QTest::addColumn<bool>("genau");
        QTest::newRow("ein Punkt") << Muster(1, 1, false) << true << true;
        QTest::newRow("drei Farben") << Muster(7, 5, false) << true << true;
        QTest::newRow("Verlauf") << Muster(300, 200, true) << true << false;
        QImage durchsichtig(10, 4, QImage::Format_ARGB32);
        durchsichtig.fill(Qt::transparent);
        QTest::newRow("durchsichtig") << durchsichtig << true << false;
        QTest::newRow("zu breit") << QImage(70000, 1, QImage::Format_Mono) << false << false;
        QTest::newRow("kein Bild") << QImage() << false << false;
    }

    void gifSchreiben()
    {
        QFETCH(QImage, bild);
        QFETCH(bool, gelingt);
        QFETCH(bool, genau);
        const QString pfad = Testordner(QStringLiteral("gif")) + QTest::currentDataTag() + QStringLiteral(".gif");
        QFile::remove(pfad);
        const QString fehler = GifSchreiben(bild, pfad);
        QCOMPARE(fehler.isEmpty(), gelingt);
        QCOMPARE(QFileInfo::exists(pfad), gelingt);
        if (!gelingt)
            return;
        QImageReader leser(pfad);
        QCOMPARE(leser.format(), QByteArray("gif"));
        const QImage zurueck = leser.read().convertToFormat(QImage::Format_RGB32);
        QCOMPARE(zurueck.size(), bild.size());
        if (genau)
            QCOMPARE(zurueck, bild.convertToFormat(QImage::Format_RGB32));
        if (bild.hasAlphaChannel())
            QCOMPARE(zurueck.pixel(0, 0), qRgb(255, 255, 255));
        // A folder that is not there: a reason, no crash.
        QVERIFY(!GifSchreiben(bild, Testordner("gif") + "fehlt/x.gif").isEmpty());
    }

    void zielNachFilter()
    {
        QCOMPARE(BildZiel("/b/Abba - Arrival.bmp", 2), QStringLiteral("/b/Abba - Arrival.jpg"));
        QCOMPARE(BildZiel("/b/Abba - Arrival.jpg", 4), QStringLiteral("/b/Abba - Arrival.png"));
        // No extension of its own, and a point only in a folder's name.
        QCOMPARE(BildZiel("/b/Abba", 2), QStringLiteral("/b/Abba.jpg"));
        QCOMPARE(BildZiel("/b.v2/Abba", 3), QStringLiteral("/b.v2/Abba.gif"));
    }

    void ladenInDenCoverordner()
    {
        starten();
        // Proposed name and folder of the dialog.
        const QString draussen = Testordner("draussen") + "Abba - Arrival.png";
        DateiSchreiben(draussen, Png(Muster(40, 30, false)));
        dlg().antwortenDatei << draussen;
        w->mnuBildLaden->trigger();
        QCOMPARE(dlg().aufrufe.first().datei.dateiname, QStringLiteral("Abba - Arrival"));
        const QString ziel = cover() + "Abba - Arrival.png";
        QVERIFY(QFileInfo::exists(ziel));
        QCOMPARE(w->txtBildpfad->text(), ziel + u'°');
        QCOMPARE(w->imgBildpfad->Bild().size(), QSize(40, 30));
        // Saved with the record, the other fields as they were.
        QCOMPARE(KatalogSpalte(katalog, "BildPfad").first(), ziel + u'°');
        QCOMPARE(KatalogSpalte(katalog, "Stil").first(), QStringLiteral("Pop"));

        // A file already in the cover folder is not copied again, and an existing target
        // is kept: its content stays, the entry comes a second time.
        DateiSchreiben(draussen, Png(Muster(8, 8, false)));
        const QDateTime vorher = QFileInfo(ziel).lastModified();
        dlg().antwortenDatei << ziel << draussen;
        w->mnuBildLaden->trigger();
        w->mnuBildLaden->trigger();
        QCOMPARE(QFileInfo(ziel).lastModified(), vorher);
        QCOMPARE(QImage(ziel).size(), QSize(40, 30));
        QCOMPARE(QDir(cover()).entryList(QDir::Files).size(), 1);
        QCOMPARE(KatalogSpalte(katalog, "BildPfad").first(), ziel + u'°' + ziel + u'°' + ziel + u'°');
        QVERIFY(dlg().meldungen().isEmpty());
    }

    // A bad file gives its reason; nothing reaches the folder or the record.
    void ladenSchlechterDateien()
    {
        starten();
        const QString d = Testordner(QStringLiteral("schlecht"));
        DateiSchreiben(d + "leer.jpg", {});
        DateiSchreiben(d + "kaputt.png", "\x89PNG\r\n\x1a\n das ist kein Bild");
        const QByteArray png = Png(Muster(200, 200, true));
        DateiSchreiben(d + "halb.png", png.left(png.size() / 2));
        DateiSchreiben(d + "riesig.png", RiesenPng());
        w->TextInfo->setText(QStringLiteral("getippt"));
        const QList<QPair<QString, QString>> faelle = {
            {"leer.jpg", "Die Datei ist leer."},
            {"kaputt.png", "Die Datei ist kein lesbares Bild oder beschädigt."},
            {"halb.png", "Die Datei ist kein lesbares Bild oder beschädigt."},
            {"riesig.png", "Das Bild ist mit 20000 × 20000 Bildpunkten zu groß."},
            {"fort.png", "Cover nicht gefunden!"}};
        for (const auto& [name, grund] : faelle) {
            dlg().leeren();
            dlg().antwortenDatei << d + name;
            w->mnuBildLaden->trigger();
            QCOMPARE(dlg().meldungsTexte(), QStringList{d + name + "\r\n\r\n" + grund});
        }
        QVERIFY(QDir(cover()).entryList(QDir::Files).isEmpty());
        QCOMPARE(w->txtBildpfad->text(), QStringLiteral(" "));
        QCOMPARE(w->TextInfo->text(), QStringLiteral("getippt"));
        // A file that vanishes while it is read is the same as one that was never there.
        QString fehler;
        QVERIFY(BildLesen(d + "fort.png", fehler).isNull());
        QCOMPARE(fehler, QStringLiteral("Die Datei ist nicht mehr vorhanden."));
    }

    void externEinfuegenUndSpeichern()
    {
        starten();
        // Nothing to paste: the message, no dialog.
        ablage({}, QStringLiteral("nur Text"));
        w->mnuCoverExAblegen->trigger();
        QCOMPARE(dlg().meldungsTexte(), QStringList{"Kein gültiges Bildformat in der Zwischenablage!"});
        QVERIFY(w->chkBildpfad->isChecked());

        // Text and picture together: the picture counts. Filter 2 with a ".bmp" name gives JPEG.
        dlg().leeren();
        ablage(Muster(64, 48, true), QStringLiteral("Abba\tArrival"));
        dlg().antwortenDatei << cover() + "Abba - Arrival.bmp";
        dlg().antwortenFilter << 2;
        w->mnuCoverExAblegen->trigger();
        const QString jpg = cover() + "Abba - Arrival.jpg";
        QCOMPARE(QImageReader(jpg).format(), QByteArray("jpeg"));
        QVERIFY(!QFileInfo::exists(cover() + "Abba - Arrival.bmp"));
        QCOMPARE(KatalogSpalte(katalog, "BildPfad").first(), jpg + u'°');

        // GIF by the third filter; an existing file is overwritten only on "Ja".
        dlg().antwortenDatei << cover() + "Abba - Arrival.gif";
        dlg().antwortenFilter << 3;
        w->mnuCoverExAblegen->trigger();
        QCOMPARE(QImage(cover() + "Abba - Arrival.gif").size(), QSize(64, 48));
        ablage(Muster(10, 10, false));
        dlg().leeren();
        dlg().antwortenDatei << cover() + "Abba - Arrival.gif";
        dlg().antwortenFilter << 3;
        dlg().antwortenMsg << "Nein";
        w->mnuCoverExAblegen->trigger();
        QCOMPARE(dlg().meldungen().first().titel, QStringLiteral("Sicherheitsabfrage"));
        QCOMPARE(QImage(cover() + "Abba - Arrival.gif").size(), QSize(64, 48));
        QCOMPARE(KatalogSpalte(katalog, "BildPfad").first(),
                 jpg + u'°' + cover() + "Abba - Arrival.gif" + u'°');
        // A name over 99 characters is cut before the dialog.
        dlg().leeren();
        w->TextLPTitel->setText(QString(120, u'x'));
        w->mnuCoverExAblegen->trigger();
        QCOMPARE(dlg().aufrufe.first().datei.dateiname.size(), 99);
    }

    void internEinfuegenUndKopieren()
    {
        starten();
        ablage(Muster(20, 10, false));
        dlg().antwortenMsg << "Nein";
        w->MenuBildEinfuegen->trigger();
        QVERIFY(w->Bild1->Bild().isNull());
        dlg().antwortenMsg << "Ja";
        w->MenuBildEinfuegen->trigger();
        QCOMPARE(dlg().meldungen().first().titel, QStringLiteral("Datenbank"));
        QCOMPARE(w->Bild1->Bild().size(), QSize(20, 10));
        QVERIFY(!w->chkBildpfad->isChecked());
        w->MenuSpeichern->trigger();
        const QStringList laengen = KatalogSpalte(katalog, "coalesce(length(Bilder), 0)");
        QVERIFY(laengen.first().toInt() > 0);
        QCOMPARE(laengen.last(), QStringLiteral("0"));

        // The shown pane's picture goes to the clipboard.
        QGuiApplication::clipboard()->clear();
        w->MenuBildkopieren->trigger();
        QCOMPARE(QGuiApplication::clipboard()->image().size(), QSize(20, 10));
        // Nothing in the clipboard: the message, the picture stays.
        QGuiApplication::clipboard()->clear();
        dlg().leeren();
        dlg().antwortenMsg << "Ja";
        w->MenuBildEinfuegen->trigger();
        QCOMPARE(dlg().meldungsTexte().last(), QStringLiteral("Kein gültiges Bildformat in der Zwischenablage"));
        QCOMPARE(w->Bild1->Bild().size(), QSize(20, 10));
    }

    void scannenMitAttrappe()
    {
        starten();
        // No scanner: the reason, nothing else asked.
        w->mnuBildScannen->trigger();
        QCOMPARE(dlg().meldungsTexte(), QStringList{"Es wurde kein Scanner gefunden."});
        QCOMPARE(dlg().aufrufe.size(), 1);

        ScannerAttrappe& s = Attrappen::scanner();
        s.liste = {{"a:0", "Flachbett A"}, {"b:1", "Flachbett B"}};
        s.bild = Muster(30, 40, false);
        // The second one chosen, the picture stored internally.
        dlg().leeren();
        dlg().antwortenAuswahl << 1;
        dlg().antwortenMsg << "Nein";
        w->mnuBildScannen->trigger();
        QCOMPARE(dlg().aufrufe.first().eintraege, QStringList({"Flachbett A", "Flachbett B"}));
        QCOMPARE(s.gescannt, QStringList{"b:1"});
        QCOMPARE(dlg().meldungen().first().titel, QStringLiteral("Speicherort wählen"));
        QCOMPARE(w->Bild1->Bild().size(), QSize(30, 40));
        QVERIFY(KatalogSpalte(katalog, "coalesce(length(Bilder), 0)").first().toInt() > 0);

        // The choice cancelled: no scan, nothing said.
        dlg().leeren();
        w->mnuBildScannen->trigger();
        QCOMPARE(s.gescannt.size(), 1);
        QCOMPARE(dlg().meldungen().size(), 0);

        // A scan that fails: the error route's title.
        s.bild = QImage();
        s.fehlerText = QStringLiteral("Der Scanner meldet einen Fehler: Papierstau");
        dlg().leeren();
        dlg().antwortenAuswahl << 0;
        w->mnuBildScannen->trigger();
        QCOMPARE(dlg().meldungen().first().titel, QStringLiteral("Ausgabebox_mnuBildScannen_Click"));
        QCOMPARE(dlg().meldungen().first().text, s.fehlerText);
    }

    // The scanner system's own test device, enabled in a private configuration folder.
    void scannenEcht()
    {
        if (QStandardPaths::findExecutable(QStringLiteral("scanimage")).isEmpty())
            QSKIP("scanimage (sane-utils) ist nicht installiert");
        const QString konfig = Testordner(QStringLiteral("sane"));
        DateiSchreiben(konfig + "dll.conf", "test\n");
        qputenv("SANE_CONFIG_DIR", konfig.toLocal8Bit());
        starten();
        D().setzeScanner(SaneScanner());
        dlg().antwortenAuswahl << 0;
        dlg().antwortenMsg << "Nein";
        w->mnuBildScannen->trigger();
        const QStringList geraete = dlg().aufrufe.first().eintraege;
        const QStringList meldungen = dlg().meldungsTexte();
        Attrappen::installieren();
        QVERIFY(!geraete.isEmpty());
        // Only the question where to put it.
        QCOMPARE(meldungen.size(), 1);
        QVERIFY(meldungen.first().startsWith("Wo soll das Bild abgelegt werden?"));
        QVERIFY(!w->Bild1->Bild().isNull());
        // The test device scans a page of 80 × 100 mm, at 150 dpi; the record keeps it whole.
        const QImage bild = QImage::fromData(w->Data1->recordset()->Value(QStringLiteral("Bilder")).toByteArray());
        QCOMPARE(bild.size(), QSize(472, 590));
        QVERIFY(!w->chkBildpfad->isChecked());
    }
};

RK_TEST_MAIN(TestBildimport)
#include "tst_bildimport.moc"
