#include "tests/windows/note_set_files.h"

#include <gtest/gtest.h>

#include "resources/ids.h"

std::string IndexBytes(const std::vector<unsigned>& offsets) {
    std::string bytes;
    for (const unsigned offset : offsets)
        for (const unsigned shift : {0u, 8u, 16u, 24u}) bytes.push_back(static_cast<char>((offset >> shift) & 0xFF));
    return bytes;
}

void WriteNoteSet(const ScratchFolder& folder, const std::string& name, const std::map<int, std::string>& notes) {
    std::vector<unsigned> offsets;
    std::string data;
    for (int verse = 0; verse < kVerseCount; ++verse) {
        offsets.push_back(static_cast<unsigned>(data.size()));
        const auto note = notes.find(verse);
        if (note != notes.end()) data += note->second;
        data.push_back('\0');
    }
    WriteFile(folder, name + ".nmi", IndexBytes(offsets));
    WriteFile(folder, name + ".nmd", data);
}

std::vector<std::string> NoteSetNames(const Program& program) {
    std::vector<std::string> names = TabLabels(program, Child(program.frame, {IDC_NOTE_TABS}));
    for (std::string& name : names)
        for (const char* mark : {"\xAB ", "\xBB "})
            if (name.starts_with(mark)) name.erase(0, 2);
    return names;
}

static int IntegerAt(const std::string& bytes, std::size_t offset) {
    int integer = 0;
    bytes.copy(reinterpret_cast<char*>(&integer), sizeof integer, offset);
    return integer;
}

std::vector<KeptNote> KeptNotes(const ScratchFolder& folder, const std::string& setName) {
    static constexpr std::size_t kBeforeText = 24;  // size, checksum, time, verse, reason
    static const std::string header("VWNH\1\0\0\0", 8);
    const std::string file = "backup/" + setName + ".nmh";
    std::vector<KeptNote> notes;
    if (!HasFile(folder, file)) return notes;
    const std::string bytes = ReadFile(folder, file);
    EXPECT_EQ(bytes.substr(0, header.size()), header);
    for (std::size_t at = header.size(); at + kBeforeText <= bytes.size();) {
        const std::size_t end = at + 4 + static_cast<std::size_t>(IntegerAt(bytes, at));
        const std::size_t text = at + kBeforeText;
        if (end < text || end > bytes.size()) break;  // torn
        notes.push_back({IntegerAt(bytes, at + 16), IntegerAt(bytes, at + 20), bytes.substr(text, end - text)});
        at = end;
    }
    return notes;
}
