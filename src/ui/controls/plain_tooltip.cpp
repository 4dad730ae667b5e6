// SPDX-License-Identifier: MIT
#include "ui/controls/plain_tooltip.h"

#include "model/display_text.h"

namespace tarnwick {

using namespace Qt::StringLiterals;

namespace {

constexpr qsizetype longestTooltip = 2'000;
constexpr qsizetype longestTooltipWord = 40;

} // namespace

QString plainTooltip(const QString& text) {
    QString escaped;
    qsizetype sinceBlank = 0;
    for (const QChar c : multiLineText(cutText(text, longestTooltip))) {
        sinceBlank = c.isSpace() ? 0 : sinceBlank + 1;
        if (sinceBlank > longestTooltipWord && !c.isLowSurrogate()) {
            escaped += QChar(0x200b); // lets a long word break
            sinceBlank = 1;
        }
        escaped += c == u'\n' ? u"<br/>"_s : QString(c).toHtmlEscaped();
    }
    return u"<span>%1</span>"_s.arg(escaped);
}

} // namespace tarnwick
