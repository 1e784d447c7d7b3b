#include "media/frmEditor.h"

#include "media/Rtf.h"
#include "platform/Dialogdienst.h"
#include "platform/Dienste.h"
#include "platform/Einheiten.h"
#include "platform/Laufzeitfehler.h"
#include "platform/Textdatei.h"
#include "shell/Einstellungen.h"
#include "shell/Grundregeln.h"
#include "shell/Steuerelemente.h"
#include "shell/Symbole.h"

#include <QCloseEvent>
#include <QFileInfo>
#include <QFrame>
#include <QHBoxLayout>
#include <QKeyEvent>
#include <QSaveFile>
#include <QTextDocument>
#include <QTextEdit>
#include <QVBoxLayout>

namespace {

// A file beyond this is refused rather than read into memory and laid out.
constexpr qint64 HoechstGroesse = 16 * 1024 * 1024;
// Width of the window; the settings keep no width.
constexpr int BreiteTwips = 10200;

bool AlsText(const QString& pfad) { return QFileInfo(pfad).suffix().compare(u"txt", Qt::CaseInsensitive) == 0; }

} // namespace

frmEditor::frmEditor(QWidget* eltern)
    : QWidget(eltern, Qt::Window)
{
    setObjectName(QStringLiteral("frmEditor"));
    setWindowTitle(QStringLiteral("Texteditor"));
    setAttribute(Qt::WA_DeleteOnClose);

    FrameButtonKlein = new QFrame(this);
    FrameButtonKlein->setObjectName(QStringLiteral("FrameButtonKlein"));
    FrameButtonKlein->setFrameStyle(QFrame::StyledPanel | QFrame::Raised);
    auto* leiste = new QHBoxLayout(FrameButtonKlein);
    leiste->setContentsMargins(2, 2, 2, 2);
    leiste->setSpacing(1);
    struct Eintrag {
        int index;
        const char* symbol;
        const char* tipp;
        bool abstand; // a gap after the button closes a group
    };
    const Eintrag eintraege[] = {
        {0, "laden", " Laden ", false},           {20, "speichern", " Speichern ", false},
        {5, "neu", " Neu ", true},                {1, "suchen", " Suchen ", false},
        {2, "weitersuchen", " Weitersuchen ", true}, {3, "schrift", " Schriftart ", false},
        {4, "farbe", " Schriftfarbe ", false},    {7, "fett", " Fett ", true},
        {13, "links", " Links ", false},          {14, "mitte", " Zentriert ", false},
        {15, "rechts", " Rechts ", true},         {16, "rand_links", " linker Rand ", false},
        {17, "rand_rechts", " rechter Rand ", false}, {18, "punkte", " Bulletin ", true},
        {19, "alles_markieren", " Alles markieren ", false},
    };
    for (const Eintrag& e : eintraege) {
        auto* knopf = ButtonCommand.setzen(e.index, new Bildknopf(FrameButtonKlein));
        knopf->setIcon(Symbol(QLatin1String(e.symbol)));
        knopf->setIconSize(QSize(20, 20));
        knopf->setToolTip(QString::fromUtf8(e.tipp));
        leiste->addWidget(knopf);
        if (e.abstand)
            leiste->addSpacing(10);
    }
    leiste->addStretch();
    auto* schliessen = ButtonCommand.setzen(21, new Bildknopf(FrameButtonKlein));
    schliessen->setIcon(Symbol(QStringLiteral("beenden")));
    schliessen->setIconSize(QSize(20, 20));
    leiste->addWidget(schliessen);
    for (int i = 0; i < ButtonCommand.Anzahl(); ++i)
        if (ButtonCommand[i])
            connect(ButtonCommand[i], &QAbstractButton::clicked, this, [this, i] { ButtonCommand_Click(i); });

    Text = new QTextEdit(this);
    Text->setObjectName(QStringLiteral("Text"));
    Text->setAcceptRichText(true);
    Text->installEventFilter(this);
    connect(Text->document(), &QTextDocument::contentsChanged, this, [this] { Geaendert = true; });

    staBar = new Statusleiste({0}, this);
    staBar->setObjectName(QStringLiteral("staBar"));

    // Text takes every size the window gains; the bar keeps its height below it.
    auto* aussen = new QVBoxLayout(this);
    aussen->setContentsMargins(0, 0, 0, 0);
    aussen->setSpacing(0);
    aussen->addWidget(FrameButtonKlein);
    aussen->addWidget(Text, 1);
    aussen->addWidget(staBar);
    resize(Px(BreiteTwips), Px(6915));
}

void frmEditor::Form_Load()
{
    // Each key on its own: a value that does not convert leaves the design state.
    int links = x();
    int oben = y();
    int hoehe = height();
    if (const auto v = Zahl(Lesen(QStringLiteral("ViewerLeft"), QStringLiteral("1455"))))
        links = Px(*v);
    if (const auto v = Zahl(Lesen(QStringLiteral("ViewerTop"), QStringLiteral("10"))))
        oben = Px(*v);
    if (const auto v = Zahl(Lesen(QStringLiteral("ViewerHeight"), QStringLiteral("6915"))); v && *v > 0)
        hoehe = Px(*v);
    move(links, oben);
    resize(width(), hoehe);
    // A minimised state is kept but not restored: a window just asked for opens in sight.
    if (const auto z = Zahl(Lesen(QStringLiteral("ViewerWindowState"), QStringLiteral("0"))); z && *z == 2)
        setWindowState(Qt::WindowMaximized);

    QFont schrift = Text->font();
    schrift.setFamily(Lesen(QStringLiteral("S1FontName"), QStringLiteral("Verdana Ref")));
    if (const auto v = Zahl(Lesen(QStringLiteral("S1FontSize"), QStringLiteral("13"))); v && *v > 0 && *v < 1000)
        schrift.setPointSizeF(*v);
    Text->setFont(schrift);
    Text->document()->setDefaultFont(schrift);
    NameZeigen();
    Geaendert = false;
}

void frmEditor::Form_Unload()
{
    if (m_entladen)
        return;
    m_entladen = true;
    if (windowState() & Qt::WindowMinimized) {
        Speichern(QStringLiteral("ViewerWindowState"), QStringLiteral("1"));
    } else if (windowState() & (Qt::WindowMaximized | Qt::WindowFullScreen)) {
        Speichern(QStringLiteral("ViewerWindowState"), QStringLiteral("2"));
    } else {
        Speichern(QStringLiteral("ViewerWindowState"), QStringLiteral("0"));
        Speichern(QStringLiteral("ViewerLeft"), QString::number(Twips(x())));
        Speichern(QStringLiteral("ViewerTop"), QString::number(Twips(y())));
        Speichern(QStringLiteral("ViewerHeight"), QString::number(Twips(height())));
    }
}

void frmEditor::closeEvent(QCloseEvent* e)
{
    Form_Unload();
    QWidget::closeEvent(e);
}

bool frmEditor::eventFilter(QObject* objekt, QEvent* ereignis)
{
    if (objekt == Text && ereignis->type() == QEvent::KeyPress
        && static_cast<QKeyEvent*>(ereignis)->key() == Qt::Key_Escape) {
        close();
        return true;
    }
    return QWidget::eventFilter(objekt, ereignis);
}

void frmEditor::ButtonCommand_Click(int index)
{
    try {
        switch (index) {
        case 0:
            Laden();
            break;
        case 1:
        case 2:
            m_suche.Suchen(Text, index == 2);
            break;
        case 3:
            SchriftWaehlen();
            break;
        case 4:
            FarbeWaehlen();
            break;
        case 5:
            Neu();
            break;
        case 7:
            FettUmschalten(Text);
            break;
        case 13:
            Text->setAlignment(Qt::AlignLeft);
            break;
        case 14:
            Text->setAlignment(Qt::AlignHCenter);
            break;
        case 15:
            Text->setAlignment(Qt::AlignRight);
            break;
        case 16:
        case 17:
            TextrandSetzen(Text, index == 16,
                           index == 16 ? QStringLiteral("ViewerSeitenrandLinks") : QStringLiteral("ViewerSeitenrandRechts"),
                           index == 16 ? QStringLiteral("100") : QStringLiteral("150"));
            break;
        case 18:
            AufzaehlungUmschalten(Text);
            break;
        case 19:
            Text->selectAll();
            break;
        case 20:
            if (Dateiname.isEmpty())
                return;
            DateiSpeichern();
            break;
        case 21:
            close();
            return;
        default:
            return;
        }
        // Formatting and loading count as a change, also where nothing moved.
        if (index == 0 || index == 3 || index == 4 || index == 7 || (index >= 13 && index <= 18))
            Geaendert = true;
        Text->setFocus();
    } catch (const Laufzeitfehler& fehler) {
        Fehlermeldung(fehler, QStringLiteral("frmEditor_ButtonCommand_Click"));
    }
}

void frmEditor::Laden()
{
    Dateiauswahl auswahl;
    auswahl.filter =
        QStringLiteral("RTF-Dateien (Rich Text Format) |*.rtf|Textdateien (*.txt) |*.txt|Alle Dateien (*.*) |*.*|");
    auswahl.filterIndex = 1;
    if (!Dateiname.isEmpty())
        auswahl.startordner = QFileInfo(Dateiname).absolutePath();
    const QString pfad = D().dialoge().Datei(auswahl);
    if (pfad.isEmpty())
        throw Laufzeitfehler(Fehlernummer::DialogAbgebrochen);
    DateiLaden(pfad);
}

void frmEditor::DateiLaden(const QString& pfad)
{
    const QFileInfo info(pfad);
    if (!info.exists())
        throw Laufzeitfehler(Fehlernummer::DateiNichtGefunden);
    if (!info.isFile())
        throw Laufzeitfehler(Fehlernummer::ZugriffsFehler);
    if (info.size() > HoechstGroesse)
        throw Laufzeitfehler(7);
    QFile datei(pfad);
    if (!datei.open(QIODevice::ReadOnly))
        throw Laufzeitfehler(Fehlernummer::ZugriffsFehler);
    const QByteArray inhalt = datei.readAll();
    if (datei.error() != QFileDevice::NoError)
        throw Laufzeitfehler(Fehlernummer::ZugriffsFehler);
    const QFont schrift = Text->document()->defaultFont();
    if (AlsText(pfad)) {
        QString text = TextDekodieren(inhalt);
        text.replace(QStringLiteral("\r\n"), QStringLiteral("\n"));
        Text->setPlainText(text);
        m_rtf = false;
    } else {
        const QString quelle = TextDekodieren(inhalt);
        m_rtf = quelle.trimmed().startsWith(u"{\\rtf");
        RtfLesen(quelle, Text->document(), schrift);
    }
    Text->moveCursor(QTextCursor::Start);
    Dateiname = pfad;
    NameZeigen();
    Geaendert = true;
}

void frmEditor::DateiSpeichern()
{
    QByteArray inhalt;
    if (m_rtf) {
        inhalt = RtfSchreiben(Text->document()).toUtf8();
    } else {
        inhalt = Text->toPlainText().toUtf8();
        if (!inhalt.isEmpty() && !inhalt.endsWith('\n'))
            inhalt += '\n';
    }
    QSaveFile datei(Dateiname);
    if (!datei.open(QIODevice::WriteOnly) || datei.write(inhalt) != inhalt.size() || !datei.commit())
        throw Laufzeitfehler(Fehlernummer::ZugriffsFehler);
    Geaendert = false;
}

void frmEditor::Neu()
{
    Text->clear();
    Dateiname.clear();
    // A new text is written as RTF once it has a name.
    m_rtf = true;
    NameZeigen();
    Geaendert = false;
}

void frmEditor::SchriftWaehlen()
{
    Schriftauswahl auswahl{Text->currentFont(), Text->textColor()};
    if (!D().dialoge().Schrift(auswahl))
        throw Laufzeitfehler(Fehlernummer::DialogAbgebrochen);
    SchriftAnwenden(Text, auswahl.schrift);
}

void frmEditor::FarbeWaehlen()
{
    QColor farbe = Text->textColor();
    if (!D().dialoge().Farbe(farbe) || !farbe.isValid())
        throw Laufzeitfehler(Fehlernummer::DialogAbgebrochen);
    FarbeAnwenden(Text, farbe);
}

void frmEditor::NameZeigen() { staBar->setPanelText(1, Dateiname); }
