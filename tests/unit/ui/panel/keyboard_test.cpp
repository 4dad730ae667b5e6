// SPDX-License-Identifier: MIT
#include "panel_on_screen.h"
#include "support/held_key.h"

#include <QAccessible>

namespace tarnwick {

namespace {

using namespace Qt::StringLiterals;
using test::profile;

class KeyboardTest : public test::PanelOnScreen {
protected:
    static DaemonState full() {
        DaemonState state = test::connectedState();
        state.devices = test::numberedDevices(2);
        state.profiles = {profile(u"a"_s, true), profile(u"b"_s), profile(u"c"_s)};
        return state;
    }

    QString focusedName() const {
        return panel->focusWidget() ? panel->focusWidget()->accessibleName() : QString();
    }

    static QAccessibleInterface* accessible(QWidget* widget) {
        return QAccessible::queryAccessibleInterface(widget);
    }

    /// The names of the visible buttons and texts below it, in the order of reading.
    static QStringList read(QAccessibleInterface* top) {
        QStringList names;
        for (int i = 0; i < top->childCount(); ++i) {
            QAccessibleInterface* child = top->child(i);
            if (child->state().invisible)
                continue;
            const QString name = child->text(QAccessible::Name);
            if (child->role() == QAccessible::Button || child->role() == QAccessible::StaticText)
                names += name;
            names += read(child);
        }
        return names;
    }
};

TEST_F(KeyboardTest, TabGoesThroughTheControlsAsTheEyeDoes) {
    open(full());
    QStringList visited;
    for (int i = 0; i < 8; ++i) {
        QTest::keyClick(panel->focusWidget() ? panel->focusWidget() : &*panel, Qt::Key_Tab);
        visited += focusedName();
    }
    EXPECT_EQ(visited, (QStringList{u"100.64.0.1"_s, u"Devices"_s, u"Switch network"_s,
                                    u"Disconnect"_s, u"Refresh"_s, u"Check for Updates..."_s,
                                    u"Website"_s, u"Quit Tarnwick Network"_s}));
}

TEST_F(KeyboardTest, ArrowKeysMoveAndGoRound) {
    open(full());
    QTest::keyClick(&*panel, Qt::Key_Up);
    EXPECT_EQ(focusedName(), "Quit Tarnwick Network"_L1);
    QTest::keyClick(panel->focusWidget(), Qt::Key_Down);
    EXPECT_EQ(focusedName(), "100.64.0.1"_L1);
    QTest::keyClick(panel->focusWidget(), Qt::Key_Down);
    EXPECT_EQ(focusedName(), "Devices"_L1);
}

TEST_F(KeyboardTest, ReturnEnterAndSpacePress) {
    open(full());
    for (const Qt::Key key : {Qt::Key_Return, Qt::Key_Enter, Qt::Key_Space})
        QTest::keyClick(button(u"Refresh"_s), key);
    EXPECT_EQ(made, (QStringList{u"refresh"_s, u"refresh"_s, u"refresh"_s}));
}

TEST_F(KeyboardTest, AHeldKeyPressesARowOnce) {
    open(full());
    for (const Qt::Key key : {Qt::Key_Return, Qt::Key_Enter, Qt::Key_Space}) {
        made.clear();
        test::holdKey(key, [this] { return button(u"Disconnect"_s); });
        EXPECT_EQ(made, QStringList{u"disconnect"_s}) << key;
    }
}

TEST_F(KeyboardTest, AHeldKeyPicksOrRemovesOnce) {
    for (const Qt::Key key : {Qt::Key_Return, Qt::Key_Enter, Qt::Key_Space}) {
        open(full());
        auto* picker = find<ProfilePickerRow>();
        made.clear();
        click(picker);
        test::holdKey(key, [row = line(*picker, 0)] { return row->pickButton(); });
        click(picker);
        test::holdKey(key, [row = line(*picker, 0)] { return row->removeButton(); });
        EXPECT_EQ(made, (QStringList{u"switch b"_s, u"remove b"_s})) << key;
    }
}

TEST_F(KeyboardTest, TheKeyThatOpenedAPopoverPicksNothingInIt) {
    for (const Qt::Key key : {Qt::Key_Return, Qt::Key_Enter, Qt::Key_Space}) {
        open(full());
        auto* picker = find<ProfilePickerRow>();
        picker->setFocus(Qt::TabFocusReason);
        test::holdKey(key, [&]() -> QWidget* {
            return picker->isPopoverPresented() ? picker->popover()->focusWidget() : picker;
        });
        EXPECT_TRUE(picker->isPopoverPresented()) << key;
        EXPECT_TRUE(made.isEmpty()) << key;
        picker->setPopoverPresented(false);
        settle();
    }
}

TEST_F(KeyboardTest, ADoubleClickCallsOnce) {
    open(full());
    const auto doubleClick = [](QWidget* widget) {
        QTest::mouseClick(widget, Qt::LeftButton);
        QTest::mouseDClick(widget, Qt::LeftButton);
        QTest::mouseRelease(widget, Qt::LeftButton);
    };
    doubleClick(button(u"Disconnect"_s));
    EXPECT_EQ(made, QStringList{u"disconnect"_s});
    doubleClick(find<ProfilePickerRow>());
    EXPECT_TRUE(find<ProfilePickerRow>()->isPopoverPresented());
}

TEST_F(KeyboardTest, TheRingShowsForTheKeyboardOnly) {
    open(full());
    auto* disconnect = button(u"Disconnect"_s);
    click(disconnect);
    ASSERT_TRUE(disconnect->hasFocus());
    EXPECT_FALSE(disconnect->showsFocusRing());
    QTest::keyClick(disconnect, Qt::Key_Down);
    EXPECT_TRUE(button(u"Refresh"_s)->showsFocusRing());
}

TEST_F(KeyboardTest, APickerIsUsedWithTheKeyboardAlone) {
    open(full());
    auto* picker = find<ProfilePickerRow>();
    picker->setFocus(Qt::TabFocusReason);
    QTest::keyClick(picker, Qt::Key_Return);
    ASSERT_TRUE(picker->isPopoverPresented());
    QWidget* popover = picker->popover();
    ASSERT_NE(popover->focusWidget(), nullptr);
    EXPECT_EQ(popover->focusWidget(), line(*picker, 0)->pickButton());
    QTest::keyClick(popover->focusWidget(), Qt::Key_Down);
    EXPECT_EQ(popover->focusWidget(), line(*picker, 0)->removeButton());
    QTest::keyClick(popover->focusWidget(), Qt::Key_Down);
    QTest::keyClick(popover->focusWidget(), Qt::Key_Return);
    EXPECT_EQ(made, QStringList{u"switch c"_s});
}

TEST_F(KeyboardTest, EscapeInThePopoverClosesIt) {
    open(full());
    auto* picker = find<ProfilePickerRow>();
    picker->setFocus(Qt::TabFocusReason);
    QTest::keyClick(picker, Qt::Key_Space);
    ASSERT_TRUE(picker->isPopoverPresented());
    QTest::keyClick(picker->popover()->focusWidget(), Qt::Key_Escape);
    EXPECT_FALSE(picker->isPopoverPresented());
    EXPECT_TRUE(panel->isVisible());
}

TEST_F(KeyboardTest, WhatIsAddedIsReadWhereItIsSeen) {
    open(test::stoppedState());
    show(full());
    EXPECT_EQ(read(accessible(&*panel)),
              (QStringList{u"Tarnwick Network"_s, u"Connected"_s, u"IP Address"_s, u"100.64.0.1"_s,
                           u"Hostname"_s, u"my-computer"_s, u"Devices"_s, u"(2)"_s,
                           u"Switch network"_s, u"Disconnect"_s, u"Refresh"_s,
                           u"Check for Updates..."_s, u"Website"_s, u"Quit Tarnwick Network"_s}));
}

TEST_F(KeyboardTest, RowsThatChangePlacesAreReadInTheirNewOrder) {
    DaemonState state = full();
    open(state);
    auto* picker = find<ProfilePickerRow>();
    click(picker);
    state.profiles = {profile(u"a"_s, true), profile(u"d"_s), profile(u"c"_s), profile(u"b"_s)};
    show(state);
    const QStringList names = read(accessible(picker->popover()));
    EXPECT_EQ(names.filter(u"user-"_s).first(), "user-d"_L1);
    EXPECT_LT(names.indexOf(u"user-c"_s), names.indexOf(u"user-b"_s));
}

TEST_F(KeyboardTest, ControlsAreButtonsNamedByTheirTextsThatCanBePressed) {
    open(full());
    for (QWidget* control : {static_cast<QWidget*>(find<DevicesSubmenu>()),
                             static_cast<QWidget*>(find<ProfilePickerRow>()),
                             static_cast<QWidget*>(button(u"Quit Tarnwick Network"_s))}) {
        QAccessibleInterface* interface = accessible(control);
        EXPECT_EQ(interface->role(), QAccessible::Button);
        EXPECT_TRUE(interface->actionInterface()->actionNames().contains(
            QAccessibleActionInterface::pressAction()));
        EXPECT_TRUE(interface->state().focusable);
    }
    EXPECT_EQ(accessible(find<DevicesSubmenu>())->text(QAccessible::Name), "Devices"_L1);
    accessible(button(u"Website"_s))
        ->actionInterface()
        ->doAction(QAccessibleActionInterface::pressAction());
    ASSERT_TRUE(
        test::waitUntil([&] { return !made.isEmpty(); })); // it shows the press for a moment
    EXPECT_EQ(made, QStringList{u"website"_s});
}

TEST_F(KeyboardTest, TheTrashIsNamedByWhatItDoesAndDescribedByItsProfile) {
    open(full());
    auto* picker = find<ProfilePickerRow>();
    click(picker);
    QAccessibleInterface* trash = accessible(line(*picker, 0)->removeButton());
    EXPECT_EQ(trash->role(), QAccessible::Button);
    EXPECT_EQ(trash->text(QAccessible::Name), "Remove profile"_L1);
    EXPECT_EQ(trash->text(QAccessible::Description), "user-b"_L1);
    EXPECT_EQ(accessible(line(*picker, 0)->pickButton())->text(QAccessible::Name), "user-b"_L1);
}

TEST_F(KeyboardTest, TextsAreLabels) {
    open(full());
    auto* entry = find<DevicesSubmenu>();
    click(entry);
    const DeviceRow& row = *deviceRow(*entry, 1);
    for (const ElidedLabel* label : {&row.name(), &row.address(), &row.os()}) {
        QAccessibleInterface* interface = accessible(const_cast<ElidedLabel*>(label));
        EXPECT_EQ(interface->role(), QAccessible::StaticText);
        EXPECT_EQ(interface->text(QAccessible::Name), label->text());
    }
}

} // namespace

} // namespace tarnwick
