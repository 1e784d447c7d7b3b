#include "shell/EchteDialoge.h"

#include "platform/Dienste.h"
#include "platform/Pfade.h"
#include "shell/FensterPlatzieren.h"
#include "shell/frmInputNimb.h"
#include "shell/frmMsgNimb.h"

#include <QApplication>
#include <QColorDialog>
#include <QFileDialog>
#include <QFontDialog>
#include <QInputDialog>
#include <QPointer>
#include <QRegularExpression>

namespace {

// "*.db" gives the suffix "db"; a pattern list or a wildcard gives none.
QString EndungAusFilter(const QString& qtFilter)
{
    static const QRegularExpression einfach(QStringLiteral("\\(\\*\\.([A-Za-z0-9]+)\\)$"));
    const QRegularExpressionMatch treffer = einfach.match(qtFilter);
    return treffer.hasMatch() ? treffer.captured(1) : QString();
}

} // namespace

QStringList DateifilterUmwandeln(const QString& filter)
{
    static const QRegularExpression klammerAmEnde(QStringLiteral("\\s*\\([^()]*\\)\\s*$"));
    const QStringList teile = filter.split(u'|');
    QStringList ergebnis;
    for (qsizetype i = 0; i < teile.size(); i += 2) {
        QString name = teile[i].trimmed();
        QString muster = i + 1 < teile.size() ? teile[i + 1].trimmed() : QString();
        if (name.isEmpty() && muster.isEmpty())
            continue;
        // Qt reads the patterns from the parentheses at the end, separated by blanks;
        // "*.*" would miss files without an extension there.
        QStringList liste;
        for (QString m : muster.split(u';', Qt::SkipEmptyParts)) {
            m = m.trimmed();
            liste << (m == u"*.*" ? QStringLiteral("*") : m);
        }
        if (liste.isEmpty())
            liste << QStringLiteral("*");
        name.remove(klammerAmEnde);
        if (name.isEmpty())
            name = liste.join(u' ');
        ergebnis << name + QStringLiteral(" (") + liste.join(u' ') + u')';
    }
    return ergebnis;
}

QWidget* Bezugsfenster()
{
    if (QWidget* w = QApplication::activeModalWidget())
        return w;
    if (QWidget* w = QApplication::activeWindow())
        return w;
    for (QWidget* w : QApplication::topLevelWidgets())
        if (w->objectName() == u"Ausgabebox" && w->isVisible())
            return w;
    return nullptr;
}

namespace {

// Each box is loaded fresh, centred over the window in front, shown and unloaded.
template <class Box, class Angaben>
QString boxZeigen(const Angaben& angaben)
{
    QWidget* bezug = Bezugsfenster();
    QPointer<Box> box = new Box(bezug);
    box->Vorbereiten(angaben);
    FensterPlatzieren(box, bezug, QStringLiteral("center"), 10);
    const QString antwort = box->Anzeigen();
    delete box;
    return antwort;
}

} // namespace

QString EchterDialogdienst::MsgNimb(const Meldung& m) { return boxZeigen<frmMsgNimb>(m); }

QString EchterDialogdienst::InputNimb(const Eingabe& e) { return boxZeigen<frmInputNimb>(e); }

QString EchterDialogdienst::Datei(const Dateiauswahl& d)
{
    QPointer<QFileDialog> dialog = new QFileDialog(Bezugsfenster(), d.titel, d.startordner);
    dialog->setObjectName(QStringLiteral("Dateiauswahl"));
    dialog->setAcceptMode(d.speichern ? QFileDialog::AcceptSave : QFileDialog::AcceptOpen);
    dialog->setOption(QFileDialog::DontConfirmOverwrite, !d.ueberschreibenFragen);
    dialog->setFileMode(d.speichern ? QFileDialog::AnyFile
                                    : d.mehrfach ? QFileDialog::ExistingFiles
                                                 : QFileDialog::ExistingFile);
    const QStringList filter = DateifilterUmwandeln(d.filter);
    if (!filter.isEmpty()) {
        dialog->setNameFilters(filter);
        const QString gewaehlt = filter.value(qBound(1, d.filterIndex, int(filter.size())) - 1);
        dialog->selectNameFilter(gewaehlt);
        if (d.speichern) {
            // A name typed without extension gets the one of the chosen filter.
            dialog->setDefaultSuffix(EndungAusFilter(gewaehlt));
            QObject::connect(dialog, &QFileDialog::filterSelected, dialog,
                             [dlg = dialog.data()](const QString& f) {
                                 dlg->setDefaultSuffix(EndungAusFilter(f));
                             });
        }
    }
    if (!d.dateiname.isEmpty())
        dialog->selectFile(d.dateiname);
    const bool ok = dialog->exec() == QDialog::Accepted;
    QString ergebnis;
    if (dialog && ok) {
        ergebnis = dialog->selectedFiles().join(u'\n');
        if (d.filterGewaehlt)
            *d.filterGewaehlt = int(filter.indexOf(dialog->selectedNameFilter())) + 1;
    }
    delete dialog;
    return ergebnis;
}

QString EchterDialogdienst::Ordner(const QString& titel, const QString& startordner)
{
    QPointer<QFileDialog> dialog = new QFileDialog(Bezugsfenster(), titel, startordner);
    dialog->setObjectName(QStringLiteral("Ordnerauswahl"));
    dialog->setFileMode(QFileDialog::Directory);
    dialog->setOption(QFileDialog::ShowDirsOnly);
    const bool ok = dialog->exec() == QDialog::Accepted;
    QString ordner;
    if (dialog && ok)
        ordner = dialog->selectedFiles().value(0);
    delete dialog;
    return MitSchraegstrich(ordner);
}

bool EchterDialogdienst::Schrift(Schriftauswahl& s)
{
    bool ok = false;
    const QFont schrift = QFontDialog::getFont(&ok, s.schrift, Bezugsfenster());
    if (ok)
        s.schrift = schrift;
    return ok;
}

int EchterDialogdienst::Auswahl(const QString& titel, const QString& frage, const QStringList& eintraege)
{
    QPointer<QInputDialog> dialog = new QInputDialog(Bezugsfenster());
    dialog->setObjectName(QStringLiteral("Auswahl"));
    dialog->setWindowTitle(titel);
    dialog->setLabelText(frage);
    dialog->setComboBoxItems(eintraege);
    dialog->setComboBoxEditable(false);
    dialog->setOkButtonText(QStringLiteral("OK"));
    dialog->setCancelButtonText(QStringLiteral("Abbrechen"));
    const bool ok = dialog->exec() == QDialog::Accepted;
    const int wahl = dialog && ok ? int(eintraege.indexOf(dialog->textValue())) : -1;
    delete dialog;
    return wahl;
}

bool EchterDialogdienst::Farbe(QColor& c)
{
    const QColor farbe = QColorDialog::getColor(c, Bezugsfenster());
    if (!farbe.isValid())
        return false;
    c = farbe;
    return true;
}

void EchteDialogeAnmelden()
{
    setzeDialogFabrik([] { return std::make_unique<EchterDialogdienst>(); });
}
