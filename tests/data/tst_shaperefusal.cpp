// No text whatever makes the reader of shaping commands do anything but read or refuse: deep
// nesting, and many thousands of mangled and random texts.
#include "data/providererror.h"
#include "data/shapeparser.h"
#include "shapetexts.h"

#include <QRandomGenerator>
#include <QTest>

#include <optional>

using namespace Qt::StringLiterals;

namespace {

// What the random inputs are made of: the grammar's words and marks, in pieces whole and
// broken.
const QStringList pieces{
    u"SHAPE"_s, u"shape"_s, u"APPEND"_s, u"AS"_s, u"RELATE"_s, u"TO"_s, u"COMPUTE"_s, u"BY"_s,
    u"("_s, u")"_s, u"{"_s, u"}"_s, u","_s, u"'"_s, u"`"_s, u"\""_s, u"["_s, u"]"_s, u"''"_s,
    u"'BookID'"_s, u"`qryReport03`"_s, u"{SELECT 1}"_s, u"{SELECT '}'}"_s, u"BookDetails"_s,
    u"x"_s, u" "_s, u"\n"_s, u"\t"_s, u"é"_s, u"%1"_s};

QString randomCharacter(QRandomGenerator &random)
{
    // Half plain ASCII, half anything UTF-16 can hold, lone surrogates and NUL included.
    const quint32 limit = random.bounded(2) ? 0x80 : 0x10000;
    return QString(QChar(char16_t(random.bounded(limit))));
}

QString randomPiece(QRandomGenerator &random)
{
    return random.bounded(4) ? pieces.at(random.bounded(int(pieces.size())))
                             : randomCharacter(random);
}

QString mutated(const QString &text, QRandomGenerator &random)
{
    QString result = text;
    const int edits = 1 + random.bounded(4);
    for (int e = 0; e < edits; ++e) {
        const int at = random.bounded(int(result.size()) + 1);
        switch (random.bounded(5)) {
        case 0:
            result.remove(at, 1 + random.bounded(12));
            break;
        case 1:
            result.insert(at, randomPiece(random));
            break;
        case 2:
            result.insert(at, result.mid(random.bounded(int(result.size()) + 1), random.bounded(40)));
            break;
        case 3:
            result.replace(at, 1, randomCharacter(random));
            break;
        default:
            result.truncate(at);
        }
    }
    return result;
}

QString tokenSoup(QRandomGenerator &random)
{
    const QStringList separators{QString(), u" "_s, u"  "_s};
    QString text;
    const int count = 1 + random.bounded(40);
    for (int i = 0; i < count; ++i)
        text += randomPiece(random) + separators.at(random.bounded(int(separators.size())));
    return text;
}

enum class Outcome { Read, Refused, Broken };

// Reads a text; a text that is read must print back to a text that reads the same.
Outcome readOrRefuse(const QString &text, QString *why)
{
    std::optional<QString> printed;
    try {
        printed = reprint(ShapeParser::parse(text));
    } catch (const ProviderError &error) {
        if (error.number == ProviderErrorNumber::Syntax && error.description.startsWith(syntaxErrorStart))
            return Outcome::Refused;
        *why = u"refused with "_s + QString::number(error.number) + u" "_s + error.description;
        return Outcome::Broken;
    } catch (...) {
        *why = u"threw something other than a ProviderError"_s;
        return Outcome::Broken;
    }
    try {
        if (reprint(ShapeParser::parse(*printed)) == *printed)
            return Outcome::Read;
        *why = u"reads differently once printed: "_s + *printed;
    } catch (...) {
        *why = u"cannot read its own print: "_s + *printed;
    }
    return Outcome::Broken;
}

} // namespace

class TestShapeRefusal : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void refusesDeepNestingWithoutExhaustingTheStack_data()
    {
        QTest::addColumn<QString>("text");
        constexpr int depth = 200000;
        QTest::newRow("shapes in shapes") << u"SHAPE ("_s.repeated(depth);
        QTest::newRow("brackets") << u"("_s.repeated(depth);
        QTest::newRow("braces") << u"SHAPE "_s + u"{"_s.repeated(depth);
        QTest::newRow("children in children")
            << u"SHAPE {SELECT 1} AS a APPEND ("_s + u"(SHAPE {SELECT 1} AS a APPEND ("_s.repeated(depth);
    }

    void refusesDeepNestingWithoutExhaustingTheStack()
    {
        QFETCH(QString, text);
        QString why;
        QCOMPARE(readOrRefuse(text, &why), Outcome::Refused);
    }

    // Mutations of the two real commands and random soups of the grammar's pieces: each is
    // read (and prints back to itself) or refused with a syntax error, never anything else.
    void readsOrRefusesAnyText()
    {
        constexpr int inputs = 120000;
        QRandomGenerator random(0x5A4E);
        const QStringList commands{bookDetailsText(), byTopicDescriptionText()};
        int read = 0;
        for (int i = 0; i < inputs; ++i) {
            const QString text = i % 2 ? tokenSoup(random)
                                       : mutated(commands.at((i / 2) % 2), random);
            QString why;
            const Outcome outcome = readOrRefuse(text, &why);
            if (outcome == Outcome::Broken)
                QFAIL(qPrintable(why + u"\nInput: "_s + text));
            read += outcome == Outcome::Read ? 1 : 0;
        }
        // Both ways out are taken many times: the inputs are neither all good nor all junk.
        QVERIFY2(read > inputs / 100, qPrintable(QString::number(read)));
        QVERIFY2(read < inputs / 2, qPrintable(QString::number(read)));
    }
};

QTEST_GUILESS_MAIN(TestShapeRefusal)
#include "tst_shaperefusal.moc"
