#include "QuillaryCore/Store/BackupName.h"

#include "QuillaryCore/Foundation/Text.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <string>
#include <string_view>
#include <utility>
#include <vector>

namespace Quillary {

namespace {

using std::chrono::days;
using std::chrono::hours;
using std::chrono::local_days;
using std::chrono::minutes;
using std::chrono::seconds;
using std::chrono::sys_days;
using std::chrono::year;
using testing::ElementsAre;
using testing::IsEmpty;

TEST(BackupNameTest, readsWhatItWrites)
{
    const auto made = local_days(year{2026} / 11 / 21) + hours(9) + minutes(3) + seconds(0);
    const std::pair<BackupName, std::string_view> cases[] = {
        {{BackupKind::automatic, local_days(year{2026} / 2 / 28)}, "Quillary Auto Backup 2026-02-28.sqlite"},
        {{BackupKind::manual, made}, "Quillary Backup 2026-11-21 09.03.00.sqlite"},
        {{BackupKind::beforeRestore, made}, "Quillary Before Restore 2026-11-21 09.03.00.sqlite"},
        {{BackupKind::beforeUpgrade, made}, "Library before upgrade 2026-11-21 09.03.00.sqlite"},
    };
    for (const auto& [name, text] : cases) {
        EXPECT_EQ(name.text(), text);
        EXPECT_EQ(BackupName::parse(text), name) << text;
    }
    EXPECT_EQ(BackupName::parse("Quillary Backup 2026-11-21 09.03.00 (12).sqlite"), cases[1].first);
}

TEST(BackupNameTest, leavesOtherFilesAlone)
{
    // A numbered automatic one is a copy that a person made, never removed; a manual one has a time.
    for (const std::string_view time :
         split("2026-11-21|2026-11-21 24.00.00|2026-11-21 9.03.000|2026-11-21 09.-3.00|2026-11-21 09.03.00 (x)|"
               "2026-11-21 09.03.00 ()",
               '|')) {
        EXPECT_EQ(BackupName::parse("Quillary Backup " + std::string(time) + ".sqlite"), std::nullopt) << time;
    }
    for (const std::string_view day : split("2026-11-21 (2)|2026-02-30|2026-11-21 09.03.00|", '|')) {
        EXPECT_EQ(BackupName::parse("Quillary Auto Backup " + std::string(day) + ".sqlite"), std::nullopt) << day;
    }
    for (const std::string_view name : {"Quillary Auto Backup 2026-11-21.sqlite-wal",
                                        "my Quillary Backup 2026-11-21 09.03.00.sqlite",
                                        "Library.sqlite",
                                        ""}) {
        EXPECT_EQ(BackupName::parse(name), std::nullopt) << name;
    }
}

TEST(BackupNameTest, keepsTwoWeeksAndTheEndOfEachMonth)
{
    const auto from = [](CalendarDate first, CalendarDate last) {
        std::vector<CalendarDate> made;
        for (sys_days day = first; day <= sys_days(last); day += days(1)) {
            made.emplace_back(day);
        }
        return made;
    };
    // A year, pruned every day as the program does.
    std::vector<CalendarDate> kept;
    for (const CalendarDate today : from(year{2027} / 11 / 10, year{2028} / 3 / 20)) {
        kept.push_back(today);
        for (const CalendarDate day : expendableBackups(kept, today)) {
            std::erase(kept, day);
        }
    }
    std::vector<CalendarDate> expected{
        year{2027} / 11 / 30, year{2027} / 12 / 31, year{2028} / 1 / 31, year{2028} / 2 / 29};
    for (const CalendarDate day : from(year{2028} / 3 / 7, year{2028} / 3 / 20)) {
        expected.push_back(day);
    }
    EXPECT_EQ(kept, expected);
}

TEST(BackupNameTest, keepsTheNewestWhateverTheirAge)
{
    const CalendarDate today = year{2026} / 11 / 21;
    std::vector<CalendarDate> old;
    for (int day = 1; day <= 14; ++day) {
        old.push_back(year{2020} / 5 / day);
    }
    EXPECT_THAT(expendableBackups(old, today), IsEmpty()); // after years away nothing is lost at once
    old.push_back(today);
    EXPECT_THAT(expendableBackups(old, today), ElementsAre(year{2020} / 5 / 1));
    // A wrong clock made these; they neither go nor push others out.
    for (int day = 1; day <= 20; ++day) {
        old.push_back(year{2099} / 1 / day);
    }
    EXPECT_THAT(expendableBackups(old, today), ElementsAre(year{2020} / 5 / 1));
}

} // namespace

} // namespace Quillary
