#include "Modal.h"

#include <QAbstractButton>
#include <QApplication>
#include <QDialog>
#include <QPointer>
#include <QTest>
#include <QTimer>

namespace {
bool s_bedient = false;

void versuchen(const std::function<void(QDialog*)>& schritt, int rest)
{
    auto* fenster = qobject_cast<QDialog*>(QApplication::activeModalWidget());
    if (!fenster || !fenster->isVisible()) {
        // Shown a moment later than asked: try again a few times, then give up.
        if (rest > 0)
            QTimer::singleShot(10, qApp, [schritt, rest] { versuchen(schritt, rest - 1); });
        else
            QTest::qFail("Kein modales Fenster erschienen", __FILE__, __LINE__);
        return;
    }
    QPointer<QDialog> wache(fenster);
    s_bedient = true;
    schritt(fenster);
    if (wache && wache->isVisible()) {
        wache->reject();
        QTest::qFail("Das modale Fenster blieb offen", __FILE__, __LINE__);
    }
}
} // namespace

void ModalBedienen(std::function<void(QDialog*)> schritt)
{
    s_bedient = false;
    QTimer::singleShot(0, qApp, [schritt = std::move(schritt)] { versuchen(schritt, 100); });
}

bool ModalBedient() { return s_bedient; }

bool Klicken(QWidget* fenster, const QString& name)
{
    auto* knopf = fenster ? fenster->findChild<QAbstractButton*>(name) : nullptr;
    if (!knopf)
        return false;
    knopf->click();
    return true;
}
