#include "history/set_states.h"

#include <algorithm>
#include <limits>
#include <new>
#include <optional>
#include <span>
#include <tuple>

#include "notes/note_history.h"
#include "notes/note_places.h"
#include "notes/note_set_changes.h"
#include "notes/whole_files.h"
#include "scripture/letters.h"

// ---- The copies -----------------------------------------------------------------------------------------------------

// Does `text` begin with the form, in which 'd' is a digit?
static bool BeginsWith(std::string_view text, std::string_view form) {
    return text.size() >= form.size() && std::equal(form.begin(), form.end(), text.begin(), [](char expected, char c) {
               return expected == 'd' ? IsDigit(c) : c == expected;
           });
}

// Splits a name such as "Mine 2024-12-31 235959". The last day in it counts: a set may itself be called
// "Mine 2024-12-31".
static std::optional<SetState> StateOf(const std::string& fileName) {
    static constexpr std::string_view kDay = " dddd-dd-dd", kClock = " dddddd";
    const std::string ending = kDataEnding;
    if (!fileName.ends_with(ending)) return std::nullopt;
    const std::string name = fileName.substr(0, fileName.size() - ending.size());
    for (const std::size_t length : {kDay.size(), kDay.size() + kClock.size()}) {
        if (name.size() < length) continue;
        const std::size_t begin = name.size() - length;
        const std::string end = name.substr(begin);
        const std::string clock = end.substr(kDay.size());
        if (!BeginsWith(end, kDay) || (!clock.empty() && !BeginsWith(clock, kClock))) continue;
        return SetState{name.substr(0, begin), end.substr(1, kDay.size() - 1), clock.substr(clock.empty() ? 0 : 1),
                        std::string(kBackupFolder) + '/' + fileName};
    }
    return std::nullopt;
}

std::vector<SetState> SetStates(const NoteFiles& files) {
    std::vector<SetState> states;
    for (const std::string& file : files.list(files.device, std::string(kBackupFolder) + "/*" + kDataEnding)) {
        const auto state = StateOf(file);
        if (state) states.push_back(*state);
    }
    std::ranges::sort(states, [](const SetState& a, const SetState& b) {
        return std::tie(b.day, b.clock, a.setName) < std::tie(a.day, a.clock, b.setName);
    });
    return states;
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

bool HasWholeState(const NoteFiles& files, const std::string& setName) {
    return std::ranges::any_of(SetStates(files), [&](const SetState& state) {
        NotesInMemory notes;
        return EqualIgnoringCase(state.setName, setName) && ReadNotesInMemory(files, state.dataFileName, notes) &&
               notes.isWhole;
    });
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

static std::string Clock(int secondOfDay) {
    const int clock = secondOfDay / 3600 * 10000 + secondOfDay / 60 % 60 * 100 + secondOfDay % 60;
    return std::to_string(1000000 + clock).substr(1);
}

// A name of this time or of the next second that no copy of the set has yet.
static std::string FreeCopyName(const NoteFiles& files, const std::string& setName, const NoteTime& now) {
    const std::string day = std::string(kBackupFolder) + '/' + setName + ' ' + now.day + ' ';
    int second = now.secondOfDay;
    while (files.stamp(files.device, day + Clock(second) + kDataEnding).exists) ++second;
    return day + Clock(second);
}

static bool CopyIntoBackup(const NoteFiles& files, const NoteSet& set, const NoteTime& now) {
    if (!files.makeFolder(files.device, kBackupFolder)) return false;
    const std::string name = FreeCopyName(files, NoteSetName(set), now);
    files.remove(files.device, name + kIndexEnding);
    CopyWholeFile(files, IndexFileName(set), name + kIndexEnding);
    return CopyWholeFile(files, set.dataFileName, name + kDataEnding);
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
    if (!ReadNotesInMemory(files, set, today) || !CopyIntoBackup(files, set, now)) {
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

std::string RestoreSetState(const NoteFiles& files, NoteSets& notes, const SetState& state, const std::string& name,
                            const NoteTime& now) {
    NotesInMemory then;
    if (!ReadNotesInMemory(files, state.dataFileName, then))
        return "The file \"" + state.dataFileName + "\" cannot be read." + kNothingChanged;
    if (!then.isWhole) {
        return "The file \"" + state.dataFileName + "\" is damaged: it does not hold one note for each verse." +
               kNothingChanged;
    }
    NoteSet* set = SetCalled(notes, name);
    if (set == nullptr) return AddSet(files, notes, name, then);
    if (EqualIgnoringCase(name, state.setName)) return ReplaceSet(files, *set, then, now);
    return "There already is another note set \"" + NoteSetName(*set) + "\". Choose a new name, or the set's own." +
           kNothingChanged;
}
