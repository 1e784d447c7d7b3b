#pragma once
// The mouse pointer of the application: 11 the wait cursor, 13 the busy cursor, 0 default.
// One state, not a stack: setting the default clears whatever was set.
constexpr int ZeigerStandard = 0;
constexpr int ZeigerSanduhr = 11;
constexpr int ZeigerBeschaeftigt = 13;

void Mauszeiger(int art);
int MauszeigerArt();
