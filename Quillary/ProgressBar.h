#pragma once

#include <chrono>
#include <cstddef>
#include <string>

namespace Quillary {

/// A line on the terminal that shows how far a long work is; nothing where standard error is no terminal, and nothing of
/// work that is soon done. The line goes with the object.
class ProgressBar
{
public:
    /// `title` says what is done: "Reading".
    explicit ProgressBar(std::string title);
    ProgressBar(const ProgressBar&) = delete;
    ProgressBar& operator=(const ProgressBar&) = delete;
    ~ProgressBar();

    void show(std::size_t done, std::size_t total);

private:
    std::string m_title;
    bool m_isTerminal;
    bool m_isShown = false;
    std::chrono::steady_clock::time_point m_next; ///< when the line is drawn anew
};

} // namespace Quillary
