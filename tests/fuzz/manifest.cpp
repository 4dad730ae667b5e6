// SPDX-License-Identifier: MIT
// Any bytes as the body of the published manifest.
#include "byte_order_mark.h"
#include "property.h"
#include "update/update_manifest.h"

#include <QJsonDocument>
#include <QJsonObject>

#include <cstddef>
#include <cstdint>

using tarnwick::parseUpdateManifest;
using tarnwick::UpdateManifest;
using tarnwick::fuzz::holdsByteOrderMark;
using tarnwick::fuzz::require;

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
    const QByteArray body(reinterpret_cast<const char*>(data), static_cast<qsizetype>(size));
    const auto result = parseUpdateManifest(body);
    if (const auto* reason = std::get_if<QString>(&result)) {
        require(!reason->isEmpty(), "a failure has a reason to show");
        return 0;
    }
    const auto& manifest = std::get<UpdateManifest>(result);
    const QJsonDocument document(QJsonObject{{QStringLiteral("current"), manifest.current}});
    const QByteArray json = document.toJson();
    require(holdsByteOrderMark(json) || parseUpdateManifest(json) == result,
            "a manifest survives JSON");
    return 0;
}
