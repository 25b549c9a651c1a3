#include "search/text_kinds.h"

#include <algorithm>
#include <array>
#include <string_view>

#include "scripture/letters.h"

namespace {

enum class ByteKind : unsigned char { kOfWord, kBlank, kSkipped, kHigh };  // kSkipped: by a phrase search

}  // namespace

static constexpr std::array<ByteKind, 256> kByteKinds = [] {
    std::array<ByteKind, 256> kinds = {};
    for (std::size_t byte = 0; byte < kinds.size(); ++byte)
        kinds[byte] = byte >= 0x80                               ? ByteKind::kHigh
                      : IsWordCharacter(static_cast<char>(byte)) ? ByteKind::kOfWord
                      : byte == 0 || byte == ' '                 ? ByteKind::kBlank
                                                                 : ByteKind::kSkipped;
    return kinds;
}();

static ByteKind KindAt(std::string_view text, std::size_t place) {
    return place < text.size() ? kByteKinds[static_cast<unsigned char>(text[place])] : ByteKind::kBlank;
}

static unsigned char KindOfText(std::string_view text) {
    unsigned char kind = kPlainText | kPlainWords;
    for (std::size_t place = 0; place < text.size(); ++place) {
        const ByteKind here = KindAt(text, place);
        if (here <= ByteKind::kBlank) continue;
        if (here == ByteKind::kHigh) return 0;
        const bool isBehindWord = place > 0 && KindAt(text, place - 1) == ByteKind::kOfWord;
        while (KindAt(text, place + 1) == ByteKind::kSkipped) ++place;
        if (isBehindWord && KindAt(text, place + 1) == ByteKind::kOfWord) kind = kPlainText;
    }
    return kind;
}

static unsigned char KindOfVerse(const Scripture& scripture, int verse) {
    const std::string_view file(scripture.text.data(), scripture.text.size());
    const VerseRecord record = RecordOf(scripture.records, verse);
    const std::size_t begin = record.textOffset, next = RecordOf(scripture.records, verse + 1).textOffset;
    const bool isInOrder = record.book != 0 && begin >= kAround && begin < next && next - begin <= kLongestSwept;
    if (!isInOrder || next > file.size() || file.size() - next < kAround) return 0;
    if (file[begin - 1] != '\0' || file[next - 1] != '\0') return 0;
    std::string_view text = file.substr(begin, next - 1 - begin);
    if (BeginsParagraph(text)) text.remove_prefix(1);
    return KindOfText(text);
}

std::vector<unsigned char> FindTextKinds(const Scripture& scripture) {
    const std::size_t count = scripture.records.bytes.size() / kVerseRecordSize;
    std::vector<unsigned char> kinds(std::min(count, std::size_t{kVerseCount}));
    for (std::size_t verse = 0; verse < kinds.size(); ++verse)
        kinds[verse] = KindOfVerse(scripture, static_cast<int>(verse));
    return kinds;
}
