#include "QuillaryCore/Assistant/Description/DocumentDescription.h"
#include "QuillaryCore/Assistant/Description/Lookup.h"
#include "QuillaryCore/Assistant/Operations/Operations.h"
#include "QuillaryCore/Assistant/Operations/PageJobs.h"
#include "QuillaryCore/Assistant/Tools/PlainText.h"
#include "QuillaryCore/Model/Business.h"
#include "QuillaryCore/Model/Document.h"
#include "QuillaryCore/Model/Limits.h"
#include "QuillaryCore/Numbering/UniqueFilePath.h"

#include <fmt/format.h>

#include <array>
#include <filesystem>
#include <string>
#include <string_view>
#include <utility>

namespace Quillary {

namespace {

namespace fs = std::filesystem;

/// Widths to try, so that an assistant reads the page well and the image stays within `largestPreview`.
constexpr std::array previewWidths = {1200, 1000, 800, 600};
constexpr std::size_t largestPreview = 500'000;

Bytes previewImage(AssistantHost& host, const Bytes& pdf)
{
    Bytes image;
    for (const int width : previewWidths) {
        image = host.pageImage(pdf, 0, width);
        if (image.size() <= largestPreview) {
            break;
        }
    }
    return image;
}

struct Folder
{
    fs::path path;
    std::string_view note; ///< what the user may wonder about it
};

bool isFolder(const fs::path& path)
{
    std::error_code failure;
    return fs::is_directory(path, failure);
}

Folder chosenFolder(const AssistantHost& host, const Arguments& arguments)
{
    const std::optional<std::string> named = arguments.line("folder", Limits::pathLength);
    if (!named || named->empty()) {
        // Not every desktop has one.
        return isFolder(host.downloadsFolder())
                   ? Folder{host.downloadsFolder(), {}}
                   : Folder{host.homeFolder(), "There's no downloads folder, so it lies in the home folder."};
    }
    if (*named == "~") {
        return {host.homeFolder(), {}};
    }
    return {named->starts_with("~/") ? host.homeFolder() / named->substr(2) : fs::path(*named), {}};
}

Folder existingFolder(const AssistantEnvironment& environment, const Arguments& arguments)
{
    Folder folder = chosenFolder(environment.printer(), arguments);
    std::error_code failure;
    const fs::path whole = fs::absolute(folder.path, failure);
    folder.path = (failure ? folder.path : whole).lexically_normal();
    if (!isFolder(folder.path)) {
        throw AssistantError(fmt::format("There's no folder {}.", plainText(folder.path.string())));
    }
    return folder;
}

} // namespace

void DocumentOperations::preview(const AssistantEnvironment& environment,
                                 const Arguments& arguments,
                                 const AssistantActions::Reply& reply)
{
    const Document& document = Lookup::document(environment, arguments);
    AssistantHost& host = environment.printer();
    DocumentDescription description =
        DocumentDescription::describe(environment.context, document, environment.clock.now(), environment.calendar);
    ToolResult result;
    result.text = std::move(description.text);
    result.data = std::move(description.data);
    result.documentID = document.uuid;

    PageJob job = pageJob(environment.context, document, environment.ownBusiness(), environment.calendar);
    host.printPage(std::move(job), [&host, reply, result = std::move(result)](const PageOutcome& outcome) mutable {
        if (const std::string* sentence = std::get_if<std::string>(&outcome)) {
            reply(ToolResult::error(*sentence));
            return;
        }
        try {
            result.image = previewImage(host, std::get<Bytes>(outcome));
        } catch (const std::exception& error) {
            reply(ToolResult::error(error.what()));
            return;
        }
        reply(std::move(result));
    });
}

void DocumentOperations::exportPDF(const AssistantEnvironment& environment,
                                   const Arguments& arguments,
                                   const AssistantActions::Reply& reply)
{
    const Document& document = Lookup::document(environment, arguments);
    const Folder folder = existingFolder(environment, arguments);
    const std::string name = shownFileName(environment, document);
    PageJob job = pageJob(environment.context, document, environment.ownBusiness(), environment.calendar);

    const auto finish = [reply, folder, name, uuid = document.uuid](const PageOutcome& outcome) {
        if (const std::string* sentence = std::get_if<std::string>(&outcome)) {
            reply(ToolResult::error(*sentence));
            return;
        }
        try {
            const fs::path path = saveUniqueFile(folder.path, name, "pdf", std::get<Bytes>(outcome));
            ToolResult result{.text = fmt::format("Saved {}", path.string())};
            result.data = JSON::object({{"path", path.string()}});
            result.documentID = uuid;
            result.summary = result.text;
            if (!folder.note.empty()) {
                result.text += fmt::format("\n{}", folder.note);
            }
            reply(std::move(result));
        } catch (const std::exception& error) {
            reply(ToolResult::error(error.what()));
        }
    };
    environment.printer().printPage(std::move(job), finish);
}

} // namespace Quillary
