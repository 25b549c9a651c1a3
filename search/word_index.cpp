#include "search/word_index.h"

#include <algorithm>
#include <cstring>

#include "scripture/little_endian.h"
#include "search/text_scan.h"

static constexpr std::size_t kPointerSize = 4;
static constexpr std::size_t kEntrySize = 2;
static constexpr std::size_t kUsualWordSize = 8;  // including the terminating zero; an estimate for reserving memory

// A last word without terminating zero is omitted, because callers use the words as zero-terminated strings.
static std::vector<std::string_view> WordsOf(std::span<const unsigned char> bytes) {
    std::vector<std::string_view> words;
    words.reserve(bytes.size() / kUsualWordSize);
    const char* word = reinterpret_cast<const char*>(bytes.data());
    const char* end = word + bytes.size();
    while (word < end) {
        const void* zero = std::memchr(word, 0, static_cast<std::size_t>(end - word));
        if (zero == nullptr) break;
        const char* wordEnd = static_cast<const char*>(zero);
        words.emplace_back(word, static_cast<std::size_t>(wordEnd - word));
        word = wordEnd + 1;
    }
    return words;
}

static std::string_view BlockOf(const std::vector<std::string_view>& words) {
    if (words.empty()) return {};
    const char* const begin = words.front().data();
    return {begin, static_cast<std::size_t>(words.back().data() + words.back().size() - begin)};
}

IndexLoad LoadWordIndex(const DataFiles& files, WordIndex& index) {
    index = {};
    std::span<const unsigned char> wordBytes;
    if (!files.map(files.device, kWordsFile, AccessPattern::kSequential, wordBytes) || wordBytes.empty())
        return IndexLoad::kFailed;
    index.words = WordsOf(wordBytes);
    index.wordBlock = BlockOf(index.words);
    index.orders.assign(index.words.size(), ListOrder::kUnknown);
    if (!files.map(files.device, kWordPointersFile, AccessPattern::kSequential, index.pointers))
        return IndexLoad::kFailed;
    if (!files.map(files.device, kVerseListsFile, AccessPattern::kRandom, index.verseLists))
        return IndexLoad::kNoVerseLists;
    return IndexLoad::kLoaded;
}

int WordCount(const WordIndex& index) {
    return static_cast<int>(index.words.size());
}

// Start of the list of word number `word`, in entries. 0 for a pointer that the file does not contain; for the word
// after the last, the end of all lists, regardless of the file.
static std::size_t PointerOf(const WordIndex& index, std::size_t word) {
    if (word >= index.words.size()) return index.verseLists.size() / kEntrySize;
    const std::size_t at = word * kPointerSize;
    if (at + kPointerSize > index.pointers.size()) return 0;
    return LittleEndian32(index.pointers.data() + at);
}

std::span<const unsigned char> EntriesOf(const WordIndex& index, int word) {
    if (word < 0 || word >= WordCount(index)) return {};
    const std::size_t total = index.verseLists.size() / kEntrySize;
    const std::size_t begin = PointerOf(index, static_cast<std::size_t>(word));
    const std::size_t end = std::min(PointerOf(index, static_cast<std::size_t>(word) + 1), total);
    if (begin >= end) return {};
    return index.verseLists.subspan(begin * kEntrySize, (end - begin) * kEntrySize);
}

static ListOrder OrderOf(std::span<const unsigned char> entries) {
    const auto entryAt = [&](std::size_t i) { return LittleEndian16(entries.data() + kEntrySize * i); };
    std::size_t falls = 0;
    for (std::size_t i = 1; i < entries.size() / kEntrySize; ++i) falls += entryAt(i - 1) >= entryAt(i) ? 1 : 0;
    return falls == 0 ? ListOrder::kAscending : ListOrder::kOther;
}

bool DoesListAscend(const WordIndex& index, int word) {
    if (word < 0 || word >= WordCount(index)) return true;
    ListOrder& order = index.orders[static_cast<std::size_t>(word)];
    if (order == ListOrder::kUnknown) order = OrderOf(EntriesOf(index, word));
    return order == ListOrder::kAscending;
}

// The word from `word` on that contains `place`. The next ones are tried first: parts of many words are found in most.
static std::vector<std::string_view>::const_iterator WordAt(std::vector<std::string_view>::const_iterator word,
                                                            std::vector<std::string_view>::const_iterator end,
                                                            const char* place) {
    static constexpr int kNear = 8;
    const auto isBefore = [place](std::string_view each) { return each.data() + each.size() <= place; };
    for (int i = 0; i < kNear; ++i, ++word)
        if (!isBefore(*word)) return word;
    return std::partition_point(word, end, isBefore);
}

std::vector<int> WordsWith(const WordIndex& index, std::string_view part) {
    std::vector<int> found;
    const std::string_view block = index.wordBlock;
    auto word = index.words.begin();
    for (std::size_t place = FindInText(block, part, false, 0); place != kNoPlace;
         place = FindInText(block, part, false, place)) {
        word = WordAt(word, index.words.end(), block.data() + place);
        found.push_back(static_cast<int>(word - index.words.begin()));
        place = static_cast<std::size_t>(word->data() + word->size() - block.data());
    }
    return found;
}

int FindWord(const WordIndex& index, std::string_view lowerCased) {
    const auto found = std::lower_bound(index.words.begin(), index.words.end(), lowerCased);
    if (found == index.words.end() || *found != lowerCased) return -1;
    return static_cast<int>(found - index.words.begin());
}
