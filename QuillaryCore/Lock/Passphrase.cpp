#include "QuillaryCore/Lock/Passphrase.h"

#include "QuillaryCore/Foundation/Precondition.h"
#include "QuillaryCore/Foundation/UserError.h"

#include <algorithm>
#include <array>
#include <sodium.h>

namespace Quillary::Passphrase {

static_assert(longestHash == crypto_pwhash_STRBYTES - 1);

std::string hash(std::string_view passphrase)
{
    precondition(sodium_init() >= 0, "the system has random numbers");
    std::array<char, crypto_pwhash_STRBYTES> text{};
    if (crypto_pwhash_str(text.data(),
                          passphrase.data(),
                          passphrase.size(),
                          crypto_pwhash_OPSLIMIT_INTERACTIVE,
                          crypto_pwhash_MEMLIMIT_INTERACTIVE) != 0) {
        throw UserError("There isn't enough memory to keep a passphrase safely. Close other programs, then try again.");
    }
    return text.data();
}

bool isHash(std::string_view text)
{
    return text.starts_with(crypto_pwhash_STRPREFIX) && text.size() <= longestHash &&
           std::ranges::all_of(text, [](char character) { return character > ' ' && character < '\x7f'; });
}

bool matches(std::string_view passphrase, const std::string& hash)
{
    precondition(sodium_init() >= 0, "the system has random numbers");
    return hash.size() <= longestHash &&
           crypto_pwhash_str_verify(hash.c_str(), passphrase.data(), passphrase.size()) == 0;
}

} // namespace Quillary::Passphrase
