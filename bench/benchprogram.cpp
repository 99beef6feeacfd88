#include "benchprogram.h"

#include "catalogue/session.h"
#include "data/connection.h"
#include "data/jetsql.h"
#include "forms/books/linksides.h"
#include "forms/registerforms.h"

#include <QSettings>
#include <QSqlQuery>
#include <QSqlRecord>
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

void readBookLinks(const QSqlDatabase &db, const QString &book)
{
    for (const LinkSideTexts &side : LinkSides())
        readAll(db, side.listSource + book);
}

void readFirstBookShown(const QSqlDatabase &db, const QString &bookRows)
{
    readAll(db, u"select count(*) from ("_s + bookRows + u")"_s);
    QSqlQuery first(db);
    first.setForwardOnly(true);
    first.exec(JetSql::toSqlite(bookRows + u" limit 1"_s));
    if (!first.next())
        return;
    for (int c = 0; c < first.record().count(); ++c)
        first.value(c);
    readAll(db, u"select PublisherName from tblPublisher where PublisherID = "_s
                    + first.value(u"BookPublisherID"_s).toString());
    readBookLinks(db, first.value(u"BookID"_s).toString());
}
