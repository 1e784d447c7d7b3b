#pragma once
// The small controls the windows are built from, with the properties and events the
// procedures of the system talk to: a file list, a picture that can be clicked, a
// one-line field that swallows chosen keys, and a status bar of numbered panels.
#include <QLabel>
#include <QLineEdit>
#include <QListWidget>
#include <QStatusBar>
#include <QStringList>
#include <QToolButton>

#include <functional>
#include <vector>

class QAction;
class QCheckBox;
class QPushButton;

// A command button of a dialog: named, with an optional tool tip, and not a default
// button by itself (the dialog says which one is).
QPushButton* Befehlsknopf(QWidget* eltern, const QString& name, const QString& text, const QString& tipp = {});

// The program font of the settings (ProgSchriftName, ProgSchriftSize) on the control; the
// others take name and size from what it got, so that a font the system cannot give is
// replaced alike everywhere.
void ProgrammschriftSetzen(QWidget* feld, std::initializer_list<QWidget*> andere = {});

// The one rule for check boxes: the Click handler runs whenever the value really changes,
// by a click or set in code, as the boxes of the system always have. Code that sets a box
// therefore never calls its handler itself. Every box with a handler is wired here.
void KlickVerbinden(QCheckBox* kasten, const QObject* kontext, std::function<void()> handler);

// A menu entry runs its command. The main window's entries stand greyed until their
// command is wired here, so an entry without a command can never be chosen.
void BefehlVerbinden(QAction* eintrag, const QObject* kontext, std::function<void()> befehl);
// The same for a checkable entry whose command wants the new check state.
void BefehlVerbinden(QAction* eintrag, const QObject* kontext, std::function<void(bool)> befehl);

// A file list: the files of one folder matching a pattern, sorted by name without
// regard to case, several selectable at once.
class Dateiliste : public QListWidget {
    Q_OBJECT
public:
    explicit Dateiliste(QWidget* eltern = nullptr);

    QString Path() const { return m_pfad; }
    // Sets the folder and reads it; a missing folder gives an empty list.
    void setPath(const QString& ordner);
    QString Pattern() const { return m_muster; }
    void setPattern(const QString& muster);
    // Reads the folder again.
    void Refresh();

    int ListCount() const { return count(); }
    // Entry i, or an empty text outside the list.
    QString List(int i) const;
    // Index of the current entry, -1 for none.
    int ListIndex() const { return currentRow(); }
    void setListIndex(int i);
    bool Selected(int i) const;
    void setSelected(int i, bool an);

signals:
    void DblClick();

protected:
    void mouseDoubleClickEvent(QMouseEvent* e) override;

private:
    QString m_pfad;
    QString m_muster = QStringLiteral("*.*");
};

// A picture control: shows a pixmap, reports clicks with the button.
class Bildfeld : public QLabel {
    Q_OBJECT
public:
    explicit Bildfeld(QWidget* eltern = nullptr);
    // Scales the picture into the control instead of showing it at its own size.
    void setStretch(bool an);
    bool Stretch() const { return m_stretch; }
    // Scaled pictures keep their proportions (the default) or fill the control.
    void setVerhaeltnisBehalten(bool an);
    void setBild(const QPixmap& bild);
    const QPixmap& Bild() const { return m_bild; }

signals:
    void Click();
    void DblClick();
    void MouseDown(Qt::MouseButton knopf);
    void MouseUp(Qt::MouseButton knopf);

protected:
    void mousePressEvent(QMouseEvent* e) override;
    void mouseReleaseEvent(QMouseEvent* e) override;
    void mouseDoubleClickEvent(QMouseEvent* e) override;
    void resizeEvent(QResizeEvent* e) override;

private:
    void anzeigen();
    QPixmap m_bild;
    bool m_stretch = false;
    bool m_verhaeltnis = true;
};

// A picture button: sinks under the mouse, takes no focus, reports the button that
// was released.
class Bildknopf : public QToolButton {
    Q_OBJECT
public:
    explicit Bildknopf(QWidget* eltern = nullptr);

signals:
    void MouseUp(Qt::MouseButton knopf);

protected:
    void mousePressEvent(QMouseEvent* e) override;
    void mouseReleaseEvent(QMouseEvent* e) override;
};

// A one-line field. Keys in the swallow list do nothing; Enter can be swallowed too.
class Textfeld : public QLineEdit {
    Q_OBJECT
public:
    explicit Textfeld(QWidget* eltern = nullptr);
    QString Text() const { return text(); }
    void setText(const QString& t);
    // Characters that typing must not insert (the apostrophe of the record fields).
    void setGeschluckt(const QString& zeichen) { m_geschluckt = zeichen; }
    void setEnterSchlucken(bool an) { m_enterSchlucken = an; }

signals:
    void GotFocus();
    void LostFocus();

protected:
    void keyPressEvent(QKeyEvent* e) override;
    void focusInEvent(QFocusEvent* e) override;
    void focusOutEvent(QFocusEvent* e) override;

private:
    QString m_geschluckt;
    bool m_enterSchlucken = false;
};

// A status bar with panels counted from 1.
class Statusleiste : public QStatusBar {
    Q_OBJECT
public:
    // Panels of the given widths in pixels; a width of 0 lets the panel stretch.
    Statusleiste(const std::vector<int>& breiten, QWidget* eltern = nullptr);
    int PanelCount() const { return int(m_panels.size()); }
    QLabel* Panel(int nr) const;
    QString PanelText(int nr) const;
    void setPanelText(int nr, const QString& text);
    // 1 inset, 2 raised.
    void setBevel(int nr, int art);

signals:
    void DblClick();
    // A panel's text changed (the player's state is read from panel 2).
    void PanelGeaendert(int nr, const QString& text);

protected:
    void mouseDoubleClickEvent(QMouseEvent* e) override;

private:
    std::vector<QLabel*> m_panels;
};
