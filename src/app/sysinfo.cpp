#include "app/sysinfo.h"

#include "recordform/msgbox.h"

#include <QDir>
#include <QFileInfo>
#include <QProcess>
#include <QSettings>
#include <QStandardPaths>

using namespace Qt::StringLiterals;

namespace {

// Programs that show a summary of the machine's hardware and software on Linux desktops.
const QStringList DesktopSysInfoPrograms{u"hardinfo2"_s, u"hardinfo"_s, u"kinfocenter"_s};

QString onPath()
{
    for (const QString &name : DesktopSysInfoPrograms) {
        const QString program = QStandardPaths::findExecutable(name);
        if (!program.isEmpty())
            return program;
    }
    return {};
}

} // namespace

KeyValueReader LocalMachineRegistry()
{
    return [](const QString &keyPath, const QString &valueName, QString *value) {
#ifdef Q_OS_WIN
        const QSettings key(u"HKEY_LOCAL_MACHINE\\"_s + keyPath, QSettings::NativeFormat);
        if (!key.contains(valueName))
            return false;
        *value = key.value(valueName).toString();
        return true;
#else
        Q_UNUSED(keyPath)
        Q_UNUSED(valueName)
        Q_UNUSED(value)
        return false;
#endif
    };
}

QString SysInfoProgram(const KeyValueReader &getKeyValue)
{
    QString found;
    if (getKeyValue(u"SOFTWARE\\Microsoft\\Shared Tools\\MSINFO"_s, u"PATH"_s, &found))
        return found;
    if (getKeyValue(u"SOFTWARE\\Microsoft\\Shared Tools Location"_s, u"MSINFO"_s, &found)) {
        const QString program = QDir(QDir::fromNativeSeparators(found)).filePath(u"MSINFO32.EXE"_s);
        if (QFileInfo::exists(program))
            return program;
    }
    return onPath();
}

void StartSysInfo(const KeyValueReader &getKeyValue)
{
    const QString program = SysInfoProgram(getKeyValue);
    if (program.isEmpty() || !QProcess::startDetached(program, {}))
        MsgBox(u"System Information Is Unavailable At This Time"_s, Vb::OKOnly, QString());
}
