#pragma once

#include "QuillaryUI/Library/LibraryAccess.h"

#include <QFuture>
#include <QFutureWatcher>
#include <QObject>

#include <functional>
#include <memory>
#include <optional>
#include <string>
#include <utility>
#include <vector>

namespace Quillary {

/// Reads the library on another thread, beside the one in use, so that no window stands still for it.
///
/// What is saved is read through a connection of its own, and nothing is shared. Only the newest wish counts: what was
/// being read for an older one is ended, and nobody hears of it. Nobody reads a library that is given away. A library in
/// memory is read at once: nothing lies beside it.
class BesideReader : public QObject
{
    Q_OBJECT

public:
    explicit BesideReader(LibraryAccess& library, QObject* parent = nullptr);
    ~BesideReader() override;

    /// `work` reads, on another thread: it holds values alone and works with nothing but the environment that it is
    /// given, which has no printer and no search. `show` gets the answer on this thread, unless the wish was dropped
    /// or the library could not be read wholly. Nothing happens while the library is away.
    template <class Answer>
    void read(std::function<Answer(const AssistantEnvironment&)> work, std::function<void(Answer)> show)
    {
        auto answer = std::make_shared<std::optional<Answer>>();
        start(
            [work = std::move(work), answer](const AssistantEnvironment& environment) { *answer = work(environment); },
            [show = std::move(show), answer] { show(std::move(answer->value())); }); // it was read before
    }

    /// The answer isn't wanted any more.
    void giveUp();
    [[nodiscard]] bool isReading() const { return m_job != nullptr; }

Q_SIGNALS:
    /// It could not be read: the sentence says why, in the language of the windows.
    void failed(const QString& sentence);
    /// Nothing is being read any more, after the answer was shown, or there will be none.
    void ended();

private:
    struct Job;
    using Work = std::function<void(const AssistantEnvironment&)>;

    void start(Work work, std::function<void()> show);
    void readAtOnce(const Work& work, const std::function<void()>& show);
    void end();
    void dropAll();

    LibraryAccess& m_library;
    std::shared_ptr<Job> m_job;                                 ///< the newest; null: nothing is awaited
    QFutureWatcher<std::optional<std::string>> m_answer;        ///< of that one: why it failed; no value: it was read
    std::vector<QFuture<std::optional<std::string>>> m_running; ///< also those that were given up and are ending
};

} // namespace Quillary
