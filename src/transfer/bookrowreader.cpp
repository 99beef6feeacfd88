#include "transfer/bookrowreader.h"

#include "catalogue/cataloguefile.h"
#include "transfer/fieldtext.h"

#include <QSet>

#include <optional>

using namespace Qt::StringLiterals;

namespace {

// Thrown by a field the catalogue would refuse, ending the reading of its row.
struct Refusal
{
    QString reason;
};

QString quoted(QStringView text)
{
    return u'"' + text.toString() + u'"';
}

QStringList listed(QStringView field, const QString &separators)
{
    QStringList items;
    qsizetype start = 0;
    for (qsizetype i = 0; i <= field.size(); ++i) {
        if (i == field.size() || separators.contains(field[i])) {
            const QString item = field.sliced(start, i - start).trimmed().toString();
            if (!item.isEmpty())
                items << item;
            start = i + 1;
        }
    }
    return items;
}

template<typename Value>
Value required(std::optional<Value> value, const QString &header, QStringView text, const char *what)
{
    if (!value)
        throw Refusal{u"%1 %2 is not %3"_s.arg(header.toCaseFolded(), quoted(text), QLatin1StringView(what))};
    return *value;
}

std::optional<int> optionalNumber(const QString &header, QStringView text)
{
    if (text.trimmed().isEmpty())
        return std::nullopt;
    return required(FieldText::readWholeNumber(text), header, text, "a whole number");
}

std::optional<int> optionalYear(const QString &header, QStringView text)
{
    if (text.trimmed().isEmpty())
        return std::nullopt;
    return required(FieldText::readYear(text), header, text, "a year");
}

double money(const QString &header, QStringView text)
{
    if (text.trimmed().isEmpty())
        return 0; // "if not known enter 0"
    return required(FieldText::readMoney(text), header, text, "a number");
}

bool yesNo(const QString &header, QStringView text)
{
    if (text.trimmed().isEmpty())
        return false;
    return required(FieldText::readYesNo(text), header, text, "yes or no");
}

// A value outside the book form's list is not lost: it goes into the notes.
QString listEntry(std::optional<QString> entry, const QString &header, QStringView text, ImportedBook &book)
{
    if (entry)
        return *entry;
    book.keptInNotes << u"%1: %2"_s.arg(header, text.trimmed());
    return {};
}

// Reading sites write an ISBN as ="0140449132" so that a spreadsheet keeps its noughts.
QString isbnOf(QStringView text)
{
    QStringView isbn = text.trimmed();
    if (isbn.startsWith(u"=\"") && isbn.endsWith(u'"'))
        isbn = isbn.sliced(2, isbn.size() - 3);
    return isbn.trimmed().toString();
}

} // namespace

BookRowReader::BookRowReader(const QStringList &header)
    : m_headerSize(header.size())
{
    bool titles = false;
    for (qsizetype i = 0; i < header.size(); ++i) {
        const std::optional<ColumnMatch> match = BookColumns::match(header[i]);
        if (!match) {
            if (!header[i].trimmed().isEmpty())
                m_unread << header[i].trimmed();
            continue;
        }
        m_columns.append({i, *match, header[i].trimmed()});
        titles = titles || match->column == BookColumn::Title;
    }
    if (!titles) {
        throw CatalogueFileError(
            u"no column of titles: the first line must name the columns, one of them \"Title\""_s);
    }
}

std::variant<ImportedBook, RefusedRow> BookRowReader::read(const CsvRecord &record) const
{
    if (record.unterminated)
        return RefusedRow{record.line, u"a quoted field is never closed"_s};
    if (record.fields.size() > m_headerSize) {
        return RefusedRow{record.line, u"%1 fields where the first line names %2"_s
                                           .arg(record.fields.size()).arg(m_headerSize)};
    }
    ImportedBook book;
    book.line = record.line;
    QSet<BookColumn> filled; // of a field several columns may fill, the first one given counts
    QStringList notes;
    QStringList isbns;
    QList<PersonName> additionalAuthors;
    try {
        for (const Column &column : m_columns) {
            const QString text = record.fields.value(column.index);
            if (text.trimmed().isEmpty() || column.match.column == BookColumn::Number)
                continue;
            const BookColumn kind = column.match.column;
            if (kind == BookColumn::Notes) {
                notes << text;
                continue;
            }
            if (kind == BookColumn::Isbn) {
                isbns << isbnOf(text);
                continue;
            }
            if (kind == BookColumn::AdditionalAuthors) {
                for (const QString &name : listed(text, column.match.separators))
                    additionalAuthors << PersonNames::split(name);
                continue;
            }
            if (filled.contains(kind))
                continue;
            filled.insert(kind);
            const QString &header = column.header;
            BookRow &row = book.row;
            switch (kind) {
            case BookColumn::Title:
                row.description = text.trimmed();
                break;
            case BookColumn::Authors:
                for (const QString &name : listed(text, column.match.separators))
                    book.authors << PersonNames::split(name);
                break;
            case BookColumn::Topics:
                book.topics = listed(text, column.match.separators);
                break;
            case BookColumn::Publisher:
                book.publisher = text.trimmed();
                break;
            case BookColumn::Place:
                book.place = text.trimmed();
                break;
            case BookColumn::Published:
                row.whenPublished = optionalYear(header, text).value_or(0);
                break;
            case BookColumn::Condition:
                row.condition = listEntry(FieldText::readCondition(text), header, text, book);
                break;
            case BookColumn::Cover:
                row.cover = listEntry(FieldText::readCover(text), header, text, book);
                break;
            case BookColumn::Pages:
                row.pagesText = optionalNumber(header, text).value_or(0);
                break;
            case BookColumn::Introduction:
                row.pagesIntro = text.trimmed();
                break;
            case BookColumn::Price:
                row.price = money(header, text);
                break;
            case BookColumn::SellPrice:
                row.sellPrice = money(header, text);
                break;
            case BookColumn::Purchased:
                row.whenPurchased = optionalYear(header, text);
                break;
            case BookColumn::Sold:
                row.whenSold = optionalYear(header, text);
                break;
            case BookColumn::Illustrated:
                row.illustrated = yesNo(header, text);
                break;
            case BookColumn::Illustrations:
                row.illustrations = optionalNumber(header, text);
                break;
            case BookColumn::Plans:
                row.plans = optionalNumber(header, text);
                break;
            case BookColumn::Maps:
                row.maps = optionalNumber(header, text);
                break;
            case BookColumn::FirstEdition:
                row.firstEdition = yesNo(header, text);
                break;
            case BookColumn::Bibliography:
                row.bibliography = yesNo(header, text);
                break;
            case BookColumn::Number:
            case BookColumn::AdditionalAuthors:
            case BookColumn::Notes:
            case BookColumn::Isbn:
                break;
            }
        }
    } catch (const Refusal &refusal) {
        return RefusedRow{record.line, refusal.reason};
    }
    if (book.row.description.isEmpty())
        return RefusedRow{record.line, u"no title"_s};
    book.authors += additionalAuthors;
    notes += book.keptInNotes;
    if (!isbns.isEmpty())
        notes << u"ISBN: "_s + isbns.join(u", "_s);
    if (!notes.isEmpty())
        book.row.notes = notes.join(u'\n');
    return book;
}
