#include "media/Textfenster.h"

#include "shell/Ausgabebox.h"

#include "catalogue/FlexGrid.h"
#include "media/frmEditor.h"
#include "platform/Dialogdienst.h"
#include "platform/Dienste.h"
#include "platform/Einheiten.h"
#include "platform/Laufzeitfehler.h"
#include "playback/Abspieler.h"
#include "shell/Einstellungen.h"
#include "shell/Globale.h"
#include "shell/Grundregeln.h"
#include "shell/Steuerelemente.h"

#include <QCheckBox>
#include <QComboBox>
#include <QEvent>
#include <QFileInfo>
#include <QFocusEvent>
#include <QFontInfo>
#include <QKeyEvent>
#include <QLabel>
#include <QMenu>
#include <QPushButton>
#include <QTabBar>
#include <QTextBlock>
#include <QTextCursor>
#include <QTextEdit>
#include <QTreeWidget>

#include <array>

namespace {

// The five panes in the order the commands compare their names.
std::array<QTextEdit*, 5> Textfenster5(const Ausgabebox& box)
{
    return {box.TextSongs, box.txtSongText, box.rtfLinks, box.rtfInfo, box.rtfSonstiges};
}

// A pane's selected text with its paragraph ends as line ends.
QString Auswahl(const QTextEdit* text)
{
    QString s = text->textCursor().selectedText();
    s.replace(QChar::ParagraphSeparator, u'\n');
    s.replace(QChar::LineSeparator, u'\n');
    return s;
}

} // namespace

void Textfenster::verbinden()
{
    for (QTextEdit* t : Textfenster5(box))
        t->installEventFilter(this);
    // The two lists of the cover tab name themselves for the link command too.
    for (QComboBox* c : {box.cboBildpfad, box.cboEbook})
        c->installEventFilter(this);
    // Tabs choose the pane of the text area.
    connect(box.tabTexte, &QTabBar::currentChanged, this, [this](int) { TextseiteZeigen(); });
    TextseiteZeigen();

    for (int i = 0; i < box.ButtonText.Anzahl(); ++i) {
        if (box.ButtonText[i])
            connect(box.ButtonText[i], &QAbstractButton::clicked, this, [this, i] { ButtonText_Click(i); });
    }
    connect(box.cmdTextBig, &QPushButton::clicked, this, [this] { cmdTextBig_Click(); });
    connect(box.cmdTextSmall, &QPushButton::clicked, this, [this] { cmdTextSmall_Click(); });

    BefehlVerbinden(box.mnuSchriftTiefgestellt, this, [this] { mnuSchriftTiefgestellt_Click(); });
    BefehlVerbinden(box.mnuSchriftHochgestellt, this, [this] { mnuSchriftHochgestellt_Click(); });
    BefehlVerbinden(box.mnuSchriftDurchstrichen, this, [this] { mnuSchriftDurchstrichen_Click(); });
    BefehlVerbinden(box.mnuRandLinks, this, [this] { mnuRandLinks_Click(); });
    BefehlVerbinden(box.mnuRandRechts, this, [this] { mnuRandRechts_Click(); });
    BefehlVerbinden(box.mnuSongTextEinAus, this, [this] { mnuSongTextEinAus_Click(); });
    BefehlVerbinden(box.mnuWeblink, this, [this] { mnuWeblink_Click(); });
    BefehlVerbinden(box.mnuProgSchrift, this, [this] { mnuProgSchrift_Click(); });
    BefehlVerbinden(box.mnuStandardschriftEinstellen, this, [this] { mnuStandardschriftEinstellen_Click(); });
    BefehlVerbinden(box.mnuTexteditor, this, [this] { mnuTexteditor_Click(); });
}

void Textfenster::TextseiteZeigen()
{
    const int reiter = box.tabTexte->currentIndex() + 1;
    const bool cover = reiter == 1;
    for (QWidget* w : std::initializer_list<QWidget*>{box.chkBildpfad, box.cboBildpfad, box.chkVisualisierung,
                                                      box.chkVollbild, box.Bez[11], box.cboEbook, box.imgEbookOpen,
                                                      box.imgEbookKill, box.imgEbookPlay})
        w->setVisible(cover);
    if (cover) {
        box.imgBildpfad->setVisible(box.chkBildpfad->isChecked());
        box.cboBildpfad->setVisible(box.chkBildpfad->isChecked());
        box.Bild1->setVisible(!box.chkBildpfad->isChecked());
    } else {
        box.imgBildpfad->hide();
        box.Bild1->hide();
    }
    box.abspieler().MediaPlayer1Zeigen(box.abspieler().MediaPlayer1Sichtbar);
    box.rtfLinks->setVisible(reiter == 2);
    box.rtfInfo->setVisible(reiter == 3);
    box.rtfSonstiges->setVisible(reiter == 4);
    box.filPlaylist->setVisible(reiter == 5);
    box.lvwPlaylist->raise();
    box.txtSongText->raise();
    box.picCoverGreat->raise();
}

QTextEdit* Textfenster::AktivesTextfenster() const
{
    if (box.AktivesTextfeld.isEmpty())
        return nullptr;
    for (QTextEdit* t : Textfenster5(box))
        if (t->objectName() == box.AktivesTextfeld)
            return t;
    return nullptr;
}

bool Textfenster::eventFilter(QObject* objekt, QEvent* ereignis)
{
    auto* text = qobject_cast<QTextEdit*>(objekt);
    switch (ereignis->type()) {
    case QEvent::FocusIn:
        if (text) {
            box.AktivesFeld = text->objectName();
            box.AktivesTextfeld = text->objectName();
            box.mnuSchrift->setEnabled(true);
        } else if (auto* liste = qobject_cast<QComboBox*>(objekt)) {
            box.AktivesFeld = liste->objectName();
        }
        break;
    case QEvent::FocusOut:
        if (text) {
            // A menu, the menu bar or a dialog borrows the focus and gives it back: the pane
            // stays the active one, or the font menu could never be opened.
            switch (static_cast<QFocusEvent*>(ereignis)->reason()) {
            case Qt::PopupFocusReason:
            case Qt::MenuBarFocusReason:
            case Qt::ActiveWindowFocusReason:
                break;
            default:
                box.mnuSchrift->setEnabled(false);
                box.AktivesTextfeld.clear();
            }
        }
        break;
    case QEvent::KeyPress:
        if (text && TasteImTextfenster(text, static_cast<QKeyEvent*>(ereignis)))
            return true;
        break;
    default:
        break;
    }
    return Teilbereich::eventFilter(objekt, ereignis);
}

bool Textfenster::TasteImTextfenster(QTextEdit* text, const QKeyEvent* taste)
{
    // Field values go into SQL texts by concatenation: the apostrophe is swallowed.
    if (taste->text() == u"'")
        return true;
    const bool befehl = taste->modifiers() & (Qt::ControlModifier | Qt::AltModifier | Qt::MetaModifier);
    if ((taste->key() == Qt::Key_Return || taste->key() == Qt::Key_Enter) && !befehl) {
        EinzugUmbruch(text);
        return true;
    }
    if (taste->key() == Qt::Key_Escape) {
        if (text == box.txtSongText)
            box.txtSongText->hide();
        else
            Abbruch = true;
        return true;
    }
    return false;
}

void Textfenster::EinzugUmbruch(QTextEdit* text)
{
    QTextCursor c = text->textCursor();
    const QTextBlock block = text->document()->findBlock(c.selectionStart());
    QString zeile = block.text().left(c.selectionStart() - block.position());
    zeile = zeile.mid(zeile.lastIndexOf(QChar::LineSeparator) + 1);
    qsizetype blanks = 0;
    while (blanks < zeile.size() && zeile[blanks] == u' ')
        ++blanks;
    c.beginEditBlock();
    c.insertBlock();
    c.insertText(QString(blanks, u' '));
    c.endEditBlock();
    text->setTextCursor(c);
    text->ensureCursorVisible();
}

void Textfenster::mnuSongTextEinAus_Click()
{
    if (box.txtSongText->isHidden()) {
        box.txtSongText->show();
        box.txtSongText->raise();
        box.txtSongText->setFocus();
    } else {
        box.txtSongText->hide();
    }
}

void Textfenster::cmdTextBig_Click()
{
    const QRect g = box.TextSongs->geometry();
    AusgabeboxSteuerelemente::Platz(box.TextSongs, Twips(g.x()), 690, Twips(g.width()), 4760);
    for (QPushButton* b : {box.cmdTextBig, box.cmdTextSmall})
        AusgabeboxSteuerelemente::Platz(b, Twips(b->x()), 450, Twips(b->width()), Twips(b->height()));
    // The list now lies over the fields; their labels would stand in it.
    for (int i : {0, 1, 3})
        box.Bez[i]->hide();
}

void Textfenster::cmdTextSmall_Click()
{
    const QRect g = box.TextSongs->geometry();
    AusgabeboxSteuerelemente::Platz(box.TextSongs, Twips(g.x()), 4290, Twips(g.width()), 1150);
    for (QPushButton* b : {box.cmdTextBig, box.cmdTextSmall})
        AusgabeboxSteuerelemente::Platz(b, Twips(b->x()), 4050, Twips(b->width()), Twips(b->height()));
    for (int i : {0, 1, 3})
        box.Bez[i]->show();
}

void Textfenster::mnuTexteditor_Click()
{
    if (!m_editor) {
        m_editor = new frmEditor(&box);
        m_editor->Form_Load();
    }
    m_editor->show();
    m_editor->raise();
    m_editor->activateWindow();
}

QString Textfenster::MarkierterText() const
{
    const QString& name = box.AktivesFeld;
    if (name == u"filTrack")
        return box.filTrack->List(box.filTrack->ListIndex()).trimmed();
    for (Textfeld* feld : {box.TextBand, box.TextKaufdatum, box.TextLPTitel, box.TextPreis, box.TextMedium,
                           box.TextPlattenfirma, box.TextBestellNr, box.TextInfo, box.TextStil, box.TextMusikpfad})
        if (feld->objectName() == name)
            return feld->selectedText();
    for (QComboBox* liste : {box.cboBildpfad, box.cboEbook}) {
        if (liste->objectName() != name)
            continue;
        // A list without an edit line selects its entry as a whole.
        return liste->isEditable() ? liste->lineEdit()->selectedText() : liste->currentText();
    }
    for (QTextEdit* t : Textfenster5(box))
        if (t->objectName() == name)
            return Auswahl(t);
    return {};
}

void Textfenster::mnuWeblink_Click()
{
    try {
        const QString text = MarkierterText();
        if (text.contains(u"www") || text.contains(u"http") || text.contains(u"https")) {
            const QString link = InputNimb(QStringLiteral("Diesen Link ausführen?"), QStringLiteral("Linkausführung"), text);
            if (!link.isEmpty())
                D().shell().oeffnen(link);
        } else if (text.mid(1, 1) == u":" || text.startsWith(u'/')) {
            if (QFileInfo(text).isFile())
                D().shell().oeffnen(text);
            else
                MsgNimb(text + QStringLiteral("\nDatei nicht vorhanden oder Dateipfad ungültig!"), 3, 0,
                        QStringLiteral("Dateipfad"), 0, Farbe::WarnHintergrund, Farbe::StandardText);
        } else if (text.contains(u'@')) {
            const QString adresse = InputNimb(QStringLiteral("Eine eMail an diese Adresse senden?"),
                                              QStringLiteral("Linkausführung"), text);
            if (!adresse.isEmpty())
                D().shell().oeffnen(QStringLiteral("mailto:") + adresse);
        } else {
            const QString link = InputNimb(QStringLiteral("Diesen Text als Internet-Link ausführen?"),
                                           QStringLiteral("Linkausführung"), QStringLiteral("www.") + text);
            if (!link.isEmpty())
                D().shell().oeffnen(link);
        }
    } catch (const Laufzeitfehler& fehler) {
        Fehlermeldung(fehler, QStringLiteral("Ausgabebox_mnuWeblink_Click"));
    }
}

void Textfenster::ProgrammschriftAnwenden(const QString& name, double groesse)
{
    QFont programm = box.TextBand->font();
    programm.setFamily(name);
    if (groesse > 0)
        programm.setPointSizeF(groesse);
    box.TextBand->setFont(programm);
    // What TextBand got is what every other field gets, also when the font was not there.
    const QFontInfo bekommen(box.TextBand->font());
    const double punkte = box.TextBand->font().pointSizeF();
    for (QWidget* w : std::initializer_list<QWidget*>{box.filPlaylist, box.TextKaufdatum, box.TextLPTitel,
                                                      box.TextPreis, box.TextMedium, box.TextPlattenfirma,
                                                      box.TextBestellNr, box.TextInfo, box.TextStil, box.TextSongs,
                                                      box.TextMusikpfad, box.cboEbook, box.cboBildpfad,
                                                      box.MSFlexGrid1, box.lvwPlaylist}) {
        QFont f = w->font();
        f.setFamily(bekommen.family());
        f.setPointSizeF(punkte);
        w->setFont(f);
    }
}

void Textfenster::mnuProgSchrift_Click()
{
    try {
        const QString name = Lesen(QStringLiteral("ProgSchriftName"), QStringLiteral("Segoe UI"));
        const QString groesse = Lesen(QStringLiteral("ProgSchriftSize"), QStringLiteral("12"));
        MsgNimb(QStringLiteral("Programm-Schriftname: ") + name + QStringLiteral("\nProgramm-Schriftgröße: ") + groesse,
                1, 0, QStringLiteral("Schriftart Programmschrift"), 0);
        Schriftauswahl auswahl{box.TextBand->font(), m_dialogFarbe};
        auswahl.schrift.setFamily(name);
        if (const auto v = Zahl(groesse); v && *v > 0 && *v < 1000)
            auswahl.schrift.setPointSizeF(*v);
        if (!D().dialoge().Schrift(auswahl))
            throw Laufzeitfehler(Fehlernummer::DialogAbgebrochen);
        m_dialogSchrift = auswahl.schrift;
        m_dialogSchriftDa = true;
        const double punkte = auswahl.schrift.pointSizeF() > 0 ? auswahl.schrift.pointSizeF() : 12.0;
        Speichern(QStringLiteral("ProgSchriftName"), auswahl.schrift.family());
        Speichern(QStringLiteral("ProgSchriftSize"), QString::number(punkte));
        ProgrammschriftAnwenden(auswahl.schrift.family(), punkte);
    } catch (const Laufzeitfehler& fehler) {
        Fehlermeldung(fehler, QStringLiteral("Ausgabebox_mnuProgSchrift_Click"));
    }
}

void Textfenster::mnuStandardschriftEinstellen_Click()
{
    try {
        MsgNimb(QStringLiteral("Standard-Schriftname: ") + StandardFontName + QStringLiteral("\nStandard-Schriftgröße: ")
                    + QString::number(StandardFontsize),
                1, 0, QStringLiteral("Schriftart Standardschrift"), 0);
        Schriftauswahl auswahl;
        auswahl.schrift.setFamily(StandardFontName);
        auswahl.schrift.setPointSizeF(StandardFontsize > 0 ? StandardFontsize : 12.0);
        auswahl.schrift.setBold(StandardFontBold);
        auswahl.schrift.setItalic(StandardFontItalic);
        auswahl.schrift.setStrikeOut(StandardFontStrikethru);
        auswahl.schrift.setUnderline(StandardFontUnderline);
        auswahl.farbe = NummerFarbe(StandardColor);
        if (!D().dialoge().Schrift(auswahl))
            throw Laufzeitfehler(Fehlernummer::DialogAbgebrochen);
        m_dialogSchrift = auswahl.schrift;
        m_dialogSchriftDa = true;
        StandardFontName = auswahl.schrift.family();
        if (auswahl.schrift.pointSizeF() > 0)
            StandardFontsize = auswahl.schrift.pointSizeF();
        StandardFontBold = auswahl.schrift.bold();
        StandardFontItalic = auswahl.schrift.italic();
        StandardFontStrikethru = auswahl.schrift.strikeOut();
        StandardFontUnderline = auswahl.schrift.underline();
        if (auswahl.farbe.isValid())
            StandardColor = FarbNummer(auswahl.farbe);
    } catch (const Laufzeitfehler& fehler) {
        Fehlermeldung(fehler, QStringLiteral("Ausgabebox_mnuStandardschriftEinstellen_Click"));
    }
}
