#include "reports/dataenvironment.h"

#include "data/connectionstring.h"
#include "data/recordset.h"
#include "data/shape.h"

using namespace Qt::StringLiterals;

namespace {

// The design-time strings: a data-shaping provider over Jet for the shaped commands, plain
// Jet for the labels. Neither names a file.
const QString shapingDesignTime =
    u"PROVIDER=MSDataShape;DATA PROVIDER=MICROSOFT.JET.OLEDB.4.0;Mode=Share Deny None;"
    "Persist Security Info=False;"_s;
const QString plainDesignTime =
    u"Provider=Microsoft.Jet.OLEDB.4.0;Mode=Share Deny None;Persist Security Info=False;"_s;

const QString bookDetailsText =
    u"BookDetails SHAPE {SELECT BookCondition, BookDescription, BookID, BookPrice, "
    "BookWhenPublished, BookPublisherId FROM tblBook ORDER BY BookID}  AS BookDetails APPEND "
    "({SELECT tblAuthor.AuthorFirstName, tblAuthor.AuthorSurname, tblBookAuthor.BookID FROM "
    "tblBookAuthor, tblAuthor WHERE tblBookAuthor.AuthorID = tblAuthor.AuthorID}  AS "
    "AuthorDetails RELATE 'BookID' TO 'BookID') AS AuthorDetails,({SELECT "
    "tblTopic.TopicDescription, tblBookTopic.BookID FROM tblTopic, tblBookTopic WHERE "
    "tblTopic.TopicID = tblBookTopic.TopicID}  AS TopicDetails RELATE 'BookID' TO 'BookID') AS "
    "TopicDetails,({SELECT PublisherName, PublisherID FROM tblPublisher}  AS PublisherDetails "
    "RELATE 'BookPublisherId' TO 'PublisherID') AS PublisherDetails"_s;

const QString byTopicDescriptionText =
    u"SHAPE ( SHAPE {SELECT * FROM `qryTopicDescForRep3`}  AS cmdReport3 APPEND ({SELECT * "
    "FROM `qryReport03`}  AS cmdReport3Sub RELATE 'BookID' TO 'BookID') AS cmdReport3Sub) "
    "COMPUTE cmdReport3 BY 'TopicDescription'"_s;

[[noreturn]] void notFound(const QString &what, const QString &name)
{
    throw ProviderError::general(ProviderErrorNumber::ItemNotFound,
                                 u"Item cannot be found in the collection corresponding to "
                                 "the requested name or ordinal: %1 %2."_s
                                     .arg(what, name));
}

// The connection or command of that name, in any letter case.
template<typename Items>
auto &byName(Items &items, const QString &name, const QString &what)
{
    for (auto &item : items) {
        if (item.name.compare(name, Qt::CaseInsensitive) == 0)
            return item;
    }
    notFound(what, name);
}

template<typename Items>
QStringList namesOf(const Items &items)
{
    QStringList names;
    for (const auto &item : items)
        names.append(item.name);
    return names;
}

} // namespace

DataEnvironment::DataEnvironment()
{
    const QList<std::pair<QString, QString>> connections{
        {u"Shelvane"_s, shapingDesignTime},
        {u"Report1Conn"_s, shapingDesignTime},
        {u"LabelConn"_s, plainDesignTime},
        {u"LablesConn"_s, plainDesignTime},
    };
    for (const auto &[name, designTime] : connections)
        m_connections.push_back(NamedConnection{name, designTime, {}});

    // The shaped commands share the shaping connection; the listings and labels have their own.
    m_commands = {
        {u"BookDetails"_s, u"Shelvane"_s, CommandType::Text, bookDetailsText, true},
        {u"cmdReport1"_s, u"Report1Conn"_s, CommandType::StoredProcedure, u"qryReport01"_s, false},
        {u"cmdReport2"_s, u"Report1Conn"_s, CommandType::StoredProcedure, u"qryReport02"_s, false},
        {u"ByTopicDescription"_s, u"Shelvane"_s, CommandType::Text, byTopicDescriptionText, true},
        {u"cmdLabels"_s, u"LabelConn"_s, CommandType::StoredProcedure, u"qryBookLabels"_s, false},
        {u"cmdOneLabel"_s, u"LablesConn"_s, CommandType::StoredProcedure, u"qryBookLabel01"_s,
         false},
    };
}

DataEnvironment::~DataEnvironment()
{
    close();
}

QStringList DataEnvironment::connectionNames() const
{
    return namesOf(m_connections);
}

QString DataEnvironment::connectionString(const QString &connection) const
{
    return namedConnection(connection).connectionString;
}

void DataEnvironment::setConnectionString(const QString &connection,
                                          const QString &connectionString)
{
    NamedConnection &named = namedConnection(connection);
    if (named.connection)
        named.connection->close();
    named.connection.reset();
    named.connectionString = connectionString;
}

QStringList DataEnvironment::commandNames() const
{
    return namesOf(m_commands);
}

QString DataEnvironment::recordsetName(const QString &command) const
{
    return u"rs"_s + this->command(command).name;
}

QString DataEnvironment::commandText(const QString &command) const
{
    return this->command(command).text;
}

void DataEnvironment::setCommandText(const QString &command, const QString &text)
{
    Command &changed = this->command(command);
    changed.text = text;
    changed.type = CommandType::Text;
}

bool DataEnvironment::isShaped(const QString &command) const
{
    return this->command(command).shaped;
}

std::unique_ptr<Recordset> DataEnvironment::run(const QString &command)
{
    const Command &plain = this->command(command);
    return Recordset::open(openConnectionOf(plain), plain.text, plain.type);
}

std::unique_ptr<ShapedRecordset> DataEnvironment::runShaped(const QString &command)
{
    const Command &shaped = this->command(command);
    return ShapeCommand(shaped.text).execute(openConnectionOf(shaped));
}

void DataEnvironment::close()
{
    for (NamedConnection &named : m_connections) {
        if (named.connection)
            named.connection->close();
        named.connection.reset();
    }
}

bool DataEnvironment::hasOpenConnection() const
{
    for (const auto &named : m_connections) {
        if (named.connection && named.connection->isOpen())
            return true;
    }
    return false;
}

Connection &DataEnvironment::openConnectionOf(const Command &command)
{
    NamedConnection &named = namedConnection(command.connection);
    if (!named.connection) {
        auto connection = std::make_unique<Connection>();
        connection->open(named.connectionString);
        named.connection = std::move(connection);
    }
    return *named.connection;
}

DataEnvironment::NamedConnection &DataEnvironment::namedConnection(const QString &name)
{
    return byName(m_connections, name, u"connection"_s);
}

const DataEnvironment::NamedConnection &DataEnvironment::namedConnection(const QString &name) const
{
    return byName(m_connections, name, u"connection"_s);
}

DataEnvironment::Command &DataEnvironment::command(const QString &name)
{
    return byName(m_commands, name, u"command"_s);
}

const DataEnvironment::Command &DataEnvironment::command(const QString &name) const
{
    return byName(m_commands, name, u"command"_s);
}

std::unique_ptr<DataEnvironment> PrepareDataEnvironment(const QString &cataloguePath)
{
    auto deShelvane = std::make_unique<DataEnvironment>();
    // The shaping provider of the design-time strings is replaced too: shaping runs here.
    for (const QString &name : deShelvane->connectionNames())
        deShelvane->setConnectionString(name, ConnectionString::forCatalogue(cataloguePath));
    return deShelvane;
}
