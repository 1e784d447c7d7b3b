// Path helpers, text files, colours, the settings store.
#include "support/Testumgebung.h"

#include "platform/Einheiten.h"
#include "platform/Pfade.h"
#include "platform/Textdatei.h"
#include "shell/Einstellungen.h"

class TestPlattform : public QObject {
    Q_OBJECT
private slots:
    void pfade()
    {
        QCOMPARE(DateinameAusPfad("/a/b/c.db"), QString("c.db"));
        QCOMPARE(OrdnerAusPfad("/a/b/c.db"), QString("/a/b/"));
        QCOMPARE(OrdnerAusPfad("C:\\Musik\\Archiv.mdb"), QString("C:\\Musik\\"));
        QCOMPARE(DateinameAusPfad("C:\\Musik\\Archiv.mdb"), QString("Archiv.mdb"));
        QCOMPARE(OrdnerAusPfad("ohne"), QString());
        QCOMPARE(DateinameAusPfad("ohne"), QString("ohne"));
        QVERIFY(ProgrammOrdnerErmitteln().endsWith("/data/Rillenkammer/"));
    }
};

RK_TEST_MAIN(TestPlattform)
#include "tst_plattform.moc"
