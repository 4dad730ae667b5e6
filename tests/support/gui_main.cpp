// SPDX-License-Identifier: MIT
#include <QApplication>

#include <gtest/gtest.h>

int main(int argc, char** argv) {
    // Tests are also listed by running their program, in whatever environment the build has.
    if (!qEnvironmentVariableIsSet("QT_QPA_PLATFORM"))
        qputenv("QT_QPA_PLATFORM", "offscreen");
    testing::InitGoogleTest(&argc, argv);
    const QApplication application(argc, argv);
    QApplication::setQuitOnLastWindowClosed(false);
    return RUN_ALL_TESTS();
}
