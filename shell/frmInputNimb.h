#pragma once
// The system's own one-line input box.
#include "platform/Dialogdienst.h"

#include <QDialog>

class QLabel;
class QLineEdit;
class QPushButton;

class frmInputNimb : public QDialog {
    Q_OBJECT
public:
    explicit frmInputNimb(QWidget* eltern = nullptr);

    // Sets colours, title, prompt and default value; shows nothing yet.
    void Vorbereiten(const Eingabe& e);
    // Shows the box modally; returns the trimmed entry, or an empty text for Exit,
    // Esc and the close box.
    QString Anzeigen();

    QLabel* lblText;
    QLineEdit* txtInputText;
    QPushButton* cmdOK;
    QPushButton* cmdExit;

public slots:
    void reject() override;

protected:
    void showEvent(QShowEvent* e) override;
};
