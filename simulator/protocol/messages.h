// SPDX-License-Identifier: MIT
#pragma once

#include "protocol/reply.h"

#include <optional>
#include <string>
#include <string_view>
#include <vector>

namespace tarnwick::simulator {

/// The bytes that ask the daemon for one command. The arguments hold no NUL.
std::string encodeRequest(const std::vector<std::string>& arguments);

/// The bytes of an answer: the line "tarnwick/1 KIND EXIT OUTSIZE ERRSIZE\n" and both texts.
std::string encodeReply(const Reply& reply);

/// The answer that `bytes` hold in full; nothing when they are cut short or no answer.
std::optional<Reply> decodeReply(std::string_view bytes);

} // namespace tarnwick::simulator
