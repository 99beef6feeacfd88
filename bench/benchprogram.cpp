#include "benchprogram.h"

#include "catalogue/session.h"
#include "data/connection.h"
#include "forms/registerforms.h"

#include <QSettings>
#include <QToolButton>

#include <cstdio>

using namespace Qt::StringLiterals;

namespace {

// A benchmark shows no windows unless asked to; set before the application starts.
int &offscreenUnlessAsked(int &argc)
{
    if (!qEnvironmentVariableIsSet("QT_QPA_PLATFORM"))
        qputenv("QT_QPA_PLATFORM", "offscreen");
    return argc;
}

int booksAsked(int argc, char **argv)
{
    const int books = argc > 1 ? QString::fromLocal8Bit(argv[1]).toInt() : 30000;
    std::printf("Generating a catalogue of %d books...\n", books);
    return books;
}

} // namespace

BenchProgram::SeparateSettings::SeparateSettings()
{
    QSettings::setPath(QSettings::NativeFormat, QSettings::UserScope, m_folder.path());
}

BenchProgram::BenchProgram(int &argc, char **argv)
    : m_app(offscreenUnlessAsked(argc), argv)
    , m_books(booksAsked(argc, argv))
    , m_catalogue(m_books)
{
    RegisterAllForms(m_frame);
    m_frame.show();
    QCoreApplication::processEvents();
}

void BenchProgram::openCatalogue()
{
    m_frame.session().strCataloguePath = m_catalogue.path();
    m_frame.startSession();
    QCoreApplication::processEvents();
}

void BenchProgram::showBooks()
{
    m_frame.findChild<QToolButton *>(u"Book"_s)->click();
    QCoreApplication::processEvents();
}

QSqlDatabase BenchProgram::database()
{
    return m_frame.session().cnnCatalogue->database();
}
