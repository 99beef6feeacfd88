#pragma once

#include "data/shapeparser.h"

#include <QList>
#include <QString>
#include <QStringList>

#include <memory>

class Connection;
class Recordset;
struct ShapeLevel;

// One level of a shaped command's result: its rows, and under each row the chapters named
// by the command. Walk it recursively: for every row r of records() and every name in
// chapterNames(), chapter(name, r) is the next level down, itself a ShapedRecordset (the
// related child rows of an APPEND, or the rows of r's group for COMPUTE ... BY).
class ShapedRecordset
{
public:
    ~ShapedRecordset();
    ShapedRecordset(const ShapedRecordset &) = delete;
    ShapedRecordset &operator=(const ShapedRecordset &) = delete;

    // The rows of this level, for reading: row numbers are what chapter() takes.
    Recordset &records();
    const Recordset &records() const;
    // In the order the command names them.
    QStringList chapterNames() const;
    // A new level each call; nullptr when no chapter has that name (in any letter case) or
    // there is no such row.
    std::unique_ptr<ShapedRecordset> chapter(const QString &name, int row) const;
    // The same related rows without copying them, for reading many parents quickly: the
    // rows of chapterRecords(name) that chapter(name, row) would hold, in its order. Empty,
    // and nullptr, when no chapter has that name (or for chapterRows, there is no such row).
    QList<int> chapterRows(const QString &name, int row) const;
    const Recordset *chapterRecords(const QString &name) const;

private:
    friend class ShapeCommand;
    ShapedRecordset(std::unique_ptr<Recordset> records, std::shared_ptr<const ShapeLevel> level,
                    QList<int> levelRows);

    std::unique_ptr<Recordset> m_records;
    std::shared_ptr<const ShapeLevel> m_level;
    QList<int> m_levelRows; // for each row of m_records, its row in m_level
};

// A shaping command kept as text, such as the reports' "SHAPE {...} AS ... APPEND ..." and
// "SHAPE (...) COMPUTE ... BY ...". Every select in it runs once per execute(), whatever the
// number of parent rows.
class ShapeCommand
{
public:
    // Throws ProviderError (ProviderErrorNumber::Syntax) when the text is not a shape command.
    explicit ShapeCommand(const QString &text);

    // The name that may lead the text; empty when there is none.
    QString name() const;
    // Throws ProviderError for a failing select, and (Syntax) for a RELATE, TO or BY column
    // that the rows do not have.
    std::unique_ptr<ShapedRecordset> execute(Connection &connection) const;

private:
    ShapeTree m_tree;
};
