#pragma once

#include "QuillaryCore/Samples/SampleLibrary.h"
#include "QuillaryCore/Search/LibrarySearch.h"
#include "QuillaryUI/Library/LibraryAccess.h"

#include <QApplication>
#include <QWidget>

#include <stdexcept>
#include <string>

namespace Quillary {

/// A printer that is never asked: these windows show no page.
class NoPress final : public PagePress
{
public:
    void press(PageJob /*job*/, PrintReply /*reply*/) override {}
    void pressPage(PageJob /*job*/, LonePage /*page*/, PrintReply /*reply*/) override {}
    [[nodiscard]] PagePicture picture(const Bytes& /*pdf*/, int /*page*/, int /*width*/) override { return {}; }
    void warmUp() override {}
    void warmUpForPages() override {}
};

/// The sample library as windows see it.
struct WindowLibrary
{
    WindowLibrary()
    {
        library.open({.context = samples.context(),
                      .business = samples.business().ref,
                      .host = nullptr,
                      .assistantName = {},
                      .clock = samples.context().clock(),
                      .calendar = samples.calendar(),
                      .locale = Locale("en_GB"),
                      .search = &search});
    }
    WindowLibrary(const WindowLibrary&) = delete;
    WindowLibrary& operator=(const WindowLibrary&) = delete;
    ~WindowLibrary() { library.close(); }

    /// What was changed is told by the event loop.
    static void settle() { QCoreApplication::processEvents(); }

    SampleLibrary samples{DocumentLanguage::english};
    LibrarySearch search{samples.context()};
    NoPress press;
    LibraryAccess library{press, Formats(Locale("en_GB"), samples.calendar())};
};

/// A child of this type and name; null ends the test.
template <class Widget>
Widget& child(const QWidget& parent, const char* name)
{
    auto* found = parent.findChild<Widget*>(QString::fromLatin1(name));
    if (found == nullptr) {
        throw std::runtime_error(std::string("there is no ") + name);
    }
    return *found;
}

} // namespace Quillary
