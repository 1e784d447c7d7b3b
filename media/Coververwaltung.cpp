#include "media/Coververwaltung.h"

#include "shell/Ausgabebox.h"

#include "catalogue/Datenbank.h"
#include "catalogue/Datensatzbearbeitung.h"
#include "catalogue/Datensteuerung.h"
#include "catalogue/FlexGrid.h"
#include "catalogue/Recordset.h"
#include "platform/Dialogdienst.h"
#include "platform/Dienste.h"
#include "platform/Einheiten.h"
#include "platform/Laufzeitfehler.h"
#include "platform/Mauszeiger.h"
#include "platform/Pfade.h"
#include "shell/Einstellungen.h"
#include "shell/Globale.h"
#include "shell/Grundregeln.h"
#include "shell/Steuerelemente.h"

#include <QAction>
#include <QBuffer>
#include <QCheckBox>
#include <QComboBox>
#include <QCursor>
#include <QDateTime>
#include <QFile>
#include <QFileInfo>
#include <QImageReader>
#include <QJsonArray>
#include <QJsonDocument>
#include <QListWidget>
#include <QMenu>
#include <QPushButton>

#include <sqlite3.h>

#include <algorithm>
#include <cstring>

namespace {

constexpr int Plaetze = 22;
// No picture of the system needs more; a larger file is refused, not decoded.
constexpr int SpeicherGrenzeMB = 256;

QPixmap lesen(QImageReader& leser, const QSize& hoechstens)
{
    leser.setAllocationLimit(SpeicherGrenzeMB);
    leser.setAutoTransform(true);
    // The faster decoding of JPEG: covers are shown small, its loss does not show.
    leser.setQuality(40);
    const QSize gross = leser.size();
    if (gross.isValid() && !hoechstens.isEmpty()
        && (gross.width() > hoechstens.width() || gross.height() > hoechstens.height()))
        leser.setScaledSize(gross.scaled(hoechstens, Qt::KeepAspectRatio).expandedTo(QSize(1, 1)));
    const QImage bild = leser.read();
    return bild.isNull() ? QPixmap() : QPixmap::fromImage(bild);
}

// The name of a cover file without its extension.
QString OhneEndung(const QString& name)
{
    const qsizetype punkt = name.lastIndexOf(u'.');
    return punkt >= 0 ? name.left(punkt) : name;
}

// The pieces of a "°"-closed list; a last piece without its "°" does not count.
QStringList Eintraege(const QString& liste)
{
    QStringList teile = liste.split(u'°');
    teile.removeLast();
    return teile;
}

// The columns "Band" and "LPTitel" of the table, which make a cover's name.
struct Namensspalten {
    const FlexGrid* g;
    int band;
    int titel;
    explicit Namensspalten(const FlexGrid* grid)
        : g(grid)
        , band(grid->SpalteSuchen(QStringLiteral("Band")))
        , titel(grid->SpalteSuchen(QStringLiteral("LPTitel")))
    {
    }
    bool da() const { return band >= 0 && titel >= 0; }
    QString name(int zeile) const
    {
        return g->TextMatrix(zeile, band) + QStringLiteral(" - ") + g->TextMatrix(zeile, titel);
    }
    // SQL that picks every row whose name the comparison can hold, and the rows whose values
    // are no text, whose text the table makes itself; the table's own text decides. Only the
    // latter without a comparison.
    QString bedingung(const QString& vergleich, bool nurAndere = false) const
    {
        const QString b = g->SqlName(band), t = g->SqlName(titel);
        const QString andere
            = QStringLiteral("typeof(%1) <> 'text' OR typeof(%2) <> 'text'").arg(b, t);
        if (nurAndere)
            return andere;
        return andere
            + QStringLiteral(" OR (%1 || ' - ' || %2) COLLATE BINARY %3").arg(b, t, vergleich);
    }
    // The names of the rows of the table whose two values are text and whose name is in the
    // JSON list, by rowid; nothing when the catalogue cannot be asked.
    std::optional<QHash<qint64, QString>> textNamen(const Datenbank& db, const QString& tabelle,
                                                    const QString& liste) const
    {
        const QString b = g->SqlName(band), t = g->SqlName(titel);
        QString name = tabelle;
        name.replace(u'"', QStringLiteral("\"\""));
        try {
            Anweisung a = db.vorbereiten(
                QStringLiteral(
                    "SELECT rowid, %1 || ' - ' || %2 FROM \"%3\" WHERE typeof(%1) = 'text' AND "
                    "typeof(%2) = 'text' AND (%1 || ' - ' || %2) COLLATE BINARY IN "
                    "(SELECT value FROM json_each(?1))")
                    .arg(b, t, name));
            const QByteArray text = liste.toUtf8();
            sqlite3_bind_text(a.get(), 1, text.constData(), int(text.size()), SQLITE_TRANSIENT);
            QHash<qint64, QString> namen;
            int rc;
            while ((rc = sqlite3_step(a.get())) == SQLITE_ROW)
                namen.insert(sqlite3_column_int64(a.get(), 0),
                             QString::fromUtf8(
                                 reinterpret_cast<const char*>(sqlite3_column_text(a.get(), 1)),
                                 sqlite3_column_bytes(a.get(), 1)));
            if (rc != SQLITE_DONE)
                return std::nullopt;
            return namen;
        } catch (const Laufzeitfehler&) {
            return std::nullopt;
        }
    }
};

} // namespace

void Coververwaltung::verbinden()
{
    for (QWidget* wartet :
         std::initializer_list<QWidget*>{box.cmdCoverUp, box.cmdCoverDown, box.chkBildpfad})
        wartet->setEnabled(true);
    connect(box.cmdCoverDown, &QPushButton::clicked, this, [this] { CoverDown(); });
    connect(box.cmdCoverUp, &QPushButton::clicked, this, [this] { CoverUp(); });
    for (int i = 0; i < Plaetze; ++i) {
        connect(box.imgCover[i], &Bildfeld::Click, this, [this, i] { imgCover_Click(i); });
        connect(box.imgCover[i], &Bildfeld::DblClick, this, [this, i] { imgCover_DblClick(i); });
    }
    KlickVerbinden(box.chkBildpfad, this, [this] { chkBildpfad_Click(); });
    connect(box.cboBildpfad, &QComboBox::activated, this, [this] { cboBildpfad_Click(); });
    for (Bildfeld* b : {box.Bild1, box.imgBildpfad}) {
        connect(b, &Bildfeld::MouseDown, this, [this, b](Qt::MouseButton knopf) {
            if (knopf == Qt::LeftButton) {
                vergroessern(b == box.Bild1);
            } else if (knopf == Qt::RightButton) {
                box.mnuBild->setDefaultAction(b == box.Bild1 ? box.MenuBildkopieren
                                                             : box.mnuCoverExAblegen);
                box.mnuBild->popup(QCursor::pos());
            }
        });
    }
    connect(box.picCoverGreat, &Bildfeld::MouseDown, this, [this](Qt::MouseButton knopf) {
        if (knopf != Qt::LeftButton)
            return;
        box.picCoverGreat->hide();
        box.picCoverGreat->setBild(QPixmap());
    });
    BefehlVerbinden(box.mnuBildLoeschen, this, [this] { mnuBildLoeschen_Click(); });
    BefehlVerbinden(box.mnuCoverPfadEnfernen, this, [this] { mnuCoverPfadEnfernen_Click(); });
    BefehlVerbinden(box.mnuBildDatenbankpfad, this,
                    [this](bool an) { mnuBildDatenbankpfad_Click(an); });
    // Any change of the table's rows or heads leaves lstCover counted from another table.
    const QAbstractItemModel* tabelle = box.MSFlexGrid1->model();
    const auto ungueltig = [this] { m_listeGilt = false; };
    connect(tabelle, &QAbstractItemModel::modelReset, this, ungueltig);
    connect(tabelle, &QAbstractItemModel::rowsInserted, this, ungueltig);
    connect(tabelle, &QAbstractItemModel::rowsRemoved, this, ungueltig);
    connect(tabelle, &QAbstractItemModel::dataChanged, this, ungueltig);
    connect(tabelle, &QAbstractItemModel::headerDataChanged, this, ungueltig);
    connect(tabelle, &QAbstractItemModel::layoutChanged, this, ungueltig);
}

QString Coververwaltung::CoverOrdner() { return DatenbankOrdner + QStringLiteral("Bilder/"); }

QPixmap Coververwaltung::BildLesen(const QString& pfad, const QSize& hoechstens)
{
    if (pfad.isEmpty())
        return {};
    QImageReader leser(pfad);
    return lesen(leser, hoechstens);
}

QPixmap Coververwaltung::BildLesen(const QByteArray& daten, const QSize& hoechstens)
{
    if (daten.isEmpty())
        return {};
    QBuffer puffer;
    puffer.setData(daten);
    puffer.open(QIODevice::ReadOnly);
    QImageReader leser(&puffer);
    return lesen(leser, hoechstens);
}

bool Coververwaltung::CoverZeigen(const QString& pfad)
{
    // Read at the size it is shown at; the enlarged view reads it again.
    const QPixmap bild = BildLesen(pfad, box.imgBildpfad->contentsRect().size());
    box.imgBildpfad->setBild(bild);
    return !bild.isNull();
}

QString Coververwaltung::eintragPfad(const QString& eintrag) const
{
    // The folder rule makes a catalogue movable: only the file name of a stored path counts.
    if (box.mnuBildDatenbankpfad->isChecked())
        return CoverOrdner() + DateinameAusPfad(eintrag);
    return eintrag;
}

void Coververwaltung::ExterneCoverLaden() { externeListeFuellen(true); }

void Coververwaltung::externeListeFuellen(bool zeigen)
{
    box.cboBildpfad->clear();
    box.imgBildpfad->setBild(QPixmap());
    box.chkBildpfad->setText(QStringLiteral("kein externes Bild"));
    const QString liste = box.txtBildpfad->text().trimmed();
    if (liste.isEmpty())
        return;
    QStringList gefunden;
    for (const QString& teil : Eintraege(liste)) {
        const QString pfad = eintragPfad(teil);
        if (!teil.isEmpty() && QFileInfo(pfad).isFile())
            gefunden << (box.mnuBildDatenbankpfad->isChecked() ? pfad : teil);
    }
    box.cboBildpfad->addItems(gefunden);
    if (!gefunden.isEmpty()) {
        box.cboBildpfad->setCurrentIndex(0);
        if (zeigen)
            CoverZeigen(eintragPfad(gefunden.first()));
    }
    const qsizetype n = gefunden.size();
    if (n > 0)
        box.chkBildpfad->setText(
            QString::number(n)
            + (n == 1 ? QStringLiteral(" externes Cover") : QStringLiteral(" externe Cover")));
}

void Coververwaltung::cboBildpfad_Click()
{
    const int i = box.cboBildpfad->currentIndex();
    if (i < 0)
        return;
    const QString eintrag = box.cboBildpfad->itemText(i);
    const QString pfad = eintragPfad(eintrag);
    if (QFileInfo(pfad).isFile()) {
        CoverZeigen(pfad);
        return;
    }
    MsgNimb(eintrag + QStringLiteral("\n\nBild nicht gefunden"), 3, 0,
            QStringLiteral("Bild laden und anzeigen"), 0, Farbe::WarnHintergrund,
            Farbe::StandardText);
}

void Coververwaltung::chkBildpfad_Click()
{
    if (!box.chkBildpfad->isChecked()) {
        box.cboBildpfad->setEnabled(false);
        box.imgBildpfad->hide();
        box.Bild1->show();
    } else {
        box.cboBildpfad->setEnabled(true);
        ExterneCoverLaden();
        box.imgBildpfad->show();
        box.Bild1->hide();
    }
    // Within a record change the focus stays where the user moves, in a field or the table.
    if (!m_imDatensatz && box.isVisible())
        box.MSFlexGrid1->setFocus();
}

void Coververwaltung::DatensatzCover()
{
    m_imDatensatz = true;
    if (box.chkBildpfad->isChecked()) {
        ExterneCoverLaden();
        // No usable external cover: the internal one shows.
        if (box.cboBildpfad->count() == 0)
            box.chkBildpfad->setChecked(false);
    } else {
        // The hidden pane is not decoded; the box's handler reads it when it turns.
        externeListeFuellen(false);
    }
    if (!box.chkBildpfad->isChecked() && box.Bild1->Bild().isNull())
        box.chkBildpfad->setChecked(true);
    m_imDatensatz = false;
    if (box.picCoverGreat->isVisible()) {
        box.picCoverGreat->setBild(grossesBild(false));
        grossAusrichten();
    }
}

QPixmap Coververwaltung::grossesBild(bool intern) const
{
    const QSize gross = box.picCoverGreat->contentsRect().size();
    if (intern) {
        const Recordset* rs = box.Data1->recordset();
        return rs ? BildLesen(rs->Value(QStringLiteral("Bilder")).toByteArray(), gross) : QPixmap();
    }
    const QString text = box.cboBildpfad->currentText();
    return text.isEmpty() || box.imgBildpfad->Bild().isNull() ? QPixmap()
                                                              : BildLesen(eintragPfad(text), gross);
}

void Coververwaltung::vergroessern(bool intern)
{
    box.picCoverGreat->setBild(grossesBild(intern));
    grossAusrichten();
    box.picCoverGreat->show();
    box.picCoverGreat->raise();
}

void Coververwaltung::grossAusrichten()
{
    const QRect b = box.imgBildpfad->geometry();
    box.picCoverGreat->move(b.x() + b.width() - box.picCoverGreat->width(), b.y());
}

// ---- The strip ----

void Coververwaltung::Namenstext::bauen(const QStringList& namen, bool klein)
{
    text.clear();
    anfang.clear();
    anfang.reserve(size_t(namen.size()) + 1);
    for (const QString& name : namen) {
        anfang.push_back(text.size());
        text += (klein ? name.trimmed().toLower() : name).toStdString();
        text += '\n';
    }
    anfang.push_back(text.size());
}

int Coververwaltung::Namenstext::erstes(const QString& a, const QString& b) const
{
    if (anfang.size() < 2)
        return -1;
    std::string erster = a.toStdString();
    std::string zweiter = b.toStdString();
    if (zweiter.size() > erster.size())
        std::swap(erster, zweiter); // the longer text is the rarer one
    const auto eintrag = [&](size_t stelle) {
        return size_t(std::upper_bound(anfang.begin(), anfang.end(), stelle) - anfang.begin()) - 1;
    };
    size_t von = 0;
    while (von < text.size()) {
        // UTF-8 keeps every character whole, so bytes that match are characters that match.
        const void* fund
            = memmem(text.data() + von, text.size() - von, erster.data(), erster.size());
        if (!fund)
            return -1;
        const size_t stelle = size_t(static_cast<const char*>(fund) - text.data());
        const size_t e = eintrag(stelle);
        const size_t ende = anfang[e + 1] - 1; // the line feed after the entry
        if (stelle + erster.size() <= ende) {
            const std::string_view zeile(text.data() + anfang[e], ende - anfang[e]);
            if (zeile.find(zweiter) != std::string_view::npos)
                return int(e);
        }
        von = ende + 1;
    }
    return -1;
}

void Coververwaltung::suchtexteBauen()
{
    m_namen.bauen(m_liste, false);
    m_namenKlein.bauen(m_liste, true);
}

void Coververwaltung::CoverListeAktuell()
{
    Mauszeiger(ZeigerSanduhr);
    FlexGrid* g = box.MSFlexGrid1;
    const Namensspalten spalten(g);
    QStringList dateien, dateiNamen;
    // How many rows of the table bear each name of the folder.
    QHash<QString, int> zeilen;
    for (int i = 0; i < box.filCover->ListCount(); ++i) {
        dateien << box.filCover->List(i);
        dateiNamen << OhneEndung(dateien.last());
        zeilen.insert(dateiNamen.last(), 0);
    }
    const QStringList namen = zeilen.keys();
    bool vollstaendig = true;
    if (spalten.da() && !namen.isEmpty()) {
        const Recordset* rs = g->recordset();
        // One pass over the table, however many files: the names go in as one JSON list.
        const QString liste = QString::fromUtf8(
            QJsonDocument(QJsonArray::fromStringList(namen))
                .toJson(QJsonDocument::Compact));
        // Rows whose two values are text: the catalogue names them, and their names, so that
        // no row has to be read. The others the table's own text decides.
        const auto textNamen = rs && rs->Updatable()
            ? spalten.textNamen(*box.Data1->database(), rs->Tabelle(), liste)
            : std::nullopt;
        const auto kandidaten
            = textNamen ? rs->RowIds(spalten.bedingung(QString(), true)) : std::nullopt;
        if (kandidaten)
            for (int p = 0; p < rs->RecordCount(); ++p)
                if (const auto n = textNamen->constFind(rs->RowId(p)); n != textNamen->cend())
                    ++zeilen[*n];
        const auto zaehlen = [&](int zeile) {
            if (const auto z = zeilen.find(spalten.name(zeile)); z != zeilen.end())
                ++*z;
        };
        if (kandidaten) {
            for (int p = rs->ErstePosition(*kandidaten); p >= 0;
                 p = rs->ErstePosition(*kandidaten, p + 1))
                zaehlen(p + 1);
        } else {
            // A source that cannot be asked is held in memory: every row is read, Esc stops.
            const EscAbbruch esc;
            Abbruch = false;
            for (int z = 1; z < g->Rows() && !Abbruch; ++z) {
                zaehlen(z);
                if (z % 5000 == 0)
                    EreignisseZulassen();
            }
            vollstaendig = !Abbruch;
            Abbruch = false;
        }
    }
    m_dateien = std::move(dateien);
    m_dateiNamen = std::move(dateiNamen);
    m_zeilen = std::move(zeilen);
    m_liste.clear();
    for (qsizetype i = 0; i < m_dateien.size(); ++i)
        for (int n = m_zeilen.value(m_dateiNamen[i]); n > 0; --n)
            m_liste << m_dateien[i];
    box.lstCover->clear();
    box.lstCover->addItems(m_liste);
    suchtexteBauen();
    m_gezeigt.clear();
    m_listeGilt = vollstaendig && spalten.da();
    Mauszeiger(ZeigerStandard);
}

void Coververwaltung::CoverNachSpeichern(bool galtVorher, const QString* alterName, const QString& neuerName,
                                         bool imGrid)
{
    if (!galtVorher || !CoverOrdnerLesen()) {
        CoverListeAktuell();
        CoverPlaetzeAnpassen();
        return;
    }
    // The saved record is the only row that changed: its old name loses a row, its new
    // name gains one, where the folder has a file of that name. Each file of the name gets
    // one place more or less at the end of its run in lstCover.
    bool geaendert = false;
    auto zaehlen = [&](const QString& name, int um) {
        const auto z = m_zeilen.find(name);
        if (z == m_zeilen.end() || *z + um < 0)
            return;
        const int alt = *z;
        qsizetype stelle = 0;
        for (qsizetype i = 0; i < m_dateien.size(); ++i) {
            if (m_dateiNamen[i] != name) {
                stelle += m_zeilen.value(m_dateiNamen[i]);
                continue;
            }
            if (um > 0) {
                m_liste.insert(stelle + alt, m_dateien[i]);
                box.lstCover->insertItem(int(stelle + alt), m_dateien[i]);
            } else {
                m_liste.removeAt(stelle);
                delete box.lstCover->takeItem(int(stelle));
            }
            stelle += alt + um;
        }
        *z = alt + um;
        geaendert = true;
    };
    if (!(alterName && imGrid && *alterName == neuerName)) {
        if (alterName)
            zaehlen(*alterName, -1);
        if (imGrid)
            zaehlen(neuerName, +1);
    }
    if (geaendert) {
        suchtexteBauen();
        m_gezeigt.clear();
    }
    m_listeGilt = true;
    CoverPlaetzeAnpassen();
}

bool Coververwaltung::CoverOrdnerLesen()
{
    // A large folder takes long to list; one whose files did not change is not listed again.
    const QFileInfo ordner(CoverOrdner());
    const QString stand
        = CoverOrdner() + u'|' + QString::number(ordner.lastModified().toMSecsSinceEpoch());
    if (stand == m_ordnerStand && MitSchraegstrich(box.filCover->Path()) == CoverOrdner())
        return true;
    box.filCover->setPath(CoverOrdner());
    m_ordnerStand = ordner.exists() ? stand : QString();
    return false;
}

void Coververwaltung::CoverAktualisieren()
{
    CoverOrdnerLesen();
    CoverListeAktuell();
    CoverPlaetzeAnpassen();
}

void Coververwaltung::CoverPlaetzeAnpassen()
{
    // 970 twips a thumbnail, 1900 for the rest of the column.
    const int hoehe = box.Innen->height() * TwipsProPixel;
    CoverLetzterPlatz = std::clamp((hoehe - 1900) / 970, -1, Plaetze - 1);
    if (CoverLetzterPlatz > m_liste.size() - 1)
        CoverLetzterPlatz = int(m_liste.size()) - 1;
    CoverStart = CoverStart - CoverLetzterPlatz - 1;
    CoverDown();
}

void Coververwaltung::CoverDown()
{
    const int letzter = int(m_liste.size()) - 1;
    CoverStart = CoverStart + CoverLetzterPlatz + 1;
    if (CoverStart + CoverLetzterPlatz > letzter)
        CoverStart = letzter - CoverLetzterPlatz;
    CoverStart = std::max(0, CoverStart);
    streifenZeichnen(CoverStart, CoverLetzterPlatz);
}

void Coververwaltung::CoverUp()
{
    CoverStart = std::max(0, CoverStart - CoverLetzterPlatz - 1);
    streifenZeichnen(CoverStart, CoverLetzterPlatz);
}

void Coververwaltung::CoverAZ()
{
    if (!box.chkTabelle->isChecked())
        return;
    FlexGrid* g = box.MSFlexGrid1;
    CoverStart = std::max(0, m_namen.erstes(Namensspalten(g).name(g->Row()), QString()));
    // The strip shows no more covers than the table has rows.
    streifenZeichnen(CoverStart, std::min(CoverLetzterPlatz, g->Rows() - 2));
}

void Coververwaltung::DatensatzStreifen()
{
    if (CoverSucheAuslassen) {
        CoverSucheAuslassen = false;
        return;
    }
    const int i = m_namenKlein.erstes(box.TextBand->text().trimmed().toLower(),
                                      box.TextLPTitel->text().trimmed().toLower());
    if (i < 0)
        return;
    CoverStart = i - CoverLetzterPlatz - 1;
    if (box.chkTabelle->isChecked())
        CoverAZ();
    else
        CoverDown();
}

void Coververwaltung::streifenZeichnen(int erster, int bis)
{
    QStringList pfade;
    for (int platz = 0; platz <= bis && erster + platz < m_liste.size(); ++platz)
        pfade << CoverOrdner() + m_liste.at(erster + platz);
    // A record move within the page reads nothing.
    if (pfade == m_gezeigt && !pfade.isEmpty())
        return;
    Mauszeiger(ZeigerSanduhr);
    for (int platz = 0; platz < Plaetze; ++platz) {
        Bildfeld* c = box.imgCover[platz];
        if (platz < pfade.size()) {
            c->setBild(vorschau(pfade.at(platz), c->contentsRect().size()));
            c->show();
        } else {
            c->setBild(QPixmap());
            c->hide();
        }
    }
    m_gezeigt = pfade;
    Mauszeiger(ZeigerStandard);
}

QPixmap Coververwaltung::vorschau(const QString& pfad, const QSize& groesse)
{
    // A file changed on disk under the same name is read anew.
    const QFileInfo info(pfad);
    const QString schluessel = pfad + u'|' + QString::number(groesse.width()) + u'x'
        + QString::number(groesse.height()) + u'|'
        + QString::number(info.lastModified().toMSecsSinceEpoch()) + u'|'
        + QString::number(info.size());
    if (const QPixmap* bild = m_vorschauen.object(schluessel))
        return *bild;
    const QPixmap bild = info.isFile() ? BildLesen(pfad, groesse) : QPixmap();
    m_vorschauen.insert(schluessel, new QPixmap(bild));
    return bild;
}

void Coververwaltung::imgCover_Click(int platz)
{
    const int index = CoverStart + platz;
    if (index < 0 || index >= m_liste.size())
        return;
    Mauszeiger(ZeigerSanduhr);
    const QString name = OhneEndung(DateinameAusPfad(m_liste.at(index)));
    FlexGrid* g = box.MSFlexGrid1;
    const Namensspalten spalten(g);
    if (spalten.da()) {
        const int zeile = g->ZeileSuchen(spalten.bedingung(QStringLiteral("= ?1")), {name},
                                         [&](int z) { return spalten.name(z) == name; });
        if (zeile >= 1) {
            // The strip stays on its page while the record follows.
            CoverSucheAuslassen = true;
            if (zeile < g->Rows() - 1)
                g->setTopRow(zeile);
            g->setRow(zeile);
            CoverSucheAuslassen = false;
        }
    }
    Mauszeiger(ZeigerStandard);
}

void Coververwaltung::imgCover_DblClick(int platz)
{
    const int index = CoverStart + platz;
    if (index < 0 || index >= m_liste.size())
        return;
    MsgNimb(OhneEndung(m_liste.at(index)), 1, 0, QStringLiteral("Mini-Cover"), 0,
            Farbe::StandardHintergrund, Farbe::StandardText);
}

// ---- Removing ----

void Coververwaltung::ExternesCoverEntfernen()
{
    const QString datei = box.cboBildpfad->currentText();
    if (datei.isEmpty())
        return;
    if (ExterneDateiLoeschen) {
        D().papierkorb().verschieben(datei);
        EreignisseZulassen();
        if (!QFileInfo::exists(datei)) {
            D().klang().abspielen(ProgrammOrdner + QStringLiteral("Matsch.wav"));
            box.imgBildpfad->setBild(QPixmap());
        } else {
            MsgNimb(datei
                        + QStringLiteral(
                            "\nDas Bild konnte nicht in den Papierkorb verschoben werden!\n\n"
                            "Bitte löschen Sie manuell...\n"),
                    3, 0, QStringLiteral("Fehler beim Löschen"), 0, Farbe::WarnHintergrund,
                    Farbe::StandardText);
        }
    }
    const QString liste = box.txtBildpfad->text().trimmed();
    if (liste.isEmpty())
        return;
    const QString name = DateinameAusPfad(datei);
    QString neu;
    for (const QString& teil : Eintraege(liste))
        if (!teil.contains(name))
            neu += teil + u'°';
    box.txtBildpfad->setText(neu.isEmpty() ? QStringLiteral(" ") : neu);
    ExterneCoverLaden();
}

void Coververwaltung::bildLoeschen(bool dateiAuchLoeschen, const QString& frage)
{
    QString antwort;
    if (box.chkBildpfad->isChecked()) {
        antwort = MsgNimb(frage, 22, 1, QStringLiteral("externes Bild entfernen"), 0);
        if (antwort == u"Ja") {
            ExterneDateiLoeschen = dateiAuchLoeschen;
            ExternesCoverEntfernen();
            ExterneDateiLoeschen = false;
        }
    } else {
        antwort = MsgNimb(QStringLiteral("Das Bild aus der Datenbank löschen ?"), 22, 1,
                          QStringLiteral("Datenbank"), 0);
        if (antwort == u"Ja") {
            box.Bild1->setBild(QPixmap());
            if (Recordset* rs = box.Data1->recordset())
                rs->setValue(QStringLiteral("Bilder"), QVariant(QMetaType::fromType<QByteArray>()));
            D().klang().abspielen(ProgrammOrdner + QStringLiteral("Matsch.wav"));
        }
    }
    if (antwort != u"Nein")
        box.datensatzbearbeitung().MenuSpeichern_Click();
}

void Coververwaltung::mnuBildLoeschen_Click()
{
    bildLoeschen(true, QStringLiteral("Bild entfernen und in den Papierkorb verschieben."));
}

void Coververwaltung::mnuCoverPfadEnfernen_Click()
{
    bildLoeschen(false, QStringLiteral("Bildpfad aus der Liste entfernen."));
}

void Coververwaltung::mnuBildDatenbankpfad_Click(bool an)
{
    Speichern(QStringLiteral("BildLadePfad"),
              an ? QStringLiteral("True") : QStringLiteral("False"));
    if (an)
        DatenbankOrdner = OrdnerAusPfad(
            Lesen(QStringLiteral("ArchivPfad"), ProgrammOrdner + QStringLiteral("Archiv_leer.db")));
    if (box.chkBildpfad->isChecked())
        ExterneCoverLaden();
}
