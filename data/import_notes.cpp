// import_notes [--modules DIR] MODULE FOLDER [NAME]: makes a note set in FOLDER from the SWORD module MODULE, which is
// installed or in DIR. A commentary becomes an ordinary set, a daily devotional a devotional set. The set is named
// NAME, by default like the module. An existing set is never changed.
//
// Prints one line about what was read, written and changed. Exit code 0 when all files of the set are in place; 1 on
// failure, with one line on the error stream and FOLDER unchanged; 2 for wrong arguments.
#include <algorithm>
#include <cstring>
#include <filesystem>
#include <iostream>

#include "data/imported_notes.h"
#include "data/sword_notes.h"
#include "notes/file_names.h"
#include "notes/note_files.h"

namespace fs = std::filesystem;

namespace {

struct ImportArguments {
    std::string modules;  // empty: the installed SWORD modules
    std::string module;
    std::string folder;
    std::string setName;
};

}  // namespace

static bool ReadArguments(int count, char** values, ImportArguments& arguments) {
    int next = 1;
    if (count > 3 && std::strcmp(values[next], "--modules") == 0) {
        arguments.modules = values[next + 1];
        next += 2;
    }
    if (count < next + 2 || count > next + 3 || values[next][0] == '-') return false;
    arguments.module = values[next];
    arguments.folder = values[next + 1];
    arguments.setName = count == next + 3 ? values[next + 2] : arguments.module;
    return true;
}

// Rejects names that are not allowed on Windows, even if this system allows them.
static Complaint CheckName(const std::string& name) {
    const bool isGood = !name.empty() && name.size() <= 100 && IsSetName(name) && name.front() != ' ' &&
                        name.back() != ' ' && name.back() != '.';
    return isGood ? Complaint() : "\"" + name + "\" cannot be the name of a note set";
}

// A set counts as existing if any of its files exists.
static Complaint CheckFolder(const ImportArguments& arguments) {
    static const std::string kEndings[] = {kIndexEnding, kDataEnding, kTableEnding,
                                           std::string(kDataEnding) + kTempEnding};
    for (const std::string& ending : kEndings) {
        const fs::path place = fs::path(arguments.folder) / (arguments.setName + ending);
        std::error_code error;
        if (fs::exists(fs::symlink_status(place, error)))
            return "there is a note set \"" + arguments.setName + "\" already: " + place.string() + " is left as it is";
    }
    return {};
}

static std::string Count(std::size_t count, const char* what) {
    return std::to_string(count) + " " + what;
}

// "; notes cut: 12", or nothing if the count is 0.
static std::string Changes(int count, const char* what) {
    return count == 0 ? "" : std::string("; ") + what + ": " + std::to_string(count);
}

static std::string Summary(const ImportArguments& arguments, const NotesModule& module, const ImportedNotes& notes) {
    std::size_t longest = 0, all = 0;
    for (const auto& [verse, note] : notes.notes) {
        longest = std::max(longest, note.size());
        all += note.size();
    }
    const auto texts =
        static_cast<std::size_t>(std::count_if(module.commentary.begin(), module.commentary.end(),
                                               [](const CommentaryEntry& entry) { return !entry.isIntroduction; }));
    const std::size_t texted = notes.notes.size() - static_cast<std::size_t>(notes.sectionLines);
    return arguments.module + " (" + module.description + "): read " +
           (module.isDevotional ? Count(module.days.size(), "days") : Count(texts, "texts")) +
           Changes(notes.introductions, "introductions") + "; wrote " + Count(texted, "notes") + " with " +
           Count(static_cast<std::size_t>(notes.referenceLines), "lines of references") + " to the set \"" +
           arguments.setName + "\", " + Count(all, "bytes") + ", the longest note " + std::to_string(longest) +
           Changes(notes.sectionLines, "verses led to the note of their section") +
           Changes(notes.movedTexts, "texts moved to their verses") + Changes(notes.cutNotes, "notes cut") +
           Changes(notes.notesInUtf8, "notes in UTF-8") + Changes(notes.replaced.blanks, "unusual blanks replaced") +
           Changes(notes.replaced.damaged, "damaged letters replaced") +
           Changes(notes.readingsOnPsalms, "readings without a verse laid on the Psalms") +
           Changes(notes.daysWithoutText, "days without a text given the day before") +
           Changes(module.otherEntries, "entries on no day left out");
}

static Complaint ImportNotes(const ImportArguments& arguments) {
    Complaint complaint = CheckName(arguments.setName);
    if (complaint.empty()) complaint = CheckFolder(arguments);
    if (!complaint.empty()) return complaint;
    NotesModule module;
    complaint = ReadNotesModule(arguments.modules, arguments.module, module);
    if (!complaint.empty()) return complaint;

    const std::vector<unsigned char> bytes = VerseRecordsOfLibrary();
    const VerseRecords records{bytes};
    const UniqueReferenceDevice device = MakeReferenceDevice(records);
    const ImportedNotes notes = module.isDevotional ? NotesOfDays(module.days, records, ReaderOf(*device))
                                                    : NotesOfCommentary(module.commentary, records, ReaderOf(*device));
    const DevotionalTable* readings = module.isDevotional ? &notes.readings : nullptr;
    complaint = WriteNewFiles(arguments.folder, EncodeNoteSet(arguments.setName, notes.notes, readings));
    if (complaint.empty()) std::cout << Summary(arguments, module, notes) << '\n';
    return complaint;
}

int main(int count, char** values) {
    ImportArguments arguments;
    if (!ReadArguments(count, values, arguments)) {
        std::cerr << "usage: import_notes [--modules DIR] MODULE FOLDER [NAME]\n";
        return 2;
    }
    const Complaint complaint = ImportNotes(arguments);
    if (complaint.empty()) return 0;
    std::cerr << "import_notes: " << complaint << '\n';
    return 1;
}
