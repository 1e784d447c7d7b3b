#include "catalogue/Werkzeugleiste.h"

#include "shell/Ausgabebox.h"

#include "catalogue/Datensatzbearbeitung.h"
#include "catalogue/Katalogdatei.h"
#include "catalogue/Tabellenansicht.h"
#include "collections/Playlisten.h"
#include "collections/SqlKonsole.h"
#include "media/Textfenster.h"
#include "media/Uebersetzung.h"
#include "shell/Grundregeln.h"
#include "shell/Steuerelemente.h"


#include <functional>
#include <map>

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
