#pragma once
// The tip window: the tips of TipOfDay.ini in the program folder, one at a time.
#include <QDialog>
#include <QStringList>

class QCheckBox;
class QLabel;
class QPushButton;

class Tipbox : public QDialog {
    Q_OBJECT
public:
    explicit Tipbox(QWidget* eltern = nullptr);
    // False where the settings ask for no tips and the window was not opened from the menu:
    // the caller then does not show it.
    bool Geladen() const { return m_geladen; }

    bool LoadTips(const QString& pfad);
    void DisplaypriCurrentTip();
    void cmdNextTip_Click();

    QLabel* Label1 = nullptr;
    QLabel* lblTipText = nullptr;
    QCheckBox* chkLoadTipsAtStartup = nullptr;
    QPushButton* cmdNextTip = nullptr;
    QPushButton* cmdOK = nullptr;
    QLabel* Picture1 = nullptr;

    int AktuellerTip = 0;

private:
    QStringList m_tips;
    bool m_geladen = true;
};
