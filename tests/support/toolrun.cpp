#include "support/toolrun.h"

#include <QProcess>

Run runTool(const QStringList &arguments, const QString &program)
{
    QProcess process;
    process.start(program, arguments);
    Run run;
    if (!process.waitForFinished(60000) || process.exitStatus() != QProcess::NormalExit)
        return run;
    run.status = process.exitCode();
    run.out = QString::fromUtf8(process.readAllStandardOutput());
    run.err = QString::fromUtf8(process.readAllStandardError());
    return run;
}
