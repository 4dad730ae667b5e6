// SPDX-License-Identifier: MIT
#include "core/command_log.h"

#include <QJsonArray>
#include <QJsonDocument>
#include <QJsonObject>
#include <QStringDecoder>

namespace tarnwick::simulator {

using namespace Qt::StringLiterals;

namespace {

constexpr qsizetype maximumLogBytes = qsizetype{16} << 20;

/// A text as it is, bytes that are no text as {"base64": ...}, so that nothing is lost.
QJsonValue jsonArgument(const std::string& argument) {
    const QByteArray bytes = QByteArray::fromStdString(argument);
    QStringDecoder decode(QStringDecoder::Utf8, QStringDecoder::Flag::Stateless);
    const QString text = decode(bytes);
    if (decode.hasError())
        return QJsonObject{{u"base64"_s, QString::fromLatin1(bytes.toBase64())}};
    return text;
}

QJsonValue jsonExitStatus(const Reply& reply) {
    return reply.kind == Reply::Kind::Text ? QJsonValue(reply.exitStatus) : QJsonValue();
}

} // namespace

void CommandLog::add(const Command& command, const std::vector<std::string>& arguments,
                     const std::optional<Fault>& fault, const Reply& reply, Moment now, int open) {
    QJsonArray list;
    for (const std::string& argument : arguments)
        list.append(jsonArgument(argument));
    const QJsonObject entry{
        {u"sequence"_s, ++sequence_},
        {u"milliseconds"_s, static_cast<qint64>(now.sinceStart.count())},
        {u"command"_s, command.name()},
        {u"arguments"_s, list},
        {u"fault"_s, fault ? QJsonValue(fault->toString()) : QJsonValue()},
        {u"exitStatus"_s, jsonExitStatus(reply)},
        {u"open"_s, open},
    };
    lines_.append(QJsonDocument(entry).toJson(QJsonDocument::Compact) + '\n');
    bytes_ += lines_.last().size();
    while (bytes_ > maximumLogBytes && lines_.size() > 1)
        bytes_ -= lines_.takeFirst().size();
}

std::string CommandLog::text() const {
    return lines_.join().toStdString();
}

void CommandLog::clear() {
    lines_.clear();
    bytes_ = 0;
}

} // namespace tarnwick::simulator
