// SPDX-License-Identifier: MIT
#include "ui/panel/profile_button.h"

#include "ui/style/row_painting.h"
#include "ui/style/symbol.h"

#include <QPainter>

namespace tarnwick {

using namespace Qt::StringLiterals;

namespace {

constexpr int markGap = 8;

} // namespace

ProfileButton::ProfileButton(QWidget* parent)
    : RowButton(parent),
      title_(new ElidedLabel({TextStyle::Caption, TextWeight::Medium}, ThemeColor::Label, this)),
      subtitle_(new ElidedLabel({TextStyle::Caption2}, ThemeColor::Secondary, this)) {
    for (QWidget* label : {title_, subtitle_})
        label->setAttribute(Qt::WA_TransparentForMouseEvents);
}

void ProfileButton::setProfile(const PanelContent::Profile& profile) {
    markSymbol_ = profile.isSelected ? u"checkmark.circle.fill"_s : u"circle"_s;
    markColor_ = profile.isSelected ? ThemeColor::Green : ThemeColor::Secondary;
    title_->setContent(profile.title);
    subtitle_->setLook({TextStyle::Caption2, TextWeight::Natural, profile.subtitleDesign});
    subtitle_->setContent(profile.subtitle);
    setAccessibleName(title_->text());
    setAccessibleDescription(subtitle_->text());
    update();
}

void ProfileButton::setReservedWidth(int width) {
    reservedWidth_ = width;
    placeTexts();
}

QString ProfileButton::tooltipText() const {
    const auto isCut = [](const ElidedLabel& label) {
        return label.sizeHint().width() > label.width() ||
               label.text().size() < label.content().size();
    };
    if (!isCut(*title_) && !isCut(*subtitle_))
        return {};
    return title_->content() + u'\n' + subtitle_->content();
}

void ProfileButton::placeTexts() {
    const int left = horizontalPadding + symbolColumnWidth() + markGap;
    const int textWidth = width() - left - horizontalPadding - reservedWidth_;
    const int titleHeight = title_->sizeHint().height();
    const int subtitleHeight = subtitle_->sizeHint().height();
    const int top = (height() - titleHeight - lineGap - subtitleHeight) / 2;
    title_->setGeometry(mirrored({left, top, textWidth, titleHeight}));
    subtitle_->setGeometry(
        mirrored({left, top + titleHeight + lineGap, textWidth, subtitleHeight}));
}

void ProfileButton::resizeEvent(QResizeEvent* event) {
    RowButton::resizeEvent(event);
    placeTexts();
}

void ProfileButton::paintRow(QPainter& painter) {
    const QRect mark(horizontalPadding, 0, symbolColumnWidth(), height());
    paintSymbol(painter, mirrored(mark), markSymbol_, symbolSize(TextStyle::Body),
                themeColor(markColor_, palette()));
}

} // namespace tarnwick
