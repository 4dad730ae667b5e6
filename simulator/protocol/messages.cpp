// SPDX-License-Identifier: MIT
#include "protocol/messages.h"

#include <QList>

namespace tarnwick::simulator {

namespace {

constexpr char magic[] = "tarnwick/1";
constexpr qsizetype maximumHeaderBytes = 96; // without the line break

QByteArray headerLine(const QList<qsizetype>& numbers) {
    QByteArray line(magic);
    for (const qsizetype number : numbers)
        line += ' ' + QByteArray::number(number);
    return line + '\n';
}

/// The numbers of a header line (without its line break); empty if there are not `count` of them.
QList<qsizetype> numbersOf(const QByteArray& line, qsizetype count) {
    const QByteArrayList words = line.split(' ');
    if (words.size() != count + 1 || words.first() != magic)
        return {};
    QList<qsizetype> numbers;
    for (const QByteArray& word : words.sliced(1)) {
        bool isNumber = false;
        numbers.append(word.toUInt(&isNumber));
        if (!isNumber)
            return {};
    }
    return numbers;
}

} // namespace

QByteArray Request::encode(const QByteArrayList& arguments) {
    QByteArray body;
    for (const QByteArray& argument : arguments)
        body += argument + '\0';
    return headerLine({arguments.size(), body.size()}) + body;
}

Request Request::decode(const QByteArray& bytes) {
    const Request malformed{.status = Status::Malformed};
    const qsizetype end = bytes.left(maximumHeaderBytes + 1).indexOf('\n');
    if (end < 0)
        return bytes.size() > maximumHeaderBytes ? malformed : Request();
    const QList<qsizetype> numbers = numbersOf(bytes.left(end), 2);
    if (numbers.isEmpty() || numbers[0] > maximumCount || numbers[1] > maximumBytes)
        return malformed;
    if (bytes.size() - end - 1 < numbers[1])
        return {};
    // The last argument has a NUL too, so splitting leaves an empty piece.
    QByteArrayList arguments = bytes.mid(end + 1, numbers[1]).split('\0');
    if (!arguments.takeLast().isEmpty() || arguments.size() != numbers[0])
        return malformed;
    return {.status = Status::Complete, .arguments = arguments};
}

QByteArray Reply::encode() const {
    return headerLine({static_cast<qsizetype>(kind), exitStatus, out.size(), err.size()}) + out +
           err;
}

std::optional<Reply> Reply::decode(const QByteArray& bytes) {
    const qsizetype end = bytes.left(maximumHeaderBytes + 1).indexOf('\n');
    const QList<qsizetype> numbers = numbersOf(bytes.left(end), 4);
    if (end < 0 || numbers.isEmpty() || numbers[0] > static_cast<qsizetype>(Kind::Crash) ||
        numbers[1] > 255 || numbers[2] + numbers[3] != bytes.size() - end - 1)
        return std::nullopt;
    return Reply{.kind = static_cast<Kind>(numbers[0]),
                 .exitStatus = static_cast<int>(numbers[1]),
                 .out = bytes.mid(end + 1, numbers[2]),
                 .err = bytes.last(numbers[3])};
}

} // namespace tarnwick::simulator
