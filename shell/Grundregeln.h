#pragma once
// The small rules that every part of the program follows in the same way: letting
// pending events run, waiting on the clock, reading numbers and truth values from texts,
// and the ending of a file name.
#include <QString>

#include <optional>

// Lets the pending events run once, so that one command can run nested inside another
// (a click, a timer tick, Esc setting Abbruch).
void EreignisseZulassen();
// Waits ms milliseconds on the clock of the services, then lets the pending events run.
void Warten(int ms);

// While it lives, Esc in any window of the program sets Abbruch, so that a long walk that
// lets events run can be stopped wherever the focus stands.
class EscAbbruch {
public:
    // eingabeSperren swallows every other key, click and window close meanwhile: for work
    // inside a transaction that nothing the user starts may join.
    explicit EscAbbruch(bool eingabeSperren = false);
    ~EscAbbruch();
    EscAbbruch(const EscAbbruch&) = delete;
    EscAbbruch& operator=(const EscAbbruch&) = delete;

private:
    class QObject* m_filter;
};

// Jet's Val: blanks, tabs and line feeds are dropped everywhere, then the leading number
// is read (sign, digits, point, exponent E or D, or &H/&O); 0 when there is none, so
// "12 Sek." is 12 and "1 2" is 12.
double Val(const QString& text);
// Val cut to a whole number ("3 Songs" and "3.9" are 3); 0 where no int can hold it.
int GanzeZahl(const QString& text);
int GanzeZahl(double wert);
// A text as a number, the whole of it, with a point or a comma; nothing when it is not
// a finite number, so that the caller keeps what it has.
std::optional<double> Zahl(const QString& text);
// A truth value as the settings hold it: "True"/"False", or a number (not 0 is true).
std::optional<bool> Wahrheit(const QString& text);
// A truth value as the settings write it: "True" or "False".
QString WahrheitText(bool wert);

// The value of a hexadecimal digit, -1 for any other character.
inline int HexWert(char16_t c)
{
    if (c >= u'0' && c <= u'9')
        return c - u'0';
    if (c >= u'a' && c <= u'f')
        return c - u'a' + 10;
    if (c >= u'A' && c <= u'F')
        return c - u'A' + 10;
    return -1;
}

// The last four characters of a file name in lower case, as the start command compares
// endings (".mp3", "jpeg", "m2ts").
QString EndungVier(const QString& name);
