#pragma once

#include "QuillaryCore/Model/ClientKind.h"

#include <optional>
#include <string>

namespace Quillary {

/// The cells of a row that name a client.
struct NameCells
{
    std::string company;
    std::string name; ///< of either
    std::string first;
    std::string last;
    std::optional<ClientKind> kind; ///< as the row says
    bool hasCompanyColumn = false;  ///< the list tells companies from people
};

/// The names of a client, and of the person to ask for there.
struct ClientNames
{
    ClientKind kind = ClientKind::organization;
    std::string name; ///< an organisation's; also the one that a person belongs to
    std::string first;
    std::string last;
    std::string contactPerson;

    friend bool operator==(const ClientNames&, const ClientNames&) = default;
};

/// Decides who the client is. A company makes an organisation, and people beside it the ones to ask for; a first or last
/// name alone makes a person. A name alone is a person's where the row says so, or where the list has a column for
/// companies and this one is none; else an organisation's, which shows the same everywhere.
[[nodiscard]] ClientNames clientNames(NameCells cells);

} // namespace Quillary
