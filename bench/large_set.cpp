// Apart from the benchmarks, two of which need it.
#include "bench/large_set.h"

#include <vector>

#include "scripture/verse_records.h"
#include "tests/support/real_note_files.h"

std::string FilledNote(std::string beginning, std::size_t size) {
    while (beginning.size() < size - 1) beginning += "a line of this note\r\n";
    return beginning.substr(0, size - 1);
}

void WriteLargeSet(const std::string& path, std::string (*textOfNote)(int verse)) {
    std::vector<unsigned char> data, index;
    for (int verse = 0; verse < kVerseCount; ++verse) {
        for (unsigned shift = 0; shift < 32; shift += 8)
            index.push_back(static_cast<unsigned char>(data.size() >> shift & 0xFF));
        const std::string text = textOfNote(verse);
        data.insert(data.end(), text.begin(), text.end());
        data.push_back(0);
    }
    WriteWholeFile(path + ".nmd", data);
    WriteWholeFile(path + ".nmi", index);
}
