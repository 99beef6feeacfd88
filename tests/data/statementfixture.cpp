#include "statementfixture.h"

#include "data/connectionstring.h"

#include <QSqlQuery>

using namespace Qt::StringLiterals;

QString cell(const QVariant &value)
{
    return value.isNull() ? u"<null>"_s : value.toString();
}

namespace {

qint64 idOf(const TestCatalogue &catalogue, const QString &sql, const QString &value)
{
    QSqlQuery query(catalogue.db());
    query.prepare(sql);
    query.addBindValue(value);
    query.exec();
    return query.next() ? query.value(0).toLongLong() : -1;
}

} // namespace

qint64 StatementTest::bookId(const QString &title) const
{
    return idOf(catalogue(), u"SELECT BookID FROM tblBook WHERE BookDescription = ?"_s, title);
}

qint64 StatementTest::authorId(const QString &surname) const
{
    return idOf(catalogue(), u"SELECT AuthorID FROM tblAuthor WHERE AuthorSurname = ?"_s, surname);
}

qint64 StatementTest::topicId(const QString &description) const
{
    return idOf(catalogue(), u"SELECT TopicID FROM tblTopic WHERE TopicDescription = ?"_s, description);
}

std::unique_ptr<Recordset> StatementTest::open(const QString &statement)
{
    return m_connection.execute(statement, CommandType::Text);
}

int StatementTest::run(const QString &statement)
{
    int affected = -1;
    const auto rs = m_connection.execute(statement, CommandType::Text, &affected);
    return rs ? -1 : affected;
}

void StatementTest::init()
{
    m_catalogue = std::make_unique<TestCatalogue>(TestCatalogue::Content::Sample);
    m_connection.open(ConnectionString::forCatalogue(m_catalogue->path()));
}

void StatementTest::cleanup()
{
    m_connection.close();
    m_catalogue.reset();
}
