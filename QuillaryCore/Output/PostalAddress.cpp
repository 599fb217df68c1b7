#include "QuillaryCore/Output/PostalAddress.h"

#include "QuillaryCore/Foundation/Text.h"
#include "QuillaryCore/Model/Business.h"
#include "QuillaryCore/Model/Client.h"

#include <algorithm>
#include <cstddef>
#include <initializer_list>
#include <utility>

namespace Quillary {

namespace {

/// How the line with the city is built.
enum class CityLine {
    codeFirst,        ///< "10115 Berlin"; a state stands below
    codeFirstNoState, ///< "10115 Berlin"
    codeFirstState,   ///< "00184 Roma RM"
    codeFirstRegion,  ///< "26001 Logroño (La Rioja)"
    cityState,        ///< "Austin, TX 78701"
    cityStateSpaced,  ///< "Sydney NSW 2000"
    cityCode,         ///< "Mumbai 400001"; a state stands below
    ownLines,         ///< "London", below it "SW1A 1AA"
    stateThenCode,    ///< "São Paulo - SP", below it "01310-100"
};

struct Convention
{
    std::string_view countryCode;
    CityLine cityLine;
};

/// Countries that do it otherwise than `codeFirst`; in alphabetical order.
constexpr Convention conventions[] = {
    {"AT", CityLine::codeFirstNoState}, {"AU", CityLine::cityStateSpaced},  {"BD", CityLine::cityCode},
    {"BE", CityLine::codeFirstNoState}, {"BR", CityLine::stateThenCode},    {"CA", CityLine::cityStateSpaced},
    {"CH", CityLine::codeFirstNoState}, {"CZ", CityLine::codeFirstNoState}, {"DE", CityLine::codeFirstNoState},
    {"DK", CityLine::codeFirstNoState}, {"ES", CityLine::codeFirstRegion},  {"FI", CityLine::codeFirstNoState},
    {"FR", CityLine::codeFirstNoState}, {"GB", CityLine::ownLines},         {"GG", CityLine::ownLines},
    {"HK", CityLine::cityCode},         {"ID", CityLine::cityCode},         {"IE", CityLine::ownLines},
    {"IM", CityLine::ownLines},         {"IN", CityLine::cityCode},         {"IT", CityLine::codeFirstState},
    {"JE", CityLine::ownLines},         {"JP", CityLine::cityState},        {"KE", CityLine::ownLines},
    {"KR", CityLine::cityState},        {"LI", CityLine::codeFirstNoState}, {"LU", CityLine::codeFirstNoState},
    {"LV", CityLine::cityState},        {"MT", CityLine::ownLines},         {"MX", CityLine::codeFirstState},
    {"NG", CityLine::cityCode},         {"NL", CityLine::codeFirstNoState}, {"NO", CityLine::codeFirstNoState},
    {"NZ", CityLine::cityCode},         {"PK", CityLine::cityCode},         {"PL", CityLine::codeFirstNoState},
    {"PR", CityLine::cityState},        {"PT", CityLine::codeFirstNoState}, {"SE", CityLine::codeFirstNoState},
    {"SG", CityLine::cityCode},         {"SI", CityLine::codeFirstNoState}, {"SK", CityLine::codeFirstNoState},
    {"TH", CityLine::cityCode},         {"TW", CityLine::cityCode},         {"UA", CityLine::ownLines},
    {"US", CityLine::cityState},        {"ZA", CityLine::ownLines},
};

static_assert(std::ranges::is_sorted(conventions, {}, &Convention::countryCode));

CityLine cityLine(std::string_view countryCode)
{
    const std::string code = upperCasedASCII(trimmed(countryCode));
    const auto* const found = std::ranges::lower_bound(conventions, code, {}, &Convention::countryCode);
    const bool isListed = found != std::end(conventions) && found->countryCode == code;
    return isListed ? found->cityLine : CityLine::codeFirst;
}

/// The texts that are there, with `separator` between them.
std::string joined(std::initializer_list<std::string_view> texts, std::string_view separator)
{
    std::string result;
    std::size_t size = 0;
    for (const std::string_view text : texts) {
        size += text.size() + separator.size();
    }
    result.reserve(size);
    for (const std::string_view text : texts) {
        if (!text.empty()) {
            if (!result.empty()) {
                result += separator;
            }
            result += text;
        }
    }
    return result;
}

class LineList
{
public:
    LineList() { m_lines.reserve(usualCount); }

    void add(std::string line)
    {
        if (!line.empty()) {
            m_lines.push_back(std::move(line));
        }
    }

    void add(std::string_view line) { add(std::string(line)); }

    std::vector<std::string> take() { return std::move(m_lines); }

private:
    static constexpr std::size_t usualCount = 4; ///< street, town, state, and the country that a caller may add

    std::vector<std::string> m_lines;
};

} // namespace

PostalAddress PostalAddress::of(const Business& business)
{
    return {business.addressLine, business.postalCode, business.city, business.state, business.countryCode};
}

PostalAddress PostalAddress::of(const Client& client)
{
    return {client.addressLine, client.postalCode, client.city, client.state, client.countryCode};
}

std::vector<std::string> PostalAddress::lines() const
{
    LineList lines;
    for (std::string_view rest = addressLine; !rest.empty();) {
        const std::size_t end = std::min(rest.find('\n'), rest.size());
        lines.add(trimmed(rest.substr(0, end)));
        rest.remove_prefix(std::min(end + 1, rest.size()));
    }
    const std::string_view code = trimmed(postalCode);
    const std::string_view place = trimmed(city);
    const std::string_view region = trimmed(state) == place ? std::string_view() : trimmed(state);
    switch (cityLine(countryCode)) {
    case CityLine::codeFirst:
        lines.add(joined({code, place}, " "));
        lines.add(region);
        break;
    case CityLine::codeFirstNoState:
        lines.add(joined({code, place}, " "));
        break;
    case CityLine::codeFirstState:
        lines.add(joined({code, place, region}, " "));
        break;
    case CityLine::codeFirstRegion:
        lines.add(
            joined({code, place, region.empty() ? std::string() : std::string("(").append(region).append(")")}, " "));
        break;
    case CityLine::cityState:
        lines.add(joined({place, joined({region, code}, " ")}, ", "));
        break;
    case CityLine::cityStateSpaced:
        lines.add(joined({place, region, code}, " "));
        break;
    case CityLine::cityCode:
        lines.add(joined({place, code}, " "));
        lines.add(region);
        break;
    case CityLine::ownLines:
        lines.add(place);
        lines.add(region);
        lines.add(code);
        break;
    case CityLine::stateThenCode:
        lines.add(joined({place, region}, " - "));
        lines.add(code);
        break;
    }
    return lines.take();
}

} // namespace Quillary
