// SPDX-License-Identifier: MIT
#include "model/display_text.h"
#include "panel_on_screen.h"
#include "ui/panel/panel_sections.h"

#include <QLabel>

#include <algorithm>

namespace tarnwick {

namespace {

using namespace Qt::StringLiterals;

/// Whether a screen reader gets no control character and no mark that changes the direction.
bool isHarmless(const QString& text) {
    return std::ranges::none_of(text, [](QChar c) {
        return (c.category() == QChar::Other_Control && c != u'\n') || c == QChar(0x202e);
    });
}

class HostileTexts : public test::PanelOnScreen, public testing::WithParamInterface<QString> {};

TEST_P(HostileTexts, AreShownAsTextAndTheLayoutHolds) {
    const QString& text = GetParam();
    DaemonState state = test::connectedState();
    state.backendState = text;
    state.ipAddress = text;
    state.hostname = text;
    state.errorMessage = text;
    state.devices = {{text, text, {}, {text}, true, text}};
    state.profiles = {{text, text, text, false, text, text}};
    panel->setMaximumPanelHeight(500);
    open(state);
    EXPECT_EQ(panel->width(), 300);
    EXPECT_LE(panel->height(), 500);
    auto* entry = find<DevicesSubmenu>();
    click(entry);
    EXPECT_EQ(entry->list()->width(), 260);
    EXPECT_EQ(deviceRow(*entry, 0)->height(),
              DeviceRow(PanelContent::Device{}).sizeHint().height());
    for (const QWidget* widget : panel->findChildren<QWidget*>()) {
        EXPECT_TRUE(isHarmless(widget->accessibleName()));
        EXPECT_TRUE(isHarmless(widget->accessibleDescription()));
    }
    for (const QLabel* label : panel->findChildren<QLabel*>()) {
        EXPECT_EQ(label->textFormat(), Qt::PlainText);
        const QRect place(label->mapTo(label->window(), QPoint(0, 0)), label->size());
        EXPECT_GE(place.left(), 0);
        EXPECT_LE(place.right(), label->window()->width());
        EXPECT_GE(label->height(), QFontMetrics(label->font()).height()) << "a line is cut";
    }
    const QLabel& address = find<InfoView>()->value(1);
    EXPECT_EQ(address.height(), QFontMetrics(address.font()).height()) << "one line";
    entry->grab();
    panel->grab();
    entry->list()->grab();
}

INSTANTIATE_TEST_SUITE_P(
    Texts, HostileTexts,
    testing::Values(QString(), QString(10'000, u'W'), u"one\ntwo\r\nthree\tfour"_s,
                    u"<img src=x><b>bold</b>&amp;"_s, u"\u202eabc\u202c \u05e9\u05dc\u05d5\u05dd"_s,
                    u"\U0001F469\u200D\U0001F4BB\U0001F680"_s, u"a\u0000b\u0007c\u001b[31m"_s,
                    u"&File && more"_s, QString(3, QChar(0xd800))));

TEST(PlainTooltip, ShowsMarkupAsItStands) {
    EXPECT_EQ(plainTooltip(u"<b>a</b> & b"_s), "<span>&lt;b&gt;a&lt;/b&gt; &amp; b</span>"_L1);
    EXPECT_TRUE(plainTooltip(QString(100, u'x')).contains(QChar(0x200b))) << "can be wrapped";
}

} // namespace

} // namespace tarnwick
