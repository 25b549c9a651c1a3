// What a reading pane tells a screen reader: the items (verses of the Passage, entries of the Verse List) that it
// shows, where each of them is, and its words. All of it comes from the boxes of the pane's own layout, so that what is
// read aloud is what is shown.
#pragma once

#include <string>
#include <vector>

#include "pane/flow.h"

// Pixels of the client area; `right` and `bottom` are just outside.
struct SpokenPlace {
    int left = 0, top = 0, right = 0, bottom = 0;
    bool operator==(const SpokenPlace&) const = default;
};

struct SpokenItem {
    int item = -1;                   // verse index in the Passage, entry number in the Verse List
    std::vector<SpokenPlace> lines;  // what it has on each line that the pane shows; never empty
};

struct SpokenItems {
    int width = 0, height = 0;  // of the client area; nothing outside of it is told
    int lineHeight = 1;
    std::vector<SpokenItem> items;  // in the order of the layout
};

// Returns a visitor that adds the items of a walk to `shown`, which must outlive it. A heading belongs to no item.
FlowVisitor ItemsVisitor(SpokenItems& shown);

// The item with this number; null if it is not shown.
const SpokenItem* FindItem(const SpokenItems& shown, int item);

// The item at a point of the client area: that of the text at the point or, beside the text of a line, of the nearest
// text on this line. -1 if the line has no verse or the point is outside.
int ItemAt(const SpokenItems& shown, int x, int y);

// The rectangle around an item. Where its middle belongs to another item, because both share lines, that of the longest
// of its lines. So the middle is always a place of the item.
SpokenPlace PlaceOf(const SpokenItems& shown, const SpokenItem& item);

// The words of one item.
struct SpokenWords {
    std::string text;                // as the pane shows them, without the blank at the end
    std::vector<std::string> found;  // what is marked as found by the search, each text once
    bool endsFound = false;          // the box before was marked: the next one continues its text
    bool hasNote = false;            // the label has the mark of a note
};

// Returns a visitor that takes the words of the first item of a walk, and then ends the walk. For all words of an item,
// the walk must begin with it and have the height kEndlessHeight.
FlowVisitor WordsVisitor(SpokenWords& words);
inline constexpr int kEndlessHeight = 1 << 30;

// "Genesis 1:1 In the beginning..."
std::string SpokenName(const std::string& reference, const SpokenWords& words);

// What is only seen otherwise: "Found: grace, peace. Has a note." Empty if there is nothing to tell.
std::string SpokenDescription(const SpokenWords& words);
