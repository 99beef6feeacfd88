// Re-organises a catalogue in a process of its own, for the tests of what survives a process
// that dies or runs out of disk on the way:
//   reorganisationchild CATALOGUE BACKUP kill STEP         killed when the step is passed
//   reorganisationchild CATALOGUE BACKUP full BYTES        no file may grow past BYTES
//   reorganisationchild CATALOGUE BACKUP full BYTES STEP   the same, once the step is passed
// STEP is the number of a Reorganisation::Step. Says how the re-organisation ended, as
// "outcome N: reason", on its output.

#include "catalogue/reorganisation.h"

#include <QCoreApplication>

#include <csignal>
#include <cstdio>

#include <sys/resource.h>
#include <unistd.h>

using namespace Qt::StringLiterals;
using Reorganisation::Step;

namespace {

void limitFileSize(rlim_t bytes)
{
    // Without this, writing past the limit kills the process instead of failing the write.
    std::signal(SIGXFSZ, SIG_IGN);
    const rlimit limit{bytes, bytes};
    ::setrlimit(RLIMIT_FSIZE, &limit);
}

} // namespace

int main(int argc, char *argv[])
{
    QCoreApplication app(argc, argv);
    const QStringList arguments = app.arguments();
    if (arguments.size() < 5)
        return 2;
    const bool killAtStep = arguments.at(3) == u"kill";
    const rlim_t bytes = killAtStep ? 0 : arguments.at(4).toULongLong();
    const QString chosenStep = killAtStep ? arguments.at(4) : arguments.value(5);
    if (!killAtStep && chosenStep.isEmpty())
        limitFileSize(bytes);

    const auto watch = [&](Step step) {
        if (chosenStep.isEmpty() || step != static_cast<Step>(chosenStep.toInt()))
            return;
        if (killAtStep)
            ::kill(::getpid(), SIGKILL);
        else
            limitFileSize(bytes);
    };
    const Reorganisation::Result result =
        Reorganisation::reorganiseCatalogue(arguments.at(1), arguments.at(2), watch);
    std::printf("outcome %d: %s\n", int(result.outcome), qPrintable(result.reason));
    return 0;
}
