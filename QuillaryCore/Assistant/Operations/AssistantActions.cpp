#include "QuillaryCore/Assistant/Operations/AssistantActions.h"

#include "QuillaryCore/Assistant/Operations/Operations.h"
#include "QuillaryCore/Assistant/Tools/SchemaCheck.h"
#include "QuillaryCore/Foundation/Precondition.h"
#include "QuillaryCore/Foundation/Text.h"
#include "QuillaryCore/Model/Business.h"
#include "QuillaryCore/Search/LibrarySearch.h"

#include <fmt/format.h>

#include <algorithm>
#include <array>
#include <exception>
#include <utility>

namespace Quillary {

namespace {

using Environment = AssistantEnvironment;
using Reply = AssistantActions::Reply;

/// An operation that answers at once. Those that change something run in a scope of their own.
struct Operation
{
    std::string_view name;
    ToolResult (*run)(const Environment&, const Arguments&);
    Scope::Undo undo = Scope::Undo::possible;
};

/// An operation that answers when a page has been printed.
struct PrintingOperation
{
    std::string_view name;
    void (*run)(const Environment&, const Arguments&, const Reply&);
};

constexpr std::array operations = {
    Operation{"get_business_profile",
              [](const Environment& environment, const Arguments&) {
                  return BusinessOperations::profile(environment);
              }},
    Operation{"update_business_profile", BusinessOperations::update},
    Operation{"find_clients", FindOperations::clients},
    Operation{"find_catalog_items", FindOperations::catalogItems},
    Operation{"find_documents", FindOperations::documents},
    Operation{"get_unbilled_time", TimeOperations::unbilled},
    Operation{"get_money_overview", OverviewOperations::money},
    Operation{"create_client", ClientOperations::create},
    Operation{"update_client", ClientOperations::update},
    Operation{"create_document", DocumentOperations::create},
    Operation{"update_document", DocumentOperations::update},
    Operation{"get_document", DocumentOperations::show},
    Operation{"discard_document", SendingOperations::discard},
    Operation{"mark_document_sent", SendingOperations::markSent, Scope::Undo::impossible},
    Operation{"record_payment", SendingOperations::recordPayment},
};

constexpr std::array printingOperations = {
    PrintingOperation{"preview_document", DocumentOperations::preview},
    PrintingOperation{"export_document_pdf", DocumentOperations::exportPDF},
    PrintingOperation{"email_document", SendingOperations::email},
};

ToolResult
perform(const Environment& environment, const AssistantTool& tool, const Operation& operation, const JSON& given)
{
    if (tool.readOnly) {
        return operation.run(environment, Arguments(given));
    }
    auto scope = environment.context.beginScope(tool.title);
    ToolResult result = operation.run(environment, Arguments(given));
    scope.commit(operation.undo);
    return result;
}

ToolResult unknownTool(std::string_view name)
{
    return ToolResult::error(fmt::format("There's no tool called {}", repairedUTF8(name)));
}

void dispatch(const Environment& environment, const AssistantTool& tool, const JSON& given, const Reply& reply)
{
    if (const auto sentence = SchemaCheck::misfit(tool.input, given)) {
        reply(ToolResult::error(*sentence));
        return;
    }
    const auto printing = std::ranges::find(printingOperations, tool.name, &PrintingOperation::name);
    if (printing != printingOperations.end()) {
        printing->run(environment, Arguments(given), reply);
        return;
    }
    const auto operation = std::ranges::find(operations, tool.name, &Operation::name);
    if (operation != operations.end()) {
        reply(perform(environment, tool, *operation, given));
        return;
    }
    reply(unknownTool(tool.name));
}

} // namespace

AssistantActions::AssistantActions(AssistantEnvironment environment)
    : m_environment(std::move(environment))
{
    if (m_environment.search == nullptr) {
        m_ownSearch = std::make_unique<LibrarySearch>(m_environment.context);
        m_environment.search = m_ownSearch.get();
    }
}

AssistantActions::~AssistantActions() = default;

void AssistantActions::call(std::string_view name, const JSON& arguments, const Reply& reply)
{
    const AssistantTool* tool = ToolCatalogue::find(name);
    if (tool == nullptr) {
        reply(unknownTool(name));
        return;
    }
    // Whoever shows an answer puts something behind it: it ends without a line break.
    const Reply whole = [reply](ToolResult result) {
        result.text.erase(result.text.find_last_not_of('\n') + 1);
        reply(std::move(result));
    };
    try {
        dispatch(m_environment, *tool, arguments, whole);
    } catch (const UserError& error) {
        reply(ToolResult::error(error.message()));
    } catch (const std::bad_alloc&) {
        reply(ToolResult::error("There isn't enough memory for this."));
    } catch (const std::exception& error) {
        reply(ToolResult::error(fmt::format("That didn't work: {}", error.what())));
    }
}

} // namespace Quillary
