#include "shell/Teilbereich.h"

#include "shell/Ausgabebox.h"

Teilbereich::Teilbereich(Ausgabebox& box)
    : QObject(&box)
    , box(box)
{
}
