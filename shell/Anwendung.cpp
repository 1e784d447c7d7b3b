#include "shell/Anwendung.h"

#include <QApplication>

void RessourcenAnmelden()
{
    Q_INIT_RESOURCE(rillenkammer);
}

int RillenkammerStarten(int argc, char* argv[])
{
    QApplication app(argc, argv);
    RessourcenAnmelden();
    return 0;
}
