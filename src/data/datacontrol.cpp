#include "data/datacontrol.h"

#include "data/connectionstring.h"

using namespace Qt::StringLiterals;

namespace {

DataControl::ErrorPresenter &presenter()
{
    static DataControl::ErrorPresenter instance;
    return instance;
}

} // namespace

void DataControl::setErrorPresenter(ErrorPresenter errorPresenter)
{
    presenter() = std::move(errorPresenter);
}

DataControl::DataControl(QObject *parent)
    : QObject(parent)
    , m_connectionString(ConnectionString::designTime)
{
}

DataControl::~DataControl() = default;

QString DataControl::connectionString() const
{
    return m_connectionString;
}

void DataControl::setConnectionString(const QString &connectionString)
{
    m_connectionString = connectionString;
}

QString DataControl::recordSource() const
{
    return m_recordSource;
}

void DataControl::setRecordSource(const QString &recordSource)
{
    m_recordSource = recordSource;
}

CommandType DataControl::commandType() const
{
    return m_commandType;
}

void DataControl::setCommandType(CommandType type)
{
    m_commandType = type;
}

void DataControl::Refresh()
{
    try {
        if (m_recordset && m_recordset->editMode() != Recordset::EditMode::None)
            m_recordset->update();
        // A refresh on the same catalogue keeps its connection: the book form refreshes its
        // author and topic lists at every move.
        std::unique_ptr<Connection> connection;
        if (!m_connection || m_connection->connectionString() != m_connectionString) {
            connection = std::make_unique<Connection>();
            connection->open(m_connectionString);
        }
        Connection &source = connection ? *connection : *m_connection;
        auto recordset = Recordset::open(source, m_recordSource, m_commandType);
        connect(recordset.get(), &Recordset::willChangeRecord, this, &DataControl::willChangeRecord);
        connect(recordset.get(), &Recordset::moveComplete, this, &DataControl::moveComplete);
        // The old record set goes before its connection.
        m_recordset = std::move(recordset);
        if (connection)
            m_connection = std::move(connection);
        Q_EMIT recordsetChanged();
        Q_EMIT moveComplete();
    } catch (const ProviderError &providerError) {
        report(providerError);
    }
}

Recordset *DataControl::recordset() const
{
    return m_recordset.get();
}

Recordset &DataControl::openRecordset() const
{
    if (!m_recordset)
        throw ProviderError::general(ProviderErrorNumber::ObjectClosed,
                                     u"Operation is not allowed when the object is closed."_s);
    return *m_recordset;
}

bool DataControl::guarded(const std::function<void(Recordset &)> &operation)
{
    if (!m_recordset)
        return false;
    try {
        operation(*m_recordset);
        return true;
    } catch (const ProviderError &providerError) {
        report(providerError);
        return false;
    }
}

void DataControl::report(const ProviderError &providerError)
{
    bool cancelDisplay = false;
    Q_EMIT error(providerError.number, providerError.description, &cancelDisplay);
    if (!cancelDisplay && presenter())
        presenter()(providerError.number, providerError.description);
}
