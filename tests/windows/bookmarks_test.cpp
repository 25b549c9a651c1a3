// The ten bookmarks: their menu items, setting them, going to them, and saving them.

#include <gtest/gtest.h>

#include "resources/ids.h"
#include "tests/windows/note_steps.h"
#include "tests/windows/painted_lines.h"
#include "tests/windows/passage_pane.h"
#include "tests/windows/search_steps.h"

static constexpr int kCount = 10;

// The digit key of the bookmark with this zero-based number; the tenth has 0.
static std::string DigitOf(int number) {
    return std::to_string((number + 1) % kCount);
}

static std::string LabelOf(const Program& program, int number) {
    return MenuText(program, IDM_GOTO_BOOKMARK + number);
}

TEST(Bookmarks, DefaultToGenesis) {
    Program program = StartProgram(FolderWithScripture());
    for (int number = 0; number < kCount; ++number) {
        EXPECT_EQ(LabelOf(program, number), "Genesis 1:1\tCtrl+" + DigitOf(number));
        EXPECT_EQ(MenuText(program, IDM_SET_BOOKMARK + number),
                  "Set " + std::to_string(number + 1) + "\tCtrl+Alt+" + DigitOf(number));
        Command(program, IDM_GOTO_BOOK + 66);
        Press(program, "Ctrl+" + DigitOf(number));
        EXPECT_EQ(Top(program), "Genesis 1:1") << number;
    }
}

static std::string FirstVerseOf(const Program& program, int book) {
    return MenuText(program, IDM_GOTO_BOOK + book) + " 1:1";
}

TEST(Bookmarks, AreSetAndReachedByKeysAndSaved) {
    const ScratchFolder folder = FolderWithScripture();
    Program program = StartProgram(folder);
    for (int number = 0; number < kCount; ++number) {
        Command(program, IDM_GOTO_BOOK + 40 + number);
        Press(program, "Ctrl+Alt+" + DigitOf(number));
        EXPECT_FALSE(IsInMenu(program)) << number;
        EXPECT_EQ(LabelOf(program, number), FirstVerseOf(program, 40 + number) + "\tCtrl+" + DigitOf(number));
        EXPECT_EQ(MenuText(program, IDM_SET_BOOKMARK + number),
                  "Set " + std::to_string(number + 1) + "\tCtrl+Alt+" + DigitOf(number));
    }
    EXPECT_EQ(LabelOf(program, 9), "Ephesians 1:1\tCtrl+0");
    for (int number = 0; number < kCount; ++number) {
        Press(program, "Ctrl+" + DigitOf(number));
        EXPECT_EQ(Top(program), FirstVerseOf(program, 40 + number));
    }
    CloseProgram(program);
    EXPECT_EQ(Setting(folder, "BOOKMARKS", "1"), "23145");

    Program again = StartProgram(folder);
    for (int number = kCount - 1; number >= 0; --number) {
        EXPECT_EQ(LabelOf(again, number), FirstVerseOf(again, 40 + number) + "\tCtrl+" + DigitOf(number));
        Press(again, "Ctrl+" + DigitOf(number));
        EXPECT_EQ(Top(again), FirstVerseOf(again, 40 + number));
    }
}

TEST(Bookmarks, InvalidSettingsBecomeGenesis) {
    const struct {
        const char* stored;
        const char* verse;
    } kRows[] = {{"40000", "Genesis 1:1"},      {"-1", "Genesis 1:1"},         {"31102", "Genesis 1:1"},
                 {"words", "Genesis 1:1"},      {"", "Genesis 1:1"},           {"99999999999", "Genesis 1:1"},
                 {"31101", "Revelation 22:21"}, {"1 and more", "Genesis 1:2"}, {"-2147483648", "Genesis 1:1"},
                 {"2147483647", "Genesis 1:1"}};
    static_assert(std::size(kRows) == kCount);
    const ScratchFolder folder = FolderWithScripture();
    for (int number = 0; number < kCount; ++number)
        WriteSetting(folder, "BOOKMARKS", std::to_string(number + 1), kRows[number].stored);
    Program program = StartProgram(folder);
    for (int number = 0; number < kCount; ++number) {
        EXPECT_EQ(LabelOf(program, number), std::string(kRows[number].verse) + "\tCtrl+" + DigitOf(number));
        Command(program, IDM_GOTO_BOOK + 40);
        Press(program, "Ctrl+" + DigitOf(number));
        EXPECT_EQ(Top(program), kRows[number].verse) << number;
    }
}

TEST(Bookmarks, DoNotShowAHiddenPassage) {
    const ScratchFolder folder = FolderWithScripture();
    WriteSetting(folder, "BOOKMARKS", "3", "31101");
    Program program = StartProgram(folder);
    Press(program, "F3");
    Press(program, "Ctrl+3");
    EXPECT_FALSE(IsShown(PassageOf(program)));
    EXPECT_EQ(StatusPart(program, 2), "Revelation 22:21") << "the note has not changed";
    Press(program, "F3");
    EXPECT_EQ(Top(program), "Revelation 22:21");
}

TEST(Bookmarks, AreSetToTheFirstSelectedVerseOfAFocusedPassage) {
    const ScratchFolder folder = FolderWithScripture();
    WriteSetting(folder, "MISC", "ReadVerse", "26558");  // John 11:35, which fits on one line
    Program program = StartProgram(folder);
    Command(program, IDM_FOCUS_PASSAGE);
    const int line = LineHeightOf();
    Click(program, PassageOf(program), {100, line + line / 2});
    Press(program, "Ctrl+Alt+1");
    EXPECT_EQ(LabelOf(program, 0), "John 11:36\tCtrl+1");
    Press(program, "Down");
    Press(program, "Down");  // past the selection
    Press(program, "Ctrl+Alt+2");
    EXPECT_EQ(LabelOf(program, 1), "John 11:37\tCtrl+2");
}

TEST(Bookmarks, AreSetToThePassagesVerseWhenTheListHasTheFocus) {
    Program program = StartProgram(FolderWithScripture());
    SearchFor(program, {"grace"});
    Press(program, "Down");
    ASSERT_EQ(FocusOf(program), VerseListOf(program));
    ASSERT_EQ(StatusPart(program, 1), "Genesis 19:19");
    GoTo(program, "Ps 119:105");
    Press(program, "Alt+1");
    Press(program, "Ctrl+Alt+1");
    EXPECT_EQ(LabelOf(program, 0), "Psalms 119:105\tCtrl+1");
    Click(program, NoteViewOf(program));
    Press(program, "Ctrl+Alt+2");
    EXPECT_EQ(LabelOf(program, 1), "Psalms 119:105\tCtrl+2");
}

TEST(Bookmarks, AreSetFromTheNoteEditor) {
    Program program = StartProgram(FolderWithScripture());
    Command(program, IDM_GOTO_BOOK + 40);
    OpenNoteEditor(program);
    Press(program, "Ctrl+Alt+3");
    EXPECT_EQ(LabelOf(program, 2), "Matthew 1:1\tCtrl+3");
    EXPECT_EQ(TextOf(NoteEditOf(program)), "");
}

TEST(Bookmarks, LeaveTheCharactersOfAltGrToTheEditor) {
    static constexpr struct {
        char digit;
        char character;
    } kKeys[] = {{'3', '#'}, {'8', '['}, {'0', '}'}};  // the first on French keyboards, the others on German ones
    for (const auto& key : kKeys) {
        SCOPED_TRACE(key.character);
        const std::string keys = std::string("Ctrl+Alt+") + key.digit, typed(1, key.character);
        const int number = (key.digit - '0' + kCount - 1) % kCount;
        Program program = StartProgram(FolderWithScripture());
        TypeWithAltGr(program, key.digit, static_cast<wchar_t>(key.character));
        Command(program, IDM_GOTO_BOOK + 40);
        OpenNoteEditor(program);
        Press(program, keys);
        EXPECT_EQ(TextOf(NoteEditOf(program)), typed);
        EXPECT_EQ(LabelOf(program, number), "Genesis 1:1\tCtrl+" + DigitOf(number));
        Press(program, "Ctrl+Alt+4");  // types nothing on this keyboard
        EXPECT_EQ(LabelOf(program, 3), "Matthew 1:1\tCtrl+4");
        ClickEditorButton(program, IDC_NOTE_SAVE);
        EXPECT_EQ(TextOf(NoteViewOf(program)), typed);
        Press(program, keys);  // where nothing can be typed
        EXPECT_EQ(LabelOf(program, number), "Matthew 1:1\tCtrl+" + DigitOf(number));
    }
}
