#pragma once
// The Track file operations of mnuExtras: rename, text before all, search and replace in
// names, cut characters at the front or the back, capitalise, save a copy, delete, and the
// two ways between the Songs pane and the file names. They act on the entries of filTrack
// (the marked ones unless the command says otherwise) in the music folder of the current
// Carrier, and on nothing else but the target the user chose.
//
// What keeps the files safe, in every command:
// - the folder is the trimmed Musikpfad; it must be an absolute path other than "/", exist,
//   and be the folder filTrack lists, else nothing happens and a message says why;
// - a new name is one name in that folder: never empty, never with "/" or "..", never
//   beginning with a dot, at most 255 bytes;
// - a rename never replaces a file (the system's rename without replacing), and a Track
//   that vanished or plays just now is not touched;
// - a copy is written under a temporary name in the target folder and takes its name only
//   when it is complete and on the disk;
// - no file name ever goes into a shell command: everything is a system call.
#include "shell/Teilbereich.h"

#include <QHash>
#include <QString>
#include <QStringList>

#include <functional>
#include <optional>

// Deletes a file (used by this Part and by others). Mode 0 deletes it directly, 1 moves it
// to the trash, 2 overwrites it from its start with blanks in blocks of 4096 bytes (the
// last one as long as what remains), puts that on the disk and then deletes it. Mode 2
// takes only a regular file with no further hard link: no symbolic link, device, pipe or
// folder. The flag is that of the original call (all callers pass true); it changes
// nothing here. True when the file is gone; otherwise *grund, when given, says in German why.
bool DateiLoeschen(const QString& pfad, int modus, bool flag = true, QString* grund = nullptr);

// The name with word beginnings in capitals: trimmed; the first ASCII letter in upper case
// (what stands before it stays); then each ASCII small letter that follows one of
// " :-()" in upper case. Umlauts are never changed.
QString WortanfangGross(const QString& name);

class Trackdateien : public Teilbereich {
public:
    using Teilbereich::Teilbereich;
    void verbinden() override;

    void mnuTrackName_Click();
    void mnuTracksRenameTextTrack_Click();
    void mnuTrackSuchenErsetzen_Click();
    void mnuTrackKill_Click();
    void mnuTrackSpeichernUnter_Click();
    void mnuTracksZeichenEntfernen_Click();
    void mnuTracksZeichenHintenEntfernen_Click();
    void mnuTrackGrossbuchstabe_Click();
    void mnuSongsZeichenEntfernen_Click();
    void mnuTrackMovieCopy_Click();
    void mnuTrackMovieUmbenennen_Click();

    // The deletion of frmKillTrack: each marked Track by DateiLoeschen in that mode, with the
    // sound after each one, then the list read again. A Track that cannot go is passed over;
    // one message at the end names each with its reason.
    void TracksLoeschen(int modus);

    // Test seam of the copy: called after each block written with the bytes so far; a
    // return other than 0 is taken as the error number (errno) of a failed write.
    static std::function<int(qint64 geschrieben)> Kopierhaken;

private:
    // The checked music folder with its trailing "/"; throws a Laufzeitfehler that says
    // what is wrong with it.
    QString Musikordner() const;
    // The entries of filTrack, all or the marked ones, as they stand now.
    QStringList Eintraege(bool nurMarkierte) const;
    // Renames in the folder after every check; throws on failure. Nothing when equal.
    void Umbenennen(const QString& ordner, const QString& alt, const QString& neu);
    using Plan = QList<QPair<QString, QString>>;
    // The frame of a renaming command: one at a time, the folder checked, the plan made
    // (every new name checked) before the first rename, the list read again afterwards,
    // an error shown under the title. plane gives nothing when the user stopped. True when
    // the plan was carried out.
    bool PlanAusfuehren(const QString& titel, const std::function<std::optional<Plan>()>& plane);
    // Old and new names of the marked entries by a rule; names the rule keeps drop out.
    Plan NeueNamen(const std::function<QString(const QString&)>& regel) const;
    // True when the player has that file open just now.
    bool WirdGespielt(const QString& pfad) const;
    // Reads filTrack again and counts it in Bez(12). The marks and the current entry stay
    // where their Tracks are, under their new names where they were renamed.
    void ListeErneuern();
    // The n of "n characters", asked; nothing for Exit.
    std::optional<int> ZahlErfragen(const QString& prompt, const QString& titel,
                                    const QString& vorgabe) const;
    // Applies SeitenrandLinks to the whole of TextSongs.
    void SongsRandSetzen();

    // The renames since the list was last read: old name to new.
    QHash<QString, QString> m_umbenannt;
    // The folder the save dialog showed last; ProgrammOrdner until then.
    QString m_speicherOrdner;
    // A command is running: one that lets events run is not entered again.
    bool m_laeuft = false;
};
