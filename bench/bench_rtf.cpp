// Figures of the rich text engine for a song list as it is read at every record move.
#include "media/Rtf.h"

#include <QElapsedTimer>
#include <QFont>
#include <QGuiApplication>
#include <QTextCursor>
#include <QTextDocument>
#include <QTextList>

#include <algorithm>
#include <cstdio>
#include <functional>
#include <vector>

namespace {

double MedianMikro(int runden, const std::function<void()>& arbeit)
{
    std::vector<qint64> zeiten;
    zeiten.reserve(size_t(runden));
    for (int i = 0; i < runden; ++i) {
        QElapsedTimer uhr;
        uhr.start();
        arbeit();
        zeiten.push_back(uhr.nsecsElapsed());
    }
    std::nth_element(zeiten.begin(), zeiten.begin() + runden / 2, zeiten.end());
    return zeiten[size_t(runden / 2)] / 1000.0;
}

} // namespace

int main(int argc, char** argv)
{
    if (qEnvironmentVariableIsEmpty("QT_QPA_PLATFORM"))
        qputenv("QT_QPA_PLATFORM", "offscreen");
    QGuiApplication app(argc, argv);
    const QFont standard(QStringLiteral("Segoe UI"), 12);

    QTextDocument vorlage;
    vorlage.setDefaultFont(standard);
    QTextCursor c(&vorlage);
    for (int i = 1; i <= 15; ++i) {
        if (i > 1)
            c.insertBlock();
        QTextCharFormat nummer;
        nummer.setFontWeight(QFont::Bold);
        c.insertText(QStringLiteral("%1. ").arg(i, 2), nummer);
        c.insertText(QStringLiteral("Über die Brücke – Straßenmusik in Köln (3:%1)").arg(10 + 3 * i),
                     QTextCharFormat());
    }
    const QString rtf = RtfSchreiben(&vorlage);
    constexpr int Runden = 10000;

    QTextDocument dokument;
    const double lesen = MedianMikro(Runden, [&] { RtfLesen(rtf, &dokument, standard); });
    qsizetype laenge = 0;
    const double text = MedianMikro(Runden, [&] { laenge += RtfText(rtf).size(); });
    const double schreiben = MedianMikro(Runden, [&] { laenge += RtfSchreiben(&dokument).size(); });

    std::printf("Songliste: 15 Zeilen, %lld Zeichen RTF, %d Runden je Aufruf\n",
                static_cast<long long>(rtf.size()), Runden);
    std::printf("RtfLesen      Median %8.1f us\n", lesen);
    std::printf("RtfText       Median %8.1f us\n", text);
    std::printf("RtfSchreiben  Median %8.1f us\n", schreiben);

    // Long lists, as a pasted catalogue of a whole collection makes them: read once each.
    // Lists of the given items, each run of `lauf` items closed by a plain paragraph.
    auto liste = [&](QTextListFormat::Style stil, int punkte, int lauf) {
        QTextDocument d;
        d.setDefaultFont(standard);
        QTextCursor k(&d);
        QTextListFormat lf;
        lf.setStyle(stil);
        k.insertText(QStringLiteral("Kopf"));
        for (int i = 0; i < punkte; ++i) {
            const QString text = QStringLiteral("Punkt %1 mit etwas Text, wie eine Liste ihn hat").arg(i + 1);
            if (i % lauf != 0) {
                k.insertBlock(); // the next item of the same list
                k.insertText(text);
                continue;
            }
            k.insertBlock(QTextBlockFormat());
            if (i > 0) {
                k.insertText(QStringLiteral("Zwischentext"));
                k.insertBlock(QTextBlockFormat());
            }
            k.insertText(text);
            k.createList(lf);
        }
        return RtfSchreiben(&d);
    };
    const QList<QPair<const char*, QString>> listen = {
        {"10,000 Punkte", liste(QTextListFormat::ListDisc, 10000, 10000)},
        {"1 MB Punkte", liste(QTextListFormat::ListDisc, 9000, 9000)},
        {"1 MB Nummern", liste(QTextListFormat::ListDecimal, 8000, 8000)},
        {"1 MB je 2000", liste(QTextListFormat::ListDecimal, 8000, 2000)},
        {"1 MB je 128", liste(QTextListFormat::ListDecimal, 8000, 128)}};
    for (const auto& [name, quelle] : listen) {
        const double ms = MedianMikro(3, [&] { RtfLesen(quelle, &dokument, standard); }) / 1000.0;
        std::printf("RtfLesen %-14s %7.2f MB RTF: %8.1f ms\n", name, quelle.size() / 1e6, ms);
    }
    return laenge > 0 ? 0 : 1;
}
