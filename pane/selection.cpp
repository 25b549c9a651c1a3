#include "pane/selection.h"

#include <algorithm>
#include <iterator>
#include <limits>

#include "scripture/letters.h"
#include "search/query.h"
#include "typeset/html_text.h"

static bool ComesAfter(SelectionPoint point, SelectionPoint other) {
    return point.place != other.place ? point.place > other.place : point.word > other.word;
}

OrderedSelection Ordered(const Selection& selection) {
    if (ComesAfter(selection.anchor, selection.end)) return {selection.end, selection.anchor};
    return {selection.anchor, selection.end};
}

bool IsSelected(const OrderedSelection& selection, SelectionPoint point) {
    return !ComesAfter(selection.start, point) && !ComesAfter(point, selection.end);
}

int FirstSelectedPlace(const Selection& selection, SelectionOwnerId owner, int top, int lastVisible) {
    const OrderedSelection ordered = Ordered(selection);
    const bool shown = ordered.start.place >= top && ordered.end.place <= lastVisible;
    return selection.SelectionOwner == owner && shown ? ordered.start.place : top;
}

int AnchorPlace(const Selection& selection, SelectionOwnerId owner, int top, int lastVisible) {
    // The two ends are deliberately not ordered: after a drag upwards the anchor may be below the visible items.
    const bool shown = selection.anchor.place >= top && selection.end.place <= lastVisible;
    return selection.SelectionOwner == owner && shown ? selection.anchor.place : top;
}

// ---- Words ----------------------------------------------------------------------------------------------------------

WordSpan SelectedWords(const OrderedSelection& selection, int place) {
    return {place == selection.start.place ? selection.start.word : 0,
            place == selection.end.place ? selection.end.word : std::numeric_limits<int>::max()};
}

WordReader CopyingReader(bool keepBrackets, CopyMarks marks) {
    const BracketUse leftOut = marks == CopyMarks::kMarked ? BracketUse::kItalicFace : BracketUse::kDropped;
    WordReader reader;
    reader.brackets = keepBrackets ? BracketUse::kShown : leftOut;
    return reader;
}

static void AppendPiece(std::string& text, const WordPiece& piece) {
    const bool isSupplied = piece.face == Face::kItalic;
    if (isSupplied) text += kSuppliedFollows;
    text += piece.text;
    if (isSupplied) text += kPlainFollows;
}

bool AppendWords(std::string& text, WordReader& reader, std::string_view verse, const WordSpan& span) {
    OpenVerse(reader, verse);
    for (int word = 1; word <= span.last && ReadWord(reader); ++word) {
        if (word < span.first) continue;
        for (const WordPiece& piece : reader.pieces) AppendPiece(text, piece);
    }
    return HasVerseEnded(reader);
}

void AppendReference(std::string& text, std::string_view reference, CopyMarks marks) {
    if (marks == CopyMarks::kMarked) text += kReferenceFollows;
    text += reference;
    if (marks == CopyMarks::kMarked) text += kPlainFollows;
}

static bool IsBlankOrLetter(char c) {
    return c == ' ' || IsLetter(c);
}

// The scan limit is one more than a search text can hold: if all of these characters are letters, the last one is
// dropped.
std::string SearchTextOf(std::string_view copy, int limit) {
    std::string text;
    std::ranges::copy_if(copy.substr(0, static_cast<std::size_t>(limit)), std::back_inserter(text), IsBlankOrLetter);
    if (text.size() > kSearchTextLimit) text.resize(kSearchTextLimit);
    return text;
}
