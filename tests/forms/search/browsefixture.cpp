#include "browsefixture.h"

#include "app/formregistry.h"
#include "app/mainframe.h"
#include "forms/books/bookformfixture.h"
#include "forms/books/bookforms.h"
#include "forms/search/searchforms.h"
#include "support/finders.h"

#include <QAction>
#include <QSqlError>
#include <QSqlQuery>
#include <QTest>

using namespace Qt::StringLiterals;

BrowseFixture::BrowseFixture(TestCatalogue::Content content)
    : m_opener(
          [](MainFrame &frame) {
              RegisterBookForms(frame);
              RegisterSearchForms(frame);
          },
          content)
{
}

QString BrowseFixture::exec(const QString &sql) const
{
    QSqlQuery query(catalogue().db());
    return query.exec(sql) ? QString() : query.lastError().text();
}

QString BrowseFixture::addUnlinkedBook(const QString &title, const QString &published) const
{
    return exec(u"insert into tblBook (BookDescription, BookPrice, BookWhenPublished, "
                "BookPublisherId) values ('"_s + title + u"', 3, "_s + published
                + u", (select min(PublisherID) from tblPublisher))"_s);
}

QStringList BrowseFixture::column(const QString &sql) const
{
    QSqlQuery query(catalogue().db());
    QStringList values;
    if (!query.exec(sql))
        return {u"error: "_s + query.lastError().text()};
    while (query.next())
        values.append(query.value(0).toString());
    return values;
}

QWidget *BrowseFixture::open(const QString &entryOrItem, const QString &formName) const
{
    QAction *action = FindAction(entryOrItem);
    if (!action)
        return nullptr;
    action->trigger();
    QWidget *form = FindForm(formName);
    if (form) {
        form->window()->activateWindow();
        std::ignore = QTest::qWaitForWindowActive(form->window());
    }
    return form;
}

QStringList BrowseFixture::hits() const
{
    return column(u"select BookID from tblCriteriaHits order by BookID"_s);
}

QWidget *BrowseFixture::bookForm() const
{
    return frame().forms().find(u"frmBookMaintenance"_s);
}

QString BrowseFixture::bookFormShowsOnly(const QString &title) const
{
    const QWidget *books = bookForm();
    if (!books || !books->isVisible())
        return u"The book form is not shown."_s;
    const QStringList shown{Panel(books, 1), Panel(books, 2), Shown(books, u"txtDescription"_s)};
    const QStringList expected{u"Filtered"_s, u"Book 1 of 1"_s, title};
    if (shown != expected)
        return u"The book form shows "_s + shown.join(u" | "_s);
    if (frame().session().BookFilterPending)
        return u"The filter is still pending."_s;
    return {};
}

QString BookIdOf(const BrowseFixture &fixture, const QString &title)
{
    return fixture.catalogue()
        .scalar(u"select BookID from tblBook where BookDescription = '"_s + title + u"'"_s)
        .toString();
}
