// The program as a user runs it, for the author-halt test: opens the catalogue named on the
// command line, opens the authors' form and deletes the first author, telling the test on
// its output how far it got. The test holds the catalogue's write lock, so the delete is
// refused; the program must end there, at once and without a word (exit code 0). A message
// box instead ends this child with code 4, and still running after 20 s with code 3.

#include "app/application.h"
#include "app/mainframe.h"
#include "forms/reference/registerreferenceforms.h"
#include "support/catalogueopener.h"
#include "support/finders.h"
#include "support/modalresponder.h"
#include "support/testenvironment.h"

#include <QAbstractButton>
#include <QAction>
#include <QMessageBox>
#include <QTest>
#include <QTimer>

#include <cstdio>

using namespace Qt::StringLiterals;

namespace {

constexpr int MessageShown = 4;
constexpr int StillRunning = 3;
constexpr int CouldNotStart = 2;

void tell(const QString &line)
{
    std::fputs(qPrintable(line + u'\n'), stdout);
    std::fflush(stdout);
}

// Ends the child as soon as any modal window appears, saying what it was.
void watchForMessages(QObject *owner)
{
    auto *watch = new QTimer(owner);
    QObject::connect(watch, &QTimer::timeout, [] {
        if (QWidget *modal = QApplication::activeModalWidget()) {
            const auto *box = qobject_cast<QMessageBox *>(modal);
            tell(u"message: "_s + modal->windowTitle() + u": "_s + (box ? box->text() : QString()));
            std::fflush(stdout);
            std::_Exit(MessageShown);
        }
    });
    watch->start(20);
    QTimer::singleShot(20000, [] {
        tell(u"still running"_s);
        std::_Exit(StillRunning);
    });
}

} // namespace

int main(int argc, char *argv[])
{
    Application app(argc, argv);
    TestEnvironment environment;
    if (argc < 2) {
        tell(u"usage: authorhaltchild CATALOGUE"_s);
        return CouldNotStart;
    }
    TestEnvironment::storeSetting(u"frmAuthor"_s, u"DeletePrompt"_s, u"N"_s);
    MainFrame frame;
    RegisterReferenceForms(frame);
    frame.show();
    if (!QTest::qWaitForWindowExposed(&frame))
        return CouldNotStart;
    QString problems;
    {
        ModalResponder responder;
        problems = OpenCatalogueThroughForm(frame, QString::fromLocal8Bit(argv[1]), responder);
    }
    if (!problems.isEmpty()) {
        tell(problems);
        return CouldNotStart;
    }
    FindAction(u"mnuAuthorS"_s)->trigger();
    QWidget *form = FindForm(u"frmAuthor"_s);
    if (!form) {
        tell(u"frmAuthor did not open"_s);
        return CouldNotStart;
    }
    watchForMessages(&app);
    tell(u"deleting"_s);
    QTest::mouseClick(FindControl<QAbstractButton>(form, u"cmdDelete"_s), Qt::LeftButton);
    tell(u"delete returned"_s);
    return app.exec();
}
