#include "media/Bildimport.h"

#include "shell/Ausgabebox.h"

#include "catalogue/Datensatzbearbeitung.h"
#include "catalogue/Datensteuerung.h"
#include "catalogue/Recordset.h"
#include "media/Coververwaltung.h"
#include "media/GifSchreiben.h"
#include "platform/Dateikopie.h"
#include "platform/Dialogdienst.h"
#include "platform/Dienste.h"
#include "platform/Einheiten.h"
#include "platform/Mauszeiger.h"
#include "platform/Pfade.h"
#include "platform/Scanner.h"
#include "shell/Globale.h"
#include "shell/Grundregeln.h"
#include "shell/Steuerelemente.h"

#include <QBuffer>
#include <QCheckBox>
#include <QClipboard>
#include <QDir>
#include <QFileInfo>
#include <QGuiApplication>
#include <QImageReader>
#include <QImageWriter>
#include <QMimeData>
#include <QSaveFile>

namespace {

// Beyond this a picture would take hundreds of megabytes to hold; no cover is that large.
constexpr qint64 GroessteBildpunkte = 40'000'000;

const QString KeinBildformat = QStringLiteral("Kein gültiges Bildformat in der Zwischenablage");

QImage ZwischenablageBild()
{
    const QMimeData* daten = QGuiApplication::clipboard()->mimeData();
    if (!daten || !daten->hasImage())
        return {};
    return qvariant_cast<QImage>(daten->imageData());
}

void Hinweis(const QString& text)
{
    MsgNimb(text, 3, 0, QStringLiteral("Hinweis"), 0, Farbe::WarnHintergrund);
}

} // namespace

QString Coverordner() { return DatenbankOrdner + QStringLiteral("Bilder/"); }

QString BildZiel(const QString& dateiname, int filterIndex)
{
    static const char* const endungen[] = {"bmp", "jpg", "gif", "png"};
    const QString endung = QString::fromLatin1(endungen[qBound(1, filterIndex, 4) - 1]);
    const int punkt = dateiname.lastIndexOf(u'.');
    const int trenner = qMax(dateiname.lastIndexOf(u'/'), dateiname.lastIndexOf(u'\\'));
    // A name typed without extension gets one rather than losing its last letters.
    if (punkt <= trenner)
        return dateiname + u'.' + endung;
    return dateiname.left(punkt + 1) + endung;
}

QImage BildLesen(const QString& pfad, QString& fehler)
{
    const QFileInfo info(pfad);
    if (!info.isFile()) {
        fehler = QStringLiteral("Die Datei ist nicht mehr vorhanden.");
        return {};
    }
    if (info.size() == 0) {
        fehler = QStringLiteral("Die Datei ist leer.");
        return {};
    }
    QImageReader leser(pfad);
    leser.setDecideFormatFromContent(true);
    const QSize groesse = leser.size();
    if (groesse.isValid() && qint64(groesse.width()) * groesse.height() > GroessteBildpunkte) {
        fehler = QStringLiteral("Das Bild ist mit %1 × %2 Bildpunkten zu groß.").arg(groesse.width()).arg(groesse.height());
        return {};
    }
    QImage bild = leser.read();
    if (bild.isNull())
        fehler = QStringLiteral("Die Datei ist kein lesbares Bild oder beschädigt.");
    return bild;
}

QString BildSchreiben(const QImage& bild, const QString& ziel)
{
    const QString endung = QFileInfo(ziel).suffix().toLower();
    if (endung == u"gif")
        return GifSchreiben(bild, ziel);
    QSaveFile datei(ziel);
    if (!datei.open(QIODevice::WriteOnly))
        return QStringLiteral("Die Datei kann nicht geschrieben werden: ") + datei.errorString();
    QImageWriter schreiber(&datei, endung == u"jpg" ? QByteArray("jpeg") : endung.toLatin1());
    if (endung == u"jpg")
        schreiber.setQuality(70);
    if (!schreiber.write(bild))
        return QStringLiteral("Das Bild kann nicht gespeichert werden: ") + schreiber.errorString();
    if (!datei.commit())
        return QStringLiteral("Die Datei kann nicht geschrieben werden: ") + datei.errorString();
    return {};
}

void Bildimport::verbinden()
{
    BefehlVerbinden(box.mnuBildLaden, this, [this] { mnuBildLaden_Click(); });
    BefehlVerbinden(box.MenuBildkopieren, this, [this] { MenuBildkopieren_Click(); });
    BefehlVerbinden(box.MenuBildEinfuegen, this, [this] { MenuBildEinfuegen_Click(); });
    BefehlVerbinden(box.mnuCoverExAblegen, this, [this] { mnuCoverExAblegen_Click(); });
    BefehlVerbinden(box.mnuBildScannen, this, [this] { mnuBildScannen_Click(); });
}

void Bildimport::mnuBildLaden_Click()
{
    Dateiauswahl d;
    d.titel = QStringLiteral(" externes Cover laden");
    d.dateiname = box.TextBand->text().trimmed() + QStringLiteral(" - ") + box.TextLPTitel->text().trimmed();
    d.filter = QStringLiteral("JPEG (*.jpg) |*.jpg|GIF (*.gif) |*.gif|Bitmap (*.bmp) |*.bmg|alle Dateien (*.*) |*.*");
    d.startordner = Coverordner();
    d.filterIndex = 1;
    const QString quelle = D().dialoge().Datei(d);
    if (quelle.isEmpty())
        return;
    if (!QFileInfo(quelle).isFile()) {
        Hinweis(quelle + QStringLiteral("\r\n\r\nCover nicht gefunden!"));
        return;
    }
    // A file that is no picture stays out of the folder and out of the record.
    QString fehler;
    const QImage bild = BildLesen(quelle, fehler);
    if (bild.isNull()) {
        Hinweis(quelle + QStringLiteral("\r\n\r\n") + fehler);
        return;
    }
    const QString ziel = Coverordner() + DateinameAusPfad(quelle);
    if (!QFileInfo::exists(ziel)) {
        Mauszeiger(ZeigerSanduhr);
        QDir().mkpath(Coverordner());
        const bool kopiert = DateiKopieren(quelle, ziel, [] {
            EreignisseZulassen();
            return true;
        });
        Mauszeiger(ZeigerStandard);
        if (!kopiert) {
            Hinweis(ziel + QStringLiteral("\r\n\r\nDas Cover konnte nicht in den Bilderordner kopiert werden."));
            return;
        }
    }
    box.imgBildpfad->setBild(QPixmap::fromImage(bild));
    box.txtBildpfad->setText((box.txtBildpfad->text() + ziel + u'°').trimmed());
    box.coververwaltung().ExterneCoverLaden();
    box.datensatzbearbeitung().MenuSpeichern_Click();
}

void Bildimport::MenuBildkopieren_Click()
{
    QClipboard* ablage = QGuiApplication::clipboard();
    ablage->clear();
    const QPixmap& bild = !box.imgBildpfad->isHidden() ? box.imgBildpfad->Bild() : box.Bild1->Bild();
    if (!bild.isNull())
        ablage->setImage(bild.toImage());
    Mauszeiger(ZeigerStandard);
}

void Bildimport::MenuBildEinfuegen_Click()
{
    if (MsgNimb(QStringLiteral("Bilder können nur in die Datenbank eingefügt werden!\r\n\r\nBild einfügen?"), 22, 2,
                QStringLiteral("Datenbank"), 0)
        == u"Nein")
        return;
    InternEinfuegen(KeinBildformat);
}

QImage Bildimport::AblageFuer(bool extern_, const QString& fehlerText)
{
    if (box.imgBildpfad->isHidden() == extern_) {
        box.imgBildpfad->setVisible(extern_);
        box.Bild1->setVisible(!extern_);
        box.chkBildpfad->setChecked(extern_);
    }
    const QImage bild = ZwischenablageBild();
    if (bild.isNull())
        MsgNimb(fehlerText, 1, 0, QStringLiteral("Fehlerbehandlung"), 0);
    return bild;
}

void Bildimport::InternEinfuegen(const QString& fehlerText)
{
    const QImage bild = AblageFuer(false, fehlerText);
    if (bild.isNull())
        return;
    box.Bild1->setBild(QPixmap::fromImage(bild));
    // The bound picture goes into the edit buffer like a typed field: the next save or
    // move writes it.
    if (Recordset* rs = box.Data1->recordset()) {
        QByteArray png;
        QBuffer puffer(&png);
        puffer.open(QIODevice::WriteOnly);
        bild.save(&puffer, "PNG");
        rs->setValue(QStringLiteral("Bilder"), png);
    }
}

void Bildimport::mnuCoverExAblegen_Click() { ExternAblegen(KeinBildformat + u'!'); }

void Bildimport::ExternAblegen(const QString& fehlerText)
{
    const QImage bild = AblageFuer(true, fehlerText);
    if (bild.isNull())
        return;
    box.imgBildpfad->setBild(QPixmap::fromImage(bild));
    if (!BildSpeichern())
        return;
    box.coververwaltung().ExterneCoverLaden();
    box.coververwaltung().CoverAktualisieren();
    box.datensatzbearbeitung().MenuSpeichern_Click();
}

bool Bildimport::BildSpeichern()
{
    const QImage bild = box.imgBildpfad->Bild().toImage();
    if (bild.isNull())
        return false;
    int filter = 2;
    Dateiauswahl d;
    d.titel = QStringLiteral("Bild speichern");
    d.filter = QStringLiteral("Bitmap (*.bmp) |*.bmp| JEPG (*.jpg) |*.jpg| GIF (*.gif) |*.gif");
    d.dateiname = (box.TextBand->text().trimmed() + QStringLiteral(" - ") + box.TextLPTitel->text().trimmed()).left(99);
    d.startordner = Coverordner();
    d.filterIndex = 2;
    d.speichern = true;
    // The question comes from here, once the extension is settled.
    d.ueberschreibenFragen = false;
    d.filterGewaehlt = &filter;
    QDir().mkpath(Coverordner());
    const QString name = D().dialoge().Datei(d);
    if (name.isEmpty())
        return false;
    const QString ziel = BildZiel(name, filter);
    if (QFileInfo::exists(ziel)
        && MsgNimb(ziel + QStringLiteral("\r\n\r\nSoll die vorhandene Datei überschrieben werden?"), 22, 2,
                   QStringLiteral("Sicherheitsabfrage"), 0)
            != u"Ja")
        return false;
    Mauszeiger(ZeigerSanduhr);
    const QString fehler = BildSchreiben(bild, ziel);
    Mauszeiger(ZeigerStandard);
    if (!fehler.isEmpty()) {
        // The arguments stand as the box was always called: the number shows as its title.
        MsgNimb(fehler + QStringLiteral("\r\nFehler!"), 1, int(Farbe::FehlerHintergrund), QStringLiteral("3482368"), 0);
        return false;
    }
    QString lesefehler;
    const QImage gespeichert = BildLesen(ziel, lesefehler);
    box.imgBildpfad->setBild(QPixmap::fromImage(gespeichert.isNull() ? bild : gespeichert));
    box.txtBildpfad->setText((box.txtBildpfad->text() + ziel + u'°').trimmed());
    box.coververwaltung().ExterneCoverLaden();
    return true;
}

void Bildimport::mnuBildScannen_Click()
{
    const QString titel = QStringLiteral("Ausgabebox_mnuBildScannen_Click");
    QString fehler;
    const QList<Scangeraet> geraete = D().scanner().geraete(fehler);
    if (geraete.isEmpty()) {
        MsgNimb(fehler, 1, 0, QStringLiteral("Cover einscannen"), 0, Farbe::WarnHintergrund);
        return;
    }
    QStringList namen;
    for (const Scangeraet& g : geraete)
        namen << g.beschreibung;
    const int nummer = D().dialoge().Auswahl(QStringLiteral("Scanquelle wählen"), QStringLiteral("Scanner:"), namen);
    if (nummer < 0 || nummer >= geraete.size())
        return;
    EreignisseZulassen();
    Mauszeiger(ZeigerSanduhr);
    const QImage bild = D().scanner().scannen(geraete[nummer].name, fehler);
    Mauszeiger(ZeigerStandard);
    EreignisseZulassen();
    if (bild.isNull()) {
        MsgNimb(fehler, 3, 0, titel, 1, Farbe::FehlerHintergrund);
        return;
    }
    QGuiApplication::clipboard()->setImage(bild);
    const QString antwort = MsgNimb(QStringLiteral("Wo soll das Bild abgelegt werden?\r\n\r\n"
                                                   "JA - Bild extern speichern (empfohlen).\r\n"
                                                   "NEIN - Bild in die Datenbank einfügen."),
                                    32, 0, QStringLiteral("Speicherort wählen"), 0);
    if (antwort == u"Ja") {
        ExternAblegen(KeinBildformat);
    } else if (antwort == u"Nein") {
        InternEinfuegen(KeinBildformat);
        box.datensatzbearbeitung().MenuSpeichern_Click();
    }
}
