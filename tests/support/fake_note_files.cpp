#include "tests/support/fake_note_files.h"

#include <algorithm>

#include "scripture/verse_records.h"

static FakeNoteFiles& FilesOf(void* device) {
    return *static_cast<FakeNoteFiles*>(device);
}

static std::vector<std::string> List(void* device) {
    return FilesOf(device).listed;
}

static bool Read(void* device, const std::string& name, std::uint64_t offset, std::size_t limit,
                 std::vector<unsigned char>& bytes) {
    FakeNoteFiles& files = FilesOf(device);
    files.log.push_back("read " + name);
    if (!files.contents.contains(name) || files.unreadable.contains(name)) return false;
    const std::vector<unsigned char>& whole = files.contents[name];
    const std::size_t begin = static_cast<std::size_t>(std::min<std::uint64_t>(offset, whole.size()));
    const std::size_t end = begin + std::min(limit, whole.size() - begin);
    bytes.assign(whole.begin() + static_cast<std::ptrdiff_t>(begin), whole.begin() + static_cast<std::ptrdiff_t>(end));
    return true;
}

static std::uint64_t Size(void* device, const std::string& name) {
    FakeNoteFiles& files = FilesOf(device);
    files.log.push_back("size " + name);
    const bool readable = files.contents.contains(name) && !files.unreadable.contains(name);
    return readable ? files.contents[name].size() : 0;
}

static bool Create(void* device, const std::string& name, std::span<const unsigned char> bytes) {
    FakeNoteFiles& files = FilesOf(device);
    files.log.push_back("create " + name);
    if (files.contents.contains(name) || files.uncreatable.contains(name)) return false;
    files.contents[name].assign(bytes.begin(), bytes.end());
    return true;
}

NoteFiles DeviceOver(FakeNoteFiles& files) {
    return {&files, List, Read, Size, Create};
}

std::vector<unsigned char> LittleEndianBytes(const std::vector<std::uint32_t>& numbers) {
    std::vector<unsigned char> bytes;
    for (const std::uint32_t number : numbers)
        for (int shift = 0; shift < 32; shift += 8) bytes.push_back(static_cast<unsigned char>(number >> shift & 0xFF));
    return bytes;
}

void AddFakeSet(FakeNoteFiles& files, const std::string& name, const std::map<int, std::string>& notes) {
    std::vector<std::uint32_t> offsets;
    std::vector<unsigned char> data;
    for (int verse = 0; verse < kVerseCount; ++verse) {
        offsets.push_back(static_cast<std::uint32_t>(data.size()));
        const auto note = notes.find(verse);
        if (note != notes.end()) data.insert(data.end(), note->second.begin(), note->second.end());
        data.push_back(0);
    }
    files.contents[name + ".nmi"] = LittleEndianBytes(offsets);
    files.contents[name + ".nmd"] = data;
    files.listed.push_back(name + ".nmi");
}
