#include "tests/fuzz/note_exercise.h"

#include <algorithm>

#include "app/navigation.h"
#include "notes/cross_references.h"
#include "notes/note_places.h"
#include "notes/note_recovery.h"
#include "notes/note_saving.h"
#include "tests/support/native_scripture.h"

static constexpr int kSomeVerses[] = {0, 1, 5, 9, 15000, 31100, 31101};

static void ReadNotes(const NoteFiles& files, NoteSets& notes) {
    const VerseRecords& records = TheRealScripture().records;
    for (const int verse : kSomeVerses) {
        if (!ReadNoteText(files, records, notes, verse)) continue;
        Expect(notes.noteText.size() < kNoteBufferSize, "a note fits its buffer");
        Expect(notes.currentVerse == verse, "the note that was asked for is the current one");
        for (const std::size_t caret : {std::size_t{0}, notes.noteText.size() / 2, notes.noteText.size()})
            for (const int named : CrossReferences(records, notes.noteText, caret, verse))
                Expect(named >= 0 && named < kVerseCount, "a reference names a verse");
        NoteExists(files, notes, verse);
    }
    for (const int neighbour : {NextNote(files, notes), PreviousNote(files, notes)})
        Expect(neighbour >= 0 && neighbour < kVerseCount, "the next note is that of a verse");
}

static void ReadEachDay(const NoteFiles& files, NoteSets& notes) {
    for (int month = 1; month <= 12; ++month) {
        for (int day = 1; day <= 31; ++day) {
            for (const TimeOfDay time : {TimeOfDay::kMorning, TimeOfDay::kEvening}) {
                const int verse = VerseOfDevotional(notes, {month, day}, time);
                Expect(verse >= 0 && verse < kVerseCount, "a reading is the note of a verse");
                if (day == 1) ReadNoteText(files, TheRealScripture().records, notes, verse);
            }
        }
    }
}

static void ReadSets(const NoteFiles& files, NoteSets& notes) {
    for (int set = 0; set < static_cast<int>(notes.sets.size()); ++set) {
        SelectStoredNote(notes, set, 0);
        ReadNotes(files, notes);
    }
    if (notes.devotionalSet != kNoDevotionalSet) ReadEachDay(files, notes);
}

void ReadAsFound(FakeNoteFiles files) {
    NoteSets notes;
    FindNoteSets(DeviceOver(files), notes);
    ReadSets(DeviceOver(files), notes);
}

static NotePlaces PlacesOf(FakeNoteFiles& files, const std::string& name) {
    NotePlaces layout;
    AddPlaces(layout, files.contents[name]);
    return layout;
}

// All that lies before the note and behind it: with offsets that fit, each other note.
static bool IsAllButOne(const FuzzBytes& before, const NoteSet& setBefore, const FuzzBytes& after, const NoteSet& set,
                        std::size_t saved) {
    const auto begin = static_cast<std::ptrdiff_t>(set.offsets[saved]);
    if (set.offsets[saved] != setBefore.offsets[saved]) return false;
    if (!std::equal(before.begin(), before.begin() + begin, after.begin())) return false;
    if (saved + 1 == set.offsets.size()) return true;
    return std::equal(before.begin() + static_cast<std::ptrdiff_t>(setBefore.offsets[saved + 1]), before.end(),
                      after.begin() + static_cast<std::ptrdiff_t>(set.offsets[saved + 1]), after.end());
}

static void SaveInto(FakeNoteFiles& files, NoteSets& notes, int setNumber, int verse) {
    const SaveVoice voice = {nullptr, [](void*, SaveNotice, const std::string&) { return true; }};
    NoteSet& set = notes.sets[static_cast<std::size_t>(setNumber)];
    const FuzzBytes before = files.contents[set.dataFileName];
    const NoteSet setBefore = set;
    const bool wasWhole = IsWhole(PlacesOf(files, set.dataFileName));
    SelectStoredNote(notes, setNumber, verse);
    const NoteSaveResult result = SaveNote(DeviceOver(files), voice, notes, "a new note", "2024-12-31");
    Expect(wasWhole == (result == NoteSaveResult::kSaved), "what is whole can be saved into, and nothing else");
    const FuzzBytes& after = files.contents[set.dataFileName];
    if (!wasWhole) {
        Expect(after == before, "what is not whole stays");
        return;
    }
    Expect(FitsPlaces(set.offsets, PlacesOf(files, set.dataFileName)), "the offsets fit the data file");
    Expect(files.contents[IndexFileName(set)] == IndexBytes(set.offsets), "the index file holds the offsets");
    Expect(IsAllButOne(before, setBefore, after, set, static_cast<std::size_t>(verse)), "no other note changes");
}

void OpenReadAndSave(FakeNoteFiles files) {
    NoteSets notes;
    OpenNoteSets(DeviceOver(files), notes);
    ReadSets(DeviceOver(files), notes);
    for (int set = 0; set < static_cast<int>(notes.sets.size()); ++set)
        for (const int verse : {0, 31101}) SaveInto(files, notes, set, verse);
    Expect(files.openFiles == 0, "all files are closed");
}
