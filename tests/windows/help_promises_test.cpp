// What the help tells about the window itself: the buttons of the toolbar, the parts of the status bar, and what is
// kept until the next start. The sentences are read from the built pages, so that they and the program stay the same.

#include <windows.h>

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <regex>

#include "resources/ids.h"
#include "tests/windows/help_viewers.h"
#include "tests/windows/passage_pane.h"
#include "tests/windows/search_steps.h"

using testing::Contains;
using testing::HasSubstr;
using testing::StartsWith;

static std::string PageOf(const Program& program, const std::string& topic) {
    const std::string page = ReadFile(program.folder, "help\\" + topic + ".html");
    EXPECT_FALSE(page.empty()) << topic;
    return std::regex_replace(page, std::regex("\\s+"), " ");
}

static std::string SentencesOf(const Program& program, const std::string& topic) {
    return std::regex_replace(PageOf(program, topic), std::regex("<[^>]*>"), "");
}

// The names of buttons on the page about the toolbar, in order. A way through the menus has a comma.
static std::vector<std::string> ButtonsOnPage(const Program& program) {
    const std::string page = PageOf(program, "ID_Toolbar");
    const std::regex emphasized("<em>([^<,]*)</em>");
    std::vector<std::string> names;
    for (std::sregex_iterator hit(page.begin(), page.end(), emphasized), end; hit != end; ++hit)
        names.push_back((*hit)[1]);
    return names;
}

TEST(HelpOnToolbar, NamesTheButtonsInOrderAsTheirTipsDo) {
    const Program program = StartProgram(FolderWithHelp());
    const std::vector<std::string> names = ButtonsOnPage(program);
    std::vector<std::string> tips;
    for (const ToolButton& button : ToolButtons(program))
        if (button.command != 0) tips.push_back(ToolTip(program, button.command));
    ASSERT_EQ(names.size(), tips.size());
    for (std::size_t i = 0; i < names.size(); ++i) EXPECT_THAT(tips[i], StartsWith(names[i]));
    EXPECT_THAT(SentencesOf(program, "ID_Toolbar"), HasSubstr("View, Toolbar hides and shows the toolbar."));
    Command(program, IDM_VIEW_TOOLBAR);
    EXPECT_FALSE(IsShown(Child(program.frame, {IDC_TOOLBAR})));
}

TEST(HelpOnStatusBar, TellsWhatItsPartsShowInOrder) {
    Program program = StartProgram(FolderWithHelp());
    Command(program, IDM_BIND_NOTES);  // off, so that the note's verse is not that of the Passage
    SetSearchRange(program, "Ge - Ex");
    SearchFor(program, {.text = "grace"});
    GoTo(program, "Joh 3:16");
    const struct {
        const char* sentence;
        const char* shown;
    } rows[] = {
        {"how many verses the last search found and how often the words occur in them", "16 verses, 17 occurrences"},
        {"the verse at the top of the Verse List", "Genesis 6:8"},
        {"the verse of the note", "Genesis 1:1"},
        {"the verse at the top of the Passage", "John 3:16"},
        {"the search range", "Ge 1:1 - Ex 40:38"},
    };
    const std::string page = SentencesOf(program, "ID_Toolbar");
    std::size_t place = page.find("five parts");
    for (int part = 0; part < 5; ++part) {
        place = page.find(rows[part].sentence, place);
        EXPECT_NE(place, std::string::npos) << rows[part].sentence;
        EXPECT_EQ(StatusPart(program, part), rows[part].shown);
    }
    EXPECT_THAT(page, HasSubstr("This part is empty while the Reference List is shown."));
    ClickTab(program, Child(program.frame, {IDC_LIST_TABS}), 1);
    EXPECT_EQ(StatusPart(program, 1), "");
}

TEST(HelpOnStart, TellsWhatIsKept) {
    Program program = StartProgram(FolderWithHelp());
    SetSearchRange(program, "Mt - Re");
    SearchFor(program, {.text = "grace", .caseSensitive = true});
    GoTo(program, "Joh 3:16");
    Press(program, "Ctrl+Alt+1");
    Command(program, IDM_PARAGRAPH_FORMAT);
    Press(program, "F4");
    const std::string page = SentencesOf(program, "ID_FirstSteps");
    const ScratchFolder folder = program.folder;
    EXPECT_EQ(CloseProgram(program), 0);
    program = StartProgram(folder);

    EXPECT_THAT(page,
                HasSubstr("it shows the verse and the note that you were reading. Your options, fonts, bookmarks, "
                          "the search range and the search options, your last searches, and the size and the "
                          "panes of the window are as they were"));
    EXPECT_EQ(StatusPart(program, 3), "John 3:16");
    EXPECT_EQ(StatusPart(program, 2), "John 3:16");
    EXPECT_EQ(StatusPart(program, 4), "Mt 1:1 - Re 22:21");
    EXPECT_THAT(MenuText(program, IDM_GOTO_BOOKMARK), StartsWith("John 3:16"));
    EXPECT_TRUE(IsTicked(program, IDM_PARAGRAPH_FORMAT));
    EXPECT_FALSE(IsTicked(program, IDM_VIEW_NOTES));

    EXPECT_THAT(page, HasSubstr("The list of verses found and the margins of the page are not kept, and the search "
                                "fields are empty."));
    EXPECT_TRUE(IsGreyed(program, IDM_CONTEXT));
    EXPECT_EQ(StatusPart(program, 0), "");
    const HWND dialog = OpenSearchDialog(program, IDM_WORD_SEARCH);
    EXPECT_EQ(TextOf(dialog, IDC_SEARCH_TEXT), "");
    EXPECT_THAT(ComboStrings(GetDlgItem(dialog, IDC_SEARCH_TEXT)), Contains("grace"));
    EXPECT_TRUE(IsChecked(dialog, IDC_CASE_SENSITIVE));
}
