#include "history/set_states.h"

#include <algorithm>
#include <limits>
#include <new>
#include <optional>
#include <tuple>

#include "notes/note_history.h"
#include "notes/note_lock.h"
#include "notes/note_places.h"
#include "notes/note_set_changes.h"
#include "notes/whole_files.h"
#include "scripture/letters.h"

// ---- The copies -----------------------------------------------------------------------------------------------------

std::vector<SetBackup> SetStates(const NoteFiles& files) {
    std::vector<SetBackup> states = AllBackups(files);
    std::ranges::sort(states, [](const SetBackup& a, const SetBackup& b) {
        return std::tie(b.day, b.clock, a.setName) < std::tie(a.day, a.clock, b.setName);
    });
    return states;
}

bool HasWholeState(const NoteFiles& files, const std::string& setName) {
    return std::ranges::any_of(BackupsOf(files, setName),
                               [&](const SetBackup& state) { return OpenBackup(files, state).has_value(); });
}

// ---- Notes in memory ------------------------------------------------------------------------------------------------

bool ReadNotesInMemory(const NoteFiles& files, const std::string& dataFileName, NotesInMemory& notes) {
    try {
        if (!ReadWholeFile(files, dataFileName, std::numeric_limits<std::uint32_t>::max(), notes.bytes)) return false;
        NotePlaces places;
        AddPlaces(places, notes.bytes);
        notes.isWhole = IsWhole(places);
        notes.offsets = std::move(places.offsets);
        return true;
    } catch (const std::bad_alloc&) {
        return false;
    }
}

bool ReadNotesInMemory(const NoteFiles& files, const NoteSet& set, NotesInMemory& notes) {
    if (!ReadNotesInMemory(files, set.dataFileName, notes)) return false;
    if (!notes.isWhole) notes.offsets = set.offsets;
    return true;
}

std::string_view NoteIn(const NotesInMemory& notes, int verse) {
    const auto place = static_cast<std::size_t>(verse);
    if (place >= notes.offsets.size()) return {};
    const std::size_t begin = std::min<std::size_t>(notes.offsets[place], notes.bytes.size());
    const std::size_t end = place + 1 < notes.offsets.size()
                                ? std::min<std::size_t>(notes.offsets[place + 1], notes.bytes.size())
                                : notes.bytes.size();
    if (end <= begin) return {};
    const std::string_view note(reinterpret_cast<const char*>(notes.bytes.data()) + begin, end - begin);
    return note.substr(0, note.find('\0'));
}

std::vector<int> DifferingVerses(const NotesInMemory& then, const NotesInMemory& now) {
    std::vector<int> verses;
    if (then.bytes == now.bytes && then.offsets == now.offsets) return verses;
    for (int verse = 0; verse < kVerseCount; ++verse)
        if (NoteIn(then, verse) != NoteIn(now, verse)) verses.push_back(verse);
    return verses;
}

// ---- Restoring ------------------------------------------------------------------------------------------------------

static constexpr char kNothingChanged[] = " Nothing has been changed.";

NoteSet* SetCalled(NoteSets& notes, const std::string& name) {
    const int set = SetNamed(notes, name);
    return set == kNoSet ? nullptr : &notes.sets[static_cast<std::size_t>(set)];
}

static void KeepReplacedTexts(const NoteFiles& files, const NoteSet& set, const NotesInMemory& then,
                              const NotesInMemory& today, const NoteTime& now) {
    std::vector<EarlierNote> texts;
    for (const int verse : DifferingVerses(then, today)) {
        const std::string_view text = NoteIn(today, verse);
        if (!text.empty()) texts.push_back({now.seconds, verse, KeptReason::kRestored, std::string(text)});
    }
    KeepEarlierNotes(files, NoteSetName(set), texts);
}

// False if nothing was written. An index that cannot be written is made again by the next start.
static bool WriteSet(const NoteFiles& files, NoteSet& set, const NotesInMemory& then) {
    if (!WriteWholeFile(files, set.dataFileName, then.bytes)) return false;
    set.offsets = then.offsets;
    set.readOnly = false;
    ++set.timesChanged;
    WriteIndex(files, IndexFileName(set), set.offsets);
    StampFiles(files, set);
    return true;
}

static std::string ReplaceSet(const NoteFiles& files, NoteSet& set, const NotesInMemory& then, const NoteTime& now) {
    NotesInMemory today;
    const bool hasNotes = files.stamp(files.device, set.dataFileName).exists;
    if (hasNotes && (!ReadNotesInMemory(files, set, today) || !KeepBackupWithTime(files, set, now))) {
        return "What is in the note set \"" + NoteSetName(set) +
               "\" now could not be copied into the folder \"backup\". The disk may be full, or another program may be "
               "using the files." +
               kNothingChanged;
    }
    KeepReplacedTexts(files, set, then, today, now);
    if (WriteSet(files, set, then)) return "";
    return "The note set \"" + NoteSetName(set) +
           "\" could not be written. The disk may be full, or another program may be using its files." +
           kNothingChanged;
}

static std::string AddSet(const NoteFiles& files, NoteSets& notes, const std::string& name, const NotesInMemory& then) {
    const std::string reason = ReasonAgainstNewSet(files, notes, name);
    if (!reason.empty()) return reason;
    NoteSet set{name + kDataEnding};
    if (!WriteSet(files, set, then)) return kCannotCreateNotes;
    notes.sets.push_back(std::move(set));
    return "";
}

// Gives the set the copy's table of readings, if it has one. Returns the message for the user; empty on success.
static std::string RestoreTable(const NoteFiles& files, NoteSets& notes, const SetBackup& state,
                                const std::string& name) {
    const int set = SetNamed(notes, name);
    const std::string table = BackupName(state) + kTableEnding;
    const bool isElsewhere = notes.devotionalSet != kNoDevotionalSet && notes.devotionalSet != set;
    if (isElsewhere || !files.stamp(files.device, table).exists) return "";
    const std::string tableOfSet = NoteSetName(notes.sets[static_cast<std::size_t>(set)]) + kTableEnding;
    std::vector<unsigned char> bytes;
    if (!ReadWholeFile(files, table, kDevotionalFileSize, bytes) || !WriteWholeFile(files, tableOfSet, bytes))
        return "The notes are restored, but the table of readings \"" + table + "\" could not be copied.";
    ReadDevotionalTable(files, notes, set);
    return "";
}

static std::string RestoreNotes(const NoteFiles& files, NoteSets& notes, const SetBackup& state,
                                const std::string& name, const NoteTime& now) {
    const std::string dataFileName = BackupName(state) + kDataEnding;
    NotesInMemory then;
    if (!ReadNotesInMemory(files, dataFileName, then))
        return "The file \"" + dataFileName + "\" cannot be read." + kNothingChanged;
    if (!then.isWhole)
        return "The file \"" + dataFileName + "\" is damaged: it does not hold one note for each verse." +
               kNothingChanged;
    NoteSet* set = SetCalled(notes, name);
    if (set == nullptr) return AddSet(files, notes, name, then);
    if (EqualIgnoringCase(name, state.setName)) return ReplaceSet(files, *set, then, now);
    return "There already is another note set \"" + NoteSetName(*set) + "\". Choose a new name, or the set's own." +
           kNothingChanged;
}

std::string RestoreSetState(const NoteFiles& files, NoteSets& notes, const SetBackup& state, const std::string& name,
                            const NoteTime& now) {
    const NoteLock lock = LockNoteFiles(files, files.stamp(files.device, BackupName(state) + kDataEnding).size);
    const std::string problem = RestoreNotes(files, notes, state, name, now);
    return problem.empty() ? RestoreTable(files, notes, state, name) : problem;
}
