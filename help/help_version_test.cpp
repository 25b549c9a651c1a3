// One version everywhere: the number comes from CMake's project().

#include <string>

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include "help/made_help.h"

using testing::HasSubstr;
using testing::Not;

TEST(Version, IsInTheHelp) {
    const std::string text = HelpPages().at("ID_Questions").text;
    EXPECT_THAT(text, HasSubstr("This help is of version " VERSEWELL_VERSION "."));
    EXPECT_THAT(text, Not(HasSubstr("%VERSION%")));
}

TEST(Version, HasTheFirstHeadingOfTheListOfChanges) {
    const std::string changes = FileBytes(VERSEWELL_SOURCE_DIR "/CHANGELOG.md");
    const std::size_t heading = changes.find("\n## ");
    ASSERT_NE(heading, std::string::npos);
    EXPECT_EQ(changes.substr(heading + 1, changes.find('\n', heading + 1) - heading - 1), "## " VERSEWELL_VERSION);
}
