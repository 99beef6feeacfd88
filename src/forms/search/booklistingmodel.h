#pragma once

#include "forms/search/bookdetails.h"

#include <QAbstractTableModel>
#include <QList>

#include <array>
#include <functional>

#include <vector>

// The rows of the book listing over the books as they were read, with a check box in the
// first column. Sorting only reorders an index over the rows, so that sorting and closing
// stay quick for a large collection.
class BookListingModel : public QAbstractTableModel
{
    Q_OBJECT

public:
    explicit BookListingModel(QList<BookListingRow> rows, QObject *parent = nullptr);

    // The column headers as designed.
    static QStringList headers();

    int rowCount(const QModelIndex &parent = {}) const override;
    int columnCount(const QModelIndex &parent = {}) const override;
    QVariant data(const QModelIndex &index, int role = Qt::DisplayRole) const override;
    QVariant headerData(int section, Qt::Orientation orientation,
                        int role = Qt::DisplayRole) const override;
    Qt::ItemFlags flags(const QModelIndex &index) const override;
    bool setData(const QModelIndex &index, const QVariant &value, int role = Qt::EditRole) override;

    // By row as shown now.
    QString key(int row) const;
    QString text(int row, int column) const;
    bool isTicked(int row) const;
    void setTicked(int row, bool ticked);
    QList<int> tickedRows() const;

    // Orders the rows by a column's text, ignoring letter case.
    void sortAsText(int column, Qt::SortOrder order);
    // Orders the rows by the value each of the column's texts stands for. A column is always
    // valued the same way: the values are worked out at its first sort.
    void sortByValue(int column, const std::function<double(const QString &)> &valueOf,
                     Qt::SortOrder order);

Q_SIGNALS:
    // A row's box was ticked (not unticked) by its user.
    void rowTicked(int row);

private:
    static Qt::Alignment alignment(int column);
    std::vector<int> textRanks(int column) const;
    std::vector<int> sortedOrder(const std::vector<int> &ranks, Qt::SortOrder order) const;
    void reorder(std::vector<int> sorted);

    QList<BookListingRow> m_rows;
    std::vector<int> m_order;   // shown row -> index into m_rows
    std::vector<bool> m_ticked; // by index into m_rows
    // Each row's place by a column's text, and by its value; empty until first sorted so.
    std::array<std::vector<int>, BookColumn::Count> m_textRanks;
    std::array<std::vector<int>, BookColumn::Count> m_valueRanks;
};
