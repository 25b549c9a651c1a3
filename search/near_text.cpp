#include "search/near_text.h"

#include <algorithm>
#include <unordered_set>

#include "scripture/letters.h"
#include "search/near_query.h"

static constexpr char16_t kFirstBeyondAscii = 0x80;

// Beyond ASCII all that is no sign counts as a letter; halves of letters, too.
static bool IsForeignLetter(char16_t unit) {
    static constexpr char16_t kLatinSigns[] = {0xD7, 0xF7};
    static constexpr char16_t kLettersAmongSigns[] = {0xAA, 0xB5, 0xBA};
    if (unit < kFirstBeyondAscii || std::ranges::find(kLatinSigns, unit) != std::end(kLatinSigns)) return false;
    if (unit < 0xC0) return std::ranges::find(kLettersAmongSigns, unit) != std::end(kLettersAmongSigns);
    const bool isPunctuation = unit >= 0x2000 && unit < 0x2C00, isWideSign = unit >= 0x3000 && unit < 0x3040;
    return !isPunctuation && !isWideSign;
}

static bool IsWildcard(char16_t unit) {
    return unit == u'*' || unit == u'?';
}

static bool IsOfTypedWord(char16_t unit) {
    if (unit >= kFirstBeyondAscii) return IsForeignLetter(unit);
    return IsWildcard(unit) || IsWordCharacter(static_cast<char>(unit));
}

// The runs of letters and wildcards.
static std::vector<std::u16string_view> TypedWords(std::u16string_view text) {
    std::vector<std::u16string_view> words;
    for (std::size_t at = 0; at < text.size(); ++at) {
        const std::size_t start = at;
        while (at < text.size() && IsOfTypedWord(text[at])) ++at;
        if (at > start) words.push_back(text.substr(start, at - start));
    }
    return words;
}

std::size_t CountNearWords(std::u16string_view text) {
    return TypedWords(text).size();
}

// ---- The words that are meant ---------------------------------------------------------------------------------------

static void AddWords(std::string_view text, std::unordered_set<std::string_view>& words) {
    for (std::size_t at = 0; at < text.size(); ++at) {
        const std::size_t start = at;
        while (at < text.size() && IsWordCharacter(text[at])) ++at;
        if (at > start) words.insert(text.substr(start, at - start));
    }
}

std::vector<std::string> SpellingsOf(const Scripture& scripture) {
    std::unordered_set<std::string_view> words;
    for (int verse = 0; verse < kVerseCount; ++verse) AddWords(VerseText(scripture, verse), words);
    std::vector<std::string> spellings(words.begin(), words.end());
    std::ranges::sort(spellings);
    return spellings;
}

static std::u16string Widened(std::string_view ascii) {
    return {ascii.begin(), ascii.end()};
}

static std::size_t CountMeant(const KnownWords& known, std::u16string_view typed, bool parts) {
    if (std::ranges::any_of(typed, IsForeignLetter)) return 0;
    const bool caseSensitive = known.spellings != nullptr;
    std::string ascii;
    for (const char16_t unit : typed) ascii += static_cast<char>(unit);
    const std::string pattern = NearPatternsOf(ascii, caseSensitive, parts).front();
    if (!caseSensitive) return WordsMeant(known.index, pattern).size();
    const auto isMeant = [&](const std::string& word) { return DoesPatternMean(pattern, word, false); };
    return static_cast<std::size_t>(std::ranges::count_if(*known.spellings, isMeant));
}

static std::u16string Shortened(std::u16string_view typed) {
    static constexpr std::size_t kLongest = 24;
    if (typed.size() <= kLongest) return std::u16string(typed);
    return std::u16string(typed.substr(0, kLongest - 3)) + u"...";
}

static std::u16string CountedWords(std::size_t count) {
    if (count == 0) return u"no word";
    return Widened(std::to_string(count)) + (count == 1 ? u" word" : u" words");
}

std::u16string NearCounts(const KnownWords& known, std::u16string_view text, bool parts) {
    std::vector<std::u16string_view> words = TypedWords(text);
    if (words.size() > kMostNearWords) words.resize(kMostNearWords);
    std::u16string told;
    for (const std::u16string_view typed : words) {
        const std::u16string counted = CountedWords(CountMeant(known, typed, parts));
        told.append(told.empty() ? u"" : u"; ").append(Shortened(typed)).append(u": ").append(counted);
    }
    return told;
}

// ---- What cannot be searched for ------------------------------------------------------------------------------------

// With both halves of a letter that has two.
static std::u16string LetterAt(std::u16string_view text, std::size_t place) {
    const bool isHalf = text[place] >= 0xD800 && text[place] < 0xDC00;
    return std::u16string(text.substr(place, isHalf ? 2 : 1));
}

std::u16string ProblemOfNearText(std::u16string_view text) {
    const std::vector<std::u16string_view> words = TypedWords(text);
    if (words.empty()) return u"Type the words to search for.";
    if (words.size() > kMostNearWords) return u"Type at most 10 words.";
    if (std::ranges::any_of(words, [](std::u16string_view word) { return std::ranges::all_of(word, IsWildcard); }))
        return u"Type at least one letter beside each * and ?.";
    const auto foreign = std::ranges::find_if(text, IsForeignLetter);
    if (foreign == text.end()) return {};
    const auto place = static_cast<std::size_t>(foreign - text.begin());
    return u'"' + LetterAt(text, place) + u"\" is in no word of the text.";
}
