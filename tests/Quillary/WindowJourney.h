#pragma once

#include "QuillaryUI/Library/Section.h"
#include "QuillaryUI/Main/MainWindow.h"
#include "tests/Quillary/WindowDesk.h"
#include "tests/Support/TempFolder.h"

#include <QString>

#include <gtest/gtest.h>

#include <cstdlib>
#include <filesystem>
#include <functional>
#include <string>

class QAbstractItemView;
class QComboBox;
class QLineEdit;

namespace Quillary {

class Context;

/// A user with a home of their own, in front of the window.
class WindowJourney : public testing::Test
{
protected:
    static constexpr int patience = 30'000;
    static constexpr const char* homeVariable = "QUILLARY_TEST_HOME";

    /// Runs the window until `condition` holds, or patience ends.
    static bool comesTrue(const std::function<bool()>& condition);

    /// The one on the screen, where several are called so.
    template <class Widget>
    Widget& find(const char* name, QWidget* within = nullptr)
    {
        QWidget* root = within != nullptr ? within : &desktop->window();
        Widget* found = nullptr;
        for (Widget* widget : root->findChildren<Widget*>(QString::fromLatin1(name))) {
            if (found == nullptr || widget->isVisible()) {
                found = widget;
            }
        }
        EXPECT_NE(found, nullptr) << name;
        return *found;
    }

    /// Past what a new user is asked first.
    void putOffFirstStart();

    QWidget* invoices() { return desktop->window().section(QStringLiteral("invoices")); }
    Context& context() { return desktop->library().context(); }

    void click(const char* button);
    /// Instead of what stands in a field.
    void type(const char* field, const QString& typed);
    /// Types until a client is offered, and takes the first.
    void pickClient(const char* field, const QString& typed);
    /// Goes down a list of choices with the keyboard, or up when it is above, to the one that contains these words.
    void choose(const char* field, const QString& words);
    void clickRow(const char* view, int row);
    /// Into a cell of the draft's lines.
    void typeCell(int row, int column, const QString& typed);

    /// What lies in a file, wherever under the user's home it comes to lie.
    std::string comingFile(const std::string& ending);

    TempFolder folder;
    /// That of whoever started this process as a test of its own, if somebody did.
    const char* const lentHome = std::getenv(homeVariable);
    const std::filesystem::path home = lentHome != nullptr ? std::filesystem::path(lentHome) : folder.path();
    WindowDesk desk{home};
    Desktop* desktop = desk.desktop.get();
};

} // namespace Quillary
