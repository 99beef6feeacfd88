#include "data/connectionstring.h"
#include "data/datacontrol.h"
#include "data/recordsetmodel.h"
#include "support/testcatalogue.h"

#include <QAbstractItemModelTester>
#include <QApplication>
#include <QCheckBox>
#include <QDataWidgetMapper>
#include <QLineEdit>
#include <QLocale>
#include <QSignalSpy>
#include <QTableView>
#include <QTest>

using namespace Qt::StringLiterals;

// A data control's rows as Qt's views and widget mappers see them.
class TestRecordsetModel : public QObject
{
    Q_OBJECT

    std::unique_ptr<TestCatalogue> m_catalogue;

    std::unique_ptr<DataControl> control(const QString &source)
    {
        auto adoBook = std::make_unique<DataControl>();
        adoBook->setConnectionString(ConnectionString::forCatalogue(m_catalogue->path()));
        adoBook->setRecordSource(source);
        adoBook->Refresh();
        return adoBook;
    }

private Q_SLOTS:
    void initTestCase() { QLocale::setDefault(QLocale(QLocale::English, QLocale::UnitedKingdom)); }
    void init() { m_catalogue = std::make_unique<TestCatalogue>(TestCatalogue::Content::Sample); }
    void cleanup() { m_catalogue.reset(); }

    void passesTheModelTesterThroughEdits()
    {
        auto adoTopic = control(u"select * from tblTopic order by TopicDescription"_s);
        RecordsetModel model(adoTopic.get());
        QAbstractItemModelTester tester(&model, QAbstractItemModelTester::FailureReportingMode::QtTest);
        QCOMPARE(model.rowCount(), m_catalogue->scalar(u"select count(*) from tblTopic"_s).toInt());
        QCOMPARE(model.headerData(1, Qt::Horizontal).toString(), u"TopicDescription"_s);
        Recordset *rs = adoTopic->recordset();
        rs->addNew();
        QCOMPARE(model.rowCount(), rs->recordCount());
        rs->setValue(u"TopicDescription"_s, u"Bookbinding"_s);
        rs->update();
        rs->moveFirst();
        rs->deleteCurrent();
        QCOMPARE(model.rowCount(), rs->recordCount());
        rs->requery();
        QCOMPARE(model.rowCount(), rs->recordCount());
        adoTopic->Refresh(); // replaces the record set
        QCOMPARE(model.rowCount(), adoTopic->recordset()->recordCount());
        QCOMPARE(model.rowCount(), m_catalogue->scalar(u"select count(*) from tblTopic"_s).toInt());
    }

    void moneyAndWholeNumberFormats()
    {
        auto adoBook = control(u"select * from tblBook order by bookdescription"_s);
        RecordsetModel model(adoBook.get());
        model.setColumnFormat(u"BookPrice"_s, FieldFormat::Money);
        model.setColumnFormat(u"BookWhenPublished"_s, FieldFormat::WholeNumber);
        const int price = model.column(u"bookprice"_s);
        const QModelIndex first = model.index(0, price);
        QVERIFY(model.setData(first, u"£1,234.50"_s));
        QCOMPARE(model.data(first).toString(), u"£1,234.50"_s);
        QVERIFY(!model.setData(first, u"twelve pounds"_s));
        const QModelIndex year = model.index(0, model.column(u"BookWhenPublished"_s));
        QVERIFY(model.setData(year, u"1923"_s));
        QCOMPARE(model.data(year).toString(), u"1923"_s);
        const QString id = adoBook->recordset()->value(u"BookID"_s).toString();
        adoBook->recordset()->moveNext();
        QCOMPARE(m_catalogue->scalar(u"select BookPrice from tblBook where BookID = "_s + id).toDouble(), 1234.5);
        QCOMPARE(m_catalogue->scalar(u"select BookWhenPublished from tblBook where BookID = "_s + id).toInt(), 1923);
    }

    void mapperFollowsTheCurrentRowAndWritesEdits()
    {
        auto adoBook = control(u"select * from tblBook order by bookdescription"_s);
        RecordsetModel model(adoBook.get());
        QWidget form;
        auto *txtDescription = new QLineEdit(&form);
        auto *chk1stEd = new QCheckBox(&form);
        QDataWidgetMapper mapper;
        mapper.setModel(&model);
        mapper.setSubmitPolicy(QDataWidgetMapper::ManualSubmit);
        mapper.addMapping(txtDescription, model.column(u"BookDescription"_s));
        mapper.addMapping(chk1stEd, model.column(u"Book1stEd"_s));
        connect(&model, &RecordsetModel::currentRowChanged, &mapper, &QDataWidgetMapper::setCurrentIndex);
        mapper.setCurrentIndex(model.currentRow());
        Recordset *rs = adoBook->recordset();
        QCOMPARE(txtDescription->text(), rs->value(u"BookDescription"_s).toString());
        rs->moveNext();
        QCOMPARE(txtDescription->text(), rs->value(u"BookDescription"_s).toString());
        const QString id = rs->value(u"BookID"_s).toString();
        const bool wasFirstEdition = rs->value(u"Book1stEd"_s).toInt() != 0;
        txtDescription->setText(u"Mr O'Hara's Garden"_s);
        chk1stEd->setChecked(!wasFirstEdition);
        QVERIFY(mapper.submit());
        QCOMPARE(rs->editMode(), Recordset::EditMode::InProgress);
        rs->moveNext();
        QCOMPARE(m_catalogue->scalar(u"select BookDescription from tblBook where BookID = "_s + id).toString(),
                 u"Mr O'Hara's Garden"_s);
        QCOMPARE(m_catalogue->scalar(u"select Book1stEd from tblBook where BookID = "_s + id).toInt() != 0,
                 !wasFirstEdition);
    }

    void refillingWithTheSameTextIsNoEdit()
    {
        auto adoBook = control(u"select * from tblBook order by bookdescription"_s);
        RecordsetModel model(adoBook.get());
        QSignalSpy willChange(adoBook.get(), &DataControl::willChangeRecord);
        const QModelIndex description = model.index(0, model.column(u"BookDescription"_s));
        QVERIFY(model.setData(description, model.data(description)));
        QCOMPARE(willChange.size(), 0);
        QCOMPARE(adoBook->recordset()->editMode(), Recordset::EditMode::None);
    }

    void emptyTextOverANullFieldIsNoEdit()
    {
        auto adoTopic = control(u"select * from tblTopic order by TopicDescription"_s);
        RecordsetModel model(adoTopic.get());
        Recordset *rs = adoTopic->recordset();
        rs->setValue(u"TopicNotes"_s, QVariant());
        rs->update();
        const QModelIndex notes = model.index(rs->currentRow(), model.column(u"TopicNotes"_s));
        QVERIFY(model.setData(notes, QString(u""_s)));
        QCOMPARE(rs->editMode(), Recordset::EditMode::None);
        QVERIFY(model.setData(notes, u"Now written"_s));
        QCOMPARE(rs->editMode(), Recordset::EditMode::InProgress);
    }

    void gridSelectsTheCurrentRow()
    {
        auto adoAuthor = control(u"select * from tblAuthor order by AuthorSurname"_s);
        RecordsetModel model(adoAuthor.get());
        QTableView grid;
        grid.setModel(&model);
        connect(&model, &RecordsetModel::currentRowChanged, &grid, [&](int row) {
            grid.setCurrentIndex(model.index(row, 0));
        });
        adoAuthor->recordset()->move(3);
        QCOMPARE(grid.currentIndex().row(), 3);
    }

    void errorsReachTheHandlerWhichMaySuppressTheMessage()
    {
        int presented = 0;
        DataControl::setErrorPresenter([&](int, const QString &) { ++presented; });
        DataControl adoBook;
        adoBook.setConnectionString(ConnectionString::forCatalogue(m_catalogue->path()));
        adoBook.setRecordSource(u"select * from tblNoSuchTable"_s);
        QSignalSpy errors(&adoBook, &DataControl::error);
        adoBook.Refresh();
        QCOMPARE(errors.size(), 1);
        QCOMPARE(presented, 1);
        QVERIFY(!adoBook.recordset());
        QVERIFY_THROWS_EXCEPTION(ProviderError, adoBook.openRecordset());
        connect(&adoBook, &DataControl::error, this,
                [](int, const QString &, bool *cancelDisplay) { *cancelDisplay = true; });
        adoBook.Refresh();
        QCOMPARE(errors.size(), 2);
        QCOMPARE(presented, 1);
        DataControl::setErrorPresenter({});
    }

    void refreshFollowsANewConnectionString()
    {
        auto adoTopic = control(u"select * from tblTopic order by TopicDescription"_s);
        const int sampleTopics = adoTopic->recordset()->recordCount();
        adoTopic->Refresh();
        QCOMPARE(adoTopic->recordset()->recordCount(), sampleTopics);
        TestCatalogue other(TestCatalogue::Content::Empty);
        adoTopic->setConnectionString(ConnectionString::forCatalogue(other.path()));
        adoTopic->Refresh();
        QCOMPARE(adoTopic->recordset()->recordCount(),
                 other.scalar(u"select count(*) from tblTopic"_s).toInt());
        QVERIFY(adoTopic->recordset()->recordCount() != sampleTopics);
    }

    void designTimeStringOpensNothing()
    {
        DataControl adoBook;
        QCOMPARE(adoBook.connectionString(),
                 u"Provider=Microsoft.Jet.OLEDB.4.0;Mode=Share Deny None;Persist Security Info=False"_s);
        bool cancel = true;
        connect(&adoBook, &DataControl::error, this, [&](int, const QString &, bool *c) { *c = cancel; });
        adoBook.setRecordSource(u"select * from tblBook"_s);
        adoBook.Refresh();
        QVERIFY(!adoBook.recordset());
    }
};

QTEST_MAIN(TestRecordsetModel)
#include "tst_recordsetmodel.moc"
