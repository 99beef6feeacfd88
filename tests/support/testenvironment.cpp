#include "support/testenvironment.h"

#include <QLocale>
#include <QSettings>
#include <QStandardPaths>

using namespace Qt::StringLiterals;

TestEnvironment::TestEnvironment()
{
    QStandardPaths::setTestModeEnabled(true);
    QSettings::setPath(QSettings::NativeFormat, QSettings::UserScope, m_settings.path());
    QSettings::setPath(QSettings::IniFormat, QSettings::UserScope, m_settings.path());
    QLocale::setDefault(QLocale(QLocale::English, QLocale::UnitedKingdom));
}

void TestEnvironment::clearSettings()
{
    QSettings store;
    store.clear();
    store.sync();
}

QVariant TestEnvironment::storedSetting(const QString &section, const QString &key)
{
    const QSettings store;
    return store.value(section + u'/' + key);
}

void TestEnvironment::storeSetting(const QString &section, const QString &key, const QString &value)
{
    QSettings store;
    store.setValue(section + u'/' + key, value);
}
