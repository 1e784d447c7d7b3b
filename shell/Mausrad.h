#pragma once
// The mouse wheel of the main window's controls: one step per wheel notch, by the kind
// of control, while the main window is active. Lists and grids move their top entry,
// text fields their caret by 50 characters, sliders their value by one.
#include <QObject>
#include <QPointer>
#include <QWidget>

#include <vector>

class Mausrad : public QObject {
    Q_OBJECT
public:
    static Mausrad& instanz();

    // Hooks the named controls of the window (at most 50); unhooks the earlier ones.
    void MausradEin(QWidget* fenster);
    // Restores every hooked control.
    void MausradAus();
    int AnzahlEingehakt() const;

    // The kind of a control as the wheel sees it: "listbox", "combobox", "slider",
    // "scrollbar", "flexgrid", "textbox", "richtext" or empty.
    static QString Klasse(const QWidget* w);
    // One step up (true) or down on a control of the given kind.
    static void Schritt(QWidget* w, const QString& klasse, bool hoch);

protected:
    bool eventFilter(QObject* objekt, QEvent* ereignis) override;

private:
    struct Platz {
        QPointer<QWidget> steuerelement;
        QString klasse;
    };
    std::vector<Platz> m_plaetze;
    int m_rest = 0; // wheel delta not yet used up by a step
};
