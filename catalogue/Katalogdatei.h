#pragma once
// The catalogue file: load, new, save as, refresh, and the list of recent catalogues.
#include "shell/Teilbereich.h"

#include <QString>

class Katalogdatei : public Teilbereich {
public:
    using Teilbereich::Teilbereich;
    void verbinden() override;

    // With a path the dialog is skipped (the recent list hands its entry over).
    void mnuOeffnen_Click(const QString& pfad = {});
    void mnuNeueDatenbank_Click();
    void mnuSpeichernUnter_Click();
    void MenuAktualisieren_Click();
    void OrdnerMenuPfad(const QString& pfad);
    // The path of recent entry n, and setting it (an empty path hides the entry).
    QString OrdnerEintrag(int index) const;
    void OrdnerEintragSetzen(int index, const QString& pfad);
    void mnuOrdner_Click(int index);

private:
    void DatenbankWiederOeffnen(const QString& pfad, const QString& quelle);
    // New catalogue (a copy of the template) or save as (a copy of the open one).
    void DatenbankKopieAnlegen(const QString& titel, const QString& startordner, bool offeneKopieren,
                               const QString& fehlertitel);
};
