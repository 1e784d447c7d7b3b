// The length of a media file from its header, through libavformat. This file is the only
// one that talks to the library.
#include "platform/Medien.h"

#include <QFile>
#include <QFileInfo>

extern "C" {
#include <libavformat/avformat.h>
#include <libavutil/dict.h>
#include <libavutil/log.h>
}

#include <algorithm>
#include <mutex>

namespace {

// Still pictures open as a one-frame video; they are not media here.
bool IstBildformat(const AVInputFormat* format)
{
    const QByteArray name(format->name);
    return name == "image2" || name.endsWith("_pipe");
}

double SekundenDesStroms(const AVStream* s)
{
    if (s->duration == AV_NOPTS_VALUE || s->duration <= 0 || s->time_base.den == 0)
        return 0.0;
    return double(s->duration) * s->time_base.num / s->time_base.den;
}

struct Eingabe {
    AVFormatContext* ctx = nullptr;
    ~Eingabe() { avformat_close_input(&ctx); }
};

} // namespace

double MedienlaengeLesen(const QString& pfad)
{
    static std::once_flag leise;
    std::call_once(leise, [] { av_log_set_level(AV_LOG_QUIET); });

    const QFileInfo info(pfad);
    if (!info.isFile() || info.size() == 0)
        return -1.0;
    // "file:" keeps a name with a colon from being read as a protocol; the list keeps a
    // playlist file from reaching out to anything but files.
    const QByteArray adresse = "file:" + QFile::encodeName(info.absoluteFilePath());
    AVDictionary* optionen = nullptr;
    av_dict_set(&optionen, "protocol_whitelist", "file", 0);
    av_dict_set(&optionen, "probesize", "65536", 0);
    av_dict_set(&optionen, "analyzeduration", "500000", 0);
    Eingabe e;
    const int rc = avformat_open_input(&e.ctx, adresse.constData(), nullptr, &optionen);
    av_dict_free(&optionen);
    if (rc < 0 || !e.ctx)
        return -1.0;
    if (IstBildformat(e.ctx->iformat))
        return -1.0;
    if (avformat_find_stream_info(e.ctx, nullptr) < 0)
        return -1.0;

    // Only real sound or moving pictures count; a cover inside an MP3 does not.
    bool medien = false;
    double laengste = 0.0;
    for (unsigned i = 0; i < e.ctx->nb_streams; ++i) {
        const AVStream* s = e.ctx->streams[i];
        const AVCodecParameters* p = s->codecpar;
        if (s->disposition & AV_DISPOSITION_ATTACHED_PIC)
            continue;
        const bool ton = p->codec_type == AVMEDIA_TYPE_AUDIO && p->sample_rate > 0;
        const bool bild = p->codec_type == AVMEDIA_TYPE_VIDEO && p->width > 0 && p->height > 0;
        if (!ton && !bild)
            continue;
        medien = true;
        laengste = std::max(laengste, SekundenDesStroms(s));
    }
    if (!medien)
        return -1.0;
    double sekunden = 0.0;
    if (e.ctx->duration != AV_NOPTS_VALUE && e.ctx->duration > 0)
        sekunden = double(e.ctx->duration) / AV_TIME_BASE;
    else
        sekunden = laengste;
    return sekunden > 0.0 ? sekunden : -1.0;
}
