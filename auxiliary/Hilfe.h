#pragma once
// The help pages: HTML files shipped in the program folder under "Hilfe/".
#include <QString>

// Opens the page in the program that shows HTML; a page that is not there is reported.
void HilfeAufrufen(const QString& seite);
