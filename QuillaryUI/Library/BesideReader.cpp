#include "QuillaryUI/Library/BesideReader.h"

#include "QuillaryCore/Foundation/UUID.h"
#include "QuillaryCore/Model/DataModel.h"
#include "QuillaryCore/Store/Interruption.h"
#include "QuillaryCore/Store/Store.h"
#include "QuillaryCore/Store/StoreError.h"
#include "QuillaryUI/Look/CoreText.h"

#include <QPromise>
#include <QThreadPool>

#include <atomic>
#include <exception>
#include <filesystem>

namespace Quillary {

namespace {

/// Some reads go on with nothing where something can't be read; a window must not show that as zeros.
void readWholly(const AssistantEnvironment& environment, const std::function<void(const AssistantEnvironment&)>& work)
{
    Store& store = environment.context.store();
    store.forgetFailure(); // one of before is none of this answer
    work(environment);
    if (const std::optional<StoreError> failure = store.lastFailure()) {
        throw StoreError(*failure);
    }
}

} // namespace

/// All that it takes to read on another thread, and what is done with the answer on this one.
struct BesideReader::Job
{
    std::filesystem::path folder;
    Ref<Business> business;
    Instant now;
    Calendar calendar;
    Locale locale;
    Work work;
    std::function<void()> show;
    std::atomic<bool> isGivenUp = false;

    /// A sentence of the core's; no value: it was read.
    [[nodiscard]] std::optional<std::string> run() const
    {
        try {
            Store store =
                Store::openReadOnly(Store::Location::directory(folder), DataModel::records(), DataModel::history());
            const Interruption interruption(store.connection(), isGivenUp);
            const FixedClock clock(now);
            RandomUUIDSource uuids; // never asked: nothing is made
            Context context(store, clock, uuids);
            readWholly({.context = context,
                        .business = business,
                        .host = nullptr,
                        .assistantName = {},
                        .clock = clock,
                        .calendar = calendar,
                        .locale = locale},
                       work);
            return std::nullopt;
        } catch (const std::exception& error) { // on a thread where nobody else would hear of it
            return error.what();
        }
    }
};

BesideReader::BesideReader(LibraryAccess& library, QObject* parent)
    : QObject(parent)
    , m_library(library)
{
    connect(&m_answer, &QFutureWatcher<std::optional<std::string>>::finished, this, &BesideReader::end);
    connect(&library, &LibraryAccess::closing, this, [this] {
        dropAll();
        Q_EMIT ended();
    });
}

BesideReader::~BesideReader()
{
    dropAll();
}

void BesideReader::start(Work work, std::function<void()> show)
{
    if (!m_library.isOpen()) {
        return;
    }
    if (m_library.context().store().location().isInMemory()) {
        readAtOnce(work, show);
        return;
    }
    if (m_job != nullptr) {
        m_job->isGivenUp = true;
    }
    const AssistantEnvironment& environment = m_library.environment();
    m_job.reset(new Job{.folder = environment.context.store().location().folder(),
                        .business = environment.business,
                        .now = m_library.now(),
                        .calendar = environment.calendar,
                        .locale = environment.locale,
                        .work = std::move(work),
                        .show = std::move(show)});
    auto promise = std::make_shared<QPromise<std::optional<std::string>>>();
    promise->start(); // here, so that it counts as running before its thread begins
    m_answer.setFuture(promise->future());
    std::erase_if(m_running, [](const auto& reading) { return reading.isFinished(); });
    m_running.push_back(promise->future());
    QThreadPool::globalInstance()->start([promise, job = m_job] {
        if (!job->isGivenUp) {
            promise->addResult(job->run());
        }
        promise->finish();
    });
}

void BesideReader::readAtOnce(const Work& work, const std::function<void()>& show)
{
    if (const auto failure = m_library.attempt([&] { readWholly(m_library.environment(), work); })) {
        Q_EMIT failed(*failure);
    } else {
        show();
    }
    Q_EMIT ended();
}

void BesideReader::end()
{
    if (m_job == nullptr || m_answer.future().resultCount() == 0) {
        return; // nobody waits for it any more
    }
    const std::shared_ptr<Job> job = std::exchange(m_job, nullptr);
    if (const std::optional<std::string> failure = m_answer.result()) {
        Q_EMIT failed(CoreText::sentence(*failure));
    } else {
        job->show();
    }
    if (m_job == nullptr) { // `show` may have wished for something else
        Q_EMIT ended();
    }
}

void BesideReader::giveUp()
{
    if (m_job != nullptr) {
        m_job->isGivenUp = true;
        m_job.reset();
        Q_EMIT ended();
    }
}

/// Until nobody reads: the library's file may be exchanged right after this.
void BesideReader::dropAll()
{
    if (m_job != nullptr) {
        m_job->isGivenUp = true;
        m_job.reset();
    }
    for (auto& reading : m_running) {
        reading.waitForFinished();
    }
    m_running.clear();
}

} // namespace Quillary
