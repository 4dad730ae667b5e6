// SPDX-License-Identifier: MIT
#include "desktop/single_instance.h"

#include <QFile>
#include <QTemporaryDir>

#include <gtest/gtest.h>

#include <memory>

namespace tarnwick {

using namespace Qt::StringLiterals;
using State = InstanceLock::State;

TEST(InstanceLock, IsHeldByOneAtATime) {
    const QTemporaryDir dir;
    const QString path = dir.filePath(u"lock"_s);
    auto first = std::make_unique<InstanceLock>(path);
    EXPECT_EQ(first->state(), State::Held);
    EXPECT_EQ(InstanceLock(path).state(), State::HeldByOther);
    first.reset();
    EXPECT_EQ(InstanceLock(path).state(), State::Held);
}

TEST(InstanceLock, AFileLeftBehindIsNoLock) {
    const QTemporaryDir dir;
    QFile file(dir.filePath(u"lock"_s));
    ASSERT_TRUE(file.open(QIODevice::WriteOnly));
    file.write("12345\n");
    file.close();
    EXPECT_EQ(InstanceLock(file.fileName()).state(), State::Held);
}

TEST(InstanceLock, IsImpossibleWhereThereIsNoDirectory) {
    const QTemporaryDir dir;
    EXPECT_EQ(InstanceLock(dir.filePath(u"gone/lock"_s)).state(), State::Impossible);
}

TEST(InstanceLock, OnlyItsUserCanOpenTheFile) {
    const QTemporaryDir dir;
    const QString path = dir.filePath(u"lock"_s);
    const InstanceLock lock(path);
    EXPECT_EQ(QFile::permissions(path) &
                  (QFile::ReadGroup | QFile::ReadOther | QFile::WriteGroup | QFile::WriteOther),
              QFile::Permissions());
}

} // namespace tarnwick
