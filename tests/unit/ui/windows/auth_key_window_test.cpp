// SPDX-License-Identifier: MIT
#include "auth_key_form.h"
#include "support/printing.h"
#include "ui/windows/auth_key_window.h"

#include <QApplication>
#include <QPointer>
#include <QScreen>

#include <algorithm>

namespace tarnwick::test {

using namespace Qt::StringLiterals;
using namespace std::chrono_literals;

TEST_F(AuthKeyForm, WindowHasItsTitleAndSizeAndStaysOnTop) {
    open();
    EXPECT_EQ(dialog()->windowTitle(), u"Connect to Network"_s);
    EXPECT_EQ(dialog()->size(), QSize(400, 340));
    EXPECT_EQ(dialog()->minimumSize(), dialog()->maximumSize());
    const auto flags = dialog()->windowFlags();
    EXPECT_TRUE(flags.testFlag(Qt::WindowStaysOnTopHint));
    EXPECT_TRUE(flags.testFlag(Qt::WindowCloseButtonHint));
    EXPECT_FALSE(flags.testFlag(Qt::WindowMinimizeButtonHint));
    EXPECT_FALSE(flags.testFlag(Qt::WindowMaximizeButtonHint));
    EXPECT_FALSE(dialog()->isModal());
    const QPoint off =
        dialog()->geometry().center() - dialog()->screen()->availableGeometry().center();
    EXPECT_LE(off.manhattanLength(), 8); // the frame around the window
}

TEST_F(AuthKeyForm, FieldsAndButtonsAreOfOneHeight) {
    const QFont before = QApplication::font();
    for (const int pixels : {13, 15, 26}) {
        QFont font = before;
        font.setPixelSize(pixels);
        QApplication::setFont(font);
        open();
        EXPECT_EQ(deviceName()->height(), authKey()->height());
        EXPECT_EQ(cancelButton()->height(), deviceName()->height()) << pixels;
        EXPECT_EQ(connectButton()->height(), deviceName()->height()) << pixels;
        EXPECT_EQ(connectButton()->font().pixelSize(), deviceName()->font().pixelSize()) << pixels;
    }
    QApplication::setFont(before);
}

TEST_F(AuthKeyForm, LinesOfTheHintAreOfAboutTheSameWidth) {
    open();
    const auto labels = dialog()->findChildren<QLabel*>();
    const auto hint = std::ranges::find_if(labels, [](const QLabel* label) {
        return label->text().startsWith(u"Enter the device name"_s);
    });
    ASSERT_NE(hint, labels.end());
    const QImage picture = (*hint)->grab().toImage();
    const QRgb background = picture.pixel(picture.width() - 1, 0);
    const auto inkWidth = [&](int top, int bottom) {
        int width = 0;
        for (int y = top; y < bottom; ++y) {
            for (int x = 0; x < picture.width(); ++x)
                width = picture.pixel(x, y) == background ? width : std::max(width, x + 1);
        }
        return width;
    };
    const int middle = picture.height() / 2;
    ASSERT_GE(picture.height(), 2 * (*hint)->fontMetrics().height()) << "two lines";
    EXPECT_GE(inkWidth(middle, picture.height()), inkWidth(0, middle) / 2);
}

TEST(AuthKeyWindowOptions, AsksForTheStatusEverySecondUnlessToldOtherwise) {
    EXPECT_EQ(AuthKeyWindowOptions().retryInterval, 1000ms);
    EXPECT_EQ(AuthKeyViewOptions().retryInterval, 1000ms);
}

TEST_F(AuthKeyForm, LargeFontMakesTheWindowHigherRatherThanCutItsTexts) {
    const QFont before = QApplication::font();
    QFont large = before;
    large.setPixelSize(30);
    QApplication::setFont(large);
    open();
    EXPECT_EQ(dialog()->width(), 400);
    EXPECT_GE(dialog()->height(), 340);
    for (const QLabel* label : dialog()->findChildren<QLabel*>()) {
        if (label->isVisible()) {
            EXPECT_GE(label->height(), label->heightForWidth(label->width()))
                << qPrintable(label->text());
        }
    }
    QApplication::setFont(before);
}

TEST_F(AuthKeyForm, FontThatGrowsWhileItIsOpenMakesItsTextsGrow) {
    open();
    const QFont before = QApplication::font();
    const int usual = deviceName()->font().pixelSize();
    QFont large = before;
    large.setPixelSize(30);
    QApplication::setFont(large);
    const auto isCut = [](const QLabel* label) {
        return label->isVisible() && label->height() < label->heightForWidth(label->width());
    };
    EXPECT_TRUE(waitUntil([&] {
        return deviceName()->font().pixelSize() == 2 * usual &&
               std::ranges::none_of(dialog()->findChildren<QLabel*>(), isCut);
    }));
    EXPECT_EQ(dialog()->width(), 400);
    EXPECT_TRUE(dialog()->rect().contains(
        QRect(connectButton()->mapTo(dialog(), QPoint(0, 0)), connectButton()->size())));
    QApplication::setFont(before);
}

TEST_F(AuthKeyForm, SecondShowClosesTheFirstWindowAndShowsANewEmptyForm) {
    open();
    deviceName()->setText(u"changed"_s);
    authKey()->setText(u"twkey-1"_s);
    const QPointer<QDialog> first = dialog();
    open();
    EXPECT_NE(dialog(), first.data());
    EXPECT_TRUE(waitUntil([&first] { return first.isNull(); }));
    EXPECT_TRUE(isOpen());
    EXPECT_EQ(deviceName()->text(), u"john-s-macbook-pro"_s);
    EXPECT_EQ(authKey()->text(), QString());
}

TEST_F(AuthKeyForm, CancelClosesAndForgetsTheWindow) {
    open();
    const QPointer<QDialog> first = dialog();
    cancelButton()->click();
    EXPECT_FALSE(dialog());
    EXPECT_TRUE(waitUntil([&first] { return first.isNull(); }));
}

TEST_F(AuthKeyForm, CloseButtonLeavesAStateThatTheNextShowCopesWith) {
    open();
    dialog()->close();
    EXPECT_FALSE(isOpen());
    open();
    EXPECT_TRUE(isOpen());
    dialog()->close();
    dialog()->close();
    open();
    EXPECT_TRUE(isOpen());
}

TEST_F(AuthKeyForm, LoginGoesOnWhenTheWindowIsClosedMeanwhile) {
    open();
    world.closeGate();
    pressConnect(u"twkey-1"_s);
    cancelButton()->click();
    world.openGate();
    EXPECT_TRUE(waitUntil([this] { return statusCallsAfterLogin() == 7; }));
    EXPECT_FALSE(dialog());
}

TEST_F(AuthKeyForm, RefreshesGoOnBehindAClosedWindowAndCloseTheNewerOne) {
    open();
    pressConnect(u"twkey-1"_s);
    ASSERT_TRUE(waitUntil([this] { return statusCallsAfterLogin() >= 2; }));
    open(); // the first is gone, its refreshes are not
    world.answer("status", ControllerWorld::connectedStatus());
    EXPECT_TRUE(waitUntil([this] { return !dialog(); }));
}

TEST_F(AuthKeyForm, RefreshesThatOutliveTheWindowsOwnerAreHarmless) {
    open();
    auto brief = std::make_unique<AuthKeyWindow>(
        AuthKeyWindowOptions{.computerName = [] { return QString(); }, .retryInterval = 10ms});
    brief->show(daemon);
    brief->window()->findChildren<QLineEdit*>()[1]->setText(u"twkey-1"_s);
    brief->window()->findChildren<QPushButton*>()[1]->click();
    ASSERT_TRUE(waitUntil([this] { return statusCallsAfterLogin() >= 2; }));
    brief.reset();
    world.answer("status", ControllerWorld::connectedStatus());
    EXPECT_TRUE(waitUntil([this] { return daemon->state().isConnected; }));
    runEventLoopFor(50ms);
    EXPECT_TRUE(isOpen()); // the window of another owner
}

TEST_F(AuthKeyForm, RefreshesEndWithTheController) {
    open();
    pressConnect(u"twkey-1"_s);
    ASSERT_TRUE(waitUntil([this] { return statusCallsAfterLogin() >= 2; }));
    cancelButton()->click();
    runEventLoopFor(1ms);
    const std::weak_ptr<DaemonManager> weak = daemon;
    daemon.reset();
    EXPECT_TRUE(waitUntil([&weak] { return weak.expired(); }));
    runEventLoopFor(50ms);
}

} // namespace tarnwick::test
