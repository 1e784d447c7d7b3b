// The load display: reading the kernel's figures, the moving mean of the processor load,
// and the two panels of the status bar on a made-up /proc.
#include "support/Attrappen.h"
#include "support/Fenster.h"
#include "support/Katalog.h"
#include "support/Testumgebung.h"

#include "auxiliary/Lastanzeige.h"
#include "auxiliary/clsCPULoad.h"
#include "platform/Systemlast.h"
#include "shell/Ausgabebox.h"
#include "shell/Steuerelemente.h"

#include <memory>

class TestLastanzeige : public QObject {
    Q_OBJECT

private slots:
    void kernzahlenLesen()
    {
        const auto z = ProzessorzeitenLesen("cpu  100 0 50 800 50 0 0 0 0 0\ncpu0 1 2 3 4\n");
        QVERIFY(z);
        QCOMPARE(z->gesamt, 1000u);
        QCOMPARE(z->belegt, 150u); // idle and iowait are not busy
        QVERIFY(!ProzessorzeitenLesen("cpu0 1 2 3 4\nintr 5\n"));
        QVERIFY(!ProzessorzeitenLesen("cpu  1 x 3 4\n"));
        QVERIFY(!ProzessorzeitenLesen(QByteArray()));

        QCOMPARE(SpeicherlastLesen("MemTotal:  1000 kB\nMemFree: 10 kB\nMemAvailable:  255 kB\n"), 75);
        QVERIFY(!SpeicherlastLesen("MemTotal:  1000 kB\n"));
        QVERIFY(!SpeicherlastLesen("MemTotal: 0 kB\nMemAvailable: 0 kB\n"));
        QVERIFY(!SpeicherlastLesen("MemTotal: 10 kB\nMemAvailable: 20 kB\n"));
    }

    void gleitendesMittel()
    {
        std::optional<double> wert = 50;
        clsCPULoad last([&] { return wert; });
        QCOMPARE(last.StackSize(), 5);
        last.setStackSize(10);
        QCOMPARE(last.Value(), 50); // the first mean is the first sample
        for (int i = 1; i < 10; ++i)
            last.Value();
        wert = 100;
        QCOMPARE(last.Value(), 55);
        wert = 50;
        for (int i = 1; i < 10; ++i)
            QCOMPARE(last.Value(), 55);
        QCOMPARE(last.Value(), 50);
        // No sample: the last mean.
        wert.reset();
        QCOMPARE(last.Value(), 50);
        // A new size forgets the samples, not their sum: 500 + 20 over one sample.
        last.setStackSize(3);
        wert = 20;
        QCOMPARE(last.Value(), 520);
    }

    // The panels on the real window, from a made-up /proc, once a second on the fake clock.
    void panele()
    {
        std::unique_ptr<Ausgabebox> w;
        FensterStarten(w, {.zeilen = Baender({"Abba"})});
        const QString proc = Testordner("proc");
        DateiSchreiben(proc + "stat", "cpu  100 0 0 100 0 0 0 0\n");
        DateiSchreiben(proc + "meminfo", "MemTotal: 2000 kB\nMemAvailable: 1500 kB\n");
        w->lastanzeige().setProcOrdner(proc);
        Attrappen::uhr().vorruecken(1000);
        QCOMPARE(w->staBar->PanelText(4), QString("CPU 50 %"));
        QCOMPARE(w->staBar->PanelText(5), QString("RAM 25 %"));
        // 30 busy of 100 ticks since: the mean of 50 and 30.
        DateiSchreiben(proc + "stat", "cpu  130 0 0 170 0 0 0 0\n");
        QFile::remove(proc + "meminfo");
        Attrappen::uhr().vorruecken(1000);
        QCOMPARE(w->staBar->PanelText(4), QString("CPU 40 %"));
        QCOMPARE(w->staBar->PanelText(5), QString("RAM 25 %"));
    }
};

RK_TEST_MAIN(TestLastanzeige)
#include "tst_lastanzeige.moc"
