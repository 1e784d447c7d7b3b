#include "shell/Einstellungen.h"

#include "platform/Pfade.h"

#include <QDir>
#include <QHash>
#include <QSettings>

#include <memory>
#include <map>

namespace {

struct Speicher {
    std::unique_ptr<QSettings> settings;
    // Lower-case key (with section) to the spelling in the file.
    QHash<QString, QString> schreibweise;
};

std::map<QString, Speicher>& speicherListe()
{
    static std::map<QString, Speicher> liste;
    return liste;
}

Speicher& speicher(const QString& app)
{
    auto& liste = speicherListe();
    auto it = liste.find(app);
    if (it != liste.end())
        return it->second;
    Speicher s;
    s.settings = std::make_unique<QSettings>(EinstellungsDatei(app), QSettings::IniFormat);
    for (const QString& k : s.settings->allKeys())
        s.schreibweise.insert(k.toLower(), k);
    return liste.emplace(app, std::move(s)).first->second;
}

QString pfadImSpeicher(const QString& sektion, const QString& schluessel)
{
    return sektion + u'/' + schluessel;
}

} // namespace

QString EinstellungsDatei(const QString& app) { return EinstellungsOrdner() + app + QStringLiteral(".ini"); }

void EinstellungenSchliessen() { speicherListe().clear(); }

QString GetSetting(const QString& app, const QString& sektion, const QString& schluessel,
                   const QString& vorgabe)
{
    Speicher& s = speicher(app);
    const auto it = s.schreibweise.constFind(pfadImSpeicher(sektion, schluessel).toLower());
    if (it == s.schreibweise.constEnd())
        return vorgabe;
    const QVariant wert = s.settings->value(*it);
    if (!wert.isValid())
        return vorgabe;
    // A value written unquoted by another program with a comma reads as a list.
    if (wert.typeId() == QMetaType::QStringList)
        return wert.toStringList().join(u',');
    return wert.toString();
}

void SaveSetting(const QString& app, const QString& sektion, const QString& schluessel,
                 const QString& wert)
{
    Speicher& s = speicher(app);
    const QString pfad = pfadImSpeicher(sektion, schluessel);
    const QString klein = pfad.toLower();
    auto it = s.schreibweise.find(klein);
    if (it == s.schreibweise.end())
        it = s.schreibweise.insert(klein, pfad);
    else if (s.settings->value(*it).toString() == wert)
        return; // unchanged: no write, so a layout run does not rewrite the file
    QDir().mkpath(OrdnerAusPfad(s.settings->fileName()));
    s.settings->setValue(*it, wert);
    s.settings->sync();
}
