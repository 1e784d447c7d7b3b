// Each command takes the one error route: an unexpected error ends it with the common error
// box under the procedure's name. Emptying and deleting the list ignore errors.
#include "collections/frmCDgenerieren.h"

#include "shell/Ausgabebox.h"

#include "auxiliary/Hilfe.h"
#include "catalogue/Datensteuerung.h"
#include "catalogue/FlexGrid.h"
#include "catalogue/Recordset.h"
#include "collections/Ausschlusslisten.h"
#include "collections/frmBandAusschlussliste.h"
#include "collections/frmStilausschlussliste.h"
#include "outputs/Druckflaeche.h"
#include "platform/Dateikopie.h"
#include "platform/Dialogdienst.h"
#include "platform/Dienste.h"
#include "platform/Einheiten.h"
#include "platform/Laufzeitfehler.h"
#include "platform/Mauszeiger.h"
#include "platform/Pfade.h"
#include "platform/Textdatei.h"
#include "platform/Uhr.h"
#include "shell/Einstellungen.h"
#include "shell/FensterPlatzieren.h"
#include "shell/Globale.h"
#include "shell/Grundregeln.h"
#include "shell/Steuerelemente.h"

#include <QAction>
#include <QCheckBox>
#include <QClipboard>
#include <QCloseEvent>
#include <QCursor>
#include <QDir>
#include <QFileInfo>
#include <QGridLayout>
#include <QGuiApplication>
#include <QHBoxLayout>
#include <QImageReader>
#include <QLabel>
#include <QListWidget>
#include <QMenu>
#include <QMenuBar>
#include <QMouseEvent>
#include <QPrinter>
#include <QProgressBar>
#include <QPushButton>
#include <QStorageInfo>
#include <QVBoxLayout>

#include <algorithm>
#include <cmath>

namespace {

const QString ZielUnbekannt = QStringLiteral(" Zielordner wählen");
const QString StandardListe = QStringLiteral("Liedliste.lst");
const QString ListenFilter = QStringLiteral("Playlist (*.lst)|*.lst|alle Dateien (*.*)|*.*");
const QString TitelGenerieren = QStringLiteral("frmCDgenerieren_cmdGenerieren_Click");
constexpr int Wartezeit = 120;
// The separator of an entry's fields, code 183 of the single-byte code page.
constexpr char16_t Trenner = u'\u00B7';

// A number as the panels write it: with the blank that stands for its sign.
QString MitVorzeichenstelle(int zahl)
{
    return (zahl < 0 ? QString() : QStringLiteral(" ")) + QString::number(zahl);
}

int PanelZahl(const Statusleiste* leiste, int panel)
{
    const QString text = leiste->PanelText(panel);
    return GanzeZahl(text.mid(text.indexOf(u':') + 1));
}

// The width of the running numbers for a list of that many entries; 0 beyond 9999.
int Nummernbreite(qsizetype anzahl)
{
    if (anzahl < 100)
        return 2;
    if (anzahl < 1000)
        return 3;
    if (anzahl < 10000)
        return 4;
    return 0;
}

QString Nummer(qsizetype nummer, int breite)
{
    return QStringLiteral("%1").arg(nummer, breite, 10, QLatin1Char('0'));
}

// The file title a dialog gave: the name without its folder.
QString Dateititel(const QString& pfad) { return QFileInfo(pfad).fileName(); }

} // namespace

frmCDgenerieren::frmCDgenerieren(Ausgabebox& box)
    : VerlaufFenster(&box)
    , m_box(box)
{
    setObjectName(QStringLiteral("frmCDgenerieren"));
    setWindowTitle(QStringLiteral("Tonträger generieren"));
    QPalette p = palette();
    p.setColor(QPalette::WindowText, NummerFarbe(Farbe::StandardText));
    setPalette(p);

    auto beschriftung = [this](int i, const QString& text) {
        auto* l = lblBez.setzen(i, new QLabel(text, this));
        l->setWordWrap(true);
        return l;
    };
    beschriftung(
        0,
        QStringLiteral(
            "Hier erstellen Sie per Zufallsgenerator einen Tonträger aus der angezeigten "
            "Tabelle der Datenbank. Sie können die Tabelle vorher mit der Suchfunktion z.B. "
            "nach Stilrichtung oder per SQL-Anweisung einstellen."));
    beschriftung(1, QStringLiteral("1.)  Liedliste laden, verwenden oder leeren."));
    beschriftung(2, QStringLiteral("2.)  Anzahl der Lieder für den Datenträger festlegen."));
    beschriftung(3, QStringLiteral("3.)  Sammelordner wählen."));
    beschriftung(4, QStringLiteral("4.)  <In Sammelordner kopieren> anklicken."));
    beschriftung(5, QStringLiteral("5.)  Sammelordner manuell auf Datenträger übertragen."));
    beschriftung(6, QStringLiteral("(auf eine CD-ROM passen ~170 MP3/WMA Lieder)"));
    beschriftung(7, QStringLiteral("Anzahl der Lieder:"));
    beschriftung(8, QStringLiteral("Liedliste:"));
    beschriftung(9, QStringLiteral("Liedliste verwenden (0)"))->setWordWrap(false);

    txtAnzahl = new Textfeld(this);
    txtAnzahl->setObjectName(QStringLiteral("txtAnzahl"));
    txtAnzahl->setText(QStringLiteral("170"));
    txtPfad = new Textfeld(this);
    txtPfad->setObjectName(QStringLiteral("txtPfad"));
    txtPfad->setToolTip(QStringLiteral(" Sammelordner wählen"));
    txtPfad->setReadOnly(true);
    cmdOrdnerwahl = Befehlsknopf(this, QStringLiteral("cmdOrdnerwahl"), QStringLiteral("..."),
                                 QStringLiteral(" Sammelordner wählen"));
    cmdGenerieren = Befehlsknopf(this, QStringLiteral("cmdGenerieren"),
                                 QStringLiteral("In Sammelordner &kopieren"));
    cmdAbbrechen = Befehlsknopf(this, QStringLiteral("cmdAbbrechen"), QStringLiteral("&Stopp"));
    cmdAusschussliste = Befehlsknopf(this, QStringLiteral("cmdAusschussliste"),
                                     QStringLiteral("S&tilrichtung ausschließen..."));
    cmdBandAusschluss = Befehlsknopf(this, QStringLiteral("cmdBandAusschluss"),
                                     QStringLiteral("&Band ausschließen..."));

    lstStilausschlussliste = new QListWidget(this);
    lstStilausschlussliste->setObjectName(QStringLiteral("lstStilausschlussliste"));
    lstStilausschlussliste->hide();
    lstBandausschlussliste = new QListWidget(this);
    lstBandausschlussliste->setObjectName(QStringLiteral("lstBandausschlussliste"));
    lstBandausschlussliste->hide();
    lstDrucken = new QListWidget(this);
    lstDrucken->setObjectName(QStringLiteral("lstDrucken"));
    lstDrucken->hide();
    lstLiedliste = new QListWidget(this);
    lstLiedliste->setObjectName(QStringLiteral("lstLiedliste"));
    lstLiedliste->setSelectionMode(QAbstractItemView::ExtendedSelection);
    lstLiedliste->setUniformItemSizes(true);
    lstLiedliste->setMinimumSize(Px(6000), Px(3000));
    lstLiedliste->viewport()->installEventFilter(this);

    chkLiedlisteVerwenden = new QCheckBox(this);
    chkLiedlisteVerwenden->setObjectName(QStringLiteral("chkLiedlisteVerwenden"));
    chkLiedlisteVerwenden->setChecked(true);
    lblBez[9]->setBuddy(chkLiedlisteVerwenden);
    lblNameLiedliste = new QLabel(this);
    lblNameLiedliste->setObjectName(QStringLiteral("lblNameLiedliste"));

    imgVorschau = new Bildfeld(this);
    imgVorschau->setObjectName(QStringLiteral("imgVorschau"));
    imgVorschau->setToolTip(QStringLiteral(" Cover ändern... "));
    imgVorschau->setStretch(true);
    imgVorschau->setFixedSize(Px(1800), Px(1800));
    imgVorschau->setFrameShape(QFrame::Panel);
    imgVorschau->setFrameShadow(QFrame::Raised);

    ProgressBar1 = new QProgressBar(this);
    ProgressBar1->setObjectName(QStringLiteral("ProgressBar1"));
    ProgressBar1->setTextVisible(false);
    staBar = new Statusleiste({80, 85, 70, 85, 105, 0}, this);
    staBar->setObjectName(QStringLiteral("staBar"));
    staBar->setSizeGripEnabled(false);

    Timer1 = D().uhr().neuerZeitgeber(this);
    Timer1->setObjectName(QStringLiteral("Timer1"));
    Timer1->setInterval(1000);
    Timer1->setEnabled(false);

    // Menus.
    Menue = new QMenuBar(this);
    mnuLiedliste = Menue->addMenu(QStringLiteral("&Liedliste"));
    mnuLiedliste->setObjectName(QStringLiteral("mnuLiedliste"));
    auto eintrag = [this](const char* name, const QString& text, QKeySequence taste = {}) {
        QAction* a = mnuLiedliste->addAction(text);
        a->setObjectName(QLatin1String(name));
        a->setShortcut(taste);
        return a;
    };
    mnuCoverLaden = eintrag("mnuCoverLaden", QStringLiteral("&Cover laden..."));
    mnuLiedlisteLaden = eintrag("mnuLiedlisteLaden", QStringLiteral("Liedliste l&aden..."));
    mnuLiedlisteSpeichernUnter
        = eintrag("mnuLiedlisteSpeichernUnter", QStringLiteral("&Speichern unter..."));
    mnuLiedlisteLeeren = eintrag("mnuLiedlisteLeeren", QStringLiteral("L&eeren"));
    mnuLiedlisteLoeschen = eintrag("mnuLiedlisteLoeschen", QStringLiteral("L&öschen..."));
    mnuLiedlisteMarkEntf
        = eintrag("mnuLiedlisteMarkEntf", QStringLiteral("&markierte Lieder entfernen"));
    mnuLiedlisteCopy = eintrag("mnuLiedlisteCopy", QStringLiteral("&Kopieren"),
                               QKeySequence(Qt::CTRL | Qt::Key_C));
    mnuLiedlisteDrucken = eintrag("mnuLiedlisteDrucken", QStringLiteral("&Drucken..."));
    mnuLiedliste->setDefaultAction(mnuLiedlisteLeeren);
    mnuHilfe = Menue->addAction(QStringLiteral("&Hilfe"));
    mnuHilfe->setObjectName(QStringLiteral("mnuHilfe"));
    mnuHilfe->setShortcut(QKeySequence(Qt::Key_F1));
    mnuExit = Menue->addAction(QStringLiteral("&E&xit"));
    mnuExit->setObjectName(QStringLiteral("mnuExit"));
    // The shortcuts work wherever the focus stands in the window.
    for (QAction* a : mnuLiedliste->actions())
        addAction(a);
    addAction(mnuHilfe);

    // Layout.
    auto* schritte = new QVBoxLayout;
    for (int i = 0; i <= 5; ++i)
        schritte->addWidget(lblBez[i]);
    auto* kopf = new QHBoxLayout;
    kopf->addLayout(schritte, 1);
    kopf->addWidget(imgVorschau, 0, Qt::AlignTop);

    auto* felder = new QGridLayout;
    felder->addWidget(lblBez[7], 0, 0);
    felder->addWidget(txtAnzahl, 0, 1);
    felder->addWidget(lblBez[6], 0, 2, 1, 2);
    felder->addWidget(txtPfad, 1, 0, 1, 3);
    felder->addWidget(cmdOrdnerwahl, 1, 3);
    felder->setColumnStretch(2, 1);

    auto* liedkopf = new QHBoxLayout;
    liedkopf->addWidget(lblBez[8]);
    liedkopf->addWidget(lblNameLiedliste, 1);
    liedkopf->addWidget(chkLiedlisteVerwenden);
    liedkopf->addWidget(lblBez[9]);

    auto* knoepfe = new QHBoxLayout;
    knoepfe->addWidget(cmdAusschussliste);
    knoepfe->addWidget(cmdBandAusschluss);
    knoepfe->addStretch();
    knoepfe->addWidget(cmdGenerieren);
    knoepfe->addWidget(cmdAbbrechen);

    auto* innen = new QVBoxLayout;
    innen->setContentsMargins(Px(180), Px(120), Px(180), Px(60));
    innen->addLayout(kopf);
    innen->addLayout(felder);
    innen->addLayout(liedkopf);
    innen->addWidget(lstLiedliste, 1);
    innen->addWidget(ProgressBar1);
    innen->addLayout(knoepfe);

    auto* aussen = new QVBoxLayout(this);
    aussen->setContentsMargins(0, 0, 0, 0);
    aussen->setMenuBar(Menue);
    aussen->addLayout(innen, 1);
    aussen->addWidget(staBar);
    PanelsZuruecksetzen();

    connect(cmdOrdnerwahl, &QPushButton::clicked, this, [this] { cmdOrdnerwahl_Click(); });
    connect(cmdGenerieren, &QPushButton::clicked, this, [this] { cmdGenerieren_Click(); });
    connect(cmdAbbrechen, &QPushButton::clicked, this, [this] { cmdAbbrechen_Click(); });
    connect(cmdAusschussliste, &QPushButton::clicked, this, [this] { cmdAusschussliste_Click(); });
    connect(cmdBandAusschluss, &QPushButton::clicked, this, [this] { cmdBandAusschluss_Click(); });
    connect(Timer1, &Zeitgeber::Timer, this, [this] { Timer1_Timer(); });
    connect(imgVorschau, &Bildfeld::Click, this, [this] { mnuCoverLaden_Click(); });
    // The picture sinks while it is pressed, as a button does.
    connect(imgVorschau, &Bildfeld::MouseDown, this,
            [this] { imgVorschau->setFrameShadow(QFrame::Sunken); });
    connect(imgVorschau, &Bildfeld::MouseUp, this,
            [this] { imgVorschau->setFrameShadow(QFrame::Raised); });
    connect(mnuCoverLaden, &QAction::triggered, this, [this] { mnuCoverLaden_Click(); });
    connect(mnuLiedlisteLaden, &QAction::triggered, this, [this] { mnuLiedlisteLaden_Click(); });
    connect(mnuLiedlisteSpeichernUnter, &QAction::triggered, this,
            [this] { mnuLiedlisteSpeichernUnter_Click(); });
    connect(mnuLiedlisteLeeren, &QAction::triggered, this, [this] { mnuLiedlisteLeeren_Click(); });
    connect(mnuLiedlisteLoeschen, &QAction::triggered, this,
            [this] { mnuLiedlisteLoeschen_Click(); });
    connect(mnuLiedlisteMarkEntf, &QAction::triggered, this,
            [this] { mnuLiedlisteMarkEntf_Click(); });
    connect(mnuLiedlisteCopy, &QAction::triggered, this, [this] { mnuLiedlisteCopy_Click(); });
    connect(mnuLiedlisteDrucken, &QAction::triggered, this,
            [this] { mnuLiedlisteDrucken_Click(); });
    connect(mnuHilfe, &QAction::triggered, this,
            [] { HilfeAufrufen(QStringLiteral("playlist.html")); });
    connect(mnuExit, &QAction::triggered, this, [this] { close(); });
}

frmCDgenerieren::~frmCDgenerieren() { GeneratorStopp = true; }

bool frmCDgenerieren::eventFilter(QObject* objekt, QEvent* ereignis)
{
    if (objekt == lstLiedliste->viewport() && ereignis->type() == QEvent::MouseButtonRelease
        && static_cast<QMouseEvent*>(ereignis)->button() == Qt::RightButton)
        mnuLiedliste->popup(QCursor::pos());
    return VerlaufFenster::eventFilter(objekt, ereignis);
}

void frmCDgenerieren::closeEvent(QCloseEvent* e)
{
    // A run that still goes ends at its next test; the window may go meanwhile.
    GeneratorStopp = true;
    Timer1->setEnabled(false);
    VerlaufFenster::closeEvent(e);
}

QString frmCDgenerieren::LiedlistenOrdner() { return ProgrammOrdner + QStringLiteral("Playlist/"); }

QString frmCDgenerieren::LiedlistenDatei() const { return LiedlistenOrdner() + LiedlisteName; }

QString frmCDgenerieren::Eintrag(const QString& datei, const QString& band, const QString& titel)
{
    const QString trenner = QStringLiteral(" ") + Trenner + u' ';
    return datei + trenner + band + trenner + titel;
}

QString frmCDgenerieren::KopierText(const QStringList& eintraege)
{
    const int breite = Nummernbreite(eintraege.size());
    if (breite == 0)
        return {};
    QString text;
    for (qsizetype i = 0; i < eintraege.size(); ++i)
        text += Nummer(i + 1, breite) + QStringLiteral(" | ") + eintraege[i] + u'\n';
    return text;
}

QString frmCDgenerieren::DruckText(const QString& eintrag)
{
    QString text = eintrag;
    return text.remove(QStringLiteral(".mp3")).remove(QStringLiteral(".wma"));
}

void frmCDgenerieren::Anzeigen() { exec(); }

void frmCDgenerieren::Form_Load()
{
    txtPfad->setText(Lesen(QStringLiteral("CDgenerierenZielordner"), ZielUnbekannt));
    ProgrammschriftSetzen(txtAnzahl,
                          {txtPfad, lstLiedliste, lstStilausschlussliste, lstBandausschlussliste});
    LiedlisteLaden();
    AusschlusslisteLaden();
    BandAusschlusslisteLaden();
    imgVorschau->setBild(m_box.imgBildpfad->Bild());
}

void frmCDgenerieren::PanelsZuruecksetzen()
{
    staBar->setPanelText(1, QStringLiteral("Kopiert: 0"));
    staBar->setPanelText(2, QStringLiteral("Doppelt: 0"));
    staBar->setPanelText(3, QStringLiteral("Liste: 0"));
    staBar->setPanelText(4, QStringLiteral("Drucken: 0"));
    staBar->setPanelText(5, QStringLiteral("Ausschluss: 0"));
}

void frmCDgenerieren::BezAktualisieren()
{
    lblBez[9]->setText(QStringLiteral("Liedliste verwenden (")
                       + QString::number(lstLiedliste->count()) + u')');
}

void frmCDgenerieren::NameZeigen()
{
    lblNameLiedliste->setText(LiedlisteName.chopped(std::min<qsizetype>(4, LiedlisteName.size())));
}

void frmCDgenerieren::LiedlisteEinlesen(const QString& pfad)
{
    const QStringList zeilen = TextdateiLesen(pfad);
    lstLiedliste->setUpdatesEnabled(false);
    lstLiedliste->clear();
    lstDrucken->clear();
    lstLiedliste->addItems(zeilen);
    lstDrucken->addItems(zeilen);
    lstLiedliste->setUpdatesEnabled(true);
    staBar->setPanelText(4, QStringLiteral("Drucken") + MitVorzeichenstelle(int(zeilen.size())));
}

void frmCDgenerieren::LiedlisteLaden()
{
    LiedlisteName = StandardListe;
    NameZeigen();
    if (QFileInfo(LiedlistenDatei()).isFile())
        LiedlisteEinlesen(LiedlistenDatei());
    BezAktualisieren();
}

void frmCDgenerieren::AusschlusslisteLaden()
{
    AusschlussListeLaden(lstStilausschlussliste, StilAusschlussPfad(VerwendungCD));
}

void frmCDgenerieren::BandAusschlusslisteLaden()
{
    AusschlussListeLaden(lstBandausschlussliste, BandAusschlussPfad(VerwendungCD));
}

void frmCDgenerieren::cmdAusschussliste_Click()
{
    Speichern(SchluesselStilAusschluss, VerwendungCD);
    {
        frmStilausschlussliste fenster(this);
        fenster.Form_Load();
        FensterPlatzieren(&fenster, this, QStringLiteral("center"), 10);
        fenster.Anzeigen();
    }
    AusschlusslisteLaden();
}

void frmCDgenerieren::cmdBandAusschluss_Click()
{
    Speichern(SchluesselBandAusschluss, VerwendungCD);
    {
        frmBandAusschlussliste fenster(m_box);
        fenster.Form_Load();
        if (!fenster.Abgebrochen()) {
            FensterPlatzieren(&fenster, this, QStringLiteral("center"), 10);
            fenster.Anzeigen();
        }
    }
    BandAusschlusslisteLaden();
}

void frmCDgenerieren::cmdOrdnerwahl_Click()
{
    const QString start = txtPfad->Text() == ZielUnbekannt ? QDir::homePath() : txtPfad->Text();
    const QString ordner = D().dialoge().Ordner(ProgrammOrdner, start);
    if (ordner.isEmpty())
        return;
    txtPfad->setText(ordner);
    Speichern(QStringLiteral("CDgenerierenZielordner"), ordner);
    cmdGenerieren->setFocus();
}

void frmCDgenerieren::cmdAbbrechen_Click()
{
    GeneratorStopp = true;
    Timer1->setEnabled(false);
}

void frmCDgenerieren::Timer1_Timer()
{
    const QString stand = staBar->PanelText(1);
    if (stand != LetzterStand) {
        LetzterStand = stand;
        Restsekunden = Wartezeit;
    } else if (--Restsekunden < 1) {
        Restsekunden = 0;
        LetzterStand.clear();
        Timer1->setEnabled(false);
        GeneratorStopp = true;
        D().klang().abspielen(ProgrammOrdner + QStringLiteral("Blues.wav"));
        MsgNimb(QStringLiteral("Seit rund 120 Sekunden (2 Min.) wurde kein Lied mehr kopiert, \n"
                               "der Vorgang wird deshalb abgebrochen.\n\n"
                               "Um weiter arbeiten zu können, leeren Sie den Inhalt\n"
                               "des Zielordners und ggf. die Liedliste."),
                3, 0, QStringLiteral("Sicherheitsschaltung"), 0);
    }
    staBar->setPanelText(6, QStringLiteral("Exit in: ") + QString::number(Restsekunden));
}

Laufzeitfehler frmCDgenerieren::KopierFehler(const QString& quelle, const QString& zielordner)
{
    const QFileInfo ein(quelle);
    if (!ein.isFile() || !ein.isReadable())
        return Laufzeitfehler(Fehlernummer::DateiNichtGefunden,
                              QStringLiteral("Die Datei kann nicht gelesen werden: ") + quelle);
    if (!QFileInfo(zielordner).isWritable())
        return Laufzeitfehler(
            70,
            QStringLiteral("Zugriff verweigert: In den Zielordner kann nicht geschrieben werden "
                           "(schreibgeschützt?): ")
                + zielordner);
    const QStorageInfo platz(zielordner);
    if (platz.isValid() && (platz.isReadOnly() || platz.bytesAvailable() < ein.size())) {
        if (platz.isReadOnly())
            return Laufzeitfehler(
                70,
                QStringLiteral("Zugriff verweigert: Der Datenträger des Zielordners ist "
                               "schreibgeschützt: ")
                    + zielordner);
        return Laufzeitfehler(
            61,
            QStringLiteral("Datenträger voll: Im Zielordner ist kein Platz mehr für ")
                + ein.fileName() + QStringLiteral(" (")
                + QString::number(double(ein.size()) / (1 << 20), 'f', 1)
                + QStringLiteral(" MB).\n") + zielordner);
    }
    return Laufzeitfehler(Fehlernummer::ZugriffsFehler,
                          QStringLiteral("Fehler beim Zugriff auf Pfad/Datei: ") + quelle
                              + QStringLiteral(" nach ") + zielordner);
}

bool frmCDgenerieren::LiedKopieren(const QString& quelle, const QString& ziel)
{
    // Pieces with events between them, so that the stop button answers during a long file.
    const bool kopiert = DateiKopieren(quelle, ziel, [this] {
        EreignisseZulassen();
        return !GeneratorStopp;
    });
    if (kopiert)
        return true;
    if (GeneratorStopp)
        return false;
    throw KopierFehler(quelle, OrdnerAusPfad(ziel));
}

void frmCDgenerieren::cmdGenerieren_Click()
{
    if (m_laeuft)
        return;
    if (MsgNimb(QStringLiteral("Soll mit dem Generieren des Tonträgers begonnen werden?"), 22, 0,
                QStringLiteral("Sicherheitsabfrage"), 0)
        == QStringLiteral("Nein"))
        return;
    const int anzahl = GanzeZahl(txtAnzahl->Text());
    if (anzahl < 1) {
        MsgNimb(QStringLiteral("Bitte geben Sie die Anzahl der Lieder ein, welche in den "
                               "Sammelordner kopiert werden sollen!"),
                1, 0, QStringLiteral("Anzahl der Lieder wählen"), 0);
        txtAnzahl->setFocus();
        return;
    }
    if (txtPfad->Text() == ZielUnbekannt) {
        MsgNimb(QStringLiteral("Kein Zielordner gewählt!"), 1, 0,
                QStringLiteral("Zielordner wählen"), 0);
        cmdOrdnerwahl_Click();
        return;
    }
    const QString ziel = MitSchraegstrich(txtPfad->Text());
    if (!OrdnerVorhanden(ziel)) {
        MsgNimb(QStringLiteral("Der Zielordner ist nicht vorhanden:\n") + ziel, 3, 0,
                QStringLiteral("Zielordner wählen"), 0, Farbe::WarnHintergrund,
                Farbe::StandardText);
        return;
    }

    PanelsZuruecksetzen();
    ProgressBar1->setRange(0, anzahl);
    ProgressBar1->setValue(0);
    Restsekunden = Wartezeit;
    lstDrucken->clear();
    Mauszeiger(ZeigerBeschaeftigt);
    GeneratorStopp = false;
    Timer1->setEnabled(true);
    m_laeuft = true;
    cmdGenerieren->setEnabled(false);
    struct Ende {
        frmCDgenerieren* f;
        ~Ende()
        {
            f->m_laeuft = false;
            f->cmdGenerieren->setEnabled(true);
            Mauszeiger(ZeigerStandard);
        }
    } ende{this};

    auto zaehlen = [this](int panel, const QString& text) {
        staBar->setPanelText(panel, text + MitVorzeichenstelle(PanelZahl(staBar, panel) + 1));
    };

    try {
        Recordset* rs = m_box.Data1->recordset();
        const int datensaetze = rs ? rs->RecordCount() : 0;
        int kopiert = 0;
        for (int lied = 1; datensaetze > 0 && lied <= anzahl; ++lied) {
            QString quelle;
            QString name;
            for (;;) {
                const int zeile = std::clamp(int(std::floor(D().zufall().Rnd() * datensaetze + 1)),
                                             1, datensaetze);
                // The row decides the Carrier; its change loads the record and its Tracks.
                if (m_box.MSFlexGrid1->Row() != zeile)
                    m_box.MSFlexGrid1->setRow(zeile);
                else if (rs->AbsolutePosition() != zeile - 1)
                    m_box.Data1->setAbsolutePosition(zeile - 1);
                m_box.MSFlexGrid1->setTopRow(zeile);
                EreignisseZulassen();

                const QString stil = m_box.TextStil->Text();
                const QString band = m_box.TextBand->Text();
                bool ausgeschlossen = false;
                for (int i = 0; i < lstStilausschlussliste->count() && !ausgeschlossen; ++i)
                    ausgeschlossen = lstStilausschlussliste->item(i)->text() == stil;
                for (int i = 0; i < lstBandausschlussliste->count() && !ausgeschlossen; ++i)
                    ausgeschlossen = lstBandausschlussliste->item(i)->text() == band;
                if (ausgeschlossen) {
                    zaehlen(5, QStringLiteral("Ausschluss:"));
                    // A table of excluded Carriers only would draw for ever: the stall
                    // watch's stop ends it here.
                    if (GeneratorStopp)
                        return;
                    continue;
                }
                if (GeneratorStopp)
                    return;
                const int dateien = m_box.filTrack->count();
                // A Carrier of a single file never contributes.
                if (dateien < 2)
                    continue;
                int fehlgriffe = 0;
                bool gefunden = false;
                while (!gefunden) {
                    const float r = float(std::clamp(D().zufall().Rnd(), 0.0, 1.0));
                    const int i = std::min(int(float(dateien) * r), dateien - 1);
                    if (GeneratorStopp)
                        return;
                    name = m_box.filTrack->List(i);
                    bool gelistet = false;
                    if (chkLiedlisteVerwenden->isChecked())
                        for (int e = 0; e < lstLiedliste->count() && !gelistet; ++e)
                            gelistet
                                = lstLiedliste->item(e)->text().contains(name, Qt::CaseSensitive);
                    if (gelistet) {
                        zaehlen(3, QStringLiteral("Liste:"));
                        if (++fehlgriffe >= dateien)
                            break;
                        continue;
                    }
                    if (QFileInfo::exists(ziel + name)) {
                        zaehlen(2, QStringLiteral("Doppelt:"));
                        break;
                    }
                    gefunden = true;
                }
                if (gefunden) {
                    quelle = MitSchraegstrich(m_box.filTrack->Path()) + name;
                    break;
                }
            }

            // The copy goes under the name the file has, rating included, into the target only.
            if (name.contains(u'/') || name == QStringLiteral("..") || name == QStringLiteral("."))
                throw Laufzeitfehler(Fehlernummer::DateinameFalsch);
            if (!LiedKopieren(quelle, ziel + name))
                return;
            ProgressBar1->setValue(lied);
            EreignisseZulassen();
            ++kopiert;
            const QString eintrag
                = Eintrag(name, m_box.TextBand->Text(), m_box.TextLPTitel->Text());
            if (!TextdateiAnhaengen(LiedlistenDatei(), {eintrag}))
                throw Laufzeitfehler(Fehlernummer::ZugriffsFehler,
                                     QStringLiteral("Die Liedliste kann nicht geschrieben werden: ")
                                         + LiedlistenDatei());
            lstLiedliste->addItem(eintrag);
            lstDrucken->addItem(eintrag);
            staBar->setPanelText(1, QStringLiteral("Kopiert:") + MitVorzeichenstelle(kopiert));
            staBar->setPanelText(
                4, QStringLiteral("Drucken:") + MitVorzeichenstelle(lstDrucken->count()));
            BezAktualisieren();
            if (GeneratorStopp)
                return;
        }
    } catch (const Laufzeitfehler& fehler) {
        Mauszeiger(ZeigerStandard);
        Fehlermeldung(fehler, TitelGenerieren);
        return;
    }

    Mauszeiger(ZeigerStandard);
    ProgressBar1->setValue(anzahl);
    Timer1->setEnabled(false);
    D().klang().abspielen(ProgrammOrdner + QStringLiteral("Blues.wav"));
    MsgNimb(QStringLiteral("Lieder erfolgreich in den Sammelordner kopiert!"), 1, 0,
            QStringLiteral("In Sammelordner kopieren"), 0);
    if (MsgNimb(QStringLiteral("Liedliste speichern?"), 22, 0, QStringLiteral("Speichern"), 0)
        == QStringLiteral("Ja"))
        mnuLiedlisteSpeichernUnter_Click();
    if (MsgNimb(QStringLiteral("Liedliste drucken?"), 22, 0, QStringLiteral("Cover drucken"), 0)
        == QStringLiteral("Ja")) {
        EreignisseZulassen();
        mnuLiedlisteDrucken_Click();
    }
}

void frmCDgenerieren::mnuLiedlisteLaden_Click()
{
    try {
        Dateiauswahl d;
        d.titel = QStringLiteral(" Liedliste laden");
        d.filter = ListenFilter;
        d.startordner = LiedlistenOrdner();
        const QString pfad = D().dialoge().Datei(d);
        if (pfad.isEmpty())
            throw Laufzeitfehler(Fehlernummer::DialogAbgebrochen);
        m_dialogTitel = Dateititel(pfad);
        if (!QFileInfo(pfad).isFile()) {
            MsgNimb(QStringLiteral("Die Datei konnte nicht geladen werden!"), 1, 0,
                    QStringLiteral("frmCDgenerieren_mnuLiedlisteLaden_Click"), 0);
            return;
        }
        LiedlisteName = m_dialogTitel;
        NameZeigen();
        LiedlisteEinlesen(pfad);
        BezAktualisieren();
    } catch (const Laufzeitfehler& fehler) {
        Fehlermeldung(fehler, QStringLiteral("frmCDgenerieren_mnuLiedlisteLaden_Click"));
    }
}

void frmCDgenerieren::mnuLiedlisteSpeichernUnter_Click()
{
    try {
        Dateiauswahl d;
        d.titel = QStringLiteral(" Speichern unter");
        d.filter = ListenFilter;
        d.startordner = LiedlistenOrdner();
        d.dateiname = LiedlisteName;
        d.speichern = true;
        d.ueberschreibenFragen = false;
        const QString pfad = D().dialoge().Datei(d);
        if (pfad.isEmpty())
            throw Laufzeitfehler(Fehlernummer::DialogAbgebrochen);
        m_dialogTitel = Dateititel(pfad);
        if (QFileInfo::exists(pfad)
            && MsgNimb(
                   QStringLiteral(
                       "Diese Liedliste ist bereits vorhanden, soll sie überschreiben werden?\n\n")
                       + m_dialogTitel,
                   22, 0, QStringLiteral("Sicherheitshinweis"), 0)
                != QStringLiteral("Ja"))
            return;
        LiedlisteName = m_dialogTitel;
        NameZeigen();
        QStringList zeilen;
        for (int i = 0; i < lstLiedliste->count(); ++i)
            zeilen << lstLiedliste->item(i)->text();
        if (!TextdateiSchreiben(pfad, zeilen))
            throw Laufzeitfehler(Fehlernummer::ZugriffsFehler,
                                 QStringLiteral("Die Liedliste kann nicht geschrieben werden: ")
                                     + pfad);
    } catch (const Laufzeitfehler& fehler) {
        Fehlermeldung(fehler, QStringLiteral("frmCDgenerieren_mnuLiedlisteSpeichernUnter_Click"));
    }
}

void frmCDgenerieren::mnuLiedlisteLeeren_Click()
{
    PanelsZuruecksetzen();
    lstLiedliste->clear();
    lstDrucken->clear();
    BezAktualisieren();
    LiedlisteName = StandardListe;
    NameZeigen();
    txtAnzahl->setFocus();
}

void frmCDgenerieren::mnuLiedlisteLoeschen_Click()
{
    if (MsgNimb(QStringLiteral("Soll die Liedliste gelöscht werden?"), 12, 0,
                QStringLiteral("Sicherheitsabfrage"), 0)
        == QStringLiteral("Ok")) {
        PanelsZuruecksetzen();
        lstLiedliste->clear();
        lstDrucken->clear();
        BezAktualisieren();
        if (QFileInfo(LiedlistenDatei()).isFile()) {
            D().klang().abspielen(ProgrammOrdner + QStringLiteral("Matsch.wav"));
            // A file that cannot be moved keeps its name; nothing is said.
            if (D().papierkorb().verschieben(LiedlistenDatei())) {
                LiedlisteName = StandardListe;
                NameZeigen();
            }
        }
    }
    txtAnzahl->setFocus();
}

void frmCDgenerieren::mnuLiedlisteMarkEntf_Click()
{
    try {
        if (MsgNimb(QStringLiteral("Alle markierten Lieder entfernen?"), 22, 0,
                    QStringLiteral("Sicherheitsabfrage"), 0)
            == QStringLiteral("Nein"))
            return;
        for (int i = lstLiedliste->count() - 1; i >= 0; --i)
            if (lstLiedliste->item(i)->isSelected())
                delete lstLiedliste->takeItem(i);
        BezAktualisieren();
        QStringList zeilen;
        for (int i = 0; i < lstLiedliste->count(); ++i)
            zeilen << lstLiedliste->item(i)->text();
        if (!TextdateiSchreiben(LiedlistenDatei(), zeilen))
            throw Laufzeitfehler(Fehlernummer::ZugriffsFehler,
                                 QStringLiteral("Die Liedliste kann nicht geschrieben werden: ")
                                     + LiedlistenDatei());
    } catch (const Laufzeitfehler& fehler) {
        Fehlermeldung(fehler, QStringLiteral("frmCDgenerieren_mnuLiedlisteMarkEntf_Click"));
    }
}

void frmCDgenerieren::mnuLiedlisteCopy_Click()
{
    QStringList eintraege;
    for (int i = 0; i < lstLiedliste->count(); ++i)
        eintraege << lstLiedliste->item(i)->text();
    QClipboard* ablage = QGuiApplication::clipboard();
    ablage->clear();
    ablage->setText(KopierText(eintraege));
}

void frmCDgenerieren::mnuCoverLaden_Click()
{
    try {
        Dateiauswahl d;
        d.titel = QStringLiteral(" externes Bild laden");
        d.filter = QStringLiteral(
            "JPEG (*.jpg) |*.jpg|GIF (*.gif) |*.gif|Bitmap (*.bmp) |*.bmg|alle Dateien (*.*) |*.*");
        d.startordner = ProgrammOrdner + QStringLiteral("Bilder");
        const QString pfad = D().dialoge().Datei(d);
        if (pfad.isEmpty())
            throw Laufzeitfehler(Fehlernummer::DialogAbgebrochen);
        m_dialogTitel = Dateititel(pfad);
        QImageReader leser(pfad);
        // A picture that claims a huge size is read at a size the panel can use.
        const QSize groesse = leser.size();
        constexpr int Grenze = 2000;
        if (groesse.isValid() && (groesse.width() > Grenze || groesse.height() > Grenze))
            leser.setScaledSize(groesse.scaled(Grenze, Grenze, Qt::KeepAspectRatio));
        const QImage bild = leser.read();
        if (bild.isNull())
            throw Laufzeitfehler(481, QStringLiteral("Ungültiges Bild: ") + pfad);
        imgVorschau->setBild(QPixmap::fromImage(bild));
    } catch (const Laufzeitfehler& fehler) {
        Fehlermeldung(fehler, QStringLiteral("frmCDgenerieren_mnuCoverLaden_Click"));
    }
}

void frmCDgenerieren::mnuLiedlisteDrucken_Click()
{
    try {
        QPrinter drucker(QPrinter::HighResolution);
        // The two panels stand side by side: they fit across a sheet only in landscape.
        DruckerWaehlen(drucker, QPageLayout::Landscape, this);
        Mauszeiger(ZeigerSanduhr);
        Druckflaeche f(drucker);
        f.AktivPruefen();
        // The page's top edge lies at -1500, where the heading begins.
        f.setScaleTop(-1500);
        f.setFontName(QStringLiteral("Times New Roman"));
        f.setFontSize(10);
        f.setCurrentY(-1300);
        f.setCurrentX(600);
        f.setForeColor(Qt::black);
        f.setFillColor(Qt::white);
        f.Print();

        const int breite = std::max(Nummernbreite(lstDrucken->count()), 1);
        auto feld = [&f](double links) {
            f.Box(links, -150, links + 6804, 6654);
            f.Box(links + 1, -151, links + 6805, 6655);
        };
        int n = 0;
        bool erster = true;
        for (int i = 0; i < lstDrucken->count(); ++i) {
            f.setFontSize(8);
            f.setFontBold(true);
            ++n;
            if (n == 73) {
                f.NewPage();
                n = 1;
            }
            if (n == 1) {
                f.setCurrentY(-1300);
                feld(500);
                f.setCurrentX(430);
                f.Print();
                if (erster) {
                    erster = false;
                    n = 36;
                    f.setFontSize(12);
                    f.setCurrentY(-1500);
                    f.setCurrentX(600);
                    f.Print();
                    f.Print(m_dialogTitel.isEmpty() ? QStringLiteral("        Liedliste")
                                                    : QStringLiteral("        ")
                                    + m_dialogTitel.chopped(
                                        std::min<qsizetype>(4, m_dialogTitel.size())));
                    // The cover in its own size, as far as the panel has room for it.
                    const QPixmap& bild = imgVorschau->Bild();
                    if (!bild.isNull()) {
                        QSizeF groesse(bild.width() * 15.0, bild.height() * 15.0);
                        groesse = groesse.boundedTo(QSizeF(6700, 5000)) == groesse
                            ? groesse
                            : groesse.scaled(QSizeF(6700, 5000), Qt::KeepAspectRatio);
                        f.PaintPicture(bild, 460, 1500, groesse.width(), groesse.height());
                    }
                    f.setFontSize(8);
                    f.setFontBold(true);
                }
            } else if (n == 37) {
                f.setCurrentY(-1300);
                feld(7304);
                f.setCurrentX(7235);
                f.Print();
            }
            f.setFontBold(true);
            f.Print(QStringLiteral("     ") + Nummer(i + 1, breite) + QStringLiteral(" | "), false);
            f.setFontBold(false);
            f.Print(DruckText(lstDrucken->item(i)->text()));
        }
        f.EndDoc();
        Mauszeiger(ZeigerStandard);
    } catch (const Laufzeitfehler& fehler) {
        Mauszeiger(ZeigerStandard);
        Fehlermeldung(fehler, QStringLiteral("frmCDgenerieren_mnuLiedlisteDrucken_Click"));
    }
}
