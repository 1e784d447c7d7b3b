#include "catalogue/Recordset.h"
#include "catalogue/RecordsetIntern.h"

#include "platform/Laufzeitfehler.h"

#include <QRegularExpression>

#include <sqlite3.h>

#include <algorithm>
#include <map>

namespace RecordsetIntern {

QString namenZitieren(const QString& name)
{
    QString n = name;
    n.replace(u'"', QStringLiteral("\"\""));
    return u'"' + n + u'"';
}

} // namespace RecordsetIntern

using namespace RecordsetIntern;

namespace {

QString namenEntzitieren(const QString& name)
{
    if (name.size() >= 2
        && ((name.front() == u'[' && name.back() == u']')
            || (name.front() == u'"' && name.back() == u'"')
            || (name.front() == u'`' && name.back() == u'`')))
        return name.mid(1, name.size() - 2);
    return name;
}

struct Wort {
    QString text; // lower case
    qsizetype pos;
};

// The words of an SQL tail that stand outside literals, quoted names, comments and
// parentheses.
std::vector<Wort> obersteWoerter(const QString& s)
{
    std::vector<Wort> woerter;
    const qsizetype n = s.size();
    qsizetype i = 0;
    int tiefe = 0;
    while (i < n) {
        const QChar c = s.at(i);
        if (const qsizetype j = SqlUeberspringen(s, i); j > i) {
            i = j;
        } else if (c == u'(') {
            ++tiefe;
            ++i;
        } else if (c == u')') {
            --tiefe;
            ++i;
        } else if (c.isLetter() || c == u'_') {
            qsizetype j = i;
            while (j < n && (s.at(j).isLetterOrNumber() || s.at(j) == u'_' || s.at(j) == u'$'))
                ++j;
            if (tiefe == 0)
                woerter.push_back({s.mid(i, j - i).toLower(), i});
            i = j;
        } else {
            ++i;
        }
    }
    return woerter;
}

QVariant spalteLesen(sqlite3_stmt* anweisung, int k)
{
    switch (sqlite3_column_type(anweisung, k)) {
    case SQLITE_INTEGER:
        return QVariant(qint64(sqlite3_column_int64(anweisung, k)));
    case SQLITE_FLOAT:
        return QVariant(sqlite3_column_double(anweisung, k));
    case SQLITE_BLOB: {
        const void* daten = sqlite3_column_blob(anweisung, k);
        const int laenge = sqlite3_column_bytes(anweisung, k);
        return QVariant(QByteArray(static_cast<const char*>(daten), laenge));
    }
    case SQLITE_TEXT: {
        const auto* z = reinterpret_cast<const char*>(sqlite3_column_text(anweisung, k));
        const int laenge = sqlite3_column_bytes(anweisung, k);
        if (laenge == 0)
            return QVariant(QStringLiteral(""));
        return QVariant(QString::fromUtf8(z, laenge));
    }
    default:
        return QVariant();
    }
}

} // namespace

void RecordsetIntern::binden(sqlite3_stmt* anweisung, int index, const QVariant& wert)
{
    if (!wert.isValid() || wert.isNull()) {
        sqlite3_bind_null(anweisung, index);
        return;
    }
    switch (wert.typeId()) {
    case QMetaType::QByteArray: {
        const QByteArray daten = wert.toByteArray();
        sqlite3_bind_blob(anweisung, index, daten.constData(), int(daten.size()), SQLITE_TRANSIENT);
        return;
    }
    case QMetaType::Bool:
    case QMetaType::Int:
    case QMetaType::UInt:
    case QMetaType::LongLong:
    case QMetaType::ULongLong:
    case QMetaType::Short:
    case QMetaType::UShort:
        sqlite3_bind_int64(anweisung, index, wert.toLongLong());
        return;
    case QMetaType::Double:
    case QMetaType::Float:
        sqlite3_bind_double(anweisung, index, wert.toDouble());
        return;
    default: {
        const QByteArray text = wert.toString().toUtf8();
        sqlite3_bind_text(anweisung, index, text.isNull() ? "" : text.constData(), int(text.size()),
                          SQLITE_TRANSIENT);
    }
    }
}
namespace {

bool gleicherWert(const QVariant& a, const QVariant& b)
{
    if (a.isValid() != b.isValid())
        return false;
    if (!a.isValid())
        return true;
    return a.typeId() == b.typeId() && a == b;
}

} // namespace

Laufzeitfehler Recordset::NichtAenderbar()
{
    return Laufzeitfehler(Fehlernummer::DatenbankBasis + SQLITE_READONLY,
                          QStringLiteral("Die Datensatzquelle kann nicht geändert werden: sie ist "
                                         "keine einfache Abfrage einer Tabelle."));
}

Recordset::Recordset(Datenbank& db, const QString& recordSource)
    : m_db(db)
{
    if (!tabelleOeffnen(recordSource))
        ganzLesen(recordSource);
    m_position = m_anzahl > 0 ? 0 : -1;
}

Recordset::~Recordset() = default;

// "select * from <table> [where ...] [order by ...]" or a bare table name: the rowids in
// order now, the values later. False when the source is of another kind.
bool Recordset::tabelleOeffnen(const QString& recordSource)
{
    static const QRegularExpression k_select(
        QStringLiteral(
            R"(^\s*select\s+\*\s+from\s+(\[[^\]]+\]|"[^"]+"|`[^`]+`|[A-Za-z_][A-Za-z0-9_]*)(.*)$)"),
        QRegularExpression::CaseInsensitiveOption | QRegularExpression::DotMatchesEverythingOption);
    static const QRegularExpression k_name(
        QStringLiteral(R"(^\s*(\[[^\]]+\]|"[^"]+"|`[^`]+`|[A-Za-z_][A-Za-z0-9_]*)\s*;?\s*$)"));

    QString name;
    QString rest;
    if (const auto m = k_name.match(recordSource); m.hasMatch()) {
        name = namenEntzitieren(m.captured(1));
    } else if (const auto s = k_select.match(recordSource); s.hasMatch()) {
        name = namenEntzitieren(s.captured(1));
        rest = s.captured(2);
        while (!rest.isEmpty() && (rest.back().isSpace() || rest.back() == u';'))
            rest.chop(1);
        if (!rest.isEmpty() && !rest.front().isSpace())
            return false;
    } else {
        return false;
    }

    const std::vector<Wort> woerter = obersteWoerter(rest);
    if (!woerter.empty() && woerter.front().text != u"where" && woerter.front().text != u"order")
        return false;
    qsizetype orderBy = -1;
    bool limit = false;
    bool mehrteilig = false; // a where or order by of its own further on
    for (size_t i = 0; i < woerter.size(); ++i) {
        const QString& w = woerter[i].text;
        if (w == u"union" || w == u"except" || w == u"intersect" || w == u"group" || w == u"having"
            || w == u"window" || w == u"join")
            return false;
        if (w == u"order" && i + 1 < woerter.size() && woerter[i + 1].text == u"by") {
            mehrteilig = mehrteilig || orderBy >= 0;
            orderBy = woerter[i].pos;
            limit = false;
        }
        if (w == u"where" && i > 0)
            mehrteilig = true;
        if (w == u"limit" || w == u"offset")
            limit = true;
    }

    sqlite3* h = m_db.handle();
    {
        sqlite3_stmt* roh = nullptr;
        if (sqlite3_prepare_v2(h,
                               "SELECT name FROM sqlite_master WHERE type = 'table' AND name = ?1 "
                               "COLLATE NOCASE",
                               -1, &roh, nullptr)
            != SQLITE_OK)
            return false;
        Anweisung suche(roh);
        const QByteArray n = name.toUtf8();
        sqlite3_bind_text(roh, 1, n.constData(), int(n.size()), SQLITE_TRANSIENT);
        if (sqlite3_step(roh) != SQLITE_ROW)
            return false;
        name = QString::fromUtf8(reinterpret_cast<const char*>(sqlite3_column_text(roh, 0)));
    }

    QStringList spalten;
    std::vector<bool> istBlob;
    {
        sqlite3_stmt* roh = nullptr;
        const QByteArray sql = (QStringLiteral("SELECT * FROM ") + namenZitieren(name)).toUtf8();
        if (sqlite3_prepare_v2(h, sql.constData(), int(sql.size()), &roh, nullptr) != SQLITE_OK)
            return false;
        Anweisung alle(roh);
        for (int k = 0; k < sqlite3_column_count(roh); ++k) {
            spalten << QString::fromUtf8(sqlite3_column_name(roh, k));
            const char* typ = sqlite3_column_decltype(roh, k);
            istBlob.push_back(typ && QByteArray(typ).toUpper().contains("BLOB"));
        }
    }

    const bool mitWhere = !woerter.empty() && woerter.front().text == u"where";
    const qsizetype whereEnde = orderBy >= 0 ? orderBy : rest.size();
    const QString where = mitWhere ? rest.mid(woerter.front().pos + 5, whereEnde - woerter.front().pos - 5) : QString();
    std::optional<std::vector<qint64>> sortiert;
    if (SelbstSortieren && orderBy >= 0 && !limit && !mehrteilig) {
        if (const auto terme = einfacheOrdnung(rest.mid(orderBy), spalten, istBlob)) {
            std::vector<Sortierterm> t;
            for (const auto& [spalte, absteigend] : *terme)
                t.push_back({namenZitieren(spalte), absteigend});
            sortiert = sortiertLesen(namenZitieren(name), where, t);
        }
    }
    std::vector<qint64> rowids;
    if (sortiert) {
        rowids = std::move(*sortiert);
    } else {
        // Rows with equal sort keys keep one fixed order: by their rowid. Without an order
        // the rows stand in the table's order, whichever index the search may use.
        QString nachsatz;
        if (!limit)
            nachsatz = orderBy >= 0 ? QStringLiteral(", rowid") : QStringLiteral(" ORDER BY rowid");
        Anweisung abfrage;
        try {
            abfrage = m_db.vorbereiten(QStringLiteral("SELECT rowid FROM ") + namenZitieren(name) + rest
                                       + nachsatz);
        } catch (const Laufzeitfehler&) {
            return false; // read as a whole; that run reports a real error
        }
        int rc;
        while ((rc = sqlite3_step(abfrage.get())) == SQLITE_ROW)
            rowids.push_back(sqlite3_column_int64(abfrage.get(), 0));
        if (rc != SQLITE_DONE)
            m_db.fehlerWerfen(rc);
    }

    m_tabelle = name;
    m_spalten = spalten;
    m_istBlob = std::move(istBlob);
    m_rowids = std::move(rowids);
    m_anzahl = qsizetype(m_rowids.size());
    m_cacheStand = sqlite3_total_changes64(h);
    // Only a source of one condition and one order can be brought up to date in place.
    if (!limit && !mehrteilig) {
        m_where = where;
        m_orderBy = orderBy >= 0 ? rest.mid(orderBy) : QStringLiteral("ORDER BY rowid");
        m_stand = standLesen();
    }
    return true;
}

void Recordset::ganzLesen(const QString& recordSource)
{
    Anweisung abfrage = m_db.vorbereiten(recordSource);
    sqlite3_stmt* a = abfrage.get();
    // An action query as record source would change the data while being "read".
    if (!sqlite3_stmt_readonly(a))
        throw Laufzeitfehler(3219,
                             QStringLiteral("Ungültige Operation: eine Aktionsabfrage liefert "
                                            "keine Datensätze und kann nicht als "
                                            "Datensatzquelle dienen."));
    const int spalten = sqlite3_column_count(a);
    for (int k = 0; k < spalten; ++k)
        m_spalten << QString::fromUtf8(sqlite3_column_name(a, k));
    m_istBlob.assign(size_t(spalten), false);
    int rc;
    while ((rc = sqlite3_step(a)) == SQLITE_ROW) {
        Zeile zeile(static_cast<size_t>(spalten));
        for (int k = 0; k < spalten; ++k)
            zeile[size_t(k)] = spalteLesen(a, k);
        m_alleWerte.push_back(std::move(zeile));
    }
    if (rc != SQLITE_DONE)
        m_db.fehlerWerfen(rc);
    m_anzahl = qsizetype(m_alleWerte.size());
}

int Recordset::FieldIndex(const QString& name) const
{
    for (qsizetype k = 0; k < m_spalten.size(); ++k)
        if (m_spalten.at(k).compare(name, Qt::CaseInsensitive) == 0)
            return int(k);
    return -1;
}

int Recordset::AbsolutePosition() const { return aktuelleZeile() ? m_position : -1; }

void Recordset::setAbsolutePosition(int position)
{
    if (position < 0 || position >= m_anzahl)
        return;
    schreibenFallsNoetig();
    m_position = position;
}

void Recordset::MoveFirst()
{
    schreibenFallsNoetig();
    m_position = m_anzahl > 0 ? 0 : -1;
}

void Recordset::MoveLast()
{
    schreibenFallsNoetig();
    m_position = int(m_anzahl) - 1;
}

void Recordset::MoveNext()
{
    schreibenFallsNoetig();
    if (m_position < m_anzahl)
        ++m_position;
}

void Recordset::MovePrevious()
{
    schreibenFallsNoetig();
    if (m_position >= 0)
        --m_position;
}

bool Recordset::BOF() const { return !m_neu && (m_anzahl == 0 || m_position < 0); }

bool Recordset::EOF_() const { return !m_neu && (m_anzahl == 0 || m_position >= m_anzahl); }

qint64 Recordset::Bookmark() const { return aktuelleZeile() ? RowId(m_position) : -1; }

bool Recordset::setBookmark(qint64 bookmark)
{
    const int position = Position(bookmark);
    if (position < 0)
        return false;
    setAbsolutePosition(position);
    return true;
}

QVariant Recordset::Value(int spalte) const
{
    if (!gueltigeSpalte(spalte))
        return {};
    if (const auto it = m_puffer.constFind(spalte); it != m_puffer.constEnd())
        return it.value();
    if (!aktuelleZeile())
        return {};
    return Wert(m_position, spalte);
}

QVariant Recordset::Value(const QString& name) const { return Value(FieldIndex(name)); }

void Recordset::setValue(const QString& name, const QVariant& wert)
{
    setValue(FieldIndex(name), wert);
}

void Recordset::setValue(int spalte, const QVariant& wert)
{
    if (!Updatable() || !gueltigeSpalte(spalte))
        return;
    if (m_neu) {
        m_puffer.insert(spalte, wert);
        return;
    }
    if (!aktuelleZeile())
        return;
    // Putting back what is stored is no edit: moving through records writes nothing.
    if (gleicherWert(Wert(m_position, spalte), wert))
        m_puffer.remove(spalte);
    else
        m_puffer.insert(spalte, wert);
}

void Recordset::AddNew()
{
    if (!Updatable())
        throw NichtAenderbar();
    schreibenFallsNoetig();
    m_puffer.clear();
    m_neu = true;
}

void Recordset::Update()
{
    if (EditPending())
        schreiben(true);
}

void Recordset::CancelUpdate()
{
    m_puffer.clear();
    m_neu = false;
}

void Recordset::schreiben(bool neuerWirdAktuell)
{
    if (!Updatable()) {
        CancelUpdate();
        return;
    }
    // Columns in table order, so that the statement is always the same for the same set.
    const std::map<int, QVariant> werte(m_puffer.constKeyValueBegin(), m_puffer.constKeyValueEnd());
    QString sql;
    if (m_neu) {
        if (werte.empty()) {
            sql = QStringLiteral("INSERT INTO ") + namenZitieren(m_tabelle)
                + QStringLiteral(" DEFAULT VALUES");
        } else {
            QStringList namen;
            QStringList platz;
            for (const auto& [spalte, wert] : werte) {
                namen << namenZitieren(m_spalten.at(spalte));
                platz << u'?' + QString::number(platz.size() + 1);
            }
            sql = QStringLiteral("INSERT INTO ") + namenZitieren(m_tabelle) + QStringLiteral(" (")
                + namen.join(QStringLiteral(", ")) + QStringLiteral(") VALUES (")
                + platz.join(QStringLiteral(", ")) + u')';
        }
    } else {
        if (werte.empty())
            return;
        if (!aktuelleZeile()) {
            m_puffer.clear();
            return;
        }
        QStringList zuweisungen;
        for (const auto& [spalte, wert] : werte)
            zuweisungen << namenZitieren(m_spalten.at(spalte)) + QStringLiteral(" = ?")
                    + QString::number(zuweisungen.size() + 1);
        sql = QStringLiteral("UPDATE ") + namenZitieren(m_tabelle) + QStringLiteral(" SET ")
            + zuweisungen.join(QStringLiteral(", ")) + QStringLiteral(" WHERE rowid = ?")
            + QString::number(zuweisungen.size() + 1);
    }
    Anweisung anweisung = m_db.vorbereiten(sql);
    sqlite3_stmt* a = anweisung.get();
    int index = 1;
    for (const auto& [spalte, wert] : werte)
        binden(a, index++, wert);
    if (!m_neu)
        sqlite3_bind_int64(a, index, m_rowids[size_t(m_position)]);
    // One statement: SQLite writes it whole or not at all. The changes of the connection
    // include those of triggers (the text index); all of them are this recordset's own.
    const qint64 vorher = sqlite3_total_changes64(m_db.handle());
    const int rc = sqlite3_step(a);
    if (rc != SQLITE_DONE)
        m_db.fehlerWerfen(rc);

    cacheLeeren();
    m_puffer.clear();
    const int geaendert = sqlite3_changes(m_db.handle());
    if (m_stand.aenderungen >= 0) {
        m_stand.aenderungen += sqlite3_total_changes64(m_db.handle()) - vorher;
        m_geschrieben.push_back(m_neu ? sqlite3_last_insert_rowid(m_db.handle()) : m_rowids[size_t(m_position)]);
    }
    if (!m_neu && geaendert == 0)
        // Deleted past the recordset (an Execute of the console): say so, rather than
        // drop the edit without a word.
        throw Laufzeitfehler(3167,
                             QStringLiteral("Der Datensatz ist inzwischen gelöscht worden; "
                                            "die Änderung kann nicht gespeichert werden."));
    if (m_neu) {
        m_neu = false;
        m_rowids.push_back(sqlite3_last_insert_rowid(m_db.handle()));
        ++m_anzahl;
        const int neu = int(m_anzahl) - 1;
        if (neuerWirdAktuell)
            m_position = neu;
        if (zeileAngehaengt)
            zeileAngehaengt(neu);
    } else if (zeileGeaendert) {
        zeileGeaendert(m_position);
    }
}

void Recordset::Delete()
{
    if (m_neu) {
        CancelUpdate();
        return;
    }
    if (!Updatable())
        throw NichtAenderbar();
    if (!aktuelleZeile())
        throw Laufzeitfehler(3021, QStringLiteral("Kein aktueller Datensatz."));
    Anweisung anweisung = m_db.vorbereiten(QStringLiteral("DELETE FROM ") + namenZitieren(m_tabelle)
                                           + QStringLiteral(" WHERE rowid = ?1"));
    sqlite3_bind_int64(anweisung.get(), 1, m_rowids[size_t(m_position)]);
    const qint64 vorher = sqlite3_total_changes64(m_db.handle());
    const int rc = sqlite3_step(anweisung.get());
    if (rc != SQLITE_DONE)
        m_db.fehlerWerfen(rc);
    if (m_stand.aenderungen >= 0)
        m_stand.aenderungen += sqlite3_total_changes64(m_db.handle()) - vorher;

    const int entfernt = m_position;
    m_puffer.clear();
    m_rowids.erase(m_rowids.begin() + entfernt);
    --m_anzahl;
    if (m_position >= m_anzahl)
        m_position = int(m_anzahl) - 1;
    cacheLeeren();
    if (zeileEntfernt)
        zeileEntfernt(entfernt);
}

QVariant Recordset::Wert(int zeile, int spalte) const
{
    if (zeile < 0 || zeile >= m_anzahl || !gueltigeSpalte(spalte))
        return {};
    if (!Updatable())
        return m_alleWerte[size_t(zeile)][size_t(spalte)];
    if (cacheVeraltet())
        cacheLeeren();
    if (m_istBlob[size_t(spalte)])
        return blobLesen(zeile, spalte);
    return zeileImCache(zeile)[size_t(spalte)];
}

qint64 Recordset::RowId(int zeile) const
{
    if (zeile < 0 || zeile >= m_anzahl)
        return -1;
    return Updatable() ? m_rowids[size_t(zeile)] : zeile;
}

int Recordset::Position(qint64 rowid) const
{
    if (!Updatable())
        return (rowid >= 0 && rowid < m_anzahl) ? int(rowid) : -1;
    const auto it = std::find(m_rowids.begin(), m_rowids.end(), rowid);
    return it == m_rowids.end() ? -1 : int(it - m_rowids.begin());
}

bool Recordset::cacheVeraltet() const
{
    // Any write on the connection, also an Execute of the search, may change cached rows.
    return sqlite3_total_changes64(m_db.handle()) != m_cacheStand;
}

void Recordset::cacheLeeren() const
{
    m_bloecke.clear();
    m_blobRowid = -1;
    m_blobWerte.clear();
    m_cacheStand = sqlite3_total_changes64(m_db.handle());
}

const Recordset::Zeile& Recordset::zeileImCache(int zeile) const
{
    const int nummer = zeile / Blockgroesse;
    const auto it = std::find_if(m_bloecke.begin(), m_bloecke.end(),
                                 [nummer](const Block& b) { return b.nummer == nummer; });
    if (it == m_bloecke.end()) {
        blockLaden(nummer);
    } else if (it + 1 != m_bloecke.end()) {
        std::rotate(it, it + 1, m_bloecke.end());
    }
    return m_bloecke.back().zeilen[size_t(zeile - nummer * Blockgroesse)];
}

void Recordset::blockLaden(int nummer) const
{
    sqlite3* h = m_db.handle();
    if (!m_zeilenAbfrage) {
        QStringList namen;
        for (qsizetype k = 0; k < m_spalten.size(); ++k)
            if (!m_istBlob[size_t(k)])
                namen << namenZitieren(m_spalten.at(k));
        if (namen.isEmpty())
            namen << QStringLiteral("NULL");
        const QByteArray sql = (QStringLiteral("SELECT ") + namen.join(QStringLiteral(", "))
                                + QStringLiteral(" FROM ") + namenZitieren(m_tabelle)
                                + QStringLiteral(" WHERE rowid = ?1"))
                                   .toUtf8();
        sqlite3_stmt* roh = nullptr;
        if (sqlite3_prepare_v3(h, sql.constData(), int(sql.size()), SQLITE_PREPARE_PERSISTENT, &roh,
                               nullptr)
            == SQLITE_OK)
            m_zeilenAbfrage.reset(roh);
    }
    Block block;
    block.nummer = nummer;
    const int von = nummer * Blockgroesse;
    const int bis = std::min(int(m_anzahl), von + Blockgroesse);
    block.zeilen.assign(size_t(bis - von), Zeile(size_t(m_spalten.size())));
    bool fehler = !m_zeilenAbfrage;
    if (m_zeilenAbfrage) {
        sqlite3_stmt* a = m_zeilenAbfrage.get();
        for (int z = von; z < bis; ++z) {
            sqlite3_bind_int64(a, 1, m_rowids[size_t(z)]);
            const int rc = sqlite3_step(a);
            if (rc == SQLITE_ROW) {
                Zeile& zeile = block.zeilen[size_t(z - von)];
                int k = 0;
                for (size_t spalte = 0; spalte < zeile.size(); ++spalte)
                    if (!m_istBlob[spalte])
                        zeile[spalte] = spalteLesen(a, k++);
            } else if (rc != SQLITE_DONE) {
                fehler = true; // a damaged page: the row reads empty
            }
            sqlite3_reset(a);
        }
    }
    m_bloecke.push_back(std::move(block));
    if (m_bloecke.size() > size_t(Blockvorrat))
        m_bloecke.erase(m_bloecke.begin());
    // Read errors may pass (a busy file): try again at the next access.
    if (fehler)
        m_cacheStand = -2;
}

QVariant Recordset::blobLesen(int zeile, int spalte) const
{
    const qint64 rowid = m_rowids[size_t(zeile)];
    if (rowid != m_blobRowid) {
        QStringList namen;
        std::vector<int> welche;
        for (qsizetype k = 0; k < m_spalten.size(); ++k)
            if (m_istBlob[size_t(k)]) {
                namen << namenZitieren(m_spalten.at(k));
                welche.push_back(int(k));
            }
        m_blobWerte.assign(size_t(m_spalten.size()), QVariant());
        const QByteArray sql = (QStringLiteral("SELECT ") + namen.join(QStringLiteral(", "))
                                + QStringLiteral(" FROM ") + namenZitieren(m_tabelle)
                                + QStringLiteral(" WHERE rowid = ?1"))
                                   .toUtf8();
        sqlite3_stmt* roh = nullptr;
        if (sqlite3_prepare_v2(m_db.handle(), sql.constData(), int(sql.size()), &roh, nullptr)
            != SQLITE_OK)
            return {};
        Anweisung abfrage(roh);
        sqlite3_bind_int64(roh, 1, rowid);
        if (sqlite3_step(roh) != SQLITE_ROW)
            return {};
        for (size_t i = 0; i < welche.size(); ++i)
            m_blobWerte[size_t(welche[i])] = spalteLesen(roh, int(i));
        m_blobRowid = rowid;
    }
    return m_blobWerte[size_t(spalte)];
}
