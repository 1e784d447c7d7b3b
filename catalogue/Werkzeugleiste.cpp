#include "catalogue/Werkzeugleiste.h"

#include "shell/Ausgabebox.h"

#include "catalogue/Datensatzansicht.h"
#include "catalogue/Datensatzbearbeitung.h"
#include "catalogue/FlexGrid.h"
#include "catalogue/Katalogdatei.h"
#include "catalogue/Tabellenansicht.h"
#include "collections/Playlisten.h"
#include "collections/SqlKonsole.h"
#include "media/Textfenster.h"
#include "media/Uebersetzung.h"
#include "platform/Dialogdienst.h"
#include "platform/Dienste.h"
#include "platform/Laufzeitfehler.h"
#include "shell/Globale.h"
#include "shell/Grundregeln.h"
#include "shell/Steuerelemente.h"

#include <QAction>
#include <QClipboard>
#include <QGuiApplication>
#include <QListWidget>
#include <QProgressBar>
#include <QPushButton>
#include <QTextEdit>

#include <algorithm>
#include <functional>
#include <map>
#include <utility>

void Werkzeugleiste::verbinden()
{
    // Tool buttons whose commands stand; the others wait for their commands.
    const std::map<int, std::function<void()>> werkzeuge = {
        {0, [this] { box.datensatzbearbeitung().MenuNeuEingabe_Click(); }},
        {1, [this] { box.datensatzbearbeitung().MenuSpeichern_Click(); }},
        {2, [this] { box.katalogdatei().MenuAktualisieren_Click(); }},
        {4, [this] { box.sqlKonsole().MenuSQLabfrage_Click(); }},
        {9, [this] { box.MenuBeenden(); }},
        {10, [this] { box.katalogdatei().mnuOeffnen_Click(); }},
        {13, [this] { box.textfenster().mnuSongTextEinAus_Click(); }},
        {16, [this] { box.tabellenansicht().mnuTabelleAutosize_Click(); }},
        {18, [this] { box.textfenster().mnuWeblink_Click(); }},
        {19, [this] { box.uebersetzung().mnuTranslation_Click(); }},
        {20, [this] { box.uebersetzung().mnuDeeplWrite_Click(); }},
    };
    for (int i = 0; i < 21; ++i) {
        const auto it = werkzeuge.find(i);
        if (it == werkzeuge.end()) {
            box.cmdButton[i]->setEnabled(false);
            continue;
        }
        const std::function<void()> befehl = it->second;
        connect(box.cmdButton[i], &Bildknopf::MouseUp, this, [befehl](Qt::MouseButton knopf) {
            EreignisseZulassen();
            if (knopf == Qt::LeftButton)
                befehl();
        });
    }
    BefehlVerbinden(box.mnuAnzahlTracks, this, [this] { mnuAnzahlTracks_Click(); });
    box.cmdBandTitel->setEnabled(true);
    connect(box.cmdBandTitel, &QPushButton::clicked, this, [this] { cmdBandTitel_Click(); });
    box.imgMusikpfad->setEnabled(true);
    connect(box.imgMusikpfad, &Bildknopf::clicked, this, [this] { imgMusikpfad_Click(); });
    // The playlist: the left button shows or hides the list, the right one loads a playlist.
    box.cmdButton[14]->setEnabled(true);
    connect(box.cmdButton[14], &Bildknopf::MouseUp, this, [this](Qt::MouseButton knopf) {
        EreignisseZulassen();
        if (knopf == Qt::LeftButton)
            box.playlisten().mnuPlaylistAnzeigen_Click();
        else if (knopf == Qt::RightButton)
            box.playlisten().mnuPlaylistLaden_Click();
    });
}

void Werkzeugleiste::mnuAnzahlTracks_Click()
{
    try {
        box.TextSongs->setFocus();
        FlexGrid* g = box.MSFlexGrid1;
        const int zeilen = g->Rows() - 1;
        g->setRow(1);
        qint64 summe = 0;
        // Each row moves the record: on a large table the bar moves and Esc stops.
        box.ProgressBar1->setRange(0, std::max(1, zeilen));
        box.ProgressBar1->setValue(0);
        box.ProgressBar1->show();
        Abbruch = false;
        const EscAbbruch esc;
        for (int z = 1; z <= zeilen; ++z) {
            g->setRow(z);
            if (z % 10 == 0) {
                box.ProgressBar1->setValue(z);
                EreignisseZulassen();
            }
            summe += box.filTrack->count();
            if (std::exchange(Abbruch, false))
                break;
        }
        box.ProgressBar1->hide();
        MsgNimb(QString::number(summe) + QStringLiteral(" Tracks & Movies vorhanden."), 1, 0,
                QStringLiteral("Anzahl der Tracks & Movies ermitteln"), 0);
    } catch (const Laufzeitfehler& fehler) {
        box.ProgressBar1->hide();
        Fehlermeldung(fehler, QStringLiteral("Ausgabebox_mnuAnzahlTracks_Click"));
    }
}

void Werkzeugleiste::cmdBandTitel_Click()
{
    const QString name = (box.TextBand->text().trimmed() + QStringLiteral(" - ") + box.TextLPTitel->text().trimmed()).left(99);
    QGuiApplication::clipboard()->clear();
    QGuiApplication::clipboard()->setText(name);
    MsgNimb(name + QStringLiteral("\r\n\r\nCover-Name in die Zwischenablage kopiert."), 1, 0,
            QStringLiteral("Cover-Name"), 1);
}

void Werkzeugleiste::imgMusikpfad_Click()
{
    try {
        QString ordner = D().dialoge().Ordner(QStringLiteral("Lumivox"), box.TextMusikpfad->text());
        if (ordner.isEmpty())
            return;
        if (!ordner.endsWith(u'/'))
            ordner += u'/';
        box.TextMusikpfad->setText(ordner);
        box.datensatzansicht().TrackListeLaden();
    } catch (const Laufzeitfehler& fehler) {
        Fehlermeldung(fehler, QStringLiteral("Ausgabebox_imgMusikpfad_Click"));
    }
}
