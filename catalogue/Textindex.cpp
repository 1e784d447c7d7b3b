#include "catalogue/Textindex.h"

#include "catalogue/RecordsetIntern.h"

#include <sqlite3.h>

#include <memory>

using RecordsetIntern::namenZitieren;

namespace {

struct Fertig {
    void operator()(sqlite3_stmt* s) const { sqlite3_finalize(s); }
};
using Anweisung = std::unique_ptr<sqlite3_stmt, Fertig>;

Anweisung vorbereiten(sqlite3* db, const QString& sql)
{
    const QByteArray text = sql.toUtf8();
    sqlite3_stmt* roh = nullptr;
    if (sqlite3_prepare_v2(db, text.constData(), int(text.size()), &roh, nullptr) != SQLITE_OK) {
        sqlite3_finalize(roh);
        return {};
    }
    return Anweisung(roh);
}

bool ausfuehren(sqlite3* db, const QString& sql)
{
    return sqlite3_exec(db, sql.toUtf8().constData(), nullptr, nullptr, nullptr) == SQLITE_OK;
}

QString indexName(const QString& tabelle) { return tabelle + QStringLiteral("_Textindex"); }

QString liste(const QStringList& spalten, const QString& vorsatz)
{
    QStringList teile;
    for (const QString& s : spalten)
        teile << vorsatz + namenZitieren(s);
    return teile.join(QStringLiteral(", "));
}

// The statements as the schema keeps them: the index first, then its three triggers.
QStringList schema(const QString& tabelle, const QStringList& spalten)
{
    const QString t = namenZitieren(tabelle);
    const QString i = namenZitieren(indexName(tabelle));
    const QString felder = liste(spalten, QString());
    const QString neu = QStringLiteral("INSERT INTO %1(rowid, %2) VALUES (new.rowid, %3);")
                            .arg(i, felder, liste(spalten, QStringLiteral("new.")));
    const QString weg = QStringLiteral("INSERT INTO %1(%1, rowid, %2) VALUES ('delete', old.rowid, %3);")
                            .arg(i, felder, liste(spalten, QStringLiteral("old.")));
    QString inhalt = tabelle;
    inhalt.replace(u'\'', QStringLiteral("''"));
    return {
        QStringLiteral("CREATE VIRTUAL TABLE %1 USING fts5(%2, content='%3', content_rowid='rowid', "
                       "tokenize='trigram', detail='none')")
            .arg(i, felder, inhalt),
        QStringLiteral("CREATE TRIGGER %1 AFTER INSERT ON %2 BEGIN %3 END")
            .arg(namenZitieren(indexName(tabelle) + QStringLiteral("_neu")), t, neu),
        QStringLiteral("CREATE TRIGGER %1 AFTER DELETE ON %2 BEGIN %3 END")
            .arg(namenZitieren(indexName(tabelle) + QStringLiteral("_weg")), t, weg),
        QStringLiteral("CREATE TRIGGER %1 AFTER UPDATE ON %2 BEGIN %3 %4 END")
            .arg(namenZitieren(indexName(tabelle) + QStringLiteral("_anders")), t, weg, neu),
    };
}

QStringList schemaNamen(const QString& tabelle)
{
    const QString i = indexName(tabelle);
    return {i, i + QStringLiteral("_neu"), i + QStringLiteral("_weg"), i + QStringLiteral("_anders")};
}

} // namespace

namespace Textindex {

QString Abfrage(const QString& begriff)
{
    const QString klein = begriff.toLower();
    if (klein.size() < 3)
        return {};
    // Below U+0250 the index folds case as Qt does; beyond, a letter may fold otherwise
    // and a row would be missed.
    for (const QChar c : klein)
        if (c.unicode() >= 0x250)
            return {};
    QStringList teile;
    for (qsizetype i = 0; i + 3 <= klein.size(); ++i) {
        QString drei = klein.mid(i, 3);
        drei.replace(u'"', QStringLiteral("\"\""));
        drei = u'"' + drei + u'"';
        if (!teile.contains(drei))
            teile << drei;
    }
    return teile.join(QStringLiteral(" AND "));
}

QStringList Spalten(sqlite3* db, const QString& tabelle)
{
    QStringList spalten;
    Anweisung info = vorbereiten(db, QStringLiteral("PRAGMA table_info(%1)").arg(namenZitieren(tabelle)));
    if (!info)
        return spalten;
    while (sqlite3_step(info.get()) == SQLITE_ROW) {
        const QString typ = QString::fromUtf8(reinterpret_cast<const char*>(sqlite3_column_text(info.get(), 2)));
        if (!typ.contains(QLatin1String("BLOB"), Qt::CaseInsensitive))
            spalten << QString::fromUtf8(reinterpret_cast<const char*>(sqlite3_column_text(info.get(), 1)));
    }
    return spalten;
}

bool Bereit(sqlite3* db, const QString& tabelle, const QStringList& spalten)
{
    if (spalten.isEmpty())
        return false;
    const QStringList soll = schema(tabelle, spalten);
    const QStringList namen = schemaNamen(tabelle);
    Anweisung frage = vorbereiten(db, QStringLiteral("SELECT sql FROM sqlite_master WHERE name = ?1"));
    if (!frage)
        return false;
    for (qsizetype k = 0; k < namen.size(); ++k) {
        const QByteArray name = namen[k].toUtf8();
        sqlite3_bind_text(frage.get(), 1, name.constData(), int(name.size()), SQLITE_TRANSIENT);
        const bool gleich = sqlite3_step(frage.get()) == SQLITE_ROW
            && QString::fromUtf8(reinterpret_cast<const char*>(sqlite3_column_text(frage.get(), 0))) == soll[k];
        sqlite3_reset(frage.get());
        if (!gleich)
            return false;
    }
    return true;
}

bool Anlegen(sqlite3* db, const QString& tabelle, const std::function<bool(qint64, qint64)>& weiter)
{
    const QStringList spalten = Spalten(db, tabelle);
    if (spalten.isEmpty() || sqlite3_db_readonly(db, "main") != 0)
        return false;
    if (!ausfuehren(db, QStringLiteral("BEGIN IMMEDIATE")))
        return false;
    auto bauen = [&] {
        for (const QString& name : schemaNamen(tabelle).mid(1))
            if (!ausfuehren(db, QStringLiteral("DROP TRIGGER IF EXISTS ") + namenZitieren(name)))
                return false;
        if (!ausfuehren(db, QStringLiteral("DROP TABLE IF EXISTS ") + namenZitieren(indexName(tabelle))))
            return false;
        for (const QString& sql : schema(tabelle, spalten))
            if (!ausfuehren(db, sql))
                return false;
        qint64 gesamt = 0;
        if (Anweisung zahl = vorbereiten(db, QStringLiteral("SELECT count(*) FROM ") + namenZitieren(tabelle));
            zahl && sqlite3_step(zahl.get()) == SQLITE_ROW)
            gesamt = sqlite3_column_int64(zahl.get(), 0);
        Anweisung lesen = vorbereiten(db, QStringLiteral("SELECT rowid, %1 FROM %2")
                                              .arg(liste(spalten, QString()), namenZitieren(tabelle)));
        QStringList platz;
        for (qsizetype k = 0; k <= spalten.size(); ++k)
            platz << u'?' + QString::number(k + 1);
        Anweisung schreiben = vorbereiten(db, QStringLiteral("INSERT INTO %1(rowid, %2) VALUES (%3)")
                                                  .arg(namenZitieren(indexName(tabelle)), liste(spalten, QString()),
                                                       platz.join(QStringLiteral(", "))));
        if (!lesen || !schreiben)
            return false;
        const int n = int(spalten.size()) + 1;
        qint64 gelesen = 0;
        int rc;
        while ((rc = sqlite3_step(lesen.get())) == SQLITE_ROW) {
            for (int k = 0; k < n; ++k)
                sqlite3_bind_value(schreiben.get(), k + 1, sqlite3_column_value(lesen.get(), k));
            if (sqlite3_step(schreiben.get()) != SQLITE_DONE)
                return false;
            sqlite3_reset(schreiben.get());
            if (++gelesen % 256 == 0 && weiter && !weiter(gelesen, gesamt))
                return false;
        }
        return rc == SQLITE_DONE;
    };
    if (!bauen() || !ausfuehren(db, QStringLiteral("COMMIT"))) {
        ausfuehren(db, QStringLiteral("ROLLBACK"));
        return false;
    }
    return true;
}

std::optional<QSet<qint64>> Kandidaten(sqlite3* db, const QString& tabelle, const QString& begriff)
{
    const QString abfrage = Abfrage(begriff);
    if (abfrage.isEmpty())
        return std::nullopt;
    const QString i = namenZitieren(indexName(tabelle));
    Anweisung frage = vorbereiten(db, QStringLiteral("SELECT rowid FROM %1 WHERE %1 MATCH ?1").arg(i));
    if (!frage)
        return std::nullopt;
    const QByteArray text = abfrage.toUtf8();
    sqlite3_bind_text(frage.get(), 1, text.constData(), int(text.size()), SQLITE_TRANSIENT);
    QSet<qint64> treffer;
    int rc;
    while ((rc = sqlite3_step(frage.get())) == SQLITE_ROW)
        treffer.insert(sqlite3_column_int64(frage.get(), 0));
    if (rc != SQLITE_DONE)
        return std::nullopt;
    return treffer;
}

} // namespace Textindex
