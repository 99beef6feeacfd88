#include "support/toolrun.h"

#include <QProcess>
#include <QTemporaryDir>

using namespace Qt::StringLiterals;

Run runTool(const QStringList &arguments, const QString &program)
{
    // The tool reads the program's settings (how many backups to keep): the tests' own, never
    // the machine's.
    static const QTemporaryDir settings;
    QProcessEnvironment environment = QProcessEnvironment::systemEnvironment();
    environment.insert(u"XDG_CONFIG_HOME"_s, settings.path());
    QProcess process;
    process.setProcessEnvironment(environment);
    process.start(program, arguments);
    Run run;
    if (!process.waitForFinished(60000) || process.exitStatus() != QProcess::NormalExit)
        return run;
    run.status = process.exitCode();
    run.out = QString::fromUtf8(process.readAllStandardOutput());
    run.err = QString::fromUtf8(process.readAllStandardError());
    return run;
}
