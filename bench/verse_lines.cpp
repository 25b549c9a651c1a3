// Apart from the benchmarks, two of which need it.
#include "bench/verse_lines.h"

#include <fstream>

#include "tests/support/native_scripture.h"

void WriteVerseLines(const std::string& path) {
    std::ofstream lines(path);
    for (int verse = 0; verse < kVerseCount; ++verse) {
        std::string_view text = VerseText(TheRealScripture(), verse);
        if (BeginsParagraph(text)) text.remove_prefix(1);
        lines << text << '\n';
    }
}
