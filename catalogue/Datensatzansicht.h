#pragma once
// The record view: the bound fields follow the current record of Data1; what else
// happens at each change of the record; the six stars of the Carrier.
#include "shell/Teilbereich.h"

#include <QSet>
#include <QString>

#include <vector>

class QTextEdit;
class QWidget;

class Datensatzansicht : public Teilbereich {
public:
    using Teilbereich::Teilbereich;
    void verbinden() override;

    void Data1_Reposition();
    void Data1_Validate();
    void AnzahlTontraeger();
    void CDSterneZeichnen();
    void imgCDnote_Click(int index);
    // Moves to the Carrier whose folder is playing.
    void AktuelleCDanzeigen();
    void TrackListeLaden();
    // Fills the bound controls from the current record.
    void GebundeneFelderLaden();
    // True when a bound control holds something else than the record gave it.
    bool FelderGeaendert() const;

private:
    // The text of a rich text pane from a field, and back.
    void TextfensterSetzen(QTextEdit* text, const QString& wert);
    QString TextfensterLesen(QTextEdit* text) const;

    // The bound record controls: control, column.
    struct Bindung {
        QWidget* steuerelement;
        QString feld;
    };
    std::vector<Bindung> m_bindungen;
    std::vector<QString> m_geladeneWerte; // what each bound control got from the record
    QSet<QTextEdit*> m_geaenderteTexte;   // rich text panes changed since the record came
    bool m_gebundenLaden = false; // the record fills the controls, no edit
};
