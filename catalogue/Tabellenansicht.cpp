#include "catalogue/Tabellenansicht.h"

#include "shell/Ausgabebox.h"

#include "catalogue/Datensatzansicht.h"
#include "catalogue/Datensteuerung.h"
#include "catalogue/FlexGrid.h"
#include "catalogue/Katalogdatei.h"
#include "catalogue/Recordset.h"
#include "catalogue/frmSpaltenAnordnen.h"
#include "media/Coververwaltung.h"
#include "platform/Einheiten.h"
#include "platform/Laufzeitfehler.h"
#include "platform/Mauszeiger.h"
#include "shell/Einstellungen.h"
#include "shell/FensterPlatzieren.h"
#include "shell/Globale.h"
#include "shell/Grundregeln.h"
#include "shell/Steuerelemente.h"

#include <QAction>
#include <QCheckBox>
#include <QCursor>
#include <QEvent>
#include <QHash>
#include <QLabel>
#include <QMenu>
#include <QMouseEvent>
#include <QProgressBar>
#include <QPushButton>
#include <QSignalBlocker>

#include <vector>

namespace {

const char* const Standardspalten[18] = {"Band",     "LPTitel",   "Medium",   "Stil",     "Info",
                                         "Plattenfirma", "BestellNr", "Preis", "Datum",    "Songs",
                                         "BildPfad", "Musikpfad", "SongText", "eBook",    "Bewertung",
                                         "InternetTab", "InfoTab", "SonstigesTab"};

QString breiteSchluessel(int n) { return QStringLiteral("%1Spaltenbreite").arg(n); }
QString anordnungSchluessel(int n) { return QStringLiteral("TabelleAnordnenCaption%1").arg(n); }

// Every character whose upper case is the letter: "i" and the dotless "ı" for "I".
QVariantList Anfangszeichen(const QString& buchstabe)
{
    static QHash<QString, QVariantList> bekannt;
    if (const auto it = bekannt.constFind(buchstabe); it != bekannt.constEnd())
        return it.value();
    QVariantList zeichen;
    for (int c = 1; c < 0x10000; ++c) {
        const QChar z{char16_t(c)};
        if (!z.isSurrogate() && QString(z).toUpper() == buchstabe)
            zeichen << QString(z);
    }
    bekannt.insert(buchstabe, zeichen);
    return zeichen;
}

} // namespace

void Tabellenansicht::verbinden()
{
    for (int i = 0; i < 15; ++i)
        BefehlVerbinden(box.mnuSpalte[i], this, [this, i] {
            for (QAction* a : box.mnuSpalte)
                a->setChecked(false);
            box.mnuSpalte[i]->setChecked(true);
        });
    connect(box.cmdABC, &QPushButton::clicked, this, [this] { box.katalogdatei().MenuAktualisieren_Click(); });
    BefehlVerbinden(box.mnuTabelleAutosize, this, [this] { mnuTabelleAutosize_Click(); });
    BefehlVerbinden(box.mnuAllesMarkieren, this, [this] { mnuAllesMarkieren_Click(); });
    BefehlVerbinden(box.mnuTabelleAnordnen, this, [this] { mnuTabelleAnordnen_Click(); });
    KlickVerbinden(box.chkTabelle, this, [this] { chkTabelle_Click(); });
    for (int i = 0; i < 32; ++i) {
        connect(box.ButtonAlpabeth[i], &QPushButton::clicked, this, [this, i] { ButtonAlpabeth_MouseUp(i); });
        box.ButtonAlpabeth[i]->installEventFilter(this);
    }
    connect(box.Data1, &Datensteuerung::neuAufgebaut, this, [this] { box.MSFlexGrid1->setRecordset(box.Data1->recordset()); });
    connect(box.Data1, &Datensteuerung::zeileGeaendert, box.MSFlexGrid1, &FlexGrid::zeileGeaendert);
    connect(box.Data1, &Datensteuerung::zeileAngehaengt, box.MSFlexGrid1, &FlexGrid::zeileAngehaengt);
    connect(box.Data1, &Datensteuerung::zeileEntfernt, box.MSFlexGrid1, &FlexGrid::zeileEntfernt);
    connect(box.MSFlexGrid1, &FlexGrid::RowColChange, this, [this] { MSFlexGrid1_RowColChange(); });
    connect(box.MSFlexGrid1, &FlexGrid::GotFocus, this, [this] { box.AktivesFeld = QStringLiteral("MSFlexGrid1"); });
    connect(box.MSFlexGrid1, &FlexGrid::KeyPress, this, [](int taste) {
        if (taste == Qt::Key_Escape)
            Abbruch = true;
    });
    connect(box.MSFlexGrid1, &FlexGrid::MouseDown, this,
            [this](Qt::MouseButton knopf, Qt::KeyboardModifiers) { MSFlexGrid1_MouseDown(knopf); });
    connect(box.MSFlexGrid1, &FlexGrid::MouseMove, this, [this](Qt::MouseButtons k) { MSFlexGrid1_MouseMove(k); });
    connect(box.MSFlexGrid1, &FlexGrid::MouseUp, this, [this] { box.datensatzansicht().TrackListeLaden(); });
    // The current cell shows in the highlight colours, the cell left behind faintly.
    connect(box.MSFlexGrid1, &FlexGrid::LeaveCell, this, [this] {
        QPalette p = box.MSFlexGrid1->palette();
        p.setColor(QPalette::Highlight, p.color(QPalette::HighlightedText));
        p.setColor(QPalette::HighlightedText, p.color(QPalette::WindowText));
        box.MSFlexGrid1->setPalette(p);
    });
    connect(box.MSFlexGrid1, &FlexGrid::EnterCell, this, [this] { box.MSFlexGrid1->setPalette(QPalette()); });
}

bool Tabellenansicht::eventFilter(QObject* objekt, QEvent* ereignis)
{
    if (ereignis->type() == QEvent::MouseButtonPress
        && static_cast<QMouseEvent*>(ereignis)->button() == Qt::RightButton
        && objekt->objectName().startsWith(u"ButtonAlpabeth(")) {
        // The right button chooses the column the letters work on.
        box.mnuSpaltenkopf->popup(QCursor::pos());
        return true;
    }
    return Teilbereich::eventFilter(objekt, ereignis);
}

void Tabellenansicht::SpaltenTitelLesen()
{
    for (int n = 0; n < 18; ++n)
        SpaltenTitel[size_t(n)] =
            Lesen(anordnungSchluessel(n), QLatin1String(Standardspalten[n]) + QStringLiteral("1"));
}

void Tabellenansicht::SpaltenSichtbarkeitAnwenden()
{
    for (int n = 0; n < 18; ++n) {
        QString& titel = SpaltenTitel[size_t(n)];
        if (titel.endsWith(u'1')) {
            titel.chop(1);
            int breite = Lesen(breiteSchluessel(n), QStringLiteral("1000")).toInt();
            // A column made visible again after a width of 0 gets the standard width.
            if (breite == 0)
                breite = 1000;
            box.MSFlexGrid1->setColWidth(n, breite);
        } else if (titel.endsWith(u'0')) {
            titel.chop(1);
            box.MSFlexGrid1->setColWidth(n, 0);
        }
    }
}

void Tabellenansicht::TabelleEinrichten(bool trackListeLaden)
{
    if (TabelleNichtAnordnen)
        return;
    FlexGrid* g = box.MSFlexGrid1;
    // Keep a width the user has dragged.
    g->setRedraw(false);
    for (int n = 0; n < g->Cols(); ++n)
        Speichern(breiteSchluessel(n), QString::number(g->ColWidth(n)));
    g->setRedraw(true);

    SpaltenTitelLesen();
    g->setRedraw(false);
    SpaltenSichtbarkeitAnwenden();
    g->setRedraw(true);

    if (trackListeLaden)
        box.datensatzansicht().TrackListeLaden();

    g->setRedraw(false);
    int breiten[18];
    for (int i = 0; i < 18; ++i)
        breiten[i] = g->ColWidth(i);
    const int letzte = std::min(g->Cols() - 1, 17);
    for (int i = 0; i <= letzte; ++i) {
        for (int j = i; j < g->Cols(); ++j) {
            if (g->TextMatrix(0, j) == SpaltenTitel[size_t(i)]) {
                g->ColPosition(j, i);
                break;
            }
        }
    }
    for (int i = 0; i < 18; ++i)
        g->setColWidth(i, breiten[i]);
    for (int n = 0; n < 18; ++n)
        if (Lesen(anordnungSchluessel(n), QLatin1String(Standardspalten[n]) + QStringLiteral("1")).endsWith(u'0'))
            g->setColWidth(n, 0);
    g->setRedraw(true);
}

void Tabellenansicht::MSFlexGrid1_RowColChange()
{
    if (AutosizeLaeuft)
        return;
    try {
        box.Data1->setAbsolutePosition(box.MSFlexGrid1->Row() - 1);
    } catch (const Laufzeitfehler& fehler) {
        // The edit could not be written: the record stays, and so does what was typed.
        if (Recordset* rs = box.Data1->recordset(); rs && rs->AbsolutePosition() >= 0) {
            const QSignalBlocker still(box.MSFlexGrid1);
            box.MSFlexGrid1->setRow(rs->AbsolutePosition() + 1);
        }
        Fehlermeldung(fehler, QStringLiteral("Ausgabebox_MSFlexGrid1_RowColChange"));
    }
}

void Tabellenansicht::MSFlexGrid1_MouseDown(Qt::MouseButton knopf)
{
    FlexGrid* g = box.MSFlexGrid1;
    if (knopf == Qt::RightButton) {
        box.MenuBearbeiten->setDefaultAction(box.mnuKopieren);
        box.MenuBearbeiten->popup(QCursor::pos());
    }
    // A click on a head has selected the whole column: sort by it.
    if (g->Row() == g->Rows() - 1 || g->RowSel() != g->Rows() - 1)
        return;
    const int spalte = g->Col();
    if (spalte < 0 || spalte > 17)
        return;
    QString richtung;
    if (SortAbsteigend) {
        SortAbsteigend = false;
        richtung = QStringLiteral(" DESC");
    } else {
        SortAbsteigend = true;
        richtung = QStringLiteral(" ASC");
    }
    try {
        box.Data1->setRecordSource(QStringLiteral("select * from Schallplatten order by ") + SpaltenTitel[size_t(spalte)]
                               + richtung);
        box.Data1->Refresh();
    } catch (const Laufzeitfehler&) {
        // Ignored, as in every handler of the table.
    }
}

void Tabellenansicht::MSFlexGrid1_MouseMove(Qt::MouseButtons knoepfe)
{
    FlexGrid* g = box.MSFlexGrid1;
    if (knoepfe != Qt::NoButton || g->MouseRow() < 0 || g->MouseCol() < 0)
        return;
    QString text = g->TextMatrix(g->MouseRow(), g->MouseCol());
    const int breite = QFontMetrics(g->font()).horizontalAdvance(text.left(1000));
    g->setToolTip(breite > g->columnWidth(g->MouseCol()) ? text.left(1000) : QString());
}

void Tabellenansicht::ButtonAlpabeth_MouseUp(int index)
{
    Mauszeiger(ZeigerSanduhr);
    try {
        QString spalte;
        for (QAction* a : box.mnuSpalte)
            if (a->isChecked())
                spalte = a->text();
        if (index >= 26 && index <= 31 && !box.chkTabelle->isChecked()) {
            // A rating always filters.
            box.chkTabelle->setChecked(true);
        }
        FlexGrid* g = box.MSFlexGrid1;
        if (!box.chkTabelle->isChecked()) {
            const int c = box.MSFlexGrid1->SpalteSuchen(spalte);
            const QString buchstabe = box.ButtonAlpabeth[index]->text();
            // The catalogue names the rows whose first character can be the letter; a
            // number is asked too, as its text may begin with one ("inf").
            const QVariantList zeichen = Anfangszeichen(buchstabe);
            QStringList platz;
            for (int i = 1; i <= zeichen.size(); ++i)
                platz << QStringLiteral("?%1").arg(i);
            const QString name = c >= 0 ? g->SqlName(c) : QString();
            const int zeile = c < 0 ? -1
                                    : g->ZeileSuchen(QStringLiteral("typeof(%1) IN ('integer', 'real') OR "
                                                                    "substr(%1, 1, 1) COLLATE BINARY IN (%2)")
                                                         .arg(name, platz.join(u',')),
                                                     zeichen, [&](int z) {
                                                         return g->TextMatrix(z, c).left(1).toUpper() == buchstabe;
                                                     });
            // The last row is left out: it would not scroll anyway.
            if (zeile >= 1 && zeile < g->Rows() - 1)
                g->setTopRow(zeile);
        } else {
            box.Data1->setRecordSource(BuchstabenFilter(index, spalte));
            box.Data1->Refresh();
            g->setRow(0);
            g->setFocus();
            box.coververwaltung().CoverAZ();
        }
    } catch (const Laufzeitfehler& fehler) {
        Mauszeiger(ZeigerStandard);
        Fehlermeldung(fehler, QStringLiteral("Ausgabebox_ButtonAlpabeth_MouseUp"));
    }
    Mauszeiger(ZeigerStandard);
}

QString Tabellenansicht::BuchstabenFilter(int index, const QString& spalte)
{
    const QString anfang = QStringLiteral("select * from Schallplatten where ");
    const QString ende = QStringLiteral(" order by Band, LPTitel");
    if (index >= 26)
        return anfang + QStringLiteral("Bewertung like '%1'").arg(index - 25) + ende;
    const QChar x = QChar(u'a' + index);
    // The four letters with a German companion take it along.
    QString begleiter;
    switch (x.unicode()) {
    case u'a': begleiter = QStringLiteral("ä"); break;
    case u'o': begleiter = QStringLiteral("ö"); break;
    case u's': begleiter = QStringLiteral("ß"); break;
    case u'u': begleiter = QStringLiteral("ü"); break;
    default: break;
    }
    QString text = anfang + spalte + QStringLiteral(" like '") + x + QStringLiteral("*'");
    if (!begleiter.isEmpty())
        text += QStringLiteral(" or ") + spalte + QStringLiteral(" like '") + begleiter + QStringLiteral("*'");
    return text + ende;
}

void Tabellenansicht::chkTabelle_Click()
{
    if (box.chkTabelle->isChecked()) {
        Speichern(QStringLiteral("TopRow"), QStringLiteral("1"));
        return;
    }
    Speichern(QStringLiteral("TopRow"), QStringLiteral("0"));
    box.katalogdatei().MenuAktualisieren_Click();
}

void Tabellenansicht::mnuTabelleAutosize_Click()
{
    FlexGrid* g = box.MSFlexGrid1;
    AutosizeLaeuft = true;
    g->setRedraw(false);
    Mauszeiger(ZeigerSanduhr);
    box.lblTemp->setFont(g->font());
    const QFontMetrics mass(g->font());
    // Row by row, so that each block of rows is read once. A large table shows how far the
    // walk is, and Esc stops it with every width as it was.
    const EscAbbruch esc;
    Abbruch = false;
    const bool fortschritt = g->Rows() > 20000;
    if (fortschritt) {
        box.ProgressBar1->setRange(0, g->Rows());
        box.ProgressBar1->setValue(0);
        box.ProgressBar1->show();
    }
    std::vector<int> breiten(size_t(std::max(0, g->Cols())), 0);
    for (int zeile = 0; zeile < g->Rows() && !Abbruch; ++zeile) {
        for (int c = 0; c < g->Cols(); ++c) {
            // Measured as the cell shows it: its first line.
            QString text = g->TextMatrix(zeile, c);
            const qsizetype umbruch = text.indexOf(u'\n');
            if (umbruch >= 0)
                text.truncate(umbruch);
            breiten[size_t(c)] = std::max(breiten[size_t(c)], mass.horizontalAdvance(text.left(300)));
        }
        if (zeile % 2000 == 1999) {
            if (fortschritt)
                box.ProgressBar1->setValue(zeile + 1);
            EreignisseZulassen();
        }
    }
    if (!Abbruch)
        for (int c = 0; c < g->Cols(); ++c)
            g->setColWidth(c, std::min(Twips(breiten[size_t(c)]) + 200, 10000));
    Abbruch = false;
    if (fortschritt)
        box.ProgressBar1->hide();
    Mauszeiger(ZeigerStandard);
    g->setRedraw(true);
    AutosizeLaeuft = false;
    TabelleEinrichten();
}

void Tabellenansicht::mnuAllesMarkieren_Click()
{
    FlexGrid* g = box.MSFlexGrid1;
    int sichtbar = 0;
    for (int c = 0; c < g->Cols(); ++c)
        if (g->ColWidth(c) > 0)
            ++sichtbar;
    g->setRedraw(false);
    g->setRow(1);
    g->setCol(0);
    g->setColSel(sichtbar - 1);
    g->setRowSel(g->Rows() - 1);
    g->setRedraw(true);
}

void Tabellenansicht::mnuTabelleAnordnen_Click()
{
    {
        frmSpaltenAnordnen fenster(&box);
        fenster.Form_Load();
        FensterPlatzieren(&fenster, &box, QStringLiteral("center"), 10);
        fenster.Anzeigen();
    }
    TabelleEinrichten();
    mnuTabelleAutosize_Click();
}
