#pragma once
// The one print surface of the system: a page as the printing procedures think of it.
// Lengths are twips (or millimetres), measured from an origin that the caller may move;
// text is printed at a current position that it moves on, a tab goes to the next tab
// column, and lines, boxes and pictures are drawn at given places. It draws on a printer
// (a paper or a PDF file) or on a picture for a screen preview.
#include <QColor>
#include <QFont>
#include <QPageLayout>
#include <QPainter>
#include <QString>

class QImage;
class QPaintDevice;
class QPixmap;
class QPrinter;
class QWidget;

class Druckflaeche {
public:
    enum class Einheit { Twips, Millimeter };

    // Opens the document on the printer; pages and the printable area are the printer's.
    explicit Druckflaeche(QPrinter& drucker);
    // Draws on a picture (a preview), with the given twips for each of its pixels.
    explicit Druckflaeche(QPaintDevice& bild, double twipsProPixel = 15.0);
    // Ends the document when EndDoc was not called.
    ~Druckflaeche();
    Druckflaeche(const Druckflaeche&) = delete;
    Druckflaeche& operator=(const Druckflaeche&) = delete;

    // False when the device could not be opened (no printer, an unwritable PDF file).
    bool aktiv() const { return m_maler.isActive(); }
    // Throws the printer error when the device could not be opened.
    void AktivPruefen() const;

    // The unit of all lengths; a change keeps the current position on the paper.
    void setScaleMode(Einheit einheit);
    Einheit ScaleMode() const { return m_einheit; }
    // The coordinates of the printable area's left and top edge: with ScaleLeft -1300 the
    // point x = 0 lies 1300 twips right of the left edge.
    void setScaleLeft(double wert) { m_links = wert; }
    double ScaleLeft() const { return m_links; }
    void setScaleTop(double wert) { m_oben = wert; }
    double ScaleTop() const { return m_oben; }
    // Width and height of the printable area.
    double ScaleWidth() const;
    double ScaleHeight() const;

    // The current position: where the next text begins (its top left corner). Setting X
    // also sets the column to which a line end returns, so that the lines of a panel keep
    // their left edge.
    double CurrentX() const { return m_x; }
    double CurrentY() const { return m_y; }
    void setCurrentX(double x);
    void setCurrentY(double y) { m_y = y; }

    void setFontName(const QString& name);
    void setFontSize(double punkte);
    void setFontBold(bool an);
    void setFontItalic(bool an);
    const QFont& Font() const { return m_schrift; }
    void setForeColor(const QColor& farbe) { m_vorne = farbe; }
    // Boxes are filled with the fill colour when the fill style is solid, else left empty.
    void setFillColor(const QColor& farbe) { m_fuellfarbe = farbe; }
    void setFillSolid(bool an) { m_fuellen = an; }
    // The distance of the tab columns, counted from the line's left edge; 1440 twips unless set.
    void setTabBreite(double breite) { m_tab = breite; }

    // Prints the text at the current position; tabs go on to the next tab column. With a
    // line end the position goes to the start of the next line, else it stays behind the
    // text. An empty text with a line end is an empty line of the current font.
    void Print(const QString& text = {}, bool zeilenende = true);
    double TextWidth(const QString& text) const;
    // The height of one line of the current font.
    double TextHeight() const;

    void Line(double x1, double y1, double x2, double y2);
    void Box(double x1, double y1, double x2, double y2);
    // The picture with its top left corner at (x, y); a width or height below 0 takes the
    // picture's own size (15 twips a pixel). The current position does not move.
    void PaintPicture(const QImage& bild, double x, double y, double breite = -1,
                      double hoehe = -1);
    void PaintPicture(const QPixmap& bild, double x, double y, double breite = -1,
                      double hoehe = -1);

    // A new sheet; on a picture it is cleared instead. The position goes to the top left.
    void NewPage();
    // Sends the document. Nothing may be drawn afterwards.
    void EndDoc();

private:
    void beginnen();
    // Device units per twip.
    double faktor() const;
    double twips(double laenge) const;
    double laenge(double twips) const;
    QPointF punkt(double x, double y) const;
    void schriftSetzen();

    QPainter m_maler;
    QPaintDevice* m_geraet;
    QPrinter* m_drucker = nullptr;
    double m_twipsProPixel = 15.0;
    Einheit m_einheit = Einheit::Twips;
    double m_links = 0.0;
    double m_oben = 0.0;
    double m_x = 0.0;
    double m_y = 0.0;
    double m_zeilenanfang = 0.0;
    double m_tab = 1440.0;
    QFont m_schrift;
    QColor m_vorne = Qt::black;
    QColor m_fuellfarbe = Qt::white;
    bool m_fuellen = false;
};

// The print dialog on a printer in that orientation; the dialog's cancel error when the
// user cancels or leaves no printer.
void DruckerWaehlen(QPrinter& drucker, QPageLayout::Orientation lage, QWidget* eltern);
