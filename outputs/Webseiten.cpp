#include "outputs/Webseiten.h"

#include "platform/Textdatei.h"

#include <algorithm>
#include <cstring>


namespace {

const QString CRLF = QStringLiteral("\r\n");

QString produktLink(const QString& schluessel, const QString& text)
{
    return QStringLiteral("<td><a href=https://") + Webseiten::Produktsuche
        + QStringLiteral("/s/ref=nb_ss_w?__mk_de_DE=%C5M%C5Z%D5%D1&url=search-alias%3Daps&field-keywords=")
        + schluessel + QStringLiteral("&x=0&y=0 target=\"_blank\">") + text + QStringLiteral("</a></td>");
}

} // namespace

namespace Webseiten {

std::optional<int> Seitenzahl(int datenzeilen, int proSeite)
{
    if (datenzeilen > proSeite) {
        if (proSeite == 0)
            return std::nullopt;
        return datenzeilen / proSeite + 1;
    }
    return 1;
}

QString Navigation(int seiten)
{
    QString s;
    for (int n = 1; n <= seiten; ++n)
        s += QStringLiteral("| <b><a href=\"") + Dateiname(n) + QStringLiteral("\">") + QString::number(n)
            + QStringLiteral("</a> </b>") + CRLF;
    return s;
}

QString Dateiname(int seite)
{
    return seite == 1 ? QStringLiteral("index.html") : QStringLiteral("rillenkammer%1.html").arg(seite);
}

QString Kopf(const QString& ueberschrift, const QString& url)
{
    const QString u = ueberschrift;
    QString s;
    s.reserve(2048);
    s += QStringLiteral("<!DOCTYPE HTML PUBLIC \"-//W3C//DTD 4.01 HTML TRANSITIONAL//EN\">") + CRLF;
    s += QStringLiteral("<html>") + CRLF;
    s += QStringLiteral("<head>") + CRLF;
    s += QStringLiteral("<title>") + u + QStringLiteral("</title>") + CRLF;
    for (const char* name : {"author", "publisher", "copyright", "description"})
        s += QStringLiteral("<meta name=\"%1\" content=\"").arg(QLatin1String(name)) + u + QStringLiteral("\">") + CRLF;
    s += QStringLiteral("<meta name=\"keywords\" content=\"Rillenkammer Schallplatten Audio-CD Musik Lieder Songs DJ "
                        "Cassetten Songtext Bibliothek Archiv\">")
        + CRLF;
    s += QStringLiteral("<meta name=\"page-topic\" content=\"Musik\">") + CRLF;
    s += QStringLiteral("<meta name=\"page-type\" content=\"Musik\">") + CRLF;
    s += QStringLiteral("<meta name=\"audience\" content=\"Alle\">") + CRLF;
    s += QStringLiteral("<meta https-equiv=\"content-language\" content=\"de\">") + CRLF;
    s += QStringLiteral("<meta name=\"robots\" content=\"index, follow\">") + CRLF;
    s += QStringLiteral("<meta name=\"REVISIT-AFTER\" content=\"10 days\">") + CRLF;
    s += QStringLiteral("<style typ=\"text/css\">") + CRLF;
    s += QStringLiteral("table { font-family: Helvetica, Arial; font-size:9pt; font-weight:none; }") + CRLF;
    s += QStringLiteral("h1:first-letter { font:bold 30pt times new roman }") + CRLF;
    s += QStringLiteral("td:first-letter { font:bold 9pt Helvetica, Arial }") + CRLF;
    s += QStringLiteral("th:first-letter { font:bold 9pt Helvetica, Arial }") + CRLF;
    s += QStringLiteral("</style>") + CRLF;
    s += QStringLiteral("</head>") + CRLF;
    s += QStringLiteral("<body style=\"font-family: Helvetica, Arial; font-size:10pt; font-weight:none;\">") + CRLF;
    s += QStringLiteral("<h1 align=\"center\" style=\"color:#adc9de\">") + u + QStringLiteral("</h1>") + CRLF;
    s += QStringLiteral("<form action=\"https://") + Suchmaschine + QStringLiteral("/search\" method=\"Get\">") + CRLF;
    s += QStringLiteral("<p align=\"center\">") + CRLF;
    s += QStringLiteral("<input type=\"hidden\" name=\"h1\" value=\"de\">") + CRLF;
    s += QStringLiteral("<!-- Tauschen Sie nachfolgend \"") + StandardURL
        + QStringLiteral("\" durch Ihre Internetadresse aus z.B. \"www.meine-seite.de\" -->") + CRLF;
    s += QStringLiteral("<input type=\"hidden\" name=\"as_sitesearch\" value=\"") + url + QStringLiteral("\">") + CRLF;
    s += QStringLiteral("<input type=\"text\" size=\"40\" maxlength=\"255\" name=\"q\">") + CRLF;
    s += QStringLiteral("<input type=\"submit\" name=\"btnG\" value=\"Suchen\">") + CRLF;
    s += QStringLiteral("</form>") + CRLF;
    s += QStringLiteral("<p align=\"center\">") + CRLF;
    return s;
}

QString Tabellenkopf(int seite, const QStringList& spalten)
{
    QString s = QStringLiteral("<br>   Seite <b>%1</b></p>").arg(seite);
    s += QStringLiteral("<table border=\"0\" align=\"center\" cellspacing=\"2\" cellpadding=\"5\" width=\"98%\" "
                        "bgcolor=\"#adc9de\">")
        + CRLF;
    s += QStringLiteral("<tr valign=\"top\">") + CRLF;
    for (const QString& name : spalten) {
        if (name == u"Info")
            s += QStringLiteral("<th width=\"15%\">Info</th>") + CRLF;
        else if (name == u"Songs")
            s += QStringLiteral("<th width=\"33%\">Songs</th>") + CRLF;
        else
            s += QStringLiteral("<th>") + name + QStringLiteral("</th>") + CRLF;
    }
    s += QStringLiteral("</tr>") + CRLF;
    return s;
}

QString Tabellenende(int seite)
{
    return QStringLiteral("</table>") + CRLF + QStringLiteral("<p align=\"center\">") + CRLF
        + QStringLiteral("   Seite <b>%1</b><br>").arg(seite);
}

QString Schluss(int seite)
{
    QString s = QStringLiteral("|   Seite %1 </p>").arg(seite);
    s += QStringLiteral("<font size=\"1\"><div align=\"right\">erstellt mit der Software <b>'Rillenkammer'</b>") + CRLF;
    s += QStringLiteral("von <a href=\"https://") + Herstellerseite
        + QStringLiteral("/rillenkammer.html\" target=\"_blank\"><b>Lumivox</b></a>") + CRLF;
    s += QStringLiteral("</div>") + CRLF;
    s += QStringLiteral("<br>") + CRLF;
    s += QStringLiteral("</body>") + CRLF;
    s += QStringLiteral("</html>") + CRLF;
    return s;
}

QString Umlaute(QString text)
{
    static const std::pair<QChar, const char*> tabelle[] = {
        {u'ä', "&auml;"}, {u'ö', "&ouml;"}, {u'ü', "&uuml;"}, {u'Ä', "&Auml;"},
        {u'Ö', "&Ouml;"}, {u'Ü', "&Uuml;"}, {u'ß', "&szlig;"},
    };
    // Most cells hold none of them: one pass over the text decides.
    const bool umlaut = std::any_of(text.cbegin(), text.cend(), [](QChar c) { return c.unicode() >= 0xC4; });
    if (!umlaut)
        return text;
    for (const auto& [zeichen, entity] : tabelle)
        text.replace(zeichen, QLatin1String(entity));
    return text;
}

QString Zelle(QString text, const QString& name, QString& bandSchluessel)
{
    if (text.isEmpty() || text == u" ")
        text = QStringLiteral("&nbsp;");
    text = Umlaute(text);
    if (text.startsWith(u"www"))
        return QStringLiteral("<td><a href=") + text + QStringLiteral(" target=\"_blank\">") + text
            + QStringLiteral("</a></td>") + CRLF;
    QString unterstrichen = text;
    unterstrichen.replace(u' ', u'_');
    if (name == u"Band") {
        bandSchluessel = unterstrichen;
    } else if (name == u"LPTitel") {
        return produktLink(bandSchluessel + u'_' + unterstrichen, text) + CRLF;
    } else if (name == u"BestellNr") {
        return produktLink(unterstrichen, text) + CRLF;
    }
    return QStringLiteral("<td>") + text + QStringLiteral("</td>") + CRLF;
}

QString Zeilenanfang(QString& farbe)
{
    farbe = farbe == u"#e3eaf4" ? QStringLiteral("#f1f4fa") : QStringLiteral("#e3eaf4");
    return QStringLiteral("<tr valign=\"top\" bgcolor=") + farbe + u'>' + CRLF;
}

QByteArray Kodieren(const QString& seite)
{
    // Pages are almost all ASCII: those characters go straight into the buffer.
    QByteArray aus(seite.size(), Qt::Uninitialized);
    char* ziel = aus.data();
    const char16_t* q = reinterpret_cast<const char16_t*>(seite.constData());
    const qsizetype n = seite.size();
    qsizetype geschrieben = 0;
    for (qsizetype i = 0; i < n; ++i) {
        char32_t c = q[i];
        int byte = c < 0x80 ? int(c) : Cp1252Byte(c);
        if (byte >= 0) {
            if (geschrieben == aus.size()) {
                aus.resize(aus.size() + aus.size() / 4 + 16);
                ziel = aus.data();
            }
            ziel[geschrieben++] = char(byte);
            continue;
        }
        if (QChar::isHighSurrogate(c) && i + 1 < n && QChar::isLowSurrogate(q[i + 1])) {
            c = QChar::surrogateToUcs4(char16_t(c), q[i + 1]);
            ++i;
        }
        const QByteArray bezug = "&#" + QByteArray::number(quint32(c)) + ';';
        if (geschrieben + bezug.size() > aus.size()) {
            aus.resize(geschrieben + bezug.size() + aus.size() / 4 + 16);
            ziel = aus.data();
        }
        memcpy(ziel + geschrieben, bezug.constData(), size_t(bezug.size()));
        geschrieben += bezug.size();
    }
    aus.resize(geschrieben);
    return aus;
}

} // namespace Webseiten
