#include "notes/reference_places.h"

#include <algorithm>

static void Add(const Reader& reader, std::size_t begin, const ReadPlace& place) {
    reader.found.push_back({static_cast<std::uint32_t>(begin), static_cast<std::uint32_t>(place.state.end - begin),
                            place.first, place.last});
}

static int VerseOf(const Reader& reader, const ListState& state, int verse) {
    return ExactVerse(reader.chapters, state.book, state.chapter, verse);
}

bool HasColon(const Reader& reader, std::size_t end) {
    return CharAt(reader, end) == ':' && IsDigit(CharAt(reader, end + 1));
}

bool HasOneChapter(const Reader& reader, int book) {
    return VersesIn(reader.chapters, book, 2) == 0;
}

// A book with a number, by its full name or with a number behind it: what looks like an item of a list is the beginning
// of the next reference.
static bool IsNumberedBookAt(const Reader& reader, std::size_t at) {
    const char c = CharAt(reader, at);
    if (c < '1' || c > '3') return false;
    const auto book = BookAt(reader.text, at);
    if (!book) return false;
    if (book->isFullName && !book->isFirstName) return true;
    std::size_t end = book->end;
    if (CharAt(reader, end) == '.') ++end;
    return NumberAt(reader.text, BlanksEnd(reader.text, end)).has_value();
}

bool EndsPhrase(const Reader& reader, std::size_t at) {
    const std::size_t end = BlanksEnd(reader.text, at);
    const char c = CharAt(reader, end);
    const bool isWord = IsLetterOrDigit(c) || static_cast<unsigned char>(c) >= 0xC3;
    return !isWord || IsWordAt(reader.text, end, "and") || IsWordAt(reader.text, end, "or") ||
           IsWordAt(reader.text, end, "to");
}

// ---- Ranges ---------------------------------------------------------------------------------------------------------

// The end of a range sign at `at`; `at` if there is none.
static std::size_t RangeSignEnd(const Reader& reader, std::size_t at) {
    const std::size_t dash = DashEnd(reader.text, at);
    if (dash > at) return dash;
    const std::size_t word = BlanksEnd(reader.text, at);
    if (word == at) return at;
    for (const std::string_view sign : {"to", "through"})
        if (IsWordAt(reader.text, word, sign)) return BlanksEnd(reader.text, word + sign.size());
    return at;
}

// "121-2" means 122, as "35-7" means 37.
static int Completed(int first, int last) {
    if (last >= first) return last;
    const int step = last < 10 ? 10 : 100;
    return last < 100 ? first - first % step + last : last;
}

// The number of a verse behind a chapter's number that ends at `at`.
static std::optional<SpeltNumber> VerseBehind(const Reader& reader, const SpeltNumber& chapter) {
    std::size_t at = chapter.end;
    const char sign = CharAt(reader, at);
    if (sign != ':' && !(chapter.isRoman && (sign == '.' || sign == ','))) return std::nullopt;
    at = BlanksEnd(reader.text, at + 1);
    return VerseNumberAt(reader.text, at);
}

// Behind a verse, which is the end of `place` so far: moves its end.
static void TakeVerseRange(const Reader& reader, ReadPlace& place) {
    ListState& state = place.state;
    const std::size_t at = RangeSignEnd(reader, state.end);
    if (at == state.end) return;
    ListState end = state;
    if (const auto chapter = NumberAt(reader.text, at)) {
        if (const auto verse = VerseBehind(reader, *chapter)) {
            end.chapter = chapter->value;
            end.verse = verse->value;
            end.end = verse->end;
        }
    }
    if (end.end == state.end) {
        const auto verse = VerseNumberAt(reader.text, at);
        if (!verse || HasColon(reader, verse->end) || IsNumberedBookAt(reader, at)) return;
        end.verse = Completed(state.verse, verse->value);
        end.end = verse->end;
    }
    const int last = VerseOf(reader, end, end.verse);
    if (last <= place.first) return;
    place.last = last;
    state = end;
}

static void TakeFollowing(const Reader& reader, ReadPlace& place, int most) {
    const FollowingWord word = FollowingAt(reader.text, place.state.end);
    if (word.following == Following::kNone) return;
    place.state.end = word.end;
    place.last = word.following == Following::kAll ? most : std::min(place.last + 1, most);
}

std::optional<ReadPlace> VersesAt(const Reader& reader, const ListState& state, std::size_t at) {
    const auto number = VerseNumberAt(reader.text, at);
    const bool isBehindColon = at > 0 && reader.text[at - 1] == ':';  // "Lu 4:1 Joh 1:14"
    if (!number || (!isBehindColon && IsNumberedBookAt(reader, at))) return std::nullopt;
    const int verse = VerseOf(reader, state, number->value);
    if (verse == kNoVerse) return std::nullopt;
    if (HasColon(reader, number->end)) return std::nullopt;  // "8:28:30"
    ReadPlace place{verse, verse, state};
    place.state.verse = number->value;
    place.state.end = number->end;
    TakeVerseRange(reader, place);
    const int most = VerseOf(reader, place.state, VersesIn(reader.chapters, state.book, place.state.chapter));
    TakeFollowing(reader, place, most);
    return place;
}

ReadPlace WholeChapter(const Reader& reader, ListState state) {
    const int verses = VersesIn(reader.chapters, state.book, state.chapter);
    state.verse = 0;
    return {VerseOf(reader, state, 1), VerseOf(reader, state, verses), state};
}

// Behind a whole chapter.
static void TakeChapterRange(const Reader& reader, ReadPlace& place) {
    const std::size_t from = place.state.end;
    const bool hasStop = CharAt(reader, from) == '.' && DashEnd(reader.text, from + 1) > from + 1;  // "11.-18."
    const std::size_t at = RangeSignEnd(reader, from + (hasStop ? 1 : 0));
    if (at == from + (hasStop ? 1 : 0)) return;
    const auto number = NumberAt(reader.text, at);
    if (!number || IsNumberedBookAt(reader, at)) return;
    ListState end = place.state;
    end.chapter = Completed(end.chapter, number->value);
    end.end = number->end;
    if (const auto verse = VerseBehind(reader, *number)) {
        end.chapter = number->value;
        end.verse = verse->value;
        end.end = verse->end;
    }
    const int last = end.verse > 0 ? VerseOf(reader, end, end.verse) : WholeChapter(reader, end).last;
    if (last <= place.last) return;
    place.last = last;
    place.state = end;
}

// ---- Places ---------------------------------------------------------------------------------------------------------

// Where the verse stands that belongs to the chapter's number; the number's end if there is none.
static std::size_t VerseOfChapter(const Reader& reader, const ListState& state, const SpeltNumber& chapter) {
    const std::size_t at = chapter.end;
    const char sign = CharAt(reader, at);
    const std::size_t behind = BlanksEnd(reader.text, at + 1);
    const bool hasBlank = behind > at + 1;
    const std::size_t word = BlanksEnd(reader.text, sign == '.' || sign == ',' || sign == ';' ? at + 1 : at);
    if (const SpeltPlaceWord verse = PlaceWordAt(reader.text, word); verse.word == PlaceWord::kVerse)
        return IsDigit(CharAt(reader, verse.end)) ? verse.end : at;
    if (!IsDigit(CharAt(reader, behind)) && sign != ' ') return at;
    if (sign == ':') return behind;
    if (IsNumberedBookAt(reader, behind)) return at;
    if (chapter.isRoman && (sign == '.' || (sign == ',' && !chapter.isOneLetter))) return behind;
    if (chapter.isRoman && sign == ' ' && !chapter.isInCapitals) {
        const std::size_t number = BlanksEnd(reader.text, at);
        return IsDigit(CharAt(reader, number)) && !IsNumberedBookAt(reader, number) ? number : at;
    }
    if (chapter.isRoman || sign != '.') return at;
    if (!hasBlank) return behind;
    const auto number = VerseNumberAt(reader.text, behind);
    return state.hasStop && number && EndsPhrase(reader, number->end) ? behind : at;
}

std::optional<ReadPlace> PlaceAt(const Reader& reader, ListState state, std::size_t at) {
    const auto number = NumberAt(reader.text, at);
    if (!number) {  // "Jude 5f."
        const bool isVerse = HasOneChapter(reader, state.book);
        state.chapter = 1;
        return isVerse ? VersesAt(reader, state, at) : std::nullopt;
    }
    if (IsNumberedBookAt(reader, at)) return std::nullopt;
    const std::size_t verse = VerseOfChapter(reader, state, *number);
    if (verse == number->end && !number->isRoman && HasOneChapter(reader, state.book)) {
        state.chapter = 1;
        return VersesAt(reader, state, at);
    }
    state.chapter = number->value;
    state.isRoman = number->isRoman;
    state.end = number->end;
    if (VersesIn(reader.chapters, state.book, state.chapter) == 0) return std::nullopt;
    if (verse > number->end) {
        const std::string_view sign = reader.text.substr(number->end, verse - number->end);
        state.hasWord = std::ranges::any_of(sign, IsLetter);
        if (auto place = VersesAt(reader, state, verse)) return place;
        const bool mayEndSentence = !state.hasWord && sign.front() != ':' && sign.size() > 1;
        if (!mayEndSentence) return std::nullopt;
    }
    ReadPlace place = WholeChapter(reader, state);
    TakeChapterRange(reader, place);
    return place;
}

// ---- Lists ----------------------------------------------------------------------------------------------------------

std::size_t WordEnd(const Reader& reader, std::size_t at, std::initializer_list<std::string_view> words) {
    for (const std::string_view word : words)
        if (IsWordAt(reader.text, at, word)) return at + word.size();
    return at;
}

Separator SeparatorAt(const Reader& reader, std::size_t at) {
    Separator separator;
    for (at = BlanksEnd(reader.text, at);; at = BlanksEnd(reader.text, at + 1)) {
        at = BlanksEnd(reader.text, WordEnd(reader, at, {"&c.", "etc."}));
        const char c = CharAt(reader, at);
        separator.hasComma |= c == ',';
        separator.hasSemicolon |= c == ';';
        separator.hasStop |= c == '.';
        if (c != ',' && c != ';' && c != '.') break;
    }
    separator.hasStop &= !separator.hasComma && !separator.hasSemicolon;  // "24., 25."
    std::size_t end = CharAt(reader, at) == '&' ? at + 1 : WordEnd(reader, at, {"and", "or"});
    separator.hasAnd = end > at;
    at = BlanksEnd(reader.text, end);
    end = WordEnd(reader, at, {"see", "cf", "also", "compare", "comp"});
    separator.hasWord = end > at;
    if (separator.hasWord && CharAt(reader, end) == '.') ++end;
    separator.end = BlanksEnd(reader.text, end);
    return separator;
}

static bool HasSign(const Separator& separator) {
    return separator.hasComma || separator.hasSemicolon || separator.hasAnd;
}

// A number alone behind a verse.
static std::optional<ReadPlace> NextVerse(const Reader& reader, const ListState& state, const Separator& separator) {
    if (separator.hasStop || separator.hasWord || !HasSign(separator)) return std::nullopt;
    if (separator.hasSemicolon && !state.isOfNote) return std::nullopt;
    const auto place = VersesAt(reader, state, separator.end);
    if (!place) return std::nullopt;
    const bool isGreater = place->first > VerseOf(reader, state, state.verse);
    const bool isLikely = isGreater || (!separator.hasAnd && EndsPhrase(reader, place->state.end));
    return isLikely ? place : std::nullopt;
}

// A number alone behind a chapter.
static std::optional<ReadPlace> NextChapter(const Reader& reader, const ListState& state, const Separator& separator) {
    const auto number = NumberAt(reader.text, separator.end);
    if (!number || number->isRoman != state.isRoman || (number->isInCapitals && number->isOneLetter))
        return std::nullopt;
    const bool isBehindStop = separator.hasStop && (state.isPlural || state.isRoman);
    if (separator.hasStop && !isBehindStop) return std::nullopt;
    if (!HasSign(separator) && !isBehindStop) return std::nullopt;
    if (separator.hasAnd && number->value <= state.chapter) return std::nullopt;
    const auto place = PlaceAt(reader, state, separator.end);
    if (!place || !EndsPhrase(reader, place->state.end)) return std::nullopt;
    return place;
}

bool HasVerse(const ReadPlace& place) {
    return place.state.verse > 0;
}

std::optional<ReadPlace> NextItem(const Reader& reader, const ListState& state, const Separator& separator) {
    const std::size_t at = separator.end;
    if (const SpeltPlaceWord word = PlaceWordAt(reader.text, at); word.word != PlaceWord::kNone) {
        if (!HasSign(separator) || separator.hasStop) return std::nullopt;
        const bool isOfList = word.word == PlaceWord::kChapter || state.isOfNote || state.hasWord;
        if (!isOfList) return std::nullopt;  // "Rom 8:28 and v. 3": a verse of the note
        return word.word == PlaceWord::kVerse ? VersesAt(reader, state, word.end) : PlaceAt(reader, state, word.end);
    }
    if (IsNumberedBookAt(reader, at)) return std::nullopt;
    const auto number = NumberAt(reader.text, at);
    const bool isPair = number && !number->isRoman && HasColon(reader, number->end);
    const bool isRomanPair = number && number->isRoman && state.isRoman && !number->isInCapitals && HasSign(separator);
    if ((isPair && at > state.end && !separator.hasStop) || isRomanPair)
        if (auto place = PlaceAt(reader, state, at); place && (HasVerse(*place) || HasOneChapter(reader, state.book)))
            return place;
    if (isPair) return std::nullopt;
    return state.verse > 0 ? NextVerse(reader, state, separator) : NextChapter(reader, state, separator);
}

// Adds the items behind the first one. Returns the end of the list.
static std::size_t TakeList(const Reader& reader, ListState state) {
    for (;;) {
        const Separator separator = SeparatorAt(reader, state.end);
        if (separator.end == state.end) return state.end;
        const auto place = NextItem(reader, state, separator);
        if (!place) return state.end;
        Add(reader, separator.end, *place);
        state = place->state;
    }
}

std::size_t TakePlaceAndList(const Reader& reader, std::size_t begin, const ReadPlace& place) {
    Add(reader, begin, place);
    return TakeList(reader, place.state);
}
