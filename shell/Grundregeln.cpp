#include "shell/Grundregeln.h"

#include "platform/Dienste.h"
#include "platform/Uhr.h"

#include <QCoreApplication>

void EreignisseZulassen() { QCoreApplication::processEvents(); }

void Warten(int ms)
{
    D().uhr().warten(ms);
    QCoreApplication::processEvents();
}

double Val(const QString& text)
{
    QString zahl;
    for (const QChar c : text.trimmed()) {
        if (c.isDigit() || (c == u'.' && !zahl.contains(u'.')) || (c == u'-' && zahl.isEmpty()))
            zahl += c;
        else
            break;
    }
    return zahl.toDouble();
}

int GanzeZahl(const QString& text)
{
    const QString t = text.trimmed();
    qsizetype ende = 0;
    if (ende < t.size() && (t[ende] == u'-' || t[ende] == u'+'))
        ++ende;
    while (ende < t.size() && t[ende].isDigit() && ende < 10)
        ++ende;
    return t.left(ende).toInt();
}

std::optional<double> Zahl(const QString& text)
{
    bool ok = false;
    double wert = text.trimmed().toDouble(&ok);
    if (!ok)
        wert = QString(text.trimmed()).replace(u',', u'.').toDouble(&ok);
    if (!ok)
        return std::nullopt;
    return wert;
}

std::optional<bool> Wahrheit(const QString& text)
{
    const QString t = text.trimmed();
    if (t.compare(u"True", Qt::CaseInsensitive) == 0 || t.compare(u"Wahr", Qt::CaseInsensitive) == 0)
        return true;
    if (t.compare(u"False", Qt::CaseInsensitive) == 0 || t.compare(u"Falsch", Qt::CaseInsensitive) == 0)
        return false;
    if (const auto zahl = Zahl(t))
        return *zahl != 0;
    return std::nullopt;
}

QString WahrheitText(bool wert) { return wert ? QStringLiteral("True") : QStringLiteral("False"); }

QString EndungVier(const QString& name) { return name.right(4).toLower(); }
