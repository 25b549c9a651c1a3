// The cross-references of a note of any text, with the caret anywhere in it. The first line of an input holds the
// note's verse and the caret; the note is all behind it.
#include <algorithm>

#include "notes/cross_references.h"
#include "output/copy_text.h"
#include "tests/fuzz/fuzz.h"
#include "tests/support/native_scripture.h"

static const VerseRecords& Records() {
    return TheRealScripture().records;
}

using Verses = std::vector<std::int32_t>;

// The line that the caret stands in, from its nearest "#" on; empty where there is none.
static std::string_view ListByHand(std::string_view note, std::size_t caret) {
    if (note.empty()) return {};
    std::size_t begin = std::min(caret, note.size() - 1);
    while (begin > 0 && note[begin] != '#' && note[begin] != '\n') --begin;
    if (note[begin] != '#') return {};
    const std::string_view list = note.substr(begin);
    return list.substr(0, list.find('\n'));
}

// What the program writes of a list of verses names the same list, from a note on any verse.
static void CheckThereAndBack(const Verses& verses, int noteVerse) {
    static constexpr std::size_t kSome = 300;
    const Verses some(verses.begin(), verses.begin() + static_cast<std::ptrdiff_t>(std::min(verses.size(), kSome)));
    const CopyText copy = CopyReferencesText(Records(), some);
    Expect(CrossReferences(Records(), copy.text, 0, noteVerse) == some, "copied references name what was copied");
}

// The items of all lists are parts of the note, in order.
static void CheckItems(std::string_view note, int noteVerse) {
    std::size_t end = 0;
    for (const TextReference& item : ListedReferences(Records(), note, noteVerse)) {
        Expect(item.size > 0 && item.begin >= end && item.begin + item.size <= note.size(), "items are in order");
        Expect(item.first >= 0 && item.first <= item.last && item.last < kVerseCount, "an item names verses");
        end = item.begin + item.size;
    }
}

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
    std::string_view note = TextOfInput(data, size);
    std::string_view place = TakeLine(note);
    const int noteVerse = TakeNumber(place, 0, kLastVerse);
    const auto caret = static_cast<std::size_t>(TakeNumber(place, 0, static_cast<int>(note.size())));
    const Verses verses = CrossReferences(Records(), note, caret, noteVerse);
    Expect(verses.size() <= std::size_t{kVerseCount}, "no more verses than there are");
    Expect(std::ranges::all_of(verses, [](int verse) { return verse >= 0 && verse < kVerseCount; }),
           "a reference names a verse");
    Expect(verses == CrossReferences(Records(), ListByHand(note, caret), 0, noteVerse),
           "a list is what stands behind its mark");
    CheckItems(note, noteVerse);
    CheckThereAndBack(verses, noteVerse);
    return 0;
}
