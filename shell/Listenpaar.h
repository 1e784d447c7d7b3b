#pragma once
// Two lists side by side, the chosen ones and the left-out ones, as the windows that
// arrange columns use them: an entry moves across, or up and down in its list.
#include <QString>

class QListWidget;
class QWidget;

// A list of single choice, as those windows show it.
QListWidget* AuswahlListe(QWidget* eltern, const QString& name);
// The row of the selected entry, -1 when none is selected (a current row alone does not count).
int ListenAuswahl(const QListWidget* liste);
// Moves the selected entry from one list to the end of the other; the first remaining
// entry of the source becomes the selection.
void ListenEintragVerschieben(QListWidget* von, QListWidget* nach);
// Moves the selected entry one place up (richtung 0) or down (1), keeping it selected;
// nothing at the list's edge.
void ListenEintragHochTief(QListWidget* liste, int richtung);
