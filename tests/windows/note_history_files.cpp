// The format is written here once more, by hand, so that the tests do not depend on the program's own writing.
#include "tests/windows/note_history_files.h"

#include <filesystem>

static std::string Number(std::uint64_t number, int bytes) {
    std::string text;
    for (int i = 0; i < bytes; ++i) text += static_cast<char>(number >> (8 * i));
    return text;
}

// CRC-32 as in zlib, bit by bit.
static std::uint32_t Checksum(const std::string& text) {
    std::uint32_t crc = 0xFFFFFFFFu;
    for (const char c : text) {
        crc ^= static_cast<unsigned char>(c);
        for (int bit = 0; bit < 8; ++bit) crc = (crc >> 1) ^ ((crc & 1) * 0xEDB88320u);
    }
    return ~crc;
}

static std::string RecordOf(const EarlierNote& note) {
    const std::string rest = Number(static_cast<std::uint64_t>(note.time), 8) +
                             Number(static_cast<std::uint64_t>(note.verse), 4) +
                             Number(static_cast<std::uint64_t>(note.reason), 4) + note.text;
    return Number(rest.size() + 4, 4) + Number(Checksum(rest), 4) + rest;
}

void WriteNoteHistory(const ScratchFolder& folder, const std::string& setName, const std::vector<EarlierNote>& texts) {
    std::string bytes = "VWNH" + Number(1, 4);
    for (const EarlierNote& note : texts) bytes += RecordOf(note);
    std::filesystem::create_directory(folder.path / "backup");
    WriteFile(folder, "backup/" + setName + ".nmh", bytes);
}
