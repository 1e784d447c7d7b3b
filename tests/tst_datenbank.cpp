// The catalogue layer: the Jet dialect on SQLite, the recordset and the data control.
#include "support/Katalog.h"
#include "support/Testumgebung.h"

#include "catalogue/Datenbank.h"
#include "catalogue/Datensteuerung.h"
#include "catalogue/Recordset.h"
#include "platform/Laufzeitfehler.h"
#include "platform/Pfade.h"

#include <QFile>
#include <QRandomGenerator>
#include <QSignalSpy>
#include <QToolButton>

#include <sqlite3.h>
#include <unistd.h>

#include <algorithm>

using namespace Qt::StringLiterals;

namespace {

const QStringList k_spalten = {"Band",         "LPTitel",   "Medium",       "Stil",  "Info",
                               "Plattenfirma", "BestellNr", "Preis",        "Datum", "Songs",
                               "BildPfad",     "Musikpfad", "SongText",     "eBook", "Bewertung",
                               "InternetTab",  "InfoTab",   "SonstigesTab", "Bilder"};

int s_zaehler = 0;

// A fresh copy of the template catalogue; given bands, their rows replace its one row
// (title "Titel <n>", the other columns blank).
QString katalogMit(const QStringList& bands = {})
{
    const QString pfad = Testordner("kataloge") + QStringLiteral("k%1.db").arg(++s_zaehler);
    return KatalogAnlegen(pfad, Baender(bands));
}

// The first value of a statement's first row.
QVariant abfragen(Datenbank& db, const QString& sql)
{
    Recordset rs(db, sql);
    return rs.Value(0);
}

QStringList spalteLesen(Recordset& rs, const QString& name)
{
    QStringList werte;
    const int k = rs.FieldIndex(name);
    for (int z = 0; z < rs.RecordCount(); ++z)
        werte << rs.Wert(z, k).toString();
    return werte;
}

// The recordset at a glance: count, position, BOF/EOF, the band of the current record and
// "*" for a pending edit, e.g. "5 @4 Ärzte" or "5 @-1 EOF".
QString stand(const Recordset& rs)
{
    QStringList teile = {QString::number(rs.RecordCount()),
                         u'@' + QString::number(rs.AbsolutePosition())};
    if (rs.BOF())
        teile << u"BOF"_s;
    if (rs.EOF_())
        teile << u"EOF"_s;
    if (const QVariant band = rs.Value(u"Band"_s); band.isValid())
        teile << band.toString();
    if (rs.EditPending())
        teile << u"*"_s;
    return teile.join(u' ');
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
        const std::tuple<const char*, const char*, bool> faelle[] = {
            // Umlauts match in either case, but never their base letter.
            {"ä*", "Ärzte", true}, {"ä*", "ärger", true}, {"Ä*", "ärger", true},
            {"ä*", "Abba", false}, {"a*", "Ärzte", false}, {"a*", "ABBA", true},
            {"*ÖL*", "Heizöl", true}, {"straße", "STRAßE", true}, {"strasse", "Straße", false},
            {"ß*", "ßaß", true},
            // Lists, ranges and their negation, also with umlauts; an open list is a "[".
            {"[!a]*", "Abba", false}, {"[!a]*", "Ärzte", true}, {"[!a]*", "Zappa", true},
            {"[a-c]*", "Beatles", true}, {"[a-c]*", "ärger", false}, {"[äöü]ber", "Über", true},
            {"[!äöü]ber", "Über", false}, {"[-x]", "-", true}, {"[*]*", "*stern", true},
            {"[*]*", "stern", false}, {"a[]b", "ab", true}, {"[abc", "[abc", true},
            // Digits and single characters.
            {"#*", "7 Tage", true}, {"#*", "Sieben", false}, {"19##", "1984", true},
            {"19##", "19x4", false}, {"?rzte", "Ärzte", true}, {"?", "", false},
            {"*", "", true}, {"", "", true}, {"", "a", false}, {"*a", "bana", true},
            {"*a", "banan", false}, {"1", "1", true}, {"1", "11", false},
            // The song search: "?" stands for the apostrophe of the RTF escape.
            {"*\\?e4*", "{\\rtf1\\ansi 1. M\\'e4dchen\\par}", true},
            {"*\\?e4*", "{\\rtf1\\ansi 1. M\\'e5dchen\\par}", false},
            {"*m\\?e4dchen*", "1. M\\'e4DCHEN", true},
        };
        for (const auto& [muster, text, passt] : faelle)
            QVERIFY2(JetLike(muster, text) == passt, qPrintable(muster + u" / "_s + text));
        // No exponential backtracking.
        QElapsedTimer uhr;
        uhr.start();
        QVERIFY(!JetLike("*a*a*a*a*a*b", QString(4000, u'a')));
        QVERIFY(uhr.elapsed() < 2000);
        // Bytes that are no UTF-8 neither crash nor match wrongly; the escape of the
        // three-argument form.
        QVERIFY(JetLikeUtf8("*", 1, "\xff\xfe", 2) && JetLikeUtf8("?", 1, "\xc3", 1));
        QVERIFY(JetLikeUtf8("100!*", 5, "100*", 4, U'!'));
        QVERIFY(!JetLikeUtf8("100!*", 5, "1000", 4, U'!'));

        // The same in SQL, where "%" is no wild card and "=" ignores case alone.
        const QString pfad = katalogMit({"Ärzte", "Abba", "Zappa", "ärger", "7 Tage", "Über"});
        auto db = Datenbank::oeffnen(pfad);
        const QList<QPair<const char*, int>> bedingungen = {
            {"Band like 'ä*'", 2},     {"Band like 'a*' or Band like 'ä*'", 3},
            {"Band like '[!a]*'", 5},  {"Band like '#*'", 1},
            {"Band not like '*e*'", 2}, {"Band like 'ü*'", 1},
            {"Band like '%'", 0},      {"Band like 'a!*' escape '!'", 0},
            {"Band = 'ABBA'", 1},      {"Band = 'ärzte'", 1},
            {"Band = 'arzte'", 0},     {"Band like NULL", 0},
        };
        auto zaehlen = [&](const QString& bedingung) {
            return abfragen(*db, "select count(*) from Schallplatten where " + bedingung).toInt();
        };
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
        QCOMPARE(spalteLesen(auf, "Band"),
                 QStringList({"Abba", "ABBA", "abba", "ärger", "Ärzte", "Zappa"}));
        Recordset ab(*db, "select * from Schallplatten order by Band DESC");
        QCOMPARE(spalteLesen(ab, "Band"),
                 QStringList({"Zappa", "Ärzte", "ärger", "Abba", "ABBA", "abba"}));
        // Other programs still read and sort the file with their own NOCASE.
        QCOMPARE(KatalogSpalte(pfad, "max(Band)"), QStringList{"ärger"});

        QVERIFY(DeutschVergleichen("ABBA", "abba") == 0 && DeutschVergleichen("Ärzte", "ärzte") == 0);
        const QList<QPair<QString, QString>> kleiner = {
            {"a", "ä"}, {"ä", "b"}, {"Äb", "ac"}, {"ss", "ß"},         {"ß", "st"},
            {"", " "},  {" ", "0"}, {"9", "A"},   {"Éclat", "Ecstasy"},
        };
        for (const auto& [a, b] : kleiner)
            QVERIFY2(DeutschVergleichen(a, b) < 0, qPrintable(a + " < " + b));

        // A total order on samples: antisymmetric, transitive, equal exactly up to case.
        const QStringList zeichen
            = {"a", "A", "ä", "Ä", "b", "s", "S", "ß", " ", "é", "1", "z", "ö", "Ö", "e"};
        QRandomGenerator zufall(4711);
        QStringList proben(250);
        for (QString& p : proben)
            for (int k = int(zufall.bounded(6)); k > 0; --k)
                p += zeichen.at(int(zufall.bounded(zeichen.size())));
        for (const QString& a : proben)
            for (const QString& b : proben) {
                const int ab = DeutschVergleichen(a, b);
                const int ba = DeutschVergleichen(b, a);
                QVERIFY2((ab < 0) == (ba > 0) && (ab == 0) == (ba == 0), qPrintable(a + " / " + b));
                QCOMPARE(ab == 0, a.compare(b, Qt::CaseInsensitive) == 0);
            }
        std::sort(proben.begin(), proben.end(),
                  [](const QString& a, const QString& b) { return DeutschVergleichen(a, b) < 0; });
        for (int i = 0; i < proben.size(); ++i)
            for (int j = i + 1; j < proben.size(); ++j)
                QVERIFY2(DeutschVergleichen(proben[i], proben[j]) <= 0,
                         qPrintable(proben[i] + " / " + proben[j]));
    }

    void jetFunktionen()
    {
        auto db = Datenbank::oeffnen(katalogMit());
        auto wert = [&](const QString& ausdruck) { return abfragen(*db, "select " + ausdruck); };
        // Each value as text; "NULL" for a null.
        const QList<QPair<const char*, const char*>> faelle = {
            {"ucase('Straße ärger')", "STRAßE ÄRGER"}, {"lcase('ÄRZTE')", "ärzte"},
            {"len('Ärzte')", "5"}, {"len(1234)", "4"}, {"len(NULL)", "NULL"},
            {"left('Ärzte', 2)", "Är"}, {"LEFT ('Abc', 9)", "Abc"}, {"left('Abc', 0)", ""},
            {"right('Abcdé', 2)", "dé"}, {"right('Abc', 7)", "Abc"},
            {"left('Abcd', 2.5)", "Ab"}, // half to even
            {"mid('Abcdef', 2, 3)", "bcd"}, {"mid('Abcdef', 4)", "def"}, {"mid('Abc', 9)", ""},
            {"mid('Abc', 2, 0)", ""}, {"instr('Hallo', 'L')", "3"}, {"instr(4, 'Hallo', 'l')", "4"},
            {"instr(5, 'Hallo', 'l')", "0"}, {"instr('Hallo', 'x')", "0"}, {"instr('', 'x')", "0"},
            {"instr(3, 'Hallo', '')", "3"}, {"instr('Mädchen', 'Ä')", "2"},
            {"instr(NULL, 'x')", "NULL"}, {"trim('  a b  ')", "a b"},
            {"trim(char(9) || 'a')", "\ta"}, {"nz(NULL)", ""}, {"nz(NULL, 'leer')", "leer"},
            {"nz('voll', 'leer')", "voll"}, {"val(' 1 2 3abc')", "123"}, {"val('abc')", "0"},
            {"val('')", "0"}, {"val('-1.5e2x')", "-150"}, {"val('1,5')", "1"}, {"val('.5')", "0.5"},
            {"val('2e')", "2"}, {"val('&HFF')", "255"}, {"val('&HFFFF')", "-1"},
            {"val('&O17')", "15"}, {"val(42)", "42"},
        };
        for (const auto& [ausdruck, erwartet] : faelle) {
            const QVariant v = wert(ausdruck);
            QCOMPARE(v.isValid() ? v.toString() : u"NULL"_s, QString::fromUtf8(erwartet));
        }
        // Wrong arguments are errors of the statement, not crashes.
        for (const char* falsch : {"left('abc', -1)", "mid('abc', 0)", "mid('abc', 1, -1)",
                                   "instr(0, 'abc', 'a')", "left('abc', 'x')"}) {
            QString text;
            QCOMPARE(fehlernummer([&] { wert(falsch); }, &text), sql(SQLITE_ERROR));
            QVERIFY(!text.isEmpty());
        }

        // left( and right( become callable; literals, quoted names and joins stay.
        QCOMPARE(JetSyntaxAnpassen("select left(Band, 1), Right (x,2) from t"),
                 QString("select \"left\"(Band, 1), \"right\" (x,2) from t"));
        for (const char* gleich : {"select 'left(' from t left join u on 1",
                                   "select [left](x) -- left(\nfrom t", "select leftover(x)"})
            QCOMPARE(JetSyntaxAnpassen(gleich), QString(gleich));
        QCOMPARE(abfragen(*db,
                          "select count(*) from Schallplatten s left join Schallplatten t "
                          "on s.rowid = t.rowid where left(s.Band, 1) = ' '")
                     .toInt(),
                 1);
    }

    void execute()
    {
        const QString pfad = katalogMit({"Abba", "abba", "Cream", "Ärzte"});
        auto db = Datenbank::oeffnen(pfad);
        QCOMPARE(db->Execute("update Schallplatten set Stil = 'Pop' where Band = 'ABBA'"), 2);
        QCOMPARE(db->Execute("update Schallplatten set Stil = 'x' where Band = 'nichts'"), 0);
        QCOMPARE(db->Execute("delete from Schallplatten where Band like 'c*'"), 1);
        QCOMPARE(db->Execute("create table Hilfe (a text)"), 0);
        QCOMPARE(db->Execute("insert into Hilfe values ('1'), ('2')"), 2);
        QCOMPARE(KatalogSpalte(pfad, "Stil"), QStringList({"Pop", "Pop", " "}));

        QString text;
        QCOMPARE(fehlernummer([&] { db->Execute("select * from Schallplatten"); }, &text), 3065);
        QVERIFY(text.contains("Auswahlabfrage"));
        QCOMPARE(fehlernummer([&] { db->Execute("updte Schallplatten set Band = 1"); }, &text),
                 sql(SQLITE_ERROR));
        QVERIFY(text.contains("syntax error"));
        QCOMPARE(fehlernummer([&] { db->Execute("   "); }), sql(SQLITE_ERROR));
        // Several statements are one: the second fails, the first is undone.
        QVERIFY(fehlernummer(
            [&] { db->Execute("delete from Hilfe; insert into Keine values (1)"); }));
        QCOMPARE(abfragen(*db, "select count(*) from Hilfe").toInt(), 2);
        QCOMPARE(db->Execute("delete from Hilfe where a = '1'; delete from Hilfe where a = '2';"),
                 2);
        // This pragma would bring back SQLite's own like() with "%".
        db->Execute("pragma case_sensitive_like = 1");
        QCOMPARE(abfragen(*db, "select count(*) from Schallplatten where Band like 'ä*'").toInt(),
                 1);
    }

    void oeffnenUndVorlage()
    {
        const QString pfad = katalogMit();
        auto db = Datenbank::oeffnen(pfad);
        QCOMPARE(db->Spalten("Schallplatten"), k_spalten);
        QVERIFY(db->Spalten("Keine").isEmpty());
        QVERIFY(!db->schreibgeschuetzt());
        QCOMPARE(abfragen(*db, "select journal_mode from pragma_journal_mode").toString(),
                 u"delete"_s);
        Recordset rs(*db, "select * from Schallplatten order by Band, LPTitel");
        QVERIFY(rs.Updatable());
        QCOMPARE(rs.FieldNames(), k_spalten);
        QCOMPARE(rs.RecordCount(), 1);
        QCOMPARE(rs.FieldIndex("lptitel"), 1);
        QCOMPARE(rs.FieldIndex("Keine"), -1);

        const QString ordner = Testordner("oeffnen");
        for (const QString& fehlt : {ordner + "fehlt.db", QString()})
            QCOMPARE(fehlernummer([&] { Datenbank::oeffnen(fehlt); }),
                     Fehlernummer::DateiNichtGefunden);

        // A text file under a database name fails at once, with SQLite's message.
        const QByteArray prosa("Das ist keine Datenbank, nur Text.\n");
        DateiSchreiben(ordner + "text.db", prosa);
        QString text;
        QCOMPARE(fehlernummer([&] { Datenbank::oeffnen(ordner + "text.db"); }, &text),
                 sql(SQLITE_NOTADB));
        QVERIFY2(text.contains("file is not a database"), qPrintable(text));
        QCOMPARE(DateiLesen(ordner + "text.db"), prosa);
        // An empty file would silently become a new database.
        DateiSchreiben(ordner + "leer.db", QByteArray());
        QVERIFY(fehlernummer([&] { Datenbank::oeffnen(ordner + "leer.db"); }) != 0);
        QCOMPARE(QFileInfo(ordner + "leer.db").size(), 0);

        // An old Jet file is refused by name and left alone.
        for (const char* kennung : {"Standard Jet DB", "Standard ACE DB"}) {
            QByteArray jet(4096, '\0');
            jet.replace(4, 15, kennung);
            DateiSchreiben(ordner + "Archiv.mdb", jet);
            QVERIFY(IstJetDatei(ordner + "Archiv.mdb"));
            QCOMPARE(fehlernummer([&] { Datenbank::oeffnen(ordner + "Archiv.mdb"); }, &text),
                     sql(SQLITE_NOTADB));
            QVERIFY(text.contains(ordner + "Archiv.mdb") && text.contains("Jet"));
            QCOMPARE(DateiLesen(ordner + "Archiv.mdb"), jet);
        }
        QVERIFY(!IstJetDatei(pfad) && !IstJetDatei(ordner + "fehlt.mdb"));

        // An old catalogue without Bewertung is read and written.
        const QString alt = katalogMit({"Zappa", "Abba"});
        KatalogAusfuehren(alt, "alter table Schallplatten drop column Bewertung");
        auto altDb = Datenbank::oeffnen(alt);
        Recordset altRs(*altDb, "select * from Schallplatten order by Band, LPTitel");
        QVERIFY(!altRs.Value("Bewertung").isValid());
        altRs.setValue("Bewertung", "5"); // no such column: ignored
        altRs.setValue("LPTitel", "Voulez-Vous");
        altRs.Update();
        altRs.AddNew();
        altRs.setValue("Band", "Cream");
        altRs.Update();
        QCOMPARE(stand(altRs), u"3 @2 Cream"_s);
        QCOMPARE(KatalogSpalte(alt, "LPTitel"), QStringList({"Titel 1", "Voulez-Vous", ""}));
        QCOMPARE(abfragen(*altDb, "select count(*) from Schallplatten where Band like 'c*'")
                     .toInt(),
                 1);
    }

    void beschaedigteDateien()
    {
        const QString ordner = Testordner("kaputt");
        QStringList bands;
        for (int i = 0; i < 600; ++i)
            bands << QStringLiteral("Band %1 ").arg(i) + QString(300, QChar(u'a' + i % 26));
        const QByteArray inhalt = DateiLesen(katalogMit(bands));
        QRandomGenerator zufall(99);
        QByteArray rauschen(20000, '\0');
        for (char& c : rauschen)
            c = char(zufall.bounded(256));

        const QList<QByteArray> faelle = {
            rauschen,
            QByteArray("SQLite format 3") + '\0' + rauschen,
            inhalt.left(60),
            inhalt.left(4096),
            inhalt.left(inhalt.size() / 2),
            inhalt.left(inhalt.size() - 4096),
            inhalt.left(8192) + rauschen + inhalt.mid(8192 + rauschen.size()),
        };
        int n = 0;
        for (const QByteArray& fall : faelle) {
            const QString pfad = ordner + QStringLiteral("f%1.db").arg(n++);
            DateiSchreiben(pfad, fall);
            // Any of these steps may fail with a Laufzeitfehler; none may crash.
            try {
                auto db = Datenbank::oeffnen(pfad);
                Recordset rs(*db, "select * from Schallplatten order by Band, LPTitel");
                for (int z = 0; z < rs.RecordCount(); ++z)
                    for (int k = 0; k < rs.FieldCount(); ++k)
                        rs.Wert(z, k);
                rs.MoveLast();
                rs.setValue("Band", "neu");
                rs.Update();
            } catch (const Laufzeitfehler& f) {
                QVERIFY(f.Nummer > 0);
            }
        }
    }

    void navigation()
    {
        auto db = Datenbank::oeffnen(katalogMit({"E", "D", "C", "B", "A"}));
        Recordset rs(*db, "select * from Schallplatten order by Band");
        QCOMPARE(stand(rs), u"5 @0 A"_s);
        // Behind the last and before the first there is no record; a second step stays.
        const QList<QPair<void (Recordset::*)(), const char*>> schritte = {
            {&Recordset::MoveNext, "5 @1 B"},        {&Recordset::MoveLast, "5 @4 E"},
            {&Recordset::MoveNext, "5 @-1 EOF"},     {&Recordset::MoveNext, "5 @-1 EOF"},
            {&Recordset::MovePrevious, "5 @4 E"},    {&Recordset::MoveFirst, "5 @0 A"},
            {&Recordset::MovePrevious, "5 @-1 BOF"}, {&Recordset::MoveNext, "5 @0 A"},
        };
        for (const auto& [schritt, erwartet] : schritte) {
            (rs.*schritt)();
            QCOMPARE(stand(rs), QString(erwartet));
        }

        // Positions and bookmarks out of range change nothing.
        rs.setAbsolutePosition(3);
        const qint64 merke = rs.Bookmark();
        for (int falsch : {-1, 5, 100})
            rs.setAbsolutePosition(falsch);
        QVERIFY(!rs.setBookmark(999999));
        QCOMPARE(stand(rs), u"5 @3 D"_s);
        rs.MoveFirst();
        QVERIFY(rs.setBookmark(merke));
        QCOMPARE(rs.AbsolutePosition(), 3);
        QVERIFY(rs.RowId(5) == -1 && !rs.Wert(5, 0).isValid() && !rs.Wert(0, 99).isValid());

        // Filters and a bare table name are updatable; an empty result has no record.
        Recordset filter(
            *db, "select * from Schallplatten where Band like '[a-b]*' order by Band DESC;");
        Recordset tabelle(*db, "Schallplatten");
        QVERIFY(filter.Updatable() && tabelle.Updatable());
        QCOMPARE(spalteLesen(filter, "Band"), QStringList({"B", "A"}));
        QCOMPARE(spalteLesen(tabelle, "Band"), QStringList({"E", "D", "C", "B", "A"}));
        Recordset leer(*db, "select * from Schallplatten where Band = 'X'");
        QCOMPARE(stand(leer), u"0 @-1 BOF EOF"_s);
        leer.MoveNext();
        leer.MoveLast();
        QCOMPARE(stand(leer), u"0 @-1 BOF EOF"_s);
        QCOMPARE(fehlernummer([&] { leer.Delete(); }), 3021);
        for (const char* falsch :
             {"select * from Fehlt", "select * from Schallplatten order by Keine"})
            QVERIFY(fehlernummer([&] { Recordset(*db, falsch); }) != 0);

        // Any other statement is read as a whole and cannot be changed; its bookmarks are
        // positions.
        db->Execute("insert into Schallplatten (Band) values ('a'), ('Ä')");
        Recordset rs2(
            *db, "select Band, count(*) as Anzahl from Schallplatten group by Band order by Band");
        QVERIFY(!rs2.Updatable());
        QCOMPARE(rs2.FieldNames(), QStringList({"Band", "Anzahl"}));
        QCOMPARE(rs2.RecordCount(), 6);
        QCOMPARE(rs2.Wert(0, 1).toInt(), 2);
        QCOMPARE(rs2.Wert(1, 0).toString(), u"Ä"_s);
        rs2.setAbsolutePosition(2);
        QCOMPARE(rs2.Value("anzahl").toInt(), 1);
        QCOMPARE(rs2.Bookmark(), 2);
        rs2.MoveFirst();
        QVERIFY(rs2.setBookmark(2));
        QCOMPARE(rs2.AbsolutePosition(), 2);
        rs2.setValue("Band", "x");
        QVERIFY(!rs2.EditPending());
        QCOMPARE(fehlernummer([&] { rs2.AddNew(); }), sql(SQLITE_READONLY));
        QCOMPARE(fehlernummer([&] { rs2.Delete(); }), sql(SQLITE_READONLY));
        // Joins and aliases are read as a whole too.
        Recordset verbund(
            *db, "select * from Schallplatten a join Schallplatten b on a.rowid = b.rowid");
        QVERIFY(!verbund.Updatable());
        QCOMPARE(verbund.RecordCount(), 7);
        // An action query is no record source and changes nothing.
        QCOMPARE(fehlernummer([&] { Recordset(*db, "delete from Schallplatten"); }), 3219);
        QCOMPARE(abfragen(*db, "select count(*) from Schallplatten").toInt(), 7);
    }

    void bearbeiten()
    {
        const QString pfad = katalogMit({"A", "B", "C", "D"});
        auto db = Datenbank::oeffnen(pfad);
        Recordset rs(*db, "select * from Schallplatten order by Band");
        QList<int> geaendert, angehaengt, entfernt;
        rs.zeileGeaendert = [&](int z) { geaendert << z; };
        rs.zeileAngehaengt = [&](int z) { angehaengt << z; };
        rs.zeileEntfernt = [&](int z) { entfernt << z; };

        // Putting back the stored value is no edit.
        rs.setValue("Band", "A");
        QVERIFY(!rs.EditPending());
        // An edit is seen at once and written by the move, not before.
        rs.setValue("LPTitel", "Neu");
        QCOMPARE(rs.Value("LPTitel").toString(), u"Neu"_s);
        QCOMPARE(rs.Wert(0, 1).toString(), u"Titel 1"_s);
        QCOMPARE(KatalogSpalte(pfad, "LPTitel").value(0), u"Titel 1"_s);
        QCOMPARE(stand(rs), u"4 @0 A *"_s);
        rs.MoveNext();
        QCOMPARE(stand(rs), u"4 @1 B"_s);
        QCOMPARE(KatalogSpalte(pfad, "LPTitel").value(0), u"Neu"_s);
        QCOMPARE(rs.Wert(0, 1).toString(), u"Neu"_s);
        QCOMPARE(geaendert, QList<int>({0}));
        rs.setValue("Stil", "Rock");
        rs.CancelUpdate();
        QVERIFY(!rs.Value("Stil").toString().contains("Rock"));

        // A new record: empty while pending, appended and current when written.
        rs.MoveLast();
        rs.AddNew();
        QCOMPARE(stand(rs), u"4 @-1 *"_s);
        rs.setValue("Band", "Ärzte");
        rs.setValue("Preis", 12);
        rs.Update();
        QCOMPARE(stand(rs), u"5 @4 Ärzte"_s);
        QCOMPARE(rs.Value("Preis").toString(), u"12"_s);
        QCOMPARE(angehaengt, QList<int>({4}));
        // A new record written by a move: the move starts where AddNew began.
        rs.setAbsolutePosition(1);
        rs.AddNew();
        rs.setValue("Band", "Zappa");
        rs.MoveNext();
        QCOMPARE(stand(rs), u"6 @2 C"_s);
        QCOMPARE(rs.Wert(5, 0).toString(), u"Zappa"_s);
        // A new record left without fields is still a row.
        rs.AddNew();
        rs.AddNew(); // the first is written, the second pending
        rs.CancelUpdate();
        QCOMPARE(stand(rs), u"7 @2 C"_s);

        // Delete: the position points at the next record, or at the last one; a pending
        // new record is dropped.
        rs.setAbsolutePosition(1);
        rs.Delete();
        QCOMPARE(stand(rs), u"6 @1 C"_s);
        QCOMPARE(entfernt, QList<int>({1}));
        rs.MoveLast();
        rs.Delete();
        rs.AddNew();
        rs.setValue("Band", "weg");
        rs.Delete();
        QCOMPARE(stand(rs), u"5 @4 Zappa"_s);
        QCOMPARE(KatalogSpalte(pfad, "Band"), QStringList({"A", "C", "D", "Ärzte", "Zappa"}));

        // Pictures are read for the asked row alone and written like any value.
        const QByteArray png = QByteArray("\x89PNG\r\n", 6) + QByteArray(5000, '\x01');
        const int bilder = rs.FieldIndex("Bilder");
        rs.MoveFirst();
        rs.setValue("Bilder", png);
        rs.Update();
        QCOMPARE(rs.Wert(0, bilder).toByteArray(), png);
        QVERIFY(!rs.Wert(1, bilder).isValid());
        QCOMPARE(rs.Value("Bilder").toByteArray(), png);
        // Apostrophes and nulls are stored as typed.
        rs.setValue("Info", "Rock 'n' Roll");
        rs.setValue("eBook", QVariant());
        rs.Update();
        QCOMPARE(KatalogSpalte(pfad, "Info").value(0), u"Rock 'n' Roll"_s);
        QVERIFY(!rs.Value("eBook").isValid());

        // An edit of a record deleted past the recordset is reported, not dropped silently.
        rs.MoveLast();
        rs.setValue("Band", "verwaist");
        db->Execute(
            QStringLiteral("delete from Schallplatten where rowid = %1").arg(rs.Bookmark()));
        QCOMPARE(fehlernummer([&] { rs.Update(); }), 3167);
        QVERIFY(!rs.EditPending() && !rs.Value("Band").isValid());
    }

    void schreibfehler()
    {
        const QString pfad = katalogMit({"A", "B"});
        const bool root = ::geteuid() == 0;
        if (!root)
            QFile::setPermissions(pfad, QFile::ReadOwner);
        auto db = Datenbank::oeffnen(pfad);
        if (root)
            sqlite3_exec(db->handle(), "PRAGMA query_only = 1", nullptr, nullptr, nullptr);
        else
            QVERIFY(db->schreibgeschuetzt());
        Recordset rs(*db, "select * from Schallplatten order by Band");
        rs.setValue("Band", "Getippt");
        QString text;
        QCOMPARE(fehlernummer([&] { rs.Update(); }, &text), sql(SQLITE_READONLY));
        QVERIFY2(text.contains("schreibgeschützt") && text.contains(DateinameAusPfad(pfad)),
                 qPrintable(text));
        QCOMPARE(stand(rs), u"2 @0 Getippt *"_s);
        // Neither a move nor a delete leaves the record, and AddNew, which writes the
        // pending edit first, fails as well: the edit stays.
        QVERIFY(fehlernummer([&] { rs.MoveNext(); }) != 0);
        QVERIFY(fehlernummer([&] { rs.Delete(); }) != 0);
        QVERIFY(fehlernummer([&] { rs.AddNew(); }) != 0);
        QCOMPARE(stand(rs), u"2 @0 Getippt *"_s);
        rs.CancelUpdate();
        rs.AddNew();
        rs.setValue("Band", "Neu");
        QVERIFY(fehlernummer([&] { rs.Update(); }) != 0);
        QCOMPARE(stand(rs), u"2 @-1 Neu *"_s);
        QCOMPARE(KatalogSpalte(pfad, "Band"), QStringList({"A", "B"}));

        // Writable again: the kept edit goes in.
        if (!root)
            return;
        sqlite3_exec(db->handle(), "PRAGMA query_only = 0", nullptr, nullptr, nullptr);
        rs.Update();
        QCOMPARE(stand(rs), u"3 @2 Neu"_s);
        QCOMPARE(KatalogSpalte(pfad, "Band"), QStringList({"A", "B", "Neu"}));

        // A full disk, likewise.
        const int seiten = abfragen(*db, "pragma page_count").toInt();
        sqlite3_exec(db->handle(),
                     QStringLiteral("PRAGMA max_page_count = %1").arg(seiten).toUtf8(), nullptr,
                     nullptr, nullptr);
        rs.setValue("Songs", QString(100000, u'x'));
        QCOMPARE(fehlernummer([&] { rs.Update(); }, &text), sql(SQLITE_FULL));
        QVERIFY2(text.contains("voll"), qPrintable(text));
        QCOMPARE(rs.Value("Songs").toString().size(), 100000);
        QCOMPARE(KatalogSpalte(pfad, "max(length(Songs))"), QStringList{"1"});
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
            rs.setAbsolutePosition(position);
            rs.Delete();
            erwartet.removeAt(position);
            QCOMPARE(rs.Value(0).toString(), erwartet.at(position));
        }
        // Appends, read back while the last block is cached.
        rs.MoveLast();
        for (int i = 0; i < B + 5; ++i) {
            rs.AddNew();
            rs.setValue("Band", QStringLiteral("Neu %1").arg(i));
            rs.Update();
            erwartet << QStringLiteral("Neu %1").arg(i);
            QCOMPARE(rs.Wert(rs.RecordCount() - 1, 0).toString(), erwartet.last());
        }
        QCOMPARE(spalteLesen(rs, "Band"), erwartet);
        // Every row id is the row's identity.
        for (int z = 0; z < rs.RecordCount(); z += 97)
            QCOMPARE(rs.Position(rs.RowId(z)), z);

        // A write past the recordset (the search's Execute) is seen at the next read.
        rs.Wert(10, 0);
        db->Execute("update Schallplatten set Stil = 'geändert' where Band = '" + erwartet.at(10)
                    + u'\'');
        QCOMPARE(rs.Wert(10, 3).toString(), u"geändert"_s);
        // Rows deleted past the recordset read empty until the next refresh.
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

        QCOMPARE(laden(data1, erste, "select * from Schallplatten order by Band, LPTitel"), 0);
        QCOMPARE(folge, QStringList({"neuAufgebaut", "Reposition"}));
        QCOMPARE(jetzt(), u"3 @0 A"_s);
        Datenbank* verbindung = data1.database();

        // Validate comes before each move, so that bound edits are written by it.
        folge.clear();
        auto bindung = connect(&data1, &Datensteuerung::Validate,
                               [&] { data1.recordset()->setValue("Info", "vom Feld"); });
        data1.setAbsolutePosition(2);
        QCOMPARE(folge, QStringList({"Validate", "Reposition"}));
        QCOMPARE(KatalogSpalte(erste, "Info"), QStringList({" ", "vom Feld", " "}));
        QCOMPARE(jetzt(), u"3 @2 C"_s);
        disconnect(bindung);
        folge.clear();
        data1.setAbsolutePosition(7);
        data1.setAbsolutePosition(-1);
        QVERIFY(folge.isEmpty());
        // The buttons first, previous, next, last; next on the last and previous on the
        // first stay where they are.
        const auto knoepfe = data1.findChildren<QToolButton*>();
        QCOMPARE(knoepfe.size(), 4);
        for (const auto& [knopf, ziel] :
             {std::pair{3, 2}, {2, 2}, {1, 1}, {0, 0}, {1, 0}, {2, 1}}) {
            knoepfe.at(knopf)->click();
            QCOMPARE(data1.recordset()->AbsolutePosition(), ziel);
        }

        // Refresh writes a pending edit and starts at the first record again; the same
        // name keeps the connection.
        data1.recordset()->setValue("Medium", "LP");
        folge.clear();
        data1.Refresh();
        QCOMPARE(folge, QStringList({"Validate", "neuAufgebaut", "Reposition"}));
        QCOMPARE(KatalogSpalte(erste, "Medium"), QStringList({" ", " ", "LP"}));
        QCOMPARE(jetzt(), u"3 @0 A"_s);
        QCOMPARE(data1.database(), verbindung);

        // A failing source leaves no recordset, the control stays usable.
        folge.clear();
        QVERIFY(laden(data1, erste, "select * from Schallplatten order by Keine") != 0);
        QCOMPARE(jetzt(), u"-"_s);
        QVERIFY(folge.contains("neuAufgebaut"));
        data1.naechsterDatensatz();
        data1.setAbsolutePosition(0);
        QCOMPARE(laden(data1, erste, "Schallplatten"), 0);
        QCOMPARE(jetzt(), u"3 @0 C"_s);

        // Another name opens the other file; an empty source leaves no recordset.
        QCOMPARE(laden(data1, zweite, "select * from Schallplatten order by Band"), 0);
        QCOMPARE(jetzt(), u"2 @0 X"_s);
        QCOMPARE(laden(data1, zweite, QString()), 0);
        QVERIFY(data1.database() && !data1.recordset());

        // An empty name closes; so does schliessen, after writing the edit.
        folge.clear();
        QCOMPARE(laden(data1, QString(), "Schallplatten"), 0);
        QVERIFY(!data1.database() && !data1.recordset());
        QCOMPARE(folge, QStringList({"neuAufgebaut", "Reposition"}));
        QCOMPARE(laden(data1, zweite, "Schallplatten"), 0);
        data1.recordset()->setValue("Stil", "Jazz");
        data1.schliessen();
        QVERIFY(!data1.database() && !data1.recordset());
        QCOMPARE(KatalogSpalte(zweite, "Stil"), QStringList({"Jazz", " "}));
        // A missing file: error 53, and no recordset.
        QCOMPARE(laden(data1, Testordner("fehlt") + "nichts.db", "Schallplatten"),
                 Fehlernummer::DateiNichtGefunden);
        QVERIFY(!data1.database() && !data1.recordset());
        // A move that cannot write its edit shows the error and stays.
        QCOMPARE(laden(data1, erste, "Schallplatten"), 0);
        sqlite3_exec(data1.database()->handle(), "PRAGMA query_only = 1", nullptr, nullptr,
                     nullptr);
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
