#include "QuillaryCore/Lock/LockFile.h"

#include "QuillaryCore/Foundation/Files.h"
#include "tests/Support/TempFolder.h"

#include <gtest/gtest.h>

#include <functional>
#include <optional>
#include <string>
#include <sys/stat.h>

namespace Quillary {
namespace {

using std::chrono::seconds;

constexpr Instant start{std::chrono::seconds(1'770'000'000)};

std::optional<LockError::Reason> refusal(const std::function<void()>& work)
{
    try {
        work();
    } catch (const LockError& error) {
        return error.reason();
    }
    return std::nullopt;
}

TEST(LockSettingsTest, letsWaitLongerAfterEachWrongAttempt)
{
    const std::pair<int, int> cases[] = {{0, 0}, {2, 0}, {3, 5}, {4, 10}, {8, 160}, {9, 300}, {1'000, 300}};
    for (const auto& [attempts, wait] : cases) {
        const LockSettings settings{.wrongAttempts = attempts, .lastWrongAt = start};
        EXPECT_EQ(settings.wait(start), seconds(wait)) << attempts;
        EXPECT_EQ(settings.wait(start + seconds(wait)), seconds(0)) << attempts;
        EXPECT_EQ(settings.wait(start - seconds(1)), seconds(0)) << "a clock set back";
    }
}

TEST(LockSettingsTest, readsOnlyWhatItWrites)
{
    const LockSettings settings{.passphraseHash = "$argon2id$v=19$m=65536,t=2,p=1$YQ$Yg",
                                .isLocked = true,
                                .idleMinutes = 5,
                                .wrongAttempts = 2,
                                .lastWrongAt = start};
    EXPECT_EQ(LockSettings::read(settings.json().pretty()), settings);
    for (const auto& [key, value] : {std::pair<const char*, JSON>("version", 2), // a later program's
                                     {"passphrase", "secret"},
                                     {"locked", "no"},
                                     {"idleMinutes", -1},
                                     {"wrongAttempts", "3"},
                                     {"lastWrongAt", nullptr}}) {
        JSON damaged = settings.json();
        damaged.set(key, value);
        EXPECT_EQ(LockSettings::read(damaged.dump()), std::nullopt) << key;
    }
}

class LockFileTest : public testing::Test
{
protected:
    TempFolder folder;
    LockFile lock{folder / "lock.json"};
};

TEST_F(LockFileTest, opensForThePassphraseAlone)
{
    lock.lock();
    EXPECT_FALSE(lock.isLocked()); // with what would it be opened?
    EXPECT_EQ(refusal([&] { lock.setPassphrase("", "äöüéñ", start); }), LockError::Reason::tooShort);
    lock.setPassphrase("", "quill & ink", start);
    struct stat facts = {};
    ASSERT_EQ(stat(lock.path().c_str(), &facts), 0);
    EXPECT_EQ(facts.st_mode & 0777U, 0600U);
    EXPECT_EQ(readFile(lock.path(), 10'000).find("quill & ink"), std::string::npos);

    lock.lock();
    LockFile elsewhere(lock.path()); // another program of the user, or the next start
    EXPECT_TRUE(elsewhere.isLocked());
    for (int attempt = 0; attempt < 3; ++attempt) {
        EXPECT_EQ(refusal([&] { lock.unlock("quill & pen", start); }), LockError::Reason::wrong);
    }
    EXPECT_EQ(refusal([&] { elsewhere.unlock("quill & ink", start); }), LockError::Reason::tooEarly);
    EXPECT_TRUE(lock.isLocked());
    elsewhere.unlock("quill & ink", start + seconds(5));
    EXPECT_FALSE(lock.isLocked());
    EXPECT_EQ(lock.current().wrongAttempts, 0);

    EXPECT_EQ(refusal([&] { lock.setPassphrase("", "another one", start); }), LockError::Reason::wrong);
    lock.setPassphrase("quill & ink", "another one", start);
    EXPECT_EQ(refusal([&] { lock.removePassphrase("quill & ink", start); }), LockError::Reason::wrong);
    lock.removePassphrase("another one", start);
    EXPECT_FALSE(lock.hasPassphrase());
}

TEST_F(LockFileTest, staysLockedWhereTheFileIsDamagedAndOpensWhereItIsDeleted)
{
    lock.setPassphrase("", "quill & ink", start);
    replaceFile(lock.path(), "{\"version\":1}");
    EXPECT_TRUE(lock.isLocked());
    EXPECT_EQ(refusal([&] { lock.unlock("quill & ink", start); }), LockError::Reason::unusable);
    EXPECT_EQ(refusal([&] { lock.setPassphrase("", "another one", start); }), LockError::Reason::unusable);
    std::filesystem::remove(lock.path()); // the way back in
    lock.unlock("", start);
    EXPECT_FALSE(lock.isLocked());
}

} // namespace
} // namespace Quillary
