// The number formats of the reports' text boxes, in the en_GB locale.
#include "reportfixture.h"
#include "reports/numberformat.h"

using namespace Qt::StringLiterals;

class TestNumberFormat : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void formats_data()
    {
        QTest::addColumn<QVariant>("value");
        QTest::addColumn<QString>("format");
        QTest::addColumn<QString>("printed");
        QTest::newRow("session price format") << QVariant(1234.5) << u"£###,##0.00"_s << u"£1,234.50"_s;
        QTest::newRow("dollar design format") << QVariant(1234.5) << u"$#,##0.00"_s << u"$1,234.50"_s;
        QTest::newRow("quoted pound design format") << QVariant(7) << u"\"£\"#,##0.00"_s << u"£7.00"_s;
        QTest::newRow("millions grouped") << QVariant(1234567.891) << u"£###,##0.00"_s << u"£1,234,567.89"_s;
        QTest::newRow("zero keeps its zeros") << QVariant(0) << u"£###,##0.00"_s << u"£0.00"_s;
        QTest::newRow("negative sign leads") << QVariant(-3.5) << u"£###,##0.00"_s << u"-£3.50"_s;
        QTest::newRow("rounds half a penny") << QVariant(2.675) << u"£###,##0.00"_s << u"£2.68"_s;
        QTest::newRow("text prefix, no decimals") << QVariant(42) << u"\"Book No. \"0"_s << u"Book No. 42"_s;
        QTest::newRow("escaped literal") << QVariant(5) << u"\\#0"_s << u"#5"_s;
        QTest::newRow("no grouping without comma") << QVariant(12345) << u"0"_s << u"12345"_s;
        QTest::newRow("null prints nothing") << QVariant(QMetaType(QMetaType::Double)) << u"£###,##0.00"_s << QString();
        QTest::newRow("text is printed as it is") << QVariant(u"O'Brien & Søn"_s) << u"£###,##0.00"_s << u"O'Brien & Søn"_s;
        QTest::newRow("no format") << QVariant(3.25) << QString() << u"3.25"_s;
        QTest::newRow("symbol after the number gives a digit") << QVariant(9) << u"1###,##0.00"_s << u"19.00"_s;
    }

    void formats()
    {
        QFETCH(QVariant, value);
        QFETCH(QString, format);
        QFETCH(QString, printed);
        QCOMPARE(FormatNumber(value, format), printed);
    }
};

SHELVANE_PRINTING_TEST_MAIN(TestNumberFormat)
#include "tst_numberformat.moc"
