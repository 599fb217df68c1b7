#pragma once

#include "QuillaryUI/Look/Theme.h"

#include <cstdint>
#include <filesystem>
#include <string>

class QPixmap;

namespace Quillary {

class LibraryAccess;
class MainWindow;

/// What slides in above a section, covers it or takes its place: the pictures beside those of the sections.
class ScreenshotScenes
{
public:
    ScreenshotScenes(std::filesystem::path folder, Theme::Scheme scheme, LibraryAccess& library);

    /// The window as it is, once every page in it has been printed. Throws: `UserError`.
    void draw(const std::string& name, MainWindow& window);

    /// The sheets of the document list, those of a draft made from `invoice` among them. Throws: `UserError`.
    void drawDocuments(std::int64_t invoice, MainWindow& window);
    /// The sheets of the other sections. Throws: `UserError`.
    void drawOthers(MainWindow& window);
    /// What a new user sees first, and what a locked window shows. Throws: `UserError`.
    void drawBeginnings();
    /// Every section before there is anything in it: takes all records away. Throws: `UserError`.
    void drawEmpty(MainWindow& window);

    [[nodiscard]] int count() const { return m_count; }

private:
    void save(const std::string& name, const QPixmap& picture);
    /// A sheet or a window of its own that `command`, an action or a button, opens in the section in front.
    void drawSheet(const std::string& name, const char* command, MainWindow& window);
    void drawQuickOpen(MainWindow& window);

    std::filesystem::path m_folder;
    Theme::Scheme m_scheme;
    LibraryAccess& m_library;
    int m_count = 0;
};

} // namespace Quillary
