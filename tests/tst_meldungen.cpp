// The message and input boxes, window placing, the real dialog service and the gradient.
#include "support/Modal.h"
#include "support/Testumgebung.h"

#include "platform/Einheiten.h"
#include "shell/EchteDialoge.h"
#include "shell/Farbverlauf.h"
#include "shell/FensterPlatzieren.h"
#include "shell/Globale.h"
#include "shell/frmInputNimb.h"
#include "shell/frmMsgNimb.h"

#include <QComboBox>
#include <QFileDialog>
#include <QFrame>
#include <QLabel>
#include <QLineEdit>
#include <QMessageBox>
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
    return {.text = text, .typ = typ, .standard = standard, .titel = u"Titel"_s, .sekunden = sekunden};
}

QPushButton* Knopf(QWidget* box, int i) { return box->findChild<QPushButton*>(u"cmdButton(%1)"_s.arg(i)); }

// Captions of the shown buttons from left to right.
QStringList SichtbareKnoepfe(frmMsgNimb& box)
{
    QMap<int, QString> reihe;
    for (QPushButton* b : box.cmdButton)
        if (!b->isHidden())
            reihe.insert(b->x(), b->text());
    return reihe.values();
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
    ModalBedienen([schritte](QDialog* d) {
        if (auto* f = qobject_cast<QFileDialog*>(d))
            schritte(*f);
        d->accept();
    });
}

bool Nahe(const QColor& a, const QColor& b)
{
    return qAbs(a.red() - b.red()) <= 1 && qAbs(a.green() - b.green()) <= 1 && qAbs(a.blue() - b.blue()) <= 1;
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
        // Empty, 1, 4, 10, 11 and 30 lines: text and window height, and from 11 lines the
        // wide box; 30 lines are past the highest text box already.
        const QList<std::tuple<QString, int, int, bool>> faelle = {
            {QString(), 900, 1905, false},   {u"Eine Zeile."_s, 900, 1905, false}, {Zeilen(4), 1040, 2440, false},
            {Zeilen(10), 2600, 4000, false}, {Zeilen(11), 2860, 4260, true},       {Zeilen(30), 7700, 9100, true}};
        for (const auto& [text, textHoehe, fensterHoehe, breit] : faelle) {
            frmMsgNimb box;
            box.Vorbereiten(M(text));
            QCOMPARE(box.txtMsgText->height(), Px(textHoehe));
            QCOMPARE(box.size(), QSize(Px(breit ? 7725 : 6180), Px(fensterHoehe)));
            QVERIFY(box.fraMsgButton->y() >= box.txtMsgText->geometry().bottom());
        }
        // A long line counts with its wrapped lines.
        frmMsgNimb box;
        box.Vorbereiten(M(u"Dieser Tonträger hat keinen Musikpfad. "_s.repeated(12)));
        QVERIFY(box.Textzeilen() >= 4);
        QCOMPARE(box.txtMsgText->height(), Px(qBound(900, box.Textzeilen() * 260, 7700)));
    }

    void typ()
    {
        // The tens choose the buttons, nonsense the first set.
        const QList<QPair<int, QStringList>> saetze = {
            {0, {"&OK"}}, {11, {"&OK", "E&xit "}}, {22, {"&Ja", "&Nein"}}, {32, {"&Ja", "&Nein", "E&xit "}},
            {40, {"&Wiederholen", "E&xit "}}, {53, {"&Ignorieren", "&Wiederholen", "E&xit "}},
            {60, {"&OK", "B&eenden "}}, {99, {"&OK", "B&eenden "}}, {-5, {"&OK"}}};
        for (const auto& [typ, erwartet] : saetze) {
            frmMsgNimb box;
            box.Vorbereiten(M(u"Text"_s, typ));
            QCOMPARE(SichtbareKnoepfe(box), erwartet);
        }
        // Each button answers with its word.
        const QList<std::tuple<int, int, QString>> antworten = {
            {0, 0, "Ok"},          {1, 20, "Ja"},          {2, 20, "Nein"},   {3, 10, "Exit"},
            {4, 50, "Ignorieren"}, {5, 40, "Wiederholen"}, {6, 60, "Beenden"}};
        for (const auto& [index, typ, wort] : antworten) {
            frmMsgNimb box;
            box.Vorbereiten(M(u"Text"_s, typ));
            Waehrenddessen([&box, index = index] { QTest::mouseClick(Knopf(&box, index), Qt::LeftButton); });
            QCOMPARE(box.Anzeigen(), wort);
        }
        // The units choose icon and sound; from 5 on there are neither.
        const QStringList klang = {"Infozeichen.wav", "Infozeichen.wav", "Fragezeichen.wav", "Ausrufezeichen.wav",
                                   "Stoppzeichen.wav"};
        for (int einer = 0; einer <= 9; ++einer) {
            Attrappen::klang().gespielt.clear();
            frmMsgNimb box;
            box.Vorbereiten(M(u"Text"_s, 20 + einer));
            for (int i = 1; i <= 4; ++i)
                QCOMPARE(!box.imgMsgIcon[i]->isHidden(), i == einer);
            QCOMPARE(Attrappen::klang().gespielt,
                     einer <= 4 ? QStringList{Testumgebung::programmOrdner() + klang[einer]} : QStringList());
        }
    }

    void standardknopf()
    {
        // Type 22 with default 2: "Nein" has the focus and answers Enter. Default 7, a
        // default the set does not show, or nonsense: no default at all, and Enter does not
        // answer the box.
        for (int standard : {2, 7, 0, 3, -1, 12}) {
            frmMsgNimb box;
            box.Vorbereiten(M(u"Löschen?"_s, 22, standard));
            box.show();
            for (int i = 0; i < 7; ++i)
                QCOMPARE(Knopf(&box, i)->isDefault(), standard == 2 && i == 2);
            if (standard == 2)
                QCOMPARE(box.focusWidget(), Knopf(&box, 2));
            QTest::keyClick(&box, Qt::Key_Return);
            QCOMPARE(box.isVisible(), standard != 2);
            box.close();
            QCOMPARE(box.Ergebnis(), standard == 2 ? u"Nein"_s : QString());
        }
    }

    void countdown()
    {
        // The title counts the seconds down; at the end the box closes with an empty answer.
        FalscheUhr& uhr = Attrappen::uhr();
        frmMsgNimb box;
        box.Vorbereiten(M(u"Gleich geht es weiter."_s, 1, 0, 10));
        bool fertig = false;
        Waehrenddessen([&] {
            QVERIFY(!box.isModal());
            for (int n = 10; n >= 1; --n) {
                QCOMPARE(box.windowTitle(), u"Titel (%1)"_s.arg(n));
                QVERIFY(box.isVisible());
                uhr.vorruecken(1000);
            }
            QVERIFY(!box.isVisible() && !box.Timer->isEnabled());
            fertig = true;
        });
        QCOMPARE(box.Anzeigen(), QString());
        QVERIFY(fertig);

        // An answer before the end stops the count-down; Esc and the close box answer with
        // an empty text.
        box.Vorbereiten(M(u"Weiter?"_s, 20, 1, 5));
        Waehrenddessen([&] {
            uhr.vorruecken(2000);
            QCOMPARE(box.windowTitle(), u"Titel (3)"_s);
            QTest::mouseClick(Knopf(&box, 1), Qt::LeftButton);
            QVERIFY(!box.Timer->isEnabled());
        });
        QCOMPARE(box.Anzeigen(), u"Ja"_s);
        box.Vorbereiten(M(u"Frage"_s, 32, 1, 4));
        Waehrenddessen([&] { QTest::keyClick(&box, Qt::Key_Escape); });
        QCOMPARE(box.Anzeigen(), QString());
        box.Vorbereiten(M(u"Frage"_s, 32, 1));
        Waehrenddessen([&] { box.close(); });
        QCOMPARE(box.Anzeigen(), QString());

        // One second: a modal box without count-down, as the error messages use it.
        box.Vorbereiten(M(u"53 Datei nicht gefunden"_s, 3, 0, 1));
        Waehrenddessen([&] {
            uhr.vorruecken(5000);
            QVERIFY(box.isModal() && box.isVisible());
            QCOMPARE(box.windowTitle(), u"Titel"_s);
            QTest::mouseClick(Knopf(&box, 0), Qt::LeftButton);
        });
        QCOMPARE(box.Anzeigen(), u"Ok"_s);
    }

    void inputNimb()
    {
        // The default comes selected, with the question sound; the answer is trimmed.
        frmInputNimb box;
        box.Vorbereiten({u"Neuer Name:"_s, u"Umbenennen"_s, u"  Alter Name  "_s});
        Waehrenddessen([&] {
            QCOMPARE(Attrappen::klang().gespielt, QStringList{Testumgebung::programmOrdner() + "Fragezeichen.wav"});
            QCOMPARE(box.txtInputText->selectedText(), u"  Alter Name  "_s);
            QTest::mouseClick(box.cmdOK, Qt::LeftButton);
        });
        QCOMPARE(box.Anzeigen(), u"Alter Name"_s);
        box.Vorbereiten({u"Name:"_s, u"T"_s, QString()});
        Waehrenddessen([&] {
            TasteText(box.txtInputText, u" Größe "_s);
            QTest::keyClick(box.txtInputText, Qt::Key_Return);
        });
        QCOMPARE(box.Anzeigen(), u"Größe"_s);
        // Exit, Esc and the close box answer with an empty text.
        const std::function<void()> wege[] = {[&] { QTest::mouseClick(box.cmdExit, Qt::LeftButton); },
                                              [&] { QTest::keyClick(&box, Qt::Key_Escape); }, [&] { box.close(); }};
        for (const auto& weg : wege) {
            box.Vorbereiten({u"Name:"_s, u"T"_s, u"Wert"_s});
            Waehrenddessen(weg);
            QCOMPARE(box.Anzeigen(), QString());
        }
        // A long prompt makes the box taller rather than cutting it off.
        box.Vorbereiten({u"Bitte den Namen der neuen Abspielliste eingeben. "_s.repeated(6), u"T"_s, QString()});
        QVERIFY(box.height() > Px(1800));
        QVERIFY(box.lblText->geometry().bottom() < box.txtInputText->y());
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
            {"CENTER", o + QPoint(350, 225)}, {"right", o + QPoint(510, 225)}, {"Left", o + QPoint(190, 225)},
            {"below", o + QPoint(350, 310)},  {"above", o + QPoint(350, 140)}};
        for (const auto& [position, ziel] : faelle) {
            FensterPlatzieren(&fenster, &bezug, position, 10);
            QCOMPARE(fenster.geometry(), QRect(ziel, QSize(100, 50)));
        }
        // The window stays inside the work area; without a reference window it is centred
        // on the screen.
        bezug.move(flaeche.right() - 150, flaeche.top());
        FensterPlatzieren(&fenster, &bezug, "right", 10);
        QCOMPARE(fenster.x(), flaeche.x() + flaeche.width() - 100);
        FensterPlatzieren(&fenster, &bezug, "above", 10);
        QCOMPARE(fenster.y(), flaeche.y());
        FensterPlatzieren(&fenster, nullptr, "left", 10);
        QCOMPARE(fenster.geometry().center(), flaeche.center());
        FensterPlatzieren(nullptr, &bezug, "center", 10);
    }

    void echterDialogdienst()
    {
        QCOMPARE(DateifilterUmwandeln("Bilder|*.jpg;*.png;*.bmp|Text (*.txt)|*.txt|alle Dateien (*.*)|*.*"),
                 QStringList({"Bilder (*.jpg *.png *.bmp)", "Text (*.txt)", "alle Dateien (*)"}));
        QCOMPARE(DateifilterUmwandeln("Liste (alt)|*.lst"), QStringList({"Liste (*.lst)"}));
        QCOMPARE(DateifilterUmwandeln("Playlist"), QStringList({"Playlist (*)"}));
        QVERIFY(DateifilterUmwandeln(QString()).isEmpty());

        EchterDialogdienst dienst;
        const QString ordner = Testordner("dialoge");
        DateiSchreiben(ordner + "a.db", "x");
        DateiSchreiben(ordner + "b.db", "x");
        // The filter index counts from 1; the dialog starts in the folder given.
        Dateiauswahl oeffnen{u"Datenbank öffnen"_s, u"alle Dateien (*.*)|*.*|Datenbank (*.db)|*.db"_s,
                             QString(), ordner, 2, false, false, true};
        ImDateidialog([&](QFileDialog& d) {
            QCOMPARE(d.selectedNameFilter(), u"Datenbank (*.db)"_s);
            QCOMPARE(QDir(d.directory()).canonicalPath(), QDir(ordner).canonicalPath());
            d.selectFile(ordner + "b.db");
        });
        QCOMPARE(dienst.Datei(oeffnen), ordner + "b.db");
        // Saving adds the extension of the chosen filter.
        Dateiauswahl speichern{u"Speichern"_s, u"Datenbank (*.db)|*.db|alle Dateien (*.*)|*.*"_s,
                               u"Neu"_s, ordner, 1, true, false, true};
        ImDateidialog([](QFileDialog&) {});
        QCOMPARE(dienst.Datei(speichern), ordner + "Neu.db");
        // A caller that refuses an existing file itself gets it without the toolkit's
        // question (a question left open would keep the dialog from closing).
        speichern.ueberschreibenFragen = false;
        ImDateidialog([&](QFileDialog& d) {
            d.selectFile(ordner + "a.db");
            QTimer::singleShot(50, qApp, [] {
                if (auto* frage = qobject_cast<QMessageBox*>(QApplication::activeModalWidget()))
                    frage->reject();
            });
        });
        QCOMPARE(dienst.Datei(speichern), ordner + "a.db");
        // Several files come back one a line.
        Dateiauswahl mehrere = oeffnen;
        mehrere.mehrfach = true;
        ImDateidialog([](QFileDialog& d) {
            if (auto* zeile = d.findChild<QLineEdit*>("fileNameEdit"))
                zeile->setText("\"a.db\" \"b.db\"");
        });
        QCOMPARE(dienst.Datei(mehrere), ordner + "a.db\n" + ordner + "b.db");
        // The folder comes back with its trailing "/", a cancel as an empty text.
        QDir().mkpath(ordner + "Musik");
        ImDateidialog([&](QFileDialog& d) { d.selectFile(ordner + "Musik"); });
        QCOMPARE(dienst.Ordner("Ordner", ordner), ordner + "Musik/");
        ModalBedienen([](QDialog* d) { d->reject(); });
        QCOMPARE(dienst.Ordner("Ordner", ordner), QString());
        // A list gives the index of the entry chosen, a cancel -1.
        ModalBedienen([](QDialog* d) {
            auto* liste = d->findChild<QComboBox*>();
            QVERIFY(liste && !liste->isEditable() && liste->count() == 2);
            liste->setCurrentIndex(1);
            d->accept();
        });
        QCOMPARE(dienst.Auswahl("Scanquelle wählen", "Scanner:", {"test:0", "test:1"}), 1);
        ModalBedienen([](QDialog* d) { d->reject(); });
        QCOMPARE(dienst.Auswahl("Scanquelle wählen", "Scanner:", {"test:0"}), -1);

        // A box stands centred over the main window, and goes when answered.
        QWidget haupt;
        haupt.setObjectName("Ausgabebox");
        const QRect flaeche = QGuiApplication::primaryScreen()->availableGeometry();
        haupt.setGeometry(flaeche.x() + 40, flaeche.y() + 30, 700, 500);
        haupt.show();
        ModalBedienen([&](QDialog* box) {
            QCOMPARE(box->parentWidget(), &haupt);
            QVERIFY((box->frameGeometry().center() - haupt.frameGeometry().center()).manhattanLength() <= 2);
            QTest::mouseClick(Knopf(box, 1), Qt::LeftButton);
        });
        QCOMPARE(dienst.MsgNimb(M(Zeilen(4), 22, 2)), u"Ja"_s);
        QVERIFY(!haupt.findChild<frmMsgNimb*>());

        // Installed as the program's service, the free function fills MsgAntwort.
        EchteDialogeAnmelden();
        D().setzeDialoge(nullptr);
        MsgAntwort = "alt";
        ModalBedienen([](QDialog* d) { d->reject(); });
        QCOMPARE(MsgNimb("Text", 0, 0, "T", 0), QString());
        QCOMPARE(MsgAntwort, QString());
        Attrappen::installieren();
    }

    void farben()
    {
        // The error background behind the text.
        frmMsgNimb box;
        Meldung fehler = M(u"Fehler"_s, 3);
        fehler.hintergrund = Farbe::FehlerHintergrund;
        box.Vorbereiten(fehler);
        QCOMPARE(box.txtMsgText->palette().color(QPalette::Base), QColor("#ffc0c0"));

        // The gradient runs from top to bottom, or from left to right.
        VerlaufFenster fenster;
        fenster.resize(200, 100);
        QImage bild = fenster.grab().toImage();
        QVERIFY(Nahe(bild.pixelColor(100, 0), QColor("#e3eaf4")) && Nahe(bild.pixelColor(100, 99), QColor("#adcade")));
        QVERIFY(Nahe(bild.pixelColor(0, 50), bild.pixelColor(199, 50)));
        fenster.setFarbverlauf(Farbe::VerlaufEnde, Farbe::StandardHintergrund, VerlaufWaagerecht);
        bild = fenster.grab().toImage();
        QVERIFY(Nahe(bild.pixelColor(0, 50), QColor("#adcade")) && Nahe(bild.pixelColor(199, 50), QColor("#e3eaf4")));
        QVERIFY(Nahe(bild.pixelColor(100, 0), bild.pixelColor(100, 99)));
        // Any widget, through the helper.
        QWidget flaeche;
        flaeche.resize(120, 60);
        FarbverlaufSetzen(&flaeche, 255, 16711680);
        bild = flaeche.grab().toImage();
        QVERIFY(Nahe(bild.pixelColor(60, 0), Qt::red) && Nahe(bild.pixelColor(60, 59), Qt::blue));

        // System colours, also as signed 32-bit numbers, come from the palette, the one the
        // window has now.
        QVERIFY(!IstSystemfarbe(Farbe::StandardHintergrund) && !IstSystemfarbe(0xC000000F));
        QPalette pal;
        pal.setColor(QPalette::Button, QColor("#123456"));
        pal.setColor(QPalette::Base, QColor("#fedcba"));
        QCOMPARE(FarbeAusNummer(-2147483633, pal), QColor("#123456"));
        fenster.resize(50, 50);
        fenster.setPalette(pal);
        fenster.setFarbverlauf(0x8000000F, 0x80000005);
        bild = fenster.grab().toImage();
        QVERIFY(Nahe(bild.pixelColor(25, 0), QColor("#123456")) && Nahe(bild.pixelColor(25, 49), QColor("#fedcba")));
    }
};

RK_TEST_MAIN(TestMeldungen)
#include "tst_meldungen.moc"
