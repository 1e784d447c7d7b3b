-- The empty catalogue. The build turns this script into Archiv_leer.db; the program
-- itself never creates a table, new catalogues are copies of that file.
--
-- The text columns are declared NOCASE, SQLite's own, so that any SQLite program can read,
-- sort and index the file. Rillenkammer sorts and compares by a caseless German collation
-- ("Ärzte" among the A) of its own name that it names in its statements; it never
-- replaces NOCASE, so an index made by any program stays in order.
PRAGMA page_size = 4096;
PRAGMA journal_mode = DELETE;

CREATE TABLE Schallplatten (
    Band          TEXT COLLATE NOCASE,
    LPTitel       TEXT COLLATE NOCASE,
    Medium        TEXT COLLATE NOCASE,
    Stil          TEXT COLLATE NOCASE,
    Info          TEXT COLLATE NOCASE,
    Plattenfirma  TEXT COLLATE NOCASE,
    BestellNr     TEXT COLLATE NOCASE,
    Preis         TEXT COLLATE NOCASE,
    Datum         TEXT COLLATE NOCASE,
    Songs         TEXT COLLATE NOCASE,
    BildPfad      TEXT COLLATE NOCASE,
    Musikpfad     TEXT COLLATE NOCASE,
    SongText      TEXT COLLATE NOCASE,
    eBook         TEXT COLLATE NOCASE,
    Bewertung     TEXT COLLATE NOCASE,
    InternetTab   TEXT COLLATE NOCASE,
    InfoTab       TEXT COLLATE NOCASE,
    SonstigesTab  TEXT COLLATE NOCASE,
    Bilder        BLOB
);

-- Band and title in the columns' own order, with the rating: the default order, the
-- letters and the rating filter read this small index instead of the whole table.
CREATE INDEX Schallplatten_Band_LPTitel ON Schallplatten (Band, LPTitel, Bewertung);

-- One row, so that a fresh catalogue has a record to show and to edit: a table
-- keeps at least one row, the delete command refuses the last.
INSERT INTO Schallplatten (Band, LPTitel, Medium, Stil, Info, Plattenfirma, BestellNr, Preis,
    Datum, Songs, BildPfad, Musikpfad, SongText, eBook, Bewertung, InternetTab, InfoTab, SonstigesTab)
VALUES (' ', ' ', ' ', ' ', ' ', ' ', ' ', ' ', ' ', ' ', ' ', ' ', ' ', '', '', ' ', ' ', ' ');
