// A reference of any text, as a user may type it: for a verse and for a range.
#include <string>

#include "scripture/reference_parser.h"
#include "tests/fuzz/fuzz.h"
#include "tests/support/native_scripture.h"

static const VerseRecords& Records() {
    return TheRealScripture().records;
}

static bool IsVerse(int verse) {
    return verse >= 0 && verse < kVerseCount;
}

static void CheckReference(const std::string& text) {
    const ParsedReference parsed = ParseReference(Records(), text);
    Expect(parsed.ok ? IsVerse(parsed.verse) : parsed.verse == kNoVerse, "what is understood names a verse");
    if (!parsed.ok) return;
    const ParsedReference again =
        ParseReference(Records(), ReferenceText(Records(), parsed.verse, BookForm::kAbbreviation));
    Expect(again.ok && again.verse == parsed.verse, "a verse is found by the reference that the program gives it");
}

static void CheckRange(const std::string& text) {
    const ParsedRange parsed = ParseRange(Records(), text);
    Expect(!parsed.text.empty() && parsed.text.size() <= std::size_t{kReferenceLimit},
           "the text is what a field holds");
    const ParsedRange tidied = ParseRange(Records(), parsed.text);
    Expect(tidied.text == parsed.text && tidied.ok == parsed.ok, "a text that was tidied stays as it is");
    if (!parsed.ok) return;
    Expect(IsVerse(parsed.first) && IsVerse(parsed.last) && parsed.first <= parsed.last,
           "a range goes from verse to verse");
    Expect(tidied.first == parsed.first && tidied.last == parsed.last, "a text that was tidied names the same verses");
    const ParsedReference half = ParseReference(Records(), text);
    Expect(half.ok && (half.verse == parsed.first || half.verse == parsed.last),
           "a range begins as its first half says");
    const ParsedRange again = ParseRange(Records(), RangeText(Records(), parsed.first, parsed.last));
    Expect(again.ok && again.first == parsed.first && again.last == parsed.last && again.unused.empty(),
           "a range is found by the text that the program gives it");
}

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
    const std::string text(TextOfInput(data, size));
    if (text.empty()) return 0;  // the dialogs ask for nothing then
    CheckReference(text);
    CheckRange(text);
    return 0;
}
