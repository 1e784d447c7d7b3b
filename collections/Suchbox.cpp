#include "collections/Suchbox.h"

#include "collections/Ausschlusslisten.h"
#include "collections/Suchanfrage.h"
#include "platform/Dialogdienst.h"
#include "platform/Einheiten.h"
#include "shell/Einstellungen.h"
#include "shell/Globale.h"
#include "shell/Grundregeln.h"
#include "shell/Steuerelemente.h"
#include "shell/Symbole.h"

#include <QEvent>
#include <QGridLayout>
#include <QGroupBox>
#include <QHBoxLayout>
#include <QKeyEvent>
#include <QLabel>
#include <QListWidget>
#include <QPushButton>
#include <QVBoxLayout>

void Dreistufenkasten::nextCheckState()
{
    setCheckState(checkState() == Qt::Checked ? Qt::Unchecked : Qt::Checked);
}

Suchbox::Suchbox(QWidget* eltern)
    : VerlaufFenster(eltern)
{
    setObjectName(QStringLiteral("Suchbox"));
    setWindowTitle(QStringLiteral("Suchen / Ersetzen"));

    auto* rahmen = new QGroupBox(QStringLiteral("Suchspalten auswählen"), this);
    rahmen->setObjectName(QStringLiteral("fraSuchspalten"));
    auto* spalten = new QGridLayout(rahmen);
    for (int i = 0; i < SuchspaltenAnzahl; ++i) {
        auto* kasten = chkSpaltenname.setzen(
            i, new Dreistufenkasten(QLatin1String(SuchspaltenTabelle[size_t(i)].beschriftung), rahmen));
        kasten->setTristate(true);
        spalten->addWidget(kasten, i % 7, i / 7 * 2);
    }
    // Beside "Songs-" the box reads as one label with it: "Songs-Bewertung".
    chkBewertungSong = new QCheckBox(QStringLiteral("Bewertung"), rahmen);
    chkBewertungSong->setObjectName(QStringLiteral("chkBewertungSong"));
    spalten->addWidget(chkBewertungSong, SpalteSongsBox % 7, 1);
    chkSpaltennameAlle = new QCheckBox(QStringLiteral("Alle"), rahmen);
    chkSpaltennameAlle->setObjectName(QStringLiteral("chkSpaltennameAlle"));
    spalten->addWidget(chkSpaltennameAlle, 6, 3);

    auto* sterne = new QHBoxLayout;
    for (int i = 0; i < imgStern.Anzahl(); ++i) {
        auto* stern = imgStern.setzen(i, new Bildfeld(this));
        stern->setBild(Stern(18, i > 0));
        stern->setFixedSize(Px(330), Px(330));
        stern->setToolTip(i == 0 ? QStringLiteral("Suchtext:  alle ohne Stern ")
                                 : QStringLiteral("Suchtext:  - %1 ").arg(i));
        // Pressed, a star sinks a little to the right and down.
        connect(stern, &Bildfeld::MouseDown, this, [stern] { stern->move(stern->pos() + QPoint(Px(10), Px(10))); });
        connect(stern, &Bildfeld::MouseUp, this, [stern] { stern->move(stern->pos() - QPoint(Px(10), Px(10))); });
        connect(stern, &Bildfeld::Click, this, [this, i] { imgStern_Click(i); });
        sterne->addWidget(stern);
    }
    sterne->addStretch();

    txtSuchen = new Textfeld(this);
    txtSuchen->setObjectName(QStringLiteral("txtSuchen"));
    txtSuchen->setGeschluckt(QStringLiteral("'"));
    txtSuchen->installEventFilter(this);
    lblSuchtext = new QLabel(QStringLiteral("Suchtext:"), this);
    lblSuchtext->setObjectName(QStringLiteral("lblSuchtext"));
    lblSuchtext->setBuddy(txtSuchen);
    chkErsetzen = new QCheckBox(QStringLiteral("ersetzen mit:"), this);
    chkErsetzen->setObjectName(QStringLiteral("chkErsetzen"));
    chkErsetzen->setToolTip(QStringLiteral(" Ersetzen einschalten "));
    txtErsetzen = new Textfeld(this);
    txtErsetzen->setObjectName(QStringLiteral("txtErsetzen"));

    lstStil = new QListWidget(this);
    lstStil->setObjectName(QStringLiteral("lstStil"));
    lstStil->installEventFilter(this);
    lstStil->viewport()->installEventFilter(this);
    lstAusschluss = new QListWidget(this);
    lstAusschluss->setObjectName(QStringLiteral("lstAusschluss"));
    lstAusschluss->hide();

    ButtonOk = Befehlsknopf(this, QStringLiteral("ButtonOk"), QStringLiteral("OK"));
    ButtonOk->setDefault(true);
    ButtonAbbrechen = Befehlsknopf(this, QStringLiteral("ButtonAbbrechen"), QStringLiteral("Abbrechen"));

    auto* links = new QVBoxLayout;
    links->addWidget(rahmen);
    links->addLayout(sterne);
    links->addWidget(lblSuchtext);
    links->addWidget(txtSuchen);
    links->addWidget(chkErsetzen);
    links->addWidget(txtErsetzen);
    auto* knoepfe = new QHBoxLayout;
    knoepfe->addStretch();
    knoepfe->addWidget(ButtonOk);
    knoepfe->addWidget(ButtonAbbrechen);
    links->addLayout(knoepfe);
    auto* ganz = new QHBoxLayout(this);
    ganz->addLayout(links, 3);
    ganz->addWidget(lstStil, 1);

    for (int i = 0; i < SuchspaltenAnzahl; ++i)
        KlickVerbinden(chkSpaltenname[i], this, [this, i] { chkSpaltenname_Click(i); });
    KlickVerbinden(chkSpaltennameAlle, this, [this] { chkSpaltennameAlle_Click(); });
    KlickVerbinden(chkBewertungSong, this, [this] { chkBewertungSong_Click(); });
    KlickVerbinden(chkErsetzen, this, [this] { chkErsetzen_Click(); });
    connect(ButtonOk, &QPushButton::clicked, this, [this] { ButtonOk_Click(); });
    connect(ButtonAbbrechen, &QPushButton::clicked, this, [this] { ButtonAbbrechen_Click(); });
    ErsetzenOeffnen(false);
}

void Suchbox::Form_Load()
{
    ProgrammschriftSetzen(txtSuchen, {txtErsetzen, lstStil});

    lstAusschluss->clear();
    for (const QString& zeile : AusschlussEintraege(ProgrammOrdner + StilAusschlussDateiAbspielen))
        lstAusschluss->addItem(zeile.trimmed());
    lstStil->clear();
    for (const QString& zeile : AusschlussEintraege(ProgrammOrdner + StilrichtungDatei)) {
        const QString stil = zeile.trimmed();
        if (!stil.isEmpty() && lstAusschluss->findItems(stil, Qt::MatchExactly | Qt::MatchCaseSensitive).isEmpty())
            lstStil->addItem(stil);
    }
    if (chkSpaltennameAlle->isChecked())
        chkSpaltennameAlle_Click();
    else
        chkSpaltennameAlle->setChecked(true);
    txtSuchen->setFocus();
}

void Suchbox::Anzeigen() { exec(); }

void Suchbox::AlleKaestenSetzen(Qt::CheckState zustand)
{
    for (Dreistufenkasten* kasten : chkSpaltenname)
        kasten->setCheckState(zustand);
}

void Suchbox::chkSpaltennameAlle_Click()
{
    if (chkSpaltennameAlle->isChecked()) {
        chkBewertungSong->setChecked(false);
        AlleKaestenSetzen(Qt::PartiallyChecked);
    } else {
        AlleKaestenSetzen(Qt::Unchecked);
    }
}

void Suchbox::chkSpaltenname_Click(int index)
{
    Dreistufenkasten* kasten = chkSpaltenname[index];
    if (chkSpaltennameAlle->isChecked()) {
        if (kasten->checkState() != Qt::PartiallyChecked)
            kasten->setCheckState(Qt::PartiallyChecked);
        return;
    }
    Sortfeld = QLatin1String(SuchspaltenTabelle[size_t(index)].sortfeld);
    txtSuchen->setFocus();
    if (index == SpalteBewertungBox && kasten->checkState() == Qt::Checked) {
        chkBewertungSong->setChecked(false);
        txtSuchen->setText(QStringLiteral("1"));
    }
}

void Suchbox::chkBewertungSong_Click()
{
    if (chkSpaltennameAlle->isChecked() && chkBewertungSong->isChecked())
        chkSpaltennameAlle->setChecked(false);
    if (chkBewertungSong->isChecked())
        AlleKaestenSetzen(Qt::Unchecked);
    txtSuchen->setText(QStringLiteral(" - 1."));
    chkSpaltenname[SpalteSongsBox]->setCheckState(Qt::Checked);
}

void Suchbox::imgStern_Click(int index)
{
    if (chkBewertungSong->isChecked())
        txtSuchen->setText(QStringLiteral(" - %1.").arg(index));
    else if (chkSpaltenname[SpalteBewertungBox]->checkState() == Qt::Checked)
        txtSuchen->setText(QString::number(index));
    else
        MsgNimb(QStringLiteral("Bitte zuerst ein Häkchen bei der CD- oder Song-Bewertung setzen!"), 1, 0,
                QStringLiteral("Hinweis"), 0);
}

void Suchbox::lstStil_Auswahl()
{
    const QListWidgetItem* eintrag = lstStil->currentItem();
    if (!eintrag)
        return;
    chkSpaltennameAlle->setChecked(false);
    AlleKaestenSetzen(Qt::Unchecked);
    chkSpaltenname[SpalteStilBox]->setCheckState(Qt::Checked);
    if (txtSuchen->text().isEmpty())
        txtSuchen->setText(eintrag->text());
    else
        txtSuchen->setText(txtSuchen->text() + QStringLiteral(", ") + eintrag->text());
}

void Suchbox::ErsetzenOeffnen(bool offen)
{
    txtErsetzen->setReadOnly(!offen);
    QPalette p = txtErsetzen->palette();
    p.setColor(QPalette::Base, palette().color(offen ? QPalette::Base : QPalette::Button));
    txtErsetzen->setPalette(p);
}

void Suchbox::chkErsetzen_Click()
{
    if (!chkErsetzen->isChecked()) {
        ErsetzenOeffnen(false);
        txtSuchen->setFocus();
        return;
    }
    if (chkSpaltennameAlle->isChecked()) {
        chkSpaltennameAlle->setChecked(false);
        MsgNimb(QStringLiteral("Bitte wählen Sie die Spalte(n) aus, in der Sie ersetzen wollen."), 1, 0,
                QStringLiteral("Hinweis"), 0);
        chkErsetzen->setChecked(false);
        return;
    }
    Dreistufenkasten* stil = chkSpaltenname[SpalteStilBox];
    Dreistufenkasten* songs = chkSpaltenname[SpalteSongsBox];
    if (stil->checkState() == Qt::Checked || songs->checkState() == Qt::Checked) {
        stil->setCheckState(Qt::Unchecked);
        songs->setCheckState(Qt::Unchecked);
        MsgNimb(QStringLiteral("In den Textfeldern 'Songs' u. 'Stil' kann nicht ersetzt werden!\n"
                               "Das Häkchen dort wurde entfernt."),
                1, 0, QStringLiteral("Bedienungshinweis"), 0);
        chkErsetzen->setChecked(false);
        return;
    }
    ErsetzenOeffnen(true);
    txtErsetzen->setFocus();
}

void Suchbox::ButtonOk_Click()
{
    Speichern(QStringLiteral("TabellenName"), txtSuchen->text());
    txtSuchen->setText(SuchtextVerleimen(txtSuchen->text()));

    auto gesammelt = [this](QStringList* beschriftungen) {
        int anzahl = 0;
        for (int i = 0; i < SuchspaltenAnzahl; ++i)
            if (chkSpaltenname[i]->checkState() == Qt::Checked) {
                ++anzahl;
                *beschriftungen << QLatin1String(SuchspaltenTabelle[size_t(i)].beschriftung);
            }
        return anzahl;
    };
    int anzahl = 12;
    if (!chkSpaltennameAlle->isChecked()) {
        QStringList beschriftungen;
        anzahl = gesammelt(&beschriftungen);
        if (anzahl == 0) {
            if (chkBewertungSong->isChecked() && chkSpaltenname[SpalteSongsBox]->checkState() != Qt::Checked) {
                chkSpaltenname[SpalteSongsBox]->setCheckState(Qt::Checked);
                beschriftungen.clear();
                anzahl = gesammelt(&beschriftungen);
            } else {
                MsgNimb(QStringLiteral("Bitte ein mindestens Häkchen setzen!"), 1, 0, QStringLiteral("Hinweis"), 0);
                return;
            }
        }
        Suchspalten = beschriftungen.join(QStringLiteral(", "));
    }

    QList<int> boxen;
    for (int i = 0; i < SuchspaltenAnzahl; ++i) {
        const Qt::CheckState zustand = chkSpaltenname[i]->checkState();
        // One column: the checked box; more: every box not clear.
        if (anzahl < 2 ? zustand == Qt::Checked : zustand != Qt::Unchecked)
            boxen << i;
    }
    SuchAbfrage = SuchAnweisung(boxen, txtSuchen->text(), Sortfeld);

    if (chkErsetzen->isChecked()) {
        SuchenNach = txtSuchen->text();
        ErsetzenDurch = txtErsetzen->text();
    } else {
        SuchenNach.clear();
        ErsetzenDurch.clear();
        Suchspalten.clear();
    }
    if (chkBewertungSong->isChecked()) {
        if (!txtSuchen->text().startsWith(QStringLiteral(" - "))) {
            MsgNimb(QStringLiteral("Wenn Sie bei \"Songs-Bewertung\" ein Häkchen setzen,\n"
                                   "dann müssen Sie anschließend auf einen Stern klicken,\n"
                                   "damit ein gültiger Suchtext eingefügt wird."),
                    1, 0, QStringLiteral("ungültiger Suchtext"), 0);
            return;
        }
        SongBewertungSuche = true;
        SongBewertungText = txtSuchen->text();
    }
    accept();
}

void Suchbox::ButtonAbbrechen_Click()
{
    // The statement of the SQL console, not the search's: the search goes on with its last.
    SqlAnweisung.clear();
    reject();
}

bool Suchbox::eventFilter(QObject* objekt, QEvent* ereignis)
{
    if (objekt == txtSuchen && ereignis->type() == QEvent::FocusIn)
        QMetaObject::invokeMethod(txtSuchen, &QLineEdit::selectAll, Qt::QueuedConnection);
    else if ((objekt == lstStil && ereignis->type() == QEvent::KeyRelease)
             || (objekt == lstStil->viewport() && ereignis->type() == QEvent::MouseButtonRelease))
        lstStil_Auswahl();
    return VerlaufFenster::eventFilter(objekt, ereignis);
}
