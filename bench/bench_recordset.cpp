// How the book form's record set compares with SQLite read straight: opening beside its keys
// in order and first row, memory, finding by key and requerying, on 30,000 books.
#include "benchcatalogue.h"

#include "data/connection.h"
#include "data/connectionstring.h"
#include "data/jetsql.h"
#include "data/recordset.h"

#include <QCoreApplication>
#include <QRandomGenerator>
#include <QSqlQuery>
#include <QSqlRecord>

#include <algorithm>
#include <cstdio>
#include <limits>

using namespace Qt::StringLiterals;

namespace {

const QString bookSource = u"select * from tblBook order by bookdescription"_s;

// Every value of every row, forward only: the least any record set must do.
int readRaw(const QSqlDatabase &db, const QString &sql)
{
    QSqlQuery query(db);
    query.setForwardOnly(true);
    query.exec(sql);
    const int columns = query.record().count();
    int rows = 0;
    while (query.next()) {
        ++rows;
        for (int c = 0; c < columns; ++c)
            query.value(c);
    }
    return rows;
}

// The bytes of the rows' text (as UTF-8) and numbers (8 bytes each).
qint64 valueBytes(const QSqlDatabase &db, const QString &sql)
{
    QSqlQuery query(db);
    query.setForwardOnly(true);
    query.exec(sql);
    const int columns = query.record().count();
    qint64 bytes = 0;
    while (query.next()) {
        for (int c = 0; c < columns; ++c) {
            const QVariant value = query.value(c);
            if (!value.isNull())
                bytes += value.typeId() == QMetaType::QString ? value.toString().toUtf8().size()
                                                              : qint64(sizeof(qint64));
        }
    }
    return bytes;
}

} // namespace

int main(int argc, char **argv)
{
    QCoreApplication app(argc, argv);
    const int books = argc > 1 ? QString::fromLocal8Bit(argv[1]).toInt() : 30000;
    std::printf("Generating a catalogue of %d books...\n", books);
    BenchCatalogue catalogue(books);

    Connection connection;
    connection.open(ConnectionString::forCatalogue(catalogue.path()));
    const QString sql = JetSql::toSqlite(bookSource);
    const QString keysSql = JetSql::toSqlite(u"select BookID from tblBook order by bookdescription"_s);

    const double rawMs = bestMilliseconds(5, [&] { readRaw(connection.database(), sql); });
    // The least SQL behind an open record set: its keys in order, and the first row's fields.
    const double rawKeysMs = bestMilliseconds(5, [&] { readRaw(connection.database(), keysSql); });
    const double rawFirstMs = bestMilliseconds(5, [&] {
        readRaw(connection.database(), keysSql);
        readRaw(connection.database(), sql + u" limit 1"_s);
    });
    std::unique_ptr<Recordset> rs;
    const double openMs = bestMilliseconds(5, [&] { rs = connection.execute(bookSource); });
    std::printf("%d books, %d rows\n", books, rs->recordCount());
    reportFigure("open the book form's record set", openMs, rawKeysMs, "ms");
    const double firstRowMs = bestMilliseconds(5, [&] {
        rs = connection.execute(bookSource);
        rs->value(u"BookDescription"_s);
    });
    reportFigure("open, to the first book's fields", firstRowMs, rawFirstMs, "ms");
    const double rawKiB = double(valueBytes(connection.database(), sql)) / 1024.0;
    reportFigure("bytes held after open (raw: text and numbers)", double(rs->bytesHeld()) / 1024.0,
                 rawKiB, "KiB");
    const double walkMs = bestMilliseconds(1, [&] {
        for (int row = 0; row < rs->recordCount(); ++row)
            rs->valueAt(row, 1);
    });
    reportFigure("reading every row in order, after open", walkMs, rawMs, "ms");
    reportFigure("bytes held with every row read", double(rs->bytesHeld()) / 1024.0, rawKiB, "KiB");

    QList<qint64> keys;
    QSqlQuery ids(connection.database());
    ids.exec(u"select BookID from tblBook"_s);
    while (ids.next())
        keys << ids.value(0).toLongLong();
    QRandomGenerator random(7);
    const double firstFindMs = bestMilliseconds(1, [&] {
        rs->find(u"BookID = "_s + QString::number(keys.at(random.bounded(int(keys.size())))));
    });
    constexpr int finds = 1000;
    const double findsMs = bestMilliseconds(3, [&] {
        for (int i = 0; i < finds; ++i) {
            rs->moveFirst();
            rs->find(u"BookID = "_s + QString::number(keys.at(random.bounded(int(keys.size())))));
        }
    });
    QSqlQuery byKey(connection.database());
    byKey.prepare(u"select * from tblBook where BookID = ?"_s);
    const double rawFindsMs = bestMilliseconds(3, [&] {
        for (int i = 0; i < finds; ++i) {
            byKey.addBindValue(keys.at(random.bounded(int(keys.size()))));
            byKey.exec();
            byKey.next();
        }
    });
    reportFigure("first Find by key (builds the key index)", firstFindMs, rawFindsMs / finds, "ms");
    reportFigure("Find by key, each", findsMs / finds, rawFindsMs / finds, "ms");

    const double requeryMs = bestMilliseconds(5, [&] { rs->requery(); });
    reportFigure("Requery", requeryMs, rawKeysMs, "ms");
    double requeryAfterAddMs = std::numeric_limits<double>::max();
    for (int run = 0; run < 5; ++run) {
        rs->addNew();
        rs->setValue(u"BookDescription"_s, u"Added for the benchmark"_s);
        rs->update();
        requeryAfterAddMs = std::min(requeryAfterAddMs, bestMilliseconds(1, [&] {
                                         rs->requery();
                                         rs->value(u"BookDescription"_s);
                                     }));
    }
    reportFigure("Requery after an add, to the first book", requeryAfterAddMs, rawFirstMs, "ms");
    return 0;
}
