#include "Quillary/Handover.h"

#include <cstdint>
#include <string_view>
#include <utility>

namespace Quillary {

namespace {

/// Before the connections: the library's lock, the assistants' socket and its lock.
constexpr std::size_t ownDescriptors = 3;

/// Takes pieces of known sizes from the front of a text.
class Pieces
{
public:
    explicit Pieces(std::string_view bytes)
        : m_left(bytes)
    {
    }

    [[nodiscard]] std::optional<std::string> take(const JSON* size)
    {
        const std::optional<std::int64_t> count = size == nullptr ? std::nullopt : size->integer();
        if (!count || *count < 0 || std::cmp_greater(*count, m_left.size())) {
            return std::nullopt;
        }
        std::string piece(m_left.substr(0, static_cast<std::size_t>(*count)));
        m_left.remove_prefix(piece.size());
        return piece;
    }

private:
    std::string_view m_left;
};

JSON size(const std::string& text)
{
    return {static_cast<std::int64_t>(text.size())};
}

} // namespace

ControlMessage Handover::packed(Handover handover)
{
    ControlMessage message;
    message.descriptors.push_back(std::move(handover.lock));
    message.descriptors.push_back(std::move(handover.assistants.listener.socket));
    message.descriptors.push_back(std::move(handover.assistants.listener.lock));
    JSON::Array clients;
    for (AssistantServer::Handover::Client& client : handover.assistants.clients) {
        AssistantConnection::Parked& connection = client.connection;
        clients.push_back(JSON::object({{"session", client.session},
                                        {"received", size(connection.received.pending)},
                                        {"isSkipping", connection.received.isSkipping},
                                        {"unsent", size(connection.unsent)}}));
        message.bytes += connection.received.pending;
        message.bytes += connection.unsent;
        message.descriptors.push_back(std::move(connection.socket));
    }
    message.body =
        JSON::object({{"did", "hand over"}, {"socket", handover.socketPath.string()}, {"clients", std::move(clients)}});
    return message;
}

std::optional<Handover> Handover::unpacked(ControlMessage message)
{
    const JSON* listed = message.body.find("clients");
    const JSON::Array* clients = listed == nullptr ? nullptr : listed->array();
    std::vector<Descriptor>& descriptors = message.descriptors;
    if (message.text("did") != "hand over" || clients == nullptr ||
        descriptors.size() != ownDescriptors + clients->size()) {
        return std::nullopt;
    }
    Handover result;
    result.lock = std::move(descriptors[0]);
    result.socketPath = message.text("socket");
    result.assistants.listener = {.socket = std::move(descriptors[1]), .lock = std::move(descriptors[2])};
    Pieces pieces(message.bytes);
    for (std::size_t index = 0; index < clients->size(); ++index) {
        const JSON& client = (*clients)[index];
        std::optional<std::string> received = pieces.take(client.find("received"));
        std::optional<std::string> unsent = pieces.take(client.find("unsent"));
        const JSON* session = client.find("session");
        const JSON* skipping = client.find("isSkipping");
        if (!received || !unsent || session == nullptr || skipping == nullptr) {
            return std::nullopt;
        }
        result.assistants.clients.push_back(
            {.connection = {.socket = std::move(descriptors[ownDescriptors + index]),
                            .received = {.pending = std::move(*received),
                                         .isSkipping = skipping->boolean() != nullptr && *skipping->boolean()},
                            .unsent = std::move(*unsent)},
             .session = *session});
    }
    return result;
}

} // namespace Quillary
