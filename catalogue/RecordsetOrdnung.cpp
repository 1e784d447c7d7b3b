// The recordset's order: sorting an order by plain columns itself, finding rows through
// the catalogue, and bringing the rows up to date after its own writes.
#include "catalogue/Recordset.h"
#include "catalogue/RecordsetIntern.h"

#include "catalogue/Textindex.h"
#include "catalogue/Textregeln.h"
#include "platform/Laufzeitfehler.h"

#include <QRegularExpression>

#include <sqlite3.h>

#include <algorithm>
#include <cstring>
#include <system_error>
#include <thread>

using namespace RecordsetIntern;


// The terms of "order by a, b desc" when each is a plain column of the table that holds
// text; nothing for any other order.
std::optional<std::vector<QPair<QString, bool>>> RecordsetIntern::einfacheOrdnung(const QString& ordnung, const QStringList& spalten,
                                                                 const std::vector<bool>& istBlob)
{
    static const QRegularExpression k_kopf(QStringLiteral(R"x(^\s*order\s+by\s+(.*)$)x"),
                                           QRegularExpression::CaseInsensitiveOption
                                               | QRegularExpression::DotMatchesEverythingOption);
    static const QRegularExpression k_term(
        QStringLiteral(R"x(^\s*(?:\[([^\]]+)\]|"([^"]+)"|`([^`]+)`|([A-Za-z_][A-Za-z0-9_]*))\s*(asc|desc)?\s*$)x"),
        QRegularExpression::CaseInsensitiveOption);
    const auto kopf = k_kopf.match(ordnung);
    if (!kopf.hasMatch())
        return std::nullopt;
    std::vector<QPair<QString, bool>> terme;
    for (const QString& teil : kopf.captured(1).split(u',')) {
        const auto t = k_term.match(teil);
        if (!t.hasMatch())
            return std::nullopt;
        QString name;
        for (int g = 1; g <= 4 && name.isEmpty(); ++g)
            name = t.captured(g);
        const qsizetype k = spalten.indexOf(QRegularExpression(
            u'^' + QRegularExpression::escape(name) + u'$', QRegularExpression::CaseInsensitiveOption));
        if (k < 0 || istBlob[size_t(k)])
            return std::nullopt;
        terme.push_back({spalten.at(k), t.captured(5).compare(u"desc", Qt::CaseInsensitive) == 0});
    }
    if (terme.empty())
        return std::nullopt;
    return terme;
}

std::optional<std::vector<qint64>> Recordset::sortiertLesen(const QString& tabelle, const QString& where,
                                                           const std::vector<Sortierterm>& terme) const
{
    QString sql = QStringLiteral("SELECT rowid");
    for (const Sortierterm& t : terme)
        sql += QStringLiteral(", typeof(%1), %1").arg(t.spalte);
    sql += QStringLiteral(" FROM ") + tabelle;
    if (!where.trimmed().isEmpty())
        sql += QStringLiteral(" WHERE ") + where;
    Anweisung abfrage;
    try {
        abfrage = m_db.vorbereiten(sql);
    } catch (const Laufzeitfehler&) {
        return std::nullopt;
    }
    sqlite3_stmt* a = abfrage.get();
    const size_t k = terme.size();
    std::vector<qint64> rowids;
    // The texts of all terms one after the other; a text is its start and length, -1 for
    // an empty value, and the packed head of a plain ASCII text, which settles most
    // comparisons without the full German comparison.
    struct Stelle {
        size_t anfang = 0;
        int laenge = -1;
        bool mitKopf = false;
        quint64 kopf = 0;
    };
    std::string texte;
    std::vector<Stelle> stellen;
    int rc;
    while ((rc = sqlite3_step(a)) == SQLITE_ROW) {
        rowids.push_back(sqlite3_column_int64(a, 0));
        for (size_t t = 0; t < k; ++t) {
            const int spalte = int(1 + 2 * t);
            const char* typ = reinterpret_cast<const char*>(sqlite3_column_text(a, spalte));
            if (typ && std::strcmp(typ, "null") == 0) {
                stellen.push_back({});
            } else if (typ && std::strcmp(typ, "text") == 0) {
                const char* z = reinterpret_cast<const char*>(sqlite3_column_text(a, spalte + 1));
                const int n = sqlite3_column_bytes(a, spalte + 1);
                Stelle s{texte.size(), n};
                s.mitKopf = DeutschKopf(z ? z : "", n, s.kopf);
                stellen.push_back(s);
                texte.append(z ? z : "", size_t(n));
            } else {
                return std::nullopt; // a number or a picture: SQLite's own rules
            }
        }
    }
    if (rc != SQLITE_DONE)
        return std::nullopt;

    // SQLite's order for these values: empty first, text by the German collation; a
    // descending term turns both round; rowid decides last.
    const auto kleiner = [&](uint32_t x, uint32_t y) {
        for (size_t t = 0; t < k; ++t) {
            const Stelle& sx = stellen[x * k + t];
            const Stelle& sy = stellen[y * k + t];
            int v;
            if (sx.laenge < 0 || sy.laenge < 0)
                v = (sx.laenge < 0 ? 0 : 1) - (sy.laenge < 0 ? 0 : 1);
            else if (sx.mitKopf && sy.mitKopf && sx.kopf != sy.kopf)
                v = sx.kopf < sy.kopf ? -1 : 1;
            else if (sx.mitKopf && sy.mitKopf && sx.laenge <= 8 && sy.laenge <= 8)
                v = 0;
            else
                v = DeutschVergleichenUtf8(texte.data() + sx.anfang, sx.laenge, texte.data() + sy.anfang, sy.laenge);
            if (v != 0)
                return terme[t].absteigend ? v > 0 : v < 0;
        }
        return rowids[x] < rowids[y];
    };
    std::vector<uint32_t> folge(rowids.size());
    for (uint32_t i = 0; i < folge.size(); ++i)
        folge[i] = i;
    // Two halves on two cores, then merged.
    const auto mitte = folge.begin() + qsizetype(folge.size() / 2);
    std::thread zweiter;
    if (folge.size() > 20000) {
        try {
            zweiter = std::thread([&] { std::sort(mitte, folge.end(), kleiner); });
        } catch (const std::system_error&) {
            // No second thread to be had: one core sorts both halves.
        }
    }
    std::sort(folge.begin(), mitte, kleiner);
    if (zweiter.joinable())
        zweiter.join();
    else
        std::sort(mitte, folge.end(), kleiner);
    std::inplace_merge(folge.begin(), mitte, folge.end(), kleiner);
    std::vector<qint64> ergebnis;
    ergebnis.reserve(folge.size());
    for (const uint32_t i : folge)
        ergebnis.push_back(rowids[i]);
    return ergebnis;
}

Recordset::Stand Recordset::standLesen() const
{
    sqlite3* h = m_db.handle();
    auto pragma = [h](const char* sql) {
        sqlite3_stmt* roh = nullptr;
        qint64 wert = -1;
        if (sqlite3_prepare_v2(h, sql, -1, &roh, nullptr) == SQLITE_OK && sqlite3_step(roh) == SQLITE_ROW)
            wert = sqlite3_column_int64(roh, 0);
        sqlite3_finalize(roh);
        return wert;
    };
    return {sqlite3_total_changes64(h), pragma("PRAGMA data_version"), pragma("PRAGMA schema_version"),
            m_db.Ausfuehrungen()};
}

std::optional<QSet<qint64>> Recordset::RowIds(const QString& bedingung, const QVariantList& werte) const
{
    QSet<qint64> treffer;
    if (!Updatable())
        return std::nullopt;
    const Stand stand = standLesen();
    if (m_letzteSuche && m_letzteSuche->stand == stand && m_letzteSuche->sql == bedingung
        && m_letzteSuche->werte == werte)
        return m_letzteSuche->treffer;
    const QByteArray sql = (QStringLiteral("SELECT rowid FROM ") + namenZitieren(m_tabelle)
                            + QStringLiteral(" WHERE ") + bedingung)
                               .toUtf8();
    sqlite3_stmt* roh = nullptr;
    if (sqlite3_prepare_v2(m_db.handle(), sql.constData(), int(sql.size()), &roh, nullptr) != SQLITE_OK) {
        sqlite3_finalize(roh);
        return std::nullopt;
    }
    Anweisung abfrage(roh);
    for (int i = 0; i < werte.size(); ++i)
        binden(roh, i + 1, werte.at(i));
    int rc;
    while ((rc = sqlite3_step(roh)) == SQLITE_ROW)
        treffer.insert(sqlite3_column_int64(roh, 0));
    if (rc != SQLITE_DONE)
        return std::nullopt;
    m_letzteSuche = Suche{bedingung, werte, stand, treffer};
    return treffer;
}

const QStringList& Recordset::textindexSpalten() const
{
    const qint64 schema = standLesen().schema;
    if (schema != m_indexSchema) {
        m_indexSchema = schema;
        const QStringList spalten = Textindex::Spalten(m_db.handle(), m_tabelle);
        m_indexSpalten = Textindex::Bereit(m_db.handle(), m_tabelle, spalten) ? spalten : QStringList();
    }
    return m_indexSpalten;
}

std::optional<QSet<qint64>> Recordset::TextKandidaten(const QString& begriff, const QStringList& spalten) const
{
    if (!Updatable() || Textindex::Abfrage(begriff).isEmpty())
        return std::nullopt;
    const QStringList& gedeckt = textindexSpalten();
    if (gedeckt.isEmpty())
        return std::nullopt;
    // A picture shows no text; any other column must be one the index holds.
    for (const QString& spalte : spalten) {
        const int k = FieldIndex(spalte);
        if (!(k >= 0 && m_istBlob[size_t(k)]) && !gedeckt.contains(spalte, Qt::CaseInsensitive))
            return std::nullopt;
    }
    const Stand stand = standLesen();
    const QString frage = QStringLiteral("\x01Textindex ") + begriff;
    if (m_letzteSuche && m_letzteSuche->stand == stand && m_letzteSuche->sql == frage)
        return m_letzteSuche->treffer;
    auto treffer = Textindex::Kandidaten(m_db.handle(), m_tabelle, begriff);
    if (treffer)
        m_letzteSuche = Suche{frage, {}, stand, *treffer};
    return treffer;
}

bool Recordset::TextindexFehlt() const
{
    return Updatable() && !m_db.schreibgeschuetzt() && textindexSpalten().isEmpty()
        && !Textindex::Spalten(m_db.handle(), m_tabelle).isEmpty();
}

bool Recordset::TextindexAnlegen(const std::function<bool(qint64, qint64)>& weiter)
{
    return Updatable() && Textindex::Anlegen(m_db.handle(), m_tabelle, weiter);
}

int Recordset::ErstePosition(const QSet<qint64>& rowids, int von) const
{
    if (!Updatable() || rowids.isEmpty())
        return -1;
    for (qsizetype i = std::max(0, von); i < m_anzahl; ++i)
        if (rowids.contains(m_rowids[size_t(i)]))
            return int(i);
    return -1;
}

qsizetype Recordset::einfuegeStelle(const std::vector<qint64>& rowids, sqlite3_stmt* vergleich, qint64 rowid)
{
    // The first place whose row the source's order puts behind this one.
    qsizetype unten = 0;
    qsizetype oben = qsizetype(rowids.size());
    while (unten < oben) {
        const qsizetype mitte = unten + (oben - unten) / 2;
        sqlite3_bind_int64(vergleich, 1, rowid);
        sqlite3_bind_int64(vergleich, 2, rowids[size_t(mitte)]);
        const int rc = sqlite3_step(vergleich);
        const bool davor = rc == SQLITE_ROW && sqlite3_column_int64(vergleich, 0) == rowid;
        sqlite3_reset(vergleich);
        if (rc != SQLITE_ROW)
            return -1;
        if (davor)
            oben = mitte;
        else
            unten = mitte + 1;
    }
    return unten;
}

bool Recordset::Nachfuehren()
{
    if (!Updatable() || m_orderBy.isEmpty() || EditPending() || standLesen() != m_stand)
        return false;
    const QString tabelle = namenZitieren(m_tabelle);
    Anweisung dabei;
    Anweisung vergleich;
    try {
        dabei = m_db.vorbereiten(QStringLiteral("SELECT 1 FROM ") + tabelle + QStringLiteral(" WHERE rowid = ?1")
                                 + (m_where.trimmed().isEmpty() ? QString()
                                                                : QStringLiteral(" AND (") + m_where + u')'));
        // The same order as the source, and the same tie-break by rowid.
        vergleich = m_db.vorbereiten(QStringLiteral("SELECT rowid FROM ") + tabelle
                                     + QStringLiteral(" WHERE rowid IN (?1, ?2) ") + m_orderBy
                                     + QStringLiteral(", rowid LIMIT 1"));
    } catch (const Laufzeitfehler&) {
        return false;
    }
    std::vector<qint64> geschrieben = m_geschrieben;
    std::sort(geschrieben.begin(), geschrieben.end());
    geschrieben.erase(std::unique(geschrieben.begin(), geschrieben.end()), geschrieben.end());
    // Worked on a copy: where the catalogue cannot answer, nothing has changed.
    std::vector<qint64> rowids = m_rowids;
    for (const qint64 rowid : geschrieben)
        if (const auto it = std::find(rowids.begin(), rowids.end(), rowid); it != rowids.end())
            rowids.erase(it);
    for (const qint64 rowid : geschrieben) {
        sqlite3_bind_int64(dabei.get(), 1, rowid);
        const int rc = sqlite3_step(dabei.get());
        sqlite3_reset(dabei.get());
        if (rc != SQLITE_ROW && rc != SQLITE_DONE)
            return false;
        if (rc == SQLITE_ROW) {
            const qsizetype stelle = einfuegeStelle(rowids, vergleich.get(), rowid);
            if (stelle < 0)
                return false;
            rowids.insert(rowids.begin() + stelle, rowid);
        }
    }
    m_rowids = std::move(rowids);
    m_geschrieben.clear();
    m_anzahl = qsizetype(m_rowids.size());
    m_position = m_anzahl > 0 ? 0 : -1;
    cacheLeeren();
    m_stand = standLesen();
    return true;
}
