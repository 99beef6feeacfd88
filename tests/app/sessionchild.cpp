// A second copy of the program working on a catalogue, for the tests of two copies at once
// and of a copy killed in the middle of a write:
//   sessionchild CATALOGUE [--watch-writes]
// opens the catalogue through frmOpen as a person does and says "open" on its output. Then
// it carries out one command a line from its input, and ends when its input ends:
//   edit TEXT      types TEXT at the end of the shown book's title in the book form and
//                  moves to the next book, which writes it; says "edited ID"
//   labels         File › Print Labels, answered Yes; says "labelled"
//   revalue P      raises every price by P per cent in the collection value form; says
//                  "revalued"
//   close          File › Close Catalogue; says "closed"
// With --watch-writes, what SQLite does to the catalogue's file is watched (KillingVfs):
//   watch STEP N   the process is killed just before the Nth time it takes that step of a
//                  commit ("catalogue-write", ...); says "watching"
//   counts         says how often each step was taken since "watch" ("counts journal-write=3
//                  ..."); "watch journal-write 0" starts counting afresh without a kill
// Anything that goes otherwise is said on a line starting "failed:".

#include "killingvfs.h"

#include "app/application.h"
#include "app/mainframe.h"
#include "forms/books/bookforms.h"
#include "forms/figures/figureforms.h"
#include "forms/printing/printingforms.h"
#include "support/catalogueopener.h"
#include "support/finders.h"
#include "support/formdriver.h"
#include "support/modalresponder.h"
#include "support/testenvironment.h"

#include <QAction>
#include <QLineEdit>
#include <QTest>

#include <cstdio>
#include <iostream>
#include <string>

using namespace Qt::StringLiterals;

namespace {

void say(const QString &line)
{
    std::printf("%s\n", qPrintable(line));
    std::fflush(stdout);
}

QString answered(ModalResponder &responder, const QString &done)
{
    const QString problems = responder.finish();
    return problems.isEmpty() ? done : u"failed: "_s + problems;
}

QString edit(const QString &text, ModalResponder &responder)
{
    const QString id = AppendToShownTitle(text);
    if (id.isEmpty())
        return u"failed: the book form did not open"_s;
    return answered(responder, u"edited "_s + id);
}

QString printLabels(ModalResponder &responder)
{
    responder.expect(ModalResponder::message(
        u"Print Labels!"_s,
        u"This will print labels for the whole of your collection!\r\n\r\n"
        "Are you sure you wish to continue?"_s,
        QMessageBox::Information, {u"Yes"_s, u"No"_s}, u"Yes"_s));
    FindAction(u"mnuPrintLabels"_s)->trigger();
    return answered(responder, u"labelled"_s);
}

QString revalue(const QString &percent, ModalResponder &responder)
{
    const QWidget *form = OpenThroughMenu(u"mnuCollectionValue"_s, u"frmPrices"_s);
    auto *increase = FindControl<QLineEdit>(form, u"txtIncrease"_s);
    if (!increase)
        return u"failed: the collection value form did not open"_s;
    Retype(increase, percent);
    ClickButton(form, u"cmdUpdate"_s);
    return answered(responder, u"revalued"_s);
}

QString closeCatalogue(MainFrame &frame, ModalResponder &responder)
{
    responder.expect(ModalResponder::message(
        u"Close Catalogue"_s, u"Catalogue "_s + frame.session().strCataloguePath + u" closed!"_s,
        QMessageBox::Information, {u"OK"_s}, u"OK"_s));
    FindAction(u"mnuClose"_s)->trigger();
    return answered(responder, u"closed"_s);
}

QString watch(const QStringList &words)
{
    KillingVfs::Step step;
    if (words.size() != 3 || !KillingVfs::stepNamed(words.at(1), &step))
        return u"failed: watch what?"_s;
    KillingVfs::watch(step, words.at(2).toInt());
    return u"watching"_s;
}

QString carryOut(const QString &command, MainFrame &frame, ModalResponder &responder)
{
    const QStringList words = command.split(u' ');
    const QString rest = command.section(u' ', 1);
    if (words.constFirst() == u"edit")
        return edit(u' ' + rest, responder);
    if (command == u"labels")
        return printLabels(responder);
    if (words.constFirst() == u"revalue")
        return revalue(rest, responder);
    if (command == u"close")
        return closeCatalogue(frame, responder);
    if (words.constFirst() == u"watch")
        return watch(words);
    if (command == u"counts")
        return u"counts "_s + KillingVfs::counts();
    return u"failed: no command "_s + command;
}

} // namespace

int main(int argc, char *argv[])
{
    Application app(argc, argv);
    const TestEnvironment environment;
    const QStringList arguments = app.arguments();
    if (arguments.size() < 2)
        return 2;
    if (arguments.contains(u"--watch-writes"_s))
        KillingVfs::install(arguments.at(1));
    MainFrame frame;
    RegisterBookForms(frame);
    RegisterPrintingForms(frame);
    RegisterFigureForms(frame);
    frame.show();
    if (!QTest::qWaitForWindowExposed(&frame))
        return 1;
    ModalResponder responder;
    const QString problems = OpenCatalogueThroughForm(frame, arguments.at(1), responder);
    say(problems.isEmpty() ? u"open"_s : u"failed: "_s + problems);
    for (std::string line; std::getline(std::cin, line);)
        say(carryOut(QString::fromStdString(line), frame, responder));
    return 0;
}
