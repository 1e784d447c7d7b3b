#pragma once
// The paper inlays of a Carrier: the front sheet (the record's text beside the cover) and
// the back sheet (the cover in the size of a case's back), each with a screen preview.
#include "shell/Farbverlauf.h"
#include "shell/Teilbereich.h"

#include <functional>

class Bildfeld;
class Druckflaeche;

class frmDruckVorschau : public VerlaufFenster {
    Q_OBJECT
public:
    explicit frmDruckVorschau(QWidget* eltern = nullptr);
    Bildfeld* picVorschau = nullptr;

protected:
    void resizeEvent(QResizeEvent* e) override;
    bool eventFilter(QObject* objekt, QEvent* ereignis) override;
};

class Traegerdruck : public Teilbereich {
public:
    using Teilbereich::Teilbereich;
    void verbinden() override;

    void MenuDrucken_Click();
    void mnuVorschauDrucken_Click();
    void mnuBacksitePrint_Click();
    void mnuViewBacksitePrint_Click();

    // The record's text as the front sheet prints it: band and title in groesse, the
    // fields below in klein.
    void Textblock(Druckflaeche& f, double groesse, double klein) const;

    // The preview window of the last preview, kept until it is closed.
    frmDruckVorschau* Vorschau = nullptr;

private:
    QPixmap sichtbaresCover() const;
    frmDruckVorschau* vorschauOeffnen();
    // A fresh preview window, drawn by zeichnen on a white sheet with white fill.
    void vorschauZeichnen(const std::function<void(Druckflaeche&)>& zeichnen);
};
