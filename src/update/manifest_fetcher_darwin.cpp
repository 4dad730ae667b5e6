// SPDX-License-Identifier: MIT
#include "update/manifest_fetcher.h"

namespace tarnwick {

// Linked in: a bundle carries its own Qt, and its frameworks are mapped as they are used.
std::variant<std::unique_ptr<ManifestFetcher>, FetchFailure> loadManifestFetcher() {
    return std::unique_ptr<ManifestFetcher>(tarnwickCreateManifestFetcher());
}

} // namespace tarnwick
