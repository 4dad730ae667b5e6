// SPDX-License-Identifier: MIT
#include "panel_on_screen.h"
#include "support/pitch.h"
#include "ui/panel/profile_picker_row.h"

namespace tarnwick {

namespace {

using namespace Qt::StringLiterals;
using test::profile;

class ProfilePickerRowTest : public test::PanelOnScreen {
protected:
    static QList<NetworkProfile> profiles(int count) {
        QList<NetworkProfile> all;
        for (int i = 0; i < count; ++i)
            all.append(profile(QString::number(i), i == 0));
        return all;
    }

    /// The connect picker, open, in which no selection is shown.
    ProfilePickerRow* openPicker(const QList<NetworkProfile>& listed) {
        DaemonState state = test::stoppedState();
        state.profiles = listed;
        open(state);
        auto* picker = find<ProfilePickerRow>();
        click(picker);
        settle();
        return picker;
    }
};

TEST_F(ProfilePickerRowTest, ShowsNameAndMonospacedAddressElseAccountAndNetwork) {
    NetworkProfile known = profile(u"a"_s);
    known.hostname = u"laptop"_s;
    known.ipAddress = u"100.64.0.9"_s;
    auto* picker = openPicker({known, profile(u"b"_s)});
    const ProfileButton& first = *line(*picker, 0)->pickButton();
    EXPECT_EQ(first.title().text(), "laptop"_L1);
    EXPECT_EQ(first.subtitle().text(), "100.64.0.9"_L1);
    EXPECT_TRUE(test::hasOnePitch(first.subtitle().font()));
    const ProfileButton& second = *line(*picker, 1)->pickButton();
    EXPECT_EQ(second.title().text(), "user-b"_L1);
    EXPECT_EQ(second.subtitle().text(), "net-b"_L1);
    EXPECT_FALSE(test::hasOnePitch(second.subtitle().font()));
}

TEST_F(ProfilePickerRowTest, WithoutAShownSelectionNoLineIsMarkedAndAllCanBeRemoved) {
    auto* picker = openPicker(profiles(3));
    for (int i = 0; i < 3; ++i) {
        EXPECT_EQ(line(*picker, i)->pickButton()->markSymbol(), "circle"_L1);
        EXPECT_TRUE(line(*picker, i)->removeButton()->isVisible());
    }
}

TEST_F(ProfilePickerRowTest, AShownSelectionMarksTheCurrentOneWhichCannotBeRemoved) {
    ProfilePickerRow picker({}, nullptr);
    picker.setContent(
        {u"p"_s, u"Pick"_s, u"network"_s, PanelContent::profileLines(profiles(3), true)});
    picker.resize(300, picker.sizeHint().height());
    picker.show();
    picker.setPopoverPresented(true);
    const ProfileButton& current = *line(picker, 0)->pickButton();
    EXPECT_EQ(current.markSymbol(), "checkmark.circle.fill"_L1);
    EXPECT_EQ(current.markColor(), ThemeColor::Green);
    EXPECT_FALSE(line(picker, 0)->removeButton()->isVisible());
    EXPECT_EQ(line(picker, 1)->pickButton()->markSymbol(), "circle"_L1);
    EXPECT_EQ(line(picker, 1)->pickButton()->markColor(), ThemeColor::Secondary);
    EXPECT_TRUE(line(picker, 1)->removeButton()->isVisible());
}

TEST_F(ProfilePickerRowTest, MoreProfilesThanFitScrollBelowTheHeading) {
    auto* picker = openPicker(profiles(12));
    const PopoverList& list = *picker->list();
    EXPECT_EQ(list.width(), 260);
    EXPECT_EQ(list.scrollArea()->height(), 240);
    EXPECT_GT(list.rows().height(), 240);
    EXPECT_EQ(list.heading()->text(), "Connect (12)"_L1);
    EXPECT_FALSE(list.scrollArea()->isAncestorOf(list.heading()));
}

TEST_F(ProfilePickerRowTest, TheTrashRemovesWithoutAskingAndClosesThePopoverFirst) {
    auto* picker = openPicker(profiles(3));
    bool wasPresented = true;
    whenMade = [&] {
        wasPresented = picker->isPopoverPresented();
    };
    RemoveButton* trash = line(*picker, 1)->removeButton();
    EXPECT_EQ(trash->size(), QSize(24, 24));
    QTest::mouseClick(trash, Qt::LeftButton, {}, QPoint(1, 1)); // a corner of the square
    EXPECT_FALSE(wasPresented);
    EXPECT_FALSE(picker->isPopoverPresented());
    EXPECT_EQ(made, QStringList{u"remove 1"_s});
}

TEST_F(ProfilePickerRowTest, PickingClosesThePopoverFirstAndThenCalls) {
    auto* picker = openPicker(profiles(3));
    bool wasPresented = true;
    whenMade = [&] {
        wasPresented = picker->isPopoverPresented();
    };
    QTest::mouseClick(line(*picker, 2)->pickButton(), Qt::LeftButton, {}, QPoint(180, 3));
    EXPECT_FALSE(wasPresented);
    EXPECT_EQ(made, QStringList{u"switch 2"_s});
}

TEST_F(ProfilePickerRowTest, AClickInTheEmptyMiddleOfAMenuButtonTriggersIt) {
    open(test::stoppedState());
    MenuButton* quit = button(u"Quit Tarnwick Network"_s);
    EXPECT_EQ(quit->width(), 300);
    QTest::mouseClick(quit, Qt::LeftButton, {}, QPoint(250, quit->height() / 2));
    QTest::mouseClick(quit, Qt::LeftButton, {}, QPoint(1, quit->height() - 1));
    EXPECT_EQ(made, (QStringList{u"quit"_s, u"quit"_s}));
}

TEST_F(ProfilePickerRowTest, RowsArePaddedBySixAndTheDevicesEntryByEight) {
    DaemonState state = test::connectedState();
    state.devices = test::numberedDevices(1);
    state.profiles = profiles(2);
    open(state);
    const auto contentHeight = [](TextStyle style) {
        return std::max(QFontMetrics(TextLook{style}.font()).height(),
                        qRound(scaledSize(style) * 1.25));
    };
    EXPECT_EQ(find<ProfilePickerRow>()->height(), contentHeight(TextStyle::Body) + 2 * 6);
    EXPECT_EQ(button(u"Refresh"_s)->height(), contentHeight(TextStyle::Body) + 2 * 6);
    EXPECT_EQ(find<DevicesSubmenu>()->height(), contentHeight(TextStyle::Caption) + 2 * 8);
}

TEST_F(ProfilePickerRowTest, LinesKeepTheirGrid) {
    auto* picker = openPicker(profiles(2));
    const ProfileRow& first = *line(*picker, 0);
    EXPECT_EQ(placeIn(first.pickButton()->title(), first).left(), 12 + 16 + 8);
    EXPECT_EQ(first.removeButton()->geometry().right(), 260 - 12 - 1);
    EXPECT_EQ(line(*picker, 1)->y(), first.height() + 2);
    EXPECT_GE(first.height(), 24 + 2 * 6);
}

TEST_F(ProfilePickerRowTest, ThePopoverStaysOpenWhileTheTitleCountsOn) {
    auto* picker = openPicker(profiles(2));
    DaemonState state = test::stoppedState();
    state.profiles = profiles(3);
    show(state);
    EXPECT_EQ(find<ProfilePickerRow>(), picker);
    ASSERT_TRUE(picker->isPopoverPresented());
    EXPECT_EQ(picker->list()->heading()->text(), "Connect (3)"_L1);
    EXPECT_EQ(picker->list()->rows().count(), 3);
}

TEST_F(ProfilePickerRowTest, AnEmptyListIsAHeadingAndNothingBelow) {
    ProfilePickerRow picker({}, nullptr);
    picker.setContent({u"p"_s, u"Pick"_s, u"network"_s, {}});
    picker.show();
    picker.setPopoverPresented(true);
    EXPECT_EQ(picker.list()->heading()->text(), "Pick"_L1);
    EXPECT_EQ(picker.list()->scrollArea()->height(), 0);
}

} // namespace

} // namespace tarnwick
