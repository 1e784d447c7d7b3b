#include "shell/Anwendung.h"

int main(int argc, char* argv[])
{
    return RillenkammerStarten(argc, argv);
}
