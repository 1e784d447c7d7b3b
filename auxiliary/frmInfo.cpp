#include "auxiliary/frmInfo.h"

#include "platform/Dienste.h"
#include "platform/Uhr.h"
#include "shell/Einstellungen.h"
#include "shell/Globale.h"
#include "shell/Steuerelemente.h"

#include <QFrame>
#include <QHBoxLayout>
#include <QIcon>
#include <QKeyEvent>
#include <QLabel>
#include <QMouseEvent>
#include <QPainter>
#include <QVBoxLayout>

#include <algorithm>

#ifndef RK_VERSION
#define RK_VERSION "0.0.0"
#endif

QStringList Abspannzeilen(const QString& programmName, const QString& version)
{
    return {QStringLiteral("L u m i v o x"),
            QString(),
            QStringLiteral("presents..."),
            QString(),
            QString(),
            programmName,
            QString(),
            QStringLiteral("Versionsnummer: ") + version,
            QString(),
            QStringLiteral("*"),
            QString(),
            QStringLiteral("Ein Archiv für Schallplatten,"),
            QStringLiteral("Kassetten, CDs und Dateien"),
            QStringLiteral("für Sammler, die ihre Musik kennen."),
            QStringLiteral("Die Musik: ein kurzer Blues,"),
            QStringLiteral("eigens für dieses Fenster gespielt."),
            QStringLiteral("Danke fürs Sammeln!"),
            QString(),
            QString(),
            QStringLiteral("- - -")};
}

frmInfo::frmInfo(QWidget* eltern)
    : QDialog(eltern)
{
    setObjectName(QStringLiteral("frmInfo"));
    setWindowTitle(QStringLiteral("Info"));
    resize(420, 330);
    Picture1 = new QFrame(this);
    Picture1->setObjectName(QStringLiteral("Picture1"));
    Picture1->setFrameStyle(QFrame::Panel | QFrame::Sunken);
    Picture1->setLineWidth(2);
    Picture1->setFocusPolicy(Qt::StrongFocus);
    Picture1->setAutoFillBackground(true);
    QPalette dunkel = Picture1->palette();
    dunkel.setColor(QPalette::Window, QColor(0x10, 0x18, 0x30));
    dunkel.setColor(QPalette::WindowText, QColor(0xF0, 0xE6, 0xC8));
    Picture1->setPalette(dunkel);
    QFont schrift = Picture1->font();
    schrift.setPointSizeF(schrift.pointSizeF() * 1.2);
    Picture1->setFont(schrift);
    Picture2 = new QLabel(Picture1);
    Picture2->setObjectName(QStringLiteral("Picture2"));
    Picture2->setToolTip(QStringLiteral(" Start/Stop "));
    Picture2->setFocusPolicy(Qt::ClickFocus);
    Picture2->installEventFilter(this);
    Picture1->installEventFilter(this);

    Rahmen = new QFrame(this);
    Rahmen->setObjectName(QStringLiteral("Rahmen"));
    Rahmen->setFrameStyle(QFrame::Box | QFrame::Raised);
    BildNimb = new Bildfeld(Rahmen);
    BildNimb->setObjectName(QStringLiteral("BildNimb"));
    BildNimb->setFrameStyle(QFrame::Panel | QFrame::Raised);
    BildNimb->setBild(QIcon(QStringLiteral(":/resources/desktop/rillenkammer.svg")).pixmap(48, 48));
    BildNimb->setText(BildNimb->Bild().isNull() ? QStringLiteral("OK") : QString());
    BildNimb->setAlignment(Qt::AlignCenter);
    BildNimb->setMinimumSize(64, 40);
    BildNimb->setToolTip(QStringLiteral(" Schließen "));
    BildNimb->installEventFilter(this);
    auto* rahmen = new QHBoxLayout(Rahmen);
    rahmen->addWidget(BildNimb);

    auto* spalte = new QVBoxLayout(this);
    spalte->addWidget(Picture1, 1);
    auto* unten = new QHBoxLayout;
    unten->addStretch();
    unten->addWidget(Rahmen);
    spalte->addLayout(unten);

    Timer1 = D().uhr().neuerZeitgeber(this);
    Timer1->setObjectName(QStringLiteral("Timer1"));
    Timer1->setInterval(50);
    Timer1->setProperty("Tag", QStringLiteral("1"));
    connect(Timer1, &Zeitgeber::Timer, this, [this] { Timer1_Timer(); });
    Picture1->setFocus();
    // The sheet takes the pane's width, which the layout gives it only now.
    spalte->activate();
    AbspannAufbauen();
}

frmInfo::~frmInfo()
{
    // No such file: the call only ends the music that still runs.
    D().klang().abspielen(ProgrammOrdner + u' ');
}

void frmInfo::AbspannAufbauen()
{
    D().klang().abspielen(ProgrammOrdner + QStringLiteral("Blues.wav"));
    Timer1->setEnabled(false);
    Picture2->hide();
    const QFontMetrics masse(Picture1->font());
    const int breite = std::max(Picture1->width(), 300);
    const int zeile = masse.height();
    QPixmap blatt(breite, zeile * 20);
    blatt.fill(Picture1->palette().color(QPalette::Window));
    QPainter maler(&blatt);
    maler.setFont(Picture1->font());
    maler.setPen(Picture1->palette().color(QPalette::WindowText));
    const QStringList zeilen
        = Abspannzeilen(Lesen(QStringLiteral("ProgrammName"), QStringLiteral("R i l l e n k a m m e r")),
                        QStringLiteral(RK_VERSION));
    for (int i = 0; i < zeilen.size(); ++i)
        maler.drawText((breite - masse.horizontalAdvance(zeilen[i])) / 2, i * zeile + masse.ascent(), zeilen[i]);
    maler.end();
    Picture2->setPixmap(blatt);
    Picture2->setGeometry(0, 0, breite, blatt.height());
    Picture2->show();
    Timer1->setEnabled(true);
}

void frmInfo::Timer1_Timer()
{
    const int tempo = Timer1->property("Tag").toString().toInt();
    if (Picture2->y() + Picture2->height() < 0) {
        Timer1->setEnabled(false);
        AbspannAufbauen();
        return;
    }
    Picture2->move(Picture2->x(), Picture2->y() - tempo);
}

bool frmInfo::eventFilter(QObject* objekt, QEvent* ereignis)
{
    if (objekt == Picture2 && ereignis->type() == QEvent::MouseButtonPress) {
        Timer1->setEnabled(!Timer1->isEnabled());
        return true;
    }
    if (objekt == BildNimb && ereignis->type() == QEvent::MouseButtonPress) {
        BildNimb->setFrameShadow(QFrame::Sunken);
        return true;
    }
    if (objekt == BildNimb && ereignis->type() == QEvent::MouseButtonRelease) {
        BildNimb->setFrameShadow(QFrame::Raised);
        D().klang().abspielen(ProgrammOrdner + u' ');
        accept();
        return true;
    }
    if ((objekt == Picture1 || objekt == Picture2) && ereignis->type() == QEvent::KeyPress
        && static_cast<QKeyEvent*>(ereignis)->key() == Qt::Key_Escape) {
        accept();
        return true;
    }
    return QDialog::eventFilter(objekt, ereignis);
}

void frmInfo::keyPressEvent(QKeyEvent* e)
{
    // Esc closes the window only from the credits' panes, as their own key.
    if (e->key() == Qt::Key_Escape) {
        e->accept();
        return;
    }
    QDialog::keyPressEvent(e);
}
