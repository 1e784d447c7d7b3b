#include "shell/Grundregeln.h"

#include "platform/Dienste.h"
#include "platform/Uhr.h"
#include "shell/Globale.h"

#include <QCoreApplication>
#include <QKeyEvent>

#include <cmath>
#include <cstdlib>
#include <limits>

void EreignisseZulassen() { QCoreApplication::processEvents(); }

namespace {

class EscFilter : public QObject {
public:
    explicit EscFilter(bool sperren)
        : m_sperren(sperren)
    {
    }

protected:
    bool eventFilter(QObject* objekt, QEvent* ereignis) override
    {
        if (ereignis->type() == QEvent::KeyPress && static_cast<QKeyEvent*>(ereignis)->key() == Qt::Key_Escape) {
            Abbruch = true;
            return true;
        }
        if (m_sperren) {
            switch (ereignis->type()) {
            case QEvent::KeyPress:
            case QEvent::KeyRelease:
            case QEvent::MouseButtonPress:
            case QEvent::MouseButtonRelease:
            case QEvent::MouseButtonDblClick:
            case QEvent::Wheel:
            case QEvent::Shortcut:
            case QEvent::Close:
                ereignis->ignore();
                return true;
            default:
                break;
            }
        }
        return QObject::eventFilter(objekt, ereignis);
    }

private:
    bool m_sperren;
};

} // namespace

EscAbbruch::EscAbbruch(bool eingabeSperren)
    : m_filter(new EscFilter(eingabeSperren))
{
    QCoreApplication::instance()->installEventFilter(m_filter);
}

EscAbbruch::~EscAbbruch() { delete m_filter; }

void Warten(int ms)
{
    D().uhr().warten(ms);
    QCoreApplication::processEvents();
}

namespace {

bool ziffer(QChar c) { return c >= u'0' && c <= u'9'; }

} // namespace

double Val(const QString& text)
{
    // Blanks, tabs and line feeds count nowhere, also inside the number.
    QString s;
    s.reserve(std::min<qsizetype>(text.size(), 400));
    for (qsizetype i = 0; i < text.size() && s.size() < 400; ++i)
        if (text[i] != u' ' && text[i] != u'\t' && text[i] != u'\n' && text[i] != u'\r')
            s += text[i];
    if (s.size() >= 2 && s[0] == u'&' && QStringLiteral("HhOo").contains(s[1])) {
        const int basis = (s[1] == u'H' || s[1] == u'h') ? 16 : 8;
        quint64 wert = 0;
        for (qsizetype i = 2; i < s.size() && wert <= 0xFFFFFFFFull; ++i) {
            const int stelle = HexWert(s[i].unicode());
            if (stelle < 0 || stelle >= basis)
                break;
            wert = wert * quint64(basis) + quint64(stelle);
        }
        // As an Integer up to four hex digits, as a Long up to eight: "&HFFFF" is -1.
        if (wert <= 0xFFFF)
            return qint16(quint16(wert));
        if (wert <= 0xFFFFFFFFull)
            return qint32(quint32(wert));
        return double(wert);
    }
    qsizetype i = 0;
    QString zahl;
    if (i < s.size() && (s[i] == u'+' || s[i] == u'-'))
        zahl += s[i++];
    bool ziffern = false;
    while (i < s.size() && ziffer(s[i])) {
        zahl += s[i++];
        ziffern = true;
    }
    if (i < s.size() && s[i] == u'.') {
        zahl += s[i++];
        while (i < s.size() && ziffer(s[i])) {
            zahl += s[i++];
            ziffern = true;
        }
    }
    if (!ziffern)
        return 0;
    if (i < s.size() && QStringLiteral("eEdD").contains(s[i])) {
        qsizetype j = i + 1;
        QString exponent = QStringLiteral("e");
        if (j < s.size() && (s[j] == u'+' || s[j] == u'-'))
            exponent += s[j++];
        bool expZiffern = false;
        while (j < s.size() && ziffer(s[j])) {
            exponent += s[j++];
            expZiffern = true;
        }
        if (expZiffern)
            zahl += exponent;
    }
    // Beyond a double the number is infinite, as strtod gives it.
    return std::strtod(zahl.toLatin1().constData(), nullptr);
}

int GanzeZahl(double wert)
{
    // A number no whole number can hold would overflow: the reading gives 0.
    wert = std::trunc(wert);
    if (!std::isfinite(wert) || wert > std::numeric_limits<int>::max() || wert < std::numeric_limits<int>::min())
        return 0;
    return int(wert);
}

int GanzeZahl(const QString& text) { return GanzeZahl(Val(text)); }

std::optional<double> Zahl(const QString& text)
{
    bool ok = false;
    double wert = text.trimmed().toDouble(&ok);
    if (!ok)
        wert = QString(text.trimmed()).replace(u',', u'.').toDouble(&ok);
    // "nan" and "inf" convert, but no window size or wait can take them.
    if (!ok || !std::isfinite(wert))
        return std::nullopt;
    return wert;
}

std::optional<bool> Wahrheit(const QString& text)
{
    const QString t = text.trimmed();
    if (t.compare(u"True", Qt::CaseInsensitive) == 0 || t.compare(u"Wahr", Qt::CaseInsensitive) == 0)
        return true;
    if (t.compare(u"False", Qt::CaseInsensitive) == 0 || t.compare(u"Falsch", Qt::CaseInsensitive) == 0)
        return false;
    if (const auto zahl = Zahl(t))
        return *zahl != 0;
    return std::nullopt;
}

QString WahrheitText(bool wert) { return wert ? QStringLiteral("True") : QStringLiteral("False"); }

QString EndungVier(const QString& name) { return name.right(4).toLower(); }
