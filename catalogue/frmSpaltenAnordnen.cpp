#include "catalogue/frmSpaltenAnordnen.h"

#include "auxiliary/Hilfe.h"
#include "platform/Dialogdienst.h"
#include "platform/Einheiten.h"
#include "shell/Einstellungen.h"
#include "shell/Globale.h"
#include "shell/Grundregeln.h"
#include "shell/Listenpaar.h"
#include "shell/Steuerelemente.h"

#include <QCheckBox>
#include <QGridLayout>
#include <QHBoxLayout>
#include <QLabel>
#include <QListWidget>
#include <QPushButton>
#include <QScreen>
#include <QVBoxLayout>

const std::array<const char*, 18> frmSpaltenAnordnen::Tabellenspalten = {
    "Band",  "LPTitel",  "Medium",    "Stil",     "Info",  "Plattenfirma", "BestellNr",   "Preis",   "Datum",
    "Songs", "BildPfad", "Musikpfad", "SongText", "eBook", "Bewertung",    "InternetTab", "InfoTab", "SonstigesTab"};

namespace {

QString anordnungSchluessel(int n) { return QStringLiteral("TabelleAnordnenCaption%1").arg(n); }

} // namespace

frmSpaltenAnordnen::frmSpaltenAnordnen(QWidget* eltern)
    : VerlaufFenster(eltern)
{
    setObjectName(QStringLiteral("frmSpaltenAnordnen"));
    setWindowTitle(QStringLiteral("Tabellenspalten anordnen"));
    setFarbverlauf(Farbe::VerlaufEnde, Farbe::StandardHintergrund, VerlaufSenkrecht);
    QPalette p = palette();
    p.setColor(QPalette::WindowText, NummerFarbe(Farbe::StandardText));
    setPalette(p);

    lstTabelle = AuswahlListe(this, QStringLiteral("lstTabelle"));
    lblTabelle = new QLabel(QStringLiteral("Reihenfolge der sichtbaren Spalten"), this);
    lblTabelle->setObjectName(QStringLiteral("lblTabelle"));
    lblTabelle->setBuddy(lstTabelle);
    lstSpalten = AuswahlListe(this, QStringLiteral("lstSpalten"));
    lblSpalten = new QLabel(QStringLiteral("nicht sichtbare Spalten"), this);
    lblSpalten->setObjectName(QStringLiteral("lblSpalten"));
    lblSpalten->setBuddy(lstSpalten);

    cmdEinfuegen = Befehlsknopf(this, QStringLiteral("cmdEinfügen"), QStringLiteral("◄  &Einfügen"),
                         QStringLiteral(" Gewählte Spalte hinten anfügen und anzeigen "));
    cmdEntfernen = Befehlsknopf(this, QStringLiteral("cmdEntfernen"), QStringLiteral("E&ntfernen  ►"),
                         QStringLiteral(" Gewählte Spalte ausblenden "));
    cmdHochTief[0] = Befehlsknopf(this, QStringLiteral("cmdHochTief(0)"), QStringLiteral("▲"),
                           QStringLiteral(" Gewählte Spalte nach vorn "));
    cmdHochTief[1] = Befehlsknopf(this, QStringLiteral("cmdHochTief(1)"), QStringLiteral("▼"),
                           QStringLiteral(" Gewählte Spalte nach hinten "));
    for (QPushButton* k : cmdHochTief) {
        k->setEnabled(false);
        k->setFixedWidth(Px(500));
    }
    cmdStandard = Befehlsknopf(this, QStringLiteral("cmdStandard"), QStringLiteral("&Standard"),
                        QStringLiteral(" Alle Spalten anzeigen, in der Reihenfolge der Tabelle "));
    cmdDefault = Befehlsknopf(this, QStringLiteral("cmdDefault"), QStringLiteral("&Kompakt"),
                       QStringLiteral(" Nur die wichtigsten Spalten anzeigen "));
    chkNotSort = new QCheckBox(QStringLiteral("Tabellenspalten nicht automatisch anordnen"), this);
    chkNotSort->setObjectName(QStringLiteral("chkNotSort"));
    chkNotSort->setToolTip(QStringLiteral(" Damit alle SQL-Befehle verwendbar sind "));
    cmdOK = Befehlsknopf(this, QStringLiteral("cmdOK"), QStringLiteral("&OK"));
    cmdOK->setDefault(true);
    cmdExit = Befehlsknopf(this, QStringLiteral("cmdExit"), QStringLiteral("E&xit"));
    cmdHilfe = Befehlsknopf(this, QStringLiteral("cmdHilfe"), QStringLiteral("&Hilfe"));

    // Up and down beside the visible list, the two moves between the lists.
    auto* hochTief = new QVBoxLayout;
    hochTief->addStretch();
    hochTief->addWidget(cmdHochTief[0]);
    hochTief->addWidget(cmdHochTief[1]);
    hochTief->addStretch();
    auto* mitte = new QVBoxLayout;
    mitte->addStretch();
    mitte->addWidget(cmdEinfuegen);
    mitte->addWidget(cmdEntfernen);
    mitte->addStretch();
    auto* listen = new QGridLayout;
    listen->setHorizontalSpacing(Px(150));
    listen->addWidget(lblTabelle, 0, 1);
    listen->addWidget(lblSpalten, 0, 3);
    listen->addLayout(hochTief, 1, 0);
    listen->addWidget(lstTabelle, 1, 1);
    listen->addLayout(mitte, 1, 2);
    listen->addWidget(lstSpalten, 1, 3);
    listen->setColumnStretch(1, 1);
    listen->setColumnStretch(3, 1);
    listen->setRowStretch(1, 1);

    auto* knoepfe = new QHBoxLayout;
    knoepfe->addWidget(cmdStandard);
    knoepfe->addWidget(cmdDefault);
    knoepfe->addStretch();
    knoepfe->addWidget(cmdOK);
    knoepfe->addWidget(cmdExit);
    knoepfe->addWidget(cmdHilfe);

    auto* aussen = new QVBoxLayout(this);
    aussen->setContentsMargins(Px(180), Px(150), Px(180), Px(150));
    aussen->addLayout(listen, 1);
    aussen->addSpacing(Px(60));
    aussen->addWidget(chkNotSort);
    aussen->addSpacing(Px(90));
    aussen->addLayout(knoepfe);

    setTabOrder(lstTabelle, cmdHochTief[0]);
    setTabOrder(cmdHochTief[0], cmdHochTief[1]);
    setTabOrder(cmdHochTief[1], cmdEinfuegen);
    setTabOrder(cmdEinfuegen, cmdEntfernen);
    setTabOrder(cmdEntfernen, lstSpalten);
    setTabOrder(lstSpalten, chkNotSort);
    setTabOrder(chkNotSort, cmdStandard);
    setTabOrder(cmdStandard, cmdDefault);
    setTabOrder(cmdDefault, cmdOK);
    setTabOrder(cmdOK, cmdExit);
    setTabOrder(cmdExit, cmdHilfe);

    // The box acts as it changes, also when the load sets it from the setting.
    KlickVerbinden(chkNotSort, this, [this] { chkNotSort_Click(); });
    connect(cmdEinfuegen, &QPushButton::clicked, this, [this] { cmdEinfuegen_Click(); });
    connect(cmdEntfernen, &QPushButton::clicked, this, [this] { cmdEntfernen_Click(); });
    for (int i = 0; i < 2; ++i)
        connect(cmdHochTief[i], &QPushButton::clicked, this, [this, i] { cmdHochTief_Click(i); });
    connect(cmdStandard, &QPushButton::clicked, this, [this] { cmdStandard_Click(); });
    connect(cmdDefault, &QPushButton::clicked, this, [this] { cmdDefault_Click(); });
    connect(cmdOK, &QPushButton::clicked, this, [this] { cmdOK_Click(); });
    connect(cmdExit, &QPushButton::clicked, this, [this] { cmdExit_Click(); });
    connect(cmdHilfe, &QPushButton::clicked, this, [this] { cmdHilfe_Click(); });
    // A choice in either list, by the user or by a move, frees the up and down buttons.
    for (QListWidget* l : {lstTabelle, lstSpalten})
        connect(l, &QListWidget::itemSelectionChanged, this, [this] {
            for (QPushButton* k : cmdHochTief)
                k->setEnabled(true);
        });
}

void frmSpaltenAnordnen::RegistryLesen()
{
    ProgrammschriftSetzen(this);
}

void frmSpaltenAnordnen::Form_Load()
{
    RegistryLesen();
    lstTabelle->clear();
    lstSpalten->clear();
    for (int n = 0; n < 18; ++n) {
        QString& titel = SpaltenTitel[size_t(n)];
        titel = Lesen(anordnungSchluessel(n), QLatin1String(Tabellenspalten[size_t(n)]) + QStringLiteral("1"));
        // A string with any other flag is in neither list.
        if (titel.endsWith(u'1'))
            lstTabelle->addItem(titel.chopped(1));
        else if (titel.endsWith(u'0'))
            lstSpalten->addItem(titel.chopped(1));
    }
    chkNotSort->setChecked(Lesen(QStringLiteral("TableNotSort"), QStringLiteral("0")).trimmed() == u"1");

    // Both lists show all 18 columns without scrolling, within reason on a small screen.
    int zeile = std::max(lstTabelle->sizeHintForRow(0), lstSpalten->sizeHintForRow(0));
    if (zeile <= 0)
        zeile = QFontMetrics(lstTabelle->font()).height() + 4;
    int hoehe = 18 * zeile + 2 * lstTabelle->frameWidth() + 4;
    if (const QScreen* s = screen())
        hoehe = std::min(hoehe, s->availableGeometry().height() * 3 / 5);
    for (QListWidget* l : {lstTabelle, lstSpalten})
        l->setMinimumHeight(std::max(hoehe, Px(1500)));
    adjustSize();
}

void frmSpaltenAnordnen::Anzeigen() { exec(); }

void frmSpaltenAnordnen::chkNotSort_Click()
{
    // At once, not only with OK: the table stops arranging itself from now on.
    TabelleNichtAnordnen = chkNotSort->isChecked();
}

void frmSpaltenAnordnen::cmdEinfuegen_Click() { ListenEintragVerschieben(lstSpalten, lstTabelle); }

void frmSpaltenAnordnen::cmdEntfernen_Click() { ListenEintragVerschieben(lstTabelle, lstSpalten); }

void frmSpaltenAnordnen::cmdHochTief_Click(int index) { ListenEintragHochTief(lstTabelle, index); }

void frmSpaltenAnordnen::cmdStandard_Click()
{
    lstTabelle->clear();
    lstSpalten->clear();
    for (const char* name : Tabellenspalten)
        lstTabelle->addItem(QLatin1String(name));
    MsgNimb(QStringLiteral("Standardeinstellung hergestellt"), 1, 0, QStringLiteral("Hinweis"), 0);
}

void frmSpaltenAnordnen::cmdDefault_Click()
{
    lstTabelle->clear();
    lstSpalten->clear();
    for (const char* name : {"BildPfad", "eBook", "Info", "Musikpfad", "Songs", "SongText", "InternetTab", "InfoTab",
                             "SonstigesTab"})
        lstSpalten->addItem(QLatin1String(name));
    for (const char* name :
         {"Band", "LPTitel", "Medium", "Stil", "Bewertung", "Datum", "Plattenfirma", "BestellNr", "Preis"})
        lstTabelle->addItem(QLatin1String(name));
}

void frmSpaltenAnordnen::cmdOK_Click()
{
    // The key number is the position: the hidden columns come behind the visible ones.
    int n = 0;
    for (int i = 0; i < lstTabelle->count(); ++i)
        Speichern(anordnungSchluessel(n++), lstTabelle->item(i)->text() + QStringLiteral("1"));
    for (int i = 0; i < lstSpalten->count(); ++i)
        Speichern(anordnungSchluessel(n++), lstSpalten->item(i)->text() + QStringLiteral("0"));
    Speichern(QStringLiteral("TableNotSort"), chkNotSort->isChecked() ? QStringLiteral("1") : QStringLiteral("0"));
    accept();
}

void frmSpaltenAnordnen::cmdExit_Click() { reject(); }

void frmSpaltenAnordnen::cmdHilfe_Click() { HilfeAufrufen(QStringLiteral("spaltenanordnen.html")); }
