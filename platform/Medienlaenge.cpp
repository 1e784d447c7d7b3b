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

// The length by the packets of the main stream, read without decoding: the end of the
// last one less the start of the first. 0.0 when nothing could be read.
double PaketeZaehlen(AVFormatContext* ctx)
{
    int strom = av_find_best_stream(ctx, AVMEDIA_TYPE_AUDIO, -1, -1, nullptr, 0);
    if (strom < 0)
        strom = av_find_best_stream(ctx, AVMEDIA_TYPE_VIDEO, -1, -1, nullptr, 0);
    if (strom < 0)
        return 0.0;
    const AVRational basis = ctx->streams[strom]->time_base;
    AVPacket* paket = av_packet_alloc();
    if (!paket)
        return 0.0;
    int64_t anfang = AV_NOPTS_VALUE;
    int64_t ende = AV_NOPTS_VALUE;
    int64_t summe = 0;
    while (av_read_frame(ctx, paket) >= 0) {
        if (paket->stream_index == strom && paket->duration > 0) {
            summe += paket->duration;
            if (paket->pts != AV_NOPTS_VALUE) {
                if (anfang == AV_NOPTS_VALUE || paket->pts < anfang)
                    anfang = paket->pts;
                if (ende == AV_NOPTS_VALUE || paket->pts + paket->duration > ende)
                    ende = paket->pts + paket->duration;
            }
        }
        av_packet_unref(paket);
    }
    av_packet_free(&paket);
    const int64_t dauer = anfang != AV_NOPTS_VALUE ? ende - anfang : summe;
    return dauer > 0 ? double(dauer) * basis.num / basis.den : 0.0;
}

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
    // A length guessed from the bit rate is wrong for a file of varying rate that has no
    // header telling its length (an MP3 without Xing or VBRI): such a file is counted.
    if (e.ctx->duration_estimation_method == AVFMT_DURATION_FROM_BITRATE)
        if (const double gezaehlt = PaketeZaehlen(e.ctx); gezaehlt > 0.0)
            return gezaehlt;
    double sekunden = 0.0;
    if (e.ctx->duration != AV_NOPTS_VALUE && e.ctx->duration > 0)
        sekunden = double(e.ctx->duration) / AV_TIME_BASE;
    else
        sekunden = laengste;
    return sekunden > 0.0 ? sekunden : -1.0;
}
