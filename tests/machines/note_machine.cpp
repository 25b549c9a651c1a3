// Does with the note sets of a folder what the program does, for tests/several_machines:
//   note_machine FOLDER edit NAME FIRST COUNT   saves COUNT notes with the texts "NAME FIRST.", "NAME FIRST+1." ...
//   note_machine FOLDER merge                   merges all copies that conflicts have left; prints how many
//   note_machine FOLDER texts                   prints all notes, and all earlier ones, of all sets
// Exit code 1 if something could not be done.

#include <chrono>
#include <cstdlib>
#include <functional>
#include <iostream>
#include <map>
#include <span>

#include "history/set_merging.h"
#include "notes/conflict_copies.h"
#include "notes/note_recovery.h"
#include "notes/note_saving.h"
#include "notes/set_texts.h"
#include "tests/support/real_note_files.h"

using Words = std::span<const std::string>;

static NoteTime Now() {
    const auto since1970 = std::chrono::system_clock::now().time_since_epoch();
    return {"2024-12-31", std::chrono::duration_cast<std::chrono::seconds>(since1970).count()};
}

static void SelectSetNamed(NoteSets& notes, const std::string& name) {
    for (std::size_t set = 0; set < notes.sets.size(); ++set)
        if (NoteSetName(notes.sets[set]) == name) SelectSet(notes, static_cast<int>(set));
}

// Every question is answered with OK, and a note that was also changed elsewhere is saved with both texts.
static bool Save(const NoteFiles& files, NoteSets& notes, const std::string& text) {
    const SaveVoice voice = {nullptr, [](void*, SaveNotice, const std::string& told) {
                                 std::cerr << told << '\n';
                                 return true;
                             }};
    NoteEdit edit{text};
    if (!ReadStoredNote(files, notes, edit.openedOn)) return false;
    static constexpr int kTries = 20;
    for (int tries = 0; tries < kTries; ++tries)
        if (SaveNote(files, voice, notes, edit, Now()) == NoteSaveResult::kSaved) return true;
    return false;
}

// Half of the edits are in the same few verses on all machines, and replace what was there.
static int VerseOf(int edit, const std::string& name) {
    static constexpr int kSharedVerses = 7;
    static constexpr int kApart = 10000;
    if (edit % 2 == 0) return edit / 2 % kSharedVerses;
    return kApart + edit + (name < "n" ? 0 : kApart);
}

static bool Edit(const NoteFiles& files, Words words) {
    if (words.size() != 3) return false;
    const int first = std::atoi(words[1].c_str());
    const int end = first + std::atoi(words[2].c_str());
    for (int edit = first; edit < end; ++edit) {
        NoteSets notes;
        OpenNoteSets(files, notes);
        SelectSetNamed(notes, kFirstSetName);
        notes.currentVerse = VerseOf(edit, words[0]);
        if (!Save(files, notes, words[0] + ' ' + std::to_string(edit) + '.')) return false;
    }
    return true;
}

static bool Merge(const NoteFiles& files, Words) {
    NoteSets notes;
    OpenNoteSets(files, notes);
    PutAwayHalfCopies(files);
    int merged = 0;
    for (const ConflictCopy& copy : FindConflictCopies(files)) {
        const std::optional<SetMerge> merge = PlanSetMerge(files, copy.name, copy.of.set);
        if (!merge || MergeSets(files, notes, *merge, Now()) != SetMergeEnd::kMerged) {
            std::cerr << copy.name << " cannot be merged\n";
            return false;
        }
        ++merged;
    }
    std::cout << merged << '\n';
    return true;
}

static bool PrintTexts(const NoteFiles& files, Words) {
    for (const std::string& set : NamesWithEnding(files, "", kDataEnding)) {
        std::vector<std::string> texts;
        if (!ReadSetTexts(files, set + kDataEnding, texts)) return false;
        for (const std::string& text : texts)
            if (!text.empty()) std::cout << text << '\n';
        for (const EarlierNote& note : AllEarlierNotes(files, set)) std::cout << note.text << '\n';
    }
    return true;
}

int main(int count, char** arguments) {
    static const std::map<std::string, std::function<bool(const NoteFiles&, Words)>> kVerbs = {
        {"edit", Edit}, {"merge", Merge}, {"texts", PrintTexts}};
    const std::vector<std::string> words(arguments + 1, arguments + count);
    const auto verb = words.size() < 2 ? kVerbs.end() : kVerbs.find(words[1]);
    if (verb == kVerbs.end()) return EXIT_FAILURE;
    RealNoteFiles files{words[0] + '/'};
    return verb->second(DeviceOver(files), Words(words).subspan(2)) ? EXIT_SUCCESS : EXIT_FAILURE;
}
