#include "outputs/Traegerdruck.h"

#include "outputs/Druckflaeche.h"
#include "platform/Dialogdienst.h"
#include "platform/Einheiten.h"
#include "platform/Laufzeitfehler.h"
#include "platform/Mauszeiger.h"
#include "shell/Ausgabebox.h"
#include "shell/FensterPlatzieren.h"
#include "shell/Globale.h"
#include "shell/Grundregeln.h"
#include "shell/Steuerelemente.h"

#include <QAction>
#include <QComboBox>
#include <QFileInfo>
#include <QKeyEvent>
#include <QPrinter>
#include <QTextEdit>

frmDruckVorschau::frmDruckVorschau(QWidget* eltern)
    : VerlaufFenster(eltern)
{
    setObjectName(QStringLiteral("frmDruckVorschau"));
    setWindowTitle(QStringLiteral("Druckvorschau"));
    setAttribute(Qt::WA_DeleteOnClose);
    setFarbverlauf(Farbe::StandardHintergrund, Farbe::VerlaufEnde, VerlaufSenkrecht);
    picVorschau = new Bildfeld(this);
    picVorschau->setObjectName(QStringLiteral("picVorschau"));
    picVorschau->setFocusPolicy(Qt::StrongFocus);
    picVorschau->setAlignment(Qt::AlignLeft | Qt::AlignTop);
    picVorschau->installEventFilter(this);
    resize(Px(9600), Px(5500));
}

void frmDruckVorschau::resizeEvent(QResizeEvent* e)
{
    VerlaufFenster::resizeEvent(e);
    if (!isMinimized())
        picVorschau->setGeometry(0, 0, std::max(1, width() - Px(50)), std::max(1, height() - Px(50)));
}

bool frmDruckVorschau::eventFilter(QObject* objekt, QEvent* ereignis)
{
    if (objekt == picVorschau && ereignis->type() == QEvent::KeyPress
        && static_cast<QKeyEvent*>(ereignis)->key() == Qt::Key_Escape)
        Abbruch = true;
    return VerlaufFenster::eventFilter(objekt, ereignis);
}

void Traegerdruck::verbinden()
{
    BefehlVerbinden(box.MenuDrucken, this, [this] { MenuDrucken_Click(); });
    BefehlVerbinden(box.mnuVorschauDrucken, this, [this] { mnuVorschauDrucken_Click(); });
    BefehlVerbinden(box.mnuBacksitePrint, this, [this] { mnuBacksitePrint_Click(); });
    BefehlVerbinden(box.mnuViewBacksitePrint, this, [this] { mnuViewBacksitePrint_Click(); });
}

QPixmap Traegerdruck::sichtbaresCover() const
{
    return !box.Bild1->isHidden() ? box.Bild1->Bild() : box.imgBildpfad->Bild();
}

void Traegerdruck::Textblock(Druckflaeche& f, double groesse, double klein) const
{
    f.setFontName(QStringLiteral("Times New Roman"));
    f.Print();
    f.setFontBold(true);
    f.setFontSize(groesse);
    f.Print(box.TextBand->text());
    f.Print();
    f.setFontBold(false);
    f.Print(box.TextLPTitel->text());
    f.Print();
    f.setFontSize(klein);
    f.Print(QStringLiteral("Medium: ") + box.TextMedium->text() + QStringLiteral("\tPlattenfirma: ")
            + box.TextPlattenfirma->text() + QStringLiteral("\tBestell-Nr.: ") + box.TextBestellNr->text());
    f.Print(QStringLiteral("Kaufdatum: ") + box.TextKaufdatum->text() + QStringLiteral("\tPreis: ")
            + box.TextPreis->text() + QStringLiteral("\tStilrichtung: ") + box.TextStil->text());
    f.Print(QStringLiteral("Bewertung 1-6: ") + box.txtBewertung->text());
    f.Print(QStringLiteral("Info: ") + box.TextInfo->text());
    for (int i = 0; i < box.cboEbook->count(); ++i)
        f.Print(QStringLiteral("eBook u. Multimedia: ") + QFileInfo(box.cboEbook->itemText(i)).fileName());
    f.Print();
    for (const QString& zeile : box.TextSongs->toPlainText().split(u'\n'))
        f.Print(zeile);
}

void Traegerdruck::MenuDrucken_Click()
{
    try {
        QPrinter drucker(QPrinter::HighResolution);
        DruckerWaehlen(drucker, QPageLayout::Landscape, &box);
        const QString antwort = MsgNimb(QStringLiteral("Soll das Bild mit ausgedruckt werden?"), 32, 1,
                                        QStringLiteral("Lumivox"), 0);
        if (antwort != u"Ja" && antwort != u"Nein")
            return; // closed without a choice: no page is started
        Mauszeiger(ZeigerSanduhr);
        Druckflaeche f(drucker);
        f.AktivPruefen();
        f.setScaleLeft(-1300);
        f.setCurrentY(600);
        f.setFontBold(true);
        f.setFillSolid(true);
        f.setFillColor(Qt::white);
        f.Print();
        f.Box(-150, 500, 6654, 7304);
        f.Box(-151, 501, 6655, 7305);
        if (antwort == u"Ja") {
            f.Box(6804, 500, 13458, 7304);
            f.Box(6805, 501, 13459, 7305);
            // From the text square's right edge, over the gap between the squares.
            f.PaintPicture(sichtbaresCover(), 6654, 500, 6804, 6804);
        }
        f.setCurrentY(600);
        f.setCurrentX(0);
        Textblock(f, 10, 8);
        f.EndDoc();
        Mauszeiger(ZeigerStandard);
    } catch (const Laufzeitfehler& fehler) {
        Mauszeiger(ZeigerStandard);
        Fehlermeldung(fehler, QStringLiteral("Ausgabebox_MenuDrucken_Click"));
    }
}

void Traegerdruck::mnuBacksitePrint_Click()
{
    try {
        QPrinter drucker(QPrinter::HighResolution);
        DruckerWaehlen(drucker, QPageLayout::Portrait, &box);
        Mauszeiger(ZeigerSanduhr);
        Druckflaeche f(drucker);
        f.AktivPruefen();
        f.setScaleLeft(-1300);
        f.setCurrentY(600);
        f.setFillSolid(true);
        f.setFillColor(Qt::white);
        f.Print();
        f.Box(-160, 490, 8410, 7220);
        f.Box(-161, 491, 8411, 7221);
        f.PaintPicture(sichtbaresCover(), -150, 500, 8550, 6704);
        f.EndDoc();
        Mauszeiger(ZeigerStandard);
    } catch (const Laufzeitfehler& fehler) {
        Mauszeiger(ZeigerStandard);
        Fehlermeldung(fehler, QStringLiteral("Ausgabebox_mnuBacksitePrint_Click"));
    }
}

frmDruckVorschau* Traegerdruck::vorschauOeffnen()
{
    auto* fenster = new frmDruckVorschau(&box);
    fenster->setWindowFlag(Qt::Window);
    FensterPlatzieren(fenster, &box, QStringLiteral("center"), 10);
    fenster->show();
    Vorschau = fenster;
    return fenster;
}

void Traegerdruck::vorschauZeichnen(const std::function<void(Druckflaeche&)>& zeichnen)
{
    frmDruckVorschau* fenster = vorschauOeffnen();
    QImage bild(fenster->picVorschau->size(), QImage::Format_RGB32);
    bild.fill(Qt::white);
    {
        Druckflaeche f(bild);
        f.setFillSolid(true);
        f.setFillColor(Qt::white);
        zeichnen(f);
        f.EndDoc();
    }
    fenster->picVorschau->setBild(QPixmap::fromImage(bild));
}

void Traegerdruck::mnuVorschauDrucken_Click()
{
    vorschauZeichnen([this](Druckflaeche& f) {
        f.Box(133, 333, 4669, 4869);
        f.Box(4669, 333, 9205, 4869);
        f.PaintPicture(sichtbaresCover(), 4669, 333, 4550, 4550);
        f.setScaleLeft(-200);
        f.setCurrentY(300);
        f.setCurrentX(0);
        Textblock(f, 7, 5);
    });
}

void Traegerdruck::mnuViewBacksitePrint_Click()
{
    vorschauZeichnen([this](Druckflaeche& f) {
        f.Box(280, 333, 5668, 4883);
        f.PaintPicture(sichtbaresCover(), 280, 333, 5388, 4550);
    });
}
