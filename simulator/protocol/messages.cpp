// SPDX-License-Identifier: MIT
#include "protocol/messages.h"

#include "protocol/header.h"

namespace tarnwick::simulator {

std::string encodeRequest(const std::vector<std::string>& arguments) {
    std::string body;
    for (const std::string& argument : arguments) {
        body += argument;
        body += '\0';
    }
    return formatHeader({arguments.size(), body.size()}) + body;
}

std::string encodeReply(const Reply& reply) {
    return formatHeader({static_cast<std::size_t>(reply.kind),
                         static_cast<std::size_t>(reply.exitStatus), reply.out.size(),
                         reply.err.size()}) +
           reply.out + reply.err;
}

std::optional<Reply> decodeReply(std::string_view bytes) {
    const std::size_t end = bytes.substr(0, maximumHeaderBytes + 1).find('\n');
    if (end == std::string_view::npos)
        return std::nullopt;
    const auto numbers = parseHeader(bytes.substr(0, end), 4);
    if (!numbers || (*numbers)[0] > static_cast<std::size_t>(Reply::Kind::Crash) ||
        (*numbers)[1] > 255)
        return std::nullopt;
    bytes.remove_prefix(end + 1);
    const std::size_t outSize = (*numbers)[2];
    const std::size_t errSize = (*numbers)[3];
    if (outSize > bytes.size() || errSize != bytes.size() - outSize)
        return std::nullopt;
    Reply reply;
    reply.kind = static_cast<Reply::Kind>((*numbers)[0]);
    reply.exitStatus = static_cast<int>((*numbers)[1]);
    reply.out = bytes.substr(0, outSize);
    reply.err = bytes.substr(outSize);
    return reply;
}

} // namespace tarnwick::simulator
