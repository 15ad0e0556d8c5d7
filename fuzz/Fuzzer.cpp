// SPDX-License-Identifier: GPL-3.0-or-later

// libFuzzer's entry points, around the target that TARGET names.

#include "Fuzz.h"

#include <QApplication>

using namespace brindlemark;

extern "C" int LLVMFuzzerInitialize(int* argc, char*** argv)
{
    qputenv("QT_QPA_PLATFORM", "offscreen");
    static QApplication* app = new QApplication(*argc, *argv); // never deleted: libFuzzer just exits
    Q_UNUSED(app)
    return 0;
}

extern "C" int LLVMFuzzerTestOneInput(const uint8_t* data, size_t size)
{
    // A copy of just this size: a read beyond it is seen.
    targets::TARGET(QByteArray(reinterpret_cast<const char*>(data), static_cast<qsizetype>(size)));
    return 0;
}
