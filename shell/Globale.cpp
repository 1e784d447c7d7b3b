#include "shell/Globale.h"

QString ProgrammOrdner;
QString DatenbankOrdner;
bool Abbruch = false;
int TrackIndex = 0;
bool PlaylistModus = false;
bool StopGedrueckt = false;
std::vector<int> TrackGespielt;
QString SuchAbfrage;
QString ErsetzenDurch;
QString SqlAnweisung;
QString SuchenNach;
QString Suchspalten;
bool SongBewertungSuche = false;
QString SongBewertungText;
bool TabelleNichtAnordnen = false;
bool TippsVomMenue = false;
bool AutosizeLaeuft = false;
bool SortAbsteigend = false;
