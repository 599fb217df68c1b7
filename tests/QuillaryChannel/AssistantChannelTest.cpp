#include "QuillaryChannel/AssistantChannel.h"

#include "tests/Support/TempFolder.h"

#include <gtest/gtest.h>

#include <array>
#include <filesystem>
#include <string>
#include <sys/stat.h>
#include <unistd.h>

namespace Quillary {
namespace {

namespace fs = std::filesystem;
using AssistantChannel::Places;

Places placesIn(const TempFolder& folder)
{
    Places places;
    places.runtimeBase = folder / "run";
    places.temporaryBase = folder / "tmp";
    fs::create_directories(places.runtimeBase);
    fs::create_directories(places.temporaryBase);
    return places;
}

fs::path runtimeFolder(const Places& places)
{
    return fs::path(places.runtimeBase) / std::to_string(places.user);
}

fs::path temporaryFolder(const Places& places)
{
    return fs::path(places.temporaryBase) / ("org.quillary.Quillary.mcp-" + std::to_string(places.user));
}

TEST(AssistantChannelTest, findsTheSocketByTheUserAlone)
{
    const TempFolder folder;
    const Places places = placesIn(folder);
    const std::array<const char*, 3> nothing = {"PATH=/bin", "QUILLARY_ASSISTANT_SOCKET=", nullptr};
    const std::array<const char*, 3> named = {
        "QUILLARY_ASSISTANT_SOCKET_OTHER=/no", "QUILLARY_ASSISTANT_SOCKET=/a/b=c", nullptr};
    const std::string temporary = temporaryFolder(places).string() + "/org.quillary.Quillary.mcp";
    EXPECT_EQ(AssistantChannel::socketPath(named.data(), places), "/a/b=c");
    EXPECT_EQ(AssistantChannel::socketPath(nothing.data(), places), temporary);
    EXPECT_EQ(fs::status(temporaryFolder(places)).permissions(), fs::perms::owner_all);
    EXPECT_EQ(AssistantChannel::socketPath(nullptr, places), temporary) << "the folder is there now";

    fs::create_directory(runtimeFolder(places));
    fs::permissions(runtimeFolder(places), fs::perms::owner_all);
    EXPECT_EQ(AssistantChannel::socketPath(nothing.data(), places),
              runtimeFolder(places).string() + "/org.quillary.Quillary.mcp");
    fs::permissions(runtimeFolder(places), fs::perms::all);
    EXPECT_EQ(AssistantChannel::socketPath(nothing.data(), places), temporary) << "others may write to it";
}

TEST(AssistantChannelTest, refusesAFolderThatIsNotTheUsersAlone)
{
    struct Case
    {
        const char* reason;
        void (*prepare)(const Places&);
    };
    const Case cases[] = {
        {"it is not a folder", // a link that leads to a good folder
         [](const Places& places) {
             fs::create_directory(fs::path(places.temporaryBase) / "other");
             fs::permissions(fs::path(places.temporaryBase) / "other", fs::perms::owner_all);
             fs::create_directory_symlink("other", temporaryFolder(places));
         }},
        {"it is not its owner's alone",
         [](const Places& places) {
             fs::create_directory(temporaryFolder(places));
             fs::permissions(temporaryFolder(places), fs::perms::owner_all | fs::perms::group_read);
         }},
        {"Couldn't make the folder",
         [](const Places& places) {
             fs::remove(places.temporaryBase);
         }},
    };
    for (const Case& example : cases) {
        const TempFolder folder;
        const Places places = placesIn(folder);
        example.prepare(places);
        try {
            const std::string path = AssistantChannel::userTemporaryDirectory(places);
            ADD_FAILURE() << example.reason << ": " << path;
        } catch (const AssistantChannel::Error& error) {
            EXPECT_NE(std::string(error.what()).find(example.reason), std::string::npos) << error.what();
        }
    }
    const TempFolder folder;
    Places others = placesIn(folder);
    ++others.user;
    EXPECT_THROW(static_cast<void>(AssistantChannel::userTemporaryDirectory(others)), AssistantChannel::Error);
}

TEST(AssistantChannelTest, makesAddressesOfAtMost103Bytes)
{
    const std::string longest(103, 'x');
    const auto address = AssistantChannel::address(longest);
    ASSERT_TRUE(address.has_value());
    EXPECT_EQ(address->record.sun_path, longest);
    EXPECT_EQ(address->length, 106);
    EXPECT_EQ(address->record.sun_family, AF_UNIX);
    EXPECT_FALSE(AssistantChannel::address(longest + "x").has_value());
    EXPECT_FALSE(AssistantChannel::address("").has_value());
    EXPECT_FALSE(AssistantChannel::address(std::string_view("a\0b", 3)).has_value()) << "would be cut silently";
}

TEST(AssistantChannelTest, knowsWhoIsAtTheOtherEnd)
{
    std::array<int, 2> ends{};
    ASSERT_EQ(socketpair(AF_UNIX, SOCK_STREAM, 0, ends.data()), 0);
    EXPECT_TRUE(AssistantChannel::isPeerOf(geteuid(), ends[0]));
    EXPECT_FALSE(AssistantChannel::isPeerOf(geteuid() + 1, ends[0]));
    close(ends[0]);
    close(ends[1]);
    EXPECT_FALSE(AssistantChannel::isPeerOf(geteuid(), ends[0])) << "no socket";
}

} // namespace
} // namespace Quillary
