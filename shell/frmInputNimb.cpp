#include "shell/frmInputNimb.h"

#include "platform/Dienste.h"
#include "platform/Einheiten.h"
#include "shell/Farbverlauf.h"
#include "shell/Globale.h"

#include <QApplication>
#include <QLabel>
#include <QLineEdit>
#include <QPointer>
#include <QPushButton>
#include <QShowEvent>

namespace {
// Design measures in twips.
constexpr int Breite = 5460;
constexpr int Hoehe = 1800;
constexpr int Rand = 120;
constexpr int KnopfBreite = 1095;
constexpr int KnopfHoehe = 375;
} // namespace

frmInputNimb::frmInputNimb(QWidget* eltern)
    : QDialog(eltern)
{
    setObjectName(QStringLiteral("frmInputNimb"));
    QFont schrift = QApplication::font();
    schrift.setFamilies({QStringLiteral("Segoe UI"), QApplication::font().family()});
    schrift.setPointSize(9);
    setFont(schrift);
    setAutoFillBackground(true);

    lblText = new QLabel(this);
    lblText->setObjectName(QStringLiteral("lblText"));
    lblText->setWordWrap(true);
    lblText->setAlignment(Qt::AlignLeft | Qt::AlignTop);
    lblText->setTextFormat(Qt::PlainText);

    txtInputText = new QLineEdit(this);
    txtInputText->setObjectName(QStringLiteral("txtInputText"));
    lblText->setBuddy(txtInputText);

    cmdOK = new QPushButton(QStringLiteral("&OK"), this);
    cmdOK->setObjectName(QStringLiteral("cmdOK"));
    cmdOK->setDefault(true);
    cmdExit = new QPushButton(QStringLiteral("E&xit "), this);
    cmdExit->setObjectName(QStringLiteral("cmdExit"));
    connect(cmdOK, &QPushButton::clicked, this, &QDialog::accept);
    connect(cmdExit, &QPushButton::clicked, this, &frmInputNimb::reject);

    setTabOrder(txtInputText, cmdOK);
    setTabOrder(cmdOK, cmdExit);
    setFixedSize(Px(Breite), Px(Hoehe));
}

void frmInputNimb::Vorbereiten(const Eingabe& e)
{
    QPalette pal = palette();
    pal.setColor(QPalette::Window,
                 FarbeAusNummer(e.hintergrund == -1 ? Farbe::StandardHintergrund : e.hintergrund));
    pal.setColor(QPalette::WindowText,
                 FarbeAusNummer(e.textfarbe == -1 ? Farbe::StandardText : e.textfarbe));
    setPalette(pal);
    // The entry keeps the ordinary field colours so that it reads as a field.
    txtInputText->setPalette(QApplication::palette(txtInputText));
    setWindowTitle(e.titel);
    lblText->setText(e.prompt);
    txtInputText->setText(e.vorgabe);
    txtInputText->selectAll();

    // Buttons at the right, the prompt beside them, the entry across the foot.
    const int rand = Px(Rand);
    const QSize knopf(qMax(Px(KnopfBreite), qMax(cmdOK->sizeHint().width(), cmdExit->sizeHint().width())),
                      qMax(Px(KnopfHoehe), cmdOK->sizeHint().height()));
    const int feldHoehe = txtInputText->sizeHint().height();
    const int breite = Px(Breite);
    const int textBreite = breite - 3 * rand - knopf.width();
    // A long prompt makes the box taller instead of being cut off.
    const int textHoehe = qMax(Px(Hoehe) - feldHoehe - 3 * rand, lblText->heightForWidth(textBreite));
    const int hoehe = textHoehe + feldHoehe + 3 * rand;
    lblText->setGeometry(rand, rand, textBreite, textHoehe);
    cmdOK->setGeometry(breite - rand - knopf.width(), rand, knopf.width(), knopf.height());
    cmdExit->setGeometry(cmdOK->x(), cmdOK->y() + knopf.height() + rand / 2, knopf.width(),
                         knopf.height());
    txtInputText->setGeometry(rand, hoehe - rand - feldHoehe, breite - 2 * rand, feldHoehe);
    setFixedSize(breite, hoehe);
}

QString frmInputNimb::Anzeigen()
{
    QPointer<frmInputNimb> selbst(this);
    exec();
    return selbst ? txtInputText->text().trimmed() : QString();
}

void frmInputNimb::reject()
{
    txtInputText->clear();
    QDialog::reject();
}

void frmInputNimb::showEvent(QShowEvent* e)
{
    QDialog::showEvent(e);
    if (e->spontaneous())
        return;
    txtInputText->setFocus();
    D().klang().abspielen(ProgrammOrdner + QStringLiteral("Fragezeichen.wav"));
}
