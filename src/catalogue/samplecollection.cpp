#include "catalogue/samplecollection.h"

#include "catalogue/cataloguefile.h"
#include "catalogue/cataloguewriter.h"

#include <QHash>
#include <QStringView>

#include <vector>

using namespace Qt::StringLiterals;

namespace SampleCollection {
namespace {

// A private library in a Hertfordshire village; the telephone numbers are in the ranges
// set aside for fiction, the e-mail domain is a reserved example one.
const OwnerDetails owner = {
    u"The Whitcombe Library"_s, u"Eleanor"_s, u"Whitcombe"_s,
    {u"Rosemary Cottage"_s, u"12 Church Lane"_s, u"Little Hadham"_s, u"Ware"_s, u"Hertfordshire"_s},
    u"SG11 2DX"_s, u"01632 960418"_s, u"07700 900523"_s, u"01632 960419"_s,
    u"eleanor.whitcombe@example.com"_s};

const PublisherRow publishers[] = {
    {u"Ashdown & Pryce"_s, u"London"_s, u"Fine bindings; ceased trading in 1938."_s},
    {u"Mercer Brothers"_s, u"Edinburgh"_s, {}},
    {u"The Fenwick Press"_s, u"Oxford"_s, {}},
    {u"Greywell Books"_s, u"Bath"_s, {}},
    {u"Hollins & Marsh"_s, u"Manchester"_s, {}},
    {u"Quayside Publishing"_s, u"Bristol"_s, u"Paperback reprints."_s},
    {u"St Aldate's Press"_s, u"Oxford"_s, {}},
    {u"Lindqvist Förlag"_s, u"Stockholm"_s, {}},
    {u"Éditions du Pont-Neuf"_s, u"Paris"_s, {}},
    {u"Harrow Street Books"_s, u"New York"_s, {}},
    {u"Tarn & Whitby"_s, u"York"_s, {}},
    {u"Kestrel Editions"_s, u"Norwich"_s, u"Illustrated books for children."_s},
    {u"Blackwater Press"_s, u"Dublin"_s, {}},
    {u"Marlow & Finch"_s, u"Cambridge"_s, {}},
    {u"Ravensworth & Co."_s, u"Durham"_s, {}},
    {u"Wexcombe Publishing"_s, u"Salisbury"_s, {}},
    {u"Barrington Hall"_s, u"Toronto"_s, {}},
    {u"Southern Cross Books"_s, u"Sydney"_s, {}},
    {u"Vogelsang Verlag"_s, u"Leipzig"_s, {}},
};

const AuthorRow authors[] = {
    {u"Jane"_s, u"Austen"_s, u"British"_s, {}},
    {u"Charlotte"_s, u"Brontë"_s, u"British"_s, u"Wrote as Currer Bell."_s},
    {u"Emily"_s, u"Brontë"_s, u"British"_s, u"Wrote as Ellis Bell."_s},
    {u"Charles"_s, u"Dickens"_s, u"British"_s, {}},
    {u"Thomas"_s, u"Hardy"_s, u"British"_s, {}},
    {u"George"_s, u"Eliot"_s, u"British"_s, u"Pen name of Mary Ann Evans."_s},
    {u"Arthur Conan"_s, u"Doyle"_s, u"British"_s, {}},
    {u"Robert Louis"_s, u"Stevenson"_s, u"British"_s, {}},
    {u"Lewis"_s, u"Carroll"_s, u"British"_s, u"Pen name of Charles Lutwidge Dodgson."_s},
    {u"H. G."_s, u"Wells"_s, u"British"_s, {}},
    {u"Mark"_s, u"Twain"_s, u"American"_s, {}},
    {u"Herman"_s, u"Melville"_s, u"American"_s, {}},
    {u"Louisa May"_s, u"Alcott"_s, u"American"_s, {}},
    {u"Edgar Allan"_s, u"Poe"_s, u"American"_s, {}},
    {u"Victor"_s, u"Hugo"_s, u"French"_s, {}},
    {u"Alexandre"_s, u"Dumas"_s, u"French"_s, {}},
    {u"Jules"_s, u"Verne"_s, u"French"_s, {}},
    {u"Émile"_s, u"Zola"_s, u"French"_s, {}},
    {u"Leo"_s, u"Tolstoy"_s, u"Russian"_s, {}},
    {u"Fyodor"_s, u"Dostoevsky"_s, u"Russian"_s, {}},
    {u"Henrik"_s, u"Ibsen"_s, u"Norwegian"_s, {}},
    {u"Selma"_s, u"Lagerlöf"_s, u"Swedish"_s, {}},
    {u"Hans Christian"_s, u"Andersen"_s, u"Danish"_s, {}},
    {u"Miguel"_s, u"de Cervantes"_s, u"Spanish"_s, {}},
    {u"Johann Wolfgang"_s, u"von Goethe"_s, u"German"_s, {}},
    {{}, u"Homer"_s, u"Greek"_s, u"Nothing certain is known of his life."_s},
    {u"Johanna"_s, u"Spyri"_s, u"Swiss"_s, {}},
    {u"Henryk"_s, u"Sienkiewicz"_s, u"Polish"_s, {}},
    {u"José Maria"_s, u"Eça de Queirós"_s, u"Portuguese"_s, {}},
    {u"L. M."_s, u"Montgomery"_s, u"Canadian"_s, {}},
    {u"Maurice"_s, u"Maeterlinck"_s, u"Belgian"_s, {}},
    {u"Declan"_s, u"O'Brien"_s, u"British"_s, u"Served twenty years in the Royal Navy before writing."_s},
    {u"Zoë"_s, u"Harcourt"_s, u"British"_s, {}},
    {u"Pieter"_s, u"van Aalst"_s, u"Dutch"_s, {}},
    {u"Lukas"_s, u"Brandstätter"_s, u"Austrian"_s, {}},
    {u"Yael"_s, u"Ben-David"_s, u"Isreali"_s, {}},
    {u"Elif"_s, u"Demirtaş"_s, u"Turkish"_s, {}},
    {u"Bronwyn"_s, u"Kellaway"_s, u"Australian"_s, {}},
    {u"Margaret"_s, u"Fairlie-Ross"_s, {}, {}},
    // On the wish list: no book of his in the library yet.
    {u"Gilbert"_s, u"White"_s, u"British"_s, u"Wanted: The Natural History of Selborne, any early edition."_s},
};

const TopicRow topics[] = {
    {u"Fiction"_s, {}},
    {u"Classics"_s, u"Works in print for more than a century."_s},
    {u"Poetry & Drama"_s, {}},
    {u"Children's Books"_s, {}},
    {u"Travel"_s, {}},
    {u"Natural History"_s, {}},
    {u"Naval History"_s, {}},
    {u"Military History"_s, {}},
    {u"Architecture"_s, {}},
    {u"Art"_s, {}},
    {u"Music"_s, {}},
    {u"Cookery"_s, {}},
    {u"Gardening"_s, {}},
    {u"Philosophy"_s, {}},
    // Kept for books on binding and repair; none bought yet.
    {u"Bookbinding"_s, u"Reference works on binding and repair."_s},
};

// A book of the sample; authors are named "first-name surname" as in the author list.
// Zero counts and years are left empty in the catalogue.
struct SampleBook
{
    QStringView title = {};
    std::vector<QStringView> authors = {};
    std::vector<QStringView> topics = {};
    QStringView publisher = {};
    int published = 0; // 0: not known
    QStringView condition = {};
    QStringView cover = {};
    int pages = 0;
    QStringView intro = {};
    double price = 0;
    int purchased = 0;
    int illustrations = 0;
    int maps = 0;
    int plans = 0;
    bool firstEdition = false;
    bool bibliography = false;
    double sellPrice = 0;
    int sold = 0;
    QStringView notes = {};
};

const SampleBook books[] = {
    {.title = u"Pride and Prejudice", .authors = {u"Jane Austen"}, .topics = {u"Fiction", u"Classics"},
     .publisher = u"Ashdown & Pryce", .published = 1894, .condition = u"Good", .cover = u"Full Calf",
     .pages = 476, .intro = u"xxviii", .price = 385, .purchased = 1998, .illustrations = 160,
     .notes = u"Gilt-decorated, all edges gilt; slight rubbing to the spine."},
    {.title = u"Emma", .authors = {u"Jane Austen"}, .topics = {u"Fiction"}, .publisher = u"Greywell Books",
     .published = 1952, .condition = u"Good", .cover = u"Hard Back & DW", .pages = 412, .price = 12.5,
     .purchased = 2003},
    {.title = u"Persuasion", .authors = {u"Jane Austen"}, .topics = {u"Fiction"},
     .publisher = u"Quayside Publishing", .published = 1987, .condition = u"Excl", .cover = u"Paper Back",
     .pages = 254, .price = 2.99, .purchased = 1988},
    {.title = u"Jane Eyre", .authors = {u"Charlotte Brontë"}, .topics = {u"Fiction", u"Classics"},
     .publisher = u"Ashdown & Pryce", .published = 1847, .condition = u"Fair", .cover = u"Half Calf",
     .pages = 304, .price = 4750, .purchased = 2006, .firstEdition = true,
     .notes = u"Three volumes bound as one; foxing throughout; later half calf."},
    {.title = u"Villette", .authors = {u"Charlotte Brontë"}, .topics = {u"Fiction"},
     .publisher = u"Tarn & Whitby", .published = 1923, .condition = u"Good", .cover = u"Hard Back no DW",
     .pages = 520, .price = 18, .purchased = 1994},
    {.title = u"Wuthering Heights", .authors = {u"Emily Brontë"}, .topics = {u"Fiction", u"Classics"},
     .publisher = u"Tarn & Whitby", .published = 1931, .condition = u"Good", .cover = u"Hard Back & DW",
     .pages = 384, .price = 45, .purchased = 1991, .illustrations = 12},
    {.title = u"A Christmas Carol", .authors = {u"Charles Dickens"}, .topics = {u"Fiction", u"Classics"},
     .publisher = u"Ashdown & Pryce", .published = 1843, .condition = u"Good", .cover = u"Full Calf",
     .pages = 166, .price = 8400, .purchased = 2012, .illustrations = 8, .firstEdition = true,
     .notes = u"Rebound in full calf; the original cloth covers bound in at the end."},
    {.title = u"Great Expectations", .authors = {u"Charles Dickens"}, .topics = {u"Fiction"},
     .publisher = u"Marlow & Finch", .published = 1935, .condition = u"Fair", .cover = u"Hard Back no DW",
     .pages = 544, .price = 9.5, .purchased = 1986},
    {.title = u"The Pickwick Papers", .authors = {u"Charles Dickens"}, .topics = {u"Fiction"},
     .publisher = u"Ashdown & Pryce", .published = 1910, .condition = u"Good", .cover = u"Half Calf",
     .pages = 812, .price = 65, .purchased = 1999, .illustrations = 43},
    {.title = u"Bleak House", .authors = {u"Charles Dickens"}, .topics = {u"Fiction"},
     .publisher = u"Quayside Publishing", .published = 1996, .condition = u"Mint", .cover = u"Paper Back",
     .pages = 1017, .price = 8.99, .purchased = 1996},
    {.title = u"Far from the Madding Crowd", .authors = {u"Thomas Hardy"}, .topics = {u"Fiction", u"Classics"},
     .publisher = u"Mercer Brothers", .published = 1912, .condition = u"Good", .cover = u"Hard Back no DW",
     .pages = 470, .price = 24, .purchased = 2001},
    {.title = u"Tess of the d'Urbervilles", .authors = {u"Thomas Hardy"}, .topics = {u"Fiction"},
     .publisher = u"Mercer Brothers", .published = 1926, .condition = u"Good", .cover = u"Hard Back & DW",
     .pages = 520, .price = 30, .purchased = 2001},
    {.title = u"Middlemarch", .authors = {u"George Eliot"}, .topics = {u"Fiction", u"Classics"},
     .publisher = u"The Fenwick Press", .published = 1948, .condition = u"Excl", .cover = u"Boxed",
     .pages = 880, .price = 75, .purchased = 2009, .bibliography = true},
    {.title = u"The Hound of the Baskervilles", .authors = {u"Arthur Conan Doyle"}, .topics = {u"Fiction"},
     .publisher = u"Greywell Books", .published = 1902, .condition = u"Good", .cover = u"Hard Back no DW",
     .pages = 360, .price = 3200, .purchased = 2015, .illustrations = 16, .firstEdition = true,
     .notes = u"Bookplate on the front pastedown."},
    {.title = u"The Adventures of Sherlock Holmes", .authors = {u"Arthur Conan Doyle"}, .topics = {u"Fiction"},
     .publisher = u"Greywell Books", .published = 1950, .condition = u"Good", .cover = u"Hard Back & DW",
     .pages = 317, .price = 15, .purchased = 1990},
    {.title = u"Treasure Island", .authors = {u"Robert Louis Stevenson"}, .topics = {u"Children's Books", u"Fiction"},
     .publisher = u"Kestrel Editions", .published = 1911, .condition = u"Good", .cover = u"Hard Back no DW",
     .pages = 292, .price = 38, .purchased = 1997, .illustrations = 14, .maps = 1,
     .notes = u"With the folding map of the island."},
    {.title = u"Kidnapped", .authors = {u"Robert Louis Stevenson"}, .topics = {u"Fiction"},
     .publisher = u"Kestrel Editions", .condition = u"Poor", .cover = u"Hard Back no DW", .pages = 310,
     .price = 6, .purchased = 1985, .notes = u"Undated school reprint; name on the flyleaf."},
    {.title = u"Alice's Adventures in Wonderland", .authors = {u"Lewis Carroll"},
     .topics = {u"Children's Books", u"Classics"}, .publisher = u"Marlow & Finch", .published = 1907,
     .condition = u"Excl", .cover = u"Full Calf", .pages = 192, .price = 1250, .purchased = 2010,
     .illustrations = 42},
    {.title = u"Through the Looking-Glass", .authors = {u"Lewis Carroll"}, .topics = {u"Children's Books"},
     .publisher = u"Marlow & Finch", .published = 1872, .condition = u"Good", .cover = u"Half Calf",
     .pages = 224, .price = 1850, .purchased = 2014, .illustrations = 50, .firstEdition = true},
    {.title = u"The War of the Worlds", .authors = {u"H. G. Wells"}, .topics = {u"Fiction"},
     .publisher = u"Hollins & Marsh", .published = 1898, .condition = u"Fair", .cover = u"Hard Back no DW",
     .pages = 303, .price = 2400, .purchased = 2008, .firstEdition = true,
     .notes = u"Spine faded; hinges cracked but holding."},
    {.title = u"The Time Machine", .authors = {u"H. G. Wells"}, .topics = {u"Fiction"},
     .publisher = u"Hollins & Marsh", .published = 1963, .condition = u"Good", .cover = u"Paper Back",
     .pages = 128, .price = 1.5, .purchased = 1984, .sellPrice = 4, .sold = 2015},
    {.title = u"The Adventures of Tom Sawyer", .authors = {u"Mark Twain"},
     .topics = {u"Children's Books", u"Fiction"}, .publisher = u"Harrow Street Books", .published = 1920,
     .condition = u"Good", .cover = u"Hard Back no DW", .pages = 275, .price = 22, .purchased = 1993},
    {.title = u"Life on the Mississippi", .authors = {u"Mark Twain"}, .topics = {u"Travel"},
     .publisher = u"Harrow Street Books", .published = 1944, .condition = u"Good", .cover = u"Hard Back & DW",
     .pages = 624, .price = 35, .purchased = 2002, .illustrations = 30, .maps = 2},
    {.title = u"Moby-Dick", .authors = {u"Herman Melville"}, .topics = {u"Fiction", u"Classics"},
     .publisher = u"Harrow Street Books", .published = 1930, .condition = u"Excl", .cover = u"Boxed",
     .pages = 822, .price = 160, .purchased = 2005, .illustrations = 270},
    {.title = u"Little Women", .authors = {u"Louisa May Alcott"}, .topics = {u"Children's Books", u"Fiction"},
     .publisher = u"Harrow Street Books", .condition = u"Good", .cover = u"Hard Back no DW", .pages = 432,
     .price = 7.5, .purchased = 1989},
    {.title = u"Tales of Mystery and Imagination", .authors = {u"Edgar Allan Poe"}, .topics = {u"Fiction"},
     .publisher = u"Blackwater Press", .published = 1919, .condition = u"Good",
     .cover = u"Leather Spine with Boards", .pages = 412, .price = 220, .purchased = 2011,
     .illustrations = 24},
    {.title = u"Les Misérables", .authors = {u"Victor Hugo"}, .topics = {u"Fiction", u"Classics"},
     .publisher = u"Éditions du Pont-Neuf", .published = 1925, .condition = u"Good", .cover = u"Half Calf",
     .pages = 1480, .price = 140, .purchased = 2007, .notes = u"Five volumes, in French."},
    {.title = u"The Hunchback of Notre-Dame", .authors = {u"Victor Hugo"}, .topics = {u"Fiction"},
     .publisher = u"Quayside Publishing", .published = 1978, .condition = u"Good", .cover = u"Paper Back",
     .pages = 540, .price = 3.25, .purchased = 1987},
    {.title = u"The Count of Monte Cristo", .authors = {u"Alexandre Dumas"}, .topics = {u"Fiction"},
     .publisher = u"Éditions du Pont-Neuf", .published = 1935, .condition = u"Fair",
     .cover = u"Hard Back no DW", .pages = 1276, .price = 28, .purchased = 1995},
    {.title = u"The Three Musketeers", .authors = {u"Alexandre Dumas"}, .topics = {u"Fiction"},
     .publisher = u"Greywell Books", .published = 1958, .condition = u"Excl", .cover = u"Hard Back & DW",
     .pages = 640, .price = 18, .purchased = 2000, .sellPrice = 25,
     .notes = u"Duplicate copy; offered to the village book sale."},
    {.title = u"Twenty Thousand Leagues Under the Sea", .authors = {u"Jules Verne"},
     .topics = {u"Fiction", u"Children's Books"}, .publisher = u"Kestrel Editions", .published = 1925,
     .condition = u"Good", .cover = u"Hard Back no DW", .pages = 394, .price = 26, .purchased = 1992,
     .illustrations = 20},
    {.title = u"Around the World in Eighty Days", .authors = {u"Jules Verne"}, .topics = {u"Fiction", u"Travel"},
     .publisher = u"Kestrel Editions", .published = 1910, .condition = u"Good", .cover = u"Hard Back no DW",
     .pages = 315, .price = 55, .purchased = 1999, .illustrations = 10, .maps = 1},
    {.title = u"Germinal", .authors = {u"Émile Zola"}, .topics = {u"Fiction"},
     .publisher = u"Éditions du Pont-Neuf", .published = 1954, .condition = u"Good", .cover = u"Soft Back",
     .pages = 590, .price = 6, .purchased = 1990},
    {.title = u"War and Peace", .authors = {u"Leo Tolstoy"}, .topics = {u"Fiction", u"Military History"},
     .publisher = u"The Fenwick Press", .published = 1942, .condition = u"Excl", .cover = u"Boxed",
     .pages = 1444, .price = 90, .purchased = 2004, .maps = 4,
     .notes = u"Three volumes in the publisher's slipcase."},
    {.title = u"Anna Karenina", .authors = {u"Leo Tolstoy"}, .topics = {u"Fiction", u"Classics"},
     .publisher = u"The Fenwick Press", .published = 1939, .condition = u"Good", .cover = u"Hard Back no DW",
     .pages = 864, .price = 25, .purchased = 1998},
    {.title = u"Crime and Punishment", .authors = {u"Fyodor Dostoevsky"}, .topics = {u"Fiction", u"Philosophy"},
     .publisher = u"St Aldate's Press", .published = 1951, .condition = u"Good", .cover = u"Hard Back & DW",
     .pages = 559, .price = 14, .purchased = 1994},
    {.title = u"Peer Gynt", .authors = {u"Henrik Ibsen"}, .topics = {u"Poetry & Drama"},
     .publisher = u"Lindqvist Förlag", .published = 1936, .condition = u"Good", .cover = u"Soft Back",
     .pages = 256, .price = 9, .purchased = 2003},
    {.title = u"A Doll's House", .authors = {u"Henrik Ibsen"}, .topics = {u"Poetry & Drama"},
     .publisher = u"St Aldate's Press", .published = 1965, .condition = u"Good", .cover = u"Paper Back",
     .pages = 96, .intro = u"12", .price = 1.25, .purchased = 1985},
    {.title = u"The Wonderful Adventures of Nils", .authors = {u"Selma Lagerlöf"},
     .topics = {u"Children's Books", u"Travel"}, .publisher = u"Lindqvist Förlag", .published = 1913,
     .condition = u"Good", .cover = u"Hard Back no DW", .pages = 540, .price = 65, .purchased = 2006,
     .illustrations = 30, .maps = 1},
    {.title = u"Fairy Tales", .authors = {u"Hans Christian Andersen"}, .topics = {u"Children's Books"},
     .publisher = u"Lindqvist Förlag", .condition = u"Good", .cover = u"Full Calf", .pages = 448,
     .price = 480, .purchased = 2013, .illustrations = 16,
     .notes = u"Colour plates tipped in; one plate missing."},
    {.title = u"Don Quixote", .authors = {u"Miguel de Cervantes"}, .topics = {u"Fiction", u"Classics"},
     .publisher = u"Wexcombe Publishing", .published = 1950, .condition = u"Excl", .cover = u"Boxed",
     .pages = 940, .intro = u"xxiv", .price = 120, .purchased = 2008, .illustrations = 60},
    {.title = u"Faust", .authors = {u"Johann Wolfgang von Goethe"}, .topics = {u"Poetry & Drama", u"Philosophy"},
     .publisher = u"Vogelsang Verlag", .published = 1920, .condition = u"Good",
     .cover = u"Leather Spine with Boards", .pages = 410, .price = 85, .purchased = 2002,
     .notes = u"Parts one and two, in German."},
    {.title = u"The Odyssey", .authors = {u"Homer"}, .topics = {u"Poetry & Drama", u"Classics"},
     .publisher = u"St Aldate's Press", .condition = u"Fair", .cover = u"Half Calf", .pages = 380,
     .intro = u"xlviii", .price = 40, .purchased = 1996,
     .notes = u"Prose translation; the translator's name torn from the title page."},
    {.title = u"The Iliad", .authors = {u"Homer"}, .topics = {u"Poetry & Drama", u"Military History"},
     .publisher = u"St Aldate's Press", .published = 1946, .condition = u"Good", .cover = u"Hard Back no DW",
     .pages = 470, .intro = u"xxxii", .price = 16, .purchased = 1996},
    {.title = u"Heidi", .authors = {u"Johanna Spyri"}, .topics = {u"Children's Books"},
     .publisher = u"Vogelsang Verlag", .published = 1921, .condition = u"Good", .cover = u"Hard Back no DW",
     .pages = 310, .price = 20, .purchased = 2000, .illustrations = 8},
    {.title = u"Quo Vadis", .authors = {u"Henryk Sienkiewicz"}, .topics = {u"Fiction"},
     .publisher = u"Ravensworth & Co.", .published = 1897, .condition = u"Fair", .cover = u"Half Calf",
     .pages = 541, .price = 75, .purchased = 2010},
    {.title = u"The Maias", .authors = {u"José Maria Eça de Queirós"}, .topics = {u"Fiction"},
     .publisher = u"UnKnown", .published = 1965, .condition = u"Good", .cover = u"Soft Back", .pages = 632,
     .price = 5, .purchased = 1992, .notes = u"Title page missing, so the publisher is not known."},
    {.title = u"Anne of Green Gables", .authors = {u"L. M. Montgomery"}, .topics = {u"Children's Books", u"Fiction"},
     .publisher = u"Barrington Hall", .published = 1925, .condition = u"Good", .cover = u"Hard Back & DW",
     .pages = 398, .price = 60, .purchased = 2004},
    {.title = u"The Blue Bird", .authors = {u"Maurice Maeterlinck"}, .topics = {u"Poetry & Drama", u"Children's Books"},
     .publisher = u"Ravensworth & Co.", .published = 1911, .condition = u"Excl", .cover = u"Full Calf",
     .pages = 180, .price = 950, .purchased = 2017, .illustrations = 25},
    {.title = u"Hearts of Oak: Frigates of the Nelson Era", .authors = {u"Declan O'Brien"},
     .topics = {u"Naval History"}, .publisher = u"Wexcombe Publishing", .published = 2004,
     .condition = u"Mint", .cover = u"Hard Back & DW", .pages = 352, .intro = u"xvi", .price = 30,
     .purchased = 2004, .illustrations = 64, .plans = 22, .bibliography = true,
     .notes = u"Signed by the author."},
    {.title = u"The Channel Fleet, 1793–1815", .authors = {u"Declan O'Brien"},
     .topics = {u"Naval History", u"Military History"}, .publisher = u"Wexcombe Publishing", .published = 2011,
     .condition = u"Mint", .cover = u"Hard Back & DW", .pages = 416, .price = 28, .purchased = 2011,
     .maps = 9, .firstEdition = true, .bibliography = true},
    {.title = u"Harbours of the North Sea", .authors = {u"Declan O'Brien", u"Pieter van Aalst"},
     .topics = {u"Naval History", u"Architecture"}, .publisher = u"Ravensworth & Co.", .published = 2016,
     .condition = u"Excl", .cover = u"Hard Back & DW", .pages = 288, .price = 35, .purchased = 2017,
     .illustrations = 120, .maps = 6, .plans = 14},
    {.title = u"Brick and Gable: Dutch Town Houses", .authors = {u"Pieter van Aalst"}, .topics = {u"Architecture"},
     .publisher = u"Tarn & Whitby", .published = 1999, .condition = u"Good", .cover = u"Soft Back",
     .pages = 224, .price = 19.99, .purchased = 2000, .illustrations = 150, .plans = 40,
     .bibliography = true},
    {.title = u"Dvořák in England", .authors = {u"Lukas Brandstätter"}, .topics = {u"Music"},
     .publisher = u"Vogelsang Verlag", .published = 2001, .condition = u"Excl", .cover = u"Hard Back & DW",
     .pages = 304, .price = 24, .purchased = 2002, .illustrations = 18, .bibliography = true,
     .notes = u"Follows the composer's nine visits to England."},
    {.title = u"Salzburg Summers", .authors = {u"Lukas Brandstätter"}, .topics = {u"Music", u"Travel"},
     .publisher = u"Vogelsang Verlag", .published = 2009, .condition = u"Good", .cover = u"Paper Back",
     .pages = 196, .price = 8.99, .purchased = 2010},
    {.title = u"The Kitchen Garden Year", .authors = {u"Zoë Harcourt", u"Elif Demirtaş"},
     .topics = {u"Gardening", u"Cookery"}, .publisher = u"Greywell Books", .published = 2018,
     .condition = u"Mint", .cover = u"Hard Back & DW", .pages = 256, .price = 25, .purchased = 2018,
     .illustrations = 90},
    {.title = u"Istanbul Table", .authors = {u"Elif Demirtaş"}, .topics = {u"Cookery", u"Travel"},
     .publisher = u"Quayside Publishing", .published = 2015, .condition = u"Excl", .cover = u"Hard Back no DW",
     .pages = 288, .price = 20, .purchased = 2016, .illustrations = 75},
    {.title = u"Walking the Galilee", .authors = {u"Yael Ben-David"}, .topics = {u"Travel"},
     .publisher = u"UnKnown", .published = 2007, .condition = u"Good", .cover = u"Paper Back", .pages = 212,
     .price = 9.99, .purchased = 2008, .maps = 14},
    {.title = u"Birds of the Outback", .authors = {u"Bronwyn Kellaway"}, .topics = {u"Natural History"},
     .publisher = u"Southern Cross Books", .published = 1994, .condition = u"Good",
     .cover = u"Hard Back & DW", .pages = 340, .price = 22, .purchased = 1995, .illustrations = 210,
     .maps = 3, .bibliography = true},
    {.title = u"Painters of the Scottish Coast", .authors = {u"Margaret Fairlie-Ross"}, .topics = {u"Art"},
     .publisher = u"Mercer Brothers", .published = 1989, .condition = u"Good", .cover = u"Hard Back & DW",
     .pages = 240, .price = 45, .purchased = 1990, .illustrations = 96, .bibliography = true},
};

std::optional<int> unlessZero(int value)
{
    return value ? std::optional<int>(value) : std::nullopt;
}

QString authorKey(const AuthorRow &author)
{
    return QString(author.firstName + u' ' + author.surname).trimmed();
}

qint64 idOf(const QHash<QString, qint64> &ids, QStringView name)
{
    const auto found = ids.constFind(name.toString());
    if (found == ids.cend())
        throw CatalogueFileError(u"the sample collection names %1, which it does not hold"_s.arg(name));
    return *found;
}

BookRow bookRow(const SampleBook &book, qint64 publisherId)
{
    BookRow row;
    row.description = book.title.toString();
    row.pagesText = book.pages;
    row.pagesIntro = book.intro.toString();
    row.condition = book.condition.toString();
    row.cover = book.cover.toString();
    row.publisherId = publisherId;
    row.price = book.price;
    row.sellPrice = book.sellPrice;
    row.whenPublished = book.published;
    row.whenPurchased = unlessZero(book.purchased);
    row.whenSold = unlessZero(book.sold);
    row.illustrated = book.illustrations > 0;
    row.illustrations = unlessZero(book.illustrations);
    row.plans = unlessZero(book.plans);
    row.maps = unlessZero(book.maps);
    row.firstEdition = book.firstEdition;
    row.bibliography = book.bibliography;
    row.notes = book.notes.toString();
    return row;
}

} // namespace

void fill(QSqlDatabase &db)
{
    CatalogueWriter writer(db);
    writer.setOwner(owner);

    QHash<QString, qint64> publisherIds{{u"UnKnown"_s, writer.unknownPublisher()}};
    for (const PublisherRow &publisher : publishers)
        publisherIds.insert(publisher.name, writer.addPublisher(publisher));
    QHash<QString, qint64> authorIds;
    for (const AuthorRow &author : authors)
        authorIds.insert(authorKey(author), writer.addAuthor(author));
    QHash<QString, qint64> topicIds;
    for (const TopicRow &topic : topics)
        topicIds.insert(topic.description, writer.addTopic(topic));

    for (const SampleBook &book : books) {
        const qint64 bookId = writer.addBook(bookRow(book, idOf(publisherIds, book.publisher)));
        for (QStringView author : book.authors)
            writer.linkAuthor(bookId, idOf(authorIds, author));
        for (QStringView topic : book.topics)
            writer.linkTopic(bookId, idOf(topicIds, topic));
    }
}

} // namespace SampleCollection
