// The message and input boxes, window placing, the real dialog service and the gradient.
#include "support/Testumgebung.h"

#include "platform/Einheiten.h"
#include "shell/EchteDialoge.h"
#include "shell/Farbverlauf.h"
#include "shell/FensterPlatzieren.h"
#include "shell/Globale.h"
#include "shell/frmInputNimb.h"
#include "shell/frmMsgNimb.h"

#include <QFileDialog>
#include <QFrame>
#include <QLabel>
#include <QLineEdit>
#include <QPainter>
#include <QPushButton>
#include <QScreen>
#include <QTextEdit>
#include <QTimer>

#include <functional>

using namespace Qt::StringLiterals;

namespace {

QString Zeilen(int n)
{
    QStringList liste;
    for (int i = 1; i <= n; ++i)
        liste << QStringLiteral("Zeile %1").arg(i);
    return liste.join(QStringLiteral("\r\n"));
}

Meldung M(const QString& text, int typ = 0, int standard = 0, int sekunden = 0)
{
    return {
        .text = text, .typ = typ, .standard = standard, .titel = u"Titel"_s, .sekunden = sekunden};
}

QPushButton* Knopf(QWidget* box, int i)
{
    return box->findChild<QPushButton*>(QStringLiteral("cmdButton(%1)").arg(i));
}

// Captions of the shown buttons from left to right.
QStringList SichtbareKnoepfe(frmMsgNimb& box)
{
    QList<QPushButton*> reihe;
    for (QPushButton* b : box.cmdButton)
        if (!b->isHidden())
            reihe << b;
    std::sort(reihe.begin(), reihe.end(),
              [](QPushButton* a, QPushButton* b) { return a->x() < b->x(); });
    QStringList texte;
    for (QPushButton* b : reihe)
        texte << b->text();
    return texte;
}

// Runs the steps once the box's own loop runs. Whatever the steps leave open is closed
// afterwards, so that a failed check cannot leave the test waiting on a window.
void Waehrenddessen(std::function<void()> schritte)
{
    QTimer::singleShot(0, qApp, [schritte] {
        schritte();
        for (QWidget* w : QApplication::topLevelWidgets())
            if (qobject_cast<QDialog*>(w) && w->isVisible())
                w->close();
    });
}

// Works the file dialog once it is open: the steps, then OK.
void ImDateidialog(std::function<void(QFileDialog&)> schritte)
{
    Waehrenddessen([schritte] {
        auto* d = qobject_cast<QFileDialog*>(QApplication::activeModalWidget());
        QVERIFY(d);
        schritte(*d);
        static_cast<QDialog*>(d)->accept(); // public in QDialog
    });
}

bool Nahe(const QColor& a, const QColor& b)
{
    return qAbs(a.red() - b.red()) <= 1 && qAbs(a.green() - b.green()) <= 1
        && qAbs(a.blue() - b.blue()) <= 1;
}

} // namespace

class TestMeldungen : public QObject {
    Q_OBJECT
private slots:
    void init()
    {
        ProgrammOrdner = Testumgebung::programmOrdner();
        Attrappen::klang().gespielt.clear();
    }

    void groesseFolgtDenZeilen()
    {
        struct Fall {
            QString text;
            int zeilen, textHoehe, fensterHoehe;
            bool breit;
        };
        // 30 lines are past the highest text box already.
        const QList<Fall> faelle = {
            {QString(), 1, 900, 1905, false},   {QStringLiteral("Eine Zeile."), 1, 900, 1905, false},
            {Zeilen(4), 4, 1040, 2440, false},  {Zeilen(10), 10, 2600, 4000, false},
            {Zeilen(11), 11, 2860, 4260, true}, {Zeilen(30), 30, 7700, 9100, true},
        };
        for (const Fall& f : faelle) {
            frmMsgNimb box;
            box.Vorbereiten(M(f.text));
            QCOMPARE(box.Textzeilen(), f.zeilen);
            QCOMPARE(box.txtMsgText->height(), Px(f.textHoehe));
            QCOMPARE(box.height(), Px(f.fensterHoehe));
            QCOMPARE(box.width(), Px(f.breit ? 7725 : 6180));
            QCOMPARE(box.txtMsgText->width(), Px(f.breit ? 6465 : 4965));
            QCOMPARE(box.fraMsgButton->width(), Px(f.breit ? 7620 : 6090));
            // The buttons stand at the foot, below the text.
            QCOMPARE(box.fraMsgButton->geometry().bottom(), box.height() - 1);
            QVERIFY(box.fraMsgButton->y() >= box.txtMsgText->geometry().bottom());
        }
        // A long line counts with its wrapped lines.
        frmMsgNimb box;
        box.Vorbereiten(M(QStringLiteral("Dieser Tonträger hat keinen Musikpfad. ").repeated(12)));
        QVERIFY(box.Textzeilen() >= 4);
        QCOMPARE(box.txtMsgText->height(), Px(qBound(900, box.Textzeilen() * 260, 7700)));
        QVERIFY(box.txtMsgText->toPlainText().startsWith(QStringLiteral("Dieser Tonträger")));
    }

    void knopfsaetzeUndAntworten()
    {
        const QStringList ok{"&OK"};
        const QList<QPair<int, QStringList>> saetze = {
            {0, ok},
            {11, {"&OK", "E&xit "}},
            {22, {"&Ja", "&Nein"}},
            {32, {"&Ja", "&Nein", "E&xit "}},
            {40, {"&Wiederholen", "E&xit "}},
            {53, {"&Ignorieren", "&Wiederholen", "E&xit "}},
            {60, {"&OK", "B&eenden "}},
            {99, {"&OK", "B&eenden "}},
            {-5, ok},
        };
        for (const auto& [typ, erwartet] : saetze) {
            frmMsgNimb box;
            box.Vorbereiten(M(QStringLiteral("Text"), typ));
            QCOMPARE(SichtbareKnoepfe(box), erwartet);
            // The row is centred in the frame.
            int links = box.fraMsgButton->width(), rechts = 0;
            for (QPushButton* b : box.cmdButton)
                if (!b->isHidden()) {
                    links = qMin(links, b->x());
                    rechts = qMax(rechts, b->geometry().right());
                }
            QVERIFY(qAbs(links - (box.fraMsgButton->width() - 1 - rechts)) <= 1);
        }

        // Each button answers with its word.
        const QList<std::tuple<int, int, QString>> antworten = {
            {0, 0, "Ok"},          {1, 20, "Ja"},          {2, 20, "Nein"},   {3, 10, "Exit"},
            {4, 50, "Ignorieren"}, {5, 40, "Wiederholen"}, {6, 60, "Beenden"},
        };
        for (const auto& [index, typ, wort] : antworten) {
            frmMsgNimb box;
            box.Vorbereiten(M(QStringLiteral("Text"), typ));
            Waehrenddessen([&box, index = index] { QTest::mouseClick(Knopf(&box, index), Qt::LeftButton); });
            QCOMPARE(box.Anzeigen(), wort);
        }
    }

    void symbolUndKlangNachEinern()
    {
        const QStringList klang = {"Infozeichen.wav", "Infozeichen.wav", "Fragezeichen.wav",
                                   "Ausrufezeichen.wav", "Stoppzeichen.wav"};
        for (int einer = 0; einer <= 9; ++einer) {
            Attrappen::klang().gespielt.clear();
            frmMsgNimb box;
            box.Vorbereiten(M(QStringLiteral("Text"), 20 + einer));
            for (int i = 1; i <= 4; ++i)
                QCOMPARE(!box.imgMsgIcon[i]->isHidden(), i == einer);
            if (einer <= 4)
                QCOMPARE(Attrappen::klang().gespielt,
                         QStringList{Testumgebung::programmOrdner() + klang[einer]});
            else
                QVERIFY(Attrappen::klang().gespielt.isEmpty());
        }
        // The icon sits left of the text.
        frmMsgNimb box;
        box.Vorbereiten(M(QStringLiteral("Text"), 3));
        QVERIFY(box.imgMsgIcon[3]->geometry().right() < box.txtMsgText->x());
        QVERIFY(!box.imgMsgIcon[3]->grab().toImage().isNull());
    }

    void standardknopfUndFokus()
    {
        {   // Type 22 with default 2: "Nein" has the focus and answers Enter.
            frmMsgNimb box;
            box.Vorbereiten(M(QStringLiteral("Löschen?"), 22, 2));
            box.show();
            QCOMPARE(box.focusWidget(), Knopf(&box, 2));
            QVERIFY(Knopf(&box, 2)->isDefault());
            QVERIFY(!Knopf(&box, 1)->isDefault());
            QTest::keyClick(&box, Qt::Key_Return);
            QVERIFY(!box.isVisible());
            QCOMPARE(box.Ergebnis(), QString("Nein"));
        }
        // Default 7, a default the set does not show, or nonsense: no default at all, and
        // Enter does not answer the box.
        for (int standard : {7, 0, 3, -1, 12}) {
            frmMsgNimb box;
            box.Vorbereiten(M(QStringLiteral("Löschen?"), 22, standard));
            box.show();
            for (QPushButton* b : box.cmdButton)
                QVERIFY(!b->isDefault());
            QTest::keyClick(&box, Qt::Key_Return);
            QVERIFY(box.isVisible());
            box.close();
            QCOMPARE(box.Ergebnis(), QString());
        }
    }

    void countdown()
    {
        FalscheUhr& uhr = Attrappen::uhr();
        frmMsgNimb box;
        box.Vorbereiten(M(QStringLiteral("Gleich geht es weiter."), 1, 0, 10));
        bool fertig = false;
        Waehrenddessen([&] {
            QVERIFY(box.isVisible());
            QVERIFY(!box.isModal());
            QCOMPARE(box.windowTitle(), QString("Titel (10)"));
            for (int n = 9; n >= 1; --n) {
                uhr.vorruecken(1000);
                QCOMPARE(box.windowTitle(), QStringLiteral("Titel (%1)").arg(n));
                QVERIFY(box.isVisible());
            }
            uhr.vorruecken(1000);
            QVERIFY(!box.isVisible());
            QVERIFY(!box.Timer->isEnabled());
            fertig = true;
        });
        QCOMPARE(box.Anzeigen(), QString());
        QVERIFY(fertig);

        // An answer before the end stops the count-down.
        frmMsgNimb zweite;
        zweite.Vorbereiten(M(QStringLiteral("Weiter?"), 20, 1, 5));
        Waehrenddessen([&] {
            uhr.vorruecken(2000);
            QCOMPARE(zweite.windowTitle(), QString("Titel (3)"));
            QTest::mouseClick(Knopf(&zweite, 1), Qt::LeftButton);
            QVERIFY(!zweite.Timer->isEnabled());
        });
        QCOMPARE(zweite.Anzeigen(), QString("Ja"));
        // Esc during the count-down, and the close box, answer with an empty text.
        zweite.Vorbereiten(M(QStringLiteral("Frage"), 32, 1, 4));
        Waehrenddessen([&] { QTest::keyClick(&zweite, Qt::Key_Escape); });
        QCOMPARE(zweite.Anzeigen(), QString());
        zweite.Vorbereiten(M(QStringLiteral("Frage"), 32, 1));
        Waehrenddessen([&] { zweite.close(); });
        QCOMPARE(zweite.Anzeigen(), QString());

        // One second: a modal box without count-down, as the error messages use it.
        frmMsgNimb fehler;
        fehler.Vorbereiten(M(QStringLiteral("53 Datei nicht gefunden"), 3, 0, 1));
        Waehrenddessen([&] {
            QVERIFY(fehler.isModal());
            QVERIFY(!fehler.Timer->isEnabled());
            uhr.vorruecken(5000);
            QVERIFY(fehler.isVisible());
            QCOMPARE(fehler.windowTitle(), QString("Titel"));
            QTest::mouseClick(Knopf(&fehler, 0), Qt::LeftButton);
        });
        QCOMPARE(fehler.Anzeigen(), QString("Ok"));
    }

    void inputNimb()
    {
        {
            frmInputNimb box;
            box.Vorbereiten({QStringLiteral("Neuer Name:"), QStringLiteral("Umbenennen"),
                             QStringLiteral("  Alter Name  ")});
            QCOMPARE(box.size(), QSize(Px(5460), Px(1800)));
            QCOMPARE(box.windowTitle(), QString("Umbenennen"));
            Waehrenddessen([&] {
                QCOMPARE(Attrappen::klang().gespielt,
                         QStringList{Testumgebung::programmOrdner() + "Fragezeichen.wav"});
                QCOMPARE(box.txtInputText->selectedText(), QString("  Alter Name  "));
                QTest::mouseClick(box.cmdOK, Qt::LeftButton);
            });
            QCOMPARE(box.Anzeigen(), QString("Alter Name"));
        }
        {
            frmInputNimb box;
            box.Vorbereiten({QStringLiteral("Name:"), QStringLiteral("T"), QString()});
            Waehrenddessen([&] {
                TasteText(box.txtInputText, QStringLiteral(" Größe "));
                QTest::keyClick(box.txtInputText, Qt::Key_Return);
            });
            QCOMPARE(box.Anzeigen(), QString("Größe"));
        }
        // Exit, Esc and the close box answer with an empty text.
        const std::function<void(frmInputNimb&)> wege[] = {
            [](frmInputNimb& b) { QTest::mouseClick(b.cmdExit, Qt::LeftButton); },
            [](frmInputNimb& b) { QTest::keyClick(&b, Qt::Key_Escape); },
            [](frmInputNimb& b) { b.close(); },
        };
        for (const auto& weg : wege) {
            frmInputNimb box;
            box.Vorbereiten({QStringLiteral("Name:"), QStringLiteral("T"), QStringLiteral("Wert")});
            Waehrenddessen([&] { weg(box); });
            QCOMPARE(box.Anzeigen(), QString());
        }
        // A long prompt makes the box taller rather than cutting it off.
        frmInputNimb lang;
        lang.Vorbereiten({QStringLiteral("Bitte den Namen der neuen Abspielliste eingeben. ").repeated(6),
                          QStringLiteral("T"), QString()});
        QVERIFY(lang.height() > Px(1800));
        QVERIFY(lang.lblText->geometry().bottom() < lang.txtInputText->y());
    }

    void fensterPlatzieren()
    {
        const QRect flaeche = QGuiApplication::primaryScreen()->availableGeometry();
        QWidget bezug;
        bezug.setGeometry(flaeche.x() + 300, flaeche.y() + 200, 200, 100);
        QWidget fenster;
        fenster.resize(100, 50);
        const QPoint o = flaeche.topLeft();
        const QList<QPair<QString, QPoint>> faelle = {
            {"center", o + QPoint(350, 225)}, {"CENTER", o + QPoint(350, 225)},
            {"right", o + QPoint(510, 225)},  {"Left", o + QPoint(190, 225)},
            {"below", o + QPoint(350, 310)},  {"above", o + QPoint(350, 140)},
        };
        for (const auto& [position, ziel] : faelle) {
            FensterPlatzieren(&fenster, &bezug, position, 10);
            QCOMPARE(fenster.pos(), ziel);
            QCOMPARE(fenster.size(), QSize(100, 50));
        }
        // The window stays inside the work area.
        bezug.move(flaeche.right() - 150, flaeche.top());
        FensterPlatzieren(&fenster, &bezug, "right", 10);
        QCOMPARE(fenster.x(), flaeche.x() + flaeche.width() - 100);
        FensterPlatzieren(&fenster, &bezug, "above", 10);
        QCOMPARE(fenster.y(), flaeche.y());
        // Without a reference window: centred on the screen.
        FensterPlatzieren(&fenster, nullptr, "left", 10);
        QCOMPARE(fenster.geometry().center(), flaeche.center());
        FensterPlatzieren(nullptr, &bezug, "center", 10);
        QVERIFY(!fenster.isVisible());
    }

    void dateifilter()
    {
        QCOMPARE(DateifilterUmwandeln("Datenbank (*.db)|*.db|alle Dateien (*.*)|*.*"),
                 QStringList({"Datenbank (*.db)", "alle Dateien (*)"}));
        QCOMPARE(DateifilterUmwandeln("Bilder|*.jpg;*.png;*.bmp|Text (*.txt)|*.txt"),
                 QStringList({"Bilder (*.jpg *.png *.bmp)", "Text (*.txt)"}));
        QCOMPARE(DateifilterUmwandeln("Liste (alt)|*.lst"), QStringList({"Liste (*.lst)"}));
        QCOMPARE(DateifilterUmwandeln("Playlist"), QStringList({"Playlist (*)"}));
        QVERIFY(DateifilterUmwandeln(QString()).isEmpty());
    }

    void dateiUndOrdnerDialog()
    {
        EchterDialogdienst dienst;
        const QString ordner = Testordner("dialoge");
        DateiSchreiben(ordner + "a.db", "x");
        DateiSchreiben(ordner + "b.db", "x");

        Dateiauswahl oeffnen{u"Datenbank öffnen"_s, u"alle Dateien (*.*)|*.*|Datenbank (*.db)|*.db"_s,
                             QString(), ordner, 2, false, false};
        ImDateidialog([&](QFileDialog& d) {
            QCOMPARE(d.windowTitle(), u"Datenbank öffnen"_s);
            QCOMPARE(d.nameFilters(), QStringList({"alle Dateien (*)", "Datenbank (*.db)"}));
            QCOMPARE(d.selectedNameFilter(), u"Datenbank (*.db)"_s);
            QCOMPARE(QDir(d.directory()).canonicalPath(), QDir(ordner).canonicalPath());
            QCOMPARE(d.acceptMode(), QFileDialog::AcceptOpen);
            d.selectFile(ordner + "b.db");
        });
        QCOMPARE(dienst.Datei(oeffnen), ordner + "b.db");

        // Saving adds the extension of the chosen filter.
        Dateiauswahl speichern{u"Speichern"_s, u"Datenbank (*.db)|*.db|alle Dateien (*.*)|*.*"_s,
                               u"Neu"_s, ordner, 1, true, false};
        ImDateidialog([](QFileDialog& d) { QCOMPARE(d.acceptMode(), QFileDialog::AcceptSave); });
        QCOMPARE(dienst.Datei(speichern), ordner + "Neu.db");

        // Several files come back one a line; a cancel as an empty text.
        Dateiauswahl mehrere = oeffnen;
        mehrere.mehrfach = true;
        ImDateidialog([](QFileDialog& d) {
            QCOMPARE(d.fileMode(), QFileDialog::ExistingFiles);
            auto* zeile = d.findChild<QLineEdit*>("fileNameEdit");
            QVERIFY(zeile);
            zeile->setText("\"a.db\" \"b.db\"");
        });
        QCOMPARE(dienst.Datei(mehrere), ordner + "a.db\n" + ordner + "b.db");
        Waehrenddessen([&] { QApplication::activeModalWidget()->close(); });
        QCOMPARE(dienst.Datei(oeffnen), QString());

        // The folder comes back with its trailing "/", a cancel as an empty text.
        QDir().mkpath(ordner + "Musik");
        ImDateidialog([&](QFileDialog& d) { d.selectFile(ordner + "Musik"); });
        QCOMPARE(dienst.Ordner("Ordner", ordner), ordner + "Musik/");
        Waehrenddessen([&] { QApplication::activeModalWidget()->close(); });
        QCOMPARE(dienst.Ordner("Ordner", ordner), QString());
    }

    void dienstZeigtBoxUeberDemHauptfenster()
    {
        QWidget haupt;
        haupt.setObjectName("Ausgabebox");
        const QRect flaeche = QGuiApplication::primaryScreen()->availableGeometry();
        haupt.setGeometry(flaeche.x() + 40, flaeche.y() + 30, 700, 500);
        haupt.show();
        EchterDialogdienst dienst;
        Waehrenddessen([&] {
            auto* box = qobject_cast<frmMsgNimb*>(QApplication::activeModalWidget());
            QVERIFY(box);
            QCOMPARE(box->parentWidget(), &haupt);
            QVERIFY((box->frameGeometry().center() - haupt.frameGeometry().center()).manhattanLength() <= 2);
            QTest::mouseClick(Knopf(box, 1), Qt::LeftButton);
        });
        QCOMPARE(dienst.MsgNimb(M(Zeilen(4), 22, 2)), QString("Ja"));
        QVERIFY(!haupt.findChild<frmMsgNimb*>());

        Waehrenddessen([&] {
            auto* box = qobject_cast<frmInputNimb*>(QApplication::activeModalWidget());
            QVERIFY(box);
            box->txtInputText->setText(" neu ");
            QTest::mouseClick(box->cmdOK, Qt::LeftButton);
        });
        QCOMPARE(dienst.InputNimb({"Name:", "T", "alt"}), QString("neu"));

        // Installed as the program's service, the free function fills MsgAntwort.
        EchteDialogeAnmelden();
        D().setzeDialoge(nullptr);
        QVERIFY(dynamic_cast<EchterDialogdienst*>(&D().dialoge()));
        MsgAntwort = "alt";
        Waehrenddessen([] { QApplication::activeModalWidget()->close(); });
        QCOMPARE(MsgNimb("Text", 0, 0, "T", 0), QString());
        QCOMPARE(MsgAntwort, QString());
        Attrappen::installieren();
    }

    void farben()
    {
        // The box's own colours, and the error background behind the text.
        frmMsgNimb box;
        box.Vorbereiten(M(QStringLiteral("Fehler"), 3, 0, 1));
        QCOMPARE(box.palette().color(QPalette::Window), QColor("#e3eaf4"));
        QCOMPARE(box.txtMsgText->palette().color(QPalette::Text), QColor("#002335"));
        Meldung fehler = M(QStringLiteral("Fehler"), 3);
        fehler.hintergrund = Farbe::FehlerHintergrund;
        box.Vorbereiten(fehler);
        QCOMPARE(box.txtMsgText->palette().color(QPalette::Base), QColor("#ffc0c0"));
        QCOMPARE(box.palette().color(QPalette::WindowText), QColor("#002335"));

        // The gradient runs from top to bottom, or from left to right.
        VerlaufFenster fenster;
        fenster.resize(200, 100);
        QImage bild = fenster.grab().toImage();
        QVERIFY(Nahe(bild.pixelColor(100, 0), QColor("#e3eaf4")));
        QVERIFY(Nahe(bild.pixelColor(100, 99), QColor("#adcade")));
        QVERIFY(Nahe(bild.pixelColor(0, 50), bild.pixelColor(199, 50)));
        QVERIFY(!Nahe(bild.pixelColor(100, 50), bild.pixelColor(100, 0)));
        fenster.setFarbverlauf(Farbe::VerlaufEnde, Farbe::StandardHintergrund, VerlaufWaagerecht);
        bild = fenster.grab().toImage();
        QVERIFY(Nahe(bild.pixelColor(0, 50), QColor("#adcade")));
        QVERIFY(Nahe(bild.pixelColor(199, 50), QColor("#e3eaf4")));
        QVERIFY(Nahe(bild.pixelColor(100, 0), bild.pixelColor(100, 99)));

        // Any widget, through the helper; its children paint on top.
        QWidget flaeche;
        flaeche.resize(120, 60);
        FarbverlaufSetzen(&flaeche, 255, 16711680);
        bild = flaeche.grab().toImage();
        QVERIFY(Nahe(bild.pixelColor(60, 0), Qt::red) && Nahe(bild.pixelColor(60, 59), Qt::blue));
        FarbverlaufSetzen(&flaeche, 65280, 65280, VerlaufWaagerecht);
        QVERIFY(Nahe(flaeche.grab().toImage().pixelColor(60, 30), Qt::green));

        // System colours, also as signed 32-bit numbers, come from the palette.
        QVERIFY(IstSystemfarbe(0x8000000F) && IstSystemfarbe(-2147483633));
        QVERIFY(!IstSystemfarbe(Farbe::StandardHintergrund) && !IstSystemfarbe(0xC000000F));
        QPalette pal;
        pal.setColor(QPalette::Button, QColor("#123456"));
        pal.setColor(QPalette::Base, QColor("#fedcba"));
        QCOMPARE(FarbeAusNummer(0x8000000F, pal), QColor("#123456"));
        QCOMPARE(FarbeAusNummer(-2147483633, pal), QColor("#123456"));
        QCOMPARE(FarbeAusNummer(0x80000005, pal), QColor("#fedcba"));
        QCOMPARE(FarbeAusNummer(Farbe::WarnHintergrund, pal), QColor("#ffe0c0"));
        // A window painting the button face gets the colour its palette has now.
        fenster.resize(50, 50);
        fenster.setPalette(pal);
        fenster.setFarbverlauf(0x8000000F, 0x80000005);
        bild = fenster.grab().toImage();
        QVERIFY(Nahe(bild.pixelColor(25, 0), QColor("#123456")));
        QVERIFY(Nahe(bild.pixelColor(25, 49), QColor("#fedcba")));
    }
};

RK_TEST_MAIN(TestMeldungen)
#include "tst_meldungen.moc"
