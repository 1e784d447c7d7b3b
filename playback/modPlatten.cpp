#include "playback/modPlatten.h"

#include "platform/Dienste.h"
#include "platform/Medien.h"

#include <QFileInfo>

bool MciDateiAbspielen(const QString& pfad, const QString& alias)
{
    // A path that names no file never reaches the engine.
    if (pfad.isEmpty() || !QFileInfo(pfad).isFile())
        return false;
    return D().medien().oeffnenUndSpielen(pfad, alias);
}

void MciStoppen(const QString& alias) { D().medien().stoppenUndSchliessen(alias); }

double BassTracklaenge(const QString& pfad) { return D().medien().laenge(pfad); }
