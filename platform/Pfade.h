#pragma once
// Path helpers. Paths use "/"; a "\" from a catalogue made on Windows splits as well.
#include <QString>

// Everything behind the last separator.
QString DateinameAusPfad(const QString& pfad);
// Everything up to and including the last separator; empty without one.
QString OrdnerAusPfad(const QString& pfad);
// The folder with exactly one trailing "/" (an empty text stays empty).
QString MitSchraegstrich(const QString& ordner);

bool DateiVorhanden(const QString& pfad);
bool OrdnerVorhanden(const QString& pfad);

// $XDG_DATA_HOME/Rillenkammer/, with its trailing "/".
QString ProgrammOrdnerErmitteln();
// $XDG_CONFIG_HOME/Rillenkammer/
QString EinstellungsOrdner();
// $XDG_RUNTIME_DIR, or the temporary folder where none is set.
QString LaufzeitOrdner();
