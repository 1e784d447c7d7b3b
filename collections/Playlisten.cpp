#include "collections/Playlisten.h"

#include "shell/Ausgabebox.h"

#include "shell/Globale.h"

#include <QEvent>
#include <QTreeWidget>

void Playlisten::verbinden() { box.lvwPlaylist->installEventFilter(this); }

bool Playlisten::eventFilter(QObject* objekt, QEvent* ereignis)
{
    if (objekt == box.lvwPlaylist && ereignis->type() == QEvent::FocusIn)
        // A row n of the playlist uses mark n; mark 0 stays free.
        TrackGespielt.assign(size_t(box.lvwPlaylist->topLevelItemCount()) + 1, 0);
    return Teilbereich::eventFilter(objekt, ereignis);
}

void Playlisten::PlaylistSpeichern() { PlaylistGeaendert = false; }
