#include "platform/Druckdialog.h"

#include <QPrintDialog>
#include <QPrinter>

namespace {

class EchterDruckdialog : public Druckdialog {
public:
    bool einrichten(QPrinter& drucker, QWidget* eltern) override
    {
        QPrintDialog dialog(&drucker, eltern);
        dialog.setOption(QAbstractPrintDialog::PrintPageRange, false);
        return dialog.exec() == QDialog::Accepted;
    }
};

std::unique_ptr<Druckdialog>& aktueller()
{
    static std::unique_ptr<Druckdialog> dialog;
    return dialog;
}

} // namespace

Druckdialog& Druckdialoge()
{
    if (!aktueller())
        aktueller() = std::make_unique<EchterDruckdialog>();
    return *aktueller();
}

void setzeDruckdialog(std::unique_ptr<Druckdialog> dialog) { aktueller() = std::move(dialog); }
