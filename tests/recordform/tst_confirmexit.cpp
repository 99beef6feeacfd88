#include "data/connectionstring.h"
#include "data/datacontrol.h"
#include "data/recordsetmodel.h"
#include "recordform/confirmexit.h"
#include "support/modalresponder.h"
#include "support/testcatalogue.h"
#include "support/testmain.h"

#include <QDataWidgetMapper>
#include <QLineEdit>
#include <QTest>

using namespace Qt::StringLiterals;

// The question a record form asks when it is closed with an edit pending.
class TestConfirmExit : public QObject
{
    Q_OBJECT

    std::unique_ptr<TestCatalogue> m_catalogue;
    std::unique_ptr<DataControl> m_adoTopic;
    std::unique_ptr<RecordsetModel> m_topics;
    std::unique_ptr<QLineEdit> m_txtDescription;
    std::unique_ptr<QDataWidgetMapper> m_mapper;
    int m_applied = 0;
    QString m_firstTopic;

    std::function<bool()> apply(bool answer)
    {
        return [this, answer] {
            ++m_applied;
            if (answer)
                m_adoTopic->recordset()->update();
            return answer;
        };
    }
    QString stored() const
    {
        return m_catalogue
            ->scalar(u"select TopicDescription from tblTopic where TopicID = "_s + m_firstTopic)
            .toString();
    }
    bool confirm(bool answerOfYes)
    {
        return ConfirmExit(m_mapper.get(), m_adoTopic->recordset(), apply(answerOfYes));
    }

private Q_SLOTS:
    void init()
    {
        m_applied = 0;
        m_catalogue = std::make_unique<TestCatalogue>(TestCatalogue::Content::Sample);
        m_adoTopic = std::make_unique<DataControl>();
        m_adoTopic->setConnectionString(ConnectionString::forCatalogue(m_catalogue->path()));
        m_adoTopic->setRecordSource(u"select * from tblTopic order by TopicDescription"_s);
        m_adoTopic->Refresh();
        m_topics = std::make_unique<RecordsetModel>(m_adoTopic.get());
        m_txtDescription = std::make_unique<QLineEdit>();
        m_mapper = std::make_unique<QDataWidgetMapper>();
        m_mapper->setModel(m_topics.get());
        m_mapper->setSubmitPolicy(QDataWidgetMapper::ManualSubmit);
        m_mapper->addMapping(m_txtDescription.get(), m_topics->column(u"TopicDescription"_s));
        connect(m_topics.get(), &RecordsetModel::currentRowChanged, m_mapper.get(),
                &QDataWidgetMapper::setCurrentIndex);
        m_mapper->setCurrentIndex(m_topics->currentRow());
        m_firstTopic = m_adoTopic->recordset()->value(u"TopicID"_s).toString();
    }
    void cleanup()
    {
        m_mapper.reset();
        m_txtDescription.reset();
        m_topics.reset();
        m_adoTopic.reset();
        m_catalogue.reset();
    }

    void withoutAnEditClosesWithoutAQuestion()
    {
        ModalResponder responder;
        QVERIFY(confirm(true));
        QCOMPARE(responder.finish(200), QString());
        QCOMPARE(m_applied, 0);
    }

    void withoutARecordSetClosesWithoutAQuestion()
    {
        ModalResponder responder;
        QVERIFY(ConfirmExit(nullptr, nullptr, apply(true)));
        QCOMPARE(responder.finish(200), QString());
    }

    // What was typed and not yet handed to the record counts as the edit.
    void cancelKeepsTheFormAndTheEdit()
    {
        const QString before = stored();
        m_txtDescription->setText(u"Edited"_s);
        ModalResponder responder;
        responder.expect(confirmExit(u"Cancel"_s));
        QVERIFY(!confirm(true));
        QCOMPARE(responder.finish(), QString());
        QCOMPARE(m_applied, 0);
        QCOMPARE(m_adoTopic->recordset()->editMode(), Recordset::EditMode::InProgress);
        QCOMPARE(stored(), before);
    }

    void yesRunsTheFormsOwnStepsAndFollowsTheirAnswer()
    {
        m_txtDescription->setText(u"Edited"_s);
        ModalResponder responder;
        responder.expect(confirmExit(u"Yes"_s));
        QVERIFY(!confirm(false));
        QCOMPARE(responder.finish(), QString());
        QCOMPARE(m_applied, 1);

        responder.expect(confirmExit(u"Yes"_s));
        QVERIFY(confirm(true));
        QCOMPARE(responder.finish(), QString());
        QCOMPARE(m_applied, 2);
        QCOMPARE(stored(), u"Edited"_s);
    }

    void noDropsTheEdit()
    {
        const QString before = stored();
        m_txtDescription->setText(u"Edited"_s);
        ModalResponder responder;
        responder.expect(confirmExit(u"No"_s));
        QVERIFY(confirm(true));
        QCOMPARE(responder.finish(), QString());
        QCOMPARE(m_applied, 0);
        QCOMPARE(m_adoTopic->recordset()->editMode(), Recordset::EditMode::None);
        QCOMPARE(stored(), before);
    }

    void noDuringAnAddDropsTheNewRow()
    {
        const int before = m_catalogue->scalar(u"select count(*) from tblTopic"_s).toInt();
        m_adoTopic->recordset()->addNew();
        m_txtDescription->setText(u"Bell-ringing"_s);
        ModalResponder responder;
        responder.expect(confirmExit(u"No"_s));
        QVERIFY(confirm(true));
        QCOMPARE(responder.finish(), QString());
        QCOMPARE(m_adoTopic->recordset()->recordCount(), before);
        QCOMPARE(m_catalogue->scalar(u"select count(*) from tblTopic"_s).toInt(), before);
    }
};

SHELVANE_TEST_MAIN(TestConfirmExit)
#include "tst_confirmexit.moc"
