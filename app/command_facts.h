// The facts that enable and tick the menu items and buttons of commands, and tool tips with the command's key.
#pragma once

#include <string>

#include "app/frame_layout.h"
#include "pane/selection.h"
#include "typeset/pane_colors.h"
#include "typeset/reading_options.h"
#include "verselist/verse_list.h"

// Facts of the program's state, one bit each.
enum Fact : unsigned {
    kAlways = 0,
    kListHasVerses = 1u << 0,
    kPassageFocused = 1u << 1,
    kHasSelection = 1u << 2,
    kNotEditing = 1u << 3,
    kParagraphs = 1u << 4,
    kItalicShown = 1u << 5,
    kBracketsShown = 1u << 6,
    kNormalShown = 1u << 7,
    kListShown = 1u << 8,
    kPassageShown = 1u << 9,
    kNotesShown = 1u << 10,
    kToolbarShown = 1u << 11,
    kNotesBound = 1u << 12,
    kListCanBeSaved = 1u << 13,
    kCanCut = 1u << 14,
    kCanPaste = 1u << 15,
    kNotesCanChange = 1u << 16,  // their folder can be written to
    kCanUndo = 1u << 17,
    kCanRedo = 1u << 18,
    kCanSelectAll = 1u << 19,
    kPanesLight = 1u << 20,  // these three as chosen, not as shown
    kPanesDark = 1u << 21,
    kPanesAsSystem = 1u << 22,
    kCanGoBack = 1u << 23,
    kCanGoForward = 1u << 24,
    kHitsShown = 1u << 25,
};

struct FactSources {
    const VerseList& list;
    const Selection& selection;
    const ReadingOptions& reading;
    const ShownPanes& shown;
    bool passageFocused = false;
    bool notesBound = false;
    bool editingNote = false;
    bool canPaste = false;
    bool notesCanChange = true;
    bool canUndo = false;
    bool canRedo = false;
    bool canSelectAll = false;
    int darkPanes = kDarkOff;
    bool canGoBack = false;
    bool canGoForward = false;
    bool hitsShown = false;
};

unsigned FactsOf(const FactSources& sources);

// True if `facts` includes all of `needs`.
bool HasFacts(unsigned facts, unsigned needs);

// A tool tip with the command's key: "Help (F1)". Only the text if `key` is empty; empty if `text` is empty.
std::string TipWithKey(const std::string& text, const std::string& key);
