#pragma once
// The commands that bring a cover into a Carrier or take one out: from a file, from the
// clipboard, from a scanner; into the record (internal) or into the cover folder with an
// entry in BildPfad (external).
#include "shell/Teilbereich.h"

#include <QImage>
#include <QString>

class Bildimport : public Teilbereich {
public:
    using Teilbereich::Teilbereich;
    void verbinden() override;

    void mnuBildLaden_Click();
    void MenuBildkopieren_Click();
    void MenuBildEinfuegen_Click();
    void mnuCoverExAblegen_Click();
    void mnuBildScannen_Click();
    // Saves the picture of imgBildpfad under a name and in a format the user chooses and
    // adds it to BildPfad. False when nothing was saved.
    bool BildSpeichern();

private:
    // Shows the pane that takes the picture, internal or external, and returns the
    // clipboard's picture; without one it says so and returns a null image.
    QImage AblageFuer(bool extern_, const QString& fehlerText);
    // The clipboard's picture into Bild1 and the record's Bilder.
    void InternEinfuegen(const QString& fehlerText);
    void ExternAblegen(const QString& fehlerText);
};

// The cover folder of the open catalogue, with "/".
QString Coverordner();
// The target of the save dialog: the chosen name with the extension of filter 1 "bmp",
// 2 "jpg", 3 "gif" or 4 "png" in place of its own.
QString BildZiel(const QString& dateiname, int filterIndex);
// Reads a picture file; a null image with the reason in German when the file is missing,
// empty, damaged or too large to hold.
QImage BildLesen(const QString& pfad, QString& fehler);
// Writes the picture by the target's extension: BMP, JPEG at quality 70, GIF or PNG.
// An empty text on success, else the reason; a failed write leaves no part of a file.
QString BildSchreiben(const QImage& bild, const QString& ziel);
