// Errors are ignored here, as everywhere in the player.
#include "playback/Trackliste.h"

#include "shell/Ausgabebox.h"

#include "catalogue/Datensatzansicht.h"
#include "platform/Dialogdienst.h"
#include "platform/Medien.h"
#include "playback/Abspieler.h"
#include "playback/Trackname.h"
#include "playback/modPlatten.h"
#include "shell/Globale.h"
#include "shell/Grundregeln.h"
#include "shell/Steuerelemente.h"

#include <QCheckBox>
#include <QCursor>
#include <QDir>
#include <QFileInfo>
#include <QKeyEvent>
#include <QMenu>
#include <QMouseEvent>
#include <QPushButton>
#include <QSet>
#include <QTextEdit>
#include <QTimer>
#include <QTreeWidget>

#include <cmath>

using namespace Qt::StringLiterals;

namespace {

// The number of stars a file name carries, 0 for none, -1 for a digit above 6.
int sterneImNamen(const QString& name)
{
    const qsizetype punkt = name.lastIndexOf(u'.');
    if (punkt < 3)
        return 0;
    // Only two places are read: the digit before the dot and the "-" two before it.
    const QChar ziffer = name[punkt - 1];
    const int wert = ziffer.isDigit() ? ziffer.digitValue() : 0;
    if (name[punkt - 3] != u'-')
        return 0;
    return wert > 6 ? -1 : wert;
}

QString dauerText(double sekunden)
{
    const int s = int(std::lround(sekunden));
    return QStringLiteral("%1:%2").arg(s / 60).arg(s % 60, 2, 10, QChar(u'0'));
}

} // namespace

QString TrackMitBewertung(const QString& name, int sterne)
{
    const qsizetype punkt = name.lastIndexOf(u'.');
    if (punkt < 0)
        return name;
    QString stamm = name.left(punkt);
    const QString endung = name.mid(punkt);
    static const QStringList alte = {" - 0", " - 1", " - 2", " - 3", " - 4", " - 5", " - 6"};
    if (alte.contains(stamm.right(4)))
        stamm.chop(4);
    return stamm + QStringLiteral(" - ") + QString::number(sterne) + endung;
}

int TrackBewertung(const QString& name) { return std::max(0, sterneImNamen(name)); }

bool IstMedienname(const QString& name)
{
    static const QSet<QString> endungen = {
        u"mp3"_s, u"mp2"_s, u"wma"_s, u"wav"_s, u"ogg"_s, u"oga"_s, u"opus"_s, u"flac"_s, u"m4a"_s,
        u"aac"_s, u"ac3"_s, u"aif"_s, u"aiff"_s, u"ape"_s, u"mka"_s, u"mid"_s, u"midi"_s, u"wmv"_s,
        u"asf"_s, u"avi"_s, u"mkv"_s, u"mp4"_s, u"m4v"_s, u"mov"_s, u"mpg"_s, u"mpeg"_s, u"m2ts"_s,
        u"mts"_s, u"ts"_s, u"vob"_s, u"webm"_s, u"flv"_s, u"3gp"_s, u"ogv"_s};
    const qsizetype punkt = name.lastIndexOf(u'.');
    return punkt >= 0 && endungen.contains(name.mid(punkt + 1).trimmed().toLower());
}

void Trackliste::verbinden()
{
    box.filTrack->installEventFilter(this);
    for (int i = 0; i < 6; ++i)
        connect(box.imgSongNote[i], &Bildfeld::Click, this, [this, i] { imgSongNote_Click(i); });
    connect(box.cmdInfoTrack, &QPushButton::clicked, this, [this] { cmdInfoTrack_Click(); });
    BefehlVerbinden(box.mnuLiedLang, this, [this] { mnuLiedLang_Click(); });
    connect(box.filTrack, &QListWidget::itemClicked, this, [this] { BewertungTracks(); });
    connect(box.filTrack, &Dateiliste::DblClick, this, [this] { box.abspieler().imgStart_Click(); });
    box.filTrack->viewport()->installEventFilter(this);
}

bool Trackliste::eventFilter(QObject* objekt, QEvent* ereignis)
{
    if (objekt == box.filTrack || objekt == box.filTrack->viewport()) {
        switch (ereignis->type()) {
        case QEvent::MouseButtonPress:
            if (static_cast<QMouseEvent*>(ereignis)->button() == Qt::RightButton) {
                box.mnuExtras->setDefaultAction(box.mnuInPlaylistAufnehmen);
                box.mnuExtras->popup(QCursor::pos());
                return true;
            }
            break;
        case QEvent::MouseButtonRelease:
            QTimer::singleShot(0, this, [this] { filTrack_Nachlauf(); });
            break;
        case QEvent::KeyRelease: {
            const int taste = static_cast<QKeyEvent*>(ereignis)->key();
            filTrack_Nachlauf();
            if (taste == Qt::Key_Return || taste == Qt::Key_Enter)
                box.abspieler().imgStart_Click();
            break;
        }
        default:
            break;
        }
    }
    if (ereignis->type() == QEvent::FocusIn && objekt == box.filTrack) {
        box.AktivesFeld = QStringLiteral("filTrack");
        if (!box.chkMarkTracks->isChecked())
            TrackIndex = std::max(0, box.filTrack->ListIndex());
        BewertungTracks();
    }
    return Teilbereich::eventFilter(objekt, ereignis);
}

void Trackliste::BewertungTracks()
{
    QString name;
    if (PlaylistModus) {
        if (QTreeWidgetItem* zeile = box.lvwPlaylist->currentItem())
            name = zeile->text(0);
    } else {
        name = box.filTrack->List(TrackIndex);
    }
    for (Bildfeld* s : box.imgSongNote)
        s->setBild(box.imgSternGrau->Bild());
    const int sterne = sterneImNamen(name);
    // A digit above 6 ends here: the Carrier's stars stay as they are.
    if (sterne < 0)
        return;
    for (int i = 0; i < sterne; ++i)
        box.imgSongNote[i]->setBild(box.imgStern->Bild());
    box.datensatzansicht().CDSterneZeichnen();
}

void Trackliste::imgSongNote_Click(int index)
{
    // The entry of filTrack, also while a playlist is the source: this reach stands.
    const QString eintrag = box.filTrack->List(TrackIndex);
    if (!eintrag.contains(u'.') || !IstMedienname(eintrag))
        return;
    const QString ordner = box.TextMusikpfad->text().trimmed();
    // A relative path would name a file below wherever the program was started.
    if (!QDir::isAbsolutePath(ordner))
        return;
    const QString neu = TrackMitBewertung(eintrag.trimmed(), index + 1);
    // A file in use or a name taken fails in silence, with the old name and stars.
    QDir().rename(ordner + eintrag.trimmed(), ordner + neu);
    EreignisseZulassen();
    box.filTrack->Refresh();
    BewertungTracks();
}

void Trackliste::mnuLiedLang_Click()
{
    QString pfad;
    QString name;
    if (PlaylistModus) {
        if (QTreeWidgetItem* zeile = box.lvwPlaylist->topLevelItem(TrackIndex - 1)) {
            pfad = zeile->text(2) + zeile->text(1) + zeile->text(0);
            name = zeile->text(0);
        }
    } else {
        name = box.filTrack->List(TrackIndex);
        pfad = box.TextMusikpfad->text() + name;
    }
    const int s = int(std::lround(BassTracklaenge(pfad)));
    // A failed measurement is -1 s: it shows as "0:-01 min".
    const QString rest = s % 60 < 0 ? QStringLiteral("-%1").arg(-(s % 60), 2, 10, QChar(u'0'))
                                    : QStringLiteral("%1").arg(s % 60, 2, 10, QChar(u'0'));
    MsgNimb(name + QStringLiteral("\n\n") + QString::number(s / 60) + u':' + rest + QStringLiteral(" min"), 1, 0,
            QStringLiteral("Liedlänge messen"), 0);
}

void Trackliste::cmdInfoTrack_Click()
{
    const QString url = box.MediaPlayer1Spieler->URL();
    QString text = QStringLiteral("Name = ") + QFileInfo(url).completeBaseName() + QStringLiteral("\nLänge = ")
        + dauerText(box.MediaPlayer1Spieler->duration()) + QStringLiteral(" Min.\n\n");
    const auto attribute = box.MediaPlayer1Spieler->attribute();
    for (int i = 0; i < attribute.size(); ++i)
        text += QString::number(i) + QStringLiteral(" - ") + attribute[i].first + QStringLiteral(" = ")
            + attribute[i].second + u'\n';
    MsgNimb(text, 1, 0, QStringLiteral("Track-Info"), 0);
}

void Trackliste::filTrack_Nachlauf()
{
    PlaylistModus = false;
    if (!box.chkMarkTracks->isChecked())
        TrackIndex = std::max(0, box.filTrack->ListIndex());
    BewertungTracks();
    if (!box.txtSongText->isVisible())
        return;
    // The name without a rating and a three-letter extension.
    QString name = box.filTrack->List(TrackIndex);
    name.chop(8);
    if (LiedtextZeigen(name))
        EreignisseZulassen();
}

void Trackliste::TextSongAktualisieren()
{
    if (box.txtSongText->isVisible())
        LiedtextZeigen(box.filTrack->List(TrackIndex));
}

bool Trackliste::LiedtextZeigen(const QString& name)
{
    // The caret at the end first, then at the place: the name then stands high up.
    QTextCursor c(box.txtSongText->document());
    c.movePosition(QTextCursor::End);
    box.txtSongText->setTextCursor(c);
    if (name.isEmpty())
        return false;
    const qsizetype stelle = box.txtSongText->toPlainText().indexOf(name, 0, Qt::CaseInsensitive);
    if (stelle < 0)
        return false;
    c.setPosition(int(stelle));
    box.txtSongText->setTextCursor(c);
    return true;
}
