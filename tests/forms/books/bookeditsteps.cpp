#include "bookeditsteps.h"

#include "support/finders.h"

#include <QTest>
#include <QWidget>

#include <functional>

using namespace Qt::StringLiterals;

const QString CheckTitle = u"Adding new book"_s;
const QStringList MandatoryFields{u"txtDescription"_s, u"txtPrice"_s, u"txtPages"_s,
                                  u"cboCover"_s, u"cboCondition"_s, u"cboPublisher"_s};

QWidget *control(const QWidget *form, const QString &name)
{
    QWidget *widget = FindControl(form, name);
    if (!widget)
        qWarning("No control %s", qPrintable(name));
    return widget;
}

void focus(QWidget *widget)
{
    widget->window()->activateWindow();
    QVERIFY(QTest::qWaitForWindowActive(widget->window()));
    widget->setFocus(Qt::OtherFocusReason);
    QTRY_VERIFY(widget->hasFocus());
}

QWidget *focused(const QWidget *form)
{
    return form->window()->focusWidget();
}

QString title(const BookFormFixture &fixture, const QString &id)
{
    return fixture.catalogue().scalar(u"select BookDescription from tblBook where BookID = "_s + id).toString();
}

void fillMandatory(QWidget *form, int count, const QString &bookTitle)
{
    const QList<std::function<void()>> steps{
        [&] { TypeInto(control(form, u"txtDescription"_s), bookTitle); },
        [&] { TypeInto(control(form, u"txtPrice"_s), u"12.50"_s); },
        [&] { TypeInto(control(form, u"txtPages"_s), u"200"_s); },
        [&] { PickFromList(control(form, u"cboCover"_s), u"Boxed"_s); },
        [&] { PickFromList(control(form, u"cboCondition"_s), u"Mint"_s); },
        [&] { PickFromList(control(form, u"cboPublisher"_s), u"UnKnown"_s); },
    };
    for (int i = 0; i < count; ++i)
        steps.at(i)();
}
