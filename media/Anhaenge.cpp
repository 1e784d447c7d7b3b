#include "media/Anhaenge.h"

#include "shell/Ausgabebox.h"

#include "catalogue/Datensatzbearbeitung.h"
#include "catalogue/Datensteuerung.h"
#include "platform/Dateikopie.h"
#include "platform/Dialogdienst.h"
#include "platform/Dienste.h"
#include "platform/Einheiten.h"
#include "platform/Laufzeitfehler.h"
#include "platform/Mauszeiger.h"
#include "platform/Pfade.h"
#include "shell/Globale.h"
#include "shell/Grundregeln.h"
#include "shell/Steuerelemente.h"

#include <QAction>
#include <QComboBox>
#include <QDir>
#include <QFileInfo>
#include <QKeyEvent>
#include <QLabel>

namespace {

const QChar Ende = u'\u00b0';

QString Bezeichnung(int anzahl) { return QStringLiteral("eBook u. Multimedia (%1)").arg(anzahl); }

} // namespace

void Anhaenge::verbinden()
{
    // After the record view has filled the bound fields, which it wired first.
    connect(box.Data1, &Datensteuerung::Reposition, this, [this] { eBookListe(); });
    connect(box.imgEbookOpen, &Bildknopf::clicked, this, [this] { imgEbookOpen_Click(); });
    connect(box.imgEbookKill, &Bildknopf::clicked, this, [this] { imgEbookKill_Click(); });
    connect(box.imgEbookPlay, &Bildknopf::clicked, this, [this] { imgEbookPlay_Click(); });
    for (Bildknopf* k : {box.imgEbookOpen, box.imgEbookKill, box.imgEbookPlay})
        k->setEnabled(true);
    box.cboEbook->installEventFilter(this);
}

bool Anhaenge::eventFilter(QObject* objekt, QEvent* ereignis)
{
    if (objekt == box.cboEbook && ereignis->type() == QEvent::KeyPress
        && static_cast<QKeyEvent*>(ereignis)->text() == QStringLiteral("'"))
        return true;
    return Teilbereich::eventFilter(objekt, ereignis);
}

void Anhaenge::eBookListe()
{
    box.cboEbook->clear();
    box.Bez[11]->setText(Bezeichnung(0));
    const QString text = box.txtEbook->text().trimmed();
    if (text.isEmpty())
        return;
    const QStringList teile = text.split(Ende);
    const bool datenbankpfad = box.mnuBildDatenbankpfad->isChecked();
    for (qsizetype i = 0; i + 1 < teile.size(); ++i) {
        // Beside the catalogue only the file name counts, so a moved archive still finds them.
        const QString pfad = datenbankpfad
            ? DatenbankOrdner + QStringLiteral("eBook/") + DateinameAusPfad(teile[i])
            : teile[i];
        if (QFileInfo(pfad).isFile()) {
            box.cboEbook->addItem(pfad);
            box.cboEbook->setCurrentIndex(box.cboEbook->count() - 1);
        }
    }
    box.Bez[11]->setText(Bezeichnung(box.cboEbook->count()));
}

void Anhaenge::imgEbookOpen_Click()
{
    const QString ordner = ProgrammOrdner + QStringLiteral("eBook/");
    if (EbookPfad.isEmpty())
        EbookPfad = ordner;
    Dateiauswahl d;
    d.titel = QStringLiteral(" eBook u. Multimedia laden");
    d.filter = QStringLiteral("Adobe (*.pdf)|*.pdf|alle Dateien (*.*)|*.*");
    d.filterIndex = 1;
    d.startordner = EbookPfad;
    const QString quelle = D().dialoge().Datei(d).trimmed();
    if (quelle.isEmpty())
        return;
    const QString ziel = ordner + DateinameAusPfad(quelle);
    EbookPfad = ziel;
    if (!QFileInfo::exists(ziel)) {
        Mauszeiger(ZeigerSanduhr);
        QDir().mkpath(ordner);
        const bool kopiert = DateiKopieren(quelle, ziel, [] {
            EreignisseZulassen();
            return true;
        });
        Mauszeiger(ZeigerStandard);
        if (!kopiert) {
            MsgNimb(quelle + QStringLiteral("\r\n\r\nDie Datei konnte nicht in den eBook-Ordner kopiert werden."), 3, 0,
                    QStringLiteral("Hinweis"), 0, Farbe::WarnHintergrund);
            return;
        }
    }
    box.txtEbook->setText((box.txtEbook->text() + ziel + Ende).trimmed());
    eBookListe();
}

void Anhaenge::imgEbookKill_Click()
{
    const QString gezeigt = box.cboEbook->currentText();
    if (gezeigt.isEmpty())
        return;
    if (MsgNimb(gezeigt + QStringLiteral("\r\n\r\neBook bzw. Multimediafile löschen?"), 22, 2,
                QStringLiteral("Sicherheitsabfrage"), 0)
        == u"Nein")
        return;
    D().papierkorb().verschieben(gezeigt);
    EreignisseZulassen();
    if (!QFileInfo::exists(gezeigt))
        D().klang().abspielen(ProgrammOrdner + QStringLiteral("Matsch.wav"));
    else
        MsgNimb(gezeigt
                    + QStringLiteral("\r\nDas eBook bzw. das Multimediafile konnte nicht in den Papierkorb verschoben "
                                     "werden!\r\n\r\nBitte löschen Sie manuell...\r\n"),
                3, 0, QStringLiteral("Fehler beim Löschen"), 0, Farbe::WarnHintergrund);
    const QString text = box.txtEbook->text().trimmed();
    if (text.isEmpty())
        return;
    const QStringList teile = text.split(Ende);
    QString neu;
    for (qsizetype i = 0; i + 1 < teile.size(); ++i)
        if (teile[i] != gezeigt)
            neu += teile[i] + Ende;
    box.txtEbook->setText(neu.isEmpty() ? QStringLiteral(" ") : neu);
    eBookListe();
    box.datensatzbearbeitung().MenuSpeichern_Click();
}

void Anhaenge::imgEbookPlay_Click()
{
    const QString pfad = box.cboEbook->currentText();
    if (pfad.isEmpty())
        return;
    EreignisseZulassen();
    if (!QFileInfo(pfad).isFile()) {
        Fehlermeldung(Laufzeitfehler(Fehlernummer::DateiNichtGefunden), QStringLiteral("Ausgabebox_imgEbookPlay_Click"));
        return;
    }
    if (!D().shell().oeffnen(pfad))
        Fehlermeldung(Laufzeitfehler(Fehlernummer::UngueltigerAufruf,
                                     QStringLiteral("Für diese Datei ist kein Programm zugeordnet.")),
                      QStringLiteral("Ausgabebox_imgEbookPlay_Click"));
}
