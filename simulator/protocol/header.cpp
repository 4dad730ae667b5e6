// SPDX-License-Identifier: MIT
#include "protocol/header.h"

#include <charconv>

namespace tarnwick::simulator {

namespace {
constexpr std::string_view magic = "tarnwick/1";
}

std::string formatHeader(const std::vector<std::size_t>& numbers) {
    std::string line(magic);
    for (const std::size_t number : numbers)
        line += ' ' + std::to_string(number);
    return line + '\n';
}

std::optional<std::vector<std::size_t>> parseHeader(std::string_view line, std::size_t count) {
    if (!line.starts_with(magic))
        return std::nullopt;
    line.remove_prefix(magic.size());
    std::vector<std::size_t> numbers;
    while (!line.empty() && numbers.size() < count) {
        if (line.front() != ' ')
            return std::nullopt;
        line.remove_prefix(1);
        std::size_t number = 0;
        const auto [end, failure] = std::from_chars(line.data(), line.data() + line.size(), number);
        if (failure != std::errc())
            return std::nullopt;
        line.remove_prefix(static_cast<std::size_t>(end - line.data()));
        numbers.push_back(number);
    }
    if (!line.empty() || numbers.size() != count)
        return std::nullopt;
    return numbers;
}

} // namespace tarnwick::simulator
