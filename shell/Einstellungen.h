#pragma once
// The settings store: per user, one section "Options" under an application name. Every
// value is a string, written through at once; keys are found without regard to case and
// keep the spelling the store first saw.
#include <QString>

inline const QString AppName = QStringLiteral("Rillenkammer");
inline const QString AppNameVolume = QStringLiteral("RillenkammerVolume");
inline const QString Sektion = QStringLiteral("Options");

QString GetSetting(const QString& app, const QString& sektion, const QString& schluessel,
                   const QString& vorgabe = {});
void SaveSetting(const QString& app, const QString& sektion, const QString& schluessel,
                 const QString& wert);

// Shorthands for application "Rillenkammer", section "Options".
inline QString Lesen(const QString& schluessel, const QString& vorgabe = {})
{
    return GetSetting(AppName, Sektion, schluessel, vorgabe);
}
inline void Speichern(const QString& schluessel, const QString& wert)
{
    SaveSetting(AppName, Sektion, schluessel, wert);
}

// The file behind an application name ($XDG_CONFIG_HOME/Rillenkammer/<app>.ini).
QString EinstellungsDatei(const QString& app);
// Forgets the open stores, so that the next access reads the files anew (tests, and a
// change of XDG_CONFIG_HOME).
void EinstellungenSchliessen();
