#include "win32/long_lines.h"

#include <algorithm>

// Without Hebrew, Arabic and other letters of scripts from right to left, and without the marks of a direction.
static bool IsLeftToRight(wchar_t c) {
    static constexpr wchar_t kFirstHebrew = 0x590;
    const bool isPunctuation = (c >= 0x2010 && c <= 0x2027) || (c >= 0x2030 && c <= 0x205E);
    const bool isSymbol = c >= 0x20A0 && c <= 0x214F;  // of currencies, and like those for a number or a trade mark
    return c < kFirstHebrew || isPunctuation || isSymbol;
}

bool IsLeftToRight(std::wstring_view line) {
    return std::all_of(line.begin(), line.end(), [](wchar_t c) { return IsLeftToRight(c); });
}

static std::size_t LengthWithoutEnd(std::wstring_view line) {
    const std::size_t last = line.find_last_not_of(L"\r\n");
    return last == std::wstring_view::npos ? 0 : last + 1;
}

// The control regards all control characters as blanks but NUL.
static bool HasBlank(std::wstring_view text) {
    return std::any_of(text.begin(), text.end(), [](wchar_t c) { return c > 0 && c <= L' '; });
}

static bool AreTooMany(std::size_t items, std::wstring_view piece) {
    static constexpr std::size_t kFewestCharacters = 3;  // in an item; prose has six
    return items > 1 && (items * kFewestCharacters > piece.size() || !HasBlank(piece));
}

namespace {

using Items = std::span<const LineItem>;

// The items of a line, up to the piece that is to be done next.
struct Walk {
    std::wstring_view line;
    Items items;
    std::size_t done = 0;         // items
    bool isJoinedBefore = false;  // is the piece before one item?
    std::vector<LineItem> result{};
};

}  // namespace

// The item of the last character before the item `next`.
static LineItem ItemBefore(const Walk& walk, std::size_t next) {
    return walk.items[next - 1];
}

static std::size_t BeginOf(const Walk& walk, std::size_t item) {
    return item < walk.items.size() ? walk.items[item].begin : walk.line.size();
}

// The item that is `done` and goes on at `begin` begins there again.
static void GoOn(Walk& walk, std::size_t begin) {
    const LineItem item = ItemBefore(walk, walk.done);
    const bool isLong = BeginOf(walk, walk.done) - item.begin > kLongItem;
    if (isLong || walk.isJoinedBefore) walk.result.push_back({begin, item.kind});
}

static void Take(Walk& walk, std::size_t begin, std::size_t next) {
    if (BeginOf(walk, walk.done) > begin) GoOn(walk, begin);
    const Items taken = walk.items.subspan(walk.done, next - walk.done);
    walk.result.insert(walk.result.end(), taken.begin(), taken.end());
    walk.isJoinedBefore = false;
}

std::vector<LineItem> ItemsForLayout(std::wstring_view line, std::span<const LineItem> items, bool mayJoin,
                                     std::uint32_t letters) {
    if (line.size() <= kLongLine || items.empty()) return {items.begin(), items.end()};
    Walk walk{line, items};
    const std::size_t length = LengthWithoutEnd(line);
    for (std::size_t begin = 0; begin < length; begin += kPieceOfLongLine) {
        const std::wstring_view piece = line.substr(begin, std::min(kPieceOfLongLine, length - begin));
        std::size_t next = walk.done;
        while (BeginOf(walk, next) < begin + piece.size()) ++next;
        const bool goesOn = BeginOf(walk, walk.done) > begin;
        if (mayJoin && AreTooMany(next - walk.done + goesOn, piece)) {
            walk.result.push_back({begin, letters});
            walk.isJoinedBefore = true;
        } else {
            Take(walk, begin, next);
        }
        walk.done = next;
    }
    if (length < line.size()) Take(walk, length, items.size());
    return walk.result;
}
