#include "pane/spoken_items.h"

#include <algorithm>

// ---- Places ---------------------------------------------------------------------------------------------------------

static SpokenItem& ItemOf(SpokenItems& shown, int item) {
    if (shown.items.empty() || shown.items.back().item != item) shown.items.push_back({item, {}});
    return shown.items.back();
}

// False below the client area, where no later box can be inside.
static bool AddBox(SpokenItems& shown, const FlowBox& box) {
    if (box.kind == BoxKind::kHeading) return true;
    if (box.y >= shown.height) return false;
    const SpokenPlace place{box.x, box.y, std::max(box.x, std::min(box.x + box.width, shown.width)),
                            std::min(box.y + shown.lineHeight, shown.height)};
    std::vector<SpokenPlace>& lines = ItemOf(shown, box.point.place).lines;
    if (lines.empty() || lines.back().top != box.y) {
        lines.push_back(place);
    } else {
        lines.back().right = std::max(lines.back().right, place.right);
    }
    return true;
}

FlowVisitor ItemsVisitor(SpokenItems& shown) {
    return [&shown](const FlowBox& box) { return AddBox(shown, box); };
}

const SpokenItem* FindItem(const SpokenItems& shown, int item) {
    const auto found = std::ranges::find(shown.items, item, &SpokenItem::item);
    return found == shown.items.end() ? nullptr : &*found;
}

int ItemAt(const SpokenItems& shown, int x, int y) {
    if (x < 0 || y < 0 || x >= shown.width || y >= shown.height) return -1;
    int found = -1;
    for (const SpokenItem& item : shown.items) {
        for (const SpokenPlace& line : item.lines) {
            const bool isOnLine = y >= line.top && y < line.bottom;
            if (isOnLine && (found == -1 || x >= line.left)) found = item.item;
        }
    }
    return found;
}

static SpokenPlace PlaceAround(const SpokenItem& item) {
    SpokenPlace around = item.lines.front();
    for (const SpokenPlace& line : item.lines) {
        around.left = std::min(around.left, line.left);
        around.right = std::max(around.right, line.right);
        around.bottom = std::max(around.bottom, line.bottom);
    }
    return around;
}

SpokenPlace PlaceOf(const SpokenItems& shown, const SpokenItem& item) {
    const SpokenPlace around = PlaceAround(item);
    const int middleX = around.left + (around.right - around.left) / 2;
    const int middleY = around.top + (around.bottom - around.top) / 2;
    if (ItemAt(shown, middleX, middleY) == item.item) return around;
    return *std::ranges::max_element(item.lines, {}, [](const SpokenPlace& line) { return line.right - line.left; });
}

// ---- Words ----------------------------------------------------------------------------------------------------------

// Adjacent boxes that are marked are one text, in several faces.
static void AddFound(SpokenWords& words, const FlowBox& box) {
    if (box.keyWord && words.endsFound) {
        words.found.back().append(box.text);
    } else if (box.keyWord) {
        words.found.emplace_back(box.text);
    }
    words.endsFound = box.keyWord;
}

FlowVisitor WordsVisitor(SpokenWords& words) {
    return [&words](const FlowBox& box) {
        if (box.kind == BoxKind::kLabel) words.hasNote = box.text.find('*') != std::string_view::npos;
        if (box.kind != BoxKind::kWord) return true;
        words.text.append(box.text);
        AddFound(words, box);
        return !box.endsItem;
    };
}

static std::string WithoutEndBlanks(std::string text) {
    text.resize(text.find_last_not_of(' ') + 1);  // an empty text if there are only blanks
    return text;
}

std::string SpokenName(const std::string& reference, const SpokenWords& words) {
    return WithoutEndBlanks(reference + " " + words.text);
}

static std::string FoundTexts(const SpokenWords& words) {
    std::vector<std::string> once;
    std::string list;
    for (const std::string& found : words.found) {
        const std::string text = WithoutEndBlanks(found);
        if (std::ranges::find(once, text) != once.end()) continue;
        once.push_back(text);
        list += (list.empty() ? "" : ", ") + text;
    }
    return list;
}

std::string SpokenDescription(const SpokenWords& words) {
    const std::string found = FoundTexts(words);
    std::string description = found.empty() ? "" : "Found: " + found + ".";
    if (words.hasNote) description += description.empty() ? "Has a note." : " Has a note.";
    return description;
}
