// SPDX-License-Identifier: MIT
// Reading what the tool prints.
#include "model/network_profile.h"
#include "model/status_response.h"
#include "support/sample_network.h"

#include <QJsonDocument>
#include <QJsonObject>

#include <benchmark/benchmark.h>

namespace {

// Items are peers or profiles; the report shows the time per item.
void countItems(benchmark::State& state) {
    state.SetItemsProcessed(state.iterations() * state.range(0));
}

// A decoder that gives up early would look like a fast one.
void requireAllItems(benchmark::State& state, qsizetype itemsRead) {
    if (itemsRead != state.range(0))
        state.SkipWithError("not all items were read");
}

qsizetype devicesIn(const QByteArray& json) {
    const auto status = tarnwick::StatusResponse::decode(json);
    return status ? status->devices().size() : 0;
}

void decodeAndSortStatus(benchmark::State& state) {
    const auto json = tarnwick::bench::statusDocument(static_cast<int>(state.range(0)));
    requireAllItems(state, devicesIn(json));
    for ([[maybe_unused]] auto _ : state) {
        const auto status = tarnwick::StatusResponse::decode(json);
        auto devices = status->devices();
        benchmark::DoNotOptimize(devices);
    }
    countItems(state);
}

void parseJsonAlone(benchmark::State& state) {
    const auto json = tarnwick::bench::statusDocument(static_cast<int>(state.range(0)));
    requireAllItems(state,
                    QJsonDocument::fromJson(json)[QLatin1StringView("Peer")].toObject().size());
    for ([[maybe_unused]] auto _ : state) {
        auto document = QJsonDocument::fromJson(json);
        benchmark::DoNotOptimize(document);
    }
    countItems(state);
}

void parseProfiles(benchmark::State& state) {
    const QString table = tarnwick::bench::profileTable(static_cast<int>(state.range(0)));
    requireAllItems(state, tarnwick::parseProfileList(table).size());
    for ([[maybe_unused]] auto _ : state) {
        auto profiles = tarnwick::parseProfileList(table);
        benchmark::DoNotOptimize(profiles);
    }
    countItems(state);
}

BENCHMARK(decodeAndSortStatus)->Arg(10)->Arg(100)->Arg(1000)->Arg(10000);
BENCHMARK(parseJsonAlone)->Arg(10)->Arg(100)->Arg(1000)->Arg(10000);
BENCHMARK(parseProfiles)->Arg(10000)->Unit(benchmark::kMillisecond);

} // namespace
