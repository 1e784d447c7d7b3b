// Each command takes the one error route: an unexpected error ends it with the common error
// box under the procedure's name.
#include "collections/Suche.h"

#include "shell/Ausgabebox.h"

#include "catalogue/Datenbank.h"
#include "catalogue/Datensteuerung.h"
#include "catalogue/FlexGrid.h"
#include "catalogue/Recordset.h"
#include "catalogue/Katalogdatei.h"
#include "catalogue/Textregeln.h"
#include "collections/Playlisten.h"
#include "collections/Suchanfrage.h"
#include "collections/Suchbox.h"
#include "media/Coververwaltung.h"
#include "platform/Dialogdienst.h"
#include "platform/Dienste.h"
#include "platform/Einheiten.h"
#include "platform/Laufzeitfehler.h"
#include "platform/Mauszeiger.h"
#include "shell/Einstellungen.h"
#include "shell/Globale.h"
#include "shell/Grundregeln.h"
#include "shell/Steuerelemente.h"
#include "shell/Symbole.h"

#include <QAction>
#include <QComboBox>
#include <QFile>
#include <QSet>
#include <QListWidget>
#include <QProgressBar>
#include <QTabWidget>
#include <QTextEdit>
#include <QTreeWidget>

#include <sqlite3.h>

#include <algorithm>
#include <climits>

void Suche::verbinden()
{
    BefehlVerbinden(box.MenuSuchen, this, [this] { MenuSuchen_Click(); });
    Textfeld* feld = box.txtSuchen;
    QAction* knopf = feld->addAction(Symbol(QStringLiteral("suchen")), QLineEdit::TrailingPosition);
    knopf->setObjectName(QStringLiteral("txtSuchenKnopf"));
    knopf->setToolTip(QStringLiteral(" Tabelle durchsuchen "));
    connect(knopf, &QAction::triggered, this, [this] {
        TabelleDurchsuchen();
        // Taking the focus back resets the colour: the walk's colour is set again.
        const QPalette farbe = box.txtSuchen->palette();
        box.txtSuchen->setFocus();
        box.txtSuchen->setPalette(farbe);
    });
    connect(feld, &QLineEdit::returnPressed, this, [this] { TabelleDurchsuchen(); });
    // Losing or gaining the focus and every change of the text reset the ground.
    connect(feld, &Textfeld::GotFocus, this, [this] { SuchfeldFaerben(Farbe::StandardHintergrund); });
    connect(feld, &Textfeld::LostFocus, this, [this] { SuchfeldFaerben(Farbe::StandardHintergrund); });
    connect(feld, &QLineEdit::textChanged, this, [this] { SuchfeldFaerben(Farbe::StandardHintergrund); });
}

void Suche::MenuSuchen_Click()
{
    try {
        box.TextSongs->setFocus();
        box.lvwPlaylist->hide();
        box.tabTexte->show();
        PlaylistModus = false;
        {
            Suchbox fenster(&box);
            fenster.Form_Load();
            fenster.Anzeigen();
        }
        if (SuchAbfrage.isEmpty())
            return;
        Mauszeiger(ZeigerSanduhr);
        const int spalteStil = box.MSFlexGrid1->SpalteSuchen(QStringLiteral("Stil"));
        box.lblTabellenName->setText(Lesen(QStringLiteral("TabellenName"), QStringLiteral("alle")));
        int ersetzt = 0;
        if (SongBewertungSuche && SongBewertungText.startsWith(QStringLiteral(" - "))) {
            SongBewertungSuchen(spalteStil);
        } else {
            box.Data1->setRecordSource(SuchAbfrage);
            box.Data1->Refresh();
            EreignisseZulassen();
            Speichern(QStringLiteral("Data1RecordSource"), SuchAbfrage);
            Mauszeiger(ZeigerSanduhr);
            // An empty replacement replaces nothing: a text cannot be deleted this way.
            if (!ErsetzenDurch.isEmpty())
                ersetzt = Ersetzen();
        }
        Mauszeiger(ZeigerStandard);
        if (ersetzt > 0) {
            box.Data1->Refresh();
            box.katalogdatei().MenuAktualisieren_Click();
            MsgNimb(QString::number(ersetzt) + QStringLiteral(" Datensätze ersetzt!"), 1, 0,
                    QStringLiteral("Datensätze ersetzen"), 0);
        }
        box.coververwaltung().CoverAktualisieren();
        box.coververwaltung().CoverDown();
        Mauszeiger(ZeigerStandard);
    } catch (const Laufzeitfehler& fehler) {
        // Left set, the flag would keep the next playlist load from asking for its file.
        SongBewertungSuche = false;
        box.ProgressBar1->hide();
        Mauszeiger(ZeigerStandard);
        Fehlermeldung(fehler, QStringLiteral("Ausgabebox_MenuSuchen_Click"));
    }
}

int Suche::Ersetzen()
{
    Datenbank* db = box.Data1->database();
    if (!db)
        throw Laufzeitfehler(91);
    const FlexGrid* g = box.MSFlexGrid1;
    // The head cells are field names and Suchspalten holds captions: "LPTitel" is no part
    // of "Titel", "BestellNr" none of "Bestell-Nr", so those two are never replaced.
    QList<int> spalten;
    for (int c = 0; c < g->Cols(); ++c)
        if (Suchspalten.contains(g->TextMatrix(0, c)))
            spalten << c;
    if (spalten.isEmpty())
        return 0;

    // All or nothing: the file holds every replacement or none.
    if (sqlite3_exec(db->handle(), "BEGIN IMMEDIATE", nullptr, nullptr, nullptr) != SQLITE_OK)
        throw Laufzeitfehler(Fehlernummer::DatenbankBasis + SQLITE_BUSY, SqliteMeldungDeutsch(sqlite3_errmsg(db->handle())));
    const int zeilen = g->Rows() - 1;
    box.ProgressBar1->setRange(0, std::max(1, zeilen));
    box.ProgressBar1->setValue(0);
    box.ProgressBar1->show();
    Abbruch = false;
    const EscAbbruch esc;
    // A value already rewritten everywhere is not asked for again: that update would
    // touch no record, and each costs a pass over the whole table.
    QSet<QString> erledigt;
    int anzahl = 0;
    try {
        for (int z = 1; z <= zeilen && !Abbruch; ++z) {
            for (const int c : spalten) {
                const QString zelle = g->TextMatrix(z, c);
                if (!zelle.contains(SuchenNach))
                    continue;
                QString alt;
                const QString neu = ErsetzterWert(zelle, SuchenNach, ErsetzenDurch, &alt);
                const QString feld = g->TextMatrix(0, c);
                if (erledigt.contains(feld + u'\x1f' + alt + u'\x1f' + neu))
                    continue;
                erledigt.insert(feld + u'\x1f' + alt + u'\x1f' + neu);
                anzahl += db->Execute(QStringLiteral("update Schallplatten set ") + feld + QStringLiteral(" = '") + neu
                                      + QStringLiteral("' where ") + feld + QStringLiteral(" = '") + alt + u'\'');
            }
            if (z % 256 == 0) {
                box.ProgressBar1->setValue(z);
                EreignisseZulassen();
            }
        }
    } catch (...) {
        sqlite3_exec(db->handle(), "ROLLBACK", nullptr, nullptr, nullptr);
        box.ProgressBar1->hide();
        throw;
    }
    box.ProgressBar1->hide();
    if (std::exchange(Abbruch, false)) {
        sqlite3_exec(db->handle(), "ROLLBACK", nullptr, nullptr, nullptr);
        MsgNimb(QStringLiteral("Das Ersetzen wurde abgebrochen, der Katalog ist unverändert."), 1, 0,
                QStringLiteral("Datensätze ersetzen"), 0);
        return -1;
    }
    if (sqlite3_exec(db->handle(), "COMMIT", nullptr, nullptr, nullptr) != SQLITE_OK) {
        const QString meldung = SqliteMeldungDeutsch(sqlite3_errmsg(db->handle()));
        sqlite3_exec(db->handle(), "ROLLBACK", nullptr, nullptr, nullptr);
        throw Laufzeitfehler(Fehlernummer::ZugriffsFehler, meldung);
    }
    return anzahl;
}

void Suche::SongBewertungSuchen(int spalteStil)
{
    Playlisten& pl = box.playlisten();
    pl.PlaylistName = QStringLiteral("Suchliste.txt");
    // The list of the last search goes outright, not to the trash.
    if (const QString alt = Playlisten::PlaylistOrdner() + pl.PlaylistName; QFile::exists(alt)) {
        QFile::remove(alt);
        box.lvwPlaylist->clear();
    }
    EreignisseZulassen();
    Mauszeiger(ZeigerSanduhr);
    FlexGrid* g = box.MSFlexGrid1;
    const int zeilen = g->Rows() - 1;
    box.ProgressBar1->setRange(0, std::max(1, zeilen));
    box.ProgressBar1->setValue(0);
    box.ProgressBar1->show();
    const EscAbbruch esc;
    static const QStringList bewertungen = {QStringLiteral(" - 1."), QStringLiteral(" - 2."), QStringLiteral(" - 3."),
                                            QStringLiteral(" - 4."), QStringLiteral(" - 5."), QStringLiteral(" - 6.")};
    for (int z = 1; z <= zeilen; ++z) {
        g->setRow(z);
        box.ProgressBar1->setValue(z);
        EreignisseZulassen();
        Dateiliste* tracks = box.filTrack;
        if (!tracks->List(0).isEmpty())
            tracks->setSelected(0, false);
        bool treffer = false;
        for (int i = 0; i < tracks->count(); ++i) {
            const QString name = tracks->List(i);
            const bool ohneStern = SongBewertungText == u" - 0."
                && std::none_of(bewertungen.begin(), bewertungen.end(),
                                [&](const QString& b) { return name.contains(b); });
            if (name.contains(SongBewertungText) || ohneStern) {
                tracks->setSelected(i, true);
                treffer = true;
            }
        }
        for (int i = 0; treffer && i < box.lstBandAusschluss->count(); ++i)
            if (g->TextMatrix(z, 0).contains(box.lstBandAusschluss->item(i)->text()))
                treffer = false;
        for (int i = 0; treffer && spalteStil >= 0 && i < box.lstAbspielausschluss->count(); ++i)
            if (g->TextMatrix(z, spalteStil).contains(box.lstAbspielausschluss->item(i)->text()))
                treffer = false;
        if (treffer)
            pl.mnuPlaylistAufnehmen_Click();
        if (std::exchange(Abbruch, false))
            break;
    }
    box.ProgressBar1->hide();
    pl.PlaylistGeaendert = true;
    pl.mnuPlaylistLaden_Click();
    SongBewertungSuche = false;
    box.mnuPlaylistAnzeigen->setChecked(false);
    box.lvwPlaylist->hide();
    box.tabTexte->show();
    Mauszeiger(ZeigerStandard);

    QString name = InputNimb(QStringLiteral("Namen der Playlist eingeben."), QStringLiteral("Neue Playlist"));
    if (name.isEmpty())
        return;
    if (!name.endsWith(QStringLiteral(".txt")))
        name += QStringLiteral(".txt");
    // An existing list of that name is overwritten without a question.
    pl.PlaylistName = name;
    pl.PlaylistGeaendert = true;
    pl.PlaylistSpeichern();
    box.filPlaylist->Refresh();
    box.mnuPlaylistAnzeigen->setChecked(true);
    box.lvwPlaylist->show();
    box.tabTexte->hide();
}

void Suche::TabelleDurchsuchen()
{
    TabelleDurchsuchenNach(box.txtSuchen->text().toLower(), true);
}

bool Suche::TabelleDurchsuchenNach(const QString& begriff, bool mitTon, bool vonVorn)
{
    Mauszeiger(ZeigerSanduhr);
    box.tabTexte->setCurrentIndex(0);
    EreignisseZulassen();
    SuchfeldFaerben(Farbe::StandardHintergrund);
    if (begriff.isEmpty() || begriff == u" ") {
        Mauszeiger(ZeigerStandard);
        return false;
    }
    if (vonVorn || begriff != box.LetzterSuchtext || box.SuchZeile == 0)
        box.SuchZeile = 1;
    FlexGrid* g = box.MSFlexGrid1;
    TextindexBereitstellen();
    const int treffer = g->TextSuchen(begriff, [&](int z) {
        if (z < box.SuchZeile)
            return false;
        bool zelle = false;
        for (int c = 0; c < g->Cols() && !zelle; ++c)
            zelle = g->TextMatrix(z, c).toLower().contains(begriff);
        if (!zelle)
            return false;
        if (z < g->Rows() - 1)
            g->setTopRow(z);
        // A row that is current already moves the record only where the record stands
        // elsewhere.
        if (g->Row() != z)
            g->setRow(z);
        else if (box.Data1->recordset() && box.Data1->recordset()->AbsolutePosition() != z - 1)
            box.Data1->setAbsolutePosition(z - 1);
        // A cell that shows on no field of the record moves the table but stops nothing.
        return DatensatzZeigtBegriff(begriff);
    });
    if (treffer >= 1) {
        box.SuchZeile = treffer + 1;
        box.LetzterSuchtext = begriff;
        SuchfeldFaerben(0xC0FFC0);
    } else {
        if (mitTon)
            D().klang().abspielen(ProgrammOrdner + QStringLiteral("false.wav"));
        SuchfeldFaerben(0xC0C0FF);
        box.txtSuchen->selectAll();
        box.LetzterSuchtext.clear();
        box.SuchZeile = 1;
    }
    Mauszeiger(ZeigerStandard);
    return treffer >= 1;
}

void Suche::TextindexBereitstellen()
{
    // A catalogue gets its text index at its first walk, once, so that later walks and
    // every start of a playlist's song read a few rows instead of the whole table. Esc
    // leaves it without for this session; the walk then reads the table.
    Recordset* rs = box.Data1->recordset();
    const Datenbank* db = box.Data1->database();
    if (!rs || !db || m_indexBau || db->pfad() == m_ohneIndex || !rs->TextindexFehlt())
        return;
    m_indexBau = true;
    Abbruch = false;
    const QString stand = box.staBar->PanelText(1);
    bool gezeigt = false;
    bool fertig;
    {
        const EscAbbruch esc(true);
        fertig = rs->TextindexAnlegen([&](qint64 gelesen, qint64 gesamt) {
            if (!gezeigt) {
                gezeigt = true;
                box.staBar->setPanelText(1, QStringLiteral(" Suchverzeichnis wird angelegt..."));
                box.ProgressBar1->setRange(0, int(std::clamp<qint64>(gesamt, 1, INT_MAX)));
                box.ProgressBar1->show();
            }
            box.ProgressBar1->setValue(int(std::min<qint64>(gelesen, INT_MAX)));
            EreignisseZulassen();
            return !Abbruch;
        });
    }
    if (gezeigt) {
        box.ProgressBar1->hide();
        box.staBar->setPanelText(1, stand);
    }
    Abbruch = false;
    m_indexBau = false;
    if (!fertig)
        m_ohneIndex = db->pfad();
}

bool Suche::DatensatzZeigtBegriff(const QString& begriff)
{
    bool treffer = false;
    for (const Textfeld* feld : {box.TextBand, box.TextKaufdatum, box.TextLPTitel, box.TextPreis, box.TextMedium,
                                 box.TextPlattenfirma, box.TextBestellNr, box.TextInfo, box.TextStil,
                                 box.TextMusikpfad})
        if (feld->text().toLower().contains(begriff)) {
            treffer = true;
            break;
        }
    treffer = treffer || box.cboEbook->currentText().toLower().contains(begriff);
    // The song in the Track list. A playlist keeps its own index, the row that plays.
    box.filTrack->clearSelection();
    for (int i = 0; i < box.filTrack->count(); ++i)
        if (box.filTrack->List(i).toLower().contains(begriff)) {
            box.filTrack->setSelected(i, true);
            if (!PlaylistModus)
                TrackIndex = i;
            box.filTrack->scrollToItem(box.filTrack->item(i));
            TextMarkieren(box.TextSongs, begriff);
            treffer = true;
        }
    // The term is marked without taking the focus there, so that the next Enter still
    // reaches the search field; the tab of the last pane that holds it is chosen.
    const std::pair<QTextEdit*, int> seiten[] = {{box.rtfLinks, 1}, {box.rtfInfo, 2}, {box.rtfSonstiges, 3}};
    for (const auto& [text, reiter] : seiten)
        if (TextMarkieren(text, begriff)) {
            box.tabTexte->setCurrentIndex(reiter);
            treffer = true;
        }
    return treffer;
}

bool Suche::TextMarkieren(QTextEdit* text, const QString& begriff)
{
    const qsizetype stelle = text->toPlainText().indexOf(begriff, 0, Qt::CaseInsensitive);
    if (stelle < 0)
        return false;
    QTextCursor c(text->document());
    c.setPosition(int(stelle));
    c.setPosition(int(stelle + begriff.size()), QTextCursor::KeepAnchor);
    text->setTextCursor(c);
    return true;
}

void Suche::SuchfeldFaerben(qint64 farbe)
{
    QPalette p = box.txtSuchen->palette();
    p.setColor(QPalette::Base, NummerFarbe(farbe));
    box.txtSuchen->setPalette(p);
}
