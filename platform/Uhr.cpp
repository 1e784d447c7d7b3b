#include "platform/Uhr.h"

#include <QCoreApplication>
#include <QEventLoop>
#include <QTimer>

namespace {

class EchterZeitgeber : public Zeitgeber {
public:
    explicit EchterZeitgeber(QObject* eltern)
        : Zeitgeber(eltern)
    {
        connect(&m_timer, &QTimer::timeout, this, &Zeitgeber::Timer);
    }
    void setInterval(int ms) override { m_timer.setInterval(ms); }
    int interval() const override { return m_timer.interval(); }
    void setEnabled(bool an) override
    {
        if (an == m_timer.isActive())
            return;
        if (an)
            m_timer.start();
        else
            m_timer.stop();
    }
    bool isEnabled() const override { return m_timer.isActive(); }

private:
    QTimer m_timer;
};

} // namespace

QDateTime Systemuhr::jetzt() const { return QDateTime::currentDateTime(); }

double Systemuhr::sekundenSeitMitternacht() const
{
    return QTime::currentTime().msecsSinceStartOfDay() / 1000.0;
}

void Systemuhr::warten(int ms)
{
    if (ms <= 0) {
        QCoreApplication::processEvents();
        return;
    }
    // A local loop keeps the window painted and answering during the wait.
    QEventLoop schleife;
    QTimer::singleShot(ms, &schleife, &QEventLoop::quit);
    schleife.exec();
}

Zeitgeber* Systemuhr::neuerZeitgeber(QObject* eltern) { return new EchterZeitgeber(eltern); }
