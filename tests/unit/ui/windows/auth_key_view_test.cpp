// SPDX-License-Identifier: MIT
#include "auth_key_form.h"
#include "support/held_key.h"
#include "support/printing.h"
#include "support/publishing.h"
#include "ui/controls/form_controls.h"
#include "ui/windows/auth_key_window.h"

#include <QClipboard>
#include <QDropEvent>
#include <QGuiApplication>
#include <QMetaProperty>
#include <QMimeData>
#include <QTest>

namespace tarnwick::test {

using namespace Qt::StringLiterals;
using namespace std::chrono_literals;

namespace {

/// Whether it stands in any text that the widget has, those for screen readers included.
bool hasText(const QWidget& widget, const QString& part) {
    const QMetaObject& type = *widget.metaObject();
    for (int i = 0; i < type.propertyCount(); ++i) {
        if (type.property(i).read(&widget).toString().contains(part))
            return true;
    }
    return false;
}

QStringList namesOfWidgetsWith(const QString& part, QDialog& dialog) {
    QList<QWidget*> widgets = dialog.findChildren<QWidget*>();
    widgets.append(&dialog);
    QStringList names;
    for (const QWidget* widget : std::as_const(widgets)) {
        if (hasText(*widget, part))
            names.append(widget->accessibleName());
    }
    return names;
}

} // namespace

TEST_F(AuthKeyForm, ShowsItsTextsInOrder) {
    open();
    QStringList texts;
    for (const QLabel* label : dialog()->findChildren<QLabel*>()) {
        if (label->isVisible())
            texts.append(label->text());
    }
    EXPECT_EQ(texts, QStringList({u"Connect to Tarnwick Network"_s,
                                  u"Enter the device name and auth key from your Tarnwick "
                                  "dashboard (Add Device)."_s,
                                  u"Device Name"_s, u"Auth Key"_s}));
    EXPECT_EQ(deviceName()->placeholderText(), u"my-device"_s);
    EXPECT_EQ(authKey()->placeholderText(), u"Paste your auth key here..."_s);
    EXPECT_EQ(cancelButton()->text(), u"Cancel"_s);
    EXPECT_EQ(connectButton()->text(), u"Connect"_s);
}

TEST_F(AuthKeyForm, StartsWithTheCleanedComputerNameAndAnEmptyReadableKey) {
    open();
    EXPECT_EQ(deviceName()->text(), u"john-s-macbook-pro"_s);
    EXPECT_EQ(authKey()->text(), QString());
    EXPECT_EQ(authKey()->echoMode(), QLineEdit::Normal);
}

TEST_F(AuthKeyForm, UnnamedComputerStartsWithTheFallback) {
    computerName.clear();
    open();
    EXPECT_EQ(deviceName()->text(), u"tarnwick-device"_s);
}

TEST_F(AuthKeyForm, EmptyDeviceNameLogsInAsTarnwickDevice) {
    open();
    deviceName()->clear();
    pressConnect(u"twkey-1"_s);
    ASSERT_TRUE(waitUntil([this] { return logins().size() == 1; }));
    const QStringList login = logins().first();
    EXPECT_EQ(login.mid(login.indexOf(u"--authkey"_s)),
              QStringList({u"--authkey"_s, u"twkey-1"_s, u"--hostname"_s, u"tarnwick-device"_s}));
    EXPECT_EQ(deviceName()->text(), QString()); // left as the user typed it
}

TEST_F(AuthKeyForm, DevPrefixOfTheDeviceNameIsKeptAndChoosesTheServer) {
    open();
    deviceName()->setText(u"Dev-Box!"_s);
    pressConnect(u"twkey-1"_s);
    ASSERT_TRUE(waitUntil([this] { return logins().size() == 1; }));
    EXPECT_EQ(logins().first().last(), u"dev-box"_s);
    EXPECT_TRUE(logins().first()[1].contains(u"dev"_s));
    EXPECT_EQ(deviceName()->text(), u"Dev-Box!"_s);
}

TEST_F(AuthKeyForm, KeyOfOnlyBlanksEnablesTheButtonAndIsSentAsItIs) {
    open();
    EXPECT_FALSE(connectButton()->isEnabled());
    authKey()->setText(u"   "_s);
    EXPECT_TRUE(connectButton()->isEnabled());
    connectButton()->click();
    ASSERT_TRUE(waitUntil([this] { return logins().size() == 1; }));
    EXPECT_EQ(logins().first()[3], u"   "_s);
}

TEST_F(AuthKeyForm, KeyIsSentWithoutTrimming) {
    open();
    pressConnect(u"  twkey-1 \u00e9 "_s);
    ASSERT_TRUE(waitUntil([this] { return logins().size() == 1; }));
    EXPECT_EQ(logins().first()[3], u"  twkey-1 \u00e9 "_s);
}

TEST_F(AuthKeyForm, DeviceNamePlaysNoPartInEnabling) {
    open();
    deviceName()->clear();
    EXPECT_FALSE(connectButton()->isEnabled());
    authKey()->setText(u"k"_s);
    EXPECT_TRUE(connectButton()->isEnabled());
    authKey()->clear();
    EXPECT_FALSE(connectButton()->isEnabled());
}

TEST_F(AuthKeyForm, ButtonReadsConnectingUntilTheLoginHasFinished) {
    open();
    world.closeGate();
    pressConnect(u"twkey-1"_s);
    EXPECT_EQ(connectButton()->text(), u"Connecting..."_s);
    EXPECT_FALSE(connectButton()->isEnabled());
    authKey()->setText(u"twkey-2"_s);
    EXPECT_FALSE(connectButton()->isEnabled());
    world.openGate();
    ASSERT_TRUE(waitUntil([this] { return connectButton()->isEnabled(); }));
    EXPECT_EQ(connectButton()->text(), u"Connect"_s);
}

TEST_F(AuthKeyForm, PressRemovesTheOldErrorAtOnce) {
    open();
    test::publishError(*daemon, u"old"_s);
    auto* error = dialog()->findChild<ScrollingText*>();
    ASSERT_TRUE(waitUntil([error] { return error->isVisible(); }));
    world.closeGate();
    pressConnect(u"twkey-1"_s);
    EXPECT_FALSE(daemon->state().errorMessage.has_value());
    EXPECT_TRUE(waitUntil([error] { return !error->isVisible(); }));
    EXPECT_EQ(connectButton()->text(), u"Connecting..."_s); // not for the log-in's end
}

TEST_F(AuthKeyForm, RefusedLoginShowsTheToolsTextAndStaysThere) {
    open();
    world.answer("status", "error: no daemon\n"); // so that no refresh takes the message away
    world.answer("login", "error: invalid key <b>\n");
    pressConnect(u"twkey-1"_s);
    auto* error = dialog()->findChild<ScrollingText*>();
    ASSERT_TRUE(waitUntil([error] { return error->isVisible(); }));
    EXPECT_TRUE(error->text().contains(u"error: invalid key <b>"_s));
    EXPECT_TRUE(isOpen());
}

TEST_F(AuthKeyForm, ConnectedOnTheFirstRefreshClosesWithoutDelay) {
    AuthKeyWindow patient({.computerName = [] { return QString(); }, .retryInterval = 1h});
    open();
    patient.show(daemon);
    world.answer("status", ControllerWorld::connectedStatus());
    for (auto* field : patient.window()->findChildren<QLineEdit*>())
        field->setText(u"twkey-1"_s);
    patient.window()->findChildren<QPushButton*>()[1]->click();
    EXPECT_TRUE(waitUntil([&patient] { return !patient.window(); })); // no hour
    EXPECT_EQ(statusCallsAfterLogin(), 2);                            // that of the log-in, and one
}

TEST_F(AuthKeyForm, NeverConnectedRefreshesExactlySixTimesAndStays) {
    open();
    pressConnect(u"twkey-1"_s);
    constexpr qsizetype ofTheLogin = 1;
    ASSERT_TRUE(waitUntil([this] { return statusCallsAfterLogin() == ofTheLogin + 6; }));
    runEventLoopFor(200ms);
    EXPECT_EQ(statusCallsAfterLogin(), ofTheLogin + 6);
    EXPECT_TRUE(isOpen());
    EXPECT_TRUE(connectButton()->isEnabled());
    EXPECT_FALSE(dialog()->findChild<ScrollingText*>()->isVisible());
}

TEST_F(AuthKeyForm, ConnectionThatComesLaterClosesTheWindow) {
    open();
    pressConnect(u"twkey-1"_s);
    ASSERT_TRUE(waitUntil([this] { return statusCallsAfterLogin() >= 3; }));
    world.answer("status", ControllerWorld::connectedStatus());
    EXPECT_TRUE(waitUntil([this] { return !dialog(); }));
}

TEST_F(AuthKeyForm, SecondPressStartsItsOwnLoginAndItsOwnRefreshes) {
    open();
    pressConnect(u"twkey-1"_s);
    ASSERT_TRUE(waitUntil([this] { return connectButton()->isEnabled(); }));
    ASSERT_TRUE(waitUntil([this] { return statusCallsAfterLogin() == 7; })); // the first is over
    pressConnect(u"twkey-2"_s);
    ASSERT_TRUE(waitUntil([this] { return logins().size() == 2; }));
    EXPECT_EQ(logins()[1][3], u"twkey-2"_s);
    EXPECT_TRUE(waitUntil([this] { return statusCallsAfterLogin() == 7; }));
}

TEST_F(AuthKeyForm, SecondPressDuringTheFirstOnesRefreshesIsAllowed) {
    open();
    pressConnect(u"twkey-1"_s);
    ASSERT_TRUE(waitUntil([this] { return connectButton()->isEnabled(); }));
    pressConnect(u"twkey-2"_s);
    ASSERT_TRUE(waitUntil([this] { return logins().size() == 2; }));
    world.answer("status", ControllerWorld::connectedStatus());
    EXPECT_TRUE(waitUntil([this] { return !dialog(); }));
}

TEST_F(AuthKeyForm, KeyOfARefusedLoginStandsInItsFieldAlone) {
    open();
    world.answer("status", "error: no daemon\n"); // so that no refresh takes the message away
    world.answer("login", "error: refused\n");
    pressConnect(u"twkey-secret"_s);
    auto* error = dialog()->findChild<ScrollingText*>();
    ASSERT_TRUE(waitUntil([error] { return error->isVisible(); }));
    EXPECT_EQ(error->text(), u"error: refused\n"_s);
    EXPECT_EQ(namesOfWidgetsWith(u"twkey-secret"_s, *dialog()), QStringList{u"Auth Key"_s});
}

TEST_F(AuthKeyForm, LongErrorsLeaveTheButtonsInsideTheWindow) {
    open();
    const QPoint buttonBefore = connectButton()->mapTo(dialog(), QPoint());
    auto* error = dialog()->findChild<ScrollingText*>();
    for (const QString& text :
         {QString(10'000, u'x'), u"some words "_s.repeated(900), u"a line\n"_s.repeated(1000)}) {
        test::publishError(*daemon, text);
        ASSERT_TRUE(waitUntil([&] { return error->isVisible() && error->text() == text; }));
        runEventLoopFor(1ms);
        EXPECT_EQ(dialog()->size(), AuthKeyView::formSize);
        EXPECT_EQ(connectButton()->mapTo(dialog(), QPoint()), buttonBefore);
        EXPECT_LE(error->geometry().bottom(), connectButton()->geometry().top());
        // A line, and so much of the next that it shows that there is more, in any font.
        EXPECT_GE(error->height(), error->widget()->fontMetrics().height() * 3 / 2);
        EXPECT_LE(error->widget()->width(), error->width());
        EXPECT_EQ(error->focusPolicy(), Qt::StrongFocus); // to be read to its end by keyboard
    }
}

TEST_F(AuthKeyForm, FieldsAreNamedByTheirLabels) {
    open();
    for (const QLabel* label : dialog()->findChildren<QLabel*>()) {
        if (label->buddy()) {
            EXPECT_EQ(label->buddy()->accessibleName(), label->text());
        }
    }
}

TEST_F(AuthKeyForm, TabGoesFromFieldToFieldToTheButtons) {
    open();
    authKey()->setText(u"k"_s);
    deviceName()->setFocus();
    const auto focusAfterTab = [this] {
        QTest::keyClick(dialog()->focusWidget(), Qt::Key_Tab);
        return dialog()->focusWidget();
    };
    EXPECT_EQ(focusAfterTab(), authKey());
    EXPECT_EQ(focusAfterTab(), cancelButton());
    EXPECT_EQ(focusAfterTab(), connectButton());
    EXPECT_EQ(focusAfterTab(), deviceName());
}

TEST_F(AuthKeyForm, ReturnConnects) {
    open();
    QTest::keyClick(authKey(), Qt::Key_Return);
    EXPECT_TRUE(isOpen()); // nothing to connect with yet
    authKey()->setText(u"twkey-1"_s);
    QTest::keyClick(deviceName(), Qt::Key_Return);
    EXPECT_EQ(connectButton()->text(), u"Connecting..."_s);
    EXPECT_TRUE(waitUntil([this] { return logins().size() == 1; }));
}

TEST_F(AuthKeyForm, ReturnThatIsStillHeldWhenTheLoginHasFailedConnectsNotAgain) {
    open();
    world.answer("login", "error: refused\n");
    authKey()->setText(u"twkey-1"_s);
    sendKey(authKey(), QEvent::KeyPress, Qt::Key_Return);
    ASSERT_TRUE(waitUntil([this] { return connectButton()->isEnabled(); }));
    sendKey(authKey(), QEvent::KeyPress, Qt::Key_Return, true);
    sendKey(connectButton(), QEvent::KeyPress, Qt::Key_Return, true);
    EXPECT_EQ(connectButton()->text(), u"Connect"_s);
    EXPECT_EQ(logins().size(), 1);
}

TEST_F(AuthKeyForm, LineBreaksOfAPastedTextAreDropped) {
    open();
    for (const QString& pasted :
         {u"twkey-1\n"_s, u"twk\r\ney-1\r\n"_s, u"\u2028twkey\u2029-1\u0085\v\f"_s}) {
        for (QLineEdit* edited : {authKey(), deviceName()}) {
            edited->clear();
            QGuiApplication::clipboard()->setText(pasted);
            QTest::keySequence(edited, QKeySequence::Paste);
            EXPECT_EQ(edited->text(), u"twkey-1"_s) << qPrintable(pasted);
        }
    }
}

TEST_F(AuthKeyForm, LineBreaksOfADroppedTextAreDropped) {
    open();
    QMimeData dropped;
    dropped.setText(u"twkey-1\r\n"_s);
    QDragEnterEvent enter(QPoint(5, 5), Qt::CopyAction, &dropped, Qt::LeftButton, {});
    QCoreApplication::sendEvent(authKey(), &enter);
    QDropEvent drop(QPointF(5, 5), Qt::CopyAction, &dropped, Qt::LeftButton, {});
    QCoreApplication::sendEvent(authKey(), &drop);
    EXPECT_EQ(authKey()->text(), u"twkey-1"_s);
}

TEST_F(AuthKeyForm, KeyLongerThanItsFieldIsRefusedWithAReason) {
    open();
    const auto note = [this] {
        return findNote();
    };
    const QString longest(32'767, u'k');
    QGuiApplication::clipboard()->setText(longest);
    QTest::keySequence(authKey(), QKeySequence::Paste);
    EXPECT_EQ(authKey()->text(), longest);
    EXPECT_EQ(note(), QString());

    QGuiApplication::clipboard()->setText(longest + u'k');
    authKey()->selectAll();
    QTest::keySequence(authKey(), QKeySequence::Paste);
    EXPECT_EQ(authKey()->text(), longest) << "what was there stays";
    EXPECT_TRUE(note().contains(u"32767"_s)) << qPrintable(note());

    QTest::keyClick(authKey(), Qt::Key_Backspace);
    EXPECT_EQ(note(), QString());
}

TEST_F(AuthKeyForm, EscapeCancelsFromEitherField) {
    for (const QString& name : {u"Device Name"_s, u"Auth Key"_s}) {
        open();
        field(name)->setFocus();
        QTest::keyClick(field(name), Qt::Key_Escape);
        EXPECT_TRUE(waitUntil([this] { return !isOpen(); }));
    }
    EXPECT_TRUE(logins().isEmpty());
}

} // namespace tarnwick::test
