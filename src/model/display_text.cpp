// SPDX-License-Identifier: MIT
#include "model/display_text.h"

namespace tarnwick {

using namespace Qt::StringLiterals;

namespace {

constexpr qsizetype longestLine = 512;
constexpr qsizetype longestMessage = 20'000;
constexpr qsizetype longestTooltip = 2'000;
constexpr qsizetype longestTooltipWord = 40;

// Marks without width, or that change the direction of surrounding text.
bool isInvisibleMark(QChar c) {
    const char16_t code = c.unicode();
    return code == 0x061c || code == 0x200b || code == 0x200e || code == 0x200f ||
           (code >= 0x202a && code <= 0x202e) || (code >= 0x2060 && code <= 0x2069) ||
           code == 0xfeff;
}

} // namespace

QString cutText(const QString& text, qsizetype longest) {
    if (text.size() <= longest)
        return text;
    const qsizetype end = text[longest - 1].isHighSurrogate() ? longest - 1 : longest;
    return text.first(end) + u'…';
}

bool isLineBreak(QChar c) {
    return c == u'\n' || c == u'\r' || c == u'\v' || c == u'\f' || c == QChar(0x85) ||
           c == QChar::LineSeparator || c == QChar::ParagraphSeparator;
}

void dropLineBreaks(QString& text, int& cursor) {
    QString line;
    int lineCursor = cursor;
    for (qsizetype i = 0; i < text.size(); ++i) {
        if (!isLineBreak(text[i]))
            line += text[i];
        else if (i < cursor)
            --lineCursor;
    }
    text = line;
    cursor = lineCursor;
}

QString harmlessLine(const QString& text) {
    QString line;
    for (const QChar c : text) {
        if (isInvisibleMark(c))
            continue;
        const bool isBlank = isLineBreak(c) || c.category() == QChar::Other_Control;
        line += isBlank ? QChar(u' ') : c;
    }
    return line;
}

QString singleLineText(const QString& text) {
    return harmlessLine(cutText(text, longestLine));
}

QString multiLineText(const QString& text) {
    QString lines;
    QString normalized = cutText(text, longestMessage);
    normalized.replace("\r\n"_L1, "\n"_L1);
    for (const QChar c : std::as_const(normalized)) {
        if (isInvisibleMark(c))
            continue;
        if (isLineBreak(c))
            lines += u'\n';
        else
            lines += c.category() == QChar::Other_Control ? QChar(u' ') : c;
    }
    return lines;
}

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
