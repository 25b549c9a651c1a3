#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <algorithm>
#include <set>

#include "resources/resource_script.h"
#include "resources/script_fixture.h"

using testing::ElementsAre;

namespace {

struct ExpectedItem {
    int command;
    const char* text;
};

}  // namespace

static constexpr ExpectedItem kCommands[] = {
    {101, "&About"},
    {102, "E&xit\tAlt+F4"},
    {103, "&Topics\tF1"},
    {105, "&Word(s)...\tAlt+W"},
    {106, "&Phrase...\tAlt+P"},
    {108, "Con&text\tF12"},
    {109, "&Paragraph Format"},
    {110, "Italicized words in &Italic text"},
    {111, "Italicized words in &Brackets"},
    {112, "Italicized words in &Normal text"},
    {116, "&Go to Verse...\tAlt+G"},
    {119, "Previous Chapte&r\tCtrl+PgUp"},
    {120, "Next &Chapter\tCtrl+PgDn"},
    {121, "Previous Boo&k\tCtrl+Home"},
    {122, "Next &Book\tCtrl+End"},
    {123, "Word &List...\tAlt+L"},
    {125, "&Verse List Window\tF2"},
    {126, "&Passage Window\tF3"},
    {127, "&Notes Window\tF4"},
    {128, "&Toolbar"},
    {129, "Copy &Verse...\tF5"},
    {130, "Copy &Range...\tF6"},
    {131, "Copy Verse &List\tF7"},
    {132, "Copy Verse Re&ferences\tF8"},
    {133, "&Save Range..."},
    {134, "Save Verse &List..."},
    {135, "&Verse List..."},
    {137, "&Passage Window..."},
    {138, "&Notes Window..."},
    {139, "Genesis 1:1\tCtrl+1"},
    {140, "Genesis 1:1\tCtrl+2"},
    {147, "Genesis 1:1\tCtrl+9"},
    {148, "Genesis 1:1\tCtrl+0"},
    {149, "Set 1\tCtrl+Alt+1"},
    {157, "Set 9\tCtrl+Alt+9"},
    {158, "Set 10\tCtrl+Alt+0"},
    {159, "For&mat..."},
    {160, "Key Highlight &Color..."},
    {161, "Cu&t\tCtrl+X"},
    {162, "&Copy\tCtrl+C"},
    {163, "&Paste\tCtrl+V"},
    {165, "Set &Range..."},
    {166, "Specifying a &Range of Verses"},
    {167, "&Preface to the AV1611"},
    {169, "&Go to Note for Verse...\tAlt+N"},
    {170, "Previous Not&e\tAlt+Up"},
    {171, "Next &Note\tAlt+Down"},
    {172, "Previous Note Se&t\tAlt+Left"},
    {173, "Next Note &Set\tAlt+Right"},
    {174, "Note for Verse in &Passage\tF10"},
    {175, "Note for Verse in Verse &List\tF9"},
    {176, "E&dit Current Note\tAlt+E"},
    {177, "Search &Notes...\tAlt+T"},
    {178, "&Create New Note Set..."},
    {179, "&Delete Current Note Set..."},
    {180, "&Rename Current Note Set..."},
    {181, "Verse for &Note\tF11"},
    {182, "Today's &Proverb"},
    {183, "&Bind Notes to Passage Window"},
    {184, "Page Se&tup..."},
    {185, "&Print Range..."},
    {186, "Pr&int Verse List..."},
    {191, "This &Morning"},
    {192, "This &Evening"},
    {300, "Earlier Notes for this &Verse..."},
    {301, "&Earlier States..."},
    {302, "&Merge Sets..."},
    {307, "&Take Over Notes..."},
    {303, "&Undo\tCtrl+Z"},
    {304, "Re&do\tCtrl+Y"},
    {305, "Select &All\tCtrl+A"},
    {320, "&Off"},
    {321, "O&n"},
    {322, "&As the System"},
    {330, "B&ack\tBackspace"},
    {331, "&Forward\tShift+Backspace"},
    {332, "&Larger\tCtrl+Plus"},
    {333, "&Smaller\tCtrl+Minus"},
    {340, "&Hits by Book\tShift+F2"},
    {341, "Copy &Hits by Book\tShift+F7"},
    {350, "L&ist Notes...\tCtrl+L"},
    {351, "Notes &About This Verse\tCtrl+B"},
    {370, "&Export Notes..."},
    {371, "I&mport Notes..."},
    {360, "Words Ne&ar Each Other...\tAlt+A"},
    {1001, "Genesis"},
    {1009, "1 Samuel"},
    {1022, "Song of Solomon"},
    {1040, "Matthew"},
    {1064, "3 John"},
    {1066, "Revelation"},
};

// Commands that have a key but no menu item.
static constexpr ExpectedItem kKeysAlone[] = {{113, "Alt+1"}, {114, "Alt+2"}, {306, "Alt+3"}, {164, "Shift+F10"}};

// Further keys of commands, whose menu items show another one.
static constexpr ExpectedItem kFurtherKeys[] = {{332, "Ctrl+Shift+Plus"}, {332, "Ctrl+ADD"}, {333, "Ctrl+SUBTRACT"}};

static constexpr int kToolbar[] = {161, 162, 163, 129, 130, 131, 132, 105, 106, 123, 177,
                                   116, 169, 108, 175, 174, 181, 176, 125, 126, 127, 103};

static constexpr int kFirstReading = 2000;

// The menu items for `command`; only a reading can have several, because days may share a verse.
static std::vector<MenuItem> ItemsOf(int command) {
    std::vector<MenuItem> found;
    for (const MenuItem& item : Script().menu)
        if (item.command == command) found.push_back(item);
    return found;
}

static std::string KeyShownIn(const std::string& text) {
    const std::size_t tab = text.find('\t');
    return tab == std::string::npos ? "" : text.substr(tab + 1);
}

static std::string KeyOf(int command) {
    for (const Accelerator& accelerator : Script().accelerators)
        if (accelerator.command == command) return accelerator.key;
    return "";
}

static bool IsFurtherKey(const Accelerator& accelerator) {
    return std::ranges::any_of(kFurtherKeys, [&](const ExpectedItem& expected) {
        return expected.command == accelerator.command && expected.text == accelerator.key;
    });
}

TEST(Menu, BarHasTheExpectedPopups) {
    EXPECT_THAT(Script().bar, ElementsAre("&File", "&Edit", "&Search", "&Read", "&Notes", "&Bookmarks", "&Devotional",
                                          "&Options", "&View", "&Help"));
}

TEST(Menu, EveryCommandOccursOnceWithItsText) {
    for (const ExpectedItem& expected : kCommands) {
        const std::vector<MenuItem> items = ItemsOf(expected.command);
        ASSERT_EQ(items.size(), 1u) << expected.command;
        EXPECT_EQ(items[0].text, expected.text) << expected.command;
    }
}

TEST(Menu, HasNoOtherCommands) {
    std::set<int> known;
    for (const ExpectedItem& expected : kCommands) known.insert(expected.command);
    for (int command = 139; command <= 158; ++command) known.insert(command);
    for (int command = 1001; command <= 1066; ++command) known.insert(command);
    for (const MenuItem& item : Script().menu)
        if (item.command < kFirstReading) {
            EXPECT_TRUE(known.contains(item.command)) << item.text;
        }
    for (int command : known) EXPECT_EQ(ItemsOf(command).size(), 1u) << command;
}

TEST(Menu, ListsTheBooksInThreeColumns) {
    std::vector<int> columns;
    int next = 1001;
    for (const MenuItem& item : Script().menu) {
        if (item.popups.back() != "Go to &Book") continue;
        EXPECT_EQ(item.command, next++);
        if (item.newColumn) columns.push_back(item.command);
    }
    EXPECT_EQ(next, 1067);
    EXPECT_THAT(columns, ElementsAre(1018, 1040));  // Job and Matthew
}

TEST(Menu, AccessKeysAreUniqueInEachPopup) {
    std::set<std::pair<std::string, char>> taken;
    std::vector<std::string> clashes;
    auto take = [&](const std::string& popup, const std::string& text) {
        const char key = AccessKey(text);
        if (key != 0 && !taken.insert({popup, key}).second) clashes.push_back(text);
    };
    for (const std::string& popup : Script().popups) {
        const std::size_t slash = popup.rfind('/');
        take(slash == std::string::npos ? "" : popup.substr(0, slash), popup.substr(slash + 1));
    }
    for (const MenuItem& item : Script().menu) {
        std::string popup;
        for (const std::string& name : item.popups) popup += (popup.empty() ? "" : "/") + name;
        take(popup, item.text);
    }
    EXPECT_THAT(clashes, ElementsAre("Next &Book\tCtrl+End"));  // deliberate clash with "Go to &Book"
}

TEST(Accelerators, MatchTheKeysShownInTheMenu) {
    for (const MenuItem& item : Script().menu) {
        if (item.command == 102) continue;                         // Alt+F4 is the system's
        if (item.command == 330 || item.command == 331) continue;  // keys of the panes
        EXPECT_EQ(KeyShownIn(item.text), KeyOf(item.command)) << item.text;
    }
}

TEST(Accelerators, ExistForCommandsWithoutMenuItems) {
    for (const ExpectedItem& expected : kKeysAlone) {
        EXPECT_EQ(KeyOf(expected.command), expected.text);
        EXPECT_TRUE(ItemsOf(expected.command).empty()) << expected.command;
    }
}

TEST(Accelerators, AreUnique) {
    std::set<std::string> keys;
    std::set<int> commands;
    for (const Accelerator& accelerator : Script().accelerators) {
        EXPECT_TRUE(keys.insert(accelerator.key).second) << accelerator.key;
        const bool isFurther = IsFurtherKey(accelerator);
        EXPECT_NE(commands.insert(accelerator.command).second, isFurther) << accelerator.key;
        const bool alone = std::any_of(std::begin(kKeysAlone), std::end(kKeysAlone), [&](const ExpectedItem& expected) {
            return expected.command == accelerator.command;
        });
        EXPECT_EQ(ItemsOf(accelerator.command).empty(), alone) << accelerator.key;
    }
    EXPECT_EQ(keys.size(), 67u);
}

TEST(Toolbar, HasOnlyCommandsOfTheMenu) {
    for (int command : kToolbar) EXPECT_EQ(ItemsOf(command).size(), 1u) << command;
}
