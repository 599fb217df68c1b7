#include "Quillary/ProgressBar.h"

#include "Quillary/ErrorOutput.h"

#include <fmt/format.h>

#include <algorithm>
#include <unistd.h>
#include <utility>

namespace Quillary {

namespace {

using namespace std::chrono_literals;

constexpr auto patience = 400ms;
constexpr auto interval = 50ms;
constexpr std::size_t width = 40;
constexpr std::string_view clearedLine = "\r\x1B[K";

std::string bar(std::size_t done, std::size_t total)
{
    const std::size_t filled = std::min(width, done * width / std::max<std::size_t>(total, 1));
    std::string text;
    for (std::size_t i = 0; i < width; ++i) {
        text += i < filled ? "█" : "░";
    }
    return text;
}

} // namespace

ProgressBar::ProgressBar(std::string title)
    : m_title(std::move(title))
    , m_isTerminal(isatty(STDERR_FILENO) != 0)
    , m_next(std::chrono::steady_clock::now() + patience)
{
}

ProgressBar::~ProgressBar()
{
    if (m_isShown) {
        ErrorOutput::write(clearedLine);
    }
}

void ProgressBar::show(std::size_t done, std::size_t total)
{
    const auto now = std::chrono::steady_clock::now();
    if (!m_isTerminal || now < m_next) {
        return;
    }
    m_next = now + interval;
    m_isShown = true;
    const std::size_t percent = std::min<std::size_t>(100, done * 100 / std::max<std::size_t>(total, 1));
    ErrorOutput::write(fmt::format("{}{} {} {:3} %", clearedLine, m_title, bar(done, total), percent));
}

} // namespace Quillary
