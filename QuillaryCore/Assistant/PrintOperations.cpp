#include "QuillaryCore/Assistant/DocumentDescription.h"
#include "QuillaryCore/Assistant/Lookup.h"
#include "QuillaryCore/Assistant/Operations.h"
#include "QuillaryCore/Assistant/PageJobs.h"
#include "QuillaryCore/Foundation/Files.h"
#include "QuillaryCore/Model/Business.h"
#include "QuillaryCore/Model/Document.h"
#include "QuillaryCore/Model/Limits.h"
#include "QuillaryCore/Numbering/UniqueFilePath.h"

#include <fmt/format.h>

#include <array>
#include <filesystem>
#include <string>
#include <utility>

namespace Quillary {

namespace {

namespace fs = std::filesystem;

/// Widths to try, so that an assistant reads the page well and the image stays within `largestPreview`.
constexpr std::array previewWidths = {1200, 1000, 800, 600};
constexpr std::size_t largestPreview = 500'000;

const Document& namedDocument(const AssistantEnvironment& environment, const Arguments& arguments)
{
    return Lookup::document(environment.context, arguments.line("document", Limits::lineLength).value_or(""));
}

AssistantHost& printer(const AssistantEnvironment& environment)
{
    if (environment.host == nullptr) {
        throw AssistantError("Pages can't be printed here.");
    }
    return *environment.host;
}

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

fs::path chosenFolder(const AssistantEnvironment& environment, const Arguments& arguments)
{
    const std::optional<std::string> named = arguments.line("folder", Limits::pathLength);
    if (!named || named->empty()) {
        return printer(environment).downloadsFolder();
    }
    if (*named == "~") {
        return printer(environment).homeFolder();
    }
    if (named->starts_with("~/")) {
        return printer(environment).homeFolder() / named->substr(2);
    }
    return *named;
}

fs::path existingFolder(const AssistantEnvironment& environment, const Arguments& arguments)
{
    const fs::path folder = chosenFolder(environment, arguments);
    std::error_code failure;
    if (!fs::is_directory(folder, failure)) {
        throw AssistantError(fmt::format("There's no folder {}.", folder.string()));
    }
    const fs::path whole = fs::absolute(folder, failure);
    return failure ? folder : whole;
}

/// Takes a free name first, then moves the whole file onto it: nobody ever finds half a PDF.
fs::path saveUnique(const fs::path& folder, const std::string& name, const Bytes& pdf)
{
    const fs::path path = uniqueFilePath(folder, name, "pdf");
    try {
        return replaceFile(path, pdf);
    } catch (const UserError&) {
        std::error_code ignored;
        fs::remove(path, ignored);
        throw;
    }
}

} // namespace

void DocumentOperations::preview(const AssistantEnvironment& environment,
                                 const Arguments& arguments,
                                 const AssistantActions::Reply& reply)
{
    const Document& document = namedDocument(environment, arguments);
    AssistantHost& host = printer(environment);
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
    const Document& document = namedDocument(environment, arguments);
    const fs::path folder = existingFolder(environment, arguments);
    const std::string name =
        pdfFileName(environment.context, document, environment.ownBusiness(), environment.calendar);
    PageJob job = pageJob(environment.context, document, environment.ownBusiness(), environment.calendar);

    const auto finish = [reply, folder, name, uuid = document.uuid](const PageOutcome& outcome) {
        if (const std::string* sentence = std::get_if<std::string>(&outcome)) {
            reply(ToolResult::error(*sentence));
            return;
        }
        try {
            const fs::path path = saveUnique(folder, name, std::get<Bytes>(outcome));
            ToolResult result{.text = fmt::format("Saved {}", path.string())};
            result.data = JSON::object({{"path", path.string()}});
            result.documentID = uuid;
            result.summary = result.text;
            reply(std::move(result));
        } catch (const std::exception& error) {
            reply(ToolResult::error(error.what()));
        }
    };
    printer(environment).printPage(std::move(job), finish);
}

} // namespace Quillary
