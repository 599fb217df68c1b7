#include "Quillary/Commands/ExampleCommand.h"

#include "Quillary/AppEnvironment.h"
#include "Quillary/OpenLibrary.h"
#include "Quillary/PrintingHost.h"
#include "QuillaryCore/Assistant/Operations/AssistantActions.h"
#include "QuillaryCore/Foundation/Files.h"
#include "QuillaryCore/Foundation/Precondition.h"
#include "QuillaryCore/Model/Business.h"
#include "QuillaryCore/Model/Document.h"

#include <CLI/CLI.hpp>
#include <fmt/format.h>

#include <cstdio>
#include <string_view>
#include <utility>

namespace Quillary {

namespace {

namespace fs = std::filesystem;

constexpr std::size_t largestExample = 10'000'000;
constexpr int pictureWidth = 1240;

/// The three calls of a new user: who I am, who I bill, what for.
class ExampleMaker
{
public:
    ExampleMaker(OpenLibrary& library, AppEnvironment& environment, PrintingHost& host)
        : m_actions(library.actionsEnvironment(environment, host))
    {
    }

    ToolResult call(std::string_view tool, const JSON& arguments)
    {
        ToolResult result;
        m_actions.call(tool, arguments, [&result](ToolResult answer) { result = std::move(answer); });
        if (result.isError) {
            throw UserError(fmt::format("{}: {}", tool, result.text));
        }
        return result;
    }

private:
    AssistantActions m_actions;
};

JSON section(const JSON& example, std::string_view key, const fs::path& file)
{
    const JSON* value = example.find(key);
    if (value == nullptr || value->object() == nullptr) {
        throw UserError(fmt::format("{} has no “{}” object.", file.string(), key));
    }
    return *value;
}

/// The id of what a call made.
JSON idOf(const ToolResult& result)
{
    const JSON* id = result.data ? result.data->find("id") : nullptr;
    precondition(id != nullptr, "an answer about a record carries its id");
    return *id;
}

} // namespace

ExampleCommand::ExampleCommand(CLI::App& app)
    : m_app(app.add_subcommand("make-example", "Makes the invoice that a JSON file describes, and its PDF."))
{
    m_app->add_option("file", m_file, "The description: business, client and document.")->required();
    m_app->add_option("--output", m_output, "The folder for the library and the pages.")->type_name("FOLDER");
}

bool ExampleCommand::wasGiven() const
{
    return m_app->parsed();
}

int ExampleCommand::run(const CommandSetting& setting) const
{
    AppEnvironment& environment = setting.environment;
    const std::optional<JSON> example = JSON::parse(readFile(m_file, largestExample));
    if (!example) {
        throw UserError(fmt::format("{} isn't readable as JSON.", m_file));
    }
    const fs::path output = fs::absolute(m_output);
    const fs::path folder = setting.isLibraryNamed ? setting.library : output / "library";
    PrintingHost host(environment);
    Pages pages = pagesOf(folder, *example, environment, host); // the library is closed again: printing takes a moment
    const fs::path page = replaceFile(output / (pages.name + ".html"), pages.job.html);
    const Bytes pdf = host.printAndWait(std::move(pages.job));
    const fs::path file = replaceFile(output / (pages.name + ".pdf"), pdf);
    const fs::path picture = replaceFile(output / (pages.name + ".png"), host.pageImage(pdf, 0, pictureWidth));
    fmt::print("{}\nLibrary: {}\nPage:    {}\nPDF:     {}\nPicture: {}\n",
               pages.told,
               folder.string(),
               page.string(),
               file.string(),
               picture.string());
    return 0;
}

ExampleCommand::Pages ExampleCommand::pagesOf(const fs::path& folder,
                                              const JSON& example,
                                              AppEnvironment& environment,
                                              PrintingHost& host) const
{
    OpenLibrary open(folder, environment);
    ExampleMaker maker(open, environment, host);
    maker.call("update_business_profile", section(example, "business", m_file));
    const ToolResult client = maker.call("create_client", section(example, "client", m_file));
    JSON arguments = section(example, "document", m_file);
    arguments.set("client", idOf(client));
    const ToolResult made = maker.call("create_document", arguments);

    Context& context = open.context();
    const Document* document = context.find<Document>(made.documentID.value_or(UUID(UUID::Bytes{})));
    precondition(document != nullptr, "a document that was just made can be found");
    return {.told = made.text,
            .name = pdfFileName(context, *document, open.business(), environment.calendar()),
            .job = pageJob(context, *document, open.business(), environment.calendar())};
}

} // namespace Quillary
