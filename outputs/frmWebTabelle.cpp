#include "outputs/frmWebTabelle.h"

#include "auxiliary/Hilfe.h"
#include "outputs/Webseiten.h"
#include "platform/Einheiten.h"
#include "shell/Einstellungen.h"
#include "shell/Listenpaar.h"
#include "shell/Steuerelemente.h"

#include <QGridLayout>
#include <QHBoxLayout>
#include <QLabel>
#include <QLineEdit>
#include <QListWidget>
#include <QPushButton>
#include <QVBoxLayout>

const char* const frmWebTabelle::Standardspalten[Spaltenzahl]
    = {"Band",  "LPTitel",  "Medium",    "Stil",     "Info",  "Plattenfirma", "BestellNr", "Preis",
       "Datum", "Songs",    "BildPfad",  "Musikpfad", "SongText", "eBook",    "Bewertung"};

namespace {

QString schluessel(int n) { return QStringLiteral("WebTabelleCaption%1").arg(n); }

QLineEdit* feld(QWidget* eltern, const QString& name)
{
    auto* f = new QLineEdit(eltern);
    f->setObjectName(name);
    return f;
}

} // namespace

frmWebTabelle::frmWebTabelle(QWidget* eltern)
    : VerlaufFenster(eltern)
{
    setObjectName(QStringLiteral("frmWebTabelle"));
    setWindowTitle(QStringLiteral("HTML-Tabelle anordnen"));
    setFarbverlauf(Farbe::StandardHintergrund, Farbe::VerlaufEnde, VerlaufSenkrecht);
    lstTabelle = AuswahlListe(this, QStringLiteral("lstTabelle"));
    lstSpalten = AuswahlListe(this, QStringLiteral("lstSpalten"));
    txtTabellenzeilen = feld(this, QStringLiteral("txtTabellenzeilen"));
    txtTabellenUeberschrift = feld(this, QStringLiteral("txtTabellenUeberschrift"));
    txtURL = feld(this, QStringLiteral("txtURL"));
    cmdEinfuegen = Befehlsknopf(this, QStringLiteral("cmdEinfügen"), QStringLiteral("◄  &Einfügen"));
    cmdEntfernen = Befehlsknopf(this, QStringLiteral("cmdEntfernen"), QStringLiteral("E&ntfernen  ►"));
    cmdHochTief.setzen(0, Befehlsknopf(this, QString(), QStringLiteral("▲"), QStringLiteral(" nach vorn ")));
    cmdHochTief.setzen(1, Befehlsknopf(this, QString(), QStringLiteral("▼"), QStringLiteral(" nach hinten ")));
    cmdOK = Befehlsknopf(this, QStringLiteral("cmdOK"), QStringLiteral("&OK"));
    cmdOK->setDefault(true);
    cmdExit = Befehlsknopf(this, QStringLiteral("cmdExit"), QStringLiteral("E&xit"));
    cmdHilfe = Befehlsknopf(this, QStringLiteral("cmdHilfe"), QStringLiteral("&Hilfe"));

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
    auto* raster = new QGridLayout;
    raster->addWidget(new QLabel(QStringLiteral("in HTML-Tabelle anzeigen"), this), 0, 1);
    raster->addWidget(new QLabel(QStringLiteral("nicht in HTML-Tabelle anzeigen"), this), 0, 3);
    raster->addLayout(hochTief, 1, 0);
    raster->addWidget(lstTabelle, 1, 1);
    raster->addLayout(mitte, 1, 2);
    raster->addWidget(lstSpalten, 1, 3);
    auto* felder = new QGridLayout;
    felder->addWidget(new QLabel(QStringLiteral("Tabellenzeilen"), this), 0, 0);
    felder->addWidget(txtTabellenzeilen, 0, 1);
    felder->addWidget(new QLabel(QStringLiteral("Tabellenüberschrift"), this), 1, 0);
    felder->addWidget(txtTabellenUeberschrift, 1, 1);
    felder->addWidget(new QLabel(QStringLiteral("Tragen Sie hier Ihre Internet-Adresse ein!"), this), 2, 0);
    felder->addWidget(txtURL, 2, 1);
    auto* knoepfe = new QHBoxLayout;
    knoepfe->addStretch();
    knoepfe->addWidget(cmdOK);
    knoepfe->addWidget(cmdExit);
    knoepfe->addWidget(cmdHilfe);
    auto* spalte = new QVBoxLayout(this);
    spalte->addLayout(raster);
    spalte->addLayout(felder);
    spalte->addLayout(knoepfe);

    connect(cmdEinfuegen, &QPushButton::clicked, this, [this] { ListenEintragVerschieben(lstSpalten, lstTabelle); });
    connect(cmdEntfernen, &QPushButton::clicked, this, [this] { ListenEintragVerschieben(lstTabelle, lstSpalten); });
    for (int i = 0; i < 2; ++i)
        connect(cmdHochTief[i], &QPushButton::clicked, this, [this, i] { ListenEintragHochTief(lstTabelle, i); });
    connect(lstSpalten, &QListWidget::itemClicked, this, [this] {
        for (QPushButton* k : cmdHochTief)
            k->setEnabled(false);
    });
    connect(lstTabelle, &QListWidget::itemClicked, this, [this] {
        for (QPushButton* k : cmdHochTief)
            k->setEnabled(true);
    });
    connect(cmdOK, &QPushButton::clicked, this, [this] { cmdOK_Click(); });
    connect(cmdExit, &QPushButton::clicked, this, &QDialog::reject);
    connect(cmdHilfe, &QPushButton::clicked, this, [] { HilfeAufrufen(QStringLiteral("webtabelle.html")); });

    // Load: the fifteen columns with their side, then the three fields.
    ProgrammschriftSetzen(lstTabelle, {lstSpalten});
    for (int n = 0; n < Spaltenzahl; ++n) {
        const QString wert = Lesen(schluessel(n), QLatin1String(Standardspalten[n]) + u'1');
        if (wert.endsWith(u'0'))
            lstSpalten->addItem(wert.chopped(1));
        else
            lstTabelle->addItem(wert.endsWith(u'1') ? wert.chopped(1) : wert);
    }
    txtTabellenzeilen->setText(Lesen(QStringLiteral("WebTabelleZeilenanzahl"), QStringLiteral("50")));
    txtTabellenUeberschrift->setText(Lesen(QStringLiteral("WebTabelleUeberschrift"), QStringLiteral("Rillenkammer")));
    txtURL->setText(Lesen(QStringLiteral("WebTabelleURL"), Webseiten::StandardURL));
}

QStringList frmWebTabelle::Spalten() const
{
    QStringList namen;
    for (int i = 0; i < lstTabelle->count(); ++i)
        namen << lstTabelle->item(i)->text();
    return namen;
}

void frmWebTabelle::cmdOK_Click()
{
    // The keys' order carries the columns' order: the shown ones first, then the others.
    int n = 0;
    for (const QString& name : Spalten())
        Speichern(schluessel(n++), name + u'1');
    for (int i = 0; i < lstSpalten->count(); ++i)
        Speichern(schluessel(n++), lstSpalten->item(i)->text() + u'0');
    Speichern(QStringLiteral("WebTabelleZeilenanzahl"), txtTabellenzeilen->text());
    Speichern(QStringLiteral("WebTabelleUeberschrift"), txtTabellenUeberschrift->text());
    Speichern(QStringLiteral("WebTabelleURL"), txtURL->text().trimmed());
    accept();
}
