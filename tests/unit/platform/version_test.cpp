// SPDX-License-Identifier: MIT
#include "platform/version.h"
#include "support/printing.h"

#include <QDir>
#include <QFile>
#include <QTemporaryDir>

#include <gtest/gtest.h>

namespace tarnwick {

namespace {

using namespace Qt::StringLiterals;

const QByteArray information = R"(<?xml version="1.0" encoding="UTF-8"?>
<!DOCTYPE plist PUBLIC "-//Apple//DTD PLIST 1.0//EN" "http://www.apple.com/DTDs/PropertyList-1.0.dtd">
<plist version="1.0"><dict>
  <key>Nested</key><dict><key>CFBundleShortVersionString</key><string>9.9</string></dict>
  <key>CFBundleVersion</key><string>7</string>
  <key>CFBundleShortVersionString</key><string>1.2.3</string>
</dict></plist>)";

TEST(Version, IsReadFromThePropertyListsOwnDictionary) {
    EXPECT_EQ(versionFromPropertyList(information), u"1.2.3"_s);
}

TEST(Version, OtherPropertyListsHaveNone) {
    EXPECT_EQ(versionFromPropertyList(""), u""_s);
    EXPECT_EQ(versionFromPropertyList("bplist00"), u""_s);
    EXPECT_EQ(versionFromPropertyList("<plist><dict></dict></plist>"), u""_s);
    EXPECT_EQ(versionFromPropertyList("<plist><dict><key>CFBundleShortVersionString</key>"
                                      "<integer>1</integer></dict></plist>"),
              u""_s);
}

TEST(Version, OfABundleIsInTheFolderAboveItsExecutables) {
    const QTemporaryDir bundle;
    ASSERT_TRUE(QDir(bundle.path()).mkpath(u"MacOS"_s));
    EXPECT_EQ(versionFromBundle(bundle.filePath(u"MacOS"_s)), u""_s);
    QFile file(bundle.filePath(u"Info.plist"_s));
    ASSERT_TRUE(file.open(QIODevice::WriteOnly));
    file.write(information);
    file.close();
    EXPECT_EQ(versionFromBundle(bundle.filePath(u"MacOS"_s)), u"1.2.3"_s);
}

TEST(Version, CompiledInHasThreeNumbers) {
    EXPECT_EQ(versionCompiledIn(u"/anywhere"_s).count(u'.'), 2);
}

} // namespace

} // namespace tarnwick
