#include "collections/Suchanfrage.h"

const std::array<Suchspalte, SuchspaltenAnzahl> SuchspaltenTabelle = {{
    {"Band", "Band", "Band"},
    {"Titel", "LPTitel", "LPTitel"},
    {"Medium", "Medium", "Band"},
    {"Preis", "Preis", "Preis"},
    {"Stil", "Stil", "Band"},
    {"Info", "Info", "Info"},
    {"Songs-", "Songs", "Band"},
    {"Datum", "Datum", "Datum"},
    {"Plattenfirma", "Plattenfirma", "Plattenfirma"},
    {"Bestell-Nr", "BestellNr", "BestellNr"},
    {"Musikpfad", "Musikpfad", "Band"},
    {"eBook", "eBook", "Band"},
    {"CD-Bewertung", "Bewertung", "Bewertung"},
}};

QString SuchtextVerleimen(const QString& text)
{
    return text.split(QStringLiteral(", ")).join(StilKlammer);
}

QString SongsMuster(const QString& text)
{
    static const std::pair<QChar, const char*> escapes[] = {
        {u'ß', "\\?df"}, {u'Ä', "\\?c4"}, {u'Ö', "\\?d6"}, {u'Ü', "\\?dc"},
        {u'ä', "\\?e4"}, {u'ö', "\\?f6"}, {u'ü', "\\?fc"},
    };
    QString ergebnis = text;
    for (const auto& [buchstabe, muster] : escapes)
        ergebnis.replace(buchstabe, QLatin1String(muster));
    return ergebnis;
}

namespace {

// One part of the user's text as a literal inside a Jet like pattern.
QString Woertlich(const QString& teil, bool songs)
{
    QString ergebnis;
    ergebnis.reserve(teil.size() + 8);
    for (const QChar c : teil) {
        switch (c.unicode()) {
        case u'\'':
            ergebnis += QStringLiteral("''");
            break;
        case u'*':
        case u'?':
        case u'#':
        case u'[':
            ergebnis += u'[';
            ergebnis += c;
            ergebnis += u']';
            break;
        default:
            ergebnis += c;
        }
    }
    return songs ? SongsMuster(ergebnis) : ergebnis;
}

} // namespace

QString SuchmusterJet(const QString& verleimt, bool songs)
{
    QStringList teile = verleimt.split(StilKlammer);
    for (QString& teil : teile)
        teil = Woertlich(teil, songs);
    return teile.join(StilKlammer);
}

QString SuchAnweisung(const QList<int>& boxen, const QString& verleimt, const QString& sortfeld)
{
    const QString t = verleimt.trimmed();
    auto klausel = [&](int box) {
        return QLatin1String(SuchspaltenTabelle[size_t(box)].feld) + QStringLiteral(" like '*")
            + SuchmusterJet(t, box == SpalteSongsBox) + QStringLiteral("*'");
    };
    QString sql = QStringLiteral("select * from Schallplatten where ");
    if (boxen.size() < 2)
        return sql + (boxen.isEmpty() ? QString() : klausel(boxen.first())) + QStringLiteral(" order by ") + sortfeld;
    for (qsizetype i = 0; i < boxen.size(); ++i)
        sql += (i ? QStringLiteral(" or ") : QString()) + klausel(boxen[i]);
    return sql + QStringLiteral(" order by Band");
}

QString ErsetzterWert(const QString& zelle, QString& suchen, QString& ersetzen, QString* alt)
{
    const qsizetype p = zelle.indexOf(suchen);
    QString wert = zelle;
    wert.replace(u'\'', QStringLiteral("''"));
    if (alt)
        *alt = wert;
    suchen.replace(u'\'', QStringLiteral("''"));
    ersetzen.replace(u'\'', QStringLiteral("''"));
    if (p < 0)
        return wert;
    return wert.replace(p, std::min(suchen.size(), wert.size() - p), ersetzen);
}
