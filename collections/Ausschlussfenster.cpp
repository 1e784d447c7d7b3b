#include "collections/Ausschlussfenster.h"

#include "collections/Ausschlusslisten.h"
#include "platform/Einheiten.h"
#include "platform/Laufzeitfehler.h"
#include "platform/Mauszeiger.h"
#include "shell/Einstellungen.h"
#include "shell/Grundregeln.h"
#include "shell/Steuerelemente.h"

#include <QCheckBox>
#include <QHBoxLayout>
#include <QListWidget>
#include <QPushButton>
#include <QSet>
#include <QVBoxLayout>

Ausschlussfenster::Ausschlussfenster(QWidget* eltern, QListWidget* liste, const QString& schluessel,
                                     QString (*pfad)(const QString&), const QString& legende)
    : VerlaufFenster(eltern)
    , m_liste(liste)
    , m_schluessel(schluessel)
    , m_pfad(pfad)
{
    setFarbverlauf(Farbe::VerlaufEnde, Farbe::StandardHintergrund, VerlaufSenkrecht);
    QPalette p = palette();
    p.setColor(QPalette::WindowText, NummerFarbe(Farbe::StandardText));
    setPalette(p);

    m_liste->setParent(this);
    m_liste->setSelectionMode(QAbstractItemView::SingleSelection);
    m_liste->setUniformItemSizes(true);
    m_liste->setMinimumSize(Px(3900), Px(5400));

    // The legend is a check box that cannot be cleared, so it looks like the list's boxes.
    Check1 = new QCheckBox(QStringLiteral("= ") + legende + QStringLiteral(" wird nicht berücksichtigt"), this);
    Check1->setObjectName(QStringLiteral("Check1"));
    Check1->setChecked(true);
    Check1->setFocusPolicy(Qt::NoFocus);
    cmdOK = Befehlsknopf(this, QStringLiteral("cmdOK"), QStringLiteral("&OK"));
    cmdOK->setDefault(true);
    cmdOK->setToolTip(QStringLiteral(" Häkchen speichern "));
    cmdExit = Befehlsknopf(this, QStringLiteral("cmdExit"), QStringLiteral("E&xit"));
    cmdExit->setToolTip(QStringLiteral(" Ohne Speichern schließen "));

    auto* knoepfe = new QHBoxLayout;
    knoepfe->addStretch();
    knoepfe->addWidget(cmdOK);
    knoepfe->addWidget(cmdExit);

    auto* aussen = new QVBoxLayout(this);
    aussen->setContentsMargins(Px(180), Px(150), Px(180), Px(150));
    aussen->addWidget(m_liste, 1);
    aussen->addSpacing(Px(60));
    aussen->addWidget(Check1);
    aussen->addSpacing(Px(90));
    aussen->addLayout(knoepfe);

    setTabOrder(m_liste, cmdOK);
    setTabOrder(cmdOK, cmdExit);

    KlickVerbinden(Check1, this, [this] { Check1_Click(); });
    connect(cmdOK, &QPushButton::clicked, this, [this] { cmdOK_Click(); });
    connect(cmdExit, &QPushButton::clicked, this, [this] { cmdExit_Click(); });
}

void Ausschlussfenster::Anzeigen() { exec(); }

void Ausschlussfenster::SchriftLesen()
{
    ProgrammschriftSetzen(m_liste);
}

void Ausschlussfenster::EintraegeSetzen(const QStringList& eintraege)
{
    m_liste->setUpdatesEnabled(false);
    m_liste->clear();
    m_liste->addItems(eintraege);
    for (int i = 0; i < m_liste->count(); ++i) {
        QListWidgetItem* eintrag = m_liste->item(i);
        eintrag->setFlags(eintrag->flags() | Qt::ItemIsUserCheckable);
        eintrag->setCheckState(Qt::Unchecked);
    }
    m_liste->setUpdatesEnabled(true);
}

QString Ausschlussfenster::Listendatei() const { return m_pfad(Lesen(m_schluessel)); }

void Ausschlussfenster::HaekchenSetzen()
{
    bool vorhanden = false;
    const QStringList zeilen = AusschlussEintraege(Listendatei(), &vorhanden);
    if (!vorhanden)
        return;
    Mauszeiger(ZeigerSanduhr);
    const QSet<QString> ausgeschlossen(zeilen.begin(), zeilen.end());
    for (int i = 0; i < m_liste->count(); ++i) {
        QListWidgetItem* eintrag = m_liste->item(i);
        if (ausgeschlossen.contains(eintrag->text()))
            eintrag->setCheckState(Qt::Checked);
    }
    Mauszeiger(ZeigerStandard);
}

QStringList Ausschlussfenster::Ausgeschlossen() const
{
    QStringList eintraege;
    for (int i = 0; i < m_liste->count(); ++i)
        if (m_liste->item(i)->checkState() == Qt::Checked)
            eintraege << m_liste->item(i)->text();
    return eintraege;
}

void Ausschlussfenster::Check1_Click() { Check1->setChecked(true); }

void Ausschlussfenster::cmdOK_Click()
{
    const QString pfad = Listendatei();
    // Without a known use there is no file to write: the window only closes.
    if (!pfad.isEmpty() && !AusschlussListeSpeichern(pfad, Ausgeschlossen())) {
        // The check marks stay, so the user can try again or leave with Exit.
        Mauszeiger(ZeigerStandard);
        Fehlermeldung(Laufzeitfehler(Fehlernummer::ZugriffsFehler), objectName() + QStringLiteral("_cmdOK_Click"));
        return;
    }
    Mauszeiger(ZeigerStandard);
    accept();
}

void Ausschlussfenster::cmdExit_Click() { reject(); }
