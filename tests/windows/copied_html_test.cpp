// Copies as HTML on the clipboard, beside their plain text.

#include <windows.h>

#include <gtest/gtest.h>

#include "resources/ids.h"
#include "tests/support/html_reader.h"
#include "tests/windows/note_steps.h"
#include "tests/windows/passage_pane.h"
#include "tests/windows/real_scripture.h"
#include "tests/windows/search_steps.h"
#include "tests/windows/selection_steps.h"

// The bytes of the clipboard's format; "" if it is not there.
static std::string HtmlFormat() {
    if (!OpenClipboard(nullptr)) Fail(nullptr, "the clipboard is held by another");
    std::string bytes;
    if (const HANDLE block = GetClipboardData(RegisterClipboardFormatA("HTML Format"))) {
        bytes = static_cast<const char*>(GlobalLock(block));
        GlobalUnlock(block);
    }
    CloseClipboard();
    return bytes;
}

static std::size_t NumberBehind(const std::string& html, const std::string& name) {
    const std::size_t at = html.find(name + ":");
    return at == html.npos ? 0 : std::strtoul(html.c_str() + at + name.size() + 1, nullptr, 10);
}

// What other programs paste.
static std::string CopiedFragment() {
    const std::string html = HtmlFormat();
    EXPECT_EQ(html.substr(0, 13), "Version:0.9\r\n");
    EXPECT_EQ(NumberBehind(html, "EndHTML"), html.size());
    const std::size_t start = NumberBehind(html, "StartFragment"), end = NumberBehind(html, "EndFragment");
    if (start == 0 || end < start || end > html.size()) return "no fragment: " + html.substr(0, 200);
    return html.substr(start, end - start);
}

static void CopyByDialog(const Program& program, int command, const char* typed) {
    Command(program, command);
    const HWND dialog = WaitForDialog(program, command == IDM_COPY_VERSE ? "Copy Verse" : "Copy Range");
    SetDlgItemTextA(dialog, IDC_RANGE, typed);
    Press(program, "Enter");
    WaitForNoDialog(program);
}

// The verse as HTML, with italics for brackets.
static std::string WordsAt(std::string_view reference) {
    std::string words = Utf8OfLatin(WithBlankAfterMark(TextAt(reference)));
    for (const auto& [bracket, element] : {std::pair{"[", "<i>"}, {"]", "</i>"}})
        for (std::size_t at; (at = words.find(bracket)) != words.npos;) words.replace(at, 1, element);
    return words;
}

static std::string LineOf(const std::string& label, std::string_view reference) {
    return " <b>" + label + "</b> " + WordsAt(reference) + "<br>";
}

TEST(CopiedHtml, HasReferencesInBoldAndSuppliedWordsInItalics) {
    Program program = StartProgram(FolderWithScripture());
    CopyByDialog(program, IDM_COPY_VERSE, "Ge 1:2");
    EXPECT_EQ(CopiedFragment(), LineOf("Ge 1:2", "Ge 1:2"));
    EXPECT_NE(CopiedFragment().find("<i>was</i>"), std::string::npos);
    CopyByDialog(program, IDM_COPY_RANGE, "Ge 1:30 - Ge 2:1");
    EXPECT_EQ(CopiedFragment(), LineOf("Ge 1:30", "Ge 1:30") + LineOf("31", "Ge 1:31") + LineOf("2:1", "Ge 2:1"));
    SearchFor(program, {"Jesus wept", IDM_PHRASE_SEARCH});
    Press(program, "F7");
    EXPECT_EQ(CopiedFragment(), LineOf("Joh 11:35", "Joh 11:35"));
    Press(program, "F8");
    EXPECT_EQ(CopiedFragment(), "# <b>Joh 11:35</b>");
}

TEST(CopiedHtml, HasTheLettersOnAnySystem) {
    for (const char* locale : {"", "ja_JP.UTF-8"}) {
        StartOptions options;
        options.locale = locale;
        Program program = StartProgram(FolderWithScripture(), options);
        CopyByDialog(program, IDM_COPY_VERSE, "Ge 1:6");
        EXPECT_EQ(CopiedFragment(), " <b>Ge 1:6</b> " + WordsAt("Ge 1:6") + "<br>") << locale;
        EXPECT_NE(CopiedFragment().find("\u00B6"), std::string::npos) << locale;
    }
}

TEST(CopiedHtml, OfTheWholeBibleHasItsText) {
    Program program = StartProgram(FolderWithScripture());
    CopyByDialog(program, IDM_COPY_RANGE, "Ge - Re");
    const ReadHtml read = ReadHtmlText(CopiedFragment());
    EXPECT_EQ(read.fault, "");
    EXPECT_TRUE(read.text == Utf8OfLatin(ClipboardText()));
    EXPECT_EQ(read.bold.size(), 31102u);
}

// Genesis 37:21, which has the supplied word "it".
TEST(CopiedHtml, OfASelectionHasWhatIsSelected) {
    for (const bool brackets : {false, true}) {
        const ScratchFolder folder = FolderOnlyPassage(1104);
        WriteSetting(folder, "FORMAT", "Brackets", brackets ? "1" : "0");
        Program program = StartProgram(folder);
        Command(program, IDM_FOCUS_PASSAGE);
        Command(program, IDM_ITALIC_TEXT + 2);
        PaintedLine line = LabelledLine(" Ge 37:21 ", "And Reuben heard it, ");
        Drag(program, PassageOf(program), MiddleOf({line}, {0, 0}), MiddleOf({line}, {0, 4}));
        const std::string plain = brackets ? " Ge 37:21 And Reuben heard [it], " : " Ge 37:21 And Reuben heard it, ";
        EXPECT_EQ(Copied(program), plain);
        EXPECT_EQ(CopiedFragment(), brackets ? " <b>Ge 37:21</b> And Reuben heard [it], "
                                             : " <b>Ge 37:21</b> And Reuben heard <i>it</i>, ");
    }
}

TEST(CopiedHtml, OfANoteHasItsLinesAndLetters) {
    Program program = ProgramInEditor("");
    SetClipboardText(L"a < b\r\n  \u03BB\u05D0");
    Press(program, "Ctrl+v");
    Press(program, "Ctrl+a");
    Press(program, "Ctrl+c");
    EXPECT_EQ(CopiedFragment(), "<span style=\"white-space:pre-wrap\">a &lt; b<br>  \u03BB\u05D0</span>");
    EXPECT_EQ(LettersOnClipboard(), L"a < b\r\n  \u03BB\u05D0");
}

// The clipboard belongs to the system then.
TEST(CopiedHtml, StaysAfterTheEndOfTheProgram) {
    Program program = StartProgram(FolderWithScripture());
    CopyByDialog(program, IDM_COPY_VERSE, "Ge 1:2");
    CloseProgram(program);
    EXPECT_EQ(CopiedFragment(), LineOf("Ge 1:2", "Ge 1:2"));
}
