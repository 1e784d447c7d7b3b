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
#include <cstring>
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

// The size of the ID3v2 tag that begins at k, footer included; 0 for none.
qint64 Id3Laenge(const uchar* k)
{
    if (std::memcmp(k, "ID3", 3) != 0 || ((k[6] | k[7] | k[8] | k[9]) & 0x80))
        return 0;
    return 10 + ((qint64(k[6]) << 21) | (k[7] << 14) | (k[8] << 7) | k[9])
        + ((k[5] & 0x10) ? 10 : 0);
}

// What the walk over the frames of an MP3 needs of one frame header.
struct Mp3Rahmen {
    int version = 0; // 3 MPEG-1, 2 MPEG-2, 0 MPEG-2.5
    int schicht = 0; // layer 1 to 3
    int rate = 0;    // samples per second
    int laenge = 0;  // bytes, header included
    int proben = 0;  // samples per channel
    bool mono = false;
};

bool Mp3KopfLesen(const uchar* p, Mp3Rahmen& r)
{
    if (p[0] != 0xFF || (p[1] & 0xE0) != 0xE0)
        return false;
    const int version = (p[1] >> 3) & 3;
    const int schichtBits = (p[1] >> 1) & 3;
    const int rateIndex = p[2] >> 4;
    const int frequenzIndex = (p[2] >> 2) & 3;
    // Reserved values, and the free format, whose header tells no frame length.
    if (version == 1 || schichtBits == 0 || rateIndex == 0 || rateIndex == 15 || frequenzIndex == 3)
        return false;
    static const short kbit[5][15] = {
        {0, 32, 64, 96, 128, 160, 192, 224, 256, 288, 320, 352, 384, 416, 448}, // MPEG-1, layer 1
        {0, 32, 48, 56, 64, 80, 96, 112, 128, 160, 192, 224, 256, 320, 384},    // MPEG-1, layer 2
        {0, 32, 40, 48, 56, 64, 80, 96, 112, 128, 160, 192, 224, 256, 320},     // MPEG-1, layer 3
        {0, 32, 48, 56, 64, 80, 96, 112, 128, 144, 160, 176, 192, 224, 256},    // MPEG-2, layer 1
        {0, 8, 16, 24, 32, 40, 48, 56, 64, 80, 96, 112, 128, 144, 160}, // MPEG-2, layers 2 and 3
    };
    static const int frequenzen[3] = {44100, 48000, 32000};
    const bool mpeg1 = version == 3;
    const int schicht = 4 - schichtBits;
    const int bitrate = kbit[mpeg1 ? schicht - 1 : (schicht == 1 ? 3 : 4)][rateIndex] * 1000;
    const int fuellung = (p[2] >> 1) & 1;
    r.version = version;
    r.schicht = schicht;
    r.rate = frequenzen[frequenzIndex] >> (mpeg1 ? 0 : version == 2 ? 1 : 2);
    r.mono = (p[3] >> 6) == 3;
    if (schicht == 1) {
        r.laenge = (12 * bitrate / r.rate + fuellung) * 4;
        r.proben = 384;
    } else if (schicht == 2 || mpeg1) {
        r.laenge = 144 * bitrate / r.rate + fuellung;
        r.proben = 1152;
    } else {
        r.laenge = 72 * bitrate / r.rate + fuellung;
        r.proben = 576;
    }
    return true;
}

bool GleicherStrom(const Mp3Rahmen& a, const Mp3Rahmen& b)
{
    return a.version == b.version && a.schicht == b.schicht && a.rate == b.rate;
}

// Reads a file forward in blocks. A pointer it gives holds until the next call.
class Blockleser {
public:
    explicit Blockleser(QFile& datei)
        : m_datei(datei)
        , m_groesse(datei.size())
    {
    }
    qint64 groesse() const { return m_groesse; }
    // The bytes from pos on, at least `anzahl` of them; nullptr where the file ends before.
    const uchar* bei(qint64 pos, qint64 anzahl)
    {
        if (pos < 0 || pos + anzahl > m_groesse)
            return nullptr;
        if (pos < m_anfang || pos + anzahl > m_anfang + m_gefuellt) {
            m_puffer.resize(std::max<qint64>(anzahl, k_block));
            m_anfang = pos;
            m_gefuellt = m_datei.seek(pos)
                ? std::max<qint64>(0, m_datei.read(m_puffer.data(), m_puffer.size()))
                : 0;
            if (m_gefuellt < anzahl)
                return nullptr;
        }
        return reinterpret_cast<const uchar*>(m_puffer.constData()) + (pos - m_anfang);
    }
    // How many bytes from pos on can be had at once.
    qint64 vorrat(qint64 pos) { return bei(pos, 1) ? m_anfang + m_gefuellt - pos : 0; }

private:
    static constexpr qint64 k_block = 256 * 1024;
    QFile& m_datei;
    const qint64 m_groesse;
    QByteArray m_puffer;
    qint64 m_anfang = 0;
    qint64 m_gefuellt = 0;
};

bool KopfBei(Blockleser& leser, qint64 pos, Mp3Rahmen& r)
{
    const uchar* p = leser.bei(pos, 4);
    return p && Mp3KopfLesen(p, r) && pos + r.laenge <= leser.groesse();
}

// True when the next frames of the same stream follow the one at pos: a lone pair of
// bytes that looks like a header, in a picture or in junk, does not start a frame.
bool RahmenFolgen(Blockleser& leser, qint64 pos, const Mp3Rahmen& r, int anzahl)
{
    Mp3Rahmen jetzt = r, naechster;
    for (int i = 0; i < anzahl; ++i) {
        pos += jetzt.laenge;
        if (pos == leser.groesse())
            return true;
        if (const uchar* tag = leser.bei(pos, 3);
            tag && pos + 128 == leser.groesse() && std::memcmp(tag, "TAG", 3) == 0)
            return true;
        if (!KopfBei(leser, pos, naechster) || !GleicherStrom(naechster, r))
            return false;
        jetzt = naechster;
    }
    return true;
}

// A Xing, Info or VBRI frame in front carries no sound, also when its length fields were
// of no use.
bool IstKopfrahmen(Blockleser& leser, qint64 pos, const Mp3Rahmen& r)
{
    const uchar* p = leser.bei(pos, r.laenge);
    if (!p || r.schicht != 3)
        return false;
    const int stelle = 4 + (r.version == 3 ? (r.mono ? 17 : 32) : (r.mono ? 9 : 17));
    auto marke
        = [&](int s, const char* m) { return s + 4 <= r.laenge && std::memcmp(p + s, m, 4) == 0; };
    return marke(stelle, "Xing") || marke(stelle, "Info") || marke(36, "VBRI");
}

// The length of an MP3 by a walk over its frame headers, without decoding and without
// the demuxer: a millisecond or two for three minutes. Tags before, between and after the
// frames are passed over, and a change of the sample rate is followed. 0.0 when no frame
// was found.
double Mp3RahmenZaehlen(const QString& pfad)
{
    QFile datei(pfad);
    if (!datei.open(QIODevice::ReadOnly))
        return 0.0;
    Blockleser leser(datei);
    qint64 pos = 0;
    // Past the ID3v2 tags at the start.
    while (const uchar* k = leser.bei(pos, 10)) {
        const qint64 tag = Id3Laenge(k);
        if (tag == 0)
            break;
        pos += tag;
    }
    Mp3Rahmen strom, r;
    bool imTakt = false; // pos lies right behind a counted frame of `strom`
    bool erster = true;
    double sekunden = 0.0;
    while (pos + 4 <= leser.groesse()) {
        // A frame right behind the last one goes on with its stream; any other, after junk
        // or where the stream changes, must be followed by two more of its own.
        if (KopfBei(leser, pos, r)
            && ((imTakt && GleicherStrom(r, strom)) || RahmenFolgen(leser, pos, r, 2))) {
            if (!(erster && IstKopfrahmen(leser, pos, r)))
                sekunden += double(r.proben) / r.rate;
            erster = false;
            strom = r;
            pos += r.laenge;
            imTakt = true;
            continue;
        }
        // Out of step: on to the next byte that may begin a header.
        imTakt = false;
        ++pos;
        for (qint64 vorrat; (vorrat = leser.vorrat(pos)) > 0; pos += vorrat) {
            const uchar* p = leser.bei(pos, 1);
            if (const void* ff = std::memchr(p, 0xFF, size_t(vorrat))) {
                pos += static_cast<const uchar*>(ff) - p;
                break;
            }
        }
    }
    return sekunden;
}

// A cover picture in the ID3 tag before the sound makes the library's own probing test
// the whole tag over and over, several milliseconds a file. The format is told from the
// bytes behind a large tag instead; nullptr leaves the probing to the library.
const AVInputFormat* FormatHinterId3(const QString& pfad, const QByteArray& adresse)
{
    QFile datei(pfad);
    uchar kopf[10];
    if (!datei.open(QIODevice::ReadOnly) || datei.read(reinterpret_cast<char*>(kopf), 10) != 10)
        return nullptr;
    const qint64 tag = Id3Laenge(kopf);
    if (tag < 16 * 1024 || !datei.seek(tag))
        return nullptr;
    QByteArray probe = datei.read(16 * 1024);
    const int groesse = int(probe.size());
    if (groesse < 1024)
        return nullptr;
    probe.append(AVPROBE_PADDING_SIZE, '\0');
    AVProbeData daten = {};
    daten.filename = adresse.constData();
    daten.buf = reinterpret_cast<unsigned char*>(probe.data());
    daten.buf_size = groesse;
    int wertung = 0;
    const AVInputFormat* format = av_probe_input_format2(&daten, 1, &wertung);
    return wertung > AVPROBE_SCORE_RETRY ? format : nullptr;
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
    const int rc = avformat_open_input(
        &e.ctx, adresse.constData(), FormatHinterId3(info.absoluteFilePath(), adresse), &optionen);
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
    // header telling its length (an MP3 without Xing or VBRI): such a file is counted, an
    // MP3 by its frame headers, which is quick enough for a folder of them, anything else
    // by its packets.
    if (e.ctx->duration_estimation_method == AVFMT_DURATION_FROM_BITRATE) {
        double gezaehlt = std::strcmp(e.ctx->iformat->name, "mp3") == 0
            ? Mp3RahmenZaehlen(info.absoluteFilePath())
            : 0.0;
        if (gezaehlt <= 0.0)
            gezaehlt = PaketeZaehlen(e.ctx);
        if (gezaehlt > 0.0)
            return gezaehlt;
    }
    double sekunden = 0.0;
    if (e.ctx->duration != AV_NOPTS_VALUE && e.ctx->duration > 0)
        sekunden = double(e.ctx->duration) / AV_TIME_BASE;
    else
        sekunden = laengste;
    return sekunden > 0.0 ? sekunden : -1.0;
}
