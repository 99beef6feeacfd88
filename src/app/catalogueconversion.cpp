#include "app/catalogueconversion.h"

#include "app/conversionprogress.h"
#include "catalogue/cataloguefile.h"
#include "jetimport/catalogueimport.h"
#include "recordform/msgbox.h"

#include <QDir>
#include <QFile>
#include <QFileInfo>

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
    if (!QFile::rename(path, keptPath)) {
        QFile::remove(converted);
        tellFailure(u"the old file cannot be renamed to '"_s + fileName(keptPath) + u"'."_s);
        return false;
    }
    if (!QFile::rename(converted, path)) {
        QFile::rename(keptPath, path);
        QFile::remove(converted);
        tellFailure(u"the converted catalogue cannot be named '"_s + fileName(path) + u"'."_s);
        return false;
    }
    tellSuccess(summary, keptPath);
    return true;
}
