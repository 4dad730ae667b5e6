// SPDX-License-Identifier: MIT
// Any bytes as the remembered details in the settings.
#include "byte_order_mark.h"
#include "model/profile_details_store.h"
#include "property.h"

#include <QSettings>

#include <cstddef>
#include <cstdint>

using tarnwick::ProfileDetailsMap;
using tarnwick::ProfileDetailsStore;
using tarnwick::fuzz::holdsByteOrderMark;
using tarnwick::fuzz::require;

namespace {

// Settings that never reach the disk.
ProfileDetailsMap loadedFromSettings(const QByteArray& bytes) {
    static auto* const settings =
        new QSettings(QStringLiteral("/dev/null/none"), QSettings::IniFormat);
    static const ProfileDetailsStore store{std::unique_ptr<QSettings>(settings),
                                           QStringLiteral("tarnwick.profileDetails")};
    settings->setValue(QAnyStringView("tarnwick.profileDetails"), bytes);
    return store.load();
}

} // namespace

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
    const QByteArray bytes(reinterpret_cast<const char*>(data), static_cast<qsizetype>(size));
    const auto details = ProfileDetailsStore::decode(bytes);
    require(loadedFromSettings(bytes) == details.value_or(ProfileDetailsMap()),
            "what cannot be read counts as nothing remembered");
    if (!details)
        return 0;
    const QByteArray encoded = ProfileDetailsStore::encode(*details);
    if (holdsByteOrderMark(encoded))
        return 0;
    require(ProfileDetailsStore::decode(encoded) == details, "details survive being stored");
    require(ProfileDetailsStore::encode(*ProfileDetailsStore::decode(encoded)) == encoded,
            "equal details are stored as equal bytes");
    return 0;
}
