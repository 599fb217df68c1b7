#pragma once

#include "QuillaryUI/Paper/PagePress.h"

#include <QString>

#include <filesystem>
#include <functional>
#include <string>

class QWidget;

namespace Quillary {

/// A page's ways out of the program: into a file, and onto paper.
namespace PaperDesk {

/// Who wants it. Once the widget is gone nobody is told anything.
struct Asker
{
    QWidget& widget;
    std::function<void(const QString& sentence)> told;   ///< what went well
    std::function<void(const QString& sentence)> failed; ///< why there is nothing, in the core's English
};

/// As a PDF of this name, without its ending, that overwrites none of the folder.
void savePDF(
    PagePress& press, PageJob job, const std::filesystem::path& folder, const std::string& name, const Asker& asker);

/// After the desktop's question for the printer, which shows the name. Nothing where it is put away.
void print(PagePress& press, PageJob job, const QString& name, const Asker& asker);

} // namespace PaperDesk

} // namespace Quillary
