// SPDX-License-Identifier: MIT
#include "ui/controls/labels.h"

#include "model/display_text.h"
#include "ui/controls/keyboard.h"
#include "ui/style/row_painting.h"

#include <QClipboard>
#include <QGuiApplication>
#include <QHelpEvent>
#include <QKeyEvent>
#include <QPainter>
#include <QStyle>
#include <QTextLayout>
#include <QToolTip>

#include <algorithm>
#include <cmath>

namespace tarnwick {

namespace {

constexpr int panelTextWidth = 268; // the panel's width without padding

/// Breaks the text into lines of `width` and returns their total height.
double breakIntoLines(QTextLayout& layout, int width, Qt::Alignment alignment) {
    QTextOption option(alignment | Qt::AlignAbsolute);
    option.setWrapMode(QTextOption::WrapAtWordBoundaryOrAnywhere);
    option.setTextDirection(Qt::LayoutDirectionAuto);
    layout.setTextOption(option);
    double height = 0;
    layout.beginLayout();
    for (QTextLine line = layout.createLine(); line.isValid(); line = layout.createLine()) {
        line.setLineWidth(width);
        line.setPosition(QPointF(0, height));
        height += std::ceil(line.height());
    }
    layout.endLayout();
    return height;
}

QString withLineSeparators(QString text) {
    return text.replace(u'\n', QChar::LineSeparator);
}

} // namespace

StyledLabel::StyledLabel(const TextLook& look, ThemeColor color, QWidget* parent)
    : QLabel(parent), look_(look), color_(color) {
    setTextFormat(Qt::PlainText);
    setFont(look_.font());
}

void StyledLabel::setLook(const TextLook& look) {
    if (look == look_)
        return;
    look_ = look;
    setFont(look_.font());
    updateGeometry();
}

void StyledLabel::alignBaselines(StyledLabel& one, StyledLabel& other) {
    const int lower = QFontMetrics(one.font()).ascent() - QFontMetrics(other.font()).ascent();
    one.setContentsMargins(0, std::max(0, -lower), 0, 0);
    other.setContentsMargins(0, std::max(0, lower), 0, 0);
    for (StyledLabel* label : {&one, &other}) {
        label->setAlignment((label->alignment() & ~Qt::AlignVertical_Mask) | Qt::AlignTop);
        label->updateGeometry();
    }
}

void StyledLabel::setColor(ThemeColor color) {
    if (color == color_)
        return;
    color_ = color;
    update();
}

void StyledLabel::setContent(const QString& content) {
    if (content == content_)
        return;
    content_ = content;
    showContent();
    updateGeometry();
    update();
}

bool StyledLabel::event(QEvent* event) {
    if (event->type() == QEvent::ToolTip) {
        showTooltip(static_cast<QHelpEvent*>(event)->globalPos());
        return true;
    }
    if (event->type() == QEvent::ApplicationFontChange) {
        setFont(look_.font());
        updateGeometry();
    }
    return QLabel::event(event);
}

void StyledLabel::showTooltip(const QPoint& position) {
    if (isCut())
        QToolTip::showText(position, plainTooltip(content_), this);
    else
        QToolTip::hideText();
}

ElidedLabel::ElidedLabel(const TextLook& look, ThemeColor color, QWidget* parent)
    : StyledLabel(look, color, parent) {
    setSizePolicy(QSizePolicy::Preferred, QSizePolicy::Fixed);
}

void ElidedLabel::setElideMode(Qt::TextElideMode mode) {
    mode_ = mode;
    update();
}

QSize ElidedLabel::sizeHint() const {
    return {textAdvance(font(), text()), QFontMetrics(font()).height() + contentsMargins().top()};
}

QSize ElidedLabel::minimumSizeHint() const {
    return {0, sizeHint().height()};
}

void ElidedLabel::showContent() {
    const QString line = singleLineText(content());
    setText(line);
    setAccessibleName(line); // QLabel would drop "&" as a shortcut mark
}

bool ElidedLabel::isCut() const {
    return text() != singleLineText(content()) || text().size() < content().size() ||
           textAdvance(font(), text()) > width();
}

void ElidedLabel::paintEvent(QPaintEvent*) {
    QPainter painter(this);
    painter.setFont(font());
    painter.setPen(textColor());
    paintLine(painter, contentsRect(), text(), mode_, layoutDirection(),
              alignment() & Qt::AlignVertical_Mask);
}

SelectableLabel::SelectableLabel(const TextLook& look, QWidget* parent)
    : StyledLabel(look, ThemeColor::Label, parent) {
    setFocusPolicy(Qt::StrongFocus);
    setSizePolicy(QSizePolicy::Preferred, QSizePolicy::Fixed);
    setAlignment(Qt::AlignTrailing | Qt::AlignVCenter);
    setCursor(Qt::IBeamCursor);
}

QSize SelectableLabel::sizeHint() const {
    // 1 for the text cursor
    return {textAdvance(font(), line_) + 1,
            QFontMetrics(font()).height() + contentsMargins().top()};
}

QSize SelectableLabel::minimumSizeHint() const {
    return {0, sizeHint().height()};
}

void SelectableLabel::showContent() {
    line_ = singleLineText(content());
    setAccessibleName(line_);
    elide();
}

bool SelectableLabel::isCut() const {
    return text() != content();
}

void SelectableLabel::elide() {
    const QString shown = textAdvance(font(), line_) <= width()
                              ? line_
                              : QFontMetrics(font()).elidedText(line_, Qt::ElideMiddle, width());
    if (shown == text()) // setText() would drop the selection
        return;
    // QLabel makes its document also for a text that accepts the focus.
    setFocusPolicy(isSelectable() ? Qt::StrongFocus : Qt::NoFocus);
    setText(shown);
    setFocusPolicy(Qt::StrongFocus);
}

void SelectableLabel::resizeEvent(QResizeEvent* event) {
    StyledLabel::resizeEvent(event);
    elide();
}

void SelectableLabel::keyPressEvent(QKeyEvent* event) {
    const bool leavesLine = event->key() == Qt::Key_Up || event->key() == Qt::Key_Down;
    if (event->matches(QKeySequence::Copy) && hasSelectedText())
        copySelection();
    else if (leavesLine || event->key() == Qt::Key_Escape)
        event->ignore(); // for the panel, which moves the focus or closes
    else
        StyledLabel::keyPressEvent(event);
}

void SelectableLabel::copySelection() const {
    const bool isAll = selectedText() == text();
    QGuiApplication::clipboard()->setText(isAll ? content() : selectedText());
}

bool SelectableLabel::event(QEvent* event) {
    // On this, too, QLabel makes its document.
    if (event->type() == QEvent::Polish && !isSelectable())
        return QFrame::event(event); // NOLINT(bugprone-parent-virtual-call)
    return StyledLabel::event(event);
}

void SelectableLabel::mousePressEvent(QMouseEvent* event) {
    makeSelectable();
    StyledLabel::mousePressEvent(event);
}

bool SelectableLabel::isSelectable() const {
    return textInteractionFlags().testFlag(Qt::TextSelectableByMouse);
}

void SelectableLabel::makeSelectable() {
    if (isSelectable())
        return;
    setTextInteractionFlags(Qt::TextSelectableByMouse | Qt::TextSelectableByKeyboard);
    setFocusPolicy(Qt::StrongFocus); // a QLabel would only accept clicks
}

void SelectableLabel::focusInEvent(QFocusEvent* event) {
    makeSelectable();
    StyledLabel::focusInEvent(event);
    // As in a text field, focus by keyboard selects all, which also shows the focus.
    if (isKeyboardReason(event->reason()) && !hasSelectedText())
        setSelection(0, int(text().size()));
}

void SelectableLabel::focusOutEvent(QFocusEvent* event) {
    StyledLabel::focusOutEvent(event);
    if (isKeyboardReason(event->reason()))
        setSelection(0, 0);
}

WrappedLabel::WrappedLabel(const TextLook& look, ThemeColor color, QWidget* parent)
    : StyledLabel(look, color, parent) {
    QSizePolicy policy(QSizePolicy::Preferred, QSizePolicy::Minimum);
    policy.setHeightForWidth(true);
    setSizePolicy(policy);
}

QSize WrappedLabel::sizeHint() const {
    return {panelTextWidth, heightForWidth(panelTextWidth)};
}

QSize WrappedLabel::minimumSizeHint() const {
    return {0, QFontMetrics(font()).height()};
}

bool WrappedLabel::hasHeightForWidth() const {
    return true;
}

int WrappedLabel::heightForWidth(int width) const {
    QTextLayout layout(withLineSeparators(text()), font());
    const int oneLine = QFontMetrics(font()).height();
    return std::max(oneLine, qCeil(breakIntoLines(layout, width, Qt::AlignLeft)));
}

void WrappedLabel::balanceLines() {
    isBalanced_ = true;
    update();
}

/// The width to break lines at: if balanced, the least that takes no more of them.
int WrappedLabel::lineWidth() const {
    const auto linesAt = [this](int width) {
        QTextLayout layout(withLineSeparators(text()), font());
        breakIntoLines(layout, width, Qt::AlignLeft);
        return layout.lineCount();
    };
    const int lines = isBalanced_ ? linesAt(width()) : 1;
    if (lines == 1)
        return width();
    int least = 1;
    for (const QString& word : text().split(u' '))
        least = std::max(least, textAdvance(font(), word));
    int enough = width();
    while (least < enough) {
        const int middle = (least + enough) / 2;
        if (linesAt(middle) <= lines)
            enough = middle;
        else
            least = middle + 1;
    }
    return enough;
}

void WrappedLabel::showContent() {
    const QString lines = multiLineText(content());
    setText(lines);
    setAccessibleName(lines);
}

bool WrappedLabel::isCut() const {
    return false;
}

void WrappedLabel::paintEvent(QPaintEvent*) {
    QTextLayout layout(withLineSeparators(text()), font());
    const int lineWidth = this->lineWidth();
    breakIntoLines(layout, lineWidth, QStyle::visualAlignment(layoutDirection(), Qt::AlignLeft));
    QPainter painter(this);
    painter.setPen(textColor());
    layout.draw(&painter, QPointF(isRightToLeft() ? width() - lineWidth : 0, 0));
}

} // namespace tarnwick
