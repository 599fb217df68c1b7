#include "Quillary/Screenshots.h"

#include "Quillary/PrintingHost.h"
#include "QuillaryCore/Foundation/UserError.h"
#include "QuillaryCore/Model/Document.h"
#include "QuillaryCore/Samples/SampleLibrary.h"
#include "QuillaryCore/Schedules/TimeTracking.h"
#include "QuillaryCore/Search/LibrarySearch.h"
#include "QuillaryUI/Library/LibraryAccess.h"
#include "QuillaryUI/Look/Theme.h"
#include "QuillaryUI/Main/MainWindow.h"
#include "QuillaryUI/Paper/PaperView.h"

#include <QApplication>
#include <QElapsedTimer>

#include <fmt/format.h>

#include <chrono>

namespace Quillary::Screenshots {

namespace {

namespace fs = std::filesystem;

constexpr int width = 1440;
constexpr int height = 900;
constexpr int patience = 10'000; ///< milliseconds until a page must be there
constexpr QRgb accent = 0xff1f5fbf;

/// Until every page that is on the screen has been printed.
void wait(MainWindow& window)
{
    QElapsedTimer time;
    time.start();
    const auto isReady = [&window] {
        for (const PaperView* paper : window.findChildren<PaperView*>()) {
            if (paper->isVisible() && paper->pdf().empty()) {
                return false;
            }
        }
        return true;
    };
    constexpr int settling = 250;
    while (time.elapsed() < settling || (!isReady() && time.elapsed() < patience)) {
        QCoreApplication::processEvents(QEventLoop::AllEvents, 20);
    }
}

/// Two days of work, an hour still to bill on each, and a timer that runs: the samples are of documents alone.
void addTime(SampleLibrary& samples)
{
    Context& context = samples.context();
    const Instant now = context.clock().now();
    const Ref<Client> client = samples.samples().front().document->client;
    auto scope = context.beginScope("Add time");
    TimeTracking::Work work{.client = client, .note = "Layout of the spring issue"};
    const Instant morning = samples.calendar().startOfDay(now) + std::chrono::hours(8);
    TimeTracking::add(context, work, morning, morning + std::chrono::minutes(90));
    work.note = "Telephone consultation";
    TimeTracking::add(context, work, morning + std::chrono::hours(2), morning + std::chrono::minutes(135));
    const Instant before = morning - std::chrono::days(1);
    work.note = "Proofs, first round";
    TimeTracking::add(context, work, before, before + std::chrono::minutes(200));
    work.isBillable = false;
    work.note = "Office";
    TimeTracking::add(context, work, before + std::chrono::hours(4), before + std::chrono::hours(5));
    TimeTracking::start(context, {.client = client, .note = "Proofs, second round"}, now - std::chrono::minutes(47));
    scope.commit();
}

int drawScheme(const fs::path& folder, Theme::Scheme scheme, LibraryAccess& library)
{
    Theme::apply(*static_cast<QApplication*>(QCoreApplication::instance()), scheme, QColor(accent));
    MainWindow window(library);
    window.resize(width, height);
    window.show();
    int count = 0;
    for (const QString& name : window.sectionNames()) {
        window.showSection(name);
        wait(window);
        const QString file = QString::fromStdString(
            (folder / fmt::format("{}-{}.png", utf8(name), scheme == Theme::Scheme::dark ? "dark" : "light")).string());
        if (!window.grab().save(file)) {
            throw UserError(fmt::format("{} couldn't be written.", file.toStdString()));
        }
        count += 1;
    }
    return count;
}

} // namespace

int draw(const fs::path& folder, PrintingHost& host)
{
    std::error_code failure;
    fs::create_directories(folder, failure);
    if (failure) {
        throw UserError(fmt::format("{} couldn't be made: {}", folder.string(), failure.message()));
    }
    SampleLibrary samples(DocumentLanguage::english);
    addTime(samples);
    LibrarySearch search(samples.context());
    LibraryAccess library(host, Formats(Locale("en_GB"), samples.calendar()));
    library.open({.context = samples.context(),
                  .business = samples.business().ref,
                  .host = &host,
                  .assistantName = {},
                  .clock = samples.context().clock(),
                  .calendar = samples.calendar(),
                  .locale = Locale("en_GB"),
                  .search = &search});
    int count = 0;
    for (const Theme::Scheme scheme : {Theme::Scheme::light, Theme::Scheme::dark}) {
        count += drawScheme(folder, scheme, library);
    }
    library.close();
    return count;
}

} // namespace Quillary::Screenshots
