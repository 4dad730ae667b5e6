// SPDX-License-Identifier: MIT
#pragma once

#include "daemon/timing.h"
#include "daemon/tool_paths.h"
#include "platform/cancellation_token.h"
#include "platform/environment.h"
#include "platform/platform.h"

#include <QString>
#include <QThreadPool>

#include <functional>
#include <memory>

namespace tarnwick {

/// Puts daemon, tool and job description in their place with administrator rights, for which the
/// system asks the user. A prompt that is left open holds up nothing else.
class DaemonInstaller {
public:
    /// What an installation is made from.
    struct Sources {
        Platform platform;
        QString bundleDir; ///< Beside which a package keeps the job description.
        DaemonPaths paths;
        ToolPaths tools;
        Environment environment; ///< Of the program that asks for the password.
    };

    struct Outcome {
        bool succeeded = false;
        QString message; ///< What to show when it did not.
    };

    DaemonInstaller(Sources sources, Timing timing, CancellationToken cancellation);
    ~DaemonInstaller();
    DaemonInstaller(const DaemonInstaller&) = delete;
    DaemonInstaller& operator=(const DaemonInstaller&) = delete;

    const Sources& sources() const { return sources_; }

    /// Whether the files of an installation are there.
    bool isInstalled() const;

    /// Returns at once; `done` is called on the main thread when the user has answered and all is
    /// done. Several installations may run at a time.
    void install(std::function<void(const Outcome&)> done);

    /// The shell line that installs and starts the daemon, to be run as administrator. Paths stand
    /// in single quotes and are not escaped: with a path that holds one, the line must not be run.
    static QString installLine(const Platform& platform, const ToolPaths& tools,
                               const QString& jobFile);

private:
    Sources sources_;
    Timing timing_;
    CancellationToken cancellation_;
    std::unique_ptr<QThreadPool> pool_ = std::make_unique<QThreadPool>();
};

} // namespace tarnwick
