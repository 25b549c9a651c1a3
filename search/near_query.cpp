#include "search/near_query.h"

#include <algorithm>

#include "scripture/letters.h"

static bool IsPatternCharacter(char c) {
    return IsWordCharacter(c) || c == '*' || c == '?';
}

// ---- Patterns -------------------------------------------------------------------------------------------------------

// The runs of letters and wildcards, as typed.
static std::vector<std::string_view> TypedWords(std::string_view text) {
    std::vector<std::string_view> words;
    for (std::size_t at = 0; at < text.size(); ++at) {
        const std::size_t start = at;
        while (at < text.size() && IsPatternCharacter(text[at])) ++at;
        if (at > start) words.push_back(text.substr(start, at - start));
    }
    return words;
}

static std::string PatternOfWord(std::string_view typed, bool caseSensitive, bool parts) {
    std::string pattern = parts ? "*" : "";
    for (const char c : typed)
        if (c != '*' || !pattern.ends_with('*')) pattern += caseSensitive ? c : LowerCased(c);
    if (parts && !pattern.ends_with('*')) pattern += '*';
    return pattern;
}

std::vector<std::string> NearPatternsOf(std::string_view text, bool caseSensitive, bool parts) {
    std::vector<std::string> patterns;
    for (const std::string_view typed : TypedWords(text))
        patterns.push_back(PatternOfWord(typed, caseSensitive, parts));
    return patterns;
}

bool HasWildcard(std::string_view pattern) {
    return pattern.find_first_of("*?") != std::string_view::npos;
}

// A star that was passed is tried again with one letter more, only the last one: what it leaves, the earlier ones would
// leave, too.
bool DoesPatternMean(std::string_view pattern, std::string_view word, bool anyCase) {
    std::size_t at = 0, letter = 0, star = std::string_view::npos, behindStar = 0;
    while (letter < word.size()) {
        const char c = anyCase ? LowerCased(word[letter]) : word[letter];
        if (at < pattern.size() && pattern[at] == '*') {
            star = at++;
            behindStar = letter;
        } else if (at < pattern.size() && (pattern[at] == '?' || pattern[at] == c)) {
            ++at;
            ++letter;
        } else if (star != std::string_view::npos) {
            at = star + 1;
            letter = ++behindStar;
        } else {
            return false;
        }
    }
    while (at < pattern.size() && pattern[at] == '*') ++at;
    return at == pattern.size();
}

// ---- The word list --------------------------------------------------------------------------------------------------

// Only the words that begin as the pattern does are looked at.
static std::vector<int> WordsLike(const WordIndex& index, std::string_view pattern) {
    const std::string_view start = pattern.substr(0, std::min(pattern.find_first_of("*?"), pattern.size()));
    const auto first = std::lower_bound(index.words.begin(), index.words.end(), start);
    std::vector<int> found;
    for (auto word = first; word != index.words.end() && word->starts_with(start); ++word)
        if (DoesPatternMean(pattern, *word, false)) found.push_back(static_cast<int>(word - index.words.begin()));
    return found;
}

std::vector<int> WordsMeant(const WordIndex& index, std::string_view pattern) {
    const std::string lowered = LowerCased(pattern);
    if (!HasWildcard(lowered)) {
        const int word = FindWord(index, lowered);
        return word >= 0 ? std::vector<int>{word} : std::vector<int>{};
    }
    const std::size_t size = lowered.size();
    const bool isPart = size > 2 && lowered.front() == '*' && lowered.back() == '*';
    if (isPart && !HasWildcard(std::string_view(lowered).substr(1, size - 2)))
        return WordsWith(index, std::string_view(lowered).substr(1, size - 2));
    return WordsLike(index, lowered);
}

// ---- The distance ---------------------------------------------------------------------------------------------------

NearUnit NearUnitOf(const NearOptions& options) {
    return options.Unit == kNearInVerse || options.Unit == kNearInVerses ? static_cast<NearUnit>(options.Unit)
                                                                         : kNearInWords;
}

static int MostApart(NearUnit unit) {
    return unit == kNearInVerses ? kMostVersesApart : kMostWordsApart;
}

int NearDistanceOf(const NearOptions& options) {
    return NearUnitOf(options) == kNearInVerse ? 0 : ShownNearDistance(options);
}

int ShownNearDistance(const NearOptions& options) {
    return std::clamp(options.Distance, 1, MostApart(NearUnitOf(options)));
}

const char* ProblemOfNearDistance(const NearOptions& options, std::size_t words) {
    const NearUnit unit = NearUnitOf(options);
    if (unit == kNearInVerse) return nullptr;
    if (options.Distance < 1 || options.Distance > MostApart(unit))
        return unit == kNearInVerses ? "For verses, type a number from 1 to 10."
                                     : "For words, type a number from 1 to 50.";
    if (unit == kNearInWords && words > static_cast<std::size_t>(options.Distance) + 1)
        return "So many words cannot stand so near each other. Type a larger number.";
    return nullptr;
}
