#include "collections/Ausschlusslisten.h"

#include "platform/Mauszeiger.h"
#include "platform/Textdatei.h"
#include "shell/Globale.h"

#include <QListWidget>

QString StilAusschlussPfad(const QString& verwendung)
{
    if (verwendung == VerwendungCD)
        return ProgrammOrdner + StilAusschlussDateiCD;
    if (verwendung == VerwendungAbspielen)
        return ProgrammOrdner + StilAusschlussDateiAbspielen;
    return {};
}

QString BandAusschlussPfad(const QString& verwendung)
{
    if (verwendung == VerwendungCD)
        return ProgrammOrdner + BandAusschlussDateiCD;
    if (verwendung == VerwendungAbspielen)
        return ProgrammOrdner + BandAusschlussDateiAbspielen;
    return {};
}

QStringList AusschlussEintraege(const QString& pfad, bool* vorhanden)
{
    bool ok = false;
    QStringList zeilen;
    if (!pfad.isEmpty())
        zeilen = TextdateiLesen(pfad, &ok);
    if (vorhanden)
        *vorhanden = ok;
    return zeilen;
}

bool AusschlussListeLaden(QListWidget* liste, const QString& pfad)
{
    bool vorhanden = false;
    const QStringList zeilen = AusschlussEintraege(pfad, &vorhanden);
    if (!vorhanden || !liste)
        return false;
    Mauszeiger(ZeigerSanduhr);
    liste->clear();
    liste->addItems(zeilen);
    Mauszeiger(ZeigerStandard);
    return true;
}

bool AusschlussListeSpeichern(const QString& pfad, const QStringList& eintraege)
{
    if (pfad.isEmpty())
        return false;
    return TextdateiSchreiben(pfad, eintraege);
}

bool AusschlussTrifft(const QListWidget* liste, const QString& text)
{
    if (!liste)
        return false;
    for (int i = 0; i < liste->count(); ++i)
        if (text.contains(liste->item(i)->text(), Qt::CaseSensitive))
            return true;
    return false;
}
