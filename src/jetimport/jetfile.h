#pragma once

#include <QDateTime>
#include <QList>
#include <QString>
#include <QStringList>

#include <functional>
#include <memory>
#include <variant>

// A Jet currency value: a whole number of ten-thousandths, kept as it is stored so that no
// pence are lost to binary fractions.
struct JetCurrency
{
    qint64 tenThousandths = 0;

    friend bool operator==(const JetCurrency &, const JetCurrency &) = default;
    QString toString() const; // "-12.3400"
};

// One value of a Jet row. Text and memo come as QString (an empty string is not NULL);
// byte, integer and long integer as qint64; single and double as double.
using JetValue = std::variant<std::monostate, bool, qint64, JetCurrency, double, QDateTime, QString>;
using JetRow = QList<JetValue>;

bool isNull(const JetValue &value);

struct JetColumn
{
    enum class Type { Boolean, Byte, Integer, LongInteger, Currency, Single, Double, DateTime, Text, Memo, Other };

    QString name;
    Type type = Type::Other;
};

// The tables of a Jet database as the import reads them. Table names are matched without
// regard to case, as Jet does.
class JetTables
{
public:
    virtual ~JetTables() = default;

    virtual bool hasTable(const QString &name) const = 0;

    // The table's columns in their stored order, and the number of rows it says it holds.
    virtual QList<JetColumn> columns(const QString &table) const = 0;
    virtual qint64 rowCount(const QString &table) const = 0;

    // Reads every row of the table once, in stored order, handing each to `row`.
    virtual void readRows(const QString &table, const std::function<void(const JetRow &)> &row) const = 0;
};

// A Jet 3 or Jet 4 database file, read-only. Every failure throws CatalogueFileError with a
// one-line message a user can act on.
class JetFile : public JetTables
{
public:
    explicit JetFile(const QString &path);
    ~JetFile() override;
    JetFile(const JetFile &) = delete;
    JetFile &operator=(const JetFile &) = delete;

    QStringList tableNames() const;

    bool hasTable(const QString &name) const override;
    QList<JetColumn> columns(const QString &table) const override;
    qint64 rowCount(const QString &table) const override;
    void readRows(const QString &table, const std::function<void(const JetRow &)> &row) const override;

private:
    class Table;
    struct Handle;

    std::unique_ptr<Table> open(const QString &table) const;

    QString m_path;
    std::unique_ptr<Handle> m_handle;
};
