#include "QuillaryCore/Model/ClientName.h"

#include "QuillaryCore/Foundation/Text.h"
#include "QuillaryCore/Model/Client.h"
#include "QuillaryCore/Model/ClientKind.h"

#include <string_view>
#include <utility>

namespace Quillary {

namespace {

std::string personName(const Client& client)
{
    const std::string_view first = trimmed(client.firstName);
    const std::string_view last = trimmed(client.lastName);
    std::string name(first);
    if (!first.empty() && !last.empty()) {
        name += ' ';
    }
    return name.append(last);
}

} // namespace

std::string displayName(const Client& client)
{
    std::string preferred(trimmed(client.name));
    std::string other = personName(client);
    if (kind(client) == ClientKind::person) {
        std::swap(preferred, other);
    }
    if (!preferred.empty() || !other.empty()) {
        return preferred.empty() ? other : preferred;
    }
    const std::string_view email = trimmed(client.email);
    return std::string(email.empty() ? trimmed(client.number) : email);
}

} // namespace Quillary
