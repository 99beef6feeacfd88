#pragma once

#include "app/application.h"
#include "support/testenvironment.h"

#include <QTest>

// The main function of a form test: the program's own application object (run-time error
// reports, F1 help) in the test environment. A test that uses it links shelvane_app.
#define SHELVANE_TEST_MAIN(TestObject)                                                        \
    int main(int argc, char *argv[])                                                          \
    {                                                                                         \
        Application app(argc, argv);                                                          \
        QApplication::setAttribute(Qt::AA_Use96Dpi, true);                                    \
        TestEnvironment environment;                                                          \
        TestObject test;                                                                      \
        QTEST_SET_MAIN_SOURCE_PATH                                                            \
        return QTest::qExec(&test, argc, argv);                                               \
    }
