#include "catalogue/Datensteuerung.h"

#include "catalogue/Datenbank.h"
#include "platform/Laufzeitfehler.h"

#include <QHBoxLayout>
#include <QLabel>
#include <QPainter>
#include <QPainterPath>
#include <QToolButton>

namespace {

// The glyphs of the classic control: a triangle, with a bar for first and last.
QIcon pfeil(bool links, bool balken, const QColor& farbe)
{
    QPixmap bild(12, 12);
    bild.fill(Qt::transparent);
    QPainter maler(&bild);
    maler.setRenderHint(QPainter::Antialiasing);
    maler.setPen(Qt::NoPen);
    maler.setBrush(farbe);
    QPainterPath dreieck;
    if (links) {
        dreieck.moveTo(10, 1);
        dreieck.lineTo(10, 11);
        dreieck.lineTo(3, 6);
    } else {
        dreieck.moveTo(2, 1);
        dreieck.lineTo(2, 11);
        dreieck.lineTo(9, 6);
    }
    dreieck.closeSubpath();
    maler.drawPath(dreieck);
    if (balken)
        maler.drawRect(links ? QRectF(1, 1, 2, 10) : QRectF(9, 1, 2, 10));
    return QIcon(bild);
}

} // namespace

Datensteuerung::Datensteuerung(QWidget* eltern)
    : QWidget(eltern)
{
    auto* reihe = new QHBoxLayout(this);
    reihe->setContentsMargins(0, 0, 0, 0);
    reihe->setSpacing(0);
    const QColor farbe = palette().color(QPalette::ButtonText);
    auto neuerKnopf = [&](bool links, bool balken, const QString& tipp) {
        auto* k = new QToolButton(this);
        k->setIcon(pfeil(links, balken, farbe));
        k->setToolTip(tipp);
        k->setAccessibleName(tipp);
        k->setAutoRaise(false);
        k->setFocusPolicy(Qt::NoFocus);
        k->setFixedSize(22, 22);
        return k;
    };
    QToolButton* erster = neuerKnopf(true, true, QStringLiteral("Erster Datensatz"));
    QToolButton* vorheriger = neuerKnopf(true, false, QStringLiteral("Vorheriger Datensatz"));
    QToolButton* naechster = neuerKnopf(false, false, QStringLiteral("Nächster Datensatz"));
    QToolButton* letzter = neuerKnopf(false, true, QStringLiteral("Letzter Datensatz"));
    m_caption = new QLabel(this);
    m_caption->setFrameStyle(QFrame::Panel | QFrame::Sunken);
    m_caption->setMinimumWidth(40);
    m_caption->setFixedHeight(22);
    m_caption->setContentsMargins(4, 0, 4, 0);
    m_caption->setSizePolicy(QSizePolicy::Expanding, QSizePolicy::Fixed);
    reihe->addWidget(erster);
    reihe->addWidget(vorheriger);
    reihe->addWidget(m_caption, 1);
    reihe->addWidget(naechster);
    reihe->addWidget(letzter);
    setSizePolicy(QSizePolicy::Preferred, QSizePolicy::Fixed);
    knopf(erster, &Datensteuerung::ersterDatensatz);
    knopf(vorheriger, &Datensteuerung::vorherigerDatensatz);
    knopf(naechster, &Datensteuerung::naechsterDatensatz);
    knopf(letzter, &Datensteuerung::letzterDatensatz);
}

Datensteuerung::~Datensteuerung()
{
    // What was put into the record is written; the bound controls may be gone already,
    // so there is no Validate here.
    try {
        if (m_recordset && m_recordset->EditPending())
            m_recordset->Update();
    } catch (const Laufzeitfehler&) {
    }
    // The recordset's statements belong to the connection: they go first.
    m_recordset.reset();
    m_db.reset();
}

void Datensteuerung::knopf(QToolButton* k, void (Datensteuerung::*schritt)())
{
    connect(k, &QToolButton::clicked, this, [this, schritt] {
        try {
            (this->*schritt)();
        } catch (const Laufzeitfehler& fehler) {
            const QString name = objectName().isEmpty() ? QStringLiteral("Data1") : objectName();
            Fehlermeldung(fehler, name + QStringLiteral("_Error"));
        }
    });
}

void Datensteuerung::setDatabaseName(const QString& pfad) { m_databaseName = pfad; }

void Datensteuerung::setRecordSource(const QString& quelle) { m_recordSource = quelle; }

QString Datensteuerung::Caption() const { return m_caption->text(); }

void Datensteuerung::setCaption(const QString& text) { m_caption->setText(text); }

void Datensteuerung::ausstehendSchreiben()
{
    if (!m_recordset)
        return;
    emit Validate();
    if (m_recordset && m_recordset->EditPending())
        m_recordset->Update();
}

void Datensteuerung::ohneRecordset()
{
    m_recordset.reset();
    emit neuAufgebaut();
    emit Reposition();
}

void Datensteuerung::Refresh()
{
    ausstehendSchreiben();
    // Where only this recordset's writes changed the file, its rows are put in place
    // instead of reading the whole table again: the same rows in the same order.
    if (m_recordset && m_db && m_db->pfad() == m_databaseName && m_quelle == m_recordSource
        && m_recordset->Nachfuehren()) {
        emit neuAufgebaut();
        emit Reposition();
        return;
    }
    m_recordset.reset();
    if (m_databaseName.isEmpty()) {
        m_db.reset();
        ohneRecordset();
        return;
    }
    if (!m_db || m_db->pfad() != m_databaseName) {
        m_db.reset();
        try {
            m_db = Datenbank::oeffnen(m_databaseName);
        } catch (...) {
            ohneRecordset();
            throw;
        }
    }
    if (m_recordSource.trimmed().isEmpty()) {
        ohneRecordset();
        return;
    }
    try {
        m_recordset = std::make_unique<Recordset>(*m_db, m_recordSource);
        m_quelle = m_recordSource;
    } catch (...) {
        ohneRecordset();
        throw;
    }
    m_recordset->zeileGeaendert = [this](int zeile) { emit zeileGeaendert(zeile); };
    m_recordset->zeileAngehaengt = [this](int zeile) { emit zeileAngehaengt(zeile); };
    m_recordset->zeileEntfernt = [this](int zeile) { emit zeileEntfernt(zeile); };
    emit neuAufgebaut();
    emit Reposition();
}

void Datensteuerung::schliessen()
{
    ausstehendSchreiben();
    m_recordset.reset();
    m_db.reset();
    ohneRecordset();
}

void Datensteuerung::ersterDatensatz()
{
    if (!m_recordset)
        return;
    emit Validate();
    m_recordset->MoveFirst();
    emit Reposition();
}

void Datensteuerung::vorherigerDatensatz()
{
    if (!m_recordset)
        return;
    emit Validate();
    m_recordset->MovePrevious();
    if (m_recordset->BOF())
        m_recordset->MoveFirst();
    emit Reposition();
}

void Datensteuerung::naechsterDatensatz()
{
    if (!m_recordset)
        return;
    emit Validate();
    m_recordset->MoveNext();
    if (m_recordset->EOF_())
        m_recordset->MoveLast();
    emit Reposition();
}

void Datensteuerung::letzterDatensatz()
{
    if (!m_recordset)
        return;
    emit Validate();
    m_recordset->MoveLast();
    emit Reposition();
}

void Datensteuerung::setAbsolutePosition(int position)
{
    if (!m_recordset || position < 0 || position >= m_recordset->RecordCount())
        return;
    emit Validate();
    m_recordset->setAbsolutePosition(position);
    emit Reposition();
}
