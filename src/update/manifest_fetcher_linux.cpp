// SPDX-License-Identifier: MIT
#include "update/manifest_fetcher.h"

#include <QCoreApplication>
#include <QDir>
#include <QFile>
#include <QLibrary>

namespace tarnwick {

using namespace Qt::StringLiterals;

namespace {

// Beside the program where it was built, in a directory of its own where it is installed. The name
// has the version: a program that still runs after an upgrade must not load its successor's module.
QString modulePath() {
    const QDir programs(QCoreApplication::applicationDirPath());
    const QString name = QStringLiteral(TARNWICK_NETWORK_MODULE);
    const QString built = programs.filePath(name);
    return QFile::exists(built)
               ? built
               : programs.filePath(QStringLiteral(TARNWICK_MODULE_DIR) + u'/' + name);
}

} // namespace

std::variant<std::unique_ptr<ManifestFetcher>, FetchFailure> loadManifestFetcher() {
    const QString path = modulePath();
    // An upgrade took it along; the system would only name a file that the user has never seen.
    if (!QFile::exists(path))
        return FetchFailure{u"Tarnwick Network was replaced or removed while it was running. "
                            "Quit it and open it again."_s};
    QLibrary module(path);
    const auto create = reinterpret_cast<decltype(&tarnwickCreateManifestFetcher)>(
        module.resolve("tarnwickCreateManifestFetcher"));
    if (create == nullptr)
        return FetchFailure{module.errorString()};
    return std::unique_ptr<ManifestFetcher>(create());
}

} // namespace tarnwick
