#include "data/connectionstring.h"
#include "data/datacontrol.h"
#include "data/recordsetmodel.h"
#include "recordform/bounddelegate.h"
#include "support/testcatalogue.h"
#include "support/testmain.h"

#include <QCheckBox>
#include <QComboBox>
#include <QDataWidgetMapper>
#include <QLineEdit>
#include <QSqlQuery>
#include <QStandardItemModel>
#include <QTest>

using namespace Qt::StringLiterals;

namespace {

const QStringList Conditions{u"Mint"_s, u"Good"_s, u"Fair"_s};

// One row of one column, shown in a widget through the delegate.
struct Binding
{
    explicit Binding(QWidget *widget, const QString &stored)
        : model(1, 1)
    {
        model.setData(model.index(0, 0), stored);
        mapper.setModel(&model);
        mapper.setItemDelegate(new BoundDelegate(&mapper));
        mapper.setSubmitPolicy(QDataWidgetMapper::ManualSubmit);
        mapper.addMapping(widget, 0);
        mapper.toFirst();
    }

    QVariant stored() const { return model.data(model.index(0, 0), Qt::EditRole); }

    QStandardItemModel model;
    QDataWidgetMapper mapper;
};

QComboBox *list(bool editable)
{
    auto *combo = new QComboBox;
    combo->setEditable(editable);
    combo->addItems(Conditions);
    return combo;
}

} // namespace

// The values a record form's widgets show and write back: check boxes as 1 and 0, lists
// showing only what they list, and browsing that leaves the catalogue as it was.
class TestBoundDelegate : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void checkBoxShowsTheStoredNumber_data();
    void checkBoxShowsTheStoredNumber();
    void checkBoxWritesOneOrZero_data();
    void checkBoxWritesOneOrZero();
    void fixedListShowsOnlyWhatItLists_data();
    void fixedListShowsOnlyWhatItLists();
    void typableListShowsAnyText();
    void browsingWritesNothingAndTickingWritesOne();
    void aLongTextShowsItsStart();
};

void TestBoundDelegate::checkBoxShowsTheStoredNumber_data()
{
    QTest::addColumn<QString>("stored");
    QTest::addColumn<bool>("ticked");
    QTest::newRow("1") << u"1"_s << true;
    QTest::newRow("-1") << u"-1"_s << true;
    QTest::newRow("0") << u"0"_s << false;
    QTest::newRow("empty") << QString() << false;
}

void TestBoundDelegate::checkBoxShowsTheStoredNumber()
{
    QFETCH(QString, stored);
    QFETCH(bool, ticked);
    QCheckBox box;
    box.setChecked(!ticked);
    Binding binding(&box, stored);
    QCOMPARE(box.isChecked(), ticked);
}

void TestBoundDelegate::checkBoxWritesOneOrZero_data()
{
    QTest::addColumn<bool>("ticked");
    QTest::addColumn<int>("written");
    QTest::newRow("ticked") << true << 1;
    QTest::newRow("cleared") << false << 0;
}

void TestBoundDelegate::checkBoxWritesOneOrZero()
{
    QFETCH(bool, ticked);
    QFETCH(int, written);
    QCheckBox box;
    Binding binding(&box, u"x"_s);
    box.setChecked(ticked);
    QVERIFY(binding.mapper.submit());
    QCOMPARE(binding.stored().typeId(), QMetaType::Int);
    QCOMPARE(binding.stored().toInt(), written);
}

void TestBoundDelegate::fixedListShowsOnlyWhatItLists_data()
{
    QTest::addColumn<QString>("stored");
    QTest::addColumn<QString>("shown");
    QTest::newRow("listed") << u"Fair"_s << u"Fair"_s;
    QTest::newRow("not listed") << u"Battered"_s << QString();
    QTest::newRow("empty") << QString() << QString();
}

void TestBoundDelegate::fixedListShowsOnlyWhatItLists()
{
    QFETCH(QString, stored);
    QFETCH(QString, shown);
    std::unique_ptr<QComboBox> combo(list(false));
    combo->setCurrentIndex(0); // what the last record showed must not stay
    Binding binding(combo.get(), stored);
    QCOMPARE(combo->currentText(), shown);
    QVERIFY(binding.mapper.submit());
    QCOMPARE(binding.stored().toString(), stored);
    combo->setCurrentIndex(1);
    QVERIFY(binding.mapper.submit());
    QCOMPARE(binding.stored().toString(), Conditions.at(1));
}

void TestBoundDelegate::typableListShowsAnyText()
{
    std::unique_ptr<QComboBox> combo(list(true));
    Binding binding(combo.get(), u"Battered"_s);
    QCOMPARE(combo->currentText(), u"Battered"_s);
}

void TestBoundDelegate::browsingWritesNothingAndTickingWritesOne()
{
    TestCatalogue catalogue(TestCatalogue::Content::Sample);
    QSqlQuery(catalogue.db())
        .exec(u"update tblBook set Book1stEd = 0, BookNotes = null, BookCondition = 'Foxed'"_s);
    DataControl adoBook;
    adoBook.setConnectionString(ConnectionString::forCatalogue(catalogue.path()));
    adoBook.setRecordSource(u"select * from tblBook order by BookID"_s);
    adoBook.Refresh();
    RecordsetModel rows(&adoBook);
    QCheckBox firstEdition;
    QLineEdit notes;
    std::unique_ptr<QComboBox> condition(list(false));
    QDataWidgetMapper mapper;
    mapper.setModel(&rows);
    mapper.setItemDelegate(new BoundDelegate(&mapper));
    mapper.setSubmitPolicy(QDataWidgetMapper::ManualSubmit);
    mapper.addMapping(&firstEdition, rows.column(u"Book1stEd"_s));
    mapper.addMapping(&notes, rows.column(u"BookNotes"_s));
    mapper.addMapping(condition.get(), rows.column(u"BookCondition"_s));
    mapper.setCurrentIndex(rows.currentRow());

    // Submitting what the user did not change is no edit; a condition the list does not
    // hold shows nothing, and is kept all the same.
    QCOMPARE(condition->currentText(), QString());
    QVERIFY(mapper.submit());
    Recordset *rs = adoBook.recordset();
    QCOMPARE(rs->editMode(), Recordset::EditMode::None);

    firstEdition.setChecked(true);
    QVERIFY(mapper.submit());
    QCOMPARE(rs->editMode(), Recordset::EditMode::InProgress);
    const QString id = rs->value(u"BookID"_s).toString();
    rs->moveNext();
    const QString written = u" from tblBook where BookID = "_s + id;
    QCOMPARE(catalogue.scalar(u"select Book1stEd"_s + written).toInt(), 1);
    QVERIFY(catalogue.scalar(u"select BookNotes"_s + written).isNull());
    QCOMPARE(catalogue.scalar(u"select BookCondition"_s + written).toString(), u"Foxed"_s);
}

// Coming back to a book with a title of hundreds of characters shows how the title begins.
void TestBoundDelegate::aLongTextShowsItsStart()
{
    QLineEdit title;
    title.resize(200, title.sizeHint().height());
    title.show();
    QVERIFY(QTest::qWaitForWindowExposed(&title));
    const QString longTitle = u"A Treatise on the Bindings of the Eighteenth Century, "_s.repeated(8);
    Binding binding(&title, longTitle);
    QCOMPARE(title.text(), longTitle);
    QCOMPARE(title.cursorPosition(), 0);
    title.setCursorPosition(longTitle.size());
    binding.mapper.toFirst();
    QCOMPARE(title.cursorPosition(), 0);
}

SHELVANE_TEST_MAIN(TestBoundDelegate)
#include "tst_bounddelegate.moc"
