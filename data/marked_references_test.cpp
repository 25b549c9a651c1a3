// Compares the references that are found in imported commentaries with those that a reader has marked in a sample of
// them.
//
// marked_references.tsv has the sample: 417 passages of the sets that are imported from Debian's commentaries, drawn at
// random. For 248 of them the draw was among all numbers, figures or Roman, that are in no heading of a line, for the
// others also not among numbers of lists, years and outlines of chapters. 350 were read, and their references marked,
// before the recogniser existed, the others when it was finished, without looking at what it finds.
//
// A row of a passage has the set, the note's verse, where the passage begins, its size (bytes) and its CRC-32. The rows
// behind it, which begin with a tab, have its references: where each begins, its size, its first verse and, if there
// are more, its last one. A reference belongs to the passage that it begins in. Marked is what names its verses by a
// book, by a word for chapter or verse, by chapter and verse, as an outline does ("(1-18)"), or as an item behind one
// of these. Numbers that stand alone in a sentence were not marked.
#include <gmock/gmock.h>

#include <algorithm>
#include <cstdio>
#include <cstdlib>
#include <fstream>
#include <map>
#include <sstream>

#include "data/scratch_folder.h"
#include "notes/references_in_text.h"
#include "scripture/crc32.h"
#include "scripture/reference_parser.h"
#include "tests/support/native_scripture.h"

namespace {

struct Passage {
    std::string set;
    int verse = 0;
    std::size_t begin = 0, size = 0;
    std::string checksum;
    std::vector<TextReference> marked;
};

struct MarkedReferences : ScratchFolder {};

}  // namespace

static std::vector<std::string> FieldsOf(const std::string& line) {
    std::istringstream stream(line);
    std::vector<std::string> fields;
    for (std::string field; std::getline(stream, field, '\t');) fields.push_back(field);
    return fields;
}

static int VerseNamed(const std::string& reference) {
    return ParseReference(TheRealScripture().records, reference).verse;
}

static std::uint32_t NumberIn(const std::string& field) {
    return static_cast<std::uint32_t>(std::stoul(field));
}

static std::vector<Passage> ThePassages() {
    std::ifstream file(VERSEWELL_SOURCE_DIR "/data/marked_references.tsv");
    std::vector<Passage> passages;
    for (std::string line; std::getline(file, line);) {
        const std::vector<std::string> fields = FieldsOf(line);
        if (!fields[0].empty())
            passages.push_back(
                {fields[0], VerseNamed(fields[1]), NumberIn(fields[2]), NumberIn(fields[3]), fields[4], {}});
        else
            passages.back().marked.push_back(
                {NumberIn(fields[1]), NumberIn(fields[2]), VerseNamed(fields[3]), VerseNamed(fields.back())});
    }
    return passages;
}

static std::vector<std::string> ImportedNotes(const std::filesystem::path& folder, const std::string& set) {
    const std::string command = VERSEWELL_IMPORT_NOTES " " + set + " " + folder.string() + " > /dev/null";
    EXPECT_EQ(std::system(command.c_str()), 0) << set;
    std::istringstream data(ReadBytes(folder / (set + ".nmd")));
    std::vector<std::string> notes;
    for (std::string note; std::getline(data, note, '\0');) notes.push_back(note);
    EXPECT_EQ(notes.size(), std::size_t{kVerseCount}) << set;
    return notes;
}

static std::string ChecksumOf(std::string_view text) {
    const auto* bytes = reinterpret_cast<const unsigned char*>(text.data());
    char hex[9];
    std::snprintf(hex, sizeof hex, "%08x", static_cast<unsigned>(Crc32({bytes, text.size()})));
    return hex;
}

static std::vector<TextReference> FoundIn(const Passage& passage, const std::string& note) {
    static const Chapters chapters = ChaptersOf(TheRealScripture().records);
    std::vector<TextReference> found;
    FindReferences(chapters, RecordOf(TheRealScripture().records, passage.verse), note, found);
    std::erase_if(found, [&](const TextReference& one) {
        return one.begin < passage.begin || one.begin >= passage.begin + passage.size;
    });
    return found;
}

static bool AreSame(const TextReference& one, const TextReference& other) {
    const bool overlap = one.begin < other.begin + other.size && other.begin < one.begin + one.size;
    return overlap && one.first == other.first && one.last == other.last;
}

namespace {

struct Score {
    int right = 0, wrong = 0, missed = 0;
};

}  // namespace

static void Count(const Passage& passage, std::vector<TextReference> found, Score& score) {
    for (const TextReference& marked : passage.marked) {
        const auto same = std::ranges::find_if(found, [&](const TextReference& one) { return AreSame(one, marked); });
        ++(same == found.end() ? score.missed : score.right);
        if (same != found.end()) found.erase(same);
    }
    score.wrong += static_cast<int>(found.size());
}

TEST_F(MarkedReferences, AreFound) {
    std::map<std::string, std::vector<std::string>> sets;
    Score score;
    for (const Passage& passage : ThePassages()) {
        auto& notes = sets[passage.set];
        if (notes.empty()) notes = ImportedNotes(folder / "sets", passage.set);
        const std::string& note = notes.at(static_cast<std::size_t>(passage.verse));
        ASSERT_LE(passage.begin + passage.size, note.size());
        ASSERT_EQ(ChecksumOf(std::string_view(note).substr(passage.begin, passage.size)), passage.checksum)
            << "the package has another text than the one that was marked";
        Count(passage, FoundIn(passage, note), score);
    }
    EXPECT_EQ(score.right + score.missed, 815);
    EXPECT_LE(score.missed * 100, 3 * 815) << "recall of at least 97 %";
    EXPECT_LE(score.wrong * 100, score.right + score.wrong) << "precision of at least 99 %";
    // As good as it is today, so that a change shows where it does harm.
    EXPECT_LE(score.missed, 6);
    EXPECT_LE(score.wrong, 0);
}
