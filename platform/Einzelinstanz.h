#pragma once
// One instance per user: the first start listens on a local socket in the runtime
// folder; a later start finds it, asks it to come to the front and ends.
#include <QObject>

class QLocalServer;

class Einzelinstanz : public QObject {
    Q_OBJECT
public:
    explicit Einzelinstanz(const QString& name = QStringLiteral("Rillenkammer"),
                           QObject* eltern = nullptr);
    ~Einzelinstanz() override;

    // True when another instance answers; it has then been asked to come to the front.
    bool andereInstanzWecken();
    // Becomes the instance that others find. False when the socket cannot be made.
    bool lauschen();

signals:
    // Another start asked this instance to come to the front.
    void nachVorn();

private:
    QString m_pfad;
    QLocalServer* m_server = nullptr;
};
