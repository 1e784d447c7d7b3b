#include "platform/Energie.h"

#include <QDBusConnection>
#include <QDBusMessage>
#include <QDBusReply>
#include <QString>

namespace {

const QString Dienst = QStringLiteral("org.freedesktop.login1");
const QString Pfad = QStringLiteral("/org/freedesktop/login1");
const QString Schnittstelle = QStringLiteral("org.freedesktop.login1.Manager");
// Long enough for a busy system, short enough that the program does not hang on a dead bus.
constexpr int Wartezeit = 10000;

class Logind : public Energie {
public:
    bool darfAusschalten() override
    {
        QDBusConnection bus = QDBusConnection::systemBus();
        if (!bus.isConnected())
            return false;
        const QDBusMessage frage = QDBusMessage::createMethodCall(Dienst, Pfad, Schnittstelle,
                                                                  QStringLiteral("CanPowerOff"));
        const QDBusReply<QString> antwort = bus.call(frage, QDBus::Block, Wartezeit);
        // "challenge" would ask for a password at the moment of switching off, when
        // nobody is there to give it.
        return antwort.isValid() && antwort.value() == u"yes";
    }

    bool ausschalten() override
    {
        QDBusConnection bus = QDBusConnection::systemBus();
        if (!bus.isConnected())
            return false;
        QDBusMessage befehl = QDBusMessage::createMethodCall(Dienst, Pfad, Schnittstelle,
                                                             QStringLiteral("PowerOff"));
        befehl << false; // not interactive: nobody answers a password prompt at night
        const QDBusMessage antwort = bus.call(befehl, QDBus::Block, Wartezeit);
        return antwort.type() == QDBusMessage::ReplyMessage;
    }
};

} // namespace

std::unique_ptr<Energie> EchteEnergieErzeugen() { return std::make_unique<Logind>(); }
