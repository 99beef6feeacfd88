#include "app/frmabout.h"
#include "app/mainframe.h"
#include "app/sysinfo.h"
#include "support/finders.h"
#include "support/modalresponder.h"
#include "support/screenshot.h"
#include "support/testmain.h"

#include <QAction>
#include <QDir>
#include <QFile>
#include <QLabel>
#include <QPushButton>
#include <QTemporaryDir>
#include <QTest>
#include <QTextBrowser>

using namespace Qt::StringLiterals;

namespace {

const QString FirstLocation = u"SOFTWARE\\Microsoft\\Shared Tools\\MSINFO"_s;
const QString SecondLocation = u"SOFTWARE\\Microsoft\\Shared Tools Location"_s;

// A registry holding at most one value, at one of the two places the about box looks.
KeyValueReader registryWith(const QString &keyPath, const QString &valueName, const QString &value)
{
    return [=](const QString &path, const QString &name, QString *out) {
        if (path != keyPath || name != valueName)
            return false;
        *out = value;
        return true;
    };
}

ModalExpectation unavailable()
{
    return ModalResponder::message(u"prjQuireshelf"_s,
                                   u"System Information Is Unavailable At This Time"_s,
                                   QMessageBox::NoIcon, {u"OK"_s}, u"OK"_s);
}

} // namespace

// The about box: version and description, System Info, Help.
class TestAbout : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void init();
    void cleanup();

    void versionIsShownWithoutPadding_data();
    void versionIsShownWithoutPadding();
    void loadShowsTheApplicationsVersionAndDescription();
    void applicationCarriesTheBuildsVersion();
    void designTexts();
    void opensFromTheHelpMenuWithoutACatalogueAndOKUnloadsIt();
    void systemInformationProgramIsLookedFor_data();
    void systemInformationProgramIsLookedFor();
    void withNoProgramTheMessageIsShownAndNothingStarts();
    void secondLocationWithoutTheProgramLeadsToTheMessage();
    void programThatWillNotRunLeadsToTheMessage();
    void programFoundIsStarted();
    void helpOpensTheAboutTopic();

private:
    QByteArray m_path;
    QTemporaryDir m_emptyFolder;
};

void TestAbout::init()
{
    // Nothing on the PATH, so that this machine's own programs do not count.
    m_path = qgetenv("PATH");
    qputenv("PATH", QFile::encodeName(m_emptyFolder.path()));
}

void TestAbout::cleanup()
{
    qputenv("PATH", m_path);
    if (QWidget *help = FindForm(u"HelpWindow"_s))
        help->close();
}

void TestAbout::versionIsShownWithoutPadding_data()
{
    QTest::addColumn<QString>("version");
    QTest::addColumn<QString>("shown");
    QTest::newRow("1.0.5") << u"1.0.5"_s << u"Version 1.0.5"_s;
    QTest::newRow("two-digit parts") << u"2.10.12"_s << u"Version 2.10.12"_s;
    QTest::newRow("no revision") << u"1.0"_s << u"Version 1.0.0"_s;
    QTest::newRow("major only") << u"3"_s << u"Version 3.0.0"_s;
}

void TestAbout::versionIsShownWithoutPadding()
{
    QFETCH(QString, version);
    QFETCH(QString, shown);
    QCOMPARE(FrmAbout::VersionText(version), shown);
}

void TestAbout::loadShowsTheApplicationsVersionAndDescription()
{
    const QString buildVersion = QCoreApplication::applicationVersion();
    QCoreApplication::setApplicationVersion(u"1.0.5"_s);
    FrmAbout about;
    QCoreApplication::setApplicationVersion(buildVersion);
    QCOMPARE(FindControl<QLabel>(&about, u"lblVersion"_s)->text(), u"Version 1.0.5"_s);
    QCOMPARE(FindControl<QLabel>(&about, u"lblDescription"_s)->text(),
             QStringLiteral(SHELVANE_DESCRIPTION));
}

void TestAbout::applicationCarriesTheBuildsVersion()
{
    QCOMPARE(QCoreApplication::applicationVersion(), QStringLiteral(SHELVANE_VERSION));
}

void TestAbout::designTexts()
{
    FrmAbout about;
    QCOMPARE(about.objectName(), u"frmAbout"_s);
    QCOMPARE(about.windowTitle(), u"About Shelvane"_s);
    QCOMPARE(about.property("tag").toString(), u"Ignore"_s);
    QCOMPARE(FindControl<QLabel>(&about, u"lblTitle"_s)->text(), u"Shelvane version Information:"_s);
    QVERIFY(!FindControl<QLabel>(&about, u"picIcon"_s)->pixmap().isNull());
    QVERIFY(!FindControl<QLabel>(&about, u"lblDisclaimer"_s)->text().isEmpty());
    QVERIFY(FindControl<QWidget>(&about, u"Line1"_s));
    QCOMPARE(FindControl<QPushButton>(&about, u"cmdOK"_s)->text(), u"OK"_s);
    QCOMPARE(FindControl<QPushButton>(&about, u"cmdSysInfo"_s)->text(), u"&System Info..."_s);
    QCOMPARE(FindControl<QPushButton>(&about, u"cmdHelp"_s)->text(), u"Help"_s);

    QStringList tabOrder;
    QWidget *w = FindControl<QPushButton>(&about, u"cmdOK"_s);
    for (int i = 0; i < 3; ++i, w = w->nextInFocusChain())
        tabOrder << w->objectName();
    QCOMPARE(tabOrder, (QStringList{u"cmdOK"_s, u"cmdSysInfo"_s, u"cmdHelp"_s}));
}

void TestAbout::opensFromTheHelpMenuWithoutACatalogueAndOKUnloadsIt()
{
    MainFrame frame;
    frame.show();
    QVERIFY(QTest::qWaitForWindowExposed(&frame));
    QVERIFY(!frame.session().isOpen());

    ModalResponder responder;
    FindAction(u"mnuAbout"_s)->trigger();
    QWidget *about = FindForm(u"frmAbout"_s);
    QVERIFY(about);
    QVERIFY(about->isVisible());
    QVERIFY(!about->isModal());
    QVERIFY(QTest::qWaitForWindowExposed(about));
    QVERIFY(!SaveScreenshot(about, u"frmAbout"_s).isEmpty());
    QVERIFY(FindControl<QPushButton>(about, u"cmdOK"_s)->size().width() >= 75);

    QTest::mouseClick(FindControl<QPushButton>(about, u"cmdOK"_s), Qt::LeftButton);
    QTRY_VERIFY(!FindForm(u"frmAbout"_s));
    QCOMPARE(responder.finish(100), QString());
}

void TestAbout::systemInformationProgramIsLookedFor_data()
{
    QTest::addColumn<QString>("keyPath");
    QTest::addColumn<QString>("valueName");
    QTest::addColumn<bool>("folderHasProgram");
    QTest::addColumn<bool>("found");

    QTest::newRow("neither value present") << QString() << QString() << false << false;
    QTest::newRow("program named under the first location")
        << FirstLocation << u"PATH"_s << false << true;
    QTest::newRow("second location's folder lacks MSINFO32.EXE")
        << SecondLocation << u"MSINFO"_s << false << false;
    QTest::newRow("second location's folder holds MSINFO32.EXE")
        << SecondLocation << u"MSINFO"_s << true << true;
}

void TestAbout::systemInformationProgramIsLookedFor()
{
    QFETCH(QString, keyPath);
    QFETCH(QString, valueName);
    QFETCH(bool, folderHasProgram);
    QFETCH(bool, found);

    QTemporaryDir folder;
    const QString program = folder.filePath(u"MSINFO32.EXE"_s);
    if (folderHasProgram) {
        QFile file(program);
        QVERIFY(file.open(QIODevice::WriteOnly));
    }
    const QString value = keyPath == FirstLocation ? program : folder.path();
    const QString answer = SysInfoProgram(registryWith(keyPath, valueName, value));
    QCOMPARE(answer, found ? program : QString());
}

void TestAbout::withNoProgramTheMessageIsShownAndNothingStarts()
{
    QCOMPARE(SysInfoProgram(LocalMachineRegistry()), QString());

    FrmAbout about;
    about.show();
    ModalResponder responder;
    responder.expect(unavailable());
    QTest::mouseClick(FindControl<QPushButton>(&about, u"cmdSysInfo"_s), Qt::LeftButton);
    QCOMPARE(responder.finish(), QString());
    QVERIFY(about.isVisible());
}

void TestAbout::secondLocationWithoutTheProgramLeadsToTheMessage()
{
    ModalResponder responder;
    responder.expect(unavailable());
    StartSysInfo(registryWith(SecondLocation, u"MSINFO"_s, m_emptyFolder.path()));
    QCOMPARE(responder.finish(), QString());
}

void TestAbout::programThatWillNotRunLeadsToTheMessage()
{
    ModalResponder responder;
    responder.expect(unavailable());
    StartSysInfo(registryWith(FirstLocation, u"PATH"_s, m_emptyFolder.filePath(u"msinfo32.exe"_s)));
    QCOMPARE(responder.finish(), QString());
}

void TestAbout::programFoundIsStarted()
{
    QTemporaryDir folder;
    const QString marker = folder.filePath(u"started"_s);
    QFile program(folder.filePath(u"hardinfo"_s));
    QVERIFY(program.open(QIODevice::WriteOnly));
    program.write("#!/bin/sh\necho started > \"" + QFile::encodeName(marker) + "\"\n");
    program.close();
    program.setPermissions(program.permissions() | QFile::ExeOwner);
    qputenv("PATH", QFile::encodeName(folder.path()));

    FrmAbout about;
    about.show();
    ModalResponder responder;
    QTest::mouseClick(FindControl<QPushButton>(&about, u"cmdSysInfo"_s), Qt::LeftButton);
    QTRY_VERIFY(QFile::exists(marker));
    QCOMPARE(responder.finish(100), QString());
}

void TestAbout::helpOpensTheAboutTopic()
{
    FrmAbout about;
    about.show();
    QTest::mouseClick(FindControl<QPushButton>(&about, u"cmdHelp"_s), Qt::LeftButton);
    QWidget *help = FindForm(u"HelpWindow"_s);
    QVERIFY(help && help->isVisible());
    QCOMPARE(FindControl<QTextBrowser>(help, u"helpBrowser"_s)->documentTitle(), u"About Shelvane"_s);
}

SHELVANE_TEST_MAIN(TestAbout)
#include "tst_about.moc"
