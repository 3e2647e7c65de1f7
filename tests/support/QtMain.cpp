// SPDX-License-Identifier: GPL-3.0-or-later
#include <gtest/gtest.h>

#include <QApplication>

int main(int argc, char** argv) {
    testing::InitGoogleTest(&argc, argv);
#if defined(__linux__)
    // A display, if there is one, stays out of it: the tests press keys. Elsewhere they are started
    // in one of their own.
    qputenv("QT_QPA_PLATFORM", "offscreen");
#endif
    QApplication::setAttribute(Qt::AA_DontUseNativeDialogs);  // the tests reach into dialogs
    const QApplication application(argc, argv);
    return RUN_ALL_TESTS();
}
