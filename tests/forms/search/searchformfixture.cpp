#include "searchformfixture.h"

#include "app/formregistry.h"
#include "app/mainframe.h"
#include "data/jetsql.h"
#include "forms/search/frmsearch.h"
#include "forms/search/searchforms.h"
#include "support/finders.h"

#include <QLabel>
#include <QSqlQuery>
#include <QTest>
#include <QToolButton>

using namespace Qt::StringLiterals;

SearchFormFixture::SearchFormFixture()
{
    RegisterSearchForms(frame());
}

FrmSearch *SearchFormFixture::openSearch()
{
    frame().activateWindow();
    auto *button = frame().findChild<QToolButton *>(u"Search"_s);
    if (!button)
        return nullptr;
    QTest::mouseClick(button, Qt::LeftButton);
    return search();
}

FrmSearch *SearchFormFixture::search() const
{
    return qobject_cast<FrmSearch *>(frame().forms().find(u"frmSearch"_s));
}

void SearchFormFixture::click(const QString &control)
{
    Click(FindControl(search(), control));
}

void SearchFormFixture::type(const QString &box, const QString &text)
{
    QWidget *input = FindControl(search(), box);
    QVERIFY2(input, qPrintable(box));
    input->setFocus();
    QTest::keyClicks(input, text);
}

void SearchFormFixture::pick(const QString &lookup, const QString &text)
{
    PickFromList(FindControl(search(), lookup), text);
}

void SearchFormFixture::apply(const QString &step)
{
    const QString action = step.section(u' ', 0, 0);
    const QString control = step.section(u' ', 1, 1);
    const QString text = step.section(u' ', 2);
    if (action == u"tick")
        click(control);
    else if (action == u"type")
        type(control, text);
    else if (action == u"pick")
        pick(control, text);
    else
        QFAIL(qPrintable(u"Unknown step "_s + step));
}

void SearchFormFixture::apply(const QStringList &steps)
{
    for (const QString &step : steps)
        apply(step);
}

QString SearchFormFixture::pressSearch(const QList<ModalExpectation> &expected)
{
    for (const ModalExpectation &expectation : expected)
        responder().expect(expectation);
    Click(FindControl(search(), u"cmdSearch"_s));
    return responder().finish();
}

QStringList SearchFormFixture::hits() const
{
    return keysOf(u"select BookID from tblCriteriaHits"_s);
}

QStringList SearchFormFixture::keysOf(const QString &statement) const
{
    QSqlQuery query(catalogue().db());
    if (!query.exec(JetSql::toSqlite(statement)))
        return {u"(failed: "_s + statement + u")"_s};
    QList<int> keys;
    while (query.next())
        keys << query.value(0).toInt();
    std::sort(keys.begin(), keys.end());
    QStringList texts;
    for (int key : std::as_const(keys))
        texts << QString::number(key);
    return texts;
}

void SearchFormFixture::setHits(const QStringList &keys) const
{
    QSqlQuery query(catalogue().db());
    query.exec(u"delete from tblCriteriaHits"_s);
    for (const QString &key : keys)
        query.exec(u"insert into tblCriteriaHits (BookID) values ("_s + key + u")"_s);
}

ModalExpectation ResultsPrompt(int booksFound, const QString &press)
{
    return ModalResponder::dialog(u"dlgAddPrompt"_s, u"Search Results"_s, press, [booksFound](QWidget *prompt) {
        auto *question = FindControl<QLabel>(prompt, u"lblAddPrompt"_s);
        QVERIFY(question);
        QCOMPARE(question->text(), u"The search found "_s + QString::number(booksFound)
                                       + u" Books, \n\nWould you like to see the results?"_s);
    });
}

ModalExpectation RuntimeErrorReport(const QString &text)
{
    return ModalResponder::message(u"prjQuireshelf"_s, text, QMessageBox::Critical, {u"OK"_s},
                                   u"OK"_s);
}
