#include "tests/windows/note_set_files.h"

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
    for (int verse = 0; verse < kVerses; ++verse) {
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
