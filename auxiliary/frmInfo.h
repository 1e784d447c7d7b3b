#pragma once
// The about window: credits that scroll up in a pane while a short blues plays.
#include <QDialog>

class QFrame;
class QLabel;
class Bildfeld;
class Zeitgeber;

class frmInfo : public QDialog {
    Q_OBJECT
public:
    explicit frmInfo(QWidget* eltern = nullptr);
    ~frmInfo() override;

    // Draws the credits on the sheet, puts it at the top of the pane and starts it.
    void AbspannAufbauen();
    void Timer1_Timer();

    QFrame* Picture1 = nullptr;
    QLabel* Picture2 = nullptr;
    Zeitgeber* Timer1 = nullptr;
    QFrame* Rahmen = nullptr;
    Bildfeld* BildNimb = nullptr;

protected:
    bool eventFilter(QObject* objekt, QEvent* ereignis) override;
    void keyPressEvent(QKeyEvent* e) override;
};

// The credit lines as the sheet shows them, one centred line each.
QStringList Abspannzeilen(const QString& programmName, const QString& version);
