// SPDX-License-Identifier: MIT
#include "ui/windows/auth_key_window.h"

#include "model/host_name.h"
#include "ui/controls/form_controls.h"

#include <QCoreApplication>
#include <QEvent>
#include <QPointer>
#include <QTimer>
#include <QVBoxLayout>

namespace tarnwick {

using namespace Qt::StringLiterals;

namespace {

constexpr int spacing = 16;
constexpr int groupSpacing = 6;
constexpr int buttonSpacing = 8;
constexpr int buttonPadding = 14;
constexpr int padding = 24;
constexpr int moreRefreshes = 5; // after the first

WrappedLabel* makeLabel(const QString& text, const TextLook& look, ThemeColor color,
                        QWidget* parent) {
    auto* label = new WrappedLabel(look, color, parent);
    label->setContent(text);
    return label;
}

// Refreshes the status until the machine is connected, and then calls `onClose`: once now, and
// `attempts` times more, each `interval` after the answer before. Gives up silently. Needs no view:
// the window may be closed by hand meanwhile.
void checkAndClose(const std::weak_ptr<DaemonManager>& daemon, std::chrono::milliseconds interval,
                   const std::function<void()>& onClose, int attempts) {
    const auto manager = daemon.lock();
    if (!manager)
        return;
    manager->refreshStatus(false, [daemon, interval, onClose, attempts] {
        const auto refreshed = daemon.lock();
        if (refreshed && refreshed->state().isConnected) {
            onClose();
        } else if (refreshed && attempts > 0) {
            QTimer::singleShot(interval, QCoreApplication::instance(),
                               [=] { checkAndClose(daemon, interval, onClose, attempts - 1); });
        }
    });
}

} // namespace

AuthKeyView::AuthKeyView(std::shared_ptr<DaemonManager> daemon, AuthKeyViewOptions options,
                         QWidget* parent)
    : QWidget(parent), daemon_(std::move(daemon)), options_(std::move(options)),
      deviceName_(new RoundedField(this)), authKey_(new RoundedField(this)),
      error_(new ScrollingText({TextStyle::Caption}, ThemeColor::Red, this)),
      cancelButton_(new FormButton(u"Cancel"_s, FormButton::Prominence::Plain, this)),
      connectButton_(new FormButton(u"Connect"_s, FormButton::Prominence::Prominent, this)) {
    deviceName_->setText(sanitizeHostname(options_.computerName));
    layOut();
    cancelButton_->setShortcut(Qt::Key_Escape);
    connect(cancelButton_, &QPushButton::clicked, this, [this] {
        const auto onClose = options_.onClose; // it may delete this
        onClose();
    });
    connect(connectButton_, &QPushButton::clicked, this, &AuthKeyView::connectToNetwork);
    connect(authKey_, &QLineEdit::textChanged, this, &AuthKeyView::render);
    connect(&daemon_->published(), &PublishedState::changed, this, &AuthKeyView::render);
    render();
}

void AuthKeyView::layOut() {
    auto* layout = new QVBoxLayout(this);
    layout->setContentsMargins(padding, padding, padding, padding);
    layout->setSpacing(spacing);
    layout->addWidget(makeLabel(u"Connect to Tarnwick Network"_s,
                                {TextStyle::Title3, TextWeight::Semibold}, ThemeColor::Label,
                                this));
    auto* hint = makeLabel(
        u"Enter the device name and auth key from your Tarnwick dashboard (Add Device)."_s,
        {TextStyle::Caption}, ThemeColor::Secondary, this);
    hint->balanceLines();
    layout->addWidget(hint);
    layout->addLayout(makeField(u"Device Name"_s, u"my-device"_s, deviceName_));
    layout->addLayout(makeField(u"Auth Key"_s, u"Paste your auth key here..."_s, authKey_));
    layout->addWidget(error_);
    layout->addStretch(1);
    layout->addLayout(makeButtons());
    fitTexts();
}

void AuthKeyView::fitTexts() {
    // Wide enough for the longer title, so that the button keeps its size while connecting.
    const int longerTitle = connectButton_->fontMetrics().horizontalAdvance(u"Connecting..."_s);
    connectButton_->setMinimumWidth(longerTitle + 2 * buttonPadding);
    const int needed = layout()->minimumHeightForWidth(formSize.width());
    setFixedSize(formSize.width(), std::max(formSize.height(), needed));
}

bool AuthKeyView::event(QEvent* event) {
    if (event->type() == QEvent::LayoutRequest)
        fitTexts(); // the texts grow with the font
    return QWidget::event(event);
}

QLayout* AuthKeyView::makeField(const QString& label, const QString& placeholder,
                                QLineEdit* field) {
    auto* group = new QVBoxLayout;
    group->setSpacing(groupSpacing);
    auto* caption =
        makeLabel(label, {TextStyle::Caption, TextWeight::Medium}, ThemeColor::Label, this);
    caption->setBuddy(field);
    field->setAccessibleName(label);
    field->setPlaceholderText(placeholder);
    group->addWidget(caption);
    group->addWidget(field);
    auto* refusal = makeLabel(u"Too long: at most %1 characters."_s.arg(RoundedField::longestText),
                              {TextStyle::Caption}, ThemeColor::Red, this);
    refusal->hide();
    connect(field, &QLineEdit::inputRejected, refusal, &QWidget::show);
    connect(field, &QLineEdit::textChanged, refusal, &QWidget::hide);
    group->addWidget(refusal);
    return group;
}

QLayout* AuthKeyView::makeButtons() {
    auto* row = new QHBoxLayout;
    row->setSpacing(buttonSpacing);
    row->addStretch(1);
    row->addWidget(cancelButton_);
    row->addWidget(connectButton_);
    return row;
}

void AuthKeyView::connectToNetwork() {
    setConnecting(true);
    daemon_->clearErrorMessage();
    const auto wait = [daemon = std::weak_ptr(daemon_), interval = options_.retryInterval,
                       onClose = options_.onClose] {
        checkAndClose(daemon, interval, onClose, moreRefreshes);
    };
    daemon_->connectWithAuthKey(authKey_->text(), sanitizeHostname(deviceName_->text()),
                                [view = QPointer(this), wait] {
                                    if (view)
                                        view->setConnecting(false);
                                    wait();
                                });
}

void AuthKeyView::setConnecting(bool connecting) {
    connecting_ = connecting;
    render();
}

void AuthKeyView::render() {
    connectButton_->setText(connecting_ ? u"Connecting..."_s : u"Connect"_s);
    connectButton_->setEnabled(!authKey_->text().isEmpty() && !connecting_);
    const auto message = daemon_->state().errorMessage;
    const QString text = message.value_or(QString());
    if (error_->text() != text)
        error_->setText(text);
    error_->setVisible(message.has_value());
}

AuthKeyWindow::AuthKeyWindow(AuthKeyWindowOptions options) : options_(std::move(options)) {}

AuthKeyWindow::~AuthKeyWindow() {
    delete window_->release(); // there may be no event loop for deleteLater()
}

// Not at once: one of the window's buttons may be on the stack.
void AuthKeyWindow::DeleteLater::operator()(FloatingDialog* window) const {
    window->close();
    window->deleteLater();
}

void AuthKeyWindow::show(const std::shared_ptr<DaemonManager>& daemon) {
    window_->reset();
    window_->reset(new FloatingDialog(u"Connect to Network"_s));
    FloatingDialog& window = **window_;
    auto* layout = new QVBoxLayout(&window);
    layout->setContentsMargins(0, 0, 0, 0);
    layout->setSizeConstraint(QLayout::SetFixedSize);
    AuthKeyViewOptions form{.computerName = options_.computerName(),
                            .retryInterval = options_.retryInterval,
                            .onClose = [weak = std::weak_ptr(window_)] {
                                if (const auto holder = weak.lock())
                                    holder->reset();
                            }};
    layout->addWidget(new AuthKeyView(daemon, std::move(form), &window));
    window.present();
}

} // namespace tarnwick
