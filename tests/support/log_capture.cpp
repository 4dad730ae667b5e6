// SPDX-License-Identifier: MIT
#include "support/log_capture.h"

#include <QLoggingCategory>
#include <QMutex>

namespace tarnwick::test {

namespace {

// Qt takes a plain function.
QMutex mutex;
QByteArray captured;

void capture(QtMsgType, const QMessageLogContext& context, const QString& message) {
    const QMutexLocker locker(&mutex);
    captured += QByteArray(context.category) + ": " + message.toUtf8() + '\n';
}

} // namespace

LogCapture::LogCapture(const QString& rules) {
    captured.clear();
    qInstallMessageHandler(capture);
    QLoggingCategory::setFilterRules(rules);
}

LogCapture::~LogCapture() {
    QLoggingCategory::setFilterRules({});
    qInstallMessageHandler(nullptr);
}

QByteArray LogCapture::text() const {
    const QMutexLocker locker(&mutex);
    return captured;
}

} // namespace tarnwick::test
