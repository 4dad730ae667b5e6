// SPDX-License-Identifier: MIT
#include "ui/windows/update_alert.h"

#include "model/display_text.h"
#include "ui/controls/form_controls.h"

#include <QApplication>
#include <QHBoxLayout>
#include <QStyle>
#include <QVBoxLayout>

namespace tarnwick {

namespace {

constexpr int alertWidth = 460;
constexpr int alertPadding = 24;
constexpr int iconSize = 48;
constexpr int textSpacing = 6;
constexpr int visibleLines = 12; // an error text can have any length

QLabel* makeIcon(QWidget* parent) {
    const QIcon ofProgram = QApplication::windowIcon();
    const QIcon icon = ofProgram.isNull()
                           ? QApplication::style()->standardIcon(QStyle::SP_MessageBoxInformation)
                           : ofProgram;
    auto* label = new QLabel(parent);
    label->setPixmap(icon.pixmap(iconSize));
    label->setFixedSize(iconSize, iconSize);
    return label;
}

} // namespace

UpdateAlert::UpdateAlert(const UpdateDialog& content, OpenPage openPage)
    : FloatingDialog(content.messageText), openPage_(std::move(openPage)) {
    setAttribute(Qt::WA_DeleteOnClose);
    setWindowModality(Qt::ApplicationModal);
    setAccessibleDescription(multiLineText(content.informativeText));
    auto* layout = new QHBoxLayout(this);
    layout->setContentsMargins(alertPadding, alertPadding, alertPadding, alertPadding);
    layout->setSpacing(alertPadding - 8);
    layout->addWidget(makeIcon(this), 0, Qt::AlignTop);
    auto* column = new QVBoxLayout;
    column->setSpacing(alertPadding - 4);
    column->addWidget(makeTexts(content));
    column->addWidget(makeButtons(content.buttons));
    layout->addLayout(column, 1);
    setFixedWidth(alertWidth);
    layout->setSizeConstraint(QLayout::SetFixedSize);
}

QWidget* UpdateAlert::makeTexts(const UpdateDialog& content) {
    auto* texts = new QWidget(this);
    auto* layout = new QVBoxLayout(texts);
    layout->setContentsMargins(0, 0, 0, 0);
    layout->setSpacing(textSpacing);
    auto* message = new WrappedLabel({TextStyle::Headline}, ThemeColor::Label, texts);
    message->setContent(content.messageText);
    layout->addWidget(message);
    auto* informative = new ScrollingText({TextStyle::Body}, ThemeColor::Label, texts);
    informative->setFixedWidth(alertWidth - 2 * alertPadding - iconSize - (alertPadding - 8));
    informative->setMaximumTextHeight(visibleLines * informative->minimumSizeHint().height());
    informative->setText(content.informativeText);
    layout->addWidget(informative);
    return texts;
}

// QDialogButtonBox would order the buttons by the desktop's convention.
QWidget* UpdateAlert::makeButtons(const QList<UpdateDialogButton>& buttons) {
    auto* row = new QWidget(this);
    auto* layout = new QHBoxLayout(row);
    layout->setContentsMargins(0, 0, 0, 0);
    layout->addStretch();
    for (const UpdateDialogButton& description : buttons) {
        auto* button = new FormButton(description.title,
                                      description.isDefault ? FormButton::Prominence::Prominent
                                                            : FormButton::Prominence::Plain,
                                      row);
        layout->addWidget(button);
        connect(button, &QPushButton::clicked, this, [this, page = description.opens] {
            const OpenPage openPage = std::exchange(openPage_, nullptr);
            close();
            if (openPage && !page.isEmpty())
                openPage(page);
        });
        if (description.isDefault)
            button->setFocus();
    }
    return row;
}

} // namespace tarnwick
