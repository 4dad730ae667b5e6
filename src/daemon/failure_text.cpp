// SPDX-License-Identifier: MIT
#include "daemon/failure_text.h"

#include "daemon/command_runner.h"
#include "model/display_text.h"

namespace tarnwick {

using namespace Qt::StringLiterals;

namespace {

constexpr qsizetype longestText = 300;

QString oneLine(const QString& text) {
    return harmlessLine(text).simplified();
}

} // namespace

QString failureText(const QString& output, const QString& secret) {
    QString text = oneLine(output);
    // Compared without marks: a secret with some in between reads the same.
    if (const QString hidden = oneLine(secret); !hidden.isEmpty())
        text.replace(hidden, u"•••"_s);
    return cutText(text, longestText);
}

std::optional<QString> failureIn(const QByteArray& output, const QString& secret) {
    if (!hasCommandError(output))
        return std::nullopt;
    return failureText(textFromUtf8(output), secret);
}

} // namespace tarnwick
