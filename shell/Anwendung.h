#pragma once
// Start of the program: the application object, the services, the main window.
int RillenkammerStarten(int argc, char* argv[]);

// Makes the embedded resources (template catalogue, sounds, texts) reachable.
void RessourcenAnmelden();
