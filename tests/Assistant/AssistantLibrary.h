#pragma once

#include "QuillaryCore/Assistant/Operations/AssistantActions.h"
#include "QuillaryCore/Model/Business.h"
#include "QuillaryCore/Model/BusinessDefaults.h"
#include "QuillaryCore/Model/DataModel.h"
#include "QuillaryCore/Store/Context.h"
#include "QuillaryCore/Store/Store.h"
#include "tests/Assistant/FakeHost.h"

#include <gtest/gtest.h>

#include <string>
#include <string_view>
#include <utility>

namespace Quillary {

/// A German business in an empty library on 17 March 2026, with the tools on it.
class AssistantLibrary
{
public:
    AssistantLibrary()
        : AssistantLibrary(Store::Location::inMemory())
    {
    }

    explicit AssistantLibrary(Store::Location location)
        : clock(std::chrono::sys_days(std::chrono::year(2026) / 3 / 17) + std::chrono::hours(11))
        , store(std::move(location), DataModel::records(), DataModel::history(), clock, uuids)
        , context(store, clock, uuids)
        , calendar("Europe/Berlin")
        , business(makeFirstBusiness(context, Locale("en_DE")).ref)
        , actions(environment(&host, "Test Assistant"))
    {
        context.save();
    }

    /// What sessions and actions on this library work with.
    AssistantEnvironment environment(AssistantHost* printer = nullptr, std::string assistantName = "")
    {
        return {.context = context,
                .business = business,
                .host = printer,
                .assistantName = std::move(assistantName),
                .clock = clock,
                .calendar = calendar,
                .locale = Locale("en_DE")};
    }

    /// Calls a tool with arguments written as JSON.
    ToolResult call(std::string_view tool, std::string_view arguments)
    {
        const std::optional<JSON> given = JSON::parse(arguments);
        EXPECT_TRUE(given) << arguments;
        ToolResult result;
        int answers = 0;
        actions.call(tool, given.value_or(JSON()), [&](ToolResult answer) {
            result = std::move(answer);
            answers += 1;
        });
        EXPECT_EQ(answers, 1) << tool;
        return result;
    }

    /// The sentence of a call that must fail.
    std::string refusal(std::string_view tool, std::string_view arguments)
    {
        const ToolResult result = call(tool, arguments);
        EXPECT_TRUE(result.isError) << arguments << "\n" << result.text;
        return result.text;
    }

    /// The data of a call that must succeed.
    JSON data(std::string_view tool, std::string_view arguments)
    {
        const ToolResult result = call(tool, arguments);
        EXPECT_FALSE(result.isError) << arguments << "\n" << result.text;
        return result.data.value_or(JSON());
    }

    FixedClock clock;
    CountingUUIDSource uuids;
    Store store;
    Context context;
    Calendar calendar;
    Ref<Business> business;
    FakeHost host;
    AssistantActions actions;
};

/// A member of an object as JSON text; empty where there is none.
inline std::string member(const JSON& object, std::string_view key)
{
    const JSON* value = object.find(key);
    return value == nullptr ? "" : value->dump();
}

} // namespace Quillary
