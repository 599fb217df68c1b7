// Whatever a user writes as an email's text, or types as a list of addresses: filling replaces what is known and nothing
// else, and an address that passes for one can't become a header of its own.

#include "QuillaryCore/Foundation/Precondition.h"
#include "QuillaryCore/Foundation/Text.h"
#include "QuillaryCore/Letters/EmailDraft.h"

#include <algorithm>
#include <cstddef>
#include <cstdint>
#include <string>
#include <string_view>
#include <vector>

using namespace Quillary;

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size)
{
    const std::string_view text(reinterpret_cast<const char*>(data), size);
    EmailDraft::Values same; // every placeholder stands for itself, so that filling changes only its case
    for (const EmailPlaceholder placeholder : allEmailPlaceholders) {
        same[placeholder] = token(placeholder);
    }
    precondition(lowerCasedASCII(EmailDraft::fill(text, same)) == lowerCasedASCII(text), "nothing is lost or moved");
    precondition(EmailDraft::fill(text, EmailDraft::Values()) == text, "what has no value stays");
    for (const std::string& open : EmailDraft::unfilled({"", std::string(text)}, same)) {
        precondition(text.contains(open) && !emailPlaceholder(open.substr(1, open.size() - 2)), "it is none of ours");
    }

    const std::vector<std::string> addresses = EmailDraft::addresses(text);
    const std::vector<std::string> invalid = EmailDraft::invalidAddresses(text);
    for (const std::string& address : addresses) {
        precondition(text.contains(address), "an address is typed");
        const bool isValid = std::ranges::find(invalid, address) == invalid.end();
        precondition(!isValid || (address.find_first_of(" \t\r\n") == std::string::npos &&
                                  std::ranges::count(address, '@') == 1 && address.contains('.')),
                     "an address has the form of one");
    }
    return 0;
}
