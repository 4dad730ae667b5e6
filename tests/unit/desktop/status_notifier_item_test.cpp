// SPDX-License-Identifier: MIT
#include "desktop/status_notifier_item_linux.h"
#include "support/private_bus.h"
#include "support/waiting.h"

#include <QDBusMessage>
#include <QDBusPendingCall>
#include <QDBusVariant>
#include <QDBusVirtualObject>
#include <QPixmap>

#include <gtest/gtest.h>

#include <limits>

namespace tarnwick {

using namespace Qt::StringLiterals;
using test::waitUntil;

namespace {

/// A watcher that remembers who registers with it.
class Watcher : public QDBusVirtualObject {
public:
    explicit Watcher(const QDBusConnection& connection) : connection_(connection) {
        connection_.registerVirtualObject(u"/StatusNotifierWatcher"_s, this);
        connection_.registerService(u"org.kde.StatusNotifierWatcher"_s);
    }

    ~Watcher() override {
        connection_.unregisterService(u"org.kde.StatusNotifierWatcher"_s);
        connection_.unregisterObject(u"/StatusNotifierWatcher"_s);
    }

    Watcher(const Watcher&) = delete;
    Watcher& operator=(const Watcher&) = delete;

    QString introspect(const QString&) const override { return {}; }

    bool handleMessage(const QDBusMessage& message, const QDBusConnection&) override {
        items += message.arguments().value(0).toString();
        return true; // and never an answer
    }

    QStringList items;

private:
    QDBusConnection connection_;
};

class StatusNotifierItemTest : public testing::Test {
protected:
    void SetUp() override {
        bus_.start();
        QPixmap pixmap(64, 64);
        pixmap.fill(QColor(0x11, 0x22, 0x33));
        make(QIcon(pixmap));
    }

    void TearDown() override {
        item_.reset();
        watcher_.reset();
        QDBusConnection::disconnectFromBus(u"program"_s);
        QDBusConnection::disconnectFromBus(u"host"_s);
    }

    void make(const QIcon& picture) {
        item_.reset();
        item_ = std::make_unique<StatusNotifierItem>(
            program(), picture, [this](const IconClick& click) { clicks_ += click; });
    }

    QDBusConnection program() {
        return QDBusConnection::connectToBus(bus_.address(), u"program"_s);
    }

    QDBusConnection host() { return QDBusConnection::connectToBus(bus_.address(), u"host"_s); }

    /// What the item answers to a host.
    QDBusMessage call(const QString& interface, const QString& method,
                      const QVariantList& arguments) {
        auto message = QDBusMessage::createMethodCall(program().baseService(),
                                                      u"/StatusNotifierItem"_s, interface, method);
        message.setArguments(arguments);
        const QDBusPendingCall pending = host().asyncCall(message);
        EXPECT_TRUE(waitUntil([&] { return pending.isFinished(); }));
        return pending.reply();
    }

    QDBusMessage call(const QString& method, const QVariantList& arguments) {
        return call(u"org.kde.StatusNotifierItem"_s, method, arguments);
    }

    QVariant property(const QString& name) {
        const QDBusMessage reply = call(u"org.freedesktop.DBus.Properties"_s, u"Get"_s,
                                        {u"org.kde.StatusNotifierItem"_s, name});
        EXPECT_EQ(reply.type(), QDBusMessage::ReplyMessage) << qPrintable(reply.errorMessage());
        return reply.arguments().value(0).value<QDBusVariant>().variant();
    }

    QByteArray tokenOfTheNextClick() {
        clicks_.clear();
        call(u"Activate"_s, {0, 0});
        return clicks_.value(0).activationToken;
    }

    test::PrivateBus bus_;
    std::unique_ptr<StatusNotifierItem> item_;
    std::unique_ptr<Watcher> watcher_;
    QList<IconClick> clicks_;
};

} // namespace

TEST_F(StatusNotifierItemTest, HasThePropertiesThatHostsRead) {
    EXPECT_EQ(property(u"Category"_s), u"SystemServices"_s);
    EXPECT_EQ(property(u"Id"_s), u"tarnwick-client"_s);
    EXPECT_EQ(property(u"Title"_s), u"Tarnwick Network"_s);
    EXPECT_EQ(property(u"Status"_s), u"Active"_s);
    EXPECT_EQ(property(u"IconName"_s), u""_s);
    EXPECT_EQ(property(u"ItemIsMenu"_s), false);
    EXPECT_EQ(property(u"Menu"_s).value<QDBusObjectPath>().path(), u"/NO_DBUSMENU"_s);
    const QDBusMessage all =
        call(u"org.freedesktop.DBus.Properties"_s, u"GetAll"_s, {u"org.kde.StatusNotifierItem"_s});
    EXPECT_EQ(all.type(), QDBusMessage::ReplyMessage) << qPrintable(all.errorMessage());
}

TEST_F(StatusNotifierItemTest, SendsThePictureInEverySizeWithItsMostSignificantByteFirst) {
    const auto pixmaps = qdbus_cast<StatusNotifierPixmaps>(property(u"IconPixmap"_s));
    QList<int> widths;
    for (const StatusNotifierPixmap& pixmap : pixmaps) {
        widths += pixmap.width;
        EXPECT_EQ(pixmap.height, pixmap.width);
        EXPECT_EQ(pixmap.pixels.size(), qsizetype{4} * pixmap.width * pixmap.height);
        EXPECT_EQ(pixmap.pixels.first(4).toHex(), "ff112233");
    }
    EXPECT_EQ(widths, (QList{16, 22, 24, 32, 48, 64}));
}

TEST_F(StatusNotifierItemTest, ToolTipHasNameAndStatusAndChangesAreReported) {
    int reports = 0;
    QObject::connect(item_.get(), &StatusNotifierItem::NewToolTip, item_.get(), [&] { ++reports; });
    item_->setStatusLabel(u"Connected"_s);
    item_->setStatusLabel(u"Connected"_s);
    EXPECT_EQ(reports, 1);
    const auto toolTip = qdbus_cast<StatusNotifierToolTip>(property(u"ToolTip"_s));
    EXPECT_EQ(toolTip.title, u"Tarnwick Network"_s);
    EXPECT_EQ(toolTip.text, u"Connected"_s);
    item_->setStatusLabel(u"<b>&"_s); // hosts may take it for HTML
    EXPECT_EQ(qdbus_cast<StatusNotifierToolTip>(property(u"ToolTip"_s)).text, u"&lt;b&gt;&amp;"_s);
}

TEST_F(StatusNotifierItemTest, EveryButtonIsAClickAtItsPlace) {
    call(u"Activate"_s, {12, 34});
    call(u"SecondaryActivate"_s, {-5, 6});
    call(u"ContextMenu"_s, {std::numeric_limits<int>::min(), std::numeric_limits<int>::max()});
    ASSERT_EQ(clicks_.size(), 3);
    EXPECT_EQ(clicks_[0].point, QPoint(12, 34));
    EXPECT_EQ(clicks_[1].point, QPoint(-5, 6));
    EXPECT_EQ(clicks_[2].point,
              QPoint(std::numeric_limits<int>::min(), std::numeric_limits<int>::max()));
    EXPECT_EQ(call(u"Scroll"_s, {120, u"vertical"_s}).type(), QDBusMessage::ReplyMessage);
    EXPECT_EQ(clicks_.size(), 3);
}

TEST_F(StatusNotifierItemTest, ATokenIsForTheNextClickOnly) {
    call(u"ProvideXdgActivationToken"_s, {u"first"_s});
    call(u"ProvideXdgActivationToken"_s, {u"second_TIME12"_s});
    EXPECT_EQ(tokenOfTheNextClick(), "second_TIME12");
    EXPECT_EQ(tokenOfTheNextClick(), "");
}

TEST_F(StatusNotifierItemTest, AbsurdTokensAreNone) {
    for (const QString& token : {QString(513, u'x'), QString(1'000'000, u'x'), u"two words"_s,
                                 u"line\nbreak"_s, u"ümlaut"_s, u"delete\x7f"_s}) {
        call(u"ProvideXdgActivationToken"_s, {u"good"_s});
        call(u"ProvideXdgActivationToken"_s, {token});
        EXPECT_EQ(tokenOfTheNextClick(), "") << qPrintable(token.left(20));
    }
    call(u"ProvideXdgActivationToken"_s, {QString(512, u'x')});
    EXPECT_EQ(tokenOfTheNextClick().size(), 512);
}

TEST_F(StatusNotifierItemTest, CallsWithOtherTypesAreRefusedAndDoNothing) {
    const std::pair<QString, QVariantList> calls[] = {
        {u"Activate"_s, {}},
        {u"Activate"_s, {u"12"_s, 34}},
        {u"Activate"_s, {1.5, 2.5}},
        {u"Activate"_s, {QStringList{u"a"_s}, 1}},
        {u"ContextMenu"_s, {12}},
        {u"ProvideXdgActivationToken"_s, {7}},
        {u"ProvideXdgActivationToken"_s, {QByteArray("bytes")}},
        {u"Scroll"_s, {u"up"_s, u"vertical"_s}},
        {u"clicked"_s, {}},
        {u"deleteLater"_s, {}},
        {u"NoSuchThing"_s, {}},
    };
    for (const auto& [method, arguments] : calls) {
        EXPECT_EQ(call(method, arguments).type(), QDBusMessage::ErrorMessage) << qPrintable(method);
    }
    EXPECT_TRUE(clicks_.isEmpty());
    EXPECT_EQ(tokenOfTheNextClick(), "");
}

TEST_F(StatusNotifierItemTest, NothingCanBeSet) {
    const QDBusMessage reply = call(u"org.freedesktop.DBus.Properties"_s, u"Set"_s,
                                    {u"org.kde.StatusNotifierItem"_s, u"Title"_s,
                                     QVariant::fromValue(QDBusVariant(u"another"_s))});
    EXPECT_EQ(reply.type(), QDBusMessage::ErrorMessage);
    EXPECT_EQ(property(u"Title"_s), u"Tarnwick Network"_s);
}

TEST_F(StatusNotifierItemTest, RegistersUnderANameOfItsOwnWithAWatcherThatNeverAnswers) {
    watcher_ = std::make_unique<Watcher>(host());
    item_->registerWithWatcher();
    ASSERT_TRUE(waitUntil([&] { return watcher_->items.size() == 1; }));
    EXPECT_TRUE(watcher_->items[0].startsWith("org.kde.StatusNotifierItem-"_L1));
    item_->registerWithWatcher();
    EXPECT_TRUE(waitUntil([&] { return watcher_->items.size() == 2; }));
}

TEST_F(StatusNotifierItemTest, WhereItsNameIsTakenItRegistersUnderItsConnections) {
    watcher_ = std::make_unique<Watcher>(host());
    item_->registerWithWatcher();
    ASSERT_TRUE(waitUntil([&] { return watcher_->items.size() == 1; }));
    const QString name = watcher_->items[0];
    item_.reset();
    program().unregisterService(name);
    ASSERT_TRUE(host().registerService(name));
    make(QIcon());
    item_->registerWithWatcher();
    ASSERT_TRUE(waitUntil([&] { return watcher_->items.size() == 2; }));
    EXPECT_EQ(watcher_->items[1], program().baseService());
}

} // namespace tarnwick
