#include "recordform/mandatoryfield.h"

#include <QComboBox>
#include <QLineEdit>
#include <QPlainTextEdit>
#include <QTest>

using namespace Qt::StringLiterals;

namespace {

const QColor Yellow(255, 255, 0);
const QColor White(255, 255, 255);

} // namespace

// Mandatory fields are yellow while a record is added, white otherwise.
class TestMandatoryField : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void textFieldsTurnYellowAndBack()
    {
        QLineEdit line;
        QPlainTextEdit notes;
        QComboBox editable;
        editable.setEditable(true);
        for (QWidget *field : std::initializer_list<QWidget *>{&line, &notes, &editable}) {
            SetMandatoryColour(field, true);
            QCOMPARE(field->palette().color(QPalette::Base), Yellow);
            SetMandatoryColour(field, false);
            QCOMPARE(field->palette().color(QPalette::Base), White);
        }
    }

    // A list that takes no typing is drawn as a button, so its button colour follows too.
    void fixedListTurnsYellowAndBack()
    {
        QComboBox list;
        list.addItems({u"Mint"_s, u"Good"_s});
        SetMandatoryColour(&list, true);
        QCOMPARE(list.palette().color(QPalette::Base), Yellow);
        QCOMPARE(list.palette().color(QPalette::Button), Yellow);
        SetMandatoryColour(&list, false);
        QCOMPARE(list.palette().color(QPalette::Button), White);
    }

    void otherColoursOfTheFieldStay()
    {
        QLineEdit line;
        const QColor text = line.palette().color(QPalette::Text);
        SetMandatoryColour(&line, true);
        QCOMPARE(line.palette().color(QPalette::Text), text);
    }
};

QTEST_MAIN(TestMandatoryField)
#include "tst_mandatoryfield.moc"
