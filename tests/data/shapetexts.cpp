#include "shapetexts.h"

#include "reports/dataenvironment.h"

#include <QStringList>

using namespace Qt::StringLiterals;

// The texts as the reports' data environment issues them; tst_dataenvironment holds them to
// their wording.
QString bookDetailsText()
{
    return DataEnvironment().commandText(u"BookDetails"_s);
}

QString byTopicDescriptionText()
{
    return DataEnvironment().commandText(u"ByTopicDescription"_s);
}

const QString syntaxErrorStart = u"Syntax error in shape command at character "_s;

namespace {

QString reprint(const ShapeNode &node);

QString backQuoted(const QString &name)
{
    return u"`"_s + name + u"`"_s;
}

QString reprint(const ShapeSource &source)
{
    return source.nested ? u"("_s + reprint(*source.nested) + u")"_s
                         : u"{"_s + source.selectText + u"}"_s;
}

QString reprint(const ShapeChild &child)
{
    return u"("_s + reprint(child.source) + u" AS "_s + backQuoted(child.alias) + u" RELATE '"_s
        + child.relateColumn + u"' TO '"_s + child.toColumn + u"') AS "_s
        + backQuoted(child.chapterName);
}

QString reprint(const ShapeNode &node)
{
    if (node.kind == ShapeNode::Kind::Compute) {
        return u"SHAPE "_s + reprint(node.source) + u" COMPUTE "_s + backQuoted(node.alias)
            + u" BY '"_s + node.byColumns.join(u"', '"_s) + u"'"_s;
    }
    QString text = u"SHAPE "_s + reprint(node.source) + u" AS "_s + backQuoted(node.alias);
    QStringList children;
    for (const ShapeChild &child : node.children)
        children.append(reprint(child));
    if (!children.isEmpty())
        text += u" APPEND "_s + children.join(u", "_s);
    return text;
}

} // namespace

QString reprint(const ShapeTree &tree)
{
    const QString name = tree.commandName.isEmpty() ? QString() : backQuoted(tree.commandName) + u" "_s;
    return name + reprint(tree.root);
}
