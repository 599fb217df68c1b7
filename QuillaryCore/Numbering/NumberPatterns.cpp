#include "QuillaryCore/Numbering/NumberPatterns.h"

#include "QuillaryCore/Foundation/Precondition.h"
#include "QuillaryCore/Numbering/NumberFormat.h"

namespace Quillary {

namespace {

/// The attribute that holds a kind's pattern.
std::string Business::* attribute(NumberedKind kind)
{
    switch (kind) {
    case NumberedKind::invoice:
        return &Business::invoiceNumberFormat;
    case NumberedKind::quote:
        return &Business::quoteNumberFormat;
    case NumberedKind::creditNote:
        return &Business::creditNoteNumberFormat;
    case NumberedKind::client:
        return &Business::clientNumberFormat;
    }
    precondition(false, "a numbered kind is one of four");
    return nullptr;
}

std::vector<NumberPreset> documentPresets(std::string_view prefix)
{
    const std::string letters(prefix);
    return {{"Year, restarts every year", letters + "-{yyyy}-{###,y}"},
            {"Year and month, restarts every month", "{yyyy}-{mm}-{##,m}"},
            {"Counter that never restarts", letters + "-{####}"},
            {"Client number, counts per client", "{client}-{###,c}"}};
}

} // namespace

std::vector<NumberPreset> presets(NumberedKind kind)
{
    switch (kind) {
    case NumberedKind::invoice:
        return documentPresets("INV");
    case NumberedKind::quote:
        return documentPresets("Q");
    case NumberedKind::creditNote:
        return documentPresets("CN");
    case NumberedKind::client:
        return {{"Counter", "C-{####}"}, {"Year and counter", "C-{yyyy}-{###,y}"}};
    }
    precondition(false, "a numbered kind is one of four");
    return {};
}

std::string_view defaultFormat(NumberedKind kind)
{
    switch (kind) {
    case NumberedKind::invoice:
        return Business::defaultInvoiceFormat;
    case NumberedKind::quote:
        return Business::defaultQuoteFormat;
    case NumberedKind::creditNote:
        return Business::defaultCreditNoteFormat;
    case NumberedKind::client:
        return Business::defaultClientFormat;
    }
    precondition(false, "a numbered kind is one of four");
    return {};
}

const std::string& format(NumberedKind kind, const Business& business)
{
    return business.*attribute(kind);
}

std::optional<NumberFormatError> setFormat(NumberedKind kind, std::string_view pattern, Business& business)
{
    auto error = NumberFormat::validate(pattern, kind);
    if (!error) {
        business.*attribute(kind) = std::string(pattern);
    }
    return error;
}

} // namespace Quillary
