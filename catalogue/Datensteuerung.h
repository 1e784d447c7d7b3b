#pragma once
// Data1, the one data control of the main window: a database name, a record source (an
// SQL text or a table name) and the current recordset, with the four navigation buttons
// and its caption.
#include "catalogue/Recordset.h"

#include <QWidget>

#include <memory>

class Datenbank;
class QLabel;
class QToolButton;

class Datensteuerung : public QWidget {
    Q_OBJECT
public:
    explicit Datensteuerung(QWidget* eltern = nullptr);
    // Writes a pending edit (without Validate), then closes.
    ~Datensteuerung() override;

    QString DatabaseName() const { return m_databaseName; }
    void setDatabaseName(const QString& pfad);
    QString RecordSource() const { return m_recordSource; }
    void setRecordSource(const QString& quelle);
    QString Caption() const;
    void setCaption(const QString& text);

    // Writes a pending edit, then opens the database if its name changed and runs the
    // record source anew; the first record is then current. An empty name closes the
    // database; an empty source leaves no recordset. Throws Laufzeitfehler: when the
    // pending edit cannot be written nothing else happens (the edit stays pending);
    // any later failure leaves the control without recordset.
    void Refresh();
    // Closes the database so that the file can be copied over. Writes a pending edit
    // first; when that fails it throws and the database stays open.
    void schliessen();

    // The current recordset, or nullptr.
    Recordset* recordset() const { return m_recordset.get(); }
    Datenbank* database() const { return m_db.get(); }

    // Moves as the four buttons do; a pending edit is written first. Previous on the
    // first record and next on the last stay where they are.
    void ersterDatensatz();
    void vorherigerDatensatz();
    void naechsterDatensatz();
    void letzterDatensatz();
    // Sets the position and tells the bound controls (Validate before, Reposition after),
    // also when the position is the current one. Out of range: nothing happens.
    void setAbsolutePosition(int position);

signals:
    // Before the current record is left or written: bound controls put their edits into
    // the recordset now.
    void Validate();
    // The current record changed (or there is none any more).
    void Reposition();
    // A new recordset stands (or none): the table must be rebuilt.
    void neuAufgebaut();
    // A row of the recordset was written, appended or removed.
    void zeileGeaendert(int zeile);
    void zeileAngehaengt(int zeile);
    void zeileEntfernt(int zeile);

private:
    void ausstehendSchreiben();
    void ohneRecordset();
    void knopf(QToolButton* k, void (Datensteuerung::*schritt)());

    QString m_databaseName;
    QString m_recordSource;
    QString m_quelle; // the source the recordset was read from
    std::unique_ptr<Datenbank> m_db;
    std::unique_ptr<Recordset> m_recordset;
    QLabel* m_caption = nullptr;
};
