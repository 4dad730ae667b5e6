// SPDX-License-Identifier: MIT
#pragma once

#include <cstddef>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

namespace tarnwick::simulator {

/// No header line is longer than this, its line break not counted.
inline constexpr std::size_t maximumHeaderBytes = 96;

/// "tarnwick/1" and the numbers, separated by blanks and ended by a line break.
std::string formatHeader(const std::vector<std::size_t>& numbers);

/// The numbers of a header line (without its line break); nothing unless there are exactly `count`.
std::optional<std::vector<std::size_t>> parseHeader(std::string_view line, std::size_t count);

} // namespace tarnwick::simulator
