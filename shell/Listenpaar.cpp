#include "shell/Listenpaar.h"

#include "platform/Einheiten.h"

#include <QListWidget>

QListWidget* AuswahlListe(QWidget* eltern, const QString& name)
{
    auto* l = new QListWidget(eltern);
    l->setObjectName(name);
    l->setSelectionMode(QAbstractItemView::SingleSelection);
    l->setMinimumWidth(Px(2400));
    return l;
}

int ListenAuswahl(const QListWidget* liste)
{
    const QList<QListWidgetItem*> gewaehlt = liste->selectedItems();
    return gewaehlt.isEmpty() ? -1 : liste->row(gewaehlt.first());
}

void ListenEintragVerschieben(QListWidget* von, QListWidget* nach)
{
    const int zeile = ListenAuswahl(von);
    if (zeile < 0)
        return;
    nach->addItem(von->item(zeile)->text());
    delete von->takeItem(zeile);
    von->clearSelection();
    if (von->count() > 0)
        von->setCurrentRow(0);
}

void ListenEintragHochTief(QListWidget* liste, int richtung)
{
    const int zeile = ListenAuswahl(liste);
    if (zeile < 0 || (richtung == 0 && zeile == 0) || (richtung == 1 && zeile == liste->count() - 1))
        return;
    const int ziel = richtung == 0 ? zeile - 1 : zeile + 1;
    QListWidgetItem* eintrag = liste->takeItem(zeile);
    liste->insertItem(ziel, eintrag);
    liste->clearSelection();
    liste->setCurrentRow(ziel);
}
