#include "playback/frmUhrzeit.h"

#include "platform/Dialogdienst.h"
#include "platform/Dienste.h"
#include "platform/Einheiten.h"
#include "platform/Uhr.h"
#include "shell/Steuerelemente.h"

#include <QApplication>
#include <QFocusEvent>
#include <QGridLayout>
#include <QHBoxLayout>
#include <QLabel>
#include <QPushButton>
#include <QRegularExpressionValidator>
#include <QTimer>
#include <QVBoxLayout>

QString SleepZeit = QStringLiteral("00:00");

namespace {

QString Uhrzeit() { return D().uhr().jetzt().time().toString(QStringLiteral("hh:mm:ss")); }

} // namespace

frmUhrzeit::frmUhrzeit(QWidget* eltern)
    : VerlaufFenster(eltern)
{
    setObjectName(QStringLiteral("frmUhrzeit"));
    QPalette p = palette();
    p.setColor(QPalette::WindowText, NummerFarbe(Farbe::StandardText));
    setPalette(p);

    const char* beschriftung[] = {"Std.", "Min."};
    const char* tipp[] = {" Stunde 00-24 ", " Minute 00-60 "};
    for (int i = 0; i < 2; ++i) {
        auto* feld = new Textfeld(this);
        feld->setObjectName(Text1.Name(i));
        feld->setMaxLength(2);
        feld->setValidator(new QRegularExpressionValidator(QRegularExpression(QStringLiteral("\\d{0,2}")), feld));
        feld->setAlignment(Qt::AlignCenter);
        feld->setToolTip(QLatin1String(tipp[i]));
        QFont gross = feld->font();
        gross.setPointSizeF(gross.pointSizeF() * 1.8);
        feld->setFont(gross);
        feld->setFixedWidth(feld->fontMetrics().horizontalAdvance(QStringLiteral("000")) + Px(240));
        feld->installEventFilter(this);
        Text1[i] = feld;
        auto* label = new QLabel(QLatin1String(beschriftung[i]), this);
        label->setObjectName(Label1.Name(i));
        label->setBuddy(feld);
        Label1[i] = label;
        connect(feld, &QLineEdit::textEdited, this, [this, i] { Text1_Change(i); });
    }
    cmdOK = Befehlsknopf(this, QStringLiteral("cmdOK"), QStringLiteral("&OK"));
    cmdOK->setDefault(true);
    cmdExit = Befehlsknopf(this, QStringLiteral("cmdExit"), QStringLiteral("E&xit"));

    auto* zeit = new QHBoxLayout;
    zeit->addStretch();
    for (int i = 0; i < 2; ++i) {
        zeit->addWidget(Text1[i]);
        zeit->addWidget(Label1[i]);
        if (i == 0)
            zeit->addSpacing(Px(240));
    }
    zeit->addStretch();
    auto* knoepfe = new QHBoxLayout;
    knoepfe->addStretch();
    knoepfe->addWidget(cmdOK);
    knoepfe->addWidget(cmdExit);
    auto* aussen = new QVBoxLayout(this);
    aussen->setContentsMargins(Px(240), Px(240), Px(240), Px(180));
    aussen->addLayout(zeit);
    aussen->addSpacing(Px(240));
    aussen->addLayout(knoepfe);

    setTabOrder(Text1[0], Text1[1]);
    setTabOrder(Text1[1], cmdOK);
    setTabOrder(cmdOK, cmdExit);

    Timer1 = D().uhr().neuerZeitgeber(this);
    Timer1->setObjectName(QStringLiteral("Timer1"));
    Timer1->setInterval(1000);
    connect(Timer1, &Zeitgeber::Timer, this, [this] { Timer1_Timer(); });
    connect(cmdOK, &QPushButton::clicked, this, [this] { cmdOK_Click(); });
    connect(cmdExit, &QPushButton::clicked, this, [this] { cmdExit_Click(); });
}

void frmUhrzeit::Form_Load()
{
    const QString jetzt = Uhrzeit();
    setWindowTitle(jetzt);
    Text1[0]->setText(jetzt.mid(0, 2));
    Text1[1]->setText(jetzt.mid(3, 2));
    SleepZeit = QStringLiteral("00:00");
    Timer1->setEnabled(true);
    adjustSize();
    setFixedSize(size());
}

void frmUhrzeit::Anzeigen()
{
    Text1[0]->setFocus();
    Text1[0]->selectAll();
    exec();
}

void frmUhrzeit::Timer1_Timer() { setWindowTitle(Uhrzeit()); }

void frmUhrzeit::Text1_Change(int index)
{
    Textfeld* feld = Text1[index];
    if (feld->text().size() == 2 && feld->hasFocus())
        focusNextChild();
}

bool frmUhrzeit::Text1_Pruefen(int index)
{
    Textfeld* feld = Text1[index];
    const int wert = feld->text().toInt();
    const int hoechstens = index == 0 ? 24 : 60;
    if (wert >= 0 && wert <= hoechstens)
        return true;
    MsgNimb(index == 0 ? QStringLiteral("Stunden 00-24") : QStringLiteral("Minuten 00-60"), 3, 0,
            QStringLiteral("Eingabehinweis"), 0);
    // Back to the field, so that the value is corrected rather than carried along.
    feld->setFocus(Qt::OtherFocusReason);
    feld->selectAll();
    return false;
}

void frmUhrzeit::cmdOK_Click()
{
    for (int i = 0; i < 2; ++i)
        if (!Text1_Pruefen(i))
            return;
    QString teile[2];
    for (int i = 0; i < 2; ++i)
        teile[i] = Text1[i]->text().rightJustified(2, u'0');
    SleepZeit = teile[0] + QStringLiteral(":") + teile[1];
    Timer1->setEnabled(false);
    accept();
}

void frmUhrzeit::cmdExit_Click()
{
    SleepZeit = QStringLiteral("00:00");
    Timer1->setEnabled(false);
    reject();
}

bool frmUhrzeit::eventFilter(QObject* objekt, QEvent* ereignis)
{
    if (ereignis->type() == QEvent::FocusIn) {
        // Two digits at most: the old value is selected, so typing replaces it.
        if (auto* feld = qobject_cast<Textfeld*>(objekt))
            QTimer::singleShot(0, feld, [feld] { feld->selectAll(); });
    } else if (ereignis->type() == QEvent::FocusOut) {
        // Leaving a field within the window checks it; a change of window (the hint
        // itself) or the way out through Exit does not.
        const auto grund = static_cast<QFocusEvent*>(ereignis)->reason();
        const bool imFenster = grund == Qt::TabFocusReason || grund == Qt::BacktabFocusReason
            || grund == Qt::MouseFocusReason || grund == Qt::ShortcutFocusReason;
        QWidget* neu = QApplication::focusWidget();
        if (imFenster && isVisible() && neu != cmdExit) {
            for (int i = 0; i < 2; ++i)
                if (objekt == Text1[i])
                    Text1_Pruefen(i);
        }
    }
    return VerlaufFenster::eventFilter(objekt, ereignis);
}
