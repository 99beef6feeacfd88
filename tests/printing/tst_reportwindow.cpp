#include <QTest>
class TestReportWindow : public QObject
{
    Q_OBJECT
};
QTEST_MAIN(TestReportWindow)
#include "tst_reportwindow.moc"
