#include "app/command_facts.h"

#include <array>
#include <bit>

#include <gtest/gtest.h>

namespace {

struct State {
    VerseList list;
    Selection selection;
    ReadingOptions reading;
    ShownPanes shown;
};

unsigned FactsOf(const State& state, bool passageFocused = false, bool bound = false, bool editing = false) {
    return FactsOf(
        FactSources{state.list, state.selection, state.reading, state.shown, passageFocused, bound, editing});
}

TEST(CommandFacts, HaveOneBitEach) {
    unsigned others = 0;
    for (const unsigned fact :
         {kListHasVerses, kPassageFocused, kHasSelection, kNotEditing,   kParagraphs,     kItalicShown,
          kBracketsShown, kNormalShown,    kListShown,    kPassageShown, kNotesShown,     kToolbarShown,
          kNotesBound,    kListCanBeSaved, kCanCut,       kCanPaste,     kNotesCanChange, kCanUndo,
          kCanRedo,       kCanSelectAll,   kPanesLight,   kPanesDark,    kPanesAsSystem,  kCanGoBack,
          kCanGoForward,  kHitsShown}) {
        EXPECT_TRUE(std::has_single_bit(fact)) << fact;
        EXPECT_EQ(others & fact, 0u) << fact;
        others |= fact;
    }
}

TEST(CommandFacts, HaveTheirValuesAtTheStart) {
    constexpr unsigned kAtStart = kNotEditing | kItalicShown | kListShown | kPassageShown | kNotesShown |
                                  kToolbarShown | kNotesCanChange | kPanesLight;
    const State state;
    EXPECT_EQ(FactsOf(state), kAtStart);
    EXPECT_EQ(FactsOf(FactSources{state.list, state.selection, state.reading, state.shown}), kAtStart);
}

TEST(CommandFacts, TellWhetherPlacesWereLeft) {
    const State state;
    FactSources sources{state.list, state.selection, state.reading, state.shown};
    const unsigned atStart = FactsOf(sources);
    sources.canGoBack = true;
    EXPECT_EQ(FactsOf(sources), atStart | kCanGoBack);
    sources.canGoForward = true;
    EXPECT_EQ(FactsOf(sources), atStart | kCanGoBack | kCanGoForward);
}

TEST(CommandFacts, TellWhetherHitsAreShown) {
    const State state;
    FactSources sources{state.list, state.selection, state.reading, state.shown};
    const unsigned without = FactsOf(sources);
    sources.hitsShown = true;
    EXPECT_EQ(FactsOf(sources), without | kHitsShown);
}

TEST(CommandFacts, DependOnEachSource) {
    State state;
    FillVerseList(state.list, {3});
    state.selection.SelectionOwner = kPassageOwns;
    state.reading.ParagraphFormat = -56;
    state.reading.Italics = kBracketed;
    state.shown = {0, 0, 0, 0};
    EXPECT_EQ(FactsOf(state, true, true, true), kListHasVerses | kPassageFocused | kHasSelection | kParagraphs |
                                                    kBracketsShown | kNotesBound | kListCanBeSaved | kNotesCanChange |
                                                    kPanesLight);
    EXPECT_EQ(FactsOf(FactSources{.list = state.list,
                                  .selection = state.selection,
                                  .reading = state.reading,
                                  .shown = state.shown,
                                  .notesCanChange = false}) &
                  kNotesCanChange,
              0u);
}

TEST(CommandFacts, CutAndPasteNeedTheNoteEditor) {
    State state;
    for (const int owner : {kNobody, kVerseListOwns, kPassageOwns, kNoteViewOwns, kNoteEditorOwns}) {
        state.selection.SelectionOwner = owner;
        EXPECT_EQ((FactsOf(state) & kCanCut) != 0, owner == kNoteEditorOwns) << owner;
    }
    FactSources sources{state.list, state.selection, state.reading, state.shown};
    EXPECT_FALSE(FactsOf(sources) & kCanPaste);
    sources.canPaste = true;
    EXPECT_TRUE(FactsOf(sources) & kCanPaste);
}

TEST(CommandFacts, UndoRedoAndSelectAllHaveOneFactEach) {
    const State state;
    const unsigned before = FactsOf(state);
    FactSources sources{state.list, state.selection, state.reading, state.shown};
    sources.canUndo = true;
    EXPECT_EQ(FactsOf(sources), before | kCanUndo);
    sources.canRedo = true;
    EXPECT_EQ(FactsOf(sources), before | kCanUndo | kCanRedo);
    sources.canSelectAll = true;
    EXPECT_EQ(FactsOf(sources), before | kCanUndo | kCanRedo | kCanSelectAll);
}

// Deliberate: opening a cross-reference line does not change whether Save Verse List is enabled.
TEST(CommandFacts, ListOfReferencesKeepsTheStateOfSave) {
    constexpr unsigned kOfList = kListHasVerses | kListCanBeSaved;
    State state;
    FillWithReferences(state.list, {3, 1});
    EXPECT_EQ(FactsOf(state) & kOfList, kListHasVerses);
    FillVerseList(state.list, {3});
    FillWithReferences(state.list, {3, 1});
    EXPECT_EQ(FactsOf(state) & kOfList, kOfList);
    DeleteEntries(state.list, std::array{0});
    EXPECT_EQ(FactsOf(state) & kOfList, kOfList);
    DeleteEntries(state.list, std::array{0});
    EXPECT_EQ(FactsOf(state) & kOfList, 0u);
    FillWithReferences(state.list, {3});
    EXPECT_EQ(FactsOf(state) & kOfList, kListHasVerses);
    ClearVerseList(state.list);
    EXPECT_EQ(FactsOf(state) & kOfList, 0u);
}

TEST(CommandFacts, ExactlyOneItalicsModeIsShownForAnyStoredValue) {
    constexpr unsigned kModes = kItalicShown | kBracketsShown | kNormalShown;
    for (const int stored : {-128, -1, 0, 1, 2, 3, 127}) {
        State state;
        state.reading.Italics = static_cast<std::int8_t>(stored);
        const unsigned expected = stored == 0 ? kItalicShown : stored == 1 ? kBracketsShown : kNormalShown;
        EXPECT_EQ(FactsOf(state) & kModes, expected) << stored;
    }
}

TEST(CommandFacts, ExactlyOneChoiceOfDarkPanesIsShownForAnyStoredValue) {
    constexpr unsigned kChoices = kPanesLight | kPanesDark | kPanesAsSystem;
    const State state;
    FactSources sources{state.list, state.selection, state.reading, state.shown};
    for (const int stored : {-1, 0, 1, 2, 3, 1000}) {
        sources.darkPanes = stored;
        const unsigned expected = stored == 1 ? kPanesDark : stored == 2 ? kPanesAsSystem : kPanesLight;
        EXPECT_EQ(FactsOf(sources) & kChoices, expected) << stored;
    }
}

TEST(CommandFacts, HasFactsRequiresAllNeeds) {
    EXPECT_TRUE(HasFacts(0, kAlways));
    EXPECT_TRUE(HasFacts(kListHasVerses | kNotEditing, kListHasVerses));
    EXPECT_FALSE(HasFacts(kListHasVerses, kListHasVerses | kNotEditing));
}

}  // namespace
