// What a screen reader is told by the Passage and the Verse List: asked inside the program.

#include <algorithm>

#include <windows.h>

#include <oleacc.h>

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include "tests/driver/accessible.h"
#include "tests/windows/note_steps.h"
#include "tests/windows/painted_lines.h"
#include "tests/windows/passage_pane.h"
#include "tests/windows/search_steps.h"
#include "tests/windows/selection_steps.h"

using testing::ElementsAre;
using testing::EndsWith;
using testing::HasSubstr;
using testing::IsEmpty;
using testing::StartsWith;

static constexpr int kGenesis = 1;  // child of Genesis 1:1 in the Passage

static RECT ClientOnScreen(HWND window) {
    RECT client = ClientRectOf(window);
    MapWindowPoints(window, nullptr, reinterpret_cast<POINT*>(&client), 2);
    return client;
}

static bool IsInside(const RECT& inner, const RECT& outer) {
    return inner.left >= outer.left && inner.top >= outer.top && inner.right <= outer.right &&
           inner.bottom <= outer.bottom;
}

// Checks what must be so of every child, and returns what is told.
static std::unique_ptr<ToldWindow> CheckedTold(const Program& program, HWND pane) {
    auto told = Told(program, pane);
    const RECT client = ClientOnScreen(pane);
    const bool focused = FocusOf(program) == pane;
    EXPECT_EQ(told->self.role, ROLE_SYSTEM_DOCUMENT);
    EXPECT_TRUE(EqualRect(&told->self.place, &client));
    EXPECT_EQ((told->self.state & STATE_SYSTEM_FOCUSED) != 0, focused);
    EXPECT_EQ(told->count, told->listed);
    int top = 0;
    for (int at = 0; at < told->listed; ++at) {
        const ToldChild& child = told->children[at];
        SCOPED_TRACE(child.name);
        EXPECT_EQ(child.placed, S_OK);
        EXPECT_TRUE(IsInside(child.place, client));
        EXPECT_EQ(child.hit, child.child) << "the middle of its place";
        EXPECT_GE(child.place.top, top) << "in reading order";
        EXPECT_EQ(child.next, at + 1 < told->listed ? told->children[at + 1].child : -1);
        EXPECT_EQ((child.state & STATE_SYSTEM_FOCUSED) != 0, child.child == told->focused);
        EXPECT_EQ(child.state & (STATE_SYSTEM_OFFSCREEN | STATE_SYSTEM_INVISIBLE), 0u);
        top = child.place.top;
    }
    return told;
}

static const ToldChild& First(const ToldWindow& told) {
    return told.children[0];
}

static std::vector<int> SelectedIn(const ToldWindow& told) {
    std::vector<int> selected(told.selected, told.selected + std::max(0, told.selectedCount));
    std::vector<int> marked;
    for (int at = 0; at < told.listed; ++at)
        if (told.children[at].state & STATE_SYSTEM_SELECTED) marked.push_back(told.children[at].child);
    EXPECT_EQ(selected, marked);
    return selected;
}

TEST(AccessiblePassage, TellsTheVersesThatItShows) {
    const Program program = StartProgram(FolderOnlyPassage(0));
    const HWND pane = PassageOf(program);
    GoTo(program, "Ge 1:1");
    const auto told = CheckedTold(program, pane);
    EXPECT_STREQ(told->self.name, "Passage");
    EXPECT_STREQ(told->self.value, "Genesis 1:1");
    EXPECT_EQ(told->focused, kGenesis);
    ASSERT_GT(told->listed, 5);
    EXPECT_STREQ(First(*told).name, "Genesis 1:1 \xB6 In the beginning God created the heaven and the earth.");
    EXPECT_EQ(First(*told).child, kGenesis);
    EXPECT_EQ(First(*told).role, ROLE_SYSTEM_STATICTEXT);
    EXPECT_STREQ(First(*told).action, "");
    const RECT client = ClientOnScreen(pane);
    for (int verse = 0; verse < 2; ++verse) {  // a verse begins each line, and the first ones have one or two
        EXPECT_EQ((told->children[verse].place.top - client.top) % LineHeightOf(), 0);
        EXPECT_EQ(told->children[verse].place.left, client.left + 1);
    }
    EXPECT_EQ(First(*told).place.top, client.top);
    EXPECT_EQ(First(*told).place.bottom, told->children[1].place.top);
}

TEST(AccessiblePassage, FollowsTheScrolledText) {
    const Program program = StartProgram(FolderOnlyPassage(0));
    const HWND pane = PassageOf(program);
    GoTo(program, "Ge 1:1");
    Press(program, "Down");
    auto told = CheckedTold(program, pane);
    EXPECT_THAT(First(*told).name, StartsWith("Genesis 1:2 And the earth was without form"));
    EXPECT_EQ(told->focused, kGenesis + 1);
    const ToldOfChild above = ToldOf(program, pane, kGenesis);
    EXPECT_EQ(above.result, S_OK);
    EXPECT_THAT(above.told.name, StartsWith("Genesis 1:1 "));
    EXPECT_NE(above.told.state & STATE_SYSTEM_OFFSCREEN, 0u);
    EXPECT_EQ(above.told.placed, S_FALSE);
    PressInOneGo(program, {"PgDn", "PgDn", "Up"});
    told = CheckedTold(program, pane);
    EXPECT_STREQ(told->self.value, Top(program).c_str());
    EXPECT_THAT(First(*told).name, StartsWith(Top(program) + " "));
    GoTo(program, "Re 22:21");
    told = CheckedTold(program, pane);
    EXPECT_EQ(told->listed, 1);
    EXPECT_EQ(First(*told).child, 31102);
    for (const int bad : {-1, 31103}) EXPECT_EQ(ToldOf(program, pane, bad).result, E_INVALIDARG) << bad;
}

TEST(AccessiblePassage, ReadsSuppliedWordsAndMarksAsShown) {
    const Program program = StartProgram(FolderOnlyPassage(0));
    const HWND pane = PassageOf(program);
    GoTo(program, "Ge 1:2");
    const auto nameAfter = [&](int command) {
        Command(program, command);
        return std::string(First(*CheckedTold(program, pane)).name);
    };
    EXPECT_THAT(nameAfter(IDM_ITALIC_BRACKETS), HasSubstr("and darkness [was] upon"));
    EXPECT_THAT(nameAfter(IDM_ITALIC_NORMAL), HasSubstr("and darkness was upon"));
    EXPECT_THAT(nameAfter(IDM_ITALIC_TEXT), HasSubstr("and darkness was upon"));
    GoTo(program, "Ge 1:6");
    EXPECT_THAT(First(*CheckedTold(program, pane)).name, StartsWith("Genesis 1:6 \xB6 And God said"));
    EXPECT_THAT(nameAfter(IDM_PARAGRAPH_FORMAT), StartsWith("Genesis 1:6 And God said"));
    Press(program, "PgDn");
    CheckedTold(program, pane);
}

TEST(AccessiblePassage, TellsSelectionAndNotes) {
    ScratchFolder folder = FolderOnlyPassage(0);
    const Program program = StartProgram(folder);
    const HWND pane = PassageOf(program);
    GoTo(program, "Ge 1:1");
    EXPECT_THAT(SelectedIn(*CheckedTold(program, pane)), IsEmpty());
    const auto before = CheckedTold(program, pane);
    const auto middleOf = [&](const ToldChild& child) {
        POINT middle{(child.place.left + child.place.right) / 2, (child.place.top + child.place.bottom) / 2};
        ScreenToClient(pane, &middle);
        return middle;
    };
    Drag(program, pane, middleOf(before->children[1]), middleOf(before->children[3]));
    auto told = CheckedTold(program, pane);
    EXPECT_THAT(SelectedIn(*told), ElementsAre(2, 3, 4));
    EXPECT_EQ(told->focused, 2) << "commands act on the first selected verse";
    Click(program, pane, middleOf(before->children[2]));
    told = CheckedTold(program, pane);
    EXPECT_THAT(SelectedIn(*told), ElementsAre(3));
    EXPECT_THAT(std::string(told->children[2].name), HasSubstr(Copied(program)));
    EXPECT_STREQ(told->children[2].description, "");
}

TEST(AccessiblePassage, TellsThatAVerseHasANote) {
    const Program program = StartProgram(FolderWithScripture());
    OpenNoteEditor(program);
    Type(program, "mine");
    ClickEditorButton(program, IDC_NOTE_SAVE);
    const auto told = CheckedTold(program, PassageOf(program));
    EXPECT_STREQ(First(*told).description, "Has a note.");
    EXPECT_STREQ(told->children[1].description, "");
}

TEST(AccessibleVerseList, TellsItsLengthAndWhatWasFound) {
    Program program = StartProgram(FolderWithScripture());
    const HWND pane = VerseListOf(program);
    auto told = CheckedTold(program, pane);
    EXPECT_STREQ(told->self.name, "Verse List, no verses");
    EXPECT_EQ(told->listed, 0);
    EXPECT_EQ(ToldOf(program, pane, 1).result, E_INVALIDARG);
    SearchFor(program, {"grace"});
    told = CheckedTold(program, pane);
    EXPECT_STREQ(told->self.name, "Verse List, 159 verses");
    ASSERT_GT(told->listed, 2);
    EXPECT_STREQ(First(*told).name, "Genesis 6:8 But Noah found grace in the eyes of the LORD.");
    EXPECT_STREQ(First(*told).description, "Found: grace.");
    EXPECT_STREQ(First(*told).action, "Read Context");
    EXPECT_EQ(First(*told).role, ROLE_SYSTEM_LISTITEM);
    EXPECT_EQ(told->focused, 1);
    Press(program, "End");
    told = CheckedTold(program, pane);
    EXPECT_EQ(told->listed, 1);
    EXPECT_THAT(First(*told).name, StartsWith("Revelation 22:21 "));
    EXPECT_EQ(First(*told).child, 159);
    EXPECT_EQ(ToldOf(program, pane, 160).result, E_INVALIDARG);
    Press(program, "Delete");
    EXPECT_STREQ(Told(program, pane)->self.name, "Verse List, 158 verses");
    SearchFor(program, {"Jesus wept", IDM_PHRASE_SEARCH});
    EXPECT_STREQ(CheckedTold(program, pane)->self.name, "Verse List, 1 verse");
}

TEST(AccessibleVerseList, ScreenReaderMovesAndReadsOn) {
    Program program = StartProgram(FolderWithScripture());
    SearchFor(program, {"grace"});
    const HWND pane = VerseListOf(program), passage = PassageOf(program);
    EXPECT_EQ(FocusChild(program, passage, 0), S_OK);
    EXPECT_EQ(FocusOf(program), passage);
    EXPECT_EQ(FocusChild(program, pane, 3), S_OK);
    const auto told = CheckedTold(program, pane);
    EXPECT_EQ(told->focused, 3);
    EXPECT_EQ(StatusPart(program, 1), "Genesis 32:5");
    EXPECT_EQ(ActOnChild(program, pane, 2), S_OK);
    EXPECT_EQ(Top(program), "Genesis 19:19");
    EXPECT_EQ(ActOnChild(program, passage, 1), DISP_E_MEMBERNOTFOUND);
    EXPECT_EQ(ActOnChild(program, pane, 160), E_INVALIDARG);
}

// ---- Events ---------------------------------------------------------------------------------------------------------

static int Count(const std::vector<ToldEvent>& events, DWORD event, LONG child = CHILDID_SELF) {
    return static_cast<int>(std::ranges::count_if(
        events, [=](const ToldEvent& told) { return told.event == event && told.child == child; }));
}

TEST(AccessibleEvents, TellABurstOfScrollsOnce) {
    const Program program = StartProgram(FolderOnlyPassage(0));
    const HWND pane = PassageOf(program);
    GoTo(program, "Ge 1:1");
    ListenToEvents(program);
    Press(program, "Down");
    std::vector<ToldEvent> heard = Heard(program, pane);
    EXPECT_EQ(Count(heard, EVENT_OBJECT_CONTENTSCROLLED), 1);
    EXPECT_EQ(Count(heard, EVENT_OBJECT_REORDER), 1);
    EXPECT_EQ(Count(heard, EVENT_OBJECT_FOCUS, kGenesis + 1), 1);
    for (int step = 0; step < 40; ++step) PostMessageA(pane, WM_VSCROLL, SB_LINEDOWN, 0);
    heard = Heard(program, pane);
    const int told = Count(heard, EVENT_OBJECT_CONTENTSCROLLED);
    EXPECT_GE(told, 1);
    EXPECT_LT(told, 40) << "not for each step";
    EXPECT_EQ(Count(heard, EVENT_OBJECT_FOCUS, kGenesis + 41), 1);
    RedrawWindow(pane, nullptr, nullptr, RDW_INVALIDATE);
    EXPECT_THAT(Heard(program, pane), IsEmpty()) << "nothing has changed";
}

TEST(AccessibleEvents, TellANewList) {
    Program program = StartProgram(FolderWithScripture());
    const HWND pane = VerseListOf(program);
    SearchFor(program, {"grace"});
    ListenToEvents(program);
    Heard(program, pane);
    SearchFor(program, {"peace"});
    std::vector<ToldEvent> heard = Heard(program, pane);
    EXPECT_EQ(Count(heard, EVENT_OBJECT_REORDER), 1);
    EXPECT_EQ(Count(heard, EVENT_OBJECT_NAMECHANGE), 1);
    EXPECT_EQ(Count(heard, EVENT_OBJECT_FOCUS, 1), 1);
    Press(program, "Delete");
    heard = Heard(program, pane);
    EXPECT_EQ(Count(heard, EVENT_OBJECT_REORDER), 1);
    EXPECT_EQ(Count(heard, EVENT_OBJECT_NAMECHANGE), 1);
    EXPECT_EQ(Count(heard, EVENT_OBJECT_FOCUS, 1), 1) << "another verse has the same number";
}

TEST(AccessibleEvents, TellFocusAndSelection) {
    Program program = StartProgram(FolderWithScripture());
    SearchFor(program, {"grace"});
    const HWND pane = VerseListOf(program);
    Press(program, "Right");
    ASSERT_EQ(FocusOf(program), PassageOf(program));
    ListenToEvents(program);
    Press(program, "Left");
    EXPECT_EQ(Count(Heard(program, pane), EVENT_OBJECT_FOCUS, 1), 1);
    const auto told = Told(program, pane);
    POINT first{told->children[0].place.left + 20, told->children[0].place.top + 5};
    POINT second{told->children[1].place.left + 20, told->children[1].place.top + 5};
    for (POINT* point : {&first, &second}) ScreenToClient(pane, point);
    Click(program, pane, second);
    std::vector<ToldEvent> heard = Heard(program, pane);
    EXPECT_EQ(Count(heard, EVENT_OBJECT_SELECTION, 2), 1);
    EXPECT_EQ(Count(heard, EVENT_OBJECT_FOCUS, 2), 1);
    Drag(program, pane, first, second);
    EXPECT_GE(Count(Heard(program, pane), EVENT_OBJECT_SELECTIONWITHIN), 1);
}

// ---- From another process -------------------------------------------------------------------------------------------

static std::wstring NameOf(IAccessible& object, LONG child, HRESULT& result) {
    VARIANT which{};
    which.vt = VT_I4;
    which.lVal = child;
    BSTR name = nullptr;
    result = object.get_accName(which, &name);
    std::wstring text = name ? name : L"";
    SysFreeString(name);
    return text;
}

// As screen readers do. One that still has the object when the program ends keeps it from nothing.
TEST(AccessibleFromOutside, TellsAndMayBeKept) {
    Program program = StartProgram(FolderWithScripture());
    SearchFor(program, {"grace"});
    ASSERT_TRUE(SUCCEEDED(CoInitializeEx(nullptr, COINIT_APARTMENTTHREADED)));
    IAccessible* object = nullptr;
    ASSERT_EQ(AccessibleObjectFromWindow(VerseListOf(program), static_cast<DWORD>(OBJID_CLIENT), __uuidof(IAccessible),
                                         reinterpret_cast<void**>(&object)),
              S_OK);
    HRESULT result = E_FAIL;
    EXPECT_EQ(NameOf(*object, CHILDID_SELF, result), L"Verse List, 159 verses");
    EXPECT_EQ(NameOf(*object, 1, result), L"Genesis 6:8 But Noah found grace in the eyes of the LORD.");
    EXPECT_EQ(NameOf(*object, 160, result), L"");
    EXPECT_EQ(result, E_INVALIDARG);
    EXPECT_EQ(CloseProgram(program), 0);
    EXPECT_EQ(NameOf(*object, 1, result), L"");
    EXPECT_TRUE(FAILED(result));
    object->Release();
    CoUninitialize();
}
