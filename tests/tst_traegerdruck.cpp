// The inlays of a Carrier: the front sheet with and without the cover, its end without a
// choice, the back sheet, and both previews.
#include "support/Attrappen.h"
#include "support/Druckattrappe.h"
#include "support/Fenster.h"
#include "support/Katalog.h"
#include "support/Testumgebung.h"

#include "outputs/Traegerdruck.h"
#include "platform/Einheiten.h"
#include "shell/Ausgabebox.h"
#include "shell/Steuerelemente.h"

#include <QAction>
#include <QFile>
#include <QTextEdit>

#include <memory>

class TestTraegerdruck : public QObject {
    Q_OBJECT

    std::unique_ptr<Ausgabebox> w;
    PdfDruck* druck = nullptr;

    QString drucken(QAction* befehl, const QString& antwort = {})
    {
        QFile::remove(druck->datei);
        Attrappen::leeren();
        if (!antwort.isNull())
            Attrappen::dialoge().antwortenMsg << antwort;
        befehl->trigger();
        return QFile::exists(druck->datei) ? PdfText(druck->datei) : QStringLiteral("kein Druck");
    }

private slots:
    void init()
    {
        FensterStarten(w, {.zeilen = {{{"Band", "Abba"}, {"LPTitel", "Gold"}, {"Medium", "CD"},
                                       {"Plattenfirma", "Polar"}, {"Preis", "9 €"}, {"Info", "Sammlung"}}}});
        w->TextSongs->setPlainText("1. Waterloo\n2. SOS");
        auto pdf = std::make_unique<PdfDruck>();
        druck = pdf.get();
        druck->datei = Testordner("traeger") + "blatt.pdf";
        setzeDruckdialog(std::move(pdf));
    }
    void cleanup() { w.reset(); }

    void vorderseite()
    {
        const QString text = drucken(w->MenuDrucken, "Ja");
        QCOMPARE(druck->vorgabe, QPageLayout::Landscape);
        QCOMPARE(Attrappen::dialoge().meldungen().value(0).titel, QString("Lumivox"));
        const QStringList zeilen = text.split(u'\n', Qt::SkipEmptyParts);
        QStringList erwartet{"Abba", "Gold", "Medium: CD", "Bewertung 1-6:", "Info: Sammlung", "1. Waterloo", "2. SOS"};
        qsizetype stelle = 0;
        for (const QString& wort : erwartet) {
            const qsizetype i = text.indexOf(wort, stelle);
            QVERIFY2(i >= stelle, qPrintable(wort + " in\n" + text));
            stelle = i;
        }
        QVERIFY2(text.contains("Polar") && text.contains("Preis: 9 €"), qPrintable(text)); // "fi" prints as one glyph
        QVERIFY(!text.contains("eBook u. Multimedia:")); // no attachments, no line
        // Without the picture the same text; closing the question prints nothing.
        QVERIFY(drucken(w->MenuDrucken, "Nein").contains("2. SOS"));
        QCOMPARE(drucken(w->MenuDrucken, ""), QString("kein Druck"));
        druck->abbrechen = true;
        QCOMPARE(drucken(w->MenuDrucken, "Ja"), QString("kein Druck"));
        QVERIFY(Attrappen::dialoge().meldungen().isEmpty());
    }

    void rueckseiteUndVorschau()
    {
        QPixmap cover(60, 60);
        cover.fill(Qt::red);
        w->Bild1->setBild(cover);
        w->Bild1->show();
        QVERIFY(drucken(w->mnuBacksitePrint) != "kein Druck");
        QCOMPARE(druck->vorgabe, QPageLayout::Portrait);

        w->mnuVorschauDrucken->trigger();
        frmDruckVorschau* v = w->traegerdruck().Vorschau;
        QVERIFY(v && v->isVisible());
        const QImage bild = v->picVorschau->Bild().toImage();
        QVERIFY(!bild.isNull());
        // The cover square on the right is red, the text square left of it white.
        QCOMPARE(QColor(bild.pixel(Px(4669 + 2000), Px(333 + 2000))), QColor(Qt::red));
        QCOMPARE(QColor(bild.pixel(Px(133 + 100), Px(4869 - 100))), QColor(Qt::white));
        v->close();
        w->mnuViewBacksitePrint->trigger();
        const QImage hinten = w->traegerdruck().Vorschau->picVorschau->Bild().toImage();
        QCOMPARE(QColor(hinten.pixel(Px(280 + 2000), Px(333 + 2000))), QColor(Qt::red));
    }
};

RK_TEST_MAIN(TestTraegerdruck)
#include "tst_traegerdruck.moc"
