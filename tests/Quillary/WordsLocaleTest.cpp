#include "Quillary/WordsLocale.h"

#include <gtest/gtest.h>

#include <map>

namespace Quillary {
namespace {

TEST(WordsLocaleTest, isWhatTheDesktopWantsProgramsToSpeak)
{
    using Variables = std::map<std::string, std::string>;
    const std::pair<Variables, const char*> cases[] = {
        {{}, "en"},
        {{{"LANG", "de_AT.UTF-8"}}, "de_AT"},
        {{{"LANG", "de_DE.UTF-8"}, {"LC_MESSAGES", "en_US.UTF-8"}}, "en_US"}, // German figures, English words
        {{{"LANG", "de_DE.UTF-8"}, {"LC_ALL", "C.UTF-8"}}, "en"},
        {{{"LANG", "en_US.UTF-8"}, {"LANGUAGE", "de_CH:fr"}}, "de_CH"},
        {{{"LANG", "C"}, {"LANGUAGE", "de"}}, "en"}, // gettext's own rule: scripts stay in English
    };
    for (const auto& [variables, expected] : cases) {
        const Locale words = wordsLocale([&set = variables](const char* name) {
            const auto found = set.find(name);
            return found == set.end() ? std::string() : found->second;
        });
        EXPECT_EQ(words.identifier(), Locale(expected).identifier()) << testing::PrintToString(variables);
    }
}

} // namespace
} // namespace Quillary
