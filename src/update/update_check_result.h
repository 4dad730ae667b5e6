// SPDX-License-Identifier: MIT
#pragma once

#include <QString>

#include <variant>

namespace tarnwick {

/// The running version is not older than the published one.
struct UpToDate {
    QString installed;

    bool operator==(const UpToDate&) const = default;
};

/// A newer version is published.
struct Outdated {
    QString installed;
    QString available;

    bool operator==(const Outdated&) const = default;
};

/// The check failed.
struct CheckError {
    QString reason; ///< For the user to read.

    bool operator==(const CheckError&) const = default;
};

/// The outcome of one update check.
using UpdateCheckResult = std::variant<UpToDate, Outdated, CheckError>;

} // namespace tarnwick
