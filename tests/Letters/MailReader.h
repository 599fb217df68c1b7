#pragma once

#include <string>
#include <string_view>
#include <utility>
#include <vector>

namespace Quillary {

/// Reads a mail back, written from the standards alone and stricter than mail programs are.
class MailReader
{
public:
    struct Part
    {
        std::string fileName;
        std::string content;
    };

    explicit MailReader(std::string_view message);

    /// What breaks the rules; empty when nothing does.
    [[nodiscard]] const std::string& fault() const { return m_fault; }

    /// The value of a header with its encoded words decoded; empty where there is none.
    [[nodiscard]] std::string header(std::string_view name) const;
    [[nodiscard]] std::string headerNames() const;
    [[nodiscard]] const std::vector<Part>& parts() const { return m_parts; }

private:
    using Headers = std::vector<std::pair<std::string, std::string>>;

    Headers takeHeaders(std::string_view& text);
    void readPart(std::string_view text);
    void blame(const std::string& fault);

    Headers m_headers;
    std::vector<Part> m_parts;
    std::string m_fault;
};

} // namespace Quillary
