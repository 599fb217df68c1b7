#pragma once

#include "QuillaryCore/Model/Client.h"
#include "QuillaryCore/Model/Payment.h"
#include "tests/Model/TestLibrary.h"

#include <cstdint>
#include <string>

namespace Quillary {

/// A library with short ways to make what reports read.
struct ReportLibrary : TestLibrary
{
    Ref<Client> client(const std::string& name)
    {
        auto& made = context.insert<Client>();
        made.name = name;
        return made.ref;
    }

    void pay(const Document& document, std::int64_t amount, Instant date)
    {
        auto& payment = context.insert<Payment>();
        payment.document = document.ref;
        payment.amountMinorUnits = amount;
        payment.date = date;
    }
};

} // namespace Quillary
