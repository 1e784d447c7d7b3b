#pragma once
// The searches over the catalogue: the search window with its SQL filter and its
// replacement, the search by song rating that collects a playlist, and the walk of the
// table by the main window's search field.
#include "shell/Teilbereich.h"

#include <QString>

class QTextEdit;

class Suche : public Teilbereich {
public:
    using Teilbereich::Teilbereich;
    void verbinden() override;

    void MenuSuchen_Click();
    // The walk by the text of the search field.
    void TabelleDurchsuchen();
    // The walk by a term already in lower case; the search of a playlist's song passes
    // vonVorn and stays silent on a miss. True when a row was found.
    bool TabelleDurchsuchenNach(const QString& begriff, bool mitTon, bool vonVorn = false);

    // Rewrites the values of the searched columns of the table's rows in one transaction;
    // the number of records changed, or -1 when Esc undid them.
    int Ersetzen();

private:
    void SongBewertungSuchen(int spalteStil);
    bool DatensatzZeigtBegriff(const QString& begriff);
    static bool TextMarkieren(QTextEdit* text, const QString& begriff);
    void SuchfeldFaerben(qint64 farbe);
    void TextindexBereitstellen();

    bool m_indexBau = false;
    QString m_ohneIndex; // the catalogue whose index was refused or stopped this session
};
