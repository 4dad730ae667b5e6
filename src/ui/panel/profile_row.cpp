// SPDX-License-Identifier: MIT
#include "ui/panel/profile_row.h"

#include <QStyle>

#include <algorithm>
#include <utility>

namespace tarnwick {

namespace {

constexpr int linePadding = 6;
constexpr int removeGap = 6;

} // namespace

ProfileRow::ProfileRow(PerformCommand perform, QWidget* parent)
    : QWidget(parent), perform_(std::move(perform)), pick_(new ProfileButton(this)),
      remove_(new RemoveButton(this)) {
    QObject::connect(pick_, &QAbstractButton::clicked, this, [this] { perform_(profile_.pick); });
    QObject::connect(remove_, &QAbstractButton::clicked, this, [this] {
        if (profile_.remove)
            perform_(*profile_.remove);
    });
}

void ProfileRow::setProfile(const PanelContent::Profile& profile) {
    profile_ = profile;
    pick_->setProfile(profile_);
    pick_->setReservedWidth(profile_.remove ? RemoveButton::sideLength + removeGap : 0);
    remove_->setVisible(profile_.remove.has_value());
    remove_->setAccessibleDescription(pick_->accessibleName());
}

QSize ProfileRow::sizeHint() const {
    const int texts = pick_->title().sizeHint().height() + ProfileButton::lineGap +
                      pick_->subtitle().sizeHint().height();
    return {0, std::max(texts, RemoveButton::sideLength) + 2 * linePadding};
}

void ProfileRow::resizeEvent(QResizeEvent* event) {
    QWidget::resizeEvent(event);
    pick_->setGeometry(rect());
    const QRect trash(width() - ProfileButton::horizontalPadding - RemoveButton::sideLength,
                      (height() - RemoveButton::sideLength) / 2, RemoveButton::sideLength,
                      RemoveButton::sideLength);
    remove_->setGeometry(QStyle::visualRect(layoutDirection(), rect(), trash));
    remove_->raise();
}

} // namespace tarnwick
