#pragma once
// The mini player: a small strip of the transport's buttons that stands in for the main
// window, lying or standing, with the running title in its caption.
#include "shell/Steuerfeld.h"

#include <QWidget>

#include <functional>

class Bildknopf;
class Zeitgeber;

class frmMiniPlayer : public QWidget {
    Q_OBJECT
public:
    static constexpr int HoeheWaagerecht = 885;  // twips: the lying strip
    static constexpr int HoeheSenkrecht = 4875;  // twips: the standing strip
    static const QString Titel;

    explicit frmMiniPlayer(QWidget* eltern = nullptr);

    // The shape by the window's height: true for the standing strip.
    bool Senkrecht() const;
    // Lays the pictures out in the one shape or the other and gives the window its size.
    void Anordnen(bool senkrecht);

    Steuerfeld<Bildknopf, 13> imgVorBack{"imgVorBack"};
    Bildknopf* imgLautsprecherregler = nullptr;
    Zeitgeber* Timer3 = nullptr;
    int LaufschriftPhase = 0;

    // What the window's part does on a close (the end of the program) and on activation.
    std::function<bool()> beimSchliessen;
    std::function<void()> beimAktivieren;

protected:
    void paintEvent(QPaintEvent* e) override;
    void mousePressEvent(QMouseEvent* e) override;
    void closeEvent(QCloseEvent* e) override;
    bool event(QEvent* e) override;
};
