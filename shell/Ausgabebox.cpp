// The main window: the road from the start of the process to a usable window and back,
// the settings it reads at start, the layout rules, and the order in which it calls the parts.
#include "shell/Ausgabebox.h"

#include "auxiliary/Hilfsfenster.h"
#include "auxiliary/Lastanzeige.h"
#include "auxiliary/Schwesterprogramme.h"
#include "catalogue/Datensatzansicht.h"
#include "catalogue/Datensatzbearbeitung.h"
#include "catalogue/Datensteuerung.h"
#include "catalogue/Feldbezeichnungen.h"
#include "catalogue/FlexGrid.h"
#include "catalogue/Katalogdatei.h"
#include "catalogue/Recordset.h"
#include "catalogue/Tabellenansicht.h"
#include "catalogue/Werkzeugleiste.h"
#include "collections/Abspielausschluss.h"
#include "collections/Generator.h"
#include "collections/Playlisten.h"
#include "collections/Suche.h"
#include "collections/SqlKonsole.h"
#include "collections/Trackdateien.h"
#include "media/Anhaenge.h"
#include "media/Bildimport.h"
#include "media/Coververwaltung.h"
#include "media/Textfenster.h"
#include "media/Uebersetzung.h"
#include "platform/Dialogdienst.h"
#include "platform/Dienste.h"
#include "platform/Einheiten.h"
#include "platform/Einzelinstanz.h"
#include "platform/Laufzeitfehler.h"
#include "platform/Mauszeiger.h"
#include "platform/Pfade.h"
#include "platform/Textdatei.h"
#include "platform/Uhr.h"
#include "outputs/HtmlSeiten.h"
#include "outputs/Tabellendruck.h"
#include "outputs/Traegerdruck.h"
#include "playback/Abspieler.h"
#include "playback/MiniPlayer.h"
#include "playback/Schlafmodus.h"
#include "playback/Sequenzer.h"
#include "playback/Trackliste.h"
#include "playback/Zufallswahl.h"
#include "shell/Anwendung.h"
#include "shell/Einstellungen.h"
#include "shell/Globale.h"
#include "shell/Grundregeln.h"
#include "shell/Mausrad.h"
#include "shell/Steuerelemente.h"
#include "shell/Teilbereich.h"

#include <QApplication>
#include <QCheckBox>
#include <QCloseEvent>
#include <QComboBox>
#include <QDir>
#include <QLabel>
#include <QListWidget>
#include <QMenu>
#include <QPushButton>
#include <QTabBar>
#include <QTextEdit>
#include <QTreeWidget>

const QString Ausgabebox::Titel = QStringLiteral("Rillenkammer - Lumivox");

namespace {

const QString StandardQuelle = QStringLiteral("select * from Schallplatten order by Band, LPTitel");

} // namespace

Ausgabebox::Ausgabebox(QWidget* eltern)
    : QMainWindow(eltern)
{
    setObjectName(QStringLiteral("Ausgabebox"));
    setWindowTitle(Titel);
    setAttribute(Qt::WA_DeleteOnClose, false);
    anlegen(this);
    TeileAnlegen();
    BefehlVerbinden(MenuBeendenAktion, this, [this] { MenuBeenden(); });
    staBar->setPanelText(2, QStringLiteral("no play"));
    staBar->setPanelText(6, QStringLiteral("Sleep Off"));
    resize(Px(15225), Px(10725));
}

void Ausgabebox::TeileAnlegen()
{
    m_katalogdatei = new Katalogdatei(*this);
    m_datensatzansicht = new Datensatzansicht(*this);
    m_datensatzbearbeitung = new Datensatzbearbeitung(*this);
    m_tabellenansicht = new Tabellenansicht(*this);
    m_feldbezeichnungen = new Feldbezeichnungen(*this);
    m_werkzeugleiste = new Werkzeugleiste(*this);
    m_abspieler = new Abspieler(*this);
    m_trackliste = new Trackliste(*this);
    m_sequenzer = new Sequenzer(*this);
    m_zufallswahl = new Zufallswahl(*this);
    m_schlafmodus = new Schlafmodus(*this);
    m_miniPlayer = new MiniPlayer(*this);
    m_playlisten = new Playlisten(*this);
    m_sqlKonsole = new SqlKonsole(*this);
    m_suche = new Suche(*this);
    m_abspielausschluss = new Abspielausschluss(*this);
    m_trackdateien = new Trackdateien(*this);
    m_coververwaltung = new Coververwaltung(*this);
    m_bildimport = new Bildimport(*this);
    m_anhaenge = new Anhaenge(*this);
    m_textfenster = new Textfenster(*this);
    m_uebersetzung = new Uebersetzung(*this);
    m_schwesterprogramme = new Schwesterprogramme(*this);
    m_lastanzeige = new Lastanzeige(*this);
    m_hilfsfenster = new Hilfsfenster(*this);
    m_htmlSeiten = new HtmlSeiten(*this);
    m_tabellendrucker = new Tabellendrucker(*this);
    m_traegerdruck = new Traegerdruck(*this);
    m_generator = new Generator(*this);
    // Wired once all are there, so that a part may call another while it wires itself.
    for (Teilbereich* teil : std::initializer_list<Teilbereich*>{
             m_katalogdatei, m_datensatzansicht, m_datensatzbearbeitung, m_tabellenansicht,
             m_feldbezeichnungen, m_werkzeugleiste, m_abspieler, m_trackliste, m_sequenzer,
             m_zufallswahl, m_schlafmodus, m_miniPlayer, m_playlisten, m_sqlKonsole, m_suche, m_abspielausschluss,
             m_trackdateien, m_coververwaltung, m_bildimport, m_anhaenge, m_textfenster, m_uebersetzung,
             m_schwesterprogramme, m_lastanzeige, m_hilfsfenster, m_htmlSeiten, m_tabellendrucker, m_traegerdruck, m_generator})
        teil->verbinden();
}

Ausgabebox::~Ausgabebox()
{
    Mausrad::instanz().MausradAus();
}

bool Ausgabebox::Mehrfachstart()
{
    m_instanz = new Einzelinstanz(QStringLiteral("Rillenkammer"), this);
    if (!m_instanz->andereInstanzWecken()) {
        m_instanz->lauschen();
        connect(m_instanz, &Einzelinstanz::nachVorn, this, [this] {
            if (isMinimized())
                showNormal();
            raise();
            activateWindow();
        });
        return false;
    }
    // The other instance has been asked to come to the front.
    EreignisseZulassen();
    MsgNimb(QStringLiteral("Rillenkammer läuft bereits!"), 1, 0, QStringLiteral("Hinweis"), 0);
    D().prozess().beenden(0);
    return true;
}

void Ausgabebox::Form_Load()
{
    // 1. A second instance ends here, before it touches any setting or file.
    if (Mehrfachstart())
        return;
    QString pfad;
    try {
        // 2.
        ProgrammOrdner = MitSchraegstrich(ProgrammOrdnerErmitteln());
        QDir().mkpath(ProgrammOrdner);
        RessourcenKopieren(ProgrammOrdner);
        // 3. - 5.
        Mauszeiger(ZeigerSanduhr);
        staBar->setPanelText(1, QStringLiteral(" Datenbank wird geladen..."));
        Speichern(QStringLiteral("ProgrammName"), QStringLiteral("R i l l e n k a m m e r"));
        Speichern(QStringLiteral("ErscheinungsJahr"), QStringLiteral("1998"));
        // 6. - 7.
        Platz(lvwPlaylist, 1500, 750, 6990, 5505);
        RegistryLesen();
        // 8. The database: the saved one, at the very first start the installer's hint.
        const QString vorlage = ProgrammOrdner + QStringLiteral("Archiv_leer.db");
        const QString archiv = Lesen(QStringLiteral("ArchivPfad"), QString());
        if (!archiv.isEmpty()) {
            pfad = DateiVorhanden(archiv) ? archiv : vorlage;
        } else {
            const QString hinweis = ProgrammOrdner + QStringLiteral("PfadErststart.txt");
            pfad = DateiVorhanden(hinweis) ? ErsteZeile(hinweis) : vorlage;
            Speichern(QStringLiteral("ArchivPfad"), pfad);
        }
        // 9. - 10.
        DatenbankOrdner = OrdnerAusPfad(pfad);
        if (DateiVorhanden(pfad)) {
            Data1->setDatabaseName(pfad);
            Data1->setRecordSource(Lesen(QStringLiteral("Data1RecordSource"), StandardQuelle));
            Data1->Refresh();
            EreignisseZulassen();
            tabellenansicht().TabelleEinrichten();
            staBar->setPanelText(1, DateinameAusPfad(pfad));
            lblTabellenName->setText(Lesen(QStringLiteral("TabellenName"), QStringLiteral("alle")));
        }
        // 11. - 12.
        for (const char* ordner : {"Bilder", "Leer", "eBook", "html", "Playlist"})
            QDir().mkpath(ProgrammOrdner + QLatin1String(ordner));
        filHtml->setPath(ProgrammOrdner + QStringLiteral("html"));
        coververwaltung().CoverOrdnerLesen();
        // 13. - 18.
        coververwaltung().CoverListeAktuell();
        abspielausschluss().AbspielausschlusslisteLaden();
        abspielausschluss().BandAbspielausschlusslisteLaden();
        DatenbankCheck(pfad);
        m_zufallswahl->TontraegerZufaellig();
        feldbezeichnungen().BezLaden();
        lastanzeige().LastanzeigeStarten();
        // 19. - 22.
        // The playlists are written below the program's folder but listed from beside the
        // catalogue, where a catalogue kept elsewhere has a folder of its own.
        filPlaylist->setPath(DatenbankOrdner + QStringLiteral("Playlist"));
        TrackItemHoehe = filTrack->fontMetrics().height() + 2;
        if (filTrack->count() > 0)
            TrackItemHoehe = filTrack->visualItemRect(filTrack->item(0)).height();
        tabTexte->setCurrentIndex(0); // tab 1, the covers
        Mauszeiger(ZeigerStandard);
    } catch (const Laufzeitfehler& fehler) {
        LadenFehlgeschlagen = true;
        staBar->setPanelText(1, QStringLiteral(" Fehler beim Laden der Datenbank!"));
        Mauszeiger(ZeigerStandard);
        Fehlermeldung(fehler, QStringLiteral("Ausgabebox_Form_Load"));
    }
}

void Ausgabebox::RegistryLesen()
{
    // Each key on its own: a value that does not convert leaves the design state.
    const QString zustand = Lesen(QStringLiteral("WindowState"), QStringLiteral("0"));
    if (const auto z = Zahl(zustand)) {
        if (*z == 2)
            setWindowState(Qt::WindowMaximized);
        else if (*z == 1)
            setWindowState(Qt::WindowMinimized);
        else if (*z == 0)
            setWindowState(Qt::WindowNoState);
    }
    const QRect alt = geometry();
    int links = alt.x(), oben = alt.y(), breite = alt.width(), hoehe = alt.height();
    if (const auto v = Zahl(Lesen(QStringLiteral("AusgabeboxLeft"), QStringLiteral("0"))))
        links = Px(*v);
    if (const auto v = Zahl(Lesen(QStringLiteral("AusgabeboxTop"), QStringLiteral("0"))))
        oben = Px(*v);
    if (const auto v = Zahl(Lesen(QStringLiteral("AusgabeboxWidth"), QStringLiteral("15225"))); v && *v > 0)
        breite = Px(*v);
    if (const auto v = Zahl(Lesen(QStringLiteral("AusgabeboxHeight"), QStringLiteral("10725"))); v && *v > 0)
        hoehe = Px(*v);
    move(links, oben);
    resize(breite, hoehe);

    if (const auto v = Zahl(Lesen(QStringLiteral("ShuffleSongProCD"), QStringLiteral("1"))))
        ShuffleSongProCD = GanzeZahl(*v);
    // So the first random choice takes a new Carrier.
    SongZaehler = ShuffleSongProCD;
    mnuLaufschrift->setChecked(Lesen(QStringLiteral("Laufschrift"), QStringLiteral("ein")) == u"ein");
    if (const auto v = Zahl(Lesen(QStringLiteral("HäkchenBildpfad"))))
        chkBildpfad->setChecked(*v != 0);
    if (!chkBildpfad->isChecked()) {
        cboBildpfad->hide();
        imgBildpfad->hide();
        Bild1->show();
    }
    mnuBildDatenbankpfad->setChecked(Lesen(QStringLiteral("BildLadePfad"), QStringLiteral("True")) == u"True");
    mnuMiniPlayerOnTop->setChecked(Lesen(QStringLiteral("MiniPlayerOnTop"), QStringLiteral("True")) == u"True");
    mnuWinPlayerVerwenden->setChecked(Lesen(QStringLiteral("WinMediaPlayer"), QStringLiteral("True")) == u"True");
    chkVisualisierung->setChecked(Lesen(QStringLiteral("WinMediaPlayerVisualisierung"), QStringLiteral("1")) == u"1");
    chkTabelle->setChecked(Lesen(QStringLiteral("TopRow"), QStringLiteral("0")) == u"1");

    tabellenansicht().SpaltenTitelLesen();
    MSFlexGrid1->setRedraw(false);
    tabellenansicht().SpaltenSichtbarkeitAnwenden();
    MSFlexGrid1->setRedraw(true);
    EreignisseZulassen();

    // The links pane has a fixed look.
    QFont linkSchrift(QStringLiteral("Segoe UI"), 12);
    linkSchrift.setUnderline(true);
    rtfLinks->setFont(linkSchrift);
    QTextCharFormat linkFormat;
    linkFormat.setFont(linkSchrift);
    linkFormat.setForeground(NummerFarbe(0xFF0000));
    rtfLinks->setCurrentCharFormat(linkFormat);
    QTextBlockFormat einzug;
    einzug.setLeftMargin(Px(50));
    rtfLinks->textCursor().mergeBlockFormat(einzug);

    Textfenster& schrift = textfenster();
    schrift.StandardFontName = Lesen(QStringLiteral("StandardFontName"), QStringLiteral("Segoe UI"));
    for (QTextEdit* t : {TextSongs, rtfInfo, rtfSonstiges}) {
        QFont f = t->font();
        f.setFamily(schrift.StandardFontName);
        t->setFont(f);
    }
    if (const auto v = Zahl(Lesen(QStringLiteral("StandardFontsize"), QStringLiteral("12"))); v && *v > 0)
        schrift.StandardFontsize = *v;
    if (const auto v = Wahrheit(Lesen(QStringLiteral("StandardFontBold"), WahrheitText(false))))
        schrift.StandardFontBold = *v;
    if (const auto v = Wahrheit(Lesen(QStringLiteral("StandardFontItalic"), WahrheitText(false))))
        schrift.StandardFontItalic = *v;
    if (const auto v = Wahrheit(Lesen(QStringLiteral("StandardFontStrikethru"), WahrheitText(false))))
        schrift.StandardFontStrikethru = *v;
    if (const auto v = Wahrheit(Lesen(QStringLiteral("StandardFontUnderline"), WahrheitText(false))))
        schrift.StandardFontUnderline = *v;
    if (const auto v = Zahl(Lesen(QStringLiteral("StandardColor"), QStringLiteral("0"))); v && *v >= 0 && *v <= 0xFFFFFF)
        schrift.StandardColor = qint64(*v);

    // The program font: what TextBand gets is what every other field gets.
    double programmGroesse = 0;
    if (const auto v = Zahl(Lesen(QStringLiteral("ProgSchriftSize"), QStringLiteral("12"))); v && *v > 0)
        programmGroesse = *v;
    schrift.ProgrammschriftAnwenden(Lesen(QStringLiteral("ProgSchriftName"), QStringLiteral("Segoe UI")),
                                    programmGroesse);

    for (int n = 0; n < 10; ++n)
        m_katalogdatei->OrdnerEintragSetzen(n, Lesen(QStringLiteral("%1Ordnerpfad").arg(n)));
}

void Ausgabebox::DatenbankCheck(const QString& pfad)
{
    for (int c = 0; c < MSFlexGrid1->Cols(); ++c)
        if (MSFlexGrid1->TextMatrix(0, c) == u"Bewertung")
            return;
    Mauszeiger(ZeigerStandard);
    const QString antwort =
        MsgNimb(QStringLiteral("Diese Datenbank ist nicht mehr aktuell, oder nicht mehr vorhanden!\n") + pfad
                    + QStringLiteral("\n\nDatenbank-Update einspielen?"),
                22, 1, QStringLiteral("Datenbank updaten"), 0);
    if (antwort != u"Ja")
        return;
    MsgNimb(QStringLiteral("Der Datenbank-Manager wird gestartet, dort finden Sie den Menüpunkt "
                           "'Datenbank Update...'."),
            1, 0, QStringLiteral("Datenbank-Manager starten"), 0);
    schwesterprogramme().mnuDatenbank_Click();
}

void Ausgabebox::Form_Resize()
{
    // Twips of the inner area. A line whose result would be negative is skipped.
    const int breite = Twips(Innen->width());
    const int hoehe = Twips(Innen->height());
    auto setze = [](QWidget* w, int links, int oben, int b, int h) {
        if (b < 0 || h < 0)
            return;
        w->setGeometry(Px(links), Px(oben), Px(b), Px(h));
    };
    auto links = [](QWidget* w) { return Twips(w->x()); };
    auto oben = [](QWidget* w) { return Twips(w->y()); };
    auto weite = [](QWidget* w) { return Twips(w->width()); };
    auto hoch = [](QWidget* w) { return Twips(w->height()); };

    const int statusHoehe = std::max(Twips(staBar->sizeHint().height()), 300);
    setze(staBar, 0, hoehe - statusHoehe, breite, statusHoehe);
    setze(cmdCoverDown, links(cmdCoverDown), hoehe - statusHoehe - 330, weite(cmdCoverDown), hoch(cmdCoverDown));

    setze(MSFlexGrid1, links(MSFlexGrid1), oben(MSFlexGrid1), weite(MSFlexGrid1),
          hoehe - oben(MSFlexGrid1) - statusHoehe);
    setze(MSFlexGrid1, links(MSFlexGrid1), oben(MSFlexGrid1), breite - links(MSFlexGrid1) - 100,
          hoch(MSFlexGrid1));
    setze(lblGradiant, links(lblGradiant), oben(lblGradiant), breite - links(lblGradiant) - weite(cmdPlayAsso),
          hoch(lblGradiant));
    setze(cmdPlayAsso, breite - weite(cmdPlayAsso), oben(cmdPlayAsso), weite(cmdPlayAsso), hoch(cmdPlayAsso));
    setze(filTrack, links(filTrack), oben(filTrack), breite - links(filTrack) - 100, hoch(filTrack));
    setze(txtSuchen, links(txtSuchen), oben(txtSuchen), weite(filTrack), hoch(txtSuchen));
    setze(fraSternTrack, links(filTrack) + weite(filTrack) - weite(fraSternTrack), oben(fraSternTrack),
          weite(fraSternTrack), hoch(fraSternTrack));
    fraSternTrack->setVisible(!(weite(filTrack) + 20 < weite(fraSternTrack)));
    setze(txtSongText, links(txtSongText), oben(txtSongText), breite - links(txtSongText) - 1700,
          hoch(txtSongText));
    setze(txtSongText, links(txtSongText), oben(txtSongText), weite(txtSongText),
          hoehe - oben(txtSongText) - 620);

    coververwaltung().CoverPlaetzeAnpassen();

    // The running title lives in the caption of the minimised window.
    if (mnuLaufschrift->isChecked() && staBar->PanelText(2).contains(u"playing:")) {
        if (isMinimized()) {
            Timer2->setEnabled(true);
        } else {
            Timer2->setEnabled(false);
            setWindowTitle(Titel);
        }
    }
}

void Ausgabebox::resizeEvent(QResizeEvent* e)
{
    QMainWindow::resizeEvent(e);
    Form_Resize();
}

void Ausgabebox::changeEvent(QEvent* e)
{
    QMainWindow::changeEvent(e);
    if (e->type() == QEvent::ActivationChange) {
        // The wheel steps live only while the main window is active.
        if (isActiveWindow())
            Mausrad::instanz().MausradEin(this);
        else
            Mausrad::instanz().MausradAus();
    } else if (e->type() == QEvent::WindowStateChange) {
        Form_Resize();
    }
}

void Ausgabebox::Form_QueryUnload() { Mausrad::instanz().MausradAus(); }

void Ausgabebox::closeEvent(QCloseEvent* e)
{
    if (m_entladen) {
        e->accept();
        return;
    }
    // What was typed is written first; if the catalogue refuses it, the user decides.
    try {
        if (Recordset* rs = Data1->recordset(); rs && !rs->Updatable() && datensatzansicht().FelderGeaendert())
            throw Recordset::NichtAenderbar();
        datensatzansicht().Data1_Validate();
        if (Recordset* rs = Data1->recordset(); rs && rs->EditPending())
            rs->Update();
    } catch (const Laufzeitfehler& fehler) {
        Fehlermeldung(fehler, QStringLiteral("Ausgabebox_Form_Unload"));
        if (MsgNimb(QStringLiteral("Die letzte Eingabe konnte nicht gespeichert werden.\n\n"
                                   "Trotzdem beenden? Die Eingabe geht dann verloren."),
                    22, 2, QStringLiteral("Beenden"), 0, Farbe::WarnHintergrund, Farbe::StandardText)
            != u"Ja") {
            e->ignore();
            return;
        }
    }
    Form_QueryUnload();
    Form_Unload();
    e->accept();
}

void Ausgabebox::Form_Unload()
{
    if (m_entladen)
        return;
    m_entladen = true;
    // What was typed into the record reaches the database before the end.
    try {
        datensatzansicht().Data1_Validate();
        if (Recordset* rs = Data1->recordset(); rs && rs->EditPending())
            rs->Update();
    } catch (const Laufzeitfehler&) {
    }
    if (playlisten().PlaylistGeaendert)
        playlisten().PlaylistSpeichern();

    FensterwerteSpeichern();
    D().prozess().beenden(0);
}

void Ausgabebox::FensterwerteSpeichern()
{
    if (windowState() & Qt::WindowMinimized) {
        // A minimised window keeps the place of the earlier run.
    } else if (windowState() & Qt::WindowMaximized) {
        Speichern(QStringLiteral("WindowState"), QStringLiteral("2"));
    } else {
        Speichern(QStringLiteral("WindowState"), QStringLiteral("0"));
        Speichern(QStringLiteral("AusgabeboxLeft"), QString::number(Twips(x())));
        Speichern(QStringLiteral("AusgabeboxTop"), QString::number(Twips(y())));
        Speichern(QStringLiteral("AusgabeboxWidth"), QString::number(Twips(width())));
        Speichern(QStringLiteral("AusgabeboxHeight"), QString::number(Twips(height())));
    }
    MSFlexGrid1->setRedraw(false);
    for (int n = 0; n < MSFlexGrid1->Cols(); ++n)
        Speichern(QStringLiteral("%1Spaltenbreite").arg(n), QString::number(MSFlexGrid1->ColWidth(n)));
    MSFlexGrid1->setRedraw(true);
    const Textfenster& schrift = textfenster();
    Speichern(QStringLiteral("StandardFontName"), schrift.StandardFontName);
    Speichern(QStringLiteral("StandardFontsize"), QString::number(schrift.StandardFontsize));
    Speichern(QStringLiteral("StandardFontBold"), WahrheitText(schrift.StandardFontBold));
    Speichern(QStringLiteral("StandardFontItalic"), WahrheitText(schrift.StandardFontItalic));
    Speichern(QStringLiteral("StandardFontStrikethru"), WahrheitText(schrift.StandardFontStrikethru));
    Speichern(QStringLiteral("StandardFontUnderline"), WahrheitText(schrift.StandardFontUnderline));
    Speichern(QStringLiteral("StandardColor"), QString::number(schrift.StandardColor));
    Speichern(QStringLiteral("HäkchenBildpfad"), chkBildpfad->isChecked() ? QStringLiteral("1")
                                                                          : QStringLiteral("0"));
}

void Ausgabebox::MenuBeenden()
{
    try {
        Data1->Refresh();
    } catch (const Laufzeitfehler&) {
        // The end goes on; the unload writes what it can.
    }
    close();
    EreignisseZulassen();
    AlleFensterSchliessen();
    EreignisseZulassen();
}

void Ausgabebox::AlleFensterSchliessen()
{
    if (m_fensterSchliessenLaeuft)
        return;
    m_fensterSchliessenLaeuft = true;
    for (QWidget* w : QApplication::topLevelWidgets())
        if (w->isVisible() || w == this)
            w->close();
    m_fensterSchliessenLaeuft = false;
}

void Ausgabebox::TipboxLaden()
{
    // The tip window belongs to the help menu; the start does not open it.
}
