#pragma once

#include <QString>

#include <functional>

// Reads a string value of a key under the local machine's registry root, the way the about box
// finds the system-information program: true and the value when the value exists.
using KeyValueReader =
    std::function<bool(const QString &keyPath, const QString &valueName, QString *value)>;

// The registry of this machine; where there is none (every platform but Windows) it holds
// nothing.
KeyValueReader LocalMachineRegistry();

// The system-information program: the one the registry names, else the program in the folder
// it names, else the platform's own found on the PATH. Empty when there is none.
QString SysInfoProgram(const KeyValueReader &getKeyValue);

// Starts the system-information program, or says that there is none (also when it will not
// run).
void StartSysInfo(const KeyValueReader &getKeyValue);
