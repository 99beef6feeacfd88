#include "reportfixture.h"

#include "reports/dataenvironment.h"
#include "reports/reportpaginator.h"

#include <QDir>
#include <QStandardPaths>
#include <QTemporaryDir>

using namespace Qt::StringLiterals;

ReportDocument LoadListingOf(const QString &cataloguePath, CatalogueListing listing,
                             const QString &priceFormat)
{
    const std::unique_ptr<DataEnvironment> deShelvane = PrepareDataEnvironment(cataloguePath);
    ReportDocument document = LoadCatalogueListing(listing, *deShelvane, cataloguePath);
    document.definition.applyPriceFormat(priceFormat);
    return document;
}

QList<const ReportPage *> AllPages(ReportPaginator &report)
{
    QList<const ReportPage *> pages;
    for (int index = 0; const ReportPage *page = report.page(index); ++index)
        pages.append(page);
    return pages;
}

const PageItem *itemOf(const ReportPage &page, const QString &control)
{
    for (const PageItem &item : page.items) {
        if (item.control == control)
            return &item;
    }
    return nullptr;
}

QStringList TextsOf(const QList<const ReportPage *> &pages, const QString &control)
{
    QStringList texts;
    for (const ReportPage *page : pages)
        texts += page->textsOf(control);
    return texts;
}

QString PdfText(const QString &pdfPath)
{
    const QString program = QStandardPaths::findExecutable(u"pdftotext"_s);
    if (program.isEmpty())
        return {};
    QProcess process;
    process.start(program, {u"-enc"_s, u"UTF-8"_s, pdfPath, u"-"_s});
    if (!process.waitForFinished(60000) || process.exitCode() != 0)
        return {};
    return QString::fromUtf8(process.readAllStandardOutput());
}

bool SavePdfPictures(const QString &pdfPath, const QString &name, int first, int last)
{
    const QString folder = qEnvironmentVariable("SHELVANE_SCREENSHOTS");
    const QString program = QStandardPaths::findExecutable(u"pdftoppm"_s);
    if (folder.isEmpty() || program.isEmpty() || !QDir().mkpath(folder))
        return false;
    QProcess process;
    process.start(program, {u"-r"_s, u"100"_s, u"-png"_s, u"-f"_s, QString::number(first),
                            u"-l"_s, QString::number(last), pdfPath,
                            QDir(folder).filePath(name)});
    return process.waitForFinished(60000) && process.exitCode() == 0;
}

ToolRun RunCatalogueTool(const QStringList &arguments, const QString &lang)
{
    static QTemporaryDir runtime; // the platform wants a private runtime folder
    QFile::setPermissions(runtime.path(), QFileDevice::ReadOwner | QFileDevice::WriteOwner
                                              | QFileDevice::ExeOwner);
    QProcessEnvironment environment = QProcessEnvironment::systemEnvironment();
    environment.insert(u"LANG"_s, lang);
    environment.insert(u"LC_ALL"_s, lang);
    environment.insert(u"XDG_RUNTIME_DIR"_s, runtime.path());
    environment.remove(u"DISPLAY"_s);
    environment.remove(u"QT_QPA_PLATFORM"_s);
    QProcess process;
    process.setProcessEnvironment(environment);
    process.start(qEnvironmentVariable("SHELVANE_TOOL"), arguments);
    ToolRun run;
    if (!process.waitForFinished(120000) || process.exitStatus() != QProcess::NormalExit)
        return run;
    run.status = process.exitCode();
    run.out = QString::fromUtf8(process.readAllStandardOutput());
    run.err = QString::fromUtf8(process.readAllStandardError());
    return run;
}
