// SPDX-License-Identifier: MIT
#include "ui/panel/header_view.h"

#include "ui/style/row_geometry.h"
#include "ui/style/row_painting.h"

#include <QHBoxLayout>

namespace tarnwick {

HeaderView::HeaderView(QWidget* parent)
    : QWidget(parent), symbol_(new SymbolView(TextStyle::Title2, this)),
      title_(new ElidedLabel({TextStyle::Headline}, ThemeColor::Label, this)),
      status_(new ElidedLabel({TextStyle::Caption}, ThemeColor::Secondary, this)) {
    // The symbol is larger than those of the rows: half of what it is wider stands over its column
    // on each side, so that its middle and the texts' edge are those of the rows.
    const int overhang = (symbol_->sizeHint().width() - symbolColumnWidth()) / 2;
    const int left = RowGeometry::horizontalPadding - overhang;
    const int textLeft = RowGeometry::horizontalPadding + symbolColumnWidth() + RowGeometry::gap;
    auto* row = new QHBoxLayout(this);
    row->setContentsMargins(left, 12, left, 12); // equal, for layouts do not mirror margins
    row->setSpacing(textLeft - left - symbol_->sizeHint().width());
    auto* texts = new QVBoxLayout;
    texts->setSpacing(2);
    texts->addWidget(title_);
    texts->addWidget(status_);
    row->addWidget(symbol_);
    row->addLayout(texts, 1);
}

void HeaderView::setContent(const PanelContent::Header& content) {
    symbol_->setSymbol(content.symbol, content.color);
    title_->setContent(content.title);
    status_->setContent(content.status);
    status_->setColor(content.color);
}

} // namespace tarnwick
