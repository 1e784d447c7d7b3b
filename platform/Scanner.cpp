#include "platform/Scanner.h"

#include <QEventLoop>
#include <QProcess>
#include <QStandardPaths>
#include <QTimer>

namespace {

const QString KeinSane = QStringLiteral(
    "Das Scanprogramm \"scanimage\" ist nicht installiert (Paket sane-utils).");

class ScanimageScanner : public Scanner {
public:
    QList<Scangeraet> geraete(QString& fehler) override
    {
        QByteArray ausgabe;
        // One device a line, name and description split by a tab: no quoting to undo.
        if (!ausfuehren({QStringLiteral("-f"), QStringLiteral("%d\t%v %m (%t)%n")}, 60000, ausgabe, fehler))
            return {};
        QList<Scangeraet> liste;
        for (const QByteArray& zeile : ausgabe.split('\n')) {
            const int tab = zeile.indexOf('\t');
            if (tab > 0)
                liste << Scangeraet{QString::fromUtf8(zeile.left(tab)), QString::fromUtf8(zeile.mid(tab + 1)).trimmed()};
        }
        if (liste.isEmpty())
            fehler = QStringLiteral("Es wurde kein Scanner gefunden.");
        return liste;
    }

    QImage scannen(const QString& geraet, QString& fehler) override
    {
        QByteArray ausgabe;
        QStringList argumente{QStringLiteral("-d"), geraet, QStringLiteral("--format=pnm")};
        // A device's own default may be anything; 150 dpi gives a cover of a good size.
        // Not every device has the option, so its list of options is asked first.
        if (!ausfuehren({QStringLiteral("-d"), geraet, QStringLiteral("-A")}, 60000, ausgabe, fehler))
            return {};
        if (ausgabe.contains("--resolution"))
            argumente << QStringLiteral("--resolution") << QStringLiteral("150");
        // A flatbed pass can take minutes; only a front end that never ends is stopped.
        if (!ausfuehren(argumente, 10 * 60000, ausgabe, fehler))
            return {};
        QImage bild = QImage::fromData(ausgabe);
        if (bild.isNull())
            fehler = QStringLiteral("Der Scanner hat kein lesbares Bild geliefert.");
        return bild;
    }

private:
    static bool ausfuehren(const QStringList& argumente, int grenzeMs, QByteArray& ausgabe, QString& fehler)
    {
        const QString programm = QStandardPaths::findExecutable(QStringLiteral("scanimage"));
        if (programm.isEmpty()) {
            fehler = KeinSane;
            return false;
        }
        QProcess p;
        QEventLoop schleife;
        QTimer grenze;
        grenze.setSingleShot(true);
        QObject::connect(&p, &QProcess::finished, &schleife, &QEventLoop::quit);
        QObject::connect(&p, &QProcess::errorOccurred, &schleife, &QEventLoop::quit);
        QObject::connect(&grenze, &QTimer::timeout, &schleife, &QEventLoop::quit);
        p.start(programm, argumente);
        if (!p.waitForStarted(10000)) {
            fehler = KeinSane;
            return false;
        }
        grenze.start(grenzeMs);
        if (p.state() != QProcess::NotRunning)
            schleife.exec(QEventLoop::ExcludeUserInputEvents);
        if (p.state() != QProcess::NotRunning) {
            p.kill();
            p.waitForFinished(5000);
            fehler = QStringLiteral("Der Scanner antwortet nicht.");
            return false;
        }
        ausgabe = p.readAllStandardOutput();
        if (p.exitStatus() != QProcess::NormalExit || p.exitCode() != 0) {
            const QString meldung = QString::fromLocal8Bit(p.readAllStandardError()).trimmed();
            fehler = QStringLiteral("Der Scanner meldet einen Fehler")
                + (meldung.isEmpty() ? QStringLiteral(".") : QStringLiteral(": ") + meldung);
            return false;
        }
        return true;
    }
};

} // namespace

std::unique_ptr<Scanner> SaneScanner() { return std::make_unique<ScanimageScanner>(); }
