#include "QuillaryCore/Numbering/PatternPieces.h"

#include "QuillaryCore/Foundation/Text.h"

#include <algorithm>

namespace Quillary {

std::vector<PatternPiece> patternPieces(std::string_view pattern)
{
    const std::vector<std::string_view> characters = graphemes(pattern);
    std::vector<PatternPiece> pieces;
    std::size_t consumed = 0; // bytes of `pattern` that stand in `pieces`

    const auto offsetOf = [&](auto character) {
        return character == characters.end() ? pattern.size()
                                             : static_cast<std::size_t>(character->data() - pattern.data());
    };
    const auto flushLiteral = [&](std::size_t end) {
        if (end > consumed) {
            pieces.push_back({PatternPiece::Kind::literal, pattern.substr(consumed, end - consumed)});
        }
    };

    for (auto open = characters.begin(); open != characters.end();) {
        if (*open != "{" && *open != "}") {
            ++open;
            continue;
        }
        flushLiteral(offsetOf(open));
        const auto close = *open == "{" ? std::find(open, characters.end(), "}") : characters.end();
        if (close == characters.end()) {
            pieces.push_back({PatternPiece::Kind::unmatchedBrace, pattern.substr(offsetOf(open))});
            return pieces;
        }
        const std::size_t name = offsetOf(open) + 1;
        pieces.push_back({PatternPiece::Kind::placeholder, pattern.substr(name, offsetOf(close) - name)});
        consumed = offsetOf(close) + 1;
        open = close + 1;
    }
    flushLiteral(pattern.size());
    return pieces;
}

} // namespace Quillary
