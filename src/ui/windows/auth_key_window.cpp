// SPDX-License-Identifier: MIT
#include "ui/windows/auth_key_window.h"

#include "ui/windows/auth_key_view.h"

#include <QVBoxLayout>

namespace tarnwick {

using namespace Qt::StringLiterals;

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
