#pragma once
// The recordset of Data1: the rows of its record source in order, a current record with
// an edit buffer, and the values of any row for the table.
//
// A record source of the form "select * from <table> ..." or a bare table name is
// updatable: only the rowids are read at once and the values of rows are fetched when
// they are needed, which keeps a large catalogue fast and small. Any other statement is
// read as a whole and cannot be changed.
#include "catalogue/Datenbank.h"

#include <QByteArray>
#include <QHash>
#include <QSet>
#include <QString>
#include <QStringList>
#include <QVariant>

#include <functional>
#include <optional>
#include <vector>

class Recordset {
public:
    // Rows fetched together for the table.
    static constexpr int Blockgroesse = 64;
    // Blocks kept; the least recently used goes first.
    static constexpr int Blockvorrat = 16;
    // An order by plain columns is sorted here, on two cores, rather than by SQLite; off
    // only to compare the two.
    static inline bool SelbstSortieren = true;

    // Runs the record source. Throws Laufzeitfehler when the statement fails.
    Recordset(Datenbank& db, const QString& recordSource);
    ~Recordset();
    Recordset(const Recordset&) = delete;
    Recordset& operator=(const Recordset&) = delete;

    bool Updatable() const { return m_tabelle.size() > 0; }
    // The error of an edit that a read-only recordset cannot take.
    static struct Laufzeitfehler NichtAenderbar();
    const QString& Tabelle() const { return m_tabelle; }

    // Columns of the result, in order (for "select *": table order, Bilder included).
    int FieldCount() const { return int(m_spalten.size()); }
    const QStringList& FieldNames() const { return m_spalten; }
    // Index of a column by name, without regard to case; -1 when there is none.
    int FieldIndex(const QString& name) const;
    // True for a picture column of the table (read for one row at a time, never shown).
    bool IstBild(int spalte) const { return gueltigeSpalte(spalte) && m_istBlob[size_t(spalte)]; }

    int RecordCount() const { return int(m_anzahl); }
    // 0-based position of the current record; -1 when there is none or a new record is
    // pending.
    int AbsolutePosition() const;
    // A position out of range changes nothing, silently. Writes a pending edit first.
    void setAbsolutePosition(int position);
    // Each move writes a pending edit first; a move after AddNew starts from the record
    // that was current before it. MoveNext behind the last record gives EOF, MovePrevious
    // before the first BOF.
    void MoveFirst();
    void MoveLast();
    void MoveNext();
    void MovePrevious();
    bool BOF() const;
    bool EOF_() const;

    // The identity of the current record (its rowid), or -1. A read-only recordset has
    // no rowids: its rows are known by their position.
    qint64 Bookmark() const;
    // Moves to the record with that identity; false when it is not in the recordset.
    bool setBookmark(qint64 bookmark);

    // Value of the current record, pending edits included. Null for no record or for a
    // name that is no column.
    QVariant Value(int spalte) const;
    QVariant Value(const QString& name) const;
    // Changes the current record's value in the edit buffer; it is written by Update()
    // or by the next move. Ignored on a read-only recordset, without a current record and
    // for a name that is no column.
    void setValue(const QString& name, const QVariant& wert);
    void setValue(int spalte, const QVariant& wert);
    bool EditPending() const { return !m_puffer.isEmpty() || m_neu; }

    // Starts a new record (a pending edit is written first); the fields read empty until
    // it is written. Throws on a read-only recordset.
    void AddNew();
    // Writes the edit buffer in one statement; a new record is appended at the end and
    // becomes the current one. Throws Laufzeitfehler on failure; the buffer is kept then,
    // so nothing typed is lost. A record deleted meanwhile past the recordset cannot take
    // the edit: error 3167, and the buffer is dropped.
    void Update();
    // Drops the edit buffer and a pending new record.
    void CancelUpdate();
    // Deletes the current record. The position stays, so it points at the next record,
    // or at the last one when the deleted record was the last.
    void Delete();

    // Value of any row for the table (0-based row); fetched in blocks and cached. A
    // picture column is not part of the blocks: it is read for the asked row alone.
    QVariant Wert(int zeile, int spalte) const;
    qint64 RowId(int zeile) const;
    // Position of a rowid in the recordset, or -1.
    int Position(qint64 rowid) const;

    // The rowids of the table's rows that the condition picks (SQL over the table, ?1, ?2
    // ... take the values), so that a search need not read the rows one by one. Nothing
    // for a recordset that cannot be changed, or when the statement fails (a busy file).
    // The same question again on an unchanged file is answered without asking the file.
    std::optional<QSet<qint64>> RowIds(const QString& bedingung, const QVariantList& werte = {}) const;
    // Rows where a cell of the named columns may hold the term, from the table's text
    // index; nothing where the index cannot answer: none yet, a column it does not cover,
    // a term of fewer than three characters.
    std::optional<QSet<qint64>> TextKandidaten(const QString& begriff, const QStringList& spalten) const;
    // True where the table has no ready text index and the file could take one.
    bool TextindexFehlt() const;
    // Builds it; weiter(gelesen, gesamt) may stop it, and the file is then unchanged.
    bool TextindexAnlegen(const std::function<bool(qint64, qint64)>& weiter);
    // The first position from von on whose rowid is in the set; -1 when there is none.
    int ErstePosition(const QSet<qint64>& rowids, int von = 0) const;

    // Brings the recordset to what running its source again would give, where only its
    // own writes have changed the file since it was read: the written rows are put in
    // their places by the source's own order, the first record becomes current. False
    // (and nothing changed) where it cannot tell, so that the caller runs the source anew.
    bool Nachfuehren();

    // Called after a row was written (row index), appended (index) or removed (index).
    std::function<void(int)> zeileGeaendert;
    std::function<void(int)> zeileAngehaengt;
    std::function<void(int)> zeileEntfernt;

private:
    using Zeile = std::vector<QVariant>;
    struct Block {
        int nummer = 0;
        std::vector<Zeile> zeilen;
    };

    bool tabelleOeffnen(const QString& recordSource);
    // What the file's state is, to tell whether anyone but this recordset changed it.
    struct Stand {
        qint64 aenderungen = -1; // rows changed on this connection
        qint64 daten = -1;       // commits of other connections
        qint64 schema = -1;
        qint64 ausfuehrungen = -1;
        bool operator==(const Stand&) const = default;
    };
    Stand standLesen() const;
    struct Sortierterm {
        QString spalte; // quoted for SQL
        bool absteigend = false;
    };
    // The rowids of the table's rows that the condition picks, in the order of the terms
    // and then by rowid; nothing where a value is neither text nor empty, so that SQLite
    // sorts instead.
    std::optional<std::vector<qint64>> sortiertLesen(const QString& tabelle, const QString& where,
                                                     const std::vector<Sortierterm>& terme) const;
    // The place of a rowid in the ordered rowids by the source's order; the statement
    // compares two. -1 when the catalogue cannot be asked.
    static qsizetype einfuegeStelle(const std::vector<qint64>& rowids, sqlite3_stmt* vergleich, qint64 rowid);
    void ganzLesen(const QString& recordSource);
    void schreiben(bool neuerWirdAktuell);
    void schreibenFallsNoetig()
    {
        if (EditPending())
            schreiben(false);
    }
    const Zeile& zeileImCache(int zeile) const;
    void blockLaden(int block) const;
    void cacheLeeren() const;
    bool cacheVeraltet() const;
    QVariant blobLesen(int zeile, int spalte) const;
    bool gueltigeSpalte(int spalte) const { return spalte >= 0 && spalte < m_spalten.size(); }
    bool aktuelleZeile() const { return !m_neu && m_position >= 0 && m_position < m_anzahl; }

    Datenbank& m_db;
    QString m_tabelle; // non-empty when updatable
    QStringList m_spalten;
    std::vector<bool> m_istBlob; // per column: read on demand only
    qsizetype m_anzahl = 0;
    std::vector<qint64> m_rowids;         // table mode
    QString m_where;                      // the source's condition, empty for none
    QString m_orderBy;                    // "order by ..." of the source, empty for none
    Stand m_stand;                        // when read, plus this recordset's own writes
    std::vector<qint64> m_geschrieben;    // rows this recordset changed or added since
    std::vector<Zeile> m_alleWerte;       // read-only mode
    mutable std::vector<Block> m_bloecke; // table mode cache, least recently used first
    mutable Anweisung m_zeilenAbfrage;    // the non-picture values of one row by rowid
    mutable qint64 m_cacheStand = -1;     // changes of the connection when cached
    mutable qint64 m_blobRowid = -1;      // the row whose pictures are kept
    mutable Zeile m_blobWerte;
    // The last answer of RowIds, good while the file is as it was: the start of a playlist's
    // song asks for the Carrier of its folder twice.
    struct Suche {
        QString sql;
        QVariantList werte;
        Stand stand;
        QSet<qint64> treffer;
    };
    mutable std::optional<Suche> m_letzteSuche;
    // The columns the text index covers, empty while it is not ready; asked anew when the
    // schema changes.
    mutable qint64 m_indexSchema = -1;
    mutable QStringList m_indexSpalten;
    const QStringList& textindexSpalten() const;
    int m_position = -1;
    bool m_neu = false;
    QHash<int, QVariant> m_puffer; // column to pending value
};
