#include "platform/Sprachausgabe.h"

#include <QAudioDevice>
#include <QMediaDevices>
#include <QTextToSpeech>
#include <QVoice>

namespace {

class QtSprachausgabe : public Sprachausgabe {
public:
    bool verfuegbar() override
    {
        QTextToSpeech* e = engine();
        return e && e->state() != QTextToSpeech::Error && !e->availableVoices().isEmpty();
    }

    QStringList stimmen() override
    {
        QStringList namen;
        if (QTextToSpeech* e = engine())
            for (const QVoice& v : e->availableVoices())
                namen << v.name();
        return namen;
    }

    bool sprechen(const QString& text, const QString& stimme, double tempo) override
    {
        QTextToSpeech* e = engine();
        if (!e || e->state() == QTextToSpeech::Error)
            return false;
        for (const QVoice& v : e->availableVoices()) {
            if (v.name().compare(stimme, Qt::CaseInsensitive) == 0) {
                e->setVoice(v);
                break;
            }
        }
        e->setRate(qBound(-1.0, tempo, 1.0));
        e->say(text);
        return true;
    }

    bool spricht() override { return m_engine && m_engine->state() == QTextToSpeech::Speaking; }

private:
    QTextToSpeech* engine()
    {
        if (m_engine || m_versucht)
            return m_engine.get();
        m_versucht = true;
        // Without a sound output the speech daemon waits for ever on its first text and
        // then blocks every later connection: better no engine than a hanging window.
        if (QTextToSpeech::availableEngines().isEmpty() || QMediaDevices::audioOutputs().isEmpty())
            return nullptr;
        m_engine = std::make_unique<QTextToSpeech>();
        return m_engine.get();
    }

    std::unique_ptr<QTextToSpeech> m_engine;
    bool m_versucht = false;
};

} // namespace

std::unique_ptr<Sprachausgabe> EchteSprachausgabeErzeugen() { return std::make_unique<QtSprachausgabe>(); }
