#include "media/Suchform.h"

#include "platform/Einheiten.h"
#include "shell/FensterPlatzieren.h"
#include "shell/Globale.h"
#include "shell/Steuerelemente.h"

#include <QCheckBox>
#include <QGridLayout>
#include <QHBoxLayout>
#include <QLabel>
#include <QPushButton>
#include <QVBoxLayout>

bool AllesErsetzen = false;
bool GrossKleinschreibung = false;
bool GanzesWort = false;
bool ErsetzenModus = false;

Suchform::Suchform(QWidget* eltern)
    : VerlaufFenster(eltern)
{
    setObjectName(QStringLiteral("Suchform"));
    setWindowTitle(QStringLiteral("Suchen & Ersetzen"));
    QPalette p = palette();
    p.setColor(QPalette::WindowText, NummerFarbe(Farbe::StandardText));
    setPalette(p);

    // No buddy: the label shows its ampersand as written.
    lblLogo = new QLabel(QStringLiteral("Suchen & Ersetzen"), this);
    lblLogo->setObjectName(QStringLiteral("lblLogo"));
    QFont logo = lblLogo->font();
    logo.setPointSizeF(logo.pointSizeF() * 1.6);
    logo.setBold(true);
    lblLogo->setFont(logo);

    Text_Suchen = new Textfeld(this);
    Text_Suchen->setObjectName(QStringLiteral("Text_Suchen"));
    lblSuchen = new QLabel(QStringLiteral("Suchen nach:"), this);
    lblSuchen->setObjectName(QStringLiteral("lblSuchen"));
    Text_Ersetzen = new Textfeld(this);
    Text_Ersetzen->setObjectName(QStringLiteral("Text_Ersetzen"));
    lblErsetzen = new QLabel(QStringLiteral("Ersetzen durch:"), this);
    lblErsetzen->setObjectName(QStringLiteral("lblErsetzen"));

    Check_GrossKleinschreibung = new QCheckBox(QStringLiteral("Groß/Kleinschreibung"), this);
    Check_GrossKleinschreibung->setObjectName(QStringLiteral("Check_GrossKleinschreibung"));
    Check_AllesErsetzen = new QCheckBox(QStringLiteral("&Alles ersetzen"), this);
    Check_AllesErsetzen->setObjectName(QStringLiteral("Check_AllesErsetzen"));
    Check_GanzesWort = new QCheckBox(QStringLiteral("Nur ganzes &Wort"), this);
    Check_GanzesWort->setObjectName(QStringLiteral("Check_GanzesWort"));

    Button_OK = Befehlsknopf(this, QStringLiteral("Button_OK"), QStringLiteral("&OK"));
    Button_OK->setDefault(true);
    Button_Exit = Befehlsknopf(this, QStringLiteral("Button_Exit"), QStringLiteral("E&xit"));

    auto* felder = new QGridLayout;
    felder->addWidget(lblSuchen, 0, 0);
    felder->addWidget(Text_Suchen, 0, 1);
    felder->addWidget(lblErsetzen, 1, 0);
    felder->addWidget(Text_Ersetzen, 1, 1);
    felder->setColumnStretch(1, 1);
    felder->setColumnMinimumWidth(1, Px(4000));

    auto* optionen = new QVBoxLayout;
    optionen->addWidget(Check_GrossKleinschreibung);
    optionen->addWidget(Check_AllesErsetzen);
    optionen->addWidget(Check_GanzesWort);
    auto* knoepfe = new QVBoxLayout;
    knoepfe->addWidget(Button_OK);
    knoepfe->addWidget(Button_Exit);
    knoepfe->addStretch();
    auto* unten = new QHBoxLayout;
    unten->addLayout(optionen);
    unten->addStretch();
    unten->addLayout(knoepfe);

    auto* aussen = new QVBoxLayout(this);
    aussen->setContentsMargins(Px(200), Px(150), Px(200), Px(200));
    aussen->addWidget(lblLogo);
    aussen->addSpacing(Px(120));
    aussen->addLayout(felder);
    aussen->addSpacing(Px(120));
    aussen->addLayout(unten);

    setTabOrder(Text_Suchen, Text_Ersetzen);
    setTabOrder(Text_Ersetzen, Check_GrossKleinschreibung);
    setTabOrder(Check_GrossKleinschreibung, Check_AllesErsetzen);
    setTabOrder(Check_AllesErsetzen, Check_GanzesWort);
    setTabOrder(Check_GanzesWort, Button_OK);
    setTabOrder(Button_OK, Button_Exit);

    KlickVerbinden(Check_AllesErsetzen, this, [this] { AllesErsetzen = Check_AllesErsetzen->isChecked(); });
    KlickVerbinden(Check_GrossKleinschreibung, this,
                   [this] { GrossKleinschreibung = Check_GrossKleinschreibung->isChecked(); });
    connect(Button_OK, &QPushButton::clicked, this, [this] { Button_OK_Click(); });
    connect(Button_Exit, &QPushButton::clicked, this, [this] { Button_Exit_Click(); });
}

void Suchform::Anzeigen(QWidget* bezug, const QString& titel)
{
    Suchform fenster(bezug);
    if (!titel.isEmpty())
        fenster.setWindowTitle(titel);
    fenster.Form_Load();
    fenster.adjustSize();
    FensterPlatzieren(&fenster, bezug, QStringLiteral("center"), 10);
    fenster.exec();
}

void Suchform::Form_Load()
{
    Text_Suchen->setText(SuchAbfrage);
    Text_Suchen->selectAll();
    Text_Ersetzen->setText(ErsetzenDurch);
    Text_Ersetzen->selectAll();
    for (QWidget* w : std::initializer_list<QWidget*>{lblErsetzen, Text_Ersetzen, Check_AllesErsetzen})
        w->setEnabled(ErsetzenModus);
    Text_Suchen->setFocus();
}

void Suchform::Button_OK_Click()
{
    SuchAbfrage = Text_Suchen->text();
    if (Check_GanzesWort->isChecked()) {
        GanzesWort = true;
        SuchAbfrage = u' ' + SuchAbfrage + u' ';
    }
    ErsetzenDurch = Text_Ersetzen->text();
    ErsetzenModus = false;
    accept();
}

void Suchform::Button_Exit_Click() { reject(); }

void Suchform::done(int ergebnis)
{
    if (ergebnis != QDialog::Accepted) {
        SuchAbfrage.clear();
        ErsetzenModus = false;
    }
    VerlaufFenster::done(ergebnis);
}
