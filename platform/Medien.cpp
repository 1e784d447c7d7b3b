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
    using Medienspieler::Medienspieler;

    void setURL(const QString& pfad) override
    {
        // A new file passes through the stopped state; the control reports only where
        // it ends up, so that a change of track does not look like the end of playing.
        m_stumm = true;
        m_ausstehend = -1;
        ++m_datei;
        if (m_player)
            m_player->stop();
        m_url = pfad;
        // A file that is not there is not started: the control is stopped at once.
        const bool vorhanden = QFileInfo(pfad).isFile();
        if (vorhanden || m_player)
            spieler().setSource(vorhanden ? QUrl::fromLocalFile(pfad) : QUrl());
        if (vorhanden)
            m_player->play();
        m_stumm = false;
        melden();
    }
    QString URL() const override { return m_url; }
    void play() override
    {
        if (!m_url.isEmpty())
            spieler().play();
    }
    void pause() override
    {
        if (m_player && m_player->playbackState() == QMediaPlayer::PlayingState)
            m_player->pause();
    }
    void stop() override
    {
        m_ausstehend = -1;
        if (m_player)
            m_player->stop();
    }
    void close() override { setURL(QString()); }
    double currentPosition() const override
    {
        if (m_ausstehend >= 0)
            return m_ausstehend / 1000.0;
        return m_player ? m_player->position() / 1000.0 : 0.0;
    }
    void setCurrentPosition(double sekunden) override
    {
        const qint64 ms = qMax<qint64>(0, qint64(sekunden * 1000.0 + 0.5));
        QMediaPlayer& p = spieler();
        const auto status = p.mediaStatus();
        const bool laedt = status == QMediaPlayer::LoadingMedia || status == QMediaPlayer::LoadedMedia;
        if (laedt && !p.isSeekable())
            m_ausstehend = ms;
        else
            p.setPosition(ms);
    }
    double duration() const override { return m_player ? m_player->duration() / 1000.0 : 0.0; }
    int playState() const override
    {
        return m_player ? Zustand(m_player->playbackState()) : int(Gestoppt);
    }
    void setVideoOutput(QVideoWidget* ausgabe) override
    {
        m_video = ausgabe;
        if (m_player)
            m_player->setVideoOutput(ausgabe);
    }
    QList<QPair<QString, QString>> attribute() const override
    {
        QList<QPair<QString, QString>> liste;
        if (!m_player)
            return liste;
        const QMediaMetaData daten = m_player->metaData();
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
                if (datei == m_datei && m_player && m_player->playbackState() != QMediaPlayer::StoppedState)
                    m_player->stop();
            },
            Qt::QueuedConnection);
    }

    void ausstehendeNehmen()
    {
        if (m_ausstehend >= 0 && m_player && m_player->isSeekable()) {
            m_player->setPosition(m_ausstehend);
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

    // The backend is made at the first file: starting the program costs no multimedia set-up.
    QMediaPlayer& spieler()
    {
        if (m_player)
            return *m_player;
        m_player = std::make_unique<QMediaPlayer>();
        m_audio = std::make_unique<QAudioOutput>();
        m_player->setAudioOutput(m_audio.get());
        if (m_video)
            m_player->setVideoOutput(m_video);
        QMediaPlayer* p = m_player.get();
        connect(p, &QMediaPlayer::playbackStateChanged, this, [this] {
            if (!m_stumm)
                melden();
        });
        // A position asked for while the file loads is taken once the backend can seek;
        // before that GStreamer drops it.
        connect(p, &QMediaPlayer::seekableChanged, this, &EchterMedienspieler::ausstehendeNehmen);
        connect(p, &QMediaPlayer::mediaStatusChanged, this, [this](QMediaPlayer::MediaStatus s) {
            if (s == QMediaPlayer::LoadedMedia || s == QMediaPlayer::BufferedMedia)
                ausstehendeNehmen();
            if (s == QMediaPlayer::BufferedMedia || s == QMediaPlayer::EndOfMedia || s == QMediaPlayer::InvalidMedia)
                m_ausstehend = -1; // loaded and still not seekable: it never will be
            if (s == QMediaPlayer::InvalidMedia)
                fehlgeschlagen();
        });
        connect(p, &QMediaPlayer::errorOccurred, this, &EchterMedienspieler::fehlgeschlagen);
        return *m_player;
    }

    std::unique_ptr<QMediaPlayer> m_player;
    std::unique_ptr<QAudioOutput> m_audio;
    QVideoWidget* m_video = nullptr;
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
