#include "data/scripture_writer.h"

#include <cstdint>
#include <fstream>
#include <random>
#include <system_error>

#include "scripture/scripture_files.h"
#include "search/word_index.h"

namespace fs = std::filesystem;

static void AppendNumber(std::string& bytes, std::uint64_t number, int byteCount) {
    for (; byteCount > 0; --byteCount, number >>= 8) bytes += static_cast<char>(number & 0xff);
}

static void AppendZeroTerminated(std::string& bytes, const std::string& text) {
    bytes.append(text.c_str(), text.size() + 1);
}

static void EncodeVerses(const Verses& verses, std::string& index, std::string& text) {
    for (const Verse& verse : verses) {
        for (const int number : {verse.book, verse.chapter, verse.verse})
            AppendNumber(index, static_cast<unsigned>(number), 1);
        AppendNumber(index, text.size(), 4);
        AppendZeroTerminated(text, verse.text);
    }
}

static void EncodeWords(const WordLists& words, std::string& names, std::string& pointers, std::string& lists) {
    for (const auto& [word, verseIndexes] : words) {
        AppendZeroTerminated(names, word);
        AppendNumber(pointers, lists.size() / 2, 4);
        for (const std::uint16_t verseIndex : verseIndexes) AppendNumber(lists, verseIndex, 2);
    }
}

std::vector<DataFile> EncodeScripture(const Verses& verses, const WordLists& words) {
    DataFile index{kVerseIndexFile, {}}, text{kVerseTextFile, {}};
    DataFile names{kWordsFile, {}}, pointers{kWordPointersFile, {}}, lists{kVerseListsFile, {}};
    EncodeVerses(verses, index.bytes, text.bytes);
    EncodeWords(words, names.bytes, pointers.bytes, lists.bytes);
    return {index, text, names, pointers, lists};
}

static bool WriteFile(const fs::path& path, const std::string& bytes) {
    std::ofstream file(path, std::ios::binary | std::ios::trunc);
    file.write(bytes.data(), static_cast<std::streamsize>(bytes.size()));
    file.close();
    return !file.fail();
}

// Two builds may fill one folder at the same time: each needs names of its own.
static std::string TemporarySuffix() {
    return "." + std::to_string(std::random_device{}()) + ".new";
}

static Complaint WriteTemporaries(const fs::path& folder, const std::vector<DataFile>& files,
                                  const std::string& suffix) {
    for (const DataFile& file : files) {
        const fs::path place = folder / file.name;
        // Asked for all files before the first is put in place, where a failure would come too late.
        std::error_code error;
        if (fs::exists(place, error) && !fs::is_regular_file(place, error)) return place.string() + " is in the way";
        if (!WriteFile(place.string() + suffix, file.bytes)) return "cannot write " + place.string();
    }
    return {};
}

static Complaint PutInPlace(const fs::path& folder, const std::vector<DataFile>& files, const std::string& suffix) {
    for (const DataFile& file : files) {
        const fs::path place = folder / file.name;
        std::error_code error;
        fs::rename(place.string() + suffix, place, error);
        if (error) return "cannot replace " + place.string() + ": " + error.message();
    }
    return {};
}

Complaint WriteDataFiles(const fs::path& folder, const std::vector<DataFile>& files) {
    std::error_code error;
    fs::create_directories(folder, error);
    if (error) return "cannot make the folder " + folder.string() + ": " + error.message();

    const std::string suffix = TemporarySuffix();
    Complaint complaint = WriteTemporaries(folder, files, suffix);
    if (complaint.empty()) complaint = PutInPlace(folder, files, suffix);
    for (const DataFile& file : files) fs::remove(folder / (file.name + suffix), error);
    return complaint;
}
