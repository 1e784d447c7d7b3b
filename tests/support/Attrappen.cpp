#include "Attrappen.h"

#include <QCoreApplication>
#include <QFile>
#include <QFileInfo>

#include <algorithm>

static QString antwort(QQueue<QString>& queue) { return queue.isEmpty() ? QString() : queue.dequeue(); }

QString DialogAttrappe::MsgNimb(const Meldung& m)
{
    Aufruf a;
    a.art = QStringLiteral("MsgNimb");
    a.meldung = m;
    aufrufe << a;
    if (beimAufruf)
        beimAufruf(a);
    return antwort(antwortenMsg);
}

QString DialogAttrappe::InputNimb(const Eingabe& e)
{
    Aufruf a;
    a.art = QStringLiteral("InputNimb");
    a.eingabe = e;
    aufrufe << a;
    if (beimAufruf)
        beimAufruf(a);
    return antwort(antwortenInput).trimmed();
}

QString DialogAttrappe::Datei(const Dateiauswahl& d)
{
    Aufruf a;
    a.art = QStringLiteral("Datei");
    a.datei = d;
    aufrufe << a;
    if (beimAufruf)
        beimAufruf(a);
    if (d.filterGewaehlt)
        *d.filterGewaehlt = antwortenFilter.isEmpty() ? d.filterIndex : antwortenFilter.dequeue();
    return antwort(antwortenDatei);
}

int DialogAttrappe::Auswahl(const QString& titel, const QString& frage, const QStringList& eintraege)
{
    Aufruf a;
    a.art = QStringLiteral("Auswahl");
    a.eingabe.titel = titel;
    a.eingabe.prompt = frage;
    a.eintraege = eintraege;
    aufrufe << a;
    if (beimAufruf)
        beimAufruf(a);
    return antwortenAuswahl.isEmpty() ? -1 : antwortenAuswahl.dequeue();
}

QString DialogAttrappe::Ordner(const QString& titel, const QString& startordner)
{
    Aufruf a;
    a.art = QStringLiteral("Ordner");
    a.ordnerTitel = titel;
    a.ordnerStart = startordner;
    aufrufe << a;
    if (beimAufruf)
        beimAufruf(a);
    return antwort(antwortenOrdner);
}

bool DialogAttrappe::Schrift(Schriftauswahl& s)
{
    Aufruf a;
    a.art = QStringLiteral("Schrift");
    a.schrift = s;
    aufrufe << a;
    if (beimAufruf)
        beimAufruf(a);
    if (antwortenSchrift.isEmpty())
        return false;
    s = antwortenSchrift.dequeue();
    return true;
}

bool DialogAttrappe::Farbe(QColor& c)
{
    Aufruf a;
    a.art = QStringLiteral("Farbe");
    a.farbe = c;
    aufrufe << a;
    if (beimAufruf)
        beimAufruf(a);
    if (antwortenFarbe.isEmpty())
        return false;
    c = antwortenFarbe.dequeue();
    return true;
}

QList<Meldung> DialogAttrappe::meldungen() const
{
    QList<Meldung> liste;
    for (const Aufruf& a : aufrufe)
        if (a.art == u"MsgNimb")
            liste << a.meldung;
    return liste;
}

QStringList DialogAttrappe::meldungsTexte() const
{
    QStringList liste;
    for (const Meldung& m : meldungen())
        liste << m.text;
    return liste;
}

void DialogAttrappe::leeren()
{
    aufrufe.clear();
    antwortenMsg.clear();
    antwortenInput.clear();
    antwortenDatei.clear();
    antwortenFilter.clear();
    antwortenOrdner.clear();
    antwortenSchrift.clear();
    antwortenFarbe.clear();
    beimAufruf = nullptr;
}

QDateTime FalscheUhr::jetzt() const { return start.addMSecs(ms); }

double FalscheUhr::sekundenSeitMitternacht() const
{
    return jetzt().time().msecsSinceStartOfDay() / 1000.0;
}

void FalscheUhr::warten(int dauer)
{
    ++gewartet;
    vorruecken(std::max(0, dauer));
    QCoreApplication::processEvents();
}

Zeitgeber* FalscheUhr::neuerZeitgeber(QObject* eltern) { return new FalscherZeitgeber(this, eltern); }

void FalscheUhr::vorruecken(qint64 dauer)
{
    const qint64 ziel = ms + dauer;
    for (;;) {
        // The earliest due timer fires next; its handler may change any timer.
        FalscherZeitgeber* naechster = nullptr;
        for (FalscherZeitgeber* z : std::as_const(zeitgeber))
            if (z->isEnabled() && z->interval() > 0 && z->faellig <= ziel
                && (!naechster || z->faellig < naechster->faellig))
                naechster = z;
        if (!naechster)
            break;
        ms = std::max(ms, naechster->faellig);
        naechster->faellig = ms + naechster->interval();
        naechster->ausloesen();
    }
    ms = std::max(ms, ziel);
}

FalscherZeitgeber::FalscherZeitgeber(FalscheUhr* uhr, QObject* eltern)
    : Zeitgeber(eltern)
    , m_uhr(uhr)
{
    m_uhr->zeitgeber << this;
}

FalscherZeitgeber::~FalscherZeitgeber() { m_uhr->zeitgeber.removeAll(this); }

void FalscherZeitgeber::setInterval(int ms)
{
    m_interval = ms;
    faellig = m_uhr->ms + ms;
}

void FalscherZeitgeber::setEnabled(bool an)
{
    if (an && !m_an)
        faellig = m_uhr->ms + m_interval;
    m_an = an;
}

bool PapierkorbAttrappe::verschieben(const QString& pfad)
{
    verschoben << pfad;
    return QFile::remove(pfad);
}

SpielerAttrappe::SpielerAttrappe(MedienAttrappe* herkunft, QObject* eltern)
    : Medienspieler(eltern)
    , m_herkunft(herkunft)
{
    m_takt = D().uhr().neuerZeitgeber(this);
    m_takt->setInterval(100);
    connect(m_takt, &Zeitgeber::Timer, this, &SpielerAttrappe::pruefen);
}

SpielerAttrappe::~SpielerAttrappe()
{
    if (m_herkunft)
        m_herkunft->spieler.removeAll(this);
}

qint64 SpielerAttrappe::uhrMs() const { return D().uhr().jetzt().toMSecsSinceEpoch(); }

double SpielerAttrappe::currentPosition() const
{
    double p = m_basis;
    if (m_zustand == Spielt)
        p += (uhrMs() - m_anker) / 1000.0;
    return dauer > 0.0 ? std::min(p, dauer) : p;
}

void SpielerAttrappe::setCurrentPosition(double sekunden)
{
    aufrufe << QStringLiteral("Position %1").arg(sekunden);
    m_basis = std::max(0.0, sekunden);
    m_anker = uhrMs();
}

void SpielerAttrappe::setURL(const QString& pfad)
{
    aufrufe << QStringLiteral("URL ") + pfad;
    m_url = pfad;
    m_basis = 0.0;
    m_anker = uhrMs();
    // As the real control: a file that is not there does not start.
    wechseln(QFileInfo(pfad).isFile() ? Spielt : Gestoppt);
}

void SpielerAttrappe::play()
{
    aufrufe << QStringLiteral("play");
    if (!m_url.isEmpty())
        wechseln(Spielt);
}

void SpielerAttrappe::pause()
{
    aufrufe << QStringLiteral("pause");
    if (m_zustand == Spielt)
        wechseln(Angehalten);
}

void SpielerAttrappe::stop()
{
    aufrufe << QStringLiteral("stop");
    wechseln(Gestoppt);
    m_basis = 0.0;
}

void SpielerAttrappe::close()
{
    aufrufe << QStringLiteral("close");
    m_url.clear();
    wechseln(Gestoppt);
    m_basis = 0.0;
}

void SpielerAttrappe::zustandSetzen(int zustand)
{
    m_basis = currentPosition();
    m_anker = uhrMs();
    m_zustand = zustand;
    m_takt->setEnabled(zustand == Spielt);
    emit PlayStateChange(zustand);
}

void SpielerAttrappe::ende()
{
    m_basis = dauer;
    m_anker = uhrMs();
    wechseln(Gestoppt);
}

void SpielerAttrappe::wechseln(int zustand)
{
    if (zustand != m_zustand)
        zustandSetzen(zustand);
}

void SpielerAttrappe::pruefen()
{
    if (m_zustand == Spielt && dauer > 0.0 && currentPosition() >= dauer)
        ende();
}

bool MedienAttrappe::oeffnenUndSpielen(const QString& pfad, const QString& alias)
{
    befehle << QStringLiteral("open %1 alias %2").arg(pfad, alias);
    if (!oeffnenGelingt || offen.contains(alias.toLower()))
        return false;
    offen.insert(alias.toLower(), pfad);
    befehle << QStringLiteral("play %1 from 0").arg(alias);
    return true;
}

void MedienAttrappe::stoppenUndSchliessen(const QString& alias)
{
    befehle << QStringLiteral("stop ") + alias << QStringLiteral("close ") + alias;
    offen.remove(alias.toLower());
}

Medienspieler* MedienAttrappe::neuerSpieler(QObject* eltern)
{
    auto* s = new SpielerAttrappe(this, eltern);
    spieler << s;
    return s;
}

double MedienAttrappe::laenge(const QString& pfad)
{
    gemessen << pfad;
    const auto it = laengen.constFind(pfad);
    return it != laengen.constEnd() ? *it : MedienlaengeLesen(pfad);
}

MedienAttrappe::~MedienAttrappe()
{
    for (SpielerAttrappe* s : std::as_const(spieler))
        s->m_herkunft = nullptr;
}

QStringList MedienAttrappe::gestartet() const
{
    QStringList liste;
    for (qsizetype i = 0; i + 1 < befehle.size(); ++i)
        if (befehle[i].startsWith(u"open ") && befehle[i + 1].startsWith(u"play "))
            liste << befehle[i].mid(5, befehle[i].lastIndexOf(QStringLiteral(" alias ")) - 5);
    return liste;
}

void MedienAttrappe::leeren()
{
    befehle.clear();
    offen.clear();
    oeffnenGelingt = true;
    laengen.clear();
    gemessen.clear();
}

namespace {
DialogAttrappe* s_dialoge;
FalscheUhr* s_uhr;
FalscherZufall* s_zufall;
KlangAttrappe* s_klang;
ShellAttrappe* s_shell;
PapierkorbAttrappe* s_papierkorb;
ProzessAttrappe* s_prozess;
MedienAttrappe* s_medien;
EnergieAttrappe* s_energie;
SprachausgabeAttrappe* s_sprachausgabe;
ScannerAttrappe* s_scanner;

template <class T, class Setzer>
T* einsetzen(Setzer setzer)
{
    auto dienst = std::make_unique<T>();
    T* roh = dienst.get();
    (D().*setzer)(std::move(dienst));
    return roh;
}
} // namespace

DialogAttrappe& Attrappen::dialoge() { return *s_dialoge; }
FalscheUhr& Attrappen::uhr() { return *s_uhr; }
FalscherZufall& Attrappen::zufall() { return *s_zufall; }
KlangAttrappe& Attrappen::klang() { return *s_klang; }
ShellAttrappe& Attrappen::shell() { return *s_shell; }
PapierkorbAttrappe& Attrappen::papierkorb() { return *s_papierkorb; }
ProzessAttrappe& Attrappen::prozess() { return *s_prozess; }
MedienAttrappe& Attrappen::medien() { return *s_medien; }
EnergieAttrappe& Attrappen::energie() { return *s_energie; }
SprachausgabeAttrappe& Attrappen::sprachausgabe() { return *s_sprachausgabe; }
ScannerAttrappe& Attrappen::scanner() { return *s_scanner; }

void Attrappen::installieren()
{
    s_dialoge = einsetzen<DialogAttrappe>(&Dienste::setzeDialoge);
    // One clock for the whole run: timers of living windows keep pointing at it.
    if (!s_uhr)
        s_uhr = einsetzen<FalscheUhr>(&Dienste::setzeUhr);
    s_zufall = einsetzen<FalscherZufall>(&Dienste::setzeZufall);
    s_klang = einsetzen<KlangAttrappe>(&Dienste::setzeKlang);
    s_shell = einsetzen<ShellAttrappe>(&Dienste::setzeShell);
    s_papierkorb = einsetzen<PapierkorbAttrappe>(&Dienste::setzePapierkorb);
    s_prozess = einsetzen<ProzessAttrappe>(&Dienste::setzeProzess);
    s_medien = einsetzen<MedienAttrappe>(&Dienste::setzeMedien);
    s_energie = einsetzen<EnergieAttrappe>(&Dienste::setzeEnergie);
    s_sprachausgabe = einsetzen<SprachausgabeAttrappe>(&Dienste::setzeSprachausgabe);
    s_scanner = einsetzen<ScannerAttrappe>(&Dienste::setzeScanner);
}

void Attrappen::leeren()
{
    dialoge().leeren();
    medien().leeren();
    shell() = ShellAttrappe();
    papierkorb().verschoben.clear();
    klang().gespielt.clear();
    prozess().beendet.clear();
    energie() = EnergieAttrappe();
    sprachausgabe() = SprachausgabeAttrappe();
    scanner() = ScannerAttrappe();
}
