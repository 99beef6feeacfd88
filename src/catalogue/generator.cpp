#include "catalogue/generator.h"

#include "catalogue/cataloguewriter.h"
#include "catalogue/splitmix64.h"

#include <QStringView>

#include <algorithm>
#include <array>
#include <cmath>
#include <numeric>
#include <vector>

using namespace Qt::StringLiterals;

namespace Generator {
namespace {

constexpr int ProgressStep = 1000;

constexpr QStringView firstNames[] = {
    u"Alice", u"Arthur", u"Beatrice", u"Benedict", u"Clara", u"Cyril", u"Dorothy", u"Edmund",
    u"Eleanor", u"Frances", u"Frederick", u"Grace", u"Gustav", u"Harriet", u"Hugh", u"Ingrid",
    u"Isaac", u"Joan", u"Jonas", u"Katherine", u"Laurence", u"Lucía", u"Magnus", u"Margaret",
    u"Matthias", u"Nora", u"Oliver", u"Oskar", u"Patricia", u"Piotr", u"Rosalind", u"Rupert",
    u"Sarah", u"Sebastian", u"Søren", u"Theodora", u"Thomas", u"Ursula", u"Victor", u"Walter",
    u"Winifred", u"Zoë", u"Agnès", u"Émile", u"Hélène", u"Jürgen", u"Ana", u"Dmitri", u"Ruth",
    u"Samuel", u"Yusuf", u"Mei", u"Conor", u"Fiona", u"Gareth", u"Ivo", u"Lena", u"Marco",
    u"Nadia", u"Owen"};

constexpr QStringView surnames[] = {
    u"Abernethy", u"Ashworth", u"Bainbridge", u"Barlow", u"Beaumont", u"Blackwood", u"Brandt",
    u"Carrington", u"Castellanos", u"Cavendish", u"Dalgleish", u"Delacroix", u"Drummond",
    u"Eriksson", u"Fairbairn", u"Fenwick", u"Fitzgerald", u"Gallagher", u"Grünewald", u"Halloran",
    u"Hargreaves", u"Holloway", u"Ingram", u"Jansen", u"Kowalski", u"Lambert", u"Lindqvist",
    u"Llewellyn", u"MacLeod", u"Marchetti", u"Mercer", u"Montague", u"Novák", u"O'Connell",
    u"O'Hara", u"Pemberton", u"Petrov", u"Quennell", u"Radcliffe", u"Ramsay", u"Rossi",
    u"Sinclair", u"Strand", u"Tennant", u"Thorne", u"Underwood", u"Van der Berg", u"Vasquez",
    u"Whitaker", u"Wilde", u"Yardley", u"Zeller", u"Lefèvre", u"Brontë", u"Dvořák", u"Ahmed",
    u"Chen", u"D'Arcy", u"Haldane", u"Kerr", u"Lowther", u"Nakamura", u"Pryce", u"Stewart",
    u"Tremayne", u"Weiss", u"Ashdown", u"Coates", u"Everett", u"Garside", u"Harcourt", u"Kemble",
    u"Lyle", u"Moreau", u"Osborne", u"Penrose", u"Redfern", u"Selby", u"Vale", u"Wren"};

// The nationalities the author form offers, spelled as it spells them.
constexpr QStringView nationalities[] = {
    u"American", u"Australian", u"Austrian", u"Belgian", u"British", u"Canadian", u"Danish",
    u"Dutch", u"French", u"German", u"Greek", u"Isreali", u"Norwegian", u"Polish", u"Portuguese",
    u"Russian", u"Spanish", u"Swedish", u"Swiss", u"Turkish"};

constexpr QStringView adjectives[] = {
    u"Silent", u"Forgotten", u"Last", u"Hidden", u"Northern", u"Winter", u"Golden", u"Distant",
    u"Crimson", u"Quiet", u"Lost", u"Long", u"Salt", u"Hollow", u"Iron", u"Painted", u"Wandering",
    u"Secret", u"Broken", u"Early", u"Western", u"Sunken", u"Bright", u"Little"};

constexpr QStringView nouns[] = {
    u"Garden", u"River", u"Harbour", u"Lantern", u"Orchard", u"Lighthouse", u"Voyage", u"Chronicle",
    u"Cathedral", u"Mill", u"Island", u"Captain", u"Shepherd", u"Clockmaker", u"Cartographer",
    u"Inheritance", u"Letter", u"Compass", u"Tower", u"Bridge", u"Meadow", u"Heron", u"Kingdom",
    u"Archive", u"Journey", u"Tide", u"Estate", u"Physician", u"Ferryman", u"Almanac"};

constexpr QStringView places[] = {
    u"Whitby", u"Lindisfarne", u"Galway", u"Bruges", u"Lisbon", u"Trieste", u"Samarkand",
    u"Orkney", u"Cornwall", u"Provence", u"Tuscany", u"the Fens", u"the Hebrides", u"Valparaíso",
    u"Kraków", u"Zürich", u"Córdoba", u"Reykjavík", u"Bath", u"Kashmir", u"the Dales", u"Malta"};

constexpr QStringView subjects[] = {
    u"History", u"Architecture", u"Birds", u"Railways", u"Shipbuilding", u"Gardens", u"Cookery",
    u"Painting", u"Music", u"Poetry", u"Philosophy", u"Astronomy", u"Cartography", u"Folklore",
    u"Costume", u"Furniture", u"Clocks", u"Ceramics", u"Textiles", u"Mountaineering",
    u"Exploration", u"Medicine", u"Botany", u"Geology", u"Heraldry", u"Theatre", u"Photography",
    u"Archaeology", u"Natural History", u"Military History", u"Naval History", u"Travel",
    u"Fiction", u"Crime Fiction", u"Letters", u"Diaries", u"Biography", u"Topography", u"Law",
    u"Religion", u"Economics", u"Agriculture", u"Angling", u"Children's Books", u"Bookbinding"};

constexpr QStringView qualifiers[] = {
    u"Victorian", u"Georgian", u"Medieval", u"Modern", u"Early", u"Scottish", u"Irish", u"Welsh",
    u"English", u"French", u"Italian", u"German", u"Russian", u"American", u"Colonial",
    u"Classical", u"Regional", u"Renaissance", u"Baroque", u"Edwardian", u"Tudor", u"Stuart",
    u"Northern", u"Maritime", u"Rural", u"Urban", u"Continental", u"Nordic", u"Iberian", u"Ottoman"};

constexpr QStringView publisherKinds[] = {u"Press", u"Books", u"Publishing", u"Editions", u"& Sons"};

constexpr QStringView cities[] = {
    u"London", u"Edinburgh", u"Oxford", u"Cambridge", u"York", u"Norwich", u"Bristol", u"Dublin",
    u"New York", u"Boston", u"Toronto", u"Sydney", u"Paris", u"Leipzig", u"Amsterdam", u"Stockholm"};

constexpr QStringView conditions[] = {u"Mint", u"Excl", u"Good", u"Good", u"Good", u"Fair", u"Fair", u"Poor"};

constexpr QStringView covers[] = {
    u"Full Calf", u"Half Calf", u"Leather Spine with Boards", u"Boxed", u"Hard Back & DW",
    u"Hard Back no DW", u"Soft Back", u"Paper Back"};

constexpr QStringView bookNotes[] = {
    u"Signed by the author.", u"Inscribed on the flyleaf.", u"Some foxing to the prelims.",
    u"Spine faded.", u"Ex-library copy with the usual stamps.", u"Dust wrapper price-clipped.",
    u"Bookplate on the front pastedown.", u"Bought at auction.",
    u"Slight water stain to the lower corner.", u"Uncut and unopened."};

QString roman(int number)
{
    static constexpr std::pair<int, QStringView> digits[] = {
        {50, u"l"}, {40, u"xl"}, {10, u"x"}, {9, u"ix"}, {5, u"v"}, {4, u"iv"}, {1, u"i"}};
    QString text;
    for (const auto &[value, letters] : digits) {
        for (; number >= value; number -= value)
            text += letters;
    }
    return text;
}

// One word from each list, picked in the order given. Picks are never made as the arguments
// of one call, whose order of evaluation the language leaves open; a braced list fixes it.
template<typename... Lists>
std::array<QStringView, sizeof...(Lists)> pickWords(SplitMix64 &random, const Lists &...lists)
{
    return {random.pick(lists)...};
}

QString withArticle(QStringView noun)
{
    return (u"AEIOU"_s.contains(noun.front()) ? u"An "_s : u"A "_s) + noun;
}

QString mainTitle(SplitMix64 &random)
{
    switch (random.below(7)) {
    case 0: {
        const auto [adjective, noun] = pickWords(random, adjectives, nouns);
        return u"The %1 %2"_s.arg(adjective, noun);
    }
    case 1: {
        const auto [noun, place] = pickWords(random, nouns, places);
        return u"The %1 of %2"_s.arg(noun, place);
    }
    case 2: {
        const auto [noun, place] = pickWords(random, nouns, places);
        return u"%1 in %2"_s.arg(withArticle(noun), place);
    }
    case 3: {
        const auto [first, second] = pickWords(random, nouns, nouns);
        return u"The %1 and the %2"_s.arg(first, second);
    }
    case 4: {
        const auto [name, noun] = pickWords(random, firstNames, nouns);
        return u"%1's %2"_s.arg(name, noun);
    }
    case 5: {
        const QStringView place = random.pick(places);
        return u"Letters from %1, %2"_s.arg(place).arg(random.between(1600, 1950));
    }
    default: {
        const auto [subject, place] = pickWords(random, subjects, places);
        const int from = random.between(1500, 1900);
        const int to = from + random.between(10, 120);
        return u"%1 in %2, %3–%4"_s.arg(subject, place).arg(from).arg(to);
    }
    }
}

QString title(SplitMix64 &random)
{
    const QString title = mainTitle(random);
    switch (random.below(10)) {
    case 0: return title + u": A Novel"_s;
    case 1: return title + u": A Memoir"_s;
    case 2: return title + u": Notes on "_s + random.pick(subjects);
    case 3: return title + u": Stories from "_s + random.pick(places);
    default: return title;
    }
}

PublisherRow publisher(SplitMix64 &random)
{
    QString name;
    switch (random.below(3)) {
    case 0: {
        const auto [first, second] = pickWords(random, surnames, surnames);
        name = u"%1 & %2"_s.arg(first, second);
        break;
    }
    case 1: {
        const auto [surname, kind] = pickWords(random, surnames, publisherKinds);
        name = u"%1 %2"_s.arg(surname, kind);
        break;
    }
    default:
        name = u"The %1 Press"_s.arg(random.pick(adjectives));
        break;
    }
    return {name, random.pick(cities).toString(), {}};
}

AuthorRow author(SplitMix64 &random)
{
    const auto [firstName, surname] = pickWords(random, firstNames, surnames);
    AuthorRow row{firstName.toString(), surname.toString(), {}, {}};
    if (random.chance(90))
        row.nationality = random.pick(nationalities).toString();
    if (random.chance(5)) {
        const auto [otherFirstName, otherSurname] = pickWords(random, firstNames, surnames);
        row.notes = u"Also wrote as %1 %2."_s.arg(otherFirstName, otherSurname);
    }
    return row;
}

// Topic `index` of the catalogue: every qualifier and subject pair once, walked in an order
// the seed shifts, so topic names never repeat.
TopicRow topic(int index, int offset)
{
    constexpr int pairs = int(std::size(qualifiers) * std::size(subjects));
    constexpr int stride = 173; // shares no factor with `pairs`, so the walk visits each once
    static_assert(std::gcd(pairs, stride) == 1 && pairs >= MaxBooks / 30);
    const int pair = int((qint64(index) * stride + offset) % pairs);
    const int qualifier = pair % int(std::size(qualifiers));
    const int subject = pair / int(std::size(qualifiers));
    return {u"%1 %2"_s.arg(qualifiers[qualifier], subjects[subject]), {}};
}

// Pounds and pence, mostly modest, now and then a rare book in the thousands.
double price(SplitMix64 &random)
{
    const int tier = random.below(100);
    if (tier < 70)
        return random.between(100, 6000) / 100.0;
    if (tier < 96)
        return random.between(6000, 90000) / 100.0;
    return random.between(1000, 25000);
}

BookRow book(SplitMix64 &random, qint64 publisherId)
{
    BookRow row;
    row.description = title(random);
    row.pagesText = random.between(48, 960);
    const int intro = random.below(10);
    if (intro >= 8)
        row.pagesIntro = intro == 8 ? roman(random.between(4, 48)) : QString::number(random.between(2, 30));
    row.condition = random.pick(conditions).toString();
    row.cover = random.pick(covers).toString();
    row.publisherId = publisherId;
    row.price = price(random);
    if (random.chance(10))
        row.sellPrice = std::round(row.price * random.between(110, 200)) / 100.0;
    row.whenPublished = random.chance(4) ? 0 : random.between(1780, 2023);
    if (random.chance(80)) {
        row.whenPurchased = random.between(std::max(row.whenPublished, 1960), 2024);
        if (random.chance(3))
            row.whenSold = random.between(*row.whenPurchased, 2024);
    }
    row.illustrated = random.chance(35);
    if (row.illustrated)
        row.illustrations = random.between(1, 300);
    if (random.chance(5))
        row.plans = random.between(1, 30);
    if (random.chance(10))
        row.maps = random.between(1, 20);
    row.firstEdition = random.chance(15);
    row.bibliography = random.chance(25);
    if (random.chance(15))
        row.notes = random.pick(bookNotes).toString();
    return row;
}

// `count` different entries of `ids` (fewer when there are not that many).
std::vector<qint64> distinctPicks(SplitMix64 &random, const std::vector<qint64> &ids, int count)
{
    std::vector<qint64> picked;
    const std::size_t wanted = std::min(std::size_t(count), ids.size());
    while (picked.size() < wanted) {
        const qint64 id = ids[random.below(int(ids.size()))];
        if (std::find(picked.begin(), picked.end(), id) == picked.end())
            picked.push_back(id);
    }
    return picked;
}

template<typename Make>
std::vector<qint64> addRows(int count, Make make)
{
    std::vector<qint64> ids;
    ids.reserve(count);
    for (int i = 0; i < count; ++i)
        ids.push_back(make(i));
    return ids;
}

} // namespace

Proportions proportionsFor(int books)
{
    return {std::max(1, books / 3), std::max(1, books / 30), std::max(1, books / 10)};
}

void fill(QSqlDatabase &db, const Options &options)
{
    SplitMix64 random(options.seed);
    CatalogueWriter writer(db);
    const Proportions counts = proportionsFor(options.books);

    const std::vector<qint64> publishers = addRows(counts.publishers, [&](int) {
        return writer.addPublisher(publisher(random));
    });
    const std::vector<qint64> authors = addRows(counts.authors, [&](int) {
        return writer.addAuthor(author(random));
    });
    const int topicOffset = random.below(1 << 20);
    const std::vector<qint64> topics = addRows(counts.topics, [&](int index) {
        return writer.addTopic(topic(index, topicOffset));
    });

    for (int written = 1; written <= options.books; ++written) {
        // About one book in twenty has no known publisher.
        const qint64 publisherId = random.chance(5) ? writer.unknownPublisher()
                                                    : publishers[random.below(int(publishers.size()))];
        const qint64 bookId = writer.addBook(book(random, publisherId));
        for (qint64 authorId : distinctPicks(random, authors, random.between(1, 3)))
            writer.linkAuthor(bookId, authorId);
        for (qint64 topicId : distinctPicks(random, topics, random.between(1, 2)))
            writer.linkTopic(bookId, topicId);
        if (options.progress && (written % ProgressStep == 0 || written == options.books))
            options.progress(written, options.books);
    }
}

} // namespace Generator
