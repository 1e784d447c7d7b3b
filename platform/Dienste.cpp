#include "platform/Dienste.h"

#include "platform/Dialogdienst.h"
#include "platform/Medien.h"
#include "platform/Scanner.h"
#include "platform/Energie.h"
#include "platform/Sprachausgabe.h"
#include "platform/Uhr.h"

#include <QDesktopServices>
#include <QFile>
#include <QFileInfo>
#include <QProcess>
#include <QRandomGenerator>
#include <QSoundEffect>
#include <QUrl>

#include <cstdio>
#include <cstdlib>

namespace {

class EchterZufall : public Zufall {
public:
    double Rnd() override { return QRandomGenerator::global()->generateDouble(); }
};

class EchterKlang : public Klang {
public:
    void abspielen(const QString& pfad) override
    {
        if (!QFileInfo(pfad).isFile())
            return;
        if (!m_effekt)
            m_effekt = std::make_unique<QSoundEffect>();
        m_effekt->stop();
        m_effekt->setSource(QUrl::fromLocalFile(pfad));
        m_effekt->play();
    }

private:
    std::unique_ptr<QSoundEffect> m_effekt;
};

class EchteShell : public Shell {
public:
    bool oeffnen(const QString& ziel) override
    {
        const bool adresse = ziel.contains(u"://") || ziel.startsWith(u"mailto:")
            || ziel.startsWith(u"www.", Qt::CaseInsensitive);
        QUrl url = adresse ? QUrl::fromUserInput(ziel) : QUrl::fromLocalFile(ziel);
        return QDesktopServices::openUrl(url);
    }
    bool starten(const QString& programm, const QStringList& argumente) override
    {
        return QProcess::startDetached(programm, argumente);
    }
};

class EchterPapierkorb : public Papierkorb {
public:
    bool verschieben(const QString& pfad) override { return QFile::moveToTrash(pfad); }
};

class EchterProzess : public Prozess {
public:
    [[noreturn]] void beenden(int code) override
    {
        std::fflush(nullptr);
        std::_Exit(code);
    }
};

std::function<std::unique_ptr<Dialogdienst>()>& dialogFabrik()
{
    static std::function<std::unique_ptr<Dialogdienst>()> fabrik;
    return fabrik;
}

} // namespace

void setzeDialogFabrik(std::function<std::unique_ptr<Dialogdienst>()> fabrik)
{
    dialogFabrik() = std::move(fabrik);
}

Dienste::Dienste() = default;
Dienste::~Dienste() = default;

Dienste& Dienste::instanz()
{
    static Dienste dienste;
    return dienste;
}

Energie& Dienste::energie()
{
    if (!m_energie)
        m_energie = EchteEnergieErzeugen();
    return *m_energie;
}

void Dienste::setzeEnergie(std::unique_ptr<Energie> e) { m_energie = std::move(e); }

Sprachausgabe& Dienste::sprachausgabe()
{
    if (!m_sprachausgabe)
        m_sprachausgabe = EchteSprachausgabeErzeugen();
    return *m_sprachausgabe;
}

void Dienste::setzeSprachausgabe(std::unique_ptr<Sprachausgabe> s) { m_sprachausgabe = std::move(s); }

Scanner& Dienste::scanner()
{
    if (!m_scanner)
        m_scanner = SaneScanner();
    return *m_scanner;
}

void Dienste::setzeScanner(std::unique_ptr<Scanner> s) { m_scanner = std::move(s); }

Dialogdienst& Dienste::dialoge()
{
    if (!m_dialoge) {
        Q_ASSERT(dialogFabrik());
        m_dialoge = dialogFabrik()();
    }
    return *m_dialoge;
}

Uhr& Dienste::uhr()
{
    if (!m_uhr)
        m_uhr = std::make_unique<Systemuhr>();
    return *m_uhr;
}

Zufall& Dienste::zufall()
{
    if (!m_zufall)
        m_zufall = std::make_unique<EchterZufall>();
    return *m_zufall;
}

Klang& Dienste::klang()
{
    if (!m_klang)
        m_klang = std::make_unique<EchterKlang>();
    return *m_klang;
}

Shell& Dienste::shell()
{
    if (!m_shell)
        m_shell = std::make_unique<EchteShell>();
    return *m_shell;
}

Papierkorb& Dienste::papierkorb()
{
    if (!m_papierkorb)
        m_papierkorb = std::make_unique<EchterPapierkorb>();
    return *m_papierkorb;
}

Prozess& Dienste::prozess()
{
    if (!m_prozess)
        m_prozess = std::make_unique<EchterProzess>();
    return *m_prozess;
}

Medien& Dienste::medien()
{
    if (!m_medien)
        m_medien = EchteMedienErzeugen();
    return *m_medien;
}

void Dienste::setzeDialoge(std::unique_ptr<Dialogdienst> d) { m_dialoge = std::move(d); }
void Dienste::setzeUhr(std::unique_ptr<Uhr> u) { m_uhr = std::move(u); }
void Dienste::setzeZufall(std::unique_ptr<Zufall> z) { m_zufall = std::move(z); }
void Dienste::setzeKlang(std::unique_ptr<Klang> k) { m_klang = std::move(k); }
void Dienste::setzeShell(std::unique_ptr<Shell> s) { m_shell = std::move(s); }
void Dienste::setzePapierkorb(std::unique_ptr<Papierkorb> p) { m_papierkorb = std::move(p); }
void Dienste::setzeProzess(std::unique_ptr<Prozess> p) { m_prozess = std::move(p); }
void Dienste::setzeMedien(std::unique_ptr<Medien> m) { m_medien = std::move(m); }
