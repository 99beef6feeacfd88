#include "catalogueimport.h"

#include "catalogue/cataloguecheck.h"
#include "catalogue/cataloguefile.h"
#include "jetfile.h"

#include <QElapsedTimer>
#include <QSet>
#include <QSqlError>
#include <QSqlQuery>
#include <QVariant>

#include <optional>

using namespace Qt::StringLiterals;

namespace CatalogueImport {
namespace {

// Tables of the old catalogue without which there is nothing to bring across, in the order
// their rows are written so that every reference finds its row already there.
const QStringList catalogueTables = {u"tblPublisher"_s, u"tblAuthor"_s,         u"tblTopic"_s,
                                     u"tblBook"_s,      u"tblBookAuthor"_s,     u"tblBookTopic"_s,
                                     u"tblCatalogueControl"_s};
// Working tables whose rows mean something only until the next search or label run.
const QStringList workingTables = {u"tblCriteriaHits"_s, u"tblLabelTable"_s};

constexpr qint64 ProgressEvery = 500;

// The old file cannot be brought across as it is. Kept apart from CatalogueFileError so
// that the message is not presented as a failure to write the new file.
struct ReadFailure
{
    QString message;
};

// Writing the new file failed: reported as the new file's failure.
struct WriteFailure
{
    QString message;
};

void write(QSqlQuery &query, const QString &statement = {})
{
    if (!(statement.isEmpty() ? query.exec() : query.exec(statement)))
        throw WriteFailure{query.lastError().databaseText()};
}

QVariant sqlValue(const JetValue &value)
{
    return std::visit(
        [](const auto &v) -> QVariant {
            using T = std::decay_t<decltype(v)>;
            if constexpr (std::is_same_v<T, std::monostate>)
                return {};
            else if constexpr (std::is_same_v<T, bool>)
                return int(v);
            else if constexpr (std::is_same_v<T, JetCurrency>)
                // One correctly rounded division: the nearest double to the exact amount.
                return double(v.tenThousandths) / 10000.0;
            else if constexpr (std::is_same_v<T, QString>)
                return v.isEmpty() ? QVariant(u""_s) : QVariant(v); // empty, not NULL
            else
                return QVariant::fromValue(v);
        },
        value);
}

// One row on its way to the new catalogue, its values addressed by the new column names.
struct Row
{
    const QStringList &columns;
    QVariantList &values;

    QVariant &operator[](const QString &column) { return values[columns.indexOf(column)]; }
};

// A rule a row must meet: returns false to leave the row out.
using RowRule = std::function<bool(Row &row)>;

class Importer
{
public:
    Importer(const JetTables &jet, const QString &jetPath, QSqlDatabase &db, const Options &options, Summary &summary)
        : m_jet(jet), m_jetPath(jetPath), m_db(db), m_options(options), m_summary(summary)
    {
    }

    void importAll()
    {
        // The new catalogue's seed rows would collide with the keys brought across.
        QSqlQuery remove(m_db);
        for (const QString &table : {u"tblBook"_s, u"tblAuthor"_s, u"tblTopic"_s, u"tblPublisher"_s, u"tblCatalogueControl"_s})
            write(remove, u"DELETE FROM "_s + table);

        copy(u"tblPublisher"_s, [this](Row &row) {
            const qint64 id = newKey(m_publishers, u"tblPublisher"_s, u"PublisherID"_s, row[u"PublisherID"_s]);
            if (!m_unknownPublisher && row[u"PublisherName"_s].toString().compare(u"UnKnown"_s, Qt::CaseInsensitive) == 0)
                m_unknownPublisher = id;
            return true;
        });
        if (!m_unknownPublisher)
            addUnknownPublisher();
        copy(u"tblAuthor"_s, [this](Row &row) {
            newKey(m_authors, u"tblAuthor"_s, u"AuthorID"_s, row[u"AuthorID"_s]);
            return true;
        });
        copy(u"tblTopic"_s, [this](Row &row) {
            newKey(m_topics, u"tblTopic"_s, u"TopicID"_s, row[u"TopicID"_s]);
            return true;
        });
        copy(u"tblBook"_s, [this](Row &row) { return checkBook(row); });
        copyLinks(u"tblBookAuthor"_s, u"AuthorID"_s, u"author"_s, m_authors);
        copyLinks(u"tblBookTopic"_s, u"TopicID"_s, u"topic"_s, m_topics);
        copyOwner();
        for (const QString &table : workingTables) {
            if (m_jet.hasTable(table))
                copy(table, [](Row &) { return true; });
        }
    }

private:
    void copy(const QString &table, const RowRule &rule)
    {
        try {
            copyRows(table, rule);
        } catch (const CatalogueFileError &e) {
            throw ReadFailure{e.message()};
        }
    }

    void copyRows(const QString &table, const RowRule &rule)
    {
        const QStringList columns = newColumns(table);
        const QList<JetColumn> jetColumns = m_jet.columns(table);
        QList<qsizetype> source;
        for (const QString &column : columns) {
            qsizetype found = -1;
            for (qsizetype i = 0; i < jetColumns.size() && found < 0; ++i) {
                if (jetColumns[i].name.compare(column, Qt::CaseInsensitive) == 0)
                    found = i;
            }
            if (found < 0)
                throw ReadFailure{u"%1: table %2 has no column %3"_s.arg(m_jetPath, table, column)};
            source << found;
        }
        QSqlQuery insert(m_db);
        if (!insert.prepare(u"INSERT INTO %1 (%2) VALUES (%3)"_s.arg(
                table, columns.join(u", "_s), QStringList(columns.size(), u"?"_s).join(u", "_s))))
            throw WriteFailure{insert.lastError().databaseText()};

        const qint64 total = m_jet.rowCount(table);
        qint64 read = 0;
        qint64 written = 0;
        m_jet.readRows(table, [&](const JetRow &jetRow) {
            QVariantList values;
            values.reserve(columns.size());
            for (qsizetype i : source)
                values << sqlValue(jetRow[i]);
            Row row{columns, values};
            if (rule(row)) {
                for (qsizetype i = 0; i < values.size(); ++i)
                    insert.bindValue(int(i), values[i]);
                write(insert);
                ++written;
            }
            if (m_options.progress && ++read % ProgressEvery == 0)
                m_options.progress(table, read, total);
        });
        if (m_options.progress)
            m_options.progress(table, total, total);
        m_summary.tables << TableCount{table, written};
    }

    QStringList newColumns(const QString &table) const
    {
        QSqlQuery query(m_db);
        write(query, u"PRAGMA table_info(%1)"_s.arg(table));
        QStringList columns;
        while (query.next())
            columns << query.value(1).toString();
        return columns;
    }

    // A key no other row of its table has; a row without one cannot be brought across.
    qint64 newKey(QSet<qint64> &keys, const QString &table, const QString &column, const QVariant &key)
    {
        if (key.isNull())
            throw ReadFailure{u"%1: a row of %2 has no %3"_s.arg(m_jetPath, table, column)};
        const qint64 id = key.toLongLong();
        if (keys.contains(id))
            throw ReadFailure{u"%1: two rows of %2 have %3 %4"_s.arg(m_jetPath, table, column).arg(id)};
        keys.insert(id);
        return id;
    }

    void report(const QString &problem)
    {
        m_summary.problems << problem;
        if (m_options.problem)
            m_options.problem(problem);
        if (m_options.onProblem == OnProblem::Stop)
            throw ReadFailure{u"the import stopped at a problem of %1; nothing was written"_s.arg(m_jetPath)};
    }

    void addUnknownPublisher()
    {
        report(u"tblPublisher: there is no publisher named UnKnown; one is added"_s);
        QSqlQuery insert(m_db);
        write(insert, u"INSERT INTO tblPublisher (PublisherName, PublisherPlace, PublisherNotes) "
                      "VALUES ('UnKnown', '', 'Stands for any publisher not known.')"_s);
        m_unknownPublisher = insert.lastInsertId().toLongLong();
        m_publishers.insert(*m_unknownPublisher);
        m_summary.tables.last().rows += 1;
    }

    bool checkBook(Row &row)
    {
        const qint64 id = newKey(m_books, u"tblBook"_s, u"BookID"_s, row[u"BookID"_s]);
        QVariant &publisher = row[u"BookPublisherId"_s];
        if (publisher.isNull() || !m_publishers.contains(publisher.toLongLong())) {
            report(u"tblBook: BookID %1 names %2; it is given publisher UnKnown (PublisherID %3)"_s.arg(id)
                       .arg(publisher.isNull() ? u"no publisher"_s : u"publisher %1, which does not exist"_s.arg(publisher.toLongLong()))
                       .arg(*m_unknownPublisher));
            publisher = *m_unknownPublisher;
        }
        QVariant &price = row[u"BookPrice"_s];
        if (price.isNull()) {
            report(u"tblBook: BookID %1 has no price; it is given 0"_s.arg(id));
            price = 0.0;
        }
        return true;
    }

    void copyLinks(const QString &table, const QString &column, const QString &what, const QSet<qint64> &targets)
    {
        QSet<std::pair<qint64, qint64>> pairs;
        copy(table, [&](Row &row) {
            const QVariant book = row[u"BookID"_s];
            const QVariant target = row[column];
            const QString pair = u"%1: BookID %2, %3 %4"_s.arg(table, book.isNull() ? u"NULL"_s : book.toString(), column,
                                                               target.isNull() ? u"NULL"_s : target.toString());
            if (book.isNull() || !m_books.contains(book.toLongLong())) {
                report(pair + u": there is no such book; the link is left out"_s);
                return false;
            }
            if (target.isNull() || !targets.contains(target.toLongLong())) {
                report(pair + u": there is no such %1; the link is left out"_s.arg(what));
                return false;
            }
            const std::pair<qint64, qint64> key{book.toLongLong(), target.toLongLong()};
            if (pairs.contains(key)) {
                report(pair + u": linked twice; the link is kept once"_s);
                return false;
            }
            pairs.insert(key);
            return true;
        });
    }

    // The owner's details are one row of texts that are empty, never NULL, when not given.
    void copyOwner()
    {
        const QString table = u"tblCatalogueControl"_s;
        qint64 rows = 0;
        copy(table, [&](Row &row) {
            if (++rows > 1) {
                report(u"%1: row %2 is one more than the single row of the owner's details; it is left out"_s.arg(table).arg(rows));
                return false;
            }
            for (QVariant &value : row.values) {
                if (value.isNull())
                    value = u""_s;
            }
            return true;
        });
        if (rows == 0) {
            report(u"%1: there are no owner's details; empty ones are written"_s.arg(table));
            QSqlQuery insert(m_db);
            write(insert, u"INSERT INTO tblCatalogueControl DEFAULT VALUES"_s);
            m_summary.tables.last().rows = 1;
        }
    }

    const JetTables &m_jet;
    QString m_jetPath;
    QSqlDatabase &m_db;
    const Options &m_options;
    Summary &m_summary;
    QSet<qint64> m_publishers;
    QSet<qint64> m_authors;
    QSet<qint64> m_topics;
    QSet<qint64> m_books;
    std::optional<qint64> m_unknownPublisher;
};

} // namespace

qint64 Summary::rows() const
{
    qint64 total = 0;
    for (const TableCount &count : tables)
        total += count.rows;
    return total;
}

QStringList tables()
{
    return catalogueTables + workingTables;
}

Summary run(const JetTables &source, const QString &sourceName, const QString &path, const Options &options)
{
    QElapsedTimer timer;
    timer.start();
    QStringList missing;
    for (const QString &table : catalogueTables) {
        if (!source.hasTable(table))
            missing << table;
    }
    if (missing.size() == catalogueTables.size())
        throw CatalogueFileError(u"%1 is not a catalogue: it has none of a catalogue's tables"_s.arg(sourceName));
    if (!missing.isEmpty())
        throw CatalogueFileError(u"%1 is not a whole catalogue: it has no table %2"_s.arg(sourceName, missing.join(u", "_s)));

    Summary summary;
    try {
        CatalogueFile::create(path, options.overwrite, [&](QSqlDatabase &db) {
            try {
                Importer(source, sourceName, db, options, summary).importAll();
            } catch (const WriteFailure &e) {
                throw CatalogueFileError(e.message);
            }
        });
    } catch (const ReadFailure &e) {
        throw CatalogueFileError(e.message);
    }
    summary.milliseconds = timer.elapsed();
    summary.checkProblems = CatalogueCheck::problemsIn(path);
    return summary;
}

Summary run(const QString &jetPath, const QString &path, const Options &options)
{
    return run(JetFile(jetPath), jetPath, path, options);
}

} // namespace CatalogueImport
