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

/// A string, or {"base64": ...} for what is not UTF-8, so that nothing is lost.
QJsonValue jsonArgument(const QByteArray& argument) {
    QStringDecoder decode(QStringDecoder::Utf8, QStringDecoder::Flag::Stateless);
    const QString text = decode(argument);
    if (decode.hasError())
        return QJsonObject{{u"base64"_s, QString::fromLatin1(argument.toBase64())}};
    return text;
}

} // namespace

void CommandLog::add(const Command& command, const QByteArrayList& arguments,
                     const std::optional<Fault>& fault, const Reply& reply, Moment now, int open) {
    QJsonArray list;
    for (const QByteArray& argument : arguments)
        list.append(jsonArgument(argument));
    const bool hasStatus = reply.kind == Reply::Kind::Text;
    const QJsonObject entry{
        {u"sequence"_s, ++sequence_},
        {u"milliseconds"_s, static_cast<qint64>(now.sinceStart.count())},
        {u"command"_s, command.name()},
        {u"arguments"_s, list},
        {u"fault"_s, fault ? QJsonValue(fault->text) : QJsonValue()},
        {u"exitStatus"_s, hasStatus ? QJsonValue(reply.exitStatus) : QJsonValue()},
        {u"open"_s, open},
    };
    lines_.append(QJsonDocument(entry).toJson(QJsonDocument::Compact) + '\n');
    bytes_ += lines_.last().size();
    while (bytes_ > maximumLogBytes && lines_.size() > 1)
        bytes_ -= lines_.takeFirst().size();
}

void CommandLog::clear() {
    lines_.clear();
    bytes_ = 0;
}

} // namespace tarnwick::simulator
