// Covers: the external list and its captions, the chain from external to internal cover,
// damaged, huge and vanished pictures, the strip's pages and clicks, and the removal of a
// cover from the list and to the trash.
#include "support/Fenster.h"
#include "support/Katalog.h"
#include "support/Testumgebung.h"

#include "catalogue/Datensatzbearbeitung.h"
#include "catalogue/Datensteuerung.h"
#include "catalogue/FlexGrid.h"
#include "media/Coververwaltung.h"
#include "shell/Ausgabebox.h"
#include "shell/Einstellungen.h"
#include "shell/Globale.h"
#include "shell/Steuerelemente.h"

#include <QAction>
#include <QBuffer>
#include <QCheckBox>
#include <QComboBox>
#include <QDir>
#include <QImage>
#include <QListWidget>
#include <QPushButton>
#include <QtEndian>

#include <memory>

class TestCover : public QObject {
    Q_OBJECT

    std::unique_ptr<Ausgabebox> w;
    QString ordner; // the catalogue's folder, with "/"

    Coververwaltung& cv() const { return w->coververwaltung(); }
    QString bilder() const { return ordner + "Bilder/"; }

    static QByteArray png(QColor farbe, QSize groesse = {40, 30})
    {
        QImage bild(groesse, QImage::Format_RGB32);
        bild.fill(farbe);
        QByteArray daten;
        QBuffer puffer(&daten);
        puffer.open(QIODevice::WriteOnly);
        bild.save(&puffer, "PNG");
        return daten;
    }

    // A bitmap header that claims 20,000 x 20,000 pixels, with a few bytes behind it.
    static QByteArray riesig()
    {
        QByteArray d(54, '\0');
        auto setze = [&](int stelle, quint32 wert) { qToLittleEndian(wert, d.data() + stelle); };
        d[0] = 'B';
        d[1] = 'M';
        setze(2, 54 + 64);
        setze(10, 54);
        setze(14, 40);
        setze(18, 20000);
        setze(22, 20000);
        qToLittleEndian<quint16>(1, d.data() + 26);
        qToLittleEndian<quint16>(24, d.data() + 28);
        return d + QByteArray(64, '\x7f');
    }

    // A new catalogue folder with cover files, then the window on it.
    QString starten(const QList<Zeilenwerte>& zeilen, const QMap<QString, QByteArray>& dateien,
                    QMap<QString, QString> einstellungen = {}, const QString& sql = {},
                    bool zeigen = false)
    {
        static int lauf = 0;
        ordner = Testordner(QStringLiteral("cover%1").arg(++lauf));
        for (auto d = dateien.begin(); d != dateien.end(); ++d)
            DateiSchreiben(bilder() + d.key(), d.value());
        const QString katalog = KatalogAnlegen(ordner + "Archiv.db", zeilen);
        if (!sql.isEmpty())
            KatalogAusfuehren(katalog, sql);
        einstellungen.insert("TopRow", einstellungen.value("TopRow", "0"));
        FensterStarten(w, {.katalog = katalog, .einstellungen = einstellungen, .zeigen = zeigen});
        return katalog;
    }

    void zeile(int z) { w->MSFlexGrid1->setRow(z); }
    int sichtbar() const
    {
        int n = 0;
        for (Bildfeld* c : w->imgCover)
            n += c->isVisible();
        return n;
    }

private slots:
    void externeListeUndKette()
    {
        const QByteArray rot = png(Qt::red);
        starten({{{"Band", "A"}, {"LPTitel", "leer"}, {"BildPfad", " "}},
                 {{"Band", "B"},
                  {"LPTitel", "eins"},
                  {"BildPfad", "D:\\Musik\\Bilder\\b.jpg°/fehlt/weg.png°"}},
                 {{"Band", "C"}, {"LPTitel", "zwei"}, {"BildPfad", "/x/c1.png°/y/c2.png°ohne.png"}},
                 {{"Band", "D"}, {"LPTitel", "intern"}, {"BildPfad", "/x/c1.png°"}},
                 {{"Band", "E"}, {"LPTitel", "nur intern"}}},
                {{"b.jpg", rot}, {"c1.png", rot}, {"c2.png", png(Qt::blue)}, {"ohne.png", rot}},
                {{"HäkchenBildpfad", "1"}},
                "UPDATE Schallplatten SET Bilder = X'" + png(Qt::green).toHex()
                    + "' WHERE rowid IN (4, 5)");
        QVERIFY(w->mnuBildDatenbankpfad->isChecked());
        // One blank is no entry; the internal pane has nothing either, so the external one shows.
        zeile(1);
        QCOMPARE(w->chkBildpfad->text(), QString("kein externes Bild"));
        QCOMPARE(w->cboBildpfad->count(), 0);
        QVERIFY(w->chkBildpfad->isChecked());
        // A path written on Windows finds its file by name; a missing file does not count.
        zeile(2);
        QCOMPARE(w->chkBildpfad->text(), QString("1 externes Cover"));
        QCOMPARE(w->cboBildpfad->currentText(), bilder() + "b.jpg");
        QVERIFY(!w->imgBildpfad->Bild().isNull());
        // An entry without its closing "°" is not shown.
        zeile(3);
        QCOMPARE(w->chkBildpfad->text(), QString("2 externe Cover"));
        QCOMPARE(w->cboBildpfad->count(), 2);
        QCOMPARE(w->imgBildpfad->Bild().toImage().pixelColor(5, 5), QColor(Qt::red));
        w->cboBildpfad->setCurrentIndex(1);
        emit w->cboBildpfad->activated(1);
        QCOMPARE(w->imgBildpfad->Bild().toImage().pixelColor(5, 5), QColor(Qt::blue));
        // A file that vanished meanwhile is named, nothing else happens.
        QFile::remove(bilder() + "c1.png");
        w->cboBildpfad->setCurrentIndex(0);
        emit w->cboBildpfad->activated(0);
        QCOMPARE(Attrappen::dialoge().meldungsTexte().last(),
                 bilder() + "c1.png\n\nBild nicht gefunden");
        // Its entries all gone, the record shows its internal cover, and keeps its field.
        zeile(4);
        QVERIFY(!w->chkBildpfad->isChecked());
        QVERIFY(!w->Bild1->isHidden());
        QCOMPARE(w->Bild1->Bild().toImage().pixelColor(5, 5), QColor(Qt::green));
        QCOMPARE(w->txtBildpfad->text(), QString("/x/c1.png°"));
        // External files but the box unchecked: the internal cover stays in front...
        DateiSchreiben(bilder() + "c1.png", rot);
        zeile(5);
        zeile(4);
        QVERIFY(!w->chkBildpfad->isChecked());
        QCOMPARE(w->cboBildpfad->currentText(), bilder() + "c1.png");
        // ...and a record without one shows the external pane.
        zeile(3);
        QVERIFY(w->chkBildpfad->isChecked());
        QVERIFY(w->Bild1->isHidden());
        // A press enlarges the cover, its right edge on the pane's; a press on it closes it.
        emit w->imgBildpfad->MouseDown(Qt::LeftButton);
        QVERIFY(!w->picCoverGreat->isHidden());
        QCOMPARE(w->picCoverGreat->Bild().toImage().pixelColor(5, 5), QColor(Qt::red));
        QCOMPARE(w->picCoverGreat->geometry().right(), w->imgBildpfad->geometry().right());
        emit w->picCoverGreat->MouseDown(Qt::LeftButton);
        QVERIFY(w->picCoverGreat->isHidden());
        QVERIFY(w->picCoverGreat->Bild().isNull());
        // Without the folder rule the stored path itself counts.
        w->mnuBildDatenbankpfad->trigger();
        QCOMPARE(Lesen("BildLadePfad"), QString("False"));
        zeile(2);
        QCOMPARE(w->chkBildpfad->text(), QString("kein externes Bild"));
    }

    void kaputteUndFehlendeBilder()
    {
        const QByteArray gut = png(Qt::red);
        starten({{{"Band", "A"},
                  {"LPTitel", "kaputt"},
                  {"BildPfad", "/a/kaputt.jpg°"},
                  {"Stil", "Rock"}},
                 {{"Band", "B"}, {"LPTitel", "leer"}, {"BildPfad", "/a/leer.png°"}},
                 {{"Band", "C"}, {"LPTitel", "halb"}, {"BildPfad", "/a/halb.png°"}},
                 {{"Band", "D"}, {"LPTitel", "riesig"}, {"BildPfad", "/a/riesig.bmp°"}},
                 {{"Band", "E°"}, {"LPTitel", "Grad"}},
                 {{"Band", "F"}, {"LPTitel", "innen"}, {"Stil", "Jazz"}}},
                {{"kaputt.jpg", "\xff\xd8\xff\xe0 kein Bild"},
                 {"leer.png", ""},
                 {"halb.png", gut.left(gut.size() / 2)},
                 {"riesig.bmp", riesig()},
                 {"E° - Grad.png", gut},
                 {"A - kaputt.jpg", "Müll"},
                 {"D - riesig.bmp", riesig()}},
                {{"HäkchenBildpfad", "1"}, {"TopRow", "1"}},
                "UPDATE Schallplatten SET Bilder = X'89504e470d0a1a0a0000' WHERE rowid = 6", true);
        // Each file is listed but shows blank; the record's other fields stay.
        for (int z = 1; z <= 4; ++z) {
            zeile(z);
            QCOMPARE(w->cboBildpfad->count(), 1);
            QVERIFY(w->imgBildpfad->Bild().isNull());
        }
        zeile(1);
        QCOMPARE(w->TextStil->text(), QString("Rock"));
        // A damaged internal picture is an empty one.
        zeile(6);
        QCOMPARE(w->TextStil->text(), QString("Jazz"));
        QVERIFY(w->Bild1->Bild().isNull());
        QVERIFY(w->chkBildpfad->isChecked());
        // A JPEG that claims 20,000 x 20,000 pixels is read scaled, never at its full size.
        QByteArray jpeg;
        {
            QBuffer puffer(&jpeg);
            puffer.open(QIODevice::WriteOnly);
            QImage(64, 64, QImage::Format_RGB32).save(&puffer, "JPEG");
        }
        const qsizetype sof = jpeg.indexOf("\xff\xc0");
        QVERIFY(sof > 0);
        qToBigEndian<quint16>(20000, jpeg.data() + sof + 5);
        qToBigEndian<quint16>(20000, jpeg.data() + sof + 7);
        const QPixmap klein = Coververwaltung::BildLesen(jpeg, QSize(88, 62));
        QVERIFY(klein.width() <= 88 && klein.height() <= 62);
        // The strip: the name with "°" shows, the damaged ones stay blank.
        QCOMPARE(w->lstCover->count(), 3);
        QVERIFY(cv().CoverLetzterPlatz >= 2);
        cv().CoverStart = 0;
        cv().CoverUp();
        QCOMPARE(w->imgCover[0]->Bild().isNull(), true);
        QCOMPARE(w->imgCover[1]->Bild().isNull(), true);
        QCOMPARE(w->imgCover[2]->Bild().toImage().pixelColor(10, 10), QColor(Qt::red));
        // A click on a thumbnail whose file vanished still finds its Carrier.
        QFile::remove(bilder() + "E° - Grad.png");
        QTest::mouseClick(w->imgCover[2], Qt::LeftButton);
        QCOMPARE(w->TextBand->text(), QString("E°"));
    }

    void streifenBlaettern()
    {
        // 30 covers for 30 Carriers, one Carrier twice, one Carrier without a cover.
        QList<Zeilenwerte> zeilen;
        QMap<QString, QByteArray> dateien;
        for (int i = 1; i <= 30; ++i) {
            const QString band = QStringLiteral("Band %1").arg(i, 2, 10, QChar(u'0'));
            zeilen << Zeilenwerte{{"Band", band}, {"LPTitel", "Platte"}};
            dateien.insert(band + " - Platte.png", png(QColor::fromHsv(i * 10, 200, 200)));
        }
        zeilen << Zeilenwerte{{"Band", "Band 05"}, {"LPTitel", "Platte"}}
               << Zeilenwerte{{"Band", "Ohne"}};
        dateien.insert("Fremd - Niemand.png", png(Qt::black));
        starten(zeilen, dateien, {{"HäkchenBildpfad", "0"}, {"TopRow", "1"}}, {}, true);
        QCOMPARE(w->lstCover->count(), 31);
        QCOMPARE(w->lstCover->item(5)->text(), QString("Band 05 - Platte.png"));
        const int l = cv().CoverLetzterPlatz;
        QVERIFY2(l >= 3 && l <= 21, qPrintable(QString::number(l)));
        cv().CoverStart = 0;
        cv().CoverUp();
        QCOMPARE(sichtbar(), l + 1);
        // Forwards at the end shows the last full page, backwards stops at 0.
        for (int i = 0; i < 10; ++i)
            QTest::mouseClick(w->cmdCoverDown, Qt::LeftButton);
        QCOMPARE(cv().CoverStart, 31 - 1 - l);
        QCOMPARE(sichtbar(), l + 1);
        for (int i = 0; i < 10; ++i)
            QTest::mouseClick(w->cmdCoverUp, Qt::LeftButton);
        QCOMPARE(cv().CoverStart, 0);
        QCOMPARE(sichtbar(), l + 1);
        // A click moves to that Carrier and the strip stays on its page.
        QTest::mouseClick(w->imgCover[2], Qt::LeftButton);
        QCOMPARE(w->TextBand->text(), QString("Band 03"));
        QCOMPARE(cv().CoverStart, 0);
        // In table mode the strip begins at the record's cover; thumbnails are read once.
        const qint64 zweites = w->imgCover[1]->Bild().cacheKey();
        zeile(2);
        QCOMPARE(cv().CoverStart, 1);
        QCOMPARE(w->imgCover[0]->Bild().cacheKey(), zweites);
        zeile(20);
        QCOMPARE(w->TextBand->text(), QString("Band 19"));
        QCOMPARE(w->lstCover->item(cv().CoverStart)->text(), QString("Band 19 - Platte.png"));
        // Without it, a cover near the end shows on the last full page.
        w->chkTabelle->setChecked(false);
        zeile(31);
        QCOMPARE(w->TextBand->text(), QString("Band 30"));
        QCOMPARE(cv().CoverStart, 31 - 1 - l);
        QCOMPARE(sichtbar(), l + 1);
        // A Carrier without a cover leaves the strip where it is.
        const int start = cv().CoverStart;
        zeile(32);
        QCOMPARE(w->TextBand->text(), QString("Ohne"));
        QCOMPARE(cv().CoverStart, start);
        // The double click names the cover.
        QTest::mouseDClick(w->imgCover[0], Qt::LeftButton);
        QCOMPARE(Attrappen::dialoge().aufrufe.last().meldung.titel, QString("Mini-Cover"));
        // A folder without covers: no thumbnail, and paging does nothing.
        for (const QString& datei : QDir(bilder()).entryList(QDir::Files))
            QFile::remove(bilder() + datei);
        cv().CoverAktualisieren();
        QCOMPARE(cv().CoverLetzterPlatz, -1);
        QTest::mouseClick(w->cmdCoverDown, Qt::LeftButton);
        QTest::mouseClick(w->cmdCoverUp, Qt::LeftButton);
        QCOMPARE(sichtbar(), 0);
        QCOMPARE(cv().CoverStart, 0);
    }

    // A save counts only the saved record's old and new name again: the strip is then what
    // counting the whole table against the whole folder gives, in every case of a save.
    void streifenNachSpeichern()
    {
        starten({{{"Band", "A"}, {"LPTitel", "1"}}, {{"Band", "B"}, {"LPTitel", "2"}}, {{"Band", "C"}, {"LPTitel", "3"}}},
                {{"A - 1.png", png(Qt::red)},
                 {"B - 2.jpg", png(Qt::red)},
                 {"B - 2.png", png(Qt::red)},
                 {"D - 4.png", png(Qt::red)}},
                {{"HäkchenBildpfad", "0"}});
        auto liste = [&] {
            QStringList l;
            for (int i = 0; i < w->lstCover->count(); ++i)
                l << w->lstCover->item(i)->text();
            return l;
        };
        auto speichern = [&](int zeile, const QString& band, const QString& titel) {
            if (zeile > 0)
                this->zeile(zeile);
            w->TextBand->setText(band);
            w->TextLPTitel->setText(titel);
            w->TextInfo->setText(QStringLiteral("gespeichert"));
            w->datensatzbearbeitung().MenuSpeichern_Click();
            const QStringList schritt = liste();
            cv().CoverListeAktuell();
            return schritt == liste() ? schritt : QStringList{"anders als gezählt:"} + schritt;
        };
        QCOMPARE(liste(), QStringList({"A - 1.png", "B - 2.jpg", "B - 2.png"}));
        // Onto a name of two files: both gain a place.
        QCOMPARE(speichern(1, "B", "2"), QStringList({"B - 2.jpg", "B - 2.jpg", "B - 2.png", "B - 2.png"}));
        QCOMPARE(speichern(1, "D", "4"), QStringList({"B - 2.jpg", "B - 2.png", "D - 4.png"}));
        QCOMPARE(speichern(3, "D", "4"), QStringList({"B - 2.jpg", "B - 2.png", "D - 4.png"}));
        // A name without a file, then a new record.
        QCOMPARE(speichern(2, "Ohne", "Bild"), QStringList({"B - 2.jpg", "B - 2.png", "D - 4.png"}));
        w->MenuNeuEingabe->trigger();
        QCOMPARE(speichern(0, "A", "1"), QStringList({"A - 1.png", "B - 2.jpg", "B - 2.png", "D - 4.png"}));
        // A cover that came meanwhile counts the folder again.
        DateiSchreiben(bilder() + "Ohne - Bild.png", png(Qt::blue));
        QCOMPARE(speichern(1, "A", "1").first(), QString("A - 1.png"));
        QVERIFY(liste().contains("Ohne - Bild.png"));
        // A table of some rows only: a record that leaves it leaves the strip.
        w->Data1->setRecordSource("select * from Schallplatten where Band <> 'Z' order by Band");
        w->Data1->Refresh();
        cv().CoverAktualisieren();
        const QStringList vorher = liste();
        QCOMPARE(speichern(1, "Z", "1").size(), vorher.size() - 1);
    }

    void streifenOhneAenderbareQuelle()
    {
        // A source that cannot be asked row by row is walked; the order is the folder's.
        starten({{{"Band", "B"}, {"LPTitel", "2"}},
                 {{"Band", "A"}, {"LPTitel", "1"}},
                 {{"Band", "A"}, {"LPTitel", "1"}}},
                {{"B - 2.jpg", png(Qt::red)},
                 {"a - 1.png", png(Qt::red)},
                 {"A - 1.png", png(Qt::red)},
                 {"C - 3.png", ""}},
                {{"Data1RecordSource", "select Band, LPTitel from Schallplatten order by Band"}});
        QCOMPARE(w->lstCover->count(), 3);
        QCOMPARE(w->lstCover->item(0)->text(), QString("A - 1.png"));
        QCOMPARE(w->lstCover->item(1)->text(), QString("A - 1.png"));
        QCOMPARE(w->lstCover->item(2)->text(), QString("B - 2.jpg"));
    }

    void entfernen()
    {
        const QByteArray rot = png(Qt::red);
        const QString katalog
            = starten({{{"Band", "A"}, {"LPTitel", "x"}, {"BildPfad", "/alt/a.png°/alt/b.png°"}}},
                      {{"a.png", rot}, {"b.png", rot}}, {{"HäkchenBildpfad", "1"}});
        QCOMPARE(w->cboBildpfad->count(), 2);
        // "Nein" changes nothing.
        Attrappen::dialoge().antwortenMsg << "Nein";
        w->mnuCoverPfadEnfernen->trigger();
        QCOMPARE(KatalogSpalte(katalog, "BildPfad"), QStringList{"/alt/a.png°/alt/b.png°"});
        // The path goes from the list, the file stays.
        Attrappen::dialoge().antwortenMsg << "Ja";
        w->mnuCoverPfadEnfernen->trigger();
        QCOMPARE(KatalogSpalte(katalog, "BildPfad"), QStringList{"/alt/b.png°"});
        QVERIFY(QFile::exists(bilder() + "a.png"));
        QVERIFY(Attrappen::papierkorb().verschoben.isEmpty());
        QCOMPARE(w->chkBildpfad->text(), QString("1 externes Cover"));
        // Deleting moves the file to the trash; the empty list is one blank.
        Attrappen::dialoge().antwortenMsg << "Ja";
        w->mnuBildLoeschen->trigger();
        QCOMPARE(Attrappen::papierkorb().verschoben, QStringList{bilder() + "b.png"});
        QVERIFY(Attrappen::klang().gespielt.last().endsWith("Matsch.wav"));
        QCOMPARE(KatalogSpalte(katalog, "BildPfad"), QStringList{" "});
        QCOMPARE(w->chkBildpfad->text(), QString("kein externes Bild"));
        QCOMPARE(w->TextBand->text(), QString("A"));
    }

    void internesBildLoeschen()
    {
        const QString katalog
            = starten({{{"Band", "A"}, {"LPTitel", "x"}}}, {}, {{"HäkchenBildpfad", "0"}},
                      "UPDATE Schallplatten SET Bilder = X'" + png(Qt::green).toHex() + "'");
        QVERIFY(!w->chkBildpfad->isChecked());
        QVERIFY(!w->Bild1->Bild().isNull());
        Attrappen::dialoge().antwortenMsg << "Ja";
        w->mnuBildLoeschen->trigger();
        QCOMPARE(Attrappen::dialoge().aufrufe.first().meldung.titel, QString("Datenbank"));
        QCOMPARE(KatalogSpalte(katalog, "ifnull(length(Bilder), 0)"), QStringList{"0"});
        QCOMPARE(KatalogSpalte(katalog, "Band"), QStringList{"A"});
    }
};

RK_TEST_MAIN(TestCover)
#include "tst_cover.moc"
