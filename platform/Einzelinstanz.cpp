#include "platform/Einzelinstanz.h"

#include "platform/Pfade.h"

#include <QLocalServer>
#include <QLocalSocket>

Einzelinstanz::Einzelinstanz(const QString& name, QObject* eltern)
    : QObject(eltern)
    , m_pfad(LaufzeitOrdner() + name + QStringLiteral(".instanz"))
{
}

Einzelinstanz::~Einzelinstanz() = default;

bool Einzelinstanz::andereInstanzWecken()
{
    QLocalSocket socket;
    socket.connectToServer(m_pfad);
    if (!socket.waitForConnected(500))
        return false;
    socket.write("nachVorn\n");
    socket.waitForBytesWritten(500);
    socket.disconnectFromServer();
    return true;
}

bool Einzelinstanz::lauschen()
{
    m_server = new QLocalServer(this);
    m_server->setSocketOptions(QLocalServer::UserAccessOption);
    if (!m_server->listen(m_pfad)) {
        // A socket left behind by a process that died: nobody answers on it.
        QLocalServer::removeServer(m_pfad);
        if (!m_server->listen(m_pfad))
            return false;
    }
    connect(m_server, &QLocalServer::newConnection, this, [this] {
        while (QLocalSocket* s = m_server->nextPendingConnection()) {
            connect(s, &QLocalSocket::readyRead, this, [this, s] {
                if (s->readAll().contains("nachVorn"))
                    emit nachVorn();
            });
            connect(s, &QLocalSocket::disconnected, s, &QObject::deleteLater);
        }
    });
    return true;
}
