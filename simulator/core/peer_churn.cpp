// SPDX-License-Identifier: MIT
#include "core/peer_churn.h"

#include <cmath>

namespace tarnwick::simulator {

namespace {

// FNV-1a over the bytes, then a finisher so that neighbouring numbers land far apart. Qt's own hash
// may differ from version to version, and a demo should not.
quint32 mix(quint32 hash, quint64 number) {
    for (int shift = 0; shift < 64; shift += 8)
        hash = (hash ^ static_cast<quint32>((number >> shift) & 0xff)) * 16777619U;
    hash ^= hash >> 16;
    hash *= 0x7feb352dU;
    hash ^= hash >> 15;
    return hash;
}

// A peer keeps its state for this many periods, so that only some change at a time.
constexpr quint64 periodsPerState = 4;
constexpr quint32 onlinePercent = 70;

} // namespace

PeerChurn::PeerChurn(const World& world)
    : seed_(world.seed), period_(std::llround(world.churnSeconds * 1000)) {}

bool PeerChurn::isOnline(const Network& network, qsizetype index,
                         std::chrono::milliseconds sinceStart) const {
    const Peer& peer = network.peers.at(index);
    if (!peer.churn || period_.count() <= 0)
        return peer.online;
    quint32 hash = mix(2166136261U, seed_);
    for (const QChar character : network.name)
        hash = mix(hash, character.unicode());
    hash = mix(hash, static_cast<quint64>(index));
    const auto period = static_cast<quint64>(sinceStart.count() / period_.count());
    const quint64 turn = (period + hash % periodsPerState) / periodsPerState;
    return turn == 0 ? peer.online : mix(hash, turn) % 100 < onlinePercent;
}

} // namespace tarnwick::simulator
