#include "collections/SqlKonsole.h"

#include "shell/Ausgabebox.h"

#include "catalogue/Datenbank.h"
#include "catalogue/Datensteuerung.h"
#include "collections/SQLform.h"
#include "platform/Dialogdienst.h"
#include "platform/Laufzeitfehler.h"
#include "platform/Mauszeiger.h"
#include "shell/Globale.h"
#include "shell/Steuerelemente.h"

#include <QAction>
#include <QRadioButton>

void SqlKonsole::verbinden()
{
    BefehlVerbinden(box.MenuSQLabfrage, this, [this] { MenuSQLabfrage_Click(); });
}

void SqlKonsole::MenuSQLabfrage_Click()
{
    try {
        bool alsQuelle = true;
        {
            SQLform fenster(&box);
            fenster.Form_Load();
            fenster.Anzeigen();
            alsQuelle = fenster.optSql[0]->isChecked();
        }
        if (SqlAnweisung.trimmed().isEmpty())
            return;
        Mauszeiger(ZeigerSanduhr);
        if (alsQuelle) {
            // Not saved as Data1RecordSource: the next start shows the table of before.
            box.Data1->setRecordSource(SqlAnweisung);
        } else {
            Datenbank* db = box.Data1->database();
            if (!db)
                throw Laufzeitfehler(91);
            const int anzahl = db->Execute(SqlAnweisung);
            box.Data1->Refresh();
            Mauszeiger(ZeigerStandard);
            MsgNimb(QString::number(anzahl) + QStringLiteral(" Datensätze bearbeitet!"), 1, 0,
                    QStringLiteral("SQL-Befehl ausgeführt"), 0);
            Mauszeiger(ZeigerSanduhr);
        }
        box.Data1->Refresh();
        Mauszeiger(ZeigerStandard);
    } catch (const Laufzeitfehler& fehler) {
        Mauszeiger(ZeigerStandard);
        Fehlermeldung(fehler, QStringLiteral("Ausgabebox_MenuSQLabfrage_Click"));
    }
}
