#include "referencecases.h"

#include "app/mainframe.h"
#include "recordform/recordstatusbar.h"
#include "support/finders.h"
#include "support/testenvironment.h"

#include <QAbstractButton>
#include <QAbstractItemView>
#include <QAction>
#include <QComboBox>
#include <QLabel>
#include <QLineEdit>
#include <QMetaProperty>
#include <QPalette>
#include <QSqlQuery>
#include <QTest>

using namespace Qt::StringLiterals;

namespace {

FormCase authorCase()
{
    FormCase c;
    c.form = u"frmAuthor"_s;
    c.caption = u"Author Maintenance"_s;
    c.menuEntry = u"mnuAuthorS"_s;
    c.entity = u"Author"_s;
    c.table = u"tblAuthor"_s;
    c.keyColumn = u"AuthorID"_s;
    c.listColumn = u"AuthorSurname"_s;
    c.lookupCombo = u"dboAuthorLkup"_s;
    c.mandatory = {u"txtAuthorSurname"_s};
    c.missingMessages = {u"Please enter the Author surname"_s};
    c.focusAfterAdd = u"txtAuthorFirstName"_s;
    c.newRecord = {{u"txtAuthorFirstName"_s, u"Flann"_s}, {u"txtAuthorSurname"_s, u"Quigley"_s}};
    c.addPrompt = u"Add New Author"_s;
    c.deletePrompt = u"Delete Author"_s;
    c.added = u"New Author Sucessfully added"_s;
    c.addedTitle = u"Add New Author"_s;
    c.removed = u"Author Successfully removed"_s;
    c.removedTitle = u"Delete Author"_s;
    return c;
}

FormCase topicCase()
{
    FormCase c;
    c.form = u"frmTopic"_s;
    c.caption = u"Topic Maintenance"_s;
    c.menuEntry = u"mnuTopicS"_s;
    c.entity = u"Topic"_s;
    c.table = u"tblTopic"_s;
    c.keyColumn = u"TopicID"_s;
    c.listColumn = u"TopicDescription"_s;
    c.lookupCombo = u"dboTopicLkup"_s;
    c.mandatory = {u"txtTopicDescription"_s, u"txtTopicNotes"_s};
    c.missingMessages = {u"Please enter a topic description"_s, u"Please enter topic notes"_s};
    c.focusAfterAdd = u"txtTopicDescription"_s;
    c.newRecord = {{u"txtTopicDescription"_s, u"Quarrying"_s},
                   {u"txtTopicNotes"_s, u"Stone and slate"_s}};
    c.addPrompt = u"Add New Topic"_s;
    c.deletePrompt = u"Delete Topic"_s;
    c.added = u"New topic Sucessfully added"_s;
    c.addedTitle = u"Add New Topic"_s;
    c.removed = u"Topic Successfully removed"_s;
    c.removedTitle = u"Delete Topic"_s;
    return c;
}

FormCase publisherCase()
{
    FormCase c;
    c.form = u"frmPublisher"_s;
    c.caption = u"Publisher Maintenance"_s;
    c.menuEntry = u"mnuPublishers"_s;
    c.entity = u"Publisher"_s;
    c.table = u"tblPublisher"_s;
    c.keyColumn = u"PublisherID"_s;
    c.listColumn = u"PublisherName"_s;
    c.lookupCombo = u"dboPublisherLkup"_s;
    c.mandatory = {u"txtPublisherName"_s};
    c.missingMessages = {u"Please enter a Publisher name"_s};
    c.focusAfterAdd = u"txtPublisherName"_s;
    c.newRecord = {{u"txtPublisherName"_s, u"Quillon Press"_s},
                   {u"txtPublisherPlace"_s, u"Bath"_s}};
    c.addPrompt = u"Add New Publisher"_s;
    c.deletePrompt = u"Delete Publisher"_s;
    c.added = u"New Publisher Sucessfully added"_s;
    c.addedTitle = u"Add New Publisher"_s;
    c.removed = u"Publisher Successfully removed"_s;
    c.removedTitle = u"Delete Publisher"_s;
    return c;
}

const QHash<QString, FormCase> &cases()
{
    static const QHash<QString, FormCase> all{{u"frmAuthor"_s, authorCase()},
                                              {u"frmTopic"_s, topicCase()},
                                              {u"frmPublisher"_s, publisherCase()}};
    return all;
}

} // namespace

const FormCase &formCase(const QString &name)
{
    return *cases().find(name);
}

void addFormRows()
{
    QTest::addColumn<QString>("form");
    for (const QString &name : {u"frmAuthor"_s, u"frmTopic"_s, u"frmPublisher"_s})
        QTest::newRow(qPrintable(name)) << name;
}

const FormCase &currentCase()
{
    return formCase(QString::fromLatin1(QTest::currentDataTag()));
}

QWidget *openForm(const FormCase &formCase)
{
    QAction *entry = FindAction(formCase.menuEntry);
    if (!entry)
        return nullptr;
    entry->trigger();
    QWidget *form = FindForm(formCase.form);
    // Typing and clicking reach the form as they would the user's active window.
    if (form) {
        form->window()->activateWindow();
        std::ignore = QTest::qWaitForWindowActive(form->window());
    }
    return form;
}

QAbstractButton *button(const QWidget *form, const QString &name)
{
    return FindControl<QAbstractButton>(form, name);
}

QWidget *field(const QWidget *form, const QString &name)
{
    return FindControl<QWidget>(form, name);
}

QString fieldText(const QWidget *form, const QString &name)
{
    const QWidget *shown = field(form, name);
    return shown ? shown->metaObject()->userProperty().read(shown).toString() : u"(none)"_s;
}

void click(const QWidget *form, const QString &name)
{
    QTest::mouseClick(button(form, name), Qt::LeftButton);
}

void typeInto(const QWidget *form, const QString &name, const QString &text)
{
    QWidget *target = field(form, name);
    if (auto *combo = qobject_cast<QComboBox *>(target))
        target = combo->lineEdit();
    target->setFocus();
    QTest::keyClick(target, Qt::Key_A, Qt::ControlModifier);
    QTest::keyClick(target, Qt::Key_Delete);
    // Letters beyond ASCII come as a keyboard sends them: a key event carrying the text.
    for (const QChar letter : text) {
        if (letter.unicode() < 128)
            QTest::keyClick(target, char(letter.unicode()));
        else
            QTest::sendKeyEvent(QTest::Click, target, Qt::Key_unknown, QString(letter),
                                Qt::NoModifier);
    }
}

bool pickFromLookup(const QWidget *form, const FormCase &formCase, const QString &text)
{
    auto *combo = FindControl<QComboBox>(form, formCase.lookupCombo);
    const int row = combo ? combo->findText(text, Qt::MatchFixedString) : -1;
    if (row < 0)
        return false;
    combo->showPopup();
    QAbstractItemView *list = combo->view();
    if (!QTest::qWaitForWindowExposed(list->window()))
        return false;
    const QModelIndex item = list->model()->index(row, combo->modelColumn());
    list->scrollTo(item);
    QTest::mouseClick(list->viewport(), Qt::LeftButton, {}, list->visualRect(item).center());
    return QTest::qWaitFor([list] { return !list->isVisible(); });
}

QString statusText(const QWidget *form)
{
    const auto *bar = FindControl<RecordStatusBar>(form, u"stbContents"_s);
    return bar ? bar->panelText(2) : u"(no status bar)"_s;
}

bool isYellow(const QWidget *field)
{
    return field->palette().color(QPalette::Base) == QColor(255, 255, 0);
}

bool isWhite(const QWidget *field)
{
    return field->palette().color(QPalette::Base) == QColor(255, 255, 255);
}

QString navigationState(const QWidget *form)
{
    QString state;
    for (const QString &name : {u"cmdFirst"_s, u"cmdPrevious"_s, u"cmdNext"_s, u"cmdLast"_s})
        state += button(form, name)->isEnabled() ? u'1' : u'0';
    return state;
}

void storePrompt(const FormCase &formCase, const QString &key, const QString &value)
{
    TestEnvironment::storeSetting(formCase.form, key, value);
}

int rowCount(const CatalogueOpener &opener, const FormCase &formCase)
{
    return opener.catalogue().scalar(u"select count(*) from "_s + formCase.table).toInt();
}

ModalExpectation plainMessage(const QString &title, const QString &text)
{
    return ModalResponder::message(title, text, QMessageBox::NoIcon, {u"OK"_s}, u"OK"_s);
}

ModalExpectation addPrompt(const FormCase &formCase, const QString &press)
{
    return ModalResponder::dialog(u"dlgAddPrompt"_s, formCase.addPrompt, press);
}

ModalExpectation deletePrompt(const FormCase &formCase, const QString &press)
{
    return ModalResponder::dialog(u"dlgDelPrompt"_s, formCase.deletePrompt, press);
}

namespace {

QString modeProblems(const QWidget *form, const FormCase &formCase, bool adding)
{
    QStringList problems;
    for (const QString &name : {u"cmdConfirmAdd"_s, u"cmdCancelAdd"_s}) {
        if (button(form, name)->isVisible() != adding)
            problems << name + (adding ? u" hidden"_s : u" shown"_s);
    }
    for (const QString &name : {u"cmdFirst"_s, u"cmdPrevious"_s, u"cmdNext"_s, u"cmdLast"_s,
                                u"cmdAdd"_s, u"cmdDelete"_s}) {
        if (adding && button(form, name)->isEnabled())
            problems << name + u" enabled"_s;
    }
    if (!adding && !button(form, u"cmdAdd"_s)->isEnabled())
        problems << u"cmdAdd disabled"_s;
    for (const QString &name : formCase.mandatory) {
        if (adding ? !isYellow(field(form, name)) : !isWhite(field(form, name)))
            problems << name + (adding ? u" not yellow"_s : u" not white"_s);
    }
    return problems.join(u", "_s);
}

} // namespace

QString addModeProblems(const QWidget *form, const FormCase &formCase)
{
    return modeProblems(form, formCase, true);
}

QString browseModeProblems(const QWidget *form, const FormCase &formCase)
{
    return modeProblems(form, formCase, false);
}

int rowsWith(const CatalogueOpener &opener, const FormCase &formCase, const QString &column,
             const QString &value)
{
    QSqlQuery query(opener.catalogue().db());
    query.prepare(u"select count(*) from "_s + formCase.table + u" where "_s + column
                  + u" = ?"_s);
    query.addBindValue(value);
    if (!query.exec() || !query.next())
        return -1;
    return query.value(0).toInt();
}

QString valueOf(const CatalogueOpener &opener, const FormCase &formCase, const QString &column,
                const QString &key)
{
    return opener.catalogue()
        .scalar(u"select "_s + column + u" from "_s + formCase.table + u" where "_s
                + formCase.keyColumn + u" = "_s + key)
        .toString();
}

void emptyTable(const CatalogueOpener &opener, const FormCase &formCase)
{
    QSqlQuery query(opener.catalogue().db());
    // Books refer to their publisher without cascading.
    if (formCase.table == u"tblPublisher")
        query.exec(u"delete from tblBook"_s);
    query.exec(u"delete from "_s + formCase.table);
}
