// A text's sort key orders texts exactly as the dictionary order compares them, in every
// locale the program may run in.
#include "data/textcollation.h"

#include <QLocale>
#include <QTest>

#include <algorithm>

using namespace Qt::StringLiterals;

namespace {

// Names and titles a catalogue holds, and texts that differ only where a key could go wrong:
// letter case, accents, a shorter text that starts another, characters outside the first
// plane, and texts the collation finds equal that differ in their characters.
const QStringList &texts()
{
    static const QStringList all{
        u""_s, u" "_s, u"a"_s, u"A"_s, u"a "_s, u"ab"_s, u"Ab"_s, u"a-b"_s, u"a b"_s,
        u"abc"_s, u"ä"_s, u"Ä"_s, u"å"_s, u"Å"_s, u"Åberg"_s, u"Abba"_s, u"Zorn"_s,
        u"Ödman"_s, u"Öl"_s, u"Ostern"_s, u"Übel"_s, u"Mueller"_s, u"Muller"_s, u"Müller"_s,
        u"Masse"_s, u"Maße"_s, u"Mast"_s, u"Straße"_s, u"STRASSE"_s, u"Strasser"_s,
        u"bronte"_s, u"Bronte"_s, u"brontë"_s, u"Brontë"_s, u"Brontes"_s, u"O'Brien"_s,
        u"Ó Conaire"_s, u"Óg"_s, u"Olden"_s, u"Zoe"_s, u"Zoë"_s, u"Zoe\u0308"_s,
        u"1984"_s, u"19"_s, u"200"_s, u"£12.50"_s, u"€ 3,00"_s, u"naïve"_s, u"naive"_s,
        u"\U0001F4DA Books"_s, u"\U0001D400"_s, u"\uFFFD"_s, u"\u00A0nbsp"_s, u"Ǆ"_s, u"ǅ"_s,
        u"The Silent Garden"_s, u"The silent garden"_s, u"The Silent Garden: A Novel"_s,
        u"Letters from Kraków, 1840"_s, u"Letters from Krakow, 1840"_s, u"Dvořák"_s,
        u"Dvorak"_s, u"Book has no author assigned"_s, u"Book has no topic assigned"_s};
    return all;
}

int sign(int value)
{
    return (value > 0) - (value < 0);
}

} // namespace

class TestSortKey : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void cleanup() { QLocale::setDefault(QLocale::c()); }

    void ordersAsCompareDoes_data()
    {
        QTest::addColumn<QString>("locale");
        for (const QString &locale : {u"en_GB"_s, u"de_DE"_s, u"sv_SE"_s, u"fr_FR"_s, u"C"_s})
            QTest::newRow(qPrintable(locale)) << locale;
    }

    void ordersAsCompareDoes()
    {
        QFETCH(QString, locale);
        QLocale::setDefault(QLocale(locale));
        const TextCollation::DictionaryOrder order;
        for (const QString &a : texts()) {
            for (const QString &b : texts()) {
                const QByteArray keyA = order.sortKey(a);
                const QByteArray keyB = order.sortKey(b);
                const int byKeys = TextCollation::DictionaryOrder::keyLess(keyA, keyB)   ? -1
                    : TextCollation::DictionaryOrder::keyLess(keyB, keyA)               ? 1
                                                                                         : 0;
                if (byKeys != sign(order.compare(a, b)))
                    QFAIL(qPrintable(u"'%1' and '%2': keys say %3, compare %4"_s.arg(a, b)
                                         .arg(byKeys)
                                         .arg(order.compare(a, b))));
            }
        }
    }

    void sortsAsCompareDoes()
    {
        QLocale::setDefault(QLocale(u"en_GB"_s));
        const TextCollation::DictionaryOrder order;
        QStringList byCompare = texts();
        std::sort(byCompare.begin(), byCompare.end(),
                  [&](const QString &a, const QString &b) { return order.compare(a, b) < 0; });
        QStringList byKey = texts();
        std::reverse(byKey.begin(), byKey.end());
        std::sort(byKey.begin(), byKey.end(), [&](const QString &a, const QString &b) {
            return TextCollation::DictionaryOrder::keyLess(order.sortKey(a), order.sortKey(b));
        });
        QCOMPARE(byKey, byCompare);
        QCOMPARE(byKey.indexOf(u"Abba"_s) < byKey.indexOf(u"Åberg"_s), true);
    }
};

QTEST_GUILESS_MAIN(TestSortKey)
#include "tst_sortkey.moc"
