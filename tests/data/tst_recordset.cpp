#include "data/connection.h"
#include "data/connectionstring.h"
#include "data/recordset.h"
#include "data/runtimeerror.h"
#include "support/testcatalogue.h"

#include <QSignalSpy>
#include <QTest>

using namespace Qt::StringLiterals;

// The cursor behaviour the forms rely on: moves at both ends, positions, finds, bookmarks,
// adding, editing and deleting rows.
class TestRecordset : public QObject
{
    Q_OBJECT

    std::unique_ptr<TestCatalogue> m_catalogue;
    std::unique_ptr<Connection> m_connection;

    std::unique_ptr<Recordset> topics(const QString &where = {})
    {
        return m_connection->execute(u"select * from tblTopic "_s + where
                                     + u" order by TopicDescription"_s);
    }
    int topicCount() const
    {
        return m_catalogue->scalar(u"select count(*) from tblTopic"_s).toInt();
    }

private Q_SLOTS:
    void init()
    {
        m_catalogue = std::make_unique<TestCatalogue>(TestCatalogue::Content::Sample);
        m_connection = std::make_unique<Connection>();
        m_connection->open(ConnectionString::forCatalogue(m_catalogue->path()));
    }
    void cleanup()
    {
        m_connection.reset();
        m_catalogue.reset();
    }

    void opensOnTheFirstRow()
    {
        auto rs = topics();
        QCOMPARE(rs->recordCount(), topicCount());
        QVERIFY(!rs->bof());
        QVERIFY(!rs->eof());
        QCOMPARE(rs->absolutePosition(), 1);
        QCOMPARE(rs->value(u"TopicDescription"_s),
                 m_catalogue->scalar(u"select TopicDescription from tblTopic order by TopicDescription limit 1"_s));
    }

    void walksForwardToEofAndBackToBof()
    {
        auto rs = topics();
        const int count = rs->recordCount();
        for (int position = 1; position <= count; ++position) {
            QCOMPARE(rs->absolutePosition(), position);
            rs->moveNext();
        }
        QVERIFY(rs->eof());
        QVERIFY(!rs->bof());
        QCOMPARE(rs->absolutePosition(), Recordset::PositionEOF);
        QVERIFY_THROWS_EXCEPTION(ProviderError, rs->moveNext());
        rs->moveLast();
        QCOMPARE(rs->absolutePosition(), count);
        for (int position = count; position >= 1; --position) {
            QCOMPARE(rs->absolutePosition(), position);
            rs->movePrevious();
        }
        QVERIFY(rs->bof());
        QCOMPARE(rs->absolutePosition(), Recordset::PositionBOF);
        QVERIFY_THROWS_EXCEPTION(ProviderError, rs->movePrevious());
        QVERIFY_THROWS_EXCEPTION(ProviderError, rs->value(0));
        rs->moveFirst();
        QCOMPARE(rs->absolutePosition(), 1);
        QCOMPARE(rs->recordCount(), count);
    }

    void relativeMoves()
    {
        auto rs = topics();
        rs->move(3);
        QCOMPARE(rs->absolutePosition(), 4);
        rs->move(-2);
        QCOMPARE(rs->absolutePosition(), 2);
        rs->move(0);
        QCOMPARE(rs->absolutePosition(), 2);
        rs->move(1000);
        QVERIFY(rs->eof());
    }

    void oneRow()
    {
        const QString id = m_catalogue->scalar(u"select min(TopicID) from tblTopic"_s).toString();
        auto rs = topics(u"where TopicID = "_s + id);
        QCOMPARE(rs->recordCount(), 1);
        QCOMPARE(rs->absolutePosition(), 1);
        rs->moveNext();
        QVERIFY(rs->eof());
        rs->moveFirst();
        rs->movePrevious();
        QVERIFY(rs->bof());
        rs->moveLast();
        QCOMPARE(rs->absolutePosition(), 1);
        QCOMPARE(rs->value(u"topicid"_s).toString(), id);
    }

    void noRows()
    {
        auto rs = topics(u"where 1 = 0"_s);
        QCOMPARE(rs->recordCount(), 0);
        QVERIFY(rs->bof());
        QVERIFY(rs->eof());
        rs->moveFirst();
        rs->moveLast();
        QVERIFY(rs->bof() && rs->eof());
        QVERIFY(rs->absolutePosition() < 0);
        QVERIFY(!rs->find(u"TopicID = 1"_s));
        QVERIFY_THROWS_EXCEPTION(ProviderError, rs->bookmark());
    }

    void fieldsByNameInAnyCaseAndByPosition()
    {
        auto rs = topics();
        QCOMPARE(rs->fieldNames().first(), u"TopicID"_s);
        QCOMPARE(rs->fieldIndex(u"TOPICDESCRIPTION"_s), 1);
        QCOMPARE(rs->value(u"topicdescription"_s), rs->value(1));
        QCOMPARE(rs->fieldIndex(u"NoSuchField"_s), -1);
        QVERIFY_THROWS_EXCEPTION(ProviderError, rs->value(u"NoSuchField"_s));
    }

    void addNewThenMoveZeroGivesTheNewKey()
    {
        auto rs = topics();
        const int before = rs->recordCount();
        rs->addNew();
        QCOMPARE(rs->editMode(), Recordset::EditMode::Add);
        QCOMPARE(rs->recordCount(), before + 1);
        QCOMPARE(rs->absolutePosition(), before + 1);
        rs->setValue(u"TopicDescription"_s, u"Printing history"_s);
        rs->move(0);
        QCOMPARE(rs->editMode(), Recordset::EditMode::None);
        const QVariant key = rs->value(u"TopicID"_s);
        QVERIFY(key.toInt() > 0);
        QCOMPARE(m_catalogue->scalar(u"select TopicDescription from tblTopic where TopicID = "_s
                                     + key.toString()).toString(), u"Printing history"_s);
        rs->requery();
        QCOMPARE(rs->absolutePosition(), 1);
        QVERIFY(rs->find(u"TopicID = "_s + key.toString(), 0, true));
        QCOMPARE(rs->value(u"TopicDescription"_s).toString(), u"Printing history"_s);
        QCOMPARE(rs->recordCount(), before + 1);
    }

    void cancelUpdateReturnsToTheBookmark()
    {
        auto rs = topics();
        const int before = rs->recordCount();
        rs->move(2);
        const Recordset::Bookmark saved = rs->bookmark();
        const QVariant description = rs->value(u"TopicDescription"_s);
        rs->addNew();
        rs->setValue(u"TopicDescription"_s, u"Never written"_s);
        rs->cancelUpdate();
        QCOMPARE(rs->editMode(), Recordset::EditMode::None);
        QCOMPARE(rs->recordCount(), before);
        rs->moveFirst();
        rs->setBookmark(saved);
        QCOMPARE(rs->absolutePosition(), 3);
        QCOMPARE(rs->value(u"TopicDescription"_s), description);
        QCOMPARE(m_catalogue->scalar(u"select count(*) from tblTopic where TopicDescription = 'Never written'"_s).toInt(), 0);
    }

    void movingOffAnEditedRowWritesIt()
    {
        auto rs = topics();
        QSignalSpy willChange(rs.get(), &Recordset::willChangeRecord);
        const QString id = rs->value(u"TopicID"_s).toString();
        rs->setValue(u"TopicNotes"_s, u"O'Brien's notes"_s);
        rs->setValue(u"TopicNotes"_s, u"O'Brien's notes, revised"_s);
        QCOMPARE(rs->editMode(), Recordset::EditMode::InProgress);
        QCOMPARE(willChange.size(), 1);
        rs->moveNext();
        QCOMPARE(willChange.size(), 2);
        QCOMPARE(willChange.at(1).at(0).value<Recordset::ChangeReason>(), Recordset::ChangeReason::Write);
        QCOMPARE(m_catalogue->scalar(u"select TopicNotes from tblTopic where TopicID = "_s + id).toString(),
                 u"O'Brien's notes, revised"_s);
    }

    void cancelUpdateDropsAnEdit()
    {
        auto rs = topics();
        const QVariant notes = rs->value(u"TopicNotes"_s);
        rs->setValue(u"TopicNotes"_s, u"changed"_s);
        QCOMPARE(rs->value(u"TopicNotes"_s).toString(), u"changed"_s);
        rs->cancelUpdate();
        QCOMPARE(rs->value(u"TopicNotes"_s), notes);
        rs->moveNext();
        QCOMPARE(m_catalogue->scalar(u"select count(*) from tblTopic where TopicNotes = 'changed'"_s).toInt(), 0);
    }

    void aFailedWriteKeepsTheEditPending()
    {
        auto rs = m_connection->execute(u"select * from tblBook order by bookdescription"_s);
        const QString id = rs->value(u"BookID"_s).toString();
        const QVariant publisher = rs->value(u"BookPublisherId"_s);
        rs->setValue(u"BookDescription"_s, u"A new title"_s);
        rs->setValue(u"BookPublisherId"_s, 999999); // no such publisher
        QVERIFY_THROWS_EXCEPTION(ProviderError, rs->moveNext());
        QCOMPARE(rs->editMode(), Recordset::EditMode::InProgress);
        QCOMPARE(rs->absolutePosition(), 1);
        QCOMPARE(m_catalogue->scalar(u"select BookPublisherId from tblBook where BookID = "_s + id), publisher);
        QVERIFY(m_catalogue->scalar(u"select BookDescription from tblBook where BookID = "_s + id).toString()
                != u"A new title"_s);
        rs->setValue(u"BookPublisherId"_s, publisher);
        rs->moveNext();
        QCOMPARE(m_catalogue->scalar(u"select BookDescription from tblBook where BookID = "_s + id).toString(),
                 u"A new title"_s);
    }

    void deletingTheLastRow()
    {
        auto rs = topics();
        const int count = rs->recordCount();
        rs->moveLast();
        const QString id = rs->value(u"TopicID"_s).toString();
        rs->deleteCurrent();
        QCOMPARE(rs->recordCount(), count - 1);
        QCOMPARE(rs->absolutePosition(), Recordset::PositionUnknown);
        QVERIFY_THROWS_EXCEPTION(ProviderError, rs->value(0));
        rs->moveNext();
        QVERIFY(rs->eof());
        rs->moveLast();
        QCOMPARE(rs->absolutePosition(), count - 1);
        QCOMPARE(m_catalogue->scalar(u"select count(*) from tblTopic where TopicID = "_s + id).toInt(), 0);
    }

    void deletingAMiddleRowThenMovingOn()
    {
        auto rs = topics();
        rs->move(1);
        const QVariant third = rs->valueAt(2, 1);
        rs->deleteCurrent();
        rs->moveNext();
        QCOMPARE(rs->absolutePosition(), 2);
        QCOMPARE(rs->value(1), third);
    }

    void findForwardsAndBackwards()
    {
        auto rs = topics();
        const QString last = rs->valueAt(rs->recordCount() - 1, 1).toString();
        QVERIFY(rs->find(u"TopicDescription = '"_s + last + u"'"_s));
        QCOMPARE(rs->absolutePosition(), rs->recordCount());
        const QString first = rs->valueAt(0, 1).toString();
        QVERIFY(!rs->find(u"TopicDescription = '"_s + first + u"'"_s, 1, true));
        QVERIFY(rs->eof());
        rs->moveLast();
        QVERIFY(rs->find(u"TopicDescription = '"_s + first.toUpper() + u"'"_s, 0, false));
        QCOMPARE(rs->absolutePosition(), 1);
        QVERIFY_THROWS_EXCEPTION(ProviderError, rs->find(u"this is not a criterion"_s));
    }

    void joinsAreReadOnly()
    {
        auto rs = m_connection->execute(
            u"select tblAuthor.AuthorSurname, tblBookAuthor.BookID from tblBookAuthor, tblAuthor "
            "where tblBookAuthor.AuthorID = tblAuthor.AuthorID"_s);
        QVERIFY(!rs->isUpdatable());
        QVERIFY_THROWS_EXCEPTION(ProviderError, rs->setValue(0, u"x"_s));
        QVERIFY_THROWS_EXCEPTION(ProviderError, rs->addNew());
    }

    void filteredBookSetWritesToTblBook()
    {
        m_connection->execute(u"Delete from tblcriteriahits"_s);
        const QString id = m_catalogue->scalar(u"select max(BookID) from tblBook"_s).toString();
        m_connection->execute(u"Insert into tblcriteriahits (BookID) values ("_s + id + u")"_s);
        auto rs = m_connection->execute(
            u"Select tblBook.* from tblBook,tblCriteriaHits where tblcriteriahits.BookID = "
            "tblBook.BookID order by tblBook.BookDescription"_s);
        QCOMPARE(rs->recordCount(), 1);
        QCOMPARE(rs->baseTable(), u"tblBook"_s);
        rs->setValue(u"BookNotes"_s, u"Filtered edit"_s);
        rs->update();
        QCOMPARE(m_catalogue->scalar(u"select BookNotes from tblBook where BookID = "_s + id).toString(),
                 u"Filtered edit"_s);
    }

    void sixteenBitValues()
    {
        QCOMPARE(toInt16(32767), qint16(32767));
        QCOMPARE(toInt16(-32768), qint16(-32768));
        try {
            toInt16(32768);
            QFAIL("32768 does not fit");
        } catch (const RuntimeError &error) {
            QCOMPARE(error.number, 6);
            QCOMPARE(error.description, u"Overflow"_s);
        }
    }
};

QTEST_GUILESS_MAIN(TestRecordset)
#include "tst_recordset.moc"
