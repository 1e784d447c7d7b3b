#pragma once
// The covers of the record view and the strip of covers beside the table: which cover a
// record shows (its external files, else its internal picture), the external list in
// BildPfad, the strip that pages through the covers of the table, and their removal.
#include "shell/Teilbereich.h"

#include <QCache>
#include <QHash>
#include <QPixmap>
#include <QStringList>

#include <string>
#include <vector>

class QByteArray;
class QSize;

class Coververwaltung : public Teilbereich {
public:
    using Teilbereich::Teilbereich;
    void verbinden() override;

    // The folder of the covers beside the catalogue, with its trailing "/".
    static QString CoverOrdner();
    // A picture read to fit into the size (never larger than the file itself), so that a
    // huge file is not decoded in full; an empty pixmap for a damaged or unreadable file.
    static QPixmap BildLesen(const QString& pfad, const QSize& hoechstens);
    static QPixmap BildLesen(const QByteArray& daten, const QSize& hoechstens);
    // Shows a file in imgBildpfad; false when it cannot be read (the pane is then blank).
    bool CoverZeigen(const QString& pfad);

    // Lists the cover folder in filCover where it changed since it was last listed; true
    // when it had not.
    bool CoverOrdnerLesen();
    void CoverListeAktuell();
    void CoverAktualisieren();
    // True while the table is the one lstCover was counted from.
    bool ListeGiltFuerTabelle() const { return m_listeGilt; }
    // CoverAktualisieren after a save of one record that the table held under alterName
    // (none for a new record) and holds under neuerName when imGrid. Where the list was
    // counted from the table as it stood before the save and the folder is unchanged, only
    // these two names are counted anew, not the whole table against the whole folder.
    void CoverNachSpeichern(bool galtVorher, const QString* alterName, const QString& neuerName, bool imGrid);
    void CoverDown();
    void CoverUp();
    void CoverAZ();
    // Counts the thumbnails the window's height leaves room for, then redraws the page.
    void CoverPlaetzeAnpassen();

    void ExterneCoverLaden();
    void ExternesCoverEntfernen();

    // The record change: which pane shows which cover.
    void DatensatzCover();
    // The record change: the strip goes to the page of the record's cover.
    void DatensatzStreifen();

    void chkBildpfad_Click();
    void cboBildpfad_Click();
    void imgCover_Click(int platz);
    void imgCover_DblClick(int platz);
    void mnuBildLoeschen_Click();
    void mnuCoverPfadEnfernen_Click();
    void mnuBildDatenbankpfad_Click(bool an);

    // The index of the last thumbnail in use: the number of visible thumbnails minus 1.
    int CoverLetzterPlatz = 0;
    // The index in lstCover of the cover on the first place of the strip.
    int CoverStart = 0;
    // ExternesCoverEntfernen also moves the file to the trash.
    bool ExterneDateiLoeschen = false;
    // One-shot: the next record change leaves the strip where it is.
    bool CoverSucheAuslassen = false;

private:
    // The path of one entry of BildPfad under the folder rule.
    QString eintragPfad(const QString& eintrag) const;
    // Fills cboBildpfad; decodes the first cover only when its pane is to show it.
    void externeListeFuellen(bool zeigen);
    void bildLoeschen(bool dateiAuchLoeschen, const QString& frage);
    // The cover of the record, read at the size of the enlarged view.
    QPixmap grossesBild(bool intern) const;
    void vergroessern(bool intern);
    void grossAusrichten();
    // Puts lstCover from first on into the places 0 to bis; nothing is read again when
    // the places would show what they show.
    void streifenZeichnen(int erster, int bis);
    QPixmap vorschau(const QString& pfad, const QSize& groesse);
    void suchtexteBauen();

    // The names of lstCover joined by line feeds, as they are and in lower case, for the
    // substring searches of each record change.
    struct Namenstext {
        std::string text;
        std::vector<size_t> anfang; // where each entry starts
        void bauen(const QStringList& namen, bool klein);
        // The first entry that holds both texts; -1 when none does.
        int erstes(const QString& a, const QString& b) const;
    };


    QStringList m_liste; // lstCover's entries
    QStringList m_dateien;       // filCover's files, in its order, when the list was made
    QStringList m_dateiNamen;    // the same without their extensions
    QHash<QString, int> m_zeilen; // rows of the table by name, for the names of m_dateien
    bool m_listeGilt = false;     // no change of the table since
    Namenstext m_namen;
    Namenstext m_namenKlein;
    QStringList m_gezeigt;                      // the paths in the places now
    QString m_ordnerStand;                      // the cover folder and its time when it was listed
    QCache<QString, QPixmap> m_vorschauen{600}; // scaled thumbnails by path, size and time
    bool m_imDatensatz = false;                 // the record change runs the box's handler
};
