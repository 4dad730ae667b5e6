// SPDX-License-Identifier: MIT
#include "platform/platform.h"

#include <QFile>

#include <gtest/gtest.h>

namespace tarnwick {

namespace {

QString packed(const QString& path) {
    QFile file(QStringLiteral(TARNWICK_PACKAGING) + path);
    EXPECT_TRUE(file.open(QIODevice::ReadOnly)) << qPrintable(file.fileName());
    return QString::fromUtf8(file.readAll());
}

} // namespace

TEST(JobFiles, PropertyListInTheBundleIsTheOneThatTheClientCarries) {
    const Platform platform = macOSPlatform();
    EXPECT_EQ(packed(QStringLiteral("/macos/") + platform.jobFileName), platform.jobFileText);
}

TEST(JobFiles, UnitInThePackageIsTheOneThatTheClientCarries) {
    const Platform platform = linuxPlatform();
    EXPECT_EQ(packed(QStringLiteral("/linux/") + platform.jobFileName), platform.jobFileText);
}

TEST(JobFiles, PackagesPutThemWhereTheClientLooks) {
    EXPECT_EQ(macOSPlatform().bundledJobDirectory, QStringLiteral("/../Resources/"));
    EXPECT_EQ(linuxPlatform().bundledJobDirectory, QStringLiteral("/../share/tarnwick/"));
}

} // namespace tarnwick
