// SPDX-License-Identifier: MIT
#pragma once

#include <QDir>
#include <QImage>
#include <QString>
#include <QStringList>

namespace tarnwick::pictures {

/// The pictures, in cells, as somebody has accepted them: one file each, of one scale here.
class References {
public:
    References(const QDir& folder, QString fileEnding);

    /// Says how the picture differs from its reference, empty if it looks the same. What differs is
    /// left in `results`: the picture, its reference, and the picture with the differences framed.
    QString compare(const QString& name, const QImage& picture, const QDir& results);

    /// Makes the picture the reference, unless the one that there is looks the same.
    bool accept(const QString& name, const QImage& picture);

    /// The references whose picture has neither been compared nor accepted.
    QStringList unused() const;
    bool removeUnused();

private:
    QImage reference(const QString& name) const;

    QDir folder_;
    QString fileEnding_;
    QStringList used_;
};

} // namespace tarnwick::pictures
