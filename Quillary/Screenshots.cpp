#include "Quillary/Screenshots.h"

#include "Quillary/PrintingHost.h"
#include "QuillaryCore/Foundation/UserError.h"
#include "QuillaryCore/Samples/SampleLibrary.h"
#include "QuillaryCore/Search/LibrarySearch.h"
#include "QuillaryUI/Library/LibraryAccess.h"
#include "QuillaryUI/Look/Theme.h"
#include "QuillaryUI/Main/MainWindow.h"
#include "QuillaryUI/Paper/PaperView.h"

#include <QApplication>
#include <QElapsedTimer>

#include <fmt/format.h>

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
