// SPDX-License-Identifier: MIT
#pragma once

#include <QByteArray>
#include <QString>

namespace tarnwick::test {

/// Collects what is logged, by any thread, as long as it lives. One at a time.
class LogCapture {
public:
    /// `rules` are those of QT_LOGGING_RULES, such as "*=true"; none leave every category as it is.
    explicit LogCapture(const QString& rules = {});
    ~LogCapture();
    LogCapture(const LogCapture&) = delete;
    LogCapture& operator=(const LogCapture&) = delete;

    /// The messages so far, each "category: message" on a line of its own.
    QByteArray text() const;
};

} // namespace tarnwick::test
