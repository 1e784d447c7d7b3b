#include "collections/frmKillTrack.h"

#include "auxiliary/Hilfe.h"
#include "collections/Trackdateien.h"
#include "platform/Einheiten.h"
#include "shell/Ausgabebox.h"
#include "shell/Steuerelemente.h"

#include <QHBoxLayout>
#include <QLabel>
#include <QPushButton>
#include <QStyle>
#include <QVBoxLayout>

frmKillTrack::frmKillTrack(Ausgabebox& box)
    : VerlaufFenster(&box)
    , m_box(box)
{
    setObjectName(QStringLiteral("frmKillTrack"));
    setWindowTitle(QStringLiteral("Tracks löschen"));
    setFarbverlauf(Farbe::VerlaufEnde, Farbe::StandardHintergrund, VerlaufSenkrecht);
    QPalette p = palette();
    p.setColor(QPalette::WindowText, NummerFarbe(Farbe::StandardText));
    setPalette(p);

    lblFrage = new QLabel(QStringLiteral("Alle markierten Tracks löschen?"), this);
    lblFrage->setObjectName(QStringLiteral("lblFrage"));
    QFont gross = lblFrage->font();
    gross.setPointSizeF(gross.pointSizeF() * 1.3);
    gross.setBold(true);
    lblFrage->setFont(gross);
    lblMethode = new QLabel(QStringLiteral("Löschmethode wählen:"), this);
    lblMethode->setObjectName(QStringLiteral("lblMethode"));

    const char* const texte[4] = {"&Papierkorb", "&Sicher", "&Normal", "&Abbrechen"};
    const char* const tipps[4]
        = {" In den Papierkorb verschieben ", " Mit Leerzeichen überschreiben, dann löschen ",
           " Sofort löschen, ohne Papierkorb ", " Nichts löschen "};
    auto* knoepfe = new QHBoxLayout;
    for (int i = 0; i < cmdKill.Anzahl(); ++i) {
        QPushButton* k = Befehlsknopf(this, cmdKill.Name(i), QString::fromUtf8(texte[i]),
                                      QString::fromUtf8(tipps[i]));
        cmdKill[i] = k;
        knoepfe->addWidget(k);
        connect(k, &QPushButton::clicked, this, [this, i] { cmdKill_Click(i); });
    }
    // Enter keeps every file.
    cmdKill[3]->setDefault(true);

    imgHilfe = new Bildknopf(this);
    imgHilfe->setObjectName(QStringLiteral("imgHilfe"));
    imgHilfe->setIcon(style()->standardIcon(QStyle::SP_DialogHelpButton));
    imgHilfe->setToolTip(QStringLiteral(" Hilfe "));
    connect(imgHilfe, &Bildknopf::clicked, this, [this] { imgHilfe_Click(); });

    auto* kopf = new QHBoxLayout;
    kopf->addWidget(lblFrage, 1);
    kopf->addWidget(imgHilfe, 0, Qt::AlignTop);

    auto* aussen = new QVBoxLayout(this);
    aussen->setContentsMargins(Px(240), Px(180), Px(240), Px(180));
    aussen->addLayout(kopf);
    aussen->addSpacing(Px(150));
    aussen->addWidget(lblMethode);
    aussen->addSpacing(Px(60));
    aussen->addLayout(knoepfe);
    cmdKill[3]->setFocus();
}

void frmKillTrack::cmdKill_Click(int index)
{
    if (index >= 0 && index < 3) {
        // No second click while the Tracks go.
        for (QPushButton* k : cmdKill)
            k->setEnabled(false);
        m_box.trackdateien().TracksLoeschen(Loeschmodus[index]);
    }
    accept();
}

void frmKillTrack::imgHilfe_Click() { HilfeAufrufen(QStringLiteral("extras.html")); }
