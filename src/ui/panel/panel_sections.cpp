// SPDX-License-Identifier: MIT
#include "ui/panel/panel_sections.h"

#include "ui/controls/labels.h"
#include "ui/style/row_painting.h"
#include "ui/style/symbol.h"

#include <QEvent>
#include <QHBoxLayout>
#include <QPainter>

namespace tarnwick {

namespace {

constexpr TextLook valueLook{TextStyle::Caption, TextWeight::Natural, TextDesign::Monospaced};

} // namespace

SymbolView::SymbolView(TextStyle style, QWidget* parent) : QWidget(parent), style_(style) {
    setSizePolicy(QSizePolicy::Fixed, QSizePolicy::Fixed);
}

void SymbolView::setSymbol(const QString& name, ThemeColor color) {
    name_ = name;
    color_ = color;
    update();
}

QSize SymbolView::sizeHint() const {
    return {symbolSize(style_), symbolSize(style_)};
}

void SymbolView::paintEvent(QPaintEvent*) {
    QPainter painter(this);
    paintSymbol(painter, rect(), name_, symbolSize(style_), themeColor(color_, palette()));
}

HeaderView::HeaderView(QWidget* parent)
    : QWidget(parent), symbol_(new SymbolView(TextStyle::Title2, this)),
      title_(new ElidedLabel({TextStyle::Headline}, ThemeColor::Label, this)),
      status_(new ElidedLabel({TextStyle::Caption}, ThemeColor::Secondary, this)) {
    auto* row = new QHBoxLayout(this);
    auto* texts = new QVBoxLayout;
    texts->setSpacing(2);
    texts->addWidget(title_);
    texts->addWidget(status_);
    row->addWidget(symbol_);
    row->addLayout(texts, 1);
    alignWithRows();
}

// The symbol is larger than the rows' symbols and overhangs their column on both sides, so that
// centres and text edges line up with the rows.
void HeaderView::alignWithRows() {
    const int overhang = (symbol_->sizeHint().width() - symbolColumnWidth()) / 2;
    const int left = RowGeometry::horizontalPadding - overhang;
    const int textLeft = RowGeometry::horizontalPadding + symbolColumnWidth() + RowGeometry::gap;
    // Equal, because layouts do not mirror margins.
    layout()->setContentsMargins(left, 12, left, 12);
    layout()->setSpacing(textLeft - left - symbol_->sizeHint().width());
    symbol_->updateGeometry();
}

bool HeaderView::event(QEvent* event) {
    if (event->type() == QEvent::ApplicationFontChange)
        alignWithRows();
    return QWidget::event(event);
}

void HeaderView::setContent(const PanelContent::Header& content) {
    symbol_->setSymbol(content.symbol, content.color);
    title_->setContent(content.title);
    status_->setContent(content.status);
    status_->setColor(content.color);
}

InfoView::InfoView(QWidget* parent) : QWidget(parent), column_(new QVBoxLayout(this)) {
    column_->setContentsMargins(16, 10, 16, 10);
    column_->setSpacing(6);
}

void InfoView::setContent(const PanelContent::Info& content) {
    for (qsizetype i = 0; i < content.rows.size(); ++i) {
        if (i == values_.size())
            makeRow(content.rows[i]);
        values_[i]->setContent(content.rows[i].value);
    }
}

void InfoView::makeRow(const PanelContent::InfoRow& row) {
    auto* label = new ElidedLabel({TextStyle::Caption}, ThemeColor::Secondary, this);
    label->setContent(row.label);
    label->setSizePolicy(QSizePolicy::Fixed, QSizePolicy::Fixed);
    StyledLabel* value = nullptr;
    if (row.isSelectable)
        value = new SelectableLabel(valueLook, this);
    else
        value = new ElidedLabel(valueLook, ThemeColor::Label, this);
    auto* line = new QHBoxLayout;
    line->setSpacing(8);
    line->addWidget(label, 0, Qt::AlignTop);
    line->addStretch(1);
    line->addWidget(value, 0, Qt::AlignTop);
    column_->addLayout(line);
    labels_.append(label);
    values_.append(value);
    StyledLabel::alignBaselines(*label, *value);
}

bool InfoView::event(QEvent* event) {
    // Queued, because the labels may get the event after this view.
    if (event->type() == QEvent::ApplicationFontChange)
        QMetaObject::invokeMethod(this, &InfoView::alignRows, Qt::QueuedConnection);
    return QWidget::event(event);
}

void InfoView::alignRows() {
    for (qsizetype i = 0; i < values_.size(); ++i)
        StyledLabel::alignBaselines(*labels_[i], *values_[i]);
}

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
