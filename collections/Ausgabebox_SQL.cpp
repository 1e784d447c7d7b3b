// The SQL console, opened from the table menu and the tool bar.
#include "shell/Ausgabebox.h"

#include "catalogue/Datenbank.h"
#include "catalogue/Datensteuerung.h"
#include "collections/SQLform.h"
#include "platform/Dialogdienst.h"
#include "platform/Laufzeitfehler.h"
#include "platform/Mauszeiger.h"
#include "shell/Globale.h"

#include <QRadioButton>

void Ausgabebox::MenuSQLabfrage_Click()
{
    try {
        bool alsQuelle = true;
        {
            SQLform fenster(this);
            fenster.Form_Load();
            fenster.Anzeigen();
            alsQuelle = fenster.optSql[0]->isChecked();
        }
        if (SqlAnweisung.trimmed().isEmpty())
            return;
        Mauszeiger(ZeigerSanduhr);
        if (alsQuelle) {
            // Not saved as Data1RecordSource: the next start shows the table of before.
            Data1->setRecordSource(SqlAnweisung);
        } else {
            Datenbank* db = Data1->database();
            if (!db)
                throw Laufzeitfehler(91);
            const int anzahl = db->Execute(SqlAnweisung);
            Data1->Refresh();
            Mauszeiger(ZeigerStandard);
            MsgNimb(QString::number(anzahl) + QStringLiteral(" Datensätze bearbeitet!"), 1, 0,
                    QStringLiteral("SQL-Befehl ausgeführt"), 0);
            Mauszeiger(ZeigerSanduhr);
        }
        Data1->Refresh();
        Mauszeiger(ZeigerStandard);
    } catch (const Laufzeitfehler& fehler) {
        Mauszeiger(ZeigerStandard);
        Fehlermeldung(fehler, QStringLiteral("Ausgabebox_MenuSQLabfrage_Click"));
    }
}
