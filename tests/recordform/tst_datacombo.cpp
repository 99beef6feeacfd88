#include "data/connectionstring.h"
#include "data/datacontrol.h"
#include "data/recordsetmodel.h"
#include "recordform/datacombo.h"
#include "support/testcatalogue.h"

#include <QAbstractItemView>
#include <QDataWidgetMapper>
#include <QScrollBar>
#include <QSqlQuery>
#include <QTest>

using namespace Qt::StringLiterals;

// The publisher combo of a book: listed by name, bound by key, written through the mapper.
class TestDataCombo : public QObject
{
    Q_OBJECT

    std::unique_ptr<TestCatalogue> m_catalogue;

    std::unique_ptr<DataControl> control(const QString &source)
    {
        auto ado = std::make_unique<DataControl>();
        ado->setConnectionString(ConnectionString::forCatalogue(m_catalogue->path()));
        ado->setRecordSource(source);
        ado->Refresh();
        return ado;
    }

private Q_SLOTS:
    void init() { m_catalogue = std::make_unique<TestCatalogue>(TestCatalogue::Content::Sample); }
    void cleanup() { m_catalogue.reset(); }

    void listsNamesAndKeepsKeys()
    {
        auto adoPublisher = control(u"select * from tblPublisher order by PublisherName"_s);
        RecordsetModel publishers(adoPublisher.get());
        DataCombo cboPublisher;
        cboPublisher.setRowSource(&publishers, u"PublisherName"_s, u"PublisherID"_s);
        QCOMPARE(cboPublisher.count(), m_catalogue->scalar(u"select count(*) from tblPublisher"_s).toInt());
        const QString unknown =
            m_catalogue->scalar(u"select PublisherID from tblPublisher where PublisherName = 'UnKnown'"_s).toString();
        cboPublisher.setBoundText(unknown);
        QCOMPARE(cboPublisher.currentText(), u"UnKnown"_s);
        QCOMPARE(cboPublisher.boundText().toString(), unknown);
        cboPublisher.setBoundText(u"999999"_s);
        QCOMPARE(cboPublisher.currentIndex(), -1);
        QVERIFY(!cboPublisher.boundText().isValid());
    }

    void choosingAnotherNameWritesItsKeyToTheBook()
    {
        auto adoBook = control(u"select * from tblBook order by bookdescription"_s);
        auto adoPublisher = control(u"select * from tblPublisher order by PublisherName"_s);
        RecordsetModel books(adoBook.get());
        RecordsetModel publishers(adoPublisher.get());
        DataCombo cboPublisher;
        cboPublisher.setRowSource(&publishers, u"PublisherName"_s, u"PublisherID"_s);
        QDataWidgetMapper mapper;
        mapper.setModel(&books);
        mapper.setSubmitPolicy(QDataWidgetMapper::ManualSubmit);
        mapper.addMapping(&cboPublisher, books.column(u"BookPublisherId"_s));
        mapper.setCurrentIndex(books.currentRow());
        Recordset *book = adoBook->recordset();
        QCOMPARE(cboPublisher.boundText().toString(), book->value(u"BookPublisherId"_s).toString());

        const QString id = book->value(u"BookID"_s).toString();
        const int other = cboPublisher.currentIndex() == 0 ? 1 : 0;
        cboPublisher.setCurrentIndex(other);
        const QString chosen = cboPublisher.boundText().toString();
        QVERIFY(mapper.submit());
        book->moveNext();
        QCOMPARE(m_catalogue->scalar(u"select BookPublisherId from tblBook where BookID = "_s + id).toString(),
                 chosen);
    }

    void aLongListOpensAsAScrollingListOfTwentyRows()
    {
        QSqlQuery insert(m_catalogue->db());
        insert.prepare(u"insert into tblPublisher (PublisherName) values (?)"_s);
        for (int i = 0; i < 2000; ++i) {
            insert.addBindValue(u"Publisher %1"_s.arg(i, 4, 10, QChar(u'0')));
            QVERIFY(insert.exec());
        }
        auto adoPublisher = control(u"select * from tblPublisher order by PublisherName"_s);
        RecordsetModel publishers(adoPublisher.get());
        DataCombo cboPublisher;
        cboPublisher.setRowSource(&publishers, u"PublisherName"_s, u"PublisherID"_s);
        cboPublisher.show();
        QVERIFY(QTest::qWaitForWindowExposed(&cboPublisher));
        cboPublisher.showPopup();
        QAbstractItemView *list = cboPublisher.view();
        QTRY_VERIFY(list->isVisible());
        const int row = list->sizeHintForRow(0);
        QVERIFY(row > 0);
        QVERIFY2(list->window()->height() <= 22 * row,
                 qPrintable(u"%1 px for rows of %2 px"_s.arg(list->window()->height()).arg(row)));
        QVERIFY(list->window()->height() >= 15 * row);
        QVERIFY(list->verticalScrollBar()->isVisible());
        cboPublisher.hidePopup();
    }
};

QTEST_MAIN(TestDataCombo)
#include "tst_datacombo.moc"
