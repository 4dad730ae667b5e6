// SPDX-License-Identifier: MIT
// Any bytes as the tool's output of `status --json`.
#include "byte_order_mark.h"
#include "model/code_point_order.h"
#include "model/status_response.h"
#include "property.h"

#include <QJsonDocument>

#include <algorithm>
#include <cstddef>
#include <cstdint>

using tarnwick::compareCodePoints;
using tarnwick::DeviceInfo;
using tarnwick::StatusResponse;
using tarnwick::fuzz::holdsByteOrderMark;
using tarnwick::fuzz::require;

namespace {

int sign(int value) {
    return (value > 0) - (value < 0);
}

// A second, simpler implementation of the order, over whole code points.
bool agreesWithCodePoints(const QString& a, const QString& b) {
    if (!a.isValidUtf16() || !b.isValidUtf16())
        return true;
    const auto order = a.toStdU32String().compare(b.toStdU32String());
    return sign(order) == sign(compareCodePoints(a, b));
}

bool comesBefore(const DeviceInfo& a, const DeviceInfo& b) {
    const int byName = compareCodePoints(a.hostName, b.hostName);
    return byName < 0 || (byName == 0 && compareCodePoints(a.nodeKey, b.nodeKey) < 0);
}

void checkOrder(const QList<DeviceInfo>& devices) {
    for (qsizetype i = 1; i < devices.size(); ++i) {
        const QString& a = devices[i - 1].hostName;
        const QString& b = devices[i].hostName;
        require(comesBefore(devices[i - 1], devices[i]), "devices are strictly in order");
        require(compareCodePoints(a, b) == -compareCodePoints(b, a), "comparing is antisymmetric");
        require((compareCodePoints(a, b) == 0) == (a == b), "only equal texts compare equal");
        require(agreesWithCodePoints(a, b), "texts are ordered by their code points");
    }
}

void checkDevice(const DeviceInfo& device) {
    require(DeviceInfo::fromJson(device.toJson()) == device, "a device survives JSON");
    const QString label = device.displayName();
    require(label == device.hostName || (!label.isEmpty() && !label.contains(u'.')),
            "a label is the host name or one part of the DNS name");
}

void checkConnection(const StatusResponse& status) {
    if (status.isConnected())
        require(status.backendState == u"Running" && status.selfNode && status.selfNode->online,
                "connected means running and online");
    if (!status.selfNode)
        require(status.hostname().isEmpty() && status.ipAddress().isEmpty(),
                "without a self node there is no name and no address");
}

} // namespace

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
    const QByteArray bytes(reinterpret_cast<const char*>(data), static_cast<qsizetype>(size));
    const auto status = StatusResponse::decode(bytes);
    if (!status)
        return 0;
    const QJsonDocument document(status->toJson());
    const QByteArray compact = document.toJson(QJsonDocument::Compact);
    if (!holdsByteOrderMark(compact)) {
        require(StatusResponse::decode(compact) == status, "a status survives compact JSON");
        require(StatusResponse::decode(document.toJson(QJsonDocument::Indented)) == status,
                "a status survives indented JSON");
    }
    checkConnection(*status);
    const QList<DeviceInfo> devices = status->devices();
    require(devices.size() == (status->peer ? status->peer->size() : 0), "every peer is listed");
    checkOrder(devices);
    for (const DeviceInfo& device : devices)
        checkDevice(device);
    return 0;
}
