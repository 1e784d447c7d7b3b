#pragma once
// The playlists of the main window: the rows of lvwPlaylist and their file in the folder
// Playlist/ of the program folder, the menu "&Playlist" (also the list's context menu),
// the playlists on the fifth text tab, the copy of a playlist's files into a folder, and
// the search of the table for the Carrier of the song that starts.
//
// A line of the file is the path of one song; the list shows it in three columns (name,
// last folder, what stands in front of it), which give the line again in reverse order.
#include "shell/Teilbereich.h"

#include <QString>

class QTextEdit;
class QTreeWidgetItem;

class Playlisten : public Teilbereich {
public:
    // Where the playlists are read and written.
    static QString PlaylistOrdner();
    using Teilbereich::Teilbereich;
    void verbinden() override;

    void mnuPlaylistNeu_Click();
    void mnuPlaylistLaden_Click();
    void mnuPlaylistAnzeigen_Click();
    void mnuPlaylistKill_Click();
    void mnuPlaylistHaken_Click();
    // Takes the selected Tracks of filTrack into the list and its file.
    void mnuPlaylistAufnehmen_Click();
    // Copies the checked rows' files into a folder; Esc stops before the next piece.
    void mnuPlaylistKopieren_Click();
    void filPlaylist_Click(const QString& name);
    void lvwPlaylist_DblClick();

    // Writes every row to the playlist's file, one path a line.
    void PlaylistSpeichern();
    // Moves the table to the Carrier of the selected row's song, marks the song in the
    // record, and colours the search field by whether that Carrier is in the table.
    void SuchenPlaylistTitel();

    // The file name of the current playlist with its extension, without a folder; empty
    // until the first new or load.
    QString PlaylistName;
    // The list on screen is to be written to its file before it is left.
    bool PlaylistGeaendert = false;
    // The next load takes PlaylistName as it stands, without a dialog.
    bool PlaylistAusListe = false;
    // The state of the toggle of all check marks.
    bool AlleHaken = false;
    // The next title search begins at the first row of the table.
    bool PlaylistTitelErzwingen = false;

protected:
    bool eventFilter(QObject* objekt, QEvent* ereignis) override;

private:
    // A row of the list for the path of a song, checked.
    static QTreeWidgetItem* ZeileAnlegen(const QString& pfad);
    // Column 3 + column 2 + column 1.
    static QString ZeilenPfad(const QTreeWidgetItem* zeile);
    // Number of the selected row from 1; 0 when none is selected.
    int GewaehlteZeile() const;
    // The head of column 1: the playlist's name and its number of rows.
    void KopfSchreiben();
    // The played marks, one for each row from 1 on.
    void MarkenAnlegen();
    // The list shows in the place of the text tabs.
    void ListeZeigen(bool zeigen);
    // The list's events.
    void lvwPlaylist_Click();
    void lvwPlaylist_GotFocus();
    void lvwPlaylist_KeyUp(int taste);
    void lvwPlaylist_MouseUp();
};
