#include "tests/fuzz/note_exercise.h"

#include <algorithm>

#include "app/navigation.h"
#include "notes/cross_references.h"
#include "notes/note_places.h"
#include "notes/note_recovery.h"
#include "notes/note_saving.h"
#include "notes/note_search.h"
#include "notes/note_source.h"
#include "tests/support/native_scripture.h"

static constexpr int kSomeVerses[] = {0, 1, 5, 9, 15000, 31100, 31101};

// A note is what lies between its offset and the next one, up to its first NUL: none where they fall.
static void CheckLength(const NoteFiles& files, const NoteSets& notes, int verse) {
    const NoteSet& set = *CurrentSet(notes);
    const auto place = static_cast<std::size_t>(verse);
    if (place + 1 >= set.offsets.size()) return;  // the last one goes to the end of the file
    const std::int64_t length = std::int64_t{set.offsets[place + 1]} - set.offsets[place];
    Expect(NoteExists(files, notes, verse) == (length > 1), "there is a note where its index says so");
    const bool isNone = notes.noteText.starts_with("No note for ");
    Expect(isNone || static_cast<std::int64_t>(notes.noteText.size()) <= length, "a note ends before the next");
}

// What is saved, printed and searched of the current note is what is shown of it.
static void CheckSource(const NoteSource& source, const NoteSets& notes) {
    std::string note;
    if (source.noteOf(source.device, notes.currentVerse, note) != NoteFound::kNote || note.empty()) return;
    Expect(note.size() <= kNoteBufferSize, "a note that is saved fits its buffer");
    Expect(notes.noteText == note.substr(0, kNoteBufferSize - 1), "a note is saved as it is shown");
}

// Looks for a text that some notes have, from each match on to the next.
static void SearchNotes(const NoteFiles& files, NoteSets notes, const NoteQuery& query) {
    static const LetterTable kLetters = AsciiLetters();
    const SearchProgress progress{nullptr, [](void*, int verse) { Expect(ClampVerse(verse) == verse, "a verse"); }};
    ResumePoint resume;
    for (int matches = 0; matches < 5; ++matches) {
        const NoteMatch match = FindInNotes(files, *CurrentSet(notes), kLetters, query, resume, progress);
        if (match.end != NoteSearchEnd::kFound) return;
        Expect(match.verse > resume.verse || (match.verse == resume.verse && match.offset >= resume.offset),
               "a search goes forward");
        notes.currentVerse = match.verse;
        std::string note;
        Expect(ReadStoredNote(files, notes, note), "a note that was found can be read");
        Expect(InCapitals(kLetters, note).substr(match.offset, query.text.size()) == query.text,
               "a match is where it is said to be");
        resume = {match.verse, match.offset + 1};
    }
}

static void ReadNotes(const NoteFiles& files, NoteSets& notes) {
    const VerseRecords& records = TheRealScripture().records;
    NoteReader saved{files, *CurrentSet(notes)};
    for (const int verse : kSomeVerses) {
        if (!ReadNoteText(files, records, notes, verse)) continue;
        Expect(notes.noteText.size() < kNoteBufferSize, "a note fits its buffer");
        Expect(notes.currentVerse == verse, "the note that was asked for is the current one");
        for (const std::size_t caret : {std::size_t{0}, notes.noteText.size() / 2, notes.noteText.size()})
            for (const int named : CrossReferences(records, notes.noteText, caret, verse))
                Expect(named >= 0 && named < kVerseCount, "a reference names a verse");
        CheckLength(files, notes, verse);
        CheckSource(SourceOf(saved), notes);
    }
    SearchNotes(files, notes, {"E", false, true, {}});
    SearchNotes(files, notes, {"END", false, false, {15000, kLastVerse}});
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

// One note a verse, each with its end, and nothing behind them.
static bool IsWholeByHand(const FuzzBytes& data) {
    return std::ranges::count(data, 0) == kVerseCount && data.back() == 0;
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

static std::string StoredNoteText(FakeNoteFiles& files, NoteSets& notes) {
    std::string text;
    Expect(ReadStoredNote(DeviceOver(files), notes, text), "a note that was saved can be read");
    return text;
}

static void SaveInto(FakeNoteFiles& files, NoteSets& notes, int setNumber, int verse, const std::string& note) {
    const SaveVoice voice = {nullptr, [](void*, SaveNotice, const std::string&) { return true; }};
    NoteSet& set = notes.sets[static_cast<std::size_t>(setNumber)];
    const FuzzBytes before = files.contents[set.dataFileName];
    const NoteSet setBefore = set;
    const bool wasWhole = IsWholeByHand(before);
    SelectStoredNote(notes, setNumber, verse);
    NoteEdit edit{note, StoredNoteText(files, notes)};
    const NoteSaveResult result = SaveNote(DeviceOver(files), voice, notes, edit, {"2024-12-31", 1735603200});
    Expect(wasWhole == (result == NoteSaveResult::kSaved), "what is whole can be saved into, and nothing else");
    const FuzzBytes& after = files.contents[set.dataFileName];
    if (!wasWhole) {
        Expect(after == before, "what is not whole stays");
        return;
    }
    Expect(StoredNoteText(files, notes) == note && notes.noteText == note, "the note is saved as it was typed");
    Expect(FitsPlaces(set.offsets, PlacesOf(files, set.dataFileName)), "the offsets fit the data file");
    Expect(files.contents[IndexFileName(set)] == IndexBytes(set.offsets), "the index file holds the offsets");
    Expect(IsAllButOne(before, setBefore, after, set, static_cast<std::size_t>(verse)), "no other note changes");
}

void OpenReadAndSave(FakeNoteFiles files, const std::string& note) {
    NoteSets notes;
    OpenNoteSets(DeviceOver(files), notes);
    ReadSets(DeviceOver(files), notes);
    for (int set = 0; set < static_cast<int>(notes.sets.size()); ++set)
        for (const int verse : {0, 31101}) SaveInto(files, notes, set, verse, note);
    Expect(files.openFiles == 0, "all files are closed");
}
