// SPDX-License-Identifier: MIT
#include "desktop/embedded_icon_linux.h"
#include "desktop/x11_linux.h"
#include "support/waiting.h"

#include <QCoreApplication>
#include <QResizeEvent>

#include <gtest/gtest.h>

namespace tarnwick {

namespace {

class CountingIcon : public EmbeddedIcon {
public:
    using EmbeddedIcon::EmbeddedIcon;

    int paints() const { return paints_; }

protected:
    void paintEvent(QPaintEvent* event) override {
        EmbeddedIcon::paintEvent(event);
        ++paints_;
    }

private:
    int paints_ = 0;
};

} // namespace

// As in a tray that resizes it only after it has shown it: of the first shrinking Qt sends the size
// alone.
TEST(EmbeddedIcon, IsPaintedAnewInEachSize) {
    X11Tray noTray;
    CountingIcon icon(noTray, QIcon(), [](const IconClick&) {});
    ASSERT_TRUE(test::waitUntil([&] { return icon.paints() > 0; }));
    test::runEventLoopFor(std::chrono::milliseconds(50));
    const int before = icon.paints();
    QResizeEvent resize(QSize(16, 16), icon.size());
    QCoreApplication::sendEvent(&icon, &resize);
    EXPECT_TRUE(test::waitUntil([&] { return icon.paints() > before; }));
}

} // namespace tarnwick
