#include "outputs/HtmlSeiten.h"

#include "catalogue/Datensteuerung.h"
#include "catalogue/FlexGrid.h"
#include "media/Rtf.h"
#include "outputs/Webseiten.h"
#include "outputs/frmWebTabelle.h"
#include "platform/Dialogdienst.h"
#include "platform/Dienste.h"
#include "platform/Laufzeitfehler.h"
#include "platform/Mauszeiger.h"
#include "shell/Ausgabebox.h"
#include "shell/Einstellungen.h"
#include "shell/FensterPlatzieren.h"
#include "shell/Globale.h"
#include "shell/Grundregeln.h"
#include "shell/Steuerelemente.h"

#include <QAction>
#include <QDir>
#include <QLabel>
#include <QFile>

#include <array>
#include <condition_variable>
#include <deque>
#include <mutex>
#include <thread>
#include <utility>
#include <cmath>

namespace {

// Writes the pages from a thread of its own while the next one is built. The first file
// that cannot be written ends the writing; its path is kept for the message.
class Seitenschreiber {
public:
    Seitenschreiber()
        : m_faden([this] { laufen(); })
    {
    }
    ~Seitenschreiber() { beenden(); }
    Seitenschreiber(const Seitenschreiber&) = delete;
    Seitenschreiber& operator=(const Seitenschreiber&) = delete;

    // Waits while a few pages are still queued, so that memory stays small.
    void schreiben(QString pfad, QByteArray inhalt)
    {
        std::unique_lock sperre(m_mutex);
        m_frei.wait(sperre, [this] { return m_auftraege.size() < 4 || !m_fehler.isEmpty(); });
        if (!m_fehler.isEmpty())
            return;
        m_auftraege.emplace_back(std::move(pfad), std::move(inhalt));
        m_da.notify_one();
    }
    QString fehler()
    {
        const std::lock_guard sperre(m_mutex);
        return m_fehler;
    }
    // Waits until every queued page is written; the path that failed, else nothing.
    QString beenden()
    {
        {
            const std::lock_guard sperre(m_mutex);
            m_ende = true;
        }
        m_da.notify_one();
        if (m_faden.joinable())
            m_faden.join();
        return m_fehler;
    }

private:
    void laufen()
    {
        for (;;) {
            std::pair<QString, QByteArray> auftrag;
            {
                std::unique_lock sperre(m_mutex);
                m_da.wait(sperre, [this] { return !m_auftraege.empty() || m_ende; });
                if (m_auftraege.empty())
                    return;
                auftrag = std::move(m_auftraege.front());
                m_auftraege.pop_front();
            }
            m_frei.notify_one();
            QFile datei(auftrag.first);
            if (!datei.open(QIODevice::WriteOnly | QIODevice::Truncate)
                || datei.write(auftrag.second) != auftrag.second.size() || !datei.flush()) {
                const std::lock_guard sperre(m_mutex);
                m_fehler = auftrag.first;
                m_auftraege.clear();
                m_frei.notify_all();
                return;
            }
        }
    }

    std::mutex m_mutex;
    std::condition_variable m_da;
    std::condition_variable m_frei;
    std::deque<std::pair<QString, QByteArray>> m_auftraege;
    bool m_ende = false;
    QString m_fehler;
    std::thread m_faden; // last: it starts once everything above is made
};

Laufzeitfehler schreibfehler(const QString& pfad)
{
    return Laufzeitfehler(Fehlernummer::ZugriffsFehler,
                          QStringLiteral("Die Datei %1 kann nicht geschrieben werden.").arg(pfad));
}

} // namespace

void HtmlSeiten::verbinden()
{
    BefehlVerbinden(box.mnuHtmlSeitenErstellen, this, [this] { mnuHtmlSeitenErstellen_Click(); });
    BefehlVerbinden(box.mnuHtmlSeitenAnzeigen, this, [this] { mnuHtmlSeitenAnzeigen_Click(); });
    BefehlVerbinden(box.mnuWebsiteAnzeigen, this, [this] { mnuWebsiteAnzeigen_Click(); });
    BefehlVerbinden(box.mnuWebTabelleAnordnen, this, [this] { mnuWebTabelleAnordnen_Click(); });
}

void HtmlSeiten::mnuHtmlSeitenErstellen_Click()
{
    Mauszeiger(ZeigerSanduhr);
    int seiten = 0;
    try {
        seiten = SeitenSchreiben();
    } catch (const Laufzeitfehler& fehler) {
        Mauszeiger(ZeigerStandard);
        box.Bez[13]->clear();
        box.filHtml->Refresh();
        FehlermeldungWarnfarben(fehler, QStringLiteral("Ausgabebox_mnuHtmlSeitenErstellen_Click"));
        return;
    }
    if (seiten < 0) {
        MsgNimb(QStringLiteral("Die Erstellung der HTML-Seiten wurde abgebrochen."), 1, 0,
                QStringLiteral("HTML-Seiten"), 0);
    } else if (MsgNimb(QString::number(seiten) + QStringLiteral(" HTML-Seiten erstellt.\r\n\r\nIm Browser anzeigen?\r\n"),
                       22, 1, QStringLiteral("HTML-Seiten"), 0)
               == u"Ja") {
        mnuHtmlSeitenAnzeigen_Click();
    }
    // The record view shows the first record afterwards, as it always has.
    box.Data1->setAbsolutePosition(0);
    Mauszeiger(ZeigerStandard);
    box.Bez[13]->clear();
    box.filHtml->Refresh();
}

int HtmlSeiten::SeitenSchreiben()
{
    const QStringList spalten = frmWebTabelle(&box).Spalten();
    QString farbe = QStringLiteral("#e3eaf4");
    const int proSeite = int(std::nearbyint(
        std::clamp(Val(Lesen(QStringLiteral("WebTabelleZeilenanzahl"), QStringLiteral("50"))), -2e9, 2e9)));
    const QString ueberschrift = Lesen(QStringLiteral("WebTabelleUeberschrift"), QStringLiteral("Rillenkammer"));
    const QString url = Lesen(QStringLiteral("WebTabelleURL"), Webseiten::StandardURL);
    const QString ordner = ProgrammOrdner + QStringLiteral("html/");
    QDir().mkpath(ordner);

    // The old pages go, and nothing else of the folder.
    for (int i = 0; i < box.filHtml->ListCount(); ++i)
        D().papierkorb().verschieben(ordner + box.filHtml->List(i));

    const FlexGrid* g = box.MSFlexGrid1;
    const int datenzeilen = g->Rows() - 1;
    const std::optional<int> anzahl = Webseiten::Seitenzahl(datenzeilen, proSeite);
    if (!anzahl)
        throw Laufzeitfehler(Fehlernummer::DivisionDurchNull);
    const int seiten = *anzahl;
    if (spalten.size() > 23)
        throw Laufzeitfehler(Fehlernummer::IndexAusserhalb);

    // Filled anew on every page and never cleared: a name that is no head keeps column 0.
    std::array<int, 23> spalte{};
    // What every page shares goes into bytes once.
    const QByteArray kopf = Webseiten::Kodieren(Webseiten::Kopf(ueberschrift, url));
    const QByteArray navigation = Webseiten::Kodieren(Webseiten::Navigation(seiten));
    QString bandSchluessel;
    int erste = 1;
    int letzte = proSeite;
    Abbruch = false;
    const EscAbbruch esc;
    Seitenschreiber schreiber;
    for (int seite = 1; seite <= seiten; ++seite) {
        box.Bez[13]->setText(QString::number(seite));
        EreignisseZulassen();
        if (std::exchange(Abbruch, false))
            return -1;
        QString text = Webseiten::Tabellenkopf(seite, spalten);
        for (int i = 0; i < spalten.size(); ++i)
            for (int j = 0; j < g->Cols(); ++j)
                if (g->TextMatrix(0, j) == spalten[i])
                    spalte[size_t(i)] = j;
        if (letzte > datenzeilen)
            letzte = datenzeilen;
        for (int z = erste; z <= letzte; ++z) {
            text += Webseiten::Zeilenanfang(farbe);
            for (int i = 0; i < spalten.size(); ++i) {
                const int c = spalte[size_t(i)];
                const QString name = g->TextMatrix(0, c);
                QString zelle = g->TextMatrix(z, c);
                // Rich text of the song panes goes out as the pane's plain text.
                if (zelle.contains(QLatin1String("{\\rtf")) && (name == u"SongText" || name == u"Songs"))
                    zelle = RtfText(zelle);
                text += Webseiten::Zelle(zelle, name, bandSchluessel);
            }
            text += QStringLiteral("</tr>\r\n");
        }
        erste += proSeite;
        letzte += proSeite;
        text += Webseiten::Tabellenende(seite);
        // One page, one write; the print of the buffer adds a line end of its own.
        const QByteArray seitentext = kopf + navigation + Webseiten::Kodieren(text) + navigation
            + Webseiten::Kodieren(Webseiten::Schluss(seite)) + "\r\n";
        schreiber.schreiben(ordner + Webseiten::Dateiname(seite), seitentext);
        if (const QString pfad = schreiber.fehler(); !pfad.isEmpty())
            throw schreibfehler(pfad);
    }
    if (const QString pfad = schreiber.beenden(); !pfad.isEmpty())
        throw schreibfehler(pfad);
    return seiten;
}

void HtmlSeiten::mnuHtmlSeitenAnzeigen_Click()
{
    const QString seite = ProgrammOrdner + QStringLiteral("html/index.html");
    if (!D().shell().oeffnen(seite))
        FehlermeldungWarnfarben(Laufzeitfehler(Fehlernummer::DateiNichtGefunden,
                                               QStringLiteral("Die Seite %1 kann nicht geöffnet werden.").arg(seite)),
                                QStringLiteral("Ausgabebox_mnuHtmlSeitenAnzeigen_Click"));
}

void HtmlSeiten::mnuWebsiteAnzeigen_Click()
{
    QString adresse = Lesen(QStringLiteral("WebTabelleURL"), Webseiten::BeispielWebsite);
    if (!adresse.endsWith(u'/'))
        adresse += u'/';
    adresse += QStringLiteral("index.html");
    if (!D().shell().oeffnen(adresse))
        FehlermeldungWarnfarben(Laufzeitfehler(Fehlernummer::UngueltigerAufruf,
                                               QStringLiteral("Die Adresse %1 kann nicht geöffnet werden.").arg(adresse)),
                                QStringLiteral("Ausgabebox_mnuWebsiteAnzeigen_Click"));
}

void HtmlSeiten::mnuWebTabelleAnordnen_Click()
{
    frmWebTabelle fenster(&box);
    FensterPlatzieren(&fenster, &box, QStringLiteral("center"), 10);
    fenster.exec();
}
