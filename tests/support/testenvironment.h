#pragma once

#include <QString>
#include <QTemporaryDir>
#include <QVariant>

// What every form test runs in: the settings store in a temporary folder of its own, the
// standard paths in test mode and the en_GB locale. Made after the application object and
// before anything opens the settings store (SHELVANE_TEST_MAIN does so).
class TestEnvironment
{
public:
    TestEnvironment();
    TestEnvironment(const TestEnvironment &) = delete;
    TestEnvironment &operator=(const TestEnvironment &) = delete;

    // Empties the settings store, as on a machine where the program never ran.
    static void clearSettings();
    // A value as the settings store holds it: section = the form's name (invalid when absent).
    static QVariant storedSetting(const QString &section, const QString &key);
    static void storeSetting(const QString &section, const QString &key, const QString &value);

private:
    QTemporaryDir m_settings;
};
