// The program's single selection of words, which Copy uses, and the words in it. A pane interprets the selection only
// while it owns it.
//
// Word numbers are those of the panes: 0 is the label of a verse, 1 its first word. A word includes the space after it,
// and a space is added after the last word of a verse.
#pragma once

#include <string>
#include <string_view>

#include "typeset/word_reader.h"

enum SelectionOwnerId {
    kNobody = -1,
    kVerseListOwns = 3,
    kPassageOwns = 4,
    kReferenceListOwns = 5,  // marked lines instead of words
    kNoteViewOwns = 8,
    kNoteEditorOwns = 10,
};

struct SelectionPoint {
    int place = -1;  // verse index in the Passage, entry number in the Verse List; -1 for none
    int word = -1;   // 0 the label, 1 the first word
    bool operator==(const SelectionPoint&) const = default;
};

struct Selection {
    int SelectionOwner = kNobody;
    SelectionPoint anchor;  // where the mouse button was pressed
    SelectionPoint end;     // current mouse position; may be before or after the anchor
    bool dragging = false;
};

struct OrderedSelection {
    SelectionPoint start;
    SelectionPoint end;
    bool operator==(const OrderedSelection&) const = default;
};

// Sorts the two ends by place, then by word.
OrderedSelection Ordered(const Selection& selection);

// Is `point` in the selection, including its ends? A label is word 0. Does not check whether the pane owns the
// selection.
bool IsSelected(const OrderedSelection& selection, SelectionPoint point);

// First selected place if `owner` has the selection and all of it is in `top`..`lastVisible`; otherwise `top`.
int FirstSelectedPlace(const Selection& selection, SelectionOwnerId owner, int top, int lastVisible);

// The anchor's place if `owner` has the selection, the anchor is at or after `top` and the end at or before
// `lastVisible`; otherwise `top`.
int AnchorPlace(const Selection& selection, SelectionOwnerId owner, int top, int lastVisible);

struct WordSpan {
    int first = 0;
    int last = 0;
};

// Words of `place` that are in the selection; `last` is greater than any word number if the selection includes the
// place's last word.
WordSpan SelectedWords(const OrderedSelection& selection, int place);

// Is the copy plain text, or marked text (typeset/html_text.h)?
enum class CopyMarks : bool { kNone, kMarked };

// A word reader that keeps or drops the brackets around supplied words. For marked text without brackets, supplied
// words are in italic face.
WordReader CopyingReader(bool keepBrackets, CopyMarks marks);

// Appends the words of `span` that `verse` has, those in italic face with their marks; the label is left to the caller.
// True if the verse has no word after `span.last`.
bool AppendWords(std::string& text, WordReader& reader, std::string_view verse, const WordSpan& span);

// Appends the reference of a label or a heading, with its marks in marked text.
void AppendReference(std::string& text, std::string_view reference, CopyMarks marks);

// Characters of the copied text that are scanned for the text of a word or phrase search, and of a note search.
inline constexpr int kWordSearchScan = 200;
inline constexpr int kNoteSearchScan = 149;

// The spaces and the letters A-Z and a-z among the first `limit` characters of `copy`, including the letters of labels;
// at most the 199 characters that a search accepts.
std::string SearchTextOf(std::string_view copy, int limit);
