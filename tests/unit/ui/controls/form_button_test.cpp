// SPDX-License-Identifier: MIT
#include "support/held_key.h"
#include "ui/controls/form_controls.h"

#include <QTest>

#include <gtest/gtest.h>

namespace tarnwick::test {

class FormButtonTest : public testing::Test {
protected:
    FormButtonTest() {
        button_.show();
        QObject::connect(&button_, &QPushButton::clicked, &button_, [this] { ++clicks_; });
    }

    FormButton button_{QStringLiteral("Connect"), FormButton::Prominence::Prominent};
    int clicks_ = 0;
};

TEST_F(FormButtonTest, AHeldKeyPressesItOnce) {
    for (const Qt::Key key : {Qt::Key_Return, Qt::Key_Enter, Qt::Key_Space}) {
        clicks_ = 0;
        holdKey(key, [this] { return &button_; });
        EXPECT_EQ(clicks_, 1) << key;
    }
}

TEST_F(FormButtonTest, ADoubleClickPressesItOnce) {
    QTest::mouseClick(&button_, Qt::LeftButton);
    QTest::mouseDClick(&button_, Qt::LeftButton);
    QTest::mouseRelease(&button_, Qt::LeftButton);
    EXPECT_EQ(clicks_, 1);
}

} // namespace tarnwick::test
