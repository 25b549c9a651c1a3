#include "bench/search_floors.h"

#include <emmintrin.h>

#include <algorithm>
#include <array>
#include <bit>
#include <cstring>

static constexpr std::size_t kLongestVerse = 1000;
static constexpr std::size_t kLongestMarkedVerse = 4000;

static bool IsLetter(char c) {
    return static_cast<unsigned char>((c | 0x20) - 'a') < 26;
}

static void CopyLowerCased(std::string_view text, char* copy) {
    for (std::size_t i = 0; i < text.size(); ++i)
        copy[i] = static_cast<char>(text[i] + (static_cast<unsigned char>(text[i] - 'A') < 26 ? 0x20 : 0));
    copy[text.size()] = '\0';
}

static const char* Find(const char* from, const char* end, std::string_view word) {
    return static_cast<const char*>(memmem(from, static_cast<std::size_t>(end - from), word.data(), word.size()));
}

static char* Append(char* to, const char* from, const char* end) {
    const auto size = static_cast<std::size_t>(end - from);
    std::memcpy(to, from, size);
    return to + size;
}

static int MarkInCopy(std::string_view text, std::string_view word, char* marked) {
    std::array<char, kLongestVerse> lowerCased;
    CopyLowerCased(text, lowerCased.data());
    const char* begin = lowerCased.data();
    const char* end = begin + text.size();
    const char* done = begin;
    int count = 0;
    for (const char* place = Find(begin, end, word); place != nullptr; place = Find(place + word.size(), end, word)) {
        const char* after = place + word.size();
        if ((place > begin && IsLetter(place[-1])) || IsLetter(*after)) continue;
        marked = Append(marked, text.data() + (done - begin), text.data() + (place - begin));
        *marked++ = '{';
        marked = Append(marked, text.data() + (place - begin), text.data() + (after - begin));
        *marked++ = '}';
        done = after;
        ++count;
    }
    *Append(marked, text.data() + (done - begin), text.data() + text.size()) = '\0';
    return count;
}

static std::size_t EntryAt(std::span<const unsigned char> entries, std::size_t at) {
    return static_cast<std::size_t>(entries[at] | entries[at + 1] << 8);
}

int MarkEveryHit(const Scripture& scripture, const WordIndex& index, std::string_view word) {
    std::array<char, kLongestMarkedVerse> marked;
    int count = 0;
    const std::span<const unsigned char> entries = EntriesOf(index, FindWord(index, word));
    for (std::size_t at = 0; at < entries.size(); at += 2)
        count += MarkInCopy(VerseText(scripture, static_cast<int>(EntryAt(entries, at))), word, marked.data());
    return count;
}

int ClearAndScanCounters(std::vector<std::uint16_t>& counters) {
    std::fill(counters.begin(), counters.end(), std::uint16_t{0});
    return static_cast<int>(std::count(counters.begin(), counters.end(), std::uint16_t{1}));
}

int CheckCandidates(const Scripture& scripture, const WordIndex& index, const std::vector<std::string>& words,
                    std::string_view phrase, std::vector<std::uint16_t>& counters) {
    std::fill(counters.begin(), counters.end(), std::uint16_t{0});
    for (const std::string& word : words) {
        const std::span<const unsigned char> entries = EntriesOf(index, FindWord(index, word));
        for (std::size_t at = 0; at < entries.size(); at += 2) ++counters[EntryAt(entries, at)];
    }
    std::array<char, kLongestVerse> lowerCased;
    int count = 0;
    for (std::size_t verse = 0; verse < counters.size(); ++verse) {
        if (counters[verse] != words.size()) continue;
        const std::string_view text = VerseText(scripture, static_cast<int>(verse));
        CopyLowerCased(text, lowerCased.data());
        if (Find(lowerCased.data(), lowerCased.data() + text.size(), phrase) != nullptr) ++count;
    }
    return count;
}

static bool StandsAt(const char* place, std::string_view phrase) {
    for (std::size_t i = 0; i < phrase.size(); ++i)
        if ((place[i] | (IsLetter(place[i]) ? 0x20 : 0)) != phrase[i]) return false;
    return true;
}

int SweepWholeText(const Scripture& scripture, std::string_view phrase) {
    const char* text = scripture.text.data();
    const char* end = text + scripture.text.size() - phrase.size() - 15;
    const __m128i fold = _mm_set1_epi8(0x20);
    const __m128i first = _mm_set1_epi8(phrase.front());
    const __m128i last = _mm_set1_epi8(phrase.back());
    int count = 0;
    for (const char* here = text; here < end; here += 16) {
        const auto* ahead = reinterpret_cast<const __m128i*>(here + phrase.size() - 1);
        const __m128i begins = _mm_or_si128(_mm_loadu_si128(reinterpret_cast<const __m128i*>(here)), fold);
        const __m128i ends = _mm_or_si128(_mm_loadu_si128(ahead), fold);
        const __m128i both = _mm_and_si128(_mm_cmpeq_epi8(begins, first), _mm_cmpeq_epi8(ends, last));
        for (auto places = static_cast<unsigned>(_mm_movemask_epi8(both)); places != 0; places &= places - 1)
            if (StandsAt(here + std::countr_zero(places), phrase)) ++count;
    }
    return count;
}
