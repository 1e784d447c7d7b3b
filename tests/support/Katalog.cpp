#include "Katalog.h"

#include <QDir>
#include <QFile>
#include <QFileInfo>

#include <sqlite3.h>

namespace {
const QStringList Spalten = {"Band",      "LPTitel",  "Medium",   "Stil",     "Info",      "Plattenfirma",
                             "BestellNr", "Preis",    "Datum",    "Songs",    "BildPfad",  "Musikpfad",
                             "SongText",  "eBook",    "Bewertung", "InternetTab", "InfoTab", "SonstigesTab"};

QString literal(const QString& wert) { return u'\'' + QString(wert).replace(u'\'', QStringLiteral("''")) + u'\''; }
} // namespace

void KatalogAusfuehren(const QString& pfad, const QString& sql)
{
    sqlite3* db = nullptr;
    if (sqlite3_open_v2(pfad.toUtf8().constData(), &db, SQLITE_OPEN_READWRITE, nullptr) == SQLITE_OK)
        sqlite3_exec(db, sql.toUtf8().constData(), nullptr, nullptr, nullptr);
    sqlite3_close(db);
}

QStringList KatalogSpalte(const QString& pfad, const QString& spalte)
{
    QStringList werte;
    sqlite3* db = nullptr;
    if (sqlite3_open_v2(pfad.toUtf8().constData(), &db, SQLITE_OPEN_READONLY, nullptr) != SQLITE_OK) {
        sqlite3_close(db);
        return werte;
    }
    sqlite3_stmt* st = nullptr;
    const QByteArray sql = QStringLiteral("select %1 from Schallplatten order by rowid").arg(spalte).toUtf8();
    if (sqlite3_prepare_v2(db, sql.constData(), -1, &st, nullptr) == SQLITE_OK)
        while (sqlite3_step(st) == SQLITE_ROW)
            werte << QString::fromUtf8(reinterpret_cast<const char*>(sqlite3_column_text(st, 0)));
    sqlite3_finalize(st);
    sqlite3_close(db);
    return werte;
}

QString KatalogAnlegen(const QString& pfad, const QList<Zeilenwerte>& zeilen)
{
    QDir().mkpath(QFileInfo(pfad).path());
    QFile::remove(pfad);
    QFile::copy(QStringLiteral(":/resources/programmordner/Archiv_leer.db"), pfad);
    QFile::setPermissions(pfad, QFile::ReadOwner | QFile::WriteOwner);
    QString sql = QStringLiteral("begin;");
    if (!zeilen.isEmpty())
        sql += QStringLiteral("delete from Schallplatten;");
    for (const Zeilenwerte& zeile : zeilen) {
        QStringList werte;
        for (const QString& s : Spalten)
            werte << literal(zeile.value(s, QStringLiteral(" ")));
        sql += QStringLiteral("insert into Schallplatten (%1) values (%2);").arg(Spalten.join(u','), werte.join(u','));
    }
    sql += QStringLiteral("commit;");
    KatalogAusfuehren(pfad, sql);
    return pfad;
}

QList<Zeilenwerte> Baender(const QStringList& baender)
{
    QList<Zeilenwerte> zeilen;
    int n = 1;
    for (const QString& band : baender)
        zeilen << Zeilenwerte{{QStringLiteral("Band"), band},
                              {QStringLiteral("LPTitel"), QStringLiteral("Titel %1").arg(n++)}};
    return zeilen;
}
