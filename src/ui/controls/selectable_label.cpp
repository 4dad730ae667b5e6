// SPDX-License-Identifier: MIT
#include "ui/controls/selectable_label.h"

#include "ui/controls/display_text.h"
#include "ui/controls/keyboard_focus.h"
#include "ui/style/row_painting.h"

#include <QClipboard>
#include <QGuiApplication>
#include <QKeyEvent>

namespace tarnwick {

SelectableLabel::SelectableLabel(const TextLook& look, QWidget* parent)
    : StyledLabel(look, ThemeColor::Label, parent) {
    setTextInteractionFlags(Qt::TextSelectableByMouse | Qt::TextSelectableByKeyboard);
    setFocusPolicy(Qt::StrongFocus); // a QLabel would only accept clicks
    setSizePolicy(QSizePolicy::Preferred, QSizePolicy::Fixed);
    setAlignment(Qt::AlignTrailing | Qt::AlignVCenter);
    setCursor(Qt::IBeamCursor);
}

QSize SelectableLabel::sizeHint() const {
    return {textAdvance(font(), line_) + 1, QFontMetrics(font()).height()}; // 1 for the text cursor
}

QSize SelectableLabel::minimumSizeHint() const {
    return {0, QFontMetrics(font()).height()};
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
    if (shown != text()) // setText() would drop the selection
        setText(shown);
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

void SelectableLabel::focusInEvent(QFocusEvent* event) {
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

} // namespace tarnwick
