// No entry is ever lost: a child process of the program saves or deletes Carriers in a
// loop and is killed (SIGKILL) at a random moment; the catalogue must then be intact and
// hold each row either in its old or in its new state, never half.
//
// Started with "--kind speichern|loeschen <catalogue>" the program is the child.
#include "support/Katalog.h"
#include "support/Testumgebung.h"

#include "catalogue/FlexGrid.h"
#include "shell/Ausgabebox.h"
#include "shell/Einstellungen.h"
#include "shell/Steuerelemente.h"

#include <QProcess>
#include <QSet>
#include <QThread>
#include <QRandomGenerator>

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
            w.MenuSpeichern_Click();
        } else {
            if (g->Rows() <= 8)
                QThread::sleep(10);
            g->setRow(2);
            g->setRowSel(6);
            w.MenuEintragLoeschen_Click();
        }
    }
}

struct Zeile {
    QString band, info, medium;
};

QList<Zeile> lesen(const QString& pfad, QString* pruefung)
{
    QList<Zeile> zeilen;
    sqlite3* db = nullptr;
    // Opened for writing, so that a journal left behind by the kill is rolled back.
    if (sqlite3_open_v2(pfad.toUtf8().constData(), &db, SQLITE_OPEN_READWRITE, nullptr) != SQLITE_OK) {
        *pruefung = QStringLiteral("nicht zu öffnen");
        sqlite3_close(db);
        return zeilen;
    }
    sqlite3_stmt* st = nullptr;
    sqlite3_prepare_v2(db, "PRAGMA integrity_check", -1, &st, nullptr);
    if (sqlite3_step(st) == SQLITE_ROW)
        *pruefung = QString::fromUtf8(reinterpret_cast<const char*>(sqlite3_column_text(st, 0)));
    sqlite3_finalize(st);
    sqlite3_prepare_v2(db, "select Band, Info, Medium from Schallplatten", -1, &st, nullptr);
    while (sqlite3_step(st) == SQLITE_ROW) {
        auto text = [st](int i) { return QString::fromUtf8(reinterpret_cast<const char*>(sqlite3_column_text(st, i))); };
        zeilen << Zeile{text(0), text(1), text(2)};
    }
    sqlite3_finalize(st);
    sqlite3_close(db);
    return zeilen;
}

} // namespace

class TestAbsturz : public QObject {
    Q_OBJECT

    int laeufe() const { return qEnvironmentVariableIsSet("RK_ABSTURZ_LAEUFE") ? qEnvironmentVariableIntValue("RK_ABSTURZ_LAEUFE") : 5; }

    // Starts the child, waits until it works, lets it run a random while, kills it.
    void abschiessen(const QString& art, const QString& katalog, QRandomGenerator& zufall)
    {
        QProcess kind;
        kind.setProcessChannelMode(QProcess::ForwardedErrorChannel);
        kind.start(QCoreApplication::applicationFilePath(), {"--kind", art, katalog});
        QVERIFY(kind.waitForStarted(10000));
        QVERIFY(kind.waitForReadyRead(20000));
        QVERIFY(kind.readAll().contains("bereit"));
        QTest::qWait(20 + int(zufall.bounded(400)));
        ::kill(pid_t(kind.processId()), SIGKILL);
        QVERIFY(kind.waitForFinished(10000));
    }

private slots:
    void speichernUnterbrochen()
    {
        QRandomGenerator zufall(20261121);
        QList<Zeilenwerte> start;
        for (int i = 0; i < Zeilen; ++i)
            start << Zeilenwerte{{"Band", QStringLiteral("Band %1").arg(i, 2, 10, QChar('0'))}, {"Info", "alt"},
                                 {"Medium", "alt"}};
        for (int lauf = 0; lauf < laeufe(); ++lauf) {
            const QString katalog = KatalogAnlegen(Testordner("speichern") + QStringLiteral("S%1.db").arg(lauf), start);
            abschiessen("speichern", katalog, zufall);
            QString pruefung;
            const QList<Zeile> zeilen = lesen(katalog, &pruefung);
            QCOMPARE(pruefung, QString("ok"));
            QCOMPARE(zeilen.size(), Zeilen);
            for (const Zeile& z : zeilen) {
                QVERIFY2(z.band.startsWith("Band "), qPrintable(z.band));
                QVERIFY2(z.info == z.medium, qPrintable(z.info + " / " + z.medium));
            }
        }
    }

    void loeschenUnterbrochen()
    {
        QRandomGenerator zufall(4711);
        QList<Zeilenwerte> start;
        QSet<QString> alle;
        for (int i = 0; i < Zeilen; ++i) {
            const QString band = QStringLiteral("Band %1").arg(i, 2, 10, QChar('0'));
            alle << band;
            start << Zeilenwerte{{"Band", band}, {"Info", band + " Info"}, {"Medium", band + " Medium"}};
        }
        for (int lauf = 0; lauf < laeufe(); ++lauf) {
            const QString katalog = KatalogAnlegen(Testordner("loeschen") + QStringLiteral("L%1.db").arg(lauf), start);
            abschiessen("loeschen", katalog, zufall);
            QString pruefung;
            const QList<Zeile> zeilen = lesen(katalog, &pruefung);
            QCOMPARE(pruefung, QString("ok"));
            QVERIFY(zeilen.size() <= Zeilen);
            QVERIFY(zeilen.size() >= 1);
            QSet<QString> gesehen;
            for (const Zeile& z : zeilen) {
                QVERIFY2(alle.contains(z.band) && !gesehen.contains(z.band), qPrintable(z.band));
                gesehen << z.band;
                QCOMPARE(z.info, z.band + " Info");
                QCOMPARE(z.medium, z.band + " Medium");
            }
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
