// SPDX-License-Identifier: MIT
#include "platform/computer_name.h"

#include "platform/cancellation_token.h"
#include "platform/child_process.h"
#include "platform/environment.h"

#include <QDeadlineTimer>
#include <QFile>
#include <QStringList>
#include <QSysInfo>

#include <chrono>

namespace tarnwick {

namespace {

using namespace std::chrono_literals;

QString unquoted(QStringView value) {
    QString result;
    QChar quote;
    for (qsizetype i = 0; i < value.size(); ++i) {
        const QChar c = value[i];
        const bool isQuote = c == u'"' || c == u'\'';
        if (isQuote && (quote.isNull() || quote == c))
            quote = quote.isNull() ? c : QChar();
        else if (c == u'\\' && quote != u'\'' && i + 1 < value.size())
            result += value[++i];
        else
            result += c;
    }
    return result;
}

} // namespace

QString prettyHostname(const QString& machineInfo) {
    constexpr QStringView key = u"PRETTY_HOSTNAME=";
    for (const QString& line : machineInfo.split(u'\n')) {
        const QStringView trimmed = QStringView(line).trimmed();
        if (trimmed.startsWith(key))
            return unquoted(trimmed.sliced(key.size()));
    }
    return {};
}

QString computerNameFromMachineInfo() {
    QFile file(QStringLiteral("/etc/machine-info"));
    QString name;
    if (file.open(QIODevice::ReadOnly))
        name = prettyHostname(QString::fromUtf8(file.readAll()));
    return name.isEmpty() ? QSysInfo::machineHostName() : name;
}

QString computerNameFromSystemConfiguration() {
    const CommandLine scutil{QStringLiteral("/usr/sbin/scutil"),
                             {QStringLiteral("--get"), QStringLiteral("ComputerName")}};
    auto child = ChildProcess::start(scutil, Environment::ofThisProcess());
    if (!child.isStarted())
        return {};
    const QDeadlineTimer deadline(1s);
    const QByteArray output = child.readOutput(deadline, CancellationToken());
    child.waitForEnd(deadline, 10ms, CancellationToken());
    return QString::fromUtf8(output).trimmed();
}

} // namespace tarnwick
