#pragma once
// Program-wide values that every window reads.
#include <QString>

#include <vector>

// The application folder, always with a trailing "/".
extern QString ProgrammOrdner;
// The folder of the open database, with its trailing "/".
extern QString DatenbankOrdner;
// Set by Esc and by the stop control; tested and cleared by long loops.
extern bool Abbruch;
// Track of the player: from 0 in filTrack, from 1 in lvwPlaylist.
extern int TrackIndex;
extern bool PlaylistModus;
extern bool StopGedrueckt;
// Played marks of the random choice.
extern std::vector<int> TrackGespielt;
// Shared texts of the search window and the SQL console.
extern QString SuchAbfrage;
extern QString ErsetzenDurch;
extern QString SqlAnweisung;
// The search: the text to replace and the captions of the columns it is replaced in
// (both empty without a replacement), and the search by song rating with its pattern.
extern QString SuchenNach;
extern QString Suchspalten;
extern bool SongBewertungSuche;
extern QString SongBewertungText;
// Table layout flags.
extern bool TabelleNichtAnordnen;
// The tip window was opened from the menu, so it shows whatever the startup setting says.
extern bool TippsVomMenue;
extern bool AutosizeLaeuft;
extern bool SortAbsteigend;
