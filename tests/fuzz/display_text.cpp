// SPDX-License-Identifier: MIT
// Any bytes as what the tool printed and, behind the first NUL, as the secret that it was given;
// and as a text that is pasted into a field of one line.
#include "model/display_text.h"

#include "daemon/command_runner.h"
#include "daemon/failure_text.h"
#include "property.h"

#include <algorithm>
#include <cstddef>
#include <cstdint>

using namespace Qt::StringLiterals;
using tarnwick::fuzz::require;

namespace {

constexpr qsizetype longestNotification = 300;
constexpr qsizetype longestName = 512;
constexpr qsizetype longestMessage = 20'000;

bool isHarmless(const QString& text, bool canHaveLines) {
    return std::all_of(text.begin(), text.end(), [canHaveLines](QChar c) {
        const char16_t code = c.unicode();
        const bool reorders = code == 0x061c || code == 0x200e || code == 0x200f ||
                              (code >= 0x202a && code <= 0x202e) ||
                              (code >= 0x2066 && code <= 0x2069);
        const bool isLine = canHaveLines && c == u'\n';
        const bool isControl = c.category() == QChar::Other_Control || c == QChar::LineSeparator ||
                               c == QChar::ParagraphSeparator;
        return !reorders && (isLine || !isControl);
    });
}

bool isCut(const QString& text, qsizetype longest) {
    return text.size() <= longest || (text.size() <= longest + 1 && text.endsWith(u'…'));
}

void checkShown(const QString& text) {
    const QString line = tarnwick::harmlessLine(text);
    require(isHarmless(line, false), "a line has no control or direction characters");
    require(tarnwick::harmlessLine(line) == line, "filtering twice changes nothing");
    require(line.size() <= text.size(), "a line is not longer than its text");
    const QString name = tarnwick::singleLineText(text);
    require(isHarmless(name, false) && isCut(name, longestName), "a name is one short line");
    const QString message = tarnwick::multiLineText(text);
    require(isHarmless(message, true) && isCut(message, longestMessage), "a message is cut");
    require(!text.isValidUtf16() || (name.isValidUtf16() && message.isValidUtf16()),
            "no character is cut in two");
}

void checkFailure(const QByteArray& output, const QString& secret) {
    const auto failure = tarnwick::failureIn(output, secret);
    require(failure.has_value() == tarnwick::hasCommandError(output), "a failure has a text");
    const QString shown = tarnwick::failureText(tarnwick::textFromUtf8(output), secret);
    require(!failure || *failure == shown, "the failure's text is the output's");
    require(isHarmless(shown, false) && isCut(shown, longestNotification),
            "a notification is one short line");
    require(shown.isValidUtf16(), "no character is cut in two");
    const QString hidden = tarnwick::harmlessLine(secret).simplified();
    require(hidden.isEmpty() || hidden.contains(u'•') || hidden.contains(u'…') ||
                !shown.contains(hidden),
            "a notification does not have the secret");
}

void checkPasted(const QString& text, int cursor) {
    const auto withoutBreaks = [](QString part) {
        part.removeIf([](QChar c) { return tarnwick::isLineBreak(c); });
        return part;
    };
    QString line = text;
    int moved = cursor;
    tarnwick::dropLineBreaks(line, moved);
    require(line == withoutBreaks(text), "what is pasted loses its line breaks and no more");
    require(line.left(moved) == withoutBreaks(text.left(cursor)),
            "the cursor stays behind the same text");
}

} // namespace

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
    const QByteArray bytes(reinterpret_cast<const char*>(data), static_cast<qsizetype>(size));
    const qsizetype end = bytes.indexOf('\0');
    const QByteArray output = end < 0 ? bytes : bytes.first(end);
    const QString secret = end < 0 ? QString() : QString::fromUtf8(bytes.sliced(end + 1));
    const QString text = QString::fromUtf8(output);
    checkShown(text);
    checkFailure(output, secret);
    checkPasted(text, static_cast<int>(secret.size() % (text.size() + 1)));
    return 0;
}
