#pragma once

#include <QSqlDatabase>
#include <QString>
#include <QTemporaryDir>

// A catalogue in a temporary folder, removed with the object. Tests start from one of
// these, never from a file they share.
class TestCatalogue
{
public:
    // Empty: only the rows every catalogue needs. Sample: the demo collection of about sixty
    // books that `shelvane-catalog sample` makes. Large: GeneratedBooks made-up books, as
    // `shelvane-catalog generate` makes them, for what only shows on a large catalogue.
    enum class Content { Empty, Sample, Large };
    static constexpr int GeneratedBooks = 5000;

    explicit TestCatalogue(Content content = Content::Empty);
    ~TestCatalogue();
    TestCatalogue(const TestCatalogue &) = delete;
    TestCatalogue &operator=(const TestCatalogue &) = delete;

    // Full path of the catalogue file, named as the program expects.
    QString path() const;
    QString folder() const;

    // A direct SQLite connection to the file, for looking at what the program wrote.
    QSqlDatabase db() const;

    // The first column of the first row a query gives (an invalid QVariant when none).
    QVariant scalar(const QString &sql) const;
    // The same for a statement run as the program runs it, on a connection of its own: text
    // ordered and compared as in the program's lists.
    QVariant programScalar(const QString &statement) const;
    // Every row of a statement run as the program runs it, every value of each in order.
    QList<QVariantList> programRows(const QString &statement) const;

private:
    QTemporaryDir m_dir;
    QString m_connectionName;
};
