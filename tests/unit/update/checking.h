// SPDX-License-Identifier: MIT
#pragma once

#include "support/waiting.h"
#include "update/update_service.h"

#include <QNetworkProxy>

#include <gtest/gtest.h>

#include <optional>
#include <ostream>

namespace tarnwick {

inline void PrintTo(const UpToDate& result, std::ostream* out) {
    *out << "up to date: " << result.installed.toStdString();
}

inline void PrintTo(const Outdated& result, std::ostream* out) {
    *out << "outdated: " << result.installed.toStdString() << " < "
         << result.available.toStdString();
}

inline void PrintTo(const CheckError& result, std::ostream* out) {
    *out << "error: " << result.reason.toStdString();
}

} // namespace tarnwick

namespace tarnwick::test {

/// A limit that only a failing test reaches.
constexpr std::chrono::milliseconds generousLimit{20000};

inline UpdateServiceOptions optionsFor(const QUrl& url, const QString& installed,
                                       std::chrono::milliseconds limit = generousLimit) {
    // Not through the proxy of the machine that runs the tests.
    QNetworkProxy::setApplicationProxy(QNetworkProxy(QNetworkProxy::NoProxy));
    return {.manifestURL = url, .installed = installed, .timeLimit = limit};
}

/// The outcome of one check; an error with an empty text when none comes.
inline UpdateCheckResult resultOf(const UpdateServiceOptions& options) {
    UpdateService service(options);
    std::optional<UpdateCheckResult> result;
    service.check([&result](const UpdateCheckResult& outcome) {
        EXPECT_FALSE(result) << "completed twice";
        result = outcome;
    });
    EXPECT_FALSE(result) << "completed before the call returned";
    EXPECT_TRUE(waitUntil([&result] { return result.has_value(); }));
    return result.value_or(CheckError{});
}

inline UpdateCheckResult resultOf(const QUrl& url,
                                  const QString& installed = QStringLiteral("1.4.2"),
                                  std::chrono::milliseconds limit = generousLimit) {
    return resultOf(optionsFor(url, installed, limit));
}

inline UpdateCheckResult checkError(const QString& reason) {
    return CheckError{reason};
}

} // namespace tarnwick::test
