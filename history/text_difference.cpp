#include "history/text_difference.h"

#include <algorithm>
#include <optional>
#include <span>
#include <unordered_map>

#include "scripture/letters.h"

namespace {

// A text in pieces; equal pieces of the two texts have equal numbers.
struct Pieces {
    std::vector<std::string_view> texts{};
    std::vector<int> numbers{};
};

// `count` pieces from `before` on in one text, which equal those from `after` on in the other.
struct Match {
    std::size_t before = 0, after = 0, count = 0;
};
using Matches = std::vector<Match>;  // in order

}  // namespace

// ---- Pieces ---------------------------------------------------------------------------------------------------------

// Every byte above ASCII counts as a letter, as most are in the code pages.
static bool IsInWord(char c) {
    return IsWordCharacter(c) || IsDigit(c) || static_cast<unsigned char>(c) >= 0x80;
}

static bool IsSpace(char c) {
    return c == ' ' || c == '\t';
}

// The length of the word, of the run of spaces, or of the line end at the start of `text`; 1 for anything else.
static std::size_t WordLength(std::string_view text) {
    if (text.starts_with("\r\n")) return 2;
    bool (*const isSame)(char) = IsInWord(text.front()) ? IsInWord : IsSpace;
    const auto end = std::find_if_not(text.begin(), text.end(), isSame);
    return std::max<std::size_t>(1, static_cast<std::size_t>(end - text.begin()));
}

static std::size_t LineLength(std::string_view text) {
    const std::size_t end = text.find('\n');
    return end == std::string_view::npos ? text.size() : end + 1;
}

static Pieces PiecesOf(std::string_view text, std::size_t (*lengthOf)(std::string_view),
                       std::unordered_map<std::string_view, int>& numbers) {
    Pieces pieces;
    while (!text.empty()) {
        const std::string_view piece = text.substr(0, lengthOf(text));
        pieces.texts.push_back(piece);
        pieces.numbers.push_back(numbers.emplace(piece, static_cast<int>(numbers.size())).first->second);
        text.remove_prefix(piece.size());
    }
    return pieces;
}

// ---- Matches --------------------------------------------------------------------------------------------------------
// The fewest edits that make one text the other, by E. W. Myers, "An O(ND) Difference Algorithm and Its Variations"
// (1986). A point x, y stands behind x pieces of the text before and y pieces of the one after, on diagonal x - y.

static constexpr int kEditLimit = 1000;
static constexpr int kNowhere = -1;

namespace {

// The furthest x on each diagonal that so many edits lead to; the entry of diagonal k is at k + edits.
using Reach = std::vector<int>;

struct Sides {
    std::span<const int> before, after;
};

}  // namespace

static int ReachOf(const Reach& reach, int diagonal) {
    const int place = diagonal + static_cast<int>(reach.size() / 2);
    return place >= 0 && place < static_cast<int>(reach.size()) ? reach[static_cast<std::size_t>(place)] : kNowhere;
}

// Where one more edit leads on this diagonal: a removal comes from the diagonal below, an addition from the one above.
static int AfterRemoval(const Sides& sides, const Reach& reach, int diagonal) {
    const int x = ReachOf(reach, diagonal - 1);
    return x == kNowhere || x >= static_cast<int>(sides.before.size()) ? kNowhere : x + 1;
}

static int AfterAddition(const Sides& sides, const Reach& reach, int diagonal) {
    const int x = ReachOf(reach, diagonal + 1);
    return x == kNowhere || x - diagonal > static_cast<int>(sides.after.size()) ? kNowhere : x;
}

static int AfterEdit(const Sides& sides, const Reach& reach, int diagonal) {
    return std::max(AfterRemoval(sides, reach, diagonal), AfterAddition(sides, reach, diagonal));
}

static int PastEqualPieces(const Sides& sides, int x, int diagonal) {
    auto before = static_cast<std::size_t>(x), after = static_cast<std::size_t>(x - diagonal);
    while (before < sides.before.size() && after < sides.after.size() && sides.before[before] == sides.after[after])
        ++before, ++after;
    return static_cast<int>(before);
}

static Reach NextReach(const Sides& sides, const Reach& last) {
    const int edits = static_cast<int>(last.size() / 2) + 1;
    Reach next(static_cast<std::size_t>(2 * edits + 1), kNowhere);
    for (int diagonal = -edits; diagonal <= edits; diagonal += 2) {
        const int x = AfterEdit(sides, last, diagonal);
        if (x != kNowhere) next[static_cast<std::size_t>(diagonal + edits)] = PastEqualPieces(sides, x, diagonal);
    }
    return next;
}

static Match MatchAt(int x, int diagonal, int end) {
    return {static_cast<std::size_t>(x), static_cast<std::size_t>(x - diagonal), static_cast<std::size_t>(end - x)};
}

// The matches on the way to the last reach's end.
static Matches MatchesAlong(const Sides& sides, const std::vector<Reach>& reaches) {
    Matches matches;
    int x = static_cast<int>(sides.before.size());
    int diagonal = x - static_cast<int>(sides.after.size());
    for (std::size_t edits = reaches.size() - 1; edits > 0; --edits) {
        const int start = AfterEdit(sides, reaches[edits - 1], diagonal);
        if (x > start) matches.push_back(MatchAt(start, diagonal, x));
        const bool isRemoval = start == AfterRemoval(sides, reaches[edits - 1], diagonal);
        x = isRemoval ? start - 1 : start;
        diagonal += isRemoval ? -1 : 1;
    }
    if (x > 0) matches.push_back(MatchAt(0, 0, x));
    std::ranges::reverse(matches);
    return matches;
}

// nullopt beyond kEditLimit edits.
static std::optional<Matches> MatchesOf(const Sides& sides) {
    const int end = static_cast<int>(sides.before.size());
    const int diagonal = end - static_cast<int>(sides.after.size());
    std::vector<Reach> reaches{{PastEqualPieces(sides, 0, 0)}};
    while (ReachOf(reaches.back(), diagonal) != end) {
        if (reaches.size() > kEditLimit) return std::nullopt;
        reaches.push_back(NextReach(sides, reaches.back()));
    }
    return MatchesAlong(sides, reaches);
}

// ---- Lines before words ---------------------------------------------------------------------------------------------

// The number of the piece that begins at each byte of the text, and behind its end the number of pieces.
static std::vector<std::size_t> PieceNumbers(const Pieces& pieces, std::size_t size) {
    std::vector<std::size_t> numbers(size + 1, pieces.texts.size());
    std::size_t offset = 0;
    for (std::size_t i = 0; i < pieces.texts.size(); ++i) {
        numbers[offset] = i;
        offset += pieces.texts[i].size();
    }
    return numbers;
}

static std::size_t OffsetOf(const Pieces& pieces, std::size_t piece, std::string_view text) {
    return piece == pieces.texts.size() ? text.size()
                                        : static_cast<std::size_t>(pieces.texts[piece].data() - text.data());
}

// Adds the matches between two places of each text, given as numbers of pieces.
static void AddMatchesBetween(const Sides& sides, const Match& begin, const Match& end, Matches& matches) {
    const Sides part{sides.before.subspan(begin.before, end.before - begin.before),
                     sides.after.subspan(begin.after, end.after - begin.after)};
    for (const Match& match : MatchesOf(part).value_or(Matches{}))
        matches.push_back({begin.before + match.before, begin.after + match.after, match.count});
}

static Matches MatchesByLines(std::string_view before, std::string_view after, const Pieces& beforeWords,
                              const Pieces& afterWords) {
    std::unordered_map<std::string_view, int> numbers;
    const Pieces beforeLines = PiecesOf(before, LineLength, numbers), afterLines = PiecesOf(after, LineLength, numbers);
    const auto beforePlaces = PieceNumbers(beforeWords, before.size());
    const auto afterPlaces = PieceNumbers(afterWords, after.size());
    const Sides words{beforeWords.numbers, afterWords.numbers};
    Matches lines = MatchesOf({beforeLines.numbers, afterLines.numbers}).value_or(Matches{});
    lines.push_back({beforeLines.texts.size(), afterLines.texts.size(), 0});
    Matches matches;
    Match done;
    for (const Match& line : lines) {
        const Match begin{beforePlaces[OffsetOf(beforeLines, line.before, before)],
                          afterPlaces[OffsetOf(afterLines, line.after, after)]};
        const Match end{beforePlaces[OffsetOf(beforeLines, line.before + line.count, before)],
                        afterPlaces[OffsetOf(afterLines, line.after + line.count, after)]};
        AddMatchesBetween(words, done, begin, matches);
        if (end.before > begin.before) matches.push_back({begin.before, begin.after, end.before - begin.before});
        done = end;
    }
    return matches;
}

// ---- Runs -----------------------------------------------------------------------------------------------------------

static bool IsOnlySpace(std::string_view text) {
    return std::ranges::all_of(text, IsSpace);
}

// Joins matches that touch, and drops those of spaces alone between changes.
static Matches Joined(const Matches& matches, const Pieces& before, const Pieces& after) {
    Matches joined;
    for (const Match& match : matches) {
        if (!joined.empty() && joined.back().before + joined.back().count == match.before &&
            joined.back().after + joined.back().count == match.after) {
            joined.back().count += match.count;
        } else {
            joined.push_back(match);
        }
    }
    std::erase_if(joined, [&](const Match& match) {
        const bool isAtStart = match.before == 0 && match.after == 0;
        const bool isAtEnd = match.before + 1 == before.texts.size() && match.after + 1 == after.texts.size();
        return !isAtStart && !isAtEnd && match.count == 1 && IsOnlySpace(before.texts[match.before]);
    });
    return joined;
}

static void AddRun(RunKind kind, std::string_view text, std::size_t begin, std::size_t end,
                   std::vector<TextRun>& runs) {
    if (begin < end) runs.push_back({kind, text.substr(begin, end - begin)});
}

std::vector<TextRun> TextDifference(std::string_view before, std::string_view after) {
    std::unordered_map<std::string_view, int> numbers;
    const Pieces beforeWords = PiecesOf(before, WordLength, numbers), afterWords = PiecesOf(after, WordLength, numbers);
    std::optional<Matches> matches = MatchesOf({beforeWords.numbers, afterWords.numbers});
    if (!matches) matches = MatchesByLines(before, after, beforeWords, afterWords);
    Matches kept = Joined(*matches, beforeWords, afterWords);
    kept.push_back({beforeWords.texts.size(), afterWords.texts.size(), 0});
    std::vector<TextRun> runs;
    std::size_t doneBefore = 0, doneAfter = 0;
    for (const Match& match : kept) {
        const std::size_t begin = OffsetOf(beforeWords, match.before, before);
        const std::size_t end = OffsetOf(beforeWords, match.before + match.count, before);
        const std::size_t beginAfter = OffsetOf(afterWords, match.after, after);
        AddRun(RunKind::kRemoved, before, doneBefore, begin, runs);
        AddRun(RunKind::kAdded, after, doneAfter, beginAfter, runs);
        AddRun(RunKind::kKept, before, begin, end, runs);
        doneBefore = end;
        doneAfter = beginAfter + (end - begin);
    }
    return runs;
}
