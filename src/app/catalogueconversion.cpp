#include "app/catalogueconversion.h"

#include "app/conversionprogress.h"
#include "catalogue/cataloguefile.h"
#include "catalogue/cataloguelock.h"
#include "catalogue/filereplacement.h"
#include "data/catalogueformat.h"
#include "jetimport/catalogueimport.h"
#include "recordform/msgbox.h"

#include <QDir>
#include <QFile>
#include <QFileInfo>

#include <filesystem>
#include <system_error>

using namespace Qt::StringLiterals;

namespace {

// Enough of the repaired rows to see what they were, without a box taller than the screen.
constexpr qsizetype ProblemsShown = 5;

const QString lineBreak = u"\r\n"_s;

QString fileName(const QString &path)
{
    return QFileInfo(path).fileName();
}

bool askToConvert(const QString &keptPath)
{
    return MsgBox(u"This catalogue is in the older format and cannot be opened as it is."_s + lineBreak
                      + u"Convert it now? The old file will be kept as '"_s + fileName(keptPath) + u"'."_s,
                  Vb::YesNo | Vb::Question, u"Shelvane"_s)
        == Vb::Yes;
}

void tellFailure(const QString &reason)
{
    MsgBox(u"The catalogue could not be converted:"_s + lineBreak + reason + lineBreak
               + u"Nothing has been changed."_s,
           Vb::OKOnly | Vb::Exclamation, u"Database Open Error"_s);
}

void tellSuccess(const CatalogueImport::Summary &summary, const QString &keptPath)
{
    qint64 books = 0;
    for (const CatalogueImport::TableCount &count : summary.tables) {
        if (count.table == u"tblBook"_s)
            books = count.rows;
    }
    QString text = u"Catalogue converted: %1 %2."_s.arg(books).arg(books == 1 ? u"book"_s : u"books"_s) + lineBreak
        + u"The old file is kept as '"_s + fileName(keptPath) + u"'."_s;
    const QStringList problems = summary.problems + summary.checkProblems;
    if (!problems.isEmpty()) {
        text += lineBreak + lineBreak
            + (problems.size() == 1 ? u"1 row had to be put right:"_s
                                    : u"%1 rows had to be put right:"_s.arg(problems.size()));
        for (const QString &problem : problems.mid(0, ProblemsShown))
            text += lineBreak + problem;
        if (problems.size() > ProblemsShown)
            text += lineBreak + u"..."_s;
    }
    MsgBox(text, Vb::OKOnly | Vb::Information, u"Shelvane"_s);
}

// The old file keeps its bytes under the kept name (a second name for the same file where
// the system allows it, else a copy), and the converted catalogue takes the old name in one
// step: the name holds the old file or the converted one at every moment.
QString keepOldFile(const QString &path, const QString &keptPath)
{
    std::error_code failure;
    std::filesystem::create_hard_link(QFileInfo(path).filesystemFilePath(),
                                      QFileInfo(keptPath).filesystemFilePath(), failure);
    if (!failure)
        return {};
    const QString cannotKeep = u"the old file cannot be kept as '"_s + fileName(keptPath) + u"'."_s;
    if (!QFile::copy(path, keptPath))
        return cannotKeep;
    if (!FileReplacement::flushToDisk(keptPath).isEmpty()) {
        QFile::remove(keptPath);
        return cannotKeep;
    }
    return {};
}

QString replaceConverted(const QString &path, const QString &converted, const QString &keptPath)
{
    // Another copy of the program may have converted the file meanwhile, and be working on
    // the catalogue that now has its name.
    const CatalogueLock alone(path, CatalogueLock::Mode::Exclusive);
    if (alone.inUse() || CatalogueFormat::ofFile(path) != CatalogueFormat::Kind::Jet)
        return u"another copy of Shelvane has converted it meanwhile."_s;
    if (const QString problem = keepOldFile(path, keptPath); !problem.isEmpty())
        return problem;
    const QString problem = FileReplacement::replace(converted, path);
    if (problem.isEmpty())
        return {};
    QFile::remove(keptPath);
    return u"the converted catalogue cannot be named '"_s + fileName(path) + u"' ("_s + problem
        + u")."_s;
}

} // namespace

QString OlderFormatPath(const QString &path)
{
    const QFileInfo info(path);
    for (int n = 1;; ++n) {
        const QString suffix = n == 1 ? u"(older format)"_s : u"(older format %1)"_s.arg(n);
        const QString kept = info.dir().filePath(u"%1 %2.%3"_s.arg(info.completeBaseName(), suffix, info.suffix()));
        if (!QFileInfo::exists(kept))
            return QDir::toNativeSeparators(kept);
    }
}

bool OfferConversion(const QString &path, QWidget *parent)
{
    const QString keptPath = OlderFormatPath(path);
    if (!askToConvert(keptPath))
        return false;
    // The converted catalogue is made beside the old file and only then takes its name, so
    // that a failed conversion leaves everything as it was.
    const QString converted = path + u".converted"_s;
    CatalogueImport::Summary summary;
    {
        ConversionProgress progress(parent);
        CatalogueImport::Options options;
        options.overwrite = true; // a leftover of an interrupted conversion
        options.progress = [&progress](const QString &table, qint64 done, qint64 total) {
            progress.tableProgress(table, done, total);
        };
        try {
            summary = CatalogueImport::run(path, converted, options);
        } catch (const CatalogueFileError &error) {
            progress.close();
            tellFailure(error.message() + u'.');
            return false;
        }
    }
    const QString problem = replaceConverted(path, converted, keptPath);
    if (!problem.isEmpty()) {
        QFile::remove(converted);
        tellFailure(problem);
        return false;
    }
    tellSuccess(summary, keptPath);
    return true;
}
