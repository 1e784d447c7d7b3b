#pragma once
// The two sound paths of the player and the length of a media file.
//
// Path one is fire and forget: a file is opened under an alias and played from its
// beginning, and later stopped and closed; nobody ever asks it for a state, the end of a
// track is the clock against the measured length. Path two is the media player control:
// a file, play, pause, a position and a play state that reports its changes; video goes
// to a widget. Real in the program (GStreamer through QMediaPlayer), a recording double
// in tests.
#include <QList>
#include <QObject>
#include <QPair>
#include <QString>

#include <memory>

class QVideoWidget;

// The media player control of path two. Times are seconds.
class Medienspieler : public QObject {
    Q_OBJECT
public:
    // The play states the control reports.
    enum Spielzustand { Gestoppt = 1, Angehalten = 2, Spielt = 3 };

    using QObject::QObject;
    // Sets the file and starts it from its beginning; an empty path closes.
    virtual void setURL(const QString& pfad) = 0;
    virtual QString URL() const = 0;
    virtual void play() = 0;
    virtual void pause() = 0;
    virtual void stop() = 0;
    // Stops and lets go of the file.
    virtual void close() = 0;
    virtual double currentPosition() const = 0;
    // A position set while the file is still loading is taken once it has loaded.
    virtual void setCurrentPosition(double sekunden) = 0;
    // The length of the file, 0 while it is not known.
    virtual double duration() const = 0;
    virtual int playState() const = 0;
    // The widget that shows the pictures of a video; nullptr for none.
    virtual void setVideoOutput(QVideoWidget* ausgabe) = 0;
    // Name and value of each tag of the file (title, artist, ...), for the track info.
    virtual QList<QPair<QString, QString>> attribute() const = 0;

signals:
    // Sent once for each change, with the new state.
    void PlayStateChange(int neuerZustand);
};

class Medien {
public:
    virtual ~Medien() = default;
    // Path one: opens the file under the alias and plays it from its beginning without
    // waiting. False, and nothing started, when the alias is still open or the file
    // cannot be opened.
    virtual bool oeffnenUndSpielen(const QString& pfad, const QString& alias) = 0;
    // Path one: stops and closes the alias; harmless when it is not open.
    virtual void stoppenUndSchliessen(const QString& alias) = 0;
    // Path two: a new control, owned by the parent.
    virtual Medienspieler* neuerSpieler(QObject* eltern) = 0;
    // The length of a media file in seconds, -1.0 when it cannot be measured.
    virtual double laenge(const QString& pfad) = 0;
};

// Reads the length from the file's header: -1.0 for a missing file, anything that is no
// audio or video, and still pictures. The only place that talks to libavformat.
double MedienlaengeLesen(const QString& pfad);
// True for a file that is a picture by its extension and its content; such files are
// shown, not played.
bool IstBilddatei(const QString& pfad);
// Chooses the GStreamer backend, the one that works with this Qt (the FFmpeg backend of
// Qt 6.4 crashes); must run before the first player or sound exists.
void MedienBackendWaehlen();
std::unique_ptr<Medien> EchteMedienErzeugen();
