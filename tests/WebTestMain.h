#pragma once

#include "web/WebEngine.h"

#include <QApplication>
#include <QTest>

/// The `main()` of a test whose windows hold rendering controls; instead of QTEST_MAIN.
#define WEB_TEST_MAIN(Test)                                                                                  \
    int main(int argc, char** argv)                                                                          \
    {                                                                                                        \
        prepareWebEngine();                                                                                  \
        QApplication application(argc, argv);                                                                \
        Test test;                                                                                           \
        return QTest::qExec(&test, argc, argv);                                                              \
    }
