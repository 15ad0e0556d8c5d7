// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "Patience.h"
#include "web/WebEngine.h"

#include <QApplication>
#include <QTest>
#include <QWebEnginePage>
#include <memory>

using namespace brindlemark;

// The toolkit's five seconds are short for an engine on a busy machine.
#undef QTRY_VERIFY
#define QTRY_VERIFY(condition) QTRY_VERIFY_WITH_TIMEOUT(condition, Patience)
#undef QTRY_VERIFY2
#define QTRY_VERIFY2(condition, words) QTRY_VERIFY2_WITH_TIMEOUT(condition, words, Patience)
#undef QTRY_COMPARE
#define QTRY_COMPARE(actual, expected) QTRY_COMPARE_WITH_TIMEOUT(actual, expected, Patience)

/// Where the pages of a test are rendered.
enum class Renderers {
    Shared, ///< in one process that is kept to the end: to start one takes most of a test's time
    Own,    ///< each in its own, as in the program: for tests of what ends with one, or must not leave it
};

/// Runs a test whose windows hold rendering controls. Returns the number of failures, at most 127.
template <class Test>
int webTestMain(int argc, char** argv, Renderers renderers)
{
    if (renderers == Renderers::Shared)
        qputenv("QTWEBENGINE_CHROMIUM_FLAGS", "--renderer-process-limit=1");
    prepareWebEngine();
    QApplication application(argc, argv);
    std::unique_ptr<QWebEnginePage> keeper;
    if (renderers == Renderers::Shared) {
        keeper = std::make_unique<QWebEnginePage>(documentProfile());
        keeper->load(blankAddress());
    }
    Test test;
    return QTest::qExec(&test, argc, argv);
}

/// The `main()` of such a test, instead of QTEST_MAIN.
#define WEB_TEST_MAIN(Test)                                                                                  \
    int main(int argc, char** argv)                                                                          \
    {                                                                                                        \
        return webTestMain<Test>(argc, argv, Renderers::Shared);                                             \
    }
#define RENDERER_TEST_MAIN(Test)                                                                             \
    int main(int argc, char** argv)                                                                          \
    {                                                                                                        \
        return webTestMain<Test>(argc, argv, Renderers::Own);                                                \
    }
