// The Reference List: a list box with the reference of each entry of the Verse List, in the same order.
#pragma once

#include <cstdint>
#include <span>
#include <vector>

#include "scripture/verse_records.h"
#include "verselist/verse_list.h"
#include "win32/windows_api.h"

struct ReferenceList {
    HWND window = nullptr;            // the list box
    WNDPROC procedure = nullptr;      // its original window procedure
    WNDPROC wideProcedure = nullptr;  // the same procedure, called with wide text
    BookForm form = BookForm::kName;  // of its lines
    bool awaitsLines = false;         // its lines are out of date until FillLines is called
};

// Creates the hidden list box inside `tabs`. Its messages go to `procedure`, which passes them on with PassToBox.
void CreateReferenceList(ReferenceList& list, HWND tabs, WNDPROC procedure);

// Gives its lines the font for the scaling of its screen.
void ScaleReferenceList(const ReferenceList& list);

LRESULT PassToBox(const ReferenceList& list, UINT message, WPARAM wParam = 0, LPARAM lParam = 0);

// Replaces all lines by the references of the entries, each with its set in front if it has one, if they are awaited.
void FillLines(ReferenceList& list, const VerseList& entries);

// Takes lines out, or puts in those of entries that are in `entries` again. Nothing is done while lines are awaited; if
// there are many, all lines are awaited afterwards, because filling the box takes less time then.
void RemoveLines(ReferenceList& list, std::span<const int> ascending);
void InsertLines(ReferenceList& list, const VerseList& entries, std::span<const DeletedEntry> restored);

// The marked lines, ascending, and the line with the caret.
bool HasMarkedLines(const ReferenceList& list);
std::vector<int> MarkedLines(const ReferenceList& list);
int CaretLine(const ReferenceList& list);

// The first line shown. ShowLine shows the lines from `top` on if possible, with the caret, visible, in `line`.
int TopLine(const ReferenceList& list);
void ShowLine(const ReferenceList& list, int line, int top);
