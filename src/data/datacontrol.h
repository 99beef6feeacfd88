#pragma once

#include "data/connection.h"
#include "data/recordset.h"

#include <QObject>
#include <QString>

#include <functional>
#include <memory>

// A form's data control: a connection string, a record source and a command type, and the
// record set that Refresh() opens from them. Bound widgets see it through RecordsetModel.
class DataControl : public QObject
{
    Q_OBJECT

public:
    // Shows a provider error that no handler suppressed; the shell installs a message box.
    using ErrorPresenter = std::function<void(int number, const QString &description)>;
    static void setErrorPresenter(ErrorPresenter presenter);

    explicit DataControl(QObject *parent = nullptr);
    ~DataControl() override;

    QString connectionString() const;
    void setConnectionString(const QString &connectionString);
    QString recordSource() const;
    void setRecordSource(const QString &recordSource);
    CommandType commandType() const;
    void setCommandType(CommandType type);

    // (Re)opens the record set from the current settings. A failure is reported through
    // error() (and the standard message unless a handler suppressed it); the control is
    // then left without a record set.
    void Refresh();

    // The open record set, or nullptr before the first successful Refresh().
    Recordset *recordset() const;
    // The open record set; throws ProviderError when there is none, as using a closed record
    // set does, so that a form whose catalogue refused its rows reports instead of crashing.
    Recordset &openRecordset() const;

    // Runs an operation of the record set on behalf of bound widgets, turning a
    // ProviderError into error(). Answers whether it succeeded.
    bool guarded(const std::function<void(Recordset &)> &operation);

Q_SIGNALS:
    void willChangeRecord(Recordset::ChangeReason reason);
    void moveComplete();
    // A handler sets *cancelDisplay to true to suppress the standard message.
    void error(int number, const QString &description, bool *cancelDisplay);
    // A new record set replaced the old one (after Refresh()).
    void recordsetChanged();

private:
    void report(const ProviderError &providerError);

    QString m_connectionString;
    QString m_recordSource;
    CommandType m_commandType = CommandType::Text;
    std::unique_ptr<Connection> m_connection;
    std::unique_ptr<Recordset> m_recordset;
};
