#include "platform/Dialogdienst.h"

#include "platform/Dienste.h"

QString MsgAntwort;

QString MsgNimb(const QString& text, int typ, int standard, const QString& titel, int sekunden,
                qint64 hintergrund, qint64 textfarbe)
{
    MsgAntwort.clear();
    MsgAntwort = D().dialoge().MsgNimb({text, typ, standard, titel, sekunden, hintergrund, textfarbe});
    return MsgAntwort;
}

QString InputNimb(const QString& prompt, const QString& titel, const QString& vorgabe,
                  qint64 hintergrund, qint64 textfarbe)
{
    return D().dialoge().InputNimb({prompt, titel, vorgabe, hintergrund, textfarbe});
}
