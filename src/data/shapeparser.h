#pragma once

#include <QString>
#include <QStringList>

#include <memory>
#include <vector>

// The tree of a shaping command, the hierarchical record sets the reports read:
//   command := [name] shape
//   shape   := SHAPE source AS alias [APPEND child {, child}]
//            | SHAPE ( shape ) COMPUTE alias BY 'column' {, 'column'}
//   source  := { select } | ( shape )
//   child   := ( source AS alias RELATE 'column' TO 'column' ) AS alias
// Keywords are read in any letter case and names may be back-quoted.

struct ShapeNode;

// Where the rows of one level come from: a select in braces, or a nested shape.
struct ShapeSource
{
    QString selectText; // empty when the source is a nested shape
    std::unique_ptr<ShapeNode> nested;
};

// One APPEND child: under every parent row, a chapter of the child rows whose TO column
// equals the parent's RELATE column.
struct ShapeChild
{
    ShapeSource source;
    QString alias;
    QString relateColumn;
    QString toColumn;
    QString chapterName;
};

struct ShapeNode
{
    enum class Kind { Append, Compute };

    Kind kind = Kind::Append;
    // Append: the parent rows. Compute: the nested shape whose rows are grouped.
    ShapeSource source;
    // Append: the parent's alias. Compute: the chapter holding each group's rows.
    QString alias;
    std::vector<ShapeChild> children; // Append only
    QStringList byColumns;            // Compute only
};

struct ShapeTree
{
    QString commandName; // the optional leading name; empty when there is none
    ShapeNode root;
};

namespace ShapeParser {

// Deeper nesting than any report needs is refused, so no input can exhaust the stack.
inline constexpr int MaxDepth = 16;

// Throws ProviderError (ProviderErrorNumber::Syntax) naming the character where the text
// stops making sense.
ShapeTree parse(const QString &text);

} // namespace ShapeParser
