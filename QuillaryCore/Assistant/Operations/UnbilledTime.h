#pragma once

#include "QuillaryCore/Assistant/Tools/AssistantEnvironment.h"

#include <cstdint>
#include <optional>
#include <vector>

namespace Quillary {

struct Client;

/// What a client's tracked time of one project would bring.
struct UnbilledProject
{
    std::int64_t project = 0; ///< the key; 0: time of no project
    std::int64_t entries = 0;
    std::int64_t seconds = 0; ///< each entry rounded as it would be billed

    [[nodiscard]] std::int64_t hoursThousandths() const;
};

/// A client's tracked time that is on no invoice.
struct UnbilledTime
{
    std::int64_t client = 0; ///< the key; 0: time of no client
    std::int64_t hourlyRate = 0;
    std::vector<UnbilledProject> projects; ///< in the order in which their first entries begin
    std::int64_t runningSeconds = 0;       ///< of timers that still run; in none of the projects

    [[nodiscard]] std::int64_t hoursThousandths() const;
    [[nodiscard]] std::int64_t seconds() const; ///< of all projects

    /// Minor units of the business's currency, in which hourly rates are kept: what the lines would add up to.
    [[nodiscard]] std::int64_t value() const;
    [[nodiscard]] std::int64_t value(const UnbilledProject& project) const;
};

/// By client, in the order in which their first entries begin. `client` narrows it to one.
[[nodiscard]] std::vector<UnbilledTime> unbilledTime(const AssistantEnvironment& environment,
                                                     std::optional<Ref<Client>> client);

} // namespace Quillary
