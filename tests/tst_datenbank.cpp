// The catalogue layer: the Jet dialect on SQLite, the recordset and the data control.
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

namespace {

const QStringList k_spalten = {"Band",         "LPTitel",   "Medium",       "Stil",  "Info",
                               "Plattenfirma", "BestellNr", "Preis",        "Datum", "Songs",
                               "BildPfad",     "Musikpfad", "SongText",     "eBook", "Bewertung",
                               "InternetTab",  "InfoTab",   "SonstigesTab", "Bilder"};

int s_zaehler = 0;

// A fresh copy of the template catalogue.
QString vorlageKopieren()
{
    const QString pfad
        = Testordner(QStringLiteral("kataloge")) + QStringLiteral("k%1.db").arg(++s_zaehler);
    QFile::remove(pfad);
    if (!QFile::copy(QStringLiteral(":/resources/programmordner/Archiv_leer.db"), pfad))
        qFatal("template catalogue missing");
    QFile::setPermissions(pfad, QFile::ReadOwner | QFile::WriteOwner);
    return pfad;
}

QString zitat(const QString& text)
{
    QString t = text;
    return u'\'' + t.replace(u'\'', QStringLiteral("''")) + u'\'';
}

// A catalogue whose rows have these bands (title "T<i>").
QString katalogMit(const QStringList& bands)
{
    const QString pfad = vorlageKopieren();
    auto db = Datenbank::oeffnen(pfad);
    db->Execute(QStringLiteral("delete from Schallplatten"));
    db->Execute(QStringLiteral("begin"));
    for (int i = 0; i < bands.size(); ++i)
        db->Execute(QStringLiteral("insert into Schallplatten (Band, LPTitel) values (%1, 'T%2')")
                        .arg(zitat(bands.at(i)))
                        .arg(i));
    db->Execute(QStringLiteral("commit"));
    return pfad;
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

// A value read past our connection, as another program sees the file.
QString fremdLesen(const QString& pfad, const char* sql)
{
    sqlite3* db = nullptr;
    sqlite3_open_v2(QFile::encodeName(pfad).constData(), &db, SQLITE_OPEN_READONLY, nullptr);
    sqlite3_stmt* st = nullptr;
    QString ergebnis = QStringLiteral("<fehler>");
    if (sqlite3_prepare_v2(db, sql, -1, &st, nullptr) == SQLITE_OK
        && sqlite3_step(st) == SQLITE_ROW)
        ergebnis = QString::fromUtf8(reinterpret_cast<const char*>(sqlite3_column_text(st, 0)));
    sqlite3_finalize(st);
    sqlite3_close(db);
    return ergebnis;
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

} // namespace

class TestDatenbank : public QObject {
    Q_OBJECT
private slots:
    void jetLike()
    {
        // Umlauts match in either case, but never their base letter.
        QVERIFY(JetLike("ä*", "Ärzte"));
        QVERIFY(JetLike("ä*", "ärger"));
        QVERIFY(JetLike("Ä*", "ärger"));
        QVERIFY(!JetLike("ä*", "Abba"));
        QVERIFY(!JetLike("a*", "Ärzte"));
        QVERIFY(JetLike("a*", "ABBA"));
        QVERIFY(JetLike("*ÖL*", "Heizöl"));
        QVERIFY(JetLike("straße", "STRAßE"));
        QVERIFY(!JetLike("strasse", "Straße"));
        QVERIFY(JetLike("ß*", "ßaß"));
        // Lists, ranges and their negation, also with umlauts.
        QVERIFY(!JetLike("[!a]*", "Abba"));
        QVERIFY(JetLike("[!a]*", "Ärzte"));
        QVERIFY(JetLike("[!a]*", "Zappa"));
        QVERIFY(JetLike("[a-c]*", "Beatles"));
        QVERIFY(!JetLike("[a-c]*", "ärger"));
        QVERIFY(JetLike("[äöü]ber", "Über"));
        QVERIFY(!JetLike("[!äöü]ber", "Über"));
        QVERIFY(JetLike("[-x]", "-"));
        QVERIFY(JetLike("[*]*", "*stern"));
        QVERIFY(!JetLike("[*]*", "stern"));
        QVERIFY(JetLike("a[]b", "ab"));
        QVERIFY(JetLike("[abc", "[abc")); // an open list is a literal "["
        // Digits and single characters.
        QVERIFY(JetLike("#*", "7 Tage"));
        QVERIFY(!JetLike("#*", "Sieben"));
        QVERIFY(JetLike("19##", "1984"));
        QVERIFY(!JetLike("19##", "19x4"));
        QVERIFY(JetLike("?rzte", "Ärzte"));
        QVERIFY(!JetLike("?", ""));
        QVERIFY(JetLike("*", ""));
        QVERIFY(JetLike("", ""));
        QVERIFY(!JetLike("", "a"));
        QVERIFY(JetLike("*a", "bana"));
        QVERIFY(!JetLike("*a", "banan"));
        QVERIFY(JetLike("1", "1"));
        QVERIFY(!JetLike("1", "11"));
        // The song search: "?" stands for the apostrophe of the RTF escape.
        QVERIFY(JetLike("*\\?e4*", "{\\rtf1\\ansi 1. M\\'e4dchen\\par}"));
        QVERIFY(!JetLike("*\\?e4*", "{\\rtf1\\ansi 1. M\\'e5dchen\\par}"));
        QVERIFY(JetLike("*m\\?e4dchen*", "1. M\\'e4DCHEN"));
        // No exponential backtracking.
        const QString lang(4000, u'a');
        QElapsedTimer uhr;
        uhr.start();
        QVERIFY(!JetLike("*a*a*a*a*a*b", lang));
        QVERIFY(uhr.elapsed() < 2000);
        // Bytes that are no UTF-8 neither crash nor match wrongly.
        QVERIFY(JetLikeUtf8("*", 1, "\xff\xfe", 2));
        QVERIFY(JetLikeUtf8("?", 1, "\xc3", 1));
        // The escape of the three-argument form.
        QVERIFY(JetLikeUtf8("100!*", 5, "100*", 4, U'!'));
        QVERIFY(!JetLikeUtf8("100!*", 5, "1000", 4, U'!'));
    }

    void likeInSql()
    {
        const QString pfad = katalogMit({"Ärzte", "Abba", "Zappa", "ärger", "7 Tage", "Über"});
        auto db = Datenbank::oeffnen(pfad);
        auto zaehlen = [&](const QString& bedingung) {
            return abfragen(*db, "select count(*) from Schallplatten where " + bedingung).toInt();
        };
        QCOMPARE(zaehlen("Band like 'ä*'"), 2);
        QCOMPARE(zaehlen("Band like 'a*' or Band like 'ä*'"), 3);
        QCOMPARE(zaehlen("Band like '[!a]*'"), 5);
        QCOMPARE(zaehlen("Band like '#*'"), 1);
        QCOMPARE(zaehlen("Band not like '*e*'"), 2);
        QCOMPARE(zaehlen("Band like 'ü*'"), 1);
        QCOMPARE(zaehlen("Band like '%'"), 0); // "%" is no wild card in Jet
        QCOMPARE(zaehlen("Band like 'a!*' escape '!'"), 0);
        QCOMPARE(zaehlen("Band = 'ABBA'"), 1);
        QCOMPARE(zaehlen("Band = 'ärzte'"), 1);
        QCOMPARE(zaehlen("Band = 'arzte'"), 0);
        QCOMPARE(zaehlen("Band like NULL"), 0);
        QCOMPARE(fehlernummer([&] { zaehlen("Band like 'a' escape 'xy'"); }),
                 Fehlernummer::DatenbankBasis + SQLITE_ERROR);
    }

    void deutscheSortierung()
    {
        const QString pfad = katalogMit({"Ärzte", "Abba", "Zappa", "ärger"});
        auto db = Datenbank::oeffnen(pfad);
        Recordset rs(*db, "select * from Schallplatten order by Band");
        QCOMPARE(spalteLesen(rs, "Band"), QStringList({"Abba", "ärger", "Ärzte", "Zappa"}));
        Recordset ab(*db, "select * from Schallplatten order by Band DESC");
        QCOMPARE(spalteLesen(ab, "Band"), QStringList({"Zappa", "Ärzte", "ärger", "Abba"}));

        QCOMPARE(DeutschVergleichen("ABBA", "abba"), 0);
        QCOMPARE(DeutschVergleichen("Ärzte", "ärzte"), 0);
        QVERIFY(DeutschVergleichen("a", "ä") < 0);
        QVERIFY(DeutschVergleichen("ä", "b") < 0);
        QVERIFY(DeutschVergleichen("Äb", "ac") < 0);
        QVERIFY(DeutschVergleichen("ss", "ß") < 0);
        QVERIFY(DeutschVergleichen("ß", "st") < 0);
        QVERIFY(DeutschVergleichen("Éclat", "Ecstasy") < 0);
        QVERIFY(DeutschVergleichen("", " ") < 0);
        QVERIFY(DeutschVergleichen(" ", "0") < 0);
        QVERIFY(DeutschVergleichen("9", "A") < 0);

        // A total order on samples: antisymmetric, transitive, equal exactly up to case.
        const QStringList zeichen
            = {"a", "A", "ä", "Ä", "b", "s", "S", "ß", " ", "é", "1", "z", "ö", "Ö", "e"};
        QRandomGenerator zufall(4711);
        QStringList proben;
        for (int i = 0; i < 250; ++i) {
            QString p;
            const int laenge = int(zufall.bounded(6));
            for (int k = 0; k < laenge; ++k)
                p += zeichen.at(int(zufall.bounded(zeichen.size())));
            proben << p;
        }
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

        // Equal keys keep one fixed order: by rowid, in either direction.
        const QString gleich = katalogMit({"abba", "ABBA", "Abba", "Cream"});
        auto db2 = Datenbank::oeffnen(gleich);
        Recordset auf(*db2, "select * from Schallplatten order by Band ASC");
        Recordset ab2(*db2, "select * from Schallplatten order by Band DESC");
        QCOMPARE(spalteLesen(auf, "LPTitel"), QStringList({"T0", "T1", "T2", "T3"}));
        QCOMPARE(spalteLesen(ab2, "LPTitel"), QStringList({"T3", "T0", "T1", "T2"}));
        // Other programs still read and sort the file with their own NOCASE.
        QCOMPARE(fremdLesen(gleich, "select Band from Schallplatten order by Band desc limit 1"),
                 QString("Cream"));
    }

    void jetFunktionen()
    {
        auto db = Datenbank::oeffnen(vorlageKopieren());
        auto wert = [&](const QString& ausdruck) { return abfragen(*db, "select " + ausdruck); };
        QCOMPARE(wert("ucase('Straße ärger')").toString(), QString("STRAßE ÄRGER"));
        QCOMPARE(wert("lcase('ÄRZTE')").toString(), QString("ärzte"));
        QCOMPARE(wert("len('Ärzte')").toInt(), 5);
        QCOMPARE(wert("len(1234)").toInt(), 4);
        QVERIFY(!wert("len(NULL)").isValid());
        QCOMPARE(wert("left('Ärzte', 2)").toString(), QString("Är"));
        QCOMPARE(wert("LEFT ('Abc', 9)").toString(), QString("Abc"));
        QCOMPARE(wert("left('Abc', 0)").toString(), QString(""));
        QCOMPARE(wert("right('Abcdé', 2)").toString(), QString("dé"));
        QCOMPARE(wert("right('Abc', 7)").toString(), QString("Abc"));
        QCOMPARE(wert("left('Abcd', 2.5)").toString(), QString("Ab")); // half to even
        QCOMPARE(wert("mid('Abcdef', 2, 3)").toString(), QString("bcd"));
        QCOMPARE(wert("mid('Abcdef', 4)").toString(), QString("def"));
        QCOMPARE(wert("mid('Abc', 9)").toString(), QString(""));
        QCOMPARE(wert("mid('Abc', 2, 0)").toString(), QString(""));
        QCOMPARE(wert("instr('Hallo', 'L')").toInt(), 3);
        QCOMPARE(wert("instr(4, 'Hallo', 'l')").toInt(), 4);
        QCOMPARE(wert("instr(5, 'Hallo', 'l')").toInt(), 0);
        QCOMPARE(wert("instr('Hallo', 'x')").toInt(), 0);
        QCOMPARE(wert("instr('', 'x')").toInt(), 0);
        QCOMPARE(wert("instr(3, 'Hallo', '')").toInt(), 3);
        QCOMPARE(wert("instr('Mädchen', 'Ä')").toInt(), 2);
        QVERIFY(!wert("instr(NULL, 'x')").isValid());
        QCOMPARE(wert("trim('  a b  ')").toString(), QString("a b"));
        QCOMPARE(wert("trim(char(9) || 'a')").toString(), QString("\ta"));
        QCOMPARE(wert("nz(NULL)").toString(), QString(""));
        QCOMPARE(wert("nz(NULL, 'leer')").toString(), QString("leer"));
        QCOMPARE(wert("nz('voll', 'leer')").toString(), QString("voll"));
        QCOMPARE(wert("val(' 1 2 3abc')").toLongLong(), 123LL);
        QCOMPARE(wert("val('abc')").toInt(), 0);
        QCOMPARE(wert("val('')").toInt(), 0);
        QCOMPARE(wert("val('-1.5e2x')").toDouble(), -150.0);
        QCOMPARE(wert("val('1,5')").toDouble(), 1.0);
        QCOMPARE(wert("val('.5')").toDouble(), 0.5);
        QCOMPARE(wert("val('2e')").toDouble(), 2.0);
        QCOMPARE(wert("val('&HFF')").toInt(), 255);
        QCOMPARE(wert("val('&HFFFF')").toInt(), -1);
        QCOMPARE(wert("val('&O17')").toInt(), 15);
        QCOMPARE(wert("val(42)").toInt(), 42);
        // Wrong arguments are errors of the statement, not crashes.
        for (const char* falsch : {"left('abc', -1)", "mid('abc', 0)", "mid('abc', 1, -1)",
                                   "instr(0, 'abc', 'a')", "left('abc', 'x')"}) {
            QString text;
            QCOMPARE(fehlernummer([&] { wert(falsch); }, &text),
                     Fehlernummer::DatenbankBasis + SQLITE_ERROR);
            QVERIFY(!text.isEmpty());
        }

        // left( and right( become callable; literals, quoted names and joins stay.
        QCOMPARE(JetSyntaxAnpassen("select left(Band, 1), Right (x,2) from t"),
                 QString("select \"left\"(Band, 1), \"right\" (x,2) from t"));
        QCOMPARE(JetSyntaxAnpassen("select 'left(' from t left join u on 1"),
                 QString("select 'left(' from t left join u on 1"));
        QCOMPARE(JetSyntaxAnpassen("select [left](x) -- left(\nfrom t"),
                 QString("select [left](x) -- left(\nfrom t"));
        QCOMPARE(JetSyntaxAnpassen("select leftover(x)"), QString("select leftover(x)"));
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
        QCOMPARE(fremdLesen(pfad, "select count(*) from Schallplatten where Stil = 'Pop'"),
                 QString("2"));

        QString text;
        QCOMPARE(fehlernummer([&] { db->Execute("select * from Schallplatten"); }, &text), 3065);
        QVERIFY(text.contains("Auswahlabfrage"));
        QCOMPARE(fehlernummer([&] { db->Execute("updte Schallplatten set Band = 1"); }, &text),
                 Fehlernummer::DatenbankBasis + SQLITE_ERROR);
        QVERIFY(text.contains("syntax error"));
        QCOMPARE(fehlernummer([&] { db->Execute("   "); }),
                 Fehlernummer::DatenbankBasis + SQLITE_ERROR);
        // Several statements are one: the second fails, the first is undone.
        QVERIFY(
            fehlernummer([&] { db->Execute("delete from Hilfe; insert into Keine values (1)"); })
            != 0);
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
        const QString pfad = vorlageKopieren();
        auto db = Datenbank::oeffnen(pfad);
        QCOMPARE(db->Spalten("Schallplatten"), k_spalten);
        QVERIFY(db->Spalten("Keine").isEmpty());
        QVERIFY(!db->schreibgeschuetzt());
        QCOMPARE(abfragen(*db, "select journal_mode from pragma_journal_mode").toString(),
                 QString("delete"));
        Recordset rs(*db, "select * from Schallplatten order by Band, LPTitel");
        QVERIFY(rs.Updatable());
        QCOMPARE(rs.FieldNames(), k_spalten);
        QCOMPARE(rs.RecordCount(), 1);
        QCOMPARE(rs.FieldIndex("lptitel"), 1);
        QCOMPARE(rs.FieldIndex("Keine"), -1);

        const QString ordner = Testordner("oeffnen");
        QCOMPARE(fehlernummer([&] { Datenbank::oeffnen(ordner + "fehlt.db"); }),
                 Fehlernummer::DateiNichtGefunden);
        QCOMPARE(fehlernummer([&] { Datenbank::oeffnen(QString()); }),
                 Fehlernummer::DateiNichtGefunden);

        // A text file under a database name fails at once, with SQLite's message.
        DateiSchreiben(ordner + "text.db", "Das ist keine Datenbank, nur Text.\n");
        QString text;
        QCOMPARE(fehlernummer([&] { Datenbank::oeffnen(ordner + "text.db"); }, &text),
                 Fehlernummer::DatenbankBasis + SQLITE_NOTADB);
        QVERIFY2(text.contains("file is not a database"), qPrintable(text));
        QCOMPARE(DateiLesen(ordner + "text.db"),
                 QByteArray("Das ist keine Datenbank, nur Text.\n"));
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
                     Fehlernummer::DatenbankBasis + SQLITE_NOTADB);
            QVERIFY(text.contains(ordner + "Archiv.mdb"));
            QVERIFY(text.contains("Jet"));
            QCOMPARE(DateiLesen(ordner + "Archiv.mdb"), jet);
        }
        QVERIFY(!IstJetDatei(pfad));
        QVERIFY(!IstJetDatei(ordner + "fehlt.mdb"));
    }

    void beschaedigteDateien()
    {
        const QString ordner = Testordner("kaputt");
        QStringList bands;
        for (int i = 0; i < 600; ++i)
            bands << QStringLiteral("Band %1 ").arg(i) + QString(300, QChar(u'a' + i % 26));
        const QString gut = katalogMit(bands);
        const QByteArray inhalt = DateiLesen(gut);
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

    void ohneBewertung()
    {
        const QString ordner = Testordner("alt");
        const QString pfad = ordner + "alt.db";
        QFile::remove(pfad);
        sqlite3* roh = nullptr;
        sqlite3_open(QFile::encodeName(pfad).constData(), &roh);
        sqlite3_exec(roh,
                     "create table Schallplatten (Band text collate nocase, LPTitel text collate "
                     "nocase, Songs text collate nocase, Bilder blob);"
                     "insert into Schallplatten (Band, LPTitel) values ('Zappa', 'Apostrophe'),"
                     "('Abba', 'Arrival')",
                     nullptr, nullptr, nullptr);
        sqlite3_close(roh);

        auto db = Datenbank::oeffnen(pfad);
        Recordset rs(*db, "select * from Schallplatten order by Band, LPTitel");
        QCOMPARE(rs.FieldIndex("Bewertung"), -1);
        QCOMPARE(rs.Value("Band").toString(), QString("Abba"));
        QVERIFY(!rs.Value("Bewertung").isValid());
        rs.setValue("Bewertung", "5"); // no such column: ignored
        rs.setValue("LPTitel", "Voulez-Vous");
        rs.Update();
        rs.AddNew();
        rs.setValue("Band", "Cream");
        rs.Update();
        QCOMPARE(rs.RecordCount(), 3);
        QCOMPARE(rs.AbsolutePosition(), 2);
        QCOMPARE(fremdLesen(pfad, "select LPTitel from Schallplatten where Band = 'Abba'"),
                 QString("Voulez-Vous"));
        QCOMPARE(abfragen(*db, "select count(*) from Schallplatten where Band like 'c*'").toInt(),
                 1);
    }

    void navigation()
    {
        auto db = Datenbank::oeffnen(katalogMit({"E", "D", "C", "B", "A"}));
        Recordset rs(*db, "select * from Schallplatten order by Band");
        QCOMPARE(rs.RecordCount(), 5);
        QCOMPARE(rs.AbsolutePosition(), 0);
        QCOMPARE(rs.Value("Band").toString(), QString("A"));
        QVERIFY(!rs.BOF() && !rs.EOF_());
        rs.MoveNext();
        QCOMPARE(rs.Value(0).toString(), QString("B"));
        rs.MoveLast();
        QCOMPARE(rs.AbsolutePosition(), 4);
        rs.MoveNext();
        QVERIFY(rs.EOF_());
        QCOMPARE(rs.AbsolutePosition(), -1);
        QVERIFY(!rs.Value(0).isValid());
        rs.MoveNext(); // stays behind the end
        QVERIFY(rs.EOF_());
        rs.MovePrevious();
        QCOMPARE(rs.Value(0).toString(), QString("E"));
        rs.MoveFirst();
        rs.MovePrevious();
        QVERIFY(rs.BOF());
        rs.MoveNext();
        QCOMPARE(rs.AbsolutePosition(), 0);

        rs.setAbsolutePosition(3);
        QCOMPARE(rs.Value("band").toString(), QString("D"));
        for (int falsch : {-1, 5, 100})
            rs.setAbsolutePosition(falsch);
        QCOMPARE(rs.AbsolutePosition(), 3);

        const qint64 merke = rs.Bookmark();
        QCOMPARE(merke, rs.RowId(3));
        QCOMPARE(rs.Position(merke), 3);
        rs.MoveFirst();
        QVERIFY(rs.setBookmark(merke));
        QCOMPARE(rs.AbsolutePosition(), 3);
        QVERIFY(!rs.setBookmark(999999));
        QCOMPARE(rs.AbsolutePosition(), 3);
        QCOMPARE(rs.RowId(5), -1);
        QVERIFY(!rs.Wert(5, 0).isValid());
        QVERIFY(!rs.Wert(0, 99).isValid());

        // Filters and a bare table name.
        Recordset filter(
            *db, "select * from Schallplatten where Band like '[a-b]*' order by Band DESC;");
        QVERIFY(filter.Updatable());
        QCOMPARE(spalteLesen(filter, "Band"), QStringList({"B", "A"}));
        Recordset tabelle(*db, "Schallplatten");
        QVERIFY(tabelle.Updatable());
        QCOMPARE(spalteLesen(tabelle, "Band"), QStringList({"E", "D", "C", "B", "A"}));
        Recordset leer(*db, "select * from Schallplatten where Band = 'X'");
        QCOMPARE(leer.RecordCount(), 0);
        QVERIFY(leer.BOF() && leer.EOF_());
        QCOMPARE(leer.AbsolutePosition(), -1);
        leer.MoveNext();
        leer.MoveLast();
        QCOMPARE(leer.AbsolutePosition(), -1);
        QCOMPARE(fehlernummer([&] { leer.Delete(); }), 3021);
        QVERIFY(fehlernummer([&] { Recordset(*db, "select * from Fehlt"); }) != 0);
        QVERIFY(fehlernummer([&] { Recordset(*db, "select * from Schallplatten order by Keine"); })
                != 0);
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
        // An edit is seen at once and written by the move.
        rs.setValue("LPTitel", "Neu");
        QVERIFY(rs.EditPending());
        QCOMPARE(rs.Value("LPTitel").toString(), QString("Neu"));
        QCOMPARE(rs.Wert(0, 1).toString(), QString("T0"));
        QCOMPARE(fremdLesen(pfad, "select LPTitel from Schallplatten where Band = 'A'"),
                 QString("T0"));
        rs.MoveNext();
        QVERIFY(!rs.EditPending());
        QCOMPARE(fremdLesen(pfad, "select LPTitel from Schallplatten where Band = 'A'"),
                 QString("Neu"));
        QCOMPARE(rs.Wert(0, 1).toString(), QString("Neu"));
        QCOMPARE(geaendert, QList<int>({0}));
        rs.setValue("Stil", "Rock");
        rs.CancelUpdate();
        QVERIFY(!rs.Value("Stil").toString().contains("Rock"));

        // A new record: empty while pending, appended and current when written.
        rs.MoveLast();
        rs.AddNew();
        QCOMPARE(rs.AbsolutePosition(), -1);
        QVERIFY(!rs.BOF() && !rs.EOF_());
        QVERIFY(!rs.Value("Band").isValid());
        rs.setValue("Band", "Ärzte");
        rs.setValue("Preis", 12);
        rs.Update();
        QCOMPARE(rs.RecordCount(), 5);
        QCOMPARE(rs.AbsolutePosition(), 4);
        QCOMPARE(rs.Value("Band").toString(), QString("Ärzte"));
        QCOMPARE(rs.Value("Preis").toString(), QString("12"));
        QCOMPARE(angehaengt, QList<int>({4}));
        // A new record written by a move: the move starts where AddNew began.
        rs.setAbsolutePosition(1);
        rs.AddNew();
        rs.setValue("Band", "Zappa");
        rs.MoveNext();
        QCOMPARE(rs.RecordCount(), 6);
        QCOMPARE(rs.Value("Band").toString(), QString("C"));
        QCOMPARE(rs.Wert(5, 0).toString(), QString("Zappa"));
        // A new record left without fields is still a row.
        rs.AddNew();
        rs.AddNew(); // the first is written, the second pending
        rs.CancelUpdate();
        QCOMPARE(rs.RecordCount(), 7);

        // Delete: the position points at the next record, or at the last one.
        rs.setAbsolutePosition(1);
        rs.Delete();
        QCOMPARE(rs.RecordCount(), 6);
        QCOMPARE(rs.AbsolutePosition(), 1);
        QCOMPARE(rs.Value("Band").toString(), QString("C"));
        QCOMPARE(entfernt, QList<int>({1}));
        rs.MoveLast();
        rs.Delete();
        QCOMPARE(rs.RecordCount(), 5);
        QCOMPARE(rs.AbsolutePosition(), 4);
        QCOMPARE(rs.Value("Band").toString(), QString("Zappa"));
        QCOMPARE(fremdLesen(pfad, "select count(*) from Schallplatten"), QString("5"));
        // Delete of a pending new record drops it.
        rs.AddNew();
        rs.setValue("Band", "weg");
        rs.Delete();
        QCOMPARE(rs.RecordCount(), 5);
        QCOMPARE(fremdLesen(pfad, "select count(*) from Schallplatten where Band = 'weg'"),
                 QString("0"));

        // Pictures are read for the asked row alone and written like any value.
        const QByteArray png = QByteArray("\x89PNG\r\n", 6) + QByteArray(5000, '\x01');
        rs.MoveFirst();
        rs.setValue("Bilder", png);
        rs.MoveNext();
        QVERIFY(!rs.Value("Bilder").isValid());
        rs.MoveFirst();
        QCOMPARE(rs.Value("Bilder").toByteArray(), png);
        QCOMPARE(rs.Wert(0, rs.FieldIndex("Bilder")).toByteArray(), png);
        QVERIFY(!rs.Wert(1, rs.FieldIndex("Bilder")).isValid());
        // Apostrophes and nulls are stored as typed.
        rs.setValue("Info", "Rock 'n' Roll");
        rs.setValue("eBook", QVariant());
        rs.Update();
        QCOMPARE(fremdLesen(pfad, "select Info from Schallplatten where Info like 'rock%'"),
                 QString("Rock 'n' Roll"));
        QVERIFY(!rs.Value("eBook").isValid());

        // An edit of a record deleted past the recordset is reported, not dropped silently.
        rs.MoveLast();
        rs.setValue("Band", "verwaist");
        db->Execute(
            QStringLiteral("delete from Schallplatten where rowid = %1").arg(rs.Bookmark()));
        QCOMPARE(fehlernummer([&] { rs.Update(); }), 3167);
        QVERIFY(!rs.EditPending());
        QVERIFY(!rs.Value("Band").isValid());
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
        QCOMPARE(fehlernummer([&] { rs.Update(); }, &text),
                 Fehlernummer::DatenbankBasis + SQLITE_READONLY);
        QVERIFY2(text.contains("schreibgeschützt") && text.contains(DateinameAusPfad(pfad)),
                 qPrintable(text));
        QVERIFY(rs.EditPending());
        QCOMPARE(rs.Value("Band").toString(), QString("Getippt"));
        // A move cannot leave the record either: the edit stays.
        QVERIFY(fehlernummer([&] { rs.MoveNext(); }) != 0);
        QCOMPARE(rs.AbsolutePosition(), 0);
        QCOMPARE(rs.Value("Band").toString(), QString("Getippt"));
        QVERIFY(fehlernummer([&] { rs.Delete(); }) != 0);
        QCOMPARE(rs.RecordCount(), 2);
        // AddNew writes the pending edit first, so it fails as well and keeps it.
        QVERIFY(fehlernummer([&] { rs.AddNew(); }) != 0);
        QCOMPARE(rs.Value("Band").toString(), QString("Getippt"));
        rs.CancelUpdate();
        rs.AddNew();
        rs.setValue("Band", "Neu");
        QVERIFY(fehlernummer([&] { rs.Update(); }) != 0);
        QVERIFY(rs.EditPending());
        QCOMPARE(rs.Value("Band").toString(), QString("Neu"));
        QCOMPARE(rs.RecordCount(), 2);
        QCOMPARE(fremdLesen(pfad, "select group_concat(Band) from Schallplatten"), QString("A,B"));

        // Writable again: the kept edit goes in.
        if (root)
            sqlite3_exec(db->handle(), "PRAGMA query_only = 0", nullptr, nullptr, nullptr);
        else
            return;
        rs.Update();
        QCOMPARE(rs.RecordCount(), 3);
        QCOMPARE(fremdLesen(pfad, "select count(*) from Schallplatten where Band = 'Neu'"),
                 QString("1"));

        // A full disk, likewise.
        const int seiten = abfragen(*db, "pragma page_count").toInt();
        sqlite3_exec(db->handle(),
                     QStringLiteral("PRAGMA max_page_count = %1").arg(seiten).toUtf8(), nullptr,
                     nullptr, nullptr);
        rs.setValue("Songs", QString(100000, u'x'));
        QCOMPARE(fehlernummer([&] { rs.Update(); }, &text),
                 Fehlernummer::DatenbankBasis + SQLITE_FULL);
        QVERIFY2(text.contains("voll"), qPrintable(text));
        QCOMPARE(rs.Value("Songs").toString().size(), 100000);
        QCOMPARE(fremdLesen(pfad, "select count(*) from Schallplatten where length(Songs) > 1000"),
                 QString("0"));
    }

    void bloecke()
    {
        // More rows than the cache holds, so that blocks are dropped and loaded again.
        constexpr int B = Recordset::Blockgroesse;
        const int n = (Recordset::Blockvorrat + 4) * B + 17;
        QStringList bands;
        for (int i = 0; i < n; ++i)
            bands << QStringLiteral("Band %1").arg(i, 5, 10, QChar(u'0'));
        const QString pfad = katalogMit(bands);
        auto db = Datenbank::oeffnen(pfad);
        Recordset rs(*db, "select * from Schallplatten order by Band");
        QStringList erwartet = bands;
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
        QCOMPARE(rs.RecordCount(), erwartet.size());
        QCOMPARE(spalteLesen(rs, "Band"), erwartet);
        // Every row id is the row's identity.
        for (int z = 0; z < rs.RecordCount(); z += 97)
            QCOMPARE(rs.Position(rs.RowId(z)), z);

        // A write past the recordset (the search's Execute) is seen at the next read.
        rs.Wert(10, 0);
        db->Execute("update Schallplatten set Stil = 'geändert' where Band = "
                    + zitat(erwartet.at(10)));
        QCOMPARE(rs.Wert(10, 3).toString(), QString("geändert"));
        // Rows deleted past the recordset read empty until the next refresh.
        db->Execute("delete from Schallplatten where Band = " + zitat(erwartet.at(11)));
        QVERIFY(!rs.Wert(11, 0).isValid());
        QCOMPARE(rs.Wert(12, 0).toString(), erwartet.at(12));
    }

    void nurLesen()
    {
        const QString pfad = katalogMit({"Abba", "Cream", "abba", "Ärzte"});
        auto db = Datenbank::oeffnen(pfad);
        Recordset rs(
            *db, "select Band, count(*) as Anzahl from Schallplatten group by Band order by Band");
        QVERIFY(!rs.Updatable());
        QCOMPARE(rs.FieldNames(), QStringList({"Band", "Anzahl"}));
        QCOMPARE(rs.RecordCount(), 3);
        QCOMPARE(rs.Wert(0, 1).toInt(), 2);
        QCOMPARE(rs.Wert(1, 0).toString(), QString("Ärzte"));
        rs.setAbsolutePosition(2);
        QCOMPARE(rs.Value("anzahl").toInt(), 1);
        QCOMPARE(rs.Bookmark(), 2);
        rs.MoveFirst();
        QVERIFY(rs.setBookmark(2));
        QCOMPARE(rs.AbsolutePosition(), 2);
        rs.setValue("Band", "x");
        QVERIFY(!rs.EditPending());
        QCOMPARE(fehlernummer([&] { rs.AddNew(); }),
                 Fehlernummer::DatenbankBasis + SQLITE_READONLY);
        QCOMPARE(fehlernummer([&] { rs.Delete(); }),
                 Fehlernummer::DatenbankBasis + SQLITE_READONLY);

        // Joins and aliases are read as a whole too.
        Recordset verbund(
            *db, "select * from Schallplatten a join Schallplatten b on a.rowid = b.rowid");
        QVERIFY(!verbund.Updatable());
        QCOMPARE(verbund.RecordCount(), 4);
        // An action query is no record source and changes nothing.
        QCOMPARE(fehlernummer([&] { Recordset(*db, "delete from Schallplatten"); }), 3219);
        QCOMPARE(fremdLesen(pfad, "select count(*) from Schallplatten"), QString("4"));
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

        data1.setDatabaseName(erste);
        data1.setRecordSource("select * from Schallplatten order by Band, LPTitel");
        data1.Refresh();
        QVERIFY(data1.recordset());
        QCOMPARE(folge, QStringList({"neuAufgebaut", "Reposition"}));
        QCOMPARE(data1.recordset()->AbsolutePosition(), 0);
        QCOMPARE(data1.recordset()->Value("Band").toString(), QString("A"));
        Datenbank* verbindung = data1.database();

        // Validate comes before each move, so that bound edits are written by it.
        folge.clear();
        auto bindung = connect(&data1, &Datensteuerung::Validate,
                               [&] { data1.recordset()->setValue("Info", "vom Feld"); });
        data1.setAbsolutePosition(2);
        QCOMPARE(folge, QStringList({"Validate", "Reposition"}));
        QCOMPARE(fremdLesen(erste, "select Info from Schallplatten where Band = 'A'"),
                 QString("vom Feld"));
        QCOMPARE(data1.recordset()->Value("Band").toString(), QString("C"));
        disconnect(bindung);
        folge.clear();
        data1.setAbsolutePosition(7);
        data1.setAbsolutePosition(-1);
        QVERIFY(folge.isEmpty());
        data1.naechsterDatensatz(); // stays on the last
        QCOMPARE(data1.recordset()->AbsolutePosition(), 2);
        data1.ersterDatensatz();
        data1.vorherigerDatensatz(); // stays on the first
        QCOMPARE(data1.recordset()->AbsolutePosition(), 0);
        // The buttons: first, previous, next, last.
        const auto knoepfe = data1.findChildren<QToolButton*>();
        QCOMPARE(knoepfe.size(), 4);
        knoepfe.at(3)->click();
        QCOMPARE(data1.recordset()->AbsolutePosition(), 2);
        knoepfe.at(1)->click();
        QCOMPARE(data1.recordset()->AbsolutePosition(), 1);
        knoepfe.at(0)->click();
        QCOMPARE(data1.recordset()->AbsolutePosition(), 0);
        knoepfe.at(2)->click();
        QCOMPARE(data1.recordset()->AbsolutePosition(), 1);
        data1.setCaption("Tonträger");
        QCOMPARE(data1.Caption(), QString("Tonträger"));

        // Refresh writes a pending edit and starts at the first record again; the same
        // name keeps the connection.
        data1.recordset()->setValue("Medium", "LP");
        folge.clear();
        data1.Refresh();
        QCOMPARE(folge, QStringList({"Validate", "neuAufgebaut", "Reposition"}));
        QCOMPARE(fremdLesen(erste, "select Medium from Schallplatten where Band = 'B'"),
                 QString("LP"));
        QCOMPARE(data1.recordset()->AbsolutePosition(), 0);
        QCOMPARE(data1.database(), verbindung);

        // A failing source leaves no recordset, the control stays usable.
        data1.setRecordSource("select * from Schallplatten order by Keine");
        folge.clear();
        QVERIFY(fehlernummer([&] { data1.Refresh(); }) != 0);
        QVERIFY(!data1.recordset());
        QVERIFY(folge.contains("neuAufgebaut"));
        data1.naechsterDatensatz();
        data1.setAbsolutePosition(0);
        data1.setRecordSource("Schallplatten");
        data1.Refresh();
        QCOMPARE(data1.recordset()->RecordCount(), 3);

        // Another name opens the other file; an empty source leaves no recordset.
        data1.setDatabaseName(zweite);
        data1.setRecordSource("select * from Schallplatten order by Band");
        data1.Refresh();
        QCOMPARE(data1.database()->pfad(), zweite);
        QCOMPARE(data1.recordset()->Value("Band").toString(), QString("X"));
        data1.setRecordSource(QString());
        data1.Refresh();
        QVERIFY(data1.database() && !data1.recordset());

        // An empty name closes; so does schliessen, after writing the edit.
        folge.clear();
        data1.setDatabaseName(QString());
        data1.Refresh();
        QVERIFY(!data1.database() && !data1.recordset());
        QCOMPARE(folge, QStringList({"neuAufgebaut", "Reposition"}));
        data1.setDatabaseName(zweite);
        data1.setRecordSource("Schallplatten");
        data1.Refresh();
        data1.recordset()->setValue("Stil", "Jazz");
        data1.schliessen();
        QVERIFY(!data1.database() && !data1.recordset());
        QCOMPARE(fremdLesen(zweite, "select Stil from Schallplatten where Band = 'Y'"),
                 QString("Jazz"));
        // A missing file: error 53, and no recordset.
        data1.setDatabaseName(Testordner("fehlt") + "nichts.db");
        QCOMPARE(fehlernummer([&] { data1.Refresh(); }), Fehlernummer::DateiNichtGefunden);
        QVERIFY(!data1.database() && !data1.recordset());
        // A move that cannot write its edit shows the error and stays.
        data1.setDatabaseName(erste);
        data1.Refresh();
        sqlite3_exec(data1.database()->handle(), "PRAGMA query_only = 1", nullptr, nullptr,
                     nullptr);
        data1.recordset()->setValue("Band", "Getippt");
        Attrappen::dialoge().leeren();
        knoepfe.at(2)->click();
        QCOMPARE(data1.recordset()->AbsolutePosition(), 0);
        QCOMPARE(data1.recordset()->Value("Band").toString(), QString("Getippt"));
        QCOMPARE(Attrappen::dialoge().meldungen().size(), 1);
        QCOMPARE(Attrappen::dialoge().meldungen().first().titel, QString("Data1_Error"));

        // An edit still pending when the control goes is written.
        {
            Datensteuerung letzte;
            letzte.setDatabaseName(zweite);
            letzte.setRecordSource("select * from Schallplatten order by Band");
            letzte.Refresh();
            letzte.recordset()->setValue("Info", "beim Beenden");
        }
        QCOMPARE(fremdLesen(zweite, "select Info from Schallplatten where Band = 'X'"),
                 QString("beim Beenden"));
    }
};

RK_TEST_MAIN(TestDatenbank)
#include "tst_datenbank.moc"
