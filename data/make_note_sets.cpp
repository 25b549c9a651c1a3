// make_note_sets SCRIPTURE READINGS FOLDER: makes the note sets that come with the program in FOLDER: "Morning and
// Evening", from the table READINGS and the scripture files in the folder SCRIPTURE, and an empty "My Notes".
//
// Exit code 0 when all files are in place; 1 on failure, with one line on the error stream; 2 for wrong arguments.
#include <fstream>
#include <iostream>
#include <iterator>
#include <list>
#include <string>
#include <vector>

#include "data/devotional_table.h"
#include "data/note_set_writer.h"
#include "notes/note_sets.h"
#include "scripture/scripture.h"

static constexpr char kDevotionalSetName[] = "Morning and Evening";

namespace {

// The files of a folder in memory; they must exist as long as anything that refers to them is used.
struct FilesInMemory {
    std::string folder;
    std::list<std::vector<unsigned char>> files;
};

}  // namespace

static bool ReadBytes(const std::string& path, std::vector<unsigned char>& bytes) {
    std::ifstream file(path, std::ios::binary);
    if (!file) return false;
    bytes.assign(std::istreambuf_iterator<char>(file), {});
    return !file.bad();
}

static bool MapIntoMemory(void* device, const char* name, AccessPattern, std::span<const unsigned char>& bytes) {
    auto& memory = *static_cast<FilesInMemory*>(device);
    if (!ReadBytes(memory.folder + "/" + name, memory.files.emplace_back())) return false;
    bytes = memory.files.back();
    return true;
}

static Complaint ReadTable(const std::string& path, std::vector<DailyReading>& readings) {
    std::vector<unsigned char> bytes;
    if (!ReadBytes(path, bytes)) return "cannot read " + path;
    const Complaint complaint = ReadReadings(std::string(bytes.begin(), bytes.end()), readings);
    return complaint.empty() ? complaint : path + ": " + complaint;
}

static Complaint MakeNoteSets(const std::string& scriptureFolder, const std::string& table, const std::string& folder) {
    FilesInMemory memory{scriptureFolder, {}};
    Scripture scripture;
    if (!LoadScripture({&memory, MapIntoMemory}, scripture)) return "cannot read the scripture in " + scriptureFolder;
    std::vector<DailyReading> readings;
    Complaint complaint = ReadTable(table, readings);
    if (!complaint.empty()) return complaint;

    const DevotionalTable slots = TableOf(readings);
    complaint = WriteDataFiles(folder, EncodeNoteSet(kDevotionalSetName, NotesOf(readings, scripture), &slots));
    if (!complaint.empty()) return complaint;
    return WriteDataFiles(folder, EncodeNoteSet(kFirstSetName, {}, nullptr));
}

int main(int count, char** values) {
    if (count != 4) {
        std::cerr << "usage: make_note_sets SCRIPTURE READINGS FOLDER\n";
        return 2;
    }
    const Complaint complaint = MakeNoteSets(values[1], values[2], values[3]);
    if (complaint.empty()) return 0;
    std::cerr << "make_note_sets: " << complaint << '\n';
    return 1;
}
