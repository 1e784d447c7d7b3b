#pragma once
// The two-colour background that gives the windows their look.
#include <QColor>
#include <QDialog>
#include <QPalette>

class QPainter;

// Direction codes of FarbverlaufZeichnen.
constexpr int VerlaufWaagerecht = 0; // left to right
constexpr int VerlaufSenkrecht = 1;  // top to bottom

// True for a system colour number: top bit set, the next seven bits clear (0x8000000F).
bool IstSystemfarbe(qint64 farbe);
// A colour number as a colour; a system colour takes its current value from the palette
// (the application's palette when none is given).
QColor FarbeAusNummer(qint64 farbe, const QPalette& palette);
QColor FarbeAusNummer(qint64 farbe);

// Fills the rectangle from the start colour to the end colour. Direction 1 runs from top
// to bottom, anything else from left to right.
void FarbverlaufZeichnen(QPainter& p, const QRect& rechteck, qint64 startfarbe, qint64 endfarbe,
                         int richtung);
// Fills the client rectangle of the widget; call it from the widget's paintEvent.
void FarbverlaufZeichnen(QWidget* objekt, qint64 startfarbe, qint64 endfarbe, int richtung);

// Gives any widget a gradient background without subclassing it: the gradient is painted
// before the widget's own paintEvent. Calling it again changes the colours.
void FarbverlaufSetzen(QWidget* objekt, qint64 startfarbe, qint64 endfarbe,
                       int richtung = VerlaufSenkrecht);

// A dialog that paints its background as a gradient, by default the standard colours
// from top to bottom.
class VerlaufFenster : public QDialog {
    Q_OBJECT
public:
    explicit VerlaufFenster(QWidget* eltern = nullptr);
    void setFarbverlauf(qint64 startfarbe, qint64 endfarbe, int richtung = VerlaufSenkrecht);

protected:
    void paintEvent(QPaintEvent* e) override;

private:
    qint64 m_start;
    qint64 m_ende;
    int m_richtung = VerlaufSenkrecht;
};
