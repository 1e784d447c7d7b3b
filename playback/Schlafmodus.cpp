// The sleep function: at a time of day the program ends, or the computer is switched
// off where the user may. The running player is not looked at.
#include "playback/Schlafmodus.h"

#include "shell/Ausgabebox.h"

#include "platform/Dialogdienst.h"
#include "platform/Dienste.h"
#include "platform/Energie.h"
#include "platform/Uhr.h"
#include "playback/frmUhrzeit.h"
#include "shell/FensterPlatzieren.h"
#include "shell/Grundregeln.h"
#include "shell/Steuerelemente.h"

#include <QAction>

void Schlafmodus::verbinden()
{
    // The handler decides about the check mark from the state before the click.
    BefehlVerbinden(box.mnuSleep, this, [this](bool haken) {
        box.mnuSleep->setChecked(!haken);
        mnuSleep_Click();
    });
    connect(box.TimerSleep, &Zeitgeber::Timer, this, [this] { TimerSleep_Timer(); });
}

void Schlafmodus::mnuSleep_Click()
{
    auto aus = [this] {
        SleepHerunterfahren = false;
        box.TimerSleep->setEnabled(false);
        box.mnuSleep->setChecked(false);
        box.staBar->setPanelText(6, QStringLiteral("Sleep Off"));
    };
    auto zeitFragen = [this] {
        frmUhrzeit fenster(&box);
        fenster.Form_Load();
        FensterPlatzieren(&fenster, &box, QStringLiteral("center"), 10);
        fenster.Anzeigen();
    };
    auto an = [this](bool herunterfahren) {
        SleepHerunterfahren = herunterfahren;
        m_ausschaltenLaeuft = false;
        box.TimerSleep->setEnabled(true);
        box.staBar->setPanelText(6, QStringLiteral("Sleep ") + SleepZeit);
    };

    if (box.mnuSleep->isChecked()) {
        aus();
        return;
    }
    box.mnuSleep->setChecked(true);
    const QString antwort = MsgNimb(QStringLiteral("Soll der PC nach Aufruf der Sleep-Funktion \n"
                                                   "heruntergefahren werden?"),
                                    32, 2, QStringLiteral("Sleep-Modus"), 0);
    if (antwort == u"Ja") {
        if (!D().energie().darfAusschalten()) {
            MsgNimb(QStringLiteral("Für das Herunterfahren des PC's werden Admin-Rechte benötigt!"), 4, 0,
                    QStringLiteral("Benutzerhinweis"), 0);
            box.mnuSleep->setChecked(false);
            return;
        }
        zeitFragen();
        an(true);
    } else if (antwort == u"Nein") {
        zeitFragen();
        an(false);
    } else {
        // "Exit", and a box closed without an answer.
        aus();
    }
    // A cancelled time disarms everything; midnight cannot be chosen.
    if (SleepZeit == u"00:00")
        aus();
}

void Schlafmodus::TimerSleep_Timer()
{
    if (!box.mnuSleep->isChecked())
        return;
    if (D().uhr().jetzt().time().toString(QStringLiteral("hh:mm")) != SleepZeit)
        return;
    if (!SleepHerunterfahren) {
        box.AlleFensterSchliessen();
        EreignisseZulassen();
        return;
    }
    // Once the computer is on its way down, a second request could only be refused.
    if (m_ausschaltenLaeuft)
        return;
    if (D().energie().ausschalten()) {
        m_ausschaltenLaeuft = true;
        return;
    }
    // Refused: nobody may be there to read it, so the hint closes by itself and the
    // program ends as it would without the shutdown.
    box.TimerSleep->setEnabled(false);
    MsgNimb(QStringLiteral("Der PC konnte nicht heruntergefahren werden.\nRillenkammer wird beendet."), 3, 0,
            QStringLiteral("Sleep-Modus"), 30);
    box.AlleFensterSchliessen();
    EreignisseZulassen();
}
