#pragma once
// Start of the program: the application object, the services, the main window.
#include <QString>

int RillenkammerStarten(int argc, char* argv[]);

// Makes the embedded resources (template catalogue, sounds, texts) reachable.
void RessourcenAnmelden();

// Copies every resource file that is missing in the folder into it; files the user
// changed are never overwritten. Returns the number of files copied.
int RessourcenKopieren(const QString& programmOrdner);
