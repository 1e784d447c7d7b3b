#include "media/frmTranslation.h"

#include "platform/Dialogdienst.h"
#include "platform/Dienste.h"
#include "platform/Einheiten.h"
#include "platform/Mauszeiger.h"
#include "platform/Sprachausgabe.h"
#include "shell/Einstellungen.h"
#include "shell/Grundregeln.h"
#include "shell/Steuerelemente.h"
#include "shell/Symbole.h"

#include <QComboBox>
#include <QEvent>
#include <QFrame>
#include <QGridLayout>
#include <QHBoxLayout>
#include <QLabel>
#include <QPlainTextEdit>
#include <QPushButton>
#include <QStatusBar>
#include <QTextDocumentFragment>
#include <QUrl>
#include <QVBoxLayout>

using namespace Qt::StringLiterals;

namespace {

const QString VoreinstellungVon = u"DE - Deutsch"_s;
const QString VoreinstellungNach = u"EN - Englisch"_s;
const QString Seite = u"https://translate.google.com/"_s;

QComboBox* Sprachliste(QWidget* eltern, const QString& name)
{
    auto* liste = new QComboBox(eltern);
    liste->setObjectName(name);
    // Editable, so that a language that is not a row ("DE - Deutsch") still shows as text.
    liste->setEditable(true);
    liste->setInsertPolicy(QComboBox::NoInsert);
    liste->setMaxVisibleItems(20);
    liste->addItems(frmTranslation::Sprachen());
    return liste;
}

QPlainTextEdit* Textkasten(QWidget* eltern, const QString& name)
{
    auto* kasten = new QPlainTextEdit(eltern);
    kasten->setObjectName(name);
    kasten->setTabChangesFocus(true);
    return kasten;
}

} // namespace

const QStringList& frmTranslation::Sprachen()
{
    // A country table that serves as the language list; its odd rows stay as they are.
    static const QStringList zeilen = {
        u"AW - Aruba"_s, u"AF - Afghanistan"_s, u"AO - Angola"_s, u"AI - Anguilla"_s, u"AX - Åland Inseln"_s,
        u"AL - Albanien"_s, u"AD - Andorra"_s, u"AN - Niederländische Antillen"_s,
        u"AE - Vereinigte Arabische Emirate"_s, u"AR - Argentinien"_s, u"AM - Armenien"_s,
        u"AS - Amerikanisch Samoa"_s, u"AQ - Antarktis"_s, u"TF - Französische Südgebiete"_s,
        u"AG - Antigua und Barbuda"_s, u"AU - Australien"_s, u"AT - Österreich"_s, u"AZ - Aserbaidschan"_s,
        u"BI - Burundi"_s, u"BE - Belgien"_s, u"BJ - Benin"_s, u"BF - Burkina Faso"_s, u"BD - Bangladesch"_s,
        u"BG - Bulgarien"_s, u"BH - Bahrain"_s, u"BS - Bahamas"_s, u"BA - Bosnien und Herzegowina"_s,
        u"By - Weißrussland"_s, u"BZ - Belize"_s, u"BM - Bermuda"_s, u"BO - Bolivien"_s, u"BR - Brasilien"_s,
        u"BB - Barbados"_s, u"BN - Brunei Darussalam"_s, u"BT - Bhutan"_s, u"BV - Bouvetinsel"_s,
        u"BW - Botsuana"_s, u"CF - Zentralafrikanische Republik"_s, u"CA - Kanada"_s, u"CC - Kokosinseln"_s,
        u"Ch - Schweiz"_s, u"CL - Chile"_s, u"CN - China"_s, u"CI - Côte d´Ivoire"_s, u"CM - Kamerun"_s,
        u"CD - Kongo, Dem. Rep."_s, u"CG - Kongo"_s, u"CK - Cookinseln"_s, u"CO - Kolumbien"_s, u"KM - Komoren"_s,
        u"CV - Kap Verde"_s, u"CR - Costa Rica"_s, u"CU - Kuba"_s, u"CX - Weihnachtsinsel"_s,
        u"KY - Kaimaninseln"_s, u"CY - Zypern"_s, u"CZ - Tschechische Republik"_s, u"DE - Deutschland"_s,
        u"DJ - Republik Dschibuti"_s, u"DM - Dominica"_s, u"DK - Dänemark"_s, u"DO - Dominikanische Republik"_s,
        u"DZ - Algerien"_s, u"EC - Ecuador"_s, u"EG - Ägypten"_s, u"ER - Eritrea"_s, u"EH - Westsahara"_s,
        u"EN - Englisch"_s, u"ES - Spanien"_s, u"EE - Estland"_s, u"ET - Äthiopien"_s, u"FI - Finnland"_s,
        u"FJ - Fidschi"_s, u"FK - Falklandinseln"_s, u"FR - Frankreich"_s, u"FO - Färöer"_s,
        u"FM - Mikronesien, Föderierte Staaten von"_s, u"GA - Gabun"_s, u"GB - Vereinigtes Königreich"_s,
        u"GE - Georgien"_s, u"GG - Guernsey"_s, u"GH - Ghana"_s, u"GI - Gibraltar"_s, u"GN - Guinea"_s,
        u"GP - Guadeloupe"_s, u"GM - Gambia"_s, u"GW - Guinea - Bissau"_s, u"GQ - Äquatorialguinea"_s,
        u"GR - Griechenland"_s, u"GD - Grenada"_s, u"GL - Grönland"_s, u"GT - Guatemala"_s,
        u"GF - Französisch Guiana"_s, u"GU - Guam"_s, u"GY - Guyana"_s, u"HK - Hong Kong"_s,
        u"HM - Heard Insel und McDonald Inseln"_s, u"HN - Honduras"_s, u"HR - Kroatien"_s, u"HT - Haiti"_s,
        u"HU - Ungarn"_s, u"ID - Indonesien"_s, u"IM - Isle of Man"_s, u"IN - Indien"_s,
        u"IO - Britische Territorien im Indischen Ozean"_s, u"IE - Irland"_s, u"IR - Iran, Islam. Rep."_s,
        u"IQ - Irak"_s, u"IS - Island"_s, u"IL - Israel"_s, u"IT - Italien"_s, u"JM - Jamaika"_s, u"JE - Jersey"_s,
        u"JO - Jordanien"_s, u"JP - Japan"_s, u"KZ - Kasachstan"_s, u"KE - Kenia"_s, u"KG - Kirgisistan"_s,
        u"KH - Kambodscha"_s, u"KI - Kiribati"_s, u"KN - St. Kitts und Nevis"_s, u"KR - Korea, Rep."_s,
        u"KW - Kuwait"_s, u"LA - Laos, Dem. Volksrep."_s, u"LB - Libanon"_s, u"LR - Liberia"_s,
        u"LY - Libysch-Arabische Dschamahirija"_s, u"LC - St.Lucia"_s, u"LI - Liechtenstein"_s,
        u"LK - Sri Lanka"_s, u"LS - Lesotho"_s, u"LT - Litauen"_s, u"LU - Luxemburg"_s, u"LV - Lettland"_s,
        u"MO - Macao"_s, u"MA - Marokko"_s, u"MC - Monaco"_s, u"MD - Moldau, Rep."_s, u"MG - Madagaskar"_s,
        u"MV - Malediven"_s, u"MX - Mexiko"_s, u"MH - Marshallinseln"_s,
        u"MK - Mazedonien, ehemalige jugoslawische Republik"_s, u"ML - Mali"_s, u"MT - Malta"_s, u"MM - Myanmar"_s,
        u"ME - Montenegro"_s, u"MN - Mongolei"_s, u"MP - Nördliche Marianen"_s, u"MZ - Mosambik"_s,
        u"MR - Mauretanien"_s, u"MS - Montserrat"_s, u"MQ - Martinique"_s, u"MU - Mauritius"_s, u"MW - Malawi"_s,
        u"MY - Malaysia"_s, u"YT - Mayotte"_s, u"NA - Namibia"_s, u"NC - Neukaledonien"_s, u"NE - Niger"_s,
        u"NF - Norfolk Insel"_s, u"NG - Nigeria"_s, u"NI - Nicaragua"_s, u"NU - Niue"_s, u"NL - Niederlande"_s,
        u"NO - Norwegen"_s, u"NP - Nepal"_s, u"NR - Nauru"_s, u"NZ - Neuseeland"_s, u"OM - Oman"_s,
        u"PK - Pakistan"_s, u"PA - Panama"_s, u"PN - Pitcairn"_s, u"PE - Peru"_s, u"PH - Philippinen"_s,
        u"PW - Palau"_s, u"PG - Papua - Neuguinea"_s, u"PL - Polen"_s, u"PR - Puerto Rico"_s,
        u"KP - Korea, Dem. Volksrep."_s, u"PT - Portugal"_s, u"PY - Paraguay"_s, u"PS - Palästinische Gebiete"_s,
        u"PF - Französisch Polynesien"_s, u"QA - Katar"_s, u"RE - Réunion"_s, u"RO - Rumänien"_s,
        u"RU - Russische Föderation"_s, u"RW - Ruanda"_s, u"SA - Saudi - Arabien"_s, u"SD - Sudan"_s,
        u"SN - Senegal"_s, u"SG - Singapur"_s, u"GS - Südgeorgien und die Südlichen Sandwichinseln"_s,
        u"SH - Saint Helena"_s, u"SJ - Svalbard und Jan Mayen"_s, u"SB - Salomonen"_s, u"SL - Sierra Leone"_s,
        u"SV - El Salvador"_s, u"SM - San Marino"_s, u"SO - Somalia"_s, u"PM - Saint Pierre und Miquelon"_s,
        u"RS - Serbien"_s, u"ST - São Tomé und Príncipe"_s, u"SR - Suriname"_s, u"SK - Slowakei"_s,
        u"SI - Slowenien"_s, u"SE - Schweden"_s, u"SZ - Swasiland"_s, u"SC - Seychellen"_s,
        u"SY - Syrien, Arab. Rep."_s, u"TC - Turks- und Caicosinseln"_s, u"TD - Tschad"_s, u"TG - Togo"_s,
        u"TH - Thailand"_s, u"TJ - Tadschikistan"_s, u"TK - Tokelau"_s, u"TM - Turkmenistan"_s,
        u"TL - Timor - Leste"_s, u"TO - Tonga"_s, u"TT - Trinidad und Tobago"_s, u"TN - Tunesien"_s,
        u"TR - Türkei"_s, u"TV - Tuvalu"_s, u"TW - Taiwan"_s, u"TZ - Tansania, Vereinigte Rep."_s,
        u"UA - Ukraine"_s, u"UG - Uganda"_s, u"UK - United Kingdom"_s,
        u"UM - United States Minor Outlying Islands"_s, u"UY - Uruguay"_s,
        u"US - Vereinigte Staaten von Amerika"_s, u"UZ - Usbekistan"_s, u"VA - Heiliger Stuhl"_s,
        u"VC - St. Vincent und die Grenadinen"_s, u"VE - Venezuela"_s, u"VG - Britische Jungferninseln"_s,
        u"VI - Amerikanische Jungferninseln"_s, u"VN - Vietnam"_s, u"VU - Vanuatu"_s, u"WF - Wallis und Futuna"_s,
        u"WS - Samoa"_s, u"YE - Jemen"_s, u"ZA - Südafrika"_s, u"ZM - Sambia"_s, u"ZW - Simbabwe"_s
    };
    return zeilen;
}

frmTranslation::frmTranslation(QWidget* eltern)
    : VerlaufFenster(eltern)
{
    setObjectName(u"frmTranslation"_s);
    setWindowTitle(u"Textübersetzung mit Google"_s);
    setWindowFlags(windowFlags() | Qt::WindowMinMaxButtonsHint);
    setSizeGripEnabled(true);
    QPalette p = palette();
    p.setColor(QPalette::WindowText, NummerFarbe(Farbe::StandardText));
    setPalette(p);

    cboVon = Sprachliste(this, u"cboVon"_s);
    cboNach = Sprachliste(this, u"cboNach"_s);
    lblVon = new QLabel(u"&Von:"_s, this);
    lblVon->setObjectName(u"lblVon"_s);
    lblVon->setBuddy(cboVon);
    lblNach = new QLabel(u"&Nach:"_s, this);
    lblNach->setObjectName(u"lblNach"_s);
    lblNach->setBuddy(cboNach);

    txtQuelle = Textkasten(this, u"txtQuelle"_s);
    txtQuelle->setPlaceholderText(u"Text, der übersetzt oder vorgelesen werden soll"_s);
    txtZiel = Textkasten(this, u"txtZiel"_s);
    txtZiel->setPlaceholderText(u"Übersetzung aus dem Browser hier einfügen"_s);
    for (QPlainTextEdit* kasten : {txtQuelle, txtZiel}) {
        kasten->installEventFilter(this);
        kasten->viewport()->installEventFilter(this);
    }

    cmdOK = Befehlsknopf(this, u"cmdOK"_s, u"Ü&bersetzen"_s,
                         u" Die Übersetzungsseite mit dem Text im Browser öffnen "_s);
    const char* knoepfe[][2] = {
        {"&Leeren", " Beide Textfelder leeren "},
        {"V&orlesen", " Den markierten Text vorlesen "},
        {"&Stimme...", " Sprecherstimme und Sprechgeschwindigkeit einstellen "},
        {"S&chließen", " Fenster schließen "},
    };
    for (int i = 0; i < cmdButton.Anzahl(); ++i) {
        cmdButton[i] = Befehlsknopf(this, cmdButton.Name(i), QString::fromUtf8(knoepfe[i][0]),
                                    QString::fromUtf8(knoepfe[i][1]));
        connect(cmdButton[i], &QPushButton::clicked, this, [this, i] { cmdButton_Click(i); });
    }
    connect(cmdOK, &QPushButton::clicked, this, [this] { cmdOK_Click(); });

    fraLogo = new QFrame(this);
    fraLogo->setObjectName(u"fraLogo"_s);
    fraLogo->setFrameShape(QFrame::StyledPanel);
    imgLogo = new QLabel(fraLogo);
    imgLogo->setObjectName(u"imgLogo"_s);
    imgLogo->setPixmap(Symbol(u"uebersetzen"_s).pixmap(Px(480)));
    lblLogo = new QLabel(u"Übersetzen und Vorlesen"_s, fraLogo);
    lblLogo->setObjectName(u"lblLogo"_s);
    QFont gross = lblLogo->font();
    gross.setPointSizeF(gross.pointSizeF() * 1.4);
    gross.setBold(true);
    lblLogo->setFont(gross);
    auto* logo = new QHBoxLayout(fraLogo);
    logo->addWidget(imgLogo);
    logo->addWidget(lblLogo, 1);

    StatusBar1 = new QStatusBar(this);
    StatusBar1->setObjectName(u"StatusBar1"_s);
    StatusBar1->setSizeGripEnabled(false);

    auto* sprachen = new QGridLayout;
    sprachen->addWidget(lblVon, 0, 0);
    sprachen->addWidget(cboVon, 0, 1);
    sprachen->addWidget(lblNach, 0, 2);
    sprachen->addWidget(cboNach, 0, 3);
    sprachen->setColumnStretch(1, 1);
    sprachen->setColumnStretch(3, 1);

    auto* knopfreihe = new QHBoxLayout;
    knopfreihe->addWidget(cmdOK);
    for (QPushButton* b : cmdButton)
        knopfreihe->addWidget(b);

    // A margin of 100 twips all round; the two boxes share every height the window gains.
    auto* aussen = new QVBoxLayout(this);
    aussen->setContentsMargins(Px(100), Px(100), Px(100), 0);
    aussen->setSpacing(Px(100));
    aussen->addWidget(fraLogo);
    aussen->addLayout(sprachen);
    aussen->addWidget(txtQuelle, 1);
    aussen->addWidget(txtZiel, 1);
    aussen->addLayout(knopfreihe);
    aussen->addWidget(StatusBar1);
}

void frmTranslation::Form_Load()
{
    QRect platz(Px(100), Px(100), Px(9000), Px(7000));
    if (const auto v = Zahl(Lesen(u"TranslationFromLeft"_s, u"100"_s)))
        platz.moveLeft(Px(*v));
    if (const auto v = Zahl(Lesen(u"TranslationFromTop"_s, u"100"_s)))
        platz.moveTop(Px(*v));
    if (const auto v = Zahl(Lesen(u"TranslationFromWidth"_s, u"9000"_s)); v && *v > 0)
        platz.setWidth(Px(*v));
    if (const auto v = Zahl(Lesen(u"TranslationFromHeight"_s, u"7000"_s)); v && *v > 0)
        platz.setHeight(Px(*v));
    move(platz.topLeft());
    resize(platz.size());
    const auto zustand = Zahl(Lesen(u"TranslationWindowState"_s, u"0"_s));
    if (zustand == 2.0)
        setWindowState(Qt::WindowMaximized);
    else if (zustand == 1.0)
        setWindowState(Qt::WindowMinimized);

    QFont schrift = txtQuelle->font();
    schrift.setFamily(Lesen(u"FontName"_s, u"Segoe UI"_s));
    if (const auto v = Zahl(Lesen(u"FontSize"_s, u"10"_s)); v && *v > 0 && *v < 200)
        schrift.setPointSizeF(*v);
    txtQuelle->setFont(schrift);
    txtZiel->setFont(schrift);

    cboVon->setCurrentText(Lesen(u"VonSprache"_s, VoreinstellungVon));
    cboNach->setCurrentText(Lesen(u"NachSprache"_s, VoreinstellungNach));
    txtQuelle->setFocus();
}

void frmTranslation::Anzeigen() { exec(); }

void frmTranslation::done(int ergebnis)
{
    Form_Unload();
    VerlaufFenster::done(ergebnis);
}

void frmTranslation::Form_Unload()
{
    const Qt::WindowStates zustand = windowState();
    if (zustand & Qt::WindowMinimized) {
        Speichern(u"TranslationWindowState"_s, u"1"_s);
    } else if (zustand & (Qt::WindowMaximized | Qt::WindowFullScreen)) {
        Speichern(u"TranslationWindowState"_s, u"2"_s);
    } else {
        Speichern(u"TranslationWindowState"_s, u"0"_s);
        Speichern(u"TranslationFromLeft"_s, QString::number(Twips(x())));
        Speichern(u"TranslationFromTop"_s, QString::number(Twips(y())));
        Speichern(u"TranslationFromWidth"_s, QString::number(Twips(width())));
        Speichern(u"TranslationFromHeight"_s, QString::number(Twips(height())));
    }
    Speichern(u"VonSprache"_s, cboVon->currentText());
    Speichern(u"NachSprache"_s, cboNach->currentText());
}

QString frmTranslation::Sprachcode(const QString& eintrag)
{
    const qsizetype strich = eintrag.indexOf(u" - ");
    return (strich < 0 ? eintrag : eintrag.left(strich)).trimmed();
}

bool frmTranslation::Uebersetzen(const QString& text, const QString& von, const QString& nach, QString& ergebnis,
                                 int gebietsschema, int sekunden)
{
    Q_UNUSED(ergebnis);
    Q_UNUSED(gebietsschema);
    Q_UNUSED(sekunden);
    if (text.isEmpty() || von == nach)
        return false;
    // The page wants the language codes in small letters.
    D().shell().oeffnen(Seite + u"?sl="_s + von.toLower() + u"&tl="_s + nach.toLower() + u"&text="_s
                        + QString::fromLatin1(QUrl::toPercentEncoding(text)));
    return false;
}

void frmTranslation::cmdOK_Click()
{
    const QString text = txtQuelle->toPlainText();
    const QString von = Sprachcode(cboVon->currentText());
    const QString nach = Sprachcode(cboNach->currentText());
    QString ergebnis;
    if (Uebersetzen(text, von, nach, ergebnis, 0, 3))
        txtZiel->setPlainText(ergebnis);
    else if (!text.isEmpty() && von != nach)
        StatusBar1->showMessage(u"Die Übersetzung steht im Browser."_s);
}

void frmTranslation::cmdButton_Click(int index)
{
    switch (index) {
    case 0:
        txtQuelle->clear();
        txtZiel->clear();
        break;
    case 1:
        Vorlesen();
        break;
    case 2:
        Sprecherstimme();
        break;
    case 3:
        reject();
        break;
    default:
        break;
    }
}

void frmTranslation::Sprecherstimme()
{
    Sprachausgabe& sprache = D().sprachausgabe();
    QString stimme = Lesen(u"SprecherStimme"_s);
    if (stimme.startsWith(u"Name="))
        stimme = stimme.mid(5);
    // Where no voice is stored the system's own named one; here the engine's first voice
    // stands in for it, since the voices differ from one installation to the next.
    if (stimme.isEmpty())
        stimme = sprache.stimmen().value(0);
    const QString name = InputNimb(
        u"Name der Sprecherstimme eingeben.\n\n(siehe Spracheigenschaften in der Systemsteuerung)"_s,
        u"Sprecherstimme"_s, stimme);
    if (name.isEmpty())
        return;
    const QString tempo = InputNimb(u"Sprechgeschwindigkeit eingeben.\n\n(-10 bis 10, default = 0)"_s, u"Tempo"_s,
                                    Lesen(u"SprecherTempo"_s, u"0"_s));
    if (tempo.isEmpty())
        return;
    Speichern(u"SprecherStimme"_s, u"Name="_s + name.trimmed());
    Speichern(u"SprecherTempo"_s, QString::number(GanzeZahl(tempo.trimmed())));
}

void frmTranslation::Vorlesen()
{
    Sprachausgabe& sprache = D().sprachausgabe();
    if (!sprache.verfuegbar()) {
        MsgNimb(u"Vorlesen ist nicht möglich: Auf diesem Rechner ist keine Sprachausgabe eingerichtet "
                u"oder kein Lautsprecher angeschlossen.\n\nInstallieren Sie die Pakete speech-dispatcher, "
                u"espeak-ng, speech-dispatcher-espeak-ng und qt6-speech-speechd-plugin."_s,
                3, 0, u"Sprachausgabe"_s, 0, Farbe::WarnHintergrund, Farbe::StandardText);
        return;
    }
    if (Lesen(u"SprecherStimme"_s).isEmpty())
        Sprecherstimme();
    QString stimme = Lesen(u"SprecherStimme"_s);
    if (stimme.isEmpty())
        return;
    QPlainTextEdit* feld = m_vorlesefeld == txtZiel ? txtZiel : txtQuelle;
    const QString text = feld->textCursor().selection().toPlainText();
    if (text.isEmpty()) {
        MsgNimb(u"Markieren Sie zuerst den Vorlesetext!"_s, 1, 0, u"Text markieren"_s, 0);
        return;
    }
    if (stimme.startsWith(u"Name="))
        stimme = stimme.mid(5);
    // The speed is kept from -10 to 10; the engine takes -1 to 1.
    const double tempo = qBound(-10, GanzeZahl(Lesen(u"SprecherTempo"_s, u"0"_s)), 10) / 10.0;
    Mauszeiger(ZeigerSanduhr);
    sprache.sprechen(text, stimme, tempo);
    Mauszeiger(ZeigerStandard);
}

bool frmTranslation::eventFilter(QObject* objekt, QEvent* ereignis)
{
    const QEvent::Type art = ereignis->type();
    if (art == QEvent::MouseButtonPress || art == QEvent::FocusIn) {
        for (QPlainTextEdit* kasten : {txtQuelle, txtZiel})
            if (objekt == kasten || objekt == kasten->viewport())
                m_vorlesefeld = kasten;
    }
    return VerlaufFenster::eventFilter(objekt, ereignis);
}
