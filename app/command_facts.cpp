// Separate from the table of commands, which uses Windows, so that the facts can be tested natively.
#include "app/command_facts.h"

unsigned FactsOf(const FactSources& sources) {
    const std::int8_t italics = sources.reading.Italics;
    const struct {
        Fact fact;
        bool holds;
    } kRows[] = {
        {kListHasVerses, ListCount(sources.list) > 0},
        {kPassageFocused, sources.passageFocused},
        {kHasSelection, sources.selection.SelectionOwner != kNobody},
        {kNotEditing, !sources.editingNote},
        {kParagraphs, sources.reading.ParagraphFormat != 0},
        {kItalicShown, italics == kItalicType},
        {kBracketsShown, italics == kBracketed},
        {kNormalShown, italics != kItalicType && italics != kBracketed},
        {kListShown, sources.shown.VerseListWindow != 0},
        {kPassageShown, sources.shown.ReadWindow != 0},
        {kNotesShown, sources.shown.NotesWindow != 0},
        {kToolbarShown, sources.shown.ToolBar != 0},
        {kNotesBound, sources.notesBound},
        {kListCanBeSaved, sources.list.canBeSaved},
        {kCanCut, sources.selection.SelectionOwner == kNoteEditorOwns},
        {kCanPaste, sources.canPaste},
        {kNotesCanChange, sources.notesCanChange},
        {kCanUndo, sources.canUndo},
        {kCanRedo, sources.canRedo},
        {kCanSelectAll, sources.canSelectAll},
        {kPanesLight, sources.darkPanes != kDarkOn && sources.darkPanes != kDarkAsSystem},
        {kPanesDark, sources.darkPanes == kDarkOn},
        {kPanesAsSystem, sources.darkPanes == kDarkAsSystem},
        {kCanGoBack, sources.canGoBack},
        {kCanGoForward, sources.canGoForward},
        {kHitsShown, sources.hitsShown},
    };
    unsigned facts = 0;
    for (const auto& [fact, holds] : kRows) facts |= holds ? fact : 0u;
    return facts;
}

bool HasFacts(unsigned facts, unsigned needs) {
    return (facts & needs) == needs;
}

std::string TipWithKey(const std::string& text, const std::string& key) {
    return text.empty() || key.empty() ? text : text + " (" + key + ")";
}
