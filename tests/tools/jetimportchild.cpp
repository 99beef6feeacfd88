// Imports older catalogues one after the other in a process of its own, for the tests of
// damaged files: a file that crashed or stopped the import is told by the last line said.
//   jetimportchild OUT JET...
// imports each JET file into OUT/<its name>, saying "begin NAME" before each and then
// "imported NAME: sound" (or the problems the import's check of the new file found, joined
// by "; ") or "refused NAME: MESSAGE", and "done" at the end.

#include "catalogue/cataloguefile.h"
#include "jetimport/catalogueimport.h"

#include <QCoreApplication>
#include <QDir>
#include <QFileInfo>

#include <cstdio>

using namespace Qt::StringLiterals;

namespace {

void say(const QString &line)
{
    std::printf("%s\n", qPrintable(line));
    std::fflush(stdout);
}

} // namespace

int main(int argc, char *argv[])
{
    QCoreApplication app(argc, argv);
    const QStringList arguments = app.arguments();
    if (arguments.size() < 2)
        return 2;
    const QDir out(arguments.at(1));
    for (const QString &jet : arguments.mid(2)) {
        const QString name = QFileInfo(jet).fileName();
        say(u"begin "_s + name);
        try {
            const CatalogueImport::Summary summary = CatalogueImport::run(jet, out.filePath(name));
            say(u"imported "_s + name + u": "_s
                + (summary.checkProblems.isEmpty() ? u"sound"_s : summary.checkProblems.join(u"; "_s)));
        } catch (const CatalogueFileError &error) {
            say(u"refused "_s + name + u": "_s + error.message());
        }
    }
    say(u"done"_s);
    return 0;
}
