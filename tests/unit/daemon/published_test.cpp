// SPDX-License-Identifier: MIT
#include "daemon/published.h"
#include "support/printing.h"

#include <QList>
#include <QString>

#include <gtest/gtest.h>

namespace tarnwick {

namespace {

using namespace Qt::StringLiterals;

TEST(Published, AnnouncesBeforeTheNewValueIsStored) {
    ObjectWillChange change;
    Published<QString> field(change, u"old"_s);
    QList<QString> seen;
    QObject::connect(&change, &ObjectWillChange::announced, &change, [&] { seen.append(field()); });
    field.set(u"new"_s);
    EXPECT_EQ(seen, QList<QString>{u"old"_s});
    EXPECT_EQ(field(), u"new"_s);
}

TEST(Published, AnnouncesEverySettingOfEveryFieldOnTheOneOwner) {
    ObjectWillChange change;
    Published<int> number(change, 1);
    Published<bool> flag(change, false);
    int announcements = 0;
    QObject::connect(&change, &ObjectWillChange::announced, &change, [&] { ++announcements; });
    number.set(1); // the same value counts too
    number.set(2);
    flag.set(true);
    EXPECT_EQ(announcements, 3);
}

} // namespace

} // namespace tarnwick
