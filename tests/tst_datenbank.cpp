// The catalogue layer: the Jet dialect on SQLite, the recordset and the data control.
#include "support/Katalog.h"
#include "support/Testumgebung.h"

#include "catalogue/Datenbank.h"
#include "catalogue/Datensteuerung.h"
#include "catalogue/Recordset.h"
#include "catalogue/Textindex.h"
#include "platform/Laufzeitfehler.h"
#include "platform/Pfade.h"

#include <QFile>
#include <QProcess>
#include <QRandomGenerator>
#include <QToolButton>

#include <sqlite3.h>
#include <unistd.h>

#include <algorithm>

using namespace Qt::StringLiterals;

namespace {

int s_zaehler = 0;

// A fresh copy of the template catalogue; given bands, their rows replace its one row.
QString katalogMit(const QStringList& bands = {})
{
    return KatalogAnlegen(Testordner("kataloge") + QStringLiteral("k%1.db").arg(++s_zaehler), Baender(bands));
}

// Runs statements with the plain sqlite3 tool, which knows none of the program's rules.
QString sqlite3Werkzeug(const QString& pfad, const QString& sql)
{
    QProcess werkzeug;
    werkzeug.start(QStringLiteral("sqlite3"), {QStringLiteral("-bail"), pfad, sql});
    if (!werkzeug.waitForFinished(20000) || werkzeug.exitCode() != 0)
        qFatal("sqlite3: %s", werkzeug.readAllStandardError().constData());
    return QString::fromUtf8(werkzeug.readAllStandardOutput());
}

// The rowids of a recordset in its order.
std::vector<qint64> reihenfolge(const Recordset& rs)
{
    std::vector<qint64> r;
    for (int i = 0; i < rs.RecordCount(); ++i)
        r.push_back(rs.RowId(i));
    return r;
}

// The first value of a statement's first row.
QVariant abfragen(Datenbank& db, const QString& sql) { return Recordset(db, sql).Value(0); }

QStringList spalteLesen(Recordset& rs, const QString& name)
{
    QStringList werte;
    for (int z = 0; z < rs.RecordCount(); ++z)
        werte << rs.Wert(z, rs.FieldIndex(name)).toString();
    return werte;
}

// The recordset at a glance: count, position, BOF/EOF, the band of the current record and
// "*" for a pending edit, e.g. "5 @4 Ärzte" or "5 @-1 EOF".
QString stand(const Recordset& rs)
{
    QStringList teile = {QString::number(rs.RecordCount()), u'@' + QString::number(rs.AbsolutePosition()),
                         rs.BOF() ? u"BOF"_s : QString(), rs.EOF_() ? u"EOF"_s : QString(),
                         rs.Value(u"Band"_s).toString(), rs.EditPending() ? u"*"_s : QString()};
    teile.removeAll(QString());
    return teile.join(u' ');
}

// Runs steps on a recordset, separated by "; ": a method, "@n" for a position or
// "Spalte=Wert" for an edit. Returns the stand afterwards.
QString tun(Recordset& rs, const QString& schritte)
{
    static const QHash<QString, void (Recordset::*)()> methoden = {
        {u"MoveFirst"_s, &Recordset::MoveFirst}, {u"MoveLast"_s, &Recordset::MoveLast},
        {u"MoveNext"_s, &Recordset::MoveNext},   {u"MovePrevious"_s, &Recordset::MovePrevious},
        {u"AddNew"_s, &Recordset::AddNew},       {u"Update"_s, &Recordset::Update},
        {u"Delete"_s, &Recordset::Delete},       {u"CancelUpdate"_s, &Recordset::CancelUpdate}};
    for (const QString& schritt : schritte.split(u"; "_s, Qt::SkipEmptyParts)) {
        if (schritt.startsWith(u'@'))
            rs.setAbsolutePosition(schritt.mid(1).toInt());
        else if (schritt.contains(u'='))
            rs.setValue(schritt.section(u'=', 0, 0), schritt.section(u'=', 1));
        else
            (rs.*methoden.value(schritt))();
    }
    return stand(rs);
}

int fehlernummer(const std::function<void()>& f, QString* beschreibung = nullptr)
{
    try {
        f();
    } catch (const Laufzeitfehler& e) {
        if (beschreibung)
            *beschreibung = e.Beschreibung;
        return e.Nummer;
    }
    return 0;
}

// Points a data control at a file and a record source and runs it: the error number, or 0.
int laden(Datensteuerung& d, const QString& datei, const QString& quelle)
{
    d.setDatabaseName(datei);
    d.setRecordSource(quelle);
    return fehlernummer([&] { d.Refresh(); });
}

// The number of a Laufzeitfehler for an SQLite result code.
constexpr int sql(int rc) { return Fehlernummer::DatenbankBasis + rc; }

} // namespace

class TestDatenbank : public QObject {
    Q_OBJECT
private slots:
    void jetLike()
    {
        // Umlauts match in either case, but never their base letter; lists, ranges and their
        // negation, also with umlauts; an open list is a "["; digits and single characters;
        // in the song search "?" stands for the apostrophe of the RTF escape.
        const std::tuple<const char*, const char*, bool> faelle[] = {
            {"ä*", "Ärzte", true}, {"Ä*", "ärger", true}, {"ä*", "Abba", false}, {"a*", "Ärzte", false},
            {"*ÖL*", "Heizöl", true}, {"straße", "STRAßE", true}, {"strasse", "Straße", false},
            {"[!a]*", "Abba", false}, {"[!a]*", "Ärzte", true}, {"[a-c]*", "Beatles", true}, {"[a-c]*", "ärger", false},
            {"[äöü]ber", "Über", true}, {"[!äöü]ber", "Über", false}, {"[-x]", "-", true}, {"[*]*", "*stern", true},
            {"[*]*", "stern", false}, {"[abc", "[abc", true}, {"#*", "7 Tage", true}, {"#*", "Sieben", false},
            {"19##", "19x4", false}, {"?rzte", "Ärzte", true}, {"?", "", false}, {"*a", "banan", false},
            {"*\\?e4*", "{\\rtf1\\ansi 1. M\\'e4dchen\\par}", true}, {"*m\\?e4dchen*", "1. M\\'e4DCHEN", true}};
        for (const auto& [muster, text, passt] : faelle)
            QVERIFY2(JetLike(muster, text) == passt, qPrintable(muster + u" / "_s + text));
        // No exponential backtracking; bytes that are no UTF-8 do not crash.
        QElapsedTimer uhr;
        uhr.start();
        QVERIFY(!JetLike("*a*a*a*a*a*b", QString(4000, u'a')) && uhr.elapsed() < 2000);
        QVERIFY(JetLikeUtf8("*", 1, "\xff\xfe", 2) && JetLikeUtf8("?", 1, "\xc3", 1));

        // The same in SQL, where "%" is no wild card and "=" ignores case alone.
        auto db = Datenbank::oeffnen(katalogMit({"Ärzte", "Abba", "Zappa", "ärger", "7 Tage", "Über"}));
        auto zaehlen = [&](const QString& bedingung) {
            return abfragen(*db, "select count(*) from Schallplatten where " + bedingung).toInt();
        };
        const QList<QPair<const char*, int>> bedingungen = {
            {"Band like 'ä*'", 2}, {"Band like '[!a]*'", 5}, {"Band like '#*'", 1}, {"Band not like '*e*'", 2},
            {"Band like '%'", 0}, {"Band like 'a!*' escape '!'", 0}, {"Band = 'ärzte'", 1}, {"Band = 'arzte'", 0},
            {"Band like NULL", 0}};
        for (const auto& [bedingung, anzahl] : bedingungen)
            QVERIFY2(zaehlen(bedingung) == anzahl, bedingung);
        QCOMPARE(fehlernummer([&] { zaehlen("Band like 'a' escape 'xy'"); }), sql(SQLITE_ERROR));
    }

    void deutscheSortierung()
    {
        // Umlauts among their letter, case ignored; equal keys keep the order of their
        // rowids in either direction.
        const QString pfad = katalogMit({"Ärzte", "Abba", "Zappa", "ärger", "ABBA", "abba"});
        auto db = Datenbank::oeffnen(pfad);
        Recordset auf(*db, "select * from Schallplatten order by Band");
        QCOMPARE(spalteLesen(auf, "Band"), QStringList({"Abba", "ABBA", "abba", "ärger", "Ärzte", "Zappa"}));
        Recordset ab(*db, "select * from Schallplatten order by Band DESC");
        QCOMPARE(spalteLesen(ab, "Band"), QStringList({"Zappa", "Ärzte", "ärger", "Abba", "ABBA", "abba"}));
        // Other programs still read and sort the file with their own NOCASE.
        QCOMPARE(KatalogSpalte(pfad, "max(Band)"), QStringList{"ärger"});

        const QList<QPair<QString, QString>> kleiner = {{"a", "ä"}, {"ä", "b"}, {"Äb", "ac"}, {"ss", "ß"},
                                                        {"ß", "st"}, {"", " "},   {"9", "A"},   {"Éclat", "Ecstasy"}};
        for (const auto& [a, b] : kleiner)
            QVERIFY2(DeutschVergleichen(a, b) < 0, qPrintable(a + " < " + b));

        // A total order on samples: antisymmetric, transitive, equal exactly up to case.
        const QStringList zeichen = {"a", "A", "ä", "Ä", "b", "s", "S", "ß", " ", "é", "1", "z", "ö", "Ö", "e"};
        QRandomGenerator zufall(4711);
        QStringList proben(250);
        for (QString& p : proben)
            for (int k = int(zufall.bounded(6)); k > 0; --k)
                p += zeichen.at(int(zufall.bounded(zeichen.size())));
        std::sort(proben.begin(), proben.end(),
                  [](const QString& a, const QString& b) { return DeutschVergleichen(a, b) < 0; });
        for (int i = 0; i < proben.size(); ++i)
            for (int j = i; j < proben.size(); ++j) {
                const QString &a = proben[i], &b = proben[j];
                const int ab = DeutschVergleichen(a, b), ba = DeutschVergleichen(b, a);
                QVERIFY2(ab <= 0 && (ab < 0) == (ba > 0) && (ab == 0) == (ba == 0), qPrintable(a + " / " + b));
                QCOMPARE(ab == 0, a.compare(b, Qt::CaseInsensitive) == 0);
            }
    }

    void anweisungen()
    {
        const QString pfad = katalogMit({"Abba", "abba", "Cream", "Ärzte"});
        auto db = Datenbank::oeffnen(pfad);
        // The Jet functions, each value as text; "NULL" for a null. Wrong arguments are
        // errors of the statement, not crashes.
        const QList<QPair<const char*, const char*>> faelle = {
            {"ucase('Straße ärger')", "STRAßE ÄRGER"}, {"len(NULL)", "NULL"}, {"left('Ärzte', 2)", "Är"},
            {"LEFT ('Abc', 9)", "Abc"}, {"right('Abcdé', 2)", "dé"}, {"left('Abcd', 2.5)", "Ab"},
            {"mid('Abcdef', 2, 3)", "bcd"}, {"mid('Abc', 9)", ""}, {"instr(5, 'Hallo', 'l')", "0"},
            {"instr('Mädchen', 'Ä')", "2"}, {"nz(NULL, 'leer')", "leer"}, {"val(' 1 2 3abc')", "123"},
            {"val('-1.5e2x')", "-150"}, {"val('1,5')", "1"}, {"val('&HFFFF')", "-1"}, {"val('&O17')", "15"}};
        for (const auto& [ausdruck, erwartet] : faelle) {
            const QVariant v = abfragen(*db, u"select "_s + ausdruck);
            QCOMPARE(v.isValid() ? v.toString() : u"NULL"_s, QString::fromUtf8(erwartet));
        }
        for (const char* falsch : {"left('abc', -1)", "mid('abc', 0)", "instr(0, 'abc', 'a')", "left('abc', 'x')"})
            QCOMPARE(fehlernummer([&] { abfragen(*db, u"select "_s + falsch); }), sql(SQLITE_ERROR));
        // left( and right( become callable; literals, quoted names and joins stay.
        for (const char* gleich :
             {"select 'left(' from t left join u on 1", "select [left](x) -- left(\nfrom t", "select leftover(x)"})
            QCOMPARE(JetSyntaxAnpassen(gleich), QString(gleich));
        QCOMPARE(abfragen(*db, "select count(*) from Schallplatten s left join Schallplatten t "
                               "on s.rowid = t.rowid where left(s.Band, 1) = 'C'").toInt(), 1);

        // Jet's "&" joins texts; the German collation goes to sorting and comparisons with a
        // text, never into statements whose text the file keeps.
        const QList<QPair<const char*, const char*>> umschrieben = {
            {"select a & 'x&y' & \"&\" from t", "select a || 'x&y' || \"&\" from t"},
            {"select * from t order by Band, LPTitel DESC", "select * from t order by Band COLLATE DEUTSCH, LPTitel COLLATE DEUTSCH DESC"},
            {"select * from t order by left(a, 2) asc nulls first, b collate binary limit 3",
             "select * from t order by \"left\"(a, 2) COLLATE DEUTSCH asc nulls first, b collate binary limit 3"},
            {"select (select a from u order by a) x from t group by x having 1 order by 1",
             "select (select a from u order by a COLLATE DEUTSCH) x from t group by x COLLATE DEUTSCH having 1 order by 1 COLLATE DEUTSCH"},
            {"select * from t where a = 'b' and 'c' <> b or d >= \"e\" -- x = 'y'",
             "select * from t where a = 'b' COLLATE DEUTSCH and 'c' COLLATE DEUTSCH <> b or d >= \"e\" COLLATE DEUTSCH -- x = 'y'"},
            {"update t set \"a\" = 'b' where a like 'c'", "update t set \"a\" = 'b' COLLATE DEUTSCH where a like 'c'"},
            {"create view v as select * from t where a = 'b' order by a; select 1 order by 1",
             "create view v as select * from t where a = 'b' order by a; select 1 order by 1 COLLATE DEUTSCH"},
            {"create trigger r after insert on t begin update t set a = 'b' order by a; end; select 1 order by 1",
             "create trigger r after insert on t begin update t set a = 'b' order by a; end; select 1 order by 1"}};
        for (const auto& [jet, sqlite] : umschrieben)
            QCOMPARE(JetSyntaxAnpassen(QString::fromUtf8(jet)), QString::fromUtf8(sqlite));
        QCOMPARE(abfragen(*db, "select Band & '!' & 1 from Schallplatten where Band = 'cream'").toString(), u"Cream!1"_s);
        QCOMPARE(db->Execute("update Schallplatten set Info = Band & \"!\" where Band = 'Cream'"), 1);
        QCOMPARE(abfragen(*db, "select Info from Schallplatten where Band = 'Cream'").toString(), u"Cream!"_s);

        // Execute counts the changed rows and refuses a select.
        QCOMPARE(db->Execute("update Schallplatten set Stil = 'Pop' where Band = 'ABBA'"), 2);
        QCOMPARE(db->Execute("update Schallplatten set Stil = 'x' where Band = 'nichts'"), 0);
        QCOMPARE(db->Execute("delete from Schallplatten where Band like 'c*'"), 1);
        QCOMPARE(db->Execute("create table Hilfe (a text); insert into Hilfe values ('1'), ('2')"), 2);
        QCOMPARE(KatalogSpalte(pfad, "Stil"), QStringList({"Pop", "Pop", " "}));
        QString text;
        QCOMPARE(fehlernummer([&] { db->Execute("select * from Schallplatten"); }, &text), 3065);
        QVERIFY(text.contains("Auswahlabfrage"));
        QCOMPARE(fehlernummer([&] { db->Execute("updte Schallplatten set Band = 1"); }, &text), sql(SQLITE_ERROR));
        QVERIFY(text.contains("syntax error"));
        // Common messages come in German, SQLite's own text behind them.
        const QList<QPair<const char*, const char*>> meldungen = {
            {"select Bnd from Schallplatten", "Die Spalte \"Bnd\" gibt es nicht. (no such column: Bnd)"},
            {"select * from Keine", "Die Tabelle \"Keine\" gibt es nicht."},
            {"updte Schallplatten set Band = 1", "Die SQL-Anweisung hat einen Syntaxfehler bei \"updte\"."},
            {"select * from Schallplatten where", "Die SQL-Anweisung ist unvollständig."},
            {"select gibtsnicht(1)", "Die Funktion \"gibtsnicht\" gibt es nicht."},
            {"insert into Hilfe (a) values (1, 2)", "Es sind 2 Werte für 1 Spalten angegeben."},
            {"select * from Schallplatten s, Schallplatten t where Band = 1", "Der Spaltenname \"Band\" ist mehrdeutig."}};
        for (const auto& [anweisung, deutsch] : meldungen) {
            fehlernummer([&] { db->Execute(QString::fromUtf8(anweisung)); }, &text);
            QVERIFY2(text.startsWith(QString::fromUtf8(deutsch)) && text.endsWith(u')'), qPrintable(text));
        }
        // Several statements are one: the second fails, the first is undone.
        QVERIFY(fehlernummer([&] { db->Execute("delete from Hilfe; insert into Keine values (1)"); }));
        QCOMPARE(abfragen(*db, "select count(*) from Hilfe").toInt(), 2);
        // This pragma would bring back SQLite's own like() with "%".
        db->Execute("pragma case_sensitive_like = 1");
        QCOMPARE(abfragen(*db, "select count(*) from Schallplatten where Band like 'ä*'").toInt(), 1);
    }

    // An index another program made on text columns stays valid through every kind of edit
    // of the program: the plain sqlite3 tool finds the file intact and, through the index,
    // the same rows as without it.
    void fremderIndex()
    {
        const QString pfad = katalogMit({"Ärzte", "Abba", "Zappa", "ärger", "Öl", "abba", "Über"});
        sqlite3Werkzeug(pfad, "create index ix_band on Schallplatten(Band); "
                              "create index ix_titel on Schallplatten(LPTitel, Band);");
        {
            auto db = Datenbank::oeffnen(pfad);
            Recordset rs(*db, "select * from Schallplatten order by Band");
            QCOMPARE(spalteLesen(rs, "Band").first(), u"Abba"_s);
            tun(rs, "@0; Band=Übermut; @3; Band=ärzte; MoveLast; Band=Aal; Update; @2");
            rs.Delete();
            rs.AddNew();
            rs.setValue("Band", "Öde");
            rs.setValue("LPTitel", "Äpfel");
            rs.Update();
            db->Execute("update Schallplatten set LPTitel = Band & ' ' & LPTitel where Band like '[äöü]*'");
            db->Execute("create index ix_stil on Schallplatten(Stil); update Schallplatten set Stil = lcase(Band)");
        }
        QCOMPARE(sqlite3Werkzeug(pfad, "pragma integrity_check;"), u"ok\n"_s);
        for (const QString& band : KatalogSpalte(pfad, "Band") + QStringList{"ÄRZTE", "abba"}) {
            const QString bedingung = " where Band = '" + band + "' or Stil = '" + band + "';";
            const QString mitIndex = sqlite3Werkzeug(pfad, "select count(*) from Schallplatten" + bedingung);
            QCOMPARE(mitIndex, sqlite3Werkzeug(pfad, "select count(*) from Schallplatten not indexed" + bedingung));
        }
    }

    void oeffnen()
    {
        const QString ordner = Testordner("oeffnen");
        for (const QString& fehlt : {ordner + "fehlt.db", QString()})
            QCOMPARE(fehlernummer([&] { Datenbank::oeffnen(fehlt); }), Fehlernummer::DateiNichtGefunden);

        // A text file under a database name fails at once, with SQLite's message, and an
        // empty file does not silently become a new database; both stay as they were.
        const QByteArray prosa("Das ist keine Datenbank, nur Text.\n");
        DateiSchreiben(ordner + "text.db", prosa);
        QString text;
        QCOMPARE(fehlernummer([&] { Datenbank::oeffnen(ordner + "text.db"); }, &text), sql(SQLITE_NOTADB));
        QVERIFY2(text.contains("file is not a database"), qPrintable(text));
        QCOMPARE(DateiLesen(ordner + "text.db"), prosa);
        DateiSchreiben(ordner + "leer.db", QByteArray());
        QVERIFY(fehlernummer([&] { Datenbank::oeffnen(ordner + "leer.db"); }) != 0);
        QVERIFY(DateiLesen(ordner + "leer.db").isEmpty());

        // An old Jet file is refused by name and left alone.
        for (const char* kennung : {"Standard Jet DB", "Standard ACE DB"}) {
            QByteArray jet(4096, '\0');
            jet.replace(4, 15, kennung);
            DateiSchreiben(ordner + "Archiv.mdb", jet);
            QCOMPARE(fehlernummer([&] { Datenbank::oeffnen(ordner + "Archiv.mdb"); }, &text), sql(SQLITE_NOTADB));
            QVERIFY(text.contains(ordner + "Archiv.mdb") && text.contains("Jet"));
            QCOMPARE(DateiLesen(ordner + "Archiv.mdb"), jet);
        }
        QVERIFY(!IstJetDatei(katalogMit()) && !IstJetDatei(ordner + "fehlt.mdb"));

        // An old catalogue without Bewertung is read and written.
        const QString alt = katalogMit({"Zappa", "Abba"});
        KatalogAusfuehren(alt, "alter table Schallplatten drop column Bewertung");
        auto db = Datenbank::oeffnen(alt);
        Recordset rs(*db, "select * from Schallplatten order by Band, LPTitel");
        rs.setValue("Bewertung", "5"); // no such column: ignored
        rs.setValue("LPTitel", "Voulez-Vous");
        rs.Update();
        QCOMPARE(KatalogSpalte(alt, "LPTitel"), QStringList({"Titel 1", "Voulez-Vous"}));

        // Damaged catalogues: noise, cut off, overwritten in the middle.
        const QByteArray inhalt = DateiLesen(katalogMit(QStringList(600, QString(300, u'a'))));
        QRandomGenerator zufall(99);
        QByteArray rauschen(20000, '\0');
        for (char& c : rauschen)
            c = char(zufall.bounded(256));
        const QList<QByteArray> faelle = {
            rauschen, QByteArray("SQLite format 3") + '\0' + rauschen, inhalt.left(60), inhalt.left(4096),
            inhalt.left(inhalt.size() - 4096), inhalt.left(8192) + rauschen + inhalt.mid(8192 + rauschen.size())};
        for (const QByteArray& fall : faelle) {
            const QString pfad = ordner + QStringLiteral("f%1.db").arg(++s_zaehler);
            DateiSchreiben(pfad, fall);
            // Any of these steps may fail with a Laufzeitfehler; none may crash.
            try {
                auto db = Datenbank::oeffnen(pfad);
                Recordset rs(*db, "select * from Schallplatten order by Band, LPTitel");
                for (int z = 0; z < rs.RecordCount(); ++z)
                    for (int k = 0; k < rs.FieldCount(); ++k)
                        rs.Wert(z, k);
                tun(rs, "MoveLast; Band=neu; Update");
            } catch (const Laufzeitfehler& f) {
                QVERIFY(f.Nummer > 0);
            }
        }
    }

    void navigation()
    {
        auto db = Datenbank::oeffnen(katalogMit({"E", "D", "C", "B", "A"}));
        Recordset rs(*db, "select * from Schallplatten order by Band");
        // Behind the last and before the first there is no record; a second step stays;
        // positions and bookmarks out of range change nothing.
        const QList<QPair<const char*, const char*>> schritte = {
            {"", "5 @0 A"}, {"MoveLast", "5 @4 E"}, {"MoveNext", "5 @-1 EOF"}, {"MoveNext", "5 @-1 EOF"},
            {"MovePrevious", "5 @4 E"}, {"MoveFirst; MovePrevious", "5 @-1 BOF"}, {"MoveNext", "5 @0 A"},
            {"@3; @-1; @5", "5 @3 D"}};
        for (const auto& [schritt, erwartet] : schritte)
            QCOMPARE(tun(rs, schritt), QString(erwartet));
        const qint64 merke = rs.Bookmark();
        QVERIFY(!rs.setBookmark(999999));
        rs.MoveFirst();
        QVERIFY(rs.setBookmark(merke) && rs.AbsolutePosition() == 3);

        // Filters and a bare table name are updatable; an empty result has no record.
        Recordset filter(*db, "select * from Schallplatten where Band like '[a-b]*' order by Band DESC;");
        Recordset tabelle(*db, "Schallplatten");
        QVERIFY(filter.Updatable() && tabelle.Updatable());
        QCOMPARE(spalteLesen(filter, "Band"), QStringList({"B", "A"}));
        QCOMPARE(spalteLesen(tabelle, "Band"), QStringList({"E", "D", "C", "B", "A"}));
        // Without an order the rows keep the table's order, though an index would give
        // them sorted.
        Recordset ungeordnet(*db, "select * from Schallplatten where Band like '[a-e]*'");
        QCOMPARE(spalteLesen(ungeordnet, "Band"), QStringList({"E", "D", "C", "B", "A"}));
        Recordset leer(*db, "select * from Schallplatten where Band = 'X'");
        leer.MoveNext();
        QCOMPARE(stand(leer), u"0 @-1 BOF EOF"_s);
        QCOMPARE(fehlernummer([&] { leer.Delete(); }), 3021);
        QVERIFY(fehlernummer([&] { Recordset(*db, "select * from Schallplatten order by Keine"); }) != 0);

        // Any other statement is read as a whole and cannot be changed.
        db->Execute("insert into Schallplatten (Band) values ('a'), ('Ä')");
        Recordset rs2(*db, "select Band, count(*) as Anzahl from Schallplatten group by Band order by Band");
        QCOMPARE(spalteLesen(rs2, "Anzahl"), QStringList({"2", "1", "1", "1", "1", "1"}));
        rs2.setValue("Band", "x");
        QVERIFY(!rs2.Updatable() && !rs2.EditPending());
        QCOMPARE(fehlernummer([&] { rs2.AddNew(); }), sql(SQLITE_READONLY));
        // An action query is no record source and changes nothing.
        QCOMPARE(fehlernummer([&] { Recordset(*db, "delete from Schallplatten"); }), 3219);
        QCOMPARE(abfragen(*db, "select count(*) from Schallplatten").toInt(), 7);
    }

    void bearbeiten()
    {
        const QString pfad = katalogMit({"A", "B", "C", "D"});
        auto db = Datenbank::oeffnen(pfad);
        Recordset rs(*db, "select * from Schallplatten order by Band");
        QStringList gehoert; // what the table view hears
        rs.zeileGeaendert = [&](int z) { gehoert << u"geändert %1"_s.arg(z); };
        rs.zeileAngehaengt = [&](int z) { gehoert << u"angehängt %1"_s.arg(z); };
        rs.zeileEntfernt = [&](int z) { gehoert << u"entfernt %1"_s.arg(z); };

        // Putting back the stored value is no edit; an edit is seen at once and written by
        // the move, not before.
        QCOMPARE(tun(rs, "Band=A"), u"4 @0 A"_s);
        QCOMPARE(tun(rs, "LPTitel=Neu"), u"4 @0 A *"_s);
        QCOMPARE(rs.Value("LPTitel").toString(), u"Neu"_s);
        QCOMPARE(KatalogSpalte(pfad, "LPTitel").value(0), u"Titel 1"_s);
        rs.MoveNext();
        QCOMPARE(KatalogSpalte(pfad, "LPTitel").value(0), u"Neu"_s);
        const QList<QPair<const char*, const char*>> schritte = {
            // A new record: empty while pending, appended and current when written.
            {"AddNew", "4 @-1 *"}, {"Band=Ärzte; Update", "5 @4 Ärzte"},
            // Written by a move, the move starts where AddNew began; left without fields,
            // still a row.
            {"@1; AddNew; Band=Zappa; MoveNext", "6 @2 C"}, {"AddNew; AddNew; CancelUpdate", "7 @2 C"},
            // Delete: the position points at the next record, or at the last one; a pending
            // new record is dropped.
            {"@1; Delete", "6 @1 C"}, {"MoveLast; Delete; AddNew; Band=weg; Delete", "5 @4 Zappa"}};
        for (const auto& [schritt, erwartet] : schritte)
            QCOMPARE(tun(rs, schritt), QString(erwartet));
        QCOMPARE(KatalogSpalte(pfad, "Band"), QStringList({"A", "C", "D", "Ärzte", "Zappa"}));
        QCOMPARE(gehoert.join(u", "),
                 u"geändert 0, angehängt 4, angehängt 5, angehängt 6, entfernt 1, entfernt 5"_s);

        // Pictures are read for the asked row alone.
        const QByteArray png = QByteArray("\x89PNG\r\n", 6) + QByteArray(5000, '\x01');
        rs.MoveFirst();
        rs.setValue("Bilder", png);
        rs.Update();
        QCOMPARE(rs.Wert(0, rs.FieldIndex("Bilder")).toByteArray(), png);
        QVERIFY(!rs.Wert(1, rs.FieldIndex("Bilder")).isValid());

        // An edit of a record deleted past the recordset is reported, not dropped silently.
        tun(rs, "MoveLast; Band=verwaist");
        db->Execute(QStringLiteral("delete from Schallplatten where rowid = %1").arg(rs.Bookmark()));
        QCOMPARE(fehlernummer([&] { rs.Update(); }), 3167);
        QVERIFY(!rs.EditPending() && !rs.Value("Band").isValid());
    }

    // An order by plain columns sorted by the program gives exactly SQLite's order: empty
    // values, case, umlauts, equal keys, both directions; a picture in a column falls back.
    void selbstSortiertWieSqlite()
    {
        QStringList werte = {"Abba", "abba", "ABBA", "Ärzte", "ärger", "Zappa", "Über", "über", "",
                             " ", "5", "10", "ß", "ss", "Oasis", "Öl", "Œuvre", "ﬁne", "Ꭺ", "a\u0308",
                             "abcdefgh", "ABCDEFGH", "abcdefghi", "abcdefgH", "Rock'n'Roll", "rock n roll",
                             "Rock", "rock ", "~~", "a-b", "a b"};
        // Texts of any length around the eight characters of a head, plain and mixed.
        QRandomGenerator z(23);
        const QString zeichen = QStringLiteral("aAbBzZ -'9äÄßé~");
        for (int i = 0; i < 60; ++i) {
            QString text;
            for (int n = z.bounded(13); n > 0; --n)
                text += zeichen.at(z.bounded(int(zeichen.size())));
            werte << text;
        }
        QList<Zeilenwerte> zeilen;
        for (int i = 0; i < 400; ++i)
            zeilen << Zeilenwerte{{"Band", werte[z.bounded(int(werte.size()))]},
                                  {"LPTitel", werte[z.bounded(int(werte.size()))]},
                                  {"Stil", werte[z.bounded(int(werte.size()))]},
                                  {"Bewertung", QString::number(z.bounded(7))}};
        const QString pfad = KatalogAnlegen(Testordner("kataloge") + "sortieren.db", zeilen);
        KatalogAusfuehren(pfad, "update Schallplatten set Band = null where rowid % 7 = 0");
        KatalogAusfuehren(pfad, "update Schallplatten set Stil = null where rowid % 5 = 0");
        auto db = Datenbank::oeffnen(pfad);
        const QStringList quellen = {
            "select * from Schallplatten order by Band, LPTitel",
            "select * from Schallplatten order by Stil DESC",
            "select * from Schallplatten order by Bewertung, Band desc",
            "select * from Schallplatten order by \"LPTitel\" asc, [Band] DESC, Stil",
            "select * from Schallplatten where Band like 'a*' or Band like 'ä*' order by LPTitel",
            "select * from Schallplatten order by Band collate binary"};
        auto vergleichen = [&] {
            for (const QString& quelle : quellen) {
                Recordset::SelbstSortieren = false;
                const Recordset sqlite(*db, quelle);
                Recordset::SelbstSortieren = true;
                const Recordset selbst(*db, quelle);
                QCOMPARE(reihenfolge(selbst), reihenfolge(sqlite));
            }
        };
        vergleichen();
        // A picture among the bands: SQLite sorts, with the same result.
        db->Execute("update Schallplatten set Band = x'41' where rowid = 3");
        vergleichen();
    }

    // After its own writes a recordset puts the written rows in their places: the same
    // rows in the same order as running its source again, for orders, filters and ties.
    void nachfuehrenWieNeuLesen()
    {
        const QStringList werte = {"Abba", "abba", "Ärzte", "ärger", "Zappa", "Über", "über", "", " ",
                                   "5", "3", "7 Tage", "ß", "Oasis", "Öl"};
        QList<Zeilenwerte> zeilen;
        QRandomGenerator z(17);
        for (int i = 0; i < 60; ++i)
            zeilen << Zeilenwerte{{"Band", werte[z.bounded(int(werte.size()))]},
                                  {"LPTitel", werte[z.bounded(int(werte.size()))]},
                                  {"Stil", werte[z.bounded(int(werte.size()))]},
                                  {"Bewertung", QString::number(1 + z.bounded(6))}};
        const QString pfad = KatalogAnlegen(Testordner("kataloge") + "nachfuehren.db", zeilen);
        auto db = Datenbank::oeffnen(pfad);
        const QStringList quellen = {
            "select * from Schallplatten order by Band, LPTitel",
            "select * from Schallplatten order by Stil DESC",
            "select * from Schallplatten where Band like 'a*' or Band like 'ä*' order by Band, LPTitel",
            "select * from Schallplatten where Bewertung like '5' order by Band, LPTitel",
            "select * from Schallplatten order by Bewertung, Band desc",
            "select * from Schallplatten where Band like 'a*'", "Schallplatten"};
        for (const QString& quelle : quellen) {
            Recordset rs(*db, quelle);
            for (int runde = 0; runde < 4; ++runde) {
                for (int schritt = 0; schritt < 6 && rs.RecordCount() > 1; ++schritt) {
                    switch (z.bounded(4)) {
                    case 0:
                        rs.AddNew();
                        rs.setValue("Band", werte[z.bounded(int(werte.size()))]);
                        rs.setValue("Bewertung", "5");
                        rs.Update();
                        break;
                    case 1:
                        rs.setAbsolutePosition(z.bounded(rs.RecordCount()));
                        rs.Delete();
                        break;
                    default:
                        rs.setAbsolutePosition(z.bounded(rs.RecordCount()));
                        rs.setValue(z.bounded(2) ? "Band" : "Stil", werte[z.bounded(int(werte.size()))]);
                        rs.setValue("Bewertung", QString::number(1 + z.bounded(6)));
                        rs.Update();
                    }
                }
                QVERIFY(rs.Nachfuehren());
                const Recordset neu(*db, quelle);
                QCOMPARE(reihenfolge(rs), reihenfolge(neu));
                QCOMPARE(rs.AbsolutePosition(), neu.AbsolutePosition());
            }
        }
        // Where anything else may have changed the file, it does not guess.
        Recordset rs(*db, quellen[0]);
        QVERIFY(rs.Nachfuehren());
        db->Execute("update Schallplatten set Band = 'Zz' where rowid = (select min(rowid) from Schallplatten)");
        QVERIFY(!rs.Nachfuehren());
        Recordset fremd(*db, quellen[0]);
        sqlite3Werkzeug(pfad, "update Schallplatten set Band = 'Aa' where rowid = (select max(rowid) from Schallplatten);");
        QVERIFY(!fremd.Nachfuehren());
        Recordset begrenzt(*db, "select * from Schallplatten order by Band limit 5");
        QVERIFY(!begrenzt.Nachfuehren());
        Recordset offen(*db, quellen[0]);
        offen.setValue("Band", "neu");
        QVERIFY(!offen.Nachfuehren());
    }

    // A search asked again finds what the file holds now: after the recordset's own write,
    // a statement of the program and a write of another program.
    void zeilenSuchenNachAenderungen()
    {
        const QString pfad = katalogMit({"A", "B", "C"});
        auto db = Datenbank::oeffnen(pfad);
        Recordset rs(*db, "select * from Schallplatten order by Band");
        auto treffer = [&] { return rs.RowIds("Band GLOB ?1", {"Z*"}).value_or(QSet<qint64>{-1}).size(); };
        QCOMPARE(treffer(), 0);
        rs.setAbsolutePosition(0);
        rs.setValue("Band", "Zappa");
        rs.Update();
        QCOMPARE(treffer(), 1);
        db->Execute("update Schallplatten set Band = 'Zz' where Band = 'B'");
        QCOMPARE(treffer(), 2);
        sqlite3Werkzeug(pfad, "update Schallplatten set Band = 'Zorn' where Band = 'C';");
        QCOMPARE(treffer(), 3);
    }

    void textindexAbfrage_data()
    {
        QTest::addColumn<QString>("begriff");
        QTest::addColumn<QString>("abfrage");
        QTest::newRow("zu kurz") << "ab" << "";
        QTest::newRow("drei") << "abc" << "\"abc\"";
        QTest::newRow("doppelt nur einmal") << "aaaaa" << "\"aaa\"";
        QTest::newRow("Leerzeichen zählt") << "a b" << "\"a b\"";
        QTest::newRow("Anführung") << "x\"yz" << "\"x\"\"y\" AND \"\"\"yz\"";
        QTest::newRow("Umlaut klein") << "KÖNig" << "\"kön\" AND \"öni\" AND \"nig\"";
        // Beyond Latin the index may fold case otherwise than Qt: no answer, the table is read.
        QTest::newRow("griechisch") << "αβγ" << "";
        QTest::newRow("İ wird i mit Punkt") << "İst" << "";
    }
    void textindexAbfrage()
    {
        QFETCH(QString, begriff);
        QTEST(Textindex::Abfrage(begriff), "abfrage");
    }

    // The index names every row whose text holds the term, caselessly, also after writes of
    // the recordset, of a statement and of another program; a stopped build leaves the file
    // as it was; a new column makes the index not ready until it is built anew.
    void textindex()
    {
        const QString pfad = katalogMit({"Die Ärzte", "Mond", "Zappa"});
        auto db = Datenbank::oeffnen(pfad);
        Recordset rs(*db, "select * from Schallplatten order by Band");
        const QStringList koepfe = rs.FieldNames();
        QVERIFY(rs.TextindexFehlt());
        QVERIFY(!rs.TextKandidaten("ärz", koepfe));
        // A large table, so that the build asks whether to go on.
        QCOMPARE(sqlite3_exec(db->handle(),
                              "with recursive n(i) as (select 1 union all select i + 1 from n where i < 600) "
                              "insert into Schallplatten (Band) select 'Füller ' || i from n",
                              nullptr, nullptr, nullptr),
                 SQLITE_OK);
        const QString vorher = sqlite3Werkzeug(pfad, ".schema");
        QVERIFY(!rs.TextindexAnlegen([](qint64, qint64) { return false; }));
        QCOMPARE(sqlite3Werkzeug(pfad, ".schema"), vorher);
        qint64 gefragt = 0;
        QVERIFY(rs.TextindexAnlegen([&](qint64 gelesen, qint64 gesamt) {
            gefragt = gelesen;
            return gesamt == 603;
        }));
        QVERIFY(gefragt >= 256);
        QVERIFY(!rs.TextindexFehlt());
        auto bands = [&](const QString& begriff) {
            QStringList b;
            const auto k = rs.TextKandidaten(begriff, koepfe);
            if (!k)
                return QStringList{"keine Antwort"};
            for (const qint64 id : *k)
                b << abfragen(*db, QStringLiteral("select Band from Schallplatten where rowid = %1").arg(id)).toString();
            b.sort();
            return b;
        };
        QCOMPARE(bands("ärz"), QStringList{"Die Ärzte"});
        QCOMPARE(bands("ÄRZTE"), QStringList{"Die Ärzte"});
        QCOMPARE(bands("xy"), QStringList{"keine Antwort"});
        QCOMPARE(bands("ller 599"), QStringList{"Füller 599"});
        Recordset neu(*db, "select * from Schallplatten order by Band");
        neu.setAbsolutePosition(1);
        neu.setValue("Band", "Mondlicht");
        neu.setValue("Songs", "Königsblau");
        neu.Update();
        // The trigger's changes are the recordset's own: it still places its rows itself.
        QVERIFY(neu.Nachfuehren());
        QCOMPARE(bands("königs"), QStringList{"Mondlicht"});
        db->Execute("delete from Schallplatten where Band = 'Die Ärzte'");
        QCOMPARE(bands("ärz"), QStringList{});
        sqlite3Werkzeug(pfad, "insert into Schallplatten (Band) values ('Ärztekammer');");
        QCOMPARE(bands("ärz"), QStringList{"Ärztekammer"});
        // A picture column is never shown, so no question about it goes unanswered.
        QVERIFY(rs.TextKandidaten("ärz", {"Band", "Bilder"}));
        QVERIFY(!rs.TextKandidaten("ärz", {"Band", "Name"}));
        db->Execute("alter table Schallplatten add column Neu TEXT");
        QVERIFY(!rs.TextKandidaten("ärz", {"Band"}));
        QVERIFY(rs.TextindexFehlt());
        QVERIFY(rs.TextindexAnlegen({}));
        QCOMPARE(bands("ärz"), QStringList{"Ärztekammer"});
    }

    void schreibfehler()
    {
        const QString pfad = katalogMit({"A", "B"});
        const bool root = ::geteuid() == 0;
        if (!root)
            QFile::setPermissions(pfad, QFile::ReadOwner);
        auto db = Datenbank::oeffnen(pfad);
        if (root) // the owner's mode bits do not stop root
            sqlite3_exec(db->handle(), "PRAGMA query_only = 1", nullptr, nullptr, nullptr);
        Recordset rs(*db, "select * from Schallplatten order by Band");
        QString text;
        QCOMPARE(fehlernummer([&] { tun(rs, "Band=Getippt; Update"); }, &text), sql(SQLITE_READONLY));
        QVERIFY2(text.contains("schreibgeschützt") && text.contains(DateinameAusPfad(pfad)), qPrintable(text));
        // Neither a move nor a delete leaves the record, and AddNew, which writes the
        // pending edit first, fails as well: the edit stays.
        for (const char* schritt : {"MoveNext", "Delete", "AddNew"})
            QVERIFY(fehlernummer([&] { tun(rs, schritt); }));
        QCOMPARE(stand(rs), u"2 @0 Getippt *"_s);
        QVERIFY(fehlernummer([&] { tun(rs, "CancelUpdate; AddNew; Band=Neu; Update"); }));
        QCOMPARE(stand(rs), u"2 @-1 Neu *"_s);
        QCOMPARE(KatalogSpalte(pfad, "Band"), QStringList({"A", "B"}));
        if (root) { // writable again: the kept edit goes in
            sqlite3_exec(db->handle(), "PRAGMA query_only = 0", nullptr, nullptr, nullptr);
            rs.Update();
            QCOMPARE(KatalogSpalte(pfad, "Band"), QStringList({"A", "B", "Neu"}));
        }
    }

    void bloecke()
    {
        // More rows than the cache holds, so that blocks are dropped and loaded again.
        constexpr int B = Recordset::Blockgroesse;
        const int n = (Recordset::Blockvorrat + 4) * B + 17;
        QStringList erwartet;
        for (int i = 0; i < n; ++i)
            erwartet << QStringLiteral("Band %1").arg(i, 5, 10, QChar(u'0'));
        auto db = Datenbank::oeffnen(katalogMit(erwartet));
        Recordset rs(*db, "select * from Schallplatten order by Band");
        QCOMPARE(rs.RecordCount(), n);
        for (int z = n - 1; z >= 0; z -= 37)
            QCOMPARE(rs.Wert(z, 0).toString(), erwartet.at(z));

        // Deletes at block edges, each after its neighbours were cached.
        for (int position : {0, B - 1, B - 1, 2 * B, n / 2, n - 7}) {
            rs.Wert(std::max(0, position - 1), 0);
            rs.Wert(std::min(rs.RecordCount() - 1, position + 1), 0);
            tun(rs, u"@%1; Delete"_s.arg(position));
            erwartet.removeAt(position);
            QCOMPARE(rs.Value(0).toString(), erwartet.at(position));
        }
        // Appends, read back while the last block is cached.
        rs.MoveLast();
        for (int i = 0; i < B + 5; ++i) {
            erwartet << QStringLiteral("Neu %1").arg(i);
            tun(rs, "AddNew; Band=" + erwartet.last() + "; Update");
            QCOMPARE(rs.Wert(rs.RecordCount() - 1, 0).toString(), erwartet.last());
        }
        QCOMPARE(spalteLesen(rs, "Band"), erwartet);
        for (int z = 0; z < rs.RecordCount(); z += 97)
            QCOMPARE(rs.Position(rs.RowId(z)), z);

        // A write past the recordset (the search's Execute) is seen at the next read; rows
        // deleted past it read empty until the next refresh.
        rs.Wert(10, 0);
        db->Execute("update Schallplatten set Stil = 'geändert' where Band = '" + erwartet.at(10) + u'\'');
        QCOMPARE(rs.Wert(10, 3).toString(), u"geändert"_s);
        db->Execute("delete from Schallplatten where Band = '" + erwartet.at(11) + u'\'');
        QVERIFY(!rs.Wert(11, 0).isValid());
        QCOMPARE(rs.Wert(12, 0).toString(), erwartet.at(12));
    }

    void datensteuerung()
    {
        const QString erste = katalogMit({"C", "A", "B"});
        const QString zweite = katalogMit({"Y", "X"});
        Datensteuerung data1;
        data1.setObjectName("Data1");
        QStringList folge;
        connect(&data1, &Datensteuerung::Validate, [&] { folge << "Validate"; });
        connect(&data1, &Datensteuerung::Reposition, [&] { folge << "Reposition"; });
        connect(&data1, &Datensteuerung::neuAufgebaut, [&] { folge << "neuAufgebaut"; });
        auto jetzt = [&] { return data1.recordset() ? stand(*data1.recordset()) : u"-"_s; };

        // Validate comes before each move, so that bound edits are written by it.
        QCOMPARE(laden(data1, erste, "select * from Schallplatten order by Band, LPTitel"), 0);
        auto bindung = connect(&data1, &Datensteuerung::Validate,
                               [&] { data1.recordset()->setValue("Info", "vom Feld"); });
        folge.clear();
        data1.setAbsolutePosition(2);
        QCOMPARE(folge, QStringList({"Validate", "Reposition"}));
        QCOMPARE(KatalogSpalte(erste, "Info"), QStringList({" ", "vom Feld", " "}));
        disconnect(bindung);
        // The buttons first, previous, next, last; next on the last and previous on the
        // first stay where they are.
        const auto knoepfe = data1.findChildren<QToolButton*>();
        QCOMPARE(knoepfe.size(), 4);
        for (const auto& [knopf, ziel] : {std::pair{3, 2}, {2, 2}, {1, 1}, {0, 0}, {1, 0}, {2, 1}}) {
            knoepfe.at(knopf)->click();
            QCOMPARE(data1.recordset()->AbsolutePosition(), ziel);
        }

        // Refresh writes a pending edit and starts at the first record again on the same
        // connection.
        Datenbank* verbindung = data1.database();
        data1.recordset()->setValue("Medium", "LP");
        folge.clear();
        data1.Refresh();
        QCOMPARE(folge, QStringList({"Validate", "neuAufgebaut", "Reposition"}));
        QCOMPARE(KatalogSpalte(erste, "Medium"), QStringList({" ", " ", "LP"}));
        QVERIFY(jetzt() == u"3 @0 A"_s && data1.database() == verbindung);

        // A failing source or a missing file (error 53) leave no recordset, and the control
        // stays usable; schliessen writes the edit and closes.
        QVERIFY(laden(data1, erste, "select * from Schallplatten order by Keine") != 0);
        QCOMPARE(jetzt(), u"-"_s);
        data1.naechsterDatensatz();
        QCOMPARE(laden(data1, Testordner("fehlt") + "nichts.db", "Schallplatten"), Fehlernummer::DateiNichtGefunden);
        QVERIFY(!data1.database() && !data1.recordset());
        QCOMPARE(laden(data1, zweite, "select * from Schallplatten order by Band"), 0);
        QCOMPARE(jetzt(), u"2 @0 X"_s);
        data1.recordset()->setValue("Stil", "Jazz");
        data1.schliessen();
        QVERIFY(!data1.database() && !data1.recordset());
        QCOMPARE(KatalogSpalte(zweite, "Stil"), QStringList({" ", "Jazz"}));

        // A move that cannot write its edit shows the error and stays.
        QCOMPARE(laden(data1, erste, "Schallplatten"), 0);
        sqlite3_exec(data1.database()->handle(), "PRAGMA query_only = 1", nullptr, nullptr, nullptr);
        data1.recordset()->setValue("Band", "Getippt");
        Attrappen::dialoge().leeren();
        knoepfe.at(2)->click();
        QCOMPARE(jetzt(), u"3 @0 Getippt *"_s);
        QCOMPARE(Attrappen::dialoge().meldungen().size(), 1);
        QCOMPARE(Attrappen::dialoge().meldungen().first().titel, u"Data1_Error"_s);

        // An edit still pending when the control goes is written.
        {
            Datensteuerung letzte;
            QCOMPARE(laden(letzte, zweite, "select * from Schallplatten order by Band"), 0);
            letzte.recordset()->setValue("Info", "beim Beenden");
        }
        QCOMPARE(KatalogSpalte(zweite, "Info"), QStringList({" ", "beim Beenden"}));
    }
};

RK_TEST_MAIN(TestDatenbank)
#include "tst_datenbank.moc"
