#pragma once
// The print dialog for tests: every print goes to a PDF file, without a window. The text
// of a printed PDF is read back with pdftotext, keeping the layout.
#include "platform/Druckdialog.h"

#include <QPageLayout>
#include <QPrinter>
#include <QProcess>
#include <QString>

class PdfDruck : public Druckdialog {
public:
    QString datei;
    bool abbrechen = false;
    int aufrufe = 0;
    // The orientation the printer held when the dialog opened.
    QPageLayout::Orientation vorgabe = QPageLayout::Portrait;

    bool einrichten(QPrinter& drucker, QWidget*) override
    {
        ++aufrufe;
        vorgabe = drucker.pageLayout().orientation();
        if (abbrechen)
            return false;
        drucker.setOutputFormat(QPrinter::PdfFormat);
        drucker.setOutputFileName(datei);
        return true;
    }
};

// The text of a PDF as `pdftotext -layout` gives it; pages are separated by a form feed.
inline QString PdfText(const QString& pdf)
{
    QProcess p;
    p.start(QStringLiteral("pdftotext"), {QStringLiteral("-layout"), pdf, QStringLiteral("-")});
    p.waitForFinished(30000);
    return QString::fromUtf8(p.readAllStandardOutput());
}
