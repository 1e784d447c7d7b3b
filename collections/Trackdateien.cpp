// The Track file operations. Every command but the deletion and the copy of the names into
// the Songs pane takes the one error route; those two pass over a failed step. What the
// commands change they change by system calls on single names, never through a shell.
#include "collections/Trackdateien.h"

#include "shell/Ausgabebox.h"

#include "collections/frmKillTrack.h"
#include "media/Suchform.h"
#include "platform/Dialogdienst.h"
#include "platform/Dienste.h"
#include "platform/Einheiten.h"
#include "platform/Laufzeitfehler.h"
#include "platform/Mauszeiger.h"
#include "platform/Pfade.h"
#include "platform/Textdatei.h"
#include "playback/Trackliste.h"
#include "playback/modPlatten.h"
#include "shell/Einstellungen.h"
#include "shell/FensterPlatzieren.h"
#include "shell/Globale.h"
#include "shell/Grundregeln.h"
#include "shell/Steuerelemente.h"

#include <QDir>
#include <QFile>
#include <QFileInfo>
#include <QItemSelection>
#include <QLabel>
#include <QScopeGuard>
#include <QSet>
#include <QTextBlockFormat>
#include <QTextCursor>
#include <QTextEdit>

#include <cerrno>
#include <cmath>
#include <cstdio>
#include <cstdlib>
#include <cstring>
#include <vector>

#include <fcntl.h>
#include <sys/stat.h>
#include <unistd.h>

std::function<int(qint64)> Trackdateien::Kopierhaken;

namespace {

// The one name of a Track in its folder may hold none of these.
constexpr qsizetype NameMaxBytes = 255;

// Runs the command unless one of this Part is running already (a command lets events run).
class Sperre {
public:
    explicit Sperre(bool& laeuft)
        : m_laeuft(laeuft)
        , m_frei(!laeuft)
    {
        m_laeuft = true;
    }
    ~Sperre()
    {
        if (m_frei)
            m_laeuft = false;
    }
    explicit operator bool() const { return m_frei; }

private:
    bool& m_laeuft;
    bool m_frei;
};

QString inAnfuehrung(const QString& text) { return u'"' + text + u'"'; }

// A runtime error of the classic table whose description also says what went wrong where.
Laufzeitfehler Fehler(int nummer, const QString& warum)
{
    return Laufzeitfehler(nummer, Fehlerbeschreibung(nummer) + QStringLiteral(": ") + warum);
}

// A failed system call as a runtime error of the classic table, with what was being done.
Laufzeitfehler Systemfehler(int e, const QString& was)
{
    int nummer = Fehlernummer::ZugriffsFehler;
    QString warum;
    switch (e) {
    case EEXIST:
    case ENOTEMPTY:
        nummer = Fehlernummer::DateiExistiertBereits;
        warum = QStringLiteral(
            "Eine Datei dieses Namens ist schon da; sie wird nicht überschrieben.");
        break;
    case ENOENT:
        nummer = Fehlernummer::DateiNichtGefunden;
        warum = QStringLiteral("Die Datei oder ihr Ordner ist nicht mehr vorhanden.");
        break;
    case EACCES:
    case EPERM:
    case EROFS:
        nummer = 70;
        warum = QStringLiteral("Der Ordner oder die Datei ist schreibgeschützt.");
        break;
    case ENOSPC:
    case EDQUOT:
        nummer = 61;
        warum = QStringLiteral("Auf dem Datenträger ist nicht genug Platz.");
        break;
    case ENAMETOOLONG:
        nummer = Fehlernummer::DateinameFalsch;
        warum = QStringLiteral("Der Name ist zu lang.");
        break;
    case EISDIR:
        warum = QStringLiteral("Das Ziel ist ein Ordner.");
        break;
    case EBUSY:
    case ETXTBSY:
        warum = QStringLiteral("Die Datei ist in Gebrauch.");
        break;
    case EIO:
        nummer = 57;
        warum = QStringLiteral("Der Datenträger meldet einen Lesefehler oder Schreibfehler.");
        break;
    default:
        warum = QStringLiteral("Systemmeldung: ") + QString::fromLocal8Bit(std::strerror(e));
        break;
    }
    return Fehler(nummer, was + u' ' + warum);
}

// Renames without ever replacing a file; 0 or the error number.
int umbenennenOhneErsetzen(const QByteArray& von, const QByteArray& nach)
{
    if (::renameat2(AT_FDCWD, von.constData(), AT_FDCWD, nach.constData(), RENAME_NOREPLACE) == 0)
        return 0;
    int e = errno;
    if (e != EINVAL && e != ENOSYS && e != EOPNOTSUPP)
        return e;
    // A file system without that rename: a hard link takes the name only while it is free.
    if (::link(von.constData(), nach.constData()) == 0) {
        if (::unlink(von.constData()) != 0) {
            e = errno;
            ::unlink(nach.constData());
            return e;
        }
        return 0;
    }
    e = errno;
    if (e != EPERM && e != EOPNOTSUPP && e != EMLINK)
        return e;
    // Nor hard links (FAT): look, then rename.
    struct stat st;
    if (::lstat(nach.constData(), &st) == 0)
        return EEXIST;
    return ::rename(von.constData(), nach.constData()) == 0 ? 0 : errno;
}

// A new name of a Track: one name in its folder, visible in the list.
void NamePruefen(const QString& neu)
{
    auto falsch = [](const QString& warum) { return Fehler(Fehlernummer::DateinameFalsch, warum); };
    if (neu.isEmpty())
        throw falsch(QStringLiteral("Der neue Name ist leer. Es wurde nichts umbenannt."));
    if (neu.contains(u'/') || neu.contains(QStringLiteral("..")) || neu.contains(QChar(0)))
        throw falsch(
            QStringLiteral("Der Name ") + inAnfuehrung(neu)
            + QStringLiteral(" enthält \"/\" oder \"..\". Ein Track bleibt in seinem Musikordner; "
                             "er wird nicht umbenannt."));
    if (neu.startsWith(u'.'))
        throw falsch(
            QStringLiteral("Der Name ") + inAnfuehrung(neu)
            + QStringLiteral(
                " beginnt mit einem Punkt; der Track wäre in der Liste nicht mehr zu sehen. "
                "Er wird nicht umbenannt."));
    if (QFile::encodeName(neu).size() > NameMaxBytes)
        throw falsch(QStringLiteral("Der Name ") + inAnfuehrung(neu)
                     + QStringLiteral(" ist länger als 255 Byte. Er wird nicht umbenannt."));
}

// n characters taken away from a name of that length: the platform's string functions
// refuse more characters than there are.
void ZeichenzahlPruefen(int n, const QString& text)
{
    if (n > text.size())
        throw Fehler(
            Fehlernummer::UngueltigerAufruf,
            QStringLiteral("%1 Zeichen sollen entfernt werden, aber ").arg(n) + inAnfuehrung(text)
                + QStringLiteral(" hat nur %1. Es wurde nichts geändert.").arg(text.size()));
}

// Writes all of the buffer; 0 or the error number.
int allesSchreiben(int fd, const char* daten, qint64 laenge, off_t* stelle = nullptr)
{
    while (laenge > 0) {
        const ssize_t n = stelle ? ::pwrite(fd, daten, size_t(laenge), *stelle)
                                 : ::write(fd, daten, size_t(laenge));
        if (n < 0) {
            if (errno == EINTR)
                continue;
            return errno;
        }
        if (n == 0)
            return ENOSPC;
        daten += n;
        laenge -= n;
        if (stelle)
            *stelle += n;
    }
    return 0;
}

// True when the process may add and remove names in the folder of the file (and, in a
// folder with the sticky bit, remove this file).
bool ordnerBeschreibbar(const QByteArray& ordner, const struct stat& datei)
{
    if (::faccessat(AT_FDCWD, ordner.constData(), W_OK | X_OK, AT_EACCESS) != 0)
        return false;
    struct stat o;
    if (::stat(ordner.constData(), &o) != 0)
        return false;
    const uid_t ich = ::geteuid();
    return !(o.st_mode & S_ISVTX) || ich == 0 || datei.st_uid == ich || o.st_uid == ich;
}

bool sicherLoeschen(const QByteArray& p, QString* grund)
{
    auto nein = [grund](const QString& g) {
        if (grund)
            *grund = g;
        return false;
    };
    struct stat st;
    if (::lstat(p.constData(), &st) != 0)
        return nein(errno == ENOENT ? QStringLiteral("ist nicht mehr vorhanden")
                                    : QStringLiteral("ist nicht lesbar (")
                            + QString::fromLocal8Bit(std::strerror(errno)) + u')');
    if (!S_ISREG(st.st_mode))
        return nein(QStringLiteral(
            "ist keine gewöhnliche Datei (eine Verknüpfung, ein Ordner oder ein Gerät) und "
            "wird nicht sicher gelöscht"));
    if (st.st_nlink > 1)
        return nein(QStringLiteral(
            "hat weitere harte Verknüpfungen; das Überschreiben träfe auch diese, darum wird "
            "sie nicht sicher gelöscht"));
    // Only what can also be removed is overwritten: no file is left blank but still there.
    const QByteArray ordner = QFile::encodeName(OrdnerAusPfad(QFile::decodeName(p)));
    if (!ordnerBeschreibbar(ordner.isEmpty() ? QByteArray(".") : ordner, st))
        return nein(
            QStringLiteral("liegt in einem schreibgeschützten Ordner und bleibt unverändert"));
    const int fd = ::open(p.constData(), O_WRONLY | O_NOFOLLOW | O_NOCTTY | O_NONBLOCK | O_CLOEXEC);
    if (fd < 0)
        return nein(errno == EACCES || errno == EPERM || errno == EROFS
                        ? QStringLiteral("ist schreibgeschützt und bleibt unverändert")
                        : QStringLiteral("lässt sich nicht öffnen (")
                            + QString::fromLocal8Bit(std::strerror(errno)) + u')');
    auto zu = qScopeGuard([fd] { ::close(fd); });
    struct stat offen;
    // The file opened must be the one looked at, not something put in its place meanwhile.
    if (::fstat(fd, &offen) != 0 || !S_ISREG(offen.st_mode) || offen.st_dev != st.st_dev
        || offen.st_ino != st.st_ino)
        return nein(
            QStringLiteral("wurde während des Löschens ausgetauscht und bleibt unverändert"));
    static const QByteArray leer(4096, ' ');
    off_t stelle = 0;
    for (off_t rest = offen.st_size; rest > 0;) {
        const qint64 block = std::min<off_t>(rest, leer.size());
        if (const int e = allesSchreiben(fd, leer.constData(), block, &stelle))
            return nein(QStringLiteral("ließ sich nicht überschreiben (")
                        + QString::fromLocal8Bit(std::strerror(e)) + u')');
        rest -= block;
    }
    // The blanks reach the disk before the name goes.
    if (::fsync(fd) != 0)
        return nein(QStringLiteral("ließ sich nicht überschreiben (")
                    + QString::fromLocal8Bit(std::strerror(errno)) + u')');
    zu.dismiss();
    ::close(fd);
    if (::unlink(p.constData()) != 0)
        return nein(QStringLiteral("wurde überschrieben, ließ sich aber nicht entfernen (")
                    + QString::fromLocal8Bit(std::strerror(errno)) + u')');
    return true;
}

// Copies one file through a temporary name in the target folder, which takes the target's
// name only when the copy is whole and on the disk. False when stopped by Esc; throws on
// failure. No temporary file stays behind either way.
bool TrackKopieren(const QString& quelle, const QString& ziel, bool ersetzen)
{
    const QByteArray q = QFile::encodeName(quelle);
    const QByteArray z = QFile::encodeName(ziel);
    const int ein = ::open(q.constData(), O_RDONLY | O_CLOEXEC | O_NOCTTY | O_NONBLOCK);
    if (ein < 0)
        throw Systemfehler(errno,
                           QStringLiteral("Der Track ") + inAnfuehrung(quelle)
                               + QStringLiteral(" lässt sich nicht lesen."));
    auto einZu = qScopeGuard([ein] { ::close(ein); });
    struct stat st;
    if (::fstat(ein, &st) != 0 || !S_ISREG(st.st_mode))
        throw Fehler(Fehlernummer::ZugriffsFehler,
                     inAnfuehrung(quelle) + QStringLiteral(" ist keine gewöhnliche Datei."));
    QByteArray vorlage = QFile::encodeName(OrdnerAusPfad(ziel)) + ".rk-kopie-XXXXXX";
    const int aus = ::mkostemp(vorlage.data(), O_CLOEXEC);
    if (aus < 0)
        throw Systemfehler(errno,
                           QStringLiteral("Im Zielordner ") + inAnfuehrung(OrdnerAusPfad(ziel))
                               + QStringLiteral(" lässt sich keine Datei anlegen."));
    bool offen = true;
    auto aufraeumen = qScopeGuard([&] {
        if (offen)
            ::close(aus);
        ::unlink(vorlage.constData());
    });
    const QString was = QStringLiteral("Die Kopie nach ") + inAnfuehrung(ziel)
        + QStringLiteral(" ist nicht entstanden; eine vorhandene Datei blieb unverändert.");
    // Esc stops the copy between two blocks; the windows are painted meanwhile.
    const EscAbbruch esc;
    Abbruch = false;
    std::vector<char> puffer(size_t(1) << 20);
    qint64 geschrieben = 0;
    for (;;) {
        const ssize_t n = ::read(ein, puffer.data(), puffer.size());
        if (n < 0) {
            if (errno == EINTR)
                continue;
            throw Systemfehler(errno, was);
        }
        if (n == 0)
            break;
        if (const int e = allesSchreiben(aus, puffer.data(), n))
            throw Systemfehler(e, was);
        geschrieben += n;
        if (Trackdateien::Kopierhaken)
            if (const int e = Trackdateien::Kopierhaken(geschrieben))
                throw Systemfehler(e, was);
        EreignisseZulassen();
        if (Abbruch) {
            Abbruch = false;
            return false;
        }
    }
    ::fchmod(aus, st.st_mode & 0777);
    if (::fsync(aus) != 0)
        throw Systemfehler(errno, was);
    offen = false;
    if (::close(aus) != 0)
        throw Systemfehler(errno, was);
    const int e = ersetzen ? (::rename(vorlage.constData(), z.constData()) == 0 ? 0 : errno)
                           : umbenennenOhneErsetzen(vorlage, z);
    if (e != 0)
        throw Systemfehler(e, was);
    aufraeumen.dismiss();
    return true;
}

bool gleicheDatei(const QString& a, const QString& b)
{
    struct stat sa, sb;
    return ::stat(QFile::encodeName(a).constData(), &sa) == 0
        && ::stat(QFile::encodeName(b).constData(), &sb) == 0 && sa.st_dev == sb.st_dev
        && sa.st_ino == sb.st_ino;
}

// The title of a Track: its name up to its last dot.
QString Titel(const QString& eintrag)
{
    const qsizetype punkt = eintrag.lastIndexOf(u'.');
    return punkt < 0 ? eintrag : eintrag.left(punkt);
}

// The extension with its dot, or nothing.
QString Endung(const QString& eintrag)
{
    const qsizetype punkt = eintrag.lastIndexOf(u'.');
    return punkt < 0 ? QString() : eintrag.mid(punkt);
}

// A length in seconds as the Songs pane shows it: minutes, ":", two digits.
QString LaengeText(double sekunden)
{
    const long s = std::lround(sekunden);
    const long rest = s % 60;
    return QString::number(s / 60) + u':'
        + (rest < 0 ? QStringLiteral("-%1").arg(-rest, 2, 10, QChar(u'0'))
                    : QStringLiteral("%1").arg(rest, 2, 10, QChar(u'0')));
}

// A line of the Songs pane as a name: the numbering in front goes, again and again.
QString ZeileBereinigen(QString s)
{
    s = s.trimmed();
    QString vorher;
    do {
        vorher = s;
        while (!s.isEmpty() && s[0] >= u'0' && s[0] <= u'9')
            s.remove(0, 1);
        s = s.trimmed();
        if (s.startsWith(u'.'))
            s.remove(0, 1);
        s = s.trimmed();
        if (s.startsWith(u')'))
            s.remove(0, 1);
        s = s.trimmed();
        if (s.startsWith(u'-'))
            s.remove(0, 1);
        s.replace(u'\t', u' ');
        s = s.trimmed();
    } while (s != vorher);
    return s;
}

// The lines of a text pane, with whatever break it holds.
QStringList Zeilen(const QTextEdit* text)
{
    QString t = text->toPlainText();
    t.replace(QChar(QChar::LineSeparator), u'\n');
    t.remove(u'\r');
    return t.split(u'\n');
}

} // namespace

bool DateiLoeschen(const QString& pfad, int modus, bool flag, QString* grund)
{
    Q_UNUSED(flag);
    auto nein = [grund](const QString& g) {
        if (grund)
            *grund = g;
        return false;
    };
    const QByteArray p = QFile::encodeName(pfad);
    struct stat st;
    if (pfad.isEmpty() || ::lstat(p.constData(), &st) != 0)
        return nein(QStringLiteral("ist nicht mehr vorhanden"));
    if (S_ISDIR(st.st_mode))
        return nein(QStringLiteral("ist ein Ordner und wird nicht gelöscht"));
    switch (modus) {
    case 0:
        if (::unlink(p.constData()) != 0)
            return nein(
                errno == EACCES || errno == EPERM || errno == EROFS
                    ? QStringLiteral("liegt in einem schreibgeschützten Ordner und bleibt erhalten")
                    : QStringLiteral("ließ sich nicht löschen (")
                        + QString::fromLocal8Bit(std::strerror(errno)) + u')');
        return true;
    case 1:
        if (!D().papierkorb().verschieben(pfad))
            return nein(QStringLiteral("konnte nicht in den Papierkorb verschoben werden"));
        return true;
    case 2:
        return sicherLoeschen(p, grund);
    default:
        return nein(QStringLiteral("kennt die Löschmethode %1 nicht").arg(modus));
    }
}

QString WortanfangGross(const QString& name)
{
    QString s = name.trimmed();
    auto asciiBuchstabe
        = [](QChar c) { return (c >= u'A' && c <= u'Z') || (c >= u'a' && c <= u'z'); };
    qsizetype i = 0;
    while (i < s.size() && !asciiBuchstabe(s[i]))
        ++i;
    if (i == s.size())
        return s;
    if (s[i] >= u'a')
        s[i] = QChar(s[i].unicode() - 32);
    static const QString trenner = QStringLiteral(" :-()");
    for (qsizetype k = i + 1; k + 1 < s.size(); ++k)
        if (trenner.contains(s[k]) && s[k + 1] >= u'a' && s[k + 1] <= u'z')
            s[k + 1] = QChar(s[k + 1].unicode() - 32);
    return s;
}

void Trackdateien::verbinden()
{
    BefehlVerbinden(box.mnuTrackName, this, [this] { mnuTrackName_Click(); });
    BefehlVerbinden(box.mnuTracksRenameTextTrack, this,
                    [this] { mnuTracksRenameTextTrack_Click(); });
    BefehlVerbinden(box.mnuTrackSuchenErsetzen, this, [this] { mnuTrackSuchenErsetzen_Click(); });
    BefehlVerbinden(box.mnuTrackKill, this, [this] { mnuTrackKill_Click(); });
    BefehlVerbinden(box.mnuTrackSpeichernUnter, this, [this] { mnuTrackSpeichernUnter_Click(); });
    BefehlVerbinden(box.mnuTracksZeichenEntfernen, this,
                    [this] { mnuTracksZeichenEntfernen_Click(); });
    BefehlVerbinden(box.mnuTracksZeichenHintenEntfernen, this,
                    [this] { mnuTracksZeichenHintenEntfernen_Click(); });
    BefehlVerbinden(box.mnuTrackGrossbuchstabe, this, [this] { mnuTrackGrossbuchstabe_Click(); });
    BefehlVerbinden(box.mnuSongsZeichenEntfernen, this,
                    [this] { mnuSongsZeichenEntfernen_Click(); });
    BefehlVerbinden(box.mnuTrackMovieCopy, this, [this] { mnuTrackMovieCopy_Click(); });
    BefehlVerbinden(box.mnuTrackMovieUmbenennen, this, [this] { mnuTrackMovieUmbenennen_Click(); });
}

// ---- The checks every command makes ----

QString Trackdateien::Musikordner() const
{
    auto fehlt
        = [](const QString& warum) { return Fehler(Fehlernummer::PfadNichtGefunden, warum); };
    const QString text = box.TextMusikpfad->text().trimmed();
    if (text.isEmpty())
        throw fehlt(QStringLiteral("Der Tonträger hat keinen Musikpfad."));
    if (!QDir::isAbsolutePath(text))
        throw fehlt(QStringLiteral("Der Musikpfad ") + inAnfuehrung(text)
                    + QStringLiteral(" ist kein vollständiger Pfad (er beginnt nicht mit \"/\")."));
    const QFileInfo info(text);
    if (!info.isDir())
        throw fehlt(QStringLiteral("Der Musikordner ") + inAnfuehrung(text)
                    + QStringLiteral(" ist nicht vorhanden."));
    const QString echt = info.canonicalFilePath();
    if (echt == u"/" || QDir::cleanPath(text) == u"/")
        throw fehlt(
            QStringLiteral("Der Musikpfad ") + inAnfuehrung(text)
            + QStringLiteral(" ist das Wurzelverzeichnis, kein Musikordner eines Tonträgers."));
    // The names come from the list: it must show this folder. A folder without files is
    // not listed at all.
    if (QFileInfo(box.filTrack->Path()).canonicalFilePath() != echt
        && QDir(text).entryList(QDir::Files).isEmpty())
        throw Fehler(Fehlernummer::DateiNichtGefunden,
                     QStringLiteral("Im Musikordner ") + inAnfuehrung(text)
                         + QStringLiteral(" liegen keine Tracks."));
    if (QFileInfo(box.filTrack->Path()).canonicalFilePath() != echt)
        throw Fehler(
            Fehlernummer::ZugriffsFehler,
            QStringLiteral("Die Trackliste zeigt nicht den Ordner des Feldes Musikpfad (")
                + inAnfuehrung(text)
                + QStringLiteral("). Bitte den Tonträger erst speichern oder neu wählen."));
    return MitSchraegstrich(text);
}

QStringList Trackdateien::Eintraege(bool nurMarkierte) const
{
    const Dateiliste* liste = box.filTrack;
    // The marks read once, in list order: asking each row would walk all marks each time.
    std::vector<char> markiert(size_t(liste->count()), nurMarkierte ? 0 : 1);
    if (nurMarkierte)
        for (const QModelIndex& i : liste->selectionModel()->selectedIndexes())
            if (i.row() >= 0 && i.row() < liste->count())
                markiert[size_t(i.row())] = 1;
    QStringList namen;
    for (int i = 0; i < liste->count(); ++i)
        if (markiert[size_t(i)])
            namen << liste->List(i);
    return namen;
}

bool Trackdateien::WirdGespielt(const QString& pfad) const
{
    static const QString spielt = QStringLiteral("playing:  ");
    const QString panel = box.staBar->PanelText(2);
    return panel.startsWith(spielt)
        && QDir::cleanPath(panel.mid(spielt.size())) == QDir::cleanPath(pfad);
}

void Trackdateien::Umbenennen(const QString& ordner, const QString& alt, const QString& neu)
{
    if (neu == alt)
        return;
    NamePruefen(neu);
    const QString quelle = ordner + alt;
    const QString was
        = inAnfuehrung(alt) + QStringLiteral(" → ") + inAnfuehrung(neu) + QStringLiteral(":");
    if (WirdGespielt(quelle))
        throw Fehler(Fehlernummer::ZugriffsFehler,
                     inAnfuehrung(alt) + QStringLiteral(" wird gerade abgespielt."));
    const QByteArray von = QFile::encodeName(quelle);
    const QByteArray nach = QFile::encodeName(ordner + neu);
    struct stat st;
    if (::lstat(von.constData(), &st) != 0)
        throw Fehler(Fehlernummer::DateiNichtGefunden,
                     QStringLiteral("Der Track ") + inAnfuehrung(alt)
                         + QStringLiteral(" ist nicht mehr im Musikordner."));
    int e = umbenennenOhneErsetzen(von, nach);
    if (e == EEXIST && alt.compare(neu, Qt::CaseInsensitive) == 0) {
        // A file system that ignores case finds the old name under the new one: the change
        // of case goes through a name of its own.
        struct stat z;
        if (::lstat(nach.constData(), &z) == 0 && z.st_dev == st.st_dev && z.st_ino == st.st_ino) {
            const QByteArray zwischen
                = QFile::encodeName(ordner + QStringLiteral(".rk-umbenennen-%1").arg(::getpid()));
            e = umbenennenOhneErsetzen(von, zwischen);
            if (e == 0) {
                e = umbenennenOhneErsetzen(zwischen, nach);
                if (e != 0)
                    umbenennenOhneErsetzen(zwischen, von);
            }
        }
    }
    if (e != 0)
        throw Systemfehler(e, was);
    m_umbenannt.insert(alt, neu);
}

bool Trackdateien::PlanAusfuehren(const QString& titel, const std::function<std::optional<Plan>()>& plane)
{
    const Sperre sperre(m_laeuft);
    if (!sperre)
        return false;
    try {
        const QString ordner = Musikordner();
        const std::optional<Plan> plan = plane();
        if (!plan)
            return false;
        for (const auto& [alt, neu] : *plan) {
            Umbenennen(ordner, alt, neu);
            EreignisseZulassen();
        }
        ListeErneuern();
        return true;
    } catch (const Laufzeitfehler& fehler) {
        ListeErneuern();
        Fehlermeldung(fehler, titel);
        return false;
    }
}

Trackdateien::Plan Trackdateien::NeueNamen(const std::function<QString(const QString&)>& regel) const
{
    Plan plan;
    for (const QString& eintrag : Eintraege(true)) {
        const QString neu = regel(eintrag);
        if (neu != eintrag) {
            NamePruefen(neu);
            plan.append({eintrag, neu});
        }
    }
    return plan;
}

void Trackdateien::ListeErneuern()
{
    Dateiliste* liste = box.filTrack;
    QSet<QString> markiert;
    for (int i = 0; i < liste->count(); ++i)
        if (liste->Selected(i))
            markiert.insert(m_umbenannt.value(liste->List(i), liste->List(i)));
    const QString vorher = liste->List(liste->ListIndex());
    const QString aktuell = m_umbenannt.value(vorher, vorher);
    m_umbenannt.clear();
    liste->Refresh();
    // One selection of runs of rows: a thousand single marks would each be merged with all
    // the marks before.
    QItemSelection auswahl;
    for (int i = 0; i < liste->count(); ++i) {
        const QString name = liste->List(i);
        if (!aktuell.isEmpty() && name == aktuell)
            liste->setListIndex(i);
        if (!markiert.contains(name))
            continue;
        int bis = i;
        while (bis + 1 < liste->count() && markiert.contains(liste->List(bis + 1)))
            ++bis;
        auswahl.select(liste->model()->index(i, 0), liste->model()->index(bis, 0));
        if (!aktuell.isEmpty())
            for (int k = i + 1; k <= bis; ++k)
                if (liste->List(k) == aktuell)
                    liste->setListIndex(k);
        i = bis;
    }
    liste->selectionModel()->select(auswahl, QItemSelectionModel::Select);
    if (box.filTrack->isEnabled())
        box.Bez[12]->setText(QStringLiteral("Tracks && Movies ")
                             + QString::number(box.filTrack->count()));
}

std::optional<int> Trackdateien::ZahlErfragen(const QString& prompt, const QString& titel,
                                              const QString& vorgabe) const
{
    const QString antwort = InputNimb(prompt, titel, vorgabe);
    if (antwort.isEmpty())
        return std::nullopt;
    return GanzeZahl(antwort);
}

void Trackdateien::SongsRandSetzen()
{
    const double rand
        = Zahl(Lesen(QStringLiteral("SeitenrandLinks"), QStringLiteral("50"))).value_or(50.0);
    QTextCursor c(box.TextSongs->document());
    c.select(QTextCursor::Document);
    QTextBlockFormat einzug;
    einzug.setLeftMargin(rand / TwipsProPixel);
    c.mergeBlockFormat(einzug);
}

// ---- The commands ----

void Trackdateien::mnuTrackName_Click()
{
    const Sperre sperre(m_laeuft);
    if (!sperre)
        return;
    try {
        const QString ordner = Musikordner();
        const QString eintrag = box.filTrack->List(box.filTrack->ListIndex());
        if (eintrag.isEmpty())
            return;
        const QString neu = InputNimb(eintrag, QStringLiteral("Track umbenennen"), eintrag);
        if (neu.isEmpty())
            return;
        Umbenennen(ordner, eintrag, neu);
        EreignisseZulassen();
        ListeErneuern();
    } catch (const Laufzeitfehler& fehler) {
        ListeErneuern();
        Fehlermeldung(fehler, QStringLiteral("Ausgabebox_mnuTrackName_Click"));
    }
}

void Trackdateien::mnuTracksRenameTextTrack_Click()
{
    const Sperre sperre(m_laeuft);
    if (!sperre)
        return;
    try {
        const QString ordner = Musikordner();
        if (MsgNimb(QStringLiteral("Sollen alle markierten Tracks umbenannt werden?\n\n"
                                   "   vorher:  Songname.mp3\nnachher:  Text Songname.mp3\n\n"
                                   "Anmerk.: Der Text wird anschließend abgefragt!"),
                    22, 1, QStringLiteral("Tracks umbenennen: Text vor Tracks"), 0)
            == u"Nein")
            return;
        QString text = InputNimb(QStringLiteral("Geben Sie nun den Text ein, der vor den "
                                                "markierten Tracks erscheinen soll. Der Text muss "
                                                "die Dateinamenkonvention einhalten und darf "
                                                "zusammen mit dem Track nicht länger als 254 "
                                                "Zeichen sein!"),
                                 QStringLiteral("Text vor Tracks"));
        if (text.isEmpty())
            return;
        for (const QChar c : QStringLiteral("\\/:*?\"<>|"))
            text.remove(c);
        if (text.isEmpty())
            return;
        // Every entry, marked or not, as the command always did.
        const QStringList eintraege = Eintraege(false);
        // The names are checked before the first rename.
        for (const QString& eintrag : eintraege)
            if ((text + QStringLiteral(" - ") + eintrag).size() < 255)
                NamePruefen(text + eintrag);
        for (const QString& eintrag : eintraege) {
            const QString neu = text + eintrag;
            if ((text + QStringLiteral(" - ") + eintrag).size() < 255) {
                Umbenennen(ordner, eintrag, neu);
            } else {
                MsgNimb(QStringLiteral("Neuer Dateiname länger als 255 Zeichen!\n\n") + neu, 3, 0,
                        QStringLiteral("Fehler: Dateiname zu lang"), 0, Farbe::WarnHintergrund);
            }
        }
        EreignisseZulassen();
        ListeErneuern();
    } catch (const Laufzeitfehler& fehler) {
        ListeErneuern();
        Fehlermeldung(fehler, QStringLiteral("Ausgabebox_mnuTracksRenameTextTrack_Click"));
    }
}

void Trackdateien::mnuTrackSuchenErsetzen_Click()
{
    PlanAusfuehren(QStringLiteral("Ausgabebox_mnuTrackSuchenErsetzen_Click"), [this]() -> std::optional<Plan> {
        ErsetzenModus = true;
        AllesErsetzen = false;
        GrossKleinschreibung = false;
        GanzesWort = false;
        Suchform::Anzeigen(&box, QStringLiteral("Suchen und Ersetzen bei allen markierten Tracks"));
        if (SuchAbfrage.isEmpty())
            return std::nullopt;
        return NeueNamen([](QString name) { return name.replace(SuchAbfrage, ErsetzenDurch, Qt::CaseSensitive); });
    });
}

void Trackdateien::mnuTracksZeichenEntfernen_Click()
{
    PlanAusfuehren(QStringLiteral("Ausgabebox_mnuTracksZeichenEntfernen_Click"), [this]() -> std::optional<Plan> {
        const auto n = ZahlErfragen(
            QStringLiteral("Wie viele Zeichen sollen VORNE an den markierten Tracks entfernt "
                           "werden?"),
            QStringLiteral("n Zeichen z. B. Aufzählung entfernen"), QStringLiteral("5"));
        if (!n)
            return std::nullopt;
        return NeueNamen([n](const QString& name) {
            ZeichenzahlPruefen(*n, name);
            return name.right(name.size() - *n);
        });
    });
}

void Trackdateien::mnuTracksZeichenHintenEntfernen_Click()
{
    const bool fertig = PlanAusfuehren(
        QStringLiteral("Ausgabebox_mnuTracksZeichenHintenEntfernen_Click"), [this]() -> std::optional<Plan> {
            const auto n = ZahlErfragen(
                QStringLiteral("Wie viele Zeichen sollen HINTEN an den markierten Tracks entfernt "
                               "werden?"),
                QStringLiteral("n Zeichen z. B. Aufzählung entfernen"), QStringLiteral("4"));
            if (!n)
                return std::nullopt;
            return NeueNamen([n](const QString& name) {
                // The extension stays: only the name before the last dot is cut.
                const QString stamm = Titel(name);
                ZeichenzahlPruefen(*n, stamm);
                return stamm.left(stamm.size() - *n) + Endung(name);
            });
        });
    if (fertig)
        box.trackliste().BewertungTracks();
}

void Trackdateien::mnuTrackGrossbuchstabe_Click()
{
    PlanAusfuehren(QStringLiteral("Ausgabebox_mnuTrackGrossbuchstabe_Click"),
                   [this]() -> std::optional<Plan> { return NeueNamen(WortanfangGross); });
}

void Trackdateien::mnuTrackSpeichernUnter_Click()
{
    const Sperre sperre(m_laeuft);
    if (!sperre)
        return;
    try {
        const QString ordner = Musikordner();
        const QString eintrag = box.filTrack->List(TrackIndex);
        if (eintrag.isEmpty())
            return;
        Dateiauswahl d;
        d.titel = QStringLiteral(" Track speichern unter");
        d.filter = QStringLiteral("alle Dateien (*.*) |*.*");
        d.dateiname = eintrag;
        d.startordner = m_speicherOrdner.isEmpty() ? ProgrammOrdner : m_speicherOrdner;
        d.speichern = true;
        d.ueberschreibenFragen = false;
        const QString ziel = D().dialoge().Datei(d).trimmed();
        if (ziel.isEmpty())
            return;
        m_speicherOrdner = OrdnerAusPfad(ziel);
        const QString quelle = ordner + eintrag;
        struct stat st;
        if (::lstat(QFile::encodeName(quelle).constData(), &st) != 0)
            throw Fehler(Fehlernummer::DateiNichtGefunden,
                         QStringLiteral("Der Track ") + inAnfuehrung(eintrag)
                             + QStringLiteral(" ist nicht mehr im Musikordner."));
        const QString zielOrdner = OrdnerAusPfad(ziel);
        if (!QDir::isAbsolutePath(ziel) || DateinameAusPfad(ziel).isEmpty()
            || !QFileInfo(zielOrdner).isDir())
            throw Fehler(Fehlernummer::PfadNichtGefunden,
                         QStringLiteral("Der Zielordner ") + inAnfuehrung(zielOrdner)
                             + QStringLiteral(" ist nicht vorhanden."));
        const QFileInfo zielInfo(ziel);
        if (zielInfo.isDir())
            throw Fehler(Fehlernummer::ZugriffsFehler,
                         QStringLiteral("Das Ziel ") + inAnfuehrung(ziel)
                             + QStringLiteral(" ist ein Ordner."));
        if (gleicheDatei(quelle, ziel) || QDir::cleanPath(quelle) == QDir::cleanPath(ziel))
            throw Fehler(Fehlernummer::ZugriffsFehler,
                         QStringLiteral("Das Ziel ist der Track selbst; er wird nicht auf sich "
                                        "selbst kopiert."));
        bool ersetzen = false;
        if (zielInfo.exists() || zielInfo.isSymLink()) {
            if (MsgNimb(QStringLiteral("Soll der vorhandene Track überschrieben werden?\n\n")
                            + ziel,
                        22, 2, QStringLiteral("Sicherheitsabfrage"), 0)
                == u"Nein")
                return;
            ersetzen = true;
        }
        Mauszeiger(ZeigerSanduhr);
        auto zeiger = qScopeGuard([] { Mauszeiger(ZeigerStandard); });
        TrackKopieren(quelle, ziel, ersetzen);
    } catch (const Laufzeitfehler& fehler) {
        Mauszeiger(ZeigerStandard);
        Fehlermeldung(fehler, QStringLiteral("Ausgabebox_mnuTrackSpeichernUnter_Click"));
    }
}

void Trackdateien::mnuTrackKill_Click()
{
    const Sperre sperre(m_laeuft);
    if (!sperre)
        return;
    try {
        Musikordner();
    } catch (const Laufzeitfehler& fehler) {
        Fehlermeldung(fehler, QStringLiteral("Ausgabebox_mnuTrackKill_Click"));
        return;
    }
    frmKillTrack fenster(box);
    fenster.adjustSize();
    FensterPlatzieren(&fenster, &box, QStringLiteral("center"), 10);
    fenster.exec();
}

void Trackdateien::TracksLoeschen(int modus)
{
    QString ordner;
    try {
        ordner = Musikordner();
    } catch (const Laufzeitfehler& fehler) {
        Fehlermeldung(fehler, QStringLiteral("frmKillTrack_cmdKill_Click"));
        return;
    }
    // A step that fails is passed over; what stayed is told once, at the end.
    QStringList geblieben;
    for (const QString& eintrag : Eintraege(true)) {
        const QString pfad = ordner + eintrag;
        QString grund;
        if (WirdGespielt(pfad)) {
            grund = QStringLiteral("wird gerade abgespielt");
        } else if (DateiLoeschen(pfad, modus, true, &grund)) {
            D().klang().abspielen(ProgrammOrdner + QStringLiteral("Matsch.wav"));
            EreignisseZulassen();
            continue;
        }
        geblieben << inAnfuehrung(eintrag) + u' ' + grund + u'.';
    }
    ListeErneuern();
    if (!geblieben.isEmpty())
        MsgNimb(QStringLiteral("Diese Tracks wurden nicht gelöscht:\n\n") + geblieben.join(u'\n'),
                3, 0, QStringLiteral("Tracks löschen"), 0, Farbe::WarnHintergrund);
}

void Trackdateien::mnuSongsZeichenEntfernen_Click()
{
    const Sperre sperre(m_laeuft);
    if (!sperre)
        return;
    try {
        const auto n = ZahlErfragen(
            QStringLiteral("Wie viele Zeichen sollen hinten an den Songs entfernt werden?\n\n"
                           "Liedlänge = 8 Zeichen"),
            QStringLiteral("n Zeichen entfernen"), QStringLiteral("10"));
        if (!n)
            return;
        QStringList zeilen = Zeilen(box.TextSongs);
        // Line by line as a file is read: a last line break ends the last line.
        if (zeilen.size() > 1 && zeilen.last().isEmpty())
            zeilen.removeLast();
        // The text as it was stays behind in temp.dat.
        if (!TextdateiSchreiben(ProgrammOrdner + QStringLiteral("temp.dat"), zeilen))
            throw Fehler(Fehlernummer::ZugriffsFehler,
                         inAnfuehrung(ProgrammOrdner + QStringLiteral("temp.dat"))
                             + QStringLiteral(
                                 " ließ sich nicht schreiben; das Feld Songs bleibt, wie es ist."));
        // Every line is checked before the pane changes, so that a refused n leaves it whole.
        QStringList neu;
        for (const QString& zeile : std::as_const(zeilen)) {
            ZeichenzahlPruefen(*n, zeile);
            neu << zeile.left(zeile.size() - *n);
        }
        box.TextSongs->clear();
        box.TextSongs->setPlainText(neu.join(u'\n'));
        SongsRandSetzen();
    } catch (const Laufzeitfehler& fehler) {
        Fehlermeldung(fehler, QStringLiteral("Ausgabebox_mnuSongsZeichenEntfernen_Click"));
    }
}

void Trackdateien::mnuTrackMovieCopy_Click()
{
    const Sperre sperre(m_laeuft);
    if (!sperre)
        return;
    QString ordner;
    try {
        ordner = Musikordner();
    } catch (const Laufzeitfehler& fehler) {
        Fehlermeldung(fehler, QStringLiteral("Ausgabebox_mnuTrackMovieCopy_Click"));
        return;
    }
    if (MsgNimb(
            QStringLiteral(
                "Sollen die Titel der Liste \"Tracks & Movies\"\nin das Textfeld \"Songs\" kopiert "
                "werden?"),
            32, 1, QStringLiteral("Tracks & Movies kopieren"), 0)
        != u"Ja")
        return;
    const QString nummern = MsgNimb(QStringLiteral("Zählernummer voranstellen (1., 2. usw.)?"), 32,
                                    1, QStringLiteral("Tracks & Movies"), 0);
    if (nummern == u"Exit")
        return;
    const QString laengen = MsgNimb(QStringLiteral("Liedlänge messen und anfügen (Beispiel 02:45)"),
                                    32, 1, QStringLiteral("Liedlänge messen"), 0);
    if (laengen == u"Exit")
        return;
    ListeErneuern();
    Mauszeiger(ZeigerSanduhr);
    box.TextSongs->clear();
    QStringList zeilen;
    const QStringList eintraege = Eintraege(false);
    for (int i = 0; i < eintraege.size(); ++i) {
        QString zeile
            = nummern == u"Ja" ? u' ' + QString::number(i + 1) + QStringLiteral(". ") : QString();
        zeile += Titel(eintraege[i]);
        if (laengen == u"Ja") {
            const QString pfad = ordner + eintraege[i];
            // The first measurement after the library is loaded is not to be relied on.
            if (i == 0)
                BassTracklaenge(pfad);
            zeile += QStringLiteral(" - ") + LaengeText(BassTracklaenge(pfad));
        }
        zeilen << zeile;
    }
    box.TextSongs->setPlainText(zeilen.join(u'\n'));
    SongsRandSetzen();
    Mauszeiger(ZeigerStandard);
}

void Trackdateien::mnuTrackMovieUmbenennen_Click()
{
    PlanAusfuehren(QStringLiteral("Ausgabebox_mnuTrackMovieUmbenennen_Click"), [this]() -> std::optional<Plan> {
        if (MsgNimb(
                QStringLiteral(
                    "Sollen die Titel in der Liste \"Tracks & Movies\" entsprechend \nder Titel im "
                    "Textfeld \"Songs\" umbenannt werden?"),
                22, 2, QStringLiteral("Tracks & Movies umbenennen"), 0)
            == u"Nein")
            return std::nullopt;
        QString text = box.TextSongs->toPlainText().trimmed();
        text.replace(QChar(QChar::LineSeparator), u'\n');
        text.remove(u'\r');
        const QStringList zeilen = text.split(u'\n');
        const QStringList eintraege = Eintraege(false);
        // Line and file are paired by position: more lines than files pair nothing right.
        if (zeilen.size() > eintraege.size())
            throw Fehler(
                Fehlernummer::IndexAusserhalb,
                QStringLiteral("Das Textfeld \"Songs\" hat %1 Zeilen, die Liste \"Tracks & "
                               "Movies\" nur %2 Einträge. Es wurde nichts umbenannt.")
                    .arg(zeilen.size())
                    .arg(eintraege.size()));
        const int stellen = eintraege.size() < 101 ? 2 : 3;
        Plan plan;
        for (int i = 0; i < zeilen.size(); ++i) {
            const QString neu = QStringLiteral("%1").arg(i + 1, stellen, 10, QChar(u'0'))
                + QStringLiteral(" - ") + ZeileBereinigen(zeilen[i]) + Endung(eintraege[i]);
            NamePruefen(neu);
            plan.append({eintraege[i], neu});
        }
        return plan;
    });
}

