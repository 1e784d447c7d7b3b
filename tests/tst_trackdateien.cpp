// The Track file operations of mnuExtras on a real music folder: rename, text before all,
// search and replace, cutting at the front and the back, capitals, save under, the three
// ways of deleting, and the two ways between the Songs pane and the names; and what keeps
// the files safe: hostile names, a bad Musikpfad, a vanished Track, a read-only folder, a
// full disk, a stopped copy, no overwriting.
#include "support/Fenster.h"
#include "support/Katalog.h"
#include "support/Modal.h"
#include "support/Testumgebung.h"

#include "collections/Trackdateien.h"
#include "media/Suchform.h"
#include "shell/Ausgabebox.h"
#include "shell/Globale.h"
#include "shell/Steuerelemente.h"

#include <QAction>
#include <QDialog>
#include <QDir>
#include <QFile>
#include <QFileInfo>
#include <QScopeGuard>
#include <QTextEdit>

#include <cerrno>
#include <memory>

#include <sys/stat.h>
#include <sys/sysmacros.h>
#include <unistd.h>

using namespace Qt::StringLiterals;

class TestTrackdateien : public QObject {
    Q_OBJECT

    std::unique_ptr<Ausgabebox> w;
    QString musik; // the Carrier's folder, with "/"
    QString katalog;

    DialogAttrappe& dlg() { return Attrappen::dialoge(); }

    // A Carrier whose folder holds these files (name to content), and one without a folder.
    void starten(const QMap<QString, QByteArray>& dateien)
    {
        w.reset();
        static int lauf = 0;
        musik = Testordner(QStringLiteral("td%1/Musik").arg(++lauf));
        for (auto d = dateien.begin(); d != dateien.end(); ++d)
            DateiSchreiben(musik + d.key(), d.value());
        katalog = FensterStarten(w,
                                 {.zeilen = {Zeilenwerte{{"Band", "Abba"}, {"Musikpfad", musik}},
                                             Zeilenwerte{{"Band", "Bach"}}}});
        Attrappen::leeren();
        Trackdateien::Kopierhaken = nullptr;
        Abbruch = false;
        PlaylistModus = false;
        TrackIndex = 0;
    }
    void starten(const QStringList& namen)
    {
        QMap<QString, QByteArray> dateien;
        for (const QString& n : namen)
            dateien.insert(n, n.toUtf8());
        starten(dateien);
    }

    // Every name in the folder, hidden ones included: a temporary file would show here.
    QStringList imOrdner(const QString& ordner = {}) const
    {
        return QDir(ordner.isEmpty() ? musik : ordner)
            .entryList(QDir::Files | QDir::Hidden | QDir::System, QDir::Name);
    }
    QStringList liste() const
    {
        QStringList namen;
        for (int i = 0; i < w->filTrack->count(); ++i)
            namen << w->filTrack->List(i);
        return namen;
    }
    void markieren(const QStringList& namen)
    {
        w->filTrack->clearSelection();
        for (int i = 0; i < w->filTrack->count(); ++i)
            w->filTrack->setSelected(i, namen.contains(w->filTrack->List(i)));
    }
    void alleMarkieren() { markieren(liste()); }
    void aktuell(const QString& name)
    {
        for (int i = 0; i < w->filTrack->count(); ++i)
            if (w->filTrack->List(i) == name)
                w->filTrack->setListIndex(i);
    }
    // The number of the last message when it is the common error box of that command.
    int fehlernummer(const QString& befehl)
    {
        const QList<Meldung> m = dlg().meldungen();
        if (m.isEmpty() || m.last().typ != 3
            || m.last().titel != u"Ausgabebox_"_s + befehl + u"_Click"_s)
            return 0;
        return m.last().text.section(u' ', 0, 0).toInt();
    }
    QString letzte()
    {
        return dlg().meldungen().isEmpty() ? QString() : dlg().meldungen().last().text;
    }

private slots:
    void cleanup()
    {
        Trackdateien::Kopierhaken = nullptr;
        w.reset();
    }

    void wortanfangGross()
    {
        // After a blank and a hyphen, not after a dot; what stands before the first letter
        // stays; umlauts are never capitals, and the first letter is one even in an extension.
        QCOMPARE(WortanfangGross(u"  01 - lied vom meer-salz (live):zwei.b c.mp3 "_s),
                 u"01 - Lied Vom Meer-Salz (Live):Zwei.b C.mp3"_s);
        QCOMPARE(WortanfangGross(u"01 über ärger"_s), u"01 üBer ärger"_s);
        QCOMPARE(WortanfangGross(u"01.mp3"_s), u"01.Mp3"_s);
        QCOMPARE(WortanfangGross(u"123 - 456"_s), u"123 - 456"_s);
        QCOMPARE(WortanfangGross(u"x-"_s), u"X-"_s);

        starten(QStringList{"01 die nacht.mp3", "02 nicht markiert.mp3"});
        markieren({"01 die nacht.mp3"});
        w->mnuTrackGrossbuchstabe->trigger();
        QCOMPARE(imOrdner(), QStringList({"01 Die Nacht.mp3", "02 nicht markiert.mp3"}));
        QCOMPARE(DateiLesen(musik + "01 Die Nacht.mp3"), QByteArray("01 die nacht.mp3"));
        QCOMPARE(liste(), imOrdner());
        QVERIFY(dlg().meldungen().isEmpty());
    }

    void umbenennenUeberschreibtNieUndNimmtNurEinenNamen()
    {
        starten(QMap<QString, QByteArray>{{"a.mp3", "AAAA"}, {"b.mp3", "BBBB"}});
        aktuell("b.mp3");
        dlg().antwortenInput << "Neu.mp3";
        w->mnuTrackName->trigger();
        QCOMPARE(dlg().aufrufe.first().eingabe.vorgabe, u"b.mp3"_s);
        QCOMPARE(imOrdner(), QStringList({"Neu.mp3", "a.mp3"}));
        // Onto an existing name: refused, both whole.
        aktuell("a.mp3");
        dlg().antwortenInput << "Neu.mp3";
        w->mnuTrackName->trigger();
        QCOMPARE(fehlernummer("mnuTrackName"), 58);
        QCOMPARE(DateiLesen(musik + "a.mp3"), QByteArray("AAAA"));
        QCOMPARE(DateiLesen(musik + "Neu.mp3"), QByteArray("BBBB"));
        // Hostile names change nothing, here or above.
        const QString eltern = QFileInfo(musik + "..").canonicalFilePath() + u'/';
        const QStringList oben = imOrdner(eltern);
        for (const QString& name :
             {u"../x"_s, u"a/b"_s, u".."_s, u"x/../../y.mp3"_s, u".versteckt.mp3"_s}) {
            dlg().leeren();
            aktuell("a.mp3");
            dlg().antwortenInput << name;
            w->mnuTrackName->trigger();
            QCOMPARE(fehlernummer("mnuTrackName"), 52);
            QCOMPARE(imOrdner(), QStringList({"Neu.mp3", "a.mp3"}));
            QCOMPARE(imOrdner(eltern), oben);
        }
        QVERIFY(letzte().contains(u"beginnt mit einem Punkt"_s));

        // In a bulk rename the Track before stays renamed, the one that would replace stays;
        // the marks follow their Tracks.
        starten(QMap<QString, QByteArray>{{"1 x.mp3", "1"}, {"2 x.mp3", "2"}, {"3 y.mp3", "3"}});
        alleMarkieren();
        dlg().antwortenInput << "2";
        w->mnuTracksZeichenEntfernen->trigger();
        QCOMPARE(fehlernummer("mnuTracksZeichenEntfernen"), 58);
        QCOMPARE(imOrdner(), QStringList({"2 x.mp3", "3 y.mp3", "x.mp3"}));
        QCOMPARE(DateiLesen(musik + "x.mp3"), QByteArray("1"));
        QCOMPARE(DateiLesen(musik + "2 x.mp3"), QByteArray("2"));
        QCOMPARE(w->filTrack->selectedItems().size(), 3);

        // A replacement with "/" renames none of the marked, not even those before.
        starten(QStringList{"Live 1.mp3", "Live 2.mp3"});
        alleMarkieren();
        ModalBedienen([](QDialog* d) {
            d->findChild<Textfeld*>(u"Text_Suchen"_s)->setText(u"Live"_s);
            d->findChild<Textfeld*>(u"Text_Ersetzen"_s)->setText(u"../Live"_s);
            QVERIFY(Klicken(d, u"Button_OK"_s));
        });
        w->mnuTrackSuchenErsetzen->trigger();
        QCOMPARE(fehlernummer("mnuTrackSuchenErsetzen"), 52);
        QCOMPARE(imOrdner(), QStringList({"Live 1.mp3", "Live 2.mp3"}));
    }

    void ordnerUndTrackWerdenGeprueft()
    {
        // "/" lists files on many systems; it is no Carrier's folder. Asked nothing.
        for (const QString& pfad : {u"/"_s, u"/nicht/da/"_s, u"relativ/ordner/"_s, u" "_s}) {
            starten(QStringList{"a.mp3"});
            w->TextMusikpfad->setText(pfad);
            w->filTrack->setPath(pfad.trimmed());
            w->filTrack->selectAll();
            w->mnuTracksZeichenEntfernen->trigger();
            QCOMPARE(fehlernummer("mnuTracksZeichenEntfernen"), 76);
            QCOMPARE(dlg().aufrufe.size(), 1);
            QCOMPARE(imOrdner(), QStringList{"a.mp3"});
        }
        // A Musikpfad typed over: the list's names are not applied to the other folder,
        // and the deletion window does not open.
        starten(QStringList{"a.mp3"});
        const QString anderer = Testordner("td-anderer");
        DateiSchreiben(anderer + "a.mp3", "fremd");
        w->TextMusikpfad->setText(anderer);
        alleMarkieren();
        w->mnuTrackGrossbuchstabe->trigger();
        QCOMPARE(fehlernummer("mnuTrackGrossbuchstabe"), 75);
        dlg().leeren();
        w->mnuTrackKill->trigger();
        QCOMPARE(dlg().meldungen().size(), 1);
        QCOMPARE(imOrdner(anderer), QStringList{"a.mp3"});
        QCOMPARE(imOrdner(), QStringList{"a.mp3"});

        // A folder without files is not listed: it says so.
        starten(QStringList{});
        w->mnuTrackGrossbuchstabe->trigger();
        QCOMPARE(fehlernummer("mnuTrackGrossbuchstabe"), 53);

        // A Track that vanished behind the list's back.
        starten(QStringList{"a.mp3", "b.mp3"});
        QFile::remove(musik + "a.mp3");
        aktuell("a.mp3");
        dlg().antwortenInput << "c.mp3";
        w->mnuTrackName->trigger();
        QCOMPARE(fehlernummer("mnuTrackName"), 53);
        QCOMPARE(liste(), QStringList{"b.mp3"});
        // The Track that plays: not renamed, not deleted, and said so.
        w->staBar->setPanelText(2, u"playing:  "_s + musik + u"b.mp3"_s);
        aktuell("b.mp3");
        dlg().antwortenInput << "c.mp3";
        w->mnuTrackName->trigger();
        QCOMPARE(fehlernummer("mnuTrackName"), 75);
        alleMarkieren();
        dlg().leeren();
        w->trackdateien().TracksLoeschen(0);
        QCOMPARE(imOrdner(), QStringList{"b.mp3"});
        QVERIFY(letzte().contains(u"\"b.mp3\" wird gerade abgespielt."_s));
    }

    void zeichenVorneUndHintenEntfernen()
    {
        starten(QStringList{"01 Lang genug.mp3", "kurz.mp3"});
        alleMarkieren();
        dlg().antwortenInput << "10";
        w->mnuTracksZeichenEntfernen->trigger();
        // n larger than a name: the error box, and checked before the first rename.
        QCOMPARE(fehlernummer("mnuTracksZeichenEntfernen"), 5);
        QVERIFY(letzte().contains(u"\"kurz.mp3\" hat nur 8"_s));
        QCOMPARE(imOrdner(), QStringList({"01 Lang genug.mp3", "kurz.mp3"}));
        // As many as the name has leaves no name.
        dlg().leeren();
        markieren({"kurz.mp3"});
        dlg().antwortenInput << "8";
        w->mnuTracksZeichenEntfernen->trigger();
        QCOMPARE(fehlernummer("mnuTracksZeichenEntfernen"), 52);
        dlg().leeren();
        markieren({"01 Lang genug.mp3"});
        dlg().antwortenInput << "3";
        w->mnuTracksZeichenEntfernen->trigger();
        QCOMPARE(imOrdner(), QStringList({"Lang genug.mp3", "kurz.mp3"}));

        // At the back the extension stays, a rating is cut as plain text.
        starten(QStringList{"Lied - 4.mp3", "Titel xyz.ogg", "ab.mp3"});
        markieren({"Lied - 4.mp3", "Titel xyz.ogg"});
        dlg().antwortenInput << "4";
        w->mnuTracksZeichenHintenEntfernen->trigger();
        QVERIFY(dlg().meldungen().isEmpty());
        QCOMPARE(imOrdner(), QStringList({"Lied.mp3", "Titel.ogg", "ab.mp3"}));
        markieren({"ab.mp3", "Lied.mp3"});
        dlg().antwortenInput << "3";
        w->mnuTracksZeichenHintenEntfernen->trigger();
        QCOMPARE(fehlernummer("mnuTracksZeichenHintenEntfernen"), 5);
        QCOMPARE(imOrdner(), QStringList({"Lied.mp3", "Titel.ogg", "ab.mp3"}));
    }

    void textVorTracksUndSuchenErsetzen()
    {
        const QString lang(250, u'x');
        starten(QStringList{"a.mp3", "b.mp3", lang + ".mp3"});
        markieren({"a.mp3"}); // every entry is taken, marked or not
        dlg().antwortenMsg << "Ja";
        dlg().antwortenInput << "Live/: ";
        w->mnuTracksRenameTextTrack->trigger();
        QCOMPARE(dlg().aufrufe[2].meldung.titel, u"Fehler: Dateiname zu lang"_s);
        QCOMPARE(dlg().aufrufe[2].meldung.text,
                 u"Neuer Dateiname länger als 255 Zeichen!\n\nLive"_s + lang + ".mp3");
        QCOMPARE(imOrdner(), QStringList({"Livea.mp3", "Liveb.mp3", lang + ".mp3"}));
        dlg().leeren();
        dlg().antwortenMsg << "Nein";
        w->mnuTracksRenameTextTrack->trigger();
        QCOMPARE(dlg().aufrufe.size(), 1);

        // Exact case, only the marked; the options start switched off.
        starten(QStringList{"Live in Berlin.mp3", "live klein.mp3", "Live nicht markiert.mp3"});
        markieren({"Live in Berlin.mp3", "live klein.mp3"});
        GanzesWort = true;
        ModalBedienen([](QDialog* d) {
            QCOMPARE(d->windowTitle(), u"Suchen und Ersetzen bei allen markierten Tracks"_s);
            d->findChild<Textfeld*>(u"Text_Suchen"_s)->setText(u"Live"_s);
            d->findChild<Textfeld*>(u"Text_Ersetzen"_s)->setText(u"Studio"_s);
            QVERIFY(Klicken(d, u"Button_OK"_s));
        });
        w->mnuTrackSuchenErsetzen->trigger();
        QVERIFY(!GanzesWort);
        QCOMPARE(
            imOrdner(),
            QStringList({"Live nicht markiert.mp3", "Studio in Berlin.mp3", "live klein.mp3"}));
    }

    void sicherLoeschenUeberschreibtMitBlanks()
    {
        starten(QMap<QString, QByteArray>{{"geheim.mp3", QByteArray(10000, 'G')},
                                          {"block.mp3", QByteArray(4096, 'B')}});
        // Opened before: the handle still reaches what was written into the file.
        QFile geheim(musik + "geheim.mp3"), block(musik + "block.mp3");
        QVERIFY(geheim.open(QIODevice::ReadOnly) && block.open(QIODevice::ReadOnly));
        QVERIFY(DateiLoeschen(musik + "geheim.mp3", 2) && DateiLoeschen(musik + "block.mp3", 2));
        QCOMPARE(imOrdner(), QStringList());
        QCOMPARE(geheim.readAll(), QByteArray(10000, ' '));
        QCOMPARE(block.readAll(), QByteArray(4096, ' '));

        // No symbolic link (its target outside stays whole), no pipe, no device, no folder,
        // no file with a second hard link; and a vanished file is no success.
        const QString draussen = Testordner("td-draussen");
        DateiSchreiben(draussen + "ziel.mp3", "ZIEL");
        QVERIFY(QFile::link(draussen + "ziel.mp3", musik + "verweis.mp3"));
        QVERIFY(::mkfifo(QFile::encodeName(musik + "rohr.mp3").constData(), 0644) == 0);
        QDir().mkpath(musik + "ordner.mp3");
        DateiSchreiben(musik + "doppelt.mp3", "DOPPELT");
        QVERIFY(::link(QFile::encodeName(musik + "doppelt.mp3").constData(),
                       QFile::encodeName(draussen + "zweiter Name.mp3").constData())
                == 0);
        QStringList namen = {"verweis.mp3", "rohr.mp3", "ordner.mp3", "doppelt.mp3", "fort.mp3"};
        if (::geteuid() == 0
            && ::mknod(QFile::encodeName(musik + "geraet.mp3").constData(), S_IFCHR | 0666,
                       makedev(1, 3))
                == 0)
            namen << "geraet.mp3";
        for (const QString& n : namen) {
            QString grund;
            QVERIFY2(!DateiLoeschen(musik + n, 2, true, &grund) && !grund.isEmpty(), qPrintable(n));
        }
        // All there but the vanished one and the folder, which is no file.
        QCOMPARE(imOrdner().size(), namen.size() - 2);
        QCOMPARE(DateiLesen(draussen + "ziel.mp3"), QByteArray("ZIEL"));
        QCOMPARE(DateiLesen(draussen + "zweiter Name.mp3"), QByteArray("DOPPELT"));
    }

    void trackKillDreiWege()
    {
        starten(QMap<QString, QByteArray>{{"1.mp3", "1"},
                                          {"2.mp3", QByteArray(5000, 'Z')},
                                          {"3.mp3", "3"},
                                          {"4.mp3", "4"},
                                          {"5.mp3", "5"}});
        auto loeschen = [this](const QStringList& namen, const QString& knopf) {
            markieren(namen);
            ModalBedienen([knopf](QDialog* d) { QVERIFY(Klicken(d, knopf)); });
            w->mnuTrackKill->trigger();
            QVERIFY(ModalBedient());
        };
        loeschen({"1.mp3", "2.mp3"}, u"cmdKill(3)"_s);
        QCOMPARE(imOrdner().size(), 5);
        loeschen({"1.mp3"}, u"cmdKill(0)"_s);
        QCOMPARE(Attrappen::papierkorb().verschoben, QStringList{musik + "1.mp3"});
        QCOMPARE(Attrappen::klang().gespielt, QStringList{ProgrammOrdner + "Matsch.wav"});
        QFile offen(musik + "2.mp3");
        QVERIFY(offen.open(QIODevice::ReadOnly));
        loeschen({"2.mp3"}, u"cmdKill(1)"_s);
        QCOMPARE(offen.readAll(), QByteArray(5000, ' '));
        loeschen({"3.mp3", "4.mp3"}, u"cmdKill(2)"_s);
        QCOMPARE(imOrdner(), QStringList{"5.mp3"});
        QCOMPARE(liste(), QStringList{"5.mp3"});
        QCOMPARE(Attrappen::klang().gespielt.size(), 4);
        QCOMPARE(Attrappen::papierkorb().verschoben.size(), 1);
        QVERIFY(dlg().meldungen().isEmpty());
        QCOMPARE(w->Bez[12]->text(), u"Tracks && Movies 1"_s);
    }

    void schreibgeschuetzterOrdner()
    {
        starten(QMap<QString, QByteArray>{{"a.mp3", "AAAA"}, {"b.mp3", "BBBB"}});
        // b could be overwritten, but not removed from its folder.
        ::chmod(QFile::encodeName(musik + "b.mp3").constData(), 0666);
        ::chmod(QFile::encodeName(musik).constData(), 0555);
        const QByteArray wurzel = QFile::encodeName(Testumgebung::wurzel());
        {
            // The super user writes anyway: the commands then run as nobody.
            const bool alsRoot = ::geteuid() == 0;
            if (alsRoot) {
                ::chmod(wurzel.constData(), 0755);
                QVERIFY(::seteuid(65534) == 0);
            }
            auto zurueck = qScopeGuard([&] {
                if (alsRoot && ::seteuid(0) == 0)
                    ::chmod(wurzel.constData(), 0700);
                ::chmod(QFile::encodeName(musik).constData(), 0755);
            });
            aktuell("a.mp3");
            dlg().antwortenInput << "c.mp3";
            w->mnuTrackName->trigger();
            QCOMPARE(fehlernummer("mnuTrackName"), 70);
            QVERIFY(letzte().contains(u"schreibgeschützt"_s));
            // Secure deletion overwrites nothing it cannot remove afterwards.
            for (int modus : {2, 0, 1}) {
                markieren({"b.mp3"});
                dlg().leeren();
                w->trackdateien().TracksLoeschen(modus);
                QVERIFY(letzte().startsWith(u"Diese Tracks wurden nicht gelöscht:\n\n\"b.mp3\""_s));
            }
        }
        QCOMPARE(imOrdner(), QStringList({"a.mp3", "b.mp3"}));
        QCOMPARE(DateiLesen(musik + "a.mp3"), QByteArray("AAAA"));
        QCOMPARE(DateiLesen(musik + "b.mp3"), QByteArray("BBBB"));
    }

    void speichernUnterOhneHalbeDateien()
    {
        const QByteArray inhalt(3 * 1024 * 1024 + 17, 'F');
        starten(QMap<QString, QByteArray>{{"Film.mkv", inhalt}});
        const QString ziel = Testordner("td-ziel");
        auto speichern = [&](const QString& pfad, const QStringList& antworten = {}) {
            dlg().leeren();
            dlg().antwortenDatei << pfad;
            dlg().antwortenMsg.append(antworten);
            w->mnuTrackSpeichernUnter->trigger();
        };
        speichern(ziel + "Kopie.mkv");
        QCOMPARE(dlg().aufrufe.first().datei.dateiname, u"Film.mkv"_s);
        QCOMPARE(dlg().aufrufe.first().datei.startordner, ProgrammOrdner);
        QCOMPARE(DateiLesen(ziel + "Kopie.mkv"), inhalt);
        QCOMPARE(imOrdner(ziel), QStringList{"Kopie.mkv"});
        // An existing target is asked for: "Nein" keeps it, "Ja" replaces it.
        DateiSchreiben(ziel + "Kopie.mkv", "ALT");
        speichern(ziel + "Kopie.mkv", {"Nein"});
        QCOMPARE(dlg().aufrufe.first().datei.startordner, ziel);
        QCOMPARE(dlg().meldungen().first().text,
                 u"Soll der vorhandene Track überschrieben werden?\n\n"_s + ziel + "Kopie.mkv");
        QCOMPARE(DateiLesen(ziel + "Kopie.mkv"), QByteArray("ALT"));

        // The disk full after the first block: no file, and the old one as it was.
        Trackdateien::Kopierhaken
            = [](qint64 geschrieben) { return geschrieben > 1024 * 1024 ? ENOSPC : 0; };
        speichern(ziel + "Kopie.mkv", {"Ja"});
        QCOMPARE(fehlernummer("mnuTrackSpeichernUnter"), 61);
        QVERIFY(letzte().contains(u"nicht genug Platz"_s));
        QCOMPARE(imOrdner(ziel), QStringList{"Kopie.mkv"});
        QCOMPARE(DateiLesen(ziel + "Kopie.mkv"), QByteArray("ALT"));
        speichern(ziel + "Neu.mkv");
        QCOMPARE(fehlernummer("mnuTrackSpeichernUnter"), 61);
        QCOMPARE(imOrdner(ziel), QStringList{"Kopie.mkv"});
        // Stopped by Esc midway: no file, no message.
        int bloecke = 0;
        Trackdateien::Kopierhaken = [&bloecke](qint64) {
            if (++bloecke == 2)
                Abbruch = true;
            return 0;
        };
        speichern(ziel + "Neu.mkv");
        QCOMPARE(bloecke, 2);
        QVERIFY(dlg().meldungen().isEmpty());
        QCOMPARE(imOrdner(ziel), QStringList{"Kopie.mkv"});
        Trackdateien::Kopierhaken = nullptr;
        speichern(ziel + "Kopie.mkv", {"Ja"});
        QCOMPARE(DateiLesen(ziel + "Kopie.mkv"), inhalt);

        // Onto itself, into a folder that is not there: refused, the Track whole.
        speichern(musik + "Film.mkv", {"Ja"});
        QCOMPARE(fehlernummer("mnuTrackSpeichernUnter"), 75);
        speichern(ziel + "fehlt/Kopie.mkv");
        QCOMPARE(fehlernummer("mnuTrackSpeichernUnter"), 76);
        QCOMPARE(DateiLesen(musik + "Film.mkv"), inhalt);
        QCOMPARE(imOrdner(), QStringList{"Film.mkv"});
        // Cancel: silent.
        speichern(QString());
        QVERIFY(dlg().meldungen().isEmpty());
    }

    void songsfeldUndNamen()
    {
        starten(QStringList{"01 Eins.mp3", "02 Zwei.ogg", "ohne Endung"});
        Attrappen::medien().laengen.insert(musik + "01 Eins.mp3", 165.2);
        Attrappen::medien().laengen.insert(musik + "02 Zwei.ogg", 61);
        Attrappen::medien().laengen.insert(musik + "ohne Endung", -1);
        dlg().antwortenMsg << "Ja"
                           << "Ja"
                           << "Ja";
        w->mnuTrackMovieCopy->trigger();
        QCOMPARE(w->TextSongs->toPlainText(),
                 u" 1. 01 Eins - 2:45\n 2. 02 Zwei - 1:01\n 3. ohne Endung - 0:-01"_s);
        // The first one is measured twice.
        QCOMPARE(Attrappen::medien().gemessen.count(musik + "01 Eins.mp3"), 2);
        QCOMPARE(Attrappen::medien().gemessen.count(musik + "02 Zwei.ogg"), 1);
        // The pane is the Carrier's: the text is saved with it.
        w->MenuSpeichern->trigger();
        QVERIFY(KatalogSpalte(katalog, "Songs").first().contains(u"3. ohne Endung - 0:-01"_s));
        dlg().leeren();
        dlg().antwortenMsg << "Ja"
                           << "Nein"
                           << "Nein";
        w->mnuTrackMovieCopy->trigger();
        QCOMPARE(w->TextSongs->toPlainText(), u"01 Eins\n02 Zwei\nohne Endung"_s);
        // Only "Ja" at the first question goes on; Exit at the others ends.
        for (const QStringList& antworten : {QStringList{"Nein"}, QStringList{"Ja", "Exit"}}) {
            w->TextSongs->setPlainText(u"bleibt"_s);
            dlg().leeren();
            dlg().antwortenMsg.append(antworten);
            w->mnuTrackMovieCopy->trigger();
            QCOMPARE(w->TextSongs->toPlainText(), u"bleibt"_s);
        }

        // n characters off the end of each line; the text as it was stays in temp.dat.
        w->TextSongs->setPlainText(u" 1. Eins - 2:45\n 2. Zwei - 10:01\n"_s);
        dlg().antwortenInput << "7";
        w->mnuSongsZeichenEntfernen->trigger();
        QCOMPARE(w->TextSongs->toPlainText(), u" 1. Eins\n 2. Zwei "_s);
        QCOMPARE(DateiLesen(ProgrammOrdner + "temp.dat"),
                 QByteArray(" 1. Eins - 2:45\n 2. Zwei - 10:01\n"));
        // A line shorter than n: the error box, the pane as it was.
        dlg().antwortenInput << "9";
        w->mnuSongsZeichenEntfernen->trigger();
        QCOMPARE(fehlernummer("mnuSongsZeichenEntfernen"), 5);
        QCOMPARE(w->TextSongs->toPlainText(), u" 1. Eins\n 2. Zwei "_s);

        // The lines as names, paired by position: the numbering in front goes, a length
        // note stays; the Track without a line keeps its name.
        w->TextSongs->setPlainText(u"  1. Erster Titel - 2:45\n2) - Zweiter\tTitel\n"_s);
        dlg().leeren();
        w->mnuTrackMovieUmbenennen->trigger();
        QCOMPARE(dlg().meldungen().first().standard, 2);
        const QStringList umbenannt
            = {"01 - Erster Titel - 2:45.mp3", "02 - Zweiter Titel.ogg", "ohne Endung"};
        QCOMPARE(imOrdner(), umbenannt);
        // More lines than files: nothing renamed. "Nein" ends. A line with "/" is no name.
        for (const QString& text : {u"a\nb\nc\nd"_s, u"x"_s, u"AC/DC"_s}) {
            dlg().leeren();
            if (text == u"x")
                dlg().antwortenMsg << "Nein";
            w->TextSongs->setPlainText(text);
            w->mnuTrackMovieUmbenennen->trigger();
            QCOMPARE(imOrdner(), umbenannt);
        }
        QCOMPARE(fehlernummer("mnuTrackMovieUmbenennen"), 52);
    }
};

RK_TEST_MAIN(TestTrackdateien)
#include "tst_trackdateien.moc"
