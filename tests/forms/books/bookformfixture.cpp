#include "bookformfixture.h"

#include "app/formregistry.h"
#include "app/mainframe.h"
#include "forms/books/bookforms.h"
#include "forms/books/frmbookmaintenance.h"
#include "recordform/recordstatusbar.h"
#include "support/catalogueopener.h"
#include "support/finders.h"
#include "support/testenvironment.h"

#include <QAbstractItemView>
#include <QApplication>
#include <QComboBox>
#include <QLineEdit>
#include <QPlainTextEdit>
#include <QSqlQuery>
#include <QStyle>
#include <QStyleHints>
#include <QStyleOptionComboBox>
#include <QTest>
#include <QToolButton>

using namespace Qt::StringLiterals;

BookFormFixture::BookFormFixture(TestCatalogue::Content content, const Preparation &prepare)
    : m_catalogue(content)
    , m_frame(std::make_unique<MainFrame>())
    , m_responder(std::make_unique<ModalResponder>())
{
    // Picking from a list waits out the double-click time; keep that short.
    QGuiApplication::styleHints()->setMouseDoubleClickInterval(100);
    if (prepare)
        prepare(m_catalogue);
    RegisterBookForms(*m_frame);
    m_frame->show();
    m_frame->activateWindow();
    if (!QTest::qWaitForWindowActive(m_frame.get()))
        m_problems = u"The main frame never became active."_s;
    else
        m_problems = OpenCatalogueThroughForm(*m_frame, m_catalogue.path(), *m_responder);
}

BookFormFixture::~BookFormFixture() = default;

FrmBookMaintenance *BookFormFixture::showBooks(const QList<ModalExpectation> &expected)
{
    for (const ModalExpectation &expectation : expected)
        m_responder->expect(expectation);
    m_frame->activateWindow();
    auto *button = m_frame->findChild<QToolButton *>(u"Book"_s);
    if (!button)
        return nullptr;
    QTest::mouseClick(button, Qt::LeftButton);
    const QString answered = m_responder->finish();
    if (!answered.isEmpty())
        qWarning("%s", qPrintable(answered));
    return answered.isEmpty() ? form() : nullptr;
}

FrmBookMaintenance *BookFormFixture::form() const
{
    return qobject_cast<FrmBookMaintenance *>(m_frame->forms().find(u"frmBookMaintenance"_s));
}

QStringList BookFormFixture::bookColumn(const QString &column) const
{
    QSqlQuery query(m_catalogue.db());
    query.exec(u"select "_s + column + u" from tblBook order by BookDescription, BookID"_s);
    QStringList values;
    while (query.next())
        values << query.value(0).toString();
    return values;
}

int BookFormFixture::rows(const QString &sql) const
{
    return m_catalogue.scalar(u"select count(*) from ("_s + sql + u")"_s).toInt();
}

QVariant bookValue(const BookFormFixture &fixture, const QString &column, const QString &title)
{
    QSqlQuery query(fixture.catalogue().db());
    query.prepare(u"select "_s + column + u" from tblBook where BookDescription = ?"_s);
    query.addBindValue(title);
    query.exec();
    return query.next() ? query.value(0) : QVariant();
}

QString Panel(const QWidget *form, int number)
{
    auto *bar = FindControl<RecordStatusBar>(form, u"stbContents"_s);
    return bar ? bar->panelText(number) : u"(no status bar)"_s;
}

QString Shown(const QWidget *form, const QString &control)
{
    QWidget *widget = FindControl(form, control);
    if (auto *box = qobject_cast<QLineEdit *>(widget))
        return box->text();
    if (auto *list = qobject_cast<QComboBox *>(widget))
        return list->currentText();
    if (auto *notes = qobject_cast<QPlainTextEdit *>(widget))
        return notes->toPlainText();
    return u"(no control "_s + control + u")"_s;
}

void SetBookPrompt(const QString &key, const QString &value)
{
    TestEnvironment::storeSetting(u"frmBookMaintenance"_s, key, value);
}

void TypeInto(QWidget *box, const QString &text)
{
    // Text is typed at its end, where the person first puts the cursor: a box filled by the
    // form shows its start, with the cursor there.
    if (qobject_cast<QPlainTextEdit *>(box))
        QTest::keyClick(box, Qt::Key_End, Qt::ControlModifier);
    else if (qobject_cast<QLineEdit *>(box))
        QTest::keyClick(box, Qt::Key_End);
    QTest::keyClicks(box, text);
}

void ClearWithKeys(QWidget *box)
{
    QTest::keyClick(box, Qt::Key_A, Qt::ControlModifier);
    QTest::keyClick(box, Qt::Key_Backspace);
}

void PickFromList(QWidget *widget, const QString &text)
{
    auto *combo = qobject_cast<QComboBox *>(widget);
    QVERIFY(combo);
    const int row = combo->findText(text);
    QVERIFY2(row >= 0, qPrintable(u"No entry \""_s + text + u"\" in "_s + combo->objectName()));
    // An editable combo opens its list from the arrow; its text part takes the click as typing.
    QStyleOptionComboBox option;
    option.initFrom(combo);
    option.editable = combo->isEditable();
    const QPoint opener = combo->isEditable()
        ? combo->style()->subControlRect(QStyle::CC_ComboBox, &option, QStyle::SC_ComboBoxArrow, combo).center()
        : combo->rect().center();
    QTest::mouseClick(combo, Qt::LeftButton, Qt::NoModifier, opener);
    QAbstractItemView *list = combo->view();
    QTRY_VERIFY(list->window()->isVisible());
    const QModelIndex entry = list->model()->index(row, combo->modelColumn());
    list->scrollTo(entry);
    const QPoint centre = list->visualRect(entry).center();
    // The pointer comes over the entry first, as a hand moves; a release straight after the
    // list opens would be taken as the end of the opening click.
    QTest::mouseMove(list->viewport(), centre);
    QTest::qWait(2 * QGuiApplication::styleHints()->mouseDoubleClickInterval());
    QTest::mouseClick(list->viewport(), Qt::LeftButton, Qt::NoModifier, centre);
    QTRY_VERIFY(!list->window()->isVisible());
}

void Click(QWidget *widget)
{
    QTest::mouseClick(widget, Qt::LeftButton);
}

ModalExpectation Message(const QString &title, const QString &text, const QString &press)
{
    return ModalResponder::message(title, text, QMessageBox::NoIcon, {u"OK"_s}, press);
}

ModalExpectation Question(const QString &title, const QString &text, const QStringList &buttons,
                          const QString &press)
{
    return ModalResponder::message(title, text, QMessageBox::NoIcon, buttons, press);
}

ModalExpectation Warning(const QString &title, const QString &text)
{
    return ModalResponder::message(title, text, QMessageBox::Warning, {u"OK"_s}, u"OK"_s);
}
