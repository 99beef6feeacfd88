#pragma once

#include "data/connection.h"
#include "data/recordset.h"
#include "support/testcatalogue.h"

#include <QObject>

#include <memory>

// A value as the statement tests compare it: its text, or <null>.
QString cell(const QVariant &value);

// The statements the forms send, run through a connection on a fresh sample catalogue for
// each test; what they should give is worked out with plain SQLite queries on the file.
class StatementTest : public QObject
{
    Q_OBJECT

protected:
    std::unique_ptr<TestCatalogue> m_catalogue;
    Connection m_connection;

    const TestCatalogue &catalogue() const { return *m_catalogue; }
    qint64 bookId(const QString &title) const;
    qint64 authorId(const QString &surname) const;
    qint64 topicId(const QString &description) const;
    int count(const QString &sql) const { return catalogue().scalar(sql).toInt(); }
    std::unique_ptr<Recordset> open(const QString &statement);
    // The rows the statement changed, or -1 when it gave rows instead.
    int run(const QString &statement);

private Q_SLOTS:
    void init();
    void cleanup();
};
