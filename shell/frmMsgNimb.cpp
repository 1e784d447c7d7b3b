#include "shell/frmMsgNimb.h"

#include "platform/Dienste.h"
#include "platform/Einheiten.h"
#include "platform/Uhr.h"
#include "shell/Farbverlauf.h"
#include "shell/Globale.h"

#include <QAbstractTextDocumentLayout>
#include <QApplication>
#include <QEventLoop>
#include <QFrame>
#include <QLineEdit>
#include <QPainter>
#include <QPainterPath>
#include <QPointer>
#include <QPushButton>
#include <QShowEvent>
#include <QTextBlock>
#include <QTextEdit>
#include <QVariantAnimation>

#include <vector>

namespace {

const std::array<const char*, 7> Beschriftungen = {
    "&OK", "&Ja", "&Nein", "E&xit ", "&Ignorieren", "&Wiederholen", "B&eenden "};

// The buttons of each set, by the type's tens digit, in the order they stand in the row.
const std::array<std::vector<int>, 7> Knopfsaetze = {{
    {0}, {0, 3}, {1, 2}, {1, 2, 3}, {5, 3}, {4, 5, 3}, {0, 6}}};

// Sound by the type's units digit; 5 and more have none.
const std::array<const char*, 5> Klaenge = {
    "Infozeichen.wav", "Infozeichen.wav", "Fragezeichen.wav", "Ausrufezeichen.wav",
    "Stoppzeichen.wav"};

// Design measures in twips.
constexpr int ZeileTwips = 260;
constexpr int TextMin = 900;
constexpr int TextMax = 7700;
constexpr int BreitAb = 2700;
constexpr int DesignHoehe = 1905;
constexpr int HoeheZusatz = 1400;
constexpr int TextLinks = 960;
constexpr int TextOben = 240;
constexpr int TextSchmal = 4965;
constexpr int TextBreit = 6465;
constexpr int FensterSchmal = 6180;
constexpr int FensterBreit = 7725;
constexpr int RahmenSchmal = 6090;
constexpr int RahmenBreit = 7620;
constexpr int SymbolRand = 240;
constexpr int SymbolGroesse = 480;
constexpr int KnopfBreite = 1215;
constexpr int KnopfHoehe = 375;
constexpr int KnopfAbstand = 120;

QFont Meldungsschrift()
{
    // Where the designed font is missing, the desktop's own font reads best.
    QFont f = QApplication::font();
    f.setFamilies({QStringLiteral("Segoe UI"), QApplication::font().family()});
    f.setPointSize(9);
    return f;
}

QColor FarbeOderVorgabe(qint64 wert, qint64 vorgabe)
{
    return FarbeAusNummer(wert == -1 ? vorgabe : wert);
}

} // namespace

const std::array<const char*, 7> frmMsgNimb::Antworten = {
    "Ok", "Ja", "Nein", "Exit", "Ignorieren", "Wiederholen", "Beenden"};

// --- Meldungssymbol -------------------------------------------------------------------

Meldungssymbol::Meldungssymbol(int art, QWidget* eltern)
    : QWidget(eltern), m_art(art), m_animation(new QVariantAnimation(this))
{
    m_animation->setStartValue(0.55);
    m_animation->setEndValue(1.0);
    m_animation->setDuration(350);
    m_animation->setEasingCurve(QEasingCurve::OutBack);
    connect(m_animation, &QVariantAnimation::valueChanged, this, [this](const QVariant& v) {
        m_massstab = v.toDouble();
        update();
    });
}

QSize Meldungssymbol::sizeHint() const { return QSize(Px(SymbolGroesse), Px(SymbolGroesse)); }

void Meldungssymbol::showEvent(QShowEvent* e)
{
    QWidget::showEvent(e);
    if (!e->spontaneous())
        m_animation->start();
}

void Meldungssymbol::paintEvent(QPaintEvent*)
{
    QPainter p(this);
    const double seite = qMin(width(), height()) * m_massstab;
    const QPointF mitte = QRectF(rect()).center();
    zeichnen(p, m_art, QRectF(mitte.x() - seite / 2, mitte.y() - seite / 2, seite, seite));
}

void Meldungssymbol::zeichnen(QPainter& p, int art, const QRectF& feld)
{
    p.save();
    p.setRenderHint(QPainter::Antialiasing);
    p.translate(feld.topLeft());
    p.scale(feld.width() / 32.0, feld.height() / 32.0);
    // All drawing below is on a 32 x 32 grid.
    const QRectF kreis(1, 1, 30, 30);
    auto flaeche = [&](const QColor& hell, const QColor& dunkel) {
        QLinearGradient g(0, 0, 0, 32);
        g.setColorAt(0, hell);
        g.setColorAt(1, dunkel);
        p.setBrush(g);
        p.setPen(QPen(dunkel.darker(120), 1));
    };
    switch (art) {
    case 1: // information: blue disc with "i"
        flaeche(QColor(0x4a, 0x90, 0xd9), QColor(0x1f, 0x5c, 0xa8));
        p.drawEllipse(kreis);
        p.setPen(Qt::NoPen);
        p.setBrush(Qt::white);
        p.drawEllipse(QRectF(13.5, 6, 5, 5));
        p.drawRoundedRect(QRectF(13.5, 13, 5, 13), 1.5, 1.5);
        break;
    case 2: { // question: teal disc with "?"
        flaeche(QColor(0x3c, 0xb0, 0x9c), QColor(0x17, 0x7a, 0x6c));
        p.drawEllipse(kreis);
        QPen strich(Qt::white, 4.2, Qt::SolidLine, Qt::RoundCap, Qt::RoundJoin);
        p.setPen(strich);
        p.setBrush(Qt::NoBrush);
        QPainterPath bogen;
        bogen.moveTo(10.5, 12);
        bogen.cubicTo(10.5, 5.5, 21.5, 5.5, 21.5, 11.5);
        bogen.cubicTo(21.5, 15.5, 16, 15.5, 16, 19.5);
        p.drawPath(bogen);
        p.setPen(Qt::NoPen);
        p.setBrush(Qt::white);
        p.drawEllipse(QRectF(13.5, 22.5, 5, 5));
        break;
    }
    case 3: { // warning: amber triangle with "!"
        flaeche(QColor(0xff, 0xc8, 0x3d), QColor(0xe0, 0x93, 0x10));
        QPainterPath dreieck;
        dreieck.moveTo(16, 2);
        dreieck.lineTo(31, 29);
        dreieck.lineTo(1, 29);
        dreieck.closeSubpath();
        p.setPen(QPen(QColor(0xb8, 0x74, 0x08), 1.5, Qt::SolidLine, Qt::RoundCap, Qt::RoundJoin));
        p.drawPath(dreieck);
        p.setPen(Qt::NoPen);
        p.setBrush(QColor(0x3a, 0x2a, 0x00));
        p.drawRoundedRect(QRectF(14, 10, 4, 11), 1.5, 1.5);
        p.drawEllipse(QRectF(14, 22.5, 4, 4));
        break;
    }
    case 4: { // stop: red disc with a cross
        flaeche(QColor(0xe8, 0x4f, 0x4f), QColor(0xb0, 0x1e, 0x1e));
        p.drawEllipse(kreis);
        p.setPen(QPen(Qt::white, 4.2, Qt::SolidLine, Qt::RoundCap));
        p.drawLine(QPointF(10.5, 10.5), QPointF(21.5, 21.5));
        p.drawLine(QPointF(21.5, 10.5), QPointF(10.5, 21.5));
        break;
    }
    default:
        break;
    }
    p.restore();
}

// --- frmMsgNimb -----------------------------------------------------------------------

frmMsgNimb::frmMsgNimb(QWidget* eltern)
    : QDialog(eltern)
{
    setObjectName(QStringLiteral("frmMsgNimb"));
    setFont(Meldungsschrift());
    setAutoFillBackground(true);

    txtMsgText = new QTextEdit(this);
    txtMsgText->setObjectName(QStringLiteral("txtMsgText"));
    txtMsgText->setReadOnly(true);
    txtMsgText->setAcceptRichText(false);
    txtMsgText->setFrameShape(QFrame::NoFrame);
    txtMsgText->setLineWrapMode(QTextEdit::WidgetWidth);
    txtMsgText->setHorizontalScrollBarPolicy(Qt::ScrollBarAlwaysOff);
    // Selectable with the mouse for copying, but out of the way of Tab and Enter, and
    // without a text cursor when it holds the focus of a box without default.
    txtMsgText->setFocusPolicy(Qt::ClickFocus);
    txtMsgText->setTextInteractionFlags(Qt::TextSelectableByMouse);

    fraMsgButton = new QFrame(this);
    fraMsgButton->setObjectName(QStringLiteral("fraMsgButton"));
    for (int i = 0; i < 7; ++i) {
        cmdButton.setzen(i, new QPushButton(QString::fromUtf8(Beschriftungen[i]), fraMsgButton));
        connect(cmdButton[i], &QPushButton::clicked, this, [this, i] { cmdButton_Click(i); });
    }

    imgMsgIcon[0] = nullptr;
    for (int i = 1; i <= 4; ++i) {
        imgMsgIcon.setzen(i, new Meldungssymbol(i, this));
        imgMsgIcon[i]->setGeometry(Px(SymbolRand), Px(SymbolRand), Px(SymbolGroesse),
                                   Px(SymbolGroesse));
        imgMsgIcon[i]->hide();
    }

    Timer = D().uhr().neuerZeitgeber(this);
    Timer->setObjectName(QStringLiteral("Timer"));
    Timer->setInterval(1000);
    Timer->setEnabled(false);
    connect(Timer, &Zeitgeber::Timer, this, &frmMsgNimb::Timer_Timer);

    txtdummy = new QLineEdit(this);
    txtdummy->setObjectName(QStringLiteral("txtdummy"));
    txtdummy->hide();

    setFixedSize(Px(FensterSchmal), Px(DesignHoehe));
}

void frmMsgNimb::Vorbereiten(const Meldung& m)
{
    const QColor hintergrund = FarbeOderVorgabe(m.hintergrund, Farbe::StandardHintergrund);
    const QColor textfarbe = FarbeOderVorgabe(m.textfarbe, Farbe::StandardText);
    QPalette pal = palette();
    pal.setColor(QPalette::Window, hintergrund);
    pal.setColor(QPalette::WindowText, textfarbe);
    setPalette(pal);
    QPalette textPal = txtMsgText->palette();
    textPal.setColor(QPalette::Base, hintergrund);
    textPal.setColor(QPalette::Window, hintergrund);
    textPal.setColor(QPalette::Text, textfarbe);
    textPal.setColor(QPalette::WindowText, textfarbe);
    txtMsgText->setPalette(textPal);
    m_titel = m.titel;
    setWindowTitle(m.titel);

    m_standard = m.standard;
    for (int i = 1; i <= 4; ++i)
        imgMsgIcon[i]->hide();
    for (QPushButton* b : cmdButton)
        b->hide();
    const int typ = qMax(0, m.typ);
    m_reihe = Knopfsaetze[qMin(typ / 10, 6)];
    for (int i : m_reihe)
        cmdButton[i]->show();
    const int einer = typ % 10;
    if (einer >= 1 && einer <= 4)
        imgMsgIcon[einer]->show();

    QString text = m.text;
    text.replace(QStringLiteral("\r\n"), QStringLiteral("\n"));
    text.replace(u'\r', u'\n');
    txtMsgText->setPlainText(text);

    const int hoehe = qBound(TextMin, Textzeilen() * ZeileTwips, TextMax);
    const bool breit = hoehe > BreitAb;
    txtMsgText->setGeometry(Px(TextLinks), Px(TextOben), Px(breit ? TextBreit : TextSchmal),
                            Px(hoehe));
    fraMsgButton->resize(Px(breit ? RahmenBreit : RahmenSchmal), fraMsgButton->height());
    ButtonsAnordnen();
    setFixedSize(Px(breit ? FensterBreit : FensterSchmal),
                 Px(hoehe > TextMin ? hoehe + HoeheZusatz : DesignHoehe));
    RahmenAnFuss(); // a hidden window gets its resize event only when shown

    if (einer < int(Klaenge.size()))
        D().klang().abspielen(ProgrammOrdner + QLatin1String(Klaenge[einer]));

    m_sekunden = m.sekunden;
    Timer->setEnabled(m_sekunden >= 2);
    m_ergebnis.clear();
}

int frmMsgNimb::Textzeilen() const
{
    // Laid out apart from the control, at the narrow width the box starts from.
    QTextDocument probe;
    probe.setDefaultFont(txtMsgText->document()->defaultFont());
    probe.setDocumentMargin(txtMsgText->document()->documentMargin());
    probe.setPlainText(txtMsgText->toPlainText());
    probe.setTextWidth(Px(TextSchmal));
    probe.documentLayout()->documentSize();
    int zeilen = 0;
    for (QTextBlock b = probe.begin(); b.isValid(); b = b.next())
        zeilen += b.layout()->lineCount();
    return zeilen;
}

QString frmMsgNimb::Anzeigen()
{
    QPointer<frmMsgNimb> selbst(this);
    if (m_sekunden < 2) {
        exec();
    } else {
        // The count-down leaves the other windows usable, so no modal loop.
        setModal(false);
        QEventLoop schleife;
        connect(this, &QDialog::finished, &schleife, &QEventLoop::quit);
        connect(this, &QObject::destroyed, &schleife, &QEventLoop::quit);
        show();
        schleife.exec();
    }
    return selbst ? m_ergebnis : QString();
}

void frmMsgNimb::showEvent(QShowEvent* e)
{
    QDialog::showEvent(e);
    if (e->spontaneous())
        return;
    // Without a default, no button may become one by taking the focus either, so that a
    // stray Enter does not answer the box.
    const bool mitStandard =
        m_standard >= 0 && m_standard < 7 && !cmdButton[m_standard]->isHidden();
    for (QPushButton* b : cmdButton) {
        b->setDefault(false);
        b->setAutoDefault(mitStandard);
    }
    if (mitStandard) {
        cmdButton[m_standard]->setDefault(true);
        cmdButton[m_standard]->setFocus();
    } else {
        txtMsgText->setFocus();
    }
    if (m_sekunden > 1)
        TitelMitSekunden();
}

void frmMsgNimb::resizeEvent(QResizeEvent* e)
{
    QDialog::resizeEvent(e);
    RahmenAnFuss();
}

void frmMsgNimb::RahmenAnFuss()
{
    fraMsgButton->move((width() - fraMsgButton->width()) / 2, height() - fraMsgButton->height());
}

void frmMsgNimb::ButtonsAnordnen()
{
    // One width for all buttons of the row, centred in the frame, in the order of the set.
    int breite = Px(KnopfBreite);
    int hoehe = Px(KnopfHoehe);
    for (int i : m_reihe) {
        breite = qMax(breite, cmdButton[i]->sizeHint().width());
        hoehe = qMax(hoehe, cmdButton[i]->sizeHint().height());
    }
    const int rand = Px(KnopfAbstand);
    const int anzahl = int(m_reihe.size());
    fraMsgButton->resize(fraMsgButton->width(), hoehe + 2 * rand);
    int x = (fraMsgButton->width() - anzahl * breite - (anzahl - 1) * rand) / 2;
    QWidget* vorher = nullptr;
    for (int i : m_reihe) {
        cmdButton[i]->setGeometry(x, rand, breite, hoehe);
        x += breite + rand;
        if (vorher)
            setTabOrder(vorher, cmdButton[i]);
        vorher = cmdButton[i];
    }
}

void frmMsgNimb::cmdButton_Click(int index)
{
    m_ergebnis = QString::fromLatin1(Antworten[index]);
    done(Accepted);
}

void frmMsgNimb::reject()
{
    m_ergebnis.clear();
    QDialog::reject();
}

void frmMsgNimb::done(int r)
{
    Timer->setEnabled(false);
    QDialog::done(r);
}

void frmMsgNimb::Timer_Timer()
{
    --m_sekunden;
    TitelMitSekunden();
    if (m_sekunden <= 0) {
        m_ergebnis.clear();
        done(Rejected);
    }
}

void frmMsgNimb::TitelMitSekunden()
{
    setWindowTitle(m_titel + QStringLiteral(" (") + QString::number(m_sekunden) + u')');
}
