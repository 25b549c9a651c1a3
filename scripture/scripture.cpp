#include "scripture/scripture.h"

#include <cstring>

bool LoadScripture(const DataFiles& files, Scripture& scripture) {
    std::span<const unsigned char> records;
    if (!files.map(files.device, kVerseIndexFile, AccessPattern::kSequential, records)) return false;
    std::span<const unsigned char> text;
    if (!files.map(files.device, kVerseTextFile, AccessPattern::kRandom, text) || text.empty()) return false;
    scripture.records.bytes = records;
    scripture.text = {reinterpret_cast<const char*>(text.data()), text.size()};
    return true;
}

// End of the text that begins at `offset`: the zero byte right before the next verse's offset. 0 when the two records
// do not fit together, as for the last verse. Scanning for the zero would also be correct but is slower, and every
// search hit and every painted verse calls this.
static std::size_t EndByNextRecord(const Scripture& scripture, int verseIndex, std::size_t offset) {
    const std::size_t next = RecordOf(scripture.records, verseIndex + 1).textOffset;
    const bool fits = next > offset && next <= scripture.text.size() && scripture.text[next - 1] == '\0';
    return fits ? next - 1 : 0;
}

static std::size_t EndByScan(const Scripture& scripture, std::size_t offset) {
    const char* start = scripture.text.data() + offset;
    const std::size_t rest = scripture.text.size() - offset;
    const void* zero = std::memchr(start, 0, rest);
    return zero == nullptr ? scripture.text.size()
                           : offset + static_cast<std::size_t>(static_cast<const char*>(zero) - start);
}

std::string_view VerseText(const Scripture& scripture, int verseIndex) {
    const VerseRecord record = RecordOf(scripture.records, verseIndex);
    const std::size_t offset = record.textOffset;
    if (record.book == 0 || offset >= scripture.text.size()) return {};
    const std::size_t quick = EndByNextRecord(scripture, verseIndex, offset);
    const std::size_t end = quick != 0 ? quick : EndByScan(scripture, offset);
    return {scripture.text.data() + offset, end - offset};
}

bool BeginsParagraph(std::string_view verseText) {
    return verseText.starts_with(kParagraphMark);
}
