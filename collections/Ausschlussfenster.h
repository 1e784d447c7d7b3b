#pragma once
// What the style and the band exclusion window have in common: a list with a check box
// per entry, a legend that explains the check mark, and OK and Exit. A checked entry is
// excluded. The setting named by the window says which of the two list files of its kind
// it edits.
#include "shell/Farbverlauf.h"

#include <QString>
#include <QStringList>

class QCheckBox;
class QListWidget;
class QPushButton;

class Ausschlussfenster : public VerlaufFenster {
    Q_OBJECT
public:
    // Shows the window modally until it is closed.
    void Anzeigen();

    // The font of the list from ProgSchriftName and ProgSchriftSize.
    void SchriftLesen();
    // Checks every entry that equals a line of the list file of the current use; a line
    // without an entry is dropped, and vanishes at the next save.
    void HaekchenSetzen();
    void Check1_Click();
    // Writes the checked entries, in list order, to the file of the current use.
    void cmdOK_Click();
    void cmdExit_Click();

    // The checked entries, in list order.
    QStringList Ausgeschlossen() const;
    // The file of the current use; empty when the setting names none.
    QString Listendatei() const;

    QCheckBox* Check1 = nullptr;
    QPushButton* cmdOK = nullptr;
    QPushButton* cmdExit = nullptr;

protected:
    // The list is made by the caller (it has its own name); the setting key chooses the
    // use, pfad gives the file of a use, the legend finishes "= ... wird nicht berücksichtigt".
    Ausschlussfenster(QWidget* eltern, QListWidget* liste, const QString& schluessel,
                      QString (*pfad)(const QString&), const QString& legende);
    // Replaces the entries of the list, each unchecked.
    void EintraegeSetzen(const QStringList& eintraege);

    QListWidget* m_liste;

private:
    QString m_schluessel;
    QString (*m_pfad)(const QString&);
};
