#include "platform/Medien.h"

#include <QAudioOutput>
#include <QCoreApplication>
#include <QFileInfo>
#include <QImageReader>
#include <QMediaMetaData>
#include <QMediaPlayer>
#include <QUrl>
#include <QVideoWidget>

#include <map>

namespace {

int Zustand(QMediaPlayer::PlaybackState s)
{
    switch (s) {
    case QMediaPlayer::PlayingState:
        return Medienspieler::Spielt;
    case QMediaPlayer::PausedState:
        return Medienspieler::Angehalten;
    default:
        return Medienspieler::Gestoppt;
    }
}

class EchterMedienspieler : public Medienspieler {
public:
    explicit EchterMedienspieler(QObject* eltern)
        : Medienspieler(eltern)
    {
        m_player.setAudioOutput(&m_audio);
        connect(&m_player, &QMediaPlayer::playbackStateChanged, this, [this] {
            if (!m_stumm)
                melden();
        });
        // A position asked for while the file loads is taken once the backend can seek;
        // before that GStreamer drops it.
        connect(&m_player, &QMediaPlayer::seekableChanged, this, &EchterMedienspieler::ausstehendeNehmen);
        connect(&m_player, &QMediaPlayer::mediaStatusChanged, this, [this](QMediaPlayer::MediaStatus s) {
            if (s == QMediaPlayer::LoadedMedia || s == QMediaPlayer::BufferedMedia)
                ausstehendeNehmen();
            if (s == QMediaPlayer::BufferedMedia || s == QMediaPlayer::EndOfMedia || s == QMediaPlayer::InvalidMedia)
                m_ausstehend = -1; // loaded and still not seekable: it never will be
            if (s == QMediaPlayer::InvalidMedia)
                fehlgeschlagen();
        });
        connect(&m_player, &QMediaPlayer::errorOccurred, this, &EchterMedienspieler::fehlgeschlagen);
    }

    void setURL(const QString& pfad) override
    {
        // A new file passes through the stopped state; the control reports only where
        // it ends up, so that a change of track does not look like the end of playing.
        m_stumm = true;
        m_ausstehend = -1;
        ++m_datei;
        m_player.stop();
        m_url = pfad;
        // A file that is not there is not started: the control is stopped at once.
        const bool vorhanden = QFileInfo(pfad).isFile();
        m_player.setSource(vorhanden ? QUrl::fromLocalFile(pfad) : QUrl());
        if (vorhanden)
            m_player.play();
        m_stumm = false;
        melden();
    }
    QString URL() const override { return m_url; }
    void play() override
    {
        if (!m_url.isEmpty())
            m_player.play();
    }
    void pause() override
    {
        if (m_player.playbackState() == QMediaPlayer::PlayingState)
            m_player.pause();
    }
    void stop() override
    {
        m_ausstehend = -1;
        m_player.stop();
    }
    void close() override { setURL(QString()); }
    double currentPosition() const override
    {
        if (m_ausstehend >= 0)
            return m_ausstehend / 1000.0;
        return m_player.position() / 1000.0;
    }
    void setCurrentPosition(double sekunden) override
    {
        const qint64 ms = qMax<qint64>(0, qint64(sekunden * 1000.0 + 0.5));
        const auto status = m_player.mediaStatus();
        const bool laedt = status == QMediaPlayer::LoadingMedia || status == QMediaPlayer::LoadedMedia;
        if (laedt && !m_player.isSeekable())
            m_ausstehend = ms;
        else
            m_player.setPosition(ms);
    }
    double duration() const override { return m_player.duration() / 1000.0; }
    int playState() const override { return Zustand(m_player.playbackState()); }
    void setVideoOutput(QVideoWidget* ausgabe) override { m_player.setVideoOutput(ausgabe); }
    QList<QPair<QString, QString>> attribute() const override
    {
        QList<QPair<QString, QString>> liste;
        const QMediaMetaData daten = m_player.metaData();
        for (const QMediaMetaData::Key k : daten.keys()) {
            const QString wert = daten.stringValue(k);
            if (!wert.isEmpty())
                liste.append({QMediaMetaData::metaDataKeyToString(k), wert});
        }
        return liste;
    }

private:
    // The backend stays in its playing state when a file cannot be played; the control
    // stops instead, so that whoever waits for the end is not left waiting. Later, since
    // this comes from inside the backend, and only if no other file was set meanwhile.
    void fehlgeschlagen()
    {
        const int datei = m_datei;
        QMetaObject::invokeMethod(
            this,
            [this, datei] {
                if (datei == m_datei && m_player.playbackState() != QMediaPlayer::StoppedState)
                    m_player.stop();
            },
            Qt::QueuedConnection);
    }

    void ausstehendeNehmen()
    {
        if (m_ausstehend >= 0 && m_player.isSeekable()) {
            m_player.setPosition(m_ausstehend);
            m_ausstehend = -1;
        }
    }

    void melden()
    {
        const int z = playState();
        if (z == m_gemeldet)
            return;
        m_gemeldet = z;
        emit PlayStateChange(z);
    }

    QMediaPlayer m_player;
    QAudioOutput m_audio;
    QString m_url;
    int m_gemeldet = Gestoppt;
    qint64 m_ausstehend = -1;
    int m_datei = 0; // counts the files set, to tell a late error of an earlier one
    bool m_stumm = false;
};

class EchteMedien : public Medien {
public:
    EchteMedien()
    {
        MedienBackendWaehlen();
        // The devices go before the application, while the backend can still close them.
        if (QCoreApplication::instance())
            QObject::connect(QCoreApplication::instance(), &QCoreApplication::aboutToQuit, &m_kontext,
                             [this] { m_geraete.clear(); });
    }

    bool oeffnenUndSpielen(const QString& pfad, const QString& alias) override
    {
        if (!QFileInfo(pfad).isFile())
            return false;
        Geraet& g = m_geraete[alias.toLower()];
        if (g.offen)
            return false;
        if (!g.player) {
            g.player = std::make_unique<QMediaPlayer>();
            g.audio = std::make_unique<QAudioOutput>();
            g.player->setAudioOutput(g.audio.get());
        }
        g.player->setSource(QUrl::fromLocalFile(pfad));
        g.player->play();
        g.offen = true;
        return true;
    }

    void stoppenUndSchliessen(const QString& alias) override
    {
        const auto it = m_geraete.find(alias.toLower());
        if (it == m_geraete.end() || !it->second.offen)
            return;
        Geraet& g = it->second;
        g.player->stop();
        g.player->setSource(QUrl());
        g.offen = false;
    }

    Medienspieler* neuerSpieler(QObject* eltern) override { return new EchterMedienspieler(eltern); }

    double laenge(const QString& pfad) override { return MedienlaengeLesen(pfad); }

private:
    struct Geraet {
        std::unique_ptr<QMediaPlayer> player;
        std::unique_ptr<QAudioOutput> audio;
        bool offen = false;
    };
    // Aliases are caseless, as they were in the old engine.
    std::map<QString, Geraet> m_geraete;
    QObject m_kontext;
};

} // namespace

bool IstBilddatei(const QString& pfad)
{
    const QByteArray endung = QFileInfo(pfad).suffix().toLower().toLatin1();
    if (endung.isEmpty() || !QImageReader::supportedImageFormats().contains(endung))
        return false;
    return !QImageReader::imageFormat(pfad).isEmpty();
}

void MedienBackendWaehlen()
{
    const QByteArray gewaehlt = qgetenv("QT_MEDIA_BACKEND");
    if (gewaehlt.isEmpty() || gewaehlt == "ffmpeg")
        qputenv("QT_MEDIA_BACKEND", "gstreamer");
}

std::unique_ptr<Medien> EchteMedienErzeugen() { return std::make_unique<EchteMedien>(); }
