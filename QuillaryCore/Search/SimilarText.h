#pragma once

#include "QuillaryCore/Search/TypingSlips.h"

#include <optional>
#include <string>
#include <string_view>
#include <vector>

namespace Quillary {

/// A query made ready to be looked for in records of a `TextBlock`, slips in typing forgiven. Numbers and codes are an
/// exception: any other is another one, however near.
class SimilarText
{
public:
    struct Likeness
    {
        int slips;
        bool isOwn; ///< found in the record's own texts
    };

    explicit SimilarText(std::string_view query);

    /// The letters of the longest run of letters and digits.
    [[nodiscard]] static std::u32string longestToken(std::string_view query);

    /// `texts` are all of a record and begin with its `own`. No value: it is not like the query.
    [[nodiscard]] std::optional<Likeness> likenessTo(std::string_view own, std::string_view texts);

private:
    void compareTokens(std::string_view text, bool isOwn);

    TypingSlips::Word m_whole;
    std::optional<std::string> m_number; ///< as it is meant; none: the query holds no digit
    std::vector<TypingSlips::Word> m_tokens;
    std::vector<int> m_fewest; ///< of the record that is compared: the slips for each token
    bool m_areTokensOwn = true;
};

} // namespace Quillary
