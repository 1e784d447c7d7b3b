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
// Table layout flags.
extern bool TabelleNichtAnordnen;
extern bool AutosizeLaeuft;
extern bool SortAbsteigend;
