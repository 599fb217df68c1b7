#include "QuillaryCore/Assistant/Access/AssistantSettings.h"

#include "QuillaryCore/Assistant/Access/AssistantSettingsFile.h"
#include "QuillaryCore/Foundation/FileLock.h"
#include "QuillaryCore/Foundation/UserError.h"
#include "tests/Support/TempFolder.h"

#include <gtest/gtest.h>

#include <filesystem>
#include <string>
#include <thread>
#include <vector>

namespace Quillary {
namespace {

template <class Action>
bool isRefused(const Action& action)
{
    try {
        action();
    } catch (const UserError&) {
        return true;
    }
    return false;
}

void turnOn(AssistantSettings& settings)
{
    settings.isOn = true;
}

AssistantSettings everyKind()
{
    AssistantSettings settings{.isOn = true, .access = AssistantAccess::everything};
    settings.decide("Claude", AssistantApproval::allowed);
    settings.decide("Zed “x” \\ ü", AssistantApproval::denied);
    settings.keepWaiting("Cursor", Instant(std::chrono::milliseconds(1'772'000'000'123)));
    return settings;
}

TEST(AssistantSettingsTest, comesBackAsItWasWritten)
{
    EXPECT_EQ(AssistantSettings::read(everyKind().json().pretty()), everyKind());
    EXPECT_EQ(AssistantSettings::read(AssistantSettings().json().dump()), AssistantSettings());
    EXPECT_FALSE(AssistantSettings().isOn);
}

TEST(AssistantSettingsTest, takesDamagedSettingsForOffAndKeepsThem)
{
    const std::string good = everyKind().json().dump();
    const auto with = [&](std::string_view part, std::string_view other) {
        std::string text = good;
        return text.replace(text.find(part), part.size(), other);
    };
    const std::string damaged[] = {
        "",
        good.substr(0, good.size() / 2), // torn
        "[]",
        with("\"version\":1", "\"version\":2"), // of a newer program, which may mean something else by it
        with("\"on\":true", "\"on\":1"),
        with("\"access\":2", "\"access\":3"), // no level
        with("\"access\":2", "\"access\":65536"),
        with("\"allowed\"", "\"sure\""),
        with("Cursor", "Claude"), // allowed and waiting at once
        with("Cursor", "a\\u001b[2J"),
        with("\"asked\":\"2026", "\"asked\":\"20x6"),
    };
    for (const std::string& text : damaged) {
        TempFolder folder;
        AssistantSettingsFile file(folder.write("assistants.json", text));
        EXPECT_FALSE(file.current().isOn) << text;
        EXPECT_TRUE(file.current().assistants.empty()) << text;
        ASSERT_TRUE(file.problem().has_value()) << text;
        EXPECT_NE(file.problem()->find("can't be understood, so AI assistants are turned off"), std::string::npos);

        const auto kept = file.change(turnOn);
        ASSERT_TRUE(kept.has_value()) << text;
        EXPECT_EQ(folder.read(kept->filename().string()), text);
        EXPECT_TRUE(file.current().isOn);
        EXPECT_FALSE(file.problem().has_value());
        EXPECT_FALSE(file.change([](AssistantSettings& settings) { settings.isOn = false; }).has_value());
    }
}

TEST(AssistantSettingsTest, isOffWhereTheFileCantBeRead)
{
    const TempFolder folder;
    std::filesystem::create_directory(folder / "assistants.json");
    AssistantSettingsFile file(folder / "assistants.json");
    EXPECT_FALSE(file.current().isOn);
    EXPECT_TRUE(file.problem().has_value());
    EXPECT_TRUE(isRefused([&] { file.change(turnOn); }));
}

TEST(AssistantSettingsTest, losesNoChangeOfSeveralPrograms)
{
    const TempFolder folder;
    const auto path = folder / "new/folder/assistants.json";
    const auto allowTen = [&path](const std::string& prefix) {
        AssistantSettingsFile file(path);
        for (int number = 0; number < 10; ++number) {
            file.change([&](AssistantSettings& settings) {
                settings.decide(prefix + std::to_string(number), AssistantApproval::allowed);
            });
        }
    };
    std::vector<std::thread> programs;
    programs.reserve(4);
    for (const char* prefix : {"a", "b", "c", "d"}) {
        programs.emplace_back(allowTen, prefix);
    }
    for (std::thread& program : programs) {
        program.join();
    }
    EXPECT_EQ(AssistantSettingsFile(path).current().assistants.size(), 40);

    const FileLock held(path);
    EXPECT_TRUE(isRefused([&] { const FileLock second(path, std::chrono::milliseconds(20)); }));
}

} // namespace
} // namespace Quillary
