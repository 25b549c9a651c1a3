#include "notes/note_sets.h"

#include <algorithm>
#include <span>

#include "notes/conflict_copies.h"
#include "notes/note_lock.h"
#include "notes/note_places.h"
#include "notes/note_refresh.h"
#include "scripture/letters.h"

static_assert(kDevotionalFileSize == 2976);

// A longer table is cut, a shorter one is filled up with zeros.
void ReadDevotionalTable(const NoteFiles& files, NoteSets& notes, int set) {
    const std::string setName = NoteSetName(notes.sets[static_cast<std::size_t>(set)]);
    std::vector<unsigned char> bytes;
    if (!files.read(files.device, setName + kTableEnding, 0, kDevotionalFileSize, bytes)) return;
    bytes.resize(kDevotionalFileSize);
    const std::vector<std::uint32_t> verses = OffsetsOf(bytes);
    std::copy(verses.begin(), verses.end(), notes.devotionalTable.begin());
    notes.devotionalSet = set;
}

// Opening a file that is not there takes some systems longer than all else that is done for a set.
static bool HasTable(std::span<const std::string> tables, const std::string& setName) {
    return std::ranges::any_of(
        tables, [&](const std::string& table) { return EqualIgnoringCase(table, setName + kTableEnding); });
}

// Was the index left beside a set by a program that keeps folders in step, without the notes that it was the index of?
static bool IsLoneConflictCopy(const NoteFiles& files, const NoteSet& set) {
    return !set.dataStamp.exists && ConflictCopyOf(files, NoteSetName(set));
}

// False if the index cannot be read.
static bool AddNoteSet(const NoteFiles& files, NoteSet set, const std::string& indexFileName,
                       std::span<const std::string> tables, NoteSets& notes) {
    if (!ReadIndex(files, indexFileName, set.offsets)) return false;
    notes.sets.push_back(std::move(set));
    if (HasTable(tables, NoteSetName(notes.sets.back())))
        ReadDevotionalTable(files, notes, static_cast<int>(notes.sets.size()) - 1);
    return true;
}

static bool CreateFirstSet(const NoteFiles& files, NoteSets& notes) {
    NoteSet set = EmptyNoteSet(kFirstSetName);
    const bool created = CreateNoteFiles(files, set) == 2;
    notes.sets.push_back(std::move(set));
    return created;
}

bool FindNoteSets(const NoteFiles& files, NoteSets& notes) {
    notes.sets.clear();
    notes.notShown.clear();
    notes.closedIndex.clear();
    notes.unnamedSets = files.countUnnamed(files.device, std::string("*") + kDataEnding);
    notes.devotionalSet = kNoDevotionalSet;
    const std::vector<std::string> tables = files.list(files.device, std::string("*") + kTableEnding);
    for (const std::string& indexFileName : files.list(files.device, std::string("*") + kIndexEnding)) {
        NoteSet set{indexFileName.substr(0, indexFileName.rfind('.')) + kDataEnding};
        StampFiles(files, set);
        if (IsLoneConflictCopy(files, set)) continue;
        const std::string name = NoteSetName(set);
        const bool isEnd = !notes.notShown.empty() || notes.sets.size() == kNoteSetLimit;
        if (!isEnd && AddNoteSet(files, std::move(set), indexFileName, tables, notes)) continue;
        if (!isEnd) notes.closedIndex = indexFileName;
        notes.notShown.push_back(name);
    }
    return !notes.sets.empty() || CreateFirstSet(files, notes);
}

static std::string CountNotShown(std::size_t count) {
    return std::to_string(count) + (count == 1 ? " set" : " sets") + " not shown: ";
}

// The names come first, because the line may be cut at its end.
static std::string NamesNotShown(const NoteSets& notes) {
    std::string names;
    for (const std::string& name : notes.notShown) names += (names.empty() ? "" : ", ") + name;
    const std::string reason = notes.closedIndex.empty() ? "There can be " + std::to_string(kNoteSetLimit) + " sets."
                                                         : '"' + notes.closedIndex + "\" cannot be opened.";
    return CountNotShown(notes.notShown.size()) + names + ". " + reason;
}

std::string NotShownText(const NoteSets& notes) {
    std::string text = notes.notShown.empty() ? "" : NamesNotShown(notes);
    if (notes.unnamedSets == 0) return text;
    if (!text.empty()) text += ' ';
    return text + CountNotShown(notes.unnamedSets) + (notes.unnamedSets == 1 ? "its name has" : "their names have") +
           " letters that this system's code page lacks. Rename the files.";
}

static bool HasSet(const NoteSets& notes, int set) {
    return set >= 0 && set < static_cast<int>(notes.sets.size());
}

void SelectSet(NoteSets& notes, int set) {
    notes.currentSet = HasSet(notes, set) ? set : 0;
}

int SetNamed(const NoteSets& notes, const std::string& name) {
    for (std::size_t set = 0; set < notes.sets.size(); ++set)
        if (EqualIgnoringCase(NoteSetName(notes.sets[set]), name)) return static_cast<int>(set);
    return kNoSet;
}

int SetNumberedAt(const NoteSets& notes, int number, std::uint64_t time) {
    int olderSets = 0;
    for (std::size_t set = 0; set < notes.sets.size(); ++set)
        if (notes.sets[set].dataStamp.time <= time && olderSets++ == number) return static_cast<int>(set);
    return number;
}

void SelectStoredNote(NoteSets& notes, int set, int verse) {
    SelectSet(notes, set);
    notes.currentVerse = verse == ClampVerse(verse) ? verse : 0;
}

const NoteSet* CurrentSet(const NoteSets& notes) {
    return HasSet(notes, notes.currentSet) ? &notes.sets[static_cast<std::size_t>(notes.currentSet)] : nullptr;
}

NoteSet* CurrentSet(NoteSets& notes) {
    return HasSet(notes, notes.currentSet) ? &notes.sets[static_cast<std::size_t>(notes.currentSet)] : nullptr;
}

static bool TryToRead(const NoteFiles& files, NoteSet& set, int verse, std::string& text) {
    if (RefreshSet(files, set) == SetRefresh::kUnreadable) return false;
    const StoredNote stored = StoredNoteOf(set, verse);
    const auto limit = static_cast<std::size_t>(std::min<std::uint64_t>(stored.length, kNoteBufferSize - 1));
    std::vector<unsigned char> bytes;
    if (!files.read(files.device, set.dataFileName, stored.offset, limit, bytes)) return false;
    text.assign(bytes.begin(), std::find(bytes.begin(), bytes.end(), '\0'));
    return true;
}

static bool ReadNoteOf(const NoteFiles& files, NoteSets& notes, int verse, std::string& text) {
    NoteSet* set = CurrentSet(notes);
    if (set == nullptr) return false;
    if (TryToRead(files, *set, verse, text)) return true;
    const NoteLock lock = LockAgainstSaves(files);
    return lock.state == NoteLocking::kLocked && TryToRead(files, *set, verse, text);
}

bool ReadStoredNote(const NoteFiles& files, NoteSets& notes, std::string& text) {
    return ReadNoteOf(files, notes, notes.currentVerse, text);
}

bool ReadNoteText(const NoteFiles& files, const VerseRecords& records, NoteSets& notes, int verse) {
    verse = ClampVerse(verse);
    notes.hasFailed = !ReadNoteOf(files, notes, verse, notes.noteText);
    if (notes.hasFailed) return false;
    notes.currentVerse = verse;
    if (notes.noteText.empty()) notes.noteText = "No note for " + ReferenceText(records, verse, BookForm::kName) + ".";
    return true;
}

bool NoteExists(const NoteFiles& files, const NoteSets& notes, int verse) {
    const NoteSet* set = CurrentSet(notes);
    return set != nullptr && NoteExists(files, *set, verse);
}

// Steps from the current verse by `step` (1 or -1), wrapping around the Bible, to the next verse with a note.
static int StepToNote(const NoteFiles& files, NoteSets& notes, int step) {
    if (NoteSet* set = CurrentSet(notes)) RefreshSet(files, *set);
    const auto neighbour = [step](int verse) { return (verse + step + kVerseCount) % kVerseCount; };
    const int start = ClampVerse(notes.currentVerse);
    int verse = neighbour(start);
    while (verse != start && !NoteExists(files, notes, verse)) verse = neighbour(verse);
    return verse == start ? neighbour(start) : verse;
}

int NextNote(const NoteFiles& files, NoteSets& notes) {
    return StepToNote(files, notes, 1);
}

int PreviousNote(const NoteFiles& files, NoteSets& notes) {
    return StepToNote(files, notes, -1);
}

bool NeedsNewMarks(const MarkedBefore& before, const MarkedPlace& place) {
    return !before || before->listPosition != place.listPosition || before->passageVerse != place.passageVerse;
}

// In letters, because one may have two bytes.
std::string TabName(const NoteFiles& files, const NoteSet& set) {
    static constexpr std::size_t kMostLetters = 40, kAtEnd = 11;
    static constexpr std::u16string_view kBetween = u"...";
    std::string name = NoteSetName(set);
    if (name.size() <= kMostLetters) return name;
    const std::u16string letters = files.codePage.lettersOf(files.codePage.device, name);
    if (letters.size() <= kMostLetters) return name;
    std::u16string shorter = letters.substr(0, kMostLetters - kBetween.size() - kAtEnd);
    shorter.append(kBetween).append(letters, letters.size() - kAtEnd);
    files.codePage.bytesOf(files.codePage.device, shorter, name);
    return name;
}

std::string MarkedLabel(const NoteFiles& files, const NoteSet& set, const MarkedPlace& place) {
    std::string label;
    if (place.listPosition >= 0 && NoteExists(files, set, place.listVerse)) label += "\xAB ";
    if (NoteExists(files, set, place.passageVerse)) label += "\xBB ";
    return label + TabName(files, set);
}
