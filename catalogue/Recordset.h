#pragma once
// The recordset of Data1: the rows of its record source in order, a current record with
// an edit buffer, and the values of any row for the table.
//
// A record source of the form "select * from <table> ..." or a bare table name is
// updatable: only the rowids are read at once and the values of rows are fetched when
// they are needed, which keeps a large catalogue fast and small. Any other statement is
// read as a whole and cannot be changed.
#include <QByteArray>
#include <QHash>
#include <QString>
#include <QStringList>
#include <QVariant>

#include <functional>
#include <vector>

class Datenbank;

class Recordset {
public:
    // Runs the record source. Throws Laufzeitfehler when the statement fails.
    Recordset(Datenbank& db, const QString& recordSource);
    ~Recordset();

    bool Updatable() const { return m_tabelle.size() > 0; }
    const QString& Tabelle() const { return m_tabelle; }

    // Columns of the result, in order (for "select *": table order, Bilder included).
    int FieldCount() const { return int(m_spalten.size()); }
    const QStringList& FieldNames() const { return m_spalten; }
    // Index of a column by name, without regard to case; -1 when there is none.
    int FieldIndex(const QString& name) const;

    int RecordCount() const { return int(m_anzahl); }
    // 0-based position of the current record; -1 when there is none or a new record is
    // pending.
    int AbsolutePosition() const;
    // A position out of range changes nothing, silently. Writes a pending edit first.
    void setAbsolutePosition(int position);
    void MoveFirst();
    void MoveLast();
    void MoveNext();
    void MovePrevious();
    bool BOF() const;
    bool EOF_() const;

    // The identity of the current record (its rowid), or -1.
    qint64 Bookmark() const;
    // Moves to the record with that identity; false when it is not in the recordset.
    bool setBookmark(qint64 bookmark);

    // Value of the current record, pending edits included. Null for no record.
    QVariant Value(int spalte) const;
    QVariant Value(const QString& name) const;
    // Changes the current record's value in the edit buffer; it is written by Update()
    // or by the next move. Ignored on a read-only recordset.
    void setValue(const QString& name, const QVariant& wert);
    void setValue(int spalte, const QVariant& wert);
    bool EditPending() const { return !m_puffer.isEmpty() || m_neu; }

    // Starts a new record; the fields read empty until it is written.
    void AddNew();
    // Writes the edit buffer (or the new record). Throws Laufzeitfehler on failure; the
    // buffer is kept then, so nothing typed is lost.
    void Update();
    // Drops the edit buffer and a pending new record.
    void CancelUpdate();
    // Deletes the current record. The position stays, so it points at the next record.
    void Delete();

    // Value of any row for the table (0-based row); fetched in blocks and cached.
    QVariant Wert(int zeile, int spalte) const;
    qint64 RowId(int zeile) const;
    // Position of a rowid in the recordset, or -1.
    int Position(qint64 rowid) const;

    // Called after a row was written (row index), appended (index) or removed (index).
    std::function<void(int)> zeileGeaendert;
    std::function<void(int)> zeileAngehaengt;
    std::function<void(int)> zeileEntfernt;

private:
    void schreiben();
    void blockLaden(int block) const;
    void cacheVergessen(int zeile) const;

    Datenbank& m_db;
    QString m_tabelle; // non-empty when updatable
    QStringList m_spalten;
    qsizetype m_anzahl = 0;
    std::vector<qint64> m_rowids;                       // table mode
    std::vector<std::vector<QVariant>> m_alleWerte;     // read-only mode
    mutable QHash<int, std::vector<std::vector<QVariant>>> m_bloecke; // table mode cache
    mutable std::vector<int> m_blockFolge;              // least recently loaded first
    int m_position = -1;
    bool m_neu = false;
    QHash<int, QVariant> m_puffer; // column to pending value
};
