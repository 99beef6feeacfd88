#include "browsefixture.h"

#include "books/bookforms.h"
#include "search/searchforms.h"
#include "shell/mainframe.h"
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

QString BookIdOf(const BrowseFixture &fixture, const QString &title)
{
    return fixture.catalogue()
        .scalar(u"select BookID from tblBook where BookDescription = '"_s + title + u"'"_s)
        .toString();
}
