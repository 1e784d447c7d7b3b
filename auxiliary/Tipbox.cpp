#include "auxiliary/Tipbox.h"

#include "platform/Textdatei.h"
#include "shell/Einstellungen.h"
#include "shell/Globale.h"
#include "shell/Grundregeln.h"

#include <QCheckBox>
#include <QIcon>
#include <QFileInfo>
#include <QGridLayout>
#include <QHBoxLayout>
#include <QLabel>
#include <QPushButton>
#include <QVBoxLayout>

#include <algorithm>

Tipbox::Tipbox(QWidget* eltern)
    : QDialog(eltern)
{
    setObjectName(QStringLiteral("Tipbox"));
    setWindowTitle(QStringLiteral("Tipps && Tricks").replace(QStringLiteral("&&"), QStringLiteral("&")));
    setAttribute(Qt::WA_DeleteOnClose, false);

    Picture1 = new QLabel(this);
    Picture1->setObjectName(QStringLiteral("Picture1"));
    Picture1->setPixmap(QIcon(QStringLiteral(":/resources/desktop/rillenkammer.svg")).pixmap(48, 48));
    Picture1->setAlignment(Qt::AlignTop | Qt::AlignHCenter);
    Label1 = new QLabel(QStringLiteral("Wußten Sie schon.."), this);
    Label1->setObjectName(QStringLiteral("Label1"));
    QFont fett = Label1->font();
    fett.setBold(true);
    fett.setPointSizeF(fett.pointSizeF() * 1.3);
    Label1->setFont(fett);
    lblTipText = new QLabel(this);
    lblTipText->setObjectName(QStringLiteral("lblTipText"));
    lblTipText->setWordWrap(true);
    lblTipText->setAlignment(Qt::AlignTop | Qt::AlignLeft);
    lblTipText->setMinimumSize(420, 150);
    lblTipText->setFrameShape(QFrame::StyledPanel);
    lblTipText->setMargin(8);
    lblTipText->setAutoFillBackground(true);
    QPalette hell = lblTipText->palette();
    hell.setColor(QPalette::Window, QColor(0xFF, 0xFF, 0xE1));
    lblTipText->setPalette(hell);
    chkLoadTipsAtStartup = new QCheckBox(QStringLiteral("&Tipps beim Starten anzeigen"), this);
    chkLoadTipsAtStartup->setObjectName(QStringLiteral("chkLoadTipsAtStartup"));
    cmdNextTip = new QPushButton(QStringLiteral("&Nächster Tipp"), this);
    cmdNextTip->setObjectName(QStringLiteral("cmdNextTip"));
    cmdOK = new QPushButton(QStringLiteral("OK"), this);
    cmdOK->setObjectName(QStringLiteral("cmdOK"));
    cmdOK->setDefault(true);

    auto* raster = new QGridLayout(this);
    raster->addWidget(Picture1, 0, 0, 2, 1);
    raster->addWidget(Label1, 0, 1);
    raster->addWidget(lblTipText, 1, 1);
    auto* knoepfe = new QVBoxLayout;
    knoepfe->addWidget(cmdOK);
    knoepfe->addWidget(cmdNextTip);
    knoepfe->addStretch();
    raster->addLayout(knoepfe, 0, 2, 2, 1);
    raster->addWidget(chkLoadTipsAtStartup, 2, 1);

    QFont schrift = lblTipText->font();
    schrift.setFamily(Lesen(QStringLiteral("ProgSchriftName"), QStringLiteral("Segoe UI")));
    if (const auto groesse = Zahl(Lesen(QStringLiteral("ProgSchriftSize"), QStringLiteral("12"))); groesse && *groesse > 0)
        schrift.setPointSizeF(std::min(*groesse, 72.0));
    lblTipText->setFont(schrift);

    if (!TippsVomMenue && Lesen(QStringLiteral("Show Tips at Startup"), QStringLiteral("1")) == u"0") {
        m_geladen = false;
        return;
    }
    chkLoadTipsAtStartup->setChecked(Lesen(QStringLiteral("Show Tips at Startup"), QStringLiteral("1")) != u"0");
    connect(chkLoadTipsAtStartup, &QCheckBox::clicked, this, [this] {
        Speichern(QStringLiteral("Show Tips at Startup"), chkLoadTipsAtStartup->isChecked() ? QStringLiteral("1")
                                                                                              : QStringLiteral("0"));
    });
    connect(cmdNextTip, &QPushButton::clicked, this, [this] { cmdNextTip_Click(); });
    connect(cmdOK, &QPushButton::clicked, this, &QDialog::accept);

    const QString datei = QStringLiteral("TipOfDay.ini");
    if (!LoadTips(ProgrammOrdner + datei))
        lblTipText->setText(QStringLiteral("Die Datei ") + datei + QStringLiteral(" wurde nicht gefunden? \n")
                            + QStringLiteral("Textdatei mit dem Namen ") + datei
                            + QStringLiteral(" unter Verwendung von NotePad mit 1 Tip pro Zeile erstellen. \n")
                            + QStringLiteral("Dann im selben Verzeichnis wie die Anwendung ablegen. "));
}

bool Tipbox::LoadTips(const QString& pfad)
{
    if (pfad.isEmpty() || !QFileInfo(pfad).isFile())
        return false;
    bool ok = false;
    m_tips = TextdateiLesen(pfad, &ok);
    if (!ok)
        return false;
    cmdNextTip_Click();
    return true;
}

void Tipbox::cmdNextTip_Click()
{
    ++AktuellerTip;
    if (AktuellerTip > m_tips.size())
        AktuellerTip = 1;
    DisplaypriCurrentTip();
}

void Tipbox::DisplaypriCurrentTip()
{
    if (!m_tips.isEmpty())
        lblTipText->setText(m_tips.at(AktuellerTip - 1));
}
