// SPDX-License-Identifier: MIT
#include "desktop/session_lock.h"

#include <QFile>
#include <QTemporaryDir>

#include <gtest/gtest.h>

#include <memory>

namespace tarnwick {

using namespace Qt::StringLiterals;
using State = SessionLock::State;

TEST(SessionLock, IsHeldByOneAtATime) {
    const QTemporaryDir dir;
    const QString path = dir.filePath(u"lock"_s);
    auto first = std::make_unique<SessionLock>(path);
    EXPECT_EQ(first->state(), State::Held);
    EXPECT_EQ(SessionLock(path).state(), State::HeldByOther);
    first.reset();
    EXPECT_EQ(SessionLock(path).state(), State::Held);
}

TEST(SessionLock, AFileLeftBehindIsNoLock) {
    const QTemporaryDir dir;
    QFile file(dir.filePath(u"lock"_s));
    ASSERT_TRUE(file.open(QIODevice::WriteOnly));
    file.write("12345\n");
    file.close();
    EXPECT_EQ(SessionLock(file.fileName()).state(), State::Held);
}

TEST(SessionLock, IsImpossibleWhereThereIsNoDirectory) {
    const QTemporaryDir dir;
    EXPECT_EQ(SessionLock(dir.filePath(u"gone/lock"_s)).state(), State::Impossible);
}

TEST(SessionLock, OnlyItsUserCanOpenTheFile) {
    const QTemporaryDir dir;
    const QString path = dir.filePath(u"lock"_s);
    const SessionLock lock(path);
    EXPECT_EQ(QFile::permissions(path) &
                  (QFile::ReadGroup | QFile::ReadOther | QFile::WriteGroup | QFile::WriteOther),
              QFile::Permissions());
}

} // namespace tarnwick
