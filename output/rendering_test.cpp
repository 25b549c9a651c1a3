#include "output/rendering.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <vector>

#include "output/copy_text.h"
#include "tests/support/hand_made_scripture.h"
#include "tests/support/native_scripture.h"

// A verse and its expected rendering in a range, written by hand.
struct RenderedVerse {
    HandMadeVerse verse;
    std::string_view full, first, later;  // labels: full, partial as the first verse, partial as a later one
    std::string_view marked, unmarked;    // text with and without its paragraph mark
    std::string_view bare, unmarkedBare;  // the same without brackets
};

static constexpr RenderedVerse kVerses[] = {
    {{1, 1, 1, "\xB6One [was] one"},
     " Ge 1:1",
     " 1:1",
     "",
     "\xB6 One [was] one",
     "One [was] one",
     "\xB6 One was one",
     "One was one"},
    // A mark inside the verse does not begin a paragraph.
    {{1, 1, 2, "two \xB6two"}, " Ge 1:2", " 1:2", " 2", "two \xB6two", "two \xB6two", "two \xB6two", "two \xB6two"},
    {{1, 2, 1, "\xB6three"}, " Ge 2:1", " 2:1", " 2:1", "\xB6 three", "three", "\xB6 three", "three"},
    {{1, 2, 2, "[four]"}, " Ge 2:2", " 2:2", " 2", "[four]", "[four]", "four", "four"},
    // Another book with the same chapter.
    {{2, 2, 1, "five"}, " Ex 2:1", " 2:1", " Ex 2:1", "five", "five", "five", "five"},
    {{2, 2, 22, "six"}, " Ex 2:22", " 2:22", " 22", "six", "six", "six", "six"},
    // Another book and chapter; the next verse is compared with these.
    {{19, 119, 175, "\xB6"}, " Ps 119:175", " 119:175", " Ps 119:175", "\xB6 ", "", "\xB6 ", ""},
    {{19, 119, 176, ""}, " Ps 119:176", " 119:176", " 176", "", "", "", ""},
    {{65, 1, 1, "]last["}, " Jude 1:1", " 1:1", " Jude 1:1", "]last[", "]last[", "last", "last"},
};
static constexpr int kVersesMade = static_cast<int>(std::size(kVerses));

static const HandMadeFiles& TheFiles() {
    static const HandMadeFiles files = [] {
        HandMadeFiles made;
        for (const RenderedVerse& rendered : kVerses) AddVerse(made, rendered.verse);
        return made;
    }();
    return files;
}

static std::string_view ExpectedLabel(const FormatOptions& format, const RenderedVerse& verse, bool first) {
    switch (first ? format.FirstVerseStyle : format.SubsequentVerseStyle) {
        case 0: return verse.full;
        case 1: return first ? verse.first : verse.later;
        default: return "";
    }
}

static std::string_view ExpectedText(const FormatOptions& format, const RenderedVerse& verse) {
    if (format.ParagraphMarks) return format.Brackets ? verse.marked : verse.bare;
    return format.Brackets ? verse.unmarked : verse.unmarkedBare;
}

static std::string ExpectedRange(const FormatOptions& format, int first, int last) {
    std::string range;
    for (int verse = first; verse <= last; ++verse) {
        const RenderedVerse& rendered = kVerses[verse];
        const std::string label(ExpectedLabel(format, rendered, verse == first));
        const std::string text(ExpectedText(format, rendered));
        range += format.Location == 0 ? label + " " + text : " " + text + label;
        if (format.LineBreaks) range += "\r\n";
    }
    return range;
}

// Every choice of the format dialog: 72 of labels, line breaks and paragraph marks, each with and without brackets.
static std::vector<FormatOptions> EveryFormat() {
    std::vector<FormatOptions> formats;
    for (int choice = 0; choice < 3 * 3 * 2 * 2 * 2 * 2; ++choice) {
        const auto part = [choice](int from, int values) { return choice / from % values; };
        formats.push_back({static_cast<std::int8_t>(part(1, 3)), static_cast<std::int8_t>(part(3, 3)),
                           static_cast<std::int8_t>(part(9, 2)), part(18, 2), part(36, 2), part(72, 2)});
    }
    return formats;
}

static std::string NameOf(const FormatOptions& format) {
    return "styles " + std::to_string(format.FirstVerseStyle) + " " + std::to_string(format.SubsequentVerseStyle) +
           ", location " + std::to_string(format.Location) + ", line breaks " + std::to_string(format.LineBreaks) +
           ", marks " + std::to_string(format.ParagraphMarks) + ", brackets " + std::to_string(format.Brackets);
}

static std::string CopyOf(const FormatOptions& format, int first, int last) {
    return CopyRangeText(ScriptureOf(TheFiles()), format, first, last, RangeCopyBudget(first, last)).text;
}

TEST(Rendering, FollowsEveryFormatInEveryRange) {
    for (const FormatOptions& format : EveryFormat())
        for (int first = 0; first < kVersesMade; ++first)
            for (int last = first; last < kVersesMade; ++last)
                ASSERT_EQ(CopyOf(format, first, last), ExpectedRange(format, first, last))
                    << NameOf(format) << ", verses " << first << " to " << last;
}

TEST(Rendering, MatchesTheExamples) {
    struct Row {
        FormatOptions format;
        int first, last;
        const char* text;
    };
    const Row rows[] = {
        {{}, 0, 1, " Ge 1:1 \xB6 One was one\r\n 2 two \xB6two\r\n"},
        {{}, 3, 4, " Ge 2:2 four\r\n Ex 2:1 five\r\n"},
        {{0, 1, 1, 1, 1, 0}, 0, 1, " \xB6 One was one Ge 1:1\r\n two \xB6two 2\r\n"},
        {{2, 2, 1, 1, 1, 0}, 3, 4, " four\r\n five\r\n"},
        {{2, 0, 0, 0, 0, 1}, 0, 2, " One [was] one Ge 1:2 two \xB6two Ge 2:1 three"},
        {{1, 1, 0, 1, 0, 0}, 1, 2, " 1:2 two \xB6two\r\n 2:1 three\r\n"},
        {{1, 1, 1, 0, 1, 1}, 5, 6, " six 2:22 \xB6  Ps 119:175"},
    };
    for (const Row& row : rows) EXPECT_EQ(CopyOf(row.format, row.first, row.last), row.text) << NameOf(row.format);
}

// The settings file may contain any numbers.
TEST(Rendering, TreatsUnknownStylesAsNoneAndLocationsAsAfter) {
    EXPECT_EQ(CopyOf({3, -1, 0, 0, 1, 0}, 3, 4), " four five");
    EXPECT_EQ(CopyOf({0, 0, 127, -1, 1, 0}, 3, 4), " four Ge 2:2\r\n five Ex 2:1\r\n");
}

TEST(Rendering, AddsNothingForAnInvalidVerse) {
    const FormatOptions format;
    const Scripture scripture = ScriptureOf(TheFiles());
    RangeRenderer renderer{scripture, format};
    GrowingText text;
    Append(text, "kept");
    for (const int verse : {-1, kVersesMade, kVerseCount}) {
        AppendVerse(renderer, verse, text);
        AppendListLine(scripture, verse, PieceBrackets::kKept, text);
    }
    EXPECT_EQ(TextOf(text), "kept");
    AppendVerse(renderer, 1, text);
    EXPECT_EQ(TextOf(text), "kept Ge 1:2 two \xB6two\r\n") << "still the first verse of its range";
}

TEST(Rendering, RendersTheFirstVersesOfGenesis) {
    const Scripture& scripture = TheRealScripture();
    FormatOptions format;
    format.Brackets = 1;
    const std::string first(VerseText(scripture, 0)), second(VerseText(scripture, 1));
    ASSERT_EQ(first.substr(0, 14), "\xB6In the beginn");
    EXPECT_EQ(CopyRangeText(scripture, format, 0, 1, 1800).text,
              " Ge 1:1 \xB6 " + first.substr(1) + "\r\n 2 " + second + "\r\n");
}

struct BracketRow {
    const char* before;
    const char* after;
};

TEST(Brackets, AreAllRemoved) {
    static constexpr BracketRow kRows[] = {
        {"", ""},         {"no word", "no word"}, {"[it was] good", "it was good"},
        {"[[a]", "a"},    {"a] [b", "a b"},       {"[]", ""},
        {"]]a[[b", "ab"}, {"a[b]c[d]", "abcd"},   {"[a", "a"},
        {"a]", "a"},
    };
    for (const auto& [before, after] : kRows) {
        EXPECT_EQ(WithoutBrackets(before), after) << before;
    }
}

// Words are copied in blocks, so every place of a bracket in a block and behind the last one counts.
TEST(Brackets, AreRemovedFromEveryPlace) {
    static constexpr std::string_view kLetters = "abcdefghijklmnopqrstuvwxyzABCDEFGHIJKLMNOPQRSTUVWXYZ0123";
    for (std::size_t size = 1; size <= kLetters.size(); ++size) {
        for (std::size_t first = 0; first < size; ++first) {
            for (std::size_t second = first; second < size; ++second) {
                std::string text(kLetters.substr(0, size)), kept = text;
                kept.erase(second, 1);
                if (first != second) kept.erase(first, 1);
                text[first] = '[';
                text[second] = ']';
                ASSERT_EQ(WithoutBrackets(text), kept) << text;
            }
        }
    }
    EXPECT_EQ(WithoutBrackets(std::string(100, '[')), "");
}

TEST(Brackets, AreCountedWhenTheyAreLeftOut) {
    const Scripture scripture = ScriptureOf(TheFiles());
    const FormatOptions format;
    for (int verse = 0; verse < kVersesMade; ++verse) {
        const std::string_view marked = kVerses[verse].marked;
        const auto brackets =
            static_cast<std::size_t>(std::ranges::count_if(marked, [](char c) { return c == '[' || c == ']'; }));
        GrowingText text;
        RangeRenderer renderer{scripture, format, PieceBrackets::kLeftOut}, keeping{scripture, format};
        EXPECT_EQ(AppendVerse(renderer, verse, text), brackets) << verse;
        EXPECT_EQ(AppendVerse(keeping, verse, text), 0u) << verse;
        EXPECT_EQ(AppendListLine(scripture, verse, PieceBrackets::kLeftOut, text), brackets) << verse;
        EXPECT_EQ(AppendListLine(scripture, verse, PieceBrackets::kKept, text), 0u) << verse;
    }
}
