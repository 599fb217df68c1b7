#include "QuillaryCore/Letters/MailDraft.h"

#include "QuillaryCore/Foundation/Text.h"
#include "QuillaryCore/Output/Base64.h"

#include <fmt/format.h>

#include <algorithm>
#include <array>
#include <chrono>
#include <span>

namespace Quillary {

namespace {

constexpr std::string_view lineEnd = "\r\n";

/// Base64 holds neither "=_" nor "_" at all, so no part can hold the border between them.
constexpr std::string_view boundary = "=_quillary_part";

/// Unit: bytes of text in one encoded word, which may have 75 characters with all around it.
constexpr std::size_t encodedWordBytes = 45;
/// The same for the first one, which shares its line of at most 76 characters with the header's name ("Subject: ").
constexpr std::size_t firstWordBytes = 39;
constexpr std::size_t base64LineLength = 76;
/// What is longer stands encoded, which may be folded anywhere.
constexpr std::size_t longestPlainHeader = 60;
/// Of a file name; three characters each when encoded, which still fits one line.
constexpr std::size_t longestFileName = 255;

std::string withoutControls(std::string_view text)
{
    std::string clean = repairedUTF8(text);
    for (char& byte : clean) {
        const auto value = static_cast<unsigned char>(byte);
        byte = value < 0x20 || value == 0x7F ? ' ' : byte;
    }
    return std::string(trimmed(clean));
}

bool isPlainASCII(std::string_view text)
{
    return std::ranges::all_of(text, [](char byte) { return byte >= 0x20 && byte < 0x7F; });
}

std::span<const std::uint8_t> bytesOf(std::string_view text)
{
    // Text and bytes are the same memory; the encoder reads bytes.
    return {reinterpret_cast<const std::uint8_t*>(text.data()), text.size()}; // NOLINT(*-reinterpret-cast)
}

/// A text as encoded words, one to a line, each of whole characters.
std::string encodedWords(std::string_view text)
{
    std::string result;
    std::string piece;
    const auto flush = [&] {
        if (!piece.empty()) {
            result += (result.empty() ? "" : "\r\n ") + fmt::format("=?UTF-8?B?{}?=", Base64::encoded(bytesOf(piece)));
            piece.clear();
        }
    };
    std::size_t index = 0;
    while (index < text.size()) {
        std::size_t length = 1;
        while (index + length < text.size() && (static_cast<unsigned char>(text[index + length]) & 0xC0U) == 0x80) {
            ++length;
        }
        if (piece.size() + length > (result.empty() ? firstWordBytes : encodedWordBytes)) {
            flush();
        }
        piece += text.substr(index, length);
        index += length;
    }
    flush();
    return result;
}

/// A text as the value of a header: as it is where that is safe, else encoded.
std::string headerText(std::string_view text)
{
    const std::string clean = withoutControls(text);
    const bool isPlain = isPlainASCII(clean) && clean.size() <= longestPlainHeader && !clean.contains("=?");
    return isPlain ? clean : encodedWords(clean);
}

/// A person's name in front of an address: quoted, or encoded.
std::string displayName(std::string_view name)
{
    const std::string clean = withoutControls(name);
    if (!isPlainASCII(clean) || clean.size() > longestPlainHeader || clean.contains("=?")) {
        return encodedWords(clean);
    }
    return fmt::format("\"{}\"", replacing(replacing(clean, "\\", "\\\\"), "\"", "\\\""));
}

std::string mailbox(const MailAddress& person)
{
    const std::string name = withoutControls(person.name);
    return name.empty() ? person.address : fmt::format("{}\r\n <{}>", displayName(name), person.address);
}

/// People as the value of a header, one to a line; those without a usable address are left to the mail program.
std::string mailboxes(std::span<const MailAddress> people)
{
    std::string result;
    for (const MailAddress& person : people) {
        if (MailDraft::canAddress(person.address)) {
            result += (result.empty() ? "" : ",\r\n ") + mailbox(person);
        }
    }
    return result;
}

/// "Tue, 17 Mar 2026 11:00:00 +0000"
std::string dateText(Instant instant)
{
    constexpr std::array days = {"Sun", "Mon", "Tue", "Wed", "Thu", "Fri", "Sat"};
    constexpr std::array months = {"Jan", "Feb", "Mar", "Apr", "May", "Jun", "Jul", "Aug", "Sep", "Oct", "Nov", "Dec"};
    const auto day = std::chrono::floor<std::chrono::days>(instant);
    const CalendarDate date(day);
    const std::chrono::hh_mm_ss time(std::chrono::floor<std::chrono::seconds>(instant - day));
    return fmt::format("{}, {} {} {} {:02}:{:02}:{:02} +0000",
                       days.at(std::chrono::weekday(day).c_encoding()),
                       static_cast<unsigned>(date.day()),
                       months.at(static_cast<unsigned>(date.month()) - 1),
                       static_cast<int>(date.year()),
                       time.hours().count(),
                       time.minutes().count(),
                       time.seconds().count());
}

std::string percentEncoded(std::string_view text)
{
    constexpr std::string_view safe = "ABCDEFGHIJKLMNOPQRSTUVWXYZabcdefghijklmnopqrstuvwxyz0123456789-._~";
    std::string result;
    for (const char byte : text) {
        if (safe.contains(byte)) {
            result += byte;
        } else {
            result += fmt::format("%{:02X}", static_cast<unsigned char>(byte));
        }
    }
    return result;
}

std::string fileName(std::string_view name)
{
    std::string clean = withoutControls(name);
    while (clean.size() > longestFileName) {
        const std::vector<std::string_view> characters = graphemes(clean);
        clean.resize(clean.size() - characters.back().size());
    }
    return clean;
}

void appendBase64(std::string& message, std::span<const std::uint8_t> bytes)
{
    const std::string encoded = Base64::encoded(bytes);
    for (std::size_t index = 0; index < encoded.size(); index += base64LineLength) {
        message.append(encoded, index, base64LineLength);
        message += lineEnd;
    }
}

/// Plain text with the line ends that mail asks for.
std::string mailLines(std::string_view body)
{
    const std::string even = replacing(replacing(repairedUTF8(body), "\r\n", "\n"), "\r", "\n");
    return replacing(even, "\n", "\r\n") + std::string(lineEnd);
}

} // namespace

bool MailDraft::canAddress(std::string_view address)
{
    constexpr std::string_view special = "()<>[]:;,\\\" ";
    return !address.empty() && address.size() <= 254 && isValidUTF8(address) && !hasControlCharacter(address) &&
           std::ranges::none_of(address, [&](char byte) { return special.contains(byte); });
}

std::string MailDraft::message() const
{
    std::string text;
    const auto header = [&text](std::string_view name, std::string_view value) {
        text += fmt::format("{}: {}\r\n", name, value);
    };
    header("X-Unsent", "1");
    header("Date", dateText(date));
    if (const std::string sender = mailboxes({&from, 1}); !sender.empty()) {
        header("From", sender);
    }
    if (const std::string recipients = mailboxes(to); !recipients.empty()) {
        header("To", recipients);
    }
    header("Subject", headerText(subject));
    header("MIME-Version", "1.0");
    header("Content-Type", fmt::format("multipart/mixed;\r\n boundary=\"{}\"", boundary));
    text += fmt::format("\r\n--{}\r\n", boundary);
    header("Content-Type", "text/plain; charset=utf-8");
    header("Content-Transfer-Encoding", "base64");
    text += lineEnd;
    appendBase64(text, bytesOf(mailLines(body)));
    for (const MailAttachment& attachment : attachments) {
        text += fmt::format("--{}\r\n", boundary);
        header("Content-Type", "application/pdf");
        // No second, plain name beside it: some mail programs would take that one.
        header("Content-Disposition",
               fmt::format("attachment;\r\n filename*=UTF-8''{}", percentEncoded(fileName(attachment.name))));
        header("Content-Transfer-Encoding", "base64");
        text += lineEnd;
        appendBase64(text, attachment.pdf);
    }
    text += fmt::format("--{}--\r\n", boundary);
    return text;
}

} // namespace Quillary
