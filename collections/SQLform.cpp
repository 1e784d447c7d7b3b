#include "collections/SQLform.h"

#include "platform/Dialogdienst.h"
#include "platform/Einheiten.h"
#include "platform/Laufzeitfehler.h"
#include "platform/Textdatei.h"
#include "shell/Einstellungen.h"
#include "shell/Globale.h"
#include "shell/Grundregeln.h"
#include "shell/Steuerelemente.h"

#include <QHBoxLayout>
#include <QKeyEvent>
#include <QLabel>
#include <QListWidget>
#include <QPushButton>
#include <QRadioButton>
#include <QScrollBar>
#include <QVBoxLayout>


SQLform::SQLform(QWidget* eltern)
    : VerlaufFenster(eltern)
{
    setObjectName(QStringLiteral("SQLform"));
    setWindowTitle(QStringLiteral("SQL-Anweisung"));
    setSizeGripEnabled(true);
    QPalette p = palette();
    p.setColor(QPalette::WindowText, NummerFarbe(Farbe::StandardText));
    setPalette(p);

    TextSQL = new Textfeld(this);
    TextSQL->setObjectName(QStringLiteral("TextSQL"));
    // All SQL is joined from strings: no apostrophe by typing. Enter runs the statement.
    TextSQL->setGeschluckt(QStringLiteral("'"));
    TextSQL->setEnterSchlucken(true);
    TextSQL->installEventFilter(this);
    lblTextSQL = new QLabel(QStringLiteral("SQL-Anweisung eingeben:"), this);
    lblTextSQL->setObjectName(QStringLiteral("lblTextSQL"));
    lblTextSQL->setBuddy(TextSQL);

    optSql[0] = new QRadioButton(QStringLiteral("RecordSource"), this);
    optSql[0]->setObjectName(QStringLiteral("optSql(0)"));
    optSql[0]->setToolTip(QStringLiteral(" Die Tabelle zeigt das Ergebnis der Abfrage "));
    optSql[0]->setChecked(true);
    optSql[1] = new QRadioButton(QStringLiteral("Execute"), this);
    optSql[1]->setObjectName(QStringLiteral("optSql(1)"));
    optSql[1]->setToolTip(QStringLiteral(" Aktionsabfrage ausführen (update, insert into, delete ...) "));

    CommandOK = Befehlsknopf(this, QStringLiteral("CommandOK"), QStringLiteral("&Ausführen"),
                      QStringLiteral(" SQL-Anweisung ausführen "));
    CommandExit = Befehlsknopf(this, QStringLiteral("CommandExit"), QStringLiteral("E&xit"));
    CommandUebernehmen = Befehlsknopf(this, QStringLiteral("CommandUebernehmen"), QStringLiteral("In die &Liste"),
                               QStringLiteral(" SQL-Anweisung in der Liste speichern "));
    CommandLoeschen = Befehlsknopf(this, QStringLiteral("CommandLoeschen"), QStringLiteral("Aus der Liste &löschen"),
                            QStringLiteral(" Gewählte SQL-Anweisung aus der Liste löschen "));

    ListSQL = new QListWidget(this);
    ListSQL->setObjectName(QStringLiteral("ListSQL"));
    ListSQL->setSelectionMode(QAbstractItemView::SingleSelection);
    ListSQL->setHorizontalScrollBarPolicy(Qt::ScrollBarAlwaysOn);
    ListSQL->setHorizontalScrollMode(QAbstractItemView::ScrollPerPixel);
    ListSQL->setMinimumHeight(Px(1200));
    ListSQL->installEventFilter(this);
    lblListSQL = new QLabel(QStringLiteral("Gespeicherte SQL-Anweisungen:"), this);
    lblListSQL->setObjectName(QStringLiteral("lblListSQL"));
    lblListSQL->setBuddy(ListSQL);

    auto* optionen = new QHBoxLayout;
    optionen->addWidget(optSql[0]);
    optionen->addSpacing(Px(200));
    optionen->addWidget(optSql[1]);
    optionen->addStretch();
    optionen->addWidget(CommandOK);
    optionen->addWidget(CommandExit);

    auto* liste = new QHBoxLayout;
    liste->addWidget(lblListSQL);
    liste->addStretch();
    liste->addWidget(CommandUebernehmen);
    liste->addWidget(CommandLoeschen);

    // The list takes every height the window gains.
    auto* aussen = new QVBoxLayout(this);
    aussen->setContentsMargins(Px(150), Px(120), Px(150), Px(150));
    aussen->addWidget(lblTextSQL);
    aussen->addWidget(TextSQL);
    aussen->addLayout(optionen);
    aussen->addSpacing(Px(150));
    aussen->addLayout(liste);
    aussen->addWidget(ListSQL, 1);

    setTabOrder(TextSQL, optSql[0]);
    setTabOrder(optSql[0], optSql[1]);
    setTabOrder(optSql[1], CommandOK);
    setTabOrder(CommandOK, CommandExit);
    setTabOrder(CommandExit, CommandUebernehmen);
    setTabOrder(CommandUebernehmen, CommandLoeschen);
    setTabOrder(CommandLoeschen, ListSQL);

    connect(CommandOK, &QPushButton::clicked, this, [this] { CommandOK_Click(); });
    connect(CommandExit, &QPushButton::clicked, this, [this] { CommandExit_Click(); });
    connect(CommandUebernehmen, &QPushButton::clicked, this, [this] { CommandUebernehmen_Click(); });
    connect(CommandLoeschen, &QPushButton::clicked, this, [this] { CommandLoeschen_Click(); });
    connect(ListSQL, &QListWidget::itemClicked, this, [this] { ListSQL_Click(); });
    // sql.dat holds one statement a line: a pasted line break becomes a blank.
    connect(TextSQL, &QLineEdit::textChanged, this, [this](const QString& text) {
        if (!text.contains(u'\n') && !text.contains(u'\r'))
            return;
        const int stelle = TextSQL->cursorPosition();
        QString einzeilig = text;
        einzeilig.replace(QStringLiteral("\r\n"), QStringLiteral(" "));
        einzeilig.replace(u'\n', u' ').replace(u'\r', u' ');
        TextSQL->setText(einzeilig);
        TextSQL->setCursorPosition(std::min(stelle, int(einzeilig.size())));
    });
}

QString SQLform::SqlDatei() { return ProgrammOrdner + QStringLiteral("sql.dat"); }

void SQLform::RegistryLesen()
{
    // The store ignores the case of keys: "SQLformleft" finds what "SQLformLeft" wrote.
    int links = x();
    int oben = y();
    int breite = Px(10650);
    int hoehe = Px(7170);
    if (const auto v = Zahl(Lesen(QStringLiteral("SQLformTop"), QStringLiteral("0"))))
        oben = Px(*v);
    if (const auto v = Zahl(Lesen(QStringLiteral("SQLformleft"), QStringLiteral("0"))))
        links = Px(*v);
    if (const auto v = Zahl(Lesen(QStringLiteral("SQLformheight"), QStringLiteral("7170"))); v && *v > 0)
        hoehe = Px(*v);
    if (const auto v = Zahl(Lesen(QStringLiteral("SQLformwidth"), QStringLiteral("10650"))); v && *v > 0)
        breite = Px(*v);
    move(links, oben);
    resize(breite, hoehe);

    ProgrammschriftSetzen(TextSQL, {ListSQL});
}

void SQLform::Form_Load()
{
    RegistryLesen();
    ListeLesen();
    TextSQL->setText(SqlAnweisung);
    TextSQL->setFocus();
}

void SQLform::Anzeigen() { exec(); }

void SQLform::ListeLesen()
{
    ListSQL->clear();
    for (const QString& zeile : TextdateiLesen(SqlDatei()))
        if (!zeile.trimmed().isEmpty())
            ListSQL->addItem(zeile);
}

void SQLform::ListeSpeichern()
{
    QStringList zeilen;
    for (int i = 0; i < ListSQL->count(); ++i)
        zeilen << ListSQL->item(i)->text();
    if (!TextdateiSchreiben(SqlDatei(), zeilen))
        throw Laufzeitfehler(Fehlernummer::ZugriffsFehler);
}

int SQLform::Auswahl() const
{
    const QList<QListWidgetItem*> gewaehlt = ListSQL->selectedItems();
    return gewaehlt.isEmpty() ? -1 : ListSQL->row(gewaehlt.first());
}

void SQLform::CommandOK_Click()
{
    SqlAnweisung = TextSQL->text();
    accept();
}

void SQLform::CommandExit_Click()
{
    SqlAnweisung.clear();
    reject();
}

void SQLform::done(int ergebnis)
{
    // Esc and the close box leave as Exit does: nothing runs.
    if (ergebnis != QDialog::Accepted)
        SqlAnweisung.clear();
    Form_Unload();
    VerlaufFenster::done(ergebnis);
}

void SQLform::Form_Unload()
{
    if (windowState() & (Qt::WindowMinimized | Qt::WindowMaximized | Qt::WindowFullScreen))
        return;
    Speichern(QStringLiteral("SQLformTop"), QString::number(Twips(y())));
    Speichern(QStringLiteral("SQLformLeft"), QString::number(Twips(x())));
    Speichern(QStringLiteral("SQLformheight"), QString::number(Twips(height())));
    Speichern(QStringLiteral("SQLformwidth"), QString::number(Twips(width())));
}

void SQLform::CommandUebernehmen_Click()
{
    try {
        const QString text = TextSQL->text();
        if (text.isEmpty())
            return;
        for (int i = 0; i < ListSQL->count(); ++i) {
            if (ListSQL->item(i)->text() == text) {
                MsgNimb(QStringLiteral("Der Eintrag ist schon vorhanden!\n\n") + text, 1, 0,
                        QStringLiteral("Hinweis"), 0);
                return;
            }
        }
        ListSQL->addItem(text);
        ListSQL->scrollToBottom();
        ListeSpeichern();
    } catch (const Laufzeitfehler& fehler) {
        Fehlermeldung(fehler, QStringLiteral("SQLform_CommandUebernehmen_Click"));
    }
}

void SQLform::CommandLoeschen_Click()
{
    try {
        const int zeile = Auswahl();
        if (zeile < 0)
            return;
        const QString antwort =
            MsgNimb(ListSQL->item(zeile)->text() + QStringLiteral("\n\nSoll die SQL-Anweisung gelöscht werden?"), 22,
                    1, QStringLiteral("Lumivox"), 0);
        if (antwort == u"Nein")
            return;
        delete ListSQL->takeItem(zeile);
        TextSQL->clear();
        ListeSpeichern();
    } catch (const Laufzeitfehler& fehler) {
        Fehlermeldung(fehler, QStringLiteral("SQLform_CommandLoeschen_Click"));
    }
}

void SQLform::ListSQL_Click()
{
    const int zeile = Auswahl();
    if (zeile < 0)
        return;
    const QString text = ListSQL->item(zeile)->text();
    TextSQL->setText(text);
    TextSQL->setCursorPosition(0); // a long statement is read from its start
    // Exact case on purpose: a statement in capitals is offered as a record source.
    if (text.contains(QStringLiteral("into")) || text.contains(QStringLiteral("update")))
        optSql[1]->setChecked(true);
    else
        optSql[0]->setChecked(true);
    TextSQL->setFocus();
}

void SQLform::ListSQL_KeyDown(int taste)
{
    if (taste != 46)
        return;
    try {
        const int zeile = Auswahl();
        if (zeile < 0)
            return;
        delete ListSQL->takeItem(zeile);
        TextSQL->clear();
        ListeSpeichern();
    } catch (const Laufzeitfehler& fehler) {
        Fehlermeldung(fehler, QStringLiteral("SQLform_ListSQL_KeyDown"));
    }
}

bool SQLform::eventFilter(QObject* objekt, QEvent* ereignis)
{
    const QEvent::Type art = ereignis->type();
    if (art != QEvent::KeyPress && art != QEvent::KeyRelease)
        return VerlaufFenster::eventFilter(objekt, ereignis);
    const auto* taste = static_cast<QKeyEvent*>(ereignis);
    const bool enter = taste->key() == Qt::Key_Return || taste->key() == Qt::Key_Enter;
    if (objekt == TextSQL && enter) {
        // Only a press seen here counts: the release of the Enter that opened the
        // window must not run the last statement.
        if (art == QEvent::KeyPress) {
            m_enterGedrueckt = true;
        } else if (!taste->isAutoRepeat() && m_enterGedrueckt) {
            m_enterGedrueckt = false;
            CommandOK_Click();
            return true;
        }
    } else if (objekt == ListSQL && art == QEvent::KeyPress && taste->key() == Qt::Key_Delete) {
        ListSQL_KeyDown(46);
        return true;
    }
    return VerlaufFenster::eventFilter(objekt, ereignis);
}
