#include "Fenster.h"

#include "Testumgebung.h"

#include "shell/Einstellungen.h"

QString FensterStarten(std::unique_ptr<Ausgabebox>& w, const Fensterstart& start)
{
    w.reset();
    if (start.zuruecksetzen) {
        Testumgebung::zuruecksetzen();
        Attrappen::dialoge().leeren();
    }
    for (auto e = start.einstellungen.begin(); e != start.einstellungen.end(); ++e)
        Speichern(e.key(), e.value());
    QString katalog = start.katalog;
    if (katalog.isEmpty() && !start.ohneKatalog) {
        static int nummer = 0;
        katalog = KatalogAnlegen(Testordner(QStringLiteral("fenster%1").arg(++nummer)) + QStringLiteral("Archiv.db"),
                                 start.zeilen);
    }
    if (!start.ohneKatalog)
        Speichern(QStringLiteral("ArchivPfad"), katalog);
    w = std::make_unique<Ausgabebox>();
    w->Form_Load();
    if (start.zeigen) {
        w->show();
        if (!QTest::qWaitForWindowExposed(w.get()))
            QTest::qFail("Das Hauptfenster erscheint nicht.", __FILE__, __LINE__);
    }
    return katalog;
}
