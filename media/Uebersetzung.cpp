#include "media/Uebersetzung.h"

#include "shell/Ausgabebox.h"

#include "media/frmTranslation.h"
#include "platform/Dienste.h"
#include "shell/Steuerelemente.h"

#include <QAction>
#include <QClipboard>
#include <QGuiApplication>
#include <QMenu>
#include <QTextDocumentFragment>
#include <QTextEdit>

using namespace Qt::StringLiterals;

namespace {
const QString Seite = u"https://www.deepl.com"_s;
}

void Uebersetzung::verbinden()
{
    BefehlVerbinden(box.mnuTranslation, this, [this] { mnuTranslation_Click(); });
    BefehlVerbinden(box.mnuDeeplWrite, this, [this] { mnuDeeplWrite_Click(); });
    BefehlVerbinden(box.mnuUebersetzenVorlesen, this, [this] { mnuUebersetzenVorlesen_Click(); });
}

void Uebersetzung::mnuTranslation_Click() { TextZurSeite(u"/translate/"_s); }

void Uebersetzung::mnuDeeplWrite_Click() { TextZurSeite(u"/write/"_s); }

void Uebersetzung::TextZurSeite(const QString& pfad)
{
    D().shell().oeffnen(Seite + pfad);
    // The page cannot be filled from here: the user pastes the text there.
    QClipboard* ablage = QGuiApplication::clipboard();
    ablage->clear();
    ablage->setText(Vorlagetext());
}

QString Uebersetzung::Vorlagetext() const
{
    // The link list and the lyrics hand nothing over: the clipboard is left empty.
    for (QTextEdit* t : {box.TextSongs, box.rtfInfo, box.rtfSonstiges}) {
        if (t->objectName() != box.AktivesFeld)
            continue;
        const QTextCursor auswahl = t->textCursor();
        return auswahl.hasSelection() ? auswahl.selection().toPlainText() : t->toPlainText();
    }
    return {};
}

void Uebersetzung::mnuUebersetzenVorlesen_Click()
{
    frmTranslation fenster(&box);
    fenster.Form_Load();
    fenster.Anzeigen();
}
