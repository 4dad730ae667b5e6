// SPDX-License-Identifier: MIT
#include "protocol/request_parser.h"

#include "protocol/header.h"

#include <algorithm>

namespace tarnwick::simulator {

RequestParser::Status RequestParser::feed(std::string_view bytes) {
    if (status_ != Status::Incomplete)
        return status_;
    buffer_.append(bytes);
    if (!headerRead_)
        readHeader();
    if (headerRead_ && status_ == Status::Incomplete && buffer_.size() >= size_)
        readBody();
    return status_;
}

void RequestParser::readHeader() {
    const std::size_t end = buffer_.find('\n');
    if (end == std::string::npos) {
        if (buffer_.size() > maximumHeaderBytes)
            status_ = Status::Malformed;
        return;
    }
    const auto numbers = parseHeader(std::string_view(buffer_).substr(0, end), 2);
    if (!numbers || (*numbers)[1] > maximumBytes || (*numbers)[0] > maximumCount) {
        status_ = Status::Malformed;
        return;
    }
    headerRead_ = true;
    count_ = (*numbers)[0];
    size_ = (*numbers)[1];
    buffer_.erase(0, end + 1);
}

void RequestParser::readBody() {
    std::string_view rest = std::string_view(buffer_).substr(0, size_);
    std::vector<std::string> arguments;
    while (!rest.empty()) {
        const std::size_t end = rest.find('\0');
        if (end == std::string_view::npos)
            break;
        arguments.emplace_back(rest.substr(0, end));
        rest.remove_prefix(end + 1);
    }
    if (!rest.empty() || arguments.size() != count_) {
        status_ = Status::Malformed;
        return;
    }
    arguments_ = std::move(arguments);
    buffer_.clear();
    status_ = Status::Complete;
}

} // namespace tarnwick::simulator
