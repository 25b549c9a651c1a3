#include "pane/selection_win32.h"

#include <new>
#include <optional>

#include "resources/ids.h"
#include "search/search_dialog.h"
#include "typeset/html_text.h"
#include "win32/clipboard.h"
#include "win32/controls.h"

Selection theSelection;

void DropSelection() {
    theSelection.SelectionOwner = kNobody;
    theSelection.dragging = false;
}

static std::optional<std::string> TextIfMemory(const SelectedText& selected) {
    try {
        return selected.form();
    } catch (const std::bad_alloc&) {
        return std::nullopt;
    }
}

static void Copy(HWND pane, const SelectedText& selected) {
    const std::optional<std::string> text = TextIfMemory(selected);
    bool copied = text.has_value();
    if (copied) {
        const HeldClipboard clipboard = OpenEmptyClipboard(pane);
        if (!clipboard) return;  // already reported
        copied = PutText(clipboard, *text);
        if (copied) PutHtml(clipboard, [&] { return ClipboardHtml(selected.html()); });
    }
    if (!copied && selected.noMemoryReport) Complain(pane, selected.noMemoryReport);
}

static void Search(HWND pane, const SelectedText& selected, int command) {
    const std::optional<std::string> text = TextIfMemory(selected);
    if (!text) return;
    if (command == IDM_SEARCH_NOTES) {
        theSearch.NoteSearchText = SearchTextOf(*text, kNoteSearchScan);
    } else {
        theSearch.searchText = SearchTextOf(*text, kWordSearchScan);
    }
    SendCommand(FrameOf(pane), command);
}

bool RunSelectionCommand(HWND pane, const SelectedText& selected, int command) {
    const bool isSearch = command == IDM_WORD_SEARCH || command == IDM_PHRASE_SEARCH || command == IDM_SEARCH_NOTES;
    if (!isSearch && command != IDM_COPY) return false;
    if (theSelection.SelectionOwner != selected.owner) return true;
    if (isSearch) {
        Search(pane, selected, command);
    } else {
        Copy(pane, selected);
    }
    return true;
}
