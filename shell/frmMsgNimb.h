#pragma once
// The system's own message box: its colours, German buttons, a sound per kind of message,
// a size that follows the text and an optional count-down that closes it by itself.
#include "platform/Dialogdienst.h"
#include "shell/Steuerfeld.h"

#include <QDialog>

#include <array>
#include <vector>

class QFrame;
class QLineEdit;
class QPushButton;
class QTextEdit;
class QVariantAnimation;
class Zeitgeber;

// One of the four message icons (1 information, 2 question, 3 warning, 4 stop), drawn
// by the program itself; it grows in briefly when shown.
class Meldungssymbol : public QWidget {
    Q_OBJECT
public:
    Meldungssymbol(int art, QWidget* eltern);
    int art() const { return m_art; }
    QSize sizeHint() const override;
    // Paints the icon into a square of the given size.
    static void zeichnen(QPainter& p, int art, const QRectF& feld);

protected:
    void paintEvent(QPaintEvent* e) override;
    void showEvent(QShowEvent* e) override;

private:
    int m_art;
    double m_massstab = 1.0;
    QVariantAnimation* m_animation;
};

class frmMsgNimb : public QDialog {
    Q_OBJECT
public:
    // The button's word, by index of cmdButton.
    static const std::array<const char*, 7> Antworten;

    explicit frmMsgNimb(QWidget* eltern = nullptr);

    // Sets colours, title, buttons, icon, text and size, plays the sound and arms the
    // count-down; shows nothing yet.
    void Vorbereiten(const Meldung& m);
    // Shows the prepared box and returns the button's word, or an empty text for the
    // close box, Esc or the end of the count-down. Modal for seconds below 2.
    QString Anzeigen();
    QString Ergebnis() const { return m_ergebnis; }

    QTextEdit* txtMsgText;
    QFrame* fraMsgButton;
    Steuerfeld<QPushButton, 7> cmdButton{"cmdButton"};
    Steuerfeld<Meldungssymbol, 5> imgMsgIcon{"imgMsgIcon"}; // 1 to 4; [0] is unused
    Zeitgeber* Timer;
    QLineEdit* txtdummy;

    // Text lines of the message at the narrow width, as the box counts them for its size.
    int Textzeilen() const;

public slots:
    void reject() override;
    void done(int r) override;

protected:
    void showEvent(QShowEvent* e) override;
    void resizeEvent(QResizeEvent* e) override;

private:
    void cmdButton_Click(int index);
    void Timer_Timer();
    void TitelMitSekunden();
    void ButtonsAnordnen();
    void RahmenAnFuss();

    std::vector<int> m_reihe; // indices of the shown buttons, in row order
    QString m_ergebnis;
    QString m_titel;
    int m_standard = 7;
    int m_sekunden = 0;
};
