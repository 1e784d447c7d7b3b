// The compilation generator: a run with exclusions and the song list, the stall watch on a
// table that yields nothing, a stopped copy, the song list's commands, the printed case
// insert read back from a PDF, the print surface on a picture, and the copy of all songs of the
// table.
#include "support/Druckattrappe.h"
#include "support/Fenster.h"
#include "support/Katalog.h"
#include "support/Modal.h"
#include "support/Testumgebung.h"

#include "collections/frmCDgenerieren.h"
#include "outputs/Druckflaeche.h"
#include "platform/Textdatei.h"
#include "shell/Ausgabebox.h"
#include "shell/Einstellungen.h"
#include "shell/Globale.h"
#include "shell/Steuerelemente.h"

#include <QAction>
#include <QCheckBox>
#include <QClipboard>
#include <QDialog>
#include <QDir>
#include <QGuiApplication>
#include <QImage>
#include <QLabel>
#include <QListWidget>
#include <QPushButton>
#include <QRegularExpression>
#include <QTimer>

#include <memory>

class TestGenerator : public QObject {
    Q_OBJECT

    std::unique_ptr<Ausgabebox> w;
    QString musik;
    PdfDruck* druck = nullptr;

    QString ordner(const QString& name, const QMap<QString, QByteArray>& dateien)
    {
        const QString d = musik + name + u'/';
        QDir().mkpath(d);
        for (auto i = dateien.begin(); i != dateien.end(); ++i)
            DateiSchreiben(d + i.key(), i.value());
        return d;
    }
    static Zeilenwerte platte(const QString& band, const QString& titel, const QString& stil,
                              const QString& pfad)
    {
        return {{"Band", band}, {"LPTitel", titel}, {"Stil", stil}, {"Musikpfad", pfad}};
    }
    // Abba and Beatles with two songs, Cream with one, Doors (Schlager) with two.
    void starten()
    {
        static int lauf = 0;
        musik = Testordner(QStringLiteral("gen%1").arg(++lauf));
        FensterStarten(
            w,
            {.zeilen
             = {platte("Abba", "Arrival", "Pop",
                       ordner("abba", {{"Dancing Queen - 5.mp3", "dq"}, {"Money.mp3", "mo"}})),
                platte("Beatles", "Help!", "Rock",
                       ordner("beatles", {{"Help - 4.mp3", "he"}, {"Yesterday.mp3", "ye"}})),
                platte("Cream", "Fresh", "Blues", ordner("cream", {{"Solo.mp3", "so"}})),
                platte("Doors", "L.A.", "Schlager",
                       ordner("doors", {{"X.mp3", "x"}, {"Y.mp3", "y"}}))}});
        Attrappen::zufall().werte.clear();
        Attrappen::zufall().sonst = 0.0;
    }
    static QString liste(const QString& name = "Liedliste.lst")
    {
        return ProgrammOrdner + "Playlist/" + name;
    }
    static void zufall(std::initializer_list<double> werte)
    {
        Attrappen::zufall().werte.clear();
        for (double r : werte)
            Attrappen::zufall().werte << r;
    }
    static void antworten(const QStringList& texte)
    {
        Attrappen::dialoge().antwortenMsg.clear();
        for (const QString& t : texte)
            Attrappen::dialoge().antwortenMsg << t;
    }
    static QStringList dateien(const QString& ordner)
    {
        return QDir(ordner).entryList(QDir::Files, QDir::Name);
    }

    // The generator window over the main window, loaded, with a target and a count.
    std::unique_ptr<frmCDgenerieren> fenster(const QString& ziel, int anzahl)
    {
        Speichern("CDgenerierenZielordner", ziel);
        auto f = std::make_unique<frmCDgenerieren>(*w);
        f->Form_Load();
        f->txtAnzahl->setText(QString::number(anzahl));
        return f;
    }

private slots:
    void initTestCase()
    {
        auto d = std::make_unique<PdfDruck>();
        druck = d.get();
        setzeDruckdialog(std::move(d));
    }
    void init() { starten(); }
    void cleanup() { w.reset(); }

    void laufMitAusschlussUndLiedliste()
    {
        DateiSchreiben(ProgrammOrdner + "Ausschlussliste.ini", "Schlager\n");
        // "Money.mp3" stands inside a longer entry: it counts as listed.
        TextdateiSchreiben(liste(), {"Big Money.mp3 · Somebody · Something"});
        const QString ziel = Testordner("ziel1");
        auto f = fenster(ziel, 2);
        // Doors excluded, Cream has one file, Abba: Money listed, Dancing Queen copied;
        // then Beatles: Yesterday.
        zufall({0.9, 0.6, 0.0, 0.9, 0.0, 0.3, 0.5});
        antworten({"Ja", "", "Nein", "Nein"});
        f->cmdGenerieren->click();

        QCOMPARE(dateien(ziel), QStringList({"Dancing Queen - 5.mp3", "Yesterday.mp3"}));
        QCOMPARE(DateiLesen(ziel + "Yesterday.mp3"), QByteArray("ye"));
        QCOMPARE(TextdateiLesen(liste()),
                 QStringList({"Big Money.mp3 · Somebody · Something",
                              "Dancing Queen - 5.mp3 · Abba · Arrival",
                              "Yesterday.mp3 · Beatles · Help!"}));
        QCOMPARE(f->staBar->PanelText(1), "Kopiert: 2");
        QCOMPARE(f->staBar->PanelText(3), "Liste: 1");
        QCOMPARE(f->staBar->PanelText(4), "Drucken: 2");
        QCOMPARE(f->staBar->PanelText(5), "Ausschluss: 1");
        QCOMPARE(f->lblBez[9]->text(), "Liedliste verwenden (3)");
        QCOMPARE(f->lstDrucken->count(), 2);
        QVERIFY(Attrappen::dialoge().meldungsTexte().contains(
            "Lieder erfolgreich in den Sammelordner kopiert!"));

        // Without the list the same song may come again: the target holds it already.
        f->chkLiedlisteVerwenden->setChecked(false);
        f->txtAnzahl->setText("1");
        zufall({0.0, 0.0, 0.0, 0.9});
        antworten({"Ja", "", "Nein", "Nein"});
        f->cmdGenerieren->click();
        QCOMPARE(f->staBar->PanelText(2), "Doppelt: 1");
        QCOMPARE(dateien(ziel).size(), 3);
        QVERIFY(dateien(ziel).contains("Money.mp3"));
    }

    void sicherheitsschaltungBeendetAusgeschlosseneTabelle()
    {
        DateiSchreiben(ProgrammOrdner + "Ausschlussliste.ini", "Pop\nRock\nBlues\nSchlager\n");
        const QString ziel = Testordner("ziel2");
        auto f = fenster(ziel, 5);
        antworten({"Ja"});
        // The fake clock runs a second each time the run lets events through.
        int takte = 0;
        QTimer uhrwerk;
        connect(&uhrwerk, &QTimer::timeout, [&] {
            Attrappen::uhr().vorruecken(1000);
            if (++takte > 400)
                f->cmdAbbrechen_Click();
        });
        uhrwerk.start(0);
        const qint64 beginn = Attrappen::uhr().ms;
        f->cmdGenerieren_Click();
        uhrwerk.stop();

        const qint64 dauer = Attrappen::uhr().ms - beginn;
        QVERIFY2(dauer >= 120000 && dauer <= 122000, qPrintable(QString::number(dauer)));
        QVERIFY(f->GeneratorStopp);
        QVERIFY(!f->Timer1->isEnabled());
        QCOMPARE(f->staBar->PanelText(6), "Exit in: 0");
        const QList<Meldung> m = Attrappen::dialoge().meldungen();
        QCOMPARE(m.last().titel, "Sicherheitsschaltung");
        QVERIFY(m.last().text.startsWith(
            "Seit rund 120 Sekunden (2 Min.) wurde kein Lied mehr kopiert, \n"));
        QVERIFY(dateien(ziel).isEmpty());
        QVERIFY(f->staBar->PanelText(5).startsWith("Ausschluss: "));
    }

    void gestoppteKopieLaesstNurGanzeDateien()
    {
        // Three pieces a file: the stop comes while the second file is half written.
        const QByteArray gross(12 << 20, 'k');
        const QString quelle = ordner("gross", {{"a.mp3", gross}, {"b.mp3", gross}});
        FensterStarten(w, {.zeilen = {platte("Gross", "Viel", "Pop", quelle)}});
        const QString ziel = Testordner("ziel3");
        auto f = fenster(ziel, 2);
        zufall({0.0, 0.0, 0.0, 0.9});
        antworten({"Ja"});
        // After a is listed the run lets events through once for the next pick; the turn after
        // that comes between two pieces of b.
        int takte = 0;
        int alle = 0;
        QTimer wache;
        connect(&wache, &QTimer::timeout, [&] {
            if ((f->lstLiedliste->count() == 1 && ++takte == 2) || ++alle > 100000)
                f->cmdAbbrechen->click();
        });
        wache.start(0);
        f->cmdGenerieren_Click();
        wache.stop();

        QCOMPARE(QDir(ziel).entryList(QDir::Files | QDir::Hidden | QDir::System),
                 QStringList({"a.mp3"}));
        QCOMPARE(QFileInfo(ziel + "a.mp3").size(), gross.size());
        QCOMPARE(TextdateiLesen(liste()), QStringList({"a.mp3 · Gross · Viel"}));
        QVERIFY(!Attrappen::dialoge().meldungsTexte().contains(
            "Lieder erfolgreich in den Sammelordner kopiert!"));
    }

    void liedlistenBefehle()
    {
        TextdateiSchreiben(liste(), {"eins", "zwei", "drei"});
        auto f = fenster(Testordner("ziel4"), 1);
        QCOMPARE(f->lstLiedliste->count(), 3);
        QCOMPARE(f->staBar->PanelText(4), "Drucken 3");
        QCOMPARE(f->lblNameLiedliste->text(), "Liedliste");

        // Removing marked songs rewrites the file; what is printed stays.
        f->lstLiedliste->item(1)->setSelected(true);
        f->mnuLiedlisteMarkEntf->trigger();
        QCOMPARE(TextdateiLesen(liste()), QStringList({"eins", "drei"}));
        QCOMPARE(f->lstDrucken->count(), 3);
        QCOMPARE(f->lblBez[9]->text(), "Liedliste verwenden (2)");

        f->mnuLiedlisteCopy->trigger();
        QCOMPARE(QGuiApplication::clipboard()->text(), "01 | eins\n02 | drei\n");
        QStringList viele;
        for (int i = 0; i < 100; ++i)
            viele << "x";
        QVERIFY(frmCDgenerieren::KopierText(viele).startsWith("001 | x\n"));
        QVERIFY(frmCDgenerieren::KopierText(QStringList(10000, "x")).isEmpty());

        // Save as; a second save over it asks, and only "Ja" writes.
        Attrappen::dialoge().antwortenDatei << liste("Andere.lst");
        f->mnuLiedlisteSpeichernUnter->trigger();
        QCOMPARE(f->lblNameLiedliste->text(), "Andere");
        QCOMPARE(TextdateiLesen(liste("Andere.lst")), QStringList({"eins", "drei"}));
        f->lstLiedliste->addItem("vier");
        Attrappen::dialoge().antwortenDatei << liste("Andere.lst");
        Attrappen::dialoge().antwortenMsg << "Nein";
        f->mnuLiedlisteSpeichernUnter->trigger();
        QCOMPARE(TextdateiLesen(liste("Andere.lst")).size(), 2);

        Attrappen::dialoge().antwortenDatei << liste("fehlt.lst");
        f->mnuLiedlisteLaden->trigger();
        QCOMPARE(Attrappen::dialoge().meldungen().last().text,
                 "Die Datei konnte nicht geladen werden!");

        // Delete moves the file to the trash; without a file the lists are emptied still.
        Attrappen::dialoge().antwortenMsg << "Ok";
        f->mnuLiedlisteLoeschen->trigger();
        QCOMPARE(Attrappen::papierkorb().verschoben, QStringList({liste("Andere.lst")}));
        QCOMPARE(f->LiedlisteName, "Liedliste.lst");
        QCOMPARE(f->lstLiedliste->count() + f->lstDrucken->count(), 0);
        QFile::remove(liste());
        f->lstLiedliste->addItem("fuenf");
        Attrappen::dialoge().antwortenMsg << "Ok";
        f->mnuLiedlisteLoeschen->trigger();
        QCOMPARE(f->lstLiedliste->count(), 0);
        QCOMPARE(Attrappen::papierkorb().verschoben.size(), 1);
    }

    void druckAlsPdf()
    {
        QStringList zeilen{"Live.mp3 Session - 4.mp3 · Kraut · Lieder"};
        for (int i = 2; i <= 40; ++i)
            zeilen << QStringLiteral("Lied%1.wma · Band%1 · Platte%1").arg(i);
        TextdateiSchreiben(liste(), zeilen);
        auto f = fenster(Testordner("ziel5"), 1);
        druck->datei = Testordner("druck") + "liste.pdf";
        f->mnuLiedlisteDrucken->trigger();
        QCOMPARE(druck->vorgabe, QPageLayout::Landscape);
        QVERIFY(Attrappen::dialoge().meldungen().isEmpty());

        const QString text = PdfText(druck->datei);
        const QStringList seiten = text.split(u'\f');
        QVERIFY2(seiten.size() >= 2 && !seiten[1].trimmed().isEmpty(), qPrintable(text));
        QVERIFY(!text.contains(".mp3") && !text.contains(".wma"));
        QVERIFY(f->lstLiedliste->item(0)->text().contains("Live.mp3 Session"));
        QVERIFY(seiten[0].contains("Liedliste"));
        // Where "nn |" stands: the line and the column.
        auto stelle = [](const QString& seite, int nr) -> QPoint {
            const QStringList z = seite.split(u'\n');
            const QRegularExpression muster(
                QStringLiteral("\\b%1 \\|").arg(nr, 2, 10, QLatin1Char('0')));
            for (int i = 0; i < z.size(); ++i)
                if (const auto t = muster.match(z[i]); t.hasMatch())
                    return {int(t.capturedStart()), i};
            return {-1, -1};
        };
        const QPoint erstes = stelle(seiten[0], 1);
        QVERIFY(erstes.x() >= 0);
        QVERIFY(seiten[0].split(u'\n')[erstes.y()].contains("Live Session - 4 · Kraut · Lieder"));
        QPoint vorher = stelle(seiten[0], 2);
        QVERIFY(vorher.x() > erstes.x() + 30);
        for (int nr = 3; nr <= 37; ++nr) {
            const QPoint p = stelle(seiten[0], nr);
            QVERIFY2(p.y() > vorher.y() && qAbs(p.x() - vorher.x()) <= 2,
                     qPrintable(QString::number(nr)));
            vorher = p;
        }
        QVERIFY(stelle(seiten[1], 38).x() >= 0 && stelle(seiten[1], 38).x() < erstes.x() + 5);
        QVERIFY(stelle(seiten[1], 40).y() > stelle(seiten[1], 38).y());

        druck->abbrechen = true;
        QFile::remove(druck->datei);
        f->mnuLiedlisteDrucken->trigger();
        druck->abbrechen = false;
        QVERIFY(!QFile::exists(druck->datei));
        QVERIFY(Attrappen::dialoge().meldungen().isEmpty());
    }

    void druckflaecheAufBild()
    {
        // 15 twips a pixel; the point x = 0 lies 1500 twips right of the edge.
        QImage bild(600, 400, QImage::Format_RGB32);
        bild.fill(Qt::white);
        Druckflaeche f(bild);
        f.setScaleLeft(-1500);
        f.Box(0, 300, 1500, 1800);
        f.setCurrentX(300);
        f.Print("a\tb", false);
        QCOMPARE(f.CurrentX(), 300 + 1440 + f.TextWidth("b"));
        f.Print();
        // A line end goes back to the column where the line began, one line lower.
        QCOMPARE(f.CurrentX(), 300.0);
        QCOMPARE(f.CurrentY(), f.TextHeight());
        f.setScaleMode(Druckflaeche::Einheit::Millimeter);
        QVERIFY(qAbs(f.CurrentX() - 300 * 25.4 / 1440) < 1e-9);
        QVERIFY(qAbs(f.ScaleWidth() - 600 * 15 * 25.4 / 1440) < 1e-9);
        f.EndDoc();
        QCOMPARE(bild.pixelColor(100, 40), QColor(Qt::black));
        QCOMPARE(bild.pixelColor(150, 40), QColor(Qt::white));
        QCOMPARE(bild.pixelColor(200, 80), QColor(Qt::black));
    }

    void alleSongsUndMenue()
    {
        const QString ziel = Testordner("ziel6");
        DateiSchreiben(ziel + "Money.mp3", "alt");
        w->lstBandAusschluss->addItem("Beatl");
        Attrappen::dialoge().antwortenOrdner << ziel;
        w->mnuAlleSongsKopieren->trigger();
        QCOMPARE(dateien(ziel),
                 QStringList({"Dancing Queen - 5.mp3", "Money.mp3", "Solo.mp3", "X.mp3", "Y.mp3"}));
        QCOMPARE(DateiLesen(ziel + "Money.mp3"), QByteArray("alt"));
        QCOMPARE(Attrappen::dialoge().meldungen().last().text, "4 Lieder kopiert nach:\n" + ziel);

        ModalBedienen([](QDialog* d) {
            QCOMPARE(d->objectName(), "frmCDgenerieren");
            d->findChild<QAction*>("mnuExit")->trigger();
        });
        w->mnuTontraegerGenerieren->trigger();
        QVERIFY(ModalBedient());
    }
};

RK_TEST_MAIN(TestGenerator)
#include "tst_generator.moc"
