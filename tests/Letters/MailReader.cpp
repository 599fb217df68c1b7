#include "tests/Letters/MailReader.h"

#include <cstddef>
#include <cstdlib>

namespace Quillary {

namespace {

std::string decodedBase64(std::string_view text)
{
    constexpr std::string_view alphabet = "ABCDEFGHIJKLMNOPQRSTUVWXYZabcdefghijklmnopqrstuvwxyz0123456789+/";
    std::string result;
    unsigned bits = 0;
    int count = 0;
    for (const char letter : text) {
        const std::size_t value = alphabet.find(letter);
        if (value == std::string_view::npos) {
            continue; // padding and line ends
        }
        bits = (bits << 6U) | static_cast<unsigned>(value);
        count += 6;
        if (count >= 8) {
            count -= 8;
            result += static_cast<char>((bits >> static_cast<unsigned>(count)) & 0xFFU);
        }
    }
    return result;
}

/// "=?UTF-8?B?…?=" decoded; white space between two encoded words is no content.
std::string decodedWords(std::string_view value)
{
    constexpr std::string_view start = "=?UTF-8?B?";
    std::string result;
    bool wasEncoded = false;
    while (!value.empty()) {
        const std::size_t place = value.find(start);
        const std::string_view before = value.substr(0, place);
        if (!wasEncoded || before.find_first_not_of(" \t") != std::string_view::npos) {
            result += before;
        }
        if (place == std::string_view::npos) {
            if (wasEncoded && before.find_first_not_of(" \t") == std::string_view::npos) {
                result += before;
            }
            break;
        }
        const std::size_t end = value.find("?=", place + start.size());
        result += decodedBase64(value.substr(place + start.size(), end - place - start.size()));
        value.remove_prefix(end + 2);
        wasEncoded = true;
    }
    return result;
}

std::string decodedPercent(std::string_view text)
{
    std::string result;
    for (std::size_t index = 0; index < text.size(); ++index) {
        if (text[index] == '%') {
            result += static_cast<char>(std::strtol(std::string(text.substr(index + 1, 2)).c_str(), nullptr, 16));
            index += 2;
        } else {
            result += text[index];
        }
    }
    return result;
}

} // namespace

MailReader::MailReader(std::string_view message)
{
    std::size_t length = 0;
    for (std::size_t index = 0; index < message.size(); ++index) {
        const auto byte = static_cast<unsigned char>(message[index]);
        const bool isBreak = byte == '\r' && message.substr(index).starts_with("\r\n");
        if (isBreak) {
            length = 0;
            ++index;
            continue;
        }
        ++length;
        if (byte < 0x20 || byte == 0x7F) {
            blame("a bare control character");
        }
        if (length > 998) {
            blame("a line above 998 bytes");
        }
    }
    m_headers = takeHeaders(message);
    const std::string type = header("Content-Type");
    const std::size_t place = type.find("boundary=\"");
    if (!type.starts_with("multipart/mixed") || place == std::string::npos) {
        blame("no parts");
        return;
    }
    const std::string border = "--" + type.substr(place + 10, type.find('"', place + 10) - place - 10);
    std::size_t begin = message.find(border);
    while (begin != std::string_view::npos && !message.substr(begin + border.size()).starts_with("--")) {
        begin += border.size() + 2;
        const std::size_t end = message.find("\r\n" + border, begin);
        readPart(message.substr(begin, end - begin));
        begin = end == std::string_view::npos ? end : end + 2;
    }
    if (begin == std::string_view::npos || message.substr(begin + border.size()) != "--\r\n") {
        blame("no end");
    }
}

MailReader::Headers MailReader::takeHeaders(std::string_view& text)
{
    Headers headers;
    while (!text.starts_with("\r\n")) {
        const std::size_t end = text.find("\r\n");
        if (end == std::string_view::npos) {
            blame("headers without an end");
            return headers;
        }
        const std::string_view line = text.substr(0, end);
        text.remove_prefix(end + 2);
        if (line.starts_with(' ') && !headers.empty()) {
            headers.back().second += line;
            continue;
        }
        const std::size_t colon = line.find(": ");
        if (colon == std::string_view::npos) {
            blame("no header: " + std::string(line));
            continue;
        }
        headers.emplace_back(line.substr(0, colon), line.substr(colon + 2));
    }
    text.remove_prefix(2);
    return headers;
}

void MailReader::readPart(std::string_view text)
{
    Part part;
    bool isBase64 = false;
    for (const auto& [name, value] : takeHeaders(text)) {
        isBase64 = isBase64 || (name == "Content-Transfer-Encoding" && value == "base64");
        const std::size_t place = value.find("filename*=UTF-8''");
        if (name == "Content-Disposition" && place != std::string::npos) {
            part.fileName = decodedPercent(std::string_view(value).substr(place + 17));
        }
    }
    if (!isBase64) {
        blame("a part that isn't base64");
    }
    part.content = decodedBase64(text);
    m_parts.push_back(std::move(part));
}

std::string MailReader::header(std::string_view name) const
{
    for (const auto& [each, value] : m_headers) {
        if (each == name) {
            return decodedWords(value);
        }
    }
    return {};
}

std::string MailReader::headerNames() const
{
    std::string names;
    for (const auto& [name, value] : m_headers) {
        names += name + " ";
    }
    return names;
}

void MailReader::blame(const std::string& fault)
{
    if (m_fault.empty()) {
        m_fault = fault;
    }
}

} // namespace Quillary
