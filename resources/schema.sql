-- The empty catalogue. The build turns this script into Archiv_leer.db; the program
-- itself never creates a table, new catalogues are copies of that file.
--
-- The text columns are declared NOCASE so that any SQLite program can read and sort
-- the file. Rillenkammer replaces NOCASE on its own connections with a caseless German
-- collation ("Ärzte" among the A), which is why the table carries no index: an index
-- ordered by one collation would look damaged to a program using the other.
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

-- One row, so that a fresh catalogue has a record to show and to edit: a table
-- keeps at least one row, the delete command refuses the last.
INSERT INTO Schallplatten (Band, LPTitel, Medium, Stil, Info, Plattenfirma, BestellNr, Preis,
    Datum, Songs, BildPfad, Musikpfad, SongText, eBook, Bewertung, InternetTab, InfoTab, SonstigesTab)
VALUES (' ', ' ', ' ', ' ', ' ', ' ', ' ', ' ', ' ', ' ', ' ', ' ', ' ', '', '', ' ', ' ', ' ');
