// SPDX-License-Identifier: MIT
#pragma once

#include <QObject>

namespace tarnwick {

/// Announces that a field of the object that holds it is about to change.
///
/// An observer connects to announced() once. It comes before the new value is stored, and once a
/// field: an observer reads the fields in a later turn of the event loop, however many were set.
class ObjectWillChange : public QObject {
    Q_OBJECT

Q_SIGNALS:
    void announced();
};

} // namespace tarnwick
