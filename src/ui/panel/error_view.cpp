// SPDX-License-Identifier: MIT
#include "ui/panel/error_view.h"

#include <QVBoxLayout>

namespace tarnwick {

ErrorView::ErrorView(QWidget* parent)
    : QWidget(parent), text_(new WrappedLabel({TextStyle::Caption}, ThemeColor::Red, this)) {
    auto* padded = new QVBoxLayout(this);
    padded->setContentsMargins(16, 8, 16, 8);
    padded->addWidget(text_);
}

void ErrorView::setContent(const PanelContent::Error& content) {
    text_->setContent(content.text);
}

} // namespace tarnwick
