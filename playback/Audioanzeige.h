#pragma once
// What the media player control shows while an audio file plays: there is no picture
// to show, so it shows the Carrier's cover, the running title and how far it has got.
#include <QPixmap>
#include <QWidget>

class Medienspieler;
class Zeitgeber;

class Audioanzeige : public QWidget {
    Q_OBJECT
public:
    Audioanzeige(Medienspieler* spieler, QWidget* eltern);
    void setTitel(const QString& titel);
    void setCover(const QPixmap& cover);

protected:
    void paintEvent(QPaintEvent* e) override;
    void showEvent(QShowEvent* e) override;
    void hideEvent(QHideEvent* e) override;

private:
    Medienspieler* m_spieler;
    Zeitgeber* m_takt;
    QString m_titel;
    QPixmap m_cover;
};
