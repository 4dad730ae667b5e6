// SPDX-License-Identifier: MIT
#include "daemon/failure_text.h"

#include "daemon/command_runner.h"

namespace tarnwick {

using namespace Qt::StringLiterals;

namespace {

constexpr qsizetype longestText = 300;

} // namespace

QString failureText(const QString& output, const QString& secret) {
    QString text = output;
    if (!secret.trimmed().isEmpty())
        text.replace(secret.trimmed(), u"•••"_s);
    for (QChar& character : text) {
        if (character.category() == QChar::Other_Control)
            character = u' ';
    }
    text = text.simplified();
    if (text.size() <= longestText)
        return text;
    const bool splitsPair = text.at(longestText - 2).isHighSurrogate();
    return text.left(longestText - (splitsPair ? 2 : 1)) + u'…';
}

std::optional<QString> failureIn(const QByteArray& output, const QString& secret) {
    if (!hasCommandError(output))
        return std::nullopt;
    return failureText(textFromUtf8(output), secret);
}

} // namespace tarnwick
