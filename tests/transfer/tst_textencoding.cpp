// Telling the encoding of a CSV file from its bytes.
#include "transfer/textencoding.h"

#include <QTest>

using namespace Qt::StringLiterals;

class TestTextEncoding : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void decodes_data()
    {
        QTest::addColumn<QByteArray>("bytes");
        QTest::addColumn<QString>("text");
        QTest::addColumn<QString>("encoding");
        QTest::newRow("plain ASCII") << QByteArray("Title\n") << u"Title\n"_s << u"UTF-8"_s;
        QTest::newRow("UTF-8") << QByteArray("Bront\xC3\xAB") << u"Brontë"_s << u"UTF-8"_s;
        QTest::newRow("UTF-8 with BOM") << QByteArray("\xEF\xBB\xBFTitle") << u"Title"_s << u"UTF-8 with BOM"_s;
        QTest::newRow("Windows-1252 accents") << QByteArray("Bront\xEB, \xC9mile") << u"Brontë, Émile"_s << u"Windows-1252"_s;
        QTest::newRow("Windows-1252 quotes, pound and euro")
            << QByteArray("\x93Tess\x94 \xA3" "5 \x80" "6 \x96 d\x92Urbervilles") << u"“Tess” £5 €6 – d’Urbervilles"_s
            << u"Windows-1252"_s;
        QTest::newRow("unassigned Windows-1252 bytes kept") << QByteArray("a\x81\x9D") << u"a\u0081\u009D"_s << u"Windows-1252"_s;
        QTest::newRow("decomposed accents composed")
            << QByteArray("Bronte\xCC\x88") << u"Brontë"_s << u"UTF-8"_s;
    }

    void decodes()
    {
        QFETCH(QByteArray, bytes);
        QFETCH(QString, text);
        QFETCH(QString, encoding);
        const TextEncoding::Decoded decoded = TextEncoding::decode(bytes);
        QCOMPARE(decoded.text, text);
        QCOMPARE(TextEncoding::nameOf(decoded.encoding), encoding);
    }
};

QTEST_GUILESS_MAIN(TestTextEncoding)
#include "tst_textencoding.moc"
