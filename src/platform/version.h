// SPDX-License-Identifier: MIT
#pragma once

#include <QByteArray>
#include <QString>

namespace tarnwick {

/// The text under "CFBundleShortVersionString" in an XML property list; "" when there is none.
QString versionFromPropertyList(const QByteArray& propertyList);

/// The version in the information dictionary of the bundle whose executables are in `bundleDir`.
QString versionFromBundle(const QString& bundleDir);

/// The version that this program was built as; `bundleDir` is ignored.
QString versionCompiledIn(const QString& bundleDir);

} // namespace tarnwick
