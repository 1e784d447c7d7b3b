// No entry is ever lost: a child process of the program saves or deletes Carriers in a
// loop and is killed (SIGKILL) at a random moment; the catalogue must then be intact and
// hold each row either in its old or in its new state, never half.
//
// Started with "--kind speichern|loeschen|ersetzen <catalogue>" the program is the child.
#include "support/Katalog.h"
#include "support/Testumgebung.h"

#include "catalogue/Datensatzbearbeitung.h"
#include "catalogue/Datensteuerung.h"
#include "catalogue/FlexGrid.h"
#include "collections/Suche.h"
#include "shell/Ausgabebox.h"
#include "shell/Einstellungen.h"
#include "shell/Globale.h"
#include "shell/Steuerelemente.h"

#include <QProcess>
#include <QRandomGenerator>
#include <QSet>
#include <QThread>

#include <sqlite3.h>

#include <csignal>
#include <cstdio>

namespace {

constexpr int Zeilen = 60;

// The child: the main window on the catalogue, saving or deleting until it is killed.
int kindLaufen(const QString& art, const QString& katalog)
{
    Speichern(QStringLiteral("ArchivPfad"), katalog);
    Attrappen::dialoge().beimAufruf = [](const DialogAttrappe::Aufruf&) {
        Attrappen::dialoge().antwortenMsg.enqueue(QStringLiteral("Ja"));
    };
    Ausgabebox w;
    w.Form_Load();
    std::printf("bereit\n");
    std::fflush(stdout);
    for (int runde = 0;; ++runde) {
        FlexGrid* g = w.MSFlexGrid1;
        if (art == u"speichern") {
            g->setRow(1 + runde % (g->Rows() - 1));
            // Two fields of one row change together: a half write would part them.
            const QString marke = QStringLiteral("Stand %1").arg(runde);
            w.TextInfo->setText(marke);
            w.TextMedium->setText(marke);
            w.datensatzbearbeitung().MenuSpeichern_Click();
        } else if (art == u"ersetzen") {
            // The whole column one way, then back: a kill between two rows would part them.
            Suchspalten = QStringLiteral("Info");
            SuchenNach = runde % 2 ? QStringLiteral("Ersetzt") : QStringLiteral("Info");
            ErsetzenDurch = runde % 2 ? QStringLiteral("Info") : QStringLiteral("Ersetzt");
            w.suche().Ersetzen();
            w.Data1->Refresh();
        } else {
            if (g->Rows() <= 8)
                QThread::sleep(10);
            g->setRow(2);
            g->setRowSel(6);
            w.datensatzbearbeitung().MenuEintragLoeschen_Click();
        }
        // The command has returned: what it wrote is in the file.
        std::printf("fertig\n");
        std::fflush(stdout);
    }
}

// Opened for writing, so that a journal left behind by the kill is rolled back first.
QString Pruefung(const QString& pfad)
{
    QString ergebnis = QStringLiteral("nicht zu öffnen");
    sqlite3* db = nullptr;
    sqlite3_stmt* st = nullptr;
    if (sqlite3_open_v2(pfad.toUtf8().constData(), &db, SQLITE_OPEN_READWRITE, nullptr) == SQLITE_OK
        && sqlite3_prepare_v2(db, "PRAGMA integrity_check", -1, &st, nullptr) == SQLITE_OK
        && sqlite3_step(st) == SQLITE_ROW)
        ergebnis = QString::fromUtf8(reinterpret_cast<const char*>(sqlite3_column_text(st, 0)));
    sqlite3_finalize(st);
    sqlite3_close(db);
    return ergebnis;
}

} // namespace

class TestAbsturz : public QObject {
    Q_OBJECT

private slots:
    void abgeschossen_data()
    {
        QTest::addColumn<QString>("art");
        QTest::newRow("speichern") << "speichern";
        QTest::newRow("loeschen") << "loeschen";
        QTest::newRow("ersetzen") << "ersetzen";
    }

    // The child is started, works a random while and is killed; each row must then be
    // there in its old state or, saved, with both changed fields alike.
    void abgeschossen()
    {
        QFETCH(QString, art);
        QRandomGenerator zufall(art == u"speichern" ? 20261121 : 4711);
        QList<Zeilenwerte> start;
        for (int i = 0; i < Zeilen; ++i) {
            const QString band = QStringLiteral("Band %1").arg(i, 2, 10, QChar('0'));
            start << Zeilenwerte{{"Band", band}, {"Info", band + " Info"}, {"Medium", band + " Medium"}};
        }
        const int laeufe = qEnvironmentVariableIsSet("RK_ABSTURZ_LAEUFE")
                               ? qEnvironmentVariableIntValue("RK_ABSTURZ_LAEUFE") : 5;
        for (int lauf = 0; lauf < laeufe; ++lauf) {
            const QString katalog = KatalogAnlegen(Testordner(art) + QStringLiteral("%1.db").arg(lauf), start);
            QProcess kind;
            kind.setProcessChannelMode(QProcess::ForwardedErrorChannel);
            kind.start(QCoreApplication::applicationFilePath(), {"--kind", art, katalog});
            // The kill comes after the first command is confirmed, at a random moment of
            // the commands that follow.
            QByteArray ausgabe;
            while (!ausgabe.contains("fertig") && kind.waitForReadyRead(20000))
                ausgabe += kind.readAll();
            QVERIFY2(ausgabe.contains("bereit") && ausgabe.contains("fertig"), ausgabe.constData());
            QTest::qWait(20 + int(zufall.bounded(400)));
            ::kill(pid_t(kind.processId()), SIGKILL);
            QVERIFY(kind.waitForFinished(10000));

            QCOMPARE(Pruefung(katalog), QString("ok"));
            const QStringList baender = KatalogSpalte(katalog, "Band");
            const QStringList info = KatalogSpalte(katalog, "Info"), medium = KatalogSpalte(katalog, "Medium");
            QVERIFY(baender.size() == Zeilen || (art == u"loeschen" && !baender.isEmpty() && baender.size() < Zeilen));
            QCOMPARE(QSet<QString>(baender.begin(), baender.end()).size(), baender.size());
            if (art == u"ersetzen") {
                // One replacement is one transaction: every row in the same state.
                const QSet<QString> stand(info.begin(), info.end());
                const bool vorher = std::all_of(info.begin(), info.end(), [](const QString& t) { return t.endsWith(" Info"); });
                const bool nachher =
                    std::all_of(info.begin(), info.end(), [](const QString& t) { return t.endsWith(" Ersetzt"); });
                QVERIFY2(vorher || nachher, qPrintable(QStringList(stand.begin(), stand.end()).mid(0, 4).join(", ")));
                continue;
            }
            int neue = 0;
            for (int i = 0; i < baender.size(); ++i) {
                const bool alt = info[i] == baender[i] + " Info" && medium[i] == baender[i] + " Medium";
                const bool neu = art == u"speichern" && info[i].startsWith("Stand ") && info[i] == medium[i];
                QVERIFY2(baender[i].startsWith("Band ") && (alt || neu),
                         qPrintable(baender.at(i) + ": " + info.at(i) + " / " + medium.at(i)));
                neue += neu ? 1 : 0;
            }
            // The confirmed command must be in the file, or the run proved nothing.
            const int bestaetigt = art == u"speichern" ? neue : Zeilen - int(baender.size());
            QVERIFY2(bestaetigt > 0, "Kein Speichern oder Löschen hat die Datei erreicht.");
        }
    }
};

int main(int argc, char** argv)
{
    Testumgebung umgebung;
    QApplication app(argc, argv);
    Attrappen::installieren();
    if (argc == 4 && qstrcmp(argv[1], "--kind") == 0)
        return kindLaufen(QString::fromLocal8Bit(argv[2]), QString::fromLocal8Bit(argv[3]));
    TestAbsturz test;
    return QTest::qExec(&test, argc, argv);
}

#include "tst_absturz.moc"
