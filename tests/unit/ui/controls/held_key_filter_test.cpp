// SPDX-License-Identifier: MIT
#include "ui/controls/form_controls.h"
#include "ui/controls/keyboard.h"

#include <QCoreApplication>
#include <QKeyEvent>
#include <QLineEdit>

#include <gtest/gtest.h>

namespace tarnwick::test {

namespace {

void send(QWidget& target, QEvent::Type type, Qt::Key key, quint64 time) {
    QKeyEvent event(type, key, {}, QStringLiteral(" "));
    event.setTimestamp(time);
    QCoreApplication::sendEvent(&target, &event);
}

/// As X repeats a held key, when Qt does not see that release and press belong together.
void hold(QWidget& target, Qt::Key key) {
    send(target, QEvent::KeyPress, key, 1000);
    for (quint64 time = 1500; time < 1700; time += 40) {
        send(target, QEvent::KeyRelease, key, time);
        send(target, QEvent::KeyPress, key, time);
    }
    send(target, QEvent::KeyRelease, key, 1800);
}

} // namespace

TEST(HeldKeyFilter, AButtonIsPressedOnce) {
    const HeldKeyFilter filter;
    FormButton button(QStringLiteral("Connect"), FormButton::Prominence::Prominent);
    button.show();
    button.activateWindow();
    button.setFocus();
    int clicks = 0;
    QObject::connect(&button, &QPushButton::clicked, &button, [&clicks] { ++clicks; });
    int expected = 0;
    for (const Qt::Key key : {Qt::Key_Return, Qt::Key_Enter, Qt::Key_Space}) {
        hold(button, key);
        EXPECT_EQ(clicks, ++expected) << key;
    }
}

TEST(HeldKeyFilter, PressesOneAfterTheOtherAllCount) {
    const HeldKeyFilter filter;
    FormButton button(QStringLiteral("Connect"), FormButton::Prominence::Prominent);
    button.show();
    int clicks = 0;
    QObject::connect(&button, &QPushButton::clicked, &button, [&clicks] { ++clicks; });
    for (quint64 time = 1000; time < 1003; ++time) {
        send(button, QEvent::KeyPress, Qt::Key_Return, 10 * time);
        send(button, QEvent::KeyRelease, Qt::Key_Return, 10 * time + 5);
    }
    EXPECT_EQ(clicks, 3);
}

TEST(HeldKeyFilter, ATextFieldGetsAllItsBlanks) {
    const HeldKeyFilter filter;
    QLineEdit field;
    field.show();
    field.activateWindow();
    field.setFocus();
    hold(field, Qt::Key_Space);
    EXPECT_EQ(field.text().size(), 6);
}

} // namespace tarnwick::test
