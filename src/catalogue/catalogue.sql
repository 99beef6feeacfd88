-- The Shelvane catalogue: tables, stored queries and the rows every usable catalogue holds.
-- Run once, inside one transaction, on an empty file by shelvane-catalog. The program itself
-- never creates tables or views; it only reads and writes rows.
--
-- Conventions: text compares and sorts without regard to case (COLLATE NOCASE); keys are
-- never reused (AUTOINCREMENT); money is kept rounded to 4 decimal places by triggers, as a
-- fixed-point currency column would be; yes/no columns hold 1 and 0.
-- Statements are separated by a line holding only ";;" so that trigger bodies may use ";".

CREATE TABLE tblPublisher (
    PublisherID    INTEGER PRIMARY KEY AUTOINCREMENT,
    PublisherName  TEXT COLLATE NOCASE,
    PublisherPlace TEXT COLLATE NOCASE,
    PublisherNotes TEXT COLLATE NOCASE
)
;;
CREATE TABLE tblBook (
    BookID            INTEGER PRIMARY KEY AUTOINCREMENT,
    BookDescription   TEXT COLLATE NOCASE,
    BookPagesText     INTEGER,
    BookPagesInto     TEXT COLLATE NOCASE,
    BookCondition     TEXT COLLATE NOCASE,
    BookCover         TEXT COLLATE NOCASE,
    -- No cascade: a publisher still named by a book cannot be deleted.
    BookPublisherId   INTEGER REFERENCES tblPublisher (PublisherID),
    BookPrice         REAL NOT NULL DEFAULT 0,
    BookSellPrice     REAL DEFAULT 0,
    BookWhenPublished INTEGER DEFAULT 0,
    BookWhenPurchased INTEGER,
    BookWhenSold      INTEGER,
    BookIllustrated   INTEGER NOT NULL DEFAULT 0,
    BookIllustrations INTEGER,
    BookPlans         INTEGER,
    BookMaps          INTEGER,
    Book1stEd         INTEGER NOT NULL DEFAULT 0,
    BookBibliography  INTEGER NOT NULL DEFAULT 0,
    BookNotes         TEXT COLLATE NOCASE
)
;;
CREATE INDEX idxBookPublisher ON tblBook (BookPublisherId)
;;
CREATE INDEX idxBookDescription ON tblBook (BookDescription)
;;
CREATE TABLE tblAuthor (
    AuthorID          INTEGER PRIMARY KEY AUTOINCREMENT,
    AuthorFirstName   TEXT COLLATE NOCASE,
    AuthorSurname     TEXT COLLATE NOCASE,
    AuthorNationality TEXT COLLATE NOCASE,
    AuthorNotes       TEXT COLLATE NOCASE
)
;;
CREATE INDEX idxAuthorSurname ON tblAuthor (AuthorSurname, AuthorFirstName)
;;
CREATE TABLE tblTopic (
    TopicID          INTEGER PRIMARY KEY AUTOINCREMENT,
    TopicDescription TEXT COLLATE NOCASE,
    TopicNotes       TEXT COLLATE NOCASE
)
;;
CREATE INDEX idxTopicDescription ON tblTopic (TopicDescription)
;;
-- The unique key over each pair turns a second link of the same book and author (or topic)
-- into a duplicate-key error; deleting a book, author or topic takes its links with it.
CREATE TABLE tblBookAuthor (
    BookID   INTEGER NOT NULL REFERENCES tblBook (BookID) ON DELETE CASCADE,
    AuthorID INTEGER NOT NULL REFERENCES tblAuthor (AuthorID) ON DELETE CASCADE,
    CONSTRAINT uqBookAuthor UNIQUE (BookID, AuthorID)
)
;;
CREATE INDEX idxBookAuthorAuthor ON tblBookAuthor (AuthorID)
;;
CREATE TABLE tblBookTopic (
    BookID  INTEGER NOT NULL REFERENCES tblBook (BookID) ON DELETE CASCADE,
    TopicID INTEGER NOT NULL REFERENCES tblTopic (TopicID) ON DELETE CASCADE,
    CONSTRAINT uqBookTopic UNIQUE (BookID, TopicID)
)
;;
CREATE INDEX idxBookTopicTopic ON tblBookTopic (TopicID)
;;
CREATE TABLE tblCriteriaHits (
    BookID INTEGER
)
;;
-- Read by position by the reports: the column order is part of the file format.
CREATE TABLE tblCatalogueControl (
    CatalogueName TEXT COLLATE NOCASE NOT NULL DEFAULT '',
    Firstname     TEXT COLLATE NOCASE NOT NULL DEFAULT '',
    Surname       TEXT COLLATE NOCASE NOT NULL DEFAULT '',
    Addr1         TEXT COLLATE NOCASE NOT NULL DEFAULT '',
    Addr2         TEXT COLLATE NOCASE NOT NULL DEFAULT '',
    Addr3         TEXT COLLATE NOCASE NOT NULL DEFAULT '',
    Addr4         TEXT COLLATE NOCASE NOT NULL DEFAULT '',
    Addr5         TEXT COLLATE NOCASE NOT NULL DEFAULT '',
    PostCode      TEXT COLLATE NOCASE NOT NULL DEFAULT '',
    TelNo1        TEXT COLLATE NOCASE NOT NULL DEFAULT '',
    TelNo2        TEXT COLLATE NOCASE NOT NULL DEFAULT '',
    FaxNo         TEXT COLLATE NOCASE NOT NULL DEFAULT '',
    Email         TEXT COLLATE NOCASE NOT NULL DEFAULT ''
)
;;
-- Four labels to a row, filled by INSERT statements that name no columns: the physical
-- column order is the order in which the label run writes each label's thirteen values.
CREATE TABLE tblLabelTable (
    BookId1 INTEGER, BookDescription1 TEXT COLLATE NOCASE, BookNotes1 TEXT COLLATE NOCASE,
    BookPrice1 REAL, BookPagesText1 INTEGER, BookBibliography1 INTEGER, Book1stEd1 INTEGER,
    TopicDescription1 TEXT COLLATE NOCASE, AuthorFirstName1 TEXT COLLATE NOCASE,
    AuthorSurname1 TEXT COLLATE NOCASE, PublisherName1 TEXT COLLATE NOCASE,
    PublisherPlace1 TEXT COLLATE NOCASE, BookWhenPublished1 INTEGER,
    BookId2 INTEGER, BookDescription2 TEXT COLLATE NOCASE, BookNotes2 TEXT COLLATE NOCASE,
    BookPrice2 REAL, BookPagesText2 INTEGER, BookBibliography2 INTEGER, Book1stEd2 INTEGER,
    TopicDescription2 TEXT COLLATE NOCASE, AuthorFirstName2 TEXT COLLATE NOCASE,
    AuthorSurname2 TEXT COLLATE NOCASE, PublisherName2 TEXT COLLATE NOCASE,
    PublisherPlace2 TEXT COLLATE NOCASE, BookWhenPublished2 INTEGER,
    BookId3 INTEGER, BookDescription3 TEXT COLLATE NOCASE, BookNotes3 TEXT COLLATE NOCASE,
    BookPrice3 REAL, BookPagesText3 INTEGER, BookBibliography3 INTEGER, Book1stEd3 INTEGER,
    TopicDescription3 TEXT COLLATE NOCASE, AuthorFirstName3 TEXT COLLATE NOCASE,
    AuthorSurname3 TEXT COLLATE NOCASE, PublisherName3 TEXT COLLATE NOCASE,
    PublisherPlace3 TEXT COLLATE NOCASE, BookWhenPublished3 INTEGER,
    BookId4 INTEGER, BookDescription4 TEXT COLLATE NOCASE, BookNotes4 TEXT COLLATE NOCASE,
    BookPrice4 REAL, BookPagesText4 INTEGER, BookBibliography4 INTEGER, Book1stEd4 INTEGER,
    TopicDescription4 TEXT COLLATE NOCASE, AuthorFirstName4 TEXT COLLATE NOCASE,
    AuthorSurname4 TEXT COLLATE NOCASE, PublisherName4 TEXT COLLATE NOCASE,
    PublisherPlace4 TEXT COLLATE NOCASE, BookWhenPublished4 INTEGER
)
;;
-- Money is a fixed-point value of four decimals. Recursive triggers are off, so the
-- rounding UPDATE does not fire these triggers again.
CREATE TRIGGER trgBookMoneyInsert AFTER INSERT ON tblBook
WHEN NEW.BookPrice <> round(NEW.BookPrice, 4)
  OR NEW.BookSellPrice <> round(NEW.BookSellPrice, 4)
BEGIN
    UPDATE tblBook SET BookPrice = round(BookPrice, 4), BookSellPrice = round(BookSellPrice, 4)
    WHERE BookID = NEW.BookID;
END
;;
CREATE TRIGGER trgBookMoneyUpdate AFTER UPDATE OF BookPrice, BookSellPrice ON tblBook
WHEN NEW.BookPrice <> round(NEW.BookPrice, 4)
  OR NEW.BookSellPrice <> round(NEW.BookSellPrice, 4)
BEGIN
    UPDATE tblBook SET BookPrice = round(BookPrice, 4), BookSellPrice = round(BookSellPrice, 4)
    WHERE BookID = NEW.BookID;
END
;;
CREATE TRIGGER trgLabelMoneyInsert AFTER INSERT ON tblLabelTable
BEGIN
    UPDATE tblLabelTable SET BookPrice1 = round(BookPrice1, 4), BookPrice2 = round(BookPrice2, 4),
        BookPrice3 = round(BookPrice3, 4), BookPrice4 = round(BookPrice4, 4)
    WHERE rowid = NEW.rowid;
END
;;
-- The printed lines of a book's entry in the listings. Each optional part is NULL when it
-- has nothing to say, is prefixed with its separator, and the leading separator is cut off,
-- so an entry never shows "null" or a dangling comma.
CREATE VIEW qryBookDets AS
SELECT b.BookID AS BookID,
       b.BookDescription AS BookDets1,
       substr(
           ifnull('; ' || (SELECT group_concat(AuthorName, ', ')
                           FROM (SELECT ltrim(ifnull(a.AuthorFirstName, '') || ' ' ||
                                              ifnull(a.AuthorSurname, '')) AS AuthorName
                                 FROM tblBookAuthor ba JOIN tblAuthor a ON a.AuthorID = ba.AuthorID
                                 WHERE ba.BookID = b.BookID
                                 ORDER BY a.AuthorSurname, a.AuthorFirstName)), '') ||
           ifnull('; ' || nullif(trim(
               ifnull(CASE WHEN p.PublisherName = 'UnKnown' THEN NULL ELSE nullif(trim(p.PublisherName), '') END, '') ||
               ifnull(CASE WHEN nullif(trim(p.PublisherName), '') IS NOT NULL AND p.PublisherName <> 'UnKnown'
                            AND nullif(trim(p.PublisherPlace), '') IS NOT NULL THEN ', ' END, '') ||
               ifnull(nullif(trim(p.PublisherPlace), ''), '')), ''), '') ||
           ifnull('; ' || CASE WHEN b.BookWhenPublished > 0 THEN CAST(b.BookWhenPublished AS TEXT) END, ''),
           3) AS BookDets2,
       substr(
           ifnull('; ' || 'Condition: ' || nullif(trim(b.BookCondition), ''), '') ||
           ifnull('; ' || nullif(trim(b.BookCover), ''), '') ||
           ifnull('; ' || CASE WHEN b.BookPagesText > 0 THEN b.BookPagesText || CASE WHEN b.BookPagesText = 1 THEN ' page' ELSE ' pages' END END, '') ||
           ifnull('; ' || CASE WHEN b.BookIllustrated <> 0 OR b.BookIllustrations > 0 THEN 'illustrated' ||
                  ifnull(' (' || CASE WHEN b.BookIllustrations > 0 THEN b.BookIllustrations END || ')', '') END, '') ||
           ifnull('; ' || CASE WHEN b.BookMaps > 0 THEN b.BookMaps || CASE WHEN b.BookMaps = 1 THEN ' map' ELSE ' maps' END END, '') ||
           ifnull('; ' || CASE WHEN b.BookPlans > 0 THEN b.BookPlans || CASE WHEN b.BookPlans = 1 THEN ' plan' ELSE ' plans' END END, '') ||
           ifnull('; ' || CASE WHEN b.Book1stEd <> 0 THEN 'first edition' END, '') ||
           ifnull('; ' || CASE WHEN b.BookBibliography <> 0 THEN 'bibliography' END, '') ||
           ifnull('; ' || CASE WHEN length(trim(b.BookNotes)) > 100
                               THEN rtrim(substr(trim(replace(replace(b.BookNotes, char(13), ' '), char(10), ' ')), 1, 97)) || '...'
                               ELSE nullif(trim(replace(replace(b.BookNotes, char(13), ' '), char(10), ' ')), '') END, ''),
           3) AS BookDets3,
       b.BookPrice AS BookPrice
FROM tblBook b LEFT JOIN tblPublisher p ON p.PublisherID = b.BookPublisherId
;;
CREATE VIEW qryReport01 AS
SELECT d.BookDets1 AS BookDets1, d.BookDets2 AS BookDets2, d.BookDets3 AS BookDets3,
       d.BookPrice AS BookPrice, d.BookID AS Expr1
FROM qryBookDets d
ORDER BY d.BookDets1, d.BookID
;;
-- One entry under each of a book's authors; books without an author come last.
-- ListedAuthor names the author an entry stands under ("Surname, First name"), for the
-- listing's running head.
CREATE VIEW qryReport02 AS
SELECT d.BookDets1 AS BookDets1, d.BookDets2 AS BookDets2, d.BookDets3 AS BookDets3,
       d.BookPrice AS BookPrice, d.BookID AS Expr1,
       CASE WHEN a.AuthorID IS NOT NULL
            THEN trim(ifnull(a.AuthorSurname, '')) ||
                 ifnull(', ' || nullif(trim(a.AuthorFirstName), ''), '') END AS ListedAuthor
FROM qryBookDets d
     LEFT JOIN tblBookAuthor ba ON ba.BookID = d.BookID
     LEFT JOIN tblAuthor a ON a.AuthorID = ba.AuthorID
ORDER BY a.AuthorID IS NULL, a.AuthorSurname, a.AuthorFirstName, a.AuthorID, d.BookDets1, d.BookID
;;
-- The topic listing prints each topic's books in the order of this view: by title.
CREATE VIEW qryTopicDescForRep3 AS
SELECT t.TopicDescription AS TopicDescription, bt.BookID AS BookID
FROM tblTopic t JOIN tblBookTopic bt ON bt.TopicID = t.TopicID
     JOIN tblBook b ON b.BookID = bt.BookID
ORDER BY t.TopicDescription, t.TopicID, b.BookDescription, bt.BookID
;;
CREATE VIEW qryReport03 AS
SELECT d.BookID AS BookID, d.BookDets1 AS BookDets1, d.BookDets2 AS BookDets2,
       d.BookDets3 AS BookDets3, d.BookPrice AS BookPrice, d.BookID AS Expr1
FROM qryBookDets d
ORDER BY d.BookDets1, d.BookID
;;
-- One label per book, author and topic: a book with two authors gives two labels.
CREATE VIEW qryBookLabel01 AS
SELECT b.BookID AS BookID, b.BookDescription AS BookDescription, b.BookNotes AS BookNotes,
       a.AuthorFirstName AS AuthorFirstName, a.AuthorSurname AS AuthorSurname,
       p.PublisherName AS PublisherName, p.PublisherPlace AS PublisherPlace,
       b.BookWhenPublished AS BookWhenPublished, b.Book1stEd AS Book1stEd,
       b.BookBibliography AS BookBibliography, b.BookPagesText AS BookPagesText,
       b.BookPrice AS BookPrice, t.TopicDescription AS TopicDescription
FROM tblBook b
     LEFT JOIN tblBookAuthor ba ON ba.BookID = b.BookID
     LEFT JOIN tblAuthor a ON a.AuthorID = ba.AuthorID
     LEFT JOIN tblBookTopic bt ON bt.BookID = b.BookID
     LEFT JOIN tblTopic t ON t.TopicID = bt.TopicID
     LEFT JOIN tblPublisher p ON p.PublisherID = b.BookPublisherId
ORDER BY b.BookID, a.AuthorSurname, a.AuthorFirstName, t.TopicDescription
;;
CREATE VIEW qryBookLabels AS
SELECT * FROM tblLabelTable
;;
-- The rows every usable catalogue holds: the forms navigate bound record sets and expect
-- at least one row in each main table, and the owner's details as empty texts, never NULL.
INSERT INTO tblPublisher (PublisherName, PublisherPlace, PublisherNotes)
VALUES ('UnKnown', '', 'Stands for any publisher not known.')
;;
INSERT INTO tblAuthor (AuthorFirstName, AuthorSurname, AuthorNationality, AuthorNotes)
VALUES ('', 'UnKnown', '', 'Stands for any author not known.')
;;
INSERT INTO tblTopic (TopicDescription, TopicNotes)
VALUES ('General', '')
;;
INSERT INTO tblBook (BookDescription, BookPagesText, BookPagesInto, BookCondition, BookCover,
                     BookPublisherId, BookPrice, BookSellPrice, BookWhenPublished)
VALUES ('My first book', 1, '', 'Good', 'Hard Back no DW', 1, 0, 0, 0)
;;
INSERT INTO tblCatalogueControl (CatalogueName) VALUES ('My Book Catalogue')
